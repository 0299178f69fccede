#include "axes/ZyDateTime.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace zy {
namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days FirstDay = std::chrono::year(1899) / 12 / 30;
constexpr int MilliSecondsOfDay = 86'400'000;
constexpr double OneMilliSecond = 1.0 / MilliSecondsOfDay;
constexpr double Snap = 0.1;  // milliseconds; far beyond rounding, far below what can be shown

constexpr int DayNumber(year_month_day Date) { return static_cast<int>((sys_days(Date) - FirstDay).count()); }

constexpr int LowestDay = DayNumber(std::chrono::year(1) / 1 / 1);
constexpr int HighestDay = DayNumber(std::chrono::year(9999) / 12 / 31);

struct TDayAndTime {
  double Day;
  double Time;  // fraction of the day
};

TDayAndTime Split(TDateTime Value) {
  const double Day = std::trunc(Value);
  return {Day, std::fabs(Value - Day)};
}

TDateTime Join(TDayAndTime Parts) { return Parts.Day < 0 ? Parts.Day - Parts.Time : Parts.Day + Parts.Time; }

struct TWholeDayAndTime {
  int Day;
  int MilliSecond;
};

/// Rounded to milliseconds, inside the years 1 to 9999.
TWholeDayAndTime SplitWhole(TDateTime Value) {
  if (!(Value >= LowestDay)) return {LowestDay, 0};
  if (Value >= HighestDay + 1) return {HighestDay, MilliSecondsOfDay - 1};
  const TDayAndTime Parts = Split(Value);
  const int Day = static_cast<int>(Parts.Day);
  const int MilliSecond = static_cast<int>(std::nearbyint(Parts.Time * MilliSecondsOfDay));
  if (MilliSecond < MilliSecondsOfDay) return {Day, MilliSecond};
  return Day < HighestDay ? TWholeDayAndTime{Day + 1, 0} : TWholeDayAndTime{Day, MilliSecondsOfDay - 1};
}

year_month_day DateOf(int Day) { return sys_days(FirstDay + std::chrono::days(Day)); }

TDateTime IncMilliSeconds(TDateTime Value, double Count) {
  if (Count == 0) return Value;
  TDayAndTime Parts = Split(Value);
  double Time = Parts.Time * MilliSecondsOfDay + Count;
  if (const double Whole = std::nearbyint(Time); std::fabs(Time - Whole) < Snap) Time = Whole;
  const double Days = std::floor(Time / MilliSecondsOfDay);
  return Join({Parts.Day + Days, (Time - Days * MilliSecondsOfDay) * OneMilliSecond});
}

std::int64_t OfTheYear(TDateTime Value, int MilliSecondsOfUnit) {
  const TWholeDayAndTime Parts = SplitWhole(Value);
  const int DayOfYear = Parts.Day - DayNumber(DateOf(Parts.Day).year() / 1 / 1);
  return (std::int64_t{DayOfYear} * MilliSecondsOfDay + Parts.MilliSecond) / MilliSecondsOfUnit;
}

}  // namespace

TDateTimeParts DecodeDateTime(TDateTime Value) {
  const auto [Day, Time] = SplitWhole(Value);
  const year_month_day Date = DateOf(Day);
  return {static_cast<int>(Date.year()),
          static_cast<int>(static_cast<unsigned>(Date.month())),
          static_cast<int>(static_cast<unsigned>(Date.day())),
          Time / 3'600'000,
          Time / 60'000 % 60,
          Time / 1000 % 60,
          Time % 1000};
}

std::optional<TDateTime> TryEncodeDateTime(const TDateTimeParts& Parts) {
  const auto IsBelow = [](int Field, int Limit) { return Field >= 0 && Field < Limit; };
  if (Parts.Year < 1 || Parts.Year > 9999 || Parts.Day < 1 || Parts.Day > DaysInAMonth(Parts.Year, Parts.Month) ||
      !IsBelow(Parts.Hour, 24) || !IsBelow(Parts.Minute, 60) || !IsBelow(Parts.Second, 60) ||
      !IsBelow(Parts.MilliSecond, 1000))
    return std::nullopt;
  const int Day = DayNumber(std::chrono::year(Parts.Year) / Parts.Month / Parts.Day);
  const int Time = ((Parts.Hour * 60 + Parts.Minute) * 60 + Parts.Second) * 1000 + Parts.MilliSecond;
  return Join({static_cast<double>(Day), static_cast<double>(Time) / MilliSecondsOfDay});
}

