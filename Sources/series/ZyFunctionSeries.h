#pragma once

#include "series/ZyLineSeries.h"

namespace zy {

/// Base of the curves that are computed from other series: it has a value everywhere and no points of its own.
class TZyFunctionSeries : public TZySeries {
  ZY_CLASS(TZyFunctionSeries, TZySeries)
  using TZySeries::TZySeries;

  /// The range of X whose data the curve was computed from.
  virtual double GetCalcStart() const = 0;
  virtual double GetCalcStop() const = 0;

  /// Any change of its data means to compute the curve anew.
  void DataInvalidated() override { SetLastCount(0); }
  TPointValues ValuesOfPixel(int Index, float PixelX) const override;
};

}  // namespace zy
