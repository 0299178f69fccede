#include "analysis/curves/ZyInterpolationCalculation.h"

#include <algorithm>
#include <cmath>

#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

void TZyInterpolationCalculation::Calculate() {
  constexpr int FewestPoints = 3;
  FIntCount = FLastIndex = 0;
  TPoints Points = ValidPoints(false);
  if (!XData->OnlyAscending()) MergeEqualX(Points);
  if (Points.Count() < FewestPoints) throw EMathError(LoadResString(_sNotEnoughData));
  FX = std::move(Points.X);
  FA = std::move(Points.Y);
  AkimaCoeffs();
  FIntCount = static_cast<int>(FC.size());
  FRecalculate = false;
}

/// From the last point to the first, so that three equal ones become one pair by pair.
void TZyInterpolationCalculation::MergeEqualX(TPoints& Points) const {
  std::size_t Kept = Points.X.size();  // those from here on are final
  for (std::size_t i = Points.X.size(); i-- > 0;) {
    if (Kept < Points.X.size() && Points.X[Kept] == Points.X[i]) {
      Points.Y[Kept] = (Points.Y[Kept] + Points.Y[i]) / 2;
      Points.W[Kept] = (Points.W[Kept] + Points.W[i]) / 2;
      continue;
    }
    --Kept;
    Points.X[Kept] = Points.X[i];
    Points.Y[Kept] = Points.Y[i];
    Points.W[Kept] = Points.W[i];
  }
  for (std::vector<double>* Values : {&Points.X, &Points.Y, &Points.W})
    Values->erase(Values->begin(), Values->begin() + static_cast<std::ptrdiff_t>(Kept));
}

/// The data stand at index 2 to n + 1 while two points and slopes are added at each end.
void TZyInterpolationCalculation::AkimaCoeffs() {
  const std::size_t n = FX.size();
  std::vector<double> X(n + 4), A(n + 4), B(n + 4), S(n + 5);
  std::copy(FX.begin(), FX.end(), X.begin() + 2);
  std::copy(FA.begin(), FA.end(), A.begin() + 2);
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
  for (std::size_t k = 2; k <= n + 2; ++k) {
    const double Right = std::fabs(S[k + 1] - S[k]), Left = std::fabs(S[k - 1] - S[k - 2]);
    B[k] = Left == 0 && Right == 0 ? (S[k + 1] + S[k]) / 2 : (Right * S[k - 1] + Left * S[k]) / (Right + Left);
  }
  FX.assign(X.begin() + 2, X.end());
  FA.assign(A.begin() + 2, A.end());
  FB.assign(B.begin() + 2, B.end());
  FC.resize(n);
  FD.resize(n);
  for (std::size_t i = 0; i < n; ++i) {
    const double h = FX[i + 1] - FX[i];
    FC[i] = (3 * S[i + 2] - 2 * FB[i] - FB[i + 1]) / h;
    FD[i] = (FB[i] + FB[i + 1] - 2 * S[i + 2]) / (h * h);
  }
}

int TZyInterpolationCalculation::FindIndex(double x) const {
  if (FIntCount == 0) return 0;
  const auto At = [this](int i) { return FX[static_cast<std::size_t>(i)]; };
  if (x >= At(FIntCount - 1)) return FIntCount - 1;
  const auto Holds = [&](int k) { return k < FIntCount - 1 && (k == 0 || At(k) <= x) && x < At(k + 1); };
  for (const int k : {FLastIndex, FLastIndex + 1})
    if (Holds(k)) return FLastIndex = k;
  const auto First = FX.begin() + 1;
  return FLastIndex = static_cast<int>(std::upper_bound(First, FX.begin() + FIntCount, x) - First);
}

double TZyInterpolationCalculation::DYAtK(int k, double t) const {
  const auto i = static_cast<std::size_t>(k);
  return ((FD[i] * t + FC[i]) * t + FB[i]) * t + FA[i];
}

double TZyInterpolationCalculation::DSlopeAtK(int k, double t) const {
  const auto i = static_cast<std::size_t>(k);
  return (2 * FC[i] + 3 * FD[i] * t) * t + FB[i];
}

double TZyInterpolationCalculation::Interpolate(double x) {
  if (FRecalculate) Calculate();
  const int k = FindIndex(x);
  return FIntCount == 0 ? 0 : DYAtK(k, x - FX[static_cast<std::size_t>(k)]);
}

}  // namespace zy
