#include <algorithm>
#include <cmath>

#include "graph/shapes/ZyDrawing.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"

namespace zy {
namespace {

constexpr float BevelWidth = 1.5f;
constexpr TZyColor Light = 0xD2FFFFFF;
constexpr TZyColor Shade = 0x5A000000;

RectF Inset(const RectF& Rect, float By) {
  return {Rect.X + By, Rect.Y + By, Rect.Width - 2 * By, Rect.Height - 2 * By};
}

/// The boxes of the corner arcs of a rounded rectangle.
struct TCorners {
  TCorners(const RectF& Rect, float Diameter)
      : TopLeft{Rect.X, Rect.Y, Diameter, Diameter},
        TopRight{Rect.X + Rect.Width - Diameter, Rect.Y, Diameter, Diameter},
        BottomRight{TopRight.X, Rect.Y + Rect.Height - Diameter, Diameter, Diameter},
        BottomLeft{Rect.X, BottomRight.Y, Diameter, Diameter} {}
  RectF TopLeft, TopRight, BottomRight, BottomLeft;
};

/// The outline of what is filled: a plain box is filled in whole pixels, whose corners lie half a pixel before their
/// centres.
RectF FilledShape(const RectF& Rect, float Rounding) {
  constexpr float ToCorner = 0.5f;
  return Rounding > 0 ? Rect : RectF{Rect.X - ToCorner, Rect.Y - ToCorner, Rect.Width, Rect.Height};
}

float CutToSides(float Rounding, const RectF& Rect) { return std::min({Rounding, Rect.Width, Rect.Height}); }

/// The two halves of the ring along a rectangle's edge: that towards the light from the top left, and the other one.
/// They meet in the corners at the top right and the bottom left.
struct TBevel {
  TBevel(const RectF& Rect, float Rounding) {
    const float Diameter = CutToSides(Rounding, Rect);
    if (Diameter > BevelWidth) {
      AddRound(Rect, Diameter);
    } else {
      AddPlain(Rect);
    }
  }
  GraphicsPath TopLeft, BottomRight;

 private:
  void AddPlain(const RectF& Rect) {
    const RectF Inner = Inset(Rect, BevelWidth);
    const float X = Rect.X, Y = Rect.Y, Right = X + Rect.Width, Bottom = Y + Rect.Height;
    const float InnerRight = Inner.X + Inner.Width, InnerBottom = Inner.Y + Inner.Height;
    const PointF TopLeftCorners[] = {
        {X, Y}, {Right, Y}, {InnerRight, Inner.Y}, {Inner.X, Inner.Y}, {Inner.X, InnerBottom}, {X, Bottom}};
    const PointF BottomRightCorners[] = {{Right, Bottom},           {X, Bottom},           {Inner.X, InnerBottom},
                                         {InnerRight, InnerBottom}, {InnerRight, Inner.Y}, {Right, Y}};
    TopLeft.AddPolygon(TopLeftCorners);
    BottomRight.AddPolygon(BottomRightCorners);
  }

