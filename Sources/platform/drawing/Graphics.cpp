#include "platform/drawing/Graphics.h"

#include <algorithm>
#include <cmath>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Metafile.h"
#include "platform/drawing/PainterBackend.h"
#include "platform/drawing/QtGeometry.h"
#include "platform/drawing/SystemPalette.h"

namespace zy {
namespace {

[[maybe_unused]] const bool UsesPalette = UseSystemPalette();

bool IsFinite(const RectF& Rect) { return AreFinite({Rect.X, Rect.Y, Rect.Width, Rect.Height}); }

TShape BoxShape(TShape::TKind Kind, const RectF& Rect, float StartAngle = 0, float SweepAngle = 0) {
  TShape Shape;
  Shape.Kind = Kind;
  Shape.Rect = Rect;
  Shape.StartAngle = StartAngle;
  Shape.SweepAngle = SweepAngle;
  return Shape;
}

TShape PointShape(TShape::TKind Kind, std::span<const PointF> Points, FillMode Mode = FillModeAlternate) {
  TShape Shape;
  Shape.Kind = Kind;
  Shape.Points = Points;
  Shape.Mode = Mode;
  return Shape;
}

float PaddingOf(const StringFormat& Format, const Font& Font) {
  return Format.Padding() * Font.GetSize() * Font::PixelsPerPoint;
}

}  // namespace

GraphicsPath TShape::AsPath() const {
  GraphicsPath Result;
  switch (Kind) {
    case Lines:
      Result.AddLines(Points);
      break;
    case Polygon:
      Result.AddPolygon(Points);
      Result.SetFillMode(Mode);
      break;
    case Rectangle:
      Result.AddRectangle(Rect);
      break;
    case Ellipse:
      Result.AddEllipse(Rect);
      break;
    case Pie:
      Result.AddPie(Rect, StartAngle, SweepAngle);
      break;
    case Path:
      return *Outline;
  }
  return Result;
}

Graphics::Graphics(Bitmap& Target) : FBackend(std::make_unique<TPainterBackend>(Target)) {}

Graphics::Graphics(QPainter& Target) : FBackend(std::make_unique<TPainterBackend>(Target)) {}

Graphics::Graphics(Metafile& Target) : FBackend(Target.Recorder()) {}

Graphics::Graphics(std::unique_ptr<TGraphicsBackend> Backend) : FBackend(std::move(Backend)) {}

Graphics::~Graphics() = default;

void Graphics::DrawLine(const Pen& Pen, float X1, float Y1, float X2, float Y2) {
  const PointF Ends[] = {{X1, Y1}, {X2, Y2}};
  DrawLines(Pen, Ends);
}

void Graphics::DrawSegments(const Pen& Pen, std::span<const PointF> Ends, TKeptSegments* Kept) {
  if (Ends.size() < 2 || FBackend->DrawSegments(FState, Pen, Ends, Kept)) return;
  for (std::size_t i = 0; i + 1 < Ends.size(); i += 2)
    DrawLine(Pen, Ends[i].X, Ends[i].Y, Ends[i + 1].X, Ends[i + 1].Y);
}

void Graphics::DrawLines(const Pen& Pen, std::span<const PointF> Points) {
  if (Points.size() >= 2 && AreFinite(Points)) Draw(Pen, PointShape(TShape::Lines, Points));
}

void Graphics::DrawPolygon(const Pen& Pen, std::span<const PointF> Points) {
  if (Points.size() >= 2 && AreFinite(Points)) Draw(Pen, PointShape(TShape::Polygon, Points));
}

void Graphics::DrawRectangle(const Pen& Pen, float X, float Y, float Width, float Height) {
  const RectF Rect{X, Y, Width, Height};
  if (IsFinite(Rect) && Width >= 0 && Height >= 0) Draw(Pen, BoxShape(TShape::Rectangle, Rect));
}

void Graphics::DrawEllipse(const Pen& Pen, const RectF& Rect) {
  if (IsFinite(Rect)) Draw(Pen, BoxShape(TShape::Ellipse, Rect));
}

void Graphics::DrawPie(const Pen& Pen, const RectF& Rect, float StartAngle, float SweepAngle) {
  if (IsFinite(Rect) && AreFinite({StartAngle, SweepAngle}))
    Draw(Pen, BoxShape(TShape::Pie, Rect, StartAngle, SweepAngle));
}

void Graphics::DrawPath(const Pen& Pen, const GraphicsPath& Path) {
  if (!Path.IsEmpty()) Draw(Pen, TShape::Of(Path));
}

void Graphics::FillRectangle(const Brush& Brush, float X, float Y, float Width, float Height) {
  const RectF Rect{X, Y, Width, Height};
  if (IsFinite(Rect) && Width > 0 && Height > 0) Fill(Brush, BoxShape(TShape::Rectangle, Rect));
}

void Graphics::FillRectangles(const Brush& Brush, std::span<const RectF> Boxes) {
  if (Boxes.empty() || FBackend->FillBoxes(FState, Brush, Boxes)) return;
  constexpr float ToCenters = -0.5f;
  GraphicsPath Path(FillModeWinding);
  for (const RectF& Box : Boxes)
    if (IsFinite(Box) && Box.Width > 0 && Box.Height > 0)
      Path.AddRectangle({Box.X + ToCenters, Box.Y + ToCenters, Box.Width, Box.Height});
  FillPath(Brush, Path);
}

void Graphics::FillEllipse(const Brush& Brush, const RectF& Rect) {
  if (IsFinite(Rect)) Fill(Brush, BoxShape(TShape::Ellipse, Rect));
}

void Graphics::FillPie(const Brush& Brush, const RectF& Rect, float StartAngle, float SweepAngle) {
  if (IsFinite(Rect) && AreFinite({StartAngle, SweepAngle}))
    Fill(Brush, BoxShape(TShape::Pie, Rect, StartAngle, SweepAngle));
}

void Graphics::FillPolygon(const Brush& Brush, std::span<const PointF> Points, FillMode Mode) {
  if (Points.size() >= 3 && AreFinite(Points)) Fill(Brush, PointShape(TShape::Polygon, Points, Mode));
}

void Graphics::FillPath(const Brush& Brush, const GraphicsPath& Path) {
  if (!Path.IsEmpty()) Fill(Brush, TShape::Of(Path));
}

void Graphics::FillTrail(const Brush& Brush, GraphicsPath& Path, PointF Step, int Count) {
  if (!Path.IsEmpty() && AreFinite({Step.X, Step.Y}) &&
      FBackend->FillTrail(FState, Brush, TShape::Of(Path), Step, Count))
    return;
  Matrix Next;
  Next.Translate(Step.X, Step.Y);
  for (int Layer = 0; Layer < Count; ++Layer) {
    Path.Transform(Next);
    FillPath(Brush, Path);
  }
}

void Graphics::DrawImage(const Bitmap& Picture, float X, float Y) {
  DrawImage(Picture, {X, Y, static_cast<float>(Picture.GetWidth()), static_cast<float>(Picture.GetHeight())});
}

void Graphics::DrawImage(const Bitmap& Picture, const RectF& To) {
  DrawImage(Picture, To, {0, 0, static_cast<float>(Picture.GetWidth()), static_cast<float>(Picture.GetHeight())});
}

void Graphics::DrawImage(const Bitmap& Picture, const RectF& To, const RectF& From) {
  if (IsFinite(To) && IsFinite(From) && To.Width > 0 && To.Height > 0 && From.Width > 0 && From.Height > 0)
    FBackend->DrawImage(FState, Picture, To, From);
}

void Graphics::DrawImage(const Metafile& Recording, const RectF& To) {
  if (IsFinite(To) && To.Width > 0 && To.Height > 0) Recording.PlayTo(*this, To);
}

bool TGraphicsBackend::DrawStamps(const TDrawState&, std::string_view, const RectF&, std::span<const PointF>,
                                  const std::function<void(Graphics&)>&) {
  return false;
}

void Graphics::DrawStamps(std::string_view Look, const RectF& Extent, std::span<const PointF> Points,
                          const std::function<void(Graphics&)>& Paint) {
  if (FBackend->DrawStamps(FState, Look, Extent, Points, Paint)) return;
  const Matrix Saved = FState.Transform;
  for (const PointF& Point : Points) {
    if (!AreFinite({Point.X, Point.Y})) continue;
    TranslateTransform(Point.X, Point.Y);
    Paint(*this);
    FState.Transform = Saved;
  }
}

void Graphics::DrawString(std::string_view Text, const Font& Font, const Brush& Brush, float X, float Y,
                          const StringFormat& Format) {
  if (!Text.empty() && AreFinite({X, Y}))
    FBackend->DrawString(FState, Text, Font, Brush, {X + PaddingOf(Format, Font), Y});
}

SizeF Graphics::MeasureString(std::string_view Text, const Font& Font, const StringFormat& Format) const {
  SizeF Size = Font.MeasureString(Text);
  if (!Text.empty()) Size.Width += 2 * PaddingOf(Format, Font);
  return Size;
}

void Graphics::Clear(ARGB Color) { FBackend->Clear(FState, Color); }

void Graphics::SetClip(const RectF& Rect, CombineMode Mode) {
  if (Mode == CombineModeReplace) FState.Clip = Region();
  FState.Clip.Intersect(Rect, FState.Transform);
}

void Graphics::SetClip(const GraphicsPath& Path, CombineMode Mode) {
  if (Mode == CombineModeReplace) FState.Clip = Region();
  FState.Clip.Intersect(Path, FState.Transform);
}

void Graphics::SetClip(const Region& Clip) { FState.Clip = Clip; }

void Graphics::ExcludeClip(const RectF& Rect) {
  if (IsFinite(Rect)) FState.Clip.Exclude(Rect, FState.Transform);
}

void Graphics::ExcludeClip(const Region& Shape) { FState.Clip.Exclude(Shape, FState.Transform); }

void Graphics::ResetClip() { FState.Clip = Region(); }

void Graphics::TranslateTransform(float Dx, float Dy, MatrixOrder Order) { FState.Transform.Translate(Dx, Dy, Order); }

void Graphics::RotateTransform(float Angle, MatrixOrder Order) { FState.Transform.Rotate(Angle, Order); }

void Graphics::MultiplyTransform(const Matrix& Transform, MatrixOrder Order) {
  FState.Transform.Multiply(Transform, Order);
}

}  // namespace zy
