#pragma once

#include <limits>
#include <span>
#include <vector>

namespace zy {

/// The smallest and the largest value among some with their indexes, -1 when there is none, the sum of all, and
/// whether some are not finite and so take no part.
struct TZyExtremes {
  int Minimum = -1;
  int Maximum = -1;
  double Sum = 0;
  double Low = std::numeric_limits<double>::infinity();
  double High = -std::numeric_limits<double>::infinity();
  bool HasGaps = false;
};

/// Finds extremes and sum of any stretch of an array in a time that follows the logarithm of its length: a tree of
/// those of blocks, of blocks of blocks, and so on. What is not finite takes no part.
///
/// It is built when it is first asked, and later brought up to date where values changed. It takes eight percent of the
/// memory of the values.
class TZyMinMaxPyramid {
 public:
  /// The values from First up to, but not including, Last are new or changed.
  void Changed(int First, int Last);
  /// The extremes of Values from First up to, but not including, Last; the first of equal ones within each block.
  /// Values is the whole array, always the same one but for what Changed told.
  TZyExtremes Find(std::span<const double> Values, int First, int Last);

 private:
  struct TNode {
    double Low, High, Sum;
    int LowIndex = -1, HighIndex = -1;  // of the first such values, once they were asked for
    bool HasGaps = false;
  };
  struct TSearch;

  static TNode ExtremesOf(std::span<const double> Values);
  void Refresh(std::span<const double> Values);
  void Take(TSearch& Search, std::size_t Level, std::size_t First, std::size_t Last) const;
  int Place(std::span<const double> Values, std::size_t Level, std::size_t Node, double TNode::*Extreme,
            int TNode::*Index);

  std::vector<std::vector<TNode>> FLevels;
  std::size_t FCount = 0;  // values that the tree covers
  std::size_t FDirtyFirst = 0, FDirtyLast = 0;
};

}  // namespace zy
