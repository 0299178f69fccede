#pragma once

#include <cstddef>
#include <cstdint>

namespace zy {

/// The product of two values of 0 to 255 that stand for 0 to 1, rounded.
constexpr std::uint8_t ScaledByte(std::uint8_t Value, std::uint8_t Factor) {
  const auto Product = static_cast<std::uint16_t>(Value * Factor + 128);
  return static_cast<std::uint8_t>((Product + (Product >> 8)) >> 8);
}

/// A part of a pixel, from 0 to 1, as a coverage.
constexpr std::uint8_t CoverageOfPart(double Part) {
  return static_cast<std::uint8_t>(Part * 255 + 0.5);  // NOLINT(bugprone-incorrect-roundings): never negative
}

/// Values[i] scaled by Factors[i].
void ScaleBytes(std::uint8_t* Values, const std::uint8_t* Factors, int Count);
/// Values[i] scaled by Factor.
void ScaleBytes(std::uint8_t* Values, std::uint8_t Factor, int Count);

/// Puts a premultiplied colour over the pixels, as far as Coverage says.
void BlendColor(std::uint32_t* Pixels, const std::uint8_t* Coverage, int Count, std::uint32_t Color);
/// The same with a colour for each pixel.
void BlendColors(std::uint32_t* Pixels, const std::uint8_t* Coverage, int Count, const std::uint32_t* Colors);
/// The same in Rows rows that are alike.
void BlendRows(std::uint32_t* Pixels, std::ptrdiff_t Stride, int Rows, const std::uint8_t* Coverage, int Count,
               const std::uint32_t* Colors);
/// Puts a premultiplied colour over all of the pixels, as far as one coverage says.
void BlendEven(std::uint32_t* Pixels, std::uint8_t Coverage, int Count, std::uint32_t Color);
/// Puts premultiplied pixels over others.
void BlendOver(std::uint32_t* Pixels, const std::uint32_t* Colors, int Count);
/// The same with a box of pixels; its rows have Width pixels, a multiple of four.
void BlendRowsOver(std::uint32_t* Pixels, std::ptrdiff_t Stride, const std::uint32_t* Colors, int Width, int Height);

}  // namespace zy
