#include "series/ZyChildSeries.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyChildSeries, TZySeries,
             Published<&Self::Visible, &Self::SetVisible>("Visible",
                                                          _sSeriesVisible),  // its owner says what it is at first
             Republished("PointSymbol YAxis Line Area DrawBandTo OnGetPen OnGetBrush OnGetPointSymbol"))

TZyChildSeries::TZyChildSeries(TComponent* Owner) : TZySeries(Owner) {
  Initialize(StaticClassInfo().Name());
  FDoPointSettingsStorage = true;
}

void TZyChildSeries::SetXAxis(TZyAxis* Value) { SetAxis(FXAxis, Value, nullptr); }

void TZyChildSeries::TakeYAxis(TZyAxis* Value) { SetAxis(FYAxis, Value, nullptr); }

}  // namespace zy
