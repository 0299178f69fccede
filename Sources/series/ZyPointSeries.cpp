#include "series/ZyPointSeries.h"

#include "platform/framework/TPropInfo.h"
#include "series/ZyFunctionSeries.h"

namespace zy {

ZY_PUBLISHED(TZyPointSeries, TZyLineSeries,
             Republished("PointSymbol RangeFromFunction OutOfRangePointSymbol OnGetPointSymbol"))

TZyPointSeries::TZyPointSeries(TComponent* Owner) : TZyLineSeries(Owner) {
  Initialize(StaticClassInfo().Name());
  PointSymbol().SetVisible(true);
  OutOfRangePointSymbol().SetVisible(true);
  FDoPointSettingsStorage = true;
}

}  // namespace zy
