#pragma once

#include "axes/ZyDateTimeSteps.h"

namespace zy {

/// How an axis of seconds counts.
struct TZySecParameters {
  TZyDtRegion Rgn = TZyDtRegion::Second;  ///< unit of the parts: days, hours, minutes or seconds
  int Exponent = 0;                       ///< decimal exponent of the parts in that unit
  TZySecondsFormatRange Format = 0;       ///< of the labels, for `SecondsToString`
};

/// Steps of an axis of seconds, in Rgn x 10^Exponent.
struct TZySecSteps {
  TZySecParameters Parameters;
  double LabelPart = 1;
  double MajorTickPart = 0.5;
  double TickPart = 0.1;
};

/// The format that shows the larger of two values in full: days from one day on, and so on.
TZySecondsFormatRange SecondsFormat(double Start, double Stop);

/// Steps that suit the unit in which one reads the span, in halves and fifths, in quarters of hours, or in days of 24
/// hours: from coarse to fine, the first whose labels would stand too close on estimates that are generous.
TZySecSteps ChooseSecSteps(double Start, double Stop, const TZyLabelRoom& Room);

/// Seconds in a unit of time: 86400 for days, 3600, 60, else 1.
double SecondsIn(TZyDtRegion Unit);

/// The next point at or above (at or below) a value in seconds of the grid Part x 10^Exponent, in the unit.
double SecondsRound(TZyDtRegion Unit, double Value, double Part, int Exponent, bool Up);

}  // namespace zy
