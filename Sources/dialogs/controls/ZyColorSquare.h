#pragma once

#include "graph/values/ZyColors.h"
#include "platform/drawing/Geometry.h"

namespace zy {

class Graphics;

/// Draws a colour in a frame over a ground of black and white quarters, which shows through what is transparent. Box
/// lies on whole pixels; its frame takes one on each side.
void DrawColorSquare(Graphics& Canvas, const RectF& Box, TZyColor Color);

/// Fills a box with black and white cells of so many pixels, white in the upper left.
void DrawChequer(Graphics& Canvas, const RectF& Box, float Cell);

}  // namespace zy
