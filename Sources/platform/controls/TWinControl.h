#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/TControl.h"

class QEvent;
class QPainter;
class QRect;
class QRegion;
class QTransform;
class QWidget;

namespace zy {

class Graphics;
class TGraphicControl;

/// A control that holds other controls and is shown through a widget of the toolkit.
///
/// The widget is made when it is first asked for, or when the control lies in a parent that has one; without a widget
/// a control lays out and paints into pictures just the same. A host puts Widget() into its own window and layout;
/// from then on the bounds that the host gives are the control's. Control and widget may die in any order: a dying
/// control takes its widget along, and a control whose widget the host deletes lives on and makes another one when
/// asked again.
class TWinControl : public TControl {
  ZY_CLASS(TWinControl, TControl)
  explicit TWinControl(TComponent* Owner = nullptr);
  ~TWinControl() override;

  /// The controls that have this one as their parent, in control order: later ones are painted above earlier ones.
  const std::vector<TControl*>& Controls() const { return FControls; }
  void SetParent(TWinControl* Value) override;
  /// Controls that Root owns are streamed inside their parent.
  void GetChildren(const std::function<void(TComponent*)>& Proc, TComponent* Root) override;
  int ChildIndex(const TComponent& Child) const override;
  void SetChildIndex(TComponent& Child, int Index) override;
  /// Gives the aligned controls their edges, and the anchored ones their distance from them.
  void AlignControls();
  void Loaded() override;
  /// The topmost visible and enabled control without a window that is hit at a place, null for none.
  TControl* ControlAtPos(int X, int Y) const;

  /// The widget, made when there is none. It belongs to this control until a host takes it into its own window. Throws
  /// EInvalidOperation without an application object.
  QWidget* Widget();
  /// Whether there is a widget.
  bool HasWidget() const { return FWidget != nullptr; }

  /// Paints the control and the controls in it, as on the screen, with its top left corner at the origin. Left out is
  /// what the toolkit paints by itself, such as scroll bars.
  void PaintTo(Graphics& Canvas);
  void Repaint() override;
  void Update() override;
  /// Whether the screen is painted through a picture, which then appears in one step. Without it each shape goes to the
  /// window at once, in the toolkit's own way of drawing.
  bool DoubleBuffered() const { return FDoubleBuffered; }
  void SetDoubleBuffered(bool Value);

  TPoint ClientToScreen(TPoint Place) const override;

  /// Place among the parent's controls with a window, from 0, in the order in which the tabulator key comes to them; -1
  /// without a parent. Those inside a control come behind it. Setting moves the others along; a value below 0 or beyond
  /// the last is the last place.
  int TabOrder() const;
  void SetTabOrder(int Value);
  /// Whether the tabulator key and a click give the control the keyboard; false at first.
  bool TabStop() const { return FTabStop; }
  void SetTabStop(bool Value);
  /// Gives the control the keyboard. Nothing before it is shown; throws EInvalidOperation when it is invisible or
  /// disabled.
  void SetFocus();
  /// Gives the keyboard away, to nobody.
  void ReleaseFocus();
  /// Has all keys come to the control, whatever has the keyboard, as during a gesture of the mouse.
  void SetKeyCapture(bool Value);
  /// The label in front of the control, whose text names it to screen readers; see TStaticText::FocusControl.
  TControl* Label() const { return FLabel; }
  void SetLabel(TControl* Value);
  bool CanFocus() const;
  bool Focused() const;
  /// The control without a window in this one that gets its keys first, null for none. A click and the tabulator key
  /// choose among those that take keys.
  TGraphicControl* ActiveControl() const { return FActiveControl; }
  void SetActiveControl(TGraphicControl* Value);
  /// Makes the next one in control order active, or the one before. False, with none active, past the last.
  bool ActivateNext(bool Backward);

  /// The keyboard's events, of the control that has it; keys that nobody uses up go on to the parents.
  virtual void KeyDown(TKey& Key, TShiftState Shift);
  virtual void KeyUp(TKey& Key, TShiftState Shift);
  virtual void KeyPress(char32_t& Key);

  /// Runs what a signal of the toolkit's widget asks for: exceptions end here, and a widget that has to go stays until
  /// the toolkit is done with it.
  static void HandleEvent(const std::function<void()>& Proc);

  const TKeyEvent& OnKeyDown() const { return FOnKeyDown; }
  void SetOnKeyDown(TKeyEvent Value) { FOnKeyDown = std::move(Value); }
  const TKeyEvent& OnKeyUp() const { return FOnKeyUp; }
  void SetOnKeyUp(TKeyEvent Value) { FOnKeyUp = std::move(Value); }
  const TKeyPressEvent& OnKeyPress() const { return FOnKeyPress; }
  void SetOnKeyPress(TKeyPressEvent Value) { FOnKeyPress = std::move(Value); }
  const TNotifyEvent& OnEnter() const { return FOnEnter; }
  void SetOnEnter(TNotifyEvent Value) { FOnEnter = std::move(Value); }
  const TNotifyEvent& OnExit() const { return FOnExit; }
  void SetOnExit(TNotifyEvent Value) { FOnExit = std::move(Value); }

