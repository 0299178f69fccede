#pragma once

#include <cstddef>
#include <vector>

#include "platform/drawing/Geometry.h"

namespace zy {

/// Boxes around a pie that make room for each other: those below its middle go down, those above go up. Y runs down
/// from the middle; a box is given by its middle and its extent, which compare as corners and extents do.
///
/// In each of four passes, two downwards and two upwards, a box moves every other one that it overlaps, and that lies
/// in its direction or beside it, to just past itself. Boxes of one extent that lie above each other, and come in their
/// order down the right side, do not overlap afterwards; where the order runs against the direction, some still may.
/// Boxes on the middle line itself never move.
class TZyCalloutBoxes {
 public:
  /// Boxes must be finite. They are compared with those of about the same X alone.
  explicit TZyCalloutBoxes(std::vector<RectF>& Boxes);
  /// Moves them; Moved gets true for each box that was.
  void PushApart(std::vector<bool>& Moved);

 private:
  void Push(bool Down, std::vector<bool>& Moved);
  std::size_t ColumnOf(float X) const;

  std::vector<RectF>& FBoxes;
  std::vector<std::vector<std::size_t>> FBelow, FAbove;  // the boxes on either side of the middle, by columns of X
  float FFirst = 0;
  float FWidest = 0;
  float FHighest = 0;
  float FColumnWidth = 1;
};

}  // namespace zy
