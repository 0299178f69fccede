#pragma once

#include "series/ZyLineSeries.h"

namespace zy {

/// Point symbols at measured data, with or without a line through them.
///
/// With a function as RangeFromFunction, points outside the range that it was computed from are drawn with a symbol of
/// their own.
class TZyPointSeries : public TZyLineSeries {
  ZY_CLASS(TZyPointSeries, TZyLineSeries)
  explicit TZyPointSeries(TComponent* Owner = nullptr);

  using TZySeries::OutOfRangePointSymbol;
  using TZySeries::PointSymbol;
  using TZySeries::RangeFromFunction;
  using TZySeries::SetRangeFromFunction;
  // Asked for the look of each symbol. It may show one on a series whose symbols are off.
  using TZySeries::OnGetPointSymbol;
  using TZySeries::SetOnGetPointSymbol;
  // The pen and the brush of the symbols; see SetLinePen.
  using TZySeries::SetSymbolBorderPen;
  using TZySeries::SetSymbolFillBrush;
  using TZySeries::SymbolBorderPen;
  using TZySeries::SymbolFillBrush;
};

}  // namespace zy
