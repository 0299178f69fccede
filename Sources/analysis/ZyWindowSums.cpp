#include "analysis/ZyWindowSums.h"

#include <cmath>

namespace zy {
namespace {

using TSums = TZyWindowSums::TSums;

/// Plain sums of some points, and those weighted by the distance to a place behind them: for linear weights the
/// distance itself, for exponential ones what is left of each after it. Moving the place away costs no look at the
/// points: by a distance, or by what is left after that.
template <TZyWindowWeight Weighting>
struct TPart {
  double W = 0, WY = 0;      // without distance
  double Far = 0, FarY = 0;  // with it

  TPart MovedBy(double Distance) const {
    if constexpr (Weighting == TZyWindowWeight::Linear) return {W, WY, Far + Distance * W, FarY + Distance * WY};
    if constexpr (Weighting == TZyWindowWeight::Exponential) return {W, WY, Far * Distance, FarY * Distance};
    return *this;
  }
  void Add(double Factor, double Weight, double Value) {
    W += Weight;
    WY += Weight * Value;
    if constexpr (Weighting == TZyWindowWeight::Equal) return;
    Far += Factor * Weight;
    FarY += Factor * Weight * Value;
  }
  TSums Weighted(double Width) const {
    if constexpr (Weighting == TZyWindowWeight::Exponential) return {Far, FarY};
    if (Weighting == TZyWindowWeight::Equal || Width == 0) return {W, WY};
    return {W - Far / Width, WY - FarY / Width};
  }
};

}  // namespace

template <TZyWindowWeight Weighting>
std::vector<TSums> TZyWindowSums::RunAs(std::span<const int> First, std::span<const double> Width, double Rate) const {
  using TWeightedPart = TPart<Weighting>;
  constexpr bool Decays = Weighting == TZyWindowWeight::Exponential;
  constexpr double Here = Decays ? 1 : 0;  // no distance at all
  const auto Further = [](double Way, double Step) {
    constexpr double Nothing = 1e-200;  // numbers that are not normal any more would take long
    if (!Decays) return Way + Step;
    return Way < Nothing ? 0 : Way * Step;
  };
  const auto n = FX.size();
  std::vector<double> Left;  // of a weight at the point before, by exponential weights
  if (Decays) Left.resize(n);
  for (std::size_t i = 1; i < Left.size(); ++i) Left[i] = std::exp(Rate * (FX[i] - FX[i - 1]));
  const auto StepTo = [&](std::size_t i) { return Decays ? Left[i] : FX[i] - FX[i - 1]; };
  std::vector<TSums> Result(n);
  std::vector<TWeightedPart> Front;  // of each point up to the seam, from the last one on, as seen from the seam
  TWeightedPart Back;                // of the points behind the seam, as seen from the last of them
  std::size_t Seam = 0;              // first point of the back
  double SinceFront = Here;          // the way from the last point of the front
  for (std::size_t i = 0; i < n; ++i) {
    const auto Low = static_cast<std::size_t>(First[i]);
    const double Step = i > 0 ? StepTo(i) : Here;
    if (Low >= Seam) {  // the front is used up: all up to here becomes the new one
      Front.clear();
      TWeightedPart Sum;
      double Way = Here;
      for (std::size_t k = i; k-- > Low;) {
        if (k + 1 < i) Way = Further(Way, StepTo(k + 1));
        Sum.Add(Way, FW[k], FY[k]);
        Front.push_back(Sum);
      }
      Seam = i;
      Back = {};
      SinceFront = Step;
    } else {
      SinceFront = Further(SinceFront, Step);
      Back = Back.MovedBy(Step);
    }
    const TWeightedPart Before = Low < Seam ? Front[Seam - 1 - Low].MovedBy(SinceFront) : TWeightedPart{};
    const TWeightedPart Whole{Before.W + Back.W, Before.WY + Back.WY, Before.Far + Back.Far, Before.FarY + Back.FarY};
    Result[i] = Whole.Weighted(Width[i]);
    Back.Add(Here, FW[i], FY[i]);
  }
  return Result;
}

/// The same in a mirror.
std::vector<TSums> TZyWindowSums::RunBehind(std::span<const int> Last, TZyWindowWeight Weighting,
                                            std::span<const double> Width, double Rate) const {
  const auto Reversed = [](const auto& Values) { return std::vector(Values.rbegin(), Values.rend()); };
  std::vector<double> X = Reversed(FX);
  for (double& Value : X) Value = -Value;
  std::vector<int> First = Reversed(Last);
  for (int& Value : First) Value = static_cast<int>(FX.size()) - 1 - Value;
  const auto Y = Reversed(FY), W = Reversed(FW);
  return Reversed(TZyWindowSums(X, Y, W).Run(First, Weighting, Reversed(Width), Rate));
}

std::vector<TSums> TZyWindowSums::Run(std::span<const int> First, TZyWindowWeight Weighting,
                                      std::span<const double> Width, double Rate) const {
  switch (Weighting) {
    case TZyWindowWeight::Linear:
      return RunAs<TZyWindowWeight::Linear>(First, Width, Rate);
    case TZyWindowWeight::Exponential:
      return RunAs<TZyWindowWeight::Exponential>(First, Width, Rate);
    default:
      return RunAs<TZyWindowWeight::Equal>(First, Width, Rate);
  }
}

}  // namespace zy
