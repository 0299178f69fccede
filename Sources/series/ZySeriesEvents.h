#pragma once

#include <functional>

#include "graph/styles/ZyPointSymbolSettings.h"
#include "platform/drawing/Geometry.h"
#include "series/vectors/ZyValueTransformation.h"

namespace zy {

class Brush;
class Graphics;
class TObject;
class TZyPen;

// What the events of a series carry. Index is the index of the data point, -1 for a curve that has none; X and Y are
// its transformed values. A handler may change what is not const; pens and brushes stay the handler's own.

/// A segment of the line that is about to be drawn, by its first point.
struct TZyPenEventArgs {
  int Index = 0;
  double X = 0;
  double Y = 0;
  const TZyPen* Pen = nullptr;
  bool Visible = true;
};
using TZyPenEventHandler = std::function<void(TObject* Sender, TZyPenEventArgs& Args)>;
template <>
inline std::string_view TypeName<TZyPenEventHandler>() {
  return "TZyPenEventHandler";
}

/// The area below a segment.
struct TZyBrushEventArgs {
  int Index = 0;
  double X = 0;
  double Y = 0;
  const zy::Brush* Brush = nullptr;
  bool Visible = true;
};
using TZyBrushEventHandler = std::function<void(TObject* Sender, TZyBrushEventArgs& Args)>;
template <>
inline std::string_view TypeName<TZyBrushEventHandler>() {
  return "TZyBrushEventHandler";
}

/// The symbol of a point.
struct PointSymbolEventArgs {
  int Index = 0;
  double X = 0;
  double Y = 0;
  float Size = 0;
  const TZyPen* Pen = nullptr;
  const zy::Brush* Brush = nullptr;
  TZyPointSymbol Symbol = TZyPointSymbol::Circle;
  bool Visible = true;
};
using PointSymbolEventHandler = std::function<void(TObject* Sender, PointSymbolEventArgs& Args)>;
template <>
inline std::string_view TypeName<PointSymbolEventHandler>() {
  return "PointSymbolEventHandler";
}

/// The point of a series that lies nearest to a place; ThePoint and Distance in pixels.
struct TZyNearestPointResult {
  bool Found = false;
  float Distance = 0;
  int Index = -1;
  double X = 0;
  double Y = 0;
  PointF ThePoint;
};

/// Where an item of a legend is to be drawn; Index is that of the item.
struct TZyLegendItemDrawArgs {
  zy::Graphics* Graphics = nullptr;
  TRect Rect;
  int Index = 0;
};

/// How an item of a legend shows line and area: the area whole, below the line, or below one of the diagonals.
enum class LegendItemStyle { Filled, HalfHorizontal, AscendingDiagonal, DescendingDiagonal };

}  // namespace zy
