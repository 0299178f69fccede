#include "analysis/curves/ZySimplexInverse.h"

#include <algorithm>
#include <cmath>

#include "analysis/ZyMathSorting.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr std::size_t FewestPoints = 3;

void TestFinite(const std::vector<double>& Values) {
  const auto IsFinite = [](double Value) { return std::isfinite(Value); };
  if (!std::ranges::all_of(Values, IsFinite)) throw EMathError(LoadResString(_sRecIndef));
}

void TestEnough(const std::vector<double>& Points) {
  if (Points.size() < FewestPoints) throw EMathError(LoadResString(_sNotEnoughDataCovar));
}

}  // namespace

TZySimplexInverse::TZySimplexInverse(std::vector<double> X, std::vector<double> Y) {
  TestEnough(X);
  TestFinite(X);
  TestFinite(Y);
  QuickSortYtoX(0, static_cast<int>(X.size()) - 1, X, Y);
  MergeEqual(X, Y);
  MergeEqual(Y, X);
  TestEnough(X);
  const std::size_t Count = X.size();
  bool Rising = Y[0] < Y[1];
  for (std::size_t Low = 0, High = 1; High < Count; Low = High, ++High, Rising = !Rising) {
    while (High < Count && (Rising ? Y[High - 1] < Y[High] : Y[High - 1] > Y[High])) ++High;
    AddRange(std::span(X).subspan(Low, High - Low), std::span(Y).subspan(Low, High - Low));
    if (FRanges.back()->X.Count() < static_cast<int>(FewestPoints)) {
      FRanges.back()->X.Add(2 * X[High - 1] - X[High - 2]);
      FRanges.back()->Y.Add(2 * Y[High - 1] - Y[High - 2]);
    }
    FRanges.back()->Curve.Calculate();
    FRangeIdx.Add(static_cast<int>(High));
  }
}

/// Of neighbours with one key the first stays, and takes the mean of the last two followers.
void TZySimplexInverse::MergeEqual(std::vector<double>& Key, std::vector<double>& Follower) {
  std::size_t Kept = 0;
  double Last = Follower[0];  // as it came
  for (std::size_t i = 1; i < Key.size(); ++i) {
    const double Here = Follower[i];
    if (Key[i] == Key[Kept]) {
      Follower[Kept] = (Last + Here) / 2;
    } else {
      Key[++Kept] = Key[i];
      Follower[Kept] = Here;
    }
    Last = Here;
  }
  Key.resize(Kept + 1);
  Follower.resize(Kept + 1);
}

void TZySimplexInverse::AddRange(std::span<const double> X, std::span<const double> Y) {
  TRange& Range = *FRanges.emplace_back(std::make_unique<TRange>());
  Range.X.AddRange(X);
  Range.Y.AddRange(Y);
  Range.Curve.XData = &Range.Y;
  Range.Curve.YData = &Range.X;
}

double TZySimplexInverse::XAt(int Index, double Y) const {
  int Range = 0, End = FRangeIdx.Count();
  while (Range < End) {
    const int Middle = Range + (End - Range) / 2;
    if (FRangeIdx.GetValue(Middle) < Index) {
      Range = Middle + 1;
    } else {
      End = Middle;
    }
  }
  FRangeIdx.GetValue(Range);  // throws beyond the last
  return FRanges[static_cast<std::size_t>(Range)]->Curve.Interpolate(Y);
}

}  // namespace zy
