#include "platform/drawing/Graphics.h"

#include <QImage>
#include <QPainter>
#include <QPen>
#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Pen.h"
#include "platform/drawing/QtText.h"

namespace zy {
namespace {

bool AreFinite(std::initializer_list<float> Values) {
  return std::all_of(Values.begin(), Values.end(), [](float Value) { return std::isfinite(Value); });
}

QTransform ToQt(const Matrix& Source) {
  const auto& [M11, M12, M21, M22, Dx, Dy] = Source.Elements();
  return {M11, M12, M21, M22, Dx, Dy};
}

Matrix FromQt(const QTransform& Source) {
  return {Source.m11(), Source.m12(), Source.m21(), Source.m22(), Source.dx(), Source.dy()};
}

QRectF ToQt(const RectF& Source) { return {Source.X, Source.Y, Source.Width, Source.Height}; }

/// The points for the toolkit; empty when one of them is not finite.
QPolygonF ToQt(std::span<const PointF> Points) {
  QPolygonF Result;
  Result.reserve(static_cast<qsizetype>(Points.size()));
  for (const PointF& Point : Points) {
    if (!AreFinite({Point.X, Point.Y})) return {};
    Result.append({Point.X, Point.Y});
  }
  return Result;
}

/// End moved half a pixel away from Before, along the axis on which the line steps from pixel to pixel, so that the
/// pixel at the end is covered in full.
QPointF WithWholePixel(const QPointF& End, const QPointF& Before) {
  const QPointF Way = End - Before;
  const double Longest = std::max(std::abs(Way.x()), std::abs(Way.y()));
  return Longest > 0 ? End + Way * (0.5 / Longest) : End;
}

}  // namespace

Graphics::Graphics(Bitmap& Target)
    : FOwnPainter(std::make_unique<QPainter>(&Target.ToQt())), FPainter(FOwnPainter.get()) {
  Begin();
}

Graphics::Graphics(QPainter& Target) : FPainter(&Target) { Begin(); }

Graphics::~Graphics() { FPainter->restore(); }

// The painter as it came stays on its own stack throughout: its clip cannot be widened, only gone back to.
void Graphics::Begin() {
  FPainter->save();
  FBase = FromQt(FPainter->worldTransform());
  SetSmoothingMode(SmoothingModeNone);
}

void Graphics::UseGrid(TGrid Grid) {
  if (FGrid == Grid) return;
  FGrid = Grid;
  const double Offset = Grid == TGrid::Centers ? 0.5 : 0.0;
  FPainter->setWorldTransform(ToQt(FTransform) * QTransform::fromTranslate(Offset, Offset) * ToQt(FBase));
}

void Graphics::DrawLine(const Pen& Pen, float X1, float Y1, float X2, float Y2) {
  const PointF Ends[] = {{X1, Y1}, {X2, Y2}};
  Graphics::DrawLines(Pen, Ends);
}

void Graphics::DrawLines(const Pen& Pen, std::span<const PointF> Points) {
  QPolygonF Line = ToQt(Points);
  if (Line.size() < 2) return;
  if (FSmoothingMode == SmoothingModeNone && Line.front() != Line.back()) {
    const QPointF First = WithWholePixel(Line[0], Line[1]);
    Line.back() = WithWholePixel(Line.back(), Line[Line.size() - 2]);
    Line.front() = First;
  }
  UseGrid(TGrid::Centers);
  FPainter->setPen(Pen.ToQt());
  FPainter->drawPolyline(Line);
}

void Graphics::DrawRectangle(const Pen& Pen, float X, float Y, float Width, float Height) {
  if (!AreFinite({X, Y, Width, Height}) || Width < 0 || Height < 0) return;
  UseGrid(TGrid::Centers);
  QPen Outline = Pen.ToQt();
  // The toolkit's short cut for thin lines leaves a quarter out of each corner; what is wider by a hair is joined.
  constexpr double BarelyWide = 1.0001;
  if (FSmoothingMode != SmoothingModeNone) Outline.setWidthF(std::max(Outline.widthF(), BarelyWide));
  FPainter->setPen(Outline);
  FPainter->setBrush(Qt::NoBrush);
  FPainter->drawRect(QRectF(X, Y, Width, Height));
}

void Graphics::FillRectangle(const Brush& Brush, float X, float Y, float Width, float Height) {
  if (!AreFinite({X, Y, Width, Height}) || !(Width > 0) || !(Height > 0)) return;
  UseGrid(TGrid::Corners);
  FPainter->fillRect(QRectF(X, Y, Width, Height), Brush.ToQt());
}

void Graphics::FillPolygon(const Brush& Brush, std::span<const PointF> Points) {
  const QPolygonF Polygon = ToQt(Points);
  if (Polygon.size() < 3) return;
  UseGrid(TGrid::Centers);
  FPainter->setPen(Qt::NoPen);
  FPainter->setBrush(Brush.ToQt());
  FPainter->drawPolygon(Polygon, Qt::OddEvenFill);
}

void Graphics::DrawString(std::string_view Text, const Font& Font, const Brush& Brush, float X, float Y) {
  if (!AreFinite({X, Y})) return;
  const bool WholePixels = FTextRenderingHint == TextRenderingHintSingleBitPerPixelGridFit ||
                           FTextRenderingHint == TextRenderingHintSingleBitPerPixel;
  QFont Face = Font.ToQt();
  // Coloured subpixels would make texts differ between a widget and a picture.
  Face.setStyleStrategy(WholePixels ? QFont::NoAntialias : QFont::NoSubpixelAntialias);
  UseGrid(TGrid::Corners);
  FPainter->setFont(Face);
  FPainter->setPen(QPen(Brush.ToQt(), 0));
  const double Scale = Font.QtScale();
  if (Scale != 1) FPainter->scale(Scale, Scale);
  double BaseLine = Y + Font.GetAscent();
  ForEachLine(Text, [&](std::string_view Line) {
    FPainter->drawText(QPointF(X, BaseLine) / Scale, ToQString(Line));
    BaseLine += Font.GetHeight();
  });
  if (Scale != 1) FGrid = TGrid::Unset;
}

SizeF Graphics::MeasureString(std::string_view Text, const Font& Font) const { return Font.MeasureString(Text); }

void Graphics::Clear(ARGB Color) {
  FPainter->save();
  FPainter->resetTransform();
  FPainter->setCompositionMode(QPainter::CompositionMode_Source);
  FPainter->fillRect(FPainter->window(), QColor::fromRgba(Color));
  FPainter->restore();
}

void Graphics::SetClip(const RectF& Rect, CombineMode Mode) {
  if (Mode == CombineModeReplace) FClip = Region();
  FClip.Intersect(Rect, FTransform);
  ApplyClip();
}

void Graphics::SetClip(const Region& Clip) {
  FClip = Clip;
  ApplyClip();
}

void Graphics::ResetClip() { SetClip(Region()); }

void Graphics::ApplyClip() {
  FPainter->restore();
  FPainter->save();
  const QTransform Base = ToQt(FBase);
  for (const Region::TPart& Part : FClip.Parts()) {
    FPainter->setWorldTransform(ToQt(Part.Transform) * Base);
    FPainter->setClipRect(ToQt(Part.Rect), Qt::IntersectClip);
  }
  FGrid = TGrid::Unset;
  SetSmoothingMode(FSmoothingMode);
}

void Graphics::SetTransform(const Matrix& Transform) {
  FTransform = Transform;
  FGrid = TGrid::Unset;
}

void Graphics::TranslateTransform(float Dx, float Dy, MatrixOrder Order) {
  FTransform.Translate(Dx, Dy, Order);
  FGrid = TGrid::Unset;
}

void Graphics::RotateTransform(float Angle, MatrixOrder Order) {
  FTransform.Rotate(Angle, Order);
  FGrid = TGrid::Unset;
}

void Graphics::SetSmoothingMode(SmoothingMode Value) {
  FSmoothingMode = Value;
  FPainter->setRenderHint(QPainter::Antialiasing, Value != SmoothingModeNone);
}

}  // namespace zy
