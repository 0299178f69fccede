#pragma once

#include <vector>

#include "platform/drawing/Geometry.h"
#include "platform/framework/Alignment.h"
#include "platform/framework/EnumInfo.h"

namespace zy {

/// How the items of a legend fill its grid.
enum class TZyItemsOrder { ByColumn, ByRow };
ZY_ENUM(TZyItemsOrder, "ByColumn", "ByRow")

/// What decides where the items of a legend stand; lengths in pixels.
struct TZyLegendGridLook {
  TZyItemsOrder Order = TZyItemsOrder::ByColumn;
  int Columns = 1;
  int Rows = 1;
  float ItemWidth = 0;  ///< of a symbol
  float ItemHeight = 0;
  float DistanceItemCaption = 0;
  float DistanceBetweenLines = 0;
  float DistanceBetweenColumns = 0;
  float DistanceToBorder = 0;
  int FixedWidth = -1;  ///< in which rows are centred; below 0 for a legend as wide as its items
};

/// The title of a legend, which stands above the items.
struct TZyLegendTitle {
  SizeF Extent;
  float DistanceBefore = 0;
  float DistanceAfter = 0;
  TAlignment Alignment = TAlignment::taCenter;
};

/// An item: the extent of its caption, and what the grid makes of it.
struct TZyLegendCell {
  SizeF Caption;
  TRect Symbol;     ///< the area of the symbol, in pixels of the legend
  PointF Anchor{};  ///< the middle of the caption's left edge
};

/// Places the items of a legend and its title. Every length is rounded at each step, halves to the even neighbour.
///
/// Columns are filled by height: one takes items until its share of the height of all is reached, so that their number
/// is an aim. Rows take a number of items each, what is left going to a further one.
class TZyLegendGrid {
 public:
  /// Title may be null.
  TZyLegendGrid(const TZyLegendGridLook& Look, const TZyLegendTitle* Title, std::vector<TZyLegendCell>& Cells);

  /// Extent of all, without a shadow.
  int Width() const { return FWidth; }
  int Height() const { return FHeight; }
  /// Where the title's alignment has it.
  PointF TitleAnchor() const { return FTitleAnchor; }

 private:
  /// Items that stand in one row.
  struct TRow {
    std::size_t First = 0, End = 0;
    int Width = 0;
  };

  int HeightOf(const TZyLegendCell& Cell) const;
  void Place(TZyLegendCell& Cell, int X, int Y) const;
  void Move(TZyLegendCell& Cell, float By) const;
  void FillColumns();
  void FillRows();
  void CentreRow(const TRow& Row);
  void FitTitle(const TZyLegendTitle& Title);

  const TZyLegendGridLook& FLook;
  std::vector<TZyLegendCell>& FCells;
  int FToCaption = 0;  // from the left of a symbol to its caption
  int FWidth = 0;
  int FHeight = 0;
  PointF FTitleAnchor;
};

/// The nearest whole number of pixels, halves to the even one; nothing is beyond the largest extent of a control.
int RoundToPixels(float Value);

}  // namespace zy
