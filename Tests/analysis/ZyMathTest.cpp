#include "analysis/ZyMath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string_view>
#include <tuple>
#include <utility>

namespace zy {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(ZyMathTest, AnglesFitIntoACircleAndItsQuadrants) {
  const struct {
    double Angle, Fitted;
    int Quadrant;
  } Cases[] = {{0, 0, 1},   {90, 90, 1},   {90.5, 90.5, 2}, {180, 180, 2},       {270, 270, 3},  {271, 271, 4},
               {360, 0, 1}, {-90, 270, 3}, {-725, 355, 4},  {36000045, 45.0, 1}, {-1e-300, 0, 1}};
  for (const auto& [Angle, Fitted, Expected] : Cases) {
    EXPECT_DOUBLE_EQ(FitTo360Degrees(Angle), Fitted) << Angle;
    EXPECT_EQ(Quadrant(Angle), Expected) << Angle;
  }
}

TEST(ZyMathTest, PowersOfTenStayFinite) {
  const std::pair<double, double> Powers[] = {{0, 1},    {3, 1000},           {-2, 0.01}, {0.5, 3.16227766016837933},
                                              {-400, 0}, {309, LargestDouble}};
  for (const auto& [Exponent, Power] : Powers) EXPECT_DOUBLE_EQ(Exp10(Exponent), Power) << Exponent;
  EXPECT_EQ(Exp10(309), LargestDouble);
  const std::tuple<double, int, double> Shifts[] = {{1234, 2, 12.34}, {-5, 0, -5},     {1.5, -3, 1500},
                                                    {0, -320, 0},     {1e308, 308, 1}, {1, INT_MAX, 0}};
  for (const auto& [Value, Exponent, Result] : Shifts) EXPECT_DOUBLE_EQ(ExpMinus(Value, Exponent), Result) << Value;
}

TEST(ZyMathTest, ExponentsAndDigitsAreThoseOfThePrintedNumber) {
  const struct {
    double Value;
    int Exponent, Digits;
  } Cases[] = {{9.9999994, 0, 8},         {9.9999996, 1, 16}, {-1234, 3, 4}, {0.00099999999, -3, 16},
               {1e308, 308, 1},           {5e-324, -324, 16}, {0, 0, 0},     {Infinity, 0, 0},
               {NotANumber, 0, 0},        {1.25, 0, 3},       {1000, 3, 1},  {1.0 / 3, -1, 16},
               {1.0000000000000002, 0, 1}};
  for (const auto& [Value, Exponent, Digits] : Cases) {
    EXPECT_EQ(Real10thExponent(Value), Exponent) << Value;
    EXPECT_EQ(LastSignificant(Value), Digits) << Value;
  }
  std::mt19937_64 Random(5);
  for (int i = 0; i < 20'000; ++i) {
    const double Power = std::pow(10.0, std::uniform_int_distribution<int>(-40, 40)(Random));
    const double Value = i % 2 == 0 ? Power * std::uniform_real_distribution<double>(0.99999, 1.00001)(Random)
                                    : -Power * std::uniform_real_distribution<double>(1, 10)(Random);
    char Printed[40];
    std::snprintf(Printed, sizeof Printed, "%.6e", Value);
    ASSERT_EQ(Real10thExponent(Value), std::atoi(std::strchr(Printed, 'e') + 1)) << Printed;
    // Numbers of few digits and their neighbours.
    double Few = i / 4 % 120 * Power;
    if (i % 4 > 1) Few = std::nextafter(Few, i % 4 == 2 ? 0 : Infinity);
    std::snprintf(Printed, sizeof Printed, "%.15e", Few);
    const std::string_view Mantissa(Printed, 17);
    const std::size_t Last = Mantissa.find_last_not_of(".0");
    ASSERT_EQ(LastSignificant(Few), Last == Mantissa.npos ? 0 : static_cast<int>(std::max<std::size_t>(Last, 1)))
        << Printed;
  }
}

TEST(ZyMathTest, RoundsOntoTheGrid) {
  const struct {
    double Value, Step;
    int Exponent;
    double Up, Down;
  } Cases[] = {{1.2, 0.5, 0, 1.5, 1},         {-1.2, 0.5, 0, -1, -1.5},   {0.3, 0.1, 0, 0.3, 0.3},
               {1.5000001, 0.5, 0, 1.5, 1.5}, {1.499999, 0.5, 0, 1.5, 1}, {0.0123, 0.5, -2, 0.015, 0.01},
               {-1234, 0.2, 3, -1200, -1400}, {7.25, 0, 3, 7.25, 7.25}};
  for (const auto& [Value, Step, Exponent, Up, Down] : Cases) {
    EXPECT_NEAR(RoundUp(Value, Step, Exponent), Up, std::fabs(Up) * 1e-15) << Value << " by " << Step;
    EXPECT_NEAR(RoundDown(Value, Step, Exponent), Down, std::fabs(Down) * 1e-15) << Value << " by " << Step;
  }
}

TEST(ZyMathTest, RoundsOntoTheLogarithmicGrid) {
  const struct {
    double Value, Decades, Step, Up, Down;
  } Cases[] = {{20, 1, 1, 100, 10},         {0.02, 1, 1, 0.1, 0.01},
               {0.001, 1, 1, 0.001, 0.001}, {1.2e308, 1, 1, LargestDouble, 1e308},
               {2000, 3, 1, 1e6, 1000},     {1000, 3, 0.5, 1000, 1000},
               {0.02, 3, 1, 1, 0.001},      {24, 1, 0.1, 30, 20},
               {20, 1, 0.1, 20, 20},        {0.024, 1, 0.1, 0.03, 0.02},
               {31, 1, 0.2, 40, 20},        {96, 1, 0.1, 100, 90},
               {0.15, 1, 0.5, 0.5, 0.1},    {0, 1, 1, 0, 0},
               {-5, 3, 0.1, -5, -5},        {Infinity, 1, 0.1, Infinity, Infinity}};
  for (const auto& [Value, Decades, Step, Up, Down] : Cases) {
    EXPECT_DOUBLE_EQ(RoundLogUp(Value, Decades, Step), Up) << Value << " by " << Step;
    EXPECT_DOUBLE_EQ(RoundLogDown(Value, Decades, Step), Down) << Value << " by " << Step;
  }
}

TEST(ZyMathTest, EdgesBelongToARectangle) {
  constexpr struct { int Left, Top, Right, Bottom; } Edges{-2, 1, 5, 9};
  constexpr struct { float X, Y, Width, Height; } Box{-2, 1, 7, 8};
  for (const auto& [Point, Inside] :
       {std::pair{TSmallPoint{-2, 1}, true}, {{5, 9}, true}, {{6, 9}, false}, {{0, 0}, false}})
    EXPECT_TRUE(PointInRect(Point, Edges) == Inside && PointInRect(Point, Box) == Inside) << Point.X << ", " << Point.Y;
  EXPECT_EQ(MySign(0), 1);
  EXPECT_EQ(MySign(-1e-300), -1);
}

}  // namespace
}  // namespace zy
