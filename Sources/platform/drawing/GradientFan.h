#pragma once

// The colours of a path gradient that is no ellipse; for the sources of this folder.

#include <QImage>
#include <span>
#include <vector>

#include "platform/drawing/GradientStops.h"

namespace zy {

/// Triangles from each side of an outline to a centre. Where they lie on each other the last one shows. A little way
/// beyond the outline its colours go on, as the pixels at the edge of a shape lie half outside; farther out there are
/// none.
class TGradientFan {
 public:
  /// Corners in the pixels of a picture, the centre of the first one at (0.5, 0.5). Rim is how far the colours go on.
  TGradientFan(std::vector<QPointF> Corners, QPointF Center, double Rim);

  /// Colours each pixel of an empty picture, premultiplied, once: by the colours of the corners, the last of which
  /// counts for all that follow, and of the centre.
  void Paint(QImage& Picture, std::span<const ARGB> CornerColors, ARGB CenterColor) const;
  /// The same by stops from the outline to the centre.
  void Paint(QImage& Picture, std::span<const TGradientStop> Stops) const;

 private:
  /// A number at each point of the plane.
  struct TPlane {
    double AtOrigin, X, Y;
  };
  struct TTriangle {
    std::size_t Corner;
    TPlane Inwards, Along;  // from 0 at the side to 1 at the centre; from 0 at the first corner to 1 at the second
    double Rim;             // as a part of the way to the centre
    double Top, Bottom;
  };
  class TFreePixels;
  template <class TColorsOf>
  void PaintBy(QImage& Picture, const TColorsOf& ColorsOf) const;

  std::vector<TTriangle> FTriangles;
  std::size_t FCornerCount;
};

}  // namespace zy
