#include "analysis/curves/ZyLeastSquaresCalculation.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "analysis/ZyMathSolvers.h"
#include "analysis/curves/ZyChebyshevSums.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr int ManyPoints = 1000;  // for the triangle of a polynomial to be taken from sums

}  // namespace

void TZyCustomGeneralLinearLeastSquaresCalculation::SetOrder(int Value) {
  if (Value == FOrder) return;
  FOrder = LimitedOrder(Value);
  Coeffs.assign(static_cast<std::size_t>(FOrder) + 1, 1.0);
  DeltaCoeffs = Coeffs;
}

int TZyCustomGeneralLinearLeastSquaresCalculation::LimitedOrder(int Value) const {
  return std::clamp(Value, std::max(SmallestOrder, 0), LargestOrder);
}

double TZyCustomGeneralLinearLeastSquaresCalculation::GetFnWithCoeffs(double x) const {
  if (!mGetBasisFn) return Polynom(x, Coeffs);
  double Sum = 0;
  for (int k = 0; k <= FOrder; ++k) Sum += Coeffs[static_cast<std::size_t>(k)] * mGetBasisFn(Sender, {x, k});
  return Sum;
}

void TZyCustomGeneralLinearLeastSquaresCalculation::Calculate() {
  PointCount();  // throws without vectors, before anything else does
  if (NeedsBasisFn && !mGetBasisFn) throw EMathError(LoadResString(_sNoBasisFnDefined));
  double SumOfWeights = 0;
  const int Used = TakeMeans(SumOfWeights);
  bool IsTooFew = Used < FOrder + 1;
  if (Used == FOrder + 1) {
    std::vector<double> X;
    ForEachFiniteBlock(false, [&X](auto BlockX, auto, auto) { X.insert(X.end(), BlockX.begin(), BlockX.end()); });
    std::sort(X.begin(), X.end());
    IsTooFew = std::adjacent_find(X.begin(), X.end()) != X.end();
  }
  if (IsTooFew) throw EMathError(LoadResString(_sNotEnoughData));
  TZyWideColumns Triangle;
  if (mGetBasisFn || Used < ManyPoints || !TakeSums(Triangle)) Triangle = TakeRows();
  Solve(std::move(Triangle));
  TakeStatistics(SumOfWeights);
}

int TZyCustomGeneralLinearLeastSquaresCalculation::TakeMeans(double& SumOfWeights) {
  AverageX = AverageY = VarianceX = VarianceY = Probability = QRel = SumOfResiduals = 0;
  FLowestX = std::numeric_limits<double>::max();
  FHighestX = -FLowestX;
  int Used = 0;
  ForEachFiniteBlock(false, [&](auto X, auto Y, auto W) {
    Used += static_cast<int>(X.size());
    for (std::size_t i = 0; i < X.size(); ++i) {
      SumOfWeights += W[i];
      AverageX += X[i] * W[i];
      AverageY += Y[i] * W[i];
      FLowestX = std::min(FLowestX, X[i]);
      FHighestX = std::max(FHighestX, X[i]);
    }
  });
  if (Used == 0) return 0;
  AverageX /= SumOfWeights;
  AverageY /= SumOfWeights;
  return Used;
}

bool TZyCustomGeneralLinearLeastSquaresCalculation::TakeSums(TZyWideColumns& Triangle) const {
  TZyChebyshevSums Sums(FLowestX, FHighestX, FOrder);
  ForEachFiniteBlock(false, [&Sums](auto X, auto Y, auto W) { Sums.Add(X, Y, W); });
  return Sums.TakeTriangle(Triangle);
}

