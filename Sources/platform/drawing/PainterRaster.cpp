// What the painter's backend draws past the toolkit.

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "platform/drawing/Brush.h"
#include "platform/drawing/LinearPaint.h"
#include "platform/drawing/PainterBackend.h"
#include "platform/drawing/PainterShapes.h"
#include "platform/drawing/QtGeometry.h"
#include "platform/drawing/RadialPaint.h"
#include "platform/drawing/ZyRasterThinQueue.h"
#include "platform/framework/WideRegisters.h"

namespace zy {
namespace {

constexpr std::size_t FewestCornersForRaster = 64;  // of a polygon; below, the toolkit is as fast

TRasterCap CapOf(LineCap Cap) {
  return Cap == LineCapSquare ? TRasterCap::Square : Cap == LineCapRound ? TRasterCap::Round : TRasterCap::Flat;
}

/// The lines that one backend of the thread gathers at a time.
TRasterThinQueue& Gathered() {
  thread_local TRasterThinQueue Result;
  return Result;
}

TRasterJoin JoinOf(LineJoin Join) {
  return Join == LineJoinMiter   ? TRasterJoin::MiterCut
         : Join == LineJoinBevel ? TRasterJoin::Bevel
                                 : TRasterJoin::Round;
}

}  // namespace

/// What figures are filled with, within Margin of their points.
class TPainterBackend::TInk {
 public:
  TInk(TPainterBackend& Backend, const TDrawState& State, TGrid Grid, const Brush& Brush,
       std::span<const std::vector<PointF>> Figures, float Margin) {
    if (const auto* const Solid = dynamic_cast<const SolidBrush*>(&Brush))
      FSolid.emplace(Solid->GetColor());
    else if (const auto* const Linear = dynamic_cast<const LinearGradientBrush*>(&Brush))
      FOther = std::make_unique<TLinearPaint>(*Linear, Backend.GradientTransform(State, Grid));
    else if (const auto* const Path = dynamic_cast<const PathGradientBrush*>(&Brush); Path != nullptr && !Path->IsFan())
      FOther = std::make_unique<TRadialPaint>(*Path, AsQt(Backend.DeviceTransform(State, Grid)));
    else
      FOther = Backend.PictureOf(State, Grid, Brush, BoundsOf(Figures, Margin));
  }
  /// Null when nothing shows.
  const TRasterPaint* Get() const { return FSolid ? &*FSolid : FOther.get(); }

