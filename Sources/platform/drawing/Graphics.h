#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "platform/drawing/Argb.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/Matrix.h"
#include "platform/drawing/Region.h"

class QPainter;

namespace zy {

class Bitmap;
class Brush;
class Font;
class Pen;

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

/// What a new clip does with the present one.
enum CombineMode { CombineModeReplace, CombineModeIntersect };

/// Draws on a picture or on a widget that is being painted.
///
/// Coordinates are logical pixels, y down, after the transform. A pixel's centre lies at integer coordinates: a line
/// of width 1 at y = 10 covers row 10 exactly, and a polygon is filled within the very line that outlines it. What is
/// given as a box of pixels (FillRectangle, a clip, the place of a text) takes whole pixels instead: a box from x of
/// width w covers the columns x to x + w - 1. All this holds with and without smoothing and for every pixel ratio.
///
/// An open line without smoothing includes the pixels at both its ends; with smoothing it ends at their centres.
/// Shapes with a coordinate that is not finite are left out. A new one has no smoothing, no clip and no transform.
class Graphics {
 public:
  /// Draws on Target, which must outlive this.
  explicit Graphics(Bitmap& Target);
  /// Draws through an active painter on top of its present transform and clip, and leaves it at destruction as it was.
  explicit Graphics(QPainter& Target);
  virtual ~Graphics();
  Graphics(const Graphics&) = delete;
  Graphics& operator=(const Graphics&) = delete;

  virtual void DrawLine(const Pen& Pen, float X1, float Y1, float X2, float Y2);
  /// The line through all points, with corners joined. Nothing for less than two points.
  virtual void DrawLines(const Pen& Pen, std::span<const PointF> Points);
  /// Outline with its lines on the columns X and X + Width, and the rows likewise.
  virtual void DrawRectangle(const Pen& Pen, float X, float Y, float Width, float Height);
  virtual void FillRectangle(const Brush& Brush, float X, float Y, float Width, float Height);
  /// The inside of the closed polygon, by the alternate rule.
  virtual void FillPolygon(const Brush& Brush, std::span<const PointF> Points);
  /// Text from the top left corner of its line box; '\n' starts a new line below. See MeasureString.
  virtual void DrawString(std::string_view Text, const Font& Font, const Brush& Brush, float X, float Y);
  /// Extent of the text's line box: its advance width without padding at the sides, ascent plus descent high, and the
  /// font's height more for each further line. The same for every target, transform and pixel ratio.
  SizeF MeasureString(std::string_view Text, const Font& Font) const;
  /// Gives every pixel within the clip this colour, alpha included; nothing of what was there shines through.
  virtual void Clear(ARGB Color);

  /// Restricts drawing to a box under the present transform.
  void SetClip(const RectF& Rect, CombineMode Mode = CombineModeReplace);
  /// Restores a clip from GetClip, whatever the transform is now.
  void SetClip(const Region& Clip);
  Region GetClip() const { return FClip; }
  void ResetClip();

  void SetTransform(const Matrix& Transform);
  const Matrix& GetTransform() const { return FTransform; }
  void TranslateTransform(float Dx, float Dy, MatrixOrder Order = MatrixOrderPrepend);
  void RotateTransform(float Angle, MatrixOrder Order = MatrixOrderPrepend);

  void SetSmoothingMode(SmoothingMode Value);
  SmoothingMode GetSmoothingMode() const { return FSmoothingMode; }
  void SetTextRenderingHint(TextRenderingHint Value) { FTextRenderingHint = Value; }
  TextRenderingHint GetTextRenderingHint() const { return FTextRenderingHint; }

 private:
  /// What integer coordinates are: centres of pixels for shapes, corners for boxes of pixels.
  enum class TGrid { Unset, Centers, Corners };

  void Begin();
  void UseGrid(TGrid Grid);
  void ApplyClip();

  std::unique_ptr<QPainter> FOwnPainter;
  QPainter* FPainter;
  Matrix FBase;  // transform of the painter as it came
  Matrix FTransform;
  Region FClip;
  TGrid FGrid = TGrid::Unset;  // what the painter's transform is set for
  SmoothingMode FSmoothingMode = SmoothingModeNone;
  TextRenderingHint FTextRenderingHint = TextRenderingHintSystemDefault;
};

}  // namespace zy
