// Curves through a million points by other libraries, in turns with ours.

#include <gsl/gsl_fit.h>
#include <gsl/gsl_spline.h>
#include <interpolation.h>

#include "OtherLibrary.h"
#include "analysis/curves/ZyInterpolationCalculation.h"
#include "analysis/curves/ZyLinearRegressionCalculation.h"

namespace {

using namespace zy;
using namespace zy::cases;

struct TSample {
  TSample() {
    TData Data(Million);
    X.SetInternalArray(std::move(Data.X));
    Y.SetInternalArray(std::move(Data.Y));
    Curve.XData = Line.XData = &X;
    Curve.YData = Line.YData = &Y;
  }
  const double* Xs() const { return X.Values().data(); }
  const double* Ys() const { return Y.Values().data(); }
  TZyDoubleVector X, Y;
  TZyInterpolationCalculation Curve;
  TZyLinearRegressionCalculation Line;
};

/// The largest difference of two curves at some places between the points.
template <class TOne, class TOther>
double LargestDifference(const TOne& One, const TOther& Other) {
  double Largest = 0;
  for (double x = 0.01; x < 999; x += 0.097) Largest = std::max(Largest, std::fabs(One(x) - Other(x)));
  return Largest;
}

void CompareSplines(const char* Name, TZyInterpolationMethod Method, const gsl_interp_type* Kind) {
  TSample Sample;
  Sample.Curve.SetInterpolationMethod(Method);
  gsl_interp_accel* const Place = gsl_interp_accel_alloc();
  gsl_spline* const Spline = gsl_spline_alloc(Kind, Million);
  const auto Mine = [&](double x) { return Sample.Curve.Interpolate(x); };
  const auto Theirs = [&](double x) { return gsl_spline_eval(Spline, x, Place); };
  Compare((std::string(Name) + " build").c_str(), [&] { Sample.Curve.Calculate(); },
          [&] { gsl_spline_init(Spline, Sample.Xs(), Sample.Ys(), Million); },
          [&] { return LargestDifference(Mine, Theirs); });
  std::vector<double> Sweep, Anywhere;
  std::mt19937 Random(1);
  std::uniform_real_distribution<double> Any(0, 999);
  for (int i = 0; i < Million; ++i) {
    Sweep.push_back(i * 999.0 / Million);
    Anywhere.push_back(Any(Random));
  }
  for (const auto& [What, Places] : {std::pair{" sweep", &Sweep}, std::pair{" anywhere", &Anywhere}}) {
    volatile double Sum = 0;
    const auto Total = [&Sum, Places = Places](const auto& Of) {
      double All = 0;
      for (const double x : *Places) All += Of(x);
      Sum = All;
    };
    Compare((std::string(Name) + What).c_str(), [&] { Total(Mine); }, [&] { Total(Theirs); }, [] { return 0.0; });
  }
  gsl_spline_free(Spline);
  gsl_interp_accel_free(Place);
}

/// Theirs is told a relative strength of smoothing, and finds a curve of as few knots as it is told.
void CompareSmoothing() {
  TSample Sample;
  Sample.Curve.SetInterpolationMethod(TZyInterpolationMethod::ApproximativeSpline);
  Sample.Curve.SetElasticityFactor(1e3);
  alglib::real_1d_array X, Y;
  X.setcontent(Million, Sample.Xs());
  Y.setcontent(Million, Sample.Ys());
  for (const int Knots : {1000, Million}) {
    alglib::spline1dinterpolant Spline;
    alglib::spline1dfitreport Report;
    Compare(
        Knots == Million ? "smoothing, a knot a point" : "smoothing, theirs 1000 knots",
        [&] { Sample.Curve.Calculate(); }, [&] { alglib::spline1dfit(X, Y, Million, Knots, 1e-9, Spline, Report); },
        [] { return NAN; });
  }
}

void CompareLines() {
  TSample Sample;
  double Offset = 0, Slope = 0, C00, C01, C11, Sum;
  Compare(
      "regression", [&] { Sample.Line.Calculate(); },
      [&] { gsl_fit_linear(Sample.Xs(), 1, Sample.Ys(), 1, Million, &Offset, &Slope, &C00, &C01, &C11, &Sum); },
      [&] { return std::fabs(Sample.Line.Slope - Slope) / std::fabs(Slope); });
}

}  // namespace

int main() {
  CompareSplines("akima", TZyInterpolationMethod::Akima, gsl_interp_akima);
  CompareSplines("cubic spline", TZyInterpolationMethod::CubicSpline, gsl_interp_cspline);
  CompareSmoothing();
  CompareLines();
  return 0;
}
