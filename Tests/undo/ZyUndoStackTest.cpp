#include "undo/ZyUndoStack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <random>

#include "framework/Errors.h"
#include "framework/SampleComponent.h"
#include "persistence/ZyIO.h"
#include "platform/framework/Application.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/Reflection.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyDoubleVector.h"
#include "series/ZyLineSeries.h"

namespace zy {
namespace {

using testing::TSample;
using testing::TShade;
using TLabels = std::vector<std::string>;

TLabels LabelsOf(const TStrings& List) {
  TLabels Result;
  for (int Index = 0; Index < List.Count(); ++Index) Result.push_back(List.Get(Index));
  return Result;
}

/// A module that is found by name, with a stack and samples whose setters push to it.
class ZyUndoStackTest : public ::testing::Test {
 protected:
  ZyUndoStackTest() {
    Module.SetName("Module");
    Stack.OnCount = 0;
    Stack.SetOnUndo([this](TObject* Sender) { Stack.OnCount += Sender == &Stack ? 1 : 100; });
    Stack.SetOnRedo([this](TObject* Sender) { Stack.OnCount += Sender == &Stack ? 1 : 100; });
  }

  TSample* MakeSample(const char* Name) {
    auto* const Sample = new TSample(&Module);
    Sample->SetName(Name);
    Hook(*Sample);
    return Sample;
  }
  void Hook(TSample& Sample) {
    Sample.BeforeChange = [this](TPersistent* Instance, const char* PropName) {
      Stack.PushProperty(Instance, PropName, PropName);
    };
  }

