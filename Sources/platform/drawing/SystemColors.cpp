#include "platform/drawing/SystemColors.h"

#include <QGuiApplication>
#include <QPalette>
#include <array>

namespace zy {
namespace {

struct TSystemColor {
  QPalette::ColorGroup Group;
  QPalette::ColorRole Role;
  ARGB Plain;  ///< on a light desktop without a theme
};

constexpr std::array<TSystemColor, SystemColorCount> Table = {{
    {QPalette::Active, QPalette::Midlight, 0xFFC8C8C8},         // scroll bar
    {QPalette::Active, QPalette::Dark, 0xFF000000},             // desktop
    {QPalette::Active, QPalette::Highlight, 0xFF99B4D1},        // active caption
    {QPalette::Inactive, QPalette::Window, 0xFFBFCDDB},         // inactive caption
    {QPalette::Active, QPalette::Window, 0xFFF0F0F0},           // menu
    {QPalette::Active, QPalette::Base, 0xFFFFFFFF},             // window
    {QPalette::Active, QPalette::Shadow, 0xFF646464},           // window frame
    {QPalette::Active, QPalette::WindowText, 0xFF000000},       // menu text
    {QPalette::Active, QPalette::Text, 0xFF000000},             // window text
    {QPalette::Active, QPalette::HighlightedText, 0xFF000000},  // active caption text
    {QPalette::Active, QPalette::Window, 0xFFB4B4B4},           // active border
    {QPalette::Inactive, QPalette::Window, 0xFFF4F7FC},         // inactive border
    {QPalette::Active, QPalette::Mid, 0xFFABABAB},              // work space
    {QPalette::Active, QPalette::Highlight, 0xFF3399FF},        // highlight
    {QPalette::Active, QPalette::HighlightedText, 0xFFFFFFFF},  // highlight text
    {QPalette::Active, QPalette::Button, 0xFFF0F0F0},           // button face
    {QPalette::Active, QPalette::Mid, 0xFFA0A0A0},              // button shadow
    {QPalette::Disabled, QPalette::Text, 0xFF6D6D6D},           // gray text
    {QPalette::Active, QPalette::ButtonText, 0xFF000000},       // button text
    {QPalette::Inactive, QPalette::WindowText, 0xFF434E54},     // inactive caption text
    {QPalette::Active, QPalette::Light, 0xFFFFFFFF},            // button highlight
    {QPalette::Active, QPalette::Dark, 0xFF696969},             // dark shadow
    {QPalette::Active, QPalette::Midlight, 0xFFE3E3E3},         // light edge
    {QPalette::Active, QPalette::ToolTipText, 0xFF000000},      // hint text
    {QPalette::Active, QPalette::ToolTipBase, 0xFFFFFFE1},      // hint background
    {QPalette::Active, QPalette::AlternateBase, 0xFFB4B4B4},    // alternate face
    {QPalette::Active, QPalette::Link, 0xFF0066CC},             // link
    {QPalette::Active, QPalette::Highlight, 0xFFB9D1EA},        // second colour of the active caption
    {QPalette::Inactive, QPalette::Window, 0xFFD7E4F2},         // second colour of the inactive caption
    {QPalette::Active, QPalette::Highlight, 0xFF3399FF},        // menu highlight
    {QPalette::Active, QPalette::Window, 0xFFF0F0F0},           // menu bar
}};

std::array<ARGB, SystemColorCount> FromPalette() {
  const QPalette Palette = QGuiApplication::palette();
  std::array<ARGB, SystemColorCount> Result;
  for (std::size_t Number = 0; Number < Table.size(); ++Number)
    Result[Number] = Palette.color(Table[Number].Group, Table[Number].Role).rgb() | 0xFF000000;
  return Result;
}

}  // namespace

ARGB SystemColor(int Number) {
  if (Number < 0 || Number >= SystemColorCount) return 0xFF000000;
  const auto Index = static_cast<std::size_t>(Number);
  if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr) return Table[Index].Plain;
  static const std::array<ARGB, SystemColorCount> Colors = FromPalette();
  return Colors[Index];
}

}  // namespace zy
