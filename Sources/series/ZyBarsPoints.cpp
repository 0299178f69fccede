// From the data of bars to ranges, rectangles and depths.

#include <algorithm>
#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "platform/framework/ScopedFlag.h"
#include "series/ZyBars.h"

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

bool TZyBars::HasBoundary(int Idx) const {
  if (HasOwnClasses() && !HasValuesAt(Idx)) return false;
  return !Classes().IsTransformed() || std::isfinite(Classes().At(Idx));
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

/// Bars grow from 0, so that the range of their values has it.
void TZyBars::TakeRanges(TRange& X, TRange& Y) {
  TRange &AlongClasses = FBarsHorizontal ? Y : X, &AlongValues = FBarsHorizontal ? X : Y;
  const TBarsList Others = Below();
  for (int i = 0; i <= Count(); ++i)
    if (HasBoundary(i)) AlongClasses.Take(BoundaryAt(i));
  for (int i = 0; i < Count(); ++i)
    if (HasValue(i)) AlongValues.Take(EndOf(i, Others));
  if (!AlongValues.IsEmpty()) AlongValues.Take(0);
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
  const TScopedValue Calculating(FPointsCalculating, true);
  TZySeries::CalculatePoints();
}

/// All bars anew: depth, font and the place among other series follow from all of them.
void TZyBars::TakeNewPixels() {
  ForgetPixels();
  FBottomRight.Clear();
  if (Count() < 1) return;
  FGroup = Group();
  const TBarsList Others = Below();
  if (!Others.empty() && Others.back()->RecalculatePoints()) Others.back()->CalculatePoints();
  TakeBars(Others);
  TakeDepth();
  FCaptions.Update();
  TakeLabels();
}

/// Where two classes meet, the pixel is computed once.
void TZyBars::TakeBars(const TBarsList& Below) {
  const TZyAxis &ClassesOn = ClassAxis(), &ValuesOn = ValueAxis();
  const float Base = ValuesOn.NumberToWorld(0);
  const TZyBars* const Under = Below.empty() ? nullptr : Below.back();
  const auto Number = static_cast<float>(FGroup.Number), Place = static_cast<float>(FGroup.Place);
  const auto Gap = static_cast<float>(FGroup.Distance / 200);
  const auto EdgeAt = [&](int i) { return ClassesOn.NumberToWorld(BoundaryAt(i)); };
  FNarrowest = std::numeric_limits<float>::max();
  FIsAscending = true;
  bool HasEdge = HasBoundary(0);
  float Edge = EdgeAt(0);
  for (int i = 0; i < Count(); ++i) {
    const bool HasNext = HasBoundary(i + 1);
    const float Next = EdgeAt(i + 1);
    // From the left end, or from the lower one in the picture.
    const float From = ClassesOn.Twisted() ? Next : Edge, To = ClassesOn.Twisted() ? Edge : Next;
    const float Way = FBarsHorizontal ? From - To : To - From, Width = std::fabs(Way);
    const float Inside = Width - 2 * Width * Gap, Slot = Inside / Number;
    const bool IsDrawn = (HasEdge && HasNext) || Way > 0;
    const float Near = Width * Gap + Slot * (Place - 1), Far = IsDrawn ? Width * Gap + Slot * Place : Near;
    const float End = ValuesOn.NumberToWorld(EndOf(i, Below));
    const bool StandsOn = Under != nullptr && static_cast<std::size_t>(i) < Under->Points().size();
    const auto Bar = static_cast<std::size_t>(i);
    if (FBarsHorizontal) {
      const float Left = StandsOn ? Under->BottomRight()[Bar].X : Base + 1;
      Keep({Left, From - Far}, i);
      FBottomRight.Add({End, From - Near});
    } else {
      Keep({From + Near, End}, i);
      FBottomRight.Add({From + Far, StandsOn ? Under->Points()[Bar].Y : Base});
    }
    if (IsDrawn) FNarrowest = std::min(FNarrowest, Inside);
    FIsAscending = FIsAscending && Way >= 0;
    FLastWidth = Inside;
    Edge = Next;
    HasEdge = HasNext;
  }
}

void TZyBars::TakeDepth() {
  constexpr float PerDepthX = 240, PerDepthY = 400;
  const auto DepthOf = [this](float Divisor) {
    const float Depth = FLastWidth * static_cast<float>(FGroup.Depth) / Divisor;
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
