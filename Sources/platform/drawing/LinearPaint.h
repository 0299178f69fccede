#pragma once

#include <QRectF>
#include <array>

#include "platform/drawing/Brush.h"
#include "platform/drawing/ZyRaster.h"

class QTransform;

namespace zy {

/// A linear gradient for the rasteriser. The toolkit's painter shares the spans of a gradient out to threads, which
/// takes longer than the drawing for all but the largest shapes.
class TLinearPaint : public TRasterPaint {
 public:
  /// ToDevice takes the brush's coordinates to stored pixels. Where Box, in such pixels, has one period at most, the
  /// gradient is widened by the part of a pixel by which it would begin anew at an edge.
  TLinearPaint(const LinearGradientBrush& Brush, const QTransform& ToDevice, const QRectF& Box = {});
  bool IsUpright() const override { return FAlongY == 0; }
  bool IsLevel() const override { return FAlongX == 0; }
  void Fetch(int X, int Y, int Count, std::uint32_t* Pixels) const override;

 private:
  static constexpr int MostSteps = 1024;

  int FSteps = 1;                                  // a power of two
  std::array<std::uint32_t, MostSteps> FColors;    // premultiplied, along the gradient
  double FAtOrigin = 0, FAlongX = 0, FAlongY = 0;  // where along the gradient a pixel lies, in steps
};

}  // namespace zy
