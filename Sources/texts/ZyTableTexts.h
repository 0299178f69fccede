#pragma once

#include "texts/ZyQtTexts.h"

namespace zy {

// The symbols of the texts of data that stay in a database, for the same reason in a table of their own. They stand
// behind all others.

namespace detail {

enum TTableText : std::uint16_t {
  BeforeTableTexts = EndOfQtTexts - 1,
#define ZY_TEXT(Symbol, Text) Place##Symbol,
#include "texts/ZyTableTextRows.inl"
#undef ZY_TEXT
  EndOfTableTexts
};

}  // namespace detail

#define ZY_TEXT(Symbol, Text) inline constexpr TZyText Symbol = static_cast<TZyText>(detail::Place##Symbol);
#include "texts/ZyTableTextRows.inl"
#undef ZY_TEXT

/// Number of all rows.
inline constexpr std::size_t AllTextCount = detail::EndOfTableTexts;

}  // namespace zy
