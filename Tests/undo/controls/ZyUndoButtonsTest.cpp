#include "undo/controls/ZyUndoButtons.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <QScreen>
#include <memory>

#include "controls/ControlSamples.h"
#include "framework/SampleComponent.h"
#include "platform/controls/TLabel.h"
#include "platform/controls/ToolBarLook.h"
#include "undo/controls/ZyLevelsList.h"
#include "undo/controls/ZyUndoListFrm.h"

namespace zy {
namespace {

using testing::TSample;

/// A bar that says how its buttons look.
class TBar : public TCustomPanel, public IToolBarLook {
 public:
  using TCustomPanel::TCustomPanel;
  bool Flat() const override { return false; }
  bool Transparent() const override { return false; }
  bool HasGradient() const override { return true; }
  ARGB GradientStartColor() const override { return Red; }
  ARGB GradientEndColor() const override { return Red; }
};

/// A window with both buttons, and a sample whose changes are steps: 1, 2, ... under the labels "step 1", "step 2", ...
class UndoButtonsTest : public ::testing::Test {
 protected:
  UndoButtonsTest() {
    FForm.SetName("Form");
    FForm.SetPosition(poDesigned);
    FForm.SetBounds(100, 50, 200, 100);
    FForm.SetTabStop(true);
    FSample.SetName("Sample");
    Put(FUndo, FForm, 10, 10, 37, 22);
    Put(FRedo, FForm, 60, 10, 37, 22);
    FUndo.SetUndoStack(FStack.get());
    FRedo.SetUndoStack(FStack.get());
    ShowNow(FForm);
    TApplication::Idle();
  }

  void Steps(int Count) {
    for (int Step = 1; Step <= Count; ++Step) {
      FStack->PushProperty(&FSample, "step " + IntToStr(Step), "Whole");
      FSample.SetWhole(Step);
    }
    TApplication::Idle();
  }
  static TZyUndoListFrm& List() { return TZyUndoListFrm::Get(); }
  static QListView& View() { return static_cast<QListView&>(*List().LevelsList().Widget()); }
  static std::string Status() { return List().StatusLab().Caption(); }
  /// Presses the arrow of a button, whose list is open then.
  void DropDown(TControl& Button) {
    Press(FForm, Button.Left() + 30, 20);
    Release(FForm, Button.Left() + 30, 20);
    HandleEvents();
  }
  static QRect BoxOf(int Row) { return View().visualRect(View().model()->index(Row, 0)); }
  static void Mouse(QEvent::Type Type, int Row, Qt::MouseButton Button = Qt::NoButton) {
    QMouseEvent Event(Type, BoxOf(Row).center(), {}, Button, Button, Qt::NoModifier);
    QCoreApplication::sendEvent(View().viewport(), &Event);
  }
  static void Click(int Row) {
    Mouse(QEvent::MouseMove, Row);
    Mouse(QEvent::MouseButtonPress, Row, Qt::LeftButton);
    Mouse(QEvent::MouseButtonRelease, Row, Qt::LeftButton);
  }
  static void Key(QWidget& Box, int Code) {
    QKeyEvent Event(QEvent::KeyPress, Code, Qt::NoModifier);
    QCoreApplication::sendEvent(&Box, &Event);
  }

