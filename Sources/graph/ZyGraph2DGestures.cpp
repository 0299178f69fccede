// Mouse, wheel and keys over a chart: the frame that zooms, the pan, and what goes back to wider ranges.

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "graph/ZyGraph2D.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"

namespace zy {
namespace {

/// What a notch of the wheel, and a press of the minus key, scales the ranges by. It outweighs the rounding of ends to
/// ticks.
constexpr double ZoomOutStep = 1.5;

/// Wheel units of a notch.
constexpr int Notch = 120;

/// Pixels that a frame must exceed both ways, and a click must not reach.
constexpr int SmallestFrame = 4;

int Distance(int A, int B) { return std::abs(A - B); }

}  // namespace

void TZyGraph2D::Fire(const TNotifyEvent& Event) {
  if (const TNotifyEvent Handler = Event) Handler(this);  // it may be replaced while it runs
}

// --- Frame ----------------------------------------------------------------------------------------------------------

void TZyGraph2D::PaintOverlay(Graphics& Gr) {
  TZyCustomGraph::PaintOverlay(Gr);
  if (!FZooming || FDragStart == FDragEnd) return;
  const auto Left = static_cast<float>(std::min(FDragStart.X, FDragEnd.X));
  const auto Top = static_cast<float>(std::min(FDragStart.Y, FDragEnd.Y));
  const auto Width = static_cast<float>(Distance(FDragStart.X, FDragEnd.X));
  const auto Height = static_cast<float>(Distance(FDragStart.Y, FDragEnd.Y));
  Pen Dots(Colors::Black);  // dots on white are seen on every ground
  Dots.SetDashStyle(DashStyleDot);
  SetHighQuality(Gr, false);
  Gr.DrawRectangle(Pen(Colors::White), Left, Top, Width, Height);
  Gr.DrawRectangle(Dots, Left, Top, Width, Height);
}

/// Has the lines of the frame drawn, or what they covered.
void TZyGraph2D::InvalidateFrame() {
  const int Left = std::min(FDragStart.X, FDragEnd.X), Right = std::max(FDragStart.X, FDragEnd.X);
  const int Top = std::min(FDragStart.Y, FDragEnd.Y), Bottom = std::max(FDragStart.Y, FDragEnd.Y);
  constexpr int Margin = 1;  // a line may touch the pixels beside its own
  for (const int X : {Left, Right}) InvalidateOverlay({X - Margin, Top - Margin, X + Margin + 1, Bottom + Margin + 1});
  for (const int Y : {Top, Bottom}) InvalidateOverlay({Left - Margin, Y - Margin, Right + Margin + 1, Y + Margin + 1});
}

// --- Pan ------------------------------------------------------------------------------------------------------------

void TZyGraph2D::StartPan() {
  SetPanning(true);
  FSavedCursor = Cursor();
  SetCursor(FZoom.PanningCursor());
  NoteEnds();
  Fire(FOnBeginPanning);
}

/// Moves the axes by a distance in pixels from where they were at the start; an axis that would leave the whole range
/// stays.
void TZyGraph2D::PanBy(double Dx, double Dy) {
  if (FPrimaryXAxis == nullptr || FPrimaryYAxis == nullptr) return;
  const auto UnitsOf = [](const TZyAxis& Primary, double Pixels) {
    return Pixels * Primary.NormalizeConst() * (Primary.Twisted() ? -1 : 1);
  };
  const double Ux = UnitsOf(*FPrimaryXAxis, Dx), Uy = UnitsOf(*FPrimaryYAxis, Dy);
  for (std::size_t Index = 0; Index < std::min(FAxes.size(), FPanStarts.size()); ++Index) {
    TZyAxis& Axis = *FAxes[Index];
    const double Shift = (Axis.GetHorizontal() ? Ux : Uy) * (Axis.Twisted() ? -1 : 1);
    const double Start = Axis.FromScale(FPanStarts[Index] + Shift), Stop = Axis.FromScale(FPanStops[Index] + Shift);
    if (Start >= Axis.GetScrollStart() && Stop <= Axis.GetScrollStop()) Axis.SetStartStop(Start, Stop);
  }
  ShowMove();
}

/// The place that was reached becomes a stage.
void TZyGraph2D::EndPan() {
  FPanIsMouse = false;
  SetPanning(false);
  SetCursor(FSavedCursor);
  AddStage();
  Fire(FOnEndPanning);
}

/// Takes a running gesture back.
void TZyGraph2D::CancelGesture() {
  if (FZooming) {
    FZooming = false;
    InvalidateFrame();
  }
  if (!FPanning) return;
  for (std::size_t Index = 0; Index < std::min(FAxes.size(), FPanStarts.size()); ++Index)
    FAxes[Index]->SetStartStop(FAxes[Index]->FromScale(FPanStarts[Index]), FAxes[Index]->FromScale(FPanStops[Index]));
  ShowMove();
  FPanIsMouse = false;
  SetPanning(false);
  SetCursor(FSavedCursor);
  Fire(FOnEndPanning);
}

// --- Mouse ----------------------------------------------------------------------------------------------------------

void TZyGraph2D::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (FZoom.Auto()) {
    FDragStart = FDragEnd = {X, Y};
    if (Shift == FZoom.StartZoom()) {
      FZooming = true;
      Fire(FOnBeginZoom);
    }
    if (GetCanZoomBack() && Shift == FZoom.StartPanning()) {
      FPanIsMouse = true;
      StartPan();
    }
    if (FZooming || FPanning) SetKeyCapture(FZoom.KeyboardZoom());
  }
  TZyCustomGraph::MouseDown(Button, Shift, X, Y);
}

