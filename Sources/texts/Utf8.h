#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zy {

/// One character of a UTF-8 text.
struct TUtf8Char {
  char32_t Code = 0;
  std::size_t Length = 0;  ///< in bytes; 0 when the bytes are malformed or there are none
};

/// The character at the start of Text. Overlong forms, surrogates and codes above U+10FFFF count as malformed.
TUtf8Char FirstUtf8Char(std::string_view Text);

/// Appends the character of a code; one that is no Unicode character appends the replacement character.
void AppendUtf8(std::string& Text, char32_t Code);

/// Whether the whole text is well-formed UTF-8.
bool IsUtf8(std::string_view Text);

}  // namespace zy
