#include "axes/ZyDateTimeSteps.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tuple>

#include "axes/DateTimeSamples.h"
#include "axes/ZySecondsSteps.h"

namespace zy::testing {
namespace {

using enum TZyDtRegion;

/// Room for five labels of a date or four of seconds.
const TZyLabelRoom Room{600, 1, [](const std::string& Text, double) { return Text.empty() ? 0.0 : 50.0; }};

TEST(ZyDateTimeStepsTest, TheFinestStepsThatHaveRoom) {
  const TZyDateTimeFormats Formats = DefaultDateTimeFormats();
  const std::pair<double, TZyDtParameters> Cases[] = {
      {20.0 / 86'400'000, {MilliSecond, MilliSecond, 1, 5, 5, Formats.MilliSecond}},
      {8.0 / 86'400, {Second, MilliSecond, 100, 1000, 2000, Formats.Second}},
      {1, {Hour, Hour, 1, 3, 6, Formats.Minute}},
      {1.1, {Hour, Hour, 1, 3, 6, Formats.DayAndHour}},
      {1.2, {Hour, Hour, 1, 6, 12, Formats.DayAndHour}},
      {30, {Day, Day, 1, 7, 1, Formats.Day}},
      {40, {Day, Day, 1, 7, 2, Formats.Day}},
      {90, {Month, Day, 1, 1, 1, Formats.LongMonth}},
      {130, {Month, Day, 1, 1, 1, Formats.ShortMonth}},
      {365'243, {Year, Year, 50, 250, 500, ""}},
      {2'900'000, {Year, Year, 100, 500, 1000, ""}},
  };
  const auto Fields = [](const TZyDtParameters& Of) {
    return std::tie(Of.MajorRgn, Of.MinorRgn, Of.Increment, Of.MajorMod, Of.LabelMod, Of.Format);
  };
  for (const auto& [Days, Steps] : Cases)
    EXPECT_EQ(Fields(ChooseDtParameters(0, Days, Formats, Room)), Fields(Steps)) << Days;
}

TEST(ZyDateTimeStepsTest, RoundsToTicksOfTheCalendar) {
  const struct {
    TZyDtParameters Steps;
    const char* Value;
    const char* Rounded[4];  // to ticks up and down, to major ticks up and down
  } Cases[] = {
      {{Month, Day, 1, 1, 1, ""}, "2024-2-15 10:00", {"2024-2-16", "2024-2-15", "2024-3-1", "2024-2-1"}},
      {{Day, Day, 1, 7, 1, ""}, "2024-2-29 6:00", {"2024-3-1", "2024-2-29", "2024-3-3", "2024-2-25"}},
      {{Year, Year, 1, 5, 5, ""}, "1896-7-4", {"1897-1-1", "1896-1-1", "1900-1-1", "1895-1-1"}},
      {{Year, Year, 5, 25, 25, ""}, "9990-7-4", {"9995-1-1", "9990-1-1", "9991-1-1", "9975-1-1"}},
      {{Year, Month, 3, 12, 1, ""}, "1999-11-30 23:59:59.999", {"2000-1-1", "1999-10-1", "2000-1-1", "1999-1-1"}},
      {{Minute, Second, 10, 60, 60, ""},
       "1899-12-29 23:59:35.500",
       {"1899-12-29 23:59:40", "1899-12-29 23:59:30", "1899-12-30", "1899-12-29 23:59"}},
      {{Hour, Hour, 3, 12, 24, ""},
       "9999-12-31 22:30",
       {"9999-12-31 23:59:59.999", "9999-12-31 21:00", "9999-12-31 23:59:59.999", "9999-12-31 12:00"}},
      {{Second, MilliSecond, 100, 500, 1000, ""},
       "2024-2-29 0:0:9.870",
       {"2024-2-29 0:0:9.900", "2024-2-29 0:0:9.800", "2024-2-29 0:0:10", "2024-2-29 0:0:9.500"}},
  };
  for (const auto& Case : Cases)
    for (int i = 0; i < 4; ++i)
      EXPECT_EQ(Shown(DateTimeRound(Case.Steps, At(Case.Value), i % 2 == 0, i >= 2)), Shown(At(Case.Rounded[i])))
          << Case.Value << ", " << i;
}

TEST(ZyDateTimeStepsTest, TicksThatAreMajorAndThoseWithLabels) {
  const struct {
    TZyDtParameters Steps;
    const char *Start, *Last;
    std::string_view Ticks;  // major ones without and with a label as + and L
  } Cases[] = {{{Month, Day, 1, 1, 1, ""}, "2024-01-29 12:00", "2024-03-01", "..L............................L"},
               {{Day, Day, 1, 7, 2, ""}, "2024-02-25", "2024-03-10", "L......+......L"},
               {{Hour, Hour, 1, 3, 6, ""}, "1899-12-29 22:00", "1899-12-30 06:00", "..L..+..L"},
               {{Year, Month, 3, 12, 2, ""}, "1898-11-05", "1902-01-01", "+...L...+...L"}};
  for (const auto& Case : Cases) {
    TZyDateTimeTicks Ticks(Case.Steps, At(Case.Start));
    for (std::size_t i = 0; i < Case.Ticks.size(); ++i) {
      if (i > 0) Ticks.Next();
      EXPECT_EQ(Ticks.Labelled() ? 'L' : Ticks.Major() ? '+' : '.', Case.Ticks[i]) << Case.Start << ", " << i;
    }
    EXPECT_EQ(Shown(Ticks.Value()), Shown(At(Case.Last)));
  }
  const TZyDtParameters MilliSeconds{MilliSecond, MilliSecond, 1, 5, 5, "s.fff"};
  EXPECT_EQ(DateTimeLabel(MilliSeconds, At("2024-02-29 00:00:05.000")), "5.0");
  EXPECT_EQ(DateTimeLabel({Year, Year, 1, 1, 1, ""}, At("0987-01-01")), "987");
}

TEST(ZyDateTimeStepsTest, StepsOfSecondsSuitTheirUnit) {
  const std::pair<double, TZySecSteps> Cases[] = {
      {10, {{Second, 1, 0}, 0.2, 0.1, 0.02}},          {100, {{Second, 2, 1}, 0.15, 0.05, 0.01}},
      {7200, {{Minute, 2, 2}, 0.15, 0.05, 0.01}},      {8 * 3600, {{Hour, 0, 2}, 1, 0.5, 0.1}},
      {20 * 3600, {{Hour, 1, 2}, 0.3, 0.1, 0.3 / 18}}, {5 * 86400, {{Day, 0, 3}, 1, 0.5, 0.125}},
      {10 * 86400, {{Day, 1, 3}, 0.2, 0.1, 0.025}}};
  for (const auto& [Span, Steps] : Cases) {
    SCOPED_TRACE(Span);
    const auto [Found, Label, Major, Tick] = ChooseSecSteps(0, Span, Room);
    EXPECT_EQ(std::tuple(Found.Rgn, Found.Exponent, Found.Format),
              std::tuple(Steps.Parameters.Rgn, Steps.Parameters.Exponent, Steps.Parameters.Format));
    EXPECT_DOUBLE_EQ(Label, Steps.LabelPart);
    EXPECT_DOUBLE_EQ(Major, Steps.MajorTickPart);
    EXPECT_DOUBLE_EQ(Tick, Steps.TickPart);
  }
  EXPECT_DOUBLE_EQ(SecondsRound(Minute, 1000, 0.15, 2, true), 1800);
  EXPECT_DOUBLE_EQ(SecondsRound(Minute, 1000, 0.15, 2, false), 900);
  // Room without end does not refine without end.
  EXPECT_GT(ChooseSecSteps(0, 0, {1e300, 0, [](const std::string&, double) { return 0.0; }}).LabelPart, 0);
}

}  // namespace
}  // namespace zy::testing
