#pragma once

#include <string>

#include "dialogs/controls/ZyLinked.h"
#include "graph/values/ZyColors.h"

namespace zy {

/// Asks the user for a colour, which can be that of a property.
class TZyTuneColorsDialog : public TZyLinked<TComponent> {
  ZY_CLASS(TZyTuneColorsDialog, TComponent)
  explicit TZyTuneColorsDialog(TComponent* Owner = nullptr);
  ~TZyTuneColorsDialog() override;

  /// Shows the dialog and waits; whether the user pressed OK, whose colour ActiveColor is then.
  bool Execute();

  TZyColor ActiveColor() const { return FActiveColor; }
  void SetActiveColor(TZyColor Value);
  /// The same as a control's colour.
  TColor AsTColor() const { return ARGBToTColor(FActiveColor); }
  void SetAsTColor(TColor Value) { SetActiveColor(TColorToARGB(Value)); }
  bool EnableAlpha() const { return FEnableAlpha; }
  void SetEnableAlpha(bool Value) { FEnableAlpha = Value; }
  const std::string& Title() const { return FTitle; }
  void SetTitle(const std::string& Value) { FTitle = Value; }

 private:
  TZyColor FActiveColor = Colors::Red;
  bool FEnableAlpha = true;
  std::string FTitle;
};

}  // namespace zy
