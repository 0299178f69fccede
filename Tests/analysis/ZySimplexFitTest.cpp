// The simplex search: steps worked out by hand, certified nonlinear data, and what it refuses.

#include "analysis/curves/ZySimplexFit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "analysis/NistData.h"
#include "framework/Errors.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

class ZySimplexFitTest : public ::testing::Test {
 protected:
  ZySimplexFitTest() {
    Fit.XData = &X;
    Fit.YData = &Y;
  }
  TZyDoubleVector X, Y;
  TZySimplexFit Fit;
};

// The sum is 5 (A - 2)^2. Corners 1.025 and 0.5; reflected 1.55 is best, expanded 2.075 better. Then 1.025 is reflected
// to 3.125, contracted to 2.6, which stays worse than the best one: no corner closes in.
TEST_F(ZySimplexFitTest, StepsWorkedOutByHand) {
  X.AddRange({1.0, 2.0});
  Y.AddRange({2.0, 4.0});
  std::vector<double> Corners, Best;
  Fit.mNewCorner = [&](TObject*, std::span<double> Corner) { Corners.push_back(Corner[0]); };
  Fit.mDoDisplay = [&](TObject*) { Best.push_back(Fit.Coefs()[0]); };
  Fit.SetIterations(1);
  Fit.SetExpression(" a * x ");
  ASSERT_EQ(Fit.Order(), 1);
  EXPECT_EQ(Fit.Coefs()[0], 0.5);
  Fit.Calculate();
  const std::vector<double> Expected{1.025, 0.5, 1.55, 2.075, 3.125, 2.6};
  ASSERT_EQ(Corners.size(), Expected.size());
  for (std::size_t i = 0; i < Expected.size(); ++i) EXPECT_NEAR(Corners[i], Expected[i], 1e-14);
  ASSERT_EQ(Best.size(), 2u) << "a budget of 1";
  EXPECT_NEAR(Fit.Coefs()[0], 2.075, 1e-14);
  EXPECT_NEAR(Fit.SumOfResiduals(), 5 * 0.075 * 0.075, 1e-14);
  EXPECT_EQ(Fit.AverageY(), 3);
  EXPECT_EQ(Fit.VarianceY(), 2);
  EXPECT_NEAR(Fit.Probability(), 1 - 5 * 0.075 * 0.075 / 2, 1e-14);

  // From 2 the first corner has no residuals left, and one step is all: 4.1 goes to -0.1 and then, contracted, to 0.95.
  Corners.clear();
  Fit.SetCoefs(std::vector<double>{2.0});
  Fit.SetIterations(100);
  Fit.Calculate();
  EXPECT_EQ(Fit.Coefs()[0], 2);
  EXPECT_EQ(Corners.size(), 4u);
}

// Corners (1.025, 0.5), (0.5, 1.025), (0.5, 0.5) of a function whose value grows with every step away from the best
// one: the reflected corner is the worst, the contracted one reaches the second-worst, so the others close in on the
// best one.
TEST_F(ZySimplexFitTest, CornersCloseInOnTheBest) {
  X.AddRange({0.0, 1.0});
  Y.AddRange({0.0, 0.0});
  std::vector<std::vector<double>> Corners;
  Fit.SetFittingFkt([&](TObject*, const TZyFittingFunctionArgs& e) {
    const double a = e.Coefficients[0], b = e.Coefficients[1];
    const double Table[][3] = {
        {1.025, 0.5, 1}, {0.5, 1.025, 3}, {0.5, 0.5, 2}, {1.025, -0.025, 9}, {0.89375, 0.2375, 2}};
    if (e.X == 0) Corners.emplace_back(e.Coefficients.begin(), e.Coefficients.end());
    for (const auto& Row : Table)
      if (std::fabs(a - Row[0]) + std::fabs(b - Row[1]) < 1e-12) return Row[2];
    return 1.5;
  });
  Fit.SetOrder(2);
  Fit.SetIterations(1);
  Fit.mDoDisplay = [&](TObject*) { Fit.StopIterations(); };
  Fit.Calculate();
  const double Expected[][2] = {{1.025, 0.5},      {0.5, 1.025},        {0.5, 0.5},   {1.025, -0.025},
                                {0.89375, 0.2375}, {0.959375, 0.36875}, {0.7625, 0.5}};
  ASSERT_EQ(Corners.size(), std::size(Expected));
  for (std::size_t i = 0; i < Corners.size(); ++i)
    for (std::size_t k = 0; k < 2; ++k) EXPECT_NEAR(Corners[i][k], Expected[i][k], 1e-12) << i;
  EXPECT_NEAR(Fit.Coefs()[0], 1.025, 1e-12);
  EXPECT_EQ(Fit.SumOfResiduals(), 2) << "1 at each point";
}

TEST_F(ZySimplexFitTest, CertifiedData) {
  struct TCase {
    const char* Name;
    const char* Formula;
    int Fits;  // of 300 steps, each from where the last one ended
  };
  for (const TCase& Case : {TCase{"Misra1a", "A*(1-Exp(-B*X))", 5},
                            {"DanWood", "A*X^B", 1},
                            {"Chwirut2", "Exp(-A*X)/(B+C*X)", 5},
                            {"Rat42", "A/(1+Exp(B-C*X))", 5},
                            {"Eckerle4", "(A/B)*Exp(-0.5*((X-C)/B)^2)", 5},
                            {"Gauss1", "A*Exp(-B*X)+C*Exp(-(X-D)^2/E^2)+F*Exp(-(X-G)^2/H^2)", 20}}) {
    const TNistData Data(Case.Name);
    X.Clear();
    Y.Clear();
    Y.AddRange(Data.Columns[0]);
    X.AddRange(Data.Columns[1]);
    Fit.SetIterations(300);
    Fit.SetExpression(Case.Formula);
    std::vector<double> Start, Certified;
    for (int k = 1; k <= Fit.Order(); ++k) {
      const std::vector<double> Row = Data.Certified("b" + std::to_string(k) + " =");
      Start.push_back(Row.at(1));
      Certified.push_back(Row.at(2));
    }
    Fit.SetCoefs(Start);
    for (int i = 0; i < Case.Fits; ++i) Fit.Calculate();
    for (int k = 0; k < Fit.Order(); ++k)
      ExpectDigits(Fit.Coefs()[static_cast<std::size_t>(k)], Certified[static_cast<std::size_t>(k)], 6, Case.Name);
  }
}

