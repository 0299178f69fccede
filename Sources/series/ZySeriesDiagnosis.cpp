// Why a series shows nothing, in words.

#include <algorithm>

#include "graph/parts/ZySeriesGraph.h"
#include "platform/controls/TWinControl.h"
#include "series/ZyFunctionSeries.h"
#include "series/vectors/ZyCustomDoubleVector.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

std::string NameOf(const TComponent& Component) {
  return Component.Name().empty() ? std::string(Component.ClassInfo().Name()) : Component.Name();
}

}  // namespace

/// What keeps it from joining a graph, in the order in which one would set it.
std::string TZySeries::WhyNotJoined() const {
  for (const auto& [Axis, Name] : {std::pair{FXAxis.Get(), "XAxis"}, std::pair{FYAxis.Get(), "YAxis"}})
    if (Axis == nullptr) return Format(LoadResString(_sDiagNotSet), {ToString(), Name});
  if (!HasOwnXData() && !HasOwnYData()) return Format(LoadResString(_sDiagNoData), {ToString()});
  for (const TZySeriesInput* Input : FInputs)
    if (Input->Use() == TZyInputUse::Needed && !*Input)
      return Format(LoadResString(_sDiagNotSet), {ToString(), Input->PropName()});
  return Format(LoadResString(_sDiagAxisAlone), {ToString(), NameOf(*FYAxis)});
}

std::string TZySeries::WhyNoPoints() const {
  int Number = std::numeric_limits<int>::max();
  for (const TZySeriesInput* Input : FInputs) {
    if (!Input->IsNeeded() || (FIndexer != nullptr && Input->Vector() == FIndexer.get())) continue;
    if (Input->Count() == 0) return Format(LoadResString(_sDiagEmpty), {ToString(), Input->PropName()});
    Number = std::min(Number, Input->Count());
  }
  bool HasOutliers = false;
  for (int i = 0; i < Number; ++i) {
    if (HasValuesAt(i) && Number < MinCount())
      return Format(LoadResString(_sDiagTooFew), {ToString(), Number, MinCount()});
    HasOutliers = HasOutliers || NextOutlier(i) == i;
  }
  return Format(LoadResString(HasOutliers ? _sDiagOutliers : _sDiagNoNumbers), {ToString()});
}

/// Whether the range of its points lies within what an axis shows.
std::string TZySeries::WhyNotOn(const TZyAxis& Axis, double Low, double High) const {
  if (Axis.HasLogScaling() && !(High > 0)) return Format(LoadResString(_sDiagLog), {ToString(), NameOf(Axis)});
  if (Low > High || (High >= Axis.Start() && Low <= Axis.Stop())) return {};
  return Format(LoadResString(_sDiagOutside), {ToString(), NameOf(Axis), FloatToStr(Axis.Start()),
                                               FloatToStr(Axis.Stop()), FloatToStr(Low), FloatToStr(High)});
}

std::string TZySeries::Diagnose() const {
  if (!FVisible) return Format(LoadResString(_sDiagHidden), {ToString()});
  if (!SeriesVisible()) return Format(LoadResString(_sDiagNoLook), {ToString()});
  if (!HasGraph()) return WhyNotJoined();
  if (const std::string Points = WhyNoRange(); !Points.empty()) return Points;
  const std::string OnX = WhyNotOn(*FXAxis, FXStart, FXStop);
  return OnX.empty() ? WhyNotOn(*FYAxis, FYStart, FYStop) : OnX;
}

std::string TZySeries::WhyNoRange() const {
  return Count() < MinCount() || FXStart > FXStop || FYStart > FYStop ? WhyNoPoints() : std::string();
}

/// A curve has no range of Y where it leaves that to other series.
std::string TZyFunctionSeries::WhyNoRange() const {
  if (Count() < MinCount() || FXStart > FXStop) return WhyNoPoints();
  return FHasCurve ? std::string() : Format(LoadResString(_sDiagNotComputed), {ToString()});
}

}  // namespace zy
