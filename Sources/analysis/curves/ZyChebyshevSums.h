#pragma once

#include <span>
#include <vector>

#include "analysis/curves/ZyLeastSquaresTriangle.h"

namespace zy {

/// The sums of Chebyshev's polynomials T over weighted points, which tell a polynomial fit of any number of them: since
/// 2 T[i] T[j] = T[i+j] + T[|i-j|], the products of all pairs need 2 n sums. T runs over the range of X, where no one
/// resembles the others as powers of x do, so that the sums of squares lose few digits.
class TZyChebyshevSums {
 public:
  /// For points with X from Low to High, and powers up to Order.
  TZyChebyshevSums(double Low, double High, int Order);

  /// A block of points, at most some hundreds.
  void Add(std::span<const double> X, std::span<const double> Y, std::span<const double> W);
  /// The triangle of the design matrix of the powers of x, with the right side behind it. False where the points lie so
  /// that these sums cannot tell T apart; what they would have lost then asks for the design matrix itself.
  bool TakeTriangle(TZyWideColumns& Triangle) const;

 private:
  bool TakeRoot(TZyWideColumns& Root, TZyWideColumn& Right) const;
  TZyWideColumns PowersByT() const;

  std::size_t FCount;  // of coefficients
  double FMiddle, FHalf;
  TZyWideColumn FSums, FSumsOfY;
  std::vector<double> FPlace, FLast, FNow;  // of a block: the place in -1 to 1, and T of two degrees there
};

}  // namespace zy
