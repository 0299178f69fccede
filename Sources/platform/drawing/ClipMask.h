#pragma once

#include <cstdint>
#include <vector>

#include "platform/drawing/Region.h"
#include "platform/drawing/ZyRaster.h"

class QTransform;

namespace zy {

/// What a region leaves of a raster target, as a byte for each pixel. Cutting more out of a region costs only what is
/// new.
class TClipMask {
 public:
  /// Brings the mask up to date. ToDevice takes the region's coordinates, with corners of pixels at integers, to stored
  /// pixels.
  void Update(const Region& Clip, const QTransform& ToDevice, int Width, int Height);
  const std::uint8_t* Bytes() const { return FBytes.data(); }
  int Stride() const { return FWidth; }
  /// Gives back what the thread keeps from mask to mask.
  static void ReleaseMemory();

 private:
  void Apply(const Region::TPart& Part, const QTransform& ToDevice);
  void Multiply(std::span<const std::vector<PointF>> Figures, bool Winding, bool IsExcluded);

  Region FClip;
  int FWidth = 0;
  int FHeight = 0;
  std::vector<std::uint8_t> FBytes;
};

/// The outline of a part of a region, as polygons in stored pixels. Rectangles are boxes of whole pixels, paths run
/// through the pixels' centres.
std::vector<std::vector<PointF>> OutlineOf(const Region::TPart& Part, const QTransform& ToDevice);

}  // namespace zy
