#include "series/vectors/ZyCustomDoubleVector.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/framework/TCrew.h"
#include "platform/framework/TPropInfo.h"
#include "series/vectors/ZyVectors.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr int SmallestIncrement = 128;
constexpr int LargestReserve = 1 << 20;
constexpr double LargestDouble = std::numeric_limits<double>::max();

using detail::VectorIndexOutOfRange;

/// Whether each value is greater than the one before it. Most that do not ascend show it at the beginning; the others
/// are looked at by several processors.
bool Ascends(std::span<const double> Values) {
  constexpr std::size_t Few = 1024, ValuesOfPiece = 1 << 17, MostPieces = 64;
  const auto AscendsFrom = [&](std::size_t From, std::size_t To) {
    std::int64_t Descents = 0;  // counted without a branch, several at a time
    for (std::size_t i = From; i < To; ++i) Descents += Values[i] > Values[i - 1] ? 0 : 1;
    return Descents == 0;
  };
  std::atomic<bool> Descends = false;
  const auto Walk = [&](std::size_t From, std::size_t To) {
    for (; From < To && !Descends.load(std::memory_order_relaxed); From += Few)
      if (!AscendsFrom(From, std::min(To, From + Few))) Descends = true;
  };
  const std::size_t Count = Values.size(), Pieces = std::min(Count / ValuesOfPiece, MostPieces);
  if (Pieces <= 1) {
    Walk(1, Count);
  } else if (AscendsFrom(1, Few)) {
    InParallel(static_cast<int>(Pieces), [&](int Piece) {
      const auto Edge = [&](std::size_t i) { return std::max<std::size_t>(Count * i / Pieces, 1); };
      Walk(Edge(static_cast<std::size_t>(Piece)), Edge(static_cast<std::size_t>(Piece) + 1));
    });
  } else {
    return false;
  }
  return !Descends;
}

}  // namespace

void detail::VectorIndexOutOfRange(int i) { throw ERangeError(Format(LoadResString(_sVectorIdxOutOfRange), {i})); }

ZY_PUBLISHED(TZyCustomDoubleVector, TComponent)

TZyCustomDoubleVector::TZyCustomDoubleVector(TComponent* Owner) : TComponent(Owner) {}

TZyCustomDoubleVector::~TZyCustomDoubleVector() { Destroying(); }

// --- Values ---------------------------------------------------------------------------------------------------------

double TZyCustomDoubleVector::GetValue(int i) const {
  if (i < 0 || i >= FCount) VectorIndexOutOfRange(i);
  return FArray[static_cast<std::size_t>(i)];
}

void TZyCustomDoubleVector::SetValue(int i, double n) {
  if (i < 0 || i == std::numeric_limits<int>::max()) VectorIndexOutOfRange(i);
  const int First = std::min(i, FCount);
  CheckCount(i + 1);
  double& Stored = FArray[static_cast<std::size_t>(i)];
  if (i <= FLastCount && Stored == n) return;
  bool RangesGo = false;
  if (i < FLastCount) {
    RangesGo = MovesRanges(i, n);
    FHasGaps = FHasGaps || !std::isfinite(n);
    const double Change = (std::isfinite(n) ? n : 0) - (std::isfinite(Stored) ? Stored : 0);
    FAll.Sum += Change;
    if (!IsOutlier(i)) FPlain.Sum += Change;
  }
  Stored = n;
  FPyramid.Changed(i, i + 1);
  if (RangesGo) {
    TellOutOfRange();
  } else {
    for (IZyVectorReader* Reader : FRelatedSeries) Reader->DataWritten(*this, First);
  }
}

/// Whether extremes or order may be others with n in the place of a scanned value: it held an extreme, the new value
/// is one, or stands out of order.
bool TZyCustomDoubleVector::MovesRanges(int i, double n) const {
  if (i == FAll.MinimumIdx || i == FAll.MaximumIdx || i == FPlain.MinimumIdx || i == FPlain.MaximumIdx) return true;
  const TTracked& Tracked = IsOutlier(i) ? FAll : FPlain;
  if (std::isfinite(n) && (n < Tracked.Minimum || n > Tracked.Maximum)) return true;
  return (FIsSorted || FOnlyAscending) && !StandsInOrder(i, n);
}

/// Whether n at index i would be greater than the value before it and smaller than the scanned one behind it, among all
/// values and among those that are no outliers.
bool TZyCustomDoubleVector::StandsInOrder(int i, double n) const {
  int Before = i - 1, Behind = i + 1;
  const auto Fits = [&] {
    return (Before < 0 || n > FArray[static_cast<std::size_t>(Before)]) &&
           (Behind >= FLastCount || n < FArray[static_cast<std::size_t>(Behind)]);
  };
  if (!Fits()) return false;
  while (Before >= 0 && IsOutlier(Before)) --Before;
  while (Behind < FLastCount && IsOutlier(Behind)) ++Behind;
  return Fits();
}

int TZyCustomDoubleVector::Add(double n) {
  SetValue(FCount, n);
  return FCount;
}

