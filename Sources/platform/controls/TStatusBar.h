#pragma once

#include <string>

#include "platform/controls/TWidgetOf.h"

class QLabel;

namespace zy {

extern template class TWidgetOf<QLabel>;

/// A line of text at the lower edge of a form, which screen readers say when it changes.
class TStatusBar : public TWidgetOf<QLabel> {
  ZY_CLASS(TStatusBar, TWinControl)
  explicit TStatusBar(TComponent* Owner = nullptr);
  ~TStatusBar() override;

  const std::string& SimpleText() const { return FText; }
  void SetSimpleText(const std::string& Value);

 protected:
  void Configure(QLabel& Box) override;
  std::string AccessibleName() const override { return FText; }
  bool TakesFocusByClick() const override { return false; }

 private:
  std::string FText;
};

}  // namespace zy
