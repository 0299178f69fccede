#include <array>
#include <cmath>
#include <functional>
#include <optional>
#include <string_view>

#include "graph/shapes/ZyDrawing.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"

namespace zy {
namespace {

// Corners around the centre, for a radius of 1.
constexpr PointF FiveStarCorners[] = {{0, -1.04f}, {0.27f, -0.3f},  {1, -0.3f},     {0.4f, 0.12f}, {0.64f, 0.82f},
                                      {0, 0.4f},   {-0.64f, 0.82f}, {-0.4f, 0.12f}, {-1, -0.3f},   {-0.27f, -0.3f}};
constexpr PointF SquareCorners[] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
constexpr PointF DiamondCorners[] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};
// Equilateral, with the centre at a third of the height.
constexpr PointF DeltaCorners[] = {{0, -1.1547f}, {1, 0.57735f}, {-1, 0.57735f}};
constexpr PointF NablaCorners[] = {{-1, -0.57735f}, {1, -0.57735f}, {0, 1.1547f}};

std::span<const PointF> CornersOf(TZyPointSymbol Symbol) {
  switch (Symbol) {
    case TZyPointSymbol::FiveStar:
      return FiveStarCorners;
    case TZyPointSymbol::Square:
      return SquareCorners;
    case TZyPointSymbol::Diamond:
      return DiamondCorners;
    case TZyPointSymbol::Delta:
      return DeltaCorners;
    case TZyPointSymbol::Nabla:
      return NablaCorners;
    default:
      return {};
  }
}

/// The corners of a symbol at its place, without an allocation.
class TPlacedCorners {
 public:
  TPlacedCorners(TZyPointSymbol Symbol, float X, float Y, float Radius) {
    for (const PointF& Corner : CornersOf(Symbol)) FCorners[FCount++] = {X + Corner.X * Radius, Y + Corner.Y * Radius};
  }
  operator std::span<const PointF>() const { return {FCorners.data(), FCount}; }

 private:
  std::array<PointF, std::size(FiveStarCorners)> FCorners;
  std::size_t FCount = 0;
};

RectF BoxAround(float X, float Y, float Radius) { return {X - Radius, Y - Radius, 2 * Radius, 2 * Radius}; }

/// Boxes of pixels count from the corners of pixels, all other shapes from their centres.
RectF AsPixelBox(RectF Box) {
  Box.X += 0.5f;
  Box.Y += 0.5f;
  return Box;
}

void DrawCross(Graphics& Gr, const Pen& Pen, float X, float Y, float Radius) {
  Gr.DrawLine(Pen, X, Y, X + Radius, Y);
  Gr.DrawLine(Pen, X, Y, X - Radius, Y);
  Gr.DrawLine(Pen, X, Y, X, Y + Radius);
  Gr.DrawLine(Pen, X, Y, X, Y - Radius);
}

void DrawEx(Graphics& Gr, const Pen& Pen, float X, float Y, float Radius) {
  Gr.DrawLine(Pen, X, Y, X + Radius, Y + Radius);
  Gr.DrawLine(Pen, X, Y, X - Radius, Y + Radius);
  Gr.DrawLine(Pen, X, Y, X + Radius, Y - Radius);
  Gr.DrawLine(Pen, X, Y, X - Radius, Y - Radius);
}

constexpr float LargestStamp = 64;  // reach of a symbol; what is larger is rare, and its stamps would fill memory

/// How far a symbol's pixels may lie from its centre: the farthest corner, with the mitre of the star's sharpest tip.
float ReachOf(const Pen& Pen, float Size) {
  const float Width = Pen.EffectiveWidth();
  return 1.16f * std::fabs(Size - Width) / 2 + 2 * Width + 1;
}

/// All that a symbol's pixels depend on.
struct TLook {
  ARGB Line, Fill;
  float Size, Width, MiterLimit;
  int Symbol, Join, StartCap, EndCap;

