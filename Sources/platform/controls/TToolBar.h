#pragma once

#include "platform/controls/TWidgetOf.h"

class QToolBar;

namespace zy {

extern template class TWidgetOf<QToolBar>;

/// A row of buttons: its inner controls stand side by side, from the first on. 150 by 29 pixels at first.
class TToolBar : public TWidgetOf<QToolBar> {
  ZY_CLASS(TToolBar, TWinControl)
  explicit TToolBar(TComponent* Owner = nullptr);
  ~TToolBar() override;

 protected:
  void Configure(QToolBar& Box) override;
  void TakeWidget(TWinControl& Inner, QWidget& InnerWidget) override;
  bool TakesFocusByClick() const override { return false; }
};

}  // namespace zy
