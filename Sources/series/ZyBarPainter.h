#pragma once

#include <memory>
#include <vector>

#include "series/ZyBars.h"
#include "series/ZyPointLook.h"

namespace zy {

/// Paints the bars of several series class by class, in drawing order. A handler may free any of the series.
///
/// Bars that are no wider than their pen, and have no label, are lines. Those of one column of pixels are gathered, and
/// only what later ones leave to be seen is drawn, so that the cost follows the pixels.
class TZyBarPainter {
 public:
  /// Bars are painted by the first of them.
  TZyBarPainter(Graphics& Gr, const std::vector<TZyBars*>& Bars);
  void Paint();

 private:
  struct TEntry {
    explicit TEntry(TZyBars& Of);
    TZyBars& Bars;
    std::uint64_t Handle;
    TZyPointLook Look;
    bool IsHorizontal;
    bool IsPlain;  // the look is the same for all bars: lines of that width and colour
    float LineWidth;
    TZyColor LineColor;
    std::size_t First = 0, Last = 0;
  };
  /// The bars from First up to, but not including, Last.
  struct TRange {
    std::size_t First, Last;
  };
  /// A line of a column, from the one end of its bar to the other.
  struct TLine {
    TEntry* Of;
    float Low, High;
  };

  static TRange VisibleBars(TZyBars& Bars);
  void PaintBar(TEntry& Entry, std::size_t Bar);
  void PaintFlat(const TZyPointLook& Look, const RectF& Rect, bool HasArea, bool HasLine);
  void PaintSolid(const TEntry& Entry, std::size_t Bar, TZyColor Frame, TZyColor Fill);
  void Gather(TEntry& Entry, const RectF& Rect);
  void PaintColumn();
  void PaintLine(const RectF& Rect, bool IsHorizontal, float Width, TZyColor Color);

  Graphics& FGr;
  bool FHasEvents = false;
  std::vector<std::unique_ptr<TEntry>> FEntries;
  std::vector<TLine> FColumn, FSeen;  // kept for their memory
  float FColumnAt = 0;
  bool FColumnIsHorizontal = false;
};

}  // namespace zy