  void AddRound(const RectF& Rect, float Diameter) {
    const RectF InnerRect = Inset(Rect, BevelWidth);
    const TCorners Outer(Rect, Diameter);
    const TCorners Inner(InnerRect, std::max(CutToSides(Diameter - BevelWidth, InnerRect), 0.0f));
    TopLeft.AddArc(Outer.BottomLeft, 135, 45);
    TopLeft.AddArc(Outer.TopLeft, 180, 90);
    TopLeft.AddArc(Outer.TopRight, 270, 45);
    TopLeft.AddArc(Inner.TopRight, 315, -45);
    TopLeft.AddArc(Inner.TopLeft, 270, -90);
    TopLeft.AddArc(Inner.BottomLeft, 180, -45);
    TopLeft.CloseFigure();
    BottomRight.AddArc(Outer.TopRight, 315, 45);
    BottomRight.AddArc(Outer.BottomRight, 0, 90);
    BottomRight.AddArc(Outer.BottomLeft, 90, 45);
    BottomRight.AddArc(Inner.BottomLeft, 135, -45);
    BottomRight.AddArc(Inner.BottomRight, 90, -90);
    BottomRight.AddArc(Inner.TopRight, 0, -45);
    BottomRight.CloseFigure();
  }
};

void DrawBevel(Graphics& Gr, const RectF& Rect, float Rounding, TZyColor TopLeftColor, TZyColor BottomRightColor) {
  if (!(std::min(Rect.Width, Rect.Height) > 2 * BevelWidth)) return;  // no room for two edges
  const TBevel Bevel(Rect, Rounding);
  Gr.FillPath(SolidBrush(TopLeftColor), Bevel.TopLeft);
  Gr.FillPath(SolidBrush(BottomRightColor), Bevel.BottomRight);
}

void DrawPlainBox(Graphics& Gr, const Brush& Brush, const Pen& Pen, const RectF& Rect, bool Framed) {
  const SmoothingMode Before = Gr.GetSmoothingMode();
  Gr.SetSmoothingMode(SmoothingModeNone);
  Gr.FillRectangle(Brush, Rect);
  if (Framed) Gr.DrawRectangle(Pen, Rect);
  Gr.SetSmoothingMode(Before);
}

}  // namespace

std::unique_ptr<GraphicsPath> RoundRectPath(const RectF& Rect, float Rounding) {
  auto Result = std::make_unique<GraphicsPath>();
  const float Diameter = CutToSides(Rounding, Rect);
  if (!(Diameter > 0)) {
    Result->AddRectangle(Rect);
    return Result;
  }
  const TCorners Corners(Rect, Diameter);
  Result->AddArc(Corners.TopLeft, 180, 90);
  Result->AddArc(Corners.TopRight, 270, 90);
  Result->AddArc(Corners.BottomRight, 0, 90);
  Result->AddArc(Corners.BottomLeft, 90, 90);
  Result->CloseFigure();
  return Result;
}

void DrawRoundRect(Graphics& Gr, const Brush& Brush, const Pen& Pen, const RectF& Rect, float Rounding, bool Framed,
                   bool Shadow, bool Raised, bool Lowered) {
  if (Framed) Raised = Lowered = false;
  const RectF Shape = FilledShape(Rect, Rounding);
  if (Shadow) DrawShadow(Gr, *RoundRectPath(Shape, Rounding), 5, 4);
  if (Rounding > 0) {
    const auto Outline = RoundRectPath(Rect, Rounding);
    Gr.FillPath(Brush, *Outline);
    if (Framed) Gr.DrawPath(Pen, *Outline);
  } else {
    DrawPlainBox(Gr, Brush, Pen, Rect, Framed);
  }
  if (Raised) DrawBevel(Gr, Shape, Rounding, Light, Shade);
  if (Lowered) DrawBevel(Gr, Raised ? Inset(Shape, BevelWidth) : Shape, Rounding, Shade, Light);
}

// Layers of the shape at growing distance add up to a soft edge.
void DrawShadow(Graphics& Gr, GraphicsPath& Path, float DX, float DY, bool Overlaps) {
  constexpr int MostLayers = 255;   // the faintest layer there is
  constexpr int FewestInOneGo = 8;  // of fewer ones each is so dark that their edges have to be blended one by one
  const int Count = DX >= 1 ? static_cast<int>(std::lrint(std::min(DX, static_cast<float>(MostLayers)))) : 1;
  const SolidBrush Layer(ColorToARGB(static_cast<unsigned>(255 / Count), 0, 0, 0));
  const PointF Step{DX / static_cast<float>(Count), DY / static_cast<float>(Count)};
  const Region Saved = Gr.GetClip();
  if (!Path.IsEmpty()) Gr.ExcludeClip(Region(Path));
  if (!Overlaps && Count >= FewestInOneGo) {
    Gr.FillTrail(Layer, Path, Step, Count + 1);
  } else {
    Matrix Next;
    Next.Translate(Step.X, Step.Y);
    for (int Index = 0; Index <= Count; ++Index) {
      Path.Transform(Next);
      Gr.FillPath(Layer, Path);
    }
  }
  Gr.SetClip(Saved);
}

}  // namespace zy
