#include "analysis/curves/ZyMovingAverageCalculation.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/curves/ZyWindowSums.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

template <class T>
std::vector<T> Reversed(const std::vector<T>& Values) {
  return {Values.rbegin(), Values.rend()};
}

TZyWindowWeight WeightOf(TZyAveragingMethod Method) {
  switch (Method) {
    case TZyAveragingMethod::LinearWeighted:
      return TZyWindowWeight::Linear;
    case TZyAveragingMethod::ExponentiallyWeighted:
      return TZyWindowWeight::Exponential;
    default:
      return TZyWindowWeight::Equal;
  }
}

}  // namespace

TZyMovingAverageCalculation::TZyMovingAverageCalculation() {
  FInterpolation.XData = &IntX;
  FInterpolation.YData = &IntA;
}

double TZyMovingAverageCalculation::Magnitude(double Value) { return std::isfinite(Value) ? std::fabs(Value) : 0; }

double TZyMovingAverageCalculation::LimitedFactor(double Value) { return std::min(Magnitude(Value), 1.0); }

void TZyMovingAverageCalculation::Calculate() {
  constexpr double SmallestFactor = 1e-300;
  N = Magnitude(N);
  if (AveragingMethod == TZyAveragingMethod::ExponentiallyWeighted) {
    ExponentialFactorForN = LimitedFactor(ExponentialFactorForN);
    if (ExponentialFactorForN == 0) ExponentialFactorForN = SmallestFactor;
  }
  TPoints Points = ValidPoints(true);
  std::vector<double> Means = MeansOf(Points, TakeWindows(Points.X));
  IntX.SetInternalArray(std::move(Points.X));
  IntA.SetInternalArray(std::move(Means));
  FInterpolation.Calculate();
  FRecalculate = false;
}

double TZyMovingAverageCalculation::GetY(double x) {
  if (FRecalculate) Calculate();
  return FInterpolation.Interpolate(x);
}

/// By distance, a window ends at the first point on its way that lies N or more away. Of ascending X both ends only
/// move forward.
TZyMovingAverageCalculation::TWindows TZyMovingAverageCalculation::TakeWindows(const std::vector<double>& X) const {
  const auto m = static_cast<int>(X.size());
  const bool BothWays = AveragingDirection == TZyAveragingDirection::UpAndDownwards;
  const int Reach = static_cast<int>(std::min(static_cast<double>(m), std::round(N)));
  const bool IsSorted = std::is_sorted(X.begin(), X.end());
  TWindows Windows{std::vector<int>(X.size()), std::vector<int>(X.size()), std::vector<double>(X.size())};
  int Low = 0, High = 0;
  for (int i = 0; i < m; ++i) {
    if (AveragingRangeMethod == TZyAveragingRangeMethod::NasCount) {
      Low = std::max(i - Reach, 0);
      High = BothWays ? std::min(i + Reach, m - 1) : i;
    } else if (IsSorted) {
      while (Low < i && X[At(i)] - X[At(Low + 1)] >= N) ++Low;
      High = std::max(High, i);
      while (BothWays && High < m - 1 && X[At(High)] - X[At(i)] < N) ++High;
    } else {
      for (Low = i; Low >= 1 && X[At(i)] - X[At(Low)] < N;) --Low;
      for (High = i; BothWays && High < m - 1 && X[At(High)] - X[At(i)] < N;) ++High;
    }
    Windows.Low[At(i)] = Low;
    Windows.High[At(i)] = High;
    Windows.Width[At(i)] = (X[At(High)] - X[At(Low)]) * (BothWays ? 2 : 1);
  }
  return Windows;
}

double TZyMovingAverageCalculation::Rate(double Width) const {
  if (AveragingMethod != TZyAveragingMethod::ExponentiallyWeighted) return 0;
  return std::log(ExponentialFactorForN) * (Width == 0 ? 1 : N / Width);
}

/// The sums before each point, and in mirrored data those behind it, with the point itself in between. Points out of
/// order, and exponential weights of a window that is wider or narrower than most, are summed one by one.
std::vector<double> TZyMovingAverageCalculation::MeansOf(const TPoints& Points, const TWindows& Windows) const {
  const int m = Points.Count();
  std::vector<double> Result(At(m));
  if (m == 0) return Result;
  const TZyWindowWeight Weighting = WeightOf(AveragingMethod);
  const bool IsSorted = std::is_sorted(Points.X.begin(), Points.X.end());
  const double UsualWidth = Windows.Width[At(m / 2)];
  const double Rounding =
      4 * std::numeric_limits<double>::epsilon() * std::max(std::fabs(Points.X.front()), std::fabs(Points.X.back()));
  std::vector<TZyWindowSums::TSums> Before, Behind(At(m));
  if (IsSorted) {
    const TZyWindowSums Sums(Points.X, Points.Y, Points.W);
    // Linear weights leave the far end out: its part is 0, and would come out as a rounding error.
    std::vector<int> Low = Windows.Low;
    for (int i = 0;
         i < m && Weighting == TZyWindowWeight::Linear && AveragingDirection == TZyAveragingDirection::OnlyDownwards;
         ++i)
      if (Windows.Width[At(i)] != 0) ++Low[At(i)];
    Before = Sums.Run(Low, Weighting, Windows.Width, Rate(UsualWidth));
    if (AveragingDirection == TZyAveragingDirection::UpAndDownwards) {
      std::vector<double> X = Reversed(Points.X);
      for (double& Value : X) Value = -Value;
      std::vector<int> First = Reversed(Windows.High);
      for (int& Value : First) Value = m - 1 - Value;
      const std::vector<double> Y = Reversed(Points.Y), W = Reversed(Points.W);
      Behind = Reversed(TZyWindowSums(X, Y, W).Run(First, Weighting, Reversed(Windows.Width), Rate(UsualWidth)));
    }
  }
  for (int i = 0; i < m; ++i) {
    const std::size_t k = At(i);
    const bool HasOwnRate =
        Weighting == TZyWindowWeight::Exponential && !(std::fabs(Windows.Width[k] - UsualWidth) <= Rounding);
    if (!IsSorted || HasOwnRate) {
      Result[k] = MeanOf(Points, Windows, i);
    } else {
      const double Whole = Before[k].W + Behind[k].W + Points.W[k];
      Result[k] = (Before[k].WY + Behind[k].WY + Points.W[k] * Points.Y[k]) / Whole;
    }
    if (!std::isfinite(Result[k])) throw EMathError(LoadResString(_sAveragingNoWeight));
  }
  return Result;
}

double TZyMovingAverageCalculation::MeanOf(const TPoints& Points, const TWindows& Windows, int i) const {
  const double Width = Windows.Width[At(i)], OwnRate = Rate(Width);
  double Sum = 0, Whole = 0;
  for (int k = Windows.Low[At(i)]; k <= Windows.High[At(i)]; ++k) {
    const double Distance = std::fabs(Points.X[At(k)] - Points.X[At(i)]);
    double Factor = 1;
    if (AveragingMethod == TZyAveragingMethod::LinearWeighted && Width != 0) Factor = 1 - Distance / Width;
    if (AveragingMethod == TZyAveragingMethod::ExponentiallyWeighted) Factor = std::exp(OwnRate * Distance);
    if (!(Factor > 0)) continue;
    Sum += Points.W[At(k)] * Points.Y[At(k)] * Factor;
    Whole += Points.W[At(k)] * Factor;
  }
  return Sum / Whole;
}

}  // namespace zy
