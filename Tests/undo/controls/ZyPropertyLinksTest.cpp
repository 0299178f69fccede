#include "undo/controls/ZyPropertyLinks.h"

#include <QElapsedTimer>
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

/// A control with a value that is linked. It holds no more than Most and nothing that is no number.
class TLinkedValue : public TCustomPanel {
  ZY_CLASS(TLinkedValue, TCustomPanel)
  explicit TLinkedValue(TComponent* Owner = nullptr, const char* Property = "Value")
      : TCustomPanel(Owner), FLink(*this, Property) {}
  ~TLinkedValue() override { Destroying(); }

  double Value() const { return FValue; }
  void SetValue(double Value) {
    ++Writes;
    if (Value > Most) Value = Most;
    if (Value == Value) FValue = Value;
    if (OnSet) OnSet();
    FLink.SetLink(FValue);
  }
  TShade Shade() const { return FShade; }
  void SetShade(TShade Value) { FLink.SetLink(FShade = Value); }
  ARGB Color() const { return FColor; }
  void SetColor(ARGB Value) { FLink.SetLink(FColor = Value); }
  std::int64_t Big() const { return FBig; }
  void SetBig(std::int64_t Value) { FLink.SetLink(FBig = Value); }
  TZyPropertyLinks& PropertyLinks() { return FLink; }
  void Loaded() override { Inherited::Loaded(), FLink.Loaded(); }

  double Most = 100;
  int Writes = 0;
  std::function<void()> OnSet;

 private:
  double FValue = 0;
  TShade FShade = TShade::Light;
  ARGB FColor = 0;
  std::int64_t FBig = 0;
  TZyPropertyLinks FLink;
};
ZY_PUBLISHED(TLinkedValue, TCustomPanel, Published<&TLinkedValue::Value, &TLinkedValue::SetValue>("Value", 0.0),
             Published<&TLinkedValue::Shade, &TLinkedValue::SetShade>("Shade"),
             Published<&TLinkedValue::Color, &TLinkedValue::SetColor>("Color"),
             Published<&TLinkedValue::Big, &TLinkedValue::SetBig>("Big"),
             Published<&TLinkedValue::PropertyLinks>("PropertyLinks"))

/// A component whose getter throws on demand, and whose value cannot be below 10.
class TTouchy : public TComponent {
  ZY_CLASS(TTouchy, TComponent)
  explicit TTouchy(TComponent* Owner = nullptr) : TComponent(Owner) {}
  ~TTouchy() override { Destroying(); }
  double Value() const {
    ++Reads;
    if (Throws) throw EConvertError("touchy");
    return FValue;
  }
  void SetValue(double Value) { FValue = Value; }
  bool Throws = false;
  mutable int Reads = 0;

 private:
  double FValue = 20;
};
ZY_PUBLISHED(TTouchy, TComponent, Published<&TTouchy::Value, &TTouchy::SetValue>("Value").Limited(10, 1000))

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

TEST_F(PropertyLinksTest, TheFirstPathIsShownAndAllAreWritten) {
  FTarget.SetReal(3);
  FOther.SetReal(4);
  Link(FControl, {"Form.Target.Real", "Form.Other.Real", "Form.Other.Single"});
  EXPECT_EQ(FControl.Value(), 3);
  EXPECT_EQ(FOther.Real(), 4) << "showing is not writing";
  FTarget.SetReal(5);
  FOther.SetReal(6);
  TApplication::Idle();
  EXPECT_EQ(FControl.Value(), 5);
  FControl.SetValue(1.25);
  EXPECT_EQ(FTarget.Real(), 1.25);
  EXPECT_EQ(FOther.Real(), 1.25);
  EXPECT_EQ(FOther.Single(), 1.25f);
}

TEST_F(PropertyLinksTest, OrdinalsOfEveryTypeAndKindsThatAreOnlyWritten) {
  TLinkedValue Shade(&FForm, "Shade"), Color(&FForm, "Color"), Big(&FForm, "Big");
  FTarget.SetShade(TShade::Dark);
  FTarget.Style().SetColor(0xFF123456);
  FTarget.SetWhole(7);
  Link(Shade, {"Form.Target.Shade"});
  Link(Color, {"Form.Target.Style.Color"});
  Link(Big, {"Form.Target.Whole"});
  EXPECT_EQ(Shade.Shade(), TShade::Dark);
  EXPECT_EQ(Color.Color(), 0xFF123456);
  EXPECT_EQ(Big.Big(), 0) << "64 bits are not followed";
  Shade.SetShade(TShade::Middle);
  Color.SetColor(0xFFFEDCBA);
  Big.SetBig(9);
  EXPECT_EQ(FTarget.Shade(), TShade::Middle);
  EXPECT_EQ(FTarget.Style().Color(), 0xFFFEDCBA);
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
  FControl.SetValue(1);
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
    EXPECT_EQ(Late->Real(), 9);
    EXPECT_EQ(Target.Real(), 9);
    EXPECT_EQ(InModule.Real(), 9);
    Later.SetName("Renamed");
    Late->SetName("Prompt");
    FTarget.SetLink(&FOther);  // the same path means another object now
    FControl.PropertyLinks().UpdateLinkNames();
    EXPECT_EQ(FControl.PropertyLinks().Items().Text(),
              "Form.Prompt.Real\nRenamed.Target.Real\nForm.Target.Link.Real\n");
    FControl.SetValue(10);
    EXPECT_EQ(Late->Real(), 10);
    EXPECT_EQ(Target.Real(), 10);
    EXPECT_EQ(InModule.Real(), 9);
    EXPECT_EQ(FOther.Real(), 10);
    delete Late;
    FTarget.SetLink(nullptr);
    FControl.SetValue(11);
    EXPECT_EQ(Target.Real(), 11);
    EXPECT_EQ(FOther.Real(), 10);
  }
  FControl.SetValue(12);
  TSample Successor(&FForm);
  Successor.SetReal(13);
  Successor.SetName("Prompt");
  TApplication::Idle();
  EXPECT_EQ(FControl.Value(), 13);
  Link(FControl, {});
  FControl.SetValue(14);
  EXPECT_EQ(Successor.Real(), 13);
  EXPECT_EQ(Taken(FErrors), "");
}

