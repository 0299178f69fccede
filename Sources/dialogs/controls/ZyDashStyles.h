#pragma once

#include "dialogs/controls/ZyStylePick.h"

namespace zy {

/// What the controls of dash styles are told: each style shows as a line in LineColor and LineWidth, or as
/// UseLineSettings say.
template <class TShell>
class TZyDashPick : public TShell {
 public:
  TDashStyle DashStyle() const { return this->PickedValue(); }
  void SetDashStyle(TDashStyle Value) { this->SetPickedValue(Value); }
  TZyColor LineColor() const { return this->Sample().LineColor; }
  void SetLineColor(TZyColor Value) { this->ChangeSample(&TZyDashSample::LineColor, Value); }
  float LineWidth() const { return this->Sample().LineWidth; }
  void SetLineWidth(float Value) { this->ChangeSample(&TZyDashSample::LineWidth, Value); }
  /// Null for none; they may die before this.
  void SetUseLineSettings(const TZySimpleLineSettings* Value) {
    this->ChangeSample(&TZyDashSample::UseLineSettings, Value == nullptr ? 0 : Value->LiveHandle());
  }

 protected:
  using TShell::TShell;
};

/// A combo box of dash styles.
class TZyDashStylesCombo : public TZyDashPick<TZyStyleCombo<TZyDashSample>> {
  ZY_CLASS(TZyDashStylesCombo, TCustomComboBox)
  explicit TZyDashStylesCombo(TComponent* Owner = nullptr);
  ~TZyDashStylesCombo() override;
};

/// A list of dash styles.
class TZyDashStylesList : public TZyDashPick<TZyStyleList<TZyDashSample>> {
  ZY_CLASS(TZyDashStylesList, TCustomListBox)
  explicit TZyDashStylesList(TComponent* Owner = nullptr);
  ~TZyDashStylesList() override;
};

}  // namespace zy
