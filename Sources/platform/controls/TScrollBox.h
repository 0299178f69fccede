#pragma once

#include "platform/controls/TWidgetOf.h"

class QFrame;
class QScrollArea;

namespace zy {

extern template class TWidgetOf<QFrame>;

extern template class TWidgetOf<QScrollArea>;

/// A part of a form that scrolls what does not fit into it. 185 by 41 pixels at first.
class TScrollBox : public TWidgetOf<QScrollArea> {
  ZY_CLASS(TScrollBox, TWinControl)
  explicit TScrollBox(TComponent* Owner = nullptr);
  ~TScrollBox() override;

 protected:
  void Configure(QScrollArea& Box) override;
  void TakeWidget(TWinControl& Inner, QWidget& InnerWidget) override;
  bool TakesFocusByClick() const override { return false; }
};

/// What a bevel draws: a box, a frame, or a line at the top or at the left.
enum TBevelShape { bsBox, bsFrame, bsTopLine, bsLeftLine };
ZY_ENUM(TBevelShape, "bsBox", "bsFrame", "bsTopLine", "bsLeftLine")

/// A line or frame of a form. 50 by 50 pixels at first.
class TBevel : public TWidgetOf<QFrame> {
  ZY_CLASS(TBevel, TWinControl)
  explicit TBevel(TComponent* Owner = nullptr);
  ~TBevel() override;

  TBevelShape Shape() const { return FShape; }
  void SetShape(TBevelShape Value);

 protected:
  void Configure(QFrame& Box) override;
  bool TakesFocusByClick() const override { return false; }

 private:
  TBevelShape FShape = bsBox;
};

}  // namespace zy
