#include "platform/controls/InputDispatch.h"

#include <QContextMenuEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QPointer>
#include <QPointingDevice>
#include <QStyleHints>
#include <QTimer>
#include <QToolTip>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

#include "platform/controls/TGraphicControl.h"
#include "platform/controls/TPopupMenu.h"
#include "platform/controls/TWinControl.h"

namespace zy {
namespace {

/// A control that may die while it is remembered.
class TControlMark {
 public:
  TControl* Get() const {
    return FHandle == 0 ? nullptr : dynamic_cast<TControl*>(TPersistent::FromLiveHandle(FHandle));
  }
  void Set(const TControl* Control) { FHandle = Control == nullptr ? 0 : Control->LiveHandle(); }
  bool Is(const TControl& Control) const { return FHandle != 0 && FHandle == Control.LiveHandle(); }

 private:
  std::uint64_t FHandle = 0;
};

TControlMark Captured;  // gets all mouse events
TControlMark Hovered;   // was told that the mouse entered
TControlMark Clicked;   // got the press of a click
TControlMark Asked;     // got the press of the right button
TPoint AskedPlace;      // on the desktop
std::optional<TPoint> EventPlace;

TPoint ToPoint(QPointF Place) {
  return {static_cast<int>(std::floor(Place.x())), static_cast<int>(std::floor(Place.y()))};
}

/// Keeps the desktop's place of the event that is being handled.
class TEventScope {
 public:
  explicit TEventScope(QPointF Global) : FOuter(EventPlace) { EventPlace = ToPoint(Global); }
  ~TEventScope() { EventPlace = FOuter; }
  TEventScope(const TEventScope&) = delete;
  TEventScope& operator=(const TEventScope&) = delete;

