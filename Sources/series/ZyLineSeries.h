#pragma once

#include "series/ZySeries.h"

namespace zy {

/// A line through points of measured data, with the area below it or a band to another line.
///
///     auto* const Series = new TZyLineSeries(&Form);
///     Series->SetXAxis(Graph->PrimaryXAxis());
///     Series->SetYAxis(Graph->PrimaryYAxis());
///     Series->SetYData(Values);  // X is the index
class TZyLineSeries : public TZySeries {
  ZY_CLASS(TZyLineSeries, TZySeries)
  explicit TZyLineSeries(TComponent* Owner = nullptr);
};

}  // namespace zy
