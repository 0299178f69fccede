#include "dialogs/controls/ZyAreaStyles.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyAreaStylesList, TCustomListBox,
             Published<&TZyAreaStylesList::AreaForeColor, &TZyAreaStylesList::SetAreaForeColor>("AreaForeColor",
                                                                                                Colors::LightGray),
             Published<&TZyAreaStylesList::AreaBackColor, &TZyAreaStylesList::SetAreaBackColor>("AreaBackColor",
                                                                                                Colors::DarkGray),
             Published<&TZyAreaStylesList::AreaStyle, &TZyAreaStylesList::SetAreaStyle>("AreaStyle"),
             Published<&TZyAreaStylesList::PropertyLinks>("PropertyLinks"),
             Published<&TZyAreaStylesList::OnValueChanged, &TZyAreaStylesList::SetOnValueChanged>("OnValueChanged"))
ZY_PUBLISHED(TZyAreaStylesCombo, TCustomComboBox,
             Published<&TZyAreaStylesCombo::AreaForeColor, &TZyAreaStylesCombo::SetAreaForeColor>("AreaForeColor",
                                                                                                  Colors::LightGray),
             Published<&TZyAreaStylesCombo::AreaBackColor, &TZyAreaStylesCombo::SetAreaBackColor>("AreaBackColor",
                                                                                                  Colors::DarkGray),
             Published<&TZyAreaStylesCombo::AreaStyle, &TZyAreaStylesCombo::SetAreaStyle>("AreaStyle"),
             Published<&TZyAreaStylesCombo::DropPickList, &TZyAreaStylesCombo::SetDropPickList>("DropPickList", false),
             Published<&TZyAreaStylesCombo::DropDownCount, &TZyAreaStylesCombo::SetDropDownCount>("DropDownCount", 8),
             Published<&TZyAreaStylesCombo::PropertyLinks>("PropertyLinks"),
             Published<&TZyAreaStylesCombo::OnValueChanged, &TZyAreaStylesCombo::SetOnValueChanged>("OnValueChanged"))
ZY_PUBLISHED(TZyAreaStylesForm, TPopupForm)

TZyAreaStylesList::TZyAreaStylesList(TComponent* Owner) : TZyAreaPick(Owner) { LinkBy("AreaStyle"); }

TZyAreaStylesList::~TZyAreaStylesList() { Destroying(); }

TZyAreaStylesCombo::TZyAreaStylesCombo(TComponent* Owner) : TZyAreaPick(Owner, TZyAreaStyle::Total) {
  LinkBy("AreaStyle");
}

TZyAreaStylesCombo::~TZyAreaStylesCombo() { Destroying(); }

QWidget* TZyAreaStylesList::CreateWidget() {
  if (ItemIndex() < 0) SetItemIndex(static_cast<int>(TZyAreaStyle::Total));
  return TZyAreaPick::CreateWidget();
}

TZyAreaStylesForm::TZyAreaStylesForm(TComponent* Owner) : TZyPickForm(Owner) {}

TZyAreaStylesForm::~TZyAreaStylesForm() { Destroying(); }

}  // namespace zy
