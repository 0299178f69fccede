#pragma once

#include "axes/ZyLogScale.h"

namespace zy {

/// A logarithmic scale with powers of ten as labels.
class TZyLogExponentScale : public TZyLogScale {
 public:
  TZyLogExponentScale() : TZyLogScale(TZyAxisScaling::LogEE) {}

 protected:
  std::string LogLabel(double Value) const override;
  std::string MeasuredLabel(double Value) const override;
};

}  // namespace zy
