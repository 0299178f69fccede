#include <cmath>
#include <limits>

#include "analysis/curves/ZyInterpolationCalculation.h"

namespace zy {

const TZyInterpolationCalculation::TExtrema& TZyInterpolationCalculation::Extrema(TExtremaOf Kind) {
  TExtrema& Found = FExtrema[Kind];
  if (FRecalculate && XData != nullptr && YData != nullptr) Calculate();
  if (FRecalculate || !Found.AreStale) return Found;
  Found = {false, {}, {}};
  if (Kind == Curve) FindExtrema(Found);
  if (Kind == Differential) FindDifferentialExtrema(Found);
  if (Kind == IntegralOfIt) FindIntegralExtrema(Found);
  return Found;
}

/// The zeros of the slope, which is quadratic: the root with the plus sign first. Of the two the one without
/// cancellation is computed, the other one follows from their product.
void TZyInterpolationCalculation::FindExtrema(TExtrema& Found) {
  for (int k = 0; k + 1 < FIntCount; ++k) {
    const auto& [A, B, C, D] = Piece(k);
    const double Discriminant = C * C - 3 * D * B;
    if (!(Discriminant >= 0) || 3 * D == 0) continue;
    const double Sum = -(C + std::copysign(std::sqrt(Discriminant), C));
    const double Large = Sum / (3 * D), Small = Sum == 0 ? 0 : B / Sum;
    const bool PlusIsSmall = C >= 0 && !std::signbit(C);
    for (const double t : {PlusIsSmall ? Small : Large, PlusIsSmall ? Large : Small}) {
      const double x = Knot(k) + t;
      if (!(Knot(k) <= x && x < Knot(k + 1))) continue;
      (Curvature(x) >= 0 ? Found.Minima : Found.Maxima).push_back({x, Interpolate(x)});
    }
  }
}

void TZyInterpolationCalculation::FindDifferentialExtrema(TExtrema& Found) {
  for (int k = 0; k + 1 < FIntCount; ++k) {
    const auto& [A, B, C, D] = Piece(k);
    const double x = Knot(k) - C / (3 * D);
    if (D == 0 || !(Knot(k) <= x && x < Knot(k + 1))) continue;
    const double AtTurn = Slope(x);
    (AtTurn <= B ? Found.Minima : Found.Maxima).push_back({x, AtTurn});
  }
}

/// The zeros of the curve, at a point or between two of different signs.
void TZyInterpolationCalculation::FindIntegralExtrema(TExtrema& Found) {
  const auto Last = static_cast<int>(FPieces.size()) - 1;
  for (int k = 0; k < FIntCount; ++k) {
    const double A = Piece(k).A, Next = k < Last ? Piece(k + 1).A : 0;
    if (A != 0 && !((A > 0 && Next < 0) || (A < 0 && Next > 0))) continue;
    const double t = A == 0 ? 0 : ZeroOf(k);
    const double x = Knot(k) + t;
    (DSlopeAtK(k, t) >= 0 ? Found.Minima : Found.Maxima).push_back({x, Integral(x)});
  }
}

/// A zero on a piece whose ends have different signs, by steps that are halved towards the smaller value. Of a curve
/// that turns within the piece these steps may end at another small value: then by bisection.
double TZyInterpolationCalculation::ZeroOf(int k) const {
  constexpr double Smallest = std::numeric_limits<double>::denorm_min();
  const double Length = Knot(k + 1) - Knot(k);
  double d = Length / 3, Left = d, Right = 2 * d, t = d;
  for (bool Ends = false; !Ends && Left < Right;) {
    const double AtLeft = std::fabs(DYAtK(k, Left)), AtRight = std::fabs(DYAtK(k, Right));
    t = AtRight <= AtLeft ? Right : Left;
    d /= 2;
    Left = t - d;
    Right = t + d;
    Ends = d <= Smallest || AtLeft <= Smallest || AtRight <= Smallest;
  }
  const double Near = 1e-9 * Length;
  if (DYAtK(k, t) == 0 || std::signbit(DYAtK(k, t - Near)) != std::signbit(DYAtK(k, t + Near))) return t;
  const bool StartsBelow = Piece(k).A < 0;
  double Low = 0, High = Length;
  for (t = High / 2; Low < t && t < High; t = Low + (High - Low) / 2)
    ((DYAtK(k, t) < 0) == StartsBelow ? Low : High) = t;
  return t;
}

}  // namespace zy
