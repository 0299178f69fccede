#include "platform/framework/TComponent.h"

#include <gtest/gtest.h>

#include "framework/SampleComponent.h"
#include "platform/framework/Application.h"
#include "platform/framework/ComponentPath.h"
#include "platform/framework/Exceptions.h"

namespace zy::testing {
namespace {

/// Notes its name in a list when it dies.
class TMortal : public TComponent {
 public:
  TMortal(TComponent* Owner, std::string Mark, std::vector<std::string>& Deaths)
      : TComponent(Owner), FMark(std::move(Mark)), FDeaths(Deaths) {}
  ~TMortal() override {
    Destroying();
    FDeaths.push_back(FMark);
  }

 private:
  std::string FMark;
  std::vector<std::string>& FDeaths;
};

TEST(Component, TheOwnerDeletesInReverseOrderOfCreation) {
  std::vector<std::string> Deaths;
  {
    TMortal Owner(nullptr, "owner", Deaths);
    new TMortal(&Owner, "first", Deaths);
    auto* const Second = new TMortal(&Owner, "second", Deaths);
    new TMortal(Second, "inner", Deaths);
    delete new TMortal(&Owner, "early", Deaths);
    EXPECT_EQ(Owner.Components().size(), 2u);
  }
  EXPECT_EQ(Deaths, (std::vector<std::string>{"early", "owner", "second", "inner", "first"}));
}

TEST(Component, NamesAreIdentifiersAndUniqueInTheOwner) {
  TComponent Owner;
  auto* const A = new TComponent(&Owner);
  auto* const B = new TComponent(&Owner);
  A->SetName("Axis1");
  EXPECT_THROW(B->SetName("Axis1"), EComponentError);
  for (const char* Name : {"1Axis", "Ax is", "Ä", "A.B", "-"}) EXPECT_THROW(B->SetName(Name), EComponentError) << Name;
  B->SetName("Axis2");
  EXPECT_EQ(Owner.FindComponent("Axis2"), B);
  B->SetName("");
  EXPECT_EQ(Owner.FindComponent("Axis2"), nullptr);
  EXPECT_EQ(Owner.FindComponent(""), nullptr);
  TComponent Other;
  auto* const C = new TComponent(&Other);
  C->SetName("Axis1");
  EXPECT_THROW(Owner.InsertComponent(C), EComponentError);
  EXPECT_EQ(C->Owner(), &Other);
  C->SetName("Axis3");
  Owner.InsertComponent(C);
  EXPECT_EQ(Owner.FindComponent("Axis3"), C);
  EXPECT_TRUE(Other.Components().empty());
}

TEST(Component, RegisteredObjectsHearOfADeathOnce) {
  TSample Listener;
  auto* const Target = new TComponent;
  Target->FreeNotification(&Listener);
  Target->FreeNotification(&Listener);
  delete Target;
  EXPECT_EQ(Listener.Removed, (std::vector<TComponent*>{Target}));
  TComponent Kept;
  {
    TSample Gone;
    Kept.FreeNotification(&Gone);
  }  // the partner may die first
  Kept.FreeNotification(&Listener);
  Kept.FreeNotification(&Listener);
  Kept.RemoveFreeNotification(&Listener);
  Kept.RemoveFreeNotification(&Listener);
}

TEST(Component, ReferencesAreClearedWhoeverDiesFirst) {
  TSample Holder;
  {
    TSample Target;  // on the stack
    Holder.SetLink(&Target);
    EXPECT_EQ(Holder.Link(), &Target);
  }
  EXPECT_EQ(Holder.Link(), nullptr);
  EXPECT_EQ(Holder.Removed.size(), 1u);
  TSample Target;
  {
    TSample Short;
    Short.SetLink(&Target);
    Target.SetLink(&Short);
  }
  EXPECT_EQ(Target.Link(), nullptr);
  TSample Itself;
  Itself.SetLink(&Itself);
}

/// Keeps its reference when it is told to clear it.
class TCareless : public TComponent {
 public:
  TRef<TComponent> Target{this};
};

TEST(Component, AReferenceIsNullEvenWhenItsHolderForgetsToClearIt) {
  TCareless Holder;
  auto* const Target = new TComponent;
  Holder.Target = Target;
  delete Target;
  EXPECT_EQ(Holder.Target, nullptr);
}

/// Asks for a notice of somebody while it is dying, as setters that run in a destructor do.
class TLateAsker : public TComponent {
 public:
  explicit TLateAsker(TComponent& Other) : FOther(Other) {}
  ~TLateAsker() override {
    Destroying();
    FreeNotification(&FOther);
  }

