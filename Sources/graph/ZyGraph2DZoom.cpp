// The zoom stages of a chart: all its axes together, and in step with the charts that share its X axis.

#include <algorithm>
#include <cmath>
#include <limits>

#include "graph/ZyGraph2D.h"
#include "series/ZySeries.h"

namespace zy {

// --- Stages ---------------------------------------------------------------------------------------------------------

int TZyGraph2D::GetCurrentZoomStage() const {
  return FPrimaryYAxis != nullptr ? FPrimaryYAxis->GetCurrentZoomStage() : 0;
}

int TZyGraph2D::GetZoomBufferSize() const { return FPrimaryYAxis != nullptr ? FPrimaryYAxis->GetZoomBufferSize() : 0; }

bool TZyGraph2D::GetCanZoomBack() const {
  if (FZoom.BufferType() == TZyZoomBufferType::AsStack) return GetCurrentZoomStage() > 0;
  return (FPrimaryXAxis != nullptr && FPrimaryXAxis->GetCanZoomBack()) ||
         (FPrimaryYAxis != nullptr && FPrimaryYAxis->GetCanZoomBack());
}

bool TZyGraph2D::GetCanRedoZoom() const {
  if (FZoom.BufferType() == TZyZoomBufferType::AsStack) return GetCurrentZoomStage() < GetZoomBufferSize() - 1;
  return GetCanZoomBack();
}

TZyGraph2D* TZyGraph2D::MasterGraph() const {
  return FIsCoupledGraph && FPrimaryXAxis != nullptr ? dynamic_cast<TZyGraph2D*>(FPrimaryXAxis->Parent()) : nullptr;
}

std::vector<TZyGraph2D*> TZyGraph2D::CoupledGraphs() const {
  std::vector<TZyGraph2D*> Result = FChildGraphs;
  TZyGraph2D* const Master = MasterGraph();
  if (Master == nullptr) return Result;
  Result.push_back(Master);
  for (TZyGraph2D* Sibling : Master->FChildGraphs)
    if (Sibling != this) Result.push_back(Sibling);
  return Result;
}

/// Does something to the axes of each coupled graph but the shared one, which the graph itself has.
template <class TDo>
void TZyGraph2D::OnCoupledAxes(const TDo& Do) {
  for (TZyGraph2D* Other : CoupledGraphs())
    for (TZyAxis* Axis : Other->FAxes)
      if (Axis != Other->FPrimaryXAxis) Do(*Axis);
}

/// The way of all changes of the stage: the axes of this graph, then those of coupled graphs. An X axis that belongs to
/// another graph comes with that graph.
template <class TDo>
void TZyGraph2D::WalkStages(const TDo& Do) {
  for (TZyAxis* Axis : Axes()) Do(*Axis);
  if (MasterGraph() != nullptr) Do(*FPrimaryXAxis);
  OnCoupledAxes(Do);
  SeriesModified();
  for (TZyGraph2D* Other : CoupledGraphs()) Other->SeriesModified();
}

void TZyGraph2D::ZoomBack() {
  if (GetCanZoomBack()) WalkStages([](TZyAxis& Axis) { Axis.ZoomBack(); });
}

void TZyGraph2D::RedoZoom() {
  if (GetCanRedoZoom()) WalkStages([](TZyAxis& Axis) { Axis.RedoZoom(); });
}

void TZyGraph2D::ZoomToStage(int Stage) {
  if (GetCanZoomBack() && Stage < GetZoomBufferSize()) WalkStages([Stage](TZyAxis& Axis) { Axis.ZoomToStage(Stage); });
}

void TZyGraph2D::ZoomReset() {
  WalkStages([](TZyAxis& Axis) {
    if (Axis.RelatedSeries().empty()) {  // no data will bring it back
      Axis.ZoomToStage(0);
      Axis.ZoomClearBuffer();
    }
    Axis.RangeModified();
  });
}

void TZyGraph2D::FixChildZoomStack() {
  OnCoupledAxes([](TZyAxis& Axis) { Axis.ZoomIn(Axis.Start(), Axis.Stop()); });
}

/// Makes the ranges that a gesture reached a new stage.
void TZyGraph2D::AddStage() {
  for (TZyAxis* Axis : FAxes) Axis->ZoomIn(Axis->Start(), Axis->Stop());
  FixChildZoomStack();
}

// --- Frame ----------------------------------------------------------------------------------------------------------

/// What an axis is to show; nothing while Low is above High.
struct TZyGraph2D::TZoomRange {
  double Low = std::numeric_limits<double>::max();
  double High = std::numeric_limits<double>::lowest();

