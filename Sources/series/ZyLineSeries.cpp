#include "series/ZyLineSeries.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyLineSeries, TZySeries,
             Republished("AutoUpdate OutliersVisible XAxis YAxis XData YData Line Area DrawBandTo XValueTransformation "
                         "YValueTransformation OnGetPen OnGetBrush"))

TZyLineSeries::TZyLineSeries(TComponent* Owner) : TZySeries(Owner) { Initialize(StaticClassInfo().Name()); }

}  // namespace zy
