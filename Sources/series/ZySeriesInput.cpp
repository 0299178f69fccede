#include "series/ZySeriesInput.h"

#include <utility>

#include "series/ZySeries.h"

namespace zy {

TZySeriesInput::TZySeriesInput(TZySeries& Series, const char* PropName, TZyInputUse Use)
    : FSeries(Series), FPropName(PropName), FUse(Use), FVector(&Series) {
  FSeries.EnterInput(*this);
}

TZySeriesInput::~TZySeriesInput() { FSeries.LeaveInput(*this); }

double TZySeriesInput::Transform(double Value, int Idx) const {
  return mTransformation ? mTransformation(&FSeries, {Value, Idx}) : Value;
}

void TZySeriesInput::SwapWith(TZySeriesInput& Other) {
  TZyCustomDoubleVector* const Own = FVector;
  FVector = Other.FVector.Get();
  Other.FVector = Own;
  std::swap(mTransformation, Other.mTransformation);
}

}  // namespace zy
