#include "texts/Utf8.h"

namespace zy {

TUtf8Char FirstUtf8Char(std::string_view Text) {
  if (Text.empty()) return {};
  const auto Byte = [&](std::size_t Index) { return static_cast<unsigned char>(Text[Index]); };
  const unsigned Lead = Byte(0);
  if (Lead < 0x80) return {Lead, 1};
  const std::size_t Length = Lead >= 0xF0 ? 4 : Lead >= 0xE0 ? 3 : 2;
  if (Lead < 0xC2 || Lead > 0xF4 || Text.size() < Length) return {};
  char32_t Code = Lead & (0x7Fu >> Length);
  for (std::size_t Index = 1; Index < Length; ++Index) {
    if ((Byte(Index) & 0xC0u) != 0x80u) return {};
    Code = Code << 6 | (Byte(Index) & 0x3Fu);
  }
  constexpr char32_t Smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (Code < Smallest[Length] || (Code >= 0xD800 && Code <= 0xDFFF) || Code > 0x10FFFF) return {};
  return {Code, Length};
}

void AppendUtf8(std::string& Text, char32_t Code) {
  if (Code > 0x10FFFF || (Code >= 0xD800 && Code <= 0xDFFF)) Code = 0xFFFD;
  if (Code < 0x80) {
    Text += static_cast<char>(Code);
    return;
  }
  const int Following = Code < 0x800 ? 1 : Code < 0x10000 ? 2 : 3;
  constexpr char32_t Lead[] = {0, 0xC0, 0xE0, 0xF0};
  Text += static_cast<char>(Lead[Following] | Code >> (6 * Following));
  for (int Index = Following - 1; Index >= 0; --Index) Text += static_cast<char>(0x80u | (Code >> (6 * Index) & 0x3Fu));
}

bool IsUtf8(std::string_view Text) {
  while (!Text.empty()) {
    const std::size_t Length = FirstUtf8Char(Text).Length;
    if (Length == 0) return false;
    Text.remove_prefix(Length);
  }
  return true;
}

}  // namespace zy
