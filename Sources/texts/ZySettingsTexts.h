#pragma once

#include "texts/ZyLocalize.h"

namespace zy {

// The symbols of the texts that only the settings dialogs have, so that another one of them has nothing else compiled
// anew. They stand in the table behind the rows of TZyText.

namespace detail {

enum TSettingsText : std::uint16_t {
  BeforeSettingsTexts = TextCount - 1,
#define ZY_TEXT(Symbol, Text) Place##Symbol,
#include "texts/ZySettingsTextRows.inl"
#undef ZY_TEXT
  EndOfTexts
};

}  // namespace detail

#define ZY_TEXT(Symbol, Text) inline constexpr TZyText Symbol = static_cast<TZyText>(detail::Place##Symbol);
#include "texts/ZySettingsTextRows.inl"
#undef ZY_TEXT

}  // namespace zy
