#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "analysis/ZyMathSorting.h"
#include "analysis/ZyMathStatistics.h"

namespace zy {
namespace {

using TNumbers = std::vector<double>;

TEST(ZyMathSamplesTest, SortingKeepsTheFollowersWithTheirKeys) {
  std::mt19937 Random(7);
  TNumbers Key(1000), Follower(1000), Other(1000);
  for (double& Value : Key) Value = static_cast<double>(Random() % 100) - 50;  // many equal ones
  std::ranges::transform(Key, Follower.begin(), [](double Value) { return Value * 2; });
  Other = Key;
  QuickSortYWtoX(-1, 4711, Key, Follower, Other);
  EXPECT_TRUE(std::ranges::is_sorted(Key));
  EXPECT_EQ(Other, Key);
  for (std::size_t i = 0; i < Key.size(); ++i) EXPECT_EQ(Follower[i], Key[i] * 2);

  TNumbers Few{5, 4, 3, 2, 1, 0}, Order{0, 1, 2, 3, 4, 5};
  QuickSortYtoX(1, 3, Few, Order);
  EXPECT_EQ(Order, (TNumbers{0, 3, 2, 1, 4, 5}));
}

TEST(ZyMathSamplesTest, ASweepUpAndBackSortsInTime) {
  TNumbers Key(2'000'000);  // in quadratic time the test program would run into its limit
  for (std::size_t i = 0; i < Key.size(); ++i) Key[i] = static_cast<double>(std::min(i, Key.size() - i));
  TNumbers Follower = Key;
  QuickSortYtoX(0, 1'999'999, Key, Follower);
  EXPECT_TRUE(std::ranges::is_sorted(Key));
  EXPECT_EQ(Key, Follower);
}

TEST(ZyMathSamplesTest, SmoothsWithATriangle) {
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  const struct {
    double Width;
    TNumbers X, Y, Smoothed;  // worked out in fractions
  } Cases[] = {{2, {0, 1, 2, 4, 7}, {1, 3, 8, -2, 5}, {5.0 / 3, 15.0 / 4, 19.0 / 3, -2, 5}},
               {2.5, {0, 1, 2, 4, 7}, {1, 3, 8, -2, 5}, {22.0 / 9, 42.0 / 11, 24.0 / 5, -1.0 / 3, 5}},
               {1.5, {0, 1, 1, 2}, {1, 5, 9, 3}, {17.0 / 5, 23.0 / 4, 23.0 / 4, 23.0 / 5}},
               {1, {-Infinity, -Infinity, 0}, {3, 5, 7}, {4, 4, 7}},
               {2, {0, std::nan(""), 2}, {1, 3, 8}, {1, 3, 8}},
               {2, {0, 1}, {1, 3}, {1, 3}},
               {0, {0, 1, 2}, {1, 3, 8}, {1, 3, 8}}};
  for (const auto& Case : Cases) {
    TNumbers Plain = Case.Y, Decades = Case.Y, Powers;
    for (const double X : Case.X) Powers.push_back(std::pow(10, X));
    Smooth(Case.Width, Case.X, Plain);
    SmoothLog10(Case.Width, Powers, Decades);
    for (std::size_t i = 0; i < Case.Y.size(); ++i) {
      EXPECT_NEAR(Plain[i], Case.Smoothed[i], 1e-14) << i;
      EXPECT_NEAR(Decades[i], Case.Smoothed[i], 1e-14) << i;
    }
  }
}

TEST(ZyMathSamplesTest, StudentsTableCountsUpwards) {
  const std::pair<double, double> Cases[] = {{-3, 12.706}, {0.5, 12.706}, {1.5, 4.303},  {30, 2.042},
                                             {35, 2.021},  {500, 1.965},  {500.5, 1.96}, {1000, 1.96}};
  for (const auto& [Freedom, Value] : Cases) EXPECT_EQ(T95Percent(Freedom), Value) << Freedom;
}

}  // namespace
}  // namespace zy
