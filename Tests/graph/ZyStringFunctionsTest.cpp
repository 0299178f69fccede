#include "graph/values/ZyStringFunctions.h"

#include <gtest/gtest.h>

#include <bit>
#include <sstream>

#include "framework/Errors.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy {
namespace {

/// Runs with another decimal separator for as long as it lives.
struct TSeparator {
  explicit TSeparator(char Value) { FormatSettings().DecimalSeparator = Value; }
  ~TSeparator() { FormatSettings().DecimalSeparator = '.'; }
};

TEST(ZyStringFunctionsTest, IndicesAsLetters) {
  std::string Letters;
  for (const int Index : {1, 26, 27, 52, 53, 702, 703, 2147483647, 0, -5}) Letters += IndexToAlphabet(Index) + " ";
  EXPECT_EQ(Letters, "A Z AA AZ BA ZZ AAA FXSHRXW   ");
}

TEST(ZyStringFunctionsTest, ShownRealsFitTheirDigits) {
  const std::tuple<double, int, const char*> Cases[] = {
      {1234.5678, 5, "1235"}, {1234.5678, 6, "1234.6"}, {1234.5678, 0, "1234.5678"},
      {0.1, 40, "0.1"},       {1.0 / 3, 5, "0.333"},    {-1.0 / 3, 5, "-0.33"},
      {-0.0, 3, "0"},         {0.1, -2, "0.1"},         {1.2e-5, 6, "1.2E-5"},
      {1.5e6, 5, "1.5E6"},    {-1e100, 7, "-1E100"},    {1.234e-300, 8, "1.2E-300"}};
  for (const auto& [Value, Digits, Text] : Cases) EXPECT_EQ(RealToStrDigits(Value, Digits), Text) << Digits;
  EXPECT_EQ(RealToStrDigits(12, 1), "1E1") << "no precision makes it fit";
  const TSeparator Comma(',');
  EXPECT_EQ(RealToStrDigits(1234.5678, 6), "1234,6");
  EXPECT_EQ(RealToStrDigits(1234.5678, 0), "1234,5678");
}

TEST(ZyStringFunctionsTest, StoredRealsDependOnNoLocale) {
  for (const char Character : {'.', ','}) {
    const TSeparator Separator(Character);
    for (const float Value : {1.0f / 3, 1e-45f, 3.4028235e38f, 16777217.0f})
      EXPECT_EQ(static_cast<float>(DoubleFromStr(SingleToStr(Value))), Value);
    EXPECT_EQ(DoubleToStr(-1234.5), "-1234.5");
    EXPECT_EQ(SingleToStr(0.1f), "0.1");
    EXPECT_EQ(DoubleArrayToString(std::vector{1.5, -0.1, 2.0}), "1.5;-0.1;2");
    EXPECT_EQ(StringToDoubleArray("1.5;-0.1;2"), (std::vector{1.5, -0.1, 2.0}));
  }
  for (const char* Bad : {"1,5", ""}) EXPECT_THROW(DoubleFromStr(Bad), EConvertError) << Bad;
  const TSeparator Comma(',');
  EXPECT_EQ(DoubleFromStr("1,5"), 1.5) << "as typed in this locale";
}

TEST(ZyStringFunctionsTest, ArraysAsTexts) {
  EXPECT_EQ(DoubleArrayToString({}), "");
  EXPECT_TRUE(StringToDoubleArray("").empty() && StringToIntegerArray("").empty());
  EXPECT_EQ(IntegerArrayToString(std::vector{3, -4, 2147483647}), "3;-4;2147483647");
  EXPECT_EQ(StringToIntegerArray("3; -4;2147483647"), (std::vector{3, -4, 2147483647}));
  for (const char* Bad : {";", "1;", "1;;2", "1;x"}) {
    EXPECT_THROW(StringToDoubleArray(Bad), EConvertError) << Bad;
    EXPECT_THROW(StringToIntegerArray(Bad), EConvertError) << Bad;
  }
  EXPECT_THROW(StringToIntegerArray("2147483648"), EConvertError);
}

TEST(ZyStringFunctionsTest, EraseToNumberStopsAtAnythingANumberCanBeginWith) {
  std::string Rests;
  for (std::string Text : {"abc 12", "E 7", "e5", "E", "x-3", "one.5", "", "(.5)", "Ex"}) {
    EraseToNumber(Text);
    Rests += Text + "|";
  }
  EXPECT_EQ(Rests, "12|7|e5|E|-3|e.5||.5)||");
}

/// What Extract takes off the front of a text, "|", and what it leaves; or that it fails.
template <class TExtract>
std::string Taken(TExtract Extract, std::string Text) {
  try {
    const auto Value = Extract(Text);
    return (std::ostringstream() << Value << "|" << Text).str();
  } catch (const EConvertError&) {
    return "fails";
  }
}

TEST(ZyStringFunctionsTest, NumbersComeOffOneByOne) {
  std::string Result;
  for (const char* Text : {"12", "12;34", "x = -7, 8", "+5 ", "3  4", "1-2", "none", "", "- 5", "2147483648"})
    Result += Taken(ExtractOneInt, Text) + "; ";
  EXPECT_EQ(Result, "12|; 12|34; -7| 8; 5|; 3| 4; 1|2; fails; fails; fails; fails; ");
  for (const char Character : {'.', ','}) {
    const TSeparator Separator(Character);
    Result.clear();
    for (const char* Text : {"1.5", "1.5;2", "x=-.5e-2 y=3", "the 5. test 6", "hello 2 E 3", "1 NaN 3", "2 nano 3"})
      Result += Taken(ExtractOneDouble, Text) + "; ";
    EXPECT_EQ(Result, "1.5|; 1.5|2; -0.005|3; 5|6; 2|3; 1|NaN 3; 2|3; ");
    for (std::string Bad : {"3eggs", "1e999", "", "none", "-", "+-5"})
      EXPECT_THROW(ExtractOneDouble(Bad), EConvertError) << Bad;
  }
  std::string Text = "; NaN, nan";
  for (const char* Rest : {"nan", ""}) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(ExtractOneDouble(Text)), 0xFFF8000000000000u);
    EXPECT_EQ(Text, Rest);
  }
  EXPECT_EQ(testing::MessageOf([&] { ExtractOneDouble(Text); }), "Error during floating point number extraction");
  EXPECT_EQ(testing::MessageOf([&] { ExtractOneInt(Text); }), "Error during integer extraction");
}

}  // namespace
}  // namespace zy
