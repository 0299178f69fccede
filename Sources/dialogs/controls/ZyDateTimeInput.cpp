#include "dialogs/controls/ZyDateTimeInput.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstddef>
#include <string>
#include <vector>

#include "texts/NumberText.h"

namespace zy {
namespace {

/// A number of the text, with the character in front of it that is no blank; 0 for none.
struct TPart {
  int Value = 0;
  std::size_t Digits = 0;
  char Before = 0;
};

char Lower(char C) { return static_cast<char>(std::tolower(static_cast<unsigned char>(C))); }

bool StartsWith(std::string_view Text, std::string_view Word) {
  return !Word.empty() && Text.size() >= Word.size() &&
         std::equal(Word.begin(), Word.end(), Text.begin(), [](char A, char B) { return Lower(A) == Lower(B); });
}

/// The month that a text begins with, from 1, and the length of its name; long names first.
std::pair<int, std::size_t> MonthAt(std::string_view Text) {
  const TFormatSettings& Locale = FormatSettings();
  for (const auto* Names : {&Locale.LongMonthNames, &Locale.ShortMonthNames})
    for (std::size_t Month = 0; Month < Names->size(); ++Month)
      if (StartsWith(Text, (*Names)[Month])) return {static_cast<int>(Month) + 1, (*Names)[Month].size()};
  return {0, 0};
}

enum class THalf { None, Morning, Afternoon };

/// Cuts the text into numbers; nothing for what is not to be read as such.
std::optional<std::vector<TPart>> PartsOf(std::string_view Text, THalf& Half) {
  const TFormatSettings& Locale = FormatSettings();
  const std::string Separators = std::string("/-.,: ") + Locale.DateSeparator + Locale.TimeSeparator;
  std::vector<TPart> Result;
  char Before = 0;
  while (!Text.empty()) {
    TPart Part{.Before = Before};
    std::size_t Taken = 1;
    if (std::isdigit(static_cast<unsigned char>(Text.front()))) {
      const auto [Stop, Error] = std::from_chars(Text.data(), Text.data() + Text.size(), Part.Value);
      if (Error != std::errc()) return std::nullopt;
      Part.Digits = Taken = static_cast<std::size_t>(Stop - Text.data());
    } else if (const auto [Month, Length] = MonthAt(Text); Month != 0) {
      Part.Value = Month;
      Part.Digits = Taken = Length;
    } else if (StartsWith(Text, Locale.TimeAMString) || StartsWith(Text, Locale.TimePMString)) {
      Half = StartsWith(Text, Locale.TimeAMString) ? THalf::Morning : THalf::Afternoon;
      Taken = (Half == THalf::Morning ? Locale.TimeAMString : Locale.TimePMString).size();
    } else if (Separators.find(Text.front()) == std::string::npos) {
      return std::nullopt;
    }
    if (Part.Digits > 0) Result.push_back(Part);
    if (Part.Digits > 0) Before = 0;
    if (Part.Digits == 0 && Text.front() != ' ') Before = Text.front();
    Text.remove_prefix(Taken);
  }
  return Result;
}

/// The letters of day, month and year in the order of the locale's short date.
std::string DateOrder() {
  std::string Order;
  for (const char C : FormatSettings().ShortDateFormat)
    if (const char Letter = Lower(C); std::string_view("dmy").find(Letter) != std::string_view::npos)
      if (Order.find(Letter) == std::string::npos) Order += Letter;
  return Order.size() == 3 ? Order : "mdy";
}

int FullYear(const TPart& Part) {
  if (Part.Digits > 2) return Part.Value;
  return Part.Value + (Part.Value < 50 ? 2000 : 1900);
}

bool TakeTime(TDateTimeParts& Moment, std::vector<TPart> Time, THalf Half) {
  if (Time.size() == 1 || Time.size() > 4) return false;
  Time.resize(4);
  if (Half != THalf::None && (Time[0].Value < 1 || Time[0].Value > 12)) return false;
  Moment.Hour = Half == THalf::None ? Time[0].Value : Time[0].Value % 12 + (Half == THalf::Afternoon ? 12 : 0);
  Moment.Minute = Time[1].Value;
  Moment.Second = Time[2].Value;
  // Decimals of the second.
  Moment.MilliSecond = Time[3].Value;
  for (std::size_t Digits = Time[3].Digits; Digits > 0 && Digits < 3; ++Digits) Moment.MilliSecond *= 10;
  return true;
}

}  // namespace

std::optional<TDateTime> DateTimeOfInput(std::string_view Text) {
  const TFormatSettings& Locale = FormatSettings();
  THalf Half = THalf::None;
  std::optional<std::vector<TPart>> Parts = PartsOf(Text, Half);
  if (!Parts.has_value() || Parts->size() < 2) return std::nullopt;
  TDateTimeParts Moment{.Year = 1899, .Month = 12, .Day = 30};
  const bool IsTime =
      Parts->size() < 3 || ((*Parts)[1].Before == Locale.TimeSeparator && Locale.TimeSeparator != Locale.DateSeparator);
  if (!IsTime) {
    const std::string Order = DateOrder();
    for (std::size_t Place = 0; Place < Order.size(); ++Place) {
      const TPart& Part = (*Parts)[Place];
      (Order[Place] == 'd'   ? Moment.Day
       : Order[Place] == 'm' ? Moment.Month
                             : Moment.Year) = Order[Place] == 'y' ? FullYear(Part) : Part.Value;
    }
    Parts->erase(Parts->begin(), Parts->begin() + 3);
  }
  if ((!Parts->empty() || Half != THalf::None) && !TakeTime(Moment, *Parts, Half)) return std::nullopt;
  return TryEncodeDateTime(Moment);
}

}  // namespace zy
