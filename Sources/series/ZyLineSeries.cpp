#include "series/ZyLineSeries.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(
    TZyLineSeries, TZySeries, Published<&TZyLineSeries::AutoUpdate, &TZyLineSeries::SetAutoUpdate>("AutoUpdate", true),
    Published<&TZyLineSeries::OutliersVisible, &TZyLineSeries::SetOutliersVisible>("OutliersVisible", false),
    Published<&TZyLineSeries::XAxis, &TZyLineSeries::SetXAxis>("XAxis"),
    Published<&TZyLineSeries::YAxis, &TZyLineSeries::SetYAxis>("YAxis"),
    Published<&TZyLineSeries::XData, &TZyLineSeries::SetXData>("XData").StoredIf<&TZyLineSeries::StoresXData>(),
    Published<&TZyLineSeries::YData, &TZyLineSeries::SetYData>("YData").StoredIf<&TZyLineSeries::StoresYData>(),
    Published<&TZyLineSeries::Line>("Line"), Published<&TZyLineSeries::Area>("Area"),
    Published<&TZyLineSeries::DrawBandTo, &TZyLineSeries::SetDrawBandTo>("DrawBandTo"))

TZyLineSeries::TZyLineSeries(TComponent* Owner) : TZySeries(Owner) { Initialize(StaticClassInfo().Name()); }

}  // namespace zy
