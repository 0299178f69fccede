#include "series/ZyFunctionSeries.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyFunctionSeries, TZySeries)

TZySeries::TPointValues TZyFunctionSeries::ValuesOfPixel(int, float PixelX) const {
  const double X = XAxis()->WorldToNumber(PixelX);
  return {-1, X, GetY(X)};
}

}  // namespace zy
