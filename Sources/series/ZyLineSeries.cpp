#include "series/ZyLineSeries.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyLineSeries, TZySeries,
             Published<&TZyLineSeries::AutoUpdate, &TZyLineSeries::SetAutoUpdate>("AutoUpdate", true),
             Published<&TZyLineSeries::XAxis, &TZyLineSeries::SetXAxis>("XAxis"),
             Published<&TZyLineSeries::YAxis, &TZyLineSeries::SetYAxis>("YAxis"),
             Published<&TZyLineSeries::XData, &TZyLineSeries::SetXData>("XData"),
             Published<&TZyLineSeries::YData, &TZyLineSeries::SetYData>("YData"),
             Published<&TZyLineSeries::Line>("Line"))

TZyLineSeries::TZyLineSeries(TComponent* Owner) : TZySeries(Owner) { SetInitialCaption(StaticClassInfo().Name()); }

}  // namespace zy
