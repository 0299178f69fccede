#pragma once

#include <optional>
#include <vector>

#include "platform/drawing/Geometry.h"
#include "platform/drawing/GraphicsBackend.h"
#include "platform/drawing/Pen.h"

namespace zy {

/// Lines whose ends are shapes of their own, taken apart: the lines themselves, shortened, and the shapes in place.
struct TShapedLines {
  std::vector<std::vector<PointF>> Lines;  // those that are left
  GraphicsPath Fill;                       // to fill with the pen's brush
  GraphicsPath Stroke;                     // to draw with the pen, together with the figures that have no ends
};

/// Takes a shape's open figures apart, curves as lines. Nothing for a pen that one of the toolkit can stand for, and
/// for a shape without ends.
std::optional<TShapedLines> ShapeEnds(const Pen& Pen, const TShape& Shape);

/// The pen of the shortened line: the same with plain ends.
Pen WithPlainEnds(const Pen& Pen);

}  // namespace zy