 private:
  std::optional<TSolidPaint> FSolid;
  std::unique_ptr<TRasterPaint> FOther;
};

std::unique_ptr<TRasterPaint> TPainterBackend::PictureOf(const TDrawState& State, TGrid Grid, const Brush& Brush,
                                                         TRasterRect Box) {
  Box = Intersection(Box, FClipBox);
  if (Box.IsEmpty()) return nullptr;
  QImage Picture(Box.Right - Box.Left, Box.Bottom - Box.Top, QImage::Format_ARGB32_Premultiplied);
  Picture.fill(0);
  ClearWideRegisters();
  PaintBrush(Picture, AsQt(DeviceTransform(State, Grid)) * QTransform::fromTranslate(-Box.Left, -Box.Top), State, Grid,
             Brush, {});
  return std::make_unique<TPicturePaint>(std::move(Picture), Box.Left, Box.Top);
}

bool TPainterBackend::StrokeByRaster(const TDrawState& State, const Pen& Pen, const TShape& Shape) {
  if (FImage == nullptr || State.Smoothing == SmoothingModeNone) return false;
  const Matrix Device = DeviceTransform(State, TGrid::Centers);
  const auto Scale = static_cast<float>(Device.UniformScale());
  if (Scale == 0) return false;
  const bool IsLine = Shape.Kind == TShape::Lines || Shape.Kind == TShape::Polygon;
  const float Width = Pen.EffectiveWidth() * Scale;
  if (!FHasMask && !IsGradient(Pen.GetBrush())) {
    if (Shape.Kind == TShape::Rectangle && StrokeFrame(Pen, Shape, Device, Width)) return true;
    if (!IsLine) return StrokeThinOutline(Pen, Shape, Device, Width);
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
  TZyRaster Raster(SettledPixels(), RasterClip());
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
  TZyRaster(SettledPixels(), RasterClip())
      .FillBox(static_cast<double>(Left - AcrossX), static_cast<double>(Top - AcrossY),
               static_cast<double>(Right + AcrossX), static_cast<double>(Bottom + AcrossY), Solid->GetColor());
  return true;
}

/// The outline of an upright box. A corner goes on by half a width beyond the ends of its sides where the pen lets it,
/// and is cut off where the pen lets it go nowhere.
bool TPainterBackend::StrokeFrame(const Pen& Pen, const TShape& Shape, const Matrix& Device, float Width) {
  constexpr float Sharp = 0.5f;
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Pen.GetBrush());
  const bool IsMiter = Pen.GetLineJoin() == LineJoinMiter;
  const bool CutsCorners = Pen.GetLineJoin() == LineJoinBevel || (IsMiter && Pen.GetMiterLimit() == 0);
  if (Solid == nullptr || Pen.GetDashStyle() != DashStyleSolid || Width < 1) return false;
  if (!CutsCorners && (!IsMiter || Pen.GetMiterLimit() < Sharp)) return false;
  if (!KeepsBoxes(AsQt(Device)) || Shape.Rect.Width == 0 || Shape.Rect.Height == 0) return false;
  const QRectF Box = AsQt(Device).mapRect(AsQt(Shape.Rect)).normalized();
  TZyRaster(SettledPixels(), RasterClip())
      .FillFrame({Box.left(), Box.top(), Box.right(), Box.bottom()}, static_cast<double>(Width), CutsCorners,
                 Solid->GetColor());
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
  if (!FGathers || !(FHasGathered || Gathered().IsEmpty())) {
    TZyRaster(SettledPixels(), RasterClip()).ThinLine(Points, Width, Cap, Solid->GetColor());
    return true;
  }
  FHasGathered = true;
  TZyRaster(TargetOf(*FImage), RasterClip()).ThinLine(Points, Width, Cap, Solid->GetColor(), &Gathered());
  return true;
}

void TPainterBackend::GatherLines(bool Gathers) {
  Settle();
  FGathers = Gathers;
}

void TPainterBackend::Settle() {
  if (std::exchange(FHasGathered, false)) Gathered().Finish();
}

TRasterTarget TPainterBackend::SettledPixels() {
  Settle();
  return TargetOf(*FImage);
}

/// The outline of a path or a sector in a thin, solid line of an opaque colour.
bool TPainterBackend::StrokeThinOutline(const Pen& Pen, const TShape& Shape, const Matrix& Device, float Width) {
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Pen.GetBrush());
  const bool IsOutline = Shape.Kind == TShape::Path || Shape.Kind == TShape::Pie;
  if (Solid == nullptr || !IsOutline || Width != 1 || Pen.GetDashStyle() != DashStyleSolid) return false;
  if (Solid->GetColor() >> 24 != 255) return false;
  TZyRaster Raster(SettledPixels(), RasterClip());
  for (const std::vector<PointF>& Figure : FiguresOf(Device, Shape)) {
    if (Figure.size() < 2) continue;
    const TRasterCap Cap = Figure.front() == Figure.back() ? TRasterCap::Flat : CapOf(Pen.GetEndCap());
    Raster.ThinLine(Figure, Width, Cap, Solid->GetColor());
  }
  return true;
}

/// An upright box in one colour or a linear gradient. Where its edges are not smoothed they have to lie between pixels.
bool TPainterBackend::FillBox(const TDrawState& State, const Brush& Brush, const TShape& Shape) {
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Brush);
  const auto* const Linear = dynamic_cast<const LinearGradientBrush*>(&Brush);
  const std::optional<RectF> Rect = BoxOf(Shape);
  if (FImage == nullptr || FHasMask || (Solid == nullptr && Linear == nullptr) || !Rect) return false;
  const TGrid Grid = Shape.Kind == TShape::Rectangle ? TGrid::Corners : TGrid::Centers;
  const QTransform Device = AsQt(DeviceTransform(State, Grid));
  if (!KeepsBoxes(Device)) return false;
  const QRectF Box = Device.mapRect(AsQt(*Rect)).normalized();
  const auto IsWhole = [](double Value) { return Value == std::floor(Value); };
  const bool FitsPixels = IsWhole(Box.left()) && IsWhole(Box.top()) && IsWhole(Box.right()) && IsWhole(Box.bottom());
  if (!FitsPixels && State.Smoothing == SmoothingModeNone) return false;
  TZyRaster Raster(SettledPixels(), RasterClip());
  if (Solid != nullptr)
    Raster.FillBox(Box.left(), Box.top(), Box.right(), Box.bottom(), Solid->GetColor());
  else
    Raster.FillBox(Box.left(), Box.top(), Box.right(), Box.bottom(),
                   TLinearPaint(*Linear, GradientTransform(State, Grid), Box));
  return true;
}

