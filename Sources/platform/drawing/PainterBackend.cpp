#include "platform/drawing/PainterBackend.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <algorithm>
#include <cmath>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/GradientStops.h"
#include "platform/drawing/KeptSegments.h"
#include "platform/drawing/LineCaps.h"
#include "platform/drawing/PainterShapes.h"
#include "platform/drawing/Pen.h"
#include "platform/drawing/QtGeometry.h"
#include "platform/drawing/ZyRasterSum.h"
#include "platform/framework/WideRegisters.h"

namespace zy {
namespace {

/// End moved half a pixel away from Before, along the axis on which the line steps from pixel to pixel, so that the
/// pixel at the end is covered in full.
QPointF WithWholePixel(const QPointF& End, const QPointF& Before) {
  const QPointF Way = End - Before;
  const double Longest = std::max(std::abs(Way.x()), std::abs(Way.y()));
  return Longest > 0 ? End + Way * (0.5 / Longest) : End;
}

thread_local int Painting = 0;  // backends of the thread

}  // namespace

/// Each paint of a window is glad of the memory of the last one. That of a poster may be many times what the program
/// needs otherwise, and goes as soon as the thread paints something smaller.
void TPainterBackend::ReleasePoster(const QImage& Picture) {
  constexpr std::int64_t LargestScreen = 1 << 24;  // pixels
  thread_local bool WasPoster = false;
  const bool IsPoster = std::int64_t{Picture.width()} * Picture.height() > LargestScreen;
  if (WasPoster && !IsPoster) {
    TZyRaster::ReleaseMemory();
    TRasterSum::ReleaseMemory();
    TClipMask::ReleaseMemory();
    OwnSegments() = {};
  }
  WasPoster = IsPoster;
}

TPainterBackend::TPainterBackend(Bitmap& Target)
    : FOwnPainter(std::make_unique<QPainter>(&Target.ToQt())), FPainter(FOwnPainter.get()) {
  Begin();
}

TPainterBackend::TPainterBackend(QPainter& Target) : FPainter(&Target) { Begin(); }

TPainterBackend::~TPainterBackend() {
  Settle();
  FPainter->restore();
  --Painting;
}

// The painter as it came stays on its own stack throughout: its clip cannot be widened, only gone back to.
void TPainterBackend::Begin() {
  ++Painting;
  FBase = std::make_unique<QTransform>(FPainter->worldTransform());
  FDeviceBase = std::make_unique<QTransform>(FPainter->deviceTransform());
  FPainter->save();
  auto* const Picture =
      FPainter->device()->devType() == QInternal::Image ? static_cast<QImage*>(FPainter->device()) : nullptr;
  if (Picture == nullptr || Picture->format() != QImage::Format_ARGB32_Premultiplied) return;
  if (FPainter->opacity() != 1 || FPainter->compositionMode() != QPainter::CompositionMode_SourceOver) return;
  FOuterBox = {0, 0, Picture->width(), Picture->height()};
  if (FPainter->hasClipping()) {
    const QTransform ToDevice = *FDeviceBase;
    const QRegion Clip = FPainter->clipRegion();
    if (!KeepsBoxes(ToDevice) || Clip.rectCount() != 1) return;  // the picture's own clip counts as well
    FOuterBox = Intersection(FOuterBox, WholePixels(ToDevice.mapRect(QRectF(Clip.boundingRect()))));
  }
  FClipBox = FOuterBox;
  FImage = Picture;
  if (Painting == 1) ReleasePoster(*Picture);  // stamps are made within a paint
}

QTransform TPainterBackend::WorldTransform(const TDrawState& State, TGrid Grid) const {
  const double Offset = Grid == TGrid::Centers ? 0.5 : 0.0;
  return AsQt(State.Transform) * QTransform::fromTranslate(Offset, Offset) * *FBase;
}

Matrix TPainterBackend::DeviceTransform(const TDrawState& State, TGrid Grid) const {
  const double Offset = Grid == TGrid::Centers ? 0.5 : 0.0;
  return FromQt(AsQt(State.Transform) * QTransform::fromTranslate(Offset, Offset) * *FDeviceBase);
}

// --- Clip -----------------------------------------------------------------------------------------------------------

void TPainterBackend::Prepare(const TDrawState& State) {
  if (!(FClip == State.Clip)) ApplyClip(State.Clip);
  if (FSmoothing == State.Smoothing) return;
  FSmoothing = State.Smoothing;
  FPainter->setRenderHint(QPainter::Antialiasing, FSmoothing != SmoothingModeNone);
}

void TPainterBackend::ApplyClip(const Region& Clip) {
  FClip = Clip;
  FHasMask = false;
  FClipBox = FOuterBox;
  FIsPainterClipped = false;
  if (FImage == nullptr) return ClipPainter();
  for (const Region::TPart& Part : Clip.Parts()) {
    if (IsBox(Part)) {
      const QTransform Place = AsQt(Part.Transform) * *FDeviceBase;
      FClipBox = Intersection(FClipBox, WholePixels(Place.mapRect(AsQt(Part.Rect))));
    } else {
      FHasMask = true;
    }
  }
  if (FHasMask) FMask.Update(Clip, *FDeviceBase, FImage->width(), FImage->height());
}

/// Whether a part of the clip is a box of pixels.
bool TPainterBackend::IsBox(const Region::TPart& Part) const {
  return !Part.IsExcluded && Part.IsRect && KeepsBoxes(AsQt(Part.Transform) * *FDeviceBase);
}

/// Gives the toolkit's painter the clip, once it is to draw.
void TPainterBackend::ClipPainter() {
  Settle();
  if (FIsPainterClipped) return;
  FIsPainterClipped = true;
  FPainter->restore();
  FPainter->save();
  FPainter->setRenderHint(QPainter::Antialiasing, FSmoothing != SmoothingModeNone);
  FHasTransform = false;
  if (FImage == nullptr) return ApplyVectorClip(FClip);
  for (const Region::TPart& Part : FClip.Parts()) {
    if (!IsBox(Part)) continue;
    FPainter->setWorldTransform(AsQt(Part.Transform) * *FBase);
    FPainter->setClipRect(AsQt(Part.Rect), Qt::IntersectClip);
  }
}

TRasterClip TPainterBackend::RasterClip() const {
  TRasterClip Clip{FClipBox, nullptr, 0};
  if (FHasMask) {
    Clip.Mask = FMask.Bytes();
    Clip.MaskStride = FMask.Stride();
  }
  return Clip;
}

// --- Painting -------------------------------------------------------------------------------------------------------

/// The toolkit's painter with clip and transform.
QPainter& TPainterBackend::PreparedPainter(const TDrawState& State, TGrid Grid) {
  ClipPainter();
  if (!FHasTransform || FGrid != Grid || !(FTransform == State.Transform)) {
    FPainter->setWorldTransform(WorldTransform(State, Grid));
    FTransform = State.Transform;
    FGrid = Grid;
    FHasTransform = true;
  }
  return *FPainter;
}

void TPainterBackend::PaintLayer(const TDrawState& State, TGrid Grid, const std::function<void(QPainter&)>& Paint) {
  if (FClipBox.IsEmpty()) return;
  QImage Layer(FClipBox.Right - FClipBox.Left, FClipBox.Bottom - FClipBox.Top, QImage::Format_ARGB32_Premultiplied);
  Layer.fill(0);
  ClearWideRegisters();
  {
    QPainter Painter(&Layer);
    Painter.setRenderHints(FPainter->renderHints());
    Painter.setWorldTransform(AsQt(DeviceTransform(State, Grid)) *
                              QTransform::fromTranslate(-FClipBox.Left, -FClipBox.Top));
    Paint(Painter);
  }
  const auto Left = static_cast<float>(FClipBox.Left), Top = static_cast<float>(FClipBox.Top);
  const auto Right = static_cast<float>(FClipBox.Right), Bottom = static_cast<float>(FClipBox.Bottom);
  const PointF Corners[] = {{Left, Top}, {Right, Top}, {Right, Bottom}, {Left, Bottom}};
  TZyRaster(SettledPixels(), RasterClip())
      .FillPolygon(Corners, true, TPicturePaint(std::move(Layer), FClipBox.Left, FClipBox.Top));
}

/// DeviceTransform for gradients, which have their colours at the centres of pixels for boxes, too.
QTransform TPainterBackend::GradientTransform(const TDrawState& State, TGrid Grid) const {
  if (Grid == TGrid::Centers) return AsQt(DeviceTransform(State, Grid));
  return AsQt(State.Transform) * *FDeviceBase * QTransform::fromTranslate(0.5, 0.5);
}

/// Moves what has its colours at the centres of pixels to where boxes count from. Pages have the pixels that they show
/// to the program.
QTransform TPainterBackend::ToCorners(const TDrawState& State) const {
  const QTransform Transform = FImage != nullptr ? AsQt(State.Transform) * *FDeviceBase : AsQt(State.Transform);
  return Transform * QTransform::fromTranslate(0.5, 0.5) * Transform.inverted();
}

/// The toolkit's brush for a painter under the state's transform, within a box in its coordinates. Hatches keep to the
/// pixels whatever the transform; gradients have their colours at the centres of pixels for boxes, too.
QBrush TPainterBackend::BrushOf(const TDrawState& State, TGrid Grid, const Brush& Brush, const RectF& Box) const {
  QBrush Result = Brush.ToQt(Box);
  if (IsSolid(Brush)) return Result;
  const bool IsPlaced = Result.gradient() != nullptr || Result.style() == Qt::TexturePattern;
  if (IsPlaced && Grid == TGrid::Corners) Result.setTransform(Result.transform() * ToCorners(State));
  if (IsHatch(Brush)) {
    // In the pixels of a picture; on paper in the units that its painter came with.
    const QTransform World = WorldTransform(State, Grid);
    Result.setTransform(FImage != nullptr ? World.inverted() : *FBase * World.inverted());
  }
  if (FImage != nullptr) return Result;
  const QPaintDevice& Page = *FPainter->device();
  return WithCountablePeriods(WithOnePeriod(Result, AsQt(Box), AsQt(State.Transform)),
                              AsQt(DeviceTransform(State, Grid)), QRectF(0, 0, Page.width(), Page.height()));
}

/// Fills an empty picture, which lies at ToPicture, seen from the state's coordinates. Box is what the brush is for.
void TPainterBackend::PaintBrush(QImage& Picture, const QTransform& ToPicture, const TDrawState& State, TGrid Grid,
                                 const Brush& Brush, const RectF& Box) const {
  bool Invertible = false;
  const QRectF Whole = ToPicture.inverted(&Invertible).mapRect(QRectF(Picture.rect())).adjusted(-1, -1, 1, 1);
  if (!Invertible) return;
  if (const auto* const Fan = AsFan(Brush))
    return Fan->PaintFan(Picture, Grid == TGrid::Corners ? ToCorners(State) * ToPicture : ToPicture);
  QPainter Painter(&Picture);
  Painter.setRenderHint(QPainter::SmoothPixmapTransform, !IsHatch(Brush));
  Painter.setWorldTransform(ToPicture);
  Painter.fillRect(Whole, BrushOf(State, Grid, Brush, Box));
}

void TPainterBackend::Draw(const TDrawState& State, const Pen& Pen, const TShape& Shape) {
  Prepare(State);
  const std::optional<TShapedLines> Shaped = ShapeEnds(Pen, Shape);
  if (!Shaped) return DrawPlain(State, Pen, Shape);
  const zy::Pen Plain = WithPlainEnds(Pen);
  for (const std::vector<PointF>& Line : Shaped->Lines) DrawPlain(State, Plain, TShape::Line(Line));
  if (!Shaped->Fill.IsEmpty()) Fill(State, Pen.GetBrush(), TShape::Of(Shaped->Fill));
  if (!Shaped->Stroke.IsEmpty()) DrawPlain(State, Plain, TShape::Of(Shaped->Stroke));
}

void TPainterBackend::DrawPlain(const TDrawState& State, const Pen& Pen, const TShape& Shape) {
  if (StrokeByRaster(State, Pen, Shape)) return;
  const float Reach = std::max(Pen.GetMiterLimit(), 2.0f);  // of caps and mitres, in widths
  const bool Smooth = State.Smoothing != SmoothingModeNone;
  if (NeedsPicture(Pen.GetBrush()) || (FImage != nullptr && Smooth && IsGradient(Pen.GetBrush())))
    return FillOutline(State, Pen, Shape);
  PaintWithPainter(State, TGrid::Centers, [&](QPainter& Painter) {
    QPen Stroke = Pen.ToQt();
    if (HasCountlessDashes(Pen, Shape)) Stroke.setStyle(Qt::SolidLine);
    const RectF Box = IsSolid(Pen.GetBrush()) ? RectF{} : ExtentOf(Shape, Pen.EffectiveWidth() * Reach);
    Stroke.setBrush(BrushOf(State, TGrid::Centers, Pen.GetBrush(), Box));
    // The toolkit's short cut for thin lines leaves a quarter out of each corner; what is wider by a hair is joined.
    constexpr double BarelyWide = 1.0001;
    if (Smooth && Shape.Kind == TShape::Rectangle) Stroke.setWidthF(std::max(Stroke.widthF(), BarelyWide));
    Painter.setPen(Stroke);
    Painter.setBrush(Qt::NoBrush);
    if (Shape.Kind != TShape::Lines || Smooth) return PaintShape(Painter, Shape);
    QPolygonF Line = AsQt(Shape.Points);
    if (Line.front() != Line.back()) {
      const QPointF First = WithWholePixel(Line[0], Line[1]);
      Line.back() = WithWholePixel(Line.back(), Line[Line.size() - 2]);
      Line.front() = First;
    }
    Painter.drawPolyline(Line);
  });
}

/// What no printer and no file can be told: translucent gradients, and gradients of shapes that are no ellipse.
bool TPainterBackend::NeedsPicture(const Brush& Brush) const {
  if (FImage != nullptr || IsSolid(Brush)) return false;
  return AsFan(Brush) != nullptr || (!IsHatch(Brush) && !Brush.ToQt({}).isOpaque());
}

/// The area that a pen covers, filled with its brush.
void TPainterBackend::FillOutline(const TDrawState& State, const Pen& Pen, const TShape& Shape) {
  zy::Pen Stroke = Pen;
  if (HasCountlessDashes(Pen, Shape)) Stroke.SetDashStyle(DashStyleSolid);
  GraphicsPath Outline = Shape.AsPath();
  Outline.Widen(Stroke);
  Fill(State, Pen.GetBrush(), TShape::Of(Outline));
}

/// A brush is painted into a picture that is shown through the shape.
bool TPainterBackend::FillByPicture(const TDrawState& State, const Brush& Brush, const TShape& Shape) {
  if (!NeedsPicture(Brush)) return false;
  const TGrid Grid = Shape.Kind == TShape::Rectangle ? TGrid::Corners : TGrid::Centers;
  constexpr double Finer = 3, LargestSide = 3000;  // pixels of the picture
  const QPainterPath Outline = Shape.AsPath().ToQt();
  const QRectF Extent = Outline.boundingRect();
  QRectF Box = Extent;
  // Some viewers stretch pictures to whole pixels; this one is some at the page's own size.
  const double Offset = Grid == TGrid::Centers ? 0.5 : 0.0;
  const QTransform ToPage = AsQt(State.Transform) * QTransform::fromTranslate(Offset, Offset);
  const QRectF Place = ToPage.mapRect(Box);
  constexpr double Near = 1e6;  // nor is what is no number
  const bool IsNear = Place.left() > -Near && Place.right() < Near && Place.top() > -Near && Place.bottom() < Near;
  if (IsNear && ToPage.type() <= QTransform::TxScale && ToPage.isInvertible())
    Box = ToPage.inverted().mapRect(QRectF(Place.toAlignedRect()));
  const double Side = std::max(Box.width(), Box.height());
  if (!(Side > 0)) return true;
  const double Scale = std::min(Finer, LargestSide / Side);
  QImage Picture((Box.size() * Scale).toSize().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
  Picture.fill(0);
  ClearWideRegisters();
  const QTransform ToPicture = QTransform::fromTranslate(-Box.left(), -Box.top()) *
                               QTransform::fromScale(Picture.width() / std::max(Box.width(), 1 / Scale),
                                                     Picture.height() / std::max(Box.height(), 1 / Scale));
  PaintBrush(Picture, ToPicture, State, Grid, Brush, FromQt(Extent));
  PaintWithPainter(State, Grid, [&](QPainter& Painter) {
    Painter.save();
    Painter.setClipPath(Outline, Qt::IntersectClip);
    Painter.setBrush(Qt::NoBrush);
    Painter.setRenderHint(QPainter::LosslessImageRendering);  // colours, too, when a PDF file would smear them
    Painter.setRenderHint(QPainter::SmoothPixmapTransform, IsGradient(Brush));  // both tell EmfDevice of a gradient
    Painter.drawImage(Box, Picture);
    Painter.restore();
  });
  return true;
}

void TPainterBackend::Fill(const TDrawState& State, const Brush& Brush, const TShape& Shape) {
  Prepare(State);
  if (FillBox(State, Brush, Shape) || FillByRaster(State, Brush, Shape) || FillByPicture(State, Brush, Shape)) return;
  const TGrid Grid = Shape.Kind == TShape::Rectangle ? TGrid::Corners : TGrid::Centers;
  PaintWithPainter(State, Grid, [&](QPainter& Painter) {
    if (!IsSolid(Brush)) Painter.setRenderHint(QPainter::SmoothPixmapTransform, !IsHatch(Brush));
    const bool NeedsBox = FImage == nullptr && IsGradient(Brush);
    const QBrush Fill = BrushOf(State, Grid, Brush, NeedsBox ? FromQt(Shape.AsPath().ToQt().boundingRect()) : RectF{});
    if (Shape.Kind == TShape::Rectangle) return Painter.fillRect(AsQt(Shape.Rect), Fill);
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(Fill);
    PaintShape(Painter, Shape);
  });
}

void TPainterBackend::DrawImage(const TDrawState& State, const Bitmap& Picture, const RectF& To, const RectF& From) {
  Prepare(State);
  const double Ratio = Picture.GetPixelRatio();
  const QRectF Source(From.X * Ratio, From.Y * Ratio, From.Width * Ratio, From.Height * Ratio);
  PaintWithPainter(State, TGrid::Corners, [&](QPainter& Painter) {
    Painter.setRenderHint(QPainter::SmoothPixmapTransform);
    Painter.setBrush(Qt::NoBrush);  // PDF files give a picture the opacity of the brush
    Painter.setPen(Qt::SolidLine);
    Painter.drawImage(AsQt(To), Picture.ToQt(), Source);
  });
}

void TPainterBackend::Clear(const TDrawState& State, ARGB Color) {
  Prepare(State);
  if (FHasMask) return ClearThroughMask(Color);
  ClipPainter();
  FPainter->save();
  FPainter->resetTransform();
  FPainter->setCompositionMode(QPainter::CompositionMode_Source);
  FPainter->fillRect(FPainter->window(), QColor::fromRgba(Color));
  FPainter->restore();
}

QPainter* TPainterBackend::GetHDC(const TDrawState& State) {
  Prepare(State);
  ClipPainter();
  FPainter->save();
  FPainter->setWorldTransform(WorldTransform(State, TGrid::Corners));
  return FPainter;
}

void TPainterBackend::ReleaseHDC() { FPainter->restore(); }

void TPainterBackend::ClearThroughMask(ARGB Color) {
  Settle();
  const ARGB Premultiplied = qPremultiply(Color);
  for (int Y = FClipBox.Top; Y < FClipBox.Bottom; ++Y) {
    auto* const Row = reinterpret_cast<QRgb*>(FImage->scanLine(Y));
    const std::uint8_t* const Mask = FMask.Bytes() + static_cast<std::ptrdiff_t>(Y) * FMask.Stride();
    for (int X = FClipBox.Left; X < FClipBox.Right; ++X)
      Row[X] = Mix(Row[X], Premultiplied, static_cast<float>(Mask[X]) / 255);
  }
}

}  // namespace zy
