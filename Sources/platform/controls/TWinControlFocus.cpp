#include <QFocusEvent>
#include <QWidget>
#include <algorithm>
#include <cstddef>
#include <limits>

#include "platform/controls/TGraphicControl.h"
#include "platform/controls/TWinControl.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

void TWinControl::SetTabStop(bool Value) {
  if (Value == FTabStop) return;
  FTabStop = Value;
  ApplyStyle();
}

int TWinControl::TabOrder() const {
  if (Parent() == nullptr) return -1;
  return static_cast<int>(std::ranges::find(Parent()->FTabList, this) - Parent()->FTabList.begin());
}

void TWinControl::SetTabOrder(int Value) {
  if (IsReading()) {
    FReadTabOrder = Value;  // the later ones are not there yet
    return;
  }
  if (Parent() == nullptr || Value == TabOrder()) return;
  std::vector<TWinControl*>& List = Parent()->FTabList;
  std::erase(List, this);
  const std::size_t Place = Value < 0 ? List.size() : std::min(static_cast<std::size_t>(Value), List.size());
  List.insert(List.begin() + static_cast<std::ptrdiff_t>(Place), this);
  Parent()->ApplyTabOrder();
}

void TWinControl::Loaded() {
  Inherited::Loaded();
  const auto Wanted = [](const TWinControl* Inner) {
    return Inner->FReadTabOrder < 0 ? std::numeric_limits<int>::max() : Inner->FReadTabOrder;
  };
  std::ranges::stable_sort(FTabList, {}, Wanted);
  for (TWinControl* Inner : FTabList) Inner->FReadTabOrder = -1;
  ApplyTabOrder();
}

/// The control with its inner controls after it, in the order in which the tabulator key comes to them.
void TWinControl::ListTabOrder(std::vector<QWidget*>& Order) const {
  if (FWidget != nullptr) Order.push_back(FWidget);
  for (const TWinControl* Inner : FTabList) Inner->ListTabOrder(Order);
}

/// Tells the toolkit, which walks through all widgets of a window. Those of a host keep their places.
void TWinControl::ApplyTabOrder() {
  if (FWidget == nullptr) return;
  std::vector<QWidget*> Order;
  ListTabOrder(Order);
  for (std::size_t Place = 1; Place < Order.size(); ++Place) QWidget::setTabOrder(Order[Place - 1], Order[Place]);
}

bool TWinControl::CanFocus() const {
  for (const TControl* Outer = this; Outer != nullptr; Outer = Outer->Parent())
    if (!Outer->Visible() || !Outer->Enabled()) return false;
  return true;
}

void TWinControl::SetFocus() {
  if (!CanFocus()) throw EInvalidOperation(Format(LoadResString(_sCannotFocus), {Name()}));
  if (FWidget != nullptr) FWidget->setFocus();
}

bool TWinControl::Focused() const { return FWidget != nullptr && FWidget->hasFocus(); }

void TWinControl::SetKeyCapture(bool Value) {
  if (FWidget == nullptr || (QWidget::keyboardGrabber() == FWidget) == Value) return;
  if (Value) {
    FWidget->grabKeyboard();
  } else {
    FWidget->releaseKeyboard();
  }
}

void TWinControl::ReleaseFocus() {
  if (FWidget != nullptr) FWidget->clearFocus();
}

/// The frame that shows the keyboard's place is for those who came by keyboard. It lies above the picture, which is not
/// painted for it.
void TWinControl::NoteFocus(QEvent& Event) {
  const Qt::FocusReason Reason = static_cast<QFocusEvent&>(Event).reason();
  if (Reason == Qt::PopupFocusReason || Reason == Qt::MenuBarFocusReason) return;
  const bool Comes = Event.type() == QEvent::FocusIn;
  if (Comes) ApplyAccessibleName();
  const bool WasShown = FFocusShown;
  FFocusShown =
      Comes && (Reason == Qt::TabFocusReason || Reason == Qt::BacktabFocusReason || Reason == Qt::ShortcutFocusReason);
  if (WasShown || FFocusShown) InvalidateOverlay(ClientRect());
  if (Comes) {
    DoEnter();
  } else {
    SetActiveControl(nullptr);
    DoExit();
  }
}

void TWinControl::SetActiveControl(TGraphicControl* Value) {
  TGraphicControl* const Old = FActiveControl;
  if (Value == Old) return;
  FActiveControl = Value;
  FActiveShown = false;
  if (FFocusShown) InvalidateOverlay(ClientRect());
  if (Old != nullptr && !Old->IsDestroying()) Old->Deactivated();
}

bool TWinControl::ActivateNext(bool Backward) {
  std::vector<TGraphicControl*> Takers{nullptr};  // none, before the first and behind the last
  for (TControl* Control : FControls) {
    auto* const Child = dynamic_cast<TGraphicControl*>(Control);
    if (Child != nullptr && Child->Visible() && Child->Enabled() && Child->TakesKeys()) Takers.push_back(Child);
  }
  if (Takers.size() == 1) return false;
  const auto Present = std::ranges::find(Takers, FActiveControl.Get());
  auto Place = static_cast<std::size_t>(Present == Takers.end() ? 0 : Present - Takers.begin());
  Place = (Place + (Backward ? Takers.size() - 1 : 1)) % Takers.size();
  SetActiveControl(Takers[Place]);
  InvalidateOverlay(ClientRect());
  if (Takers[Place] == nullptr) return false;
  FFocusShown = FActiveShown = true;
  return true;
}

void TWinControl::DoEnter() {
  if (const TNotifyEvent Event = FOnEnter) Event(this);
}

void TWinControl::DoExit() {
  if (const TNotifyEvent Event = FOnExit) Event(this);
}

void TWinControl::KeyDown(TKey& Key, TShiftState Shift) {
  if (const TKeyEvent Event = FOnKeyDown) Event(this, Key, Shift);
}

void TWinControl::KeyUp(TKey& Key, TShiftState Shift) {
  if (const TKeyEvent Event = FOnKeyUp) Event(this, Key, Shift);
}

void TWinControl::KeyPress(char32_t& Key) {
  if (const TKeyPressEvent Event = FOnKeyPress) Event(this, Key);
}

}  // namespace zy
