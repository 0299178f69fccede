#pragma once

#include "platform/framework/TypeName.h"

namespace zy {

/// Keys and mouse buttons that are held down during an event. The order is that of the bits in stored forms.
enum TShiftStateElement { ssShift, ssAlt, ssCtrl, ssLeft, ssRight, ssMiddle, ssDouble };
ZY_ENUM(TShiftStateElement, "ssShift", "ssAlt", "ssCtrl", "ssLeft", "ssRight", "ssMiddle", "ssDouble")

/// Stored in 16 bits.
using TShiftState = TSet<TShiftStateElement>;

template <>
inline std::string_view TypeName<TShiftState>() {
  return "TShiftState";
}

}  // namespace zy
