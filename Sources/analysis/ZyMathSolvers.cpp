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

/// Leaves the upper factor in the matrix, the multipliers below its diagonal, and the solution in Right. Row(i) is row
/// i of the matrix.
template <class TRow>
void SolveBand(std::size_t N, std::size_t Lower, std::size_t Upper, const TRow& Row, std::span<double> Right) {
  for (std::size_t i = 0; i + 1 < N; ++i) {
    const double* const Above = Row(i);
    const double Pivot = Above[Lower];
    if (std::fabs(Pivot) < SmallestDouble) continue;
    const std::size_t LastBelow = std::min(Lower, N - 1 - i), LastRight = std::min(Upper, N - 1 - i);
    for (std::size_t k = 1; k <= LastBelow; ++k) {
      double* const Below = Row(i + k);
      const double Multiplier = Below[Lower - k] /= Pivot;
      for (std::size_t j = 1; j <= LastRight; ++j) Below[Lower + j - k] -= Multiplier * Above[Lower + j];
    }
  }
  for (std::size_t i = 0; i + 1 < N; ++i)
    for (std::size_t k = 1; k <= Lower && i + k < N; ++k) Right[i + k] -= Row(i + k)[Lower - k] * Right[i];
  for (std::size_t i = N; i-- > 0;) {
    const double* const Own = Row(i);
    for (std::size_t k = 1; k <= Upper && i + k < N; ++k) Right[i] -= Own[Lower + k] * Right[i + k];
    Right[i] /= Own[Lower];
  }
}

void CheckBand(int N, int Lower, int Upper) {
  if (N < 3 || std::int64_t{Lower} + Upper > N) throw EMathError(LoadResString(_sNotEnoughData));
  if (Lower < 0 || Upper < 0) throw EMathError(LoadResString(_sMatrixDimensionPositive));
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
  CheckBand(N, Lower, Upper);
  const auto Rows = static_cast<std::size_t>(N), Below = static_cast<std::size_t>(Lower),
             Above = static_cast<std::size_t>(Upper);
  if (!HasRows(Matrix, Rows, Below + 1 + Above) || Right.size() < Rows)
    throw EMathError(LoadResString(_sNotEnoughData));
  SolveBand(
      Rows, Below, Above, [&Matrix](std::size_t i) { return Matrix[i].data(); }, Right);
}

void SolveBandMatrix(int N, int Lower, int Upper, std::span<double> Matrix, std::span<double> Right) {
  CheckBand(N, Lower, Upper);
  const auto Rows = static_cast<std::size_t>(N), Below = static_cast<std::size_t>(Lower),
             Above = static_cast<std::size_t>(Upper), Columns = Below + 1 + Above;
  if (Matrix.size() / Columns < Rows || Right.size() < Rows) throw EMathError(LoadResString(_sNotEnoughData));
  SolveBand(
      Rows, Below, Above, [&](std::size_t i) { return Matrix.data() + i * Columns; }, Right);
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
