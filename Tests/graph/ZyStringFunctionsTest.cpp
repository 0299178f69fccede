#include "graph/ZyStringFunctions.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

#include "framework/Errors.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/NumberText.h"

namespace zy {
namespace {

/// Runs with a decimal comma for as long as it lives.
struct TCommaLocale {
  TCommaLocale() { FormatSettings().DecimalSeparator = ','; }
  ~TCommaLocale() { FormatSettings().DecimalSeparator = '.'; }
};

TEST(ZyStringFunctionsTest, IndicesAsLetters) {
  const std::pair<int, const char*> Cases[] = {{1, "A"},
                                               {26, "Z"},
                                               {27, "AA"},
                                               {28, "AB"},
                                               {52, "AZ"},
                                               {53, "BA"},
                                               {702, "ZZ"},
                                               {703, "AAA"},
                                               {0, ""},
                                               {-5, ""},
                                               {2147483647, "FXSHRXW"}};
  for (const auto& [Index, Letters] : Cases) EXPECT_EQ(IndexToAlphabet(Index), Letters) << Index;
}

TEST(ZyStringFunctionsTest, ShownRealsFitTheirDigits) {
  struct TCase {
    double Value;
    int Digits;
    const char* Text;
  };
  const TCase Cases[] = {
      {1234.5678, 5, "1235"}, {1234.5678, 6, "1234.6"}, {1234.5678, 0, "1234.5678"}, {0.1, 15, "0.1"},
      {0.1, 40, "0.1"},       {1.0 / 3, 5, "0.333"},    {-1.0 / 3, 5, "-0.33"},      {0, 3, "0"},
      {-0.0, 3, "0"},         {12, 1, "1e+01"},  // no precision makes it fit
      {0.1, -2, "0.1"}};
  for (const TCase& Case : Cases) EXPECT_EQ(RealToStrDigits(Case.Value, Case.Digits), Case.Text) << Case.Value;
  const TCommaLocale Comma;
  EXPECT_EQ(RealToStrDigits(1234.5678, 6), "1234,6");
  EXPECT_EQ(RealToStrDigits(1234.5678, 0), "1234,5678");
}

TEST(ZyStringFunctionsTest, StoredRealsDependOnNoLocale) {
  const double Doubles[] = {0.1, 1.0 / 3, -1e-300, 5e-324, 1.7976931348623157e308, 100};
  const float Singles[] = {0.1f, 1.0f / 3, 1e-45f, 3.4028235e38f, 16777217.0f, -2.5f};
  for (const bool IsComma : {false, true}) {
    FormatSettings().DecimalSeparator = IsComma ? ',' : '.';
    for (const double Value : Doubles) EXPECT_EQ(DoubleFromStr(DoubleToStr(Value)), Value);
    for (const float Value : Singles) EXPECT_EQ(static_cast<float>(DoubleFromStr(SingleToStr(Value))), Value);
    EXPECT_EQ(DoubleToStr(-1234.5), "-1234.5");
    EXPECT_EQ(SingleToStr(0.1f), "0.1");
    const double Values[] = {1.5, -0.1, 2};
    EXPECT_EQ(DoubleArrayToString(Values), "1.5;-0.1;2");
    EXPECT_EQ(StringToDoubleArray("1.5;-0.1;2"), (std::vector{1.5, -0.1, 2.0}));
  }
  EXPECT_EQ(DoubleFromStr("1,5"), 1.5);  // as typed in this locale
  FormatSettings().DecimalSeparator = '.';
  EXPECT_THROW(DoubleFromStr("1,5"), EConvertError);
  EXPECT_THROW(DoubleFromStr(""), EConvertError);
}

TEST(ZyStringFunctionsTest, ArraysAsTexts) {
  EXPECT_EQ(DoubleArrayToString({}), "");
  EXPECT_TRUE(StringToDoubleArray("").empty());
  EXPECT_TRUE(StringToIntegerArray("").empty());
  const int Values[] = {3, -4, 2147483647};
  EXPECT_EQ(IntegerArrayToString(Values), "3;-4;2147483647");
  EXPECT_EQ(StringToIntegerArray("3; -4;2147483647"), (std::vector{3, -4, 2147483647}));
  for (const char* Bad : {";", "1;", "1;;2", "1;x"}) {
    EXPECT_THROW(StringToDoubleArray(Bad), EConvertError) << Bad;
    EXPECT_THROW(StringToIntegerArray(Bad), EConvertError) << Bad;
  }
  EXPECT_THROW(StringToIntegerArray("2147483648"), EConvertError);
}

TEST(ZyStringFunctionsTest, EraseToNumberStopsAtAnythingANumberCanBeginWith) {
  const std::pair<const char*, const char*> Cases[] = {{"abc 12", "12"}, {"E 7", "7"},    {"e5", "e5"},
                                                       {"E", "E"},       {"x-3", "-3"},   {"one.5", "e.5"},
                                                       {"", ""},         {"(.5)", ".5)"}, {"Ex", ""}};
  for (const auto& [Before, After] : Cases) {
    std::string Text = Before;
    EraseToNumber(Text);
    EXPECT_EQ(Text, After) << Before;
  }
}

/// What a call takes off the front of a text, and what it leaves.
struct TExtraction {
  const char* Text;
  double Value;  ///< infinite for a failure
  const char* Rest;
};
constexpr double Fails = std::numeric_limits<double>::infinity();

template <class TExtract>
void CheckExtractions(std::span<const TExtraction> Cases, TExtract Extract) {
  for (const TExtraction& Case : Cases) {
    std::string Text = Case.Text;
    if (std::isinf(Case.Value)) {
      EXPECT_THROW(Extract(Text), EConvertError) << Case.Text;
      continue;
    }
    EXPECT_EQ(Extract(Text), Case.Value) << Case.Text;
    EXPECT_EQ(Text, Case.Rest) << Case.Text;
  }
}

TEST(ZyStringFunctionsTest, IntegersComeOffOneByOne) {
  const TExtraction Cases[] = {{"12", 12, ""},     {"12;34", 12, "34"}, {"x = -7, 8", -7, " 8"},  {"+5 ", 5, ""},
                               {"3  4", 3, " 4"},  {"007", 7, ""},      {"", Fails, ""},          {"none", Fails, ""},
                               {"- 5", Fails, ""}, {"1-2", 1, "2"},     {"2147483648", Fails, ""}};
  CheckExtractions(Cases, ExtractOneInt);
  std::string Text = "no";
  EXPECT_EQ(testing::MessageOf<EConvertError>([&] { ExtractOneInt(Text); }), "Error during integer extraction");
}

TEST(ZyStringFunctionsTest, RealsComeOffOneByOne) {
  const TExtraction Cases[] = {{"1.5", 1.5, ""},          {"1.5;2", 1.5, "2"},     {"x=-.5e-2 y=3", -0.005, "3"},
                               {"the 5. test 6", 5, "6"}, {"hello 2 E 3", 2, "3"}, {"1 NaN 3", 1, "NaN 3"},
                               {"2 nano 3", 2, "3"},      {"3eggs", Fails, ""},    {"1e999", Fails, ""},
                               {"", Fails, ""},           {"none", Fails, ""},     {"-", Fails, ""},
                               {"+-5", Fails, ""}};
  for (const bool IsComma : {false, true}) {
    FormatSettings().DecimalSeparator = IsComma ? ',' : '.';
    CheckExtractions(Cases, ExtractOneDouble);
  }
  FormatSettings().DecimalSeparator = '.';
  std::string Text = "; NaN, nan";
  for (const char* Rest : {"nan", ""}) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(ExtractOneDouble(Text)), 0xFFF8000000000000u);
    EXPECT_EQ(Text, Rest);
  }
  EXPECT_EQ(testing::MessageOf<EConvertError>([&] { ExtractOneDouble(Text); }),
            "Error during floating point number extraction");
}

}  // namespace
}  // namespace zy
