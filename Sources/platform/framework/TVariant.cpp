#include "platform/framework/TVariant.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

[[noreturn]] void CannotConvert(const TVariant& Value, std::string_view Kind) {
  const std::string Shown = Value.IsArray() ? std::string("array") : Format("\"%s\"", {Value.AsText()});
  throw EConvertError(Format(LoadResString(_sVariantConversion), {Shown, Kind}));
}

bool SameText(std::string_view Left, std::string_view Lower) {
  return std::equal(Left.begin(), Left.end(), Lower.begin(), Lower.end(),
                    [](char A, char B) { return (A >= 'A' && A <= 'Z' ? A + 32 : A) == B; });
}

}  // namespace

TVariant::TVariant() noexcept = default;
TVariant::TVariant(bool Value) : FValue(Value) {}
TVariant::TVariant(int Value) : FValue(std::int64_t{Value}) {}
TVariant::TVariant(unsigned Value) : FValue(std::int64_t{Value}) {}
TVariant::TVariant(long Value) : FValue(static_cast<std::int64_t>(Value)) {}
TVariant::TVariant(long long Value) : FValue(static_cast<std::int64_t>(Value)) {}
TVariant::TVariant(double Value) : FValue(Value) {}
TVariant::TVariant(const char* Value) : FValue(std::string(Value)) {}
TVariant::TVariant(std::string_view Value) : FValue(std::string(Value)) {}
TVariant::TVariant(std::string Value) : FValue(std::move(Value)) {}
TVariant::TVariant(TArray Value) : FValue(std::move(Value)) {}
TVariant::TVariant(const TVariant& Other) = default;
TVariant::TVariant(TVariant&& Other) noexcept = default;
TVariant& TVariant::operator=(const TVariant& Other) = default;
TVariant& TVariant::operator=(TVariant&& Other) noexcept = default;
TVariant::~TVariant() = default;
bool TVariant::operator==(const TVariant& Other) const { return FValue == Other.FValue; }

bool TVariant::AsBoolean() const {
  if (const bool* Value = std::get_if<bool>(&FValue)) return *Value;
  if (const std::string* Text = std::get_if<std::string>(&FValue)) {
    if (SameText(*Text, "true")) return true;
    if (SameText(*Text, "false")) return false;
    return TextToReal(*Text) != 0;
  }
  if (IsInteger() || IsReal()) return AsReal() != 0;
  CannotConvert(*this, "boolean");
}

std::int64_t TVariant::AsInteger() const {
  if (const std::int64_t* Value = std::get_if<std::int64_t>(&FValue)) return *Value;
  if (const bool* Value = std::get_if<bool>(&FValue)) return *Value ? 1 : 0;
  if (const std::string* Text = std::get_if<std::string>(&FValue)) return StrToInt(*Text);
  if (const double* Value = std::get_if<double>(&FValue)) {
    constexpr double Limit = 9223372036854775808.0;  // 2^63
    if (std::trunc(*Value) == *Value && *Value >= -Limit && *Value < Limit) return static_cast<std::int64_t>(*Value);
  }
  CannotConvert(*this, "integer");
}

double TVariant::AsReal() const {
  if (const double* Value = std::get_if<double>(&FValue)) return *Value;
  if (const std::int64_t* Value = std::get_if<std::int64_t>(&FValue)) return static_cast<double>(*Value);
  if (const bool* Value = std::get_if<bool>(&FValue)) return *Value ? 1 : 0;
  if (const std::string* Text = std::get_if<std::string>(&FValue)) return TextToReal(*Text);
  CannotConvert(*this, "real");
}

std::string TVariant::AsText() const {
  if (const std::string* Text = std::get_if<std::string>(&FValue)) return *Text;
  if (const bool* Value = std::get_if<bool>(&FValue)) return *Value ? "true" : "false";
  if (const std::int64_t* Value = std::get_if<std::int64_t>(&FValue)) return IntToStr(*Value);
  if (const double* Value = std::get_if<double>(&FValue)) return RealToText(*Value);
  if (IsNull()) return {};
  CannotConvert(*this, "text");
}

const TVariant::TArray& TVariant::AsArray() const {
  if (const TArray* Elements = std::get_if<TArray>(&FValue)) return *Elements;
  CannotConvert(*this, "array");
}

}  // namespace zy
