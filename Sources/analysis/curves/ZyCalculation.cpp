#include "analysis/curves/ZyCalculation.h"

#include <algorithm>
#include <cmath>

#include "analysis/ZyMathSorting.h"
#include "platform/framework/WideRegisters.h"
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
    : FCalculation(Calculation),
      FReadsPlainly(Calculation.ReadsPlainly()),
      FReadsAll(Calculation.XData->Minimum() >= Calculation.Start && Calculation.XData->Maximum() <= Calculation.Stop) {
  ClearWideRegisters();  // sums, logarithms and exponentials of many points follow
  for (const TZyCustomDoubleVector* Vector : {Calculation.XData, Calculation.YData, Calculation.Weight})
    if (Vector != nullptr && Vector->AnyOutliers() && !Calculation.OutliersVisible) FReadsPlainly = false;
}

void TZyCalculation::TReader::Read(int First, int Count, TBlock& Block) const {
  if (FReadsPlainly) return ReadPlainly(First, Count, Block);
  for (int i = First; i < First + Count; ++i) {
    if (!FCalculation.IsValid(i)) continue;
    const auto Place = static_cast<std::size_t>(Block.Count++);
    Block.OfX[Place] = FCalculation.Xi(i);
    Block.OfY[Place] = FCalculation.Yi(i);
    Block.OfW[Place] = FCalculation.Wi(i);
  }
  Block.X = Block.OfX.data();
  Block.Y = Block.OfY.data();
  Block.W = Block.OfW.data();
}

void TZyCalculation::TReader::ReadPlainly(int First, int Count, TBlock& Block) const {
  static const std::array<double, BlockSize> Ones = [] {
    std::array<double, BlockSize> Result;
    Result.fill(1);
    return Result;
  }();
  Block.Count = Count;
  Block.X = FCalculation.XData->ValuesAt(First, Count, Block.OfX).data();
  Block.Y = FCalculation.YData->ValuesAt(First, Count, Block.OfY).data();
  Block.W =
      FCalculation.Weight == nullptr ? Ones.data() : FCalculation.Weight->ValuesAt(First, Count, Block.OfW).data();
  if (!FReadsAll) KeepWithin(FCalculation.Start, FCalculation.Stop, Block);
}

/// Each value is written, and kept by moving on: the bounds divide the points in no order that a processor could
/// foresee.
void TZyCalculation::TReader::KeepWithin(double Start, double Stop, TBlock& Block) {
  std::size_t Kept = 0;
  for (int i = 0; i < Block.Count; ++i) {
    const double X = Block.X[i], Y = Block.Y[i], W = Block.W[i];
    Block.OfX[Kept] = X;
    Block.OfY[Kept] = Y;
    Block.OfW[Kept] = W;
    Kept += !(X < Start || X > Stop) ? 1 : 0;
  }
  Block.Count = static_cast<int>(Kept);
  Block.X = Block.OfX.data();
  Block.Y = Block.OfY.data();
  Block.W = Block.OfW.data();
}

TZyCalculation::TPoints TZyCalculation::ValidPoints(bool WithWeightZero, bool WithWeights) const {
  TPoints Points;
  const auto Count = static_cast<std::size_t>(PointCount());
  Points.X.reserve(Count);
  Points.Y.reserve(Count);
  if (WithWeights) Points.W.reserve(Count);
  ForEachFiniteBlock(WithWeightZero, [&](auto X, auto Y, auto W) {
    Points.X.insert(Points.X.end(), X.begin(), X.end());
    Points.Y.insert(Points.Y.end(), Y.begin(), Y.end());
    if (WithWeights) Points.W.insert(Points.W.end(), W.begin(), W.end());
  });
  if (!XData->OnlyAscending()) Points.Sort();
  return Points;
}

void TZyCalculation::TPoints::Sort() {
  if (W.empty()) {
    QuickSortYtoX(0, Count() - 1, X, Y);
  } else {
    QuickSortYWtoX(0, Count() - 1, X, Y, W);
  }
}

}  // namespace zy
