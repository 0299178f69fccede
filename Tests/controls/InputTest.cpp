#include <QCursor>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <QWheelEvent>
#include <memory>

#include "controls/ControlSamples.h"
#include "platform/controls/InputDispatch.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

/// A form (400 by 300) with the panel p in it at 100, 50, and in that the overlapping graphic controls a (10, 10, 40,
/// 40) and b (30, 30, 40, 40). Logs hold the shift state as a number: 1 shift, 4 control, 8 left, 16 right, 64 double.
class InputTest : public testing::Test {
 protected:
  InputTest() {
    FForm.SetBounds(0, 0, 400, 300);
    Put(*FPanel, FForm, 100, 50, 200, 200);
    Put(*FA, *FPanel, 10, 10, 40, 40);
    Put(*FB, *FPanel, 30, 30, 40, 40);
    ShowNow(FForm);
    FLog.clear();
  }
  ~InputTest() override { ReleaseCapture(); }

  TLog FLog;
  TForm FForm;
  std::unique_ptr<TPanelPatch> FPanel = std::make_unique<TPanelPatch>(nullptr, FLog, "p");
  std::unique_ptr<TGraphicPatch> FA = std::make_unique<TGraphicPatch>(nullptr, FLog, "a");
  std::unique_ptr<TGraphicPatch> FB = std::make_unique<TGraphicPatch>(nullptr, FLog, "b");
};

TEST_F(InputTest, TheTopmostControlThatIsHitGetsThePress) {
  struct TCase {
    const char* What;
    int X, Y;
    const char* Target;
    std::function<void()> Change = [] {};
  };
  const TCase Cases[] = {
      {"beside all", 5, 5, "p"},
      {"first pixel", 10, 10, "a"},
      {"last pixel", 69, 69, "b"},
      {"behind the last pixel", 70, 69, "p"},
      {"overlap: the last in control order", 40, 40, "b"},
      {"its hit test says no", 40, 40, "a", [this] { FB->HitTest = [](int X, int Y) { return X + Y > 30; }; }},
      {"its hit test says yes", 50, 50, "b"},
      {"brought to front", 45, 45, "a", [this] { FA->BringToFront(); }},
      {"sent to back", 49, 49, "b", [this] { FA->SendToBack(); }},
      {"disabled", 49, 49, "a", [this] { FB->SetEnabled(false); }},
      {"invisible", 49, 49, "p", [this] { FA->SetVisible(false); }},
  };
  for (const TCase& Case : Cases) {
    Case.Change();
    FLog.clear();
    Press(*FPanel, Case.X, Case.Y);
    ASSERT_FALSE(FLog.empty());
    EXPECT_EQ(FLog.back().substr(0, 6), std::string(Case.Target) + ":down") << Case.What;
    Release(*FPanel, Case.X, Case.Y);
  }
}

