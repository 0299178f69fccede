#include "platform/framework/TComponent.h"

#include <gtest/gtest.h>

#include "framework/SampleComponent.h"
#include "texts/Exceptions.h"

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
  for (int Round = 0; Round < 2; ++Round) Kept.FreeNotification(&Listener);
  for (int Round = 0; Round < 2; ++Round) Kept.RemoveFreeNotification(&Listener);
}

/// Keeps its reference when it is told to clear it.
class TCareless : public TComponent {
 public:
  TRef<TComponent> Target{this};
};

TEST(Component, ReferencesAreClearedWhoeverDiesFirst) {
  TSample Holder, Target, Itself;
  TCareless Careless;
  {
    TSample Short;
    Holder.SetLink(&Short);
    Careless.Target = &Short;
    EXPECT_EQ(Holder.Link(), &Short);
    Short.SetLink(&Target);
    Target.SetLink(&Short);
  }
  EXPECT_EQ(Holder.Link(), nullptr);
  EXPECT_EQ(Holder.Removed.size(), 1u);
  EXPECT_EQ(Target.Link(), nullptr);
  EXPECT_EQ(Careless.Target, nullptr);
  Itself.SetLink(&Itself);
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

}  // namespace
}  // namespace zy::testing
