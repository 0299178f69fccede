#include "series/ZyPointSeries.h"

#include "platform/framework/TPropInfo.h"
#include "series/ZyFunctionSeries.h"

namespace zy {

ZY_PUBLISHED(TZyPointSeries, TZyLineSeries, Published<&TZyPointSeries::PointSymbol>("PointSymbol"),
             Published<&TZyPointSeries::RangeFromFunction, &TZyPointSeries::SetRangeFromFunction>("RangeFromFunction"),
             Published<&TZyPointSeries::OutOfRangePointSymbol>("OutOfRangePointSymbol"))

TZyPointSeries::TZyPointSeries(TComponent* Owner) : TZyLineSeries(Owner) {
  Initialize(StaticClassInfo().Name());
  PointSymbol().SetVisible(true);
  OutOfRangePointSymbol().SetVisible(true);
  FDoPointSettingsStorage = true;
}

}  // namespace zy
