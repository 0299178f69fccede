#pragma once

#include "axes/ZyScaleKind.h"

namespace zy {

/// Plain numbers, evenly spaced.
class TZyLinearScale : public TZyScaleKind {
 public:
  TZyLinearScale() : TZyLinearScale(TZyAxisScaling::Normal) {}

  bool MayRoundTo(const TZyAxisSteps& Steps, double Part, double Start, double Stop) const override;
  void TakeSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start, double Stop,
                 bool Chooses) const override;
  void TakeFormat(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const override;
  void FollowSpan(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const override;
  void PutTicks(TZyTickWriter& Writer, TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room,
                const TStrings& Rubrics) const override;

  /// The finest steps of the table whose labels have room, with at least two labels where these have half of it.
  void ChooseSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start,
                   double Stop) const;

 protected:
  explicit TZyLinearScale(TZyAxisScaling Scaling) : TZyScaleKind(Scaling, TZyMapping::Linear) {}
};

/// Text of a label of plain numbers.
std::string LinearLabel(const TZyAxisSteps& Steps, double Value);

}  // namespace zy
