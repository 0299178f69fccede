#include "texts/NumberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>
#include <limits>
#include <random>

#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

constexpr double Infinite = std::numeric_limits<double>::infinity();

/// Sets the decimal separator for one test.
class TSeparator {
 public:
  explicit TSeparator(char Value) { FormatSettings().DecimalSeparator = Value; }
  ~TSeparator() { FormatSettings().DecimalSeparator = FKept; }

 private:
  char FKept = FormatSettings().DecimalSeparator;
};

TEST(NumberText, Integers) {
  using TLimits = std::numeric_limits<std::int64_t>;
  const std::pair<const char*, std::int64_t> Rows[] = {{"0", 0},
                                                       {"+7", 7},
                                                       {" \t-12\r\n", -12},
                                                       {"$fF", 255},
                                                       {"-$10", -16},
                                                       {"$7FFFFFFFFFFFFFFF", TLimits::max()},
                                                       {"9223372036854775807", TLimits::max()},
                                                       {"-9223372036854775808", TLimits::min()}};
  for (const auto& [Text, Value] : Rows) EXPECT_EQ(StrToInt(Text), Value) << Text;
  for (const char* Text : {"", " ", "-", "+", "$", "--1", "+-1", "- 1", "1 2", "1.0", "1e3", "0x10", "$-1", "$G",
                           "9223372036854775808", "-9223372036854775809", "$8000000000000000", "99999999999999999999"})
    EXPECT_THROW(StrToInt(Text), EConvertError) << Text;
  EXPECT_EQ(IntToStr(TLimits::min()), "-9223372036854775808");
}

TEST(NumberText, StoredRealsReadBackTheSame) {
  std::vector<double> Values = {0.0, -0.0, 0.1, 1e22, 1e23, 9007199254740993.0, 5e-324, DBL_MAX, Infinite, -Infinite};
  std::mt19937_64 Random(1);
  while (Values.size() < 20'000) {
    const auto Value = std::bit_cast<double>(Random());
    if (!std::isnan(Value)) Values.push_back(Value);
  }
  const TSeparator Comma(',');  // which must not matter
  for (const double Value : Values) {
    const std::string Text = RealToText(Value);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(TextToReal(Text)), std::bit_cast<std::uint64_t>(Value)) << Text;
  }
  EXPECT_TRUE(std::isnan(TextToReal(RealToText(std::nan("")))));
  const std::pair<double, const char*> Shortest[] = {
      {0.1, "0.1"},      {1e21, "1e+21"},    {-2, "-2"}, {5e-324, "5e-324"}, {0.3f, "0.30000001192092896"},
      {Infinite, "INF"}, {-Infinite, "-INF"}};
  for (const auto& [Value, Text] : Shortest) EXPECT_EQ(RealToText(Value), Text);
}

TEST(NumberText, ReadsRealsAndRefusesTheRest) {
  const std::pair<const char*, double> Rows[] = {
      {"1.5", 1.5}, {"+1.5", 1.5}, {" 1.5\t", 1.5},  {".5", 0.5},       {"5.", 5},
      {"1E2", 100}, {"1e+2", 100}, {"-1e-2", -0.01}, {"inf", Infinite}, {"-Inf", -Infinite}};
  for (const auto& [Text, Value] : Rows) {
    EXPECT_EQ(TextToReal(Text), Value) << Text;
    EXPECT_EQ(StrToFloat(Text), Value) << Text;
  }
  for (const char* Text : {"", ".", "-", "e5", "1e", "1,5", "1.5.", "1.5x", "+-1", "- 1", "0x10", "1 000", "infinity",
                           "nan(1)", "1e999", "-1e999"}) {
    EXPECT_THROW(TextToReal(Text), EConvertError) << Text;
    EXPECT_THROW(StrToFloat(Text), EConvertError) << Text;
  }
}

TEST(NumberText, ShownRealsFollowTheLocale) {
  struct TRow {
    double Value;
    const char* General;
    int Digits;
    const char* Fixed;
  };
  const TRow Rows[] = {{1234567.891, "1234567,891", 2, "1234567,89"},
                       {0.1 + 0.2, "0,3", 0, "0"},
                       {2.5, "2,5", 0, "2"},  // a tie goes to the even digit
                       {-0.004, "-0,004", 2, "0,00"},
                       {-0.006, "-0,006", 2, "-0,01"},
                       {-0.0, "0", 1, "0,0"},
                       {1e15, "1e+15", 1, "1000000000000000,0"},
                       {100, "100", -5, "100"},
                       {0.1, "0,1", 99, "0,100000000000000006"},
                       {Infinite, "INF", 2, "INF"},
                       {-Infinite, "-INF", 2, "-INF"}};
  const TSeparator Comma(',');
  for (const TRow& Row : Rows) {
    EXPECT_EQ(FloatToStr(Row.Value), Row.General);
    EXPECT_EQ(FloatToStrFixed(Row.Value, Row.Digits), Row.Fixed);
  }
  EXPECT_EQ(FloatToStrFixed(std::numeric_limits<double>::max(), 18).size(), 309u + 1 + 18);
  std::mt19937_64 Random(3);
  for (int i = 0; i < 20'000; ++i) {  // as the C library prints it, ties and what is nearly one among them
    const int Digits = i % 9;
    double Value = (std::floor(std::uniform_real_distribution<double>(1, 1e6)(Random)) + 0.5) / std::pow(10, i % 8);
    if (i % 3 == 1) Value = std::nextafter(Value, i % 2 * 1e9);
    char Printed[40];
    std::snprintf(Printed, sizeof Printed, "%.*f", Digits, -Value);
    std::string Expected = Printed;
    if (Expected.find_first_of("123456789") == std::string::npos) Expected.erase(0, 1);
    if (const auto Point = Expected.find('.'); Point != std::string::npos) Expected[Point] = ',';
    ASSERT_EQ(FloatToStrFixed(-Value, Digits), Expected);
  }
  EXPECT_EQ(StrToFloat("-1,25e2"), -125);
  for (const char* Text : {"1.25", "1,2,5", ",", "1.000,5"}) EXPECT_THROW(StrToFloat(Text), EConvertError) << Text;
}

}  // namespace
}  // namespace zy::testing
