#include "platform/drawing/PainterBackend.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/GradientStops.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/LineCaps.h"
#include "platform/drawing/Pen.h"
#include "platform/drawing/QtGeometry.h"
#include "platform/drawing/QtText.h"
#include "platform/drawing/ZySymbolStamps.h"

namespace zy {
namespace {

constexpr std::size_t FewestCornersForRaster = 64;  // of a polygon; below, the toolkit is as fast

/// End moved half a pixel away from Before, along the axis on which the line steps from pixel to pixel, so that the
/// pixel at the end is covered in full.
QPointF WithWholePixel(const QPointF& End, const QPointF& Before) {
  const QPointF Way = End - Before;
  const double Longest = std::max(std::abs(Way.x()), std::abs(Way.y()));
  return Longest > 0 ? End + Way * (0.5 / Longest) : End;
}

/// Whether a rectangle stays one with upright edges.
bool KeepsBoxes(const QTransform& Transform) {
  return Transform.type() <= QTransform::TxScale ||
         (Transform.type() == QTransform::TxRotate && Transform.m11() == 0 && Transform.m22() == 0);
}

/// The whole pixels of a box, as the toolkit's painter clips to them. Far ends saturate.
TRasterRect WholePixels(const QRectF& Rect) {
  const auto Pixel = [](double Value) { return static_cast<int>(std::lround(std::clamp(Value, -1e6, 1e6))); };
  return {Pixel(Rect.left()), Pixel(Rect.top()), Pixel(Rect.right()), Pixel(Rect.bottom())};
}

/// Pixels of a picture that lies at a place of the target.
class TPicturePaint : public TRasterPaint {
 public:
  TPicturePaint(QImage Picture, int Left, int Top) : FPicture(std::move(Picture)), FLeft(Left), FTop(Top) {}
  void Fetch(int X, int Y, int Count, std::uint32_t* Pixels) const override {
    const bool IsInside =
        Y >= FTop && Y < FTop + FPicture.height() && X >= FLeft && X + Count <= FLeft + FPicture.width();
    if (!IsInside) return static_cast<void>(std::fill_n(Pixels, Count, 0u));
    const auto* const Row = reinterpret_cast<const std::uint32_t*>(FPicture.constScanLine(Y - FTop));
    std::copy_n(Row + (X - FLeft), Count, Pixels);
  }

