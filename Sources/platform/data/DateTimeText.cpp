#include "platform/data/DateTimeText.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "texts/NumberText.h"

namespace zy {
namespace {

using namespace std::chrono;

constexpr sys_days DayZero = year{1899} / December / 30;
constexpr double MsPerDay = 86400000.0;

/// Takes a number of exactly Digits digits, and the mark behind it if one is wanted, from the front of Text.
std::optional<int> Take(std::string_view& Text, std::size_t Digits, char Mark = '\0') {
  const std::size_t Length = Digits + (Mark == '\0' ? 0 : 1);
  if (Text.size() < Length || (Mark != '\0' && Text[Digits] != Mark)) return {};
  int Result = 0;
  for (const char C : Text.substr(0, Digits)) {
    if (C < '0' || C > '9') return {};
    Result = 10 * Result + (C - '0');
  }
  Text.remove_prefix(Length);
  return Result;
}

std::optional<double> TakeDate(std::string_view& Text) {
  const auto Y = Take(Text, 4, '-');
  const auto M = Y ? Take(Text, 2, '-') : std::nullopt;
  const auto D = M ? Take(Text, 2) : std::nullopt;
  if (!D) return {};
  const year_month_day Date = year{*Y} / *M / *D;
  if (!Date.ok()) return {};
  return (sys_days(Date) - DayZero).count();
}

/// Whether Text is empty or a zone: "Z", "+02", "-05:30", "+0200".
bool IsZone(std::string_view Text) {
  if (Text.empty() || Text == "Z") return true;
  if (Text.front() != '+' && Text.front() != '-') return false;
  Text.remove_prefix(1);
  if (!Take(Text, 2)) return false;
  if (!Text.empty() && Text.front() == ':') Text.remove_prefix(1);
  return Text.empty() || (Take(Text, 2) && Text.empty());
}

std::optional<double> TakeTime(std::string_view Text) {
  const auto H = Take(Text, 2, ':');
  const auto M = H ? Take(Text, 2) : std::nullopt;
  if (!M || *H > 23 || *M > 59) return {};
  double Seconds = 0.0;
  if (!Text.empty() && Text.front() == ':') {
    Text.remove_prefix(1);
    const auto S = Take(Text, 2);
    if (!S || *S > 59) return {};
    Seconds = *S;
    if (!Text.empty() && Text.front() == '.') {
      double Fraction = 0.0;
      const auto [End, Error] =
          std::from_chars(Text.data(), Text.data() + Text.size(), Fraction, std::chars_format::fixed);
      if (Error != std::errc()) return {};
      Text.remove_prefix(static_cast<std::size_t>(End - Text.data()));
      Seconds += Fraction;
    }
  }
  if (!IsZone(Text)) return {};
  return (*H * 3600 + *M * 60 + Seconds) / 86400.0;
}

}  // namespace

std::optional<double> DateTimeFromText(std::string_view Text) {
  if (Text.size() > 2 && Text[2] == ':') return TakeTime(Text);
  const auto Day = TakeDate(Text);
  if (!Day || Text.empty()) return Day;
  if (Text.front() != ' ' && Text.front() != 'T') return {};
  const auto Time = TakeTime(Text.substr(1));
  return Time ? std::optional(*Day + *Time) : std::nullopt;
}

std::string DateTimeToText(double Value, TFieldType Type) {
  constexpr double FirstDay = (sys_days(year{-9999} / January / 1) - DayZero).count();
  constexpr double LastDay = (sys_days(year{9999} / December / 31) - DayZero).count();
  if (!(Value >= FirstDay && Value < LastDay + 1)) return RealToText(Value);
  const double Rounded = std::round(Value * MsPerDay);
  double Day = std::floor(Rounded / MsPerDay);
  const auto Ms = static_cast<int>(Rounded - Day * MsPerDay);
  const year_month_day Date{DayZero + days{static_cast<int>(Day)}};

  char Buffer[64];
  std::string Result;
  if (Type != TFieldType::Time) {
    std::snprintf(Buffer, sizeof Buffer, "%04d-%02u-%02u", int(Date.year()), unsigned(Date.month()),
                  unsigned(Date.day()));
    Result = Buffer;
  }
  if (Type != TFieldType::Date) {
    const int Seconds = Ms / 1000;
    std::snprintf(Buffer, sizeof Buffer, "%s%02d:%02d:%02d", Result.empty() ? "" : " ", Seconds / 3600,
                  Seconds / 60 % 60, Seconds % 60);
    Result += Buffer;
    if (Ms % 1000 != 0) {
      std::snprintf(Buffer, sizeof Buffer, ".%03d", Ms % 1000);
      Result += Buffer;
    }
  }
  return Result;
}

}  // namespace zy
