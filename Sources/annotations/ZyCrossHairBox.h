#pragma once

#include "annotations/ZyMarkerBox.h"
#include "platform/framework/EnumInfo.h"

namespace zy {

/// The quadrant around a cross hair in which its caption stands.
enum class TZyXHairCaptionPosition { RightTop, RightBottom, LeftBottom, LeftTop };
ZY_ENUM(TZyXHairCaptionPosition, "RightTop", "RightBottom", "LeftBottom", "LeftTop")

/// What the handle of a cross hair shows, in pixels.
struct TZyCrossHairLook {
  float LineWidth = 1;
  bool HasCaption = false;  ///< what follows counts with a caption only
  SizeF Caption;            ///< with its background, before it is turned
  float Border = 0;         ///< of the background around the text
  TPoint Delta;             ///< away from the lines
  TZyXHairCaptionPosition Place = TZyXHairCaptionPosition::RightTop;
  bool IsVertical = false;  ///< the text runs upwards
  int Shadow = 0;           ///< room to the right and below
};

/// The box around the crossing of the lines, which is the hot point, and the caption; without a caption a square to
/// grab.
struct TZyCrossHairBox : TZyMarkerBox {
  explicit TZyCrossHairBox(const TZyCrossHairLook& Look);

  /// From the crossing to the edges of the square to grab, beside the lines.
  static constexpr int Grab = 6;
};

}  // namespace zy