TEST_F(PropertyLinksTest, ValuesThatTheControlCannotHoldAreCopiedOnce) {
  TLinkedValue Single(&FForm);
  const double NoNumber = std::numeric_limits<double>::quiet_NaN();
  for (const double Value : {NoNumber, 1e6, -0.0}) {
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
  FControl.SetValue(3);
  EXPECT_EQ(Back.Value(), 3);
  FControl.SetValue(50);
  for (int Round = 0; Round < 5; ++Round) TApplication::Idle();
  EXPECT_EQ(Back.Value(), 5);
  EXPECT_EQ(FControl.Value(), 5) << "the first path rules";
  FControl.Writes = Back.Writes = 0;
  for (int Round = 0; Round < 5; ++Round) TApplication::Idle();
  EXPECT_EQ(FControl.Writes + Back.Writes, 0);
}

TEST_F(PropertyLinksTest, GettersAndSettersMayThrow) {
  TTouchy Touchy(&FForm);
  Touchy.SetName("Touchy");
  Link(FControl, {"Form.Touchy.Value", "Form.Other.Real"});
  EXPECT_EQ(FControl.Value(), 20);
  EXPECT_THROW(FControl.SetValue(5), ERangeError);
  EXPECT_EQ(FOther.Real(), 5) << "the others are written all the same";
  TApplication::Idle();
  EXPECT_EQ(FControl.Value(), 20) << "back to the value that stands";
  Touchy.Throws = true;
  for (int Round = 0; Round < 5; ++Round) TApplication::Idle();
  EXPECT_EQ(Taken(FErrors), "touchy");
  const int Reads = Touchy.Reads;
  Touchy.Throws = false;
  Touchy.SetValue(30);
  TApplication::Idle();
  EXPECT_EQ(Touchy.Reads, Reads);
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
  Stack.Undo(2);
  TApplication::Idle();
  EXPECT_EQ(Edit.Caption(), Left.Caption());
  EXPECT_EQ(Right.Depth3D(), Left.Depth3D());
  EXPECT_EQ(Stack.RedoList().Count(), 3) << "and cuts off no redo by that";
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
  TLinkedValue Next(&FForm);
  Next.SetTabStop(true);
  Put(Next, FForm, 0, 100, 50, 50);
  Edit.PropertyLinks().Items().Add("Form.Series.Caption");
  ShowNow(FForm);
  FForm.Widget()->activateWindow();
  Edit.SetFocus();
  for (const char C : std::string("a b ")) {
    QKeyEvent Event(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(C)));
    QCoreApplication::sendEvent(Edit.Widget(), &Event);
    TApplication::Idle();
  }
  EXPECT_EQ(Series.Caption(), "a b") << "the series trims";
  EXPECT_EQ(Edit.Caption(), "a b ") << "while the blank is the one before the next word";
  Next.SetFocus();
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
  Read.PropertyLinks().Assign(&TLinkedValue().PropertyLinks());
  EXPECT_FALSE(Read.PropertyLinks().HasItems());
}

TEST_F(PropertyLinksTest, ChoicesHaveTheTypeOfTheProperty) {
  TLinkedValue Shade(&FForm, "Shade");
  EXPECT_EQ(LinkChoices(Shade.PropertyLinks(), FForm),
            (std::vector<std::string>{"Form.Target.Shade", "Form.Other.Shade"}));
  EXPECT_EQ(
      LinkChoices(FControl.PropertyLinks(), FForm),
      (std::vector<std::string>{"Form.Font.Size", "Form.Target.Single", "Form.Target.Real", "Form.Target.Style.Width",
                                "Form.Other.Single", "Form.Other.Real", "Form.Other.Style.Width"}));
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

  QElapsedTimer Passed;
  qint64 Shown = -1;
  QTimer::singleShot(50, [&] {
    FTarget.SetReal(42);
    Passed.start();
  });
  Count.SetOnIdle([&](TObject*, bool&) {
    if (Shown < 0 && Controls[98]->Value() == 42) Shown = Passed.elapsed();
  });
  RunFor(300);
  EXPECT_GE(Shown, 0);
  EXPECT_LT(Shown, 100);
}

}  // namespace
}  // namespace zy
