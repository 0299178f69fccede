#pragma once

#include <span>
#include <vector>

namespace zy {

/// How much a value counts by its distance d from the middle of its window.
enum class TZyWindowWeight {
  Equal,       ///< 1
  Linear,      ///< 1 - d / Width
  Exponential  ///< exp(Rate d)
};

/// Weighted sums over the points before each point, in a window whose start only moves forward.
///
/// Point i sums over the points from First[i] up to, but not including, i. The cost is that of the points, whatever
/// the width of the windows: a window is two parts, of which one holds the sums from each of its points to the seam
/// and the other grows at its end. Nothing is ever subtracted, so that no digits are lost (see K. Tangwongsan,
/// M. Hirzel, S. Schneider, K.-L. Wu: General Incremental Sliding-Window Aggregation, PVLDB 8(7), 2015).
class TZyWindowSums {
 public:
  /// X ascending, Y, and weights W above or at 0, all of the same length.
  TZyWindowSums(std::span<const double> X, std::span<const double> Y, std::span<const double> W)
      : FX(X), FY(Y), FW(W) {}

  /// The sums of one window.
  struct TSums {
    double W = 0;   ///< of the weights
    double WY = 0;  ///< of weight times value
  };
  /// The sums for each point. Width has the reach of the linear weights for each point and may hold 0, Rate the
  /// exponent of the others for all.
  std::vector<TSums> Run(std::span<const int> First, TZyWindowWeight Weighting, std::span<const double> Width,
                         double Rate) const;
  /// The sums over the points behind each point, up to and with Last[i], which only moves forward, too.
  std::vector<TSums> RunBehind(std::span<const int> Last, TZyWindowWeight Weighting, std::span<const double> Width,
                               double Rate) const;

 private:
  template <TZyWindowWeight Weighting>
  std::vector<TSums> RunAs(std::span<const int> First, std::span<const double> Width, double Rate) const;

  std::span<const double> FX, FY, FW;
};

}  // namespace zy
