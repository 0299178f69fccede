#pragma once

namespace zy {

/// A place in pixels, x to the right and y down.
struct PointF {
  float X = 0;
  float Y = 0;
  bool operator==(const PointF&) const = default;
};

/// An extent in pixels.
struct SizeF {
  float Width = 0;
  float Height = 0;
  bool operator==(const SizeF&) const = default;
};

/// A rectangle in pixels, given by its top left corner and its extent.
struct RectF {
  float X = 0;
  float Y = 0;
  float Width = 0;
  float Height = 0;
  bool operator==(const RectF&) const = default;
};

/// A rectangle in whole pixels by its edges; Right and Bottom lie behind the last pixel.
struct TRect {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;
  int Width() const { return Right - Left; }
  int Height() const { return Bottom - Top; }
  bool operator==(const TRect&) const = default;
};

}  // namespace zy
