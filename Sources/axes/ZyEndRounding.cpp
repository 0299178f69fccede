#include "axes/ZyEndRounding.h"

namespace zy {

/// Dates, and axes that follow another one, may run from high to low.
void TZyEndRounding::Round(double& Start, double& Stop) const {
  if (FKind.RunsDown(Start, Stop) && (FKind.MayRunDown() || FNow.IsSlave)) return Round(Stop, Start);
  FSteps.ExtraExponent = false;
  Limit(Start, Stop);
  FKind.RepairOrder(Start, Stop);
  const bool StartMoves = FEndRules.StartEnd == TZyAxisEnd::AutoRange;
  FKind.WidenEqual(Start, Stop, StartMoves, FEndRules.StopEnd == TZyAxisEnd::AutoRange || !StartMoves);
  FKind.RepairValues(Start, Stop, FFirstPositive);
  AddPadding(Start, Stop);
  RoundToSteps(Start, Stop);
  FKind.TakeFormat(FSteps, FStepRules, Start, Stop);
}

void TZyEndRounding::Limit(double& Start, double& Stop) const {
  Start = FKind.Limited(Start);
  Stop = FKind.Limited(Stop);
}

/// Room of the user's own at the ends, for steps that are chosen for it.
void TZyEndRounding::AddPadding(double& Start, double& Stop) const {
  if (!ChoosesSteps() || FNow.KeepsEnds) return;
  FKind.TakeMapping(FSteps, FStepRules, Start, Stop);
  if (FSteps.HasLogScaling) return;
  const double Span = Stop - Start;
  double PaddedStart = Start - Span * FEndRules.StartPadding, PaddedStop = Stop + Span * FEndRules.StopPadding;
  Limit(PaddedStart, PaddedStop);
  if (FKind.RunsDown(PaddedStart, PaddedStop)) return;
  Start = PaddedStart;
  Stop = PaddedStop;
}

/// Rounding widens the span, and a wider one may have coarser steps: the ends are rounded until the steps are those of
/// the ends that they gave. A further rounding then changes nothing.
void TZyEndRounding::RoundToSteps(double& Start, double& Stop) const {
  constexpr int MostRounds = 20;
  for (int Times = 0; Times < MostRounds; ++Times) {
    FKind.TakeMapping(FSteps, FStepRules, Start, Stop);
    FKind.TakeSteps(FSteps, FStepRules, FRoom, Start, Stop, ChoosesSteps() && !FNow.Panning);
    if (FNow.KeepsEnds) return;
    const double FromStart = Start, FromStop = Stop;
    RoundToTicks(Start, Stop);
    if (Start == FromStart && Stop == FromStop) return;
  }
}

void TZyEndRounding::RoundToTicks(double& Start, double& Stop) const {
  using enum TZyAxisEndRounding;
  const TZyAxisEndRounding Way = FEndRules.EndRounding;
  if (Way == RndNothing) return;
  if (FNow.Zoomed && (Way == RndToMajorZoomToNothing || Way == RndToMinorZoomToNothing)) return;
  const bool ToMajor =
      Way == RndToMajor || Way == RndToMajorZoomToNothing || (Way == RndToMajorZoomToMinor && !FNow.Zoomed);
  if (!FKind.MayRoundTo(FSteps, ToMajor ? FSteps.MajorTickPart : FSteps.TickPart, Start, Stop)) return;
  const double RoundedStart = FKind.RoundEnd(FSteps, Start, false, ToMajor);
  const double RoundedStop = FKind.RoundEnd(FSteps, Stop, true, ToMajor);
  if (RoundedStart == RoundedStop) return;  // a span of the size of the reals' own steps
  Start = RoundedStart;
  Stop = RoundedStop;
}

}  // namespace zy
