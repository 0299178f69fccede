#pragma once

#include <string>

#include "platform/controls/TWinControl.h"

namespace zy {

/// A window of its own, and the root of what is streamed with it. Hidden and 640 by 480 pixels at first; the bounds are
/// those of the inside. The screen lists every form.
class TForm : public TWinControl {
  ZY_CLASS(TForm, TWinControl)
  explicit TForm(TComponent* Owner = nullptr);
  ~TForm() override;

  /// Text in the window's title.
  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& Value);

  /// Makes the form visible and brings it to the front.
  void Show();
  /// Hides the form, as the user does with the window's close button. The form lives on.
  void Close();

 protected:
  bool WidgetEvent(QEvent& Event) override;
  QWidget* CreateWidget() override;
  void ApplyVisible() override;

 private:
  std::string FCaption;
};

}  // namespace zy
