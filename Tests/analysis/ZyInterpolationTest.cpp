#include "analysis/curves/ZyInterpolationCalculation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "framework/Errors.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

using enum TZyInterpolationMethod;

struct TCurve {
  TCurve(TZyInterpolationMethod Method, const std::vector<double>& XValues, const std::vector<double>& YValues) {
    X.AddRange(XValues);
    Y.AddRange(YValues);
    Of.XData = &X;
    Of.YData = &Y;
    Of.SetInterpolationMethod(Method);
  }
  TZyDoubleVector X, Y, Weight;
  TZyInterpolationCalculation Of;
};

struct TScatter {
  explicit TScatter(int Count, unsigned Seed = 1) {
    std::mt19937 Random(Seed);
    std::uniform_real_distribution<double> Step(0.1, 2), Value(-5, 5);
    for (int i = 0; i < Count; ++i) {
      X.push_back((X.empty() ? -3 : X.back()) + Step(Random));
      Y.push_back(Value(Random));
    }
  }
  std::vector<double> X, Y;
};

std::vector<double> Of(const std::vector<double>& X, const std::function<double(double)>& f) {
  std::vector<double> Result;
  for (const double x : X) Result.push_back(f(x));
  return Result;
}

void ExpectPoints(const TZyDoublePointArray& Found, const TZyDoublePointArray& Expected, double Tolerance) {
  ASSERT_EQ(Found.size(), Expected.size());
  for (std::size_t i = 0; i < Found.size(); ++i) {
    EXPECT_NEAR(Found[i].X, Expected[i].X, Tolerance) << i;
    EXPECT_NEAR(Found[i].Y, Expected[i].Y, Tolerance) << i;
  }
}

TEST(ZyInterpolationTest, CurvesAreSmoothAndPassThroughTheirPoints) {
  const TScatter Data(40);
  for (const TZyInterpolationMethod Method : {Akima, CubicSpline}) {
    TCurve Curve(Method, Data.X, Data.Y);
    constexpr double Beside = 1e-9;
    for (std::size_t i = 0; i < Data.X.size(); ++i) {
      const double x = Data.X[i];
      EXPECT_NEAR(Curve.Of.Interpolate(x), Data.Y[i], 1e-12);
      if (i == 0 || i + 1 == Data.X.size()) continue;
      EXPECT_NEAR(Curve.Of.Interpolate(x - Beside), Data.Y[i], 1e-6);
      EXPECT_NEAR(Curve.Of.Slope(x - Beside), Curve.Of.Slope(x), 1e-5);
      if (Method == Akima) continue;
      EXPECT_NEAR(Curve.Of.Curvature(x - Beside), Curve.Of.Curvature(x), 1e-4);
    }
    // Slope and curvature are the derivatives, and the curve that of the integral, wherever asked, in any order.
    std::mt19937 Random(2);
    std::uniform_real_distribution<double> Anywhere(Data.X.front() - 1, Data.X.back() + 0.05);
    const auto Derivative = [](const auto& f, double x) { return (f(x + 1e-5) - f(x - 1e-5)) / 2e-5; };
    for (int Try = 0; Try < 200; ++Try) {
      const double x = Anywhere(Random);
      if (std::ranges::any_of(Data.X, [x](double Knot) { return std::fabs(Knot - x) < 1e-4; })) continue;
      EXPECT_NEAR(Derivative([&](double At) { return Curve.Of.Interpolate(At); }, x), Curve.Of.Slope(x), 1e-4);
      EXPECT_NEAR(Derivative([&](double At) { return Curve.Of.Slope(At); }, x), Curve.Of.Curvature(x), 1e-4);
      EXPECT_NEAR(Derivative([&](double At) { return Curve.Of.Integral(At); }, x), Curve.Of.Interpolate(x), 1e-4);
    }
    EXPECT_EQ(Curve.Of.Integral(Data.X[0]), 0);
  }
}

TEST(ZyInterpolationTest, PolynomialsComeBack) {
  const std::vector<double> X{-2, -1.5, 0, 0.25, 1, 3, 3.5}, Even{-2, -1, 0, 1, 2, 3};
  const auto Cubic = [](double x) { return x * x * x - 2 * x * x + 3; };
  TCurve Spline(CubicSpline, X, Of(X, Cubic));  // whose ends are those of the pieces beside them
  for (double x = -2; x < 3.5; x += 0.01) EXPECT_NEAR(Spline.Of.Interpolate(x), Cubic(x), 1e-12);
  EXPECT_NEAR(Spline.Of.Integral(3.5), (std::pow(3.5, 4) - 16) / 4 - 2 * (std::pow(3.5, 3) + 8) / 3 + 3 * 5.5, 1e-11);
  TCurve Parabola(CubicSpline, {0, 1, 3}, {1, 2, 10});  // one for both pieces: y = x * x + 1
  EXPECT_NEAR(Parabola.Of.Interpolate(2), 5, 1e-14);
  EXPECT_NEAR(Parabola.Of.Interpolate(4), 10 + 1, 1e-14) << "goes on without slope and with the curvature";
  TCurve Local(Akima, Even, Of(Even, [](double x) { return x * x; }));
  for (double x = -2; x < 3; x += 0.1) EXPECT_NEAR(Local.Of.Interpolate(x), x * x, 1e-13);
  TCurve Corner(Akima, {0, 1, 2, 3, 4, 5, 6}, {0, 0, 0, 0, 1, 2, 3});
  EXPECT_EQ(Corner.Of.Slope(3), 1) << "where both sides are straight, that of the right one";
  EXPECT_EQ(Corner.Of.Interpolate(1.5), 0) << "no overshoot";
}

