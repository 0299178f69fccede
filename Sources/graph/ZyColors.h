#pragma once

#include <cstdint>

namespace zy {

/// A colour as 0xAARRGGBB. An alpha of 0 means no colour in many places.
using TZyColor = std::uint32_t;

/// The packed colour of four channels of 0 to 255, alpha first.
constexpr TZyColor ColorToARGB(unsigned A, unsigned R, unsigned G, unsigned B) {
  return (A & 255u) << 24 | (R & 255u) << 16 | (G & 255u) << 8 | (B & 255u);
}

constexpr unsigned GetAlpha(TZyColor Color) { return Color >> 24; }
constexpr unsigned GetR(TZyColor Color) { return Color >> 16 & 255u; }
constexpr unsigned GetG(TZyColor Color) { return Color >> 8 & 255u; }
constexpr unsigned GetB(TZyColor Color) { return Color & 255u; }

/// Colours by their names in CSS Color Module Level 4.
namespace Colors {
inline constexpr TZyColor Transparent = 0x00FFFFFF;
inline constexpr TZyColor Black = 0xFF000000;
inline constexpr TZyColor Blue = 0xFF0000FF;
inline constexpr TZyColor DarkBlue = 0xFF00008B;
inline constexpr TZyColor DarkGreen = 0xFF006400;
inline constexpr TZyColor DarkRed = 0xFF8B0000;
inline constexpr TZyColor Gray = 0xFF808080;
inline constexpr TZyColor Green = 0xFF008000;
inline constexpr TZyColor Maroon = 0xFF800000;
inline constexpr TZyColor Red = 0xFFFF0000;
inline constexpr TZyColor White = 0xFFFFFFFF;
}  // namespace Colors

}  // namespace zy
