#include "Cases.h"
#include "analysis/curves/ZyFourierTransform.h"
#include "analysis/curves/ZyInterpolationCalculation.h"
#include "analysis/curves/ZyLeastSquaresCalculation.h"
#include "analysis/curves/ZyLinearRegressionCalculation.h"
#include "analysis/curves/ZyMovingAverageCalculation.h"
#include "analysis/curves/ZySimplexFit.h"
#include "series/ZyMovingAverage.h"

namespace zy::cases {
namespace {

/// A calculation over a million points, and what its vectors need to live.
template <class TCalculation>
struct TOverMillion {
  TOverMillion() {
    TData Data(Million);
    X.SetInternalArray(std::move(Data.X));
    Y.SetInternalArray(std::move(Data.Y));
    Curve.XData = &X;
    Curve.YData = &Y;
  }
  TZyDoubleVector X, Y, Weight;
  TCalculation Curve;
};

TResult Build(TZyInterpolationMethod Method, double Elasticity = 1) {
  TOverMillion<TZyInterpolationCalculation> Sample;
  Sample.Curve.SetInterpolationMethod(Method);
  Sample.Curve.SetElasticityFactor(Elasticity);
  return Median([&] { Sample.Curve.Calculate(); });
}

/// A million values of a curve over a million points.
TResult Evaluate(bool InOrder) {
  TOverMillion<TZyInterpolationCalculation> Sample;
  std::mt19937 Random(1);
  std::uniform_real_distribution<double> Anywhere(0, 1000);
  std::vector<double> Places;
  for (int i = 0; i < Million; ++i) Places.push_back(InOrder ? i * 1000.0 / Million : Anywhere(Random));
  Sample.Curve.Calculate();
  volatile double Sum = 0;
  return Median([&] {
    double Total = 0;
    for (const double Place : Places) Total += Sample.Curve.Interpolate(Place);
    Sum = Total;
  });
}

TResult Average(double Window, TZyAveragingMethod Method) {
  TOverMillion<TZyMovingAverageCalculation> Sample;
  Sample.Curve.N = Window;
  Sample.Curve.AveragingMethod = Method;
  return Median([&] { Sample.Curve.Calculate(); });
}

TResult Regress(bool HasWeights) {
  TOverMillion<TZyLinearRegressionCalculation> Sample;
  if (HasWeights) {
    Sample.Weight.AddRange(std::vector<double>(Million, 1.5));
    Sample.Curve.Weight = &Sample.Weight;
  }
  return Median([&] { Sample.Curve.Calculate(); });
}

TResult Polynomial(int Order) {
  TOverMillion<TZyPolynomialCalculation> Sample;
  Sample.Curve.SetOrder(Order);
  return Median([&] { Sample.Curve.Calculate(); });
}

/// 301 steps for four coefficients over 100,000 points, by a formula or by the same function compiled.
TResult Simplex(bool IsCompiled) {
  TZyDoubleVector X, Y;
  for (int i = 0; i < 100'000; ++i) {
    const double x = i * 1e-4;
    X.Add(x);
    Y.Add(3 * std::exp(-0.7 * x) + 0.2 * x + 1 + 0.1 * std::sin(1e3 * i));
  }
  TZySimplexFit Fit;
  Fit.XData = &X;
  Fit.YData = &Y;
  Fit.SetIterations(300);
  Fit.SetExpression("A*Exp(-B*X)+C*X+D");
  if (IsCompiled)
    Fit.SetFittingFkt([](TObject*, const TZyFittingFunctionArgs& e) {
      return e.Coefficients[0] * std::exp(-e.Coefficients[1] * e.X) + e.Coefficients[2] * e.X + e.Coefficients[3];
    });
  return Median([&] {
    Fit.SetCoefs(std::vector<double>(4, 0.5));
    Fit.Calculate();
  });
}

TResult Transform(std::size_t Length) {
  TComplexArray Values(Length);
  for (std::size_t i = 0; i < Length; ++i) Values[i].Re = std::sin(1e-3 * static_cast<double>(i * i % 7919));
  return Median([&] {
    TComplexArray Copy = Values;
    DiscreteFourierTransform(Copy);
  });
}

TZyMovingAverage& AddAverage(TChart& Chart) {
  const TData Data(Million);
  auto& Series = Chart.Add<TZyMovingAverage>(Data.X, Data.Y);
  Series.SetN(50);
  return Series;
}

/// A thousand points more behind a million, each time.
TResult AppendToAverage() {
  Bitmap Picture(Width, Height);
  TChart Chart;
  const TZyMovingAverage& Series = AddAverage(Chart);
  Chart.Paint(Picture);
  double Next = 1000;
  const auto Append = [&] {
    std::vector<double> X, Y;
    for (int i = 0; i < 1000; ++i) {
      X.push_back(Next += 0.001);
      Y.push_back(10 * std::sin(0.05 * Next));
    }
    dynamic_cast<TZyDoubleVector*>(Series.XData())->AddRange(X);
    dynamic_cast<TZyDoubleVector*>(Series.YData())->AddRange(Y);
    Chart.Paint(Picture);
  };
  return WithAllocations(Median(Append), Chart, Picture);
}

TResult AverageAgain() {
  Bitmap Picture(Width, Height);
  TChart Chart;
  AddAverage(Chart);
  Chart.Paint(Picture);
  return WithAllocations(Median([&] { Chart.Paint(Picture); }), Chart, Picture);
}

}  // namespace

std::span<const TCase> CurveCases() {
  using enum TZyInterpolationMethod;
  using enum TZyAveragingMethod;
  static const TCase All[] = {
      {"akima1e6", 60, [] { return Build(Akima); }},
      {"spline1e6", 60, [] { return Build(CubicSpline); }},
      {"smoothing1e6", 150, [] { return Build(ApproximativeSpline); }},
      {"smoothing1e6-stiff", 150, [] { return Build(ApproximativeSpline, 1e-20); }},
      {"curve1e6-sweep", 30, [] { return Evaluate(true); }},
      {"curve1e6-anywhere", 300, [] { return Evaluate(false); }},
      {"average1e6-10", 40, [] { return Average(10, Simple); }},
      {"average1e6-10000", 40, [] { return Average(10000, Simple); }},
      {"average1e6-10-linear", 40, [] { return Average(10, LinearWeighted); }},
      {"average1e6-10000-linear", 40, [] { return Average(10000, LinearWeighted); }},
      {"average1e6-10-exponential", 40, [] { return Average(10, ExponentiallyWeighted); }},
      {"average1e6-10000-exponential", 40, [] { return Average(10000, ExponentiallyWeighted); }},
      {"regression1e6", 8, [] { return Regress(false); }},
      {"regression1e6-weights", 8, [] { return Regress(true); }},
      {"polynomial1e6-3", 60, [] { return Polynomial(3); }},
      {"polynomial1e6-10", 250, [] { return Polynomial(10); }},
      {"simplex1e5", 1500, [] { return Simplex(false); }},
      {"simplex1e5-compiled", 0, [] { return Simplex(true); }},
      {"fourier2^20", 100, [] { return Transform(std::size_t{1} << 20); }},
      {"fourier1000003", 500, [] { return Transform(1'000'003); }},
      {"average1e6-append", 0, AppendToAverage},
      {"average1e6-repaint", 0, AverageAgain},
  };
  return All;
}

}  // namespace zy::cases
