#pragma once

#include <functional>
#include <string>

#include "axes/ZyAxisTypes.h"
#include "axes/ZyDateTimeSteps.h"
#include "axes/ZySecondsSteps.h"

namespace zy {

/// What the user of an axis decides about its steps and the format of its labels.
struct TZyStepRules {
  bool AutoTickParts = true;           ///< the steps are chosen from the room that there is
  float LabelDistanceFactor = 1;       ///< scales the gap between labels
  double LogToNormalScalingLevel = 0;  ///< decades up to which a logarithmic axis is linear after all; 0 for never
  int ExtraDigits = 0;                 ///< decimals beyond those that the ticks need
  double MaxForExtraExponent = 1000;   ///< values from which, and below which, the power of ten stands apart
  double MinForExtraExponent = 0.001;
  TZyTickTable TickTable;
  TZyDateTimeFormats DateTimeFormats = DefaultDateTimeFormats();
};

/// The steps and the number format of the present ends. The parts are the user's own while they are not chosen; the
/// kind of scale says what they are parts of.
struct TZyAxisSteps {
  double LabelPart = 1;
  double MajorTickPart = 0.5;
  double TickPart = 0.1;
  int RangeExponent = 0;  ///< decimal exponent of the span, or its number of decades
  bool HasLogScaling = false;
  double LogStart = 0;  ///< decadic logarithms of the ends, while places are logarithms
  double LogStop = 1;
  int LabelExponent = 0;       ///< decimal exponent of the larger end
  int Digits = 0;              ///< of a label from that exponent on
  bool ExtraExponent = false;  ///< labels show mantissas of 10^LabelExponent
  TZyDtParameters DateTime;
  TZySecParameters Seconds;
};

}  // namespace zy
