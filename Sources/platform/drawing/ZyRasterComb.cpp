#include "platform/drawing/ZyRasterComb.h"

#include <algorithm>
#include <cmath>

#include "platform/drawing/ZyRasterCells.h"

namespace zy {
namespace {

constexpr std::size_t FewestPoints = 64;
constexpr std::size_t LongestWay = 4;  // points between two bars
constexpr double SameStep = 1e-3;      // pixels by which distances of bars may differ, from their rounding

/// A segment straight up or down, and long enough to be worth it.
bool IsBar(const PointF& From, const PointF& To, double Width) {
  return From.X == To.X && std::fabs(To.Y - From.Y) > 2 * Width;
}

}  // namespace

bool FillsColumns(std::span<const PointF> Points, float Width) {
  if (Points.size() < FewestPoints) return false;
  std::size_t Bars = 0;
  for (std::size_t i = 0; i + 1 < Points.size(); ++i) Bars += IsBar(Points[i], Points[i + 1], Width) ? 1 : 0;
  return Bars * 8 > Points.size();
}

void TRasterComb::Run(TRasterCells& Cells, TRasterStroker& Stroker, const TRasterGuard& Guard,
                      std::span<const PointF> Points, const TRasterStroke& Stroke, double Width) {
  FCells = &Cells;
  FStroker = &Stroker;
  FGuard = &Guard;
  FPoints = Points;
  FStroke = &Stroke;
  FWidth = Width;
  FDrawn = 0;
  FGroup.clear();
  double Step = 0;
  for (std::size_t i = 0; i + 1 < Points.size(); ++i) {
    if (!IsBar(Points[i], Points[i + 1], Width)) continue;
    const auto [Top, Bottom] = std::minmax(Points[i].Y, Points[i + 1].Y);
    const TBar Bar{i, Points[i].X, Top, Bottom};
    if (!FGroup.empty() && !Follows(FGroup.back(), Bar, Step)) FillGroup();
    if (!FGroup.empty() && !HidesWay(FGroup.back(), Bar)) StrokeBetween(FGroup.back().First + 1, Bar.First);
    if (FGroup.size() == 1) Step = Bar.X - FGroup.back().X;
    FGroup.push_back(Bar);
  }
  FillGroup();
  StrokeUpTo(Points.size() - 1);
}

/// Whether the bars touch. Step is the distance of those before, if there are any.
bool TRasterComb::Follows(const TBar& Last, const TBar& Next, double Step) const {
  const double Distance = Next.X - Last.X;
  if (std::fabs(Distance) > FWidth + SameStep || std::fabs(Distance) < SameStep) return false;
  if (FGroup.size() > 1 && std::fabs(Distance - Step) > SameStep) return false;
  return Next.First - Last.First <= LongestWay + 2;
}

/// Whether two bars that touch cover all of the line between them.
bool TRasterComb::HidesWay(const TBar& Last, const TBar& Next) const {
  const double Top = std::max(Last.Top, Next.Top) + FWidth / 2,
               Bottom = std::min(Last.Bottom, Next.Bottom) - FWidth / 2;
  const auto [Left, Right] = std::minmax(Last.X, Next.X);
  for (std::size_t i = Last.First + 2; i < Next.First; ++i)
    if (FPoints[i].Y < Top || FPoints[i].Y > Bottom || FPoints[i].X < Left || FPoints[i].X > Right) return false;
  return Next.First > Last.First + 2;  // straight from end to end the line would stick out beside the shorter bar
}

/// A part of the line by itself, over what else is drawn.
void TRasterComb::StrokeBetween(std::size_t First, std::size_t Last) {
  TRasterStroke Part = *FStroke;
  Part.StartCap = Part.EndCap = TRasterCap::Flat;
  StrokeSolid(*FStroker, *FGuard, FPoints.subspan(First, Last - First + 1), Part);
}

/// The part of the line that is still to be drawn, up to a point.
void TRasterComb::StrokeUpTo(std::size_t Last) {
  if (Last <= FDrawn) return;
  TRasterStroke Part = *FStroke;
  if (FDrawn > 0) Part.StartCap = TRasterCap::Flat;
  if (Last + 1 < FPoints.size()) Part.EndCap = TRasterCap::Flat;
  StrokeSolid(*FStroker, *FGuard, FPoints.subspan(FDrawn, Last - FDrawn + 1), Part);
  FDrawn = Last;
}

/// Of bars that stand a whole number of their distances apart, the right side of one lies on the left side of another:
/// only where one is longer than the other is there an edge.
void TRasterComb::FillGroup() {
  if (FGroup.size() > 1) {
    const double Step = std::fabs(FGroup[1].X - FGroup[0].X);
    const double Apart = std::round(FWidth / Step);
    const bool Meet = std::fabs(Apart * Step - FWidth) < SameStep;
    const auto Shift = static_cast<std::size_t>(Apart);
    StrokeUpTo(FGroup.front().First);
    FDrawn = FGroup.back().First + 1;
    if (FGroup[0].X > FGroup[1].X) std::reverse(FGroup.begin(), FGroup.end());
    const auto Side = [this](double X, double From, double To) { FCells->AddEdge(X, From, X, To); };
    for (std::size_t i = 0; i < FGroup.size(); ++i) {
      const TBar& Bar = FGroup[i];
      if (!Meet || i < Shift) Side(Bar.X - FWidth / 2, Bar.Top, Bar.Bottom);
      const double Right = Bar.X + FWidth / 2;
      if (Meet && i + Shift < FGroup.size()) {
        const TBar& Other = FGroup[i + Shift];
        Side(Right, Other.Top, Bar.Top);
        Side(Right, Bar.Bottom, Other.Bottom);
      } else {
        Side(Right, Bar.Bottom, Bar.Top);
      }
    }
  }
  FGroup.clear();
}

}  // namespace zy
