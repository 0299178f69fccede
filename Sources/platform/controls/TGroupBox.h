#pragma once

#include <string>

#include "platform/controls/TWidgetOf.h"

class QGroupBox;

namespace zy {

extern template class TWidgetOf<QGroupBox>;

/// A frame with a title around controls; base of group boxes. "&" in the caption marks the access key.
class TCustomGroupBox : public TWidgetOf<QGroupBox> {
  ZY_CLASS(TCustomGroupBox, TWinControl)
  explicit TCustomGroupBox(TComponent* Owner = nullptr);
  ~TCustomGroupBox() override;

  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& Value);

 protected:
  void Configure(QGroupBox& Box) override;
  std::string AccessibleName() const override;
  bool TakesFocusByClick() const override { return false; }

 private:
  std::string FCaption;
};

/// A frame with a title around controls. 185 by 105 pixels at first.
class TGroupBox : public TCustomGroupBox {
  ZY_CLASS(TGroupBox, TCustomGroupBox)
  explicit TGroupBox(TComponent* Owner = nullptr);
  ~TGroupBox() override;
};

}  // namespace zy