 private:
  TComponent& FOther;
};

TEST(Component, ANoticeAskedForInADestructorDiesWithIt) {
  TSample Other;
  { const TLateAsker Asker(Other); }
  Other.Destroying();
  EXPECT_TRUE(Other.Removed.empty());
}

TEST(Component, StateFlagsReachWhatIsOwned) {
  TComponent Owner;
  auto* const Before = new TComponent(&Owner);
  Owner.SetDesigning(true);
  const auto* const After = new TComponent(&Owner);
  EXPECT_TRUE(Before->IsDesigning());
  EXPECT_TRUE(After->IsDesigning());
  Owner.Destroying();
  EXPECT_TRUE(Before->IsDestroying());
}

TEST(Component, PathsLeadFromFormsAndDataModules) {
  TDataModule Module;
  Module.SetName("Data");
  auto* const Outer = new TComponent(&Module);
  Outer->SetName("Outer");
  auto* const Inner = new TComponent(Outer);
  Inner->SetName("Inner");
  EXPECT_EQ(ComponentPath(Inner), "Data.Outer.Inner");
  EXPECT_EQ(ComponentPath(Inner, Outer), "Inner");
  EXPECT_EQ(ComponentFromPath("Data.Outer.Inner"), Inner);
  EXPECT_EQ(ComponentFromPath("Outer.Inner", &Module), Inner);
  for (const char* Path : {"", ".", "Data.Inner", "data", "Data.Outer.Other", "Data..Outer"})
    EXPECT_EQ(ComponentFromPath(Path), nullptr) << Path;
  Outer->SetName("");
  EXPECT_EQ(ComponentPath(Inner), "");
  EXPECT_EQ(ComponentPath(nullptr), "");
}

TEST(Persistent, AHandleNamesOneObjectForEver) {
  auto First = std::make_unique<TSampleStyle>();
  const std::uint64_t Handle = First->LiveHandle();
  EXPECT_EQ(TPersistent::FromLiveHandle(Handle), First.get());
  First.reset();
  for (int Round = 0; Round < 100; ++Round) {
    const TSampleStyle Next;  // may well lie where the first one did
    EXPECT_NE(Next.LiveHandle(), Handle);
    EXPECT_EQ(TPersistent::FromLiveHandle(Handle), nullptr);
  }
}

TEST(Persistent, ForeignClassesAreRefused) {
  TSampleStyle Style;
  TStringList Lines;
  EXPECT_THROW(Style.Assign(&Lines), EConvertError);
  EXPECT_THROW(Lines.Assign(nullptr), EConvertError);
}

TEST(Strings, NotifyAroundEachChangeAndOnceInAnUpdate) {
  TStringList Lines;
  std::string Log;
  Lines.OnChanging = [&](TObject*) { Log += '('; };
  Lines.OnChange = [&](TObject*) { Log += ')'; };
  Lines.Add("b");
  Lines.Insert(0, "a");
  Lines.Put(1, "c");
  Lines.Delete(0);
  Lines.Clear();
  Lines.Clear();
  EXPECT_EQ(Log, "()()()()()");
  Log.clear();
  Lines.SetText("one\r\ntwo\rthree\n\nfive");
  EXPECT_EQ(Log, "()");
  EXPECT_EQ(Lines.Count(), 5);
  EXPECT_EQ(Lines.Text(), "one\ntwo\nthree\n\nfive\n");
  EXPECT_EQ(Lines.IndexOf("three"), 2);
  EXPECT_EQ(Lines.IndexOf("none"), -1);
  for (const int Index : {-1, 5}) {
    EXPECT_THROW(Lines.Get(Index), ERangeError);
    EXPECT_THROW(Lines.Put(Index, ""), ERangeError);
    EXPECT_THROW(Lines.Delete(Index), ERangeError);
    EXPECT_THROW(Lines.Insert(Index < 0 ? Index : 6, ""), ERangeError);
  }
  TStringList Copy;
  Copy.Assign(&Lines);
  EXPECT_EQ(Copy.Text(), Lines.Text());
}

}  // namespace
}  // namespace zy::testing
