// The scroll bars of a chart.

#include <algorithm>

#include "graph/ZyGraph2D.h"

namespace zy {
namespace {

constexpr int WholeBar = 10000;

}  // namespace

TScrollBar* TZyGraph2D::MakeScrollBar(TScrollBarKind Kind) {
  auto* const Bar = new TScrollBar(this);
  Bar->SetDoubleBuffered(false);
  Bar->SetVisible(false);
  Bar->SetMax(WholeBar);
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

/// A gesture of a graph moves those that share its X axis too.
void TZyGraph2D::SetPanning(bool Value) {
  FPanning = Value;
  for (TZyGraph2D* Other : CoupledGraphs()) Other->FPanning = Value;
}

void TZyGraph2D::SetPinching(bool Value) {
  FPinching = Value;
  for (TZyGraph2D* Other : CoupledGraphs()) Other->FPinching = Value;
}

/// Shows what a move of the axes changed, also in coupled graphs.
void TZyGraph2D::ShowMove() {
  SeriesModified();
  Invalidate();
  for (TZyGraph2D* Other : CoupledGraphs()) {
    Other->SeriesModified();
    Other->Invalidate();
  }
  RepaintChildGraphs();
}

void TZyGraph2D::Scroll(TObject* Sender, TScrollCode ScrollCode, int& ScrollPos) {
  const bool IsHorizontal = Sender == FHorizontalScrollBar;
  TZyAxis* const Primary = IsHorizontal ? FPrimaryXAxis : FPrimaryYAxis;
  if (Primary == nullptr) return;
  SetPanning(ScrollCode == scTrack);
  const bool RunsWithBar = IsHorizontal != Primary->Twisted();
  const double Whole = Primary->WholeOnScale();
  double Distance = 0;
  switch (ScrollCode) {
    case scLineUp:
    case scLineDown:
      Distance = Primary->IncrementOf(FZoom.ScrollSmallIncrement());
      break;
    case scPageUp:
    case scPageDown:
      Distance = Primary->IncrementOf(FZoom.ScrollLargeIncrement());
      break;
    case scTrack: {
      const double From = Primary->ToScale(RunsWithBar ? Primary->Start() : Primary->Stop());
      const int Pos = RunsWithBar ? ScrollPos : WholeBar - ScrollPos;
      Distance = Whole * Pos / WholeBar + Primary->ToScale(Primary->GetScrollStart()) - From;
      break;
    }
    default:
      break;
  }
  if (ScrollCode == scLineUp || ScrollCode == scPageUp) Distance = -Distance;
  if (ScrollCode != scTrack && !RunsWithBar) Distance = -Distance;
  const double Part = Distance / Whole * (Primary->Twisted() ? -1 : 1);
  const bool AddsStage = ScrollCode != scLineUp && ScrollCode != scLineDown && ScrollCode != scTrack;
  for (TZyAxis* Axis : FAxes) {
    if (Axis->GetHorizontal() == Primary->GetHorizontal()) {
      Axis->ScrollBy(Part, AddsStage);
    } else if (AddsStage) {
      Axis->ZoomIn(Axis->Start(), Axis->Stop());
    }
  }
  if (AddsStage) FixChildZoomStack();
  ShowMove();
}

}  // namespace zy
