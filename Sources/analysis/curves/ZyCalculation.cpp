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

TZyCalculation::TPoints TZyCalculation::ValidPoints(bool WithWeightZero) const {
  TPoints Points;
  const int Count = PointCount();
  for (std::vector<double>* Values : {&Points.X, &Points.Y, &Points.W})
    Values->reserve(static_cast<std::size_t>(Count));
  for (int i = 0; i < Count; ++i) {
    if (!IsValid(i)) continue;
    const double X = Xi(i), Y = Yi(i), W = Wi(i);
    if (!std::isfinite(X) || !std::isfinite(Y) || !std::isfinite(W) || (W == 0 && !WithWeightZero)) continue;
    Points.X.push_back(X);
    Points.Y.push_back(Y);
    Points.W.push_back(W);
  }
  if (!XData->OnlyAscending()) QuickSortYWtoX(0, Points.Count() - 1, Points.X, Points.Y, Points.W);
  return Points;
}

}  // namespace zy
