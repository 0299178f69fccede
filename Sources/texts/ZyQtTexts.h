#pragma once

#include "texts/ZySettingsTexts.h"

namespace zy {

// The symbols of the texts for programs of the toolkit, in the table behind those of the settings dialogs.

namespace detail {

enum TQtText : std::uint16_t {
  BeforeQtTexts = EndOfSettingsTexts - 1,
#define ZY_TEXT(Symbol, Text) Place##Symbol,
#include "texts/ZyQtTextRows.inl"
#undef ZY_TEXT
  EndOfQtTexts
};

}  // namespace detail

#define ZY_TEXT(Symbol, Text) inline constexpr TZyText Symbol = static_cast<TZyText>(detail::Place##Symbol);
#include "texts/ZyQtTextRows.inl"
#undef ZY_TEXT

}  // namespace zy
