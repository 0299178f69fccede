#pragma once

#include <algorithm>
#include <cmath>

#include "platform/controls/ControlTypes.h"

namespace zy {

/// The nearest whole pixel, half ones to the even one. What is far off the screen stays where sums of some of them
/// still fit.
inline int ToPixels(double Value) {
  constexpr double Far = 1 << 22;
  return static_cast<int>(std::nearbyint(std::clamp(Value, -Far, Far)));
}
inline int ToPixels(float Value) { return ToPixels(static_cast<double>(Value)); }
inline TPoint ToPixels(TPoint Value) {
  return {ToPixels(static_cast<double>(Value.X)), ToPixels(static_cast<double>(Value.Y))};
}

}  // namespace zy