  TForm FForm;
  std::unique_ptr<TZyUndoStack> FStack = std::make_unique<TZyUndoStack>();
  TSample FSample{&FForm};
  TZyUndoButton FUndo{&FForm};
  TZyRedoButton FRedo{&FForm};
};

TEST_F(UndoButtonsTest, ThePressOfTheLeftHalfIsOneStep) {
  EXPECT_FALSE(FUndo.Enabled());
  Steps(2);
  EXPECT_TRUE(FUndo.Enabled() && !FRedo.Enabled());
  Press(FForm, 20, 20);
  EXPECT_EQ(FSample.Whole(), 1);
  EXPECT_EQ(FUndo.LeftState(), TZyButtonState::Down);
  Release(FForm, 20, 20);
  EXPECT_EQ(FUndo.LeftState(), TZyButtonState::Up);
  TApplication::Idle();
  Press(FForm, 70, 20);
  Release(FForm, 70, 20);
  EXPECT_EQ(FSample.Whole(), 2);
}

TEST_F(UndoButtonsTest, TheMouseMarksStepsAndAClickReplaysThem) {
  Steps(6);
  DropDown(FUndo);
  ASSERT_TRUE(List().Visible());
  EXPECT_EQ(List().Width(), 199);
  EXPECT_EQ(List().Height(), 135);
  EXPECT_EQ(List().Widget()->pos(), FForm.Widget()->mapToGlobal(QPoint(10, 32)));
  EXPECT_EQ(FUndo.RightState(), TZyButtonState::Down) << "as long as the list is open";
  EXPECT_EQ(View().model()->index(0, 0).data().toString(), "step 6");
  EXPECT_EQ(Status(), "Undo last operation");
  Mouse(QEvent::MouseMove, 4);
  EXPECT_EQ(Status(), "Undo last 5 operations");
  const QImage Picture = View().viewport()->grab().toImage();
  const QRgb Mark = QApplication::palette().color(QPalette::Active, QPalette::Highlight).rgb();
  for (int Row = 0; Row < 6; ++Row)
    EXPECT_EQ(Picture.pixel(BoxOf(Row).right() - 1, BoxOf(Row).center().y()) == Mark, Row <= 4) << Row;
  Click(4);
  EXPECT_EQ(FSample.Whole(), 1);
  EXPECT_FALSE(List().Visible());
  EXPECT_EQ(FUndo.RightState(), TZyButtonState::Up);
  TApplication::Idle();
  DropDown(FRedo);
  EXPECT_EQ(Status(), "Redo last operation");
  Click(1);
  EXPECT_EQ(FSample.Whole(), 3);
}

TEST_F(UndoButtonsTest, KeysReachEverything) {
  Steps(6);
  Key(*FForm.Widget(), Qt::Key_Tab);
  ASSERT_EQ(FForm.ActiveControl(), &FUndo);
  Key(*FForm.Widget(), Qt::Key_Space);
  EXPECT_EQ(FSample.Whole(), 5);
  EXPECT_EQ(FUndo.LeftState(), TZyButtonState::Up);
  struct {
    int Opens;
    std::initializer_list<int> Keys;
    int Whole;
  } const Cases[] = {{Qt::Key_Down, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return}, 3},
                     {Qt::Key_F4, {Qt::Key_Down, Qt::Key_Escape}, 3},
                     {Qt::Key_Down, {Qt::Key_End, Qt::Key_Space}, 0}};
  for (const auto& Case : Cases) {
    Key(*FForm.Widget(), Case.Opens);
    ASSERT_TRUE(List().Visible()) << Case.Opens;
    for (const int Code : Case.Keys) Key(View(), Code);
    EXPECT_EQ(FSample.Whole(), Case.Whole);
    EXPECT_FALSE(List().Visible() || FUndo.DroppedDn());
  }
}

TEST_F(UndoButtonsTest, TheListStaysOnTheScreen) {
  Steps(1);
  const QRect Desk = FForm.Widget()->screen()->availableGeometry();
  FForm.SetBounds(Desk.right() - 100, Desk.bottom() - 99, 200, 100);
  HandleEvents();
  DropDown(FUndo);
  EXPECT_EQ(List().Widget()->x(), Desk.right() + 1 - 199);
  EXPECT_EQ(List().Widget()->y() + 135, FForm.Widget()->mapToGlobal(QPoint(0, 10)).y());
  Press(List(), -5, 20);  // the toolkit brings a press elsewhere to the popup
  EXPECT_FALSE(List().Visible() || FUndo.DroppedDn());
  EXPECT_EQ(FSample.Whole(), 1);
}

TEST_F(UndoButtonsTest, WhatDiesOrChangesUnderAnOpenList) {
  Steps(3);
  DropDown(FUndo);
  List().LevelsList().SetItemIndex(2);
  FStack->PushProperty(&FSample, "step 4", "Whole");
  FSample.SetWhole(4);
  TApplication::Idle();
  EXPECT_EQ(View().model()->index(0, 0).data().toString(), "step 4");
  FStack->Undo(1);
  Key(View(), Qt::Key_Return);  // before the list has heard of it, with a mark beyond the end
  EXPECT_EQ(FSample.Whole(), 2);
  TApplication::Idle();

  DropDown(FUndo);
  FStack->Clear();
  TApplication::Idle();
  EXPECT_FALSE(List().Visible());

  Steps(3);
  for (const bool Opens : {true, false}) {  // freed under its list, and by a step of its own
    auto* const Short = new TZyUndoButton(&FForm);
    Put(*Short, FForm, 110, 10, 37, 22);
    Short->SetUndoStack(FStack.get());
    FStack->SetOnUndo([Short](TObject*) { delete Short; });
    Press(FForm, Opens ? 140 : 120, 20);
    Release(FForm, Opens ? 140 : 120, 20);
    if (Opens) delete Short;
    EXPECT_FALSE(List().Visible());
  }
  EXPECT_EQ(FSample.Whole(), 2);
  FStack->SetOnUndo(nullptr);

  DropDown(FUndo);
  ASSERT_TRUE(List().Visible());
  FStack.reset();
  EXPECT_FALSE(List().Visible() || FUndo.DroppedDn());
  TApplication::Idle();
  EXPECT_FALSE(FUndo.Enabled());
}

TEST_F(UndoButtonsTest, ScreenReadersFindButtonsAndTheirActions) {
  Steps(2);
  QAccessibleInterface* const Window = QAccessible::queryAccessibleInterface(FForm.Widget());
  ASSERT_EQ(Window->childCount(), 2);
  QAccessibleInterface* const Undo = Window->child(0);
  EXPECT_EQ(Undo->role(), QAccessible::ButtonDropDown);
  EXPECT_EQ(Undo->text(QAccessible::Name), "Undo");
  EXPECT_FALSE(Undo->state().disabled);
  EXPECT_TRUE(Window->child(1)->state().disabled);
  Undo->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(FSample.Whole(), 1);
  Undo->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  ASSERT_TRUE(List().Visible());
  QAccessibleInterface* const Items = QAccessible::queryAccessibleInterface(&View());
  EXPECT_EQ(Items->text(QAccessible::Name), "Undo last operation");
  EXPECT_EQ(Items->child(0)->text(QAccessible::Name), "step 1");
  List().FormDeactivate();
}

TEST_F(UndoButtonsTest, LookOfBarsAndGlyphs) {
  TBar Bar;
  Bar.SetBounds(0, 0, 100, 22);
  TZyUndoButton Button;
  Put(Button, Bar, 0, 0, 37, 22);
  ExpectPixels(Painted(Bar), {{2, 10, Red, "the bar's gradient"}});
  EXPECT_FALSE(Button.Flat());

  const Bitmap Two = PictureOf(8, 4, [](Graphics& Canvas) {
    Canvas.Clear(Green);
    Canvas.FillRectangle(SolidBrush(Blue), 4, 0, 4, 4);
    Canvas.FillRectangle(SolidBrush(White), 0, 3, 1, 1);  // the corner that is transparent
  });
  TMemoryStream Stream;
  Two.Save(Stream, "PNG");
  Stream.SetPosition(0);
  Button.Glyph().LoadFromStream(Stream);
  ExpectPixels(Painted(Bar), {{10, 10, Green, "enabled"}, {9, 12, Red, "transparent"}});
  TZyUndoButton Copy;
  ReadBack(Button, Copy);
  Copy.SetEnabled(false);
  Put(Copy, Bar, 0, 0, 37, 22);
  ExpectPixels(Painted(Bar), {{10, 10, Blue, "disabled"}});
  Copy.SetGlyph(TBitmap());
  EXPECT_EQ(Copy.Glyph().Width(), 32) << "its own again";
}

}  // namespace
}  // namespace zy
