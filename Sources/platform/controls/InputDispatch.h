#pragma once

#include "platform/controls/ControlTypes.h"

class QContextMenuEvent;
class QEvent;
class QKeyEvent;

namespace zy {

class TControl;
class TWinControl;

/// The control that has captured the mouse, null for none.
TControl* GetCapture();
/// Has all mouse events come to Control, until a release of the last button or ReleaseCapture.
void SetCapture(TControl& Control);
void ReleaseCapture();

/// The control that the mouse is over, as far as the mouse has moved; null for none.
TControl* ControlUnderMouse();
/// Place of the mouse on the desktop: within a mouse event that of the event, which may be older than the pointer.
TPoint CursorPos();

/// Shows the pointer of a control that the mouse is over.
void ShowCursorOf(const TControl& Control);

/// Brings a mouse event of Control's widget to the control that it is meant for: the capturing one, else the topmost
/// enabled control without a window that the mouse hits, else Control itself. True when the event ends here. Whatever
/// dies in a handler, nothing of it is touched afterwards.
bool DispatchMouse(TWinControl& Control, QEvent& Event);
/// Shows or hides the tool tip.
bool DispatchToolTip(TWinControl& Control, QEvent& Event);
/// Brings up the menu that the menu key asks for. The right button brings it up by its release, so that a gesture of
/// that button can do without; its own event ends here where there is a menu.
bool DispatchContextMenu(TWinControl& Control, QContextMenuEvent& Event);
/// Keeps the keys of Control's menus from the host's own actions.
bool DispatchShortCutOverride(TWinControl& Control, QKeyEvent& Event);
/// Brings a key event to the menus of Control and its parents and then to Control. True when the key was used up.
bool DispatchKey(TWinControl& Control, QKeyEvent& Event);

}  // namespace zy
