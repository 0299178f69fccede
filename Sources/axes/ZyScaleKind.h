#pragma once

#include <functional>
#include <string>

#include "axes/ZyAxisSteps.h"
#include "axes/ZyAxisTicks.h"

namespace zy {

class TStrings;

/// Where the data of a scale that needs values above 0 begin: when that is above 0, else the smallest value above 0 of
/// all data that lies below Stop; 0 when there is none.
using TZyFirstPositive = std::function<double(double Stop)>;

/// Whether values lie beyond the start, and beyond the stop, of a scale.
struct TZyBeyond {
  bool Start = false;
  bool Stop = false;
};

/// A kind of scale: everything that depends on what the values of an axis are. It has no state; the steps are the
/// axis's, and nothing else asks of which kind an axis is.
///
/// The base is the evenly spaced scale of plain numbers but for its steps, and stands for what most kinds have in
/// common.
class TZyScaleKind {
 public:
  /// The kind of a value of `TZyAxis::Scaling`; it lives as long as the program.
  static const TZyScaleKind& Of(TZyAxisScaling Scaling);

  virtual ~TZyScaleKind() = default;
  TZyScaleKind(const TZyScaleKind&) = delete;
  TZyScaleKind& operator=(const TZyScaleKind&) = delete;

  // ---- What it is ----

  TZyAxisScaling Scaling() const { return FScaling; }
  /// Whether places are logarithms, as long as the level does not make the scale linear.
  virtual bool IsLogarithmic() const { return false; }
  /// Whether it chooses its steps itself, so that none can be set.
  virtual bool ChoosesOwnSteps() const { return false; }
  virtual bool ShowsRubrics() const { return false; }
  TZyMapping Mapping(const TZyAxisSteps& Steps) const {
    return Steps.HasLogScaling ? TZyMapping::Logarithmic : FMapping;
  }

  // ---- Ends ----

  /// Whether values go down from one end to the other.
  virtual bool RunsDown(double Start, double Stop) const { return Start > Stop; }
  double LowEnd(double Start, double Stop) const { return RunsDown(Start, Stop) ? Stop : Start; }
  double HighEnd(double Start, double Stop) const { return RunsDown(Start, Stop) ? Start : Stop; }
  /// Whether an axis may show them so.
  virtual bool MayRunDown() const { return false; }
  /// Whether values from one to another reach beyond the ends of a scale, which may run from high to low: by more than
  /// a hundred millionth of its length, as it is drawn. What has no place on the scale does not count.
  TZyBeyond Beyond(const TZyAxisSteps& Steps, const TZyAxisRange& Ends, const TZyAxisRange& Values) const;
  /// An end as it can be set.
  virtual double Settable(double End) const { return End; }
  /// Keeps an end where its span and the grid around it still are numbers; what is none becomes 0.
  virtual double Limited(double End) const;
  /// Puts something in the place of ends that lie the wrong way round, or where the kind has no values.
  virtual void RepairOrder(double& Start, double& Stop) const;
  /// Gives equal ends a span, at those ends that may move.
  virtual void WidenEqual(double& Start, double& Stop, bool StartMoves, bool StopMoves) const;
  /// Gives the scale ends that it can map.
  virtual void RepairValues(double&, double&, const TZyFirstPositive&) const {}
  /// Decides whether places are logarithms now.
  virtual void TakeMapping(TZyAxisSteps& Steps, const TZyStepRules& Rules, double Start, double Stop) const;
  /// Whether ends may be rounded to a step at all.
  virtual bool MayRoundTo(const TZyAxisSteps&, double /*Part*/, double /*Start*/, double /*Stop*/) const {
    return true;
  }
  /// The next tick, or major tick, at or above (at or below) an end.
  virtual double RoundEnd(const TZyAxisSteps& Steps, double Value, bool Up, bool ToMajor) const;

  // ---- Steps and number format ----

  /// Steps for the ends: chosen for the room where Chooses, else only brought in line with the span.
  virtual void TakeSteps(TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room, double Start,
                         double Stop, bool Chooses) const = 0;
  /// What rounded ends fix of steps and labels.
  virtual void TakeFormat(TZyAxisSteps&, const TZyStepRules&, double /*Start*/, double /*Stop*/) const {}
  /// Ends that were not rounded, as those of a master are: steps chosen for others go on to hold as far as they can.
  virtual void KeepSteps(TZyAxisSteps&, const TZyStepRules&, const TZyLabelRoom&, double /*Start*/,
                         double /*Stop*/) const {}
  /// One step between major ticks, and between ticks, in values of the axis; in decades where places are logarithms.
  virtual double MajorIncrement(const TZyAxisSteps& Steps) const { return PartSize(Steps, Steps.MajorTickPart); }
  virtual double MinorIncrement(const TZyAxisSteps& Steps) const { return PartSize(Steps, Steps.TickPart); }

  // ---- Ticks ----

  /// Values from pixel to pixel of an axis of that length.
  double PerPixel(const TZyAxisSteps& Steps, double Start, double Stop, float Length) const;
  /// Steps of the user's own follow a span that changed since the ends were rounded.
  virtual void FollowSpan(TZyAxisSteps&, const TZyStepRules&, double /*Start*/, double /*Stop*/) const {}
  /// Puts all ticks between the ends. Rubrics are the texts of whole numbers from 0 on.
  virtual void PutTicks(TZyTickWriter& Writer, TZyAxisSteps& Steps, const TZyStepRules& Rules, const TZyLabelRoom& Room,
                        const TStrings& Rubrics) const = 0;

 protected:
  TZyScaleKind(TZyAxisScaling Scaling, TZyMapping Mapping) : FScaling(Scaling), FMapping(Mapping) {}
  /// Size of a step in values of the axis.
  virtual double PartSize(const TZyAxisSteps& Steps, double Part) const;
  /// The next multiple of a step.
  virtual double RoundToPart(const TZyAxisSteps& Steps, double Value, double Part, bool Up) const;
  /// Raises steps that are too fine to be told apart, and those that are finer than the ticks.
  static void LimitParts(TZyAxisSteps& Steps);
  /// Evenly spaced ticks on the grid of their step, whether the ends lie on it or not. A tick that lies nearer than a
  /// part of the step, Snap, to a multiple of the major step or of that of labels stands for it. Text gets the value of
  /// the tick and the multiple.
  void PutEvenTicks(TZyTickWriter& Writer, const TZyAxisSteps& Steps, double Snap,
                    const std::function<std::string(double Value, double Multiple)>& Text) const;

 private:
  double PartOfLength(const TZyAxisSteps& Steps, const TZyAxisRange& Ends, double Value) const;

  const TZyAxisScaling FScaling;
  const TZyMapping FMapping;
};

}  // namespace zy
