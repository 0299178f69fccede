#include "platform/drawing/Region.h"

#include <algorithm>

namespace zy {
namespace {

/// What lies in both; without extent when they do not meet.
RectF Overlap(const RectF& A, const RectF& B) {
  const float Left = std::max(A.X, B.X);
  const float Top = std::max(A.Y, B.Y);
  const float Right = std::min(A.X + A.Width, B.X + B.Width);
  const float Bottom = std::min(A.Y + A.Height, B.Y + B.Height);
  return {Left, Top, std::max(Right - Left, 0.0f), std::max(Bottom - Top, 0.0f)};
}

}  // namespace

void Region::Intersect(const RectF& Rect, const Matrix& Transform) {
  TPart Part{Rect, Transform};
  if (Transform.IsTranslation()) {
    const PointF Corner = Transform.TransformPoint({Rect.X, Rect.Y});
    Part = {{Corner.X, Corner.Y, Rect.Width, Rect.Height}, Matrix()};
  }
  // Rectangles of one transform make one rectangle, so that nested clips do not pile up.
  for (TPart& Known : FParts) {
    if (Known.Transform == Part.Transform) {
      Known.Rect = Overlap(Known.Rect, Part.Rect);
      return;
    }
  }
  FParts.push_back(Part);
}

}  // namespace zy
