#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/drawing/ClipMask.h"
#include "platform/drawing/GraphicsBackend.h"

class QBrush;
class QImage;
class QPainter;
class QTransform;

namespace zy {

/// Draws through a painter of the toolkit, and past it where the painter is slow: long and wide lines, big polygons and
/// everything under a clip of many shapes go through TZyRaster when the painter paints on a picture.
class TPainterBackend : public TGraphicsBackend {
 public:
  explicit TPainterBackend(Bitmap& Target);
  explicit TPainterBackend(QPainter& Target);
  ~TPainterBackend() override;

  void Draw(const TDrawState& State, const Pen& Pen, const TShape& Shape) override;
  void Fill(const TDrawState& State, const Brush& Brush, const TShape& Shape) override;
  void DrawImage(const TDrawState& State, const Bitmap& Picture, const RectF& To, const RectF& From) override;
  void DrawString(const TDrawState& State, std::string_view Text, const Font& Font, const Brush& Brush,
                  PointF Origin) override;
  void Clear(const TDrawState& State, ARGB Color) override;
  bool DrawSegments(const TDrawState& State, const Pen& Pen, std::span<const PointF> Ends,
                    TKeptSegments* Kept) override;
  bool DrawStamps(const TDrawState& State, std::string_view Look, const RectF& Extent, std::span<const PointF> Points,
                  const std::function<void(Graphics&)>& Paint) override;
  bool FillBoxes(const TDrawState& State, const Brush& Brush, std::span<const RectF> Boxes) override;
  bool FillTrail(const TDrawState& State, const Brush& Brush, const TShape& Shape, PointF Step, int Count) override;
  void GatherLines(bool Gathers) override;
  QPainter* GetHDC(const TDrawState& State) override;
  void ReleaseHDC() override;

 private:
  /// What integer coordinates are: centres of pixels for shapes, corners for boxes of pixels.
  enum class TGrid { Centers, Corners };

  class TInk;

  void Begin();
  void Prepare(const TDrawState& State);
  void ApplyClip(const Region& Clip);
  bool IsBox(const Region::TPart& Part) const;
  void ClipPainter();
  void ApplyVectorClip(const Region& Clip);
  QTransform WorldTransform(const TDrawState& State, TGrid Grid) const;
  Matrix DeviceTransform(const TDrawState& State, TGrid Grid) const;
  TRasterClip RasterClip() const;
  /// The picture's pixels for whatever is drawn now: what was gathered is in them.
  TRasterTarget SettledPixels();
  void Settle();

  void DrawPlain(const TDrawState& State, const Pen& Pen, const TShape& Shape);
  bool StrokeByRaster(const TDrawState& State, const Pen& Pen, const TShape& Shape);
  bool StrokeThin(const Pen& Pen, const TShape& Shape, const Matrix& Device, float Width);
  bool StrokeThinOutline(const Pen& Pen, const TShape& Shape, const Matrix& Device, float Width);
  bool StrokeBox(const Pen& Pen, const TShape& Shape, const Matrix& Device, float Width);
  bool StrokeFrame(const Pen& Pen, const TShape& Shape, const Matrix& Device, float Width);
  bool FillBox(const TDrawState& State, const Brush& Brush, const TShape& Shape);
  bool FillByRaster(const TDrawState& State, const Brush& Brush, const TShape& Shape);
  bool DrawStringByStamp(const TDrawState& State, std::string_view Text, const Font& Font, const Brush& Brush,
                         PointF Origin);
  void FillOutline(const TDrawState& State, const Pen& Pen, const TShape& Shape);
  bool FillByPicture(const TDrawState& State, const Brush& Brush, const TShape& Shape);
  QPainter& PreparedPainter(const TDrawState& State, TGrid Grid);
  /// Has Paint draw with the toolkit's painter; under a clip of many shapes on a layer that is then shown through the
  /// mask.
  template <class TPaint>
  void PaintWithPainter(const TDrawState& State, TGrid Grid, const TPaint& Paint) {
    if (FHasMask) return PaintLayer(State, Grid, Paint);
    Paint(PreparedPainter(State, Grid));
  }
  void PaintLayer(const TDrawState& State, TGrid Grid, const std::function<void(QPainter&)>& Paint);
  static void ReleasePoster(const QImage& Picture);
  static TKeptSegments& OwnSegments();
  QTransform GradientTransform(const TDrawState& State, TGrid Grid) const;
  QTransform ToCorners(const TDrawState& State) const;
  QBrush BrushOf(const TDrawState& State, TGrid Grid, const Brush& Brush, const RectF& Box) const;
  void PaintBrush(QImage& Picture, const QTransform& ToPicture, const TDrawState& State, TGrid Grid, const Brush& Brush,
                  const RectF& Box) const;
  bool NeedsPicture(const Brush& Brush) const;
  void ClearThroughMask(ARGB Color);
  std::unique_ptr<TRasterPaint> PictureOf(const TDrawState& State, TGrid Grid, const Brush& Brush, TRasterRect Box);

  std::unique_ptr<QPainter> FOwnPainter;
  QPainter* FPainter;
  bool FGathers = false, FHasGathered = false;  // thin lines
  QImage* FImage = nullptr;  // what the painter paints on, when it is a picture that can be written directly
  std::unique_ptr<QTransform> FBase, FDeviceBase;  // the painter's transform as it came; the same to stored pixels
  TRasterRect FOuterBox;                           // what the painter's own clip leaves of the picture
  // What the painter is set to.
  Region FClip;
  Matrix FTransform;
  TGrid FGrid = TGrid::Centers;
  bool FHasTransform = false;
  SmoothingMode FSmoothing = SmoothingModeNone;
  bool FHasMask = false;
  bool FIsPainterClipped = true;
  TRasterRect FClipBox;
  TClipMask FMask;
};

}  // namespace zy
