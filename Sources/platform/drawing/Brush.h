#pragma once

#include <memory>
#include <span>
#include <vector>

#include "platform/drawing/Geometry.h"
#include "platform/drawing/Matrix.h"
#include "platform/framework/Argb.h"
#include "platform/framework/EnumInfo.h"

class QBrush;
class QImage;
class QTransform;

namespace zy {

class GraphicsPath;

/// What areas, outlines and texts are filled with.
class Brush {
 public:
  virtual ~Brush();
  Brush(const Brush&) = default;
  Brush& operator=(const Brush&) = default;

  virtual std::unique_ptr<Brush> Clone() const = 0;
  /// The toolkit's brush of the same look within Box, in the coordinates of the brush. For Graphics.
  virtual QBrush ToQt(const RectF& Box) const = 0;

 protected:
  Brush() = default;
};

/// One colour everywhere. Cheap to set to another colour and reused over many shapes.
class SolidBrush : public Brush {
 public:
  explicit SolidBrush(ARGB Color) : FColor(Color) {}

  ARGB GetColor() const { return FColor; }
  void SetColor(ARGB Value) { FColor = Value; }
  std::unique_ptr<Brush> Clone() const override;
  QBrush ToQt(const RectF& Box) const override;

 private:
  ARGB FColor;
};

/// Patterns of 8 by 8 pixels.
enum HatchStyle {
  HatchStyleHorizontal,
  HatchStyleVertical,
  HatchStyleForwardDiagonal,
  HatchStyleBackwardDiagonal,
  HatchStyleCross,
  HatchStyleDiagonalCross,
  HatchStyle05Percent,
  HatchStyle10Percent,
  HatchStyle20Percent,
  HatchStyle25Percent,
  HatchStyle30Percent,
  HatchStyle40Percent,
  HatchStyle50Percent,
  HatchStyle60Percent,
  HatchStyle70Percent,
  HatchStyle75Percent,
  HatchStyle80Percent,
  HatchStyle90Percent,
  HatchStyleLightDownwardDiagonal,
  HatchStyleLightUpwardDiagonal,
  HatchStyleDarkDownwardDiagonal,
  HatchStyleDarkUpwardDiagonal,
  HatchStyleWideDownwardDiagonal,
  HatchStyleWideUpwardDiagonal,
  HatchStyleLightVertical,
  HatchStyleLightHorizontal,
  HatchStyleNarrowVertical,
  HatchStyleNarrowHorizontal,
  HatchStyleDarkVertical,
  HatchStyleDarkHorizontal,
  HatchStyleDashedDownwardDiagonal,
  HatchStyleDashedUpwardDiagonal,
  HatchStyleDashedHorizontal,
  HatchStyleDashedVertical,
  HatchStyleSmallConfetti,
  HatchStyleLargeConfetti,
  HatchStyleZigZag,
  HatchStyleWave,
  HatchStyleDiagonalBrick,
  HatchStyleHorizontalBrick,
  HatchStyleWeave,
  HatchStylePlaid,
  HatchStyleDivot,
  HatchStyleDottedGrid,
  HatchStyleDottedDiamond,
  HatchStyleShingle,
  HatchStyleTrellis,
  HatchStyleSphere,
  HatchStyleSmallGrid,
  HatchStyleSmallCheckerBoard,
  HatchStyleLargeCheckerBoard,
  HatchStyleOutlinedDiamond,
  HatchStyleSolidDiamond,
  HatchStyleTotal  ///< number of styles
};

/// A pattern in one colour on another. It lies on the pixels of the target, whatever the shape; on screens with several
/// stored pixels for a logical one it grows with them.
class HatchBrush : public Brush {
 public:
  /// Throws ERangeError for a style that is none.
  HatchBrush(HatchStyle Style, ARGB ForeColor, ARGB BackColor);

  HatchStyle GetHatchStyle() const { return FStyle; }
  ARGB GetForegroundColor() const { return FForeColor; }
  ARGB GetBackgroundColor() const { return FBackColor; }
  std::unique_ptr<Brush> Clone() const override;
  QBrush ToQt(const RectF& Box) const override;

  /// The pattern of a style: eight rows from the top, the leftmost pixel in the highest bit; set bits are foreground.
  static std::span<const unsigned char, 8> PatternOf(HatchStyle Style);

