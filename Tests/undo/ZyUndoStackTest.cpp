#include "undo/ZyUndoStack.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <iterator>
#include <random>
#include <stdexcept>
#include <tuple>

#include "framework/Errors.h"
#include "framework/SampleComponent.h"
#include "graph/styles/ZyLineSettings.h"
#include "persistence/ZyIO.h"
#include "platform/framework/Application.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoGroup.h"
#include "undo/ZyUndoLink.h"

namespace zy {
namespace {

using testing::TSample;
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
    Stack.SetOnUndo([this](TObject* Sender) { OnCount += Sender == &Stack ? 1 : 100; });
    Stack.SetOnRedo([this](TObject* Sender) { OnCount += Sender == &Stack ? 1 : 100; });
  }

  static void Hook(TSample& Sample, TZyUndoStack& To) {
    Sample.BeforeChange = [&To](TPersistent* Instance, const char* PropName) {
      To.PushProperty(Instance, PropName, PropName);
    };
  }
  TSample* MakeSample(const char* Name) {
    auto* const Sample = new TSample(&Module);
    Sample->SetName(Name);
    Hook(*Sample, Stack);
    return Sample;
  }
  TSample* Find(const char* Name) { return dynamic_cast<TSample*>(Module.FindComponent(Name)); }

  int OnCount = 0;
  TDataModule Module;
  TZyUndoStack& Stack = *new TZyUndoStack(&Module);  // the oldest component of the module, and so the last to go
};

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
  EXPECT_EQ(OnCount, 0);
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

TEST_F(ZyUndoStackTest, EveryKindOfStepGoesBackAndForth) {
  TEditStub Edit(&Module);
  TZyDoubleVector Vector(&Module);
  TZyLineSeries Series(&Module);
  Edit.SetName("Edit");
  Vector.SetName("Vector");
  Vector.SetPersistentValues(true);
  Vector.AddRange(std::vector(1000, 0.1));
  Series.SetName("Series");
  Series.SetUndoStack(&Stack);
  TSample& Other = *MakeSample("Other");
  (new TSample(&Module))->SetName("Sample");
  Find("Sample")->SetLink(&Other);
  Find("Sample")->SetText("kept");
  const auto State = [&] {
    return std::tuple(testing::BytesOf(Module), Edit.Text, Edit.Start, Edit.Length, Series.Layer());
  };
  const auto Check = [&](const char* What, const auto& Change) {
    SCOPED_TRACE(What);
    Stack.Clear();
    const auto Before = State();
    Change();
    const auto After = State();
    EXPECT_NE(After, Before);
    for (int Round = 0; Round < 2; ++Round) {
      Stack.Undo();
      EXPECT_EQ(State(), Before);
      Stack.Redo();
      EXPECT_EQ(State(), After);
    }
    Stack.Undo();
  };
  Check("deleted component", [&] {
    Stack.PushComponent(Find("Sample"), "deleted");
    delete Find("Sample");
  });
  EXPECT_EQ(Find("Sample")->LoadedCount, 1);
  Check("changed component", [&] {
    Stack.PushComponent(Find("Sample"), "changed");
    Find("Sample")->SetText("changed");
    Find("Sample")->SetLink(nullptr);
  });
  Check("made component", [&] {
    (new TSample(&Module))->SetName("Made");
    Find("Made")->SetWhole(5);
    Stack.PushFreeComponent(Find("Made"), "made");
  });
  Check("vector between other records", [&] {
    Stack.StartGroup("data");
    Other.SetWhole(1);
    Stack.PushVectorState(&Vector, "");
    Vector.Clear();
    Vector.Add(7);
    Other.SetWhole(2);
    Stack.StopGroup();
  });
  Check("edit with its selection", [&] {
    Stack.PushEditState(&Edit, "", 0, 0, "typing");
    Edit.SetEditText("new text");
    Edit.SetSelStart(1);
    Edit.SetSelLength(2);
  });
  Check("layer, which is not published", [&] { Series.SetLayer(4); });
}

