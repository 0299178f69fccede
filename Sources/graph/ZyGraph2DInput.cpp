// What a chart's user does: events go to the gestures, and what these make of them goes to the ranges.

#include "graph/ZyGraph2D.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"

namespace zy {

// --- Events ---------------------------------------------------------------------------------------------------------

void TZyGraph2D::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
  if (FGestures.MouseDown(Button, Shift, {X, Y})) TZyCustomGraph::MouseDown(Button, Shift, X, Y);
}

void TZyGraph2D::MouseMove(TShiftState Shift, int X, int Y) {
  FGestures.MouseMove({X, Y});
  TZyCustomGraph::MouseMove(Shift, X, Y);
}

void TZyGraph2D::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  if (FGestures.MouseUp(Button) && FromLiveHandle(Alive) != nullptr) TZyCustomGraph::MouseUp(Button, Shift, X, Y);
}

// An heir may tell of the way back, and may be freed for it.

void TZyGraph2D::Click() {
  const std::uint64_t Alive = LiveHandle();
  FGestures.Click();
  if (FromLiveHandle(Alive) != nullptr) TZyCustomGraph::Click();
}

void TZyGraph2D::DblClick() {
  const std::uint64_t Alive = LiveHandle();
  FGestures.DblClick();
  if (FromLiveHandle(Alive) != nullptr) TZyCustomGraph::DblClick();
}

// The application's handler comes first and may free the chart.

bool TZyGraph2D::MouseWheel(TShiftState Shift, int WheelDelta, int X, int Y) {
  const std::uint64_t Alive = LiveHandle();
  if (TZyCustomGraph::MouseWheel(Shift, WheelDelta, X, Y) || FromLiveHandle(Alive) == nullptr) return true;
  return FGestures.MouseWheel(Shift, WheelDelta, {X, Y});
}

bool TZyGraph2D::Gesture(const TGesture& Gesture) {
  const std::uint64_t Alive = LiveHandle();
  if (TZyCustomGraph::Gesture(Gesture) || FromLiveHandle(Alive) == nullptr) return true;
  return FGestures.Pad(Gesture);
}

void TZyGraph2D::KeyDown(TKey& Key, TShiftState Shift) {
  const std::uint64_t Alive = LiveHandle();
  TZyCustomGraph::KeyDown(Key, Shift);
  if (Key != 0 && FromLiveHandle(Alive) != nullptr && FGestures.KeyDown(Key, Shift)) Key = 0;
}

/// The end of a gesture would never come to a chart that is hidden.
void TZyGraph2D::CMVisibleChanged() {
  if (!Visible() && !FGestures.Cancel()) return;
  TZyCustomGraph::CMVisibleChanged();
}

// --- What gestures act on -------------------------------------------------------------------------------------------

bool TZyGraph2D::Tell(TZyGestureEvent Event) {
  const std::uint64_t Alive = LiveHandle();
  const TNotifyEvent* const Handlers[] = {&FOnBeginZoom, &FOnEndZoom, &FOnBeginPanning, &FOnEndPanning};
  if (const TNotifyEvent Handler = *Handlers[static_cast<int>(Event)]) Handler(this);  // it may be replaced meanwhile
  return FromLiveHandle(Alive) != nullptr;
}

TPoint TZyGraph2D::MiddleOfData() const {
  return {static_cast<int>(FDrawingArea.X + FDrawingArea.Width / 2),
          static_cast<int>(FDrawingArea.Y + FDrawingArea.Height / 2)};
}

bool TZyGraph2D::IsTwisted(bool Horizontal) const {
  const TZyAxis* const Axis = Horizontal ? FPrimaryXAxis : FPrimaryYAxis;
  return Axis != nullptr && Axis->Twisted();
}

/// A gesture of a graph moves those that share its X axis too.
void TZyGraph2D::SetMoving(bool& Field, bool Value) {
  const bool IsPan = &Field == &FPanning;
  FLeadsMove = Value;
  Field = Value;
  for (TZyGraph2D* Other : CoupledGraphs()) (IsPan ? Other->FPanning : Other->FPinching) = Value;
}

