#pragma once

#include "axes/ZyScaleKind.h"

namespace zy {

/// Dates as day numbers with a fraction, in steps of the calendar. Ends may run from late to early.
class TZyDateTimeScale : public TZyScaleKind {
 public:
  TZyDateTimeScale() : TZyScaleKind(TZyAxisScaling::DateTime, TZyMapping::Calendar) {}

  bool ChoosesOwnSteps() const override { return true; }
  /// Dates before the first day do not order as their numbers do.
  bool RunsDown(double Start, double Stop) const override { return DateTimeSpan(Start, Stop) < 0; }
  bool MayRunDown() const override { return true; }
  double Settable(double End) const override;
  double Limited(double End) const override;
  void RepairOrder(double&, double&) const override {}
  void WidenEqual(double& Start, double& Stop, bool StartMoves, bool StopMoves) const override;
  double RoundEnd(const TZyAxisSteps& Steps, double Value, bool Up, bool ToMajor) const override;
  void TakeSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start, double Stop,
                 bool Chooses) const override;
  double MajorIncrement(const TZyAxisSteps& Steps) const override;
  double MinorIncrement(const TZyAxisSteps& Steps) const override;
  void PutTicks(TZyTickWriter& Writer, TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room,
                const TStrings& Rubrics) const override;
};

}  // namespace zy
