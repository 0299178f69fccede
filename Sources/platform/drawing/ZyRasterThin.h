#pragma once

#include <cstdint>
#include <span>

#include "platform/drawing/ZyRasterStroke.h"

namespace zy {

/// Draws lines that are one pixel wide, straight into the target.
///
/// Of each row that a steep segment crosses, and of each column that a flat one does, the two pixels nearest to it
/// share the colour by their distance (Wu: "An Efficient Antialiasing Technique", SIGGRAPH 1991): the model of the
/// toolkit's thin lines, so both look the same. Segments are blended one after the other, without any buffer between,
/// and two rows at a time. Coverage counts in 128 steps.
class TRasterThin {
 public:
  /// Color is premultiplied; Clip lies within the target.
  TRasterThin(const TRasterTarget& Target, const TRasterRect& Clip, std::uint32_t Color);

  /// Draws only the columns from Left up to, but not including, Right: the same pixels as without.
  TRasterThin(const TRasterTarget& Target, const TRasterRect& Clip, std::uint32_t Color, int Left, int Right);

  /// The line through Points, finite device pixels with their corners at integers; caps other than flat ones go on for
  /// half a pixel.
  void Line(std::span<const PointF> Points, TRasterCap StartCap, TRasterCap EndCap);

  /// What the kernels work with.
  struct TInk {
    TRasterTarget Target;
    TRasterRect Clip;
    TRasterRect Shown;  // what of it is drawn
    bool ShowsAll;
    std::uint16_t Alpha;
    std::int16_t Channels[16];  // of the colour, as they lie in four pixels
  };

 private:
  TInk FInk;
};

}  // namespace zy
