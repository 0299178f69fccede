#pragma once

#include "annotations/ZyMarkerBox.h"

namespace zy {

/// What a line marker shows, in pixels.
struct TZyLineMarkerLook {
  bool IsHorizontal = true;
  int Length = 0;           ///< of the line
  int Thickness = 5;        ///< of the strip around the line in which it is grabbed
  bool HasCaption = false;  ///< what follows counts with a caption only
  SizeF Caption;            ///< with its background, before it is turned
  float Border = 0;         ///< of the background around the text
  TPoint Delta;             ///< away from the line, and outwards along it
  TZyContentAlignment Place = TZyContentAlignment::TopRight;
  bool IsVertical = false;  ///< the text runs upwards
  int Shadow = 0;           ///< room to the right and below
  /// From the ends of the line to the edges of the parent. A caption beyond an end stays within them, on the line if it
  /// must.
  int Before = 1 << 22, After = 1 << 22;
};

/// The smallest box around line and caption, and where the two stand in it. The caption goes with its deltas without a
/// jump, whichever of line and caption reaches further.
///
/// The row of the caption's place says on which side of a horizontal line it stands, the column where along the line;
/// in the middle row the outer columns stand beyond the ends. For a vertical line rows and columns change their parts.
struct TZyLineMarkerBox : TZyMarkerBox {
  explicit TZyLineMarkerBox(const TZyLineMarkerLook& Look);

  TRect Line;

 private:
  void PlaceCaption(const TZyLineMarkerLook& Look);
  void AlignCaption(const TZyLineMarkerLook& Look);
};

}  // namespace zy
