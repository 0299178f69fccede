#pragma once

#include <vector>

#include "platform/drawing/Geometry.h"
#include "platform/drawing/Matrix.h"

namespace zy {

/// A part of a drawing surface: all of it, or where a number of rectangles overlap. Its use is to save a clip and to
/// restore it exactly, whatever the transform is by then.
class Region {
 public:
  /// The whole surface.
  Region() = default;
  bool operator==(const Region&) const = default;

  bool IsInfinite() const { return FParts.empty(); }
  /// Leaves only what lies in Rect as well, seen through Transform.
  void Intersect(const RectF& Rect, const Matrix& Transform);

  /// A rectangle and how it lies on the surface.
  struct TPart {
    RectF Rect;
    Matrix Transform;
    bool operator==(const TPart&) const = default;
  };
  const std::vector<TPart>& Parts() const { return FParts; }

 private:
  std::vector<TPart> FParts;
};

}  // namespace zy
