#include "undo/controls/ZyPropertyLinks.h"

#include <QKeyEvent>
#include <QTimer>
#include <ctime>
#include <limits>

#include "annotations/ZyCaptionEdit.h"
#include "controls/ControlSamples.h"
#include "framework/SampleComponent.h"
#include "series/ZyBars.h"
#include "series/ZyPointSeries.h"
#include "texts/Exceptions.h"
#include "undo/controls/ZyLinkChoices.h"

namespace zy {
namespace {

using testing::TSample;
using testing::TShade;

/// A control with a value that is linked. It holds no more than Most and nothing that is no number, refuses what is
/// below Least, and its getter throws on demand.
class TLinkedValue : public TCustomPanel {
  ZY_CLASS(TLinkedValue, TCustomPanel)
  explicit TLinkedValue(TComponent* Owner = nullptr, const char* Property = "Value")
      : TCustomPanel(Owner), FLink(*this, Property) {}
  ~TLinkedValue() override { Destroying(); }

  double Value() const {
    if (Throws) throw EConvertError("touchy");
    return FValue;
  }
  void SetValue(double Value) {
    if (Value < Least) throw ERangeError("too low");
    ++Writes;
    if (Value > Most) Value = Most;
    if (Value == Value) FValue = Value;
    if (OnSet) OnSet();
    FLink.SetLink(FValue);
  }
  TShade Shade() const { return FShade; }
  void SetShade(TShade Value) { FLink.SetLink(FShade = Value); }
  std::int64_t Big() const { return FBig; }
  void SetBig(std::int64_t Value) { FLink.SetLink(FBig = Value); }
  TZyPropertyLinks& PropertyLinks() { return FLink; }
  void Loaded() override { Inherited::Loaded(), FLink.Loaded(); }

  double Least = -1, Most = 100;
  int Writes = 0;
  bool Throws = false;
  std::function<void()> OnSet;

 private:
  double FValue = 0;
  TShade FShade = TShade::Light;
  std::int64_t FBig = 0;
  TZyPropertyLinks FLink;
};
ZY_PUBLISHED(TLinkedValue, TCustomPanel, Published<&TLinkedValue::Value, &TLinkedValue::SetValue>("Value", 0.0),
             Published<&TLinkedValue::Shade, &TLinkedValue::SetShade>("Shade"),
             Published<&TLinkedValue::Big, &TLinkedValue::SetBig>("Big"),
             Published<&TLinkedValue::PropertyLinks>("PropertyLinks"))

class PropertyLinksTest : public ::testing::Test {
 protected:
  PropertyLinksTest() {
    FForm.SetName("Form");
    FTarget.SetName("Target");
    FOther.SetName("Other");
    Program().OnException = [this](const std::exception& Error) { FErrors.push_back(Error.what()); };
  }
  ~PropertyLinksTest() override { Program().OnException = nullptr; }

  static void Link(TLinkedValue& Control, std::initializer_list<const char*> Paths) {
    Control.PropertyLinks().Items().Clear();
    for (const char* Path : Paths) Control.PropertyLinks().Items().Add(Path);
    TApplication::Idle();
  }

