#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "axes/ZyDateTime.h"
#include "axes/ZyDateTimeText.h"

namespace zy {

/// The room along an axis in pixels, and what labels take of it. Measure estimates the length of a label by its text
/// and its value.
struct TZyLabelRoom {
  double Length = 0;
  double DistanceFactor = 1;
  std::function<double(std::string Text, double Value)> Measure;
};

/// Steps of a date and time axis.
struct TZyDtParameters {
  TZyDtRegion MajorRgn = TZyDtRegion::Year;  ///< unit of the labels and major ticks
  TZyDtRegion MinorRgn = TZyDtRegion::Year;  ///< unit in which the ticks are counted
  int Increment = 1;                         ///< from tick to tick, in MinorRgn
  int MajorMod = 1;                          ///< a tick is major when its count in MinorRgn divides by this
  int LabelMod = 1;                          ///< a major tick has a label when its count divides by this
  std::string Format;                        ///< of the labels; empty for years as digits
};

/// The finest steps whose labels have room between Start and Stop. Labels are measured at Stop.
TZyDtParameters ChooseDtParameters(TDateTime Start, TDateTime Stop, const TZyDateTimeFormats& Formats,
                                   const TZyLabelRoom& Room);

/// The next tick, or with ToMajor the next major one, at or behind (at or before) Value, from `MinDateTime` to
/// `MaxDateTime`. Weeks begin on Sunday.
TDateTime DateTimeRound(const TZyDtParameters& Steps, TDateTime Value, bool Up, bool ToMajor);

/// Text of the label of a tick. Milliseconds lose up to two zeros at their end.
std::string DateTimeLabel(const TZyDtParameters& Steps, TDateTime Value);

/// The ticks of an axis one after the other. Nothing ends them: the caller compares Value with its last one.
class TZyDateTimeTicks {
 public:
  /// The first tick is the first one at or behind Start. Steps must outlive the ticks.
  TZyDateTimeTicks(const TZyDtParameters& Steps, TDateTime Start);

  TDateTime Value() const { return FValue; }
  bool Major() const { return FMajor; }
  /// Whether a label stands here; only major ticks have some.
  bool Labelled() const { return FLabelled; }
  void Next();

 private:
  void Take();
  std::int64_t Count() const;

  const TZyDtParameters& FSteps;
  TDateTime FValue;
  bool FMajor = false;
  bool FLabelled = false;
  bool FToggle = false;
};

}  // namespace zy
