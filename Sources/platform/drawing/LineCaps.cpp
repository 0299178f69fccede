#include "platform/drawing/LineCaps.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace zy {
namespace {

/// A plain end as a shape, for lines whose two ends differ; null for a flat one.
std::optional<CustomLineCap> PlainShape(LineCap Cap) {
  GraphicsPath Shape;
  if (Cap == LineCapSquare) Shape.AddRectangle({-0.5f, 0, 1, 0.5f});
  if (Cap == LineCapRound) Shape.AddPie({-0.5f, -0.5f, 1, 1}, 0, 180);
  if (Shape.IsEmpty()) return std::nullopt;
  return CustomLineCap(&Shape, nullptr);
}

/// Shortens the line at its end by Length and returns the direction in which it ends; nothing for a line without
/// length.
std::optional<PointF> Shorten(std::vector<PointF>& Points, float Length) {
  const PointF End = Points.back();
  PointF Base = End;
  float Left = std::max(Length, 0.0f);
  while (Points.size() > 1) {
    const PointF Before = Points[Points.size() - 2];
    const float Segment = std::hypot(Points.back().X - Before.X, Points.back().Y - Before.Y);
    if (Segment > Left) {
      const float Part = Left / Segment;
      Base = {Points.back().X + (Before.X - Points.back().X) * Part,
              Points.back().Y + (Before.Y - Points.back().Y) * Part};
      if (Base == End) Base = Before;
      break;
    }
    Left -= Segment;
    Points.pop_back();
    Base = Before;
  }
  const bool IsUsedUp = Points.size() < 2;
  if (IsUsedUp)
    Points.clear();
  else if (Length > 0)
    Points.back() = Base;
  const float Distance = std::hypot(End.X - Base.X, End.Y - Base.Y);
  if (!(Distance > 0)) return std::nullopt;
  return PointF{(End.X - Base.X) / Distance, (End.Y - Base.Y) / Distance};
}

void Place(const CustomLineCap& Cap, PointF End, PointF Direction, float Width, TShapedLines& Result) {
  const auto [X, Y] = Direction;
  const Matrix ToEnd(-Y * Width, X * Width, X * Width, Y * Width, End.X, End.Y);
  const auto Add = [&ToEnd](GraphicsPath Shape, GraphicsPath& Whole) {
    if (Shape.IsEmpty()) return;
    Shape.Transform(ToEnd);
    Whole.AddPath(Shape);
  };
  Add(Cap.FillPath(), Result.Fill);
  Add(Cap.StrokePath(), Result.Stroke);
}

/// Whether the ends of a pen's lines are anything that one pen of the toolkit cannot draw.
bool HasShapedEnds(const Pen& Pen) {
  return Pen.StartShape() != nullptr || Pen.EndShape() != nullptr || Pen.GetStartCap() != Pen.GetEndCap();
}

void ShapeLine(const Pen& Pen, std::vector<PointF> Points, TShapedLines& Result) {
  const PointF First = Points.front(), Last = Points.back();
  const float Width = Pen.EffectiveWidth();
  const auto ShapeEnd = [&](const CustomLineCap* Shape, LineCap Plain, PointF End) {
    const std::optional<CustomLineCap> PlainCap = Shape == nullptr ? PlainShape(Plain) : std::nullopt;
    if (Shape == nullptr && PlainCap) Shape = &*PlainCap;
    if (Shape == nullptr || Points.size() < 2) return;
    if (const auto Direction = Shorten(Points, Shape->GetBaseInset() * Width))
      Place(*Shape, End, *Direction, Width, Result);
  };
  ShapeEnd(Pen.EndShape(), Pen.GetEndCap(), Last);
  std::reverse(Points.begin(), Points.end());
  ShapeEnd(Pen.StartShape(), Pen.GetStartCap(), First);
  std::reverse(Points.begin(), Points.end());
  if (Points.size() >= 2) Result.Lines.push_back(std::move(Points));
}

/// The figures of a path, with curves fine enough for any usual scale.
std::vector<std::vector<PointF>> FiguresOf(const GraphicsPath& Path) {
  constexpr float Finer = 8;
  Matrix Enlarged;
  Enlarged.Scale(Finer, Finer);
  auto Result = Path.Flatten(Enlarged);
  for (auto& Figure : Result)
    for (PointF& Point : Figure) Point = {Point.X / Finer, Point.Y / Finer};
  return Result;
}

}  // namespace

std::optional<TShapedLines> ShapeEnds(const Pen& Pen, const TShape& Shape) {
  const bool MayBeOpen = Shape.Kind == TShape::Lines || Shape.Kind == TShape::Path;
  if (!MayBeOpen || !HasShapedEnds(Pen)) return {};
  TShapedLines Result;
  Result.Fill.SetFillMode(FillModeWinding);
  if (Shape.Kind == TShape::Lines) {
    ShapeLine(Pen, {Shape.Points.begin(), Shape.Points.end()}, Result);
    return Result;
  }
  bool IsOpen = false;
  for (std::vector<PointF>& Figure : FiguresOf(*Shape.Outline)) {
    const bool IsClosed = Figure.size() < 2 || Figure.front() == Figure.back();
    IsOpen = IsOpen || !IsClosed;
    if (IsClosed)
      Result.Stroke.AddPolygon(Figure);
    else
      ShapeLine(Pen, std::move(Figure), Result);
  }
  if (!IsOpen) return {};
  return Result;
}

Pen WithPlainEnds(const Pen& Source) {
  Pen Result = Source;
  Result.SetStartCap(LineCapFlat);
  Result.SetEndCap(LineCapFlat);
  return Result;
}

}  // namespace zy
