#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "platform/drawing/Geometry.h"

namespace zy {

/// Finds the pixel of a series at or near a place, on every move of the mouse: a few pixels are walked, many are sorted
/// into cells first.
class TZyPixelIndex {
 public:
  /// What counts as distance.
  enum class TMetric { Both, X, Y };
  /// The position of a pixel and its distance by the metric; -1 where there is none.
  struct TNearest {
    int Position = -1;
    float Distance = 0;
  };

  /// The pixels are others now.
  void Reset() {
    if (FIsBuilt) *this = {};
  }
  /// Position of the first pixel that lies at most Delta from a place in x and in y; -1 for none.
  int FirstWithin(std::span<const PointF> Pixels, PointF Place, float Delta);
  /// The nearest pixel among those within Area, its edges included; the first of equally near ones.
  TNearest Nearest(std::span<const PointF> Pixels, const RectF& Area, PointF From, TMetric Metric);

 private:
  struct TCell {
    int Column, Row;
  };

  TCell CellOf(PointF Place) const;
  std::size_t NumberOf(TCell Cell) const;
  void Build(std::span<const PointF> Pixels);
  std::span<const int> PositionsIn(int Column, int Row) const;

  bool FIsBuilt = false;
  PointF FOrigin;
  int FColumns = 0, FRows = 0;
  std::vector<int> FCellStart;  // of each cell in FPositions, row by row
  std::vector<int> FPositions;  // ascending in each cell
};

}  // namespace zy
