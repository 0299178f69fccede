#pragma once

#include <utility>

#include "axes/ZyScaleKind.h"

namespace zy {

/// What the user of an axis decides about its ends.
struct TZyEndRules {
  TZyAxisEnd StartEnd = TZyAxisEnd::AutoRange;
  TZyAxisEnd StopEnd = TZyAxisEnd::AutoRange;
  TZyAxisEndRounding EndRounding = TZyAxisEndRounding::RndToMajorZoomToMinor;
  double StartPadding = 0;  ///< fractions of the span that are added at the ends
  double StopPadding = 0;
  double MovingSlitWidth = 0;  ///< of a moving range, and the step by which it jumps
  double MovingSlitIncrement = 0;
};

/// Repairs ends, chooses steps for them and rounds them to these.
class TZyEndRounding {
 public:
  /// What runs, and what the axis is to others.
  struct TCircumstances {
    bool Panning = false;    ///< steps stay as they are
    bool KeepsEnds = false;  ///< ends follow the fingers, or are exact, and are not rounded
    bool AreExact = false;   ///< ends were laid out before, and need no repair
    bool Zoomed = false;
    bool IsSlave = false;  ///< ends may run from high to low
  };

  /// Kind, steps and rules outlive this object, which writes the steps.
  TZyEndRounding(const TZyScaleKind& Kind, TZyAxisSteps& Steps, const TZyStepRules& StepRules,
                 const TZyEndRules& EndRules, TZyLabelRoom Room, TZyFirstPositive FirstPositive,
                 const TCircumstances& Circumstances)
      : FKind(Kind),
        FSteps(Steps),
        FStepRules(StepRules),
        FEndRules(EndRules),
        FRoom(std::move(Room)),
        FFirstPositive(std::move(FirstPositive)),
        FNow(Circumstances) {}

  /// Rounds ends that were asked for. Rounded ends that are asked for stay as they are.
  void Round(double& Start, double& Stop) const;
  /// Whether ends stay as they are.
  bool KeepsEnds() const { return FNow.KeepsEnds; }
  bool Zoomed() const { return FNow.Zoomed; }
  /// Pixels that the labels have along the axis.
  double RoomLength() const { return FRoom.Length; }

  const TZyScaleKind& Kind() const { return FKind; }
  /// Ends that stand as they are: steps that were chosen for others go on to hold as far as they can.
  void KeepSteps(double Start, double Stop) const { FKind.KeepSteps(FSteps, FStepRules, FRoom, Start, Stop); }

 private:
  void Limit(double& Start, double& Stop) const;
  void Repair(double& Start, double& Stop) const;
  void AddPadding(double& Start, double& Stop) const;
  void RoundToSteps(double& Start, double& Stop) const;
  void TakeSteps(const TZyAxisRange& Ends) const;
  TZyAxisRange PairedWithSteps(const TZyAxisRange& Asked) const;
  TZyAxisRange RoundedToTicks(const TZyAxisRange& Asked, const TZyAxisRange& Ends) const;
  bool ChoosesSteps() const { return FStepRules.AutoTickParts || FKind.ChoosesOwnSteps(); }

  const TZyScaleKind& FKind;
  TZyAxisSteps& FSteps;
  const TZyStepRules& FStepRules;
  const TZyEndRules& FEndRules;
  TZyLabelRoom FRoom;
  TZyFirstPositive FFirstPositive;
  TCircumstances FNow;
};

}  // namespace zy
