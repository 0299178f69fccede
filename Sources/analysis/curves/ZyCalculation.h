#pragma once

#include <limits>
#include <vector>

#include "series/vectors/ZyCustomDoubleVector.h"
#include "series/vectors/ZyValueTransformation.h"

namespace zy {

/// Base of what is computed from the points of data vectors: a plain object that a program may use without any chart.
///
/// The vectors stay the caller's and must outlive the calculation. `Calculate` is the expensive step and runs once for
/// each change of data or settings; the questions that a descendant answers afterwards are cheap.
class TZyCalculation {
 public:
  TZyCalculation() = default;
  TZyCalculation(const TZyCalculation&) = delete;
  TZyCalculation& operator=(const TZyCalculation&) = delete;
  virtual ~TZyCalculation() = default;

  /// Bounds of the raw X of points that take part, both inside.
  double Start = -std::numeric_limits<double>::max();
  double Stop = std::numeric_limits<double>::max();
  /// The data; without Weight all points weigh 1.
  TZyCustomDoubleVector* XData = nullptr;
  TZyCustomDoubleVector* YData = nullptr;
  TZyCustomDoubleVector* Weight = nullptr;
  /// Whether points that are marked as outliers take part.
  bool OutliersVisible = false;
  /// What makes values of the vectors into those that are computed with; may be empty.
  TZyValueTransformation mXValueTransformation, mYValueTransformation, mWeightValueTransformation;
  /// Whom these events name as their sender.
  TObject* Sender = nullptr;

  /// Transformed values of point i. Throw ERangeError outside the vectors.
  virtual double Xi(int i) const;
  virtual double Yi(int i) const;
  /// Computes. Throws EMathError when the data do not allow it. The base has nothing to compute.
  virtual void Calculate() {}

  /// Weight of point i as a magnitude; 1 without weights.
  double Wi(int i) const;
  /// Whether point i takes part: its raw X lies within the bounds, and it is no outlier, or outliers are visible.
  bool IsValid(int i) const;

 protected:
  /// Coordinates and weights of points, as calculations work on them.
  struct TPoints {
    std::vector<double> X, Y, W;
    int Count() const { return static_cast<int>(X.size()); }
  };

  /// Points of the data: the smallest count of the vectors that there are. Throws EMathError without X or Y.
  int PointCount() const;
  /// The points that take part and are finite; those of weight 0 only on demand. By ascending X, unless the X vector
  /// says of itself that it is ascending: then as they come.
  TPoints ValidPoints(bool WithWeightZero) const;
};

}  // namespace zy
