#include <algorithm>
#include <cmath>

#include "analysis/ZyDoubleDouble.h"
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

/// The equations of the curvatures (half the second derivatives at the points) have a part of the spline, of the size
/// of the distances h, and a part of the smoothing, of the size of 6 / (w h^2). Both are computed for a mean distance
/// and a smallest weight of 1, and the smaller one is scaled, so that no stiffness and no unit of X leaves the range of
/// numbers. They are symmetric with five diagonals, and each is eliminated as soon as it is computed, by
/// square-root-free factors (G. H. Golub, C. F. Van Loan, "Matrix Computations", 4th edition, 2013, chapter 4.3).
///
/// A stiff spline loses as many digits as the fourth power of the number of points that it smooths over has: a double
/// has none left beyond some ten thousand of them.
void TZyInterpolationCalculation::ApproximativeSplineCoeffs(const TPoints& Points) {
  using T = TZyDoubleDouble;
  const std::vector<double>&X = Points.X, &Y = Points.Y, &W = Points.W;
  const std::size_t n = X.size();
  const double Unit = X[n - 1] / static_cast<double>(n - 1) - X[0] / static_cast<double>(n - 1);
  const double Lightest = std::ranges::min(W);
  const double Ratio = Unit * Unit * Unit * (Lightest * FElasticityFactor) / 6;
  const double OfSpline = std::min(1.0, Ratio), OfSmoothing = Ratio > 1 ? 1 / Ratio : 1;
  struct TRow {
    T Distance, Reciprocal;  // from point i to the next
    T Left, FarLeft, Right;  // of the equation of point i + 1
    T OfPivot;               // 1 by the pivot
  };
  std::vector<TRow> Rows(n);
  const T PerUnit = T(1) / Unit;
  for (std::size_t i = 0; i + 1 < n; ++i) {
    const T Distance = T::Difference(X[i + 1], X[i]);
    Rows[i].Distance = Distance * PerUnit;
    Rows[i].Reciprocal = T(Unit) / Distance;
  }
  const auto Softness = [&](std::size_t i) {  // 6 / w
    return W[i] == Lightest ? T(OfSmoothing) : T(Lightest * OfSmoothing) / W[i];
  };
  const auto SlopeAt = [&](std::size_t i) { return T::Difference(Y[i + 1], Y[i]) * Rows[i].Reciprocal; };
  T Softness0 = Softness(0), Softness1 = Softness(1), Slope = SlopeAt(0), Sum;
  for (std::size_t i = 0; i + 2 < n; ++i) {
    TRow& Row = Rows[i];
    const T &h = Row.Distance, &r = Row.Reciprocal, &NextR = Rows[i + 1].Reciprocal;
    const T Softness2 = Softness(i + 2), NextSlope = SlopeAt(i + 1), NextSum = r + NextR;
    const T Soft1 = Softness1 * NextSum;
    T Pivot =
        T(2 * OfSpline) * (h + Rows[i + 1].Distance) + Softness0 * r * r + Soft1 * NextSum + Softness2 * NextR * NextR;
    Row.Right = T(3) * (NextSlope - Slope);
    if (i >= 1) {
      const TRow& Last = Rows[i - 1];
      T Beside = T(OfSpline) * h - (Softness0 * Sum + Soft1) * r;
      if (i >= 2) {
        const TRow& BeforeLast = Rows[i - 2];
        const T Far = Softness0 * Last.Reciprocal * r;
        Row.FarLeft = Far * BeforeLast.OfPivot;
        Pivot = Pivot - Row.FarLeft * Far;
        Row.Right = Row.Right - Row.FarLeft * BeforeLast.Right;
        Beside = Beside - Far * Last.Left;
      }
      Row.Left = Beside * Last.OfPivot;
      Pivot = Pivot - Row.Left * Beside;
      Row.Right = Row.Right - Row.Left * Last.Right;
    }
    Row.OfPivot = T(1) / Pivot;
    Softness0 = Softness1;
    Softness1 = Softness2;
    Slope = NextSlope;
    Sum = NextSum;
  }
  for (std::size_t i = n - 2; i-- > 0;) {
    Rows[i].Right = Rows[i].Right * Rows[i].OfPivot;
    if (i + 3 < n) Rows[i].Right = Rows[i].Right - Rows[i + 1].Left * Rows[i + 1].Right;
    if (i + 4 < n) Rows[i].Right = Rows[i].Right - Rows[i + 2].FarLeft * Rows[i + 2].Right;
  }
  const auto CurvatureAt = [&](std::size_t i) { return i == 0 || i + 1 == n ? T(0) : Rows[i - 1].Right; };
  FX = X;
  FX.push_back(X[n - 1]);
  FPieces.resize(n + 1);
  const T Third = T(1) / 3;
  T Before, Value;
  for (std::size_t i = 0; i < n; ++i) {
    const T After = i + 1 < n ? (CurvatureAt(i + 1) - CurvatureAt(i)) * Rows[i].Reciprocal : T(0);
    const T NextValue = T(Y[i]) - (After - Before) * (Softness(i) * Third);
    if (i > 0) {  // the piece before the point
      const auto h = static_cast<double>(Rows[i - 1].Distance);
      const auto Rise = static_cast<double>(NextValue - Value), Bend = OfSpline * static_cast<double>(Before);
      const double C = OfSpline * static_cast<double>(CurvatureAt(i - 1));
      const double NextC = OfSpline * static_cast<double>(CurvatureAt(i));
      FPieces[i - 1] = {static_cast<double>(Value), (Rise / h - h / 3 * (2 * C + NextC)) / Unit, C / Unit / Unit,
                        Bend / 3 / Unit / Unit / Unit};
    }
    Value = NextValue;
    Before = After;
  }
  FPieces[n - 1] = {static_cast<double>(Value), FPieces[n - 2].B, 0, 0};
  FPieces[n] = FPieces[n - 1];
}

}  // namespace zy
