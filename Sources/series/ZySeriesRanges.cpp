// What a series takes out of its data: ranges for the axes, values between points, places of linked markers.

#include <algorithm>
#include <cmath>
#include <limits>

#include "graph/ZyGraph2D.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();

}  // namespace

int TZySeries::GetCount() {
  FMinCount = FPointSymbolSettings->Visible() ? 1 : 2;
  if (FXData == nullptr || FYData == nullptr) return 0;
  return std::min(FXData->Count(), FYData->Count());
}

bool TZySeries::HasValuesAt(int Idx) const {
  if (!std::isfinite(FXData->GetValue(Idx)) || !std::isfinite(FYData->GetValue(Idx))) return false;
  return FOutliersVisible || (!FXData->IsOutlier(Idx) && !FYData->IsOutlier(Idx));
}

int TZySeries::NextOutlier(int First) const {
  int Result = std::numeric_limits<int>::max();
  if (FOutliersVisible) return Result;
  for (const TZyCustomDoubleVector* Data : {FXData.Get(), FYData.Get()}) {
    const std::span<const int> Marks = Data->Outliers().Sorted();
    const auto Next = std::lower_bound(Marks.begin(), Marks.end(), First);
    if (Next != Marks.end()) Result = std::min(Result, *Next);
  }
  return Result;
}

double TZySeries::TransformX(double Value, int Idx) const {
  return mXValueTransformation ? mXValueTransformation(const_cast<TZySeries*>(this), {Value, Idx}) : Value;
}

double TZySeries::TransformY(double Value, int Idx) const {
  return mYValueTransformation ? mYValueTransformation(const_cast<TZySeries*>(this), {Value, Idx}) : Value;
}

double TZySeries::Transform(const TZyCustomDoubleVector& Data, double Value, int Idx) const {
  return &Data == FXData ? TransformX(Value, Idx) : TransformY(Value, Idx);
}

// --- Ranges ---------------------------------------------------------------------------------------------------------

void TZySeries::Calculate() {
  if (FXData == nullptr || FYData == nullptr || FXAxis == nullptr || FYAxis == nullptr) return;
  if (FXData->Count() <= FLastCount && FYData->Count() <= FLastCount) return;
  FCount = GetCount();
  if (FLastCount >= FCount || FCount < FMinCount) return;
  double Low = 0, High = 0;
  TakeRange(*FXData, *FYData, *FXAxis, Low, High);
  SetStart(*FXAxis, FXStart, FXStop, Low, High);
  TakeRange(*FYData, *FXData, *FYAxis, Low, High);
  SetStart(*FYAxis, FYStart, FYStop, Low, High);
  RangesTaken();
}

void TZySeries::SetStart(TZyAxis& Axis, double& Start, double& Stop, double Low, double High) {
  if (Low == Start && High == Stop) return;
  Start = Low;
  Stop = High;
  Axis.RangeModified();
}

void TZySeries::RangesTaken() {
  CheckLinkedMarkers();
  FRecalculatePoints = true;
  Invalidate();
  FLastCount = FCount;
}

/// The range of a direction; without any value Low lies above High. Values beyond the last point, of a vector longer
/// than the other one, do not count.
void TZySeries::TakeRange(TZyCustomDoubleVector& Data, const TZyCustomDoubleVector& Other, const TZyAxis& Axis,
                          double& Low, double& High) const {
  const bool IsTransformed = &Data == FXData ? mXValueTransformation != nullptr : mYValueTransformation != nullptr;
  if (Data.Count() > Other.Count()) {
    SearchRange(Data, Low, High);
  } else if (IsTransformed) {
    TakeTransformedExtremes(Data, Low, High);
  } else {
    Low = FOutliersVisible ? Data.MinimumIncludingOutliers() : Data.Minimum();
    High = FOutliersVisible ? Data.MaximumIncludingOutliers() : Data.Maximum();
  }
  if (!Axis.HasLogScaling() || !(Low < 0)) return;
  double Smallest = LargestDouble;
  for (int i = 0; i < Data.Count(); ++i) {
    const bool HasValues = i < FCount ? HasValuesAt(i) : std::isfinite(Data.GetValue(i)) && !Data.IsOutlier(i);
    if (!HasValues) continue;
    const double Value = Transform(Data, Data.GetValue(i), i);
    if (Value > 0) Smallest = std::min(Smallest, Value);
  }
  if (Smallest < LargestDouble) Low = Smallest;
}