/// A sample whose setter can fail and call back.
struct TMoodySample : TSample {
  ZY_CLASS(TMoodySample, TSample)
  using TSample::TSample;
  int Mood() const { return FMood; }
  void SetMood(int Value) {
    if (Refuses) throw ERangeError("no");
    FMood = Value;
    if (OnMood) OnMood();
  }
  std::function<void()> OnMood;
  bool Refuses = false;
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
    OnCount = 0;
    SetMood(1);
    SetMood(2);
    if (InRedo) Stack.Undo();
    Sample.Refuses = true;
    EXPECT_NO_THROW(InRedo ? Stack.Redo() : Stack.Undo());
    EXPECT_FALSE(Stack.Restoring());
    EXPECT_EQ(Stack.UndoCount() + Stack.RedoCount(), 0);
    EXPECT_EQ(OnCount, InRedo ? 2 : 1);
    EXPECT_FALSE(Stack.Saved());  // nobody knows what half a step left behind
    Sample.Refuses = false;
    SetMood(5);  // goes on from there
    EXPECT_EQ(Stack.UndoList().Count(), 1);
    Stack.Clear();
  }
}

TEST_F(ZyUndoStackTest, CallsFromInsideAReplayOrAGroupBreakNoStep) {
  TMoodySample Sample(&Module);
  Sample.SetName("Moody");
  for (int Call = 0; Call < 3; ++Call) {
    for (int Mood = 1; Mood <= 3; ++Mood) {
      Stack.PushProperty(&Sample, "Mood", "Mood");
      Sample.SetMood(Mood);
    }
    Sample.OnMood = [&] { Call == 0 ? Stack.Clear() : Call == 1 ? Stack.Undo() : Stack.Redo(); };
    Stack.Undo(1);
    Sample.OnMood = nullptr;
    EXPECT_EQ(Sample.Mood(), 1) << Call;
    EXPECT_EQ(Stack.UndoList().Count(), Call == 0 ? 0 : 1) << Call;
    EXPECT_EQ(Stack.RedoList().Count(), Call == 0 ? 0 : 2) << Call;
    Stack.Clear();
    Sample.SetMood(0);
  }
  Stack.PushProperty(&Sample, "before", "Mood");
  Stack.StartGroup("drag");
  Stack.PushProperty(&Sample, "Mood", "Mood");
  Sample.SetMood(1);
  Stack.Undo();
  EXPECT_EQ(Sample.Mood(), 1);
  Stack.StopGroup();
  EXPECT_EQ(LabelsOf(Stack.UndoList()), (TLabels{"drag", "before"}));
  Stack.SetLimit(1);
  EXPECT_EQ(LabelsOf(Stack.UndoList()), TLabels{"drag"});
  Stack.Undo();
  EXPECT_EQ(Sample.Mood(), 0);
}

TEST_F(ZyUndoStackTest, DeadTargetsAreNeverFollowed) {
  TSample* const Named = MakeSample("Named");
  Named->SetWhole(1);
  delete Named;
  Stack.Undo();  // its name leads nowhere
  EXPECT_EQ(Stack.UndoCount() + Stack.RedoCount(), 0);

  {
    TSample Nameless(&Module);
    Hook(Nameless, Stack);
    Nameless.SetWhole(1);
    Nameless.Style().SetWidth(2);
  }
  Stack.Undo();  // its handle neither, and no later object takes it over
  EXPECT_EQ(Stack.UndoCount() + Stack.RedoCount(), 0);
}

