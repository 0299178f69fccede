// Pixels and drawing of a series.

#include <algorithm>
#include <cmath>

#include "graph/ZyGraph2D.h"
#include "platform/drawing/Graphics.h"
#include "series/ZySeries.h"

namespace zy {
namespace {

/// From this many points on, those outside the X axis are left out.
constexpr int FewestPointsToSkip = 21;

}  // namespace

PointF TZySeries::GetCalcPoint(int Idx) const {
  const auto At = static_cast<std::size_t>(Idx);
  return {FXAxis->NumberToWorld(FXData->Values()[At]), FYAxis->NumberToWorld(FYData->Values()[At])};
}

/// The data indexes to draw. Of ascending data one point on each side stays outside the axis, so that the line leaves
/// the data area and is cut by the clip.
void TZySeries::GetCalcPointsStartStop(int& Start, int& Stop) const {
  Start = Stop = 0;
  if (FCount == 0) return;
  Stop = FCount - 1;
  if (FXData->OnlyAscending() && Stop - Start >= FewestPointsToSkip) {
    const auto X = FXData->Values();
    const auto First = X.begin() + Start, Last = X.begin() + Stop;
    const auto Visible = std::lower_bound(First + 1, Last, FXAxis->Start());
    Start = static_cast<int>(Visible - X.begin()) - 1;
    const auto Beyond = std::upper_bound(X.begin() + Start + 1, Last, FXAxis->Stop());
    Stop = static_cast<int>(Beyond - X.begin());
  }
  Start = std::min(Start, Stop);
}

void TZySeries::CalculatePoints() {
  FPoints.clear();
  FPointIndex.clear();
  FRecalculatePoints = false;
  if (FCount == 0) return;
  int Start = 0, Stop = 0;
  GetCalcPointsStartStop(Start, Stop);
  ReduceToPixels(Start, Stop);
}

/// Keeps of each pixel column the turning points of the line: points that fall on the pixel before vanish, and a run
/// that goes on in one vertical direction collapses to its end.
void TZySeries::ReduceToPixels(int Start, int Stop) {
  const auto Keep = [this](const PointF& Point, int Index) {
    FPoints.push_back(Point);
    FPointIndex.push_back(Index);
  };
  const auto SameColumn = [](const PointF& P, const PointF& Q) { return std::fabs(P.X - Q.X) < 1; };
  const auto SamePixel = [&](const PointF& P, const PointF& Q) { return SameColumn(P, Q) && std::fabs(P.Y - Q.Y) < 1; };
  PointF A = GetCalcPoint(Start);
  int IndexOfA = Start;
  int i = Start + 1;
  while (i <= Stop) {
    Keep(A, IndexOfA);
    PointF B = GetCalcPoint(i);
    while (i < Stop && SamePixel(A, B)) B = GetCalcPoint(++i);
    if (i < Stop - 1 && SameColumn(A, B)) {
      const bool Downwards = B.Y > A.Y;
      while (i < Stop - 1) {
        const PointF C = GetCalcPoint(i + 1);
        if (!SameColumn(A, C) || (Downwards ? C.Y < B.Y : C.Y > B.Y)) break;
        B = C;
        ++i;
      }
    }
    A = B;
    IndexOfA = i;
    ++i;
  }
  Keep(A, IndexOfA);
}

void TZySeries::PaintGr(Graphics& Gr) {
  if (FGraph == nullptr || FXAxis == nullptr || FYAxis == nullptr || !SeriesVisible()) return;
  if (FRecalculatePoints) CalculatePoints();
  if (FPoints.size() > 1) DrawLine(Gr);
}

void TZySeries::DrawLine(Graphics& Gr) {
  if (FLineSettings->Visible() && FPen != nullptr) Gr.DrawLines(*FPen, FPoints);
}

int TZySeries::FindPoint(int X, int Y) const {
  if (FRecalculatePoints) return -1;
  constexpr float Delta = 1;
  for (std::size_t Index = 0; Index < FPoints.size(); ++Index)
    if (std::abs(FPoints[Index].X - static_cast<float>(X)) <= Delta &&
        std::abs(FPoints[Index].Y - static_cast<float>(Y)) <= Delta)
      return FPointIndex[Index];
  return -1;
}

bool TZySeries::CanDoCanvasDraw() const {
  constexpr int MinPoints = 101;
  constexpr unsigned Opaque = 255;
  if (FGraph == nullptr || FGraph->DoingImage() || FGraph->SmoothingMode() != TZySmoothingMode::None) return false;
  if (FCount < MinPoints || GetAlpha(FLineSettings->Color()) < Opaque) return false;
  return FLineSettings->Width() <= 1 || FLineSettings->DashStyle() == DashStyleSolid;
}

}  // namespace zy
