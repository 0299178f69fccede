// What a series takes out of its data: ranges for the axes, values between points, places of linked markers.

#include <algorithm>
#include <cmath>
#include <limits>

#include "graph/parts/ZySeriesGraph.h"
#include "platform/controls/TWinControl.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();

}  // namespace

TZySeries::TRange::TRange() : Low(LargestDouble), High(-LargestDouble) {}

void TZySeries::TRange::Take(double Value) {
  TakeLow(Value);
  TakeHigh(Value);
}

void TZySeries::TRange::TakeLow(double Value) {
  if (std::isfinite(Value)) Low = std::min(Low, Value);
}

void TZySeries::TRange::TakeHigh(double Value) {
  if (std::isfinite(Value)) High = std::max(High, Value);
}

int TZySeries::GetCount() {
  int Result = std::numeric_limits<int>::max();
  for (const TZySeriesInput* Input : FInputs)
    if (Input->IsNeeded()) Result = std::min(Result, Input->Count());
  return Result;
}

int TZySeries::MinCount() const { return FPointSymbolSettings->Visible() ? 1 : 2; }

bool TZySeries::HasValuesAt(int Idx) const {
  for (const TZySeriesInput* Input : FInputs) {
    if (Input->Use() == TZyInputUse::Apart) continue;
    if (Input->Use() == TZyInputUse::Partial && Idx >= Input->Count()) continue;
    if (!*Input) return false;
    const TZyCustomDoubleVector& Data = *Input->Vector();
    if (!std::isfinite(Data.GetValue(Idx)) || (!FOutliersVisible && Data.IsOutlier(Idx))) return false;
  }
  return true;
}

int TZySeries::NextOutlier(int First) const {
  int Result = std::numeric_limits<int>::max();
  if (FOutliersVisible) return Result;
  for (const TZySeriesInput* Input : FInputs) {
    if (!*Input || Input->Use() == TZyInputUse::Apart) continue;
    const std::span<const int> Marks = Input->Vector()->Outliers().Sorted();
    const auto Next = std::lower_bound(Marks.begin(), Marks.end(), First);
    const bool Counts = Next != Marks.end() && (Input->Use() != TZyInputUse::Partial || *Next < Input->Count());
    if (Counts) Result = std::min(Result, *Next);
  }
  return Result;
}

bool TZySeries::MayLackValues() const {
  return std::ranges::any_of(FInputs, [](const TZySeriesInput* Input) {
    if (Input->Use() == TZyInputUse::Apart || (Input->Use() == TZyInputUse::Partial && !*Input)) return false;
    return !*Input || Input->Vector()->GetHasGaps();
  });
}

// --- Ranges ---------------------------------------------------------------------------------------------------------

void TZySeries::Calculate() {
  if (!TakeCount()) return;
  TRange X, Y;
  TakeRanges(X, Y);
  SetRange(*FXAxis, FXStart, FXStop, X);
  SetRange(*FYAxis, FYStart, FYStop, Y);
  RangesTaken();
}

/// Without new data this is a comparison of counts, ten times a second.
bool TZySeries::TakeCount() {
  if (FXAxis == nullptr || FYAxis == nullptr) return false;
  const int Count = GetCount();
  if (Count < FState.Count()) DataReset();
  if (Count <= FState.LastCount()) return false;
  TZySeriesInput::NoteChange();
  FState.SetCount(Count);
  return Count >= MinCount();
}

bool TZySeries::HasTrackedRanges() const {
  const auto SearchesAbove0 = [](const TZyAxis* Axis, const TZySeriesInput& Input) {
    return Axis != nullptr && Axis->HasLogScaling() && Input && Input->MinimumIncludingOutliers() < 0;
  };
  return FX.Count() == FY.Count() && !(FX && FX->GetHasGaps()) && !(FY && FY->GetHasGaps()) &&
         !SearchesAbove0(FXAxis, FX) && !SearchesAbove0(FYAxis, FY);
}

void TZySeries::TakeRanges(TRange& X, TRange& Y) {
  X = RangeOf(FX, FY, *FXAxis);
  Y = RangeOf(FY, FX, *FYAxis);
}

void TZySeries::SetRange(TZyAxis& Axis, double& Start, double& Stop, const TRange& Range) {
  if (Range.Low == Start && Range.High == Stop) return;
  Start = Range.Low;
  Stop = Range.High;
  Axis.RangeModified();
}