 private:
  HatchStyle FStyle;
  ARGB FForeColor;
  ARGB FBackColor;
};

/// Colours at positions along a gradient, from 0 to 1.
struct TGradientStop {
  float Position;
  ARGB Color;
};

/// The way of a gradient in a rectangle.
enum LinearGradientMode {
  LinearGradientModeHorizontal,        ///< left to right
  LinearGradientModeVertical,          ///< top to bottom
  LinearGradientModeForwardDiagonal,   ///< top left to bottom right
  LinearGradientModeBackwardDiagonal,  ///< top right to bottom left
};

/// Colours that change along a direction, and repeat beyond both ends.
///
/// Start and end that coincide, and rectangles without extent, give the last colour everywhere.
class LinearGradientBrush : public Brush {
 public:
  /// From one point to another.
  LinearGradientBrush(PointF Start, PointF Stop, ARGB First, ARGB Last);
  /// Over a rectangle, corner to corner for the diagonal ways.
  LinearGradientBrush(const RectF& Rect, ARGB First, ARGB Last, LinearGradientMode Mode);
  /// Over a rectangle at an angle in degrees, clockwise from the x axis: the corners that lie farthest in that
  /// direction get the end colours. A scalable angle is one in a square that is stretched to the rectangle.
  LinearGradientBrush(const RectF& Rect, ARGB First, ARGB Last, float Angle, bool IsAngleScalable = false);

  /// Replaces the colours. Positions are from 0 to 1, ascending, as many as there are colours; the first is 0 and the
  /// last 1. Throws ERangeError for anything else.
  void SetInterpolationColors(std::span<const ARGB> Colors, std::span<const float> Positions);
  const std::vector<TGradientStop>& Stops() const { return FStops; }
  /// Where the gradient starts and stops, before the transform.
  PointF GetStart() const { return FStart; }
  PointF GetStop() const { return FStop; }
  const Matrix& GetTransform() const { return FTransform; }
  void SetTransform(const Matrix& Value) { FTransform = Value; }
  std::unique_ptr<Brush> Clone() const override;
  QBrush ToQt(const RectF& Box) const override;

 private:
  PointF FStart;
  PointF FStop;
  std::vector<TGradientStop> FStops;
  Matrix FTransform;
};

/// Colours that change from the outline of a shape to a point in it. Nothing is painted outside the shape.
///
/// The centre point is the centroid of the shape's corners until it is set. For an ellipse the gradient is exact at
/// every size; any other shape is a fan of triangles between its corners and the centre point.
class PathGradientBrush : public Brush {
 public:
  /// The first figure of the path counts.
  explicit PathGradientBrush(const GraphicsPath& Path);
  /// The polygon through the points. Throws ERangeError for less than two.
  explicit PathGradientBrush(std::span<const PointF> Points);

  PointF GetCenterPoint() const { return FCenter; }
  /// Colours from the outline inwards; empty while centre and surround colours count.
  const std::vector<TGradientStop>& Stops() const { return FStops; }
  ARGB GetCenterColor() const { return FCenterColor; }
  const std::vector<ARGB>& SurroundColors() const { return FSurroundColors; }
  void SetCenterPoint(PointF Value);
  /// White at first.
  void SetCenterColor(ARGB Value);
  /// Colours of the corners in their order; the last one counts for all that follow. White at first.
  void SetSurroundColors(std::span<const ARGB> Colors);
  /// Colours from the outline (position 0) to the centre (position 1); replaces centre and surround colours. As for
  /// LinearGradientBrush.
  void SetInterpolationColors(std::span<const ARGB> Colors, std::span<const float> Positions);
  const Matrix& GetTransform() const { return FTransform; }
  void SetTransform(const Matrix& Value) { FTransform = Value; }
  std::unique_ptr<Brush> Clone() const override;
  /// Whether the shape is no ellipse.
  bool IsFan() const { return !FIsEllipse; }
  /// The gradient of an ellipse, in coordinates in which that is the circle of radius 1 about the origin. For Graphics.
  struct TRadial {
    RectF Ellipse;                         // in the brush's coordinates
    double FocusX, FocusY;                 // where the first colour is
    double Outside;                        // the radius up to which the last colour goes on
    std::vector<TGradientStop> FromFocus;  // to the circle
  };
  TRadial Radial() const;
  /// Paints the fan on an empty picture, which lies at ToPicture, seen from the brush's coordinates. For Graphics.
  void PaintFan(QImage& Picture, const QTransform& ToPicture) const;
  QBrush ToQt(const RectF& Box) const override;

 private:
  QBrush RadialBrush() const;
  QBrush FanBrush(const RectF& Box) const;

  std::vector<PointF> FPoints;  // corners; those of the flattened outline
  bool FIsEllipse = false;
  RectF FBounds;
  PointF FCenter;
  ARGB FCenterColor = 0xFFFFFFFF;
  std::vector<ARGB> FSurroundColors{0xFFFFFFFF};
  std::vector<TGradientStop> FStops;  // empty: centre and surround colours
  Matrix FTransform;
};

}  // namespace zy