void TZyGraph2D::SetPanning(bool Value) { SetMoving(FPanning, Value); }

void TZyGraph2D::BeginPan() {
  FStages.BeginPan();
  SetPanning(true);
}

void TZyGraph2D::EndPan(bool Keeps) {
  SetPanning(false);
  FStages.EndPan(Keeps);
}

void TZyGraph2D::BeginPinch(TPoint Place) {
  FStages.BeginScale(Place);
  SetMoving(FPinching, true);
}

void TZyGraph2D::PinchTo(double Scale) {
  FStages.ScaleBy(1 / Scale);
  FStages.ShowMove();
}

void TZyGraph2D::EndPinch() {
  SetMoving(FPinching, false);
  FStages.EndScale();
}

void TZyGraph2D::ScrollStep(bool Horizontal, bool Forward) {
  TScrollBar* const Bar = Horizontal ? FHorizontalScrollBar : FVerticalScrollbar;
  int Pos = 0;
  if (Bar != nullptr) Scroll(Bar, Forward ? scLineDown : scLineUp, Pos);
}

// --- The frame ------------------------------------------------------------------------------------------------------

void TZyGraph2D::PaintOverlay(Graphics& Gr) {
  TZyCustomGraph::PaintOverlay(Gr);
  const TRect Frame = FGestures.Frame();
  if (Frame.Width() == 0 && Frame.Height() == 0) return;
  const auto Left = static_cast<float>(Frame.Left), Top = static_cast<float>(Frame.Top);
  const auto Width = static_cast<float>(Frame.Width()), Height = static_cast<float>(Frame.Height());
  Pen Dots(Colors::Black);  // dots on white are seen on every ground
  Dots.SetDashStyle(DashStyleDot);
  SetHighQuality(Gr, false);
  Gr.DrawRectangle(Pen(Colors::White), Left, Top, Width, Height);
  Gr.DrawRectangle(Dots, Left, Top, Width, Height);
}

/// Has the lines of the frame drawn, or what they covered.
void TZyGraph2D::FrameChanged(const TRect& Frame) {
  constexpr int Margin = 1;  // a line may touch the pixels beside its own
  const auto [Left, Top, Right, Bottom] = Frame;
  for (const int X : {Left, Right}) InvalidateOverlay({X - Margin, Top - Margin, X + Margin + 1, Bottom + Margin + 1});
  for (const int Y : {Top, Bottom}) InvalidateOverlay({Left - Margin, Y - Margin, Right + Margin + 1, Y + Margin + 1});
}

// --- Scroll bars ----------------------------------------------------------------------------------------------------

TScrollBar* TZyGraph2D::MakeScrollBar(TScrollBarKind Kind) {
  auto* const Bar = new TScrollBar(this);
  Bar->SetDoubleBuffered(false);
  Bar->SetVisible(false);
  Bar->SetMax(WholeScrollBar);
  Bar->SetKind(Kind);
  Bar->SetOnScroll([this](TObject* Sender, TScrollCode Code, int& Pos) { Scroll(Sender, Code, Pos); });
  Bar->SetParent(this);
  return Bar;
}

/// What the last layout decided.
void TZyGraph2D::ShowScrollBars() {
  if (IsDesigning()) return;
  if (FHorizontalScrollBar != nullptr) FHorizontalScrollBar->SetVisible(FDoHScrollBar);
  if (FVerticalScrollbar != nullptr) FVerticalScrollbar->SetVisible(FDoVScrollBar);
}

void TZyGraph2D::Scroll(TObject* Sender, TScrollCode ScrollCode, int& ScrollPos) {
  const bool IsHorizontal = Sender == FHorizontalScrollBar;
  if ((IsHorizontal ? FPrimaryXAxis : FPrimaryYAxis) == nullptr) return;
  SetPanning(ScrollCode == scTrack);
  FStages.Scroll(IsHorizontal, ScrollCode, ScrollPos);
}

}  // namespace zy
