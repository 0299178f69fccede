#include <gtest/gtest.h>

#include <QCursor>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <QWheelEvent>
#include <memory>
#include <stdexcept>

#include "controls/ControlSamples.h"
#include "platform/controls/InputDispatch.h"
#include "platform/controls/TCustomPanel.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/framework/Exceptions.h"

namespace zy {
namespace {

constexpr unsigned Left = 1U << ssLeft;
constexpr unsigned Double = 1U << ssDouble;

std::string With(const char* What, unsigned Shift, const char* Place) {
  return What + std::string(" ") + std::to_string(Shift) + " " + Place;
}

/// A form (400 by 300) with the panel p in it at 100, 50, and in that the overlapping graphic controls a (10, 10, 40,
/// 40) and b (30, 30, 40, 40).
class InputTest : public testing::Test {
 protected:
  InputTest() {
    FForm.SetBounds(0, 0, 400, 300);
    FPanel->SetBounds(100, 50, 200, 200);
    FPanel->SetParent(&FForm);
    FA->SetBounds(10, 10, 40, 40);
    FB->SetBounds(30, 30, 40, 40);
    FA->SetParent(FPanel.get());
    FB->SetParent(FPanel.get());
    FForm.Show();
    HandleEvents();
    FLog.clear();
  }
  ~InputTest() override { ReleaseCapture(); }

  TLog Taken() { return std::exchange(FLog, {}); }

