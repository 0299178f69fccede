#pragma once

#include <cstddef>
#include <vector>

namespace zy {

/// The widest reals that there are: large residuals beside exact coefficients cost digits by the square of the
/// condition.
using TZyWideReal = long double;
using TZyWideColumn = std::vector<TZyWideReal>;
/// A matrix by its columns.
using TZyWideColumns = std::vector<TZyWideColumn>;

/// The triangle of the rows of a design matrix, however many there are, by Householder reflections (G. H. Golub,
/// "Numerical Methods for Solving Linear Least Squares Problems", Numerische Mathematik 7, 1965). The last column is
/// the right side.
class TZyLeastSquaresTriangle {
 public:
  /// For n coefficients.
  explicit TZyLeastSquaresTriangle(std::size_t n) : Columns(n + 1, TZyWideColumn(n + BlockRows)), FCount(n), FRows(n) {}

  /// Where the next row goes, in each column.
  std::size_t NextRow() {
    if (FRows == FCount + BlockRows) Fold();
    return FRows++;
  }
  /// Brings the rows that wait into the triangle; the first n rows of the columns are then it.
  void Fold();

  TZyWideColumns Columns;

 private:
  static constexpr std::size_t BlockRows = 256;

  void Reflect(std::size_t k);

  std::size_t FCount;
  std::size_t FRows;
};

/// The sum of the products of the first Count elements.
TZyWideReal Dot(const TZyWideColumn& a, const TZyWideColumn& b, std::size_t Count);

/// A = U diag(W) V^T of a matrix with at least as many rows as columns: A becomes U, W has a value for each column, and
/// V is square. The values come in any order, and where one is 0 the column of U is 0 as well.
///
/// Pairs of columns are turned until all are orthogonal (M. R. Hestenes, "Inversion of Matrices by Biorthogonalization
/// and Related Results", SIAM Journal 6, 1958). Throws EMathError when the sizes do not fit.
void SingularValueDecomposition(TZyWideColumns& A, TZyWideColumn& W, TZyWideColumns& V);

}  // namespace zy
