#include "graph/shapes/ZyDrawing.h"

#include <algorithm>
#include <cmath>

#include "graph/styles/ZyGradientBrushes.h"

namespace zy {
namespace {

constexpr float SmallestExtent = 0.0001f;

/// The distance of two edges, never nothing.
float Extent(float A, float B) {
  const float Distance = std::fabs(A - B);
  return Distance > 0 ? Distance : SmallestExtent;
}

/// Whether an end of the span A lies within the span B.
bool HasEndWithin(float StartA, float ExtentA, float StartB, float ExtentB) {
  const auto IsWithin = [&](float Place) { return Place >= StartB && Place <= StartB + ExtentB; };
  return IsWithin(StartA) || IsWithin(StartA + ExtentA);
}

}  // namespace

TRect OrderedRect(int X1, int Y1, int X2, int Y2) {
  return {std::min(X1, X2), std::min(Y1, Y2), std::max(X1, X2), std::max(Y1, Y2)};
}

RectF OrderedRect(float X1, float Y1, float X2, float Y2) {
  return {std::min(X1, X2), std::min(Y1, Y2), Extent(X1, X2), Extent(Y1, Y2)};
}

RectF TRectToRectF(const TRect& Rect) { return ToRectF(Rect); }

bool RectanglesOverlaping(const RectF& A, const RectF& B) {
  return HasEndWithin(A.X, A.Width, B.X, B.Width) && HasEndWithin(A.Y, A.Height, B.Y, B.Height);
}

}  // namespace zy
