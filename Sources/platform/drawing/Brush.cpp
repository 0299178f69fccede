#include "platform/drawing/Brush.h"

#include <QBrush>
#include <cmath>
#include <numbers>

#include "platform/drawing/GradientStops.h"
#include "platform/drawing/QtGeometry.h"

namespace zy {

Brush::~Brush() = default;

std::unique_ptr<Brush> SolidBrush::Clone() const { return std::make_unique<SolidBrush>(*this); }
std::unique_ptr<Brush> HatchBrush::Clone() const { return std::make_unique<HatchBrush>(*this); }
std::unique_ptr<Brush> LinearGradientBrush::Clone() const { return std::make_unique<LinearGradientBrush>(*this); }
std::unique_ptr<Brush> PathGradientBrush::Clone() const { return std::make_unique<PathGradientBrush>(*this); }

QBrush SolidBrush::ToQt(const RectF&) const { return QBrush(QColor::fromRgba(FColor)); }

LinearGradientBrush::LinearGradientBrush(PointF Start, PointF Stop, ARGB First, ARGB Last)
    : FStart(Start), FStop(Stop), FStops{{0, First}, {1, Last}} {}

LinearGradientBrush::LinearGradientBrush(const RectF& Rect, ARGB First, ARGB Last, LinearGradientMode Mode)
    : LinearGradientBrush(Rect, First, Last, 0) {
  const PointF Corner{Rect.X, Rect.Y};
  switch (Mode) {
    case LinearGradientModeHorizontal:
      break;
    case LinearGradientModeVertical:
      *this = LinearGradientBrush(Corner, {Rect.X, Rect.Y + Rect.Height}, First, Last);
      break;
    case LinearGradientModeForwardDiagonal:
      *this = LinearGradientBrush(Rect, First, Last, 45, true);
      break;
    case LinearGradientModeBackwardDiagonal:
      *this = LinearGradientBrush(Rect, First, Last, 135, true);
      break;
  }
}

// The gradient's line runs through the rectangle's centre. It is as long as the rectangle's shadow on it, so that the
// outermost corners get the end colours. Under a scalable angle, lines of one colour stay parallel to the diagonal of
// the stretched square: a line of one colour through a corner of the square goes over into one of the rectangle.
LinearGradientBrush::LinearGradientBrush(const RectF& Rect, ARGB First, ARGB Last, float Angle, bool IsAngleScalable)
    : FStops{{0, First}, {1, Last}} {
  const double Radians = static_cast<double>(Angle) * (std::numbers::pi / 180.0);
  double X = std::cos(Radians), Y = std::sin(Radians);
  const double Width = Rect.Width, Height = Rect.Height;
  if (IsAngleScalable) {
    X *= Height;
    Y *= Width;
    const double Length = std::hypot(X, Y);
    if (Length > 0) {
      X /= Length;
      Y /= Length;
    }
  }
  const double Half = (std::fabs(Width * X) + std::fabs(Height * Y)) / 2;
  const double CenterX = Rect.X + Width / 2, CenterY = Rect.Y + Height / 2;
  FStart = {static_cast<float>(CenterX - X * Half), static_cast<float>(CenterY - Y * Half)};
  FStop = {static_cast<float>(CenterX + X * Half), static_cast<float>(CenterY + Y * Half)};
}

void LinearGradientBrush::SetInterpolationColors(std::span<const ARGB> Colors, std::span<const float> Positions) {
  FStops = MakeStops(Colors, Positions);
}

QBrush LinearGradientBrush::ToQt(const RectF&) const {
  if (FStart == FStop || !AreFinite({FStart.X, FStart.Y, FStop.X, FStop.Y}))
    return QBrush(QColor::fromRgba(FStops.back().Color));
  QLinearGradient Gradient(AsQt(FStart), AsQt(FStop));
  Gradient.setSpread(QGradient::RepeatSpread);
  SetStops(Gradient, AsQt(FStops, 1));
  QBrush Result(Gradient);
  Result.setTransform(AsQt(FTransform));
  return Result;
}

}  // namespace zy
