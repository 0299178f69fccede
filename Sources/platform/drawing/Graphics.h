#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string_view>

#include "platform/drawing/Geometry.h"
#include "platform/drawing/GraphicsBackend.h"
#include "platform/drawing/GraphicsPath.h"
#include "platform/drawing/Matrix.h"
#include "platform/drawing/Region.h"
#include "platform/drawing/StringFormat.h"
#include "platform/framework/Argb.h"

class QPainter;

namespace zy {

class Bitmap;
class Brush;
class Font;
class Metafile;
class Pen;
class TKeptSegments;

/// What a new clip does with the present one.
enum CombineMode { CombineModeReplace, CombineModeIntersect };

/// Draws on a picture, through a painter of the toolkit (a widget, a printer's page), or into a recording.
///
/// Coordinates are logical pixels, y down, after the transform. A pixel's centre lies at integer coordinates: a line
/// of width 1 at y = 10 covers row 10 exactly, and a polygon is filled within the very line that outlines it. What is
/// given as a box of pixels (FillRectangle, a clip, the place of a text or a picture) takes whole pixels instead: a box
/// from x of width w covers the columns x to x + w - 1. All this holds with and without smoothing and for every pixel
/// ratio. Angles are in degrees, clockwise from the x axis.
///
/// An open line without smoothing includes the pixels at both its ends; with smoothing it ends at their centres.
/// Shapes with a coordinate that is not finite are left out. A new one has no smoothing, no clip and no transform.
class Graphics {
 public:
  /// Draws on Target, which must outlive this.
  explicit Graphics(Bitmap& Target);
  /// Draws through an active painter on top of its present transform and clip, and leaves it at destruction as it was.
  explicit Graphics(QPainter& Target);
  /// Records into Target, behind what it holds.
  explicit Graphics(Metafile& Target);
  virtual ~Graphics();
  Graphics(const Graphics&) = delete;
  Graphics& operator=(const Graphics&) = delete;

  void DrawLine(const Pen& Pen, float X1, float Y1, float X2, float Y2);
  /// A line for each two of Ends, one after the other, as DrawLine draws them. On pictures hundreds of thousands cost
  /// little, with a solid pen of one colour, and with arrow tips at their ends as well. A last end alone is left out.
  /// Kept belongs to the caller, for lines that are drawn again and again.
  void DrawSegments(const Pen& Pen, std::span<const PointF> Ends, TKeptSegments* Kept = nullptr);
  /// The line through all points, with corners joined. Nothing for less than two points.
  void DrawLines(const Pen& Pen, std::span<const PointF> Points);
  /// The closed line through all points.
  void DrawPolygon(const Pen& Pen, std::span<const PointF> Points);
  /// Outline with its lines on the columns X and X + Width, and the rows likewise.
  void DrawRectangle(const Pen& Pen, float X, float Y, float Width, float Height);
  void DrawRectangle(const Pen& Pen, const RectF& Rect) { DrawRectangle(Pen, Rect.X, Rect.Y, Rect.Width, Rect.Height); }
  void DrawEllipse(const Pen& Pen, const RectF& Rect);
  /// Outline of a sector of the ellipse in Rect.
  void DrawPie(const Pen& Pen, const RectF& Rect, float StartAngle, float SweepAngle);
  void DrawPath(const Pen& Pen, const GraphicsPath& Path);

  void FillRectangle(const Brush& Brush, float X, float Y, float Width, float Height);
  void FillRectangle(const Brush& Brush, const RectF& Rect) {
    FillRectangle(Brush, Rect.X, Rect.Y, Rect.Width, Rect.Height);
  }
  /// Many boxes that do not overlap, in one go. Where they touch there is no seam, for whatever transform and target.
  void FillRectangles(const Brush& Brush, std::span<const RectF> Boxes);
  void FillEllipse(const Brush& Brush, const RectF& Rect);
  void FillPie(const Brush& Brush, const RectF& Rect, float StartAngle, float SweepAngle);
  /// The inside of the closed polygon.
  void FillPolygon(const Brush& Brush, std::span<const PointF> Points, FillMode Mode = FillModeAlternate);
  void FillPath(const Brush& Brush, const GraphicsPath& Path);

