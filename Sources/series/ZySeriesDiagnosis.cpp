// Why a series shows nothing, in words.

#include <algorithm>

#include "graph/parts/ZySeriesGraph.h"
#include "platform/controls/TWinControl.h"
#include "series/ZyFunctionSeries.h"
#include "series/ZyPointWithErrorSeries.h"
#include "series/vectors/ZyCustomDoubleVector.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

std::string NameOf(const TComponent& Component) {
  return Component.Name().empty() ? std::string(Component.ClassInfo().Name()) : Component.Name();
}

/// Its text, which several may have, and its own name where that is another one.
std::string TitleOf(const TZySeries& Series) {
  const std::string& Text = Series.ToString();
  return Series.Name().empty() || Series.Name() == Text ? Text : Text + " (" + Series.Name() + ")";
}

}  // namespace

/// What keeps it from joining a graph, in the order in which one would set it.
std::string TZySeries::WhyNotJoined() const {
  for (const auto& [Axis, Name] : {std::pair{FXAxis.Get(), "XAxis"}, std::pair{FYAxis.Get(), "YAxis"}})
    if (Axis == nullptr) return Format(LoadResString(_sDiagNotSet), {TitleOf(*this), Name});
  if (!HasOwnXData() && !HasOwnYData()) return Format(LoadResString(_sDiagNoData), {TitleOf(*this)});
  for (const TZySeriesInput* Input : FInputs)
    if (Input->Use() == TZyInputUse::Needed && !*Input)
      return Format(LoadResString(_sDiagNotSet), {TitleOf(*this), Input->PropName()});
  return Format(LoadResString(_sDiagAxisAlone), {TitleOf(*this), NameOf(*FYAxis)});
}

std::string TZySeries::WhyNoPoints() const {
  int Number = std::numeric_limits<int>::max();
  for (const TZySeriesInput* Input : FInputs) {
    if (!Input->IsNeeded() || (FIndexer != nullptr && Input->Vector() == FIndexer.get())) continue;
    if (Input->Count() == 0) return Format(LoadResString(_sDiagEmpty), {TitleOf(*this), Input->PropName()});
    Number = std::min(Number, Input->Count());
  }
  bool HasOutliers = false;
  for (int i = 0; i < Number; ++i) {
    if (HasValuesAt(i) && Number < MinCount())
      return Format(LoadResString(_sDiagTooFew), {TitleOf(*this), Number, MinCount()});
    HasOutliers = HasOutliers || NextOutlier(i) == i;
  }
  return Format(LoadResString(HasOutliers ? _sDiagOutliers : _sDiagNoNumbers), {TitleOf(*this)});
}

/// Whether the range of its points lies within what an axis shows.
std::string TZySeries::WhyNotOn(const TZyAxis& Axis, double Low, double High) const {
  if (Axis.HasLogScaling() && !(High > 0)) return Format(LoadResString(_sDiagLog), {TitleOf(*this), NameOf(Axis)});
  if (Low > High || (High >= Axis.Start() && Low <= Axis.Stop())) return {};
  return Format(LoadResString(_sDiagOutside), {TitleOf(*this), NameOf(Axis), FloatToStr(Axis.Start()),
                                               FloatToStr(Axis.Stop()), FloatToStr(Low), FloatToStr(High)});
}

std::string TZySeries::Diagnose() const {
  if (!FVisible) return Format(LoadResString(_sDiagHidden), {TitleOf(*this)});
  if (!SeriesVisible()) return Format(LoadResString(_sDiagNoLook), {TitleOf(*this)});
  if (!HasGraph()) return WhyNotJoined();
  if (std::string Points = WhyNoRange(); !Points.empty()) return Points;
  std::string Reason = WhyNotOn(*FXAxis, FXStart, FXStop);
  if (Reason.empty()) Reason = WhyNotOn(*FYAxis, FYStart, FYStop);
  return Reason.empty() ? WhyNothingDrawn() : Reason;
}

/// Of those kinds that draw lines from point to point, and symbols. Looks at all points, as nobody asks while a chart
/// is shown as it should be. Events, and pens and brushes of the application's own, may draw what the settings do not,
/// and transformations of values are not run for this.
std::string TZySeries::WhyNothingDrawn() const {
  const bool IsLine = dynamic_cast<const TZyLineSeries*>(this) != nullptr;
  if (!IsLine || OnGetPen() || OnGetBrush() || OnGetPointSymbol() || XValueTransformation() || YValueTransformation())
    return {};
  const bool HasArea = FAreaSettings->Visible();
  const TZyPointSymbolSettings& Symbol = *FPointSymbolSettings;
  const bool SeesLine = FLineSettings->Visible() &&
                        (!FPen.IsOwn() || GetAlpha(FLineSettings->Color()) != 0 || FLineSettings->Gradient().Visible());
  const bool SeesSymbol =
      Symbol.Visible() && (!FSymbolPen.IsOwn() || !FSymbolBrush.IsOwn() || FRangeFromFunction != nullptr ||
                           GetAlpha(Symbol.FillColor()) != 0 || GetAlpha(Symbol.BorderColor()) != 0);
  if (!SeesLine && !HasArea && !SeesSymbol) return Format(LoadResString(_sDiagTransparent), {TitleOf(*this)});
  const auto HasPlace = [](const TZyAxis& Axis, double Value) { return Value > 0 || !Axis.HasLogScaling(); };
  const auto IsOn = [&Symbol](const TZyAxis& Axis, double Value) {  // as far as its symbol reaches
    const auto [Low, High] = std::minmax({Axis.NumberToWorld(Axis.Start()), Axis.NumberToWorld(Axis.Stop())});
    const float At = Axis.NumberToWorld(Value);
    return At >= Low - Symbol.Size() && At <= High + Symbol.Size();
  };
  bool AnyPlace = false, AnyInside = false;
  int Number = 0;  // a line goes past gaps and outliers, and to the edge where a logarithm is none
  ForEachPoint(0, Count(), [&](int i) {
    ++Number;
    const double AtX = FX.At(i), AtY = FY.At(i);
    if (!HasPlace(*FXAxis, AtX) || !HasPlace(*FYAxis, AtY)) return;
    AnyPlace = true;
    AnyInside = AnyInside || (IsOn(*FXAxis, AtX) && IsOn(*FYAxis, AtY));
  });
  if (!AnyPlace) return Format(LoadResString(_sDiagNoPlace), {TitleOf(*this)});
  if (!SeesSymbol && Number < 2) return Format(LoadResString(_sDiagLonePoints), {TitleOf(*this)});
  if (!SeesLine && !HasArea && !AnyInside) return Format(LoadResString(_sDiagNoneInside), {TitleOf(*this)});
  return {};
}

/// Its bars show as well.
std::string TZyPointWithErrorSeries::WhyNothingDrawn() const { return {}; }

std::string TZySeries::WhyNoRange() const {
  return Count() < MinCount() || FXStart > FXStop || FYStart > FYStop ? WhyNoPoints() : std::string();
}

/// What its points are is up to the curve.
std::string TZyFunctionSeries::WhyNothingDrawn() const { return {}; }

/// A curve has no range of Y where it leaves that to other series.
std::string TZyFunctionSeries::WhyNoRange() const {
  if (Count() < MinCount() || FXStart > FXStop) return WhyNoPoints();
  return FHasCurve ? std::string() : Format(LoadResString(_sDiagNotComputed), {TitleOf(*this)});
}

}  // namespace zy
