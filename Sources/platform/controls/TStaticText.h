#pragma once

#include <string>

#include "platform/controls/TWidgetOf.h"
#include "platform/framework/TRef.h"

class QLabel;

namespace zy {

extern template class TWidgetOf<QLabel>;

/// A text in front of a control, which names it. "&" marks the access key, which gives the control the keyboard. For
/// places where a control with a window has to be; others take a TLabel.
class TStaticText : public TWidgetOf<QLabel> {
  ZY_CLASS(TStaticText, TWinControl)
  explicit TStaticText(TComponent* Owner = nullptr);
  ~TStaticText() override;

  const std::string& Caption() const { return FText; }
  void SetCaption(const std::string& Value);
  /// The control behind the text.
  TWinControl* FocusControl() const { return FFocusControl; }
  void SetFocusControl(TWinControl* Value);

 protected:
  void Configure(QLabel& Box) override;
  std::string AccessibleName() const override;
  bool TakesFocusByClick() const override { return false; }
  bool WidgetEvent(QEvent& Event) override;

 private:
  void ShowBuddy();

  std::string FText;
  TRef<TWinControl> FFocusControl{this, &TStaticText::SetFocusControl};
};

}  // namespace zy
