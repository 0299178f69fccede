#pragma once

#include "axes/ZyScaleKind.h"

namespace zy {

/// The whole numbers from 0 on stand for texts, each of which is centred in the cell up to the next number.
class TZyRubricScale : public TZyScaleKind {
 public:
  TZyRubricScale() : TZyScaleKind(TZyAxisScaling::Rubrics, TZyMapping::Linear) {}

  bool ChoosesOwnSteps() const override { return true; }
  bool ShowsRubrics() const override { return true; }
  void RepairOrder(double& Start, double& Stop) const override;
  void TakeSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start, double Stop,
                 bool Chooses) const override;
  void PutTicks(TZyTickWriter& Writer, TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room,
                const TStrings& Rubrics) const override;
};

}  // namespace zy
