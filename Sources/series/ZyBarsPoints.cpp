// From the data of bars to ranges, rectangles and depths.

#include <algorithm>
#include <cmath>
#include <numeric>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "series/ZyBars.h"
#include "series/ZyPointLook.h"

namespace zy {

// --- Values ---------------------------------------------------------------------------------------------------------

/// Bars that have both of their boundaries. Values at the end that are not to be seen make no bars.
int TZyBars::GetCount() {
  if (!FX || !FY) return 0;
  int Result = Values().Count();
  if (HasOwnClasses() && Classes().Count() <= Result) Result = Classes().Count() - 1;
  while (Result > 0 && !OutliersVisible() && Values()->IsOutlier(Result - 1)) --Result;
  return std::max(Result, 0);
}

bool TZyBars::HasValue(int Idx) const {
  const bool IsInVectors = Idx >= 0 && Idx < Values().Count() && (!HasOwnClasses() || Idx < Classes().Count());
  return IsInVectors && HasValuesAt(Idx);
}

/// 0 for what has no value.
double TZyBars::OwnValue(int Idx) const {
  const double Value = HasValue(Idx) ? Values().At(Idx) : 0;
  return std::isfinite(Value) ? Value : 0;
}

/// Whatever the values: else the bar in front of one without a value would end elsewhere.
bool TZyBars::HasBoundary(int Idx) const {
  if (HasOwnClasses() && !OutliersVisible() && Classes()->IsOutlier(Idx)) return false;
  return std::isfinite(Classes().At(Idx));
}

double TZyBars::BoundaryAt(int Idx) const { return HasBoundary(Idx) ? Classes().At(Idx) : 0; }

double TZyBars::EndOf(int Idx, const TBarsList& Below) const {
  double Result = OwnValue(Idx);
  for (const TZyBars* Bars : Below) Result += Bars->OwnValue(Idx);
  return Result;
}

// --- Ranges ---------------------------------------------------------------------------------------------------------

/// Bars that stand on others begin anew when these are others. Nobody else looks after those that are hidden.
void TZyBars::Calculate() {
  std::vector<std::uint64_t> StandsOn;
  for (TZyBars* Bars : Below()) {
    StandsOn.push_back(Bars->LiveHandle());
    if (!Bars->SeriesVisible()) Bars->TZySeries::Calculate();
  }
  if (StandsOn != FStoodOn) {
    FStoodOn = std::move(StandsOn);
    SetLastCount(0);
  }
  TZySeries::Calculate();
}

/// Adds the values of bars without outliers and gaps in one go.
void TZyBars::AddValues(std::span<double> Ends) const {
  const std::span<const double> Data = Values()->Values();
  const int Number = std::min(static_cast<int>(Ends.size()), static_cast<int>(Data.size()));
  const bool IsWhole = !HasOwnClasses() || (Classes().Count() >= Number && !Classes()->GetHasGaps());
  if (Data.empty() || !IsWhole || Values().IsTransformed() || NextOutlier(0) < Number) {
    for (std::size_t i = 0; i < Ends.size(); ++i) Ends[i] += OwnValue(static_cast<int>(i));
    return;
  }
  for (std::size_t i = 0; i < static_cast<std::size_t>(Number); ++i) Ends[i] += std::isfinite(Data[i]) ? Data[i] : 0;
}

void TZyBars::TakeEnds(const TBarsList& Below) {
  FEnds.assign(static_cast<std::size_t>(Count()), 0);
  AddValues(FEnds);
  for (const TZyBars* Bars : Below) Bars->AddValues(FEnds);
}

/// Boundaries without a value are not-a-number here.
void TZyBars::TakeEdges() {
  FEdges.resize(static_cast<std::size_t>(Count()) + 1);
  if (!HasOwnClasses() && !Classes().IsTransformed()) {
    std::iota(FEdges.begin(), FEdges.end(), 0.0);
    return;
  }
  for (int i = 0; i <= Count(); ++i)
    FEdges[static_cast<std::size_t>(i)] = HasBoundary(i) ? BoundaryAt(i) : std::numeric_limits<double>::quiet_NaN();
}

/// Bars grow from 0, so that the range of their values has it.
void TZyBars::TakeRanges(TRange& X, TRange& Y) {
  TRange &AlongClasses = FBarsHorizontal ? Y : X, &AlongValues = FBarsHorizontal ? X : Y;
  TakeEdges();
  for (const double Edge : FEdges) AlongClasses.Take(Edge);
  bool HasAny = false;
  for (int i = 0; i < Count() && !HasAny; ++i) HasAny = HasValue(i);
  if (HasAny) {
    TakeEnds(Below());
    for (const double End : FEnds) AlongValues.Take(End);
    AlongValues.Take(0);
  }
  TellAbove();
}

void TZyBars::DataReset() {
  TZySeries::DataReset();
  TellAbove();
}

void TZyBars::DataInvalidated() {
  TZySeries::DataInvalidated();
  TellAbove();
}

void TZyBars::DataCleared(const TZyCustomDoubleVector& Vector, bool WithLinkedMarkers) {
  TZySeries::DataCleared(Vector, WithLinkedMarkers);
  TellAbove();
}

// --- Pixels ---------------------------------------------------------------------------------------------------------

void TZyBars::CalculatePoints() {
  if (FPointsCalculating) return;
  struct TCalculating {
    explicit TCalculating(TZyBars& ABars) : Bars(ABars) { Bars.FPointsCalculating = true; }
    ~TCalculating() {
      if (FromLiveHandle(Handle) != nullptr) Bars.FPointsCalculating = false;
    }
    TZyBars& Bars;
    const std::uint64_t Handle = Bars.LiveHandle();
  } const Calculating(*this);
  TZySeries::CalculatePoints();
}

/// All bars anew: depth, font and the place among other series follow from all of them.
void TZyBars::TakeNewPixels() {
  ForgetPixels();
  FBottomRight.Clear();
  if (Count() < 1) return;
  FGroup = Group();
  if (TBarsList Others = Below(); !Others.empty() && Others.back()->RecalculatePoints()) {
    const std::uint64_t Handle = LiveHandle();
    Others.back()->CalculatePoints();  // its handlers may free any of them
    TZyPointLook::TestAlive(Handle);
    if (Count() < 1) return;
  }
  TakeBars(Below());
  TakeDepth();
  FCaptions.Update();
  TakeLabels();
}

void TZyBars::TakeBars(const TBarsList& Below) {
  const TZyAxis &ClassesOn = ClassAxis(), &ValuesOn = ValueAxis();
  TakeEdges();
  TakeEnds(Below);
  const auto Number = static_cast<std::size_t>(Count());
  FEdgePixels.resize(Number + 1);
  FEndPixels.resize(Number);
  ValuesOn.NumberToWorld(FEnds, FEndPixels);
  const auto HasEdge = [this](std::size_t i) { return !std::isnan(FEdges[i]); };
  bool HasAllEdges = true;
  for (std::size_t i = 0; i <= Number; ++i) HasAllEdges = HasAllEdges && HasEdge(i);
  if (HasAllEdges)
    ClassesOn.NumberToWorld(FEdges, FEdgePixels);
  else
    for (std::size_t i = 0; i <= Number; ++i) FEdgePixels[i] = ClassesOn.NumberToWorld(HasEdge(i) ? FEdges[i] : 0);

  // A logarithmic scale has no 0: bars then stand on its start.
  const float Base = ValuesOn.NumberToWorld(ValuesOn.HasLogScaling() ? std::max(ValuesOn.Start(), 0.0) : 0);
  const std::span<const PointF> UnderCorners =
      Below.empty() ? std::span<const PointF>()
                    : (FBarsHorizontal ? Below.back()->BottomRight() : Below.back()->Points());
  const auto Slots = static_cast<float>(FGroup.Number), Place = static_cast<float>(FGroup.Place);
  const auto Gap = static_cast<float>(FGroup.Distance / 200);
  const bool Twisted = ClassesOn.Twisted();
  FNarrowest = std::numeric_limits<float>::max();
  FIsAscending = true;
  for (std::size_t Bar = 0; Bar < Number; ++Bar) {
    // From the left end, or from the lower one in the picture.
    const float From = FEdgePixels[Twisted ? Bar + 1 : Bar], To = FEdgePixels[Twisted ? Bar : Bar + 1];
    const float Way = FBarsHorizontal ? From - To : To - From, Width = std::fabs(Way);
    const float Inside = Width - 2 * Width * Gap, Slot = Inside / Slots;
    const bool IsDrawn = Way > 0 || (HasEdge(Bar) && HasEdge(Bar + 1));
    const float Near = Width * Gap + Slot * (Place - 1), Far = IsDrawn ? Width * Gap + Slot * Place : Near;
    const bool StandsOn = Bar < UnderCorners.size();
    if (FBarsHorizontal) {
      Keep({StandsOn ? UnderCorners[Bar].X : Base + 1, From - Far}, static_cast<int>(Bar));
      FBottomRight.Add({FEndPixels[Bar], From - Near});
    } else {
      Keep({From + Near, FEndPixels[Bar]}, static_cast<int>(Bar));
      FBottomRight.Add({From + Far, StandsOn ? UnderCorners[Bar].Y : Base});
    }
    if (IsDrawn) FNarrowest = std::min(FNarrowest, Inside);
    FIsAscending = FIsAscending && Way >= 0;
    FLastWidth = Inside;
  }
}

void TZyBars::TakeDepth() {
  constexpr float PerDepthX = 240, PerDepthY = 400;
  const float Width = std::min(FLastWidth, ClassAxis().AxLength());
  const auto DepthOf = [&](float Divisor) {
    const float Depth = Width * static_cast<float>(FGroup.Depth) / Divisor;
    return Depth > 0 ? Depth : 1;
  };
  FDepthX = DepthOf(PerDepthX);
  FDepthY = DepthOf(PerDepthY);
  FZylShift = FBarStyle != TZyBarStyle::Cylinder ? 0 : (FBarsHorizontal ? FDepthY : FDepthX);
}

void TZyBars::PrepareDepth() {
  if (RecalculatePoints()) CalculatePoints();
}

RectF TZyBars::RectOf(std::size_t Bar) const {
  const PointF P = Points()[Bar], Q = BottomRight()[Bar];
  return OrderedRect(P.X, P.Y, Q.X, Q.Y);
}

/// Whether a bar has no width.
bool TZyBars::IsEmpty(std::size_t Bar) const {
  const PointF P = Points()[Bar], Q = BottomRight()[Bar];
  return FBarsHorizontal ? P.Y == Q.Y : P.X == Q.X;
}

int TZyBars::FindPoint(int X, int Y) const {
  const auto x = static_cast<float>(X), y = static_cast<float>(Y);
  return FirstPoint([&](std::size_t Bar) {
    const RectF R = RectOf(Bar);
    return x >= R.X && x <= R.X + R.Width + FDepthX && y >= R.Y - FDepthY && y <= R.Y + R.Height;
  });
}

}  // namespace zy