TEST_F(ZyUndoStackTest, ListsAndValuesAreRightAtEachStepForEveryLimit) {
  TSample& Sample = *MakeSample("Sample");
  Sample.BeforeChange = nullptr;
  for (int Round = 0; Round < 12; ++Round) {
    const int Limit = Round / 2;
    TZyUndoStack Log(&Module);
    Log.SetToMemoryStream(Round % 2 == 0);
    Log.SetLimit(Limit);
    // What there should be: the labels of all steps, the value before the first and behind each, how many are done.
    TLabels Steps;
    std::vector<int> Values{Sample.Whole()};
    std::vector<int> States{-1};  // the step behind which each was
    int SavedState = -1;
    std::size_t Done = 0;
    std::mt19937 Random(static_cast<unsigned>(Limit));
    const auto Roll = [&](unsigned Count) { return static_cast<int>(Random() % Count); };
    for (int Step = 0; Step < 400; ++Step) {
      const int Action = Roll(8), Depth = Action == 3 ? 1 + Roll(2) : 0;  // of groups, the outer one of which is a step
      if (Action < 4) {
        Steps.resize(Done++);
        Steps.push_back("step " + std::to_string(Step));
        for (int Group = 0; Group < Depth; ++Group) Log.StartGroup(Group == 0 ? Steps.back() : "inner");
        for (int Left = Depth > 0 ? Roll(4) : 1; Left > 0; --Left) {
          Log.PushProperty(&Sample, Depth > 0 ? "part" : Steps.back(), "Whole");
          Sample.SetWhole(Roll(1000));
        }
        for (int Group = 0; Group < Depth; ++Group) Log.StopGroup();
        Values.resize(Done);
        Values.push_back(Sample.Whole());
        States.resize(Done);
        States.push_back(Step);
        if (Limit > 0 && Done > static_cast<std::size_t>(Limit)) {
          Steps.erase(Steps.begin());
          Values.erase(Values.begin());
          States.erase(States.begin());
          --Done;
        }
      } else {
        const bool IsUndo = Action < 6;
        const auto Count = static_cast<std::size_t>(1 + Roll(3));
        if ((IsUndo ? Done : Steps.size() - Done) < Count) continue;
        IsUndo ? Log.Undo(static_cast<int>(Count) - 1) : Log.Redo(static_cast<int>(Count) - 1);
        Done = IsUndo ? Done - Count : Done + Count;
      }
      if (Roll(10) == 0) {
        Log.MarkSaved();
        SavedState = States[Done];
      }
      SCOPED_TRACE(::testing::Message() << "limit " << Limit << ", step " << Step);
      const auto Now = Steps.begin() + static_cast<std::ptrdiff_t>(Done);
      ASSERT_EQ(LabelsOf(Log.UndoList()), TLabels(std::reverse_iterator(Now), Steps.rend()));
      ASSERT_EQ(LabelsOf(Log.RedoList()), TLabels(Now, Steps.end()));
      ASSERT_EQ(Sample.Whole(), Values[Done]);
      ASSERT_EQ(Log.Saved(), States[Done] == SavedState);
    }
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
  const std::filesystem::path Victim = GetTemporaryPath() / "victim-of-an-undo-log";
  const std::string Name = Application().ExeName().filename().string();
  const std::filesystem::path Link = GetTemporaryPath() / (Name.substr(0, Name.size() - 4) + ".ZyUndoStack.0");
  std::error_code IsTaken;  // by another run of these tests
  std::filesystem::create_symlink(Victim, Link, IsTaken);
  {
    TZyUndoStack Log(&Module);
    Log.SetToMemoryStream(false);
    EXPECT_EQ(Count(), Before + (IsTaken ? 0 : 1)) << "no stream before the first push";
#ifndef __SANITIZE_ADDRESS__  // whose checks of types need files of their own
    {
      const int NextFile = dup(0);
      close(NextFile);
      rlimit Files;
      getrlimit(RLIMIT_NOFILE, &Files);
      const rlimit OneMore{static_cast<rlim_t>(NextFile) + 1, Files.rlim_max};
      setrlimit(RLIMIT_NOFILE, &OneMore);
      EXPECT_THROW(Log.PushProperty(&Sample, "label", "Whole"), EFileError);
      setrlimit(RLIMIT_NOFILE, &Files);
    }
#endif
    EXPECT_EQ(Count(), Before + (IsTaken ? 0 : 1)) << "the first of three goes where the second cannot be made";
    Log.PushProperty(&Sample, "label", "Whole");
    EXPECT_EQ(Count(), Before + (IsTaken ? 3 : 4));
    EXPECT_FALSE(std::filesystem::exists(Victim)) << "written through a link that somebody laid";
    {
      rlimit Size;
      getrlimit(RLIMIT_FSIZE, &Size);
      const rlimit Full{1, Size.rlim_max};
      const auto Handler = std::signal(SIGXFSZ, SIG_IGN);
      Log.PushProperty(&Sample, "label", "Whole");
      {
        const TZyUndoGroup Group(&Log, "on a full disk");
        setrlimit(RLIMIT_FSIZE, &Full);
        const auto PushMany = [&] {
          for (int Times = 0; Times < 10000; ++Times) Log.PushProperty(&Sample, "label", "Whole");
        };
        EXPECT_ANY_THROW(PushMany());
      }
      setrlimit(RLIMIT_FSIZE, &Size);
      std::signal(SIGXFSZ, Handler);
      EXPECT_EQ(Log.GroupLevel(), 0) << "an open one would refuse undo for good";
      EXPECT_EQ(Log.UndoCount(), 0);
    }
  }
  if (!IsTaken) std::filesystem::remove(Link);
  EXPECT_EQ(Count(), Before);
}

TEST_F(ZyUndoStackTest, AGroupEndsWithItsBlock) {
  TZyLineSettings Line(nullptr);
  { const TZyUndoGroup Group(nullptr, Line, {"Width"}); }
  try {
    const TZyUndoGroup Outer(&Stack, Line, {"Width", "Color"});
    Line.SetWidth(3);
    Line.SetColor(Colors::Lime);
    const TZyUndoGroup Inner(&Stack, _sAxisStart);
    throw std::runtime_error("on the way out");
  } catch (const std::runtime_error&) {
  }
  EXPECT_THROW(TZyUndoGroup(&Stack, Line, {"Width", "Nothing"}), EFilerError);
  EXPECT_EQ(LabelsOf(Stack.UndoList()), (TLabels{"Line width", "Line width"}));
  EXPECT_EQ(Stack.GroupLevel(), 0);
  Stack.Undo(1);
  EXPECT_EQ(std::tuple(Line.Width(), Line.Color()), std::tuple(1.0f, Colors::Red));
  {
    const TZyUndoGroup Group(&Stack, _sAxisStart);
    Stack.Clear();
  }
  Stack.SetEnabled(false);
  {
    const TZyUndoGroup Group(&Stack, _sAxisStart);  // was silent when it began
    Stack.SetEnabled(true);
  }
  EXPECT_EQ(Stack.UndoCount(), 0);
  {
    const TZyUndoGroup Group(&Stack, Line, {"Width"});
    Stack.SetEnabled(false);
  }
  EXPECT_FALSE(Stack.Enabled());
  EXPECT_EQ(Stack.GroupLevel(), 0) << "an open one would refuse undo for good";
  Stack.SetEnabled(true);
  Stack.Clear();
  auto Drag = std::make_unique<TZyUndoGroup>(&Stack, "drag");  // what is dragged is freed within another group
  auto Gone = std::make_unique<TZyUndoGroup>(&Stack, "gone");
  Drag.reset();
  EXPECT_EQ(Stack.GroupLevel(), 1);
  Gone.reset();
  EXPECT_EQ(Stack.GroupLevel(), 0);
  auto Old = std::make_unique<TZyUndoGroup>(&Stack, "old");
  Stack.Clear();
  const TZyUndoGroup New(&Stack, "new");
  Old.reset();
  EXPECT_EQ(Stack.GroupLevel(), 1) << "of another time";
  auto Short = std::make_unique<TZyUndoStack>();
  const TZyUndoGroup Group(Short.get(), _sAxisStart);
  Short.reset();
}

/// Hands its stack on to a line and counts how often its setter runs.
class TLinked : public TComponent {
 public:
  ~TLinked() override { Destroying(); }
  void SetUndoStack(TZyUndoStack* Value) {
    ++Calls;
    Undo.Set(Value);
  }
  int Calls = 0;
  TZyLineSettings Line{nullptr};
  TZyUndoLink Undo{this, &TLinked::SetUndoStack, Line};
};

TEST_F(ZyUndoStackTest, ALinkHandsTheStackOnAndTakesItBackWhenItDies) {
  for (const bool HolderDies : {false, true}) {
    TLinked Linked;
    {
      TZyUndoStack Short;
      Linked.SetUndoStack(&Short);
      Linked.Line.SetWidth(3);
      Linked.Line.Gradient().SetVisible(true);
      EXPECT_EQ(LabelsOf(Short.UndoList()), (TLabels{"Gradient visible", "Line width"}));
      if (HolderDies) Linked.Destroying();
    }
    EXPECT_EQ(Linked.Calls, HolderDies ? 1 : 2);
    EXPECT_EQ(Linked.Undo.Get(), nullptr);
    EXPECT_EQ(Linked.Line.UndoStack(), nullptr);
  }
}

}  // namespace
}  // namespace zy
