#pragma once

#include <vector>

#include "platform/drawing/Geometry.h"
#include "platform/drawing/Pen.h"

namespace zy {

/// A line whose ends are shapes of their own, taken apart: the line itself, shortened, and the shapes in place.
struct TShapedLine {
  std::vector<PointF> Points;  // empty when nothing is left of the line
  GraphicsPath Fill;           // to fill with the pen's brush
  GraphicsPath Stroke;         // to draw with the pen
};

/// Whether the ends of a pen's lines are anything that one pen of the toolkit cannot draw.
bool HasShapedEnds(const Pen& Pen);

/// Takes the line apart. Points has two points at least.
TShapedLine ShapeLine(const Pen& Pen, std::span<const PointF> Points);

/// The pen of the shortened line: the same with plain ends.
Pen WithPlainEnds(const Pen& Pen);

}  // namespace zy
