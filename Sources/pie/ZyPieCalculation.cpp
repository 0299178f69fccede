#include "pie/ZyPieCalculation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "analysis/ZyMath.h"

namespace zy {
namespace {

constexpr double RadiansOfDegree = std::numbers::pi / 180;

double Fit(double Angle) { return FitTo360Degrees(Angle); }

/// By how much a segment that moves out by Shift sticks out at a side, where its corners alone may lie within.
double Beyond(double Shift, bool HoldsSide, double Corner) { return HoldsSide ? Shift : Shift - (1 - Corner); }

}  // namespace

TZyPieCalculation::TZyPieCalculation(const TZyPieShape& Shape)
    : FShape(Shape), FSqueeze(static_cast<double>(Shape.Squeeze())) {
  constexpr float Shadow = 0.04f;
  const float Squeeze = FShape.Squeeze();
  if (FShape.Is3D()) FOverhangs.Bottom += 0.01f * FShape.PieHeight / Squeeze;
  if (!FShape.DropShadow) return;
  FOverhangs.Right += Shadow;
  FOverhangs.Bottom += Shadow / Squeeze;
}

void TZyPieCalculation::Add(int DataIndex, double Value, double Sweep, double Explosion) {
  const auto Stored = static_cast<float>(Sweep);
  if (!std::isfinite(Stored)) return;
  TZyPieSegment& Segment = FSegments.emplace_back();
  Segment.DataIndex = DataIndex;
  Segment.Value = Value;
  Segment.Sweep = Stored;
  Segment.Explosion = std::isfinite(Explosion) ? Explosion : 0;
}

void TZyPieCalculation::Arrange(bool OrderAscending) {
  if (OrderAscending) std::ranges::stable_sort(FSegments, {}, &TZyPieSegment::Sweep);
  SetStarts();
  SetOrder();
  Explode();
}

void TZyPieCalculation::SetStarts() {
  auto Angle = static_cast<float>(Fit(static_cast<double>(FShape.StartAngle)));
  for (TZyPieSegment& Segment : FSegments) {
    Segment.Start = Angle;
    Angle = static_cast<float>(Fit(static_cast<double>(Angle) + static_cast<double>(Segment.Sweep)));
  }
}

/// What lies furthest back comes first: the upper one of the two ends of a segment counts, and one that moves out goes
/// with it.
void TZyPieCalculation::SetOrder() {
  FOrder.resize(FSegments.size());
  for (std::size_t i = 0; i < FOrder.size(); ++i) FOrder[i] = static_cast<int>(i);
  if (!FShape.Is3D()) return;
  std::vector<double> Keys;
  for (const TZyPieSegment& Segment : FSegments) {
    const auto Start = static_cast<double>(Segment.Start), Sweep = static_cast<double>(Segment.Sweep);
    const auto Depth = [](double Angle) { return std::sin(Angle * RadiansOfDegree); };
    Keys.push_back(std::min(Depth(Start + 0.001 * Sweep), Depth(Start + 0.999 * Sweep)) *
                   (1 + 0.01 * Segment.Explosion));
  }
  std::ranges::stable_sort(FOrder, {}, [&Keys](int Index) { return Keys[static_cast<std::size_t>(Index)]; });
}

PointF TZyPieCalculation::RimPoint(double Angle) const {
  const double Seen = Angle * RadiansOfDegree;
  const double OnCircle = std::atan2(std::sin(Seen), FSqueeze * std::cos(Seen));
  return {static_cast<float>(std::cos(OnCircle)), static_cast<float>(std::sin(OnCircle))};
}

/// The room that segments take as they move out. Which side a segment reaches is asked of its angles as they stand, and
/// below the pie of its start a quarter turn on, which nearly always answers yes: there may be more room there than is
/// needed, as there is in every stored chart. A segment that goes on into a second turn holds sides that these
/// questions miss; without their room it would be cut off.
void TZyPieCalculation::Explode() {
  double Left = 0, Top = 0, Right = 0, Bottom = 0;
  for (TZyPieSegment& Segment : FSegments) {
    if (!(Segment.Explosion > 0)) continue;
    FAnyExploded = true;
    const double Part = std::min(Segment.Explosion, 100.0) * 0.01;
    const auto Start = static_cast<double>(Segment.Start), Stop = static_cast<double>(Segment.Stop());
    const PointF Middle = RimPoint(static_cast<double>(Segment.Middle())), A = RimPoint(Start), B = RimPoint(Stop);
    const double X = Part * static_cast<double>(Middle.X), Y = Part * static_cast<double>(Middle.Y);
    Segment.Shift = {static_cast<float>(X), static_cast<float>(Y)};
    const auto [LowX, HighX] = std::minmax({static_cast<double>(A.X), static_cast<double>(B.X)});
    const auto [LowY, HighY] = std::minmax({static_cast<double>(A.Y), static_cast<double>(B.Y)});
    const auto Holds = [&](double Side) { return Fit(Side - Start) <= Stop - Start; };
    if (X > 0) Right = std::max(Right, Beyond(X, (Start <= 360 && Stop >= 360) || Holds(0), HighX));
    if (X < 0) Left = std::max(Left, Beyond(-X, (Start <= 180 && Fit(Stop) >= 180) || Holds(180), -LowX));
    if (Y > 0) Bottom = std::max(Bottom, Beyond(Y, (Fit(Start + 90) > 0 && Fit(Stop) >= 90) || Holds(90), HighY));
    if (Y < 0) Top = std::max(Top, Beyond(-Y, (Start <= 270 && Stop >= 270) || Holds(270), -LowY));
  }
  FOverhangs.Left += static_cast<float>(Left * 0.5);
  FOverhangs.Top += static_cast<float>(Top * 0.5);
  FOverhangs.Right += static_cast<float>(Right * 0.5);
  FOverhangs.Bottom += static_cast<float>(Bottom * 0.5);
}

float TZyPieCalculation::AlignedAngle(float Middle) {
  const float Seen = Middle > 360 ? static_cast<float>(Fit(static_cast<double>(Middle))) : Middle;
  return Seen > 90 && Seen < 270 ? 180 - Seen : -Middle;
}

void TZyPieCalculation::PlaceInside() {
  constexpr float GoldenCut = 0.6180339f;
  const float Hole = FShape.IsDonut() ? 0.01f * FShape.HoleSize : 0;
  const float Radius = (1 - Hole) * GoldenCut + Hole;
  for (const TZyPieSegment& Segment : FSegments) {
    const PointF Rim = RimPoint(static_cast<double>(Segment.Middle()));
    FLabels.push_back({Radius * Rim.X + Segment.Shift.X, Radius * Rim.Y + Segment.Shift.Y});
  }
}

void TZyPieCalculation::FitInto(const RectF& Space) {
  const float Squeeze = FShape.Squeeze();
  const float Wide = 1 + FOverhangs.Left + FOverhangs.Right, High = 1 + FOverhangs.Top + FOverhangs.Bottom;
  float Width = std::max(Space.Width, 0.0f) / Wide, Height = Width * Squeeze;
  if (std::max(Space.Height, 0.0f) / High < Height) {
    Height = std::max(Space.Height, 0.0f) / High;
    Width = Height / Squeeze;
  }
  FPieRect = {(Space.Width - Wide * Width) * 0.5f + Space.X + FOverhangs.Left * Width,
              (Space.Height - High * Height) * 0.5f + Space.Y + FOverhangs.Top * Height, Width, Height};
  FWallHeight = FShape.Is3D() ? FShape.PieHeight * Width * 0.01f : 0;
  const auto Place = [&](PointF& Point) {
    Point = {(Point.X + 1) * Width * 0.5f + FPieRect.X, (Point.Y + 1) * Height * 0.5f + FPieRect.Y};
  };
  for (TZyPieSegment& Segment : FSegments)
    Segment.Shift = {Segment.Shift.X * Width * 0.5f, Segment.Shift.Y * Height * 0.5f};
  for (PointF& Label : FLabels) Place(Label);
  for (TZyPieCallout& Callout : FCallouts) {
    Place(Callout.Start);
    Place(Callout.Bent);
  }
}

}  // namespace zy
