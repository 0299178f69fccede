#pragma once

#include "analysis/curves/ZyCalculation.h"

namespace zy {

/// The straight line y = Offset + Slope x of the smallest sum of weighted squared deviations in y (C. F. Gauss,
/// "Theoria combinationis observationum erroribus minimis obnoxiae", 1823; the standard errors as in P. R. Bevington,
/// D. K. Robinson, "Data Reduction and Error Analysis for the Physical Sciences", 2003, chapter 6).
///
/// x and y are the values, or their logarithms to the base of ten; values without a logarithm take no part. Sums are
/// taken about the means, so that no digits are lost to data that lie far from 0. All results are those of the last
/// `Calculate`; before the first one those from Slope on read 1, the sums 0.
class TZyLinearRegressionCalculation : public TZyCalculation {
 public:
  /// Weighted sums of x and y, and the sum of the weights.
  double SumX = 0, SumY = 0, SumW = 0;
  /// Weighted sums of x^2 and x (y - Offset) with a fixed offset, and of x y about the mean of x without one.
  double SumWXX = 0, SumWXY = 0, SumWdXY = 0;
  /// Weighted sums of the squared deviations from the means.
  double Qxx = 0, Qyy = 0;
  /// The line, and the standard errors of its coefficients. When all x are equal Slope and Offset are the largest
  /// double; errors that have no value are its negative and itself.
  double Slope = 1, DeltaSlope = 1;
  /// Given beforehand with FixedOffset, whose error is 0.
  double Offset = 1, DeltaOffset = 1;
  double AverageX = 1, AverageY = 1, VarianceX = 1, VarianceY = 1;
  /// The part of the variance of y that the line explains, known as the coefficient of determination. 1 where y does
  /// not vary, or 0 when a fixed offset keeps the line away from it.
  double Probability = 1;
  /// Pearson's coefficient; 0 with a fixed offset, and 1 where one of the two does not vary.
  double Correlation = 1;
  /// Weighted sum of the squared deviations from the line.
  double SumOfResiduals = 1;
  bool FixedOffset = false;
  /// Whether the fit is one of logarithms.
  bool XLog = false, YLog = false;

  double Xi(int i) const override;
  double Yi(int i) const override;
  /// Throws EMathError without vectors, for less than two points, and where the errors have no value because the
  /// weights add up to no more points than the line has free coefficients: two points, that is, or one with a fixed
  /// offset. Weights that add up to less leave the errors without a value.
  void Calculate() override;

  /// Whether the last result is a line that has a value everywhere.
  bool HasLine() const { return FixedOffset || Qxx > 0; }
  /// Half the width of the band around the line at x, for the two-sided 95 percent point of Student's t of as many
  /// degrees of freedom as the weights add up to. 0 where it has no value.
  double Confidence(double x, double T95) const;

 protected:
  bool ReadsPlainly() const override { return !XLog && !YLog && TZyCalculation::ReadsPlainly(); }

 private:
  int TakeMeans();
  void TakeDeviations();
  void TakeResiduals();
  void CalculateWithFixedOffset();
  void CalculateWithOffset(int UsedPoints);
};

}  // namespace zy
