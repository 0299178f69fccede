#pragma once

#include <cstdint>

namespace zy {

/// A colour, 0xAARRGGBB, not premultiplied. Alpha 0 is fully transparent, 255 opaque.
using ARGB = std::uint32_t;

/// A colour of the controls: 0x00BBGGRR, or SystemColorFlag with the number of a desktop colour (see SystemColor).
using TColor = std::int32_t;
inline constexpr TColor SystemColorFlag = static_cast<TColor>(0xFF000000);

}  // namespace zy
