#include "axes/ZyScrollRange.h"

#include <algorithm>
#include <cmath>

namespace zy {
namespace {

constexpr double WholeBar = 10000;  // positions of a scroll bar

}  // namespace

int TZyScrollRange::SizeOnBar(double Start, double Stop) const {
  const double Size = std::round(WholeBar * (FTransform.ToScale(Stop) - FTransform.ToScale(Start)) / WholeLength());
  return std::isnan(Size) ? 0 : static_cast<int>(std::clamp(Size, 0.0, WholeBar));
}

int TZyScrollRange::PositionOnBar(double Value) const {
  constexpr double Limit = 1e9;  // of what an integer holds
  const double Position = std::round(WholeBar * (FTransform.ToScale(Value) - FLow) / WholeLength());
  return std::isnan(Position) ? 0 : static_cast<int>(std::clamp(Position, -Limit, Limit));
}

/// A step that is rounded is made a little shorter, so that rounding upwards does not reach the tick behind the one
/// that is meant. On logarithms it keeps the range as wide as it is, and so it does at the end of the whole range where
/// the next tick would lie beyond.
std::optional<TZyAxisRange> TZyScrollRange::MovedBy(double Distance, const TRound& Round) const {
  constexpr double Less = 0.9999, More = 1.0001;
  const bool OnTicks = Round && FTransform.Mapping() != TZyMapping::Logarithmic;
  double Place = FShownStart + (Round ? Distance * (Distance > 0 ? Less : More) : Distance);
  if (OnTicks) Place = Round(Place);
  double Start = std::max(Place, FLow);
  double Stop = Start + ShownLength();
  if (Stop > FHigh) {
    Stop = FHigh;
    Start = Stop - ShownLength();
    if (const double Rounded = OnTicks ? Round(Start) : Start; Rounded < Stop) Start = Rounded;
  }
  if (!std::isfinite(Start) || !std::isfinite(Stop)) return std::nullopt;
  return TZyAxisRange{FTransform.FromScale(Start), FTransform.FromScale(Stop)};
}

std::optional<TZyAxisRange> TZyScrollRange::ScaledAround(double Start, double Stop, double Fixed, double Factor) const {
  constexpr double MostSteps = 1e12;          // a span of fewer steps of the reals cannot be drawn
  const double Near = (FHigh - FLow) * 1e-9;  // what lies so near to an end of the whole range is meant to be that end
  double NewStart = Fixed + (Start - Fixed) * Factor, NewStop = Fixed + (Stop - Fixed) * Factor;
  if (NewStart < FLow + Near) NewStart = FLow;
  if (NewStop > FHigh - Near) NewStop = FHigh;
  if (!(NewStop - NewStart > std::max(std::fabs(NewStart), std::fabs(NewStop)) / MostSteps)) return std::nullopt;
  return TZyAxisRange{NewStart == FLow ? FWhole.Start : FTransform.FromScale(NewStart),
                      NewStop == FHigh ? FWhole.Stop : FTransform.FromScale(NewStop)};
}

}  // namespace zy
