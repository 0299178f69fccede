#pragma once

#include <span>
#include <vector>

#include "platform/drawing/ZyRasterStroke.h"

namespace zy {

class TRasterCells;

/// Draws lines of dense data: on every column of pixels a bar straight up or down, and short ways from bar to bar.
///
/// Where neighbouring bars touch, only the outline of the bars together is left to draw, two steps for each bar however
/// long it is, and the way of the line from one to the other where it leaves what both cover. All else goes to the
/// stroker.
class TRasterComb {
 public:
  void Run(TRasterCells& Cells, TRasterStroker& Stroker, const TRasterGuard& Guard, std::span<const PointF> Points,
           const TRasterStroke& Stroke, double Width);

 private:
  struct TBar {
    std::size_t First;  // index of its first point; the second one follows
    double X, Top, Bottom;
  };

  bool Follows(const TBar& Last, const TBar& Next, double Step) const;
  bool HidesWay(const TBar& Last, const TBar& Next) const;
  void StrokeBetween(std::size_t First, std::size_t Last);
  void StrokeUpTo(std::size_t Last);
  void FillGroup();

  TRasterCells* FCells = nullptr;
  TRasterStroker* FStroker = nullptr;
  const TRasterGuard* FGuard = nullptr;
  std::span<const PointF> FPoints;
  const TRasterStroke* FStroke = nullptr;
  double FWidth = 0;
  std::size_t FDrawn = 0;  // the line up to this point is done
  std::vector<TBar> FGroup;
};

}  // namespace zy
