#include "series/ZyDoubleVector.h"

#include <algorithm>
#include <limits>

#include "persistence/ZyIO.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "series/ZyVectors.h"

namespace zy {

ZY_PUBLISHED(TZyDoubleVector, TZyCustomDoubleVector,
             Published<&TZyDoubleVector::PersistentValues, &TZyDoubleVector::SetPersistentValues>("PersistentValues",
                                                                                                  false),
             Published<&TZyDoubleVector::Increment, &TZyDoubleVector::SetIncrement>("Increment", 128),
             Published<&TZyDoubleVector::Capacity, &TZyDoubleVector::SetCapacity>("Capacity", 128))

TZyDoubleVector::TZyDoubleVector(TComponent* Owner) : TZyCustomDoubleVector(Owner) {}

/// What was scanned before stays so: values that are appended move no extreme out of its place, and the next reader
/// only takes the new ones.
template <class T>
void TZyDoubleVector::Append(std::span<const T> Range) {
  if (Range.size() > static_cast<std::size_t>(std::numeric_limits<int>::max() - FCount))
    detail::VectorIndexOutOfRange(std::numeric_limits<int>::max());
  const int NewCount = FCount + static_cast<int>(Range.size());
  FArray.insert(FArray.end(), Range.begin(), Range.end());
  CheckCount(NewCount);
  ResetRelatedSeries();
}

void TZyDoubleVector::AddRange(std::span<const double> Range) { Append(Range); }

void TZyDoubleVector::AddRange(std::span<const float> Range) { Append(Range); }

void TZyDoubleVector::AddRange(std::span<const int> Range) { Append(Range); }

void TZyDoubleVector::SetInternalArray(std::vector<double> Value) {
  if (Value.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
    detail::VectorIndexOutOfRange(std::numeric_limits<int>::max());
  FArray = std::move(Value);
  FCount = static_cast<int>(FArray.size());
  SetCapacity(FCount);
  OutOfRange();
}

void TZyDoubleVector::DefineProperties(TFiler& Filer) {
  TZyCustomDoubleVector::DefineProperties(Filer);
  Filer.DefineProperty(
      "Values",
      [this](TReader& Reader) {
        Clear();
        Reader.ReadListBegin();
        while (!Reader.EndOfList()) SetValue(FCount, GetFloatFromStringOrFloat(Reader));
        Reader.ReadListEnd();
      },
      [this](TWriter& Writer) {
        Writer.WriteListBegin();
        for (const double n : Values()) StoreFloatToString(Writer, n);
        Writer.WriteListEnd();
      },
      FPersistentValues && FCount > 0);
}

}  // namespace zy