TEST(ZyInterpolationTest, ExtremaOfACubic) {
  const std::vector<double> X{-2, -1.25, -0.5, 0.3, 0.9, 1.6, 2.25};
  TCurve Curve(CubicSpline, X, Of(X, [](double x) { return x * x * x - 3 * x; }));
  ExpectPoints(Curve.Of.GetMinima(), {{1, -2}}, 1e-12);
  ExpectPoints(Curve.Of.GetMaxima(), {{-1, 2}}, 1e-12);
  ExpectPoints(Curve.Of.GetDiffMinima(), {{0, -3}}, 1e-12);
  EXPECT_TRUE(Curve.Of.GetDiffMaxima().empty());
  const double Root = std::sqrt(3), Start = 4 - 6;  // the integral x^4 / 4 - 3 x^2 / 2 begins at -2
  ExpectPoints(Curve.Of.GetIntMinima(), {{-Root, -2.25 - Start}, {Root, -2.25 - Start}}, 1e-12);
  ExpectPoints(Curve.Of.GetIntMaxima(), {{0, -Start}}, 1e-12);
  Curve.Y.SetInternalArray(Of(X, [](double x) { return 3 * x - x * x * x; }));
  EXPECT_EQ(Curve.Of.GetMinima().size(), 1u);
  EXPECT_NEAR(Curve.Of.GetMinima()[0].X, 1, 1e-12) << "those of the last calculation";
  Curve.Of.Changed();
  EXPECT_NEAR(Curve.Of.GetMinima()[0].X, -1, 1e-12);
  EXPECT_EQ(Curve.Of.GetDiffMaxima().size(), 1u);
  TCurve Zero(Akima, {0, 1, 2, 3}, {-1, 0, 1, 2});
  ExpectPoints(Zero.Of.GetIntMinima(), {{1, -0.5}}, 1e-12);
}

/// Values at the points by the definition: of all curves the one with the smallest sum of squared distances and
/// curvature, as a dense system in extended precision over the natural splines.
std::vector<double> Smoothed(const TScatter& Data, const std::vector<double>& Weights, double Elasticity) {
  using T = long double;
  const std::size_t n = Data.X.size(), m = n - 2;
  using TMatrix = std::vector<std::vector<T>>;
  TMatrix Q(n, std::vector<T>(m)), System(m, std::vector<T>(m + 1));
  const auto h = [&](std::size_t i) { return static_cast<T>(Data.X[i + 1]) - Data.X[i]; };
  for (std::size_t j = 0; j < m; ++j) {
    Q[j][j] = 1 / h(j);
    Q[j + 2][j] = 1 / h(j + 1);
    Q[j + 1][j] = -Q[j][j] - Q[j + 2][j];
    System[j][j] = (h(j) + h(j + 1)) / 3;
    if (j + 1 < m) System[j][j + 1] = System[j + 1][j] = h(j + 1) / 6;
  }
  const auto w = [&](std::size_t i) { return static_cast<T>(Weights[i]) * Elasticity; };
  for (std::size_t j = 0; j < m; ++j)
    for (std::size_t i = 0; i < n; ++i) {
      System[j][m] += Q[i][j] * Data.Y[i];
      for (std::size_t k = 0; k < m; ++k) System[j][k] += Q[i][j] * Q[i][k] / w(i);
    }
  for (std::size_t j = 0; j < m; ++j)
    for (std::size_t i = 0; i < m; ++i) {
      if (i == j) continue;
      const T Factor = System[i][j] / System[j][j];
      for (std::size_t k = j; k <= m; ++k) System[i][k] -= Factor * System[j][k];
    }
  std::vector<double> Result;
  for (std::size_t i = 0; i < n; ++i) {
    T Value = Data.Y[i];
    for (std::size_t j = 0; j < m; ++j) Value -= Q[i][j] * System[j][m] / System[j][j] / w(i);
    Result.push_back(static_cast<double>(Value));
  }
  return Result;
}

