#include "analysis/curves/ZyLeastSquaresCalculation.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/ZyMathSolvers.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// The widest that there is: large residuals beside exact coefficients cost digits by the square of the condition.
using TReal = long double;
using TColumn = std::vector<TReal>;

TReal Dot(const TColumn& a, const TColumn& b, std::size_t From, std::size_t To) {
  TReal Sum = 0;
  for (std::size_t i = From; i < To; ++i) Sum += a[i] * b[i];
  return Sum;
}

/// The triangle of all rows so far in the first n rows, and behind it rows that wait to be folded in. The last column
/// is the right side.
class TTriangle {
 public:
  explicit TTriangle(std::size_t n) : FCount(n), FRows(n), Columns(n + 1, TColumn(n + BlockRows)) {}

  /// Where the next row goes, in each column.
  std::size_t NextRow() {
    if (FRows == FCount + BlockRows) Fold();
    return FRows++;
  }

  void Fold() {
    for (std::size_t k = 0; k < FCount; ++k) Reflect(k);
    FRows = FCount;
  }

 private:
  static constexpr std::size_t BlockRows = 256;
  std::size_t FCount, FRows;

  /// Scaled by the largest entry, so that no square overflows.
  void Reflect(std::size_t k) {
    TColumn& Pivot = Columns[k];
    TReal Largest = 0;
    for (std::size_t i = k; i < FRows; ++i) Largest = std::max(Largest, std::fabs(Pivot[i]));
    if (Largest == 0) return;
    for (std::size_t i = k; i < FRows; ++i) Pivot[i] /= Largest;
    const TReal Norm = std::sqrt(Dot(Pivot, Pivot, k, FRows));
    const TReal Diagonal = Pivot[k] > 0 ? -Norm : Norm;
    Pivot[k] -= Diagonal;
    const TReal Factor = -1 / (Diagonal * Pivot[k]);
    for (std::size_t c = k + 1; c <= FCount; ++c) {
      const TReal Share = Factor * Dot(Pivot, Columns[c], k, FRows);
      for (std::size_t i = k; i < FRows; ++i) Columns[c][i] -= Share * Pivot[i];
    }
    std::fill(Pivot.begin() + static_cast<std::ptrdiff_t>(k), Pivot.end(), TReal(0));
    Pivot[k] = Diagonal * Largest;
  }

 public:
  std::vector<TColumn> Columns;
};

/// Turns pairs of columns of A until all are orthogonal; V collects the turns. The columns are then U times the
/// singular values.
void Orthogonalize(std::vector<TColumn>& A, std::vector<TColumn>& V) {
  constexpr int MostSweeps = 60;
  const std::size_t n = V.size();
  bool Turned = true;
  for (int Sweep = 0; Turned && Sweep < MostSweeps; ++Sweep) {
    Turned = false;
    for (std::size_t p = 0; p + 1 < n; ++p) {
      for (std::size_t q = p + 1; q < n; ++q) {
        const TReal Alpha = Dot(A[p], A[p], 0, n), Beta = Dot(A[q], A[q], 0, n), Gamma = Dot(A[p], A[q], 0, n);
        if (!(std::fabs(Gamma) > std::numeric_limits<TReal>::epsilon() * std::sqrt(Alpha) * std::sqrt(Beta))) continue;
        Turned = true;
        const TReal Zeta = (Beta - Alpha) / (2 * Gamma);
        const TReal t = std::copysign(1 / (std::fabs(Zeta) + std::hypot(TReal(1), Zeta)), Zeta);
        const TReal c = 1 / std::hypot(TReal(1), t), s = c * t;
        for (std::vector<TColumn>* M : {&A, &V}) {
          for (std::size_t i = 0; i < n; ++i) {
            TReal &x = (*M)[p][i], &y = (*M)[q][i];
            const TReal Old = x;
            x = c * Old - s * y;
            y = s * Old + c * y;
          }
        }
      }
    }
  }
}

}  // namespace

void TZyCustomGeneralLinearLeastSquaresCalculation::SetOrder(int Value) {
  if (Value == FOrder) return;
  FOrder = std::max({Value, SmallestOrder, 0});
  Coeffs.assign(static_cast<std::size_t>(FOrder) + 1, 1.0);
  DeltaCoeffs = Coeffs;
}

double TZyCustomGeneralLinearLeastSquaresCalculation::GetFnWithCoeffs(double x) const {
  if (!mGetBasisFn) return Polynom(x, Coeffs);
  double Sum = 0;
  for (int k = 0; k <= FOrder; ++k) Sum += Coeffs[static_cast<std::size_t>(k)] * mGetBasisFn(Sender, {x, k});
  return Sum;
}

