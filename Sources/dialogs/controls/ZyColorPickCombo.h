#pragma once

#include <string>

#include "dialogs/controls/ZyLinked.h"
#include "graph/values/ZyColors.h"
#include "platform/controls/TCustomComboBox.h"
#include "platform/controls/TPopupForm.h"

namespace zy {

/// A box that shows a colour; its arrow opens palettes of colours, and from there the tune colours form.
class TZyColorPickCombo : public TZyLinked<TCustomComboBox> {
  ZY_CLASS(TZyColorPickCombo, TCustomComboBox)
  explicit TZyColorPickCombo(TComponent* Owner = nullptr);
  ~TZyColorPickCombo() override;

  TZyColor ActiveColor() const { return FActiveColor; }
  void SetActiveColor(TZyColor Value);
  /// The same as a control's colour.
  TColor AsTColor() const { return ARGBToTColor(FActiveColor); }
  void SetAsTColor(TColor Value) { SetActiveColor(TColorToARGB(Value)); }
  /// Whether the user may choose an opacity.
  bool EnableAlpha() const { return FEnableAlpha; }
  void SetEnableAlpha(bool Value) { FEnableAlpha = Value; }
  /// Whether the arrow opens the tune colours form at once.
  bool DirectlyShowTuneColors() const { return FDirectlyShowTuneColors; }
  void SetDirectlyShowTuneColors(bool Value) { FDirectlyShowTuneColors = Value; }
  const std::string& OtherBtnCaption() const { return FOtherBtnCaption; }
  void SetOtherBtnCaption(const std::string& Value) { FOtherBtnCaption = Value; }
  const std::string& DialogTitle() const { return FDialogTitle; }
  void SetDialogTitle(const std::string& Value) { FDialogTitle = Value; }

  /// Runs after each change of the colour.
  const TNotifyEvent& OnChanged() const { return FOnChanged; }
  void SetOnChanged(TNotifyEvent Value) { FOnChanged = std::move(Value); }

  void SetBounds(int Left, int Top, int Width, int Height) override;
  void KeyDown(TKey& Key, TShiftState Shift) override;
  void CMMouseEnter() override;

 protected:
  bool DropDown() override;
  void DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) override;

 private:
  void ShowTuneColors(TZyColor Color);

  bool FEnableAlpha = true;
  bool FDirectlyShowTuneColors = false;
  TZyColor FActiveColor = Colors::Red;
  TNotifyEvent FOnChanged;
  std::string FOtherBtnCaption, FDialogTitle;
  TFocusMark FFocusControl;
};

}  // namespace zy
