#pragma once

#include "annotations/captions/ZyRichCaption.h"
#include "platform/controls/ControlTypes.h"
#include "platform/drawing/Geometry.h"

namespace zy {

/// The box of a marker and where its parts stand in it, in pixels; each kind works it out.
struct TZyMarkerBox {
  TPoint HotDelta;                                              ///< the place that stands for the marker's values
  TRect Caption;                                                ///< empty without a caption
  PointF Anchor;                                                ///< of the text
  TZyContentAlignment Align = TZyContentAlignment::BottomLeft;  ///< of the text at its anchor
  int Width = 0;
  int Height = 0;
};

}  // namespace zy
