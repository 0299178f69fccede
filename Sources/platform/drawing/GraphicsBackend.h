#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "platform/drawing/GraphicsPath.h"
#include "platform/drawing/Matrix.h"
#include "platform/drawing/Region.h"
#include "platform/framework/Argb.h"

class QPainter;

namespace zy {

class Bitmap;
class Brush;
class Font;
class Graphics;
class Pen;
class TKeptSegments;

/// How edges are drawn: None in whole pixels, the others with partly covered pixels, coarse to fine.
enum SmoothingMode { SmoothingModeNone, SmoothingModeHighSpeed, SmoothingModeAntiAlias, SmoothingModeHighQuality };

/// How glyphs are drawn: SingleBitPerPixel ones in whole pixels, all others anti-aliased.
enum TextRenderingHint {
  TextRenderingHintSystemDefault,
  TextRenderingHintSingleBitPerPixelGridFit,
  TextRenderingHintSingleBitPerPixel,
  TextRenderingHintAntiAliasGridFit,
  TextRenderingHintAntiAlias,
  TextRenderingHintClearTypeGridFit
};

/// What a Graphics is set to when it draws.
struct TDrawState {
  Matrix Transform;
  Region Clip;
  SmoothingMode Smoothing = SmoothingModeNone;
  TextRenderingHint Hint = TextRenderingHintSystemDefault;
};

/// What is drawn or filled. Holds no data of its own: points and path are those of the call. Its numbers are finite.
struct TShape {
  enum TKind { Lines, Polygon, Rectangle, Ellipse, Pie, Path };
  TKind Kind = Lines;
  std::span<const PointF> Points;         // of Lines and Polygon
  RectF Rect;                             // of Rectangle, Ellipse and Pie
  float StartAngle = 0, SweepAngle = 0;   // of Pie
  FillMode Mode = FillModeAlternate;      // of Polygon
  const GraphicsPath* Outline = nullptr;  // of Path

  static TShape Of(const GraphicsPath& Path) {
    TShape Result;
    Result.Kind = TShape::Path;
    Result.Outline = &Path;
    return Result;
  }
  /// Through at least two points.
  static TShape Line(std::span<const PointF> Points) {
    TShape Result;
    Result.Points = Points;
    return Result;
  }

  /// The shape as a path of its own. A rectangle has its lines at X and X + Width.
  GraphicsPath AsPath() const;
};

/// Where a Graphics draws to. Calls come with all that they depend on.
class TGraphicsBackend {
 public:
  virtual ~TGraphicsBackend() = default;
  virtual void Draw(const TDrawState& State, const Pen& Pen, const TShape& Shape) = 0;
  /// A rectangle is a box of whole pixels.
  virtual void Fill(const TDrawState& State, const Brush& Brush, const TShape& Shape) = 0;
  /// Draws the part From of the picture, in its logical pixels, into the box To.
  virtual void DrawImage(const TDrawState& State, const Bitmap& Picture, const RectF& To, const RectF& From) = 0;
  /// Origin is the top left corner of the first line's box.
  virtual void DrawString(const TDrawState& State, std::string_view Text, const Font& Font, const Brush& Brush,
                          PointF Origin) = 0;
  virtual void Clear(const TDrawState& State, ARGB Color) = 0;
  /// Draws many lines by their ends; see Graphics::DrawSegments. False when there is no quicker way than one by one.
  virtual bool DrawSegments(const TDrawState&, const Pen&, std::span<const PointF>, TKeptSegments*) { return false; }
  /// Draws one look many times; see Graphics::DrawStamps. False when the target has no quicker way than one by one.
  virtual bool DrawStamps(const TDrawState& State, std::string_view Look, const RectF& Extent,
                          std::span<const PointF> Points, const std::function<void(Graphics&)>& Paint);
  /// Fills boxes of pixels that do not overlap; see Graphics::FillRectangles. False when the target has no quicker way
  /// than as one path.
  virtual bool FillBoxes(const TDrawState&, const Brush&, std::span<const RectF>) { return false; }
  /// Fills a shape that does not overlap itself many times; see Graphics::FillTrail. False when the target has no
  /// quicker way than one by one.
  virtual bool FillTrail(const TDrawState&, const Brush&, const TShape&, PointF, int) { return false; }
  /// See Graphics::GatherLines.
  virtual void GatherLines(bool) {}
  /// See Graphics::GetHDC.
  virtual QPainter* GetHDC(const TDrawState&) { return nullptr; }
  virtual void ReleaseHDC() {}
};

}  // namespace zy
