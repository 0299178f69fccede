#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "annotations/ZyRichLabel.h"
#include "dialogs/controls/ZyGradientFrame.h"
#include "dialogs/controls/ZyIntegerEdit.h"
#include "platform/controls/TCustomComboBox.h"
#include "platform/controls/TCustomListBox.h"
#include "platform/controls/TForm.h"
#include "platform/controls/TGroupBox.h"

namespace zy {

/// The window of a font dialog. The font under edit is that of a sample, which shows every change at once.
class TZyFontDialogForm : public TForm {
  ZY_CLASS(TZyFontDialogForm, TForm)
  explicit TZyFontDialogForm(TComponent* Owner = nullptr);
  ~TZyFontDialogForm() override;

  TZyFont& EditedFont() { return SampleLab->Font(); }
  /// Copies a font into the sample, and shows it.
  void SetFont(const TZyFont& Value);
  /// Limits of the size; none with both at 0.
  void SetSizeLimits(int Min, int Max);
  /// Whether the gradient can be changed here.
  void SetGradient(bool Shown);
  /// What the buttons do; one without a procedure is not shown.
  void SetButtons(std::function<void()> Apply, std::function<void()> Help);

  void KeyDown(TKey& Key, TShiftState Shift) override;

 protected:
  void DoShow() override;
  void ArrangeWidgets() override;

 private:
  void MakeName();
  void MakeStyle();
  void MakeEffects();
  void MakeButtons();
  TCheckBox* AddCheck(const char* Name, TZyText Text, TZyText Hint, std::function<void(bool Checked)> Take);
  void ShowAll();
  void TakeName(const std::string& Family);
  void UpdateStyles();
  void FindStyle();
  void SetStyles();
  void TakeEffect(std::size_t Place, bool Checked);
  void ShowEffects();

  bool FCanSet = true;
  std::vector<unsigned> FStyles;  // bits of each entry of StyleList
  std::function<void()> FApply, FHelp;

  TListBox *NameList = nullptr, *StyleList = nullptr;
  TComboBox *NameLookup = nullptr, *RenderingCombo = nullptr;
  TCheckBox *UnderlineCheck = nullptr, *StrikeoutCheck = nullptr, *GradientVisibleCheck = nullptr;
  std::array<TCheckBox*, 4> FEffects{};  // in the order of TZyCharDrawEffect
  TZyIntegerEdit* SizeEdit = nullptr;
  TZyColorPickCombo* ColorPick = nullptr;
  TZyGradientFrame* GradientFrame = nullptr;
  TPanel* SamplePanel = nullptr;
  TZyRichLabel* SampleLab = nullptr;
  TButton *OKBtn = nullptr, *CancelBtn = nullptr, *ApplyBtn = nullptr, *HelpBtn = nullptr;
};

}  // namespace zy
