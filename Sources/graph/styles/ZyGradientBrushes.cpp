#include "graph/styles/ZyGradientBrushes.h"

#include <cmath>
#include <numbers>

#include "platform/drawing/GraphicsPath.h"

namespace zy {
namespace {

/// Brush from an ellipse around the centre of Rect to a point in Rect.
std::unique_ptr<Brush> BrushInEllipse(const RectF& Rect, SizeF Axes, PointF CenterPoint, TZyColor First,
                                      TZyColor Middle, TZyColor Last) {
  const PointF Center{Rect.X + Rect.Width / 2, Rect.Y + Rect.Height / 2};
  GraphicsPath Path;
  Path.AddEllipse({Center.X - Axes.Width / 2, Center.Y - Axes.Height / 2, Axes.Width, Axes.Height});
  auto Result = std::make_unique<PathGradientBrush>(Path);
  Result->SetCenterPoint(
      {Center.X + (CenterPoint.X - 0.5f) * Rect.Width, Center.Y + (CenterPoint.Y - 0.5f) * Rect.Height});
  const ARGB Colors[] = {First, Middle, Last};
  const float Positions[] = {0, 0.5f, 1};
  Result->SetInterpolationColors(Colors, Positions);
  return Result;
}

}  // namespace

RectF ToRectF(const TRect& Rect) {
  return {static_cast<float>(Rect.Left), static_cast<float>(Rect.Top), static_cast<float>(Rect.Width()),
          static_cast<float>(Rect.Height())};
}

std::unique_ptr<Brush> LinearBrush(const RectF& Rect, float Angle, float Center, TZyColor First, TZyColor Middle,
                                   TZyColor Last) {
  auto Result = std::make_unique<LinearGradientBrush>(RectF{Rect.X - 1, Rect.Y - 1, Rect.Width + 1, Rect.Height + 1},
                                                      First, Last, Angle, false);
  const ARGB Colors[] = {First, Middle, Last};
  const float Positions[] = {0, Center, 1};
  Result->SetInterpolationColors(Colors, Positions);
  return Result;
}

std::unique_ptr<Brush> LinearBrush(const TRect& Rect, float Angle, float Center, TZyColor First, TZyColor Middle,
                                   TZyColor Last) {
  return LinearBrush(ToRectF(Rect), Angle, Center, First, Middle, Last);
}

std::unique_ptr<Brush> RadialBrush(const RectF& Rect, PointF CenterPoint, TZyColor First, TZyColor Middle,
                                   TZyColor Last) {
  const float Diameter = std::hypot(Rect.Width, Rect.Height);
  return BrushInEllipse(Rect, {Diameter, Diameter}, CenterPoint, First, Middle, Last);
}

std::unique_ptr<Brush> RadialBrush(const TRect& Rect, PointF CenterPoint, TZyColor First, TZyColor Middle,
                                   TZyColor Last) {
  return RadialBrush(ToRectF(Rect), CenterPoint, First, Middle, Last);
}

std::unique_ptr<Brush> EllipticalBrush(const RectF& Rect, PointF CenterPoint, TZyColor First, TZyColor Middle,
                                       TZyColor Last) {
  constexpr auto Factor = std::numbers::sqrt2_v<float>;
  return BrushInEllipse(Rect, {Rect.Width * Factor, Rect.Height * Factor}, CenterPoint, First, Middle, Last);
}

std::unique_ptr<Brush> EllipticalBrush(const TRect& Rect, PointF CenterPoint, TZyColor First, TZyColor Middle,
                                       TZyColor Last) {
  return EllipticalBrush(ToRectF(Rect), CenterPoint, First, Middle, Last);
}

}  // namespace zy
