#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "platform/drawing/Geometry.h"
#include "platform/drawing/GraphicsPath.h"
#include "platform/drawing/Matrix.h"

namespace zy {

/// A part of a drawing surface: all of it, less what was cut away. Its use is to save a clip and to restore it exactly,
/// whatever the transform is by then.
///
/// A region is the list of its cuts, in order; a copy shares it, and a further cut costs no more than its own size,
/// however many there are.
class Region {
 public:
  /// The whole surface.
  Region() = default;
  /// The inside of a path.
  explicit Region(const GraphicsPath& Path) { Intersect(Path, {}); }
  Region Clone() const { return *this; }
  bool operator==(const Region& Other) const;

  bool IsInfinite() const { return Parts().empty(); }
  /// Leaves only what lies in the shape as well, seen through Transform. A box without an extent above 0 both ways is
  /// empty, as it is for FillRectangle.
  void Intersect(const RectF& Rect, const Matrix& Transform);
  void Intersect(const GraphicsPath& Path, const Matrix& Transform);
  /// Leaves only what lies in the other region as well.
  void Intersect(const Region& Other);
  /// Cuts the shape out.
  void Exclude(const RectF& Rect, const Matrix& Transform);
  void Exclude(const GraphicsPath& Path, const Matrix& Transform);
  /// Cuts out what lies in the other region, seen through Transform.
  void Exclude(const Region& Other, const Matrix& Transform);
  /// The region moved and turned as a whole.
  Region Transformed(const Matrix& Transform) const;

  /// A shape, how it lies on the surface, and whether it is what remains or what is cut out.
  struct TPart {
    bool IsExcluded = false;
    bool IsRect = true;
    RectF Rect;                                // of a rectangle
    std::shared_ptr<const GraphicsPath> Path;  // of any other shape
    std::shared_ptr<const Region> Nested;      // of a region that is cut out as a whole
    Matrix Transform;
    bool operator==(const TPart& Other) const;
  };
  /// Valid until this region changes.
  std::span<const TPart> Parts() const;
  /// Whether Other is this region with further cuts, found without looking at them: those from this region's count of
  /// parts on are new.
  bool IsStartOf(const Region& Other) const {
    if (FCount == 1) return Other.FCount > 0 && Other.Parts().front() == FOnly;
    return FParts == Other.FParts && FCount <= Other.FCount;
  }
  std::size_t PartCount() const { return FCount; }

 private:
  void Add(TPart Part);

  // Copies share the list and differ in how much of it is theirs. A single cut, the common case, needs no list.
  TPart FOnly;
  std::shared_ptr<std::vector<TPart>> FParts;
  std::size_t FCount = 0;
};

}  // namespace zy
