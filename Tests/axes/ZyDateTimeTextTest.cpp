#include "axes/ZyDateTimeText.h"

#include <gtest/gtest.h>

#include <cmath>

#include "axes/DateTimeSamples.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy::testing {
namespace {

/// Other settings for one test.
struct TSettings {
  ~TSettings() { FormatSettings() = Kept; }
  TFormatSettings Kept = FormatSettings();
};

TEST(ZyDateTimeTextTest, FormatsOfDatesAndTimes) {
  const std::pair<const char*, const char*> Cases[] = {
      {"yyyy-MM-dd hh:nn:ss.zzz", "2007-03-04 15:06:09.042"},
      {"d/m/yy h:m:s z", "4/3/07 15:6:9 42"},
      {"dddd, d MMMM; ddd MMM", "Sunday, 4 March; Sun Mar"},
      {"hh:mm mm", "15:06 03"},
      {"hh:mm dd mm", "15:06 04 03"},
      {"h am/pm, hh AMPM, h A/P, h", "3 pm, 03 PM, 3 P, 15"},
      {"'d''m' \"yy\" ä", "dm yy ä"},
      {"c|ddddd|t|tt", "03/04/2007 15:06:09|03/04/2007|15:06|15:06:09"},
      {"ss.fff fff", "09.042 fff"},
      {"'open", "open"},
      {"'", ""}};
  for (const auto& [Format, Text] : Cases) {
    std::string Out = "before";
    MyDateTimeToString(Out, Format, At("2007-03-04 15:06:09.042"));
    EXPECT_EQ(Out, Text) << Format;
  }
  const TSettings Kept;
  FormatSettings().ShortDateFormat = "ddddd";  // holds itself
  EXPECT_EQ(DateTimeToString("[ddddd]", 0), "[]");
  EXPECT_EQ(DateTimeToString("h ampm", 0.01), "12 AM");
}

TEST(ZyDateTimeTextTest, FormatsOfLabelsFollowTheSettings) {
  const TSettings Kept;
  FormatSettings().ShortDateFormat = "dd.MM.yyyy";
  FormatSettings().ShortTimeFormat = "hh:nn:ss";
  FormatSettings().DecimalSeparator = ',';
  const TZyDateTimeFormats Formats = DefaultDateTimeFormats();
  EXPECT_EQ(Formats.Day + "|" + Formats.Minute + "|" + Formats.DayAndHour + "|" + Formats.MilliSecond,
            "d.M.yy|hh:nn|d.M.yy hh:nn|s,fff");
}

TEST(ZyDateTimeTextTest, SpansInSeconds) {
  const struct {
    double Value;
    int Format;
    const char* Text;
  } Cases[] = {{3661.5, 2, "01:01:01.5"}, {86400, 3, "1.00:00:00"},   {3600, 3, "01:00:00"},  {0, 0, "0"},
               {0, 1, "00:00"},           {59.9996, 1, "01:00"},      {9.9996, 1, "00:10"},   {3661.1, 2, "01:01:01.1"},
               {12.3456, 0, "12.346"},    {360000, 2, "100:00:00"},   {-90.5, 1, "-01:30.5"}, {1e15, 3, "1E15"},
               {700, 1, "11:40"},         {9e9, 3, "104166.16:00:00"}};
  for (const auto& Case : Cases) EXPECT_EQ(SecondsToString(Case.Value, Case.Format), Case.Text) << Case.Value;
}

TEST(ZyDateTimeTextTest, SpansInDaysThereAndBack) {
  const std::pair<double, const char*> Cases[] = {
      {0, ""}, {2, "2."}, {0.5, "12:00:00.000"}, {1.25, "1.06:00:00.000"}, {3 + 45296.789 / 86400, "3.12:34:56.789"}};
  for (const auto& [Days, Text] : Cases) {
    EXPECT_EQ(DoubleToTimeSpanStr(Days), Text);
    EXPECT_NEAR(DoubleFomTimeSpanStr(Text), Days, 1e-14) << Text;
  }
  EXPECT_EQ(DoubleToTimeSpanStr(0.99999999999), "1.00:00:00.000");
  EXPECT_EQ(DoubleFomTimeSpanStr("36"), 36.0 / 86400);
  EXPECT_EQ(DoubleFomTimeSpanStr("90:1.5"), 90.0 / 1440 + 1.5 / 86400);
  EXPECT_EQ(DoubleFomTimeSpanStr("1.5"), 1 + 5.0 / 86400);  // a day and five seconds
  for (const double Days : {-1e-9, std::nan("")}) EXPECT_THROW(DoubleToTimeSpanStr(Days), EConvertError);
  for (const char* Text : {"x", "1:", ":", "1:2:3:4", "1.x", ".5:00"})
    EXPECT_THROW(DoubleFomTimeSpanStr(Text), EConvertError) << Text;
}

}  // namespace
}  // namespace zy::testing
