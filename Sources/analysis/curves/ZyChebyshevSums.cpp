#include "analysis/curves/ZyChebyshevSums.h"

#include <array>
#include <cmath>

namespace zy {
namespace {

constexpr std::size_t Lanes = 8;  // sums side by side, which the compiler turns into wide ones

/// The sum of Of(i) for all i below Count.
template <class T>
double Sum(std::size_t Count, const T& Of) {
  std::array<double, Lanes> Sums{};
  std::size_t i = 0;
  for (; i + Lanes <= Count; i += Lanes)
    for (std::size_t Lane = 0; Lane < Lanes; ++Lane) Sums[Lane] += Of(i + Lane);
  double Result = 0;
  for (; i < Count; ++i) Result += Of(i);
  for (const double Each : Sums) Result += Each;
  return Result;
}

}  // namespace

TZyChebyshevSums::TZyChebyshevSums(double Low, double High, int Order)
    : FCount(static_cast<std::size_t>(Order) + 1),
      FMiddle(Low / 2 + High / 2),
      FHalf(High / 2 - Low / 2),
      FSums(2 * FCount - 1),
      FSumsOfY(FCount) {}

void TZyChebyshevSums::Add(std::span<const double> X, std::span<const double> Y, std::span<const double> W) {
  const std::size_t Count = X.size();
  FPlace.resize(Count);
  FLast.assign(W.begin(), W.end());  // the weights go along, since the recurrence is linear
  FNow.resize(Count);
  for (std::size_t i = 0; i < Count; ++i) FPlace[i] = (X[i] - FMiddle) / FHalf;
  for (std::size_t i = 0; i < Count; ++i) FNow[i] = FPlace[i] * W[i];
  for (std::size_t m = 0; m < FSums.size(); ++m) {
    FSums[m] += Sum(Count, [T = FLast.data()](std::size_t i) { return T[i]; });
    if (m < FCount) FSumsOfY[m] += Sum(Count, [T = FLast.data(), Y](std::size_t i) { return T[i] * Y[i]; });
    for (std::size_t i = 0; i < Count; ++i) {
      const double Next = 2 * FPlace[i] * FNow[i] - FLast[i];
      FLast[i] = FNow[i];
      FNow[i] = Next;
    }
  }
}

/// The triangle of T by A. L. Cholesky's decomposition of the products of all pairs.
bool TZyChebyshevSums::TakeRoot(TZyWideColumns& Root, TZyWideColumn& Right) const {
  constexpr TZyWideReal LeastPart = 1e-4L;  // of its square that a T may share with no other one
  for (std::size_t j = 0; j < FCount; ++j) {
    TZyWideReal Own = (FSums[2 * j] + FSums[0]) / 2;
    const TZyWideReal Whole = Own;
    for (std::size_t i = 0; i < j; ++i) {
      TZyWideReal Share = (FSums[i + j] + FSums[j - i]) / 2;
      for (std::size_t k = 0; k < i; ++k) Share -= Root[i][k] * Root[j][k];
      Root[j][i] = Share / Root[i][i];
      Own -= Root[j][i] * Root[j][i];
    }
    if (!(Own > LeastPart * Whole) || !std::isfinite(Own)) return false;
    Root[j][j] = std::sqrt(Own);
    TZyWideReal Value = FSumsOfY[j];
    for (std::size_t k = 0; k < j; ++k) Value -= Root[j][k] * Right[k];
    Right[j] = Value / Root[j][j];
  }
  return true;
}

/// Each power of x as a sum of T: a column of shares for each power. x is FMiddle + FHalf T[1].
TZyWideColumns TZyChebyshevSums::PowersByT() const {
  TZyWideColumns Powers(FCount, TZyWideColumn(FCount));
  Powers[0][0] = 1;
  for (std::size_t j = 1; j < FCount; ++j) {
    for (std::size_t m = 0; m < j; ++m) {
      const TZyWideReal Share = Powers[j - 1][m], Turned = FHalf * Share / 2;  // 2 T[1] T[m] = T[m+1] + T[|m-1|]
      Powers[j][m] += FMiddle * Share;
      Powers[j][m + 1] += Turned;
      Powers[j][m == 0 ? 1 : m - 1] += Turned;
    }
  }
  return Powers;
}

bool TZyChebyshevSums::TakeTriangle(TZyWideColumns& Triangle) const {
  if (!(FHalf > 0)) return false;
  TZyWideColumns Root(FCount, TZyWideColumn(FCount));
  TZyWideColumn Right(FCount);
  if (!TakeRoot(Root, Right)) return false;
  const TZyWideColumns Powers = PowersByT();
  Triangle.assign(FCount, TZyWideColumn(FCount));
  for (std::size_t j = 0; j < FCount; ++j)
    for (std::size_t i = 0; i <= j; ++i)
      for (std::size_t m = i; m <= j; ++m) Triangle[j][i] += Root[m][i] * Powers[j][m];
  Triangle.push_back(std::move(Right));
  return true;
}

}  // namespace zy
