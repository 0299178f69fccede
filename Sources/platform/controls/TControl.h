#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/controls/ControlTypes.h"
#include "platform/controls/Cursors.h"
#include "platform/controls/TControlFont.h"
#include "platform/drawing/Geometry.h"
#include "platform/framework/TComponent.h"
#include "platform/framework/TRef.h"

namespace zy {

class Graphics;
class TPopupMenu;
class TWinControl;

/// A component with a place in its parent. Bounds are logical pixels; Left and Top count from the parent's corner.
///
/// The parent shows the control but does not own it: a dying parent leaves its controls behind without a parent, and a
/// dying control leaves its parent. The owner deletes, as with every component.
///
/// The operations that the mouse and the parent call (Click to ParentFontChanged) are the places where a descendant
/// adds its own behaviour; those with an event tell it, so that an override calls the inherited one.
class TControl : public TComponent {
  ZY_CLASS(TControl, TComponent)
  explicit TControl(TComponent* Owner = nullptr);
  ~TControl() override;

  TWinControl* Parent() const { return FParent; }
  /// Leaves the old parent and becomes the last control of the new one; null for none. Throws EInvalidOperation for the
  /// control itself and for what lies inside it.
  virtual void SetParent(TWinControl* Value);
  TComponent* ParentComponent() const override;
  void SetParentComponent(TComponent* Value) override;
  void Loaded() override;

  // --- Place ---

  /// What the toolkit takes as the largest extent of a window; sums of a few of them still fit an int.
  static constexpr int MostExtent = (1 << 24) - 1;

  int Left() const { return FLeft; }
  void SetLeft(int Value) { SetBounds(Value, FTop, FWidth, FHeight); }
  int Top() const { return FTop; }
  void SetTop(int Value) { SetBounds(FLeft, Value, FWidth, FHeight); }
  int Width() const { return FWidth; }
  void SetWidth(int Value) { SetBounds(FLeft, FTop, Value, FHeight); }
  int Height() const { return FHeight; }
  void SetHeight(int Value) { SetBounds(FLeft, FTop, FWidth, Value); }
  /// Moves and resizes in one step; every other change of the bounds comes here. Extents below 0 become 0, and nothing
  /// is larger or further away than MostExtent. A changed extent is followed by Resize.
  virtual void SetBounds(int Left, int Top, int Width, int Height);
  TRect BoundsRect() const { return {FLeft, FTop, FLeft + FWidth, FTop + FHeight}; }
  /// Extent of the inside.
  int ClientWidth() const { return FWidth; }
  int ClientHeight() const { return FHeight; }
  TRect ClientRect() const { return {0, 0, FWidth, FHeight}; }
  /// The edge of the parent that the control fills.
  TAlign Align() const { return FAlign; }
  void SetAlign(TAlign Value);
  /// The edges of the parent that the control follows when it is not aligned; left and top at first.
  TAnchors Anchors() const { return FAnchors; }
  void SetAnchors(TAnchors Value);
  /// Whether the control fits its bounds to what it shows.
  bool AutoSize() const { return FAutoSize; }
  virtual void SetAutoSize(bool Value);
  /// A place in the control as one on the desktop, and back. Without a window the outermost parent's own place is taken
  /// for one on the desktop.
  virtual TPoint ClientToScreen(TPoint Place) const;
  TPoint ScreenToClient(TPoint Place) const;
  /// Becomes the last or the first control of its parent.
  void BringToFront();
  void SendToBack();

  // --- Looks ---

  /// Whether the control is shown when its parent is.
  bool Visible() const { return FVisible; }
  void SetVisible(bool Value);
  /// Whether the control takes part in mouse and keyboard.
  bool Enabled() const { return FEnabled; }
  void SetEnabled(bool Value);
  /// Pointer over the control.
  TCursor Cursor() const { return FCursor; }
  void SetCursor(TCursor Value);
  /// Text of the tool tip; without one, that of the parent.
  const std::string& Hint() const { return FHint; }
  void SetHint(const std::string& Value);
  /// The tool tip for a place in the control.
  virtual std::string HintAt(TPoint /*Place*/) const { return FHint; }
  /// Whether the tool tip is shown: what the parent says, until it is set.
  bool ShowHint() const;
  void SetShowHint(bool Value);
  bool ParentShowHint() const { return FParentShowHint; }
  void SetParentShowHint(bool Value);
  /// The control's font. Published as "Font" by the controls that write in it.
  TControlFont& ControlFont() { return FFont; }
  void SetControlFont(const TControlFont& Value) { FFont.Assign(&Value); }
  /// Whether the font is the parent's. A change of the control's own ends it.
  bool ParentFont() const { return FParentFont; }
  void SetParentFont(bool Value);
  TControlStyle ControlStyle() const { return FControlStyle; }
  void SetControlStyle(TControlStyle Value);

  // --- Painting ---

  /// Has the control painted when the program next waits for events. Many calls cost one paint.
  void Invalidate();
  /// Has the control painted before it returns.
  virtual void Repaint();
  /// Paints now what was invalidated and still waits.
  virtual void Update();
  /// Draws what lies behind the control, with the control's corner at the origin: the pictures of its parents from the
  /// outermost on, and of the controls in them that lie below. Nothing while a parent is being painted on the screen or
  /// for another control's ground, for then it is there already.
  void DrawParentBackground(Graphics& Canvas);
  void PerformEraseBackground(Graphics& Canvas) { DrawParentBackground(Canvas); }

  // --- Mouse ---

  /// Whether all mouse events come to this control, wherever the mouse is.
  bool MouseCapture() const;
  void SetMouseCapture(bool Value);

