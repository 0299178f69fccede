#include "analysis/curves/ZyCalculation.h"

#include <algorithm>
#include <cmath>

#include "analysis/ZyMathSorting.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

double Transform(const TZyValueTransformation& Transformation, TObject* Sender, double Value, int i) {
  return Transformation ? Transformation(Sender, {Value, i}) : Value;
}

}  // namespace

double TZyCalculation::Xi(int i) const { return Transform(mXValueTransformation, Sender, XData->GetValue(i), i); }

double TZyCalculation::Yi(int i) const { return Transform(mYValueTransformation, Sender, YData->GetValue(i), i); }

double TZyCalculation::Wi(int i) const {
  if (Weight == nullptr) return 1;
  return std::fabs(Transform(mWeightValueTransformation, Sender, std::fabs(Weight->GetValue(i)), i));
}

bool TZyCalculation::IsValid(int i) const {
  const double X = XData->GetValue(i);
  if (X < Start || X > Stop) return false;
  if (OutliersVisible) return true;
  return !XData->IsOutlier(i) && !YData->IsOutlier(i) && (Weight == nullptr || !Weight->IsOutlier(i));
}

int TZyCalculation::PointCount() const {
  if (XData == nullptr) throw EMathError(LoadResString(_sNoCalculationX));
  if (YData == nullptr) throw EMathError(LoadResString(_sNoCalculationY));
  const int Count = std::min(XData->Count(), YData->Count());
  return Weight == nullptr ? Count : std::min(Count, Weight->Count());
}

TZyCalculation::TReader::TReader(const TZyCalculation& Calculation)
    : FCalculation(Calculation), FReadsPlainly(Calculation.ReadsPlainly()) {
  for (const TZyCustomDoubleVector* Vector : {Calculation.XData, Calculation.YData, Calculation.Weight})
    if (Vector != nullptr && Vector->AnyOutliers() && !Calculation.OutliersVisible) FReadsPlainly = false;
}

void TZyCalculation::TReader::Read(int First, int Count, TBlock& Block) const {
  if (FReadsPlainly) return ReadPlainly(First, Count, Block);
  for (int i = First; i < First + Count; ++i) {
    if (!FCalculation.IsValid(i)) continue;
    const auto Place = static_cast<std::size_t>(Block.Count++);
    Block.X[Place] = FCalculation.Xi(i);
    Block.Y[Place] = FCalculation.Yi(i);
    Block.W[Place] = FCalculation.Wi(i);
  }
}

/// Each value is written, and kept by moving on: the bounds divide the points in no order that a processor could
/// foresee.
void TZyCalculation::TReader::ReadPlainly(int First, int Count, TBlock& Block) const {
  std::array<double, BlockSize> X, Y, W;
  const auto XValues = FCalculation.XData->ValuesAt(First, Count, X);
  const auto YValues = FCalculation.YData->ValuesAt(First, Count, Y);
  if (FCalculation.Weight == nullptr) W.fill(1);
  const std::span<const double> WValues =
      FCalculation.Weight == nullptr ? W : FCalculation.Weight->ValuesAt(First, Count, W);
  const double Start = FCalculation.Start, Stop = FCalculation.Stop;
  std::size_t Kept = 0;
  for (std::size_t i = 0; i < static_cast<std::size_t>(Count); ++i) {
    Block.X[Kept] = XValues[i];
    Block.Y[Kept] = YValues[i];
    Block.W[Kept] = std::fabs(WValues[i]);
    Kept += !(XValues[i] < Start || XValues[i] > Stop) ? 1 : 0;
  }
  Block.Count = static_cast<int>(Kept);
}

TZyCalculation::TPoints TZyCalculation::ValidPoints(bool WithWeightZero) const {
  TPoints Points;
  const auto Count = static_cast<std::size_t>(PointCount());
  for (std::vector<double>* Values : {&Points.X, &Points.Y, &Points.W}) Values->resize(Count);
  std::size_t Kept = 0;
  ForEachPoint([&](double X, double Y, double W) {
    if (W == 0 && !WithWeightZero) return;
    Points.X[Kept] = X;
    Points.Y[Kept] = Y;
    Points.W[Kept] = W;
    ++Kept;
  });
  for (std::vector<double>* Values : {&Points.X, &Points.Y, &Points.W}) Values->resize(Kept);
  if (!XData->OnlyAscending()) QuickSortYWtoX(0, Points.Count() - 1, Points.X, Points.Y, Points.W);
  return Points;
}

}  // namespace zy
