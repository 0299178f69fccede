#include "dialogs/controls/ZyPointSymbols.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(
    TZyPointSymbolsList, TCustomListBox,
    Published<&TZyPointSymbolsList::SymbolBorderColor, &TZyPointSymbolsList::SetSymbolBorderColor>("SymbolBorderColor",
                                                                                                   Colors::Blue),
    Published<&TZyPointSymbolsList::SymbolFillColor, &TZyPointSymbolsList::SetSymbolFillColor>("SymbolFillColor",
                                                                                               Colors::Blue),
    Published<&TZyPointSymbolsList::SymbolBorderLineWidth, &TZyPointSymbolsList::SetSymbolBorderLineWidth>(
        "SymbolBorderLineWidth", 1.0f),
    Published<&TZyPointSymbolsList::PointSymbol, &TZyPointSymbolsList::SetPointSymbol>("Symbol", TZyPointSymbol::Dot),
    Published<&TZyPointSymbolsList::PropertyLinks>("PropertyLinks"),
    Published<&TZyPointSymbolsList::OnValueChanged, &TZyPointSymbolsList::SetOnValueChanged>("OnValueChanged"))
ZY_PUBLISHED(
    TZyPointSymbolsCombo, TCustomComboBox,
    Published<&TZyPointSymbolsCombo::SymbolBorderColor, &TZyPointSymbolsCombo::SetSymbolBorderColor>(
        "SymbolBorderColor", Colors::Blue),
    Published<&TZyPointSymbolsCombo::SymbolFillColor, &TZyPointSymbolsCombo::SetSymbolFillColor>("SymbolFillColor",
                                                                                                 Colors::Blue),
    Published<&TZyPointSymbolsCombo::SymbolBorderLineWidth, &TZyPointSymbolsCombo::SetSymbolBorderLineWidth>(
        "SymbolBorderLineWidth", 1.0f),
    Published<&TZyPointSymbolsCombo::PointSymbol, &TZyPointSymbolsCombo::SetPointSymbol>("Symbol", TZyPointSymbol::Dot),
    Published<&TZyPointSymbolsCombo::DropPickList, &TZyPointSymbolsCombo::SetDropPickList>("DropPickList", false),
    Published<&TZyPointSymbolsCombo::DropDownCount, &TZyPointSymbolsCombo::SetDropDownCount>("DropDownCount", 8),
    Published<&TZyPointSymbolsCombo::PropertyLinks>("PropertyLinks"),
    Published<&TZyPointSymbolsCombo::OnValueChanged, &TZyPointSymbolsCombo::SetOnValueChanged>("OnValueChanged"))
ZY_PUBLISHED(TZyPointSymbolsForm, TPopupForm)

TZyPointSymbolsList::TZyPointSymbolsList(TComponent* Owner) : TZySymbolPick(Owner) { LinkBy("Symbol"); }

TZyPointSymbolsList::~TZyPointSymbolsList() { Destroying(); }

TZyPointSymbolsCombo::TZyPointSymbolsCombo(TComponent* Owner) : TZySymbolPick(Owner, TZyPointSymbol::Dot) {
  LinkBy("Symbol");
}

TZyPointSymbolsCombo::~TZyPointSymbolsCombo() { Destroying(); }

TZyPointSymbolsForm::TZyPointSymbolsForm(TComponent* Owner) : TZyPickForm(Owner) {}

TZyPointSymbolsForm::~TZyPointSymbolsForm() { Destroying(); }

}  // namespace zy