void TZySeries::RangesTaken() {
  CheckLinkedMarkers();
  FState.RangesTaken();
  Invalidate();
}

/// Values of what is no point do not count: those beyond the last one, of a vector longer than the other, and those
/// beside one that is not finite.
TZySeries::TRange TZySeries::RangeOf(TZySeriesInput& Input, const TZySeriesInput& Other, const TZyAxis& Axis) const {
  TZyCustomDoubleVector& Data = *Input.Vector();
  TRange Result;
  if (Data.Count() > Other.Count() || Other->GetHasGaps()) {
    Result = SearchRange(Input, Other);
  } else if (Input.IsTransformed()) {
    Result = TransformedExtremes(Input, Other);
  } else {
    Result.Low = FOutliersVisible ? Data.MinimumIncludingOutliers() : Data.Minimum();
    Result.High = FOutliersVisible ? Data.MaximumIncludingOutliers() : Data.Maximum();
  }
  if (Axis.HasLogScaling() && Result.Low < 0) Result.Low = SmallestPositive(Input, Result.Low);
  return Result;
}

bool TZySeries::LeavesScaleOf(const TZyAxis& Axis) const { return Axis.HasLogScaling() && LowestOn(Axis) <= 0; }

/// All vectors but X are taken to hold places on the Y axis.
double TZySeries::LowestOn(const TZyAxis& Axis) const {
  double Result = LargestDouble;
  for (const TZySeriesInput* Input : FInputs) {
    const bool IsOfAxis = (Input == &FX) == (&Axis == FXAxis);
    if (*Input && Input->Use() != TZyInputUse::Apart && IsOfAxis) Result = std::min(Result, LowestOf(*Input));
  }
  return Result;
}

double TZySeries::SmallestPositive(const TZySeriesInput& Input, double Otherwise) const {
  const TZyCustomDoubleVector& Data = *Input.Vector();
  TRange Positive;
  for (int i = 0; i < Data.Count(); ++i) {
    const bool HasValues = i < Count() ? HasValuesAt(i) : std::isfinite(Data.GetValue(i)) && !Data.IsOutlier(i);
    if (!HasValues) continue;
    if (const double Value = Input.At(i); Value > 0) Positive.Take(Value);
  }
  return Positive.IsEmpty() ? Otherwise : Positive.Low;
}

/// A transformation is taken to be monotonic, so that the extremes stay extremes.
TZySeries::TRange TZySeries::TransformedExtremes(const TZySeriesInput& Input, const TZySeriesInput& Other) const {
  TZyCustomDoubleVector& Data = *Input.Vector();
  const int LowIdx = FOutliersVisible ? Data.MinimumIdxIncludingOutliers() : Data.MinimumIdx();
  const int HighIdx = FOutliersVisible ? Data.MaximumIdxIncludingOutliers() : Data.MaximumIdx();
  TRange Result;
  if (LowIdx < 0 || HighIdx < 0) return Result;
  const double First = Input.At(LowIdx), Second = Input.At(HighIdx);
  if (!std::isfinite(First) || !std::isfinite(Second)) return SearchRange(Input, Other);
  Result.Take(First);
  Result.Take(Second);
  return Result;
}

TZySeries::TRange TZySeries::SearchRange(const TZySeriesInput& Input, const TZySeriesInput& Other) const {
  TRange Result;
  const auto AllFinite = [this](const TZySeriesInput& Each) {
    double Sum = 0;
    for (const double Value : Each->Values().first(std::min(Each->Values().size(), static_cast<std::size_t>(Count()))))
      Sum += Value * 0;  // not-a-number as soon as one is not finite
    return Sum == 0;
  };
  if (!Input.IsTransformed() && NextOutlier(0) >= Count() && (!Other->GetHasGaps() || AllFinite(Other))) {
    const TZyExtremes Extremes = Input->FindExtremes(0, Count());
    if (Extremes.Minimum < 0) return Result;
    Result.Low = Extremes.Low;
    Result.High = Extremes.High;
    return Result;
  }
  int First = 0, Last = Count() - 1;
  if (!Input.IsTransformed() && Input->GetIsSorted()) {  // then the first and the last point have the extremes
    while (First < Last && !HasValuesAt(First)) ++First;
    while (Last > First && !HasValuesAt(Last)) --Last;
    for (const int End : {First, Last})
      if (End >= 0 && HasValuesAt(End)) Result.Take(Input.At(End));
    return Result;
  }
  ForEachPoint(First, Last + 1, [&](int i) { Result.Take(Input.At(i)); });
  return Result;
}

