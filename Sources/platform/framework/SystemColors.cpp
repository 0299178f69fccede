#include "platform/framework/SystemColors.h"

#include <array>
#include <atomic>

namespace zy {
namespace {

constexpr std::array<ARGB, SystemColorCount> Plain = {{
    0xFFC8C8C8,  // scroll bar
    0xFF000000,  // desktop
    0xFF99B4D1,  // active caption
    0xFFBFCDDB,  // inactive caption
    0xFFF0F0F0,  // menu
    0xFFFFFFFF,  // window
    0xFF646464,  // window frame
    0xFF000000,  // menu text
    0xFF000000,  // window text
    0xFF000000,  // active caption text
    0xFFB4B4B4,  // active border
    0xFFF4F7FC,  // inactive border
    0xFFABABAB,  // work space
    0xFF3399FF,  // highlight
    0xFFFFFFFF,  // highlight text
    0xFFF0F0F0,  // button face
    0xFFA0A0A0,  // button shadow
    0xFF6D6D6D,  // gray text
    0xFF000000,  // button text
    0xFF434E54,  // inactive caption text
    0xFFFFFFFF,  // button highlight
    0xFF696969,  // dark shadow
    0xFFE3E3E3,  // light edge
    0xFF000000,  // hint text
    0xFFFFFFE1,  // hint background
    0xFFB4B4B4,  // alternate face
    0xFF0066CC,  // link
    0xFFB9D1EA,  // second colour of the active caption
    0xFFD7E4F2,  // second colour of the inactive caption
    0xFF3399FF,  // menu highlight
    0xFFF0F0F0,  // menu bar
}};

std::atomic<TSystemColorReader> Reader = nullptr;

}  // namespace

void SetSystemColorReader(TSystemColorReader Value) { Reader = Value; }

ARGB SystemColor(int Number) {
  if (Number < 0 || Number >= SystemColorCount) return 0xFF000000;
  const TSystemColorReader Read = Reader;
  const ARGB Color = Read == nullptr ? 0 : Read(Number);
  return Color == 0 ? Plain[static_cast<std::size_t>(Number)] : Color;
}

}  // namespace zy
