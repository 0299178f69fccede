#pragma once

#include "series/ZySeries.h"

namespace zy {

/// A line through points of measured data.
class TZyLineSeries : public TZySeries {
  ZY_CLASS(TZyLineSeries, TZySeries)
  explicit TZyLineSeries(TComponent* Owner = nullptr);
};

}  // namespace zy
