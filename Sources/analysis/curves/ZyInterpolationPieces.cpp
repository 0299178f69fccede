#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "analysis/ZyDoubleDouble.h"
#include "analysis/curves/ZyInterpolationCalculation.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

/// Two points and slopes are added at each end. The slope behind the last added point counts as 0.
void TZyInterpolationCalculation::AkimaCoeffs(TPoints&& Points) {
  struct TKnot {
    double X, A;
  };
  const auto SlopeOf = [](const TKnot& One, const TKnot& Next) { return (Next.A - One.A) / (Next.X - One.X); };
  const std::size_t n = Points.X.size();
  const auto At = [&Points](std::size_t i) { return TKnot{Points.X[i], Points.Y[i]}; };
  // Before the first point: two steps like those of the points, with slopes that go on as theirs do.
  const double First = SlopeOf(At(0), At(1)), Second = SlopeOf(At(1), At(2));
  TKnot Before{At(0).X + At(1).X - At(2).X, 0}, FarBefore{Before.X + At(0).X - At(1).X, 0};
  Before.A = (At(0).X - Before.X) * (Second - 2 * First) + At(0).A;
  const double BeforeFirst = SlopeOf(Before, At(0));
  FarBefore.A = (Before.X - FarBefore.X) * (First - 2 * BeforeFirst) + Before.A;
  // And behind the last.
  const double Last = SlopeOf(At(n - 2), At(n - 1)), LastButOne = SlopeOf(At(n - 3), At(n - 2));
  TKnot Behind{At(n - 1).X + At(n - 2).X - At(n - 3).X, 0}, FarBehind{Behind.X + At(n - 1).X - At(n - 2).X, 0};
  Behind.A = (2 * Last - LastButOne) * (Behind.X - At(n - 1).X) + At(n - 1).A;
  const double BehindLast = SlopeOf(At(n - 1), Behind);
  FarBehind.A = (2 * BehindLast - Last) * (FarBehind.X - Behind.X) + Behind.A;
  const double Added[] = {BehindLast, SlopeOf(Behind, FarBehind), 0};

  FX = std::move(Points.X);
  FX.push_back(Behind.X);
  const std::vector<double>& Y = Points.Y;
  FPieces.resize(n + 1);
  // The slopes of the two pieces before a point, and of the two behind it.
  double S0 = SlopeOf(FarBefore, Before), S1 = BeforeFirst, S2 = First, S3 = Second;
  const auto SlopeHere = [&] {
    const double Right = std::fabs(S3 - S2), Left = std::fabs(S1 - S0);
    return Left == 0 && Right == 0 ? (S3 + S2) / 2 : (Right * S1 + Left * S2) / (Right + Left);
  };
  double B = SlopeHere();
  for (std::size_t i = 0; i < n; ++i) {
    const double r = 1 / (FX[i + 1] - FX[i]), S = S2;
    S0 = S1;
    S1 = S2;
    S2 = S3;
    S3 = i + 3 < n ? (Y[i + 3] - Y[i + 2]) / (FX[i + 3] - FX[i + 2]) : Added[i + 3 - n];
    const double NextB = SlopeHere();
    FPieces[i] = {Y[i], B, (3 * S - 2 * B - NextB) * r, (B + NextB - 2 * S) * r * r};
    B = NextB;
  }
  FPieces[n] = {Behind.A, B, 0, 0};
}

