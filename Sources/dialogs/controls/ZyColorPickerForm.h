#pragma once

#include <array>
#include <functional>

#include "graph/values/ZyColors.h"
#include "platform/controls/TPaletteWatch.h"
#include "platform/controls/TPopupForm.h"
#include "platform/controls/TSpeedButton.h"

namespace zy {

/// A button that shows a colour.
class TZyColorBtn : public TSpeedButton {
  ZY_CLASS(TZyColorBtn, TSpeedButton)
  explicit TZyColorBtn(TComponent* Owner = nullptr);
  ~TZyColorBtn() override;

  TZyColor SqareColor() const { return FSqareColor; }
  void SetSqareColor(TZyColor Value);
  /// Keys and buttons of the last press; nothing for a click by keyboard.
  TShiftState MouseShift() const { return FMouseShift; }

  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  /// The return key clicks, and the arrow keys go to the next button in their direction.
  void KeyDown(TKey& Key, TShiftState Shift) override;

 private:
  TZyColor FSqareColor = Colors::Transparent;
  TShiftState FMouseShift;
};

/// The form with the palettes that drops down from a colour combo. There is one for the whole program, made by whoever
/// needs it first (ColorPickerForm).
class TZyColorPickerForm : public TPopupForm {
  ZY_CLASS(TZyColorPickerForm, TPopupForm)
  explicit TZyColorPickerForm(TComponent* Owner = nullptr);
  ~TZyColorPickerForm() override;

  TZyColor PickColor() const { return FPickColor; }
  /// Puts the first button of that colour down; a colour that no palette has goes to the button of its own.
  void SetPickColor(TZyColor Value);
  /// Whether full transparency can be picked.
  void SetEnableAlpha(bool Value);
  /// Text of the button that opens the tune colours form.
  void SetOtherBtnCaption(const std::string& Value) { OtherBtn->SetCaption(Value); }

  /// Drops the form down below a control. Set gets the picked colour; Other, called with a colour to begin with, opens
  /// the tune colours form, once this one is closed. The keyboard goes back to Focus.
  void Show(TWinControl& Below, const TFocusMark& Focus, std::function<void(TZyColor)> Set,
            std::function<void(TZyColor)> Other);

 protected:
  void ArrangeWidgets() override;
  void CMVisibleChanged() override;

 private:
  static constexpr int PaletteCount = 56, NamedCount = 28, ButtonCount = PaletteCount + NamedCount;

  TZyColorBtn* AddButton(int Left, int Top, TZyColor Color, const std::string& Hint);
  void ReadNamedColors();
  void BtnClick(const TZyColorBtn& Button);
  void OtherBtnClick();

  std::array<TZyColorBtn*, ButtonCount> ColBtns{};
  TZyColorBtn* OtherColBtn = nullptr;
  TSpeedButton* OtherBtn = nullptr;
  TZyColor FPickColor = Colors::Transparent;
  bool FDoingDialog = false;
  TFocusMark FFocusControl;
  std::function<void(TZyColor)> FSet, FOther;
  TPaletteWatch FPalette{[this] { ReadNamedColors(); }};  // the desktop's colours may change
};

/// The form of the program.
TZyColorPickerForm& ColorPickerForm();

}  // namespace zy
