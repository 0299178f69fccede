#include "series/ZyDoubleVector.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "persistence/ZyIO.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "series/ZySeries.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr int SmallestIncrement = 128;
constexpr int LargestReserve = 1 << 20;
constexpr double LargestDouble = std::numeric_limits<double>::max();

[[noreturn]] void IndexOutOfRange(int i) { throw ERangeError(Format(LoadResString(_sVectorIdxOutOfRange), {i})); }

}  // namespace

ZY_PUBLISHED(TZyCustomDoubleVector, TComponent)
ZY_PUBLISHED(TZyDoubleVector, TZyCustomDoubleVector,
             Published<&TZyDoubleVector::PersistentValues, &TZyDoubleVector::SetPersistentValues>("PersistentValues",
                                                                                                  false),
             Published<&TZyDoubleVector::Increment, &TZyDoubleVector::SetIncrement>("Increment", SmallestIncrement),
             Published<&TZyDoubleVector::Capacity, &TZyDoubleVector::SetCapacity>("Capacity", SmallestIncrement))

TZyCustomDoubleVector::TZyCustomDoubleVector(TComponent* Owner)
    : TComponent(Owner), FMinimum(LargestDouble), FMaximum(-LargestDouble) {}

TZyCustomDoubleVector::~TZyCustomDoubleVector() { Destroying(); }

double TZyCustomDoubleVector::GetValue(int i) const {
  if (i < 0 || i >= FCount) IndexOutOfRange(i);
  return FArray[static_cast<std::size_t>(i)];
}

void TZyCustomDoubleVector::SetValue(int i, double n) {
  if (i < 0 || i == std::numeric_limits<int>::max()) IndexOutOfRange(i);
  CheckCount(i + 1);
  double& Stored = FArray[static_cast<std::size_t>(i)];
  if (i < FLastCount && Stored == n) return;
  bool RangesGo = false;
  if (i < FLastCount) {
    // A sum with an infinity or not-a-number in it cannot be adjusted, and a value out of order must be seen by a scan.
    RangesGo = i == FMinimumIdx || i == FMaximumIdx || n < FMinimum || n > FMaximum || !std::isfinite(Stored) ||
               (FOnlyAscending && !StandsInOrder(i, n));
    FSum += n - Stored;
  }
  Stored = n;
  if (RangesGo) {
    OutOfRange();
  } else {
    InvalidateRelatedSeries();
  }
}

/// Whether n at index i would be greater than the value before it and smaller than the scanned one behind it.
bool TZyCustomDoubleVector::StandsInOrder(int i, double n) const {
  const auto At = static_cast<std::size_t>(i);
  return (i == 0 || n > FArray[At - 1]) && (i + 1 >= FLastCount || n < FArray[At + 1]);
}

int TZyCustomDoubleVector::Add(double n) {
  SetValue(FCount, n);
  return FCount;
}

void TZyCustomDoubleVector::Clear() {
  FCount = 0;
  FArray.clear();
  ResetRanges();
  for (TZySeries* Series : FRelatedSeries) Series->RangesModified();
}

void TZyCustomDoubleVector::SetCapacity(int Value) {
  if (Value <= FCount || Value == FCapacity) return;
  FCapacity = Value;
  // A stored chart may name any capacity: memory is set aside for a bounded part of it only, and the rest on demand.
  FArray.reserve(static_cast<std::size_t>(std::min<std::int64_t>(Value, std::int64_t{FCount} + LargestReserve)));
}

void TZyCustomDoubleVector::SetIncrement(int Value) {
  if (Value >= SmallestIncrement) FIncrement = Value;
}

