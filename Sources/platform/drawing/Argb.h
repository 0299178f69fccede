#pragma once

#include <cstdint>

namespace zy {

/// A colour, 0xAARRGGBB, not premultiplied. Alpha 0 is fully transparent, 255 opaque.
using ARGB = std::uint32_t;

}  // namespace zy
