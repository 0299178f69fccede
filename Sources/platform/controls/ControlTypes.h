#pragma once

#include <cstdint>
#include <functional>

#include "platform/framework/EnumInfo.h"
#include "platform/framework/ShiftState.h"

namespace zy {

class TObject;

/// A place in whole logical pixels.
struct TPoint {
  int X = 0;
  int Y = 0;
  bool operator==(const TPoint&) const = default;
};

/// The edge of its parent that a control fills, or all that the others leave. Top and bottom come first, then left and
/// right, then the rest.
enum TAlign { alNone, alTop, alBottom, alLeft, alRight, alClient };
ZY_ENUM(TAlign, "alNone", "alTop", "alBottom", "alLeft", "alRight", "alClient")

/// Edges of the parent from which a control keeps its distance. With both of a direction it stretches, with none it
/// stays in the middle of where it was.
enum TAnchorKind { akLeft, akTop, akRight, akBottom };
ZY_ENUM(TAnchorKind, "akLeft", "akTop", "akRight", "akBottom")
using TAnchors = TSet<TAnchorKind>;

/// The buttons of the mouse.
enum TMouseButton { mbLeft, mbRight, mbMiddle };
ZY_ENUM(TMouseButton, "mbLeft", "mbRight", "mbMiddle")

/// What a control wants of the one that shows it.
enum TControlStyleFlag {
  csCaptureMouse,     ///< a press captures the mouse until the release
  csClickEvents,      ///< presses and releases make clicks
  csDoubleClicks,     ///< the second click of two is a double click, else a plain one
  csOpaque,           ///< the control fills its whole box, nothing behind it needs to be painted
  csParentBackground  ///< what lies behind the control is its ground
};
ZY_ENUM(TControlStyleFlag, "csCaptureMouse", "csClickEvents", "csDoubleClicks", "csOpaque", "csParentBackground")
using TControlStyle = TSet<TControlStyleFlag>;

/// Code of a key: capital letters and digits as in ASCII, the others below. 0 is a key that was used up.
using TKey = std::uint16_t;
/// Codes of the keys that are neither letters nor digits.
enum TKeyCode : TKey {
  vkBack = 8,
  vkTab = 9,
  vkReturn = 13,
  vkShift = 16,
  vkControl = 17,
  vkMenu = 18,
  vkPause = 19,
  vkEscape = 27,
  vkSpace = 32,
  vkPrior = 33,
  vkNext = 34,
  vkEnd = 35,
  vkHome = 36,
  vkLeft = 37,
  vkUp = 38,
  vkRight = 39,
  vkDown = 40,
  vkInsert = 45,
  vkDelete = 46,
  vkMultiply = 106,
  vkAdd = 107,
  vkSubtract = 109,
  vkDivide = 111,
  vkF1 = 112,  ///< the others follow up to F24
};

using TNotifyEvent = std::function<void(TObject* Sender)>;
/// X and Y are the control's own logical pixels. Shift holds the buttons that are down now: with a press its own,
/// without it on its release.
using TMouseEvent = std::function<void(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y)>;
using TMouseMoveEvent = std::function<void(TObject* Sender, TShiftState Shift, int X, int Y)>;
/// WheelDelta is 120 for a notch away from the user. Unless Handled is set, the wheel goes on to the parent.
using TMouseWheelEvent =
    std::function<void(TObject* Sender, TShiftState Shift, int WheelDelta, int X, int Y, bool& Handled)>;
/// Runs when the right button or the menu key asks for a menu at a place in the control, -1, -1 for the key. Setting
/// Handled keeps the menu away.
using TContextPopupEvent = std::function<void(TObject* Sender, TPoint Place, bool& Handled)>;
/// What two fingers do on a touch pad. A double tap stands alone; the others come between a begin and an end.
enum TGestureKind { gkBegin, gkZoom, gkPan, gkEnd, gkDoubleTap };
/// One step of such a gesture.
struct TGesture {
  TGestureKind Kind = gkBegin;
  double Scale = 1;   ///< gkZoom: how much larger things become, since the event before
  double DeltaX = 0;  ///< gkPan: pixels that things move, since the event before
  double DeltaY = 0;
  int X = 0;  ///< place of the mouse in the control
  int Y = 0;
};
/// Unless Handled is set, the gesture goes on to the parent, and a pan becomes a turn of the wheel.
using TGestureEvent = std::function<void(TObject* Sender, const TGesture& Gesture, bool& Handled)>;
/// Setting Key to 0 uses it up.
using TKeyEvent = std::function<void(TObject* Sender, TKey& Key, TShiftState Shift)>;
using TKeyPressEvent = std::function<void(TObject* Sender, char32_t& Key)>;

}  // namespace zy
