#include "annotations/ZyCrossHairBox.h"

#include <algorithm>

#include "annotations/ZyCaptionCorner.h"
#include "annotations/ZyMarkerPixels.h"

namespace zy {

TZyCrossHairBox::TZyCrossHairBox(const TZyCrossHairLook& Look) {
  using enum TZyXHairCaptionPosition;
  const int Thick = ToPixels(Look.LineWidth / 2);
  if (!Look.HasCaption) {
    const int Extent = Thick + Grab;
    HotDelta = {Extent, Extent};
    Width = Height = 2 * Extent + 1;
    return;
  }
  const SizeF Extent = Look.IsVertical ? SizeF{Look.Caption.Height, Look.Caption.Width} : Look.Caption;
  const bool IsLeft = Look.Place == LeftBottom || Look.Place == LeftTop;
  const bool IsDown = Look.Place == RightBottom || Look.Place == LeftBottom;
  const int AcrossX = std::max(Thick, ToPixels(Extent.Width) + Look.Delta.X), BackX = std::max(Thick, -Look.Delta.X);
  const int AcrossY = std::max(Thick, ToPixels(Extent.Height) + Look.Delta.Y), BackY = std::max(Thick, -Look.Delta.Y);
  HotDelta = {IsLeft ? AcrossX : BackX, IsDown ? BackY : AcrossY};

  const auto HotX = static_cast<float>(HotDelta.X), HotY = static_cast<float>(HotDelta.Y);
  const auto Off = static_cast<float>(Look.Delta.X), Away = static_cast<float>(Look.Delta.Y);
  const float Left = IsLeft ? HotX - Off - Extent.Width : HotX + Off;
  const float Top = IsDown ? HotY + Away : HotY - Away - Extent.Height;
  Caption = {ToPixels(Left), ToPixels(Top), ToPixels(Left) + ToPixels(Extent.Width),
             ToPixels(Top) + ToPixels(Extent.Height)};
  Anchor = {IsLeft ? HotX - Off - Look.Border : HotX + Off + Look.Border,
            IsDown ? HotY + Away + Look.Border : HotY - Away - Look.Border};
  Align = CaptionCorner(IsLeft, IsDown, Look.IsVertical);
  Width = AcrossX + BackX + Look.Shadow + 1;
  Height = AcrossY + BackY + Look.Shadow + 1;
}

}  // namespace zy
