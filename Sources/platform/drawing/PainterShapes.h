#pragma once

#include <QImage>
#include <QPainter>
#include <QTransform>
#include <algorithm>
#include <optional>
#include <span>
#include <vector>

#include "platform/drawing/GraphicsBackend.h"
#include "platform/drawing/Pen.h"
#include "platform/drawing/ZyRaster.h"

// What the painter's backend asks of shapes, brushes and pixels. For its own sources.

namespace zy {

class PathGradientBrush;

/// Whether a rectangle stays one with upright edges.
bool KeepsBoxes(const QTransform& Transform);

/// The whole pixels of a box, as the toolkit's painter clips to them. Far ends saturate.
TRasterRect WholePixels(const QRectF& Rect);

/// The picture for the rasteriser.
TRasterTarget TargetOf(QImage& Picture);

/// Kinds of brushes.
bool IsSolid(const Brush& Brush);
bool IsHatch(const Brush& Brush);
/// Those go through the rasteriser where they can: the toolkit shares the spans of a gradient out to threads, which
/// takes longer than the drawing of most shapes.
bool IsGradient(const Brush& Brush);
/// The brush as a fan of colours; null for any other.
const PathGradientBrush* AsFan(const Brush& Brush);

/// The shape as an upright box; nothing for any other.
std::optional<RectF> BoxOf(const TShape& Shape);

/// The box of a shape, with the half of Width on every side and some pixels to spare.
RectF ExtentOf(const TShape& Shape, float Width);

/// Has the toolkit's painter draw the shape.
void PaintShape(QPainter& Painter, const TShape& Shape);

/// The figures of a shape in stored pixels, until the next call.
std::span<const std::vector<PointF>> FiguresOf(const Matrix& Device, const TShape& Shape);

/// The whole pixels around some points, Margin pixels wider on every side. Points that are not finite do not count.
TRasterRect BoundsOf(std::span<const std::vector<PointF>> Figures, float Margin);

/// Whether it is a single level or upright line, and so a box.
bool IsLevel(std::span<const PointF> Points);

float LengthOf(std::span<const PointF> Points);

/// Whether a line has more dashes than any eye could tell apart, and the toolkit would be busy with for minutes or for
/// ever: such a line is drawn solid.
bool HasCountlessDashes(const Pen& Pen, const TShape& Shape);

/// Pixels of a picture that lies at a place of the target.
class TPicturePaint : public TRasterPaint {
 public:
  TPicturePaint(QImage Picture, int Left, int Top) : FPicture(std::move(Picture)), FLeft(Left), FTop(Top) {}
  void Fetch(int X, int Y, int Count, std::uint32_t* Pixels) const override {
    const int From = std::max(X, FLeft), To = std::min(X + Count, FLeft + FPicture.width());
    std::fill_n(Pixels, Count, 0u);  // what is asked for may begin beyond the picture, where nothing is covered
    if (Y < FTop || Y >= FTop + FPicture.height() || From >= To) return;
    const auto* const Row = reinterpret_cast<const std::uint32_t*>(FPicture.constScanLine(Y - FTop));
    std::copy(Row + (From - FLeft), Row + (To - FLeft), Pixels + (From - X));
  }

 private:
  QImage FPicture;
  int FLeft;
  int FTop;
};

}  // namespace zy
