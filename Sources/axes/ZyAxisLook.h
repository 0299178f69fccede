#pragma once

#include "graph/values/ZyColors.h"
#include "platform/framework/Alignment.h"

namespace zy {

/// How an axis looks: colours, and measures in pixels.
struct TZyAxisLook {
  TZyColor ForeColor = Colors::Black;
  TZyColor TickColor = Colors::Black;
  TZyColor MajorTickColor = Colors::Black;
  float AxisThicknes = 1;
  float MajorTickThicknes = 1;
  float TickThicknes = 1;
  float TickLength = 6;
  float MajorTickLength = 10;
  bool TicksPointToData = false;
  float DistanceValuesAxis = 0;
  float DistanceAxisLabels = 0;
  float DistanceAxisExtraExponent = 10;
  bool NumbersVisible = true;
  bool CaptionVisible = true;
  TAlignment CaptionAlignment = TAlignment::taCenter;
  bool CaptionHorizontalOnVerticalAxis = false;
  float CaptionDistanceBefore = 0;  ///< above the caption, and below it, as it stands when it is read
  float CaptionDistanceAfter = 0;
};

}  // namespace zy