void TZyGraph2D::MouseMove(TShiftState Shift, int X, int Y) {
  if (FZooming) {
    InvalidateFrame();
    FDragEnd = {X, Y};
    InvalidateFrame();
  }
  if (FPanIsMouse) {
    const int Dx = FDragStart.X - X, Dy = Y - FDragStart.Y;
    if (Dx != 0 && Dy != 0) PanBy(Dx, Dy);
  }
  TZyCustomGraph::MouseMove(Shift, X, Y);
}

void TZyGraph2D::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (FZooming) {
    FZooming = false;
    EndFrame();
  }
  if (FPanIsMouse) EndPan();
  SetKeyCapture(false);
  TZyCustomGraph::MouseUp(Button, Shift, X, Y);
}

void TZyGraph2D::EndFrame() {
  InvalidateFrame();
  const bool IsBackward = FDragStart.X >= FDragEnd.X && FDragStart.Y >= FDragEnd.Y;
  if (FZoom.ResetOnRightBottomLeftTopFrame() && IsBackward) return ZoomReset();
  if (Distance(FDragStart.X, FDragEnd.X) <= SmallestFrame || Distance(FDragStart.Y, FDragEnd.Y) <= SmallestFrame)
    return;
  if (FZoom.BackOnRightBottomLeftTopFrame() && IsBackward) return ZoomBack();
  ZoomTo(FDragStart, FDragEnd);
  Fire(FOnEndZoom);
}

void TZyGraph2D::Click() {
  const bool IsDrag =
      Distance(FDragStart.X, FDragEnd.X) >= SmallestFrame || Distance(FDragStart.Y, FDragEnd.Y) >= SmallestFrame;
  if (FZoom.BackOnClickBeside() && GetCanZoomBack() && !IsDrag && !MouseInDataArea()) ZoomBack();
  TZyCustomGraph::Click();
}

void TZyGraph2D::DblClick() {
  if (FZoom.ResetOnDoubleClickBeside() && GetCanZoomBack() && !MouseInDataArea()) ZoomReset();
  TZyCustomGraph::DblClick();
}

// --- Wheel and keys -------------------------------------------------------------------------------------------------

/// One notch or turn as a whole, with its events.
void TZyGraph2D::ZoomStep(TPoint Place, double Factor) {
  Fire(FOnBeginZoom);
  ZoomAround(Place, Factor);
  Fire(FOnEndZoom);
}

bool TZyGraph2D::MouseWheel(TShiftState Shift, int WheelDelta, int X, int Y) {
  if (TZyCustomGraph::MouseWheel(Shift, WheelDelta, X, Y)) return true;
  const TZyWheelZoom When = FZoom.WheelZoom();
  const bool Zooms = When == TZyWheelZoom::Always || (When == TZyWheelZoom::WithCtrl && Shift.Contains(ssCtrl));
  if (!FZoom.Auto() || !Zooms || FZooming || FPanning || FPrimaryYAxis == nullptr) return false;
  FWheelTurn += WheelDelta;  // fine wheels tell parts of a notch
  const int Notches = FWheelTurn / Notch;
  FWheelTurn -= Notches * Notch;
  if (Notches != 0) ZoomStep({X, Y}, std::pow(ZoomOutStep, -Notches));
  return true;
}

