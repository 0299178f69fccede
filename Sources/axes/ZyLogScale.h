#pragma once

#include "axes/ZyLinearScale.h"

namespace zy {

/// Positive numbers by their logarithms, with plain numbers as labels. A span of few decades can be linear after all:
/// then the scale is one of plain numbers in everything.
class TZyLogScale : public TZyLinearScale {
 public:
  TZyLogScale() : TZyLogScale(TZyAxisScaling::Log) {}

  bool IsLogarithmic() const override { return true; }
  void RepairOrder(double& Start, double& Stop) const override;
  void RepairValues(double& Start, double& Stop, const TZyFirstPositive& FirstPositive) const override;
  void TakeMapping(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const override;
  bool MayRoundTo(const TZyAxisSteps& Steps, double Part, double Start, double Stop) const override;
  double RoundEnd(const TZyAxisSteps& Steps, double Value, bool Up, bool ToMajor) const override;
  void TakeSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start, double Stop,
                 bool Chooses) const override;
  void TakeFormat(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const override;
  void KeepSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start,
                 double Stop) const override;
  double MajorIncrement(const TZyAxisSteps& Steps) const override;
  double MinorIncrement(const TZyAxisSteps& Steps) const override;
  void FollowSpan(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const override;
  void PutTicks(TZyTickWriter& Writer, TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room,
                const TStrings& Rubrics) const override;

 protected:
  explicit TZyLogScale(TZyAxisScaling Scaling) : TZyLinearScale(Scaling) {}
  /// Text of the label of a tick, and one as long, which is measured before there are ticks.
  virtual std::string LogLabel(double Value) const;
  virtual std::string MeasuredLabel(double Value) const;

 private:
  void ChooseDecades(TZyAxisSteps& Steps, const TZyLabelRoom& Room, double Start, double Stop) const;
  void PutDecades(TZyTickWriter& Writer, const TZyAxisSteps& Steps) const;
  void PutInsideDecades(TZyTickWriter& Writer, const TZyAxisSteps& Steps) const;
};

}  // namespace zy
