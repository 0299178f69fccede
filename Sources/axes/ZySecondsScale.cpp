#include "axes/ZySecondsScale.h"

#include <cmath>

#include "analysis/ZyMath.h"

namespace zy {

/// Spans are not negative.
void TZySecondsScale::RepairOrder(double& Start, double& Stop) const {
  if (Start < 0) Start = 0;
  if (Stop < 0) Stop = 1;
  TZyScaleKind::RepairOrder(Start, Stop);
}

void TZySecondsScale::TakeSteps(TZyAxisSteps& Steps, const TZyStepRules&, const TZyLabelRoom& Room, double Start,
                                double Stop, bool Chooses) const {
  if (!Chooses) return;
  const TZySecSteps Chosen = ChooseSecSteps(Start, Stop, Room);
  Steps.RangeExponent = Real10thExponent(Stop - Start);
  Steps.Seconds = Chosen.Parameters;
  Steps.LabelPart = Chosen.LabelPart;
  Steps.MajorTickPart = Chosen.MajorTickPart;
  Steps.TickPart = Chosen.TickPart;
}

void TZySecondsScale::TakeFormat(TZyAxisSteps& Steps, const TZyStepRules&, double Start, double Stop) const {
  Steps.Seconds.Format = SecondsFormat(Start, Stop);
  LimitParts(Steps);
}

double TZySecondsScale::PartSize(const TZyAxisSteps& Steps, double Part) const {
  return ExpMinus(Part, -Steps.Seconds.Exponent) * SecondsIn(Steps.Seconds.Rgn);
}

double TZySecondsScale::RoundToPart(const TZyAxisSteps& Steps, double Value, double Part, bool Up) const {
  const double Rounded = SecondsRound(Steps.Seconds.Rgn, Value, Part, Steps.Seconds.Exponent, Up);
  return std::isfinite(Rounded) ? Rounded + 0.0 : Value;  // never a negative 0
}

void TZySecondsScale::PutTicks(TZyTickWriter& Writer, TZyAxisSteps& Steps, const TZyStepRules&, const TZyLabelRoom&,
                               const TStrings&) const {
  constexpr double Snap = 0.004;  // its own steps divide each other
  PutEvenTicks(Writer, Steps, Snap,
               [&Steps](double, double Multiple) { return SecondsToString(Multiple, Steps.Seconds.Format); });
}

}  // namespace zy
