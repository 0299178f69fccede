#include <cmath>

#include "pie/ZyPieTypes.h"

namespace zy {
namespace {

/// The nearest whole number, halves to the even one.
int Rounded(float Value) { return static_cast<int>(std::lrint(Value)); }

}  // namespace

TPoint PlacePieLegend(TZyPieLegendPosition Position, SizeF Chart, SizeF Legend, float Distance,
                      TZyPieMargins& Margins) {
  using enum TZyPieLegendPosition;
  const TZyPieMargins Old = Margins;
  const float Middle = (Chart.Width - Old.Left - Old.Right - Legend.Width) / 2 + Old.Left;
  const bool IsAcross = Position == CenterTop || Position == CenterBottom;
  float X = Old.Left, Y = Old.Top;
  if (IsAcross) X = Middle;
  if (Position == RightTop || Position == RightCenter || Position == RightBottom)
    X = Chart.Width - Legend.Width - Old.Right;
  if (Position == LeftCenter || Position == RightCenter)
    Y = (Chart.Height - Old.Top - Old.Bottom - Legend.Height) / 2 + Old.Top;
  if (Position == LeftBottom || Position == CenterBottom || Position == RightBottom)
    Y = Chart.Height - Old.Bottom - Legend.Height;
  if (IsAcross)
    (Position == CenterTop ? Margins.Top : Margins.Bottom) += Legend.Height + Distance;
  else
    (Position <= LeftBottom ? Margins.Left : Margins.Right) += Legend.Width + Distance;
  return {Rounded(X), Rounded(Y)};
}

}  // namespace zy
