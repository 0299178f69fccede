#include "dialogs/controls/ZyTunedColor.h"

#include <array>
#include <cmath>

#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"

namespace zy {

void TZyTunedColor::SetColor(TZyColor Value) {
  Alpha = GetAlpha(Value);
  R = GetR(Value);
  G = GetG(Value);
  B = GetB(Value);
  UpdateRGB();
}

void TZyTunedColor::UpdateRGB() {
  Hue = GetHue(Opaque());
  Saturation = GetSaturation(Opaque());
  Luminance = GetBrightness(Opaque());
}

void TZyTunedColor::UpdateHSL() {
  const TZyColor Made =
      HSLToColor(static_cast<double>(Hue) / 360, static_cast<double>(Saturation), static_cast<double>(Luminance));
  R = GetR(Made);
  G = GetG(Made);
  B = GetB(Made);
}

TZyHueSquare::TZyHueSquare(float Hue) : FHue(Hue) {
  constexpr auto End = static_cast<float>(Extent);
  const std::array<PointF, 4> Corners{PointF{0, 0}, PointF{0, End}, PointF{End, End}, PointF{End, 0}};
  PathGradientBrush Shades(Corners);
  Shades.SetCenterPoint({End, 0});
  Shades.SetCenterColor(HSLToColor(static_cast<double>(Hue) / 360, 1, 0.5));
  Shades.SetSurroundColors(std::array<ARGB, 2>{Colors::White, Colors::Black});
  Graphics Canvas(FPicture);
  Canvas.FillRectangle(Shades, 0, 0, End, End);
  FShades.reserve(std::size_t{Extent} * Extent);
  for (int X = 0; X < Extent; ++X)
    for (int Y = 0; Y < Extent; ++Y) FShades.push_back({GetSaturation(ColorAt(X, Y)), GetBrightness(ColorAt(X, Y))});
}

TZyColor TZyHueSquare::ColorAt(int X, int Y) const { return FPicture.GetPixel(X, Y) | 0xFF000000u; }

TPoint TZyHueSquare::PlaceOf(float Saturation, float Luminance) const {
  constexpr float SaturationReach = 0.025f, LuminanceReach = 0.01f;
  for (std::size_t Place = FShades.size(); Place-- > 0;) {
    const TShade& Shade = FShades[Place];
    if (std::fabs(Shade.Saturation - Saturation) <= SaturationReach &&
        std::fabs(Shade.Luminance - Luminance) <= LuminanceReach)
      return {static_cast<int>(Place) / Extent, static_cast<int>(Place) % Extent};
  }
  return {};
}

}  // namespace zy
