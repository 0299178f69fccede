#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/framework/Argb.h"

namespace zy {

/// A colour as 0xAARRGGBB. An alpha of 0 means no colour in many places.
using TZyColor = std::uint32_t;

/// Colours by their names in CSS Color Module Level 4.
namespace Colors {
inline constexpr TZyColor Transparent = 0x00FFFFFF;
#define ZY_COLOR(Name, Value) inline constexpr TZyColor Name = Value;
#include "graph/values/ZyColorNames.inl"
#undef ZY_COLOR
}  // namespace Colors

// ---- The table of named colours ----

/// Last index of the table; the first is 1. The desktop's colours come first, then Transparent, then the fixed ones.
inline constexpr int NamedColorCount = 167;
/// Index of Transparent, the first colour that is no desktop colour.
inline constexpr int FirstFixedColor = 27;
/// Name at an index from 1 to NamedColorCount. Throws ERangeError outside.
std::string_view ColorName(int Index);
/// Value at that index. Throws ERangeError outside.
TZyColor NamedColor(int Index);

// ---- Channels and forms ----

/// The packed colour of four channels of 0 to 255, alpha first.
constexpr TZyColor ColorToARGB(unsigned A, unsigned R, unsigned G, unsigned B) {
  return (A & 255u) << 24 | (R & 255u) << 16 | (G & 255u) << 8 | (B & 255u);
}

constexpr unsigned GetAlpha(TZyColor Color) { return Color >> 24; }
constexpr unsigned GetR(TZyColor Color) { return Color >> 16 & 255u; }
constexpr unsigned GetG(TZyColor Color) { return Color >> 8 & 255u; }
constexpr unsigned GetB(TZyColor Color) { return Color & 255u; }

/// The colour of a name of the table in any case of letters, or of a number, decimal or hexadecimal behind "$". Throws
/// EConvertError for anything else and for a number beyond 32 bits.
TZyColor ColorToARGB(std::string_view Text);
/// The first name of the table with this value, desktop colours only WithSystem; else "$" and eight hexadecimal digits.
std::string ARGBToString(TZyColor Color, bool WithSystem);

/// A desktop colour resolved to its value; any other colour as it is.
TColor ColorToRGB(TColor Color);
/// The opaque colour of a control's colour.
TZyColor TColorToARGB(TColor Color);
/// The control's colour; alpha is dropped.
constexpr TColor ARGBToTColor(TZyColor Color) {
  return static_cast<TColor>(GetB(Color) << 16 | GetG(Color) << 8 | GetR(Color));
}

/// Text of a colour in captions: "[A=255, R=0, G=0, B=0]".
std::string ARGBToRichID(TZyColor Color);
std::string RGBToRichID(TColor Color);
/// The colour of such a text without its closing bracket; channels count modulo 256. Throws EConvertError for a
/// malformed text.
TZyColor RichIDToTZyColor(std::string_view Text);
TColor RichIDToTColor(std::string_view Text);

// ---- Shades, by hue, saturation and lightness ----

/// Lightness from 0 (black) to 1 (white).
float GetBrightness(TZyColor Color);
/// Hue in degrees from 0 to below 360; 0 for grays.
float GetHue(TZyColor Color);
/// Saturation from 0 to 1; 0 for grays.
float GetSaturation(TZyColor Color);
/// The opaque colour of hue, saturation and lightness, all three from 0 to 1. Channels that fall outside are clamped.
TZyColor HSLToColor(double H, double S, double L);
/// The colour with its lightness multiplied; alpha, hue and saturation stay.
TZyColor Brighten(TZyColor Color, double Factor);

/// A background on which the colour stands out.
TZyColor ContrastBackGroundARGB(TZyColor Color);
TZyColor ContrastBackGround(TColor Color);
/// A text colour that stands out on the colour.
TZyColor ContrastForeColorARGB(TZyColor Color);

}  // namespace zy
