#include "platform/drawing/RadialPaint.h"

#include <QTransform>
#include <algorithm>
#include <cmath>

#include "platform/drawing/GradientStops.h"
#include "platform/drawing/QtGeometry.h"

namespace zy {

TRadialPaint::TRadialPaint(const PathGradientBrush& Brush, const QTransform& ToDevice) {
  const PathGradientBrush::TRadial Radial = Brush.Radial();
  bool Invertible = false;
  const QTransform FromDevice =
      (UnitCircleTo(Radial.Ellipse) * AsQt(Brush.GetTransform()) * ToDevice).inverted(&Invertible);
  const QPointF Focus(Radial.FocusX, Radial.FocusY), Origin = FromDevice.map(QPointF(0.5, 0.5)) - Focus;
  if (!Invertible || !std::isfinite(Origin.x()) || !std::isfinite(Origin.y())) return;
  FOriginX = Origin.x();
  FOriginY = Origin.y();
  FAlongXX = FromDevice.m11();
  FAlongXY = FromDevice.m12();
  FAlongYX = FromDevice.m21();
  FAlongYY = FromDevice.m22();
  FFocusX = Focus.x();
  FFocusY = Focus.y();
  FPower = Radial.Outside * Radial.Outside - QPointF::dotProduct(Focus, Focus);
  std::vector<TGradientStop> Stops = Radial.FromFocus;
  for (TGradientStop& Stop : Stops) Stop.Position /= static_cast<float>(Radial.Outside);
  Stops.push_back({1, Stops.back().Color});
  FillSteps(std::span(FColors).first(Steps), Stops);
  FColors[Steps] = 0;
}

/// The place of a point along the gradient is the part that its distance from the focus is of that at which the line
/// through both meets the circle.
void TRadialPaint::Fetch(int X, int Y, int Count, std::uint32_t* Pixels) const {
  if (FPower == 0) return std::fill_n(Pixels, Count, 0u), void();
  const auto StartX = static_cast<float>(FOriginX + FAlongXX * X + FAlongYX * Y);
  const auto StartY = static_cast<float>(FOriginY + FAlongXY * X + FAlongYY * Y);
  const auto AlongX = static_cast<float>(FAlongXX), AlongY = static_cast<float>(FAlongXY);
  const auto FocusX = static_cast<float>(FFocusX), FocusY = static_cast<float>(FFocusY);
  const auto Power = static_cast<float>(FPower), ToSteps = static_cast<float>(Steps / FPower);
  constexpr int Block = 64;  // places of so many pixels are computed at once, by the compiler's vectoriser
  std::array<int, Block> Places;
  for (int First = 0; First < Count; First += Block) {
    const int Number = std::min(Block, Count - First);
    for (int Index = 0; Index < Number; ++Index) {
      const auto Right = static_cast<float>(First + Index);
      const float Dx = StartX + AlongX * Right, Dy = StartY + AlongY * Right;
      const float Dot = FocusX * Dx + FocusY * Dy;
      const float Place = (Dot + std::sqrt(Dot * Dot + Power * (Dx * Dx + Dy * Dy))) * ToSteps;
      Places[static_cast<std::size_t>(Index)] = static_cast<int>(std::min(std::max(0.0f, Place), float{Steps}));
    }
    for (int Index = 0; Index < Number; ++Index)
      Pixels[First + Index] = FColors[static_cast<std::size_t>(Places[static_cast<std::size_t>(Index)])];
  }
}

}  // namespace zy
