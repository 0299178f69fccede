#pragma once

#include <optional>
#include <vector>

#include "graph/values/ZyColors.h"
#include "platform/controls/ControlTypes.h"
#include "platform/drawing/Bitmap.h"

namespace zy {

/// A colour in two spaces at once: channels, and hue (0 to 360), saturation and lightness (0 to 1). What one side sets
/// the other follows; hue and saturation as they were set are kept where the channels of a gray cannot tell them.
class TZyTunedColor {
 public:
  float Hue = -1, Saturation = -1, Luminance = -1;
  unsigned Alpha = 255, R = 0, G = 0, B = 0;

  TZyColor Color() const { return ColorToARGB(Alpha, R, G, B); }
  TZyColor Opaque() const { return ColorToARGB(255, R, G, B); }
  /// Alpha included.
  void SetColor(TZyColor Value);
  /// Takes hue, saturation and lightness from the channels, or the channels from them.
  void UpdateRGB();
  void UpdateHSL();
};

/// The square of all colours of one hue: white at the top left, the pure hue at the top right, black along the bottom.
class TZyHueSquare {
 public:
  static constexpr int Extent = 200;

  explicit TZyHueSquare(float Hue);
  float Hue() const { return FHue; }
  const Bitmap& Picture() const { return FPicture; }
  /// The colour of a pixel, from 0 to Extent - 1 each way.
  TZyColor ColorAt(int X, int Y) const;
  /// The last pixel, column by column, that is close to a saturation and a lightness; 0, 0 when none is.
  TPoint PlaceOf(float Saturation, float Luminance) const;

 private:
  struct TShade {
    float Saturation, Luminance;
  };

  float FHue;
  Bitmap FPicture{Extent, Extent};
  std::vector<TShade> FShades;  // column by column
};

}  // namespace zy
