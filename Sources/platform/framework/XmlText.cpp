#include "platform/framework/XmlText.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "texts/Utf8.h"

namespace zy {
namespace {

using TRange = std::pair<char32_t, char32_t>;

// NameStartChar and what NameChar adds to it (Extensible Markup Language 1.0, fifth edition, productions 4 and 4a).
constexpr TRange NameStart[] = {{':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
                                {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
                                {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
                                {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
constexpr TRange NameFurther[] = {{'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t Count>
bool IsIn(const TRange (&Ranges)[Count], char32_t Code) {
  return std::any_of(Ranges, Ranges + Count,
                     [Code](const TRange& Range) { return Code >= Range.first && Code <= Range.second; });
}

bool IsXmlCharacter(char32_t Code) {
  if (Code < 0x20) return Code == '\t' || Code == '\n' || Code == '\r';
  return Code != 0xFFFE && Code != 0xFFFF && (Code < 0xD800 || Code > 0xDFFF) && Code <= 0x10FFFF;
}

bool IsWhiteSpace(char Character) { return std::string_view(" \t\r\n").find(Character) != std::string_view::npos; }

void AppendReference(std::string& Text, char Character) {
  Text.append("&#").append(std::to_string(static_cast<int>(Character))).append(";");
}

void AppendEscaped(std::string& Text, char Character, std::string_view ByCode) {
  if (Character == '&')
    Text += "&amp;";
  else if (Character == '<')
    Text += "&lt;";
  else if (Character == '>')
    Text += "&gt;";
  else if (ByCode.find(Character) != std::string_view::npos)
    AppendReference(Text, Character);
  else
    Text += Character;
}

/// The code of what stands between '&' and ';'; 0, which is no XML character, when that is no reference.
char32_t ReferenceCode(std::string_view Name) {
  constexpr std::pair<std::string_view, char32_t> Entities[] = {
      {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
  for (const auto& [Entity, Code] : Entities)
    if (Name == Entity) return Code;
  if (Name.substr(0, 1) != "#") return 0;
  const bool Hexadecimal = Name.substr(1, 1) == "x";
  Name.remove_prefix(Hexadecimal ? 2 : 1);
  unsigned Code = 0;
  const char* const End = Name.data() + Name.size();
  const auto [Stop, Error] = std::from_chars(Name.data(), End, Code, Hexadecimal ? 16 : 10);
  return Error == std::errc() && Stop == End && IsXmlCharacter(Code) ? Code : 0;
}

}  // namespace

std::size_t FirstBadXmlByte(std::string_view Text) {
  std::size_t Place = 0;
  while (Place < Text.size()) {
    const TUtf8Char Character = FirstUtf8Char(Text.substr(Place));
    if (Character.Length == 0 || !IsXmlCharacter(Character.Code)) break;
    Place += Character.Length;
  }
  return Place;
}

bool IsXmlName(std::string_view Name) {
  bool First = true;
  while (!Name.empty()) {
    const TUtf8Char Character = FirstUtf8Char(Name);
    if (Character.Length == 0) return false;
    if (!IsIn(NameStart, Character.Code) && (First || !IsIn(NameFurther, Character.Code))) return false;
    Name.remove_prefix(Character.Length);
    First = false;
  }
  return !First;
}

std::string EscapeXmlText(std::string_view Text) {
  std::string Escaped;
  if (!Text.empty() && std::all_of(Text.begin(), Text.end(), IsWhiteSpace)) {
    AppendReference(Escaped, Text.front());
    Text.remove_prefix(1);
  }
  for (const char Character : Text) AppendEscaped(Escaped, Character, "\r");
  return Escaped;
}

std::string EscapeXmlAttribute(std::string_view Text) {
  std::string Escaped;
  for (const char Character : Text) {
    if (Character == '"')
      Escaped += "&quot;";
    else
      AppendEscaped(Escaped, Character, "\t\r\n");
  }
  return Escaped;
}

std::optional<std::string> UnescapeXml(std::string_view Text) {
  std::string Plain;
  for (;;) {
    const auto Start = Text.find('&');
    Plain += Text.substr(0, Start);
    if (Start == std::string_view::npos) return Plain;
    Text.remove_prefix(Start + 1);
    const auto End = Text.find(';');
    const char32_t Code = End == std::string_view::npos ? 0 : ReferenceCode(Text.substr(0, End));
    if (Code == 0) return std::nullopt;
    AppendUtf8(Plain, Code);
    Text.remove_prefix(End + 1);
  }
}

}  // namespace zy