  /// A path that is filled Count times, each time moved on by Step: translucent layers, as of a soft shadow. The path
  /// must not overlap itself, which costs far less than layer by layer. It is moved as far as the last one lies.
  void FillTrail(const Brush& Brush, GraphicsPath& Path, PointF Step, int Count);

  /// The picture in its own logical size, or stretched into a box, as a whole or a part of it.
  void DrawImage(const Bitmap& Picture, float X, float Y);
  void DrawImage(const Bitmap& Picture, const RectF& To);
  void DrawImage(const Bitmap& Picture, const RectF& To, const RectF& From);
  /// What was recorded, scaled into a box.
  void DrawImage(const Metafile& Recording, const RectF& To);

  /// Draws something small at each of Points, in this order: Paint draws it about the origin, within Extent. On
  /// pictures it is painted once for each quarter of a pixel and put down from then on, so that thousands cost little.
  /// Look names all that decides its pixels (shape, size, colours), in any bytes; equal looks must paint the same.
  void DrawStamps(std::string_view Look, const RectF& Extent, std::span<const PointF> Points,
                  const std::function<void(Graphics&)>& Paint);

  /// Text from the top left corner of its line box; '\n' starts a new line below. See MeasureString.
  void DrawString(std::string_view Text, const Font& Font, const Brush& Brush, float X, float Y,
                  const StringFormat& Format = StringFormat::GenericTypographic());
  /// Extent of the text's line box: its advance width, ascent plus descent high, and the font's height more for each
  /// further line. The same for every target, transform and pixel ratio.
  SizeF MeasureString(std::string_view Text, const Font& Font,
                      const StringFormat& Format = StringFormat::GenericTypographic()) const;
  /// The toolkit's painter behind this, for what only the toolkit can draw: under the present transform, with the
  /// corners of pixels at integers, and under the clip as far as it is made of boxes. Null for recordings. Nothing else
  /// is to be drawn until ReleaseHDC, which puts the painter back as it was.
  QPainter* GetHDC() { return FBackend->GetHDC(FState); }
  void ReleaseHDC() { FBackend->ReleaseHDC(); }
  /// From now on until it is called with false, thin lines may be drawn as late as anything else is, or at the end: by
  /// all processors of the machine, when there are many. The picture of a bitmap is not to be looked at in between. Use
  /// TLineGatherer.
  void GatherLines(bool Gathers) { FBackend->GatherLines(Gathers); }
  /// Gives every pixel within the clip this colour, alpha included; nothing of what was there shines through.
  void Clear(ARGB Color);

  /// Restricts drawing to a box or a path under the present transform.
  void SetClip(const RectF& Rect, CombineMode Mode = CombineModeReplace);
  void SetClip(const GraphicsPath& Path, CombineMode Mode = CombineModeReplace);
  /// Restores a clip from GetClip, whatever the transform is now.
  void SetClip(const Region& Clip);
  const Region& GetClip() const { return FState.Clip; }
  /// Keeps drawing out of a shape under the present transform. Thousands of shapes are fine.
  void ExcludeClip(const RectF& Rect);
  void ExcludeClip(const Region& Shape);
  void ResetClip();

  void SetTransform(const Matrix& Transform) { FState.Transform = Transform; }
  const Matrix& GetTransform() const { return FState.Transform; }
  void TranslateTransform(float Dx, float Dy, MatrixOrder Order = MatrixOrderPrepend);
  void RotateTransform(float Angle, MatrixOrder Order = MatrixOrderPrepend);
  void MultiplyTransform(const Matrix& Transform, MatrixOrder Order = MatrixOrderPrepend);

  void SetSmoothingMode(SmoothingMode Value) { FState.Smoothing = Value; }
  SmoothingMode GetSmoothingMode() const { return FState.Smoothing; }
  void SetTextRenderingHint(TextRenderingHint Value) { FState.Hint = Value; }
  TextRenderingHint GetTextRenderingHint() const { return FState.Hint; }

 protected:
  explicit Graphics(std::unique_ptr<TGraphicsBackend> Backend);

 private:
  void Draw(const Pen& Pen, const TShape& Shape) { FBackend->Draw(FState, Pen, Shape); }
  void Fill(const Brush& Brush, const TShape& Shape) { FBackend->Fill(FState, Brush, Shape); }

  std::unique_ptr<TGraphicsBackend> FBackend;
  TDrawState FState;
};

}  // namespace zy
