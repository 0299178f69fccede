#pragma once

#include <memory>

#include "platform/controls/TForm.h"

namespace zy {

/// Remembers what has the keyboard, a control or a widget of the host's, and gives it back.
class TFocusMark {
 public:
  TFocusMark();
  ~TFocusMark();
  TFocusMark(const TFocusMark&) = delete;
  TFocusMark& operator=(const TFocusMark&) = delete;

  void Take();
  /// Takes over what another one remembers.
  void TakeFrom(const TFocusMark& Other);
  /// Gives the keyboard back where that is still visible, enabled and ready for it, and forgets it.
  void GiveBack();

 private:
  struct TTarget;
  std::unique_ptr<TTarget> FTarget;
};

/// A form without a border that drops down below a control, and hides as soon as the user turns to something else.
class TPopupForm : public TForm {
  ZY_CLASS(TPopupForm, TForm)
  explicit TPopupForm(TComponent* Owner = nullptr);
  ~TPopupForm() override;

  /// Shows the form in its own size with its corner at the lower left of Control, which must have a widget; further to
  /// the left where it would pass the edge of the screen, and above the control where it would pass the bottom.
  void DropDown(TWinControl& Control);

 protected:
  /// Makes an ordinary window of it in the middle of the screen, with a title, for ShowModal.
  void BecomeDialog();
  void Paint(Graphics& Canvas) override;
  bool WidgetEvent(QEvent& Event) override;
};

}  // namespace zy
