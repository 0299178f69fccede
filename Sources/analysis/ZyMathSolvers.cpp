#include "analysis/ZyMathSolvers.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr double SmallestDouble = std::numeric_limits<double>::denorm_min();

bool HasRows(const TDoubleDynMatrix& Matrix, std::size_t Rows, std::size_t Columns) {
  return Matrix.size() >= Rows &&
         std::ranges::all_of(Matrix.begin(), Matrix.begin() + static_cast<std::ptrdiff_t>(Rows),
                             [=](const auto& Row) { return Row.size() >= Columns; });
}

/// Leaves the upper factor in the matrix and the multipliers below its diagonal.
void FactorizeBand(std::size_t N, std::size_t Lower, std::size_t Upper, TDoubleDynMatrix& Matrix) {
  for (std::size_t i = 0; i + 1 < N; ++i) {
    const double Pivot = Matrix[i][Lower];
    if (std::fabs(Pivot) < SmallestDouble) continue;
    const std::size_t LastBelow = std::min(Lower, N - 1 - i), LastRight = std::min(Upper, N - 1 - i);
    for (std::size_t k = 1; k <= LastBelow; ++k) {
      TDoubleDynArray& Row = Matrix[i + k];
      const double Multiplier = Row[Lower - k] /= Pivot;
      for (std::size_t j = 1; j <= LastRight; ++j) Row[Lower + j - k] -= Multiplier * Matrix[i][Lower + j];
    }
  }
}

void CheckPivot(double Pivot) {
  if (!(std::fabs(Pivot) >= 10 * SmallestDouble)) throw EMathError(LoadResString(_sMatrixNotTridiag));
}

}  // namespace

double Polynom(double X, std::span<const double> Coefficients) {
  double Sum = 0;
  for (std::size_t k = Coefficients.size(); k-- > 0;) Sum = Sum * X + Coefficients[k];
  return Sum;
}

void SolveBandMatrix(int N, int Lower, int Upper, TDoubleDynMatrix& Matrix, TDoubleDynArray& Right) {
  if (N < 3 || std::int64_t{Lower} + Upper > N) throw EMathError(LoadResString(_sNotEnoughData));
  if (Lower < 0 || Upper < 0) throw EMathError(LoadResString(_sMatrixDimensionPositive));
  const auto Rows = static_cast<std::size_t>(N), Below = static_cast<std::size_t>(Lower),
             Above = static_cast<std::size_t>(Upper);
  if (!HasRows(Matrix, Rows, Below + 1 + Above) || Right.size() < Rows)
    throw EMathError(LoadResString(_sNotEnoughData));

  FactorizeBand(Rows, Below, Above, Matrix);
  for (std::size_t i = 0; i + 1 < Rows; ++i)
    for (std::size_t k = 1; k <= Below && i + k < Rows; ++k) Right[i + k] -= Matrix[i + k][Below - k] * Right[i];
  for (std::size_t i = Rows; i-- > 0;) {
    for (std::size_t k = 1; k <= Above && i + k < Rows; ++k) Right[i] -= Matrix[i][Below + k] * Right[i + k];
    Right[i] /= Matrix[i][Below];
  }
}

void SolveTridiagonalEquationSystem(int N, TDoubleDynArray& Lower, TDoubleDynArray& Main, TDoubleDynArray& Upper,
                                    TDoubleDynArray& Right) {
  const auto Rows = static_cast<std::size_t>(std::max(N, 0));
  if (Rows < 2 || Lower.size() < Rows || Main.size() < Rows || Upper.size() + 1 < Rows || Right.size() < Rows)
    throw EMathError(LoadResString(_sMatrixToSmall));

  for (std::size_t i = 1; i < Rows; ++i) {
    CheckPivot(Main[i - 1]);
    Lower[i] /= Main[i - 1];
    Main[i] -= Lower[i] * Upper[i - 1];
  }
  CheckPivot(Main[Rows - 1]);
  for (std::size_t i = 1; i < Rows; ++i) Right[i] -= Lower[i] * Right[i - 1];
  Right[Rows - 1] /= Main[Rows - 1];
  for (std::size_t i = Rows - 1; i-- > 0;) Right[i] = (Right[i] - Upper[i] * Right[i + 1]) / Main[i];
}

}  // namespace zy
