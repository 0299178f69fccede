#include "axes/ZyEndRounding.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace zy {

/// Dates, and axes that follow another one, may run from high to low.
void TZyEndRounding::Round(double& Start, double& Stop) const {
  if (FKind.RunsDown(Start, Stop) && (FKind.MayRunDown() || FNow.IsSlave)) return Round(Stop, Start);
  FSteps.ExtraExponent = false;
  Limit(Start, Stop);
  if (!FNow.AreExact || !(Start < Stop) || FKind.IsLogarithmic()) Repair(Start, Stop);
  AddPadding(Start, Stop);
  RoundToSteps(Start, Stop);
  FKind.TakeFormat(FSteps, FStepRules, Start, Stop);
}

/// Padding may lead to where ends are repaired, so that this comes before it.
void TZyEndRounding::Repair(double& Start, double& Stop) const {
  FKind.RepairOrder(Start, Stop);
  const bool StartMoves = FEndRules.StartEnd == TZyAxisEnd::AutoRange;
  FKind.WidenEqual(Start, Stop, StartMoves, FEndRules.StopEnd == TZyAxisEnd::AutoRange || !StartMoves);
  FKind.RepairValues(Start, Stop, FFirstPositive);
}

void TZyEndRounding::Limit(double& Start, double& Stop) const {
  Start = FKind.Limited(Start);
  Stop = FKind.Limited(Stop);
}

/// Room of the user's own at the ends, for steps that are chosen for it. A scale that is linear by its level keeps ends
/// above 0: one that is padded beyond that is not padded there, or else it had no logarithm to turn back with.
void TZyEndRounding::AddPadding(double& Start, double& Stop) const {
  if (!ChoosesSteps() || FNow.KeepsEnds) return;
  FKind.TakeMapping(FSteps, FStepRules, Start, Stop);
  if (FSteps.HasLogScaling) return;
  const double Span = Stop - Start;
  double PaddedStart = Start - Span * FEndRules.StartPadding, PaddedStop = Stop + Span * FEndRules.StopPadding;
  Limit(PaddedStart, PaddedStop);
  if (FKind.RunsDown(PaddedStart, PaddedStop)) return;
  if (FKind.IsLogarithmic() && PaddedStart <= 0) PaddedStart = Start;
  Start = PaddedStart;
  Stop = PaddedStop;
}

/// Exact ends have the steps that they were rounded to, if these lead back to them.
void TZyEndRounding::RoundToSteps(double& Start, double& Stop) const {
  TZyAxisRange Ends{Start, Stop};
  const bool LeadsBack = FNow.AreExact && !FNow.Panning && PairedWithSteps(Ends) == Ends;
  if (FNow.KeepsEnds) {
    if (!LeadsBack) TakeSteps(Ends);
    return;
  }
  Ends = PairedWithSteps(Ends);
  Start = Ends.Start;
  Stop = Ends.Stop;
}

void TZyEndRounding::TakeSteps(const TZyAxisRange& Ends) const {
  FKind.TakeMapping(FSteps, FStepRules, Ends.Start, Ends.Stop);
  FKind.TakeSteps(FSteps, FStepRules, FRoom, Ends.Start, Ends.Stop, ChoosesSteps() && !FNow.Panning);
}

/// Rounding widens the span, and a wider one may have coarser steps. Ends and steps belong together when the ends are
/// those that were asked for, rounded to the steps that the rounded ends have. It is always the same ends that are
/// rounded: rounded ones, rounded again, would creep outwards. Where a wider span has finer steps, as texts get
/// shorter, there may be no such pair; then the narrowest of those that follow each other stands.
TZyAxisRange TZyEndRounding::PairedWithSteps(const TZyAxisRange& Asked) const {
  constexpr std::size_t MostRounds = 20;
  struct TRounded {
    TZyAxisRange Ends;
    TZyAxisSteps Steps;
    double Span() const { return std::fabs(Ends.Stop - Ends.Start); }
  };
  TZyAxisRange Ends = Asked;
  std::vector<TRounded> Tried;
  for (;;) {
    TakeSteps(Ends);
    const TZyAxisRange Rounded = RoundedToTicks(Asked, Ends);
    if (Rounded == Ends) return Ends;
    const auto Again = std::ranges::find(Tried, Rounded, &TRounded::Ends);
    if (Again != Tried.end() || Tried.size() == MostRounds) {
      const auto First = Again != Tried.end() ? Again : Tried.begin();
      const TRounded& Narrowest = *std::min_element(
          First, Tried.end(), [](const TRounded& A, const TRounded& B) { return A.Span() < B.Span(); });
      FSteps = Narrowest.Steps;
      return Narrowest.Ends;
    }
    Tried.push_back({Rounded, FSteps});
    Ends = Rounded;
  }
}

/// Asked rounded to the present steps, which are those of Ends; Ends where they are not to be rounded to these.
TZyAxisRange TZyEndRounding::RoundedToTicks(const TZyAxisRange& Asked, const TZyAxisRange& Ends) const {
  using enum TZyAxisEndRounding;
  const TZyAxisEndRounding Way = FEndRules.EndRounding;
  if (Way == RndNothing) return Ends;
  if (FNow.Zoomed && (Way == RndToMajorZoomToNothing || Way == RndToMinorZoomToNothing)) return Ends;
  const bool ToMajor =
      Way == RndToMajor || Way == RndToMajorZoomToNothing || (Way == RndToMajorZoomToMinor && !FNow.Zoomed);
  if (!FKind.MayRoundTo(FSteps, ToMajor ? FSteps.MajorTickPart : FSteps.TickPart, Ends.Start, Ends.Stop)) return Ends;
  const TZyAxisRange Rounded{FKind.RoundEnd(FSteps, Asked.Start, false, ToMajor),
                             FKind.RoundEnd(FSteps, Asked.Stop, true, ToMajor)};
  return Rounded.Start == Rounded.Stop ? Ends : Rounded;  // a span of the size of the reals' own steps
}

}  // namespace zy
