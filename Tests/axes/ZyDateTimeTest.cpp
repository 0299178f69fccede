#include "axes/ZyDateTime.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "axes/DateTimeSamples.h"

namespace zy::testing {
namespace {

TEST(ZyDateTimeTest, EveryDayOfTheYears1To9999) {
  double Day = -693593;  // the first one, a Monday
  int Weekday = 2;
  TDateTimeParts Date;
  for (Date.Year = 1; Date.Year <= 9999; ++Date.Year) {
    const bool IsLeap = Date.Year % 4 == 0 && (Date.Year % 100 != 0 || Date.Year % 400 == 0);
    const int Lengths[] = {31, IsLeap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (Date.Month = 1; Date.Month <= 12; ++Date.Month)
      for (Date.Day = 1; Date.Day <= Lengths[Date.Month - 1]; ++Date.Day) {
        ASSERT_EQ(DecodeDateTime(Day), Date) << Day;
        ASSERT_EQ(TryEncodeDateTime(Date), Day);
        ASSERT_EQ(DayOfWeek(Day), Weekday) << Day;
        ++Day;
        Weekday = Weekday % 7 + 1;
      }
  }
  EXPECT_EQ(Day, 2958466);
}

TEST(ZyDateTimeTest, TimesOfDayOnBothSidesOfTheFirstDay) {
  const std::pair<double, const char*> Cases[] = {{0, "1899-12-30 00:00:00.000"},
                                                  {-1.25, "1899-12-29 06:00:00.000"},
                                                  {-1.9999999999, "1899-12-30 00:00:00.000"},  // rounds up
                                                  {36585.5, "2000-02-29 12:00:00.000"},
                                                  {MinDateTime, "0100-01-01 00:00:00.000"},
                                                  {MaxDateTime, "9999-12-31 23:59:59.999"},
                                                  {-1e300, "0001-01-01 00:00:00.000"},
                                                  {1e300, "9999-12-31 23:59:59.999"},
                                                  {std::nan(""), "0001-01-01 00:00:00.000"}};
  for (const auto& [Value, Text] : Cases) EXPECT_EQ(Shown(Value), Text);
  EXPECT_EQ(At("1899-12-29 06:00"), -1.25);
  EXPECT_EQ(TryEncodeDateTime({2023, 2, 29}), std::nullopt);
  EXPECT_EQ(TryEncodeDateTime({2024, 2, 29, 24}), std::nullopt);
  // From 6 o'clock across the first day, back within a day before it, and a day but for a rounding.
  EXPECT_EQ(DateTimeSpan(-1.25, 1.5), 2.25);
  EXPECT_EQ(DateTimeSpan(-1.75, -1.25), -0.5);
  EXPECT_EQ(DateTimeSpan(-2.25, -1.75), 1.5);
  EXPECT_NEAR(DateTimeSpan(0, 0.999999999999995), 0, 1e-12);
}

TEST(ZyDateTimeTest, UnitsSinceTheYearBegan) {
  const auto Units = [](TDateTime At) {
    return std::tuple(HourOfTheYear(At), MinuteOfTheYear(At), SecondOfTheYear(At), MilliSecondOfTheYear(At));
  };
  EXPECT_EQ(Units(At("2024-12-31 23:59:59.999")), std::tuple(8783, 527039, 31622399, 31622399999));
  EXPECT_EQ(Units(At("1896-02-29 01:02:03.004")), std::tuple(1417, 85022, 5101323, 5101323004));
}

TEST(ZyDateTimeTest, StepsHeedMonthEndsLeapYearsAndTheFirstDay) {
  using enum TZyDtRegion;
  const struct {
    const char* From;
    TZyDtRegion Unit;
    int Count;
    const char* To;
  } Cases[] = {{"2024-01-31 06:00", Month, 1, "2024-02-29 06:00"},
               {"2024-03-31", Month, -13, "2023-02-28"},
               {"2024-02-29", Year, 1, "2025-02-28"},
               {"1899-12-29 18:00", Hour, 12, "1899-12-30 06:00"},
               {"1899-12-29 18:00", Hour, 36, "1899-12-31 06:00"},
               {"1899-12-25 06:00", Hour, -12, "1899-12-24 18:00"},
               {"1899-12-30 06:00", Day, -3, "1899-12-27 06:00"},
               {"1899-12-27 23:59:59", Second, 1, "1899-12-28"},
               {"1900-02-28 23:59", Minute, 1, "1900-03-01"},
               {"1900-01-01", MilliSecond, -1, "1899-12-31 23:59:59.999"},
               {"9999-01-01", Year, -9998, "0001-01-01"},
               {"1890-06-15 12:30", Month, 120, "1900-06-15 12:30"}};
  for (const auto& Case : Cases)
    EXPECT_EQ(Shown(IncDateTime(Case.Unit, At(Case.From), Case.Count)), Shown(At(Case.To))) << Case.From;
  // A hundred thousand steps do not drift off the milliseconds.
  double Value = At("1899-12-29 12:00");
  for (int i = 0; i < 100'000; ++i) Value = MyIncMilliSeconds(Value, 863);
  EXPECT_NEAR(Value, At("1899-12-30 11:58:20"), 1e-15);
  EXPECT_EQ(MyIncHours(0.1234567890123, 0), 0.1234567890123);
}

}  // namespace
}  // namespace zy::testing