int TZyCustomDoubleVector::Insert(int Idx, double n) {
  if (Idx < 0 || Idx > FCount) VectorIndexOutOfRange(Idx);
  if (Idx == FCount) return Add(n);
  FOutliers.Inserted(Idx);
  CheckCount(FCount + 1);
  const auto At = FArray.begin() + Idx;
  std::copy_backward(At, FArray.end() - 1, FArray.end());
  *At = 0;
  FPyramid.Changed(Idx, FCount);
  for (TTracked* Tracked : {&FPlain, &FAll})
    for (int* Place : {&Tracked->MinimumIdx, &Tracked->MaximumIdx}) *Place += *Place >= Idx ? 1 : 0;
  if (Idx < FLastCount) ++FLastCount;
  SetValue(Idx, n);
  // A 0 is what stands there already, and told nobody; it may be an extreme all the same.
  if (n == 0) TellOutOfRange();
  for (IZyVectorReader* Reader : FRelatedSeries) Reader->DataInserted(*this, Idx, 1);
  return FCount;
}

int TZyCustomDoubleVector::InsertRange(int Idx, std::span<const double> Range) {
  if (Idx < 0 || Idx > FCount) VectorIndexOutOfRange(Idx);
  if (Range.size() > static_cast<std::size_t>(std::numeric_limits<int>::max() - FCount))
    VectorIndexOutOfRange(std::numeric_limits<int>::max());
  if (Range.empty()) return FCount;
  const auto Number = static_cast<int>(Range.size());
  const bool Appends = Idx == FCount;
  FArray.insert(FArray.begin() + Idx, Range.begin(), Range.end());
  CheckCount(FCount + Number);
  if (Appends) {  // what was scanned before stays so
    ResetRelatedSeries();
    return FCount;
  }
  FOutliers.Inserted(Idx, Number);
  FPyramid.Changed(Idx, FCount);
  TellOutOfRange();
  for (IZyVectorReader* Reader : FRelatedSeries) Reader->DataInserted(*this, Idx, Number);
  return FCount;
}

void TZyCustomDoubleVector::Delete(int Idx, bool WithLinkedMarkers) {
  if (Idx < 0 || Idx >= FCount) return;
  const bool RangesGo =
      Idx == FAll.MinimumIdx || Idx == FAll.MaximumIdx || Idx == FPlain.MinimumIdx || Idx == FPlain.MaximumIdx;
  const auto At = FArray.begin() + Idx;
  if (Idx < FLastCount && std::isfinite(*At)) {
    FAll.Sum -= *At;
    if (!IsOutlier(Idx)) FPlain.Sum -= *At;
  }
  FOutliers.Deleted(Idx);
  FArray.erase(At);
  --FCount;
  FPyramid.Changed(Idx, FCount);
  for (TTracked* Tracked : {&FPlain, &FAll})
    for (int* Place : {&Tracked->MinimumIdx, &Tracked->MaximumIdx}) *Place -= *Place > Idx ? 1 : 0;
  if (Idx < FLastCount) --FLastCount;
  if (RangesGo) ResetRanges();
  // A marker that goes may run foreign code, which finds the vector as it is now.
  if (WithLinkedMarkers)
    for (IZyVectorReader* Reader : FRelatedSeries) Reader->DataDeleted(*this, Idx, 1);
  ResetRelatedSeries();
}

void TZyCustomDoubleVector::DeleteRange(int Idx, int Number, bool WithLinkedMarkers) {
  if (Idx < 0 || Idx >= FCount || Number <= 0) return;
  Number = std::min(Number, FCount - Idx);
  FOutliers.Deleted(Idx, Number);
  FArray.erase(FArray.begin() + Idx, FArray.begin() + Idx + Number);
  FCount -= Number;
  FPyramid.Changed(Idx, FCount);
  ResetRanges();
  if (WithLinkedMarkers)
    for (IZyVectorReader* Reader : FRelatedSeries) Reader->DataDeleted(*this, Idx, Number);
  ResetRelatedSeries();
}

void TZyCustomDoubleVector::Clear(bool WithLinkedMarkers) {
  FCount = 0;
  FArray.clear();
  FOutliers.Clear();
  ResetRanges();
  for (IZyVectorReader* Reader : FRelatedSeries) Reader->DataCleared(*this, WithLinkedMarkers);
}

TZyExtremes TZyCustomDoubleVector::FindExtremes(int First, int Last) const {
  return FPyramid.Find(Values(), std::max(First, 0), std::min(Last, FCount));
}

std::span<const double> TZyCustomDoubleVector::ValuesAt(int First, int Count, std::span<double>) const {
  return Values().subspan(static_cast<std::size_t>(First), static_cast<std::size_t>(Count));
}

// --- Outliers -------------------------------------------------------------------------------------------------------

void TZyCustomDoubleVector::AddOutlier(int Idx) {
  if (FOutliers.Add(Idx)) TellOutOfRange();
}

void TZyCustomDoubleVector::AddOutliers(std::span<const int> Indexes) {
  if (FOutliers.Add(Indexes)) TellOutOfRange();
}

void TZyCustomDoubleVector::RemoveOutlier(int Idx) {
  if (FOutliers.Remove(Idx)) TellOutOfRange();
}

