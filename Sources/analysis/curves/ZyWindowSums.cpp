#include "analysis/curves/ZyWindowSums.h"

#include <cmath>

namespace zy {
namespace {

/// Plain sums of some points, and those weighted by the distance to a place behind them: for linear weights the
/// distance itself, for exponential ones what is left of each after it. Moving the place away costs no look at the
/// points.
struct TPart {
  double W = 0, WY = 0;      // without distance
  double Far = 0, FarY = 0;  // with it

  /// The place moves Distance further away.
  void Move(TZyWindowWeight Weighting, double Distance, double Rate) {
    if (Weighting == TZyWindowWeight::Linear) {
      Far += Distance * W;
      FarY += Distance * WY;
    } else if (Weighting == TZyWindowWeight::Exponential) {
      const double Left = std::exp(Rate * Distance);
      Far *= Left;
      FarY *= Left;
    }
  }
  /// A point at Distance before the place joins.
  void Add(TZyWindowWeight Weighting, double Distance, double Rate, double Weight, double Value) {
    W += Weight;
    WY += Weight * Value;
    const double Factor = Weighting == TZyWindowWeight::Linear        ? Distance
                          : Weighting == TZyWindowWeight::Exponential ? std::exp(Rate * Distance)
                                                                      : 0;
    Far += Factor * Weight;
    FarY += Factor * Weight * Value;
  }
};

}  // namespace

std::vector<TZyWindowSums::TSums> TZyWindowSums::Run(std::span<const int> First, TZyWindowWeight Weighting,
                                                     std::span<const double> Width, double Rate) const {
  const auto n = FX.size();
  std::vector<TSums> Result(n);
  std::vector<TPart> Front(n);  // of each point up to the seam, as seen from the seam
  TPart Back;                   // of the points behind the seam, as seen from the last of them
  std::size_t Seam = 0;         // first point of the back
  for (std::size_t i = 0; i < n; ++i) {
    const auto Low = static_cast<std::size_t>(First[i]);
    if (Low >= Seam) {  // the front is used up: all up to here becomes the new one
      TPart Sum;
      for (std::size_t k = i; k-- > Low;) {
        Sum.Add(Weighting, FX[i - 1] - FX[k], Rate, FW[k], FY[k]);
        Front[k] = Sum;
      }
      Seam = i;
      Back = {};
    }
    TPart Before = Low < Seam ? Front[Low] : TPart{};
    if (Low < Seam) Before.Move(Weighting, FX[i] - FX[Seam - 1], Rate);
    TPart After = Back;
    if (Seam < i) After.Move(Weighting, FX[i] - FX[i - 1], Rate);
    const double W = Before.W + After.W, WY = Before.WY + After.WY;
    const double Far = Before.Far + After.Far, FarY = Before.FarY + After.FarY;
    if (Weighting == TZyWindowWeight::Equal || (Weighting == TZyWindowWeight::Linear && Width[i] == 0)) {
      Result[i] = {W, WY};
    } else if (Weighting == TZyWindowWeight::Linear) {
      Result[i] = {W - Far / Width[i], WY - FarY / Width[i]};
    } else {
      Result[i] = {Far, FarY};
    }
    if (Seam < i) Back.Move(Weighting, FX[i] - FX[i - 1], Rate);  // seen from point i, which joins
    Back.Add(Weighting, 0, Rate, FW[i], FY[i]);
  }
  return Result;
}

}  // namespace zy