int DaysInAMonth(int Year, int Month) {
  if (Month < 1 || Month > 12) return 0;
  const auto Last = std::chrono::year(Year) / Month / std::chrono::last;
  return static_cast<int>(static_cast<unsigned>(Last.day()));
}

int DayOfWeek(TDateTime Value) {
  const std::chrono::weekday Weekday = FirstDay + std::chrono::days(SplitWhole(Value).Day);
  return static_cast<int>(Weekday.c_encoding()) + 1;
}

int YearOf(TDateTime Value) { return static_cast<int>(DateOf(SplitWhole(Value).Day).year()); }
int HourOfTheYear(TDateTime Value) { return static_cast<int>(OfTheYear(Value, 3'600'000)); }
int MinuteOfTheYear(TDateTime Value) { return static_cast<int>(OfTheYear(Value, 60'000)); }
int SecondOfTheYear(TDateTime Value) { return static_cast<int>(OfTheYear(Value, 1000)); }
std::int64_t MilliSecondOfTheYear(TDateTime Value) { return OfTheYear(Value, 1); }

TDateTime IncDay(TDateTime Value, int Count) {
  const TDayAndTime Parts = Split(Value);
  return Join({Parts.Day + Count, Parts.Time});
}

TDateTime IncMonth(TDateTime Value, int Count) {
  // The time stays as it is to the last bit, unless it rounds up to the next day.
  const TWholeDayAndTime Whole = SplitWhole(Value);
  const TDayAndTime Parts = Split(Value);
  const double Time = Whole.Day == Parts.Day ? Parts.Time : 0;
  constexpr std::int64_t MostMonths = 360'000;  // years that the calendar of the standard library still has
  const year_month_day Date = DateOf(Whole.Day);
  const std::int64_t Months =
      std::clamp(std::int64_t{static_cast<int>(Date.year())} * 12 + static_cast<unsigned>(Date.month()) - 1 + Count,
                 -MostMonths, MostMonths);
  const std::int64_t Year = Months >= 0 ? Months / 12 : (Months - 11) / 12;
  const auto Month = std::chrono::year(static_cast<int>(Year)) / (static_cast<int>(Months - Year * 12) + 1);
  const auto Last = (Month / std::chrono::last).day();
  return Join({static_cast<double>(DayNumber(Month / std::min(Date.day(), Last))), Time});
}

TDateTime IncYear(TDateTime Value, int Count) {
  constexpr int Most = 100'000;  // the product must stay in range
  return IncMonth(Value, std::clamp(Count, -Most, Most) * 12);
}

TDateTime MyIncMilliSeconds(TDateTime Value, int Count) { return IncMilliSeconds(Value, Count); }
TDateTime MyIncSeconds(TDateTime Value, int Count) { return IncMilliSeconds(Value, Count * 1000.0); }
TDateTime MyIncMinutes(TDateTime Value, int Count) { return IncMilliSeconds(Value, Count * 60'000.0); }
TDateTime MyIncHours(TDateTime Value, int Count) { return IncMilliSeconds(Value, Count * 3'600'000.0); }

TDateTime IncDateTime(TZyDtRegion Unit, TDateTime Value, int Count) {
  switch (Unit) {
    case TZyDtRegion::Year:
      return IncYear(Value, Count);
    case TZyDtRegion::Month:
      return IncMonth(Value, Count);
    case TZyDtRegion::Day:
      return IncDay(Value, Count);
    case TZyDtRegion::Hour:
      return MyIncHours(Value, Count);
    case TZyDtRegion::Minute:
      return MyIncMinutes(Value, Count);
    case TZyDtRegion::Second:
      return MyIncSeconds(Value, Count);
    default:
      return MyIncMilliSeconds(Value, Count);
  }
}

double DateTimeSpan(TDateTime From, TDateTime To) {
  TDayAndTime First = Split(From), Last = Split(To);
  // A time within some nanoseconds of the next day comes from rounding and is that of the day itself.
  if (First.Time > 0.99999999999999) First.Time = 0;
  if (Last.Time > 0.99999999999999) Last.Time = 0;
  return (Last.Time - First.Time) + Last.Day - First.Day;
}

}  // namespace zy