bool TZyGraph2D::Gesture(const TGesture& Gesture) {
  if (TZyCustomGraph::Gesture(Gesture)) return true;
  if (!FZoom.Auto() || !FZoom.TouchGestures() || FZooming || FPanIsMouse) return false;
  switch (Gesture.Kind) {
    case gkBegin:
      return true;
    case gkZoom:
      PinchBy({Gesture.X, Gesture.Y}, Gesture.Scale);
      return true;
    case gkPan:
      return PanByPad(Gesture.DeltaX, Gesture.DeltaY);
    case gkEnd:
      return EndPadGesture();
    case gkDoubleTap:
      if (!GetCanZoomBack()) return false;
      ZoomReset();
      return true;
  }
  return false;
}

/// Things follow the fingers. A chart that shows all leaves the pan to what holds it.
bool TZyGraph2D::PanByPad(double Dx, double Dy) {
  if (FPinching) return true;
  if (!FPanning) {
    if (!GetCanZoomBack()) return false;
    FPadWay = {};
    StartPan();
  }
  FPadWay.X += static_cast<float>(FPrimaryXAxis->Twisted() ? Dx : -Dx);
  FPadWay.Y += static_cast<float>(FPrimaryYAxis->Twisted() ? -Dy : Dy);
  PanBy(static_cast<double>(FPadWay.X), static_cast<double>(FPadWay.Y));
  return true;
}

void TZyGraph2D::PinchBy(TPoint Place, double Scale) {
  if (FPanning || !(Scale > 0) || FPrimaryYAxis == nullptr) return;
  if (!FPinching) {
    SetPinching(true);
    FPinchScale = 1;
    Fire(FOnBeginZoom);
    BeginScale(Place);
  }
  FPinchScale *= Scale;
  ScaleBy(1 / FPinchScale);
  ShowMove();
}

bool TZyGraph2D::EndPadGesture() {
  if (FPanning) EndPan();
  if (!FPinching) return true;
  SetPinching(false);
  EndScale();
  Fire(FOnEndZoom);
  return true;
}

void TZyGraph2D::KeyDown(TKey& Key, TShiftState Shift) {
  TZyCustomGraph::KeyDown(Key, Shift);
  if (Key != 0 && FZoom.Auto() && FZoom.KeyboardZoom() && UseKey(Key, Shift)) Key = 0;
}

/// Does what a key asks for; returns whether it asks for anything.
bool TZyGraph2D::UseKey(TKey Key, TShiftState Shift) {
  if (Key == vkEscape) {
    if (!FZooming && !FPanning) return false;
    CancelGesture();
    return true;
  }
  if (FZooming || FPanning || Shift.Contains(ssAlt) || Shift.Contains(ssCtrl)) return false;
  const TPoint Middle{static_cast<int>(FDrawingArea.X + FDrawingArea.Width / 2),
                      static_cast<int>(FDrawingArea.Y + FDrawingArea.Height / 2)};
  const auto ScrollOnce = [this](TScrollBar* Bar, TScrollCode Code) {
    int Pos = 0;
    if (GetCanZoomBack() && Bar != nullptr) Scroll(Bar, Code, Pos);
    return GetCanZoomBack();
  };
  switch (Key) {
    case vkLeft:
      return ScrollOnce(FHorizontalScrollBar, scLineUp);
    case vkRight:
      return ScrollOnce(FHorizontalScrollBar, scLineDown);
    case vkUp:
      return ScrollOnce(FVerticalScrollbar, scLineUp);
    case vkDown:
      return ScrollOnce(FVerticalScrollbar, scLineDown);
    case vkAdd:
      ZoomStep(Middle, 1 / ZoomOutStep);
      return true;
    case vkSubtract:
      ZoomStep(Middle, ZoomOutStep);
      return true;
    case vkHome:
      if (!GetCanZoomBack()) return false;
      ZoomReset();
      return true;
    default:
      return false;
  }
}

}  // namespace zy
