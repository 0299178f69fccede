#pragma once

#include <vector>

#include "analysis/curves/ZyCalculation.h"

namespace zy {

/// A curve through points: piecewise cubic, by the method of H. Akima ("A New Method of Interpolation and Smooth Curve
/// Fitting Based on Local Procedures", Journal of the ACM 17, 1970), which follows steps of the data without
/// overshooting far.
///
/// Points with the same X count as one with the mean of their Y, points of weight 0 not at all. Beyond the last point
/// the curve goes on as the method continues the data, before the first one with its first piece.
class TZyInterpolationCalculation : public TZyCalculation {
 public:
  /// Throws EMathError for fewer than three points.
  void Calculate() override;
  /// The data or settings changed; the next question computes anew.
  void Changed() { FRecalculate = true; }

  /// Number of the piece that holds x. One step along a sweep, else a bisection.
  int FindIndex(double x) const;
  /// Value and slope on piece k at a distance t from its start.
  double DYAtK(int k, double t) const;
  double DSlopeAtK(int k, double t) const;
  /// Value at x; 0 when there is no curve.
  double Interpolate(double x);
  /// Number of points that the curve is built on.
  int Count() const { return FIntCount; }

 private:
  void MergeEqualX(TPoints& Points) const;
  void AkimaCoeffs();

  bool FRecalculate = true;
  int FIntCount = 0;
  mutable int FLastIndex = 0;  // the piece that was asked for last
  // The curve on piece k is FA[k] + FB[k] t + FC[k] t^2 + FD[k] t^3 with t = x - FX[k].
  std::vector<double> FX, FA, FB, FC, FD;
};

}  // namespace zy
