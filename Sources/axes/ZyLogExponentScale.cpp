#include "axes/ZyLogExponentScale.h"

#include <cmath>

#include "analysis/ZyMath.h"
#include "texts/NumberText.h"

namespace zy {

std::string TZyLogExponentScale::LogLabel(double Value) const { return "10\\+" + IntToStr(Real10thExponent(Value)); }

/// The exponent is as long as its digits, the mark-up that raises it takes no room.
std::string TZyLogExponentScale::MeasuredLabel(double Value) const {
  return "10" + IntToStr(std::lround(std::log10(Value)));
}

}  // namespace zy