TZyWideColumns TZyCustomGeneralLinearLeastSquaresCalculation::TakeRows() const {
  const auto n = static_cast<std::size_t>(FOrder) + 1;
  TZyLeastSquaresTriangle Triangle(n);
  const int Count = PointCount();
  // By copies: a basis function of the application's may change the data.
  ForEachFiniteBlock(false, [&](auto X, auto Y, auto W) {
    for (std::size_t i = 0; i < X.size(); ++i) {
      const std::size_t Row = Triangle.NextRow();
      const TZyWideReal Root = std::sqrt(TZyWideReal(W[i]));
      TZyWideReal Power = 1;
      for (std::size_t c = 0; c < n; ++c, Power *= X[i])
        Triangle.Columns[c][Row] = Root * (mGetBasisFn ? mGetBasisFn(Sender, {X[i], static_cast<int>(c)}) : Power);
      Triangle.Columns[n][Row] = Y[i] * Root;
    }
    if (PointCount() != Count) throw EAbort(LoadResString(_sSeriesChanged));
  });
  Triangle.Fold();
  return std::move(Triangle.Columns);
}

void TZyCustomGeneralLinearLeastSquaresCalculation::Solve(TZyWideColumns Triangle) {
  const auto n = static_cast<std::size_t>(FOrder) + 1;
  for (TZyWideColumn& Column : Triangle) Column.resize(n);
  const TZyWideColumn Right = std::move(Triangle.back());
  Triangle.pop_back();
  TZyWideColumns V(n, TZyWideColumn(n));
  TZyWideColumn W(n), Found(n), Variances(n);
  SingularValueDecomposition(Triangle, W, V);
  for (std::size_t k = 0; k < n; ++k) {
    if (W[k] == 0) continue;
    const TZyWideReal Share = Dot(Triangle[k], Right, n) / W[k];
    for (std::size_t j = 0; j < n; ++j) {
      Found[j] += V[k][j] * Share;
      Variances[j] += V[k][j] / W[k] * (V[k][j] / W[k]);
    }
  }
  const auto IsFinite = [](TZyWideReal Value) { return std::isfinite(static_cast<double>(Value)); };
  if (!std::all_of(Found.begin(), Found.end(), IsFinite)) throw EMathError(LoadResString(_sNotEnoughData));
  for (std::size_t j = 0; j < n; ++j) {
    Coeffs[j] = static_cast<double>(Found[j]);
    DeltaCoeffs[j] = static_cast<double>(std::sqrt(Variances[j]));
  }
}

void TZyCustomGeneralLinearLeastSquaresCalculation::TakeStatistics(double SumOfWeights) {
  std::vector<double> Fitted;
  ForEachFiniteBlock(false, [&](auto X, auto Y, auto W) {
    Fitted.resize(X.size());
    TakeFitted(X, Fitted);
    for (std::size_t i = 0; i < X.size(); ++i) {
      const double Residual = Y[i] - Fitted[i];
      VarianceX += W[i] * (X[i] - AverageX) * (X[i] - AverageX);
      VarianceY += W[i] * (Y[i] - AverageY) * (Y[i] - AverageY);
      SumOfResiduals += W[i] * Residual * Residual;
    }
  });
  Probability = VarianceY > 0 ? 1 - SumOfResiduals / VarianceY : 1;
  VarianceX = SumOfWeights > 1 ? VarianceX / (SumOfWeights - 1) : 0;
  VarianceY = SumOfWeights > 1 ? VarianceY / (SumOfWeights - 1) : 0;
  QRel = SumOfWeights > FOrder ? std::sqrt(SumOfResiduals / (SumOfWeights - FOrder)) : 0;
}

/// Of a polynomial all at once, so that the steps of many points can go side by side.
void TZyCustomGeneralLinearLeastSquaresCalculation::TakeFitted(std::span<const double> X,
                                                               std::span<double> Fitted) const {
  if (mGetBasisFn) {
    for (std::size_t i = 0; i < X.size(); ++i) Fitted[i] = GetFnWithCoeffs(X[i]);
    return;
  }
  std::ranges::fill(Fitted, Coeffs.back());
  for (std::size_t k = Coeffs.size() - 1; k-- > 0;)
    for (std::size_t i = 0; i < X.size(); ++i) Fitted[i] = Fitted[i] * X[i] + Coeffs[k];
}

}  // namespace zy