  std::string_view Bytes() const { return {reinterpret_cast<const char*>(this), sizeof *this}; }
};

/// Names it; nothing when that is more than a few numbers, or the place matters, as
/// it does for gradients and patterns.
std::optional<TLook> LookOf(const Pen& Pen, const Brush& Brush, float Size, TZyPointSymbol Symbol) {
  const auto* const Line = dynamic_cast<const SolidBrush*>(&Pen.GetBrush());
  const auto* const Fill = dynamic_cast<const SolidBrush*>(&Brush);
  if (Line == nullptr || Fill == nullptr || Pen.GetDashStyle() != DashStyleSolid) return {};
  if (!(ReachOf(Pen, Size) <= LargestStamp)) return {};
  if (Pen.StartShape() != nullptr || Pen.EndShape() != nullptr) return {};
  return TLook{Line->GetColor(),  Fill->GetColor(),    Size,
               Pen.GetWidth(),    Pen.GetMiterLimit(), static_cast<int>(Symbol),
               Pen.GetLineJoin(), Pen.GetStartCap(),   Pen.GetEndCap()};
}

}  // namespace

void DrawPointSymbol(Graphics& Gr, const Pen& Pen, const Brush& Brush, float X, float Y, float Size,
                     TZyPointSymbol Symbol) {
  const float Width = Pen.GetWidth() > 0 ? Pen.GetWidth() : 1;
  const float Radius = (Size - Width) / 2;
  switch (Symbol) {
    case TZyPointSymbol::Dot:
      return Gr.FillRectangle(Pen.GetBrush(), AsPixelBox(BoxAround(X, Y, Width / 2)));
    case TZyPointSymbol::Cross:
      return DrawCross(Gr, Pen, X, Y, Radius);
    case TZyPointSymbol::Ex:
      return DrawEx(Gr, Pen, X, Y, Radius);
    case TZyPointSymbol::Star:
      DrawCross(Gr, Pen, X, Y, Radius);
      return DrawEx(Gr, Pen, X, Y, 0.7071067f * Radius);
    case TZyPointSymbol::Circle:
      Gr.FillEllipse(Brush, BoxAround(X, Y, Radius));
      return Gr.DrawEllipse(Pen, BoxAround(X, Y, Radius));
    default: {
      const TPlacedCorners Corners(Symbol, X, Y, Radius);
      Gr.FillPolygon(Brush, Corners);
      return Gr.DrawPolygon(Pen, Corners);
    }
  }
}

void DrawPointSymbols(Graphics& Gr, const Pen& Pen, const Brush& Brush, std::span<const PointF> Points, float Size,
                      TZyPointSymbol Symbol) {
  const auto Look = LookOf(Pen, Brush, Size, Symbol);
  if (!Look) {
    for (const PointF& Point : Points) DrawPointSymbol(Gr, Pen, Brush, Point.X, Point.Y, Size, Symbol);
    return;
  }
  const auto Paint = [&](Graphics& Stamp) { DrawPointSymbol(Stamp, Pen, Brush, 0, 0, Size, Symbol); };
  Gr.DrawStamps(Look->Bytes(), BoxAround(0, 0, ReachOf(Pen, Size)), Points, std::cref(Paint));
}

void ExcludeSymbolSpace(Graphics& Gr, float X, float Y, float Size, TZyPointSymbol Symbol) {
  const float Radius = (Size - 1) / 2;
  GraphicsPath Shape;
  switch (Symbol) {
    case TZyPointSymbol::Dot:
    case TZyPointSymbol::Cross:
    case TZyPointSymbol::Ex:
    case TZyPointSymbol::Star:
      return;
    case TZyPointSymbol::Square:
      return Gr.ExcludeClip(AsPixelBox(BoxAround(X, Y, Radius)));
    case TZyPointSymbol::Circle:
      Shape.AddEllipse(BoxAround(X, Y, Radius));
      break;
    default:
      Shape.AddPolygon(TPlacedCorners(Symbol, X, Y, Radius));
  }
  // A region of no path is everything, and would leave nothing of the clip.
  if (!Shape.IsEmpty()) Gr.ExcludeClip(Region(Shape));
}

}  // namespace zy
