#include "platform/controls/TButtonControl.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "platform/controls/Mnemonics.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

template class TWidgetOf<QAbstractButton>;

ZY_PUBLISHED(TButtonControl, TWinControl,
             Published<&TButtonControl::Caption, &TButtonControl::SetCaption>("Caption", std::string()),
             Published<&TButtonControl::TabStop, &TButtonControl::SetTabStop>("TabStop", true),
             Republished("ParentFont Font"))
ZY_PUBLISHED(TCheckBox, TButtonControl, Published<&TCheckBox::Checked, &TCheckBox::SetChecked>("Checked", false))
ZY_PUBLISHED(TRadioButton, TButtonControl,
             Published<&TRadioButton::Checked, &TRadioButton::SetChecked>("Checked", false))
ZY_PUBLISHED(TButton, TButtonControl, Published<&TButton::Default, &TButton::SetDefault>("Default", false),
             Published<&TButton::Cancel, &TButton::SetCancel>("Cancel", false),
             Published<&TButton::ModalResult, &TButton::SetModalResult>("ModalResult", 0))

namespace {

/// One of several that exclude each other can be cleared by code as well.
void ShowChecked(QAbstractButton& Box, bool Value) {
  const bool Excludes = Box.autoExclusive();
  Box.setAutoExclusive(false);
  Box.setChecked(Value);
  Box.setAutoExclusive(Excludes);
}

}  // namespace

// --- TButtonControl -------------------------------------------------------------------------------------------------

TButtonControl::TButtonControl(TComponent* Owner) : TWidgetOf(Owner) { SetTabStop(true); }

TButtonControl::~TButtonControl() { Destroying(); }

void TButtonControl::SetCaption(const std::string& Value) {
  if (Value == FCaption) return;
  FCaption = Value;
  With([this](QAbstractButton& Box) { Box.setText(ToQString(FCaption)); });
  ApplyAccessibleName();
}

std::string TButtonControl::AccessibleName() const {
  return FCaption.empty() ? Inherited::AccessibleName() : PlainCaption(FCaption);
}

void TButtonControl::SetIsChecked(bool Value) {
  if (Value == FChecked) return;
  FChecked = Value;
  With([Value](QAbstractButton& Box) { ShowChecked(Box, Value); });
  CMChanged();
}

void TButtonControl::PerformClick() {
  if (!Enabled()) return;
  const std::uint64_t Alive = LiveHandle();
  BeforeClick();
  if (FromLiveHandle(Alive) != nullptr) Click();
}

void TButtonControl::Configure(QAbstractButton& Box) {
  Box.setText(ToQString(FCaption));
  ShowChecked(Box, FChecked);
}

/// The widget has changed its own state by then; what the control makes of it goes back to it, where that is different.
void TButtonControl::Listen(QAbstractButton& Box) {
  On(Box, &QAbstractButton::clicked, [this](bool) {
    const std::uint64_t Alive = LiveHandle();
    BeforeClick();
    if (FromLiveHandle(Alive) == nullptr) return;
    With([this](QAbstractButton& Present) { ShowChecked(Present, FChecked); });
    Click();
  });
}

// --- TCheckBox, TRadioButton ----------------------------------------------------------------------------------------

TCheckBox::TCheckBox(TComponent* Owner) : TButtonControl(Owner) { TCheckBox::SetBounds(0, 0, 97, 17); }

TCheckBox::~TCheckBox() { Destroying(); }

QAbstractButton* TCheckBox::Make() { return new QCheckBox; }

TRadioButton::TRadioButton(TComponent* Owner) : TButtonControl(Owner) { TRadioButton::SetBounds(0, 0, 113, 17); }

TRadioButton::~TRadioButton() { Destroying(); }

QAbstractButton* TRadioButton::Make() { return new QRadioButton; }

/// The widgets exclude each other by themselves; the controls do without them too.
void TRadioButton::CMChanged() {
  TButtonControl::CMChanged();
  if (!Checked() || Parent() == nullptr) return;
  for (TControl* Other : std::vector(Parent()->Controls()))
    if (auto* const Radio = dynamic_cast<TRadioButton*>(Other); Radio != nullptr && Radio != this)
      Radio->SetChecked(false);
}

// --- TButton --------------------------------------------------------------------------------------------------------

TButton::TButton(TComponent* Owner) : TButtonControl(Owner) { TButton::SetBounds(0, 0, 75, 25); }

TButton::~TButton() { Destroying(); }

QAbstractButton* TButton::Make() { return new QPushButton; }

void TButton::Configure(QAbstractButton& Box) {
  TButtonControl::Configure(Box);
  static_cast<QPushButton&>(Box).setDefault(FDefault);
}

void TButton::SetDefault(bool Value) {
  FDefault = Value;
  With([Value](QAbstractButton& Box) { static_cast<QPushButton&>(Box).setDefault(Value); });
}

void TButton::KeyDown(TKey& Key, TShiftState Shift) {
  const std::uint64_t Alive = LiveHandle();
  Inherited::KeyDown(Key, Shift);
  if (FromLiveHandle(Alive) == nullptr || Key != vkReturn) return;
  Key = 0;
  PerformClick();
}

void TButton::Click() {
  TControl* Outer = this;
  while (Outer->Parent() != nullptr) Outer = Outer->Parent();
  if (auto* const Form = dynamic_cast<TForm*>(Outer); Form != nullptr && FModalResult != 0)
    Form->SetModalResult(FModalResult);
  Inherited::Click();
}

}  // namespace zy