void TZyCustomDoubleVector::SetOutlier(int i, bool Value) {
  if (Value) {
    AddOutlier(i);
  } else {
    RemoveOutlier(i);
  }
}

void TZyCustomDoubleVector::ClearOutlieres() {
  if (FOutliers.IsEmpty()) return;
  FOutliers.Clear();
  TellOutOfRange();
}

// --- Storage --------------------------------------------------------------------------------------------------------

void TZyCustomDoubleVector::NoteCapacity(int Value) {
  if (Value > FCount) FCapacity = Value;
}

void TZyCustomDoubleVector::SetCapacity(int Value) {
  if (Value <= FCount || Value == FCapacity) return;
  FCapacity = Value;
  // A stored form may name any capacity: memory is set aside for a bounded part of it only, and the rest on demand.
  FArray.reserve(static_cast<std::size_t>(std::min<std::int64_t>(Value, std::int64_t{FCount} + LargestReserve)));
}

void TZyCustomDoubleVector::SetIncrement(int Value) {
  if (Value >= SmallestIncrement) FIncrement = Value;
}

void TZyCustomDoubleVector::CheckCount(int NewCount) {
  if (FCapacity < NewCount) {
    const std::int64_t Steps = (std::int64_t{NewCount} - FCapacity + FIncrement - 1) / FIncrement;
    FCapacity =
        static_cast<int>(std::min<std::int64_t>(FCapacity + Steps * FIncrement, std::numeric_limits<int>::max()));
  }
  if (FCount >= NewCount) return;
  FArray.resize(static_cast<std::size_t>(NewCount));
  FPyramid.Changed(FCount, NewCount);
  FCount = NewCount;
}

// --- Extremes and sums ----------------------------------------------------------------------------------------------

TZyCustomDoubleVector::TTracked::TTracked() : Minimum(LargestDouble), Maximum(-LargestDouble) {}

void TZyCustomDoubleVector::TTracked::Take(int i, double Value) {
  if (!std::isfinite(Value)) return;
  if (Value < Minimum) {
    Minimum = Value;
    MinimumIdx = i;
  }
  if (Value > Maximum) {
    Maximum = Value;
    MaximumIdx = i;
  }
  Sum += Value;
}

void TZyCustomDoubleVector::CheckMinMax() {
  if (FOutliers.IsEmpty()) {
    ScanPlain();
  } else {
    ScanWithOutliers();
  }
  FLastCount = FCount;
}

/// Extremes and sum come out of the pyramid, which remembers those of all blocks: only blocks that changed are walked,
/// even when all tracked values were forgotten.
void TZyCustomDoubleVector::ScanPlain() {
  const TZyExtremes New = FPyramid.Find(Values(), FLastCount, FCount);
  if (New.Minimum >= 0) {
    if (New.Low < FPlain.Minimum) {
      FPlain.Minimum = New.Low;
      FPlain.MinimumIdx = New.Minimum;
    }
    if (New.High > FPlain.Maximum) {
      FPlain.Maximum = New.High;
      FPlain.MaximumIdx = New.Maximum;
    }
    FPlain.Sum += New.Sum;
  }
  FHasGaps = FHasGaps || New.HasGaps;
  FAll = FPlain;
  if ((FIsSorted || FOnlyAscending) &&
      !Ascends(Values().subspan(static_cast<std::size_t>(std::max(FLastCount, 1) - 1))))
    FIsSorted = FOnlyAscending = false;
}

void TZyCustomDoubleVector::ScanWithOutliers() {
  const std::span<const int> Marks = FOutliers.Sorted();
  auto Mark = std::lower_bound(Marks.begin(), Marks.end(), FLastCount);
  std::size_t Previous = 0;
  for (int i = FLastCount; i < FCount; ++i) {
    const auto At = static_cast<std::size_t>(i);
    const double Value = FArray[At];
    FAll.Take(i, Value);
    FHasGaps = FHasGaps || !std::isfinite(Value);
    if (i > 0 && FIsSorted) FIsSorted = Value > FArray[At - 1];
    if (Mark != Marks.end() && *Mark == i) {
      ++Mark;
      continue;
    }
    FPlain.Take(i, Value);
    if (Previous >= 2 && FOnlyAscending) FOnlyAscending = Value > FArray[Previous];
    Previous = At;
  }
}

void TZyCustomDoubleVector::ResetRanges() {
  FLastCount = 0;
  FPlain = FAll = TTracked();
  FIsSorted = true;
  FHasGaps = false;
}

/// The tracked values go, but the values themselves did not change behind the vector's back.
void TZyCustomDoubleVector::TellOutOfRange() {
  ResetRanges();
  ResetRelatedSeries();
}

void TZyCustomDoubleVector::OutOfRange() {
  FPyramid.Changed(0, FCount);
  TellOutOfRange();
}

void TZyCustomDoubleVector::ResetRelatedSeries() {
  for (IZyVectorReader* Reader : FRelatedSeries) Reader->DataReset();
}

void TZyCustomDoubleVector::InvalidateRelatedSeries() {
  for (IZyVectorReader* Reader : FRelatedSeries) Reader->DataInvalidated();
}

}  // namespace zy
