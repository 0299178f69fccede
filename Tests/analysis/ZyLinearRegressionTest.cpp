#include <gtest/gtest.h>

#include <cmath>
#include <string_view>

#include "NistData.h"
#include "analysis/curves/ZyLinearRegressionCalculation.h"
#include "framework/Errors.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();

struct TLine {
  TLine(const std::vector<double>& XValues, const std::vector<double>& YValues) {
    X.AddRange(XValues);
    Y.AddRange(YValues);
    Fit.XData = &X;
    Fit.YData = &Y;
  }
  TZyDoubleVector X, Y, Weight;
  TZyLinearRegressionCalculation Fit;
};

TEST(ZyLinearRegressionTest, ReachesTheCertifiedDigits) {
  for (const char* Name : {"Norris", "NoInt1", "NoInt2"}) {
    const TNistData Data(Name);
    TLine Line(Data.Columns[1], Data.Columns[0]);
    const auto Slope = Data.Certified("B1");
    Line.Fit.FixedOffset = std::string(Name) != "Norris";
    Line.Fit.Offset = 0;
    Line.Fit.Calculate();
    ExpectDigits(Line.Fit.Slope, Slope[0], 13, Name);
    ExpectDigits(Line.Fit.DeltaSlope, Slope[1], 12, Name);
    ExpectDigits(Line.Fit.SumOfResiduals, Data.Certified("Residual")[1], 12, Name);
    if (Line.Fit.FixedOffset) {
      EXPECT_EQ(Line.Fit.DeltaOffset, 0);
      EXPECT_EQ(Line.Fit.Correlation, 0);
      continue;
    }
    const auto Offset = Data.Certified("B0");
    ExpectDigits(Line.Fit.Offset, Offset[0], 12, Name);
    ExpectDigits(Line.Fit.DeltaOffset, Offset[1], 12, Name);
    ExpectDigits(Line.Fit.Probability, Data.Certified("R-Squared")[0], 14, Name);
    EXPECT_NEAR(Line.Fit.Correlation * Line.Fit.Correlation, Line.Fit.Probability, 1e-13);
  }
  for (const char* Name : {"Michelso", "Lew", "Lottery", "NumAcc1", "NumAcc2", "NumAcc3", "NumAcc4"}) {
    const TNistData Data(Name);
    std::vector<double> Index;
    for (std::size_t i = 0; i < Data.Columns[0].size(); ++i) Index.push_back(static_cast<double>(i));
    TLine Line(Index, Data.Columns[0]);
    Line.Fit.Calculate();
    ExpectDigits(Line.Fit.AverageY, Data.Certified("Sample Mean")[0], 14, Name);
    // The values of the last two have no more digits of their distances than these, as doubles.
    const bool IsConstructed = std::string_view(Name).ends_with('3') || std::string_view(Name).ends_with('4');
    const int Digits = IsConstructed ? 8 : 12;
    ExpectDigits(std::sqrt(Line.Fit.VarianceY), Data.Certified("Sample Standard Deviation")[0], Digits, Name);
  }
}

TEST(ZyLinearRegressionTest, FarAwayLogarithmsAndWeights) {
  const std::vector<double> X{1, 2, 4, 7, 8}, Y{2.5, 3.25, 6, 10, 10.5};
  TLine Near(X, Y);
  Near.Fit.Calculate();
  TLine Far({1e9 + 1, 1e9 + 2, 1e9 + 4, 1e9 + 7, 1e9 + 8}, Y);
  Far.Fit.Calculate();
  EXPECT_NEAR(Far.Fit.Slope, Near.Fit.Slope, 1e-14);
  EXPECT_NEAR(Far.Fit.SumOfResiduals, Near.Fit.SumOfResiduals, 1e-14);
  TLine Power({1, 10, 100, 0, -5}, {3, 30, 300, 7, 7});  // y = 3 x; 0 and below have no logarithm
  Power.Fit.XLog = Power.Fit.YLog = true;
  Power.Fit.Calculate();
  EXPECT_NEAR(Power.Fit.Slope, 1, 1e-14);
  EXPECT_NEAR(Power.Fit.Offset, std::log10(3), 1e-14);
  EXPECT_NEAR(Power.Fit.SumOfResiduals, 0, 1e-28);
  // A point of weight 2 counts as two points, one of weight 0 not at all; the sign is no matter.
  TLine Weighted({1, 2, 4, 7, 8, 1e6}, {2.5, 3.25, 6, 10, 10.5, -1e6}), Twice(X, Y);
  Weighted.Weight.AddRange({1.0, -2.0, 1.0, 1.0, 2.0, 0.0});
  Weighted.Fit.Weight = &Weighted.Weight;
  Twice.X.AddRange({2.0, 8.0});
  Twice.Y.AddRange({3.25, 10.5});
  Weighted.Fit.Calculate();
  Twice.Fit.Calculate();
  for (const auto Result : {&TZyLinearRegressionCalculation::Slope, &TZyLinearRegressionCalculation::Offset,
                            &TZyLinearRegressionCalculation::DeltaSlope, &TZyLinearRegressionCalculation::DeltaOffset,
                            &TZyLinearRegressionCalculation::VarianceY, &TZyLinearRegressionCalculation::Correlation})
    EXPECT_NEAR(Weighted.Fit.*Result, Twice.Fit.*Result, 1e-12);
  // At the mean of x the band is as wide as the spread of y allows, and the point of t stands below the root.
  EXPECT_NEAR(Near.Fit.Confidence(Near.Fit.AverageX, 4), 2 * std::sqrt(Near.Fit.Qyy / 3 / 5), 1e-12);
}

TEST(ZyLinearRegressionTest, TellsWhereThereIsNoLine) {
  const auto Message = [](std::vector<double> X, std::vector<double> Y, bool IsFixed) {
    TLine Line(X, Y);
    Line.Fit.FixedOffset = IsFixed;
    return MessageOf<EMathError>([&] { Line.Fit.Calculate(); });
  };
  constexpr const char* TooFew = "Not enough data points to calculate function";
  EXPECT_EQ(Message({1, 2}, {3, 4}, false), TooFew) << "the errors of two points have no value";
  EXPECT_EQ(Message({1, 2}, {3, NAN}, true), TooFew);
  EXPECT_EQ(Message({0, 0, 0}, {1, 2, 3}, true), TooFew);
  EXPECT_EQ(Message({1}, {1}, false), TooFew);
  EXPECT_EQ(Message({1, 2}, {3, 4}, true), "");
  TZyLinearRegressionCalculation Empty;
  EXPECT_EQ(MessageOf<EMathError>([&] { Empty.Calculate(); }), "No X vector defined for calculation");
  TLine Upright({2, 2, 2}, {1, 2, 3});
  Upright.Fit.Calculate();
  EXPECT_FALSE(Upright.Fit.HasLine());
  EXPECT_EQ(Upright.Fit.Slope, Largest);
  EXPECT_EQ(Upright.Fit.Offset, Largest);
  EXPECT_EQ(Upright.Fit.Correlation, 1);
  EXPECT_EQ(Upright.Fit.Probability, 1);
  TLine Light({1, 2, 4}, {1, 2, 5});
  Light.Weight.AddRange({0.25, 0.25, 0.5});
  Light.Fit.Weight = &Light.Weight;
  Light.Fit.Calculate();
  EXPECT_NEAR(Light.Fit.Slope, 37.0 / 27, 1e-14) << "weights below one point each still have a line";
  EXPECT_EQ(Light.Fit.DeltaSlope, -Largest) << "whose errors have no value";
}

}  // namespace
}  // namespace zy::testing
