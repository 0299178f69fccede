#include "platform/drawing/PainterShapes.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <typeinfo>

#include "platform/drawing/Brush.h"
#include "platform/drawing/QtGeometry.h"

namespace zy {

bool KeepsBoxes(const QTransform& Transform) {
  return Transform.type() <= QTransform::TxScale ||
         (Transform.type() == QTransform::TxRotate && Transform.m11() == 0 && Transform.m22() == 0);
}

TRasterRect WholePixels(const QRectF& Rect) {
  const auto Pixel = [](double Value) { return static_cast<int>(std::lround(std::clamp(Value, -1e6, 1e6))); };
  return {Pixel(Rect.left()), Pixel(Rect.top()), Pixel(Rect.right()), Pixel(Rect.bottom())};
}

TRasterTarget TargetOf(QImage& Picture) {
  return {reinterpret_cast<std::uint32_t*>(Picture.bits()), Picture.bytesPerLine() / 4, Picture.width(),
          Picture.height()};
}

bool IsSolid(const Brush& Brush) { return dynamic_cast<const SolidBrush*>(&Brush) != nullptr; }

bool IsHatch(const Brush& Brush) { return dynamic_cast<const HatchBrush*>(&Brush) != nullptr; }

bool IsGradient(const Brush& Brush) {
  if (typeid(Brush) == typeid(SolidBrush)) return false;  // most are, and this is quicker told than what follows
  return dynamic_cast<const PathGradientBrush*>(&Brush) != nullptr ||
         dynamic_cast<const LinearGradientBrush*>(&Brush) != nullptr;
}

const PathGradientBrush* AsFan(const Brush& Brush) {
  const auto* const Result = dynamic_cast<const PathGradientBrush*>(&Brush);
  return Result != nullptr && Result->IsFan() ? Result : nullptr;
}

std::optional<RectF> BoxOf(const TShape& Shape) {
  if (Shape.Kind == TShape::Rectangle) return Shape.Rect;
  if (Shape.Kind != TShape::Polygon || Shape.Points.size() != 4) return std::nullopt;
  const std::span<const PointF> P = Shape.Points;
  const bool LevelFirst = P[0].Y == P[1].Y && P[1].X == P[2].X && P[2].Y == P[3].Y && P[3].X == P[0].X;
  const bool UprightFirst = P[0].X == P[1].X && P[1].Y == P[2].Y && P[2].X == P[3].X && P[3].Y == P[0].Y;
  if (!LevelFirst && !UprightFirst) return std::nullopt;
  return RectF{P[0].X, P[0].Y, P[2].X - P[0].X, P[2].Y - P[0].Y};
}

RectF ExtentOf(const TShape& Shape, float Width) {
  const double Room = static_cast<double>(Width) / 2 + 2;
  return FromQt(Shape.AsPath().ToQt().boundingRect().adjusted(-Room, -Room, Room, Room));
}

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

bool HasCountlessDashes(const Pen& Pen, const TShape& Shape) {
  constexpr float MaxDashes = 250'000;
  const std::vector<float> Dashes = Pen.DashPattern();
  if (Dashes.empty()) return false;
  float Length = 0;
  for (const auto& Figure : FiguresOf(Matrix(), Shape)) Length += LengthOf(Figure);
  const float Pattern = std::accumulate(Dashes.begin(), Dashes.end(), 0.0f) * Pen.EffectiveWidth();
  return !(Length * static_cast<float>(Dashes.size()) <= MaxDashes * Pattern);  // not so for what is no number either
}

}  // namespace zy