void TZySeries::CheckDBVectors() {
  for (const TZySeriesInput* Input : FInputs)
    if (auto* const Vector = dynamic_cast<TZyDoubleVector*>(Input->Vector()); Vector != nullptr && Vector->DBData())
      Vector->UpdateDB();
}

// --- Values between points ------------------------------------------------------------------------------------------

double TZySeries::GetY(double AtX) const {
  if (Count() == 0 || !FX || !FY) return 0;
  if (Count() == 1) return FY->GetValue(0);
  const int Last = Count() - 1;
  int Low = 0, High = 0;
  if (FX->OnlyAscending()) {
    const auto LiesBelow = [&](int i) { return !(FX->GetValue(i) > AtX); };
    High = 1;
    if (FX->GetIsSorted()) {
      int Left = Count() - High;  // bisection over the indexes from High on
      while (Left > 0) {
        const int Half = Left / 2;
        if (LiesBelow(High + Half)) {
          High += Half + 1;
          Left -= Half + 1;
        } else {
          Left = Half;
        }
      }
    }
    while (High <= Last && (!HasValuesAt(High) || LiesBelow(High))) ++High;
    if (High > Last) {
      High = Last;
      while (High > 0 && !HasValuesAt(High)) --High;
    }
    Low = std::max(High - 1, 0);
    while (Low > 0 && !HasValuesAt(Low)) --Low;
  } else {
    while (High < Last && !HasValuesAt(High)) ++High;
    while (High < Last && HasValuesAt(High) && FX->GetValue(High) < AtX) ++High;
    Low = Last;
    while (Low > 0 && !HasValuesAt(Low)) --Low;
    while (Low > 0 && HasValuesAt(Low) && FX->GetValue(Low) > AtX) --Low;
    if (High == Low) do
        --High;
      while (High > 0 && !HasValuesAt(High));
    High = std::max(High, 0);
  }
  const double Y = FY->GetValue(High), X = FX->GetValue(High);
  if (High == Low) return Y;
  return Y + (AtX - X) * (FY->GetValue(Low) - Y) / (FX->GetValue(Low) - X);
}

// --- Linked markers -------------------------------------------------------------------------------------------------

/// From the last control to the first, since markers may be freed on the way.
std::vector<IZySnappingMarker*> TZySeries::LinkedMarkers() const {
  std::vector<IZySnappingMarker*> Result;
  if (Graph() == nullptr) return Result;
  const auto& Controls = Graph()->Control().Controls();
  for (auto Place = Controls.rbegin(); Place != Controls.rend(); ++Place)
    if (auto* const Marker = dynamic_cast<IZySnappingMarker*>(*Place))
      if (Marker->LinkedSeries() == this && Marker->SnappedIdx() >= 0) Result.push_back(Marker);
  return Result;
}

void TZySeries::CheckLinkedMarkers() {
  for (IZySnappingMarker* Marker : LinkedMarkers()) {
    const int Idx = Marker->SnappedIdx();
    const bool HasPlace = Idx < Count() && HasValuesAt(Idx);
    Marker->Control().SetVisible(HasPlace);
    if (HasPlace) Marker->SnapTo(TransformX(FX->GetValue(Idx), Idx), TransformY(FY->GetValue(Idx), Idx));
  }
}

void TZySeries::ClearLinkedMarkers() {
  for (IZySnappingMarker* Marker : LinkedMarkers()) delete &Marker->Control();
}

void TZySeries::DeleteLinkedMarkers(int Idx, int Number) {
  for (IZySnappingMarker* Marker : LinkedMarkers()) {
    const int Behind = Marker->SnappedIdx() - Idx;
    if (Behind >= Number) {
      Marker->TakeSnappedIdx(Marker->SnappedIdx() - Number);
    } else if (Behind >= 0) {
      delete &Marker->Control();
    }
  }
}

void TZySeries::ValueInsertedLinkedMarkers(int Idx, int Number) {
  for (IZySnappingMarker* Marker : LinkedMarkers())
    if (Marker->SnappedIdx() >= Idx) Marker->TakeSnappedIdx(Marker->SnappedIdx() + Number);
}

}  // namespace zy
