#pragma once

#include <optional>

#include "platform/controls/TGraphicControl.h"

namespace zy {

/// A control of a chart on its way to another place: by the mouse, or by the arrow keys.
///
/// It only measures: the control moves itself, and logs the move as one step when it is over. The way is counted in
/// places of the screen from where the drag began, since the control moves under the mouse, and what is dragged beyond
/// an edge comes back as soon as the mouse does.
class TZyControlDrag {
 public:
  /// The control outlives the drag.
  explicit TZyControlDrag(TGraphicControl& Control) : FControl(Control) {}

  bool IsActive() const { return FKind != TKind::None; }
  bool IsByMouse() const { return FKind == TKind::Mouse; }
  /// Begins at a place in the control. The keys come to the control's parent from now on, so that Escape is heard.
  void Begin(TPoint Place);
  void BeginByKeys();
  /// The way to a place in the control as it stands now, with the dragged point kept within the parent.
  TPoint WayTo(TPoint Place) const;
  /// Whether the mouse no longer drags, though no release was told: it was taken away, or the release went elsewhere.
  bool IsLost(TShiftState Shift) const;
  /// The way of an arrow key, of more pixels with Shift; nothing for other keys.
  static std::optional<TPoint> WayOf(TKey Key, TShiftState Shift);
  void End();
  /// Corner of the control when the drag began.
  TPoint Origin() const { return FOrigin; }

 private:
  enum class TKind { None, Mouse, Keys };

  TGraphicControl& FControl;
  TKind FKind = TKind::None;
  TPoint FOrigin;
  TPoint FStart;             // on the screen
  bool FHasCapture = false;  // the press came from the screen, and so will the release
  TCursor FCursor = crDefault;
};

}  // namespace zy
