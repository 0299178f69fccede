// The zoom stages of an axis, and how scrolling, panning and zooming at a place move it.

#include <algorithm>
#include <cmath>

#include "analysis/ZyMath.h"
#include "axes/ZyAxis.h"
#include "graph/ZyZoomSettings.h"

namespace zy {
namespace {

/// Positions of a scroll bar.
constexpr double WholeBar = 10000;

}  // namespace

// --- Stages ---------------------------------------------------------------------------------------------------------

void TZyAxis::BeginZoomBuffer() {
  if (!FLastZoomStart.empty()) return;
  FLastZoomStart.push_back(FStart);
  FLastZoomStop.push_back(FStop);
  FZoomIdx = 0;
}

void TZyAxis::ZoomClearBuffer() {
  FLastZoomStart.clear();
  FLastZoomStop.clear();
  FZoomIdx = 0;
}

void TZyAxis::ZoomIn(double NewStart, double NewStop) {
  BeginZoomBuffer();
  const auto HasData = [this](double Value) { return Value >= FValuesStart && Value <= FValuesStop; };
  if (HasData(NewStart)) FStart = FLastStart = NewStart;
  if (HasData(NewStop)) FStop = FLastStop = NewStop;
  ++FZoomIdx;
  FLastZoomStart.resize(static_cast<std::size_t>(FZoomIdx));
  FLastZoomStop.resize(static_cast<std::size_t>(FZoomIdx));
  FLastZoomStart.push_back(FStart);
  FLastZoomStop.push_back(FStop);
  Modified();
}

/// Shows a stage that there is.
void TZyAxis::TakeStage(int Stage) {
  FZoomIdx = Stage;
  FStart = FLastStart = FLastZoomStart[static_cast<std::size_t>(Stage)];
  FStop = FLastStop = FLastZoomStop[static_cast<std::size_t>(Stage)];
  Modified();
}

void TZyAxis::ZoomToStage(int Stage) {
  if (Stage >= 0 && Stage < GetZoomBufferSize()) TakeStage(Stage);
}

void TZyAxis::ZoomBack() {
  if (GetCanZoomBack()) TakeStage(FZoomIdx > 0 ? FZoomIdx - 1 : GetZoomBufferSize() - 1);
}

void TZyAxis::RedoZoom() {
  if (GetCanZoomBack()) TakeStage(FZoomIdx + 1 < GetZoomBufferSize() ? FZoomIdx + 1 : 0);
}

// --- On the scale ---------------------------------------------------------------------------------------------------

double TZyAxis::ToScale(double Value) const { return FScale.HasLogScaling ? std::log10(Value) : Value; }

double TZyAxis::FromScale(double Place) const { return FScale.HasLogScaling ? Exp10(Place) : Place; }

double TZyAxis::WholeOnScale() const {
  const double Whole = ToScale(GetScrollStop()) - ToScale(GetScrollStart());
  return Whole > 0 ? Whole : ToScale(FStop) - ToScale(FStart);
}

bool TZyAxis::ShowsWhole() const { return FStart <= GetScrollStart() && FStop >= GetScrollStop(); }

int TZyAxis::ScrollRangeSize(double Start, double Stop) const {
  const double Size = std::round(WholeBar * (ToScale(Stop) - ToScale(Start)) / WholeOnScale());
  return std::isnan(Size) ? 0 : static_cast<int>(std::clamp(Size, 0.0, WholeBar));
}

int TZyAxis::ScrollPosition(double Value) const {
  constexpr double Limit = 1e9;  // of what an integer holds
  const double Position = std::round(WholeBar * (ToScale(Value) - ToScale(GetScrollStart())) / WholeOnScale());
  return std::isnan(Position) ? 0 : static_cast<int>(std::clamp(Position, -Limit, Limit));
}

double TZyAxis::IncrementOf(TZyScrollIncrement Increment) const {
  switch (Increment) {
    case TZyScrollIncrement::Page:
      return ToScale(FStop) - ToScale(FStart);
    case TZyScrollIncrement::MajorTick:
      return MajorIncrement();
    case TZyScrollIncrement::MinorTick:
      return MinorIncrement();
    case TZyScrollIncrement::Pixel:
      return FNormalizeConst;
  }
  return 0;
}

// --- Moves ----------------------------------------------------------------------------------------------------------

/// Where the start of a scrolled axis comes to lie: a step is made a little shorter, so that rounding upwards does not
/// reach the tick behind the one that is meant.
double TZyAxis::ScrolledStart(double Distance, bool Rounds) const {
  constexpr double Less = 0.9999, More = 1.0001;
  const double Start = ToScale(FStart);
  if (!Rounds) return Start + Distance;
  const double Place = Start + Distance * (Distance > 0 ? Less : More);
  return FScale.HasLogScaling ? Place : RoundEnd(Place, true, FEndRounding == TZyAxisEndRounding::RndToMajor);
}

void TZyAxis::ScrollBy(double Part, bool AddsStage) {
  using enum TZyAxisEndRounding;
  const bool Rounds =
      !Panning() && (FEndRounding == RndToMajorZoomToMinor || FEndRounding == RndToMajor || FEndRounding == RndToMinor);
  const double Distance = WholeOnScale() * Part * (FTwisted ? -1 : 1);
  const double Low = ToScale(GetScrollStart()), High = ToScale(GetScrollStop());
  const double Size = ToScale(FStop) - ToScale(FStart);
  double Start = std::max(ScrolledStart(Distance, Rounds), Low);
  double Stop = Start + Size;
  if (Stop > High) {
    Stop = High;
    Start = Stop - Size;
    if (Rounds && !FScale.HasLogScaling) Start = RoundEnd(Start, true, FEndRounding == RndToMajor);
  }
  if (!std::isfinite(Start) || !std::isfinite(Stop)) return;
  if (AddsStage) {
    ZoomIn(FromScale(Start), FromScale(Stop));
  } else {
    SetStartStop(FromScale(Start), FromScale(Stop));
  }
}

void TZyAxis::ZoomAround(double Start, double Stop, double Fixed, double Factor) {
  constexpr double MostSteps = 1e12;  // a span of fewer steps of the reals cannot be drawn
  const double Low = ToScale(GetScrollStart()), High = ToScale(GetScrollStop());
  const double Near = (High - Low) * 1e-9;  // what lies so near to an end of the whole range is meant to be that end
  double NewStart = Fixed + (Start - Fixed) * Factor, NewStop = Fixed + (Stop - Fixed) * Factor;
  if (NewStart < Low + Near) NewStart = Low;
  if (NewStop > High - Near) NewStop = High;
  if (!(NewStop - NewStart > std::max(std::fabs(NewStart), std::fabs(NewStop)) / MostSteps)) return;
  SetStartStop(NewStart == Low ? GetScrollStart() : FromScale(NewStart),
               NewStop == High ? GetScrollStop() : FromScale(NewStop));
}

}  // namespace zy