 protected:
  /// Draws what is the ground of the control, before Paint; returns whether that is done. By default what lies behind,
  /// with csParentBackground.
  virtual bool WMEraseBkgnd(Graphics& Canvas);
  /// Paints the control itself, below its graphic controls.
  virtual void Paint(Graphics& Canvas);
  /// Draws what lies above the control and its graphic controls for a moment, such as a frame that the mouse drags.
  /// Where only this changes (InvalidateOverlay), the control itself is not painted again: its last picture is shown.
  virtual void PaintOverlay(Graphics& Canvas);
  void InvalidateOverlay(const TRect& Box);
  /// The part of the control that the present paint is for; all of it unless the screen needs less.
  const TRect& PaintBox() const { return FPaintBox; }
  /// Told when the keyboard comes and goes.
  virtual void DoEnter();
  virtual void DoExit();
  /// What a screen reader says: the published caption, else the text of the label in front of the control, else the
  /// hint, else the name.
  virtual std::string AccessibleName() const;
  /// Sees each event of the widget before the widget does; true ends it there.
  virtual bool WidgetEvent(QEvent& Event);
  /// Makes the toolkit's widget. By default a plain one that Paint fills; any other paints itself.
  virtual QWidget* CreateWidget();
  /// Puts the new widget of a control in this one where it belongs. By default at the control's place in this widget.
  virtual void TakeWidget(TWinControl& Inner, QWidget& InnerWidget);
  /// Told when the widget and those of all inner controls are there, which can now go into a layout of the toolkit's.
  virtual void ArrangeWidgets() {}
  /// Has the widget say the control's present name.
  void ApplyAccessibleName();

  void InvalidateBox() override;
  void ApplyBounds() override;
  void ApplyVisible() override;
  void ApplyEnabled() override;
  void ApplyStyle() override;
  void ApplyHint() override;
  void CMFontChanged() override;
  /// Gives a widget of the toolkit's the control's font and text colour, as far as they were set here or in a parent:
  /// what never was is the desktop's, in dark palettes too.
  virtual void ApplyFont();
  /// For controls over widgets of the toolkit's: the tabulator key comes to it with TabStop, a click as told.
  void ApplyFocusPolicy(bool ByClick);
  /// Whether Event is a turn of the wheel over a control without the keyboard, which goes on to the parent.
  bool IsForeignWheel(QEvent& Event) const;

 private:
  friend class TControl;
  friend class TGraphicControl;
  class TWidgetLink;

  static void PaintBehind(const TControl& Control, Graphics& Canvas);
  void InsideResized() override { AlignControls(); }
  void SpreadFont() override;
  void InsertControl(TControl* Control);
  void RemoveControl(TControl* Control);
  void MoveControl(TControl& Control, bool ToFront);
  void AlignOnce();
  void PlaceAnchored(TControl& Control) const;
  void InvalidateBox(int Left, int Top, int Width, int Height);
  void RepaintBox(int Left, int Top, int Width, int Height);
  QRect ToScreenBox(int Left, int Top, int Width, int Height) const;
  void DestroyWidget();
  struct TDamage;
  void PaintWidget(const QRegion& Exposed);
  struct TPicture;
  void PaintPart(QPainter& Painter, const QTransform& ToDevice, const QRect& Pixels);
  void BringPictureUpToDate(const QRegion& Exposed, const QTransform& ToDevice, const QRect& Whole);
  void NoteDamage(const QRect& Part);
  void PaintAll(Graphics& Canvas, const TRect& Box, const TControl* UpTo);
  void PaintChild(TGraphicControl& Child, Graphics& Canvas) const;
  void PaintAbove(Graphics& Canvas);
  void PaintFocus(QPainter& Screen) const;
  void NoteFocus(QEvent& Event);
  void ListTabOrder(std::vector<QWidget*>& Order) const;
  void ApplyTabOrder();

  std::vector<TControl*> FControls;
  std::vector<TWinControl*> FTabList;  // those with a window, as the tabulator key comes to them
  int FReadTabOrder = -1;
  QWidget* FWidget = nullptr;  // the link clears it when the widget dies
  std::unique_ptr<TWidgetLink> FLink;
  std::unique_ptr<TPicture> FPicture;
  std::unique_ptr<TDamage> FDamage;  // counted once there is something above
  TRect FPaintBox;
  bool FPainted = false;  // the widget shows what Paint draws
  bool FDoubleBuffered = true;
  bool FTabStop = false;
  bool FFocusShown = false;
  TRef<TControl> FLabel{this, &TWinControl::SetLabel};
  TRef<TGraphicControl> FActiveControl{this, &TWinControl::SetActiveControl};
  bool FActiveShown = false;  // the tabulator key came to the active control
  bool FAligning = false;
  bool FAlignAgain = false;
  TKeyEvent FOnKeyDown, FOnKeyUp;
  TKeyPressEvent FOnKeyPress;
  TNotifyEvent FOnEnter, FOnExit;
};

}  // namespace zy