  virtual void Click();
  virtual void DblClick();
  virtual void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y);
  virtual void MouseMove(TShiftState Shift, int X, int Y);
  virtual void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y);
  /// Returns whether the wheel ends here.
  virtual bool MouseWheel(TShiftState Shift, int WheelDelta, int X, int Y);
  /// Returns whether the gesture ends here.
  virtual bool Gesture(const TGesture& Gesture);
  /// Whether a place in the control's box is part of the control. Asked of controls without a window.
  virtual bool CMHitTest(int X, int Y);
  virtual void CMMouseEnter();
  virtual void CMMouseLeave();

  /// What a screen reader says of the items that the control shows.
  virtual std::vector<std::string> AccessibleItems() const { return {}; }

  /// The menu that a click of the right button brings up; without one, that of the parent.
  TPopupMenu* PopupMenu() const;
  void SetPopupMenu(TPopupMenu* Value);
  /// Asks OnContextPopup and brings up the menu for a place in the control; returns whether that is done. By keyboard X
  /// and Y are -1, and the menu comes up at the control's corner.
  virtual bool DoContextPopup(int X, int Y);

  const TNotifyEvent& OnClick() const { return FOnClick; }
  void SetOnClick(TNotifyEvent Value) { FOnClick = std::move(Value); }
  const TNotifyEvent& OnDblClick() const { return FOnDblClick; }
  void SetOnDblClick(TNotifyEvent Value) { FOnDblClick = std::move(Value); }
  const TMouseEvent& OnMouseDown() const { return FOnMouseDown; }
  void SetOnMouseDown(TMouseEvent Value) { FOnMouseDown = std::move(Value); }
  const TMouseMoveEvent& OnMouseMove() const { return FOnMouseMove; }
  void SetOnMouseMove(TMouseMoveEvent Value) { FOnMouseMove = std::move(Value); }
  const TMouseEvent& OnMouseUp() const { return FOnMouseUp; }
  void SetOnMouseUp(TMouseEvent Value) { FOnMouseUp = std::move(Value); }
  const TMouseWheelEvent& OnMouseWheel() const { return FOnMouseWheel; }
  void SetOnMouseWheel(TMouseWheelEvent Value) { FOnMouseWheel = std::move(Value); }
  const TContextPopupEvent& OnContextPopup() const { return FOnContextPopup; }
  void SetOnContextPopup(TContextPopupEvent Value) { FOnContextPopup = std::move(Value); }
  const TGestureEvent& OnGesture() const { return FOnGesture; }
  void SetOnGesture(TGestureEvent Value) { FOnGesture = std::move(Value); }
  const TNotifyEvent& OnMouseEnter() const { return FOnMouseEnter; }
  void SetOnMouseEnter(TNotifyEvent Value) { FOnMouseEnter = std::move(Value); }
  const TNotifyEvent& OnMouseLeave() const { return FOnMouseLeave; }
  void SetOnMouseLeave(TNotifyEvent Value) { FOnMouseLeave = std::move(Value); }

 protected:
  /// Told of each new extent.
  virtual void Resize();
  /// Told before and after each change of Visible.
  virtual void VisibleChanging();
  virtual void CMVisibleChanged();
  /// Told of each change of Enabled and of the control's font.
  virtual void CMEnabledChanged();
  virtual void CMFontChanged();
  /// Told when the parent's font changed or the parent is another; takes it over where ParentFont says so.
  virtual void ParentFontChanged();
  /// Fits the bounds to what is shown; called with AutoSize only.
  virtual void AdjustSize();
  /// Has the control's box painted again, visible or not.
  virtual void InvalidateBox();
  /// Carries new bounds, visibility, style and so on to where the control is shown.
  virtual void ApplyBounds();
  virtual void ApplyVisible();
  virtual void ApplyEnabled();
  virtual void ApplyStyle();
  virtual void ApplyHint();
  /// Stores the visibility that the outside has already carried out.
  void NoteVisible(bool Value);

  bool HasOwnShowHint() const { return !FParentShowHint; }
  bool HasOwnFont() const { return !FParentFont; }
  bool HasPopupMenu() const { return FPopupMenu.Get() != nullptr; }

 private:
  friend class TWinControl;

  /// Where an anchored control stood when it was last placed on its own, and in which extent of the parent.
  struct TAnchorBase {
    TRect Place;
    int OuterWidth = 0;
    int OuterHeight = 0;
  };

  virtual void InsideResized() {}
  virtual void SpreadFont() {}
  void FontChanged();
  void NoteAnchorBase();
  void PlaceBy(const TRect& Place);
  void RealignParent();

  TWinControl* FParent = nullptr;  // stands as long as the parent lists this control; both destructors see to it
  int FLeft = 0;
  int FTop = 0;
  int FWidth = 0;
  int FHeight = 0;
  TAnchorBase FAnchorBase;
  TAlign FAlign = alNone;
  TAnchors FAnchors{akLeft, akTop};
  TCursor FCursor = crDefault;
  TControlStyle FControlStyle{csCaptureMouse, csClickEvents, csDoubleClicks};
  bool FVisible = true;
  bool FEnabled = true;
  bool FAutoSize = false;
  bool FShowHint = false;
  bool FParentShowHint = true;
  bool FParentFont = true;
  bool FTakingFont = false;      // the font changes because the parent's did
  bool FPlacedByParent = false;  // the bounds change because the parent aligns
  std::string FHint;
  TControlFont FFont;
  TRef<TPopupMenu> FPopupMenu{this};
  TNotifyEvent FOnClick, FOnDblClick, FOnMouseEnter, FOnMouseLeave;
  TMouseEvent FOnMouseDown, FOnMouseUp;
  TMouseMoveEvent FOnMouseMove;
  TMouseWheelEvent FOnMouseWheel;
  TGestureEvent FOnGesture;
  TContextPopupEvent FOnContextPopup;
};

}  // namespace zy
