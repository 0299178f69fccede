#pragma once

#include <vector>

#include "analysis/ZyWindowSums.h"
#include "analysis/curves/ZyInterpolationCalculation.h"
#include "platform/framework/EnumInfo.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy {

/// How the values around a point weigh: all alike, falling linearly with their distance in X, or exponentially.
enum class TZyAveragingMethod { Simple, LinearWeighted, ExponentiallyWeighted };
ZY_ENUM(TZyAveragingMethod, "Simple", "LinearWeighted", "ExponentiallyWeighted")

/// Whether only values at smaller X count, or those at both sides.
enum class TZyAveragingDirection { OnlyDownwards, UpAndDownwards };
ZY_ENUM(TZyAveragingDirection, "OnlyDownwards", "UpAndDownwards")

/// Whether N counts points, or is a distance in X.
enum class TZyAveragingRangeMethod { NasCount, NasXDistance };
ZY_ENUM(TZyAveragingRangeMethod, "NasCount", "NasXDistance")

/// The weighted mean of the neighbours of each point, and a smooth curve through these means.
///
/// Costs as much as there are points, however wide the neighbourhood, except for exponential weights on points whose
/// windows are not equally wide: there each point has a decay of its own, and the cost is that of all windows.
class TZyMovingAverageCalculation : public TZyCalculation {
 public:
  TZyMovingAverageCalculation();

  /// Width of the neighbourhood to one side, as a count, which is rounded, or as a distance. A negative one counts as
  /// its magnitude.
  double N = 10;
  /// Weight at the distance N with exponential weights; brought to a magnitude of up to 1, and 0 to 1E-300.
  double ExponentialFactorForN = 0.9;
  TZyAveragingMethod AveragingMethod = TZyAveragingMethod::LinearWeighted;
  TZyAveragingDirection AveragingDirection = TZyAveragingDirection::OnlyDownwards;
  TZyAveragingRangeMethod AveragingRangeMethod = TZyAveragingRangeMethod::NasCount;

  /// The magnitude of a value, 0 for one that is not finite; and of a factor, at most 1.
  static double Magnitude(double Value);
  static double LimitedFactor(double Value);
  /// Throws EMathError without data, for fewer than three points, and where all weights of a window are 0.
  void Calculate() override;
  /// The curve at x; calculates before the first answer, and is 0 after a calculation that failed.
  double GetY(double x);
  /// The data or settings changed; the next GetY computes anew.
  void Changed() { FRecalculate = true; }
  bool IsStale() const { return FRecalculate; }
  /// X of the points, and their means.
  const TZyCustomDoubleVector& MeansX() const { return IntX; }
  const TZyCustomDoubleVector& Means() const { return IntA; }

 private:
  /// What belongs to each point: the first and the last of its window, and the distance D that the weights refer to.
  struct TWindows {
    std::vector<int> Low, High;
    std::vector<double> Width;
  };

  TWindows TakeWindows(const std::vector<double>& X) const;
  std::vector<double> MeansOf(const TPoints& Points, const TWindows& Windows) const;
  TZyWindowSums::TSums SumAside(const TPoints& Points, const TWindows& Windows, int i, int Side, bool IsSorted,
                                double Heaviest) const;
  double Rate(double Width) const;

  bool FRecalculate = true;
  bool FHasCurve = false;  // the last calculation succeeded
  TZyDoubleVector IntX, IntA;
  TZyInterpolationCalculation FInterpolation;
};

}  // namespace zy
