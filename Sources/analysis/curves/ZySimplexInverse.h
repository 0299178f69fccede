#pragma once

#include <memory>
#include <span>
#include <vector>

#include "analysis/curves/ZyInterpolationCalculation.h"
#include "series/vectors/ZyDoubleVector.h"
#include "series/vectors/ZyVectors.h"

namespace zy {

/// The X at which data take a Y value. Data go up and down, so they are cut into ranges on which Y is monotonic, and a
/// smooth curve of X over Y is laid through each.
class TZySimplexInverse {
 public:
  /// Takes points in any order. Those of one X become one, then neighbours of one Y. Throws EMathError when fewer than
  /// three are left, and for a range too short for a curve.
  TZySimplexInverse(std::vector<double> X, std::vector<double> Y);

  /// X at Y, on the range of the data point of that index. Index and ranges are compared as numbers, though the ranges
  /// count points as they were left. Throws ERangeError beyond the last range.
  double XAt(int Index, double Y) const;

 private:
  struct TRange {
    TZyDoubleVector X, Y;
    TZyInterpolationCalculation Curve;
  };

  static void MergeEqual(std::vector<double>& Key, std::vector<double>& Follower);
  void AddRange(std::span<const double> X, std::span<const double> Y);

  std::vector<std::unique_ptr<TRange>> FRanges;
  TZyIntegerVector FRangeIdx;  // the end of each range
};

}  // namespace zy