/// The capacity that is told grows by fixed steps; the storage behind it grows by doubling, so that single appends cost
/// linear time.
void TZyCustomDoubleVector::CheckCount(int NewCount) {
  if (FCapacity < NewCount) {
    const std::int64_t Steps = (std::int64_t{NewCount} - FCapacity + FIncrement - 1) / FIncrement;
    FCapacity =
        static_cast<int>(std::min<std::int64_t>(FCapacity + Steps * FIncrement, std::numeric_limits<int>::max()));
  }
  if (FCount >= NewCount) return;
  FArray.resize(static_cast<std::size_t>(NewCount));
  FCount = NewCount;
}

void TZyCustomDoubleVector::CheckMinMax() {
  for (int i = FLastCount; i < FCount; ++i) {
    const double Value = FArray[static_cast<std::size_t>(i)];
    if (Value < FMinimum) {
      FMinimum = Value;
      FMinimumIdx = i;
    }
    if (Value > FMaximum) {
      FMaximum = Value;
      FMaximumIdx = i;
    }
    if (i > 0 && FOnlyAscending) FOnlyAscending = Value > FArray[static_cast<std::size_t>(i - 1)];
    FSum += Value;
  }
  FLastCount = FCount;
}

void TZyCustomDoubleVector::ResetRanges() {
  FLastCount = 0;
  FMinimum = LargestDouble;
  FMaximum = -LargestDouble;
  FMinimumIdx = FMaximumIdx = -1;
  FSum = 0;
}

void TZyCustomDoubleVector::OutOfRange() {
  ResetRanges();
  ResetRelatedSeries();
}

void TZyCustomDoubleVector::ResetRelatedSeries() {
  for (TZySeries* Series : FRelatedSeries) Series->SetLastCount(0);
}

void TZyCustomDoubleVector::InvalidateRelatedSeries() {
  for (TZySeries* Series : FRelatedSeries) Series->PointsModified();
}

TZyDoubleVector::TZyDoubleVector(TComponent* Owner) : TZyCustomDoubleVector(Owner) {}

template <class T>
void TZyDoubleVector::Append(std::span<const T> Range) {
  const int Old = FCount;
  if (Range.size() > static_cast<std::size_t>(std::numeric_limits<int>::max() - Old)) IndexOutOfRange(Old);
  CheckCount(Old + static_cast<int>(Range.size()));
  std::transform(Range.begin(), Range.end(), FArray.begin() + Old, [](T n) { return static_cast<double>(n); });
  OutOfRange();
}

void TZyDoubleVector::AddRange(std::span<const double> Range) { Append(Range); }

void TZyDoubleVector::AddRange(std::span<const float> Range) { Append(Range); }

void TZyDoubleVector::AddRange(std::span<const int> Range) { Append(Range); }

void TZyDoubleVector::WriteTo(TStream& Stream) const {
  StringToStream(Stream, GetComponentRef(this));
  ToStream(Stream, std::int32_t{Increment()});
  ToStream(Stream, std::int32_t{Capacity()});
  ToStream(Stream, false);  // not linked to a database
  ToStream(Stream, std::int32_t{FCount});
  ArrayToStream(Stream, Values());
  ToStream(Stream, false);  // no outliers
  ContinuationToStream(Stream, false);
}

void TZyDoubleVector::ReadFrom(TStream& Stream) {
  StringFromStream(Stream);
  const auto NewIncrement = FromStream<std::int32_t>(Stream);
  const auto NewCapacity = FromStream<std::int32_t>(Stream);
  Clear();
  SetIncrement(NewIncrement);
  if (FromStream<bool>(Stream)) {
    StringFromStream(Stream);  // the data source and its field are bound by the reader of the whole chart
    StringFromStream(Stream);
  } else {
    const int NewCount = CountFromStream(Stream, sizeof(double));
    SetCapacity(NewCapacity);
    CheckCount(NewCount);
    ArrayFromStream(Stream, FArray);
    OutOfRange();
  }
  if (FromStream<bool>(Stream))
    for (int Left = CountFromStream(Stream, sizeof(std::int32_t)); Left > 0; --Left) FromStream<std::int32_t>(Stream);
  ContinuationFromStream(Stream);
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