template <class T>
void TZyCustomGeneralLinearLeastSquaresCalculation::EachPoint(T&& Take) const {
  const int Count = PointCount();
  for (int i = 0; i < Count; ++i) {
    if (!IsValid(i)) continue;
    const double x = Xi(i), y = Yi(i), w = Wi(i);
    if (std::isfinite(x) && std::isfinite(y) && std::isfinite(w) && w > 0) Take(x, y, w);
  }
}

void TZyCustomGeneralLinearLeastSquaresCalculation::Calculate() {
  PointCount();  // throws without vectors, before anything else does
  if (NeedsBasisFn && !mGetBasisFn) throw EMathError(LoadResString(_sNoBasisFnDefined));
  double SumOfWeights = 0;
  const int Used = TakeMeans(SumOfWeights);
  bool IsTooFew = Used < FOrder + 1;
  if (Used == FOrder + 1) {
    std::vector<double> X;
    EachPoint([&X](double x, double, double) { X.push_back(x); });
    std::sort(X.begin(), X.end());
    IsTooFew = std::adjacent_find(X.begin(), X.end()) != X.end();
  }
  if (IsTooFew) throw EMathError(LoadResString(_sNotEnoughData));
  Fit();
  TakeStatistics(SumOfWeights);
}

int TZyCustomGeneralLinearLeastSquaresCalculation::TakeMeans(double& SumOfWeights) {
  AverageX = AverageY = VarianceX = VarianceY = Probability = QRel = SumOfResiduals = 0;
  int Used = 0;
  EachPoint([&](double x, double y, double w) {
    ++Used;
    SumOfWeights += w;
    AverageX += x * w;
    AverageY += y * w;
  });
  if (Used == 0) return 0;
  AverageX /= SumOfWeights;
  AverageY /= SumOfWeights;
  return Used;
}

void TZyCustomGeneralLinearLeastSquaresCalculation::Fit() {
  const auto n = static_cast<std::size_t>(FOrder) + 1;
  TTriangle Triangle(n);
  EachPoint([&](double x, double y, double w) {
    const std::size_t Row = Triangle.NextRow();
    const TReal Root = std::sqrt(TReal(w));
    TReal Power = 1;
    for (std::size_t c = 0; c < n; ++c, Power *= x)
      Triangle.Columns[c][Row] = Root * (mGetBasisFn ? mGetBasisFn(Sender, {x, static_cast<int>(c)}) : Power);
    Triangle.Columns[n][Row] = y * Root;
  });
  Triangle.Fold();
  std::vector<TColumn> V(n, TColumn(n));
  for (std::size_t k = 0; k < n; ++k) V[k][k] = 1;
  Orthogonalize(Triangle.Columns, V);
  TColumn Found(n), Variances(n);
  for (std::size_t k = 0; k < n; ++k) {
    const TColumn& Column = Triangle.Columns[k];
    const TReal Square = Dot(Column, Column, 0, n);
    if (Square == 0) continue;
    const TReal Share = Dot(Column, Triangle.Columns[n], 0, n) / Square;
    for (std::size_t j = 0; j < n; ++j) {
      Found[j] += V[k][j] * Share;
      Variances[j] += V[k][j] * V[k][j] / Square;
    }
  }
  const auto IsFinite = [](TReal Value) { return std::isfinite(static_cast<double>(Value)); };
  if (!std::all_of(Found.begin(), Found.end(), IsFinite)) throw EMathError(LoadResString(_sNotEnoughData));
  for (std::size_t j = 0; j < n; ++j) {
    Coeffs[j] = static_cast<double>(Found[j]);
    DeltaCoeffs[j] = static_cast<double>(std::sqrt(Variances[j]));
  }
}

void TZyCustomGeneralLinearLeastSquaresCalculation::TakeStatistics(double SumOfWeights) {
  EachPoint([this](double x, double y, double w) {
    const double Residual = y - GetFnWithCoeffs(x);
    VarianceX += w * (x - AverageX) * (x - AverageX);
    VarianceY += w * (y - AverageY) * (y - AverageY);
    SumOfResiduals += w * Residual * Residual;
  });
  Probability = VarianceY > 0 ? 1 - SumOfResiduals / VarianceY : 1;
  VarianceX = SumOfWeights > 1 ? VarianceX / (SumOfWeights - 1) : 0;
  VarianceY = SumOfWeights > 1 ? VarianceY / (SumOfWeights - 1) : 0;
  QRel = SumOfWeights > FOrder ? std::sqrt(SumOfResiduals / (SumOfWeights - FOrder)) : 0;
}

}  // namespace zy
