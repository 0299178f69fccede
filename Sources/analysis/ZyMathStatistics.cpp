#include "analysis/ZyMathStatistics.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "analysis/ZyWindowSums.h"

namespace zy {
namespace {

/// Smooths by distances in Place, which is X or its logarithm.
void SmoothAlong(double Width, std::span<const double> X, std::span<const double> Place, std::span<double> Y) {
  const std::size_t Count = Y.size();
  const auto Distance = [&](std::size_t i, std::size_t k) {
    return X[i] == X[k] ? 0 : std::fabs(Place[i] - Place[k]);  // logarithms may be infinite
  };
  std::vector<double> Smoothed(Count);
  for (std::size_t i = 0; i < Count; ++i) {
    std::size_t Low = i, High = i;
    while (Low > 0 && Distance(i, Low) < Width) --Low;
    while (High < Count - 1 && Distance(i, High) < Width) ++High;
    double Sum = 0, Weights = 0;
    for (std::size_t k = Low; k <= High; ++k) {
      const double Weight = 1 - Distance(i, k) / Width;
      if (!(Weight > 0)) continue;
      Sum += Y[k] * Weight;
      Weights += Weight;
    }
    Smoothed[i] = Weights > 0 ? Sum / Weights : Y[i];
  }
  std::ranges::copy(Smoothed, Y.begin());
}

/// The same of places in order, in a time that does not depend on the width.
void SmoothInOrder(double Width, std::span<const double> Place, std::span<double> Y) {
  const auto Count = static_cast<int>(Y.size());
  std::vector<int> Low(Y.size()), High(Y.size());
  const auto At = [Place](int i) { return Place[static_cast<std::size_t>(i)]; };
  for (int i = 0, First = 0, Last = 0; i < Count; ++i) {
    while (At(i) - At(First) >= Width) ++First;
    Last = std::max(Last, i);
    while (Last + 1 < Count && At(Last + 1) - At(i) < Width) ++Last;
    Low[static_cast<std::size_t>(i)] = First;
    High[static_cast<std::size_t>(i)] = Last;
  }
  const std::vector<double> Ones(Y.size(), 1), Widths(Y.size(), Width);
  const TZyWindowSums Sums(Place, Y, Ones);
  const auto Before = Sums.Run(Low, TZyWindowWeight::Linear, Widths, 0);
  const auto Behind = Sums.RunBehind(High, TZyWindowWeight::Linear, Widths, 0);
  for (std::size_t i = 0; i < Y.size(); ++i)
    Y[i] = (Before[i].WY + Y[i] + Behind[i].WY) / (Before[i].W + 1 + Behind[i].W);
}

bool AreInOrder(double Width, std::span<const double> Place) {
  return std::isfinite(Width) && std::ranges::all_of(Place, [](double Value) { return std::isfinite(Value); }) &&
         std::ranges::is_sorted(Place);
}

constexpr struct {
  double UpTo, Value;
} T95Rows[] = {{1, 12.706}, {2, 4.303},   {3, 3.182},   {4, 2.776},   {5, 2.571},   {6, 2.447},  {7, 2.365},
               {8, 2.306},  {9, 2.262},   {10, 2.228},  {11, 2.201},  {12, 2.179},  {13, 2.16},  {14, 2.145},
               {15, 2.131}, {16, 2.12},   {17, 2.11},   {18, 2.101},  {19, 2.093},  {20, 2.086}, {21, 2.08},
               {22, 2.074}, {23, 2.069},  {24, 2.064},  {25, 2.06},   {26, 2.056},  {27, 2.052}, {28, 2.048},
               {29, 2.045}, {30, 2.042},  {40, 2.021},  {50, 2.009},  {60, 2.0},    {70, 1.994}, {80, 1.99},
               {90, 1.987}, {100, 1.984}, {200, 1.972}, {300, 1.968}, {400, 1.966}, {500, 1.965}};

}  // namespace

void Smooth(double Width, std::span<const double> X, std::span<double> Y) {
  const std::size_t Count = std::min(X.size(), Y.size());
  if (Count < 3 || !(Width > 0)) return;
  if (AreInOrder(Width, X.first(Count))) return SmoothInOrder(Width, X.first(Count), Y.first(Count));
  SmoothAlong(Width, X.first(Count), X.first(Count), Y.first(Count));
}

void SmoothLog10(double Width, std::span<const double> X, std::span<double> Y) {
  const std::size_t Count = std::min(X.size(), Y.size());
  if (Count < 3 || !(Width > 0)) return;
  std::vector<double> Logarithms(Count);
  std::ranges::transform(X.first(Count), Logarithms.begin(), [](double Value) { return std::log10(Value); });
  if (AreInOrder(Width, Logarithms)) return SmoothInOrder(Width, Logarithms, Y.first(Count));
  SmoothAlong(Width, X.first(Count), Logarithms, Y.first(Count));
}

double T95Percent(double DegreesOfFreedom) {
  for (const auto& Row : T95Rows)
    if (!(Row.UpTo < DegreesOfFreedom)) return Row.Value;
  return 1.96;
}

}  // namespace zy
