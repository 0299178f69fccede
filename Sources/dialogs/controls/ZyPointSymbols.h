#pragma once

#include "dialogs/controls/ZyStylePick.h"

namespace zy {

/// What the controls of point symbols are told: the colours and the line of the symbols.
template <class TShell>
class TZySymbolPick : public TShell {
 public:
  /// Published as "Symbol".
  TZyPointSymbol PointSymbol() const { return this->PickedValue(); }
  void SetPointSymbol(TZyPointSymbol Value) { this->SetPickedValue(Value); }
  TZyColor SymbolBorderColor() const { return this->Sample().BorderColor; }
  void SetSymbolBorderColor(TZyColor Value) { this->ChangeSample(&TZySymbolSample::BorderColor, Value); }
  TZyColor SymbolFillColor() const { return this->Sample().FillColor; }
  void SetSymbolFillColor(TZyColor Value) { this->ChangeSample(&TZySymbolSample::FillColor, Value); }
  float SymbolBorderLineWidth() const { return this->Sample().BorderLineWidth; }
  void SetSymbolBorderLineWidth(float Value) { this->ChangeSample(&TZySymbolSample::BorderLineWidth, Value); }

 protected:
  using TShell::TShell;
};

/// A list of point symbols.
class TZyPointSymbolsList : public TZySymbolPick<TZyStyleList<TZySymbolSample>> {
  ZY_CLASS(TZyPointSymbolsList, TCustomListBox)
  explicit TZyPointSymbolsList(TComponent* Owner = nullptr);
  ~TZyPointSymbolsList() override;
};

/// The form with all point symbols that drops down from a combo box.
class TZyPointSymbolsForm : public TZyPickForm<TZyPointSymbolsList, 5> {
  ZY_CLASS(TZyPointSymbolsForm, TPopupForm)
  explicit TZyPointSymbolsForm(TComponent* Owner = nullptr);
  ~TZyPointSymbolsForm() override;
};

/// A combo box of point symbols.
class TZyPointSymbolsCombo : public TZySymbolPick<TZyStyleCombo<TZySymbolSample, TZyPointSymbolsForm>> {
  ZY_CLASS(TZyPointSymbolsCombo, TCustomComboBox)
  explicit TZyPointSymbolsCombo(TComponent* Owner = nullptr);
  ~TZyPointSymbolsCombo() override;
};

}  // namespace zy