TEST_F(ZySimplexFitTest, RefusesAndGoesOn) {
  X.AddRange({1.0, 2.0, 3.0});
  Y.AddRange({3.0, 5.0, 7.0});
  const auto Message = [this] { return MessageOf<EMathError>([this] { Fit.Calculate(); }); };
  const auto MessageFor = [this](const char* Text) { return MessageOf<EMathError>([&] { Fit.SetExpression(Text); }); };
  Fit.SetIterations(300);
  EXPECT_EQ(Message(), "No FittingFunction or Expression defined");
  EXPECT_EQ(MessageFor("A+Exp(B)"), "Expression must contain the independent variable X!");
  EXPECT_EQ(MessageFor("Exp(x)+x"), "Expression must contain a variable a..p!");
  EXPECT_NE(MessageFor("A*X+("), "");
  EXPECT_EQ(Fit.Expression(), "A*X+(") << "kept for the user to mend";
  EXPECT_NE(Message(), "") << "told again";
  Fit.SetExpression("D*x");
  EXPECT_EQ(Fit.Order(), 4) << "by the highest letter";
  EXPECT_EQ(Message(), "Not enough data points to calculate function");
  Fit.SetExpression("Ln(A)*x");
  Fit.SetCoefs(std::vector<double>{-1.0});
  EXPECT_NE(Message().find("no finite value"), std::string::npos);
  EXPECT_EQ(Fit.Coefs()[0], -1) << "kept";
  Fit.SetIterations(0);
  Fit.SetExpression("2*x");
  Fit.XData = nullptr;
  EXPECT_EQ(Message(), "");
  EXPECT_EQ(Fit.GetY(4), 8);
  Fit.XData = &X;
  Fit.SetIterations(300);
  Fit.SetFittingFkt(
      [](TObject*, const TZyFittingFunctionArgs&) -> double { throw std::runtime_error("from a handler"); });
  Fit.SetCoefs(std::vector<double>{0, 7});
  EXPECT_EQ(MessageOf([this] { Fit.Calculate(); }), "from a handler");
  EXPECT_EQ(Fit.Coefs(), (std::vector<double>{0, 7})) << "kept";
  Fit.SetFittingFkt([this](TObject*, const TZyFittingFunctionArgs& e) {
    Fit.SetOrder(1);
    return e.X;
  });
  EXPECT_THROW(Fit.Calculate(), EAbort) << "its own coefficients went";
  Y.SetValue(1, std::numeric_limits<double>::quiet_NaN());
  Fit.SetExpression("A*X+B");
  Fit.SetFittingFkt({});
  for (int i = 0; i < 5; ++i) Fit.Calculate();
  EXPECT_NEAR(Fit.Coefs()[0], 2, 1e-7) << "a point that is none is left out";
  EXPECT_NEAR(Fit.Coefs()[1], 1, 1e-7);
}

// Of exact data on a line, the line has no area to any point; turned around, the same line is found.
TEST_F(ZySimplexFitTest, DeviationsInBothDirections) {
  for (int i = 0; i < 12; ++i) {
    X.Add(i);
    Y.Add(3 * i - 4);
  }
  Fit.SetDoCovariance(true);
  Fit.SetIterations(300);
  Fit.SetExpression("A*X+B");
  for (int i = 0; i < 5; ++i) Fit.Calculate();
  EXPECT_NEAR(Fit.Coefs()[0], 3, 1e-6);
  EXPECT_NEAR(Fit.Coefs()[1], -4, 1e-5);
  X.Clear();
  Y.Clear();
  X.AddRange({1.0, 1.0, 2.0, 2.0});
  Y.AddRange({1.0, 2.0, 3.0, 4.0});
  EXPECT_EQ(MessageOf<EMathError>([this] { Fit.Calculate(); }), "SimplexFit: DoCovariance, reciprocal indefinite!");
  EXPECT_FALSE(Fit.DoCovariance());
  EXPECT_NO_THROW(Fit.Calculate()) << "without it";
}

// Up to 3, and down from there: a value reads another X on either side. 0 and 1 of one X count as their mean.
TEST_F(ZySimplexFitTest, InverseByRanges) {
  const TZySimplexInverse Inverse({0, 1, 2, 3, 4, 5, 6, 0}, {0, 1, 2, 3, 2, 1, 0, 1});
  EXPECT_NEAR(Inverse.XAt(0, 1.5), 1.5, 0.1);
  EXPECT_NEAR(Inverse.XAt(5, 1.5), 4.5, 1e-12);
  EXPECT_THROW(Inverse.XAt(8, 1), ERangeError);
  const double NaN = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THROW(TZySimplexInverse({0, 1, 2, 3}, {NaN, 1, 2, 3}), EMathError);
}

}  // namespace
}  // namespace zy::testing
