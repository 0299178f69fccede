#include "axes/ZyAxisData.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "series/vectors/ZyDoubleVector.h"

namespace zy {
namespace {

/// The vector when its values are samples for the form designer: not stored with the form.
TZyDoubleVector* SampleData(TZyCustomDoubleVector* Data) {
  auto* const Vector = dynamic_cast<TZyDoubleVector*>(Data);
  return Vector == nullptr || Vector->PersistentValues() || Vector->DBData() ? nullptr : Vector;
}

template <class TScale>
void Rescale(TZyDoubleVector& Vector, const TScale& Scale) {
  for (double& Value : Vector.InternalArray()) Value = Scale(Value);
  Vector.OutOfRange();
}

}  // namespace

TZyAxisRange TZyAxisData::Range() const {
  constexpr double Largest = std::numeric_limits<double>::max();
  TZyAxisRange Result{Largest, -Largest};
  for (const IZyAxisSeries* Series : FSeries) {
    const double First = FHorizontal ? Series->XStart() : Series->YStart();
    const double Last = FHorizontal ? Series->XStop() : Series->YStop();
    if (!Series->SeriesVisible() || First > Last) continue;
    Result.Start = std::min(Result.Start, First);
    Result.Stop = std::max(Result.Stop, Last);
  }
  return Result;
}

double TZyAxisData::SmallestPositiveBelow(double Stop) const {
  double Smallest = Stop;
  for (const IZyAxisSeries* Series : FSeries) {
    const TZyCustomDoubleVector* const Data = FHorizontal ? Series->XData() : Series->YData();
    if (Data == nullptr) continue;
    for (int i = 0; i < Data->Count(); ++i) {
      const double Raw = Data->GetValue(i);
      const double Value = FHorizontal ? Series->TransformX(Raw, i) : Series->TransformY(Raw, i);
      if (Value > 0 && Value < Smallest) Smallest = Value;
    }
  }
  return Smallest < Stop ? Smallest : 0;
}

void TZyAxisData::RescaleSamples(const TZyAxisRange& From, const TZyAxisRange& To) const {
  const double Slope = (To.Stop - To.Start) / (From.Stop - From.Start);
  if (!std::isfinite(Slope)) return;
  std::set<TZyDoubleVector*> Done;  // several series may share a vector
  for (const IZyAxisSeries* Series : FSeries)
    if (TZyDoubleVector* const Vector = SampleData(FHorizontal ? Series->XData() : Series->YData());
        Vector != nullptr && Done.insert(Vector).second)
      Rescale(*Vector, [&](double Value) { return (Value - From.Start) * Slope + To.Start; });
}

void TZyAxisData::SpreadSamples(double Start) const {
  const std::size_t Count = FSeries.size();
  const auto N = static_cast<double>(Count);
  std::set<TZyDoubleVector*> Done;  // several series may share a vector
  for (std::size_t i = 0; i < Count; ++i) {
    TZyDoubleVector* const Vector = SampleData(FHorizontal ? FSeries[i]->XData() : FSeries[i]->YData());
    if (Vector == nullptr || !Done.insert(Vector).second || i == 0) continue;
    const auto I = static_cast<double>(i);
    const double Factor = i + 1 == Count ? 1 / N : (N - I) / N * (N - 1) / (N - I - 1);
    Rescale(*Vector, [&](double Value) { return (Value - Start) * Factor + Start; });
  }
}

}  // namespace zy