/// Boxes of whole pixels in one colour.
bool TPainterBackend::FillBoxes(const TDrawState& State, const Brush& Brush, std::span<const RectF> Boxes) {
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Brush);
  if (FImage == nullptr || Solid == nullptr) return false;
  Prepare(State);
  const QTransform Device = AsQt(DeviceTransform(State, TGrid::Corners));
  const auto IsWhole = [](double Value) { return Value == std::floor(Value) && std::fabs(Value) < 1e6; };
  if (FHasMask || Device.type() > QTransform::TxScale || Device.m11() <= 0 || Device.m22() <= 0 ||
      !IsWhole(Device.m11()) || !IsWhole(Device.m22()) || !IsWhole(Device.dx()) || !IsWhole(Device.dy()))
    return false;
  thread_local std::vector<TRasterRect> Pixels;
  Pixels.clear();
  for (const RectF& Box : Boxes) {
    if (!IsWhole(Box.X) || !IsWhole(Box.Y) || !IsWhole(Box.Width) || !IsWhole(Box.Height)) return false;
    Pixels.push_back(WholePixels(Device.mapRect(AsQt(Box))));
  }
  TZyRaster(SettledPixels(), RasterClip()).FillBoxes(Pixels, Solid->GetColor());
  return true;
}

/// Layers of one colour.
bool TPainterBackend::FillTrail(const TDrawState& State, const Brush& Brush, const TShape& Shape, PointF Step,
                                int Count) {
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Brush);
  if (FImage == nullptr || Solid == nullptr || State.Smoothing == SmoothingModeNone) return false;
  Prepare(State);
  const Matrix Device = DeviceTransform(State, TGrid::Centers);
  const PointF From = Device.TransformPoint({0, 0}), To = Device.TransformPoint(Step);
  const std::span<const std::vector<PointF>> Figures = FiguresOf(Device, Shape);
  const std::vector<std::span<const PointF>> Polygons(Figures.begin(), Figures.end());
  TZyRaster(SettledPixels(), RasterClip())
      .FillTrail(Polygons, {To.X - From.X, To.Y - From.Y}, Count, Solid->GetColor());
  return true;
}

bool TPainterBackend::FillByRaster(const TDrawState& State, const Brush& Brush, const TShape& Shape) {
  if (FImage == nullptr) return false;
  const bool IsBig = Shape.Kind == TShape::Polygon && Shape.Points.size() >= FewestCornersForRaster;
  const bool IsShaded = IsGradient(Brush) && Shape.Kind != TShape::Rectangle;
  const bool Pays = AsFan(Brush) != nullptr || ((IsBig || IsShaded) && State.Smoothing != SmoothingModeNone);
  if (!FHasMask && !Pays) return false;
  const TGrid Grid = Shape.Kind == TShape::Rectangle ? TGrid::Corners : TGrid::Centers;
  const std::span<const std::vector<PointF>> Figures = FiguresOf(DeviceTransform(State, Grid), Shape);
  const TInk Paint(*this, State, Grid, Brush, Figures, 1);
  if (Paint.Get() == nullptr) return true;
  const bool Winding =
      Shape.Kind == TShape::Path ? Shape.Outline->GetFillMode() == FillModeWinding : Shape.Mode == FillModeWinding;
  thread_local std::vector<std::span<const PointF>> Polygons;  // kept for its memory
  Polygons.assign(Figures.begin(), Figures.end());
  TZyRaster(SettledPixels(), RasterClip())
      .FillPolygons(Polygons, Winding, *Paint.Get(), State.Smoothing != SmoothingModeNone);
  return true;
}

}  // namespace zy