  struct TCountingStack : TZyUndoStack {
    using TZyUndoStack::TZyUndoStack;
    int OnCount = 0;
  };
  TDataModule Module;
  TCountingStack& Stack = *new TCountingStack(&Module);  // the oldest component of the module, and so the last to go
};

TEST_F(ZyUndoStackTest, GroupsAreOneStepWithTheOuterLabel) {
  TSample& Sample = *MakeSample("Sample");
  Stack.StartGroup("outer");
  Sample.SetWhole(1);
  Stack.StartGroup("inner");
  Sample.SetReal(2);
  Stack.StopGroup();
  Sample.SetWhole(3);
  Stack.StopGroup();
  Stack.StartGroup("empty");
  Stack.StopGroup();
  Sample.SetText("alone");
  EXPECT_EQ(LabelsOf(Stack.UndoList()), (TLabels{"Text", "empty", "outer"}));
  Stack.Undo(1);
  EXPECT_EQ(Sample.Text(), "");
  EXPECT_EQ(Sample.Whole(), 3);
  EXPECT_EQ(LabelsOf(Stack.RedoList()), (TLabels{"empty", "Text"}));
  Stack.Undo();
  EXPECT_EQ(Sample.Whole(), 0);
  EXPECT_EQ(Sample.Real(), 0.0);
  EXPECT_EQ(LabelsOf(Stack.RedoList()), (TLabels{"outer", "empty", "Text"}));
  Stack.Redo(1);
  EXPECT_EQ(Sample.Whole(), 3);
  EXPECT_EQ(Sample.Real(), 2.0);
  Sample.SetWhole(9);  // a push after a redo keeps what the redo brought back, and ends what was left to redo
  EXPECT_EQ(LabelsOf(Stack.UndoList()), (TLabels{"Whole", "empty", "outer"}));
  EXPECT_EQ(Stack.RedoCount(), 0);
}

TEST_F(ZyUndoStackTest, EmptyOrDisabledStacksDoNothing) {
  TSample& Sample = *MakeSample("Sample");
  Stack.Undo();
  Stack.Redo();
  Sample.SetWhole(1);
  Stack.SetEnabled(false);
  EXPECT_FALSE(Stack.CanUndo());
  Sample.SetWhole(2);
  Stack.StopGroup();
  Stack.Undo();
  EXPECT_EQ(Sample.Whole(), 2);
  EXPECT_EQ(Stack.OnCount, 0);
  Stack.SetEnabled(true);  // the log stayed
  EXPECT_EQ(Stack.UndoCount(), 1);
  Stack.Undo();
  EXPECT_EQ(Sample.Whole(), 0);
}

TEST_F(ZyUndoStackTest, FailedPushesLeaveNoTrace) {
  TSample& Sample = *MakeSample("Sample");
  using testing::MessageOf;
  EXPECT_EQ(MessageOf([&] { Stack.PushProperty(&Sample, "label", "Nothing"); }), "Property: \"Nothing\" not found");
  Sample.SetTable({{1, 2}, {3}});
  EXPECT_EQ(MessageOf([&] { Stack.PushProperty(&Sample, "label", "Table"); }), "Only one dimensional arrays suported");
  TSample Nameless(&Module);
  EXPECT_EQ(MessageOf([&] { Stack.PushFreeComponent(&Nameless, "label"); }), "Component does not have a name");
  EXPECT_THROW(Stack.PushProperty(&Sample, "label", "OnEvent"), Exception);
  EXPECT_EQ(Stack.UndoCount(), 0);
  EXPECT_EQ(MessageOf([&] { Stack.StopGroup(); }), "Undo stack has too many StopGroup statements");
  Stack.Clear();
  Stack.StartGroup("open");
  Stack.Clear();  // closes the group
  EXPECT_THROW(Stack.StopGroup(), EOverflow);
}

TEST_F(ZyUndoStackTest, ComponentsComeBackWithTheirReferences) {
  MakeSample("Other");
  TSample* Sample = MakeSample("Sample");
  Sample->SetLink(static_cast<TSample*>(Module.FindComponent("Other")));
  Sample->SetText("kept");
  auto* const Child = new TSample(Sample);
  Child->SetName("Child");
  Stack.Clear();

  Stack.PushComponent(Sample, "deleted");
  delete Sample;
  Stack.Undo();
  Sample = dynamic_cast<TSample*>(Module.FindComponent("Sample"));
  ASSERT_NE(Sample, nullptr);
  EXPECT_EQ(Sample->Text(), "kept");
  EXPECT_EQ(Sample->Link(), Module.FindComponent("Other"));
  EXPECT_EQ(Sample->LoadedCount, 1);
  Stack.Redo();
  EXPECT_EQ(Module.FindComponent("Sample"), nullptr);
  Stack.Undo();
  EXPECT_NE(Module.FindComponent("Sample"), nullptr);

  Sample = dynamic_cast<TSample*>(Module.FindComponent("Sample"));  // a living one is brought back to its state
  Stack.PushComponent(Sample, "changed");
  Sample->SetText("changed");
  Sample->SetLink(nullptr);
  Stack.Undo();
  EXPECT_EQ(Sample->Text(), "kept");
  EXPECT_EQ(Sample->Link(), Module.FindComponent("Other"));
  Stack.Redo();
  EXPECT_EQ(Sample->Text(), "changed");

  MakeSample("Made")->SetWhole(5);
  Stack.PushFreeComponent(Module.FindComponent("Made"), "made");
  Stack.Undo();
  EXPECT_EQ(Module.FindComponent("Made"), nullptr);
  EXPECT_EQ(LabelsOf(Stack.RedoList()).front(), "made");
  Stack.Redo();
  ASSERT_NE(Module.FindComponent("Made"), nullptr);
  EXPECT_EQ(dynamic_cast<TSample*>(Module.FindComponent("Made"))->Whole(), 5);
}

TEST_F(ZyUndoStackTest, AFreedComponentThatIsGoneAlreadyIsSkipped) {
  TSample& Sample = *MakeSample("Sample");
  TSample* const Made = MakeSample("Made");
  Stack.StartGroup("made");
  Stack.PushFreeComponent(Made, "made");
  Sample.SetWhole(1);
  Stack.StopGroup();
  delete Made;
  Stack.Undo();
  EXPECT_EQ(Sample.Whole(), 0);
  EXPECT_EQ(Stack.RedoList().Count(), 1);
  Stack.Redo();
  EXPECT_EQ(Sample.Whole(), 1);
}

/// An edit control as far as the stack knows one.
class TEditStub : public TComponent, public IZyEditState {
  ZY_CLASS(TEditStub, TComponent)
  using TComponent::TComponent;
  std::string EditText() const override { return Text; }
  void SetEditText(const std::string& Value) override { Text = Value; }
  int SelStart() const override { return Start; }
  void SetSelStart(int Value) override { Start = Value; }
  int SelLength() const override { return Length; }
  void SetSelLength(int Value) override { Length = Value; }
  std::string Text;
  int Start = 0, Length = 0;
};
ZY_PUBLISHED(TEditStub, TComponent)

TEST_F(ZyUndoStackTest, EditsComeBackWithTheirSelection) {
  TEditStub Edit(&Module);
  Edit.SetName("Edit");
  Edit.Text = "new text";
  Edit.Start = 8;
  Stack.PushEditState(&Edit, "old", 1, 2, "typing");
  Stack.Undo();
  EXPECT_EQ(Edit.Text, "old");
  EXPECT_EQ(Edit.Start, 1);
  EXPECT_EQ(Edit.Length, 2);
  Stack.Redo();
  EXPECT_EQ(Edit.Text, "new text");
  EXPECT_EQ(Edit.Start, 8);
  EXPECT_EQ(Edit.Length, 0);
}

TEST_F(ZyUndoStackTest, VectorsComeBackWithTheirCountBetweenOtherRecords) {
  auto* const Vector = new TZyDoubleVector(&Module);
  Vector->SetName("Vector");
  TSample& Sample = *MakeSample("Sample");
  std::vector<double> Many(1000);
  for (std::size_t Index = 0; Index < Many.size(); ++Index) Many[Index] = 0.1 * static_cast<double>(Index);
  Vector->AddRange(Many);
  Sample.SetWhole(1);
  Stack.StartGroup("data");
  Stack.PushVectorState(Vector, "");
  Vector->Clear();
  Vector->Add(7);
  Sample.SetWhole(2);
  Stack.StopGroup();
  Sample.SetWhole(3);
  Stack.Undo(1);
  EXPECT_EQ(Vector->Count(), 1000);
  EXPECT_EQ(Vector->GetValue(999), Many[999]);
  EXPECT_EQ(Sample.Whole(), 1);
  Stack.Redo(1);
  EXPECT_EQ(Vector->Count(), 1);
  EXPECT_EQ(Vector->GetValue(0), 7.0);
  EXPECT_EQ(Sample.Whole(), 3);
}

TEST_F(ZyUndoStackTest, TheLayerOfASeriesIsUndoneLikeAProperty) {
  auto* const Series = new TZyLineSeries(&Module);
  Series->SetName("Series");
  Series->SetUndoStack(&Stack);
  ASSERT_EQ(GetPropInfo(*Series, "Layer"), nullptr);
  Series->SetLayer(4);
  Series->SetLayer(2);
  Stack.Undo();
  EXPECT_EQ(Series->Layer(), 4);
  Stack.Undo();
  EXPECT_EQ(Series->Layer(), 0);
  Stack.Redo(1);
  EXPECT_EQ(Series->Layer(), 2);
}

/// A sample whose setter can fail.
class TMoodySample : public TSample {
  ZY_CLASS(TMoodySample, TSample)
  using TSample::TSample;
  int Mood() const { return FMood; }
  void SetMood(int Value) {
    if (Refuses) throw ERangeError("no");
    FMood = Value;
  }
  bool Refuses = false;

