#include "platform/framework/TComponent.h"

#include <gtest/gtest.h>

#include <ranges>

#include "framework/SampleComponent.h"
#include "platform/framework/TRefList.h"
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

/// Points at components through references with setters, and lists some.
class TKeeper : public TComponent {
 public:
  ~TKeeper() override { Destroying(); }
  void SetOne(TComponent* Value) {
    Calls += Value == nullptr ? "null " : "set ";
    One = Value;
  }
  void RemoveItem(TComponent* Item) { Calls += Items.Remove(Item) ? "removed " : "unknown "; }
  std::string Order() const {
    std::string Result;
    for (const TComponent* Item : Items) Result += Item->Name();
    return Result;
  }
  std::string Calls;
  TRef<TComponent> One{this, &TKeeper::SetOne};
  TRefList<TComponent> Items{this, &TKeeper::RemoveItem};
};

TEST(Component, AReferenceWithASetterIsClearedThroughIt) {
  TKeeper Keeper;
  {
    TComponent Target;
    Keeper.SetOne(&Target);
    Keeper.Items.Add(&Target);
  }
  EXPECT_EQ(Keeper.Calls, "set removed null ");
  EXPECT_EQ(Keeper.One, nullptr);
  EXPECT_TRUE(Keeper.Items.empty());
  TComponent Target;
  Keeper.SetOne(&Target);
  Keeper.Items.Add(&Target);
  Keeper.Destroying();
  Keeper.Calls.clear();
  Target.Destroying();  // a holder that dies is left alone, and points at nothing all the same
  EXPECT_EQ(Keeper.Calls, "");
  EXPECT_EQ(Keeper.One, nullptr);
  EXPECT_EQ(Keeper.Items.size(), 0u);
}

TEST(RefList, KeepsItsOrderWhateverLeaves) {
  static_assert(std::ranges::input_range<const TRefList<TComponent>>);
  auto Owner = std::make_unique<TComponent>();
  TKeeper Keeper;
  const auto Make = [&](const char* Name) {
    auto* const Item = new TComponent(Owner.get());
    Item->SetName(Name);
    EXPECT_TRUE(Keeper.Items.Add(Item));
    EXPECT_FALSE(Keeper.Items.Add(Item));
    return Item;
  };
  for (const char* Name : {"A", "B", "C", "D", "E", "F"}) Make(Name);
  delete Owner->FindComponent("C");
  EXPECT_EQ(Keeper.Order(), "ABDEF");
  EXPECT_EQ(Keeper.Items[2]->Name(), "D");
  Keeper.Items.Swap(0, 3);
  delete Owner->FindComponent("F");
  delete Owner->FindComponent("E");
  EXPECT_EQ(Keeper.Order(), "BDA");
  EXPECT_EQ(Keeper.Items[2]->Name(), "A");
  std::string Seen;
  for (const TComponent* Item : Keeper.Items) {  // one that was seen, the present one and one to come die; one comes
    Seen += Item->Name();
    if (Seen != "BD") continue;
    for (const char* Name : {"B", "D", "A"}) delete Owner->FindComponent(Name);
    for (const char* Name : {"G", "H"}) Make(Name);
    EXPECT_EQ(Keeper.Items[1]->Name(), "H");
  }
  EXPECT_EQ(Seen, "BDGH");
  Make("I");
  std::string Backwards;
  for (const TComponent* Item : Keeper.Items.Reversed()) {
    Backwards += Item->Name();
    if (Backwards == "I") delete Owner->FindComponent("H");
  }
  EXPECT_EQ(Backwards, "IG");
  Keeper.Items.Clear();
  Make("J");
  EXPECT_EQ(Keeper.Order(), "J");
  Owner.reset();
  EXPECT_EQ(Keeper.Order(), "");
}

TEST(RefList, FindsAnIndexWhereverManyHaveLeft) {
  TKeeper Keeper;
  std::vector<std::unique_ptr<TComponent>> Items;
  for (int Round = 0; Round < 600; ++Round) {
    if (Round % 5 < 3 || Round < 100) Keeper.Items.Add(Items.emplace_back(std::make_unique<TComponent>()).get());
    if (Round % 5 >= 3) Items.erase(Items.begin() + Round * 7919 % static_cast<int>(Items.size()));
    ASSERT_EQ(Keeper.Items.size(), Items.size());
    for (std::size_t Index = 0; Index < Items.size(); ++Index) ASSERT_EQ(Keeper.Items[Index], Items[Index].get());
  }
}

TEST(RefList, HoldsWhatBelongsToAComponent) {
  TKeeper Keeper;
  TRefList<std::string> Texts(&Keeper);
  std::string First = "first", Second = "second";
  auto Control = std::make_unique<TComponent>();
  Texts.Add(&First, Control.get());
  Texts.Add(&Second, &Keeper);
  Control.reset();
  EXPECT_FALSE(Texts.Contains(&First));
  EXPECT_EQ(Texts[0], &Second);
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
