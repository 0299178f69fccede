#pragma once

#include "dialogs/controls/ZyDoubleEdit.h"

namespace zy {

/// An edit of a real with two buttons that change it by steps, as the arrow keys up and down do, and the wheel while
/// the keyboard is here. What does not fit is cut off rather than hidden. Whole numbers at first.
class TZyNumericUpDn : public TZyCustomDoubleEdit {
  ZY_CLASS(TZyNumericUpDn, TZyCustomDoubleEdit)
  explicit TZyNumericUpDn(TComponent* Owner = nullptr);
  ~TZyNumericUpDn() override;

  double Increment() const { return FIncrement; }
  void SetIncrement(double Value) { FIncrement = Value; }
  /// Width that the buttons take at least; the look of the desktop may give them more. 15 at first.
  int BtnWidth() const { return FBtnWidth; }
  void SetBtnWidth(int Value);
  /// The value rounded; what no int can hold is the nearest one.
  int AsInteger() const;
  void SetAsInteger(int Value) { SetValue(Value); }
  /// Steps so often, downwards for a count below 0.
  void StepBy(int Count);

  void KeyDown(TKey& Key, TShiftState Shift) override;

 protected:
  QWidget* Make() override;
  QLineEdit& LineOf(QWidget& Box) override;
  bool ChangesByWheel() const override { return true; }
  int WinWidth() override;

 private:
  class TSpinWidget;

  double FIncrement = 1;
  int FBtnWidth = 15;
};

}  // namespace zy
