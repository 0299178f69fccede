#pragma once

#include "dialogs/controls/ZyStylePick.h"

namespace zy {

/// What the controls of area styles are told: the colours of the boxes that show them.
template <class TShell>
class TZyAreaPick : public TShell {
 public:
  TZyAreaStyle AreaStyle() const { return this->PickedValue(); }
  void SetAreaStyle(TZyAreaStyle Value) { this->SetPickedValue(Value); }
  TZyColor AreaForeColor() const { return this->Sample().ForeColor; }
  void SetAreaForeColor(TZyColor Value) { this->ChangeSample(&TZyAreaSample::ForeColor, Value); }
  TZyColor AreaBackColor() const { return this->Sample().BackColor; }
  void SetAreaBackColor(TZyColor Value) { this->ChangeSample(&TZyAreaSample::BackColor, Value); }

 protected:
  using TShell::TShell;
};

/// A list of area styles. One that is shown with none selected selects Total.
class TZyAreaStylesList : public TZyAreaPick<TZyStyleList<TZyAreaSample>> {
  ZY_CLASS(TZyAreaStylesList, TCustomListBox)
  explicit TZyAreaStylesList(TComponent* Owner = nullptr);
  ~TZyAreaStylesList() override;

 protected:
  QWidget* CreateWidget() override;
};

/// The form with all area styles that drops down from a combo box.
class TZyAreaStylesForm : public TZyPickForm<TZyAreaStylesList, 8> {
  ZY_CLASS(TZyAreaStylesForm, TPopupForm)
  explicit TZyAreaStylesForm(TComponent* Owner = nullptr);
  ~TZyAreaStylesForm() override;
};

/// A combo box of area styles; Total at first.
class TZyAreaStylesCombo : public TZyAreaPick<TZyStyleCombo<TZyAreaSample, TZyAreaStylesForm>> {
  ZY_CLASS(TZyAreaStylesCombo, TCustomComboBox)
  explicit TZyAreaStylesCombo(TComponent* Owner = nullptr);
  ~TZyAreaStylesCombo() override;
};

}  // namespace zy