/// A transformation is taken to be monotonic, so that the extremes stay extremes.
void TZySeries::TakeTransformedExtremes(TZyCustomDoubleVector& Data, double& Low, double& High) const {
  const int LowIdx = FOutliersVisible ? Data.MinimumIdxIncludingOutliers() : Data.MinimumIdx();
  const int HighIdx = FOutliersVisible ? Data.MaximumIdxIncludingOutliers() : Data.MaximumIdx();
  Low = LargestDouble;
  High = -LargestDouble;
  if (LowIdx < 0 || HighIdx < 0) return;
  const double First = Transform(Data, Data.GetValue(LowIdx), LowIdx);
  const double Second = Transform(Data, Data.GetValue(HighIdx), HighIdx);
  if (!std::isfinite(First) || !std::isfinite(Second)) return SearchRange(Data, Low, High);
  Low = std::min(First, Second);
  High = std::max(First, Second);
}

void TZySeries::SearchRange(const TZyCustomDoubleVector& Data, double& Low, double& High) const {
  Low = LargestDouble;
  High = -LargestDouble;
  if (!mXValueTransformation && !mYValueTransformation && NextOutlier(0) >= FCount) {
    const TZyExtremes Extremes = Data.FindExtremes(0, FCount);
    if (Extremes.Minimum < 0) return;
    Low = Extremes.Low;
    High = Extremes.High;
    return;
  }
  for (int i = 0; i < FCount; ++i) {
    if (!HasValuesAt(i)) continue;
    const double Value = Transform(Data, Data.GetValue(i), i);
    if (!std::isfinite(Value)) continue;
    Low = std::min(Low, Value);
    High = std::max(High, Value);
  }
}

void TZySeries::CheckDBVectors() {
  for (TZyCustomDoubleVector* Data : {FXData.Get(), FYData.Get()})
    if (auto* const Vector = dynamic_cast<TZyDoubleVector*>(Data); Vector != nullptr && Vector->DBData())
      Vector->UpdateDB();
}

// --- Values between points ------------------------------------------------------------------------------------------

double TZySeries::GetY(double AtX) const {
  if (FCount == 0) return 0;
  if (FCount == 1) return FYData->GetValue(0);
  const int Last = FCount - 1;
  int Low = 0, High = 0;
  if (FXData->OnlyAscending()) {
    const auto LiesBelow = [&](int i) { return !(FXData->GetValue(i) > AtX); };
    High = 1;
    if (FXData->GetIsSorted()) {
      int Left = FCount - High;  // bisection over the indexes from High on
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
    while (High < Last && HasValuesAt(High) && FXData->GetValue(High) < AtX) ++High;
    Low = Last;
    while (Low > 0 && !HasValuesAt(Low)) --Low;
    while (Low > 0 && HasValuesAt(Low) && FXData->GetValue(Low) > AtX) --Low;
    if (High == Low) do
        --High;
      while (High > 0 && !HasValuesAt(High));
    High = std::max(High, 0);
  }
  const double Y = FYData->GetValue(High), X = FXData->GetValue(High);
  if (High == Low) return Y;
  return Y + (AtX - X) * (FYData->GetValue(Low) - Y) / (FXData->GetValue(Low) - X);
}

// --- Linked markers -------------------------------------------------------------------------------------------------

/// From the last control to the first, since markers may be freed on the way.
std::vector<IZySnappingMarker*> TZySeries::LinkedMarkers() const {
  std::vector<IZySnappingMarker*> Result;
  if (FGraph == nullptr) return Result;
  const auto& Controls = FGraph->Controls();
  for (auto Place = Controls.rbegin(); Place != Controls.rend(); ++Place)
    if (auto* const Marker = dynamic_cast<IZySnappingMarker*>(*Place))
      if (Marker->SnappedSeries() == this && Marker->SnappedIdx() >= 0) Result.push_back(Marker);
  return Result;
}

void TZySeries::CheckLinkedMarkers() {
  for (IZySnappingMarker* Marker : LinkedMarkers()) {
    const int Idx = Marker->SnappedIdx();
    const bool HasPlace = Idx < FCount && HasValuesAt(Idx);
    Marker->Control().SetVisible(HasPlace);
    if (HasPlace) Marker->SnapTo(TransformX(FXData->GetValue(Idx), Idx), TransformY(FYData->GetValue(Idx), Idx));
  }
}

void TZySeries::ClearLinkedMarkers() {
  for (IZySnappingMarker* Marker : LinkedMarkers()) delete &Marker->Control();
}

void TZySeries::DeleteLinkedMarkers(int Idx) {
  for (IZySnappingMarker* Marker : LinkedMarkers()) {
    if (Marker->SnappedIdx() == Idx) {
      delete &Marker->Control();
    } else if (Marker->SnappedIdx() > Idx) {
      Marker->SetSnappedIdx(Marker->SnappedIdx() - 1);
    }
  }
}

void TZySeries::ValueInsertedLinkedMarkers(int Idx) {
  for (IZySnappingMarker* Marker : LinkedMarkers())
    if (Marker->SnappedIdx() >= Idx) Marker->SetSnappedIdx(Marker->SnappedIdx() + 1);
}

}  // namespace zy
