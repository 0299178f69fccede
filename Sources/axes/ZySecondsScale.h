#pragma once

#include "axes/ZyScaleKind.h"

namespace zy {

/// Time spans in seconds, evenly spaced in steps that suit days, hours and minutes.
class TZySecondsScale : public TZyScaleKind {
 public:
  TZySecondsScale() : TZyScaleKind(TZyAxisScaling::Seconds, TZyMapping::Linear) {}

  bool ChoosesOwnSteps() const override { return true; }
  void RepairOrder(double& Start, double& Stop) const override;
  void TakeSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start, double Stop,
                 bool Chooses) const override;
  void TakeFormat(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const override;
  void PutTicks(TZyTickWriter& Writer, TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room,
                const TStrings& Rubrics) const override;

 protected:
  double PartSize(const TZyAxisSteps& Steps, double Part) const override;
  double RoundToPart(const TZyAxisSteps& Steps, double Value, double Part, bool Up) const override;
};

}  // namespace zy
