#include "graph/ZyGraphZoom.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "graph/ZyGraph2D.h"
#include "series/ZySeries.h"

namespace zy {
namespace {

/// What a scroll bar moves by; nothing for a code that names a place.
std::optional<TZyScrollIncrement> StepOf(const TZyZoomSettings& Settings, TScrollCode Code) {
  if (Code == scLineUp || Code == scLineDown) return Settings.ScrollSmallIncrement();
  if (Code == scPageUp || Code == scPageDown) return Settings.ScrollLargeIncrement();
  return std::nullopt;
}

/// A frame between two corners, cut to the data area; nothing when it lies outside.
std::optional<RectF> CutFrame(TPoint From, TPoint To, const RectF& Area) {
  const float AreaRight = Area.X + Area.Width, AreaBottom = Area.Y + Area.Height;
  const auto Low = [](int A, int B, float Edge) {
    const auto Smaller = static_cast<float>(std::min(A, B));
    return Smaller < Edge ? std::floor(Edge) : Smaller;
  };
  const auto High = [](int A, int B, float Edge) {
    const auto Larger = static_cast<float>(std::max(A, B));
    return Larger > Edge ? std::ceil(Edge) : Larger;
  };
  const float Left = Low(From.X, To.X, Area.X), Right = High(From.X, To.X, AreaRight);
  const float Top = Low(From.Y, To.Y, Area.Y), Bottom = High(From.Y, To.Y, AreaBottom);
  if (Right < Area.X || Bottom < Area.Y || Left > AreaRight || Top > AreaBottom) return std::nullopt;
  return RectF{Left, Top, Right - Left, Bottom - Top};
}

}  // namespace

// --- Stages ---------------------------------------------------------------------------------------------------------

int TZyGraphZoom::Stage() const {
  const TZyAxis* const Y = FGraph.PrimaryYAxis();
  return Y != nullptr ? Y->GetCurrentZoomStage() : 0;
}

int TZyGraphZoom::BufferSize() const {
  const TZyAxis* const Y = FGraph.PrimaryYAxis();
  return Y != nullptr ? Y->GetZoomBufferSize() : 0;
}

bool TZyGraphZoom::CanZoomBack() const {
  if (FGraph.Zoom().BufferType() == TZyZoomBufferType::AsStack) return Stage() > 0;
  const TZyAxis *const X = FGraph.PrimaryXAxis(), *const Y = FGraph.PrimaryYAxis();
  return (X != nullptr && X->GetCanZoomBack()) || (Y != nullptr && Y->GetCanZoomBack());
}

bool TZyGraphZoom::CanRedoZoom() const {
  if (FGraph.Zoom().BufferType() == TZyZoomBufferType::AsStack) return Stage() < BufferSize() - 1;
  return CanZoomBack();
}

/// Does something to the axes of each coupled graph but the shared one, which the graph itself has.
template <class TDo>
void TZyGraphZoom::OnCoupledAxes(const TDo& Do) const {
  for (const TZyGraph2D* Other : FGraph.CoupledGraphs())
    for (TZyAxis* Axis : Other->AllAxes())
      if (Axis != Other->PrimaryXAxis()) Do(*Axis);
}

/// The way of all changes of the stage: the axes of this graph, then those of coupled graphs. An X axis that belongs to
/// another graph comes with that graph.
template <class TDo>
void TZyGraphZoom::WalkStages(const TDo& Do) {
  for (TZyAxis* Axis : FGraph.Axes()) Do(*Axis);
  if (FGraph.MasterGraph() != nullptr) Do(*FGraph.PrimaryXAxis());
  OnCoupledAxes(Do);
  FGraph.SeriesModified();
  for (TZyGraph2D* Other : FGraph.CoupledGraphs()) Other->SeriesModified();
}

void TZyGraphZoom::ZoomBack() {
  if (CanZoomBack()) WalkStages([](TZyAxis& Axis) { Axis.ZoomBack(); });
}

void TZyGraphZoom::RedoZoom() {
  if (CanRedoZoom()) WalkStages([](TZyAxis& Axis) { Axis.RedoZoom(); });
}

void TZyGraphZoom::ZoomToStage(int Stage) {
  if (CanZoomBack() && Stage < BufferSize()) WalkStages([Stage](TZyAxis& Axis) { Axis.ZoomToStage(Stage); });
}

void TZyGraphZoom::Reset() {
  WalkStages([](TZyAxis& Axis) {
    if (Axis.RelatedSeries().empty()) {  // no data will bring it back
      Axis.ZoomToStage(0);
      Axis.ZoomClearBuffer();
    }
    Axis.RangeModified();
  });
}

void TZyGraphZoom::FixCoupled() {
  OnCoupledAxes([](TZyAxis& Axis) { Axis.ZoomIn(Axis.Start(), Axis.Stop()); });
}

void TZyGraphZoom::Join(TZyGraph2D& Newcomer) const {
  const int Size = BufferSize();
  const auto Fits = [Size](const TZyAxis* Axis) { return Axis->GetZoomBufferSize() == Size; };
  if (std::ranges::all_of(Newcomer.Axes(), Fits)) return;  // no reason to compute anything from within a setter
  Newcomer.TestSeriesAndAxis();
  for (TZyAxis* Axis : Newcomer.Axes()) {
    if (Fits(Axis)) continue;
    Axis->ZoomToStage(0);
    Axis->ZoomClearBuffer();
    if (Size > 0) Axis->BeginZoomBuffer();
    while (Axis->GetZoomBufferSize() < Size) Axis->ZoomIn(Axis->Start(), Axis->Stop());
    Axis->ZoomToStage(Stage());
  }
}

/// Begins the lists of stages where there are none yet.
void TZyGraphZoom::BeginStages() {
  for (TZyAxis* Axis : FGraph.AllAxes()) Axis->BeginZoomBuffer();
  OnCoupledAxes([](TZyAxis& Axis) { Axis.BeginZoomBuffer(); });
}

/// A list of one stage was begun for a move that did not come.
void TZyGraphZoom::ForgetUnusedStages() {
  const auto Forget = [](TZyAxis& Axis) {
    if (Axis.GetZoomBufferSize() == 1) Axis.ZoomClearBuffer();
  };
  for (TZyAxis* Axis : FGraph.AllAxes()) Forget(*Axis);
  OnCoupledAxes(Forget);
}

/// Makes the ranges that a gesture reached a new stage.
void TZyGraphZoom::AddStage() {
  for (TZyAxis* Axis : FGraph.AllAxes()) Axis->ZoomIn(Axis->Start(), Axis->Stop());
  FixCoupled();
}

void TZyGraphZoom::ShowMove() {
  FGraph.SeriesModified();
  FGraph.Invalidate();
  for (TZyGraph2D* Other : FGraph.CoupledGraphs()) {
    Other->SeriesModified();
    Other->Invalidate();
  }
  FGraph.RepaintChildGraphs();
}

// --- Frame ----------------------------------------------------------------------------------------------------------

/// What an axis is to show; nothing while Low is above High.
struct TZyGraphZoom::TRange {
  double Low = std::numeric_limits<double>::max();
  double High = std::numeric_limits<double>::lowest();

