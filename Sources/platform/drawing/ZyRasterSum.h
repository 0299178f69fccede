#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/drawing/ZyRaster.h"

namespace zy {

/// Draws very many upright boxes of one colour, such as thin bars, as if one after the other was blended.
///
/// What boxes let through of a pixel is the product of what each lets through, and the logarithm of it is a sum. A box
/// therefore only notes where in a sum over rows or columns it begins and ends, in some steps for each row or column of
/// its shorter side; one pass over the pixels then adds up, and one blends. Edges count in 256ths of a pixel.
class TRasterSum {
 public:
  /// Sums, one for each pixel of Box row by row, are made zero and belong to the caller. Alpha is that of the colour.
  TRasterSum(const TRasterRect& Box, std::uint8_t Alpha, std::vector<std::uint16_t>& Sums);
  ~TRasterSum() { AddUp(); }
  TRasterSum(const TRasterSum&) = delete;
  TRasterSum& operator=(const TRasterSum&) = delete;

  /// The box between the edges, in pixels with their corners at integers; what is no number is left out.
  void Add(float Left, float Top, float Right, float Bottom);
  /// Blends a colour, whose alpha the sums have already, as far as sums and clip say; Box lies within the target.
  static void Blend(const TRasterTarget& Target, const TRasterClip& Clip, const TRasterRect& Box,
                    std::span<const std::uint16_t> Sums, std::uint32_t Color);
  /// Gives back what the thread keeps for the next sums. Not while there are any.
  static void ReleaseMemory() { Scratch() = {}; }

 private:
  struct TScratch {
    std::vector<std::uint32_t> Down, Across;  // steps of the sums along columns and rows, 0 between uses
    std::vector<std::uint32_t> Row;
    std::vector<std::uint8_t> Opacities;
  };
  static TScratch& Scratch();
  void AddUp();

  TRasterRect FBox;
  float FWidth, FHeight;
  std::ptrdiff_t FStride;
  std::uint32_t *FDown, *FAcross;  // of the scratch memory
  std::vector<std::uint16_t>& FSums;
  std::array<std::uint32_t, 257> FWeights;  // by the covered part of a pixel
  int FCount = 0;
};

}  // namespace zy