 private:
  QImage FPicture;
  int FLeft;
  int FTop;
};

bool IsSolid(const Brush& Brush) { return dynamic_cast<const SolidBrush*>(&Brush) != nullptr; }

bool IsHatch(const Brush& Brush) { return dynamic_cast<const HatchBrush*>(&Brush) != nullptr; }

TRasterTarget TargetOf(QImage& Picture) {
  return {reinterpret_cast<std::uint32_t*>(Picture.bits()), Picture.bytesPerLine() / 4, Picture.width(),
          Picture.height()};
}

TRasterCap CapOf(LineCap Cap) {
  return Cap == LineCapSquare ? TRasterCap::Square : Cap == LineCapRound ? TRasterCap::Round : TRasterCap::Flat;
}

TRasterJoin JoinOf(LineJoin Join) {
  return Join == LineJoinMiter   ? TRasterJoin::MiterCut
         : Join == LineJoinBevel ? TRasterJoin::Bevel
                                 : TRasterJoin::Round;
}

/// The shape for the toolkit's painter.
void PaintShape(QPainter& Painter, const TShape& Shape) {
  switch (Shape.Kind) {
    case TShape::Lines:
      return Painter.drawPolyline(AsQt(Shape.Points));
    case TShape::Polygon:
      return Painter.drawPolygon(AsQt(Shape.Points), Shape.Mode == FillModeWinding ? Qt::WindingFill : Qt::OddEvenFill);
    case TShape::Rectangle:
      return Painter.drawRect(AsQt(Shape.Rect));
    case TShape::Ellipse:
      return Painter.drawEllipse(AsQt(Shape.Rect));
    case TShape::Pie:
      return Painter.drawPath(Shape.AsPath().ToQt());  // a path: the toolkit's pies count angles in sixteenths
    case TShape::Path:
      return Painter.drawPath(Shape.Outline->ToQt());
  }
}

}  // namespace

TPainterBackend::TPainterBackend(Bitmap& Target)
    : FOwnPainter(std::make_unique<QPainter>(&Target.ToQt())), FPainter(FOwnPainter.get()) {
  Begin();
}

TPainterBackend::TPainterBackend(QPainter& Target) : FPainter(&Target) { Begin(); }

TPainterBackend::~TPainterBackend() { FPainter->restore(); }

// The painter as it came stays on its own stack throughout: its clip cannot be widened, only gone back to.
void TPainterBackend::Begin() {
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

/// A clip of paths, for printers and files. Shapes that are cut out are gathered into paths in which none overlaps
/// another, since a path is turned inside out as a whole.
void TPainterBackend::ApplyVectorClip(const Region& Clip) {
  constexpr double Everywhere = 1e6;
  struct TGroup {
    QPainterPath Path;
    std::vector<QRectF> Boxes;
  };
  std::vector<TGroup> Groups;
  FPainter->setWorldTransform(*FBase);
  for (const Region::TPart& Part : Clip.Parts()) {
    QPainterPath Shape;
    if (Part.Nested != nullptr) continue;  // cut out as a whole: no printer's clip can say it
    if (Part.IsRect)
      Shape.addRect(AsQt(Part.Rect));
    else
      Shape = QTransform::fromTranslate(0.5, 0.5).map(Part.Path->ToQt());
    Shape = AsQt(Part.Transform).map(Shape);
    if (!Part.IsExcluded) {
      FPainter->setClipPath(Shape, Qt::IntersectClip);
      continue;
    }
    const QRectF Box = Shape.boundingRect();
    auto Group = std::find_if(Groups.begin(), Groups.end(), [&Box](const TGroup& Known) {
      return std::none_of(Known.Boxes.begin(), Known.Boxes.end(),
                          [&Box](const QRectF& B) { return B.intersects(Box); });
    });
    if (Group == Groups.end()) {
      Group = Groups.emplace(Groups.end());
      Group->Path.addRect(-Everywhere, -Everywhere, 2 * Everywhere, 2 * Everywhere);
    }
    Group->Path.addPath(Shape);
    Group->Boxes.push_back(Box);
  }
  for (const TGroup& Group : Groups) FPainter->setClipPath(Group.Path, Qt::IntersectClip);
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

/// Lets the toolkit's painter paint: directly, or, under a mask, into a layer that is then put onto the picture through
/// the mask.
template <class TPaint>
void TPainterBackend::PaintWithPainter(const TDrawState& State, TGrid Grid, const TPaint& Paint) {
  if (FHasMask) return PaintLayer(State, Grid, Paint);
  ClipPainter();
  if (!FHasTransform || FGrid != Grid || !(FTransform == State.Transform)) {
    FPainter->setWorldTransform(WorldTransform(State, Grid));
    FTransform = State.Transform;
    FGrid = Grid;
    FHasTransform = true;
  }
  Paint(*FPainter);
}

void TPainterBackend::PaintLayer(const TDrawState& State, TGrid Grid, const std::function<void(QPainter&)>& Paint) {
  if (FClipBox.IsEmpty()) return;
  QImage Layer(FClipBox.Right - FClipBox.Left, FClipBox.Bottom - FClipBox.Top, QImage::Format_ARGB32_Premultiplied);
  Layer.fill(0);
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
  TZyRaster(TargetOf(*FImage), RasterClip())
      .FillPolygon(Corners, true, TPicturePaint(std::move(Layer), FClipBox.Left, FClipBox.Top));
}

/// The toolkit's brush for a painter under the state's transform. Hatches keep to the pixels whatever the transform;
/// gradients have their colours at the centres of pixels for boxes, too.
QBrush TPainterBackend::BrushOf(const TDrawState& State, TGrid Grid, const Brush& Brush) const {
  QBrush Result = Brush.ToQt();
  if (IsSolid(Brush)) return Result;
  const bool IsPlaced = Result.gradient() != nullptr || Result.style() == Qt::TexturePattern;
  if (IsPlaced && Grid == TGrid::Corners) {
    const QTransform Transform = AsQt(State.Transform);
    Result.setTransform(Result.transform() * Transform * QTransform::fromTranslate(0.5, 0.5) * Transform.inverted());
  }
  if (IsHatch(Brush)) {
    // In the pixels of a picture; on paper in the units that its painter came with.
    const QTransform World = WorldTransform(State, Grid);
    Result.setTransform(FImage != nullptr ? World.inverted() : *FBase * World.inverted());
  }
  return Result;
}

namespace {

/// The whole pixels around some points, Margin pixels wider on every side. Points that are not finite do not count.
TRasterRect BoundsOf(std::span<const std::vector<PointF>> Figures, float Margin) {
  double Left = HUGE_VAL, Top = HUGE_VAL, Right = -HUGE_VAL, Bottom = -HUGE_VAL;
  for (const auto& Figure : Figures)
    for (const PointF& Point : Figure) {
      if (!AreFinite({Point.X, Point.Y})) continue;
      Left = std::min<double>(Left, Point.X);
      Right = std::max<double>(Right, Point.X);
      Top = std::min<double>(Top, Point.Y);
      Bottom = std::max<double>(Bottom, Point.Y);
    }
  const double Room = static_cast<double>(Margin) + 1;
  return WholePixels(QRectF(QPointF(Left - Room, Top - Room), QPointF(Right + Room, Bottom + Room)));
}

}  // namespace

/// What figures are filled with, within Margin of their points.
class TPainterBackend::TInk {
 public:
  TInk(TPainterBackend& Backend, const TDrawState& State, TGrid Grid, const Brush& Brush,
       std::span<const std::vector<PointF>> Figures, float Margin) {
    if (const auto* const Solid = dynamic_cast<const SolidBrush*>(&Brush))
      FSolid.emplace(Solid->GetColor());
    else
      FPicture = Backend.PictureOf(State, Grid, Brush, BoundsOf(Figures, Margin));
  }
  /// Null when nothing shows.
  const TRasterPaint* Get() const { return FSolid ? &*FSolid : FPicture.get(); }

 private:
  std::optional<TSolidPaint> FSolid;
  std::unique_ptr<TRasterPaint> FPicture;
};

std::unique_ptr<TRasterPaint> TPainterBackend::PictureOf(const TDrawState& State, TGrid Grid, const Brush& Brush,
                                                         TRasterRect Box) {
  Box = Intersection(Box, FClipBox);
  if (Box.IsEmpty()) return nullptr;
  QImage Picture(Box.Right - Box.Left, Box.Bottom - Box.Top, QImage::Format_ARGB32_Premultiplied);
  Picture.fill(0);
  QPainter Painter(&Picture);
  Painter.setRenderHint(QPainter::SmoothPixmapTransform, !IsHatch(Brush));
  const QTransform World = AsQt(DeviceTransform(State, Grid)) * QTransform::fromTranslate(-Box.Left, -Box.Top);
  bool Invertible = false;
  const QRectF Whole = World.inverted(&Invertible).mapRect(QRectF(Picture.rect()));
  if (!Invertible) return nullptr;
  Painter.setWorldTransform(World);
  Painter.fillRect(Whole.adjusted(-1, -1, 1, 1), BrushOf(State, Grid, Brush));
  Painter.end();
  return std::make_unique<TPicturePaint>(std::move(Picture), Box.Left, Box.Top);
}

namespace {

/// The figures of a shape in stored pixels, until the next call.
std::span<const std::vector<PointF>> FiguresOf(const Matrix& Device, const TShape& Shape) {
  thread_local std::vector<std::vector<PointF>> Figures;  // kept for their memory
  if (Shape.Kind == TShape::Lines || Shape.Kind == TShape::Polygon) {
    Figures.resize(1);
    Figures[0].clear();
    for (const PointF& Point : Shape.Points) Figures[0].push_back(Device.TransformPoint(Point));
  } else {
    Figures = Shape.AsPath().Flatten(Device);
  }
  return Figures;
}

/// A single level or upright line, which the toolkit draws as a box.
bool IsLevel(std::span<const PointF> Points) {
  return Points.size() == 2 && (Points[0].X == Points[1].X || Points[0].Y == Points[1].Y);
}

float LengthOf(std::span<const PointF> Points) {
  float Length = 0;
  for (std::size_t Index = 1; Index < Points.size(); ++Index) {
    const float X = Points[Index].X - Points[Index - 1].X, Y = Points[Index].Y - Points[Index - 1].Y;
    Length += std::sqrt(X * X + Y * Y);
  }
  return Length;
}

/// Whether a line has more dashes than any eye could tell apart, and the toolkit would be busy with for minutes or for
/// ever: such a line is drawn solid.
bool HasCountlessDashes(const Pen& Pen, const TShape& Shape) {
  constexpr float MaxDashes = 250'000;
  const std::vector<float> Dashes = Pen.DashPattern();
  if (Dashes.empty()) return false;
  float Length = 0;
  for (const auto& Figure : FiguresOf(Matrix(), Shape)) Length += LengthOf(Figure);
  const float Pattern = std::accumulate(Dashes.begin(), Dashes.end(), 0.0f) * Pen.EffectiveWidth();
  return !(Length * static_cast<float>(Dashes.size()) <= MaxDashes * Pattern);  // not so for what is no number either
}

}  // namespace

void TPainterBackend::Draw(const TDrawState& State, const Pen& Pen, const TShape& Shape) {
  Prepare(State);
  if (Shape.Kind != TShape::Lines || !HasShapedEnds(Pen)) return DrawPlain(State, Pen, Shape);
  const TShapedLine Line = ShapeLine(Pen, Shape.Points);
  const zy::Pen Plain = WithPlainEnds(Pen);
  TShape Rest = Shape;
  Rest.Points = Line.Points;
  if (Line.Points.size() >= 2) DrawPlain(State, Plain, Rest);
  TShape Ends;
  Ends.Kind = TShape::Path;
  if (!Line.Fill.IsEmpty()) {
    Ends.Outline = &Line.Fill;
    Fill(State, Pen.GetBrush(), Ends);
  }
  if (!Line.Stroke.IsEmpty()) {
    Ends.Outline = &Line.Stroke;
    DrawPlain(State, Plain, Ends);
  }
}

void TPainterBackend::DrawPlain(const TDrawState& State, const Pen& Pen, const TShape& Shape) {
  if (StrokeByRaster(State, Pen, Shape)) return;
  const bool Smooth = State.Smoothing != SmoothingModeNone;
  PaintWithPainter(State, TGrid::Centers, [&](QPainter& Painter) {
    QPen Stroke = Pen.ToQt();
    if (HasCountlessDashes(Pen, Shape)) Stroke.setStyle(Qt::SolidLine);
    Stroke.setBrush(BrushOf(State, TGrid::Centers, Pen.GetBrush()));
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

bool TPainterBackend::StrokeByRaster(const TDrawState& State, const Pen& Pen, const TShape& Shape) {
  if (FImage == nullptr || State.Smoothing == SmoothingModeNone) return false;
  const Matrix Device = DeviceTransform(State, TGrid::Centers);
  const auto Scale = static_cast<float>(Device.UniformScale());
  if (Scale == 0) return false;
  const bool IsLine = Shape.Kind == TShape::Lines || Shape.Kind == TShape::Polygon;
  const float Width = Pen.EffectiveWidth() * Scale;
  if (!FHasMask) {
    if (!IsLine) return false;
    if (IsLevel(Shape.Points) && Width >= 1 && StrokeBox(Pen, Shape, Device, Width)) return true;
    if (StrokeThin(Pen, Shape, Device, Width)) return true;
    if (IsLevel(Shape.Points)) return false;
    if (!FillsColumns(Shape.Points, Pen.EffectiveWidth()) &&
        !RasterPays(Shape.Points.size() - 1, Width, LengthOf(Shape.Points) * Scale))
      return false;
  }
  const std::span<const std::vector<PointF>> Figures = FiguresOf(Device, Shape);
  std::vector<float> Dashes = Pen.DashPattern();
  for (float& Length : Dashes) Length *= Width;
  TRasterStroke Stroke;
  Stroke.Width = Width;
  Stroke.Join = JoinOf(Pen.GetLineJoin());
  Stroke.MiterLimit = Pen.GetMiterLimit();
  Stroke.StartCap = Stroke.EndCap = Stroke.DashCap = CapOf(Pen.GetEndCap());
  Stroke.Dashes = Dashes;
  const TInk Paint(*this, State, TGrid::Centers, Pen.GetBrush(), Figures, Width * std::max(Pen.GetMiterLimit(), 1.0f));
  if (Paint.Get() == nullptr) return true;
  TZyRaster Raster(TargetOf(*FImage), RasterClip());
  for (std::span<const PointF> Figure : Figures) {
    Stroke.Closed = Shape.Kind == TShape::Polygon;
    if (Shape.Kind != TShape::Lines && Figure.size() > 2 && Figure.front() == Figure.back()) {
      Stroke.Closed = true;
      Figure = Figure.first(Figure.size() - 1);
    }
    Raster.StrokeLines(Figure, Stroke, *Paint.Get());
  }
  return true;
}

/// A level or upright line as the box that it is.
bool TPainterBackend::StrokeBox(const Pen& Pen, const TShape& Shape, const Matrix& Device, float Width) {
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Pen.GetBrush());
  if (Solid == nullptr || Shape.Kind != TShape::Lines || Pen.GetDashStyle() != DashStyleSolid ||
      Pen.GetEndCap() == LineCapRound)
    return false;
  const PointF A = Device.TransformPoint(Shape.Points[0]), B = Device.TransformPoint(Shape.Points[1]);
  if ((A.X != B.X) == (A.Y != B.Y)) return false;  // turned, or a dot
  const float Half = Width / 2, Cap = Pen.GetEndCap() == LineCapSquare ? Half : 0;
  const float AcrossX = A.X == B.X ? Half : Cap, AcrossY = A.X == B.X ? Cap : Half;
  const auto [Left, Right] = std::minmax(A.X, B.X);
  const auto [Top, Bottom] = std::minmax(A.Y, B.Y);
  TZyRaster(TargetOf(*FImage), RasterClip())
      .FillBox(static_cast<double>(Left - AcrossX), static_cast<double>(Top - AcrossY),
               static_cast<double>(Right + AcrossX), static_cast<double>(Bottom + AcrossY), Solid->GetColor());
  return true;
}

/// Thin solid lines in the way of the toolkit. Translucent ones so long that they cross themselves everywhere are left
/// to the coverage rasteriser, which keeps them even, and so are those that fill columns.
bool TPainterBackend::StrokeThin(const Pen& Pen, const TShape& Shape, const Matrix& Device, float Width) {
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Pen.GetBrush());
  if (Solid == nullptr || Width > 1 || Pen.GetDashStyle() != DashStyleSolid) return false;
  if (FillsColumns(Shape.Points, Pen.EffectiveWidth())) return false;
  const bool IsOpaque = Solid->GetColor() >> 24 == 255 && Width == 1;
  const auto Scale = static_cast<float>(Device.UniformScale());
  if (!IsOpaque && RasterPays(Shape.Points.size(), Width, LengthOf(Shape.Points) * Scale)) return false;
  thread_local std::vector<PointF> Points;
  Points.clear();
  for (const PointF& Point : Shape.Points) Points.push_back(Device.TransformPoint(Point));
  if (Shape.Kind == TShape::Polygon) Points.push_back(Points.front());
  const TRasterCap Cap = Shape.Kind == TShape::Polygon ? TRasterCap::Flat : CapOf(Pen.GetEndCap());
  TZyRaster(TargetOf(*FImage), RasterClip()).ThinLine(Points, Width, Cap, Solid->GetColor());
  return true;
}

/// Files lose the translucency of gradients: there, one is painted into a picture that is shown through the shape.
bool TPainterBackend::FillByPicture(const TDrawState& State, const Brush& Brush, const TShape& Shape) {
  if (FImage != nullptr || IsSolid(Brush)) return false;
  const TGrid Grid = Shape.Kind == TShape::Rectangle ? TGrid::Corners : TGrid::Centers;
  const QBrush Fill = BrushOf(State, Grid, Brush);
  if (Fill.gradient() == nullptr || Fill.isOpaque()) return false;
  constexpr double Finer = 3, LargestSide = 3000;  // pixels of the picture
  const GraphicsPath Outline = Shape.AsPath();
  const QRectF Box = Outline.ToQt().boundingRect();
  const double Side = std::max(Box.width(), Box.height());
  if (!(Side > 0)) return true;
  const double Scale = std::min(Finer, LargestSide / Side);
  QImage Picture((Box.size() * Scale).toSize().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
  Picture.fill(0);
  {
    QPainter Painter(&Picture);
    Painter.scale(Picture.width() / Box.width(), Picture.height() / Box.height());
    Painter.translate(-Box.topLeft());
    Painter.fillRect(Box, Fill);
  }
  PaintWithPainter(State, Grid, [&](QPainter& Painter) {
    Painter.save();
    Painter.setClipPath(Outline.ToQt(), Qt::IntersectClip);
    Painter.setBrush(Qt::NoBrush);
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
    if (Shape.Kind == TShape::Rectangle) return Painter.fillRect(AsQt(Shape.Rect), BrushOf(State, Grid, Brush));
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(BrushOf(State, Grid, Brush));
    PaintShape(Painter, Shape);
  });
}

/// An upright box in one colour. Where its edges are not smoothed they have to lie between pixels.
bool TPainterBackend::FillBox(const TDrawState& State, const Brush& Brush, const TShape& Shape) {
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Brush);
  if (FImage == nullptr || FHasMask || Solid == nullptr || Shape.Kind != TShape::Rectangle) return false;
  const QTransform Device = AsQt(DeviceTransform(State, TGrid::Corners));
  if (!KeepsBoxes(Device)) return false;
  const QRectF Box = Device.mapRect(AsQt(Shape.Rect));
  const auto IsWhole = [](double Value) { return Value == std::floor(Value); };
  const bool FitsPixels = IsWhole(Box.left()) && IsWhole(Box.top()) && IsWhole(Box.right()) && IsWhole(Box.bottom());
  if (!FitsPixels && State.Smoothing == SmoothingModeNone) return false;
  TZyRaster(TargetOf(*FImage), RasterClip())
      .FillBox(Box.left(), Box.top(), Box.right(), Box.bottom(), Solid->GetColor());
  return true;
}

bool TPainterBackend::FillByRaster(const TDrawState& State, const Brush& Brush, const TShape& Shape) {
  if (FImage == nullptr) return false;
  const bool IsBig = Shape.Kind == TShape::Polygon && Shape.Points.size() >= FewestCornersForRaster;
  if (!FHasMask && !(IsBig && State.Smoothing != SmoothingModeNone)) return false;
  const TGrid Grid = Shape.Kind == TShape::Rectangle ? TGrid::Corners : TGrid::Centers;
  const std::span<const std::vector<PointF>> Figures = FiguresOf(DeviceTransform(State, Grid), Shape);
  const TInk Paint(*this, State, Grid, Brush, Figures, 1);
  if (Paint.Get() == nullptr) return true;
  const bool Winding =
      Shape.Kind == TShape::Path ? Shape.Outline->GetFillMode() == FillModeWinding : Shape.Mode == FillModeWinding;
  thread_local std::vector<std::span<const PointF>> Polygons;  // kept for its memory
  Polygons.assign(Figures.begin(), Figures.end());
  TZyRaster(TargetOf(*FImage), RasterClip())
      .FillPolygons(Polygons, Winding, *Paint.Get(), State.Smoothing != SmoothingModeNone);
  return true;
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

bool TPainterBackend::DrawStamps(const TDrawState& State, std::string_view Look, const RectF& Extent,
                                 std::span<const PointF> Points, const std::function<void(Graphics&)>& Paint) {
  const QTransform Device = AsQt(DeviceTransform(State, TGrid::Centers));
  const double Scale = Device.m11();
  if (FImage == nullptr || Device.type() > QTransform::TxScale || !(Scale > 0) || Device.m22() != Scale) return false;
  Prepare(State);
  thread_local std::string Key;  // kept for its memory, as are the places
  thread_local std::vector<PointF> Kept;
  std::vector<PointF> Places = std::move(Kept);  // a stamp may be made of stamps
  Key.assign(Look).append(reinterpret_cast<const char*>(&Scale), sizeof Scale);
  Key += static_cast<char>(State.Smoothing);
  Key += static_cast<char>(State.Hint);
  const auto PaintStamp = [&](const TRasterTarget& Stamp, PointF Anchor) {
    QImage Picture(reinterpret_cast<uchar*>(Stamp.Pixels), Stamp.Width, Stamp.Height, Stamp.Stride * 4,
                   QImage::Format_ARGB32_Premultiplied);
    QPainter Painter(&Picture);
    Painter.translate(AsQt(Anchor) - QPointF(Scale, Scale) / 2);
    Painter.scale(Scale, Scale);
    Graphics Canvas(Painter);
    Canvas.SetSmoothingMode(State.Smoothing);
    Canvas.SetTextRenderingHint(State.Hint);
    Paint(Canvas);
  };
  const auto Factor = static_cast<float>(Scale);
  const RectF Room{(Extent.X - 1) * Factor, (Extent.Y - 1) * Factor, (Extent.Width + 2) * Factor,
                   (Extent.Height + 2) * Factor};
  thread_local TZySymbolStamps Stamps;
  Places.clear();
  for (const PointF& Point : Points) Places.push_back(FromQt(Device).TransformPoint(Point));
  Stamps.Draw(TargetOf(*FImage), RasterClip(), Key, Room, Places, std::cref(PaintStamp));
  Kept = std::move(Places);
  return true;
}

namespace {

QFont FaceOf(const Font& Font, TextRenderingHint Hint) {
  const bool WholePixels =
      Hint == TextRenderingHintSingleBitPerPixelGridFit || Hint == TextRenderingHintSingleBitPerPixel;
  QFont Result = Font.ToQt();
  // Coloured subpixels would make texts differ between a widget and a picture.
  Result.setStyleStrategy(WholePixels ? QFont::NoAntialias : QFont::NoSubpixelAntialias);
  return Result;
}

}  // namespace

/// Short texts are kept as stamps where they lie level or upright, as the toolkit lays a text out anew each time. It
/// too places glyphs at quarters of a pixel, and level base lines at whole ones.
bool TPainterBackend::DrawStringByStamp(const TDrawState& State, std::string_view Text, const Font& Font,
                                        const Brush& Brush, PointF Origin) {
  constexpr std::size_t LongestText = 64;
  constexpr double LargestFont = 48;  // pixels; the toolkit draws larger ones by their outlines, anywhere
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Brush);
  if (FImage == nullptr || Solid == nullptr || Text.size() > LongestText || Text.find('\n') != Text.npos) return false;
  const QTransform Device = AsQt(DeviceTransform(State, TGrid::Corners));
  const bool IsLevel = Device.type() <= QTransform::TxScale;
  const double Scale = IsLevel ? Device.m11() : std::abs(Device.m12());
  const bool IsEven = IsLevel ? Device.m22() == Scale : Device.m21() == -Device.m12();
  const double Pixels = static_cast<double>(Font.GetSize()) * static_cast<double>(Font::PixelsPerPoint) * Scale;
  if (!KeepsBoxes(Device) || !IsEven || !(Scale > 0) || Pixels > LargestFont) return false;

  const float Ascent = Font.GetAscent();
  const struct {
    float Across, Down, Size, Ascent;  // the first two are the way of the base line
    std::uint32_t Color, Style, Hint;
  } Look{static_cast<float>(Device.m11()),
         static_cast<float>(Device.m12()),
         Font.GetSize(),
         Ascent,
         Solid->GetColor(),
         Font.GetStyle().Bits(),
         State.Hint};
  thread_local std::string Key;  // kept for its memory
  Key.assign(Text).append(1, '\0').append(Font.GetFamilyName());
  Key.append(reinterpret_cast<const char*>(&Look), sizeof Look);
  const QPointF Anchor = Device.map(QPointF(Origin.X, static_cast<double>(Origin.Y) + static_cast<double>(Ascent)));
  const double Height = IsLevel ? std::floor(Anchor.y() + 0.5) : Anchor.y();
  const PointF Place{static_cast<float>(Anchor.x()), static_cast<float>(Height)};
  constexpr std::size_t MostTexts = 512;
  thread_local TZySymbolStamps Stamps(MostTexts);
  if (Stamps.DrawMade(TargetOf(*FImage), RasterClip(), Key, Place)) return true;

  const QFont Face = FaceOf(Font, State.Hint);
  const QString Written = ToQString(Text);
  QTransform Way(Device.m11(), Device.m12(), Device.m21(), Device.m22(), 0, 0);
  Way.scale(Font.QtScale(), Font.QtScale());
  const QRectF Lines = QFontMetricsF(Face).boundingRect(Written);
  const double Room = Lines.height() / 2 + 2;  // for what leaves the line's box
  const QRectF Box = Way.mapRect(Lines.adjusted(-Room, -Room, Room, Room));
  const RectF Extent{static_cast<float>(Box.x()), static_cast<float>(Box.y()), static_cast<float>(Box.width()),
                     static_cast<float>(Box.height())};
  Stamps.Draw(TargetOf(*FImage), RasterClip(), Key, Extent, {&Place, 1},
              [&](const TRasterTarget& Stamp, PointF StampAnchor) {
                QImage Picture(reinterpret_cast<uchar*>(Stamp.Pixels), Stamp.Width, Stamp.Height, Stamp.Stride * 4,
                               QImage::Format_ARGB32_Premultiplied);
                QPainter Painter(&Picture);
                Painter.setWorldTransform(Way * QTransform::fromTranslate(StampAnchor.X, StampAnchor.Y));
                Painter.setFont(Face);
                Painter.setPen(QColor::fromRgba(Solid->GetColor()));
                Painter.drawText(QPointF(0, 0), Written);
              });
  return true;
}

void TPainterBackend::DrawString(const TDrawState& State, std::string_view Text, const Font& Font, const Brush& Brush,
                                 PointF Origin) {
  Prepare(State);
  if (DrawStringByStamp(State, Text, Font, Brush, Origin)) return;
  const QFont Face = FaceOf(Font, State.Hint);
  PaintWithPainter(State, TGrid::Corners, [&](QPainter& Painter) {
    const double Scale = Font.QtScale();
    QBrush Fill = BrushOf(State, TGrid::Corners, Brush);
    Fill.setTransform(Fill.transform() * QTransform::fromScale(1 / Scale, 1 / Scale));
    Painter.setFont(Face);
    Painter.setPen(QPen(Fill, 0));
    if (Scale != 1) Painter.scale(Scale, Scale);
    FHasTransform = FHasTransform && Scale == 1;
    double BaseLine = static_cast<double>(Origin.Y) + static_cast<double>(Font.GetAscent());
    ForEachLine(Text, [&](std::string_view Line) {
      Painter.drawText(QPointF(Origin.X, BaseLine) / Scale, ToQString(Line));
      BaseLine += static_cast<double>(Font.GetHeight());
    });
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
  const ARGB Premultiplied = qPremultiply(Color);
  for (int Y = FClipBox.Top; Y < FClipBox.Bottom; ++Y) {
    auto* const Row = reinterpret_cast<QRgb*>(FImage->scanLine(Y));
    const std::uint8_t* const Mask = FMask.Bytes() + static_cast<std::ptrdiff_t>(Y) * FMask.Stride();
    for (int X = FClipBox.Left; X < FClipBox.Right; ++X)
      Row[X] = Mix(Row[X], Premultiplied, static_cast<float>(Mask[X]) / 255);
  }
}

}  // namespace zy
