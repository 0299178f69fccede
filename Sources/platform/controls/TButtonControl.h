#pragma once

#include <string>

#include "platform/controls/TWidgetOf.h"

class QAbstractButton;

namespace zy {

extern template class TWidgetOf<QAbstractButton>;

/// Base of what is clicked and has a text: buttons, check boxes, radio buttons. "&" in the caption marks the access
/// key.
class TButtonControl : public TWidgetOf<QAbstractButton> {
  ZY_CLASS(TButtonControl, TWinControl)
  ~TButtonControl() override;

  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& Value);
  /// Does what a click of the user does; nothing while the control is disabled.
  void PerformClick();

 protected:
  explicit TButtonControl(TComponent* Owner);
  /// What the user's click does before it is told.
  virtual void BeforeClick() {}
  /// Whether the button can be down, and is.
  bool IsChecked() const { return FChecked; }
  void SetIsChecked(bool Value);
  /// Told of each change of IsChecked, by whomever.
  virtual void CMChanged() {}
  void Configure(QAbstractButton& Box) override;
  void Listen(QAbstractButton& Box) override;
  std::string AccessibleName() const override;

 private:
  std::string FCaption;
  bool FChecked = false;
};

/// A box with a check mark and a text. 97 by 17 pixels at first.
class TCheckBox : public TButtonControl {
  ZY_CLASS(TCheckBox, TButtonControl)
  explicit TCheckBox(TComponent* Owner = nullptr);
  ~TCheckBox() override;

  bool Checked() const { return IsChecked(); }
  void SetChecked(bool Value) { SetIsChecked(Value); }

 protected:
  QAbstractButton* Make() override;
  void BeforeClick() override { SetIsChecked(!IsChecked()); }
};

/// One of the choices in its parent: checking it clears the others there. 113 by 17 pixels at first.
class TRadioButton : public TButtonControl {
  ZY_CLASS(TRadioButton, TButtonControl)
  explicit TRadioButton(TComponent* Owner = nullptr);
  ~TRadioButton() override;

  bool Checked() const { return IsChecked(); }
  void SetChecked(bool Value) { SetIsChecked(Value); }

 protected:
  QAbstractButton* Make() override;
  void BeforeClick() override { SetIsChecked(true); }
  void CMChanged() override;
};

/// A button with a text. A form's default button is clicked by the return key, its cancel button by escape, wherever
/// the keyboard is. 75 by 25 pixels at first.
class TButton : public TButtonControl {
  ZY_CLASS(TButton, TButtonControl)
  explicit TButton(TComponent* Owner = nullptr);
  ~TButton() override;

  bool Default() const { return FDefault; }
  void SetDefault(bool Value);
  bool Cancel() const { return FCancel; }
  void SetCancel(bool Value) { FCancel = Value; }
  /// What a click makes the result of the form, and so ends it when it is shown modally; 0 for nothing.
  int ModalResult() const { return FModalResult; }
  void SetModalResult(int Value) { FModalResult = Value; }
  void Click() override;
  /// The return key clicks the button that has the keyboard, whichever is the default one.
  void KeyDown(TKey& Key, TShiftState Shift) override;

 protected:
  QAbstractButton* Make() override;
  void Configure(QAbstractButton& Box) override;

 private:
  bool FDefault = false;
  bool FCancel = false;
  int FModalResult = 0;
};

}  // namespace zy
