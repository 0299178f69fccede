#include "platform/drawing/LinearPaint.h"

#include <QColor>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/drawing/GradientStops.h"
#include "platform/drawing/QtGeometry.h"

namespace zy {

TLinearPaint::TLinearPaint(const LinearGradientBrush& Brush, const QTransform& ToDevice, const QRectF& Box) {
  const QPointF Start = AsQt(Brush.GetStart()), Way = AsQt(Brush.GetStop()) - Start;
  const double Square = QPointF::dotProduct(Way, Way);
  bool Invertible = false;
  const QTransform FromDevice = (AsQt(Brush.GetTransform()) * ToDevice).inverted(&Invertible);
  const std::vector<TGradientStop>& Stops = Brush.Stops();
  FColors[0] = qPremultiply(Stops.back().Color);
  if (!(Square > 0) || !std::isfinite(Square) || !Invertible) return;
  const auto PlaceOf = [&](const QPointF& Pixel) {
    return QPointF::dotProduct(FromDevice.map(Pixel) - Start, Way) / Square;
  };
  double Origin = PlaceOf({0.5, 0.5}), AlongX = PlaceOf({1.5, 0.5}) - Origin, AlongY = PlaceOf({0.5, 1.5}) - Origin;
  const double Pixel = std::min(std::abs(AlongX) + std::abs(AlongY), 0.25);
  double First = 0, Last = 1;
  if (!Box.isEmpty()) {
    const double Left = std::floor(Box.left()), Right = std::ceil(Box.right()) - 1;
    const double Top = std::floor(Box.top()), Bottom = std::ceil(Box.bottom()) - 1;
    for (const auto& [X, Y] : {std::pair(Left, Top), {Right, Top}, {Right, Bottom}, {Left, Bottom}}) {
      const double Place = Origin + X * AlongX + Y * AlongY;
      First = std::min(First, Place);
      Last = std::max(Last, Place);
    }
  }
  if (First > -Pixel && Last < 1 + Pixel) {
    Origin = (Origin - First) / (Last - First);
    AlongX /= Last - First;
    AlongY /= Last - First;
  }
  const double Finest = std::hypot(AlongX, AlongY);
  constexpr double StepsPerPixel = 8;
  while (FSteps < MostSteps && FSteps * Finest < StepsPerPixel) FSteps *= 2;
  // Stretched by a hair about its middle: pixels whose centres lie on its very ends have its first and its last colour.
  constexpr double Stretched = 1 + 1e-5, Middle = 0.5;
  FAtOrigin = (Middle + (Origin - Middle) / Stretched) * FSteps;
  FAlongX = AlongX / Stretched * FSteps;
  FAlongY = AlongY / Stretched * FSteps;
  FillSteps(std::span(FColors).first(static_cast<std::size_t>(FSteps)), Stops);
}

void TLinearPaint::Fetch(int X, int Y, int Count, std::uint32_t* Pixels) const {
  // The gradient repeats: steps count in whole numbers, of which some bits in the middle are the place in the table.
  constexpr double Fraction = 1 << 20, Period = MostSteps;
  const auto InWholes = [](double Steps) {
    const double Left = Steps - std::floor(Steps / Period) * Period;
    return static_cast<std::uint32_t>(Left >= 0 && Left < Period ? Left * Fraction
                                                                 : 0.0);  // not so for what is no number
  };
  std::uint32_t Place = InWholes(FAtOrigin + FAlongX * X + FAlongY * Y);
  const std::uint32_t Step = InWholes(FAlongX);
  const auto Mask = static_cast<std::uint32_t>(FSteps - 1);
  for (int Index = 0; Index < Count; ++Index, Place += Step) Pixels[Index] = FColors[Place >> 20 & Mask];
}

}  // namespace zy
