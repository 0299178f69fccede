#include "analysis/curves/ZyLeastSquaresTriangle.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

TZyWideReal DotFrom(const TZyWideColumn& a, const TZyWideColumn& b, std::size_t From, std::size_t To) {
  TZyWideReal Sum = 0;
  for (std::size_t i = From; i < To; ++i) Sum += a[i] * b[i];
  return Sum;
}

void TestSizes(const TZyWideColumns& A, const TZyWideColumn& W, const TZyWideColumns& V) {
  const std::size_t n = A.size();
  const auto HasRows = [](std::size_t Count) { return [Count](const TZyWideColumn& c) { return c.size() >= Count; }; };
  if (!std::ranges::all_of(A, HasRows(n))) throw EMathError(LoadResString(_sDecWrongMat));
  if (W.size() < n) throw EMathError(LoadResString(_sDecWrongOutVec));
  if (V.size() != n || !std::ranges::all_of(V, HasRows(n))) throw EMathError(LoadResString(_sDecWrongOutMat));
}

/// Turns two columns so that they become orthogonal. Whether they were not.
bool Turn(TZyWideColumns& A, TZyWideColumns& V, std::size_t p, std::size_t q) {
  const TZyWideReal Alpha = Dot(A[p], A[p], A[p].size()), Beta = Dot(A[q], A[q], A[q].size()),
                    Gamma = Dot(A[p], A[q], A[p].size());
  const TZyWideReal Least = std::numeric_limits<TZyWideReal>::epsilon() * std::sqrt(Alpha) * std::sqrt(Beta);
  if (!(std::fabs(Gamma) > Least)) return false;
  const TZyWideReal Zeta = (Beta - Alpha) / (2 * Gamma);
  const TZyWideReal t = std::copysign(1 / (std::fabs(Zeta) + std::hypot(TZyWideReal(1), Zeta)), Zeta);
  const TZyWideReal c = 1 / std::hypot(TZyWideReal(1), t), s = c * t;
  for (TZyWideColumns* M : {&A, &V}) {
    for (std::size_t i = 0; i < (*M)[p].size(); ++i) {
      TZyWideReal &x = (*M)[p][i], &y = (*M)[q][i];
      const TZyWideReal Old = x;
      x = c * Old - s * y;
      y = s * Old + c * y;
    }
  }
  return true;
}

}  // namespace

TZyWideReal Dot(const TZyWideColumn& a, const TZyWideColumn& b, std::size_t Count) { return DotFrom(a, b, 0, Count); }

void TZyLeastSquaresTriangle::Fold() {
  for (std::size_t k = 0; k < FCount; ++k) Reflect(k);
  FRows = FCount;
}

/// Scaled by the sum of the magnitudes, so that no square overflows, and what is no number spreads.
void TZyLeastSquaresTriangle::Reflect(std::size_t k) {
  TZyWideColumn& Pivot = Columns[k];
  TZyWideReal Scale = 0;
  for (std::size_t i = k; i < FRows; ++i) Scale += std::fabs(Pivot[i]);
  if (Scale == 0) return;
  for (std::size_t i = k; i < FRows; ++i) Pivot[i] /= Scale;
  const TZyWideReal Norm = std::sqrt(DotFrom(Pivot, Pivot, k, FRows));
  const TZyWideReal Diagonal = Pivot[k] > 0 ? -Norm : Norm;
  Pivot[k] -= Diagonal;
  const TZyWideReal Factor = -1 / (Diagonal * Pivot[k]);
  for (std::size_t c = k + 1; c <= FCount; ++c) {
    const TZyWideReal Share = Factor * DotFrom(Pivot, Columns[c], k, FRows);
    for (std::size_t i = k; i < FRows; ++i) Columns[c][i] -= Share * Pivot[i];
  }
  std::fill(Pivot.begin() + static_cast<std::ptrdiff_t>(k), Pivot.end(), TZyWideReal(0));
  Pivot[k] = Diagonal * Scale;
}

void SingularValueDecomposition(TZyWideColumns& A, TZyWideColumn& W, TZyWideColumns& V) {
  constexpr int MostSweeps = 60;
  TestSizes(A, W, V);
  const std::size_t n = A.size();
  for (std::size_t k = 0; k < n; ++k) {
    std::ranges::fill(V[k], TZyWideReal(0));
    V[k][k] = 1;
  }
  bool Turned = true;
  for (int Sweep = 0; Turned && Sweep < MostSweeps; ++Sweep) {
    Turned = false;
    for (std::size_t p = 0; p + 1 < n; ++p)
      for (std::size_t q = p + 1; q < n; ++q) Turned = Turn(A, V, p, q) || Turned;
  }
  for (std::size_t k = 0; k < n; ++k) {
    W[k] = std::sqrt(Dot(A[k], A[k], A[k].size()));
    for (TZyWideReal& Value : A[k]) Value = W[k] != 0 ? Value / W[k] : 0;
  }
}

}  // namespace zy