  TLog FErrors;
  TForm FForm;
  TSample FTarget{&FForm}, FOther{&FForm};
  TLinkedValue FControl{&FForm};
};

TEST_F(PropertyLinksTest, OrdinalsOfEveryTypeAndKindsThatAreOnlyWritten) {
  TLinkedValue Shade(&FForm, "Shade"), Big(&FForm, "Big");
  FTarget.SetShade(TShade::Dark);
  FTarget.SetWhole(7);
  Link(Shade, {"Form.Target.Shade"});
  Link(Big, {"Form.Target.Whole"});
  EXPECT_EQ(Shade.Shade(), TShade::Dark);
  EXPECT_EQ(Big.Big(), 0) << "64 bits are not followed";
  Shade.SetShade(TShade::Middle);
  Big.SetBig(9);
  EXPECT_EQ(FTarget.Shade(), TShade::Middle);
  EXPECT_EQ(FTarget.Whole(), 9);
}

TEST_F(PropertyLinksTest, PathsThatLeadNowhereLeaveTheOthersAtWork) {
  const char* const Wrong[] = {"",
                               ".",
                               "Form",
                               "Form.",
                               "Nobody.Target.Real",
                               "Form.Nobody.Real",
                               "Form.Target",
                               "Form.Target.Nothing",
                               "Form.Target.Style",
                               "Form.Target.Link.Real",
                               "Form.Target.Real.Real",
                               "Form.Target.Text",
                               "Form.Target.OnEvent",
                               "Form..Real"};
  for (const char* Path : Wrong) {
    SCOPED_TRACE(Path);
    FControl.SetValue(50);
    Link(FControl, {Path, "Form.Other.Real"});
    EXPECT_EQ(FControl.Value(), 50) << "only the first path is shown";
    FControl.SetValue(60);
    EXPECT_EQ(FOther.Real(), 60);
    EXPECT_EQ(FTarget.Real(), 0);
  }
  EXPECT_EQ(Taken(FErrors), "");
}

TEST_F(PropertyLinksTest, TargetsMayComeGoAndBeRenamed) {
  Link(FControl, {"Form.Late.Real", "Later.Target.Real", "Form.Target.Link.Real"});
  {
    TForm Later;
    Later.SetName("Later");
    TDataModule Module;
    Module.SetName("Module");
    TSample Target(&Later), InModule(&Module);
    Target.SetName("Target");
    InModule.SetName("Inside");
    auto* const Late = new TSample(&FForm);
    Late->SetName("Late");
    Late->SetReal(8);
    FTarget.SetLink(&InModule);
    TApplication::Idle();
    EXPECT_EQ(FControl.Value(), 8);
    FControl.SetValue(9);
    EXPECT_EQ(Late->Real() + Target.Real() + InModule.Real(), 27);
    Later.SetName("Renamed");
    Late->SetName("Prompt");
    FTarget.SetLink(&FOther);  // the same path means another object now
    FControl.PropertyLinks().UpdateLinkNames();
    EXPECT_EQ(FControl.PropertyLinks().Items().Text(),
              "Form.Prompt.Real\nRenamed.Target.Real\nForm.Target.Link.Real\n");
    FControl.SetValue(10);
    EXPECT_EQ(Late->Real() + Target.Real() + FOther.Real(), 30);
    EXPECT_EQ(InModule.Real(), 9);
    delete Late;
    FControl.SetValue(11);
    EXPECT_EQ(Target.Real() + FOther.Real(), 22);
  }
  TSample Successor(&FForm);
  Successor.SetReal(13);
  Successor.SetName("Prompt");
  TApplication::Idle();
  EXPECT_EQ(FControl.Value(), 13);
  EXPECT_EQ(Taken(FErrors), "");
}

TEST_F(PropertyLinksTest, ValuesThatTheControlCannotHoldAreCopiedOnce) {
  for (const double Value : {std::numeric_limits<double>::quiet_NaN(), 1e6, -0.0}) {
    FControl.Writes = 0;
    FTarget.SetReal(Value);
    Link(FControl, {"Form.Target.Real", "Nobody.Here.Yet"});
    for (int Round = 0; Round < 10; ++Round) TApplication::Idle();
    EXPECT_LE(FControl.Writes, 1) << Value;
  }
  Link(FControl, {"Form.Target.Single"});
  FTarget.SetSingle(1.2f);
  TApplication::Idle();
  EXPECT_EQ(FControl.Value(), 1.2) << "a single shows by its own digits";
  FControl.SetValue(0.1);
  FControl.Writes = 0;
  for (int Round = 0; Round < 10; ++Round) TApplication::Idle();
  EXPECT_EQ(FControl.Value(), 0.1);
  EXPECT_EQ(FControl.Writes, 0);
}

TEST_F(PropertyLinksTest, LinksInACircleComeToRest) {
  TLinkedValue Back(&FForm);
  FControl.SetName("Control");
  Back.SetName("Back");
  Back.Most = 5;
  Link(Back, {"Form.Control.Value"});
  Link(FControl, {"Form.Back.Value", "Form.Control.Value"});
  FControl.SetValue(50);
  for (int Round = 0; Round < 5; ++Round) TApplication::Idle();
  EXPECT_EQ(Back.Value(), 5);
  EXPECT_EQ(FControl.Value(), 5) << "the first path rules";
  FControl.Writes = Back.Writes = 0;
  for (int Round = 0; Round < 5; ++Round) TApplication::Idle();
  EXPECT_EQ(FControl.Writes + Back.Writes, 0);
}

TEST_F(PropertyLinksTest, GettersAndSettersMayThrow) {
  TLinkedValue Touchy(&FForm);
  Touchy.SetName("Touchy");
  Touchy.SetValue(20);
  Touchy.Least = 10;
  Link(FControl, {"Form.Touchy.Value", "Form.Other.Real"});
  EXPECT_EQ(FControl.Value(), 20);
  EXPECT_EQ(FOther.Real(), 0) << "showing is not writing";
  EXPECT_THROW(FControl.SetValue(5), ERangeError);
  EXPECT_EQ(FOther.Real(), 5) << "the others are written all the same";
  TApplication::Idle();
  EXPECT_EQ(FControl.Value(), 20) << "back to the value that stands";
  Touchy.Throws = true;
  for (int Round = 0; Round < 5; ++Round) TApplication::Idle();
  EXPECT_EQ(Taken(FErrors), "touchy");
  Touchy.Throws = false;
  Touchy.SetValue(30);
  FControl.PropertyLinks().Modified();
  TApplication::Idle();
  EXPECT_EQ(FControl.Value(), 30);
}

TEST_F(PropertyLinksTest, HandlersMayFreeControlAndTargets) {
  auto* const Control = new TLinkedValue(&FForm);
  auto* const Second = new TSample(&FForm);
  Second->SetName("Second");
  Link(*Control, {"Form.Target.Real", "Form.Second.Real"});
  FTarget.BeforeChange = [&](TPersistent*, const char*) { delete Second; };
  Control->SetValue(2);
  FTarget.BeforeChange = [&](TPersistent*, const char*) { delete Control; };
  Control->SetValue(3);
  EXPECT_EQ(FTarget.Real(), 3);
}

TEST_F(PropertyLinksTest, UndoShowsInTheControlAndKeepsItsRedo) {
  TZyUndoStack Stack(&FForm);
  TZyBars Left(&FForm), Right(&FForm);
  Left.SetName("Left");
  Right.SetName("Right");
  Left.SetUndoStack(&Stack);
  Right.SetUndoStack(&Stack);
  FControl.OnSet = [&] { Right.SetDepth3D(FControl.Value()); };
  Link(FControl, {"Form.Left.Depth3D"});
  TZyCaptionEdit Edit(&FForm);
  for (const char* Path : {"Form.Left.Caption", "Form.Right.Caption"}) Edit.PropertyLinks().Items().Add(Path);
  TApplication::Idle();
  const int Before = Stack.UndoCount();
  Edit.SelectAll();
  Edit.SetSelText("new");  // as typed
  EXPECT_EQ(Left.Caption() + "," + Right.Caption(), "new,new");
  EXPECT_EQ(Stack.UndoCount(), Before + 1) << "two targets, one step";
  Right.SetCaption("changed since");
  Left.SetDepth3D(25);
  TApplication::Idle();
  EXPECT_EQ(Right.Depth3D(), 25) << "a handler follows the control";
  EXPECT_EQ(Stack.UndoCount(), Before + 3) << "and logs no step";
  Stack.Undo(2);
  TApplication::Idle();
  EXPECT_EQ(Edit.Caption(), Left.Caption());
  EXPECT_EQ(Right.Depth3D(), Left.Depth3D());
  EXPECT_EQ(Stack.RedoList().Count(), 3);
  Stack.Redo(2);
  TApplication::Idle();
  EXPECT_EQ(Left.Depth3D(), 25);
  EXPECT_EQ(Edit.Caption(), "new");
  EXPECT_EQ(Right.Caption(), "changed since");
}

TEST_F(PropertyLinksTest, WhatIsBeingTypedIsLeftAlone) {
  TZyPointSeries Series(&FForm);
  Series.SetName("Series");
  Series.SetCaption("");
  TZyCaptionEdit Edit(&FForm);
  Put(Edit, FForm, 0, 0, 200, 80);
  Edit.PropertyLinks().Items().Add("Form.Series.Caption");
  ShowNow(FForm);
  Edit.SetFocus();
  for (const char C : std::string("a b ")) {
    QKeyEvent Event(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(C)));
    QCoreApplication::sendEvent(Edit.Widget(), &Event);
    TApplication::Idle();
  }
  EXPECT_EQ(Series.Caption(), "a b") << "the series trims";
  EXPECT_EQ(Edit.Caption(), "a b ") << "while the blank is the one before the next word";
  Edit.ReleaseFocus();
  TApplication::Idle();
  EXPECT_EQ(Edit.Caption(), "a b");
}

TEST_F(PropertyLinksTest, PathsAreStoredByTheirPresentNames) {
  Link(FControl, {"Form.Target.Real", "Not.There"});
  FControl.SetName("Control");
  FTarget.SetName("Renamed");
  FTarget.SetReal(6);
  TForm Copy;
  Copy.SetName("Copy");
  TLinkedValue Read(&Copy);
  ReadBack(FControl, Read);
  EXPECT_EQ(Read.PropertyLinks().Items().Text(), "Form.Renamed.Real\nNot.There\n");
  TApplication::Idle();
  EXPECT_EQ(Read.Value(), 6);
  std::string Choices;
  for (const std::string& Path : LinkChoices(Read.PropertyLinks(), FTarget)) Choices += Path + ' ';
  EXPECT_EQ(Choices, "Form.Renamed.Single Form.Renamed.Real Form.Renamed.Style.Width ");
}

/// Half of the controls cannot hold what they are linked to, and the other half are linked to what is not there.
TEST_F(PropertyLinksTest, AProgramAtRestWithAHundredLinksDoesNothing) {
  std::vector<std::unique_ptr<TLinkedValue>> Controls;
  FTarget.SetReal(1e6);  // beyond what the controls hold
  for (int Index = 0; Index < 100; ++Index) {
    Controls.push_back(std::make_unique<TLinkedValue>());
    Put(*Controls.back(), FForm, Index % 10 * 30, Index / 10 * 30, 25, 25);
    Controls.back()->PropertyLinks().Items().Add(Index % 2 == 0 ? "Form.Target.Real" : "Form.Late.Real");
  }
  ShowNow(FForm);
  int Rounds = 0;
  TApplicationEvents Count;
  Count.SetOnIdle([&](TObject*, bool&) { ++Rounds; });
  const auto RunFor = [](int Milliseconds) {
    QTimer::singleShot(Milliseconds, [] { QCoreApplication::exit(); });
    Program().Run();
  };
  RunFor(200);
  Rounds = 0;
  const std::clock_t Start = std::clock();
  RunFor(1000);
  EXPECT_LT(Rounds, 30);
  EXPECT_LT(std::clock() - Start, CLOCKS_PER_SEC / 100);

  QTimer::singleShot(50, [&] { FTarget.SetReal(42); });
  RunFor(150);
  EXPECT_EQ(Controls[98]->Value(), 42) << "within 100 ms";
}

}  // namespace
}  // namespace zy
