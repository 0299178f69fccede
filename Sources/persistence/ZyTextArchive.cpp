#include "persistence/ZyTextArchive.h"

#include "graph/values/ZyStringFunctions.h"
#include "platform/framework/TVariant.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy {

bool TZyTextWriter::Visit(const TZyFieldName& Name, TOrdinal& Value) {
  Put(Name, IntToStr(Value.Value));
  return false;
}

bool TZyTextWriter::Visit(const TZyFieldName& Name, std::int32_t& Value) {
  Put(Name, IntToStr(Value));
  return false;
}

bool TZyTextWriter::Visit(const TZyFieldName& Name, TZyColor& Value) {
  Put(Name, ARGBToString(Value, false));
  return false;
}

bool TZyTextWriter::Visit(const TZyFieldName& Name, float& Value) {
  Put(Name, SingleToStr(Value));
  return false;
}

bool TZyTextWriter::Visit(const TZyFieldName& Name, double& Value) {
  Put(Name, DoubleToStr(Value));
  return false;
}

/// Convert gives the value of a text, or throws EConvertError; nothing for a value that is out of range.
template <class TValue, class TConvert>
bool TZyTextReader::Read(const TZyFieldName& Name, TValue& Value, TConvert Convert) const {
  const std::optional<std::string> Text = Get(Name);
  if (!Text) return false;
  std::optional<TValue> Result;
  try {
    Result = Convert(*Text);
  } catch (const EConvertError&) {  // named below
  }
  if (!Result) Mistyped(Name, *Text);
  Value = *std::move(Result);
  return true;
}

bool TZyTextReader::Visit(const TZyFieldName& Name, bool& Value) {
  return Read(Name, Value, [](const std::string& Text) { return std::optional(TVariant(Text).AsBoolean()); });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, TOrdinal& Value) {
  return Read(Name, Value, [Value](const std::string& Text) -> std::optional<TOrdinal> {
    const std::int64_t Number = StrToInt(Text);
    if (Number < 0 || Number >= Value.Limit) return {};
    return TOrdinal{static_cast<std::uint32_t>(Number), Value.Limit, Value.Width};
  });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, std::int32_t& Value) {
  return Read(Name, Value, [](const std::string& Text) -> std::optional<std::int32_t> {
    const std::int64_t Number = StrToInt(Text);
    if (!std::in_range<std::int32_t>(Number)) return {};
    return static_cast<std::int32_t>(Number);
  });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, TZyColor& Value) {
  return Read(Name, Value, [](const std::string& Text) { return std::optional(ColorToARGB(Text)); });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, float& Value) {
  return Read(Name, Value,
              [](const std::string& Text) { return std::optional(static_cast<float>(DoubleFromStr(Text))); });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, double& Value) {
  return Read(Name, Value, [](const std::string& Text) { return std::optional(DoubleFromStr(Text)); });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, std::string& Value) {
  return Read(Name, Value, [](const std::string& Text) { return std::optional(Text); });
}

}  // namespace zy
