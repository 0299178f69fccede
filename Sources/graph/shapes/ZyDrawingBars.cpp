#include <array>
#include <cmath>

#include "graph/shapes/ZyDrawing.h"
#include "graph/styles/ZyGradientBrushes.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"

namespace zy {
namespace {

/// A box with its front face between the corners.
struct TBox {
  RectF Front;
  float Dx;
  float Dy;
  RectF Gradient;  // what the shading of front and top is spread over

  float Right() const { return Front.X + Front.Width; }
  float Bottom() const { return Front.Y + Front.Height; }
};

std::unique_ptr<Brush> FrontBrush(const TBox& Box, TZyColor Color) {
  return LinearBrush(Box.Gradient, 0, 0.5f, Brighten(Color, 1.2), Color, Brighten(Color, 0.8));
}

void DrawSilhouette(Graphics& Gr, const TBox& Box, const Brush& Brush) {
  const auto& [X, Y, Width, Height] = Box.Front;
  const float Right = Box.Right(), Bottom = Box.Bottom();
  const PointF Corners[] = {{X, Y},
                            {X + Box.Dx, Y - Box.Dy},
                            {Right + Box.Dx, Y - Box.Dy},
                            {Right + Box.Dx, Bottom - Box.Dy},
                            {Right, Bottom},
                            {X, Bottom}};
  Gr.FillPolygon(Brush, Corners);
}

// Filled as a polygon: a box of pixels would lie half a pixel beside the other two faces.
void DrawFront(Graphics& Gr, const TBox& Box, const Brush& Brush) {
  const auto& [X, Y, Width, Height] = Box.Front;
  const PointF Corners[] = {{X, Y}, {Box.Right(), Y}, {Box.Right(), Box.Bottom()}, {X, Box.Bottom()}};
  Gr.FillPolygon(Brush, Corners);
}

void SetTopColors(PathGradientBrush& Brush, TZyColor Color) {
  const ARGB Colors[] = {Brighten(Color, 1.3), Brighten(Color, 1.2), Brighten(Color, 1.1), Brighten(Color, 1.25)};
  Brush.SetSurroundColors(Colors);
}

void DrawTop(Graphics& Gr, const TBox& Box, TZyColor FrameColor, TZyColor FillColor) {
  const float Y = Box.Front.Y, Back = Y - Box.Dy;
  const auto CornersFrom = [&](float Left, float Right) {
    return std::array<PointF, 4>{{{Left, Y}, {Right, Y}, {Right + Box.Dx, Back}, {Left + Box.Dx, Back}}};
  };
  const auto Corners = CornersFrom(Box.Front.X, Box.Right());
  const auto Spread = CornersFrom(Box.Gradient.X, Box.Gradient.X + Box.Gradient.Width);
  const PointF Outline[] = {Spread[0], Spread[1], Spread[2], Spread[3], Corners[0], Corners[1]};
  PathGradientBrush Brush{std::span<const PointF>(Outline)};
  Brush.SetCenterColor(Brighten(FillColor, 1.325));
  SetTopColors(Brush, FillColor);
  Gr.FillPolygon(Brush, Corners);
  if (FrameColor == Colors::Transparent) return;
  SetTopColors(Brush, FrameColor);
  Gr.DrawPolygon(Pen(Brush, 1), Corners);
}

void DrawSide(Graphics& Gr, const TBox& Box, TZyColor FrameColor, TZyColor FillColor) {
  const float Left = Box.Right(), Top = Box.Front.Y, Bottom = Box.Bottom();
  const PointF Corners[] = {
      {Left, Top}, {Left + Box.Dx, Top - Box.Dy}, {Left + Box.Dx, Bottom - Box.Dy}, {Left, Bottom}};
  const auto BrushOf = [&](TZyColor Color) {
    return LinearBrush(RectF{Left, Top, Box.Dx, Box.Front.Height}, 0, 0.5f, Brighten(Color, 0.6), Brighten(Color, 0.5),
                       Brighten(Color, 0.4));
  };
  Gr.FillPolygon(*BrushOf(FillColor), Corners);
  if (FrameColor != Colors::Transparent) Gr.DrawPolygon(Pen(*BrushOf(FrameColor), 1), Corners);
}

}  // namespace

void Draw3DBar(Graphics& Gr, TZyColor FrameColor, TZyColor FillColor, float X1, float Y1, float X2, float Y2,
               float DepthX, float DepthY) {
  Draw3DBar(Gr, FrameColor, FillColor, X1, Y1, X2, Y2, DepthX, DepthY, 0, 0);
}

void Draw3DBar(Graphics& Gr, TZyColor FrameColor, TZyColor FillColor, float X1, float Y1, float X2, float Y2,
               float DepthX, float DepthY, float GradientLeft, float GradientWidth) {
  const RectF Front = OrderedRect(X1, Y1, X2, Y2);
  TBox Box{Front, std::fabs(DepthX), std::fabs(DepthY), Front};
  if (GradientWidth > 0) {
    Box.Gradient.X = GradientLeft;
    Box.Gradient.Width = GradientWidth;
  }
  const auto Fill = FrontBrush(Box, FillColor);
  // Closes the seams between the faces; a translucent colour would show what lies below them.
  if (GetAlpha(FillColor) > 254) DrawSilhouette(Gr, Box, *Fill);
  DrawFront(Gr, Box, *Fill);
  if (FrameColor != Colors::Transparent) Gr.DrawRectangle(Pen(*FrontBrush(Box, FrameColor), 1), Front);
  DrawTop(Gr, Box, FrameColor, FillColor);
  DrawSide(Gr, Box, FrameColor, FillColor);
}

}  // namespace zy
