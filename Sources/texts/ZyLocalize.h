#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace zy {

/// The rows of the text table. Code refers to a text only by its symbol; the English texts stand in the two row files.
enum TZyText : std::uint16_t {
#define ZY_TEXT(Symbol, Text) Symbol,
#include "texts/ZyTextRows.inl"

#include "texts/ZyPlatformTextRows.inl"
#undef ZY_TEXT
};

#define ZY_TEXT(Symbol, Text) +1
/// Number of rows that the charts use: undo labels, messages and descriptions. They stand first in the table.
inline constexpr std::size_t ChartTextCount = 0
#include "texts/ZyTextRows.inl"
    ;

/// Number of all rows, those of the platform layer included.
inline constexpr std::size_t TextCount = ChartTextCount
#include "texts/ZyPlatformTextRows.inl"
    ;
#undef ZY_TEXT

/// The text of a row in the loaded language, in English when none is loaded or the language has no such row.
/// It stays where and what it is when another language comes. UTF-8. From any thread.
const std::string& LoadResString(TZyText Symbol);

/// The name of a row as language files write it, such as "_sAxisStart".
std::string_view TextSymbol(TZyText Symbol);

/// The row of that name, nothing when there is none. Case counts.
std::optional<TZyText> FindText(std::string_view Symbol);

/// What `Format` takes as an integer. Truth values and characters are no numbers to show.
template <typename T>
concept TFormatInteger = std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char>;

/// One argument of `Format`: a text, which must outlive the call, or an integer.
class TFormatArg {
 public:
  TFormatArg(std::string_view Value) : FText(Value) {}
  TFormatArg(const std::string& Value) : FText(Value) {}
  TFormatArg(const char* Value) : FText(Value == nullptr ? std::string_view() : std::string_view(Value)) {}
  template <TFormatInteger T>
  TFormatArg(T Value)
      : FKind(std::signed_integral<T> ? TKind::Signed : TKind::Unsigned), FBits(static_cast<std::uint64_t>(Value)) {}

  /// Adds the argument to the end of `Result`: a text as it stands, an integer in decimal digits without grouping.
  void AppendTo(std::string& Result) const;

 private:
  enum class TKind : std::uint8_t { Text, Signed, Unsigned };

  TKind FKind = TKind::Text;
  std::uint64_t FBits = 0;
  std::string_view FText;
};

/// Fills the placeholders %s, %d and %u of a text from left to right; %% gives one percent sign. Each placeholder shows
/// its argument by the argument's own kind, so a translated text with the wrong letter does no harm. A placeholder
/// without an argument and any other use of the percent sign stand as written; arguments left over are not shown.
std::string Format(std::string_view Text, std::initializer_list<TFormatArg> Args);

/// Makes a language file the source of all texts. The file is UTF-8, with or without a byte order mark, one row
/// `symbol = text` a line; blank lines and lines that begin with # are skipped, blanks around symbol and text are
/// dropped, and `\r`, `\n` and `\\` in a text stand for carriage return, line feed and backslash. A row that the file
/// does not have reads in English.
///
/// Throws EFileError when the file cannot be opened, EStreamError with file, line and content for a line that is no
/// such row, an unknown symbol, a symbol given twice and bytes that are no UTF-8. The texts are then those of before
/// the call. To be called on the control thread.
void LoadLanguage(const std::filesystem::path& File);

/// The same from an open stream; `Name` stands for the file in messages.
void LoadLanguage(std::istream& Stream, std::string_view Name);

/// Back to the English texts.
void ResetLanguage();

}  // namespace zy
