#include "analysis/ZyMath.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zy {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(ZyMathTest, AnglesFitIntoACircleAndItsQuadrants) {
  const struct {
    double Angle, Fitted;
    int Quadrant;
  } Cases[] = {{0, 0, 1},     {45.5, 45.5, 1}, {90, 90, 1},   {90.5, 90.5, 2}, {180, 180, 2},       {270, 270, 3},
               {271, 271, 4}, {360, 0, 1},     {-90, 270, 3}, {-725, 355, 4},  {36000045, 45.0, 1}, {-360, 0, 1}};
  for (const auto& [Angle, Fitted, Expected] : Cases) {
    EXPECT_DOUBLE_EQ(FitTo360Degrees(Angle), Fitted) << Angle;
    EXPECT_EQ(Quadrant(Angle), Expected) << Angle;
  }
  // So small that adding 360 gives 360 itself.
  EXPECT_LT(FitTo360Degrees(-1e-300), 360);
  EXPECT_GE(FitTo360Degrees(-1e-300), 0);
}

TEST(ZyMathTest, PowersOfTenEndAtTheLargestDouble) {
  EXPECT_EQ(Exp10(0), 1);
  EXPECT_EQ(Exp10(3), 1000);
  EXPECT_DOUBLE_EQ(Exp10(-2), 0.01);
  EXPECT_DOUBLE_EQ(Exp10(0.5), 3.16227766016837933);
  EXPECT_EQ(Exp10(-400), 0);
  EXPECT_EQ(Exp10(309), LargestDouble);
  EXPECT_EQ(Exp10(308.5), LargestDouble);
}

TEST(ZyMathTest, ExponentIsThatOfSevenPrintedDigits) {
  const std::pair<double, int> Cases[] = {
      {1, 0},         {9.999999, 0}, {9.9999994, 0}, {9.9999996, 1},      {9.99999999, 1},  {-9.99999999, 1},
      {10, 1},        {-1234, 3},    {0.001, -3},    {0.00099999999, -3}, {0.00099999, -4}, {1e308, 308},
      {5e-324, -324}, {0, 0},        {-0.0, 0},      {Infinity, 0},       {NotANumber, 0}};
  for (const auto& [Value, Exponent] : Cases) EXPECT_EQ(Real10thExponent(Value), Exponent) << Value;
}

TEST(ZyMathTest, ExpMinusShiftsTheDecimalPoint) {
  const struct {
    double Value;
    int Exponent;
    double Result;
  } Cases[] = {{1234, 2, 12.34}, {-5, 0, -5}, {1.5, -3, 1500}, {0, -320, 0}, {3e-318, -318, 3}, {1e308, 308, 1}};
  // The smallest doubles have few digits.
  for (const auto& [Value, Exponent, Result] : Cases)
    EXPECT_NEAR(ExpMinus(Value, Exponent), Result, std::fabs(Result) * (Exponent == -318 ? 1e-5 : 1e-15)) << Value;
}

TEST(ZyMathTest, RoundsOntoTheGrid) {
  const struct {
    double Value, Step;
    int Exponent;
    double Up, Down;
  } Cases[] = {
      {1.2, 0.5, 0, 1.5, 1},
      {1.5, 0.5, 0, 1.5, 1.5},
      {-1.2, 0.5, 0, -1, -1.5},
      {-1.5, 0.5, 0, -1.5, -1.5},
      {0, 0.2, 5, 0, 0},
      {0.3, 0.1, 0, 0.3, 0.3},        // 0.3 / 0.1 lies below 3
      {0.7, 0.1, 0, 0.7, 0.7},        // 0.7 / 0.1 lies below 7
      {1.5000001, 0.5, 0, 1.5, 1.5},  // on the grid but for a fifth of a millionth of a step
      {1.499999, 0.5, 0, 1.5, 1},     // two millionths of a step off
      {1234, 1, 2, 1300, 1200},
      {0.0123, 0.5, -2, 0.015, 0.01},
      {-1234, 0.2, 3, -1200, -1400},
      {7.25, 0, 3, 7.25, 7.25},  // no grid
  };
  for (const auto& [Value, Step, Exponent, Up, Down] : Cases) {
    EXPECT_NEAR(RoundUp(Value, Step, Exponent), Up, std::fabs(Up) * 1e-15) << Value << " by " << Step;
    EXPECT_NEAR(RoundDown(Value, Step, Exponent), Down, std::fabs(Down) * 1e-15) << Value << " by " << Step;
  }
}

TEST(ZyMathTest, CountsSignificantDigits) {
  const std::pair<double, int> Cases[] = {
      {1.25, 3},  {1000, 1},     {0, 0},      {-0.5, 1},     {0.2, 1},
      {100.5, 4}, {1.0 / 3, 16}, {1e-300, 1}, {Infinity, 0}, {1.0000000000000002, 1}};
  for (const auto& [Value, Digits] : Cases) EXPECT_EQ(LastSignificant(Value), Digits) << Value;
}

}  // namespace
}  // namespace zy