  TLog FLog;
  TForm FForm;
  std::unique_ptr<TTold<TCustomPanel>> FPanel = std::make_unique<TTold<TCustomPanel>>(nullptr, FLog, "p");
  std::unique_ptr<TTold<TGraphicControl>> FA = std::make_unique<TTold<TGraphicControl>>(nullptr, FLog, "a");
  std::unique_ptr<TTold<TGraphicControl>> FB = std::make_unique<TTold<TGraphicControl>>(nullptr, FLog, "b");
};

TEST_F(InputTest, TheTopmostControlThatIsHitGetsThePress) {
  struct TCase {
    const char* What;
    std::function<void()> Change;
    int X, Y;
    const char* Target;
  };
  const TCase Cases[] = {
      {"beside all", [] {}, 5, 5, "p"},
      {"first pixel", [] {}, 10, 10, "a"},
      {"last pixel", [] {}, 69, 69, "b"},
      {"behind the last pixel", [] {}, 70, 69, "p"},
      {"overlap: the last in control order", [] {}, 40, 40, "b"},
      {"its hit test says no", [this] { FB->HitTest = [](int X, int Y) { return X + Y > 30; }; }, 40, 40, "a"},
      {"its hit test says yes", [] {}, 50, 50, "b"},
      {"brought to front", [this] { FA->BringToFront(); }, 45, 45, "a"},
      {"sent to back", [this] { FA->SendToBack(); }, 49, 49, "b"},
      {"disabled", [this] { FB->SetEnabled(false); }, 49, 49, "a"},
      {"invisible", [this] { FA->SetVisible(false); }, 49, 49, "p"},
  };
  for (const TCase& Case : Cases) {
    Case.Change();
    Taken();
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
  EXPECT_EQ(Taken(), (TLog{"a:enter", "a:" + With("down", Left, "5,5"), "a:" + With("move", Left, "50,50"),
                           "a:" + With("move", Left, "-17,490"), "a:" + With("up", 0, "50,50"), "a:leave", "b:enter"}))
      << "no click outside of the box, and the other control is entered after the release";
  MoveMouse(*FPanel, 40, 20);
  MoveMouse(*FPanel, 190, 190);
  QEvent Leave(QEvent::Leave);
  QCoreApplication::sendEvent(FPanel->Widget(), &Leave);
  EXPECT_EQ(Taken(), (TLog{"b:leave", "a:enter", "a:" + With("move", 0, "30,10"), "a:leave", "p:enter",
                           "p:" + With("move", 0, "190,190"), "p:leave"}));
  EXPECT_EQ(ControlUnderMouse(), nullptr);
}

TEST_F(InputTest, ExplicitCaptureHoldsWithoutAButton) {
  FB->SetMouseCapture(true);
  MoveMouse(*FPanel, 0, 0);
  EXPECT_EQ(Taken(), (TLog{"b:" + With("move", 0, "-30,-30")}));
  MoveMouse(FForm, 100, 50);  // through another widget: the same place
  EXPECT_EQ(Taken(), (TLog{"b:" + With("move", 0, "-30,-30")}));
  FB->SetParent(nullptr);
  EXPECT_EQ(GetCapture(), nullptr);
  EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

TEST_F(InputTest, ClicksAndDoubleClicks) {
  int Clicks = 0;
  FA->SetOnClick([&](TObject* Sender) { Clicks += Sender == FA.get() ? 1 : 100; });
  Press(*FPanel, 15, 15);
  Release(*FPanel, 16, 15);
  SendMouse(*FPanel, QEvent::MouseButtonDblClick, 15, 15, Qt::LeftButton, Qt::LeftButton);
  Release(*FPanel, 15, 15);
  EXPECT_EQ(Taken(), (TLog{"a:enter", "a:" + With("down", Left, "5,5"), "a:click", "a:" + With("up", 0, "6,5"),
                           "a:double", "a:" + With("down", Left | Double, "5,5"), "a:" + With("up", 0, "5,5")}));
  EXPECT_EQ(Clicks, 1);
  SendMouse(*FPanel, QEvent::MouseButtonPress, 15, 15, Qt::RightButton, Qt::RightButton, Qt::ShiftModifier);
  SendMouse(*FPanel, QEvent::MouseButtonRelease, 15, 15, Qt::RightButton);
  EXPECT_EQ(Taken(),
            (TLog{"a:" + With("down", 1U << ssShift | 1U << ssRight, "5,5") + "!", "a:" + With("up", 0, "5,5")}))
      << "only the left button clicks";
}

TEST_F(InputTest, TheWheelGoesOnUntilItIsHandled) {
  const auto Turn = [&] {
    const QPointF Place(40, 40);
    QWheelEvent Event(Place, FPanel->Widget()->mapToGlobal(Place), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(FPanel->Widget(), &Event);
    return Event.isAccepted();
  };
  const std::string InB = "b:wheel -120 " + std::to_string(1U << ssCtrl) + " 10,10";
  const std::string InP = "p:wheel -120 " + std::to_string(1U << ssCtrl) + " 40,40";
  EXPECT_FALSE(Turn());
  EXPECT_EQ(Taken(), (TLog{InB, InP}));
  FPanel->HandlesWheel = true;
  EXPECT_TRUE(Turn());
  EXPECT_EQ(Taken(), (TLog{InB, InP}));
  FB->HandlesWheel = true;
  EXPECT_TRUE(Turn());
  EXPECT_EQ(Taken(), (TLog{InB}));
}

TEST_F(InputTest, WhatDiesInAHandlerIsLeftAlone) {
  struct TCase {
    const char* At;
    bool Panel;  // which one dies
  };
  for (const TCase& Case :
       {TCase{"enter", false}, TCase{"down 8 5,5", false}, TCase{"click", false}, TCase{"up 0 5,5", false},
        TCase{"enter", true}, TCase{"down 8 5,5", true}, TCase{"click", true}, TCase{"up 0 5,5", true}}) {
    TLog Log;
    TForm Form;
    auto* Panel = new TTold<TCustomPanel>(nullptr, Log, "p");
    auto* Control = new TTold<TGraphicControl>(nullptr, Log, "a");
    Panel->SetParent(&Form);
    Control->SetParent(Panel);
    Panel->SetBounds(100, 100, 100, 100);  // away from the pointer
    Control->SetBounds(0, 0, 20, 20);
    Form.Show();
    HandleEvents();
    Control->OnTold = [&](const std::string& What) {
      if (What != Case.At) return;
      if (Case.Panel) delete std::exchange(Panel, nullptr);
      delete std::exchange(Control, nullptr);
    };
    for (const QEvent::Type Type : {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
      if (Panel != nullptr) {
        SendMouse(*Panel, Type, 5, 5, Type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                  Type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton);
        HandleEvents();
      }
    EXPECT_EQ(Control, nullptr) << Case.At;
    EXPECT_EQ(GetCapture(), nullptr) << Case.At;
    delete Panel;
    ReleaseCapture();
  }
}

TEST_F(InputTest, AHandlerMayTakeItsControlOutOfTheParent) {
  FA->OnTold = [&](const std::string& What) {
    if (What == "down 8 5,5") FA->SetParent(nullptr);
  };
  Press(*FPanel, 15, 15);
  Taken();
  Release(*FPanel, 15, 15);
  EXPECT_EQ(Taken(), (TLog{"a:leave", "p:enter", "p:" + With("up", 0, "15,15")}));
}

TEST_F(InputTest, ExceptionsOfAHandlerReachTheApplication) {
  auto& Program = dynamic_cast<TApplication&>(Application());
  std::string Seen;
  Program.OnException = [&](const std::exception& Error) { Seen = Error.what(); };
  FA->SetOnClick([](TObject*) { throw std::runtime_error("clicked"); });
  Press(*FPanel, 15, 15);
  Release(*FPanel, 15, 15);
  Program.OnException = nullptr;
  EXPECT_EQ(Seen, "clicked");
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
  Inner.SetBounds(1, 1, 5, 5);
  Inner.SetParent(&Outer);
  EXPECT_EQ(Inner.ClientToScreen({2, 2}), (TPoint{10, 11})) << "without a window";
}

TEST_F(InputTest, ThePointerIsThatOfTheControlUnderTheMouse) {
  FA->SetCursor(crHandPoint);
  const auto Shape = [&] { return FPanel->Widget()->cursor().shape(); };
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
    const TBusyCursor Busy;
    const TBusyCursor Inner;
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
  QToolTip::hideText();
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
  struct TCase {
    int Toolkit;
    Qt::KeyboardModifiers Keys;
    const char* Text;
    TLog Expected;
    bool Used;
  };
  const TCase Cases[] = {
      {Qt::Key_A, Qt::ShiftModifier, "A", {"down 65 1", "press 65", "up 65"}, false},
      {Qt::Key_Left, Qt::ControlModifier, "", {"down 37 4", "up 37"}, false},
      {Qt::Key_F5, Qt::NoModifier, "", {"down 116 0", "up 116"}, false},
      {Qt::Key_Udiaeresis, Qt::NoModifier, "\xC3\xBC", {"down 0 0", "press 252", "up 0"}, false},
      {Qt::Key_Escape, Qt::NoModifier, "\x1B", {"down 27 0", "up 27"}, true},
  };
  for (const TCase& Case : Cases) {
    Keys.clear();
    QKeyEvent Down(QEvent::KeyPress, Case.Toolkit, Case.Keys, QString::fromUtf8(Case.Text));
    QCoreApplication::sendEvent(FPanel->Widget(), &Down);
    QKeyEvent Up(QEvent::KeyRelease, Case.Toolkit, Case.Keys);
    QCoreApplication::sendEvent(FPanel->Widget(), &Up);
    EXPECT_EQ(Keys, Case.Expected);
    EXPECT_EQ(Down.isAccepted(), Case.Used) << Case.Toolkit;
  }
  Keys.clear();
  FForm.SetFocus();
  EXPECT_EQ(Keys, (TLog{"out"}));
  FPanel->SetEnabled(false);
  EXPECT_THROW(FPanel->SetFocus(), EInvalidOperation);
}

TEST_F(InputTest, FocusThatCameByKeyboardShows) {
  FPanel->SetTabStop(true);
  const auto Shown = [&](Qt::FocusReason Reason) {
    FForm.SetFocus();
    FPanel->Widget()->setFocus(Reason);
    return FPanel->Widget()->grab().toImage();
  };
  const QImage ByMouse = Shown(Qt::MouseFocusReason);
  EXPECT_EQ(ByMouse.pixel(0, 0), 0xFFFFFFFF);
  EXPECT_NE(Shown(Qt::TabFocusReason), ByMouse);
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
