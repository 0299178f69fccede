#include "texts/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr std::string_view Blanks = " \t\r\n";

std::string_view Trimmed(std::string_view Text) {
  const auto First = Text.find_first_not_of(Blanks);
  if (First == std::string_view::npos) return {};
  return Text.substr(First, Text.find_last_not_of(Blanks) - First + 1);
}

[[noreturn]] void InvalidNumber(std::string_view Text) {
  throw EConvertError(Format(LoadResString(_sInvalidNumber), {Text}));
}

std::string SpecialText(double Value) {
  if (std::isnan(Value)) return "NAN";
  return Value < 0 ? "-INF" : "INF";
}

bool SpecialValue(std::string_view Text, double& Value) {
  const bool Negative = !Text.empty() && Text.front() == '-';
  if (Negative || (!Text.empty() && Text.front() == '+')) Text.remove_prefix(1);
  std::string Upper(Text);
  std::transform(Upper.begin(), Upper.end(), Upper.begin(), [](char C) { return C >= 'a' && C <= 'z' ? C - 32 : C; });
  if (Upper == "NAN") {
    Value = std::numeric_limits<double>::quiet_NaN();
  } else if (Upper == "INF") {
    Value = std::numeric_limits<double>::infinity();
  } else {
    return false;
  }
  if (Negative) Value = -Value;
  return true;
}

double ParseReal(std::string_view Text, std::string_view Whole) {
  double Value = 0;
  if (SpecialValue(Text, Value)) return Value;
  if (!Text.empty() && Text.front() == '+') {
    Text.remove_prefix(1);
    if (!Text.empty() && Text.front() == '-') InvalidNumber(Whole);
  }
  const char* const End = Text.data() + Text.size();
  const auto [Stop, Error] = std::from_chars(Text.data(), End, Value);
  if (Stop != End || !std::isfinite(Value)) InvalidNumber(Whole);
  if (Error == std::errc::result_out_of_range && Text.find_first_of("eE") != std::string_view::npos &&
      Text.find('-', Text.find_first_of("eE")) != std::string_view::npos)
    return Text.front() == '-' ? -0.0 : 0.0;  // smaller than any real
  if (Error != std::errc()) InvalidNumber(Whole);
  return Value;
}

}  // namespace

TFormatSettings& FormatSettings() {
  static TFormatSettings Settings;
  return Settings;
}

std::string IntToStr(std::int64_t Value) {
  std::array<char, 24> Buffer;
  const auto Result = std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Value);
  return {Buffer.data(), Result.ptr};
}

std::int64_t StrToInt(std::string_view Text) {
  std::string_view Digits = Trimmed(Text);
  const bool Negative = !Digits.empty() && Digits.front() == '-';
  if (Negative || (!Digits.empty() && Digits.front() == '+')) Digits.remove_prefix(1);
  const bool Hexadecimal = !Digits.empty() && Digits.front() == '$';
  if (Hexadecimal) Digits.remove_prefix(1);
  std::uint64_t Magnitude = 0;
  const char* const End = Digits.data() + Digits.size();
  const auto [Stop, Error] = std::from_chars(Digits.data(), End, Magnitude, Hexadecimal ? 16 : 10);
  constexpr auto Largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (Error != std::errc() || Stop != End || Magnitude > Largest + (Negative ? 1 : 0)) InvalidNumber(Text);
  return static_cast<std::int64_t>(Negative ? 0 - Magnitude : Magnitude);
}

std::string FloatToStr(double Value) {
  if (!std::isfinite(Value)) return SpecialText(Value);
  if (Value == 0) return "0";
  std::array<char, 64> Buffer;
  const auto Result =
      std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Value, std::chars_format::general, 15);
  std::string Text(Buffer.data(), Result.ptr);
  const auto Point = Text.find('.');
  if (Point != std::string::npos) Text[Point] = FormatSettings().DecimalSeparator;
  return Text;
}

namespace {

/// The text of a number of moderate size with few decimals, as an integer with a separator in it; nothing where its
/// rounding is no matter of course.
std::optional<std::string> PlainFixed(double Value, int Digits) {
  constexpr double Powers[] = {1, 10, 100, 1e3, 1e4, 1e5, 1e6};
  constexpr double Largest = 1e13, AlmostHalf = 0.49;  // so that the error of the product is far below the rest
  if (Digits < 0 || Digits >= static_cast<int>(std::size(Powers))) return {};
  const double Scaled = std::fabs(Value) * Powers[Digits], Rounded = std::nearbyint(Scaled);
  if (!(Scaled < Largest) || std::fabs(Scaled - Rounded) > AlmostHalf) return {};
  std::array<char, 24> Buffer;
  char* Last = Buffer.data() + Buffer.size();
  auto Number = static_cast<std::uint64_t>(Rounded);
  const bool IsNegative = Value < 0 && Number > 0;
  int Written = 0;
  do {
    if (Written == Digits && Digits > 0) *--Last = FormatSettings().DecimalSeparator;
    *--Last = static_cast<char>('0' + Number % 10);
    Number /= 10;
  } while (++Written <= Digits || Number > 0);
  if (IsNegative) *--Last = '-';
  return std::string(Last, Buffer.data() + Buffer.size());
}

}  // namespace

std::string FloatToStrFixed(double Value, int Digits) {
  if (!std::isfinite(Value)) return SpecialText(Value);
  if (std::optional<std::string> Plain = PlainFixed(Value, Digits)) return *std::move(Plain);
  std::array<char, 400> Buffer;
  const auto Result = std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Value, std::chars_format::fixed,
                                    std::clamp(Digits, 0, 18));
  std::string Text(Buffer.data(), Result.ptr);
  if (Text.front() == '-' && Text.find_first_of("123456789") == std::string::npos) Text.erase(0, 1);
  const auto Point = Text.find('.');
  if (Point != std::string::npos) Text[Point] = FormatSettings().DecimalSeparator;
  return Text;
}

double StrToFloat(std::string_view Text) {
  const char Separator = FormatSettings().DecimalSeparator;
  std::string Plain(Trimmed(Text));
  if (Separator != '.') {
    if (Plain.find('.') != std::string::npos) InvalidNumber(Text);
    std::replace(Plain.begin(), Plain.end(), Separator, '.');
  }
  return ParseReal(Plain, Text);
}

std::string RealToText(double Value) {
  if (!std::isfinite(Value)) return SpecialText(Value);
  std::array<char, 32> Buffer;
  const auto Result = std::to_chars(Buffer.data(), Buffer.data() + Buffer.size(), Value);
  return {Buffer.data(), Result.ptr};
}

double TextToReal(std::string_view Text) { return ParseReal(Trimmed(Text), Text); }

}  // namespace zy
