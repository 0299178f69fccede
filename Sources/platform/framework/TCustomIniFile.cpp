#include "platform/framework/TCustomIniFile.h"

#include <limits>

#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {

template <class T, class TConvert>
T TCustomIniFile::ReadAs(std::string_view Section, std::string_view Ident, T Default, TConvert Convert) const {
  const std::optional<std::string> Text = FindValue(Section, Ident);
  if (!Text) return Default;
  try {
    return Convert(*Text);
  } catch (const EConvertError&) {
    throw EConvertError(Format(LoadResString(_sIniMistyped), {*Text, Ident, Section}));
  }
}

std::string TCustomIniFile::ReadString(std::string_view Section, std::string_view Ident,
                                       std::string_view Default) const {
  std::optional<std::string> Text = FindValue(Section, Ident);
  return Text ? std::move(*Text) : std::string(Default);
}

int TCustomIniFile::ReadInteger(std::string_view Section, std::string_view Ident, int Default) const {
  return ReadAs(Section, Ident, Default, [](const std::string& Text) {
    const std::int64_t Value = StrToInt(Text);
    using TLimits = std::numeric_limits<int>;
    if (Value < TLimits::min() || Value > TLimits::max())
      throw EConvertError(Format(LoadResString(_sInvalidNumber), {Text}));
    return static_cast<int>(Value);
  });
}

std::int64_t TCustomIniFile::ReadInt64(std::string_view Section, std::string_view Ident, std::int64_t Default) const {
  return ReadAs(Section, Ident, Default, [](const std::string& Text) { return StrToInt(Text); });
}

bool TCustomIniFile::ReadBool(std::string_view Section, std::string_view Ident, bool Default) const {
  return ReadAs(Section, Ident, Default, [](const std::string& Text) { return StrToInt(Text) != 0; });
}

double TCustomIniFile::ReadFloat(std::string_view Section, std::string_view Ident, double Default) const {
  return ReadAs(Section, Ident, Default, [](const std::string& Text) { return TextToReal(Text); });
}

void TCustomIniFile::WriteInteger(std::string_view Section, std::string_view Ident, int Value) {
  WriteInt64(Section, Ident, Value);
}

void TCustomIniFile::WriteInt64(std::string_view Section, std::string_view Ident, std::int64_t Value) {
  WriteString(Section, Ident, IntToStr(Value));
}

void TCustomIniFile::WriteBool(std::string_view Section, std::string_view Ident, bool Value) {
  WriteString(Section, Ident, Value ? "1" : "0");
}

void TCustomIniFile::WriteFloat(std::string_view Section, std::string_view Ident, double Value) {
  WriteString(Section, Ident, RealToText(Value));
}

bool TCustomIniFile::ValueExists(std::string_view Section, std::string_view Ident) const {
  return FindValue(Section, Ident).has_value();
}

}  // namespace zy
