#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/controls/TControl.h"

class QEvent;
class QImage;
class QRect;
class QWidget;

namespace zy {

class Graphics;

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

  /// The widget, made when there is none. It belongs to this control until a host takes it into its own window. Throws
  /// EInvalidOperation without an application object.
  QWidget* Widget();
  /// Whether there is a widget.
  bool HasWidget() const { return FWidget != nullptr; }

  /// Paints the control and the graphic controls in it, as on the screen, with its top left corner at the origin.
  void PaintTo(Graphics& Canvas);
  void Repaint() override;

 protected:
  /// Paints the control itself, below its graphic controls.
  virtual void Paint(Graphics& Canvas);
  /// Sees each event of the widget before the widget does; true ends it there.
  virtual bool WidgetEvent(QEvent& Event);
  /// Makes the toolkit's widget. By default a plain one that Paint fills.
  virtual QWidget* CreateWidget();

  void InvalidateBox() override;
  void ApplyBounds() override;
  void ApplyVisible() override;

 private:
  friend class TControl;
  class TWidgetLink;

  void InsertControl(TControl* Control);
  void RemoveControl(TControl* Control);
  void InvalidateBox(int Left, int Top, int Width, int Height);
  void RepaintBox(int Left, int Top, int Width, int Height);
  void DestroyWidget();
  void PaintWidget(const QRect& Exposed);

  std::vector<TControl*> FControls;
  QWidget* FWidget = nullptr;  // the link clears it when the widget dies
  std::unique_ptr<TWidgetLink> FLink;
  std::unique_ptr<QImage> FPicture;  // of the part that was painted last
};

}  // namespace zy
