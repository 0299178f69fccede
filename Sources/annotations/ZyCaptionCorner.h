#pragma once

#include "annotations/captions/ZyRichCaption.h"

namespace zy {

/// Which point of a caption's text lies at the corner from which the caption grows, as seen on the screen: to the left
/// or to the right of it, downwards or upwards. The top of a text that runs upwards is on its left.
inline TZyContentAlignment CaptionCorner(bool GrowsLeft, bool GrowsDown, bool IsVertical) {
  using enum TZyContentAlignment;
  if (!IsVertical) return GrowsLeft ? (GrowsDown ? TopRight : BottomRight) : (GrowsDown ? TopLeft : BottomLeft);
  return GrowsLeft ? (GrowsDown ? BottomRight : BottomLeft) : (GrowsDown ? TopRight : TopLeft);
}

}  // namespace zy
