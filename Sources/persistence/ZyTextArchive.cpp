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

bool TZyTextWriter::Visit(const TZyFieldName& Name, std::vector<double>& Values) {
  PutItems(Name, Values.size(), [&](std::size_t Index) { return DoubleToStr(Values[Index]); });
  return false;
}

bool TZyTextWriter::Visit(const TZyFieldName& Name, std::vector<std::int32_t>& Values) {
  PutItems(Name, Values.size(), [&](std::size_t Index) { return IntToStr(Values[Index]); });
  return false;
}

bool TZyTextWriter::Visit(const TZyFieldName& Name, std::vector<std::string>& Values) {
  PutTexts(Name, Values);
  return false;
}

namespace {

std::optional<std::int32_t> ToInt32(std::string_view Text) {
  const std::int64_t Number = StrToInt(Text);
  if (!std::in_range<std::int32_t>(Number)) return {};
  return static_cast<std::int32_t>(Number);
}

}  // namespace

/// Convert gives the value of a text, or throws EConvertError; nothing for a value that is out of range.
template <class TValue, class TConvert>
TValue TZyTextReader::Converted(const TZyFieldName& Name, std::string_view Text, TConvert Convert) const {
  std::optional<TValue> Result;
  try {
    Result = Convert(Text);
  } catch (const EConvertError&) {  // named below
  }
  if (!Result) Mistyped(Name, Text);
  return *std::move(Result);
}

template <class TValue, class TConvert>
bool TZyTextReader::Read(const TZyFieldName& Name, TValue& Value, TConvert Convert) const {
  const std::optional<std::string> Text = Get(Name);
  if (!Text) return false;
  Value = Converted<TValue>(Name, *Text, Convert);
  return true;
}

template <class TValue, class TConvert>
bool TZyTextReader::ReadAll(const TZyFieldName& Name, std::vector<TValue>& Values, TConvert Convert) const {
  const auto Start = [&](std::size_t Count) {
    Values.clear();
    Values.reserve(Count);
  };
  return GetItems(Name, Start,
                  [&](std::string_view Text) { Values.push_back(Converted<TValue>(Name, Text, Convert)); });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, bool& Value) {
  return Read(Name, Value,
              [](std::string_view Text) { return std::optional(TVariant(std::string(Text)).AsBoolean()); });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, TOrdinal& Value) {
  return Read(Name, Value, [Value](std::string_view Text) -> std::optional<TOrdinal> {
    const std::int64_t Number = StrToInt(Text);
    if (Number < 0 || Number >= Value.Limit) return {};
    TOrdinal Result = Value;
    Result.Value = static_cast<std::uint32_t>(Number);
    return Result;
  });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, std::int32_t& Value) { return Read(Name, Value, ToInt32); }

bool TZyTextReader::Visit(const TZyFieldName& Name, TZyColor& Value) {
  return Read(Name, Value, [](std::string_view Text) { return std::optional(ColorToARGB(Text)); });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, float& Value) {
  return Read(Name, Value,
              [](std::string_view Text) { return std::optional(static_cast<float>(DoubleFromStr(Text))); });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, double& Value) {
  return Read(Name, Value, [](std::string_view Text) { return std::optional(DoubleFromStr(Text)); });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, std::string& Value) {
  std::optional<std::string> Text = Get(Name);
  if (!Text) return false;
  Value = *std::move(Text);
  return true;
}

bool TZyTextReader::Visit(const TZyFieldName& Name, std::vector<double>& Values) {
  return ReadAll(Name, Values, [](std::string_view Text) { return std::optional(DoubleFromStr(Text)); });
}

bool TZyTextReader::Visit(const TZyFieldName& Name, std::vector<std::int32_t>& Values) {
  return ReadAll(Name, Values, ToInt32);
}

bool TZyTextReader::Visit(const TZyFieldName& Name, std::vector<std::string>& Values) {
  return GetTexts(
      Name, [&](std::size_t) { Values.clear(); }, [&](std::string_view Text) { Values.emplace_back(Text); });
}

}  // namespace zy
