#include "graph/ZyGraphGestures.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "graph/ZyZoomSettings.h"

namespace zy {
namespace {

/// What a notch of the wheel, and a press of the minus key, scales the ranges by. It outweighs the rounding of ends to
/// ticks.
constexpr double ZoomOutStep = 1.5;

/// Wheel units of a notch.
constexpr int Notch = 120;

/// Pixels that a frame must exceed both ways, and a click must not reach.
constexpr int SmallestFrame = 4;

}  // namespace

// --- Frame ----------------------------------------------------------------------------------------------------------

TRect TZyGraphGestures::DragBox() const {
  const auto [Left, Right] = std::minmax(FDragStart.X, FDragEnd.X);
  const auto [Top, Bottom] = std::minmax(FDragStart.Y, FDragEnd.Y);
  return {Left, Top, Right, Bottom};
}

TRect TZyGraphGestures::Frame() const { return FKind == TKind::Frame ? DragBox() : TRect{}; }

bool TZyGraphGestures::IsDrag() const {
  return DragBox().Width() >= SmallestFrame || DragBox().Height() >= SmallestFrame;
}

bool TZyGraphGestures::IsFrameTooSmall() const {
  return DragBox().Width() <= SmallestFrame || DragBox().Height() <= SmallestFrame;
}

bool TZyGraphGestures::EndFrame() {
  FKind = TKind::None;
  FTarget.CaptureKeys(false);
  FTarget.FrameChanged(DragBox());
  const bool IsBackward = FDragStart.X >= FDragEnd.X && FDragStart.Y >= FDragEnd.Y;
  if (FTarget.Zoom().ResetOnRightBottomLeftTopFrame() && IsBackward) {
    FTarget.ZoomReset();
    return true;
  }
  if (IsFrameTooSmall()) return true;
  if (FTarget.Zoom().BackOnRightBottomLeftTopFrame() && IsBackward) {
    FTarget.ZoomBack();
    return true;
  }
  return !FTarget.ZoomToFrame(FDragStart, FDragEnd) || FTarget.Tell(TZyGestureEvent::EndZoom);
}

// --- Pan ------------------------------------------------------------------------------------------------------------

/// Returns whether the chart is still there.
bool TZyGraphGestures::StartPan(TKind Kind) {
  FTarget.BeginPan();
  FKind = Kind;
  FSavedCursor = FTarget.PointerShape();
  FTarget.SetPointerShape(FTarget.Zoom().PanningCursor());
  return FTarget.Tell(TZyGestureEvent::BeginPanning);
}

bool TZyGraphGestures::EndPan(bool Keeps) {
  FKind = TKind::None;
  FTarget.CaptureKeys(false);
  FTarget.SetPointerShape(FSavedCursor);
  FTarget.EndPan(Keeps);
  return FTarget.Tell(TZyGestureEvent::EndPanning);
}

bool TZyGraphGestures::Cancel() {
  switch (FKind) {
    case TKind::None:
      return true;
    case TKind::Frame:
      FKind = TKind::None;
      FTarget.CaptureKeys(false);
      FTarget.FrameChanged(DragBox());
      return true;
    case TKind::MousePan:
    case TKind::PadPan:
      return EndPan(false);
    case TKind::Pinch:
      return EndPinch();
  }
  return true;
}

// --- Mouse ----------------------------------------------------------------------------------------------------------

bool TZyGraphGestures::MouseDown(TMouseButton Button, TShiftState Shift, TPoint Place) {
  const TZyZoomSettings& Zoom = FTarget.Zoom();
  if (!Zoom.Auto() || FKind != TKind::None) return true;
  FButton = Button;
  FDragStart = FDragEnd = Place;
  if (Shift == Zoom.StartZoom()) {
    FKind = TKind::Frame;
    FTarget.CaptureKeys(Zoom.KeyboardZoom());
    return FTarget.Tell(TZyGestureEvent::BeginZoom);
  }
  if (Shift != Zoom.StartPanning()) return true;
  FTarget.BringUpToDate();
  if (!FTarget.HasPrimaryAxes() || !FTarget.GetCanZoomBack()) return true;
  FTarget.CaptureKeys(Zoom.KeyboardZoom());
  return StartPan(TKind::MousePan);
}

void TZyGraphGestures::MouseMove(TPoint Place) {
  if (FKind == TKind::Frame) {
    FTarget.FrameChanged(DragBox());
    FDragEnd = Place;
    FTarget.FrameChanged(DragBox());
  }
  if (FKind == TKind::MousePan) {
    FDragEnd = Place;
    const int Dx = FDragStart.X - Place.X, Dy = Place.Y - FDragStart.Y;
    if (Dx != 0 && Dy != 0) FTarget.PanBy(Dx, Dy);
  }
}

bool TZyGraphGestures::MouseUp(TMouseButton Button) {
  if (Button != FButton) return true;
  if (FKind == TKind::Frame) return EndFrame();
  return FKind != TKind::MousePan || EndPan(true);
}

void TZyGraphGestures::Click() {
  if (FTarget.Zoom().BackOnClickBeside() && FTarget.GetCanZoomBack() && !IsDrag() && !FTarget.MouseInDataArea())
    FTarget.ZoomBack();
}

void TZyGraphGestures::DblClick() {
  if (FTarget.Zoom().ResetOnDoubleClickBeside() && FTarget.GetCanZoomBack() && !FTarget.MouseInDataArea())
    FTarget.ZoomReset();
}

// --- Wheel and touch pad --------------------------------------------------------------------------------------------

/// One notch or turn as a whole, with its events.
void TZyGraphGestures::ZoomStep(TPoint Place, double Factor) {
  IZyGestureTarget& Target = FTarget;
  if (!Target.Tell(TZyGestureEvent::BeginZoom)) return;
  Target.ZoomAround(Place, Factor);
  static_cast<void>(Target.Tell(TZyGestureEvent::EndZoom));  // the last step
}

bool TZyGraphGestures::MouseWheel(TShiftState Shift, int WheelDelta, TPoint Place) {
  const TZyZoomSettings& Zoom = FTarget.Zoom();
  const TZyWheelZoom When = Zoom.WheelZoom();
  const bool Zooms = When == TZyWheelZoom::Always || (When == TZyWheelZoom::WithCtrl && Shift.Contains(ssCtrl));
  if (!Zoom.Auto() || !Zooms || FKind == TKind::Frame || FTarget.Panning() || !FTarget.HasPrimaryAxes()) return false;
  FWheelTurn += WheelDelta;  // fine wheels tell parts of a notch
  const int Notches = FWheelTurn / Notch;
  FWheelTurn -= Notches * Notch;
  if (Notches != 0) ZoomStep(Place, std::pow(ZoomOutStep, -Notches));
  return true;
}

bool TZyGraphGestures::Pad(const TGesture& Gesture) {
  if (!FTarget.Zoom().Auto() || !FTarget.Zoom().TouchGestures()) return false;
  if (FKind == TKind::Frame || FKind == TKind::MousePan) return false;
  switch (Gesture.Kind) {
    case gkBegin:
      return true;
    case gkZoom:
      PinchBy({Gesture.X, Gesture.Y}, Gesture.Scale);
      return true;
    case gkPan:
      return PanByPad(Gesture.DeltaX, Gesture.DeltaY);
    case gkEnd:
      if (FKind == TKind::PadPan) {
        EndPan(true);
      } else if (FKind == TKind::Pinch) {
        EndPinch();
      }
      return true;
    case gkDoubleTap:
      if (!FTarget.GetCanZoomBack()) return false;
      FTarget.ZoomReset();
      return true;
  }
  return false;
}

/// Things follow the fingers. A chart that shows all leaves the pan to what holds it.
bool TZyGraphGestures::PanByPad(double Dx, double Dy) {
  if (FKind == TKind::Pinch) return true;
  if (FKind == TKind::None) {
    FTarget.BringUpToDate();
    if (!FTarget.HasPrimaryAxes() || !FTarget.GetCanZoomBack() || FTarget.Panning()) return false;
    FPadWay = {};
    if (!StartPan(TKind::PadPan)) return true;
    if (FKind != TKind::PadPan) return false;
  }
  FPadWay.X += static_cast<float>(FTarget.IsTwisted(true) ? Dx : -Dx);
  FPadWay.Y += static_cast<float>(FTarget.IsTwisted(false) ? -Dy : Dy);
  FTarget.PanBy(static_cast<double>(FPadWay.X), static_cast<double>(FPadWay.Y));
  return true;
}

void TZyGraphGestures::PinchBy(TPoint Place, double Scale) {
  if (FKind == TKind::PadPan || !(Scale > 0)) return;
  if (FKind == TKind::None) {
    if (FTarget.Panning() || !FTarget.HasPrimaryAxes()) return;
    FTarget.BeginPinch(Place);
    FKind = TKind::Pinch;
    FPinchScale = 1;
    if (!FTarget.Tell(TZyGestureEvent::BeginZoom)) return;
  }
  FPinchScale *= Scale;
  FTarget.PinchTo(FPinchScale);
}

bool TZyGraphGestures::EndPinch() {
  FKind = TKind::None;
  FTarget.EndPinch();
  return FTarget.Tell(TZyGestureEvent::EndZoom);
}

// --- Keys -----------------------------------------------------------------------------------------------------------

bool TZyGraphGestures::ScrollByKey(bool Horizontal, bool Forward) {
  if (!FTarget.GetCanZoomBack()) return false;
  FTarget.ScrollStep(Horizontal, Forward);
  return true;
}

/// A place beside the data area zooms the axes along it alone.
bool TZyGraphGestures::ZoomAlongByKey(TKey Key) {
  constexpr int Beside = -1;
  TPoint Place = FTarget.MiddleOfData();
  if (Key == vkRight || Key == vkLeft) {
    Place.Y = Beside;
  } else if (Key == vkUp || Key == vkDown) {
    Place.X = Beside;
  } else {
    return false;
  }
  ZoomStep(Place, Key == vkRight || Key == vkUp ? 1 / ZoomOutStep : ZoomOutStep);
  return true;
}

bool TZyGraphGestures::KeyDown(TKey Key, TShiftState Shift) {
  if (!FTarget.Zoom().Auto() || !FTarget.Zoom().KeyboardZoom()) return false;
  if (Key == vkEscape) {
    if (FKind == TKind::None || FKind == TKind::Pinch) return false;
    Cancel();
    return true;
  }
  if (FKind == TKind::Frame || FTarget.Panning() || Shift.Contains(ssAlt)) return false;
  if (Shift.Contains(ssCtrl)) return ZoomAlongByKey(Key);
  switch (Key) {
    case vkLeft:
      return ScrollByKey(true, false);
    case vkRight:
      return ScrollByKey(true, true);
    case vkUp:
      return ScrollByKey(false, false);
    case vkDown:
      return ScrollByKey(false, true);
    case vkAdd:
      ZoomStep(FTarget.MiddleOfData(), 1 / ZoomOutStep);
      return true;
    case vkSubtract:
      ZoomStep(FTarget.MiddleOfData(), ZoomOutStep);
      return true;
    case vkHome:
      if (!FTarget.GetCanZoomBack()) return false;
      FTarget.ZoomReset();
      return true;
    case vkBack:
      if (!FTarget.GetCanZoomBack()) return false;
      FTarget.ZoomBack();
      return true;
    default:
      return false;
  }
}

}  // namespace zy