TEST_F(InputTest, APressCapturesUntilTheRelease) {
  Press(*FPanel, 15, 15);
  EXPECT_TRUE(FA->MouseCapture());
  Drag(*FPanel, 60, 60);
  Drag(*FPanel, -7, 500);
  Release(*FPanel, 60, 60);
  EXPECT_FALSE(FA->MouseCapture());
  EXPECT_EQ(Taken(FLog), "a:enter; a:down 8 5,5; a:move 8 50,50; a:move 8 -17,490; a:up 0 50,50; a:leave; b:enter")
      << "no click outside of the box, and the other control is entered after the release";
  MoveMouse(*FPanel, 40, 20);
  MoveMouse(*FPanel, 190, 190);
  QEvent Leave(QEvent::Leave);
  QCoreApplication::sendEvent(FPanel->Widget(), &Leave);
  EXPECT_EQ(Taken(FLog), "b:leave; a:enter; a:move 0 30,10; a:leave; p:enter; p:move 0 190,190; p:leave");
  EXPECT_EQ(ControlUnderMouse(), nullptr);
  FB->SetMouseCapture(true);  // without a button
  MoveMouse(*FPanel, 0, 0);
  MoveMouse(FForm, 100, 50);  // through another widget: the same place
  EXPECT_EQ(Taken(FLog), "b:move 0 -30,-30; b:move 0 -30,-30");
  FB->SetParent(nullptr);
  EXPECT_EQ(GetCapture(), nullptr);
  EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

TEST_F(InputTest, ClicksAndDoubleClicks) {
  FA->SetOnClick([&](TObject* Sender) { FLog.push_back(Sender == FA.get() ? "OnClick" : "wrong sender"); });
  Press(*FPanel, 15, 15);
  Release(*FPanel, 16, 15);
  SendMouse(*FPanel, QEvent::MouseButtonDblClick, 15, 15, Qt::LeftButton, Qt::LeftButton);
  Release(*FPanel, 15, 15);
  EXPECT_EQ(Taken(FLog), "a:enter; a:down 8 5,5; OnClick; a:click; a:up 0 6,5; a:double; a:down 72 5,5; a:up 0 5,5");
  SendMouse(*FPanel, QEvent::MouseButtonPress, 15, 15, Qt::RightButton, Qt::RightButton, Qt::ShiftModifier);
  SendMouse(*FPanel, QEvent::MouseButtonRelease, 15, 15, Qt::RightButton);
  EXPECT_EQ(Taken(FLog), "a:down 17 5,5!; a:up 0 5,5") << "only the left button clicks";
}

TEST_F(InputTest, TheWheelGoesOnUntilItIsHandled) {
  struct TCase {
    bool Panel, Control;  // who handles it
    const char* Told;
  };
  for (const TCase& Case :
       {TCase{false, false, "b:wheel -120 4 10,10; p:wheel -120 4 40,40"},
        TCase{true, false, "b:wheel -120 4 10,10; p:wheel -120 4 40,40"}, TCase{true, true, "b:wheel -120 4 10,10"}}) {
    FPanel->HandlesWheel = Case.Panel;
    FB->HandlesWheel = Case.Control;
    const QPointF Place(40, 40);
    QWheelEvent Event(Place, FPanel->Widget()->mapToGlobal(Place), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(FPanel->Widget(), &Event);
    EXPECT_EQ(Event.isAccepted(), Case.Panel);
    EXPECT_EQ(Taken(FLog), Case.Told);
  }
}

TEST_F(InputTest, WhatDiesInAHandlerIsLeftAlone) {
  for (const char* At : {"enter", "down 8 5,5", "click", "up 0 5,5"})
    for (const bool PanelDies : {false, true}) {
      TForm Form;
      auto* Panel = new TPanelPatch(nullptr);
      auto* Control = new TGraphicPatch(nullptr);
      Put(*Panel, Form, 100, 100, 100, 100);  // away from the pointer
      Put(*Control, *Panel, 0, 0, 20, 20);
      ShowNow(Form);
      Control->OnTold = [&](const std::string& What) {
        if (What != At) return;
        if (PanelDies) delete std::exchange(Panel, nullptr);
        delete std::exchange(Control, nullptr);
      };
      for (void (*const Send)(TWinControl&, int, int) : {MoveMouse, Press, Release})
        if (Panel != nullptr) {
          Send(*Panel, 5, 5);
          HandleEvents();
        }
      EXPECT_EQ(Control, nullptr) << At;
      EXPECT_EQ(GetCapture(), nullptr) << At;
      delete Panel;
      ReleaseCapture();
    }
}

TEST_F(InputTest, AHandlerMayTakeItsControlOutOfTheParent) {
  FA->OnTold = [&](const std::string& What) {
    if (What == "down 8 5,5") FA->SetParent(nullptr);
  };
  Press(*FPanel, 15, 15);
  FLog.clear();
  Release(*FPanel, 15, 15);
  EXPECT_EQ(Taken(FLog), "a:leave; p:enter; p:up 0 15,15");
}

TEST_F(InputTest, PlacesOnTheDesktop) {
  const QPoint Corner = FForm.Widget()->mapToGlobal(QPoint(0, 0));
  EXPECT_EQ(FB->ClientToScreen({1, 2}), (TPoint{Corner.x() + 131, Corner.y() + 82}));
  EXPECT_EQ(FB->ScreenToClient(FB->ClientToScreen({1, 2})), (TPoint{1, 2}));
  TPoint Seen;
  FA->OnTold = [&](const std::string&) { Seen = CursorPos(); };
  MoveMouse(*FPanel, 12, 13);
  EXPECT_EQ(Seen, (TPoint{Corner.x() + 112, Corner.y() + 63})) << "that of the event";
  TCustomPanel Outer;
  TGraphicControl Inner;
  Outer.SetBounds(7, 8, 50, 50);
  Put(Inner, Outer, 1, 1, 5, 5);
  EXPECT_EQ(Inner.ClientToScreen({2, 2}), (TPoint{10, 11})) << "without a window";
}

TEST_F(InputTest, ThePointerIsThatOfTheControlUnderTheMouse) {
  const auto Shape = [&] { return FPanel->Widget()->cursor().shape(); };
  FA->SetCursor(crHandPoint);
  MoveMouse(*FPanel, 15, 15);
  EXPECT_EQ(Shape(), Qt::PointingHandCursor);
  FA->SetCursor(crSizeAll);
  EXPECT_EQ(Shape(), Qt::SizeAllCursor) << "a change shows at once";
  FB->SetCursor(crCross);
  EXPECT_EQ(Shape(), Qt::SizeAllCursor) << "the mouse is elsewhere";
  MoveMouse(*FPanel, 60, 60);
  EXPECT_EQ(Shape(), Qt::CrossCursor);
  FB->SetCursor(crDefault);
  EXPECT_EQ(Shape(), Qt::ArrowCursor);
  FPanel->SetCursor(crIBeam);
  EXPECT_EQ(Shape(), Qt::IBeamCursor) << "taken over from the parent";
  {
    const TBusyCursor Busy, Inner;
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    EXPECT_EQ(ApplicationCursor(), -11);
  }
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(InputTest, ToolTipsAreThoseOfTheControlUnderTheMouse) {
  const auto TipAt = [&](int X, int Y) {
    const QPoint Place(X, Y);
    QHelpEvent Event(QEvent::ToolTip, Place, FPanel->Widget()->mapToGlobal(Place));
    QCoreApplication::sendEvent(FPanel->Widget(), &Event);
    return QToolTip::isVisible() ? QToolTip::text().toStdString() : "";
  };
  FA->SetHint("first");
  FPanel->SetHint("ground");
  EXPECT_EQ(TipAt(15, 15), "") << "nobody wants hints yet";
  FForm.SetShowHint(true);
  EXPECT_EQ(TipAt(15, 15), "first");
  EXPECT_EQ(TipAt(60, 60), "ground") << "taken over from the parent";
  FA->SetShowHint(false);
  EXPECT_FALSE(FA->ParentShowHint());
  EXPECT_TRUE(FB->ShowHint());
  FA->SetParentShowHint(true);
  EXPECT_TRUE(FA->ShowHint());
  QToolTip::hideText();
}

TEST_F(InputTest, KeysReachTheFocusedControlWithTheirCodes) {
  FPanel->SetTabStop(true);
  TLog Keys;
  FPanel->SetOnEnter([&](TObject*) { Keys.push_back("in"); });
  FPanel->SetOnExit([&](TObject*) { Keys.push_back("out"); });
  FPanel->SetOnKeyDown([&](TObject*, TKey& Key, TShiftState Shift) {
    Keys.push_back("down " + IntToStr(Key) + " " + IntToStr(Shift.Bits()));
    if (Key == vkEscape) Key = 0;
  });
  FPanel->SetOnKeyPress([&](TObject*, char32_t& Key) { Keys.push_back("press " + IntToStr(Key)); });
  FPanel->SetOnKeyUp([&](TObject*, TKey& Key, TShiftState) { Keys.push_back("up " + IntToStr(Key)); });
  FPanel->SetFocus();
  EXPECT_TRUE(FPanel->Focused());
  EXPECT_EQ(Taken(Keys), "in");
  struct TCase {
    int Toolkit;
    Qt::KeyboardModifiers Keys;
    const char *Text, *Expected;
    bool Used = false;
  };
  const TCase Cases[] = {
      {Qt::Key_A, Qt::ShiftModifier, "A", "down 65 1; press 65; up 65"},
      {Qt::Key_Left, Qt::ControlModifier, "", "down 37 4; up 37"},
      {Qt::Key_F5, Qt::NoModifier, "", "down 116 0; up 116"},
      {Qt::Key_Udiaeresis, Qt::NoModifier, "\xC3\xBC", "down 0 0; press 252; up 0"},
      {Qt::Key_Escape, Qt::NoModifier, "\x1B", "down 27 0; up 27", true},
  };
  for (const TCase& Case : Cases) {
    QKeyEvent Down(QEvent::KeyPress, Case.Toolkit, Case.Keys, QString::fromUtf8(Case.Text));
    QKeyEvent Up(QEvent::KeyRelease, Case.Toolkit, Case.Keys);
    for (QKeyEvent* Event : {&Down, &Up}) QCoreApplication::sendEvent(FPanel->Widget(), Event);
    EXPECT_EQ(Taken(Keys), Case.Expected);
    EXPECT_EQ(Down.isAccepted(), Case.Used) << Case.Expected;
  }
  FForm.SetFocus();
  EXPECT_EQ(Taken(Keys), "out");
  FPanel->SetEnabled(false);
  EXPECT_THROW(FPanel->SetFocus(), EInvalidOperation);
}

TEST_F(InputTest, FocusThatCameByKeyboardShows) {
  FPanel->SetTabStop(true);
  const auto Focus = [&](Qt::FocusReason Reason) {
    FForm.SetFocus();
    FPanel->Widget()->setFocus(Reason);
    return Shown(*FPanel);
  };
  const QImage ByMouse = Focus(Qt::MouseFocusReason);
  ExpectPixels(ByMouse, {{0, 0, White}});
  EXPECT_NE(Focus(Qt::TabFocusReason), ByMouse);
}

TEST_F(InputTest, ScreenReadersHearCaptionHintOrName) {
  const auto Spoken = [&](TWinControl& Control) { return Control.Widget()->accessibleName().toStdString(); };
  FPanel->SetName("Panel");
  FPanel->SetHint("A chart");
  EXPECT_EQ(Spoken(*FPanel), "A chart");
  FPanel->SetHint("");
  EXPECT_EQ(Spoken(*FPanel), "Panel");
  FForm.SetCaption("Overview");
  EXPECT_EQ(Spoken(FForm), "Overview");
}

}  // namespace
}  // namespace zy
