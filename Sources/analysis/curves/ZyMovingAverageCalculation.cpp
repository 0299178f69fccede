#include "analysis/curves/ZyMovingAverageCalculation.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/ZyWindowSums.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

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
  FHasCurve = false;  // what fails leaves no curve of former data behind
  TPoints Points = ValidPoints(true);
  std::vector<double> Means = MeansOf(Points, TakeWindows(Points.X));
  IntX.SetInternalArray(std::move(Points.X));
  IntA.SetInternalArray(std::move(Means));
  FInterpolation.Calculate();
  FRecalculate = false;
  FHasCurve = true;
}

double TZyMovingAverageCalculation::GetY(double x) {
  if (FRecalculate) Calculate();
  return FHasCurve ? FInterpolation.Interpolate(x) : 0;
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
  std::vector<TZyWindowSums::TSums> Before, Behind;
  if (IsSorted) {
    const TZyWindowSums Sums(Points.X, Points.Y, Points.W);
    std::vector<int> NextToLow;
    if (Weighting == TZyWindowWeight::Linear && AveragingDirection == TZyAveragingDirection::OnlyDownwards) {
      // Linear weights leave all points at the far end out: their part is 0, and would come out as a rounding error.
      NextToLow = Windows.Low;
      const double* const X = Points.X.data();
      int Past = 0;
      for (std::size_t i = 0; i < NextToLow.size(); ++i) {
        if (Windows.Width[i] == 0) continue;
        const int Next = ++NextToLow[i];
        if (X[Next] != X[Next - 1]) continue;
        for (Past = std::max(Past, Next); X[Past] == X[Next];) ++Past;
        NextToLow[i] = Past;
      }
    }
    Before = Sums.Run(NextToLow.empty() ? Windows.Low : NextToLow, Weighting, Windows.Width, Rate(UsualWidth));
    if (AveragingDirection == TZyAveragingDirection::UpAndDownwards)
      Behind = Sums.RunBehind(Windows.High, Weighting, Windows.Width, Rate(UsualWidth));
  }
  const double Heaviest = std::ranges::max(Points.W);
  for (int i = 0; i < m; ++i) {
    const std::size_t k = At(i);
    const bool HasOwnRate =
        Weighting == TZyWindowWeight::Exponential && !(std::fabs(Windows.Width[k] - UsualWidth) <= Rounding);
    TZyWindowSums::TSums Sum{Points.W[k], Points.W[k] * Points.Y[k]};
    const auto Add = [&Sum](const TZyWindowSums::TSums& Part) {
      Sum.W += Part.W;
      Sum.WY += Part.WY;
    };
    const bool IsOnItsOwn = !IsSorted || HasOwnRate;
    if (!IsOnItsOwn) Add(Before[k]);
    if (!IsOnItsOwn && !Behind.empty()) Add(Behind[k]);
    if (IsOnItsOwn || Sum.W == 0) {  // the sums of all windows leave out what a weight of 0 at the point makes count
      Add(SumAside(Points, Windows, i, -1, IsSorted, Heaviest));
      Add(SumAside(Points, Windows, i, 1, IsSorted, Heaviest));
    }
    Result[k] = Sum.WY / Sum.W;
    if (!std::isfinite(Result[k])) throw EMathError(LoadResString(_sAveragingNoWeight));
  }
  return Result;
}

/// The sums of the window of point i on one side of it. Of points in order the weights only fall: what is left of an
/// exponential one is that of the point before after one step more, where steps of about the same length cost no
/// exponential each; and what all points further away can add, each as heavy as the heaviest, ends the sums as soon as
/// no digit of a mean can come of it.
TZyWindowSums::TSums TZyMovingAverageCalculation::SumAside(const TPoints& Points, const TWindows& Windows, int i,
                                                           int Side, bool IsSorted, double Heaviest) const {
  constexpr double Nothing = 1e-32, Alike = 1e-9;
  const int End = Side < 0 ? Windows.Low[At(i)] : Windows.High[At(i)];
  TZyWindowSums::TSums Sum;
  if (i == End) return Sum;
  const double Width = Windows.Width[At(i)], OwnRate = Rate(Width);
  const auto DistanceOf = [&Points](int k, int From) { return std::fabs(Points.X[At(k)] - Points.X[At(From)]); };
  const double Step = DistanceOf(i + Side, i), LeftAfterStep = std::exp(OwnRate * Step);
  double Left = 1;
  for (int k = i + Side; Side < 0 ? k >= End : k <= End; k += Side) {
    double Factor = 1;
    if (AveragingMethod == TZyAveragingMethod::LinearWeighted && Width != 0) Factor = 1 - DistanceOf(k, i) / Width;
    if (AveragingMethod == TZyAveragingMethod::ExponentiallyWeighted && !IsSorted)
      Factor = std::exp(OwnRate * DistanceOf(k, i));
    if (AveragingMethod == TZyAveragingMethod::ExponentiallyWeighted && IsSorted) {
      const double Next = DistanceOf(k, k - Side), Excess = OwnRate * (Next - Step);
      Left *= std::fabs(Excess) < Alike ? LeftAfterStep * (1 + Excess) : std::exp(OwnRate * Next);
      if (Left * Heaviest * (std::abs(End - k) + 1) < Nothing * (Sum.W + Points.W[At(i)])) break;
      Factor = Left;
    }
    if (!(Factor > 0)) continue;
    Sum.W += Points.W[At(k)] * Factor;
    Sum.WY += Points.W[At(k)] * Points.Y[At(k)] * Factor;
  }
  return Sum;
}

}  // namespace zy