 private:
  std::optional<TPoint> FOuter;
};

TShiftState ToShiftState(Qt::KeyboardModifiers Keys, Qt::MouseButtons Buttons = Qt::NoButton) {
  TShiftState Result;
  if (Keys & Qt::ShiftModifier) Result.Include(ssShift);
  if (Keys & Qt::AltModifier) Result.Include(ssAlt);
  if (Keys & Qt::ControlModifier) Result.Include(ssCtrl);
  if (Buttons & Qt::LeftButton) Result.Include(ssLeft);
  if (Buttons & Qt::RightButton) Result.Include(ssRight);
  if (Buttons & Qt::MiddleButton) Result.Include(ssMiddle);
  return Result;
}

std::optional<TMouseButton> ToButton(Qt::MouseButton Button) {
  switch (Button) {
    case Qt::LeftButton:
      return mbLeft;
    case Qt::RightButton:
      return mbRight;
    case Qt::MiddleButton:
      return mbMiddle;
    default:
      return std::nullopt;
  }
}

/// The control with the widget that shows Control.
TWinControl* WindowOf(const TControl& Control) {
  const auto* const Own = dynamic_cast<const TWinControl*>(&Control);
  return Own != nullptr ? const_cast<TWinControl*>(Own) : Control.Parent();
}

TControl& ControlAt(TWinControl& Control, TPoint Place) {
  TControl* const Child = Control.ControlAtPos(Place.X, Place.Y);
  return Child == nullptr ? Control : *Child;
}

/// A place in Control's widget as one in Target.
TPoint PlaceIn(const TControl& Target, const TWinControl& Control, TPoint Place) {
  if (&Target == &Control) return Place;
  if (Target.Parent() == &Control && WindowOf(Target) == &Control)
    return {Place.X - Target.Left(), Place.Y - Target.Top()};
  return Target.ScreenToClient(Control.ClientToScreen(Place));
}

void Hover(TControl* Control) {
  TControl* const Old = Hovered.Get();
  if (Old == Control) return;
  TControlMark Next;
  Next.Set(Control);
  Hovered = Next;
  if (Old != nullptr) Old->CMMouseLeave();
  TControl* const Present = Next.Get();
  if (Present == nullptr || Hovered.Get() != Present) return;
  ShowCursorOf(*Present);
  Present->CMMouseEnter();
}

void Press(TControl& Target, const QMouseEvent& Event, TMouseButton Button, TPoint Place) {
  const TControlStyle Style = Target.ControlStyle();
  TShiftState Shift = ToShiftState(Event.modifiers(), Event.buttons());
  if (Style.Contains(csCaptureMouse)) Captured.Set(&Target);
  TControlMark Mark;
  Mark.Set(&Target);
  const bool IsDouble = Event.type() == QEvent::MouseButtonDblClick && Button == mbLeft;
  if (IsDouble) Shift.Include(ssDouble);
  const bool IsDoubleClick = IsDouble && Style.Contains(csDoubleClicks);
  if (Button == mbLeft) Clicked.Set(Style.Contains(csClickEvents) && !IsDoubleClick ? &Target : nullptr);
  if (Button == mbRight) {
    Asked.Set(&Target);
    AskedPlace = ToPoint(Event.globalPosition());
  }
  TWinControl* const Window = WindowOf(Target);
  auto* const Part = dynamic_cast<TGraphicControl*>(&Target);
  if (Window != nullptr) Window->SetActiveControl(Part != nullptr && Part->TakesKeys() ? Part : nullptr);
  if (Mark.Get() == nullptr) return;
  if (IsDoubleClick && Style.Contains(csClickEvents)) Target.DblClick();
  if (Mark.Get() != nullptr) Target.MouseDown(Button, Shift, Place.X, Place.Y);
}

/// Asks a control and its parents for a menu; by keyboard the place is -1, -1 for each.
void AskForMenu(TControl& Target, std::optional<TPoint> Place) {
  const TPoint Desktop = Place.has_value() ? Target.ClientToScreen(*Place) : TPoint{};
  TControlMark Mark;
  for (TControl* Control = &Target; Control != nullptr;) {
    Mark.Set(Control);
    const TPoint Inside = Place.has_value() ? Control->ScreenToClient(Desktop) : TPoint{-1, -1};
    if (Control->DoContextPopup(Inside.X, Inside.Y) || Mark.Get() == nullptr) return;
    Control = Control->Parent();
  }
}

/// A right button that was pressed and released at one place asks for a menu; one that moved was a gesture.
bool AsksForMenu(const TControl& Target, const QMouseEvent& Event) {
  const bool IsSame = Asked.Is(Target);
  Asked.Set(nullptr);
  const TPoint Place = ToPoint(Event.globalPosition());
  const int Moved = std::abs(Place.X - AskedPlace.X) + std::abs(Place.Y - AskedPlace.Y);
  return IsSame && Moved < QGuiApplication::styleHints()->startDragDistance();
}

void Release(TControl& Target, const QMouseEvent& Event, TMouseButton Button, TPoint Place) {
  TControlMark Mark;
  Mark.Set(&Target);
  if (Event.buttons() == Qt::NoButton && Captured.Get() != nullptr) ReleaseCapture();
  if (Button == mbLeft && Clicked.Get() != nullptr) {
    const bool IsClick =
        Clicked.Is(Target) && Place.X >= 0 && Place.Y >= 0 && Place.X < Target.Width() && Place.Y < Target.Height();
    Clicked.Set(nullptr);
    if (IsClick) Target.Click();
  }
  const bool Asks = Button == mbRight && AsksForMenu(Target, Event);
  if (Mark.Get() != nullptr) Target.MouseUp(Button, ToShiftState(Event.modifiers(), Event.buttons()), Place.X, Place.Y);
  if (Asks && Mark.Get() != nullptr) AskForMenu(Target, Place);
}

void DispatchButtonOrMove(TWinControl& Control, const QMouseEvent& Event) {
  const TEventScope Scope(Event.globalPosition());
  TControlMark Window;
  Window.Set(&Control);
  const TPoint Place = ToPoint(Event.position());
  TControlMark Target;
  Target.Set(Captured.Get() != nullptr ? Captured.Get() : &ControlAt(Control, Place));
  if (Captured.Get() == nullptr) Hover(Target.Get());
  if (Target.Get() == nullptr || Window.Get() == nullptr) return;
  const TPoint Inside = PlaceIn(*Target.Get(), Control, Place);
  const std::optional<TMouseButton> Button = ToButton(Event.button());
  if (Event.type() == QEvent::MouseMove) {
    Target.Get()->MouseMove(ToShiftState(Event.modifiers(), Event.buttons()), Inside.X, Inside.Y);
  } else if (Button.has_value() && Event.type() == QEvent::MouseButtonRelease) {
    Release(*Target.Get(), Event, *Button, Inside);
    // The capture may have kept the mouse over another control.
    if (Window.Get() != nullptr && Control.HasWidget() && Captured.Get() == nullptr) Hover(&ControlAt(Control, Place));
  } else if (Button.has_value()) {
    Press(*Target.Get(), Event, *Button, Inside);
  }
}

// --- Touch pad ------------------------------------------------------------------------------------------------------

TControlMark PadPanned;         // took the last pan of the touch pad
QPointer<QTimer> PadIdleTimer;  // ends a pan of a pad that does not tell its end

/// Brings a gesture to what the mouse is over, and then to the control with the window. Returns who took it.
TControl* SendGesture(TWinControl& Control, TPoint Place, TGesture Gesture) {
  TControlMark Window;
  Window.Set(&Control);
  TControl& Target = ControlAt(Control, Place);
  const auto Ask = [&Gesture](TControl& Taker, TPoint Inside) {
    Gesture.X = Inside.X;
    Gesture.Y = Inside.Y;
    return Taker.Gesture(Gesture);
  };
  if (Ask(Target, PlaceIn(Target, Control, Place))) return &Target;
  if (&Target != &Control && Window.Get() != nullptr && Ask(Control, Place)) return &Control;
  return nullptr;
}

void EndPadPan() {
  if (PadIdleTimer != nullptr) PadIdleTimer->stop();
  TControl* const Control = PadPanned.Get();
  PadPanned.Set(nullptr);
  if (Control != nullptr) Control->Gesture({.Kind = gkEnd});
}

/// Two fingers that move on a touch pad come as a wheel with pixels. Returns whether they pan a control.
bool PansByPad(TWinControl& Control, const QWheelEvent& Event) {
  constexpr int IdleMilliseconds = 250;
  const bool IsPad = Event.deviceType() == QInputDevice::DeviceType::TouchPad || Event.phase() != Qt::NoScrollPhase;
  if (!IsPad || Event.modifiers().testFlag(Qt::ControlModifier)) return false;
  if (Event.phase() == Qt::ScrollEnd) {
    const bool Panned = PadPanned.Get() != nullptr;
    EndPadPan();
    return Panned;
  }
  const QPoint Way = Event.pixelDelta();
  if (Way.isNull()) return false;
  PadPanned.Set(SendGesture(Control, ToPoint(Event.position()),
                            {.Kind = gkPan, .DeltaX = double(Way.x()), .DeltaY = double(Way.y())}));
  if (PadPanned.Get() == nullptr) return false;
  if (PadIdleTimer == nullptr) {
    PadIdleTimer = new QTimer(QCoreApplication::instance());
    PadIdleTimer->setSingleShot(true);
    QObject::connect(PadIdleTimer, &QTimer::timeout, [] { EndPadPan(); });
  }
  PadIdleTimer->start(IdleMilliseconds);
  return true;
}

bool DispatchNativeGesture(TWinControl& Control, const QNativeGestureEvent& Event) {
  const TEventScope Scope(Event.globalPosition());
  TGesture Gesture;
  switch (Event.gestureType()) {
    case Qt::BeginNativeGesture:
      Gesture.Kind = gkBegin;
      break;
    case Qt::ZoomNativeGesture:
      Gesture.Kind = gkZoom;
      Gesture.Scale = 1 + Event.value();
      break;
    case Qt::PanNativeGesture:
      Gesture.Kind = gkPan;
      Gesture.DeltaX = Event.delta().x();
      Gesture.DeltaY = Event.delta().y();
      break;
    case Qt::SmartZoomNativeGesture:
      Gesture.Kind = gkDoubleTap;
      break;
    case Qt::EndNativeGesture:
      Gesture.Kind = gkEnd;
      break;
    default:
      return false;
  }
  return SendGesture(Control, ToPoint(Event.position()), Gesture) != nullptr;
}

void DispatchWheel(TWinControl& Control, QWheelEvent& Event) {
  const TEventScope Scope(Event.globalPosition());
  if (PansByPad(Control, Event)) return Event.accept();
  TControlMark Window;
  Window.Set(&Control);
  const TPoint Place = ToPoint(Event.position());
  const QPoint Turn = Event.angleDelta();
  const int Delta = Turn.y() != 0 ? Turn.y() : Turn.x();
  const TShiftState Shift = ToShiftState(Event.modifiers(), Event.buttons());
  TControl* const Holder = Captured.Get();
  TControl& Target = Holder != nullptr ? *Holder : ControlAt(Control, Place);
  const TPoint Inside = PlaceIn(Target, Control, Place);
  const bool IsChild = &Target != &Control;
  bool Handled = Target.MouseWheel(Shift, Delta, Inside.X, Inside.Y);
  if (!Handled && IsChild && Window.Get() != nullptr) Handled = Control.MouseWheel(Shift, Delta, Place.X, Place.Y);
  Event.setAccepted(Handled);  // what is not handled goes on to the widget outside
}

struct TKeyRow {
  int Toolkit;
  TKey Code;
};
constexpr TKeyRow KeyRows[] = {{Qt::Key_Backspace, vkBack},    {Qt::Key_Tab, vkTab},       {Qt::Key_Backtab, vkTab},
                               {Qt::Key_Return, vkReturn},     {Qt::Key_Enter, vkReturn},  {Qt::Key_Shift, vkShift},
                               {Qt::Key_Control, vkControl},   {Qt::Key_Alt, vkMenu},      {Qt::Key_Pause, vkPause},
                               {Qt::Key_Escape, vkEscape},     {Qt::Key_Space, vkSpace},   {Qt::Key_PageUp, vkPrior},
                               {Qt::Key_PageDown, vkNext},     {Qt::Key_End, vkEnd},       {Qt::Key_Home, vkHome},
                               {Qt::Key_Left, vkLeft},         {Qt::Key_Up, vkUp},         {Qt::Key_Right, vkRight},
                               {Qt::Key_Down, vkDown},         {Qt::Key_Insert, vkInsert}, {Qt::Key_Delete, vkDelete},
                               {Qt::Key_Asterisk, vkMultiply}, {Qt::Key_Plus, vkAdd},      {Qt::Key_Minus, vkSubtract},
                               {Qt::Key_Slash, vkDivide}};

/// 0 for a key without a code.
TKey ToKey(int Toolkit) {
  if ((Toolkit >= Qt::Key_0 && Toolkit <= Qt::Key_9) || (Toolkit >= Qt::Key_A && Toolkit <= Qt::Key_Z))
    return static_cast<TKey>(Toolkit);
  if (Toolkit >= Qt::Key_F1 && Toolkit <= Qt::Key_F24) return static_cast<TKey>(vkF1 + (Toolkit - Qt::Key_F1));
  for (const TKeyRow& Row : KeyRows)
    if (Row.Toolkit == Toolkit) return Row.Code;
  return 0;
}

/// Offers a key to the active control within Control first, which may take Control along. True when it was used up.
bool SendKeyDown(TWinControl& Control, TKey Key, TShiftState Shift) {
  TControlMark Mark;
  Mark.Set(&Control);
  const TKey Pressed = Key;
  TGraphicControl* const Active = Control.ActiveControl();
  if (Active != nullptr && Active->Visible() && Active->Enabled() && Key != 0) Active->KeyDown(Key, Shift);
  if (Mark.Get() == nullptr) return true;
  if (Key != 0 || Pressed == 0) Control.KeyDown(Key, Shift);
  if (Mark.Get() == nullptr || (Pressed != 0 && Key == 0)) return true;
  return Key == vkTab && !Shift.Contains(ssCtrl) && !Shift.Contains(ssAlt) &&
         Control.ActivateNext(Shift.Contains(ssShift));
}

/// The pressed keys as TMenuItem::ShortCut names them.
std::string ShortCutOf(const QKeyEvent& Event) {
  const int Modifiers = static_cast<int>(Event.modifiers() & ~Qt::KeypadModifier);
  return QKeySequence(Modifiers | Event.key()).toString(QKeySequence::PortableText).toStdString();
}

}  // namespace

TControl* GetCapture() { return Captured.Get(); }

void SetCapture(TControl& Control) {
  Captured.Set(&Control);
  // Without a pressed button the toolkit sends events only to what the mouse is over.
  TWinControl* const Window = WindowOf(Control);
  if (Window != nullptr && Window->HasWidget() && QGuiApplication::mouseButtons() == Qt::NoButton)
    Window->Widget()->grabMouse();
}

void ReleaseCapture() {
  Captured.Set(nullptr);
  if (QWidget* const Grabber = QWidget::mouseGrabber()) Grabber->releaseMouse();
}

TControl* ControlUnderMouse() { return Hovered.Get(); }

TPoint CursorPos() {
  if (EventPlace.has_value()) return *EventPlace;
  const QPoint Place = QCursor::pos();
  return {Place.x(), Place.y()};
}

void ShowCursorOf(const TControl& Control) {
  const TControl* const Seen = Hovered.Get();
  if (Seen == nullptr) return;
  bool Concerns = false;  // Control itself, or one that takes its pointer over
  for (const TControl* Inner = Seen; Inner != nullptr && !Concerns; Inner = Inner->Parent())
    Concerns = Inner == &Control;
  TWinControl* const Window = WindowOf(*Seen);
  if (!Concerns || Window == nullptr || !Window->HasWidget()) return;
  TCursor Shape = crDefault;
  for (const TControl* Inner = Seen; Inner != nullptr && Shape == crDefault; Inner = Inner->Parent())
    Shape = Inner->Cursor();
  QWidget* const Widget = Window->Widget();
  if (Shape == crDefault) {
    Widget->unsetCursor();
  } else {
    Widget->setCursor(ToolkitCursor(Shape));
  }
}

bool DispatchMouse(TWinControl& Control, QEvent& Event) {
  switch (Event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
      DispatchButtonOrMove(Control, static_cast<QMouseEvent&>(Event));
      return true;
    case QEvent::Wheel:
      DispatchWheel(Control, static_cast<QWheelEvent&>(Event));
      return true;
    case QEvent::NativeGesture:
      Event.setAccepted(DispatchNativeGesture(Control, static_cast<QNativeGestureEvent&>(Event)));
      return Event.isAccepted();
    case QEvent::Enter:
      if (Captured.Get() == nullptr) Hover(&ControlAt(Control, ToPoint(static_cast<QEnterEvent&>(Event).position())));
      return false;
    case QEvent::Leave:
      if (Hovered.Get() != nullptr && Captured.Get() == nullptr && WindowOf(*Hovered.Get()) == &Control) Hover(nullptr);
      return false;
    default:
      return false;
  }
}

bool DispatchToolTip(TWinControl& Control, QEvent& Event) {
  const auto& Help = static_cast<QHelpEvent&>(Event);
  const TControl& Target = ControlAt(Control, {Help.pos().x(), Help.pos().y()});
  const TControl* Source = &Target;
  while (Source != nullptr && Source->Hint().empty()) Source = Source->Parent();
  if (Source == nullptr || !Target.ShowHint()) {
    QToolTip::hideText();
    Event.ignore();
    return true;
  }
  QRect Box(0, 0, Control.Width(), Control.Height());
  if (&Target != &Control) Box = QRect(Target.Left(), Target.Top(), Target.Width(), Target.Height());
  QToolTip::showText(Help.globalPos(), QString::fromStdString(Source->Hint()), Control.Widget(), Box);
  return true;
}

bool DispatchContextMenu(TWinControl& Control, QContextMenuEvent& Event) {
  if (Event.reason() == QContextMenuEvent::Keyboard) AskForMenu(Control, std::nullopt);
  for (const TControl* Outer = &Control; Outer != nullptr; Outer = Outer->Parent())
    if (Outer->PopupMenu() != nullptr) return true;
  return false;
}

bool DispatchShortCutOverride(TWinControl& Control, QKeyEvent& Event) {
  const std::string Keys = ShortCutOf(Event);
  for (TControl* Outer = &Control; Outer != nullptr; Outer = Outer->Parent())
    if (Outer->PopupMenu() != nullptr && Outer->PopupMenu()->Items().FindShortCut(Keys) != nullptr) {
      Event.accept();
      return true;
    }
  return false;
}

bool DispatchKey(TWinControl& Control, QKeyEvent& Event) {
  TControlMark Mark;
  Mark.Set(&Control);
  const TShiftState Shift = ToShiftState(Event.modifiers());
  const TKey Pressed = ToKey(Event.key());
  TKey Key = Pressed;
  if (Event.type() == QEvent::KeyRelease) {
    Control.KeyUp(Key, Shift);
    return Pressed != 0 && Key == 0;
  }
  const std::string Keys = ShortCutOf(Event);
  for (TControl* Outer = &Control; Outer != nullptr; Outer = Outer->Parent()) {
    if (Outer->PopupMenu() != nullptr && Outer->PopupMenu()->ClickShortCut(Keys)) return true;
    if (Mark.Get() == nullptr) return true;
  }
  if (SendKeyDown(Control, Key, Shift)) return true;
  bool Used = false;
  for (const char32_t Character : Event.text().toStdU32String()) {
    if (Mark.Get() == nullptr) return true;
    char32_t Typed = Character;
    Control.KeyPress(Typed);
    Used = Used || Typed == 0;
  }
  return Used || Mark.Get() == nullptr;
}

}  // namespace zy