 private:
  int FMood = 0;
};
ZY_PUBLISHED(TMoodySample, TSample, Published<&TMoodySample::Mood, &TMoodySample::SetMood>("Mood", 0))

TEST_F(ZyUndoStackTest, AFailingStepClearsTheStackAndIsTold) {
  TMoodySample Sample(&Module);
  Sample.SetName("Moody");
  const auto SetMood = [&](int Value) {
    Stack.PushProperty(&Sample, "Mood", "Mood");
    Sample.SetMood(Value);
  };
  for (const bool InRedo : {false, true}) {
    Sample.Refuses = false;
    Stack.OnCount = 0;
    SetMood(1);
    SetMood(2);
    if (InRedo) Stack.Undo();
    Sample.Refuses = true;
    EXPECT_NO_THROW(InRedo ? Stack.Redo() : Stack.Undo());
    EXPECT_FALSE(Stack.Restoring());
    EXPECT_EQ(Stack.UndoCount() + Stack.RedoCount(), 0);
    EXPECT_EQ(Stack.OnCount, InRedo ? 2 : 1);
    Sample.Refuses = false;
    SetMood(5);  // goes on from there
    EXPECT_EQ(Stack.UndoList().Count(), 1);
    Stack.Clear();
  }
}

TEST_F(ZyUndoStackTest, DeadTargetsAreNeverFollowed) {
  TSample* const Named = MakeSample("Named");
  Named->SetWhole(1);
  delete Named;
  Stack.Undo();  // its name leads nowhere
  EXPECT_EQ(Stack.UndoCount() + Stack.RedoCount(), 0);

  {
    TSample Nameless(&Module);
    Hook(Nameless);
    Nameless.SetWhole(1);
    Nameless.Style().SetWidth(2);
  }
  Stack.Undo();  // its handle neither, and no later object takes it over
  EXPECT_EQ(Stack.UndoCount() + Stack.RedoCount(), 0);
}

/// What the lists should show: the labels of the steps, and where the user stands in them.
struct TModel {
  void Push(const std::string& Label, int Limit) {
    Undone.clear();
    Done.push_back(Label);
    if (Limit > 0 && static_cast<int>(Done.size()) > Limit) Done.pop_front();
  }
  void Move(std::deque<std::string>& From, std::deque<std::string>& To, int Steps) {
    for (; Steps > 0 && !From.empty(); --Steps) {
      To.push_back(From.back());
      From.pop_back();
    }
  }
  static TLabels Newest(const std::deque<std::string>& Labels) { return {Labels.rbegin(), Labels.rend()}; }
  std::deque<std::string> Done, Undone;
};

TEST_F(ZyUndoStackTest, ListsAreRightAtEachStepForEveryLimit) {
  TSample& Sample = *MakeSample("Sample");
  Sample.BeforeChange = nullptr;
  for (const bool InMemory : {true, false}) {
    for (int Limit = 0; Limit <= 5; ++Limit) {
      TZyUndoStack Log(&Module);
      Log.SetToMemoryStream(InMemory);
      Log.SetLimit(Limit);
      TModel Model;
      std::map<std::string, int> Value;  // of Whole behind each step
      std::mt19937 Random(static_cast<unsigned>(Limit));
      const auto Roll = [&](int Count) { return static_cast<int>(Random() % static_cast<unsigned>(Count)); };
      for (int Step = 0; Step < 400; ++Step) {
        const int Action = Roll(8);
        if (Action < 4) {
          const std::string Label = "step " + std::to_string(Step);
          const bool IsGroup = Action == 3;
          if (IsGroup) Log.StartGroup(Label);
          for (int Left = IsGroup ? Roll(4) : 1; Left > 0; --Left) {
            Log.PushProperty(&Sample, Label, "Whole");
            Sample.SetWhole(Roll(1000));
          }
          if (IsGroup) Log.StopGroup();
          Model.Push(Label, Limit);
        } else {
          const bool IsUndo = Action < 6;
          auto& From = IsUndo ? Model.Done : Model.Undone;
          const int Steps = 1 + Roll(3);
          if (static_cast<int>(From.size()) < Steps) continue;
          if (IsUndo)
            Log.Undo(Steps - 1);
          else
            Log.Redo(Steps - 1);
          Model.Move(From, IsUndo ? Model.Undone : Model.Done, Steps);
        }
        ASSERT_EQ(LabelsOf(Log.UndoList()), TModel::Newest(Model.Done)) << "limit " << Limit << ", step " << Step;
        ASSERT_EQ(LabelsOf(Log.RedoList()), TModel::Newest(Model.Undone)) << "limit " << Limit << ", step " << Step;
      }
    }
  }
}

/// Calls one setter of one sample with a value of its kind.
void SetAtRandom(TSample& Sample, TSample& Other, std::mt19937& Random) {
  const auto Roll = [&Random](int Count) { return static_cast<int>(Random() % static_cast<unsigned>(Count)); };
  const std::function<void()> Setters[] = {
      [&] { Sample.SetWhole(Roll(5) - 2); },
      [&] { Sample.SetSmall(static_cast<std::int8_t>(Roll(256) - 128)); },
      [&] { Sample.SetLetter(static_cast<char>(Roll(256) - 128)); },
      [&] { Sample.SetSwitch(Roll(2) == 1); },
      [&] { Sample.SetShade(static_cast<TShade>(Roll(3))); },
      [&] { Sample.SetShades(TSet<TShade>::FromBits(static_cast<std::uint32_t>(Roll(8)))); },
      [&] { Sample.SetSingle(static_cast<float>(Roll(1000)) / 7); },
      [&] { Sample.SetReal(std::bit_cast<double>(std::uint64_t{Random()} << 30 | Random())); },
      [&] { Sample.SetText(std::string(static_cast<std::size_t>(Roll(300)), 'a')); },
      [&] { Sample.SetLink(Roll(3) == 0 ? nullptr : &Other); },
      [&] { Sample.SetBig(static_cast<std::int64_t>(Random()) << Roll(31)); },
      [&] { Sample.SetNumbers(std::vector<double>(static_cast<std::size_t>(Roll(5)), Roll(9) / 3.0)); },
      [&] {
        Sample.SetAny(Roll(2) == 0 ? TVariant(TVariant::TArray{1, "two", 3.5}) : TVariant(Roll(100)));
      },
      [&] { Sample.Lines().Add("line " + std::to_string(Roll(100))); },
      [&] { Sample.Lines().Count() > 0 ? Sample.Lines().Delete(Roll(Sample.Lines().Count())) : void(); },
      [&] { Sample.Style().SetWidth(static_cast<float>(Roll(10))); },
      [&] { Sample.Part()->SetWhole(Roll(100)); }};
  Setters[Roll(static_cast<int>(std::size(Setters)))]();
}

TEST_F(ZyUndoStackTest, ARandomWalkOf10000SettersComesBackToTheFirstBytes) {
  for (const bool InMemory : {true, false}) {
    Stack.Clear();
    TSample* Samples[] = {MakeSample(InMemory ? "A" : "C"), MakeSample(InMemory ? "B" : "D")};
    for (TSample* Sample : Samples) {
      Sample->MakePart();
      Hook(*Sample->Part());
    }
    TZyUndoStack Walk(&Module);
    Walk.SetLimit(0);
    Walk.SetToMemoryStream(InMemory);
    for (TSample* Sample : {Samples[0], Samples[1], Samples[0]->Part(), Samples[1]->Part()})
      Sample->BeforeChange = [&Walk](TPersistent* Instance, const char* PropName) {
        Walk.PushProperty(Instance, PropName, PropName);
      };
    const std::string Before = testing::BytesOf(Module);
    std::mt19937 Random(InMemory ? 1 : 2);
    int Level = 0, Steps = 0;
    for (int Call = 0; Call < 10000; ++Call) {
      if (Random() % 8 == 0 && Level < 5) Walk.StartGroup("group"), ++Level;
      SetAtRandom(*Samples[Call % 2], *Samples[1 - Call % 2], Random);
      if (Random() % 6 == 0 && Level > 0) Walk.StopGroup(), --Level;
      if (Level == 0 && Random() % 50 == 0 && Walk.CanUndo()) Walk.Undo(), ++Steps;  // forgets a branch now and then
    }
    while (Level-- > 0) Walk.StopGroup();
    const std::string After = testing::BytesOf(Module);
    ASSERT_NE(Before, After);
    const int Count = Walk.UndoList().Count();
    ASSERT_GT(Count, 100);
    Walk.Undo(Count - 1);
    EXPECT_EQ(testing::BytesOf(Module), Before);
    EXPECT_EQ(Walk.RedoList().Count(), Count);
    while (Walk.CanRedo()) Walk.Redo(std::min(Walk.RedoList().Count() - 1, static_cast<int>(Random() % 7)));
    EXPECT_EQ(testing::BytesOf(Module), After);
    while (Walk.CanUndo()) Walk.Undo();
    EXPECT_EQ(testing::BytesOf(Module), Before);
  }
}

TEST_F(ZyUndoStackTest, FilesOfALogGoWithTheStack) {
  const auto Count = [] {
    int Files = 0;
    for (const auto& Entry : std::filesystem::directory_iterator(GetTemporaryPath()))
      if (Entry.path().filename().string().find(".ZyUndoStack.") != std::string::npos) ++Files;
    return Files;
  };
  const int Before = Count();
  TSample& Sample = *MakeSample("Sample");
  {
    TZyUndoStack Log(&Module);
    Log.SetToMemoryStream(false);
    EXPECT_EQ(Count(), Before) << "no stream before the first push";
    Log.PushProperty(&Sample, "label", "Whole");
    EXPECT_EQ(Count(), Before + 3);
  }
  EXPECT_EQ(Count(), Before);
}

}  // namespace
}  // namespace zy
