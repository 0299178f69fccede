#pragma once

#include <cstdint>
#include <optional>

namespace zy {

/// A date and time as a day number with a fraction, counted from 30 December 1899. A date before that day has a
/// negative day number, while its fraction, taken as positive, still is the time of day: -1.25 is 6 o'clock on 29
/// December 1899.
using TDateTime = double;

/// The first moment of the year 100 and the last millisecond of the year 9999: the limits of an axis.
inline constexpr TDateTime MinDateTime = -657434.0;
inline constexpr TDateTime MaxDateTime = 2958465.999999988;

/// Units of the calendar from coarse to fine; the order counts.
enum class TZyDtRegion { Year, Month, Day, Hour, Minute, Second, MilliSecond };

/// The fields of a date and time in the Gregorian calendar, which is taken to hold for all times.
struct TDateTimeParts {
  int Year = 1;
  int Month = 1;
  int Day = 1;
  int Hour = 0;
  int Minute = 0;
  int Second = 0;
  int MilliSecond = 0;
  bool operator==(const TDateTimeParts&) const = default;
};

// ---- Days and their fields ----

/// Fields of a value, rounded to whole milliseconds. What lies outside the years 1 to 9999 reads as the nearest moment
/// inside, what is not a number as the first one.
TDateTimeParts DecodeDateTime(TDateTime Value);
/// Nothing where a field is outside its range or the day not in the month; the years are 1 to 9999.
std::optional<TDateTime> TryEncodeDateTime(const TDateTimeParts& Parts);

/// 28 to 31; 0 for a month outside 1 to 12.
int DaysInAMonth(int Year, int Month);
/// 1 for Sunday to 7 for Saturday.
int DayOfWeek(TDateTime Value);
int YearOf(TDateTime Value);
/// Whole units since the year began.
int HourOfTheYear(TDateTime Value);
int MinuteOfTheYear(TDateTime Value);
int SecondOfTheYear(TDateTime Value);
std::int64_t MilliSecondOfTheYear(TDateTime Value);

// ---- Steps ----

/// The same time so many days, months or years on; a day that the month does not have becomes its last one. The result
/// may leave the years 1 to 9999.
TDateTime IncDay(TDateTime Value, int Count);
TDateTime IncMonth(TDateTime Value, int Count);
TDateTime IncYear(TDateTime Value, int Count);
/// So much later, on either side of the first day and across it. A result within a tenth of a millisecond of a whole
/// millisecond is that millisecond, so that steps do not drift. A count of 0 returns the value as it is.
TDateTime MyIncMilliSeconds(TDateTime Value, int Count);
TDateTime MyIncSeconds(TDateTime Value, int Count);
TDateTime MyIncMinutes(TDateTime Value, int Count);
TDateTime MyIncHours(TDateTime Value, int Count);
/// The step of the unit named.
TDateTime IncDateTime(TZyDtRegion Unit, TDateTime Value, int Count);

// ---- Spans in days ----

/// Days from one date and time to another. Plain subtraction would be wrong before the first day.
double DateTimeSpan(TDateTime From, TDateTime To);
constexpr double TotalMilliSeconds(double Days) { return Days * 86400 * 1000; }
constexpr double TotalSeconds(double Days) { return Days * 86400; }
constexpr double TotalMinutes(double Days) { return Days * 1440; }
constexpr double TotalHours(double Days) { return Days * 24; }

}  // namespace zy
