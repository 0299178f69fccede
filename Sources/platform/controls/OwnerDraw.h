#pragma once

#include <functional>

#include "platform/controls/ControlTypes.h"
#include "platform/drawing/Geometry.h"

class QAbstractItemView;
class QPainter;
class QStyleOptionViewItem;

namespace zy {

class Graphics;

/// How an item of a list is to be drawn.
enum TOwnerDrawFlag {
  odSelected,
  odDisabled,
  odFocused,
  odComboBoxEdit  ///< not in a list, but as what a combo box shows while it is closed
};
ZY_ENUM(TOwnerDrawFlag, "odSelected", "odDisabled", "odFocused", "odComboBoxEdit")
using TOwnerDrawState = TSet<TOwnerDrawFlag>;

/// Draws an item in a box of the canvas, which is clipped to it.
using TDrawItemEvent =
    std::function<void(TObject* Sender, Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State)>;

/// What draws one item of a control.
using TItemDrawer = std::function<void(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State)>;

/// Hands an item to Draw, with a canvas in the logical pixels of Target that is clipped to the item.
void DrawOwnItem(QPainter& Target, int Index, const TRect& Box, TOwnerDrawState State, const TItemDrawer& Draw);

/// Has the items of a list of the toolkit's be Height pixels high (the toolkit's own for 0), and drawn by Draw if there
/// is one. May be called again.
void SetOwnItems(QAbstractItemView& View, int Height, int Columns, const TItemDrawer& Draw);

}  // namespace zy
