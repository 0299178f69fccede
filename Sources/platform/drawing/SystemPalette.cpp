#include "platform/drawing/SystemPalette.h"

#include <QGuiApplication>
#include <QPalette>
#include <array>
#include <atomic>

#include "platform/framework/SystemColors.h"

namespace zy {
namespace {

struct TRole {
  QPalette::ColorGroup Group;
  QPalette::ColorRole Role;
};

constexpr std::array<TRole, SystemColorCount> Table = {{
    {QPalette::Active, QPalette::Midlight},         // scroll bar
    {QPalette::Active, QPalette::Dark},             // desktop
    {QPalette::Active, QPalette::Highlight},        // active caption
    {QPalette::Inactive, QPalette::Window},         // inactive caption
    {QPalette::Active, QPalette::Window},           // menu
    {QPalette::Active, QPalette::Base},             // window
    {QPalette::Active, QPalette::Shadow},           // window frame
    {QPalette::Active, QPalette::WindowText},       // menu text
    {QPalette::Active, QPalette::Text},             // window text
    {QPalette::Active, QPalette::HighlightedText},  // active caption text
    {QPalette::Active, QPalette::Window},           // active border
    {QPalette::Inactive, QPalette::Window},         // inactive border
    {QPalette::Active, QPalette::Mid},              // work space
    {QPalette::Active, QPalette::Highlight},        // highlight
    {QPalette::Active, QPalette::HighlightedText},  // highlight text
    {QPalette::Active, QPalette::Button},           // button face
    {QPalette::Active, QPalette::Mid},              // button shadow
    {QPalette::Disabled, QPalette::Text},           // gray text
    {QPalette::Active, QPalette::ButtonText},       // button text
    {QPalette::Inactive, QPalette::WindowText},     // inactive caption text
    {QPalette::Active, QPalette::Light},            // button highlight
    {QPalette::Active, QPalette::Dark},             // dark shadow
    {QPalette::Active, QPalette::Midlight},         // light edge
    {QPalette::Active, QPalette::ToolTipText},      // hint text
    {QPalette::Active, QPalette::ToolTipBase},      // hint background
    {QPalette::Active, QPalette::AlternateBase},    // alternate face
    {QPalette::Active, QPalette::Link},             // link
    {QPalette::Active, QPalette::Highlight},        // second colour of the active caption
    {QPalette::Inactive, QPalette::Window},         // second colour of the inactive caption
    {QPalette::Active, QPalette::Highlight},        // menu highlight
    {QPalette::Active, QPalette::Window},           // menu bar
}};

/// The colours as they were read last; threads may ask while the palette changes.
struct TColors {
  TColors() { Read(); }
  void Read() {
    const QPalette Palette = QGuiApplication::palette();
    for (std::size_t Number = 0; Number < Table.size(); ++Number)
      Values[Number] = Palette.color(Table[Number].Group, Table[Number].Role).rgb() | 0xFF000000;
  }
  std::array<std::atomic<ARGB>, SystemColorCount> Values;
};

TColors& KnownColors() {
  static TColors Known;
  return Known;
}

bool HasPalette() { return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr; }

ARGB ColorOfPalette(int Number) {
  return HasPalette() ? KnownColors().Values[static_cast<std::size_t>(Number)].load() : 0;
}

}  // namespace

bool UseSystemPalette() {
  SetSystemColorReader(&ColorOfPalette);
  return true;
}

void RefreshSystemPalette() {
  if (HasPalette()) KnownColors().Read();
}

}  // namespace zy
