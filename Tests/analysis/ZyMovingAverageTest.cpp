// Links neither drawing nor charts: calculations work on vectors alone.

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "analysis/curves/ZyMovingAverageCalculation.h"
#include "framework/Errors.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

using enum TZyAveragingMethod;
using enum TZyAveragingDirection;
using enum TZyAveragingRangeMethod;

struct TSample {
  TSample(const std::vector<double>& XValues, const std::vector<double>& YValues) {
    X.AddRange(XValues);
    Y.AddRange(YValues);
    Average.XData = &X;
    Average.YData = &Y;
  }
  std::vector<double> Means() {
    Average.Calculate();
    const auto Values = Average.Means().Values();
    return {Values.begin(), Values.end()};
  }
  TZyDoubleVector X, Y, Weight;
  TZyMovingAverageCalculation Average;
};

void ExpectNear(const std::vector<double>& Found, const std::vector<double>& Expected, double Tolerance) {
  ASSERT_EQ(Found.size(), Expected.size());
  for (std::size_t i = 0; i < Found.size(); ++i) EXPECT_NEAR(Found[i], Expected[i], Tolerance) << "at " << i;
}

TEST(ZyMovingAverageTest, MeansByHand) {
  TSample Sample({0, 1, 2, 3, 4}, {1, 2, 4, 8, 16});
  Sample.Average.N = -2;
  Sample.Average.AveragingMethod = Simple;
  ExpectNear(Sample.Means(), {1, 1.5, 7.0 / 3, 14.0 / 3, 28.0 / 3}, 1e-14);
  EXPECT_EQ(Sample.Average.N, 2);
  Sample.Average.AveragingMethod = LinearWeighted;  // the point at the far end weighs 0
  ExpectNear(Sample.Means(), {1, 2, (0.5 * 2 + 4) / 1.5, (0.5 * 4 + 8) / 1.5, (0.5 * 8 + 16) / 1.5}, 1e-14);
  Sample.Average.AveragingDirection = UpAndDownwards;
  Sample.Average.AveragingMethod = Simple;
  ExpectNear(Sample.Means(), {7.0 / 3, 15.0 / 4, 31.0 / 5, 30.0 / 4, 28.0 / 3}, 1e-14);
  Sample.Average.AveragingRangeMethod = NasXDistance;
  Sample.Average.N = 1.5;  // each window ends at the first point that lies farther away
  ExpectNear(Sample.Means(), {7.0 / 3, 15.0 / 4, 31.0 / 5, 30.0 / 4, 28.0 / 3}, 1e-14);
  EXPECT_NEAR(Sample.Average.GetY(2), 31.0 / 5, 1e-14);
  Sample.Weight.AddRange({1.0, 0.0, 0.0, -2.0, 0.0});
  Sample.Average.Weight = &Sample.Weight;
  Sample.Average.N = 1;
  Sample.Average.AveragingDirection = OnlyDownwards;
  EXPECT_NE(MessageOf<EMathError>([&] { Sample.Means(); }).find("zero"), std::string::npos)
      << "the third point and the one before it weigh nothing";
  EXPECT_EQ(Sample.Average.GetY(2), 0) << "no curve, rather than that of before";
  Sample.Average.Weight = nullptr;
  Sample.Average.AveragingDirection = UpAndDownwards;
  Sample.Y.AddOutlier(1);
  Sample.Average.AveragingMethod = Simple;
  ExpectNear(Sample.Means(), {2.5, 13.0 / 3, 28.0 / 3, 12}, 1e-14);
  Sample.Average.Start = 3;
  EXPECT_NE(MessageOf<EMathError>([&] { Sample.Means(); }), "") << "two points make no curve";
}

TEST(ZyMovingAverageTest, WeightsAtTheFarEndCountForWhatTheyAre) {
  TSample Heavy({0, 0, 1, 2}, {7, 9, 2, 5});
  Heavy.Weight.AddRange({1.0, 1e20, 1.0, 1.0});
  Heavy.Average.Weight = &Heavy.Weight;
  Heavy.Average.N = 3;
  EXPECT_NEAR(Heavy.Means()[3], (0.5 * 2 + 5) / 1.5, 1e-14) << "of two points at the far end";
  TSample Light({0, 0.5, 0.75, 1, 5, 6}, {3, 1, 1, 1, 2, 2});
  Light.Weight.AddRange({1.0, 0.0, 0.0, 0.0, 1.0, 1.0});
  Light.Average.Weight = &Light.Weight;
  Light.Average.AveragingMethod = ExponentiallyWeighted;
  Light.Average.AveragingRangeMethod = NasXDistance;
  Light.Average.N = 1;
  Light.Average.ExponentialFactorForN = 0;
  ExpectNear(Light.Means(), {3, 3, 3, 3, 2, 2}, 1e-14);
}