  void Take(double Value) {
    Low = std::min(Low, Value);
    High = std::max(High, Value);
  }
  bool Has(double Value) const { return Value >= Low && Value <= High; }
  /// What a frame in client pixels covers of an axis.
  static TRange Under(const RectF& Frame, const TZyAxis& Axis) {
    TRange Result;
    Result.Take(Axis.WorldToNumber(Axis.GetHorizontal() ? Frame.X : Frame.Y + Frame.Height));
    Result.Take(Axis.WorldToNumber(Axis.GetHorizontal() ? Frame.X + Frame.Width : Frame.Y));
    return Result;
  }
};

void TZyGraphZoom::TakeFrameEdges(const RectF& Frame, std::vector<TRange>& Ranges) const {
  std::size_t Index = 0;
  for (const TZyAxis* Axis : FGraph.AllAxes()) Ranges[Index++] = TRange::Under(Frame, *Axis);
}

/// An axis that is none of the graph's counts for the first X and the first Y axis.
void TZyGraphZoom::TakeFramePoints(const RectF& Frame, std::vector<TRange>& Ranges) const {
  const auto RangeOf = [&](const TZyAxis* Axis, std::size_t Default) -> TRange& {
    std::size_t Index = 0;
    for (const TZyAxis* One : FGraph.AllAxes()) {
      if (One == Axis) return Ranges[Index];
      ++Index;
    }
    return Ranges[std::min(Default, Ranges.size() - 1)];
  };
  for (TZySeries* Series : FGraph.RelatedSeries()) {
    if (!Series->SeriesVisible()) continue;
    const TRange InX = TRange::Under(Frame, *Series->XAxis());
    const TRange InY = TRange::Under(Frame, *Series->YAxis());
    TRange& OfX = RangeOf(Series->XAxis(), 0);
    TRange& OfY = RangeOf(Series->YAxis(), 1);
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

bool TZyGraphZoom::ZoomTo(TPoint From, TPoint To) {
  FGraph.BringUpToDate();  // pixels count on the scale that is to be seen
  const std::optional<RectF> Frame = CutFrame(From, To, FGraph.DrawingArea());
  if (FGraph.AllAxes().empty() || !Frame.has_value()) return false;
  const TZyGraphUpdate Update(FGraph);
  std::vector<TRange> Ranges(FGraph.AllAxes().size());
  if (FGraph.Zoom().OptimizeSeries()) {
    TakeFramePoints(*Frame, Ranges);
  } else {
    TakeFrameEdges(*Frame, Ranges);
  }
  std::size_t Index = 0;
  for (TZyAxis* Axis : FGraph.AllAxes()) {
    const TRange& Range = Ranges[Index++];
    if (Range.High >= Range.Low) {
      Axis->ZoomIn(Range.Low, Range.High);
    } else {
      Axis->Invalidate();
    }
  }
  FixCoupled();
  return true;
}

// --- Moves from the ranges of the beginning -------------------------------------------------------------------------

/// Does something with each axis that moves and is still there.
template <class TDo>
void TZyGraphZoom::ForEachMoved(const TDo& Do) const {
  for (const TMoved& Moved : FMoved)
    if (auto* const Axis = dynamic_cast<TZyAxis*>(TPersistent::FromLiveHandle(Moved.Axis))) Do(*Axis, Moved);
}

void TZyGraphZoom::NoteEnds() {
  FGraph.BringUpToDate();
  FMoved.clear();
  for (const TZyAxis* Axis : FGraph.AllAxes())
    FMoved.push_back({Axis->LiveHandle(), Axis->ToScale(Axis->Start()), Axis->ToScale(Axis->Stop()),
                      std::numeric_limits<double>::quiet_NaN()});
}

bool TZyGraphZoom::HasMoved() const {
  bool Result = false;
  ForEachMoved([&Result](const TZyAxis& Axis, const TMoved& Moved) {
    Result = Result || Axis.ToScale(Axis.Start()) != Moved.Start || Axis.ToScale(Axis.Stop()) != Moved.Stop;
  });
  return Result;
}

void TZyGraphZoom::BeginScale(TPoint Place) {
  NoteEnds();
  const auto X = static_cast<float>(Place.X), Y = static_cast<float>(Place.Y);
  const RectF& Area = FGraph.DrawingArea();
  const bool IsInX = X >= Area.X && X <= Area.X + Area.Width;
  const bool IsInY = Y >= Area.Y && Y <= Area.Y + Area.Height;
  std::size_t Index = 0;
  for (const TZyAxis* Axis : FGraph.AllAxes()) {
    if (!Axis->RelatedSeries().empty() && (Axis->GetHorizontal() ? IsInX : IsInY))
      FMoved[Index].Fixed = Axis->ToScale(Axis->WorldToNumber(Axis->GetHorizontal() ? X : Y));
    ++Index;
  }
}

bool TZyGraphZoom::ScaleBy(double Factor) {
  BeginStages();
  bool HasScaled = false;
  ForEachMoved([&](TZyAxis& Axis, const TMoved& Moved) {
    if (std::isnan(Moved.Fixed)) return;
    const double Start = Axis.Start(), Stop = Axis.Stop();
    Axis.ZoomAround(Moved.Start, Moved.Stop, Moved.Fixed, Factor);
    HasScaled = HasScaled || Axis.Start() != Start || Axis.Stop() != Stop;
  });
  return HasScaled;
}

/// The ranges that were reached become a stage; the whole range is one already.
void TZyGraphZoom::EndScale() {
  bool ShowsWhole = true;
  for (const TZyAxis* Axis : FGraph.AllAxes()) ShowsWhole = ShowsWhole && Axis->ShowsWhole();
  if (!HasMoved()) {
    ForgetUnusedStages();
  } else if (ShowsWhole && CanZoomBack()) {
    ZoomToStage(0);
  } else {
    AddStage();
  }
  ShowMove();
}

bool TZyGraphZoom::ZoomAround(TPoint Place, double Factor) {
  if (!(Factor > 0) || !std::isfinite(Factor)) return false;
  BeginScale(Place);
  if (!ScaleBy(Factor)) {
    ForgetUnusedStages();
    return false;
  }
  EndScale();
  return true;
}

void TZyGraphZoom::BeginPan() { NoteEnds(); }

void TZyGraphZoom::PanBy(double Dx, double Dy) {
  const TZyAxis *const X = FGraph.PrimaryXAxis(), *const Y = FGraph.PrimaryYAxis();
  if (X == nullptr || Y == nullptr) return;
  const auto UnitsOf = [](const TZyAxis& Primary, double Pixels) {
    return Pixels * Primary.NormalizeConst() * (Primary.Twisted() ? -1 : 1);
  };
  const double Ux = UnitsOf(*X, Dx), Uy = UnitsOf(*Y, Dy);
  ForEachMoved([&](TZyAxis& Axis, const TMoved& Moved) {
    const double Shift = (Axis.GetHorizontal() ? Ux : Uy) * (Axis.Twisted() ? -1 : 1);
    const double Start = Axis.FromScale(Moved.Start + Shift), Stop = Axis.FromScale(Moved.Stop + Shift);
    if (Start >= Axis.GetScrollStart() && Stop <= Axis.GetScrollStop()) Axis.SetStartStop(Start, Stop);
  });
  ShowMove();
}

void TZyGraphZoom::EndPan(bool Keeps) {
  if (Keeps) return AddStage();
  ForEachMoved([](TZyAxis& Axis, const TMoved& Moved) {
    Axis.SetStartStop(Axis.FromScale(Moved.Start), Axis.FromScale(Moved.Stop));
  });
  ShowMove();
}

// --- Scroll bars ----------------------------------------------------------------------------------------------------

/// How far a scroll bar asks its primary axis to move, on that axis's scale.
double TZyGraphZoom::ScrollDistance(const TZyAxis& Primary, bool Horizontal, TScrollCode Code, int Pos) const {
  const bool RunsWithBar = Horizontal != Primary.Twisted();
  const double Way = RunsWithBar ? 1 : -1;
  switch (Code) {
    case scLineUp:
      return -Way * Primary.IncrementOf(FGraph.Zoom().ScrollSmallIncrement());
    case scLineDown:
      return Way * Primary.IncrementOf(FGraph.Zoom().ScrollSmallIncrement());
    case scPageUp:
      return -Way * Primary.IncrementOf(FGraph.Zoom().ScrollLargeIncrement());
    case scPageDown:
      return Way * Primary.IncrementOf(FGraph.Zoom().ScrollLargeIncrement());
    case scTrack: {
      constexpr int WholeBar = TZyGraph2D::WholeScrollBar;
      const double From = Primary.ToScale(RunsWithBar ? Primary.Start() : Primary.Stop());
      return Primary.WholeOnScale() * (RunsWithBar ? Pos : WholeBar - Pos) / WholeBar +
             Primary.ToScale(Primary.GetScrollStart()) - From;
    }
    default:
      return 0;
  }
}

/// A stage takes the range that was reached as it is: an end beyond the data would else stay where it was, and the
/// range change its width.
void TZyGraphZoom::Scroll(bool Horizontal, TScrollCode Code, int Pos) {
  const bool AddsStage = Code != scLineUp && Code != scLineDown && Code != scTrack;
  if (Code != scTrack) FGraph.BringUpToDate();  // in a drag that would end at the next paint what it began on
  const TZyAxis* const Primary = Horizontal ? FGraph.PrimaryXAxis() : FGraph.PrimaryYAxis();
  if (Primary == nullptr) return;
  const double Part =
      ScrollDistance(*Primary, Horizontal, Code, Pos) / Primary->WholeOnScale() * (Primary->Twisted() ? -1 : 1);
  const bool IsHorizontal = Primary->GetHorizontal();
  const bool ByPixels = StepOf(FGraph.Zoom(), Code) == TZyScrollIncrement::Pixel;
  if (AddsStage) BeginStages();
  for (TZyAxis* Axis : FGraph.AllAxes())
    if (Axis->GetHorizontal() == IsHorizontal) Axis->ScrollBy(Part, !ByPixels);
  if (AddsStage) AddStage();
  ShowMove();
}

}  // namespace zy
