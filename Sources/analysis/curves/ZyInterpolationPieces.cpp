#include <algorithm>
#include <cmath>

#include "analysis/ZyMathSolvers.h"
#include "analysis/curves/ZyInterpolationCalculation.h"
#include "texts/Exceptions.h"

namespace zy {

/// Two points and slopes are added at each end, so that the data stand at index 2 to n + 1. The slope behind the last
/// added point counts as 0.
void TZyInterpolationCalculation::AkimaCoeffs(const TPoints& Points) {
  const std::size_t n = Points.X.size();
  std::vector<double> X(n + 4), A(n + 4), S(n + 4);
  std::ranges::copy(Points.X, X.begin() + 2);
  std::ranges::copy(Points.Y, A.begin() + 2);
  X[1] = X[2] + X[3] - X[4];
  X[0] = X[1] + X[2] - X[3];
  X[n + 2] = X[n + 1] + X[n] - X[n - 1];
  X[n + 3] = X[n + 2] + X[n + 1] - X[n];
  const auto TakeSlope = [&](std::size_t k) { S[k] = (A[k + 1] - A[k]) / (X[k + 1] - X[k]); };
  for (std::size_t k = 2; k <= n; ++k) TakeSlope(k);
  A[1] = (X[2] - X[1]) * (S[3] - 2 * S[2]) + A[2];
  TakeSlope(1);
  A[0] = (X[1] - X[0]) * (S[2] - 2 * S[1]) + A[1];
  TakeSlope(0);
  A[n + 2] = (2 * S[n] - S[n - 1]) * (X[n + 2] - X[n + 1]) + A[n + 1];
  TakeSlope(n + 1);
  A[n + 3] = (2 * S[n + 1] - S[n]) * (X[n + 3] - X[n + 2]) + A[n + 2];
  TakeSlope(n + 2);
  const auto SlopeAt = [&S](std::size_t k) {
    const double Right = std::fabs(S[k + 1] - S[k]), Left = std::fabs(S[k - 1] - S[k - 2]);
    return Left == 0 && Right == 0 ? (S[k + 1] + S[k]) / 2 : (Right * S[k - 1] + Left * S[k]) / (Right + Left);
  };
  FX.assign(X.begin() + 2, X.end() - 1);
  FPieces.resize(n + 1);
  double B = SlopeAt(2);
  for (std::size_t i = 0; i < n; ++i) {
    const double h = FX[i + 1] - FX[i], NextB = SlopeAt(i + 3);
    FPieces[i] = {A[i + 2], B, (3 * S[i + 2] - 2 * B - NextB) / h, (B + NextB - 2 * S[i + 2]) / (h * h)};
    B = NextB;
  }
  FPieces[n] = {A[n + 2], B, 0, 0};
}

void TZyInterpolationCalculation::NormalSplineCoeffs(const TPoints& Points) {
  const std::vector<double>&X = Points.X, &y = Points.Y;
  const std::size_t n = X.size();
  const auto h = [&X](std::size_t i) { return X[i + 1] - X[i]; };
  const auto s = [&](std::size_t i) { return (y[i + 1] - y[i]) / h(i); };
  std::vector<double> Lower(n - 2), Main(n - 2), Upper(n - 2), Right(n - 2), C(n);
  for (std::size_t i = 0; i + 2 < n; ++i) {
    Right[i] = 3 * (s(i + 1) - s(i));
    Lower[i] = h(i);
    Upper[i] = h(i + 1);
    Main[i] = 2 * (h(i) + h(i + 1));
  }
  if (n == 3) {
    C[0] = C[1] = C[2] = Right[0] / 3 / (Main[0] / 2);
  } else {
    Right[0] *= h(1) / (h(0) + h(1));
    Right[n - 3] *= h(n - 3) / (h(n - 2) + h(n - 3));
    Main[0] -= h(0);
    Main[n - 3] -= h(n - 2);
    Upper[0] -= h(0);
    Lower[n - 3] -= h(n - 2);
    SolveTridiagonalEquationSystem(static_cast<int>(n - 2), Lower, Main, Upper, Right);
    std::ranges::copy(Right, C.begin() + 1);
    C[0] = (C[1] - C[2]) * (h(0) / h(1)) + C[1];
    C[n - 1] = (C[n - 2] - C[n - 3]) * (h(n - 2) / h(n - 3)) + C[n - 2];
  }
  FX = X;
  FPieces.resize(n);
  for (std::size_t i = 0; i + 1 < n; ++i)
    FPieces[i] = {y[i], s(i) - (2 * C[i] + C[i + 1]) * h(i) / 3, C[i], (C[i + 1] - C[i]) / (3 * h(i))};
  FPieces[n - 1] = {y[n - 1], 0, C[n - 1], 0};
}

/// The equations of the curvatures have a part of the spline, of the size of the distances h, and a part of the
/// smoothing, of the size of 6 / (w h^2): both are computed for a mean distance and a smallest weight of 1, and the
/// smaller one is scaled, so that no stiffness and no unit of X leaves the range of numbers.
void TZyInterpolationCalculation::ApproximativeSplineCoeffs(const TPoints& Points) {
  const std::vector<double>&X = Points.X, &Y = Points.Y, &W = Points.W;
  const std::size_t n = X.size();
  const double Unit = X[n - 1] / static_cast<double>(n - 1) - X[0] / static_cast<double>(n - 1);
  const double Lightest = std::ranges::min(W);
  const double Ratio = Unit * Unit * Unit * (Lightest * FElasticityFactor) / 6;
  const double OfSpline = std::min(1.0, Ratio), OfSmoothing = Ratio > 1 ? 1 / Ratio : 1;
  std::vector<double> h(n - 1), r(n - 1), C(n);
  for (std::size_t i = 0; i + 1 < n; ++i) {
    h[i] = (X[i + 1] - X[i]) / Unit;
    r[i] = 1 / h[i];
  }
  const auto Softness = [&](std::size_t i) { return Lightest / W[i]; };  // 6 / w, of the lightest point
  const auto D = [&](std::size_t i) { return r[i - 1] + r[i]; };
  constexpr std::size_t Columns = 5;
  std::vector<double> Rows((n - 2) * Columns);
  const auto M = [&](std::size_t i, std::size_t k) -> double& { return Rows[i * Columns + k]; };
  for (std::size_t i = 0; i + 2 < n; ++i) {
    if (i >= 2) M(i, 0) = M(i - 2, 4) = OfSmoothing * (Softness(i) * r[i - 1] * r[i]);
    if (i >= 1)
      M(i, 1) = M(i - 1, 3) =
          OfSpline * h[i] - OfSmoothing * (Softness(i) * r[i] * D(i) + Softness(i + 1) * r[i] * D(i + 1));
    M(i, 2) = OfSpline * 2 * (h[i] + h[i + 1]) +
              OfSmoothing * (Softness(i) * r[i] * r[i] + Softness(i + 1) * D(i + 1) * D(i + 1) +
                             Softness(i + 2) * r[i + 1] * r[i + 1]);
    C[i] = 3 * ((Y[i + 2] - Y[i + 1]) * r[i + 1] - (Y[i + 1] - Y[i]) * r[i]);
  }
  SolveBandMatrix(static_cast<int>(n - 2), 2, 2, Rows, C);
  std::copy_backward(C.begin(), C.end() - 2, C.end() - 1);
  C[0] = C[n - 1] = 0;
  FX = X;
  FX.push_back(X[n - 1]);
  FPieces.resize(n + 1);
  const double Third = OfSmoothing / 3;
  for (std::size_t i = 0; i < n; ++i) {
    const double Before = i > 0 ? (C[i] - C[i - 1]) * r[i - 1] : 0, After = i + 1 < n ? (C[i + 1] - C[i]) * r[i] : 0;
    FPieces[i].A = Y[i] - (After - Before) * (Softness(i) * Third);
  }
  for (double& Each : C) Each *= OfSpline;
  for (std::size_t i = 0; i + 1 < n; ++i) {
    TPiece& P = FPieces[i];
    P.B = ((FPieces[i + 1].A - P.A) * r[i] - h[i] / 3 * (2 * C[i] + C[i + 1])) / Unit;
    P.C = C[i] / Unit / Unit;
    P.D = r[i] / 3 * (C[i + 1] - C[i]) / Unit / Unit / Unit;
  }
  FPieces[n - 1].B = FPieces[n - 2].B;
  FPieces[n] = FPieces[n - 1];
}

}  // namespace zy