/// The equations of the curvatures have three diagonals and are eliminated as they are computed (see
/// SolveTridiagonalEquationSystem): on the way there a piece keeps its slope, what is left of the right side of its
/// equation, and what its pivot leaves of the diagonal above.
void TZyInterpolationCalculation::NormalSplineCoeffs(TPoints&& Points) {
  constexpr double NoPivot = 10 * std::numeric_limits<double>::denorm_min();
  FX = std::move(Points.X);
  const std::vector<double>& y = Points.Y;
  const std::size_t n = FX.size();
  const auto h = [this](std::size_t i) { return FX[i + 1] - FX[i]; };
  FPieces.resize(n);
  double Step = h(0), Slope = (y[1] - y[0]) / Step, LastRatio = 0, LastRight = 0;
  FPieces[0] = {y[0], Slope, 0, 0};
  for (std::size_t i = 1; i + 1 < n; ++i) {
    const double NextStep = h(i), NextSlope = (y[i + 1] - y[i]) / NextStep;
    double Lower = Step, Main = 2 * (Step + NextStep), Upper = NextStep, Right = 3 * (NextSlope - Slope);
    if (n == 3) {  // one curvature for both pieces
      Right /= 3;
      Main /= 2;
    } else if (i == 1) {
      Right *= NextStep / (Step + NextStep);
      Main -= Step;
      Upper -= Step;
    } else if (i + 2 == n) {
      Right *= Step / (Step + NextStep);
      Main -= NextStep;
      Lower -= NextStep;
    }
    const double Pivot = Main - Lower * LastRatio;
    if (!(std::fabs(Pivot) >= NoPivot)) throw EMathError(LoadResString(_sMatrixNotTridiag));
    LastRatio = Upper / Pivot;
    LastRight = (Right - Lower * LastRight) / Pivot;
    FPieces[i] = {y[i], NextSlope, LastRight, LastRatio};
    Step = NextStep;
    Slope = NextSlope;
  }
  // Where the last point is not the end of a piece of its own: the third derivative goes on.
  const double Last = LastRight, LastButOne = n == 3 ? Last : FPieces[n - 3].C - FPieces[n - 3].D * Last;
  double NextC = n == 3 ? Last : (Last - LastButOne) * (h(n - 2) / h(n - 3)) + Last;
  FPieces[n - 1] = {y[n - 1], 0, NextC, 0};
  FPieces[n - 2].D = 0;  // nothing follows the last equation
  for (std::size_t i = n - 1; i-- > 0;) {
    TPiece& P = FPieces[i];
    const double Width = h(i);
    double C = P.C - P.D * NextC;
    if (i == 0) C = n == 3 ? NextC : (NextC - FPieces[2].C) * (Width / h(1)) + NextC;
    P = {P.A, P.B - (2 * C + NextC) * Width / 3, C, (NextC - C) / (3 * Width)};
    NextC = C;
  }
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
  const auto Softness = [&](std::size_t i) { return Lightest * OfSmoothing / W[i]; };  // 6 / w
  const auto SlopeAt = [&](std::size_t i) { return T::Difference(Y[i + 1], Y[i]) * Rows[i].Reciprocal; };
  double Softness0 = Softness(0), Softness1 = Softness(1);
  T Slope = SlopeAt(0), Sum;
  for (std::size_t i = 0; i + 2 < n; ++i) {
    TRow& Row = Rows[i];
    const T &h = Row.Distance, &r = Row.Reciprocal, &NextR = Rows[i + 1].Reciprocal;
    const double Softness2 = Softness(i + 2);
    const T NextSlope = SlopeAt(i + 1), NextSum = r + NextR;
    const T Soft1 = NextSum * Softness1;
    T Pivot =
        (h + Rows[i + 1].Distance) * (2 * OfSpline) + r * r * Softness0 + Soft1 * NextSum + NextR * NextR * Softness2;
    Row.Right = (NextSlope - Slope) * 3;
    if (i >= 1) {
      const TRow& Last = Rows[i - 1];
      T Beside = h * OfSpline - (Sum * Softness0 + Soft1) * r;
      if (i >= 2) {
        const TRow& BeforeLast = Rows[i - 2];
        const T Far = Last.Reciprocal * r * Softness0;
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
  T Before, Value;
  for (std::size_t i = 0; i < n; ++i) {
    const T After = i + 1 < n ? (CurvatureAt(i + 1) - CurvatureAt(i)) * Rows[i].Reciprocal : T(0);
    const T NextValue = T(Y[i]) - (After - Before) * (Softness(i) / 3);
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
