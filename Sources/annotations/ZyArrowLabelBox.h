#pragma once

#include "annotations/ZyMarkerBox.h"

namespace zy {

/// The side to which bent piece and caption go on from an arrow. One without length goes down to the right.
inline bool GoesLeft(TPoint Arrow) { return Arrow.X < 0; }
inline bool GoesDown(TPoint Arrow) { return Arrow.Y > 0 || Arrow == TPoint{}; }

/// What a label with an arrow shows, in pixels.
struct TZyArrowLabelLook {
  bool HasArrow = true;
  float LineWidth = 1;
  float PointLength = 5, PointHeight = 2;  ///< of the arrow tip, in widths of the line
  TPoint Arrow;                            ///< from the hot point, where the tip is, to the free end
  int Bent = 0;                            ///< length of the piece behind the free end; none when it is not above 0
  bool HasCaption = false;                 ///< what follows counts with a caption only
  SizeF Caption;                           ///< with its background, before it is turned
  float Border = 0;                        ///< of the background around the text
  TPoint Delta;                            ///< off the end of the arrow
  bool IsVertical = false;                 ///< the text runs upwards, and the bent piece up or down
  int Shadow = 0;                          ///< room to the right and below

  bool IsLeft() const { return GoesLeft(Arrow); }
  bool IsDown() const { return GoesDown(Arrow); }
};

/// The direction of an arrow: degrees from 0 to below 360, counter-clockwise from the right; 270 without a length.
double AngleOfArrow(TPoint Arrow);

/// The box around arrow, bent piece and caption, and where these stand in it. The hot point is the arrow's tip.
struct TZyArrowLabelBox : TZyMarkerBox {
  explicit TZyArrowLabelBox(const TZyArrowLabelLook& Look);

  TPoint End;       ///< of the arrow's line
  TPoint BentEnd;   ///< of the bent piece; End without one
  RectF BentStrip;  ///< in which the bent piece is hit; empty without one

 private:
  /// How far the box goes along one direction: to the side of the free end, and to the other one.
  struct TReach {
    int Far = 0, Near = 0;
  };

  void ReachArrow(const TZyArrowLabelLook& Look);
  void PlaceArrow(const TZyArrowLabelLook& Look);
  void PlaceCaption(const TZyArrowLabelLook& Look);
  void ReachCaption(const TZyArrowLabelLook& Look);
  void Enclose(const TZyArrowLabelLook& Look);

  TReach FAcross, FDown;
};

}  // namespace zy
