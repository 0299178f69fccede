#pragma once

#include <array>

#include "platform/drawing/Brush.h"
#include "platform/drawing/ZyRaster.h"

class QTransform;

namespace zy {

/// The gradient of an ellipse for the rasteriser; see TLinearPaint.
class TRadialPaint : public TRasterPaint {
 public:
  /// ToDevice takes the brush's coordinates to stored pixels. For a brush that is no fan.
  TRadialPaint(const PathGradientBrush& Brush, const QTransform& ToDevice);
  void Fetch(int X, int Y, int Count, std::uint32_t* Pixels) const override;

 private:
  static constexpr int Steps = 1024;

  // Places are those of pixel centres in the coordinates of the unit circle, from the focus.
  double FOriginX = 0, FOriginY = 0, FAlongXX = 0, FAlongXY = 0, FAlongYX = 0, FAlongYY = 0;
  double FFocusX = 0, FFocusY = 0;
  double FPower = 0;                             // of the focus to the circle; 0 when there is nothing to be seen
  std::array<std::uint32_t, Steps + 1> FColors;  // premultiplied, from the focus; the last one is that of outside
};

}  // namespace zy
