#include "axes/ZyRubricScale.h"

#include <cmath>

#include "analysis/ZyMath.h"
#include "platform/framework/TStrings.h"

namespace zy {

void TZyRubricScale::RepairOrder(double& Start, double& Stop) const {
  if (Start < 0) Start = 0;
  if (Stop < 0) Stop = 1;
  TZyScaleKind::RepairOrder(Start, Stop);
}

void TZyRubricScale::TakeSteps(TZyAxisSteps& Steps, const TZyStepRules&, const TZyLabelRoom&, double, double,
                               bool) const {
  Steps.TickPart = Steps.MajorTickPart = Steps.LabelPart = 1;
  Steps.RangeExponent = 0;
}

/// A scale of more cells than pixels shows every tenth, hundredth ... of them.
void TZyRubricScale::PutTicks(TZyTickWriter& Writer, TZyAxisSteps&, const TZyStepRules&, const TZyLabelRoom&,
                              const TStrings& Rubrics) const {
  constexpr double Nearly = 1e-9;
  const double Low = Writer.Low(), High = Writer.High();
  double Step = 1;
  while ((High - Low) / Step > Writer.Length()) Step *= 10;
  const double HalfCell = std::round(0.5 / Writer.Transform().PerPixel());
  const auto Shift = static_cast<float>(Writer.Transform().Forward() ? HalfCell : -HalfCell);
  const double First = RoundUp(Low, Step, 0);
  const double Cells = std::floor((High - First) / Step + Nearly);
  for (int Index = 0; Index <= Cells; ++Index) {  // counted: far from 0 a step may be lost in a sum
    const double Value = First + Index * Step;
    const bool HasText = Writer.ShowsLabels() && Value >= 0 && Value < High && Value < Rubrics.Count();
    Writer.PutOnGrid(Value, true, HasText, true, Shift, [&] { return Rubrics.Get(static_cast<int>(Value)); });
  }
}

}  // namespace zy