/// The mean as it is defined, point by point.
std::vector<double> PlainMeans(const std::vector<double>& X, const std::vector<double>& Y, const std::vector<double>& W,
                               const TZyMovingAverageCalculation& Average) {
  const bool BothWays = Average.AveragingDirection == UpAndDownwards;
  const int m = static_cast<int>(X.size()), Reach = static_cast<int>(std::lround(Average.N));
  const auto At = [](const std::vector<double>& Values, int i) { return Values[static_cast<std::size_t>(i)]; };
  std::vector<double> Means;
  for (int i = 0; i < m; ++i) {
    int Low = std::max(i - Reach, 0), High = BothWays ? std::min(i + Reach, m - 1) : i;
    if (Average.AveragingRangeMethod == NasXDistance) {
      for (Low = i; Low >= 1 && At(X, i) - At(X, Low) < Average.N;) --Low;
      for (High = i; BothWays && High < m - 1 && At(X, High) - At(X, i) < Average.N;) ++High;
    }
    const double D = (At(X, High) - At(X, Low)) * (BothWays ? 2 : 1);
    double Sum = 0, Whole = 0;
    for (int k = Low; k <= High; ++k) {
      const double d = std::fabs(At(X, k) - At(X, i));
      double f = 1;
      if (Average.AveragingMethod == LinearWeighted && D != 0) f = 1 - d / D;
      if (Average.AveragingMethod == ExponentiallyWeighted)
        f = std::exp(std::log(Average.ExponentialFactorForN) * (D == 0 ? 1 : Average.N / D) * d);
      Sum += At(W, k) * At(Y, k) * f;
      Whole += At(W, k) * f;
    }
    Means.push_back(Sum / Whole);
  }
  return Means;
}

TEST(ZyMovingAverageTest, EveryMethodIsThePlainSumOfItsWindow) {
  std::mt19937 Random(7);
  std::uniform_real_distribution<double> Any(0.05, 1);
  for (const bool IsEven : {true, false}) {
    std::vector<double> X, Y, W;
    for (int i = 0; i < 300; ++i) {
      X.push_back(IsEven ? 45000 + i / 16.0 : (i == 0 ? 0 : X.back()) + Any(Random));
      Y.push_back(1e6 + Any(Random));
      W.push_back(Any(Random));
    }
    for (const auto Method : {Simple, LinearWeighted, ExponentiallyWeighted})
      for (const auto Direction : {OnlyDownwards, UpAndDownwards})
        for (const auto Range : {NasCount, NasXDistance})
          for (const double N : {0.0, 0.7, 3.2, 40.0, 1000.0}) {
            TSample Sample(X, Y);
            Sample.Weight.AddRange(W);
            Sample.Average.Weight = &Sample.Weight;
            Sample.Average.AveragingMethod = Method;
            Sample.Average.AveragingDirection = Direction;
            Sample.Average.AveragingRangeMethod = Range;
            Sample.Average.N = N;
            Sample.Average.ExponentialFactorForN = 0.3;
            SCOPED_TRACE(::testing::Message() << IsEven << static_cast<int>(Method) << static_cast<int>(Direction)
                                              << static_cast<int>(Range) << " N " << N);
            ExpectNear(Sample.Means(), PlainMeans(X, Y, W, Sample.Average), 2e-8);
          }
  }
}

TEST(ZyMovingAverageTest, TheCurveGoesThroughTheMeansOfTheSortedData) {
  std::vector<double> X, Y;
  for (int i = 0; i < 50; ++i) {
    X.push_back(i * i);
    Y.push_back(std::sin(i));
  }
  TSample Sample(X, Y);
  const auto Means = Sample.Means();
  for (std::size_t i = X.size(); i-- > 0;) EXPECT_NEAR(Sample.Average.GetY(X[i]), Means[i], 1e-12) << i;
  std::swap(X[3], X[30]);
  std::swap(Y[3], Y[30]);
  ExpectNear(TSample(X, Y).Means(), Means, 1e-12);
}

}  // namespace
}  // namespace zy::testing