TEST(ZyInterpolationTest, SmoothsBetweenThePointsAndTheirLine) {
  const TScatter Data(12);
  std::vector<double> Weights;
  for (std::size_t i = 0; i < Data.X.size(); ++i) Weights.push_back(0.5 + static_cast<double>(i % 4));
  for (const double Elasticity : {100.0, 1.0, 1e-3}) {
    TCurve Curve(ApproximativeSpline, Data.X, Data.Y);
    Curve.Weight.AddRange(Weights);
    Curve.Of.Weight = &Curve.Weight;
    Curve.Of.SetElasticityFactor(Elasticity);
    const auto Expected = Smoothed(Data, Weights, Elasticity);
    for (std::size_t i = 0; i < Data.X.size(); ++i)
      EXPECT_NEAR(Curve.Of.Interpolate(Data.X[i]), Expected[i], 1e-10) << Elasticity << " at " << i;
  }
  // At the ends of elasticity: the points, and the straight line of least squares however many points there are.
  for (const int Count : {12, 20000}) {
    const TScatter Many(Count);
    TCurve Curve(ApproximativeSpline, Many.X, Many.Y);
    Curve.Of.SetElasticityFactor(1e100);
    for (std::size_t i = 0; i < Many.X.size(); i += 7) EXPECT_NEAR(Curve.Of.Interpolate(Many.X[i]), Many.Y[i], 1e-12);
    Curve.Of.SetElasticityFactor(-1);
    EXPECT_EQ(Curve.Of.ElasticityFactor(), 1e-300);
    double MeanX = 0, MeanY = 0, XX = 0, XY = 0;
    for (std::size_t i = 0; i < Many.X.size(); ++i) {
      MeanX += Many.X[i] / Count;
      MeanY += Many.Y[i] / Count;
    }
    for (std::size_t i = 0; i < Many.X.size(); ++i) {
      XX += (Many.X[i] - MeanX) * (Many.X[i] - MeanX);
      XY += (Many.X[i] - MeanX) * (Many.Y[i] - MeanY);
    }
    for (std::size_t i = 0; i < Many.X.size(); i += 7)
      EXPECT_NEAR(Curve.Of.Interpolate(Many.X[i]), MeanY + XY / XX * (Many.X[i] - MeanX), 1e-11) << Count;
  }
}

TEST(ZyInterpolationTest, PointsThatDoNotCountAndThoseOfOneX) {
  TCurve Merged(Akima, {2, 1, 3, 2}, {4, 0, 5, 8});
  Merged.Of.Calculate();
  EXPECT_EQ(Merged.Of.Count(), 3);
  EXPECT_EQ(Merged.Of.Interpolate(2), 6) << "the mean";
  TCurve Curve(CubicSpline, {0, 1, 2, 3, 4, 5, 6}, {0, 1, 8, 1e9, 64, NAN, 216});
  Curve.Y.AddOutlier(3);
  Curve.Of.Stop = 6;
  EXPECT_NEAR(Curve.Of.Interpolate(3), 27, 1e-12) << "neither outliers nor what is no number";
  Curve.Weight.AddRange({1, 1, 1, 1, 1, 1, 0});
  Curve.Of.Weight = &Curve.Weight;
  Curve.Of.Changed();
  EXPECT_NEAR(Curve.Of.Interpolate(3), 27, 1e-12) << "nor what weighs nothing";
  EXPECT_EQ(Curve.Of.Count(), 4);
  const auto Message = [](TCurve& Of) { return MessageOf<EMathError>([&] { Of.Of.Calculate(); }); };
  TCurve Two(Akima, {1, 2, 2}, {1, 2, 3});
  EXPECT_EQ(Message(Two), "Not enough data points to calculate function");
  TCurve Five(ApproximativeSpline, {1, 2, 3, 4, 5}, {1, 2, 3, 4, 5});
  EXPECT_EQ(Message(Five), "Not enough data points to calculate function");
  TCurve Huge(CubicSpline, {0, 1, 2, 3}, {1e308, -1e308, 1e308, -1e308});
  EXPECT_TRUE(std::isfinite(Huge.Of.Interpolate(1.5)));
  Curve.Of.SetDoSmoothing(true);
  Curve.Of.SetSmoothM(1e9);  // all points alike, as far as the triangle falls within such a width
  for (double x = 0; x <= 4; x += 0.5) EXPECT_NEAR(Curve.Of.Interpolate(x), 73.0 / 4, 1e-6);
  std::string Told;
  Curve.Of.OnInformation = [&Told](std::string_view Text) { Told = Text; };
  Curve.Of.SetInterpolationMethod(ApproximativeSpline);
  EXPECT_NE(Told, "");
  EXPECT_FALSE(Curve.Of.DoSmoothing());
  Told.clear();
  Curve.Of.SetDoSmoothing(true);
  EXPECT_NE(Told, "");
  EXPECT_FALSE(Curve.Of.DoSmoothing());
}

}  // namespace
}  // namespace zy::testing
