#include "series/ZySeriesInput.h"

#include <utility>

#include "series/ZySeries.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

TZySeriesInput::TZySeriesInput(TZySeries& Series, const char* PropName, TZyInputUse Use)
    : FSeries(Series), FPropName(PropName), FUse(Use), FVector(&Series) {
  FSeries.EnterInput(*this);
}

TZySeriesInput::~TZySeriesInput() { FSeries.LeaveInput(*this); }

double TZySeriesInput::Transform(double Value, int Idx) const {
  if (!mTransformation) return Value;
  const unsigned Before = FChanges;
  const double Result = mTransformation(&FSeries, {Value, Idx});
  TestUnchanged(Before);
  return Result;
}

void TZySeriesInput::TestUnchanged(unsigned Before) {
  if (FChanges != Before) throw EAbort(LoadResString(_sSeriesChanged));
}

std::span<float> TZySeriesInput::AddPixels(int Number) { return FPixels.Extend(Number); }

void TZySeriesInput::SwapWith(TZySeriesInput& Other) {
  NoteChange();
  TZyCustomDoubleVector* const Own = FVector;
  FVector = Other.FVector.Get();
  Other.FVector = Own;
  std::swap(mTransformation, Other.mTransformation);
}

}  // namespace zy
