#pragma once

#include "platform/framework/EnumInfo.h"

namespace zy {

/// Where a text stands along its line.
enum class TAlignment { taLeftJustify, taRightJustify, taCenter };
ZY_ENUM(TAlignment, "taLeftJustify", "taRightJustify", "taCenter")

}  // namespace zy