  void Take(double Value) {
    Low = std::min(Low, Value);
    High = std::max(High, Value);
  }
  bool Has(double Value) const { return Value >= Low && Value <= High; }
  /// What a frame in client pixels covers of an axis.
  static TZoomRange Under(const RectF& Frame, const TZyAxis& Axis) {
    TZoomRange Result;
    Result.Take(Axis.WorldToNumber(Axis.GetHorizontal() ? Frame.X : Frame.Y + Frame.Height));
    Result.Take(Axis.WorldToNumber(Axis.GetHorizontal() ? Frame.X + Frame.Width : Frame.Y));
    return Result;
  }
};

void TZyGraph2D::TakeFrameEdges(const RectF& Frame, std::vector<TZoomRange>& Ranges) const {
  for (std::size_t Index = 0; Index < FAxes.size(); ++Index) Ranges[Index] = TZoomRange::Under(Frame, *FAxes[Index]);
}

/// An axis that is none of the graph's counts for the first X and the first Y axis.
void TZyGraph2D::TakeFramePoints(const RectF& Frame, std::vector<TZoomRange>& Ranges) const {
  const auto RangeOf = [&](const TZyAxis* Axis, std::size_t Default) -> TZoomRange& {
    const auto Place = std::find(FAxes.begin(), FAxes.end(), Axis);
    const std::size_t Index = Place == FAxes.end() ? Default : static_cast<std::size_t>(Place - FAxes.begin());
    return Ranges[std::min(Index, Ranges.size() - 1)];
  };
  for (TZySeries* Series : FRelatedSeries) {
    if (!Series->SeriesVisible()) continue;
    const TZoomRange InX = TZoomRange::Under(Frame, *Series->XAxis());
    const TZoomRange InY = TZoomRange::Under(Frame, *Series->YAxis());
    TZoomRange& OfX = RangeOf(Series->XAxis(), 0);
    TZoomRange& OfY = RangeOf(Series->YAxis(), 1);
    const int Count = Series->GetCount();
    for (int Idx = 0; Idx < Count; ++Idx) {
      if (!Series->HasValuesAt(Idx)) continue;
      const double X = Series->TransformX(Series->XData()->GetValue(Idx), Idx);
      if (!InX.Has(X)) continue;
      const double Y = Series->TransformY(Series->YData()->GetValue(Idx), Idx);
      if (!InY.Has(Y)) continue;
      OfX.Take(X);
      OfY.Take(Y);
    }
  }
}

void TZyGraph2D::ZoomTo(TPoint TopLeft, TPoint BottomRight) {
  CalculateWhenDirty();  // pixels count on the scale that is to be seen
  if (FAxes.empty()) return;
  const auto [AreaX, AreaY, AreaWidth, AreaHeight] = FDrawingArea;
  const auto Low = [](int A, int B, float Edge) {
    const auto Smaller = static_cast<float>(std::min(A, B));
    return Smaller < Edge ? std::floor(Edge) : Smaller;
  };
  const auto High = [](int A, int B, float Edge) {
    const auto Larger = static_cast<float>(std::max(A, B));
    return Larger > Edge ? std::ceil(Edge) : Larger;
  };
  const float Left = Low(TopLeft.X, BottomRight.X, AreaX), Right = High(TopLeft.X, BottomRight.X, AreaX + AreaWidth);
  const float Top = Low(TopLeft.Y, BottomRight.Y, AreaY), Bottom = High(TopLeft.Y, BottomRight.Y, AreaY + AreaHeight);
  const RectF Frame{Left, Top, Right - Left, Bottom - Top};
  BeginUpdate();
  std::vector<TZoomRange> Ranges(FAxes.size());
  if (FZoom.OptimizeSeries()) {
    TakeFramePoints(Frame, Ranges);
  } else {
    TakeFrameEdges(Frame, Ranges);
  }
  for (std::size_t Index = 0; Index < FAxes.size(); ++Index) {
    if (Ranges[Index].High >= Ranges[Index].Low) {
      FAxes[Index]->ZoomIn(Ranges[Index].Low, Ranges[Index].High);
    } else {
      FAxes[Index]->Invalidate();
    }
  }
  FixChildZoomStack();
  EndUpdate();
}

// --- Around a place -------------------------------------------------------------------------------------------------

/// Notes where a gesture starts from.
void TZyGraph2D::NoteEnds() {
  FPanStarts.clear();
  FPanStops.clear();
  for (const TZyAxis* Axis : FAxes) {
    FPanStarts.push_back(Axis->ToScale(Axis->Start()));
    FPanStops.push_back(Axis->ToScale(Axis->Stop()));
  }
}

void TZyGraph2D::BeginScale(TPoint Place) {
  CalculateWhenDirty();
  NoteEnds();
  const auto X = static_cast<float>(Place.X), Y = static_cast<float>(Place.Y);
  const bool IsInX = X >= FDrawingArea.X && X <= FDrawingArea.X + FDrawingArea.Width;
  const bool IsInY = Y >= FDrawingArea.Y && Y <= FDrawingArea.Y + FDrawingArea.Height;
  FScalePlaces.clear();
  for (const TZyAxis* Axis : FAxes) {
    const bool Moves = !Axis->RelatedSeries().empty() && (Axis->GetHorizontal() ? IsInX : IsInY);
    const double Fixed = Axis->ToScale(Axis->WorldToNumber(Axis->GetHorizontal() ? X : Y));
    FScalePlaces.push_back(Moves ? Fixed : std::numeric_limits<double>::quiet_NaN());
  }
}

/// Scales the ranges of the start of the gesture. Returns whether any axis moved.
bool TZyGraph2D::ScaleBy(double Factor) {
  for (TZyAxis* Axis : FAxes) Axis->BeginZoomBuffer();
  OnCoupledAxes([](TZyAxis& Axis) { Axis.BeginZoomBuffer(); });
  bool Moved = false;
  for (std::size_t Index = 0; Index < std::min(FAxes.size(), FScalePlaces.size()); ++Index) {
    if (std::isnan(FScalePlaces[Index])) continue;
    TZyAxis& Axis = *FAxes[Index];
    const double Start = Axis.Start(), Stop = Axis.Stop();
    Axis.ZoomAround(FPanStarts[Index], FPanStops[Index], FScalePlaces[Index], Factor);
    Moved = Moved || Axis.Start() != Start || Axis.Stop() != Stop;
  }
  return Moved;
}

/// The ranges that were reached become a stage; the whole range is one already.
void TZyGraph2D::EndScale() {
  const bool ShowsWhole =
      std::all_of(FAxes.begin(), FAxes.end(), [](const TZyAxis* Axis) { return Axis->ShowsWhole(); });
  if (ShowsWhole && GetCanZoomBack()) {
    ZoomToStage(0);
  } else {
    AddStage();
  }
  ShowMove();
}

bool TZyGraph2D::ZoomAround(TPoint Place, double Factor) {
  if (!(Factor > 0) || !std::isfinite(Factor)) return false;
  BeginScale(Place);
  if (!ScaleBy(Factor)) return false;
  EndScale();
  return true;
}

}  // namespace zy
