#pragma once

#include <memory>
#include <span>

#include "graph/styles/ZyPointSymbolSettings.h"
#include "graph/values/ZyColors.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/GraphicsPath.h"

namespace zy {

class Brush;
class Graphics;
class Pen;

// The shapes that recur in charts. Coordinates are pixels, y down; shapes lie on the centres of pixels, as lines do,
// unless said otherwise. Corners may be given in any order. A frame in Colors::Transparent is no frame.

// ---- Rectangles ----

/// The rectangle between two opposite corners.
TRect OrderedRect(int X1, int Y1, int X2, int Y2);
/// The same with an extent of at least 0.0001 each way, so that a gradient over it is never empty.
RectF OrderedRect(float X1, float Y1, float X2, float Y2);
/// The same rectangle by its corner and extent.
RectF TRectToRectF(const TRect& Rect);
/// Whether on both axes an edge of A lies within B, ends included. The edges of A decide: a B between them counts as
/// apart, so the order of the arguments matters.
bool RectanglesOverlaping(const RectF& A, const RectF& B);

// ---- Point symbols ----

/// Draws a symbol around (X, Y): lines and outlines with the pen, insides with the brush. Size is the outer extent of
/// circles and squares, with their outline. A Dot is a square of the pen's width and heeds neither Size nor the brush.
void DrawPointSymbol(Graphics& Gr, const Pen& Pen, const Brush& Brush, float X, float Y, float Size,
                     TZyPointSymbol Symbol);
/// Draws a symbol at each of Points, in this order. On pictures, places are rounded to quarters of a pixel, and
/// thousands of symbols in plain colours cost little.
void DrawPointSymbols(Graphics& Gr, const Pen& Pen, const Brush& Brush, std::span<const PointF> Points, float Size,
                      TZyPointSymbol Symbol);
/// Cuts a symbol's inside out of the clip, so that what is drawn later does not shine through a translucent symbol. The
/// symbols of lines alone have no inside. Not cheap: ask for translucency first.
void ExcludeSymbolSpace(Graphics& Gr, float X, float Y, float Size, TZyPointSymbol Symbol);

// ---- Bars ----

/// Draws a box: its front face lies between the corners, its top and side faces go DepthX pixels to the right and
/// DepthY pixels up. The signs of the depths do not matter.
void Draw3DBar(Graphics& Gr, TZyColor FrameColor, TZyColor FillColor, float X1, float Y1, float X2, float Y2,
               float DepthX, float DepthY);
/// The same with the shading of the front and the top spread from GradientLeft over GradientWidth pixels, so that a
/// stack of bars can share it; over the bar itself when GradientWidth is not above 0.
void Draw3DBar(Graphics& Gr, TZyColor FrameColor, TZyColor FillColor, float X1, float Y1, float X2, float Y2,
               float DepthX, float DepthY, float GradientLeft, float GradientWidth);

/// Draws a standing cylinder. The corners span its side; its cap is an ellipse of height DepthY above that. A DepthX
/// above 0 lets the caps lean to the right, by so much over the height of a cap. Only the cap has a frame.
void DrawCylinderVertical(Graphics& Gr, TZyColor FrameColor, TZyColor FillColor, float X1, float Y1, float X2, float Y2,
                          float DepthX, float DepthY);
/// Draws a lying cylinder. The corners span its side; its end is an ellipse of width DepthX to the right of that. A
/// DepthY above 0 lets the ends lean upwards, by so much over the width of an end. Only the end has a frame.
void DrawCylinderHorizontal(Graphics& Gr, TZyColor FrameColor, TZyColor FillColor, float X1, float Y1, float X2,
                            float Y2, float DepthX, float DepthY);

/// Where a straight line touches an ellipse around the origin: the angle of that point seen from the centre, in
/// degrees, clockwise from the x axis. A and B are the semi-axes along x and y. The line goes on by -Slope in x when
/// it goes on by 1 in y; for a Slope of 0 it stands upright and touches at 180 degrees. The other point of the
/// ellipse with that tangent lies opposite. Remembers its last result, as the bars of a series all ask the same.
float EllipseTangentAngle(float A, float B, float Slope);

// ---- Boxes and shadows ----

/// A rectangle with rounded corners; Rounding is the diameter of the corners, cut to the smaller side. A plain
/// rectangle when it is not above 0.
std::unique_ptr<GraphicsPath> RoundRectPath(const RectF& Rect, float Rounding);

/// Draws a box, with round corners as in RoundRectPath. A plain rectangle is drawn in whole pixels, without smoothing.
/// Framed outlines it with the pen. Raised and Lowered give it an edge in light and shade, both together a ridge; a
/// framed box has none. Shadow drops a shadow, see DrawShadow.
void DrawRoundRect(Graphics& Gr, const Brush& Brush, const Pen& Pen, const RectF& Rect, float Rounding, bool Framed,
                   bool Shadow, bool Raised, bool Lowered);

/// Draws the soft shadow of a shape DX pixels to the right of it and DY below, DX being 1 or more; never on the shape
/// itself, and only within the clip of Gr, which stays. The path may be anywhere afterwards. A shape whose figures
/// overlap each other, which has to say so, costs far more.
void DrawShadow(Graphics& Gr, GraphicsPath& Path, float DX, float DY, bool Overlaps = false);

}  // namespace zy
