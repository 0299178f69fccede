#include "dialogs/controls/ZyDashStyles.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyDashStylesCombo, TCustomComboBox,
             Published<&TZyDashStylesCombo::LineColor, &TZyDashStylesCombo::SetLineColor>("LineColor", Colors::Red),
             Published<&TZyDashStylesCombo::LineWidth, &TZyDashStylesCombo::SetLineWidth>("LineWidth", 1.0f),
             Published<&TZyDashStylesCombo::DashStyle, &TZyDashStylesCombo::SetDashStyle>("DashStyle", DashStyleSolid),
             Published<&TZyDashStylesCombo::PropertyLinks>("PropertyLinks"),
             Published<&TZyDashStylesCombo::OnValueChanged, &TZyDashStylesCombo::SetOnValueChanged>("OnValueChanged"))
ZY_PUBLISHED(TZyDashStylesList, TCustomListBox,
             Published<&TZyDashStylesList::LineColor, &TZyDashStylesList::SetLineColor>("LineColor", Colors::Red),
             Published<&TZyDashStylesList::LineWidth, &TZyDashStylesList::SetLineWidth>("LineWidth", 1.0f),
             Published<&TZyDashStylesList::DashStyle, &TZyDashStylesList::SetDashStyle>("DashStyle", DashStyleSolid),
             Published<&TZyDashStylesList::PropertyLinks>("PropertyLinks"),
             Published<&TZyDashStylesList::OnValueChanged, &TZyDashStylesList::SetOnValueChanged>("OnValueChanged"))

TZyDashStylesCombo::TZyDashStylesCombo(TComponent* Owner) : TZyDashPick(Owner, DashStyleSolid) { LinkBy("DashStyle"); }

TZyDashStylesCombo::~TZyDashStylesCombo() { Destroying(); }

TZyDashStylesList::TZyDashStylesList(TComponent* Owner) : TZyDashPick(Owner) { LinkBy("DashStyle"); }

TZyDashStylesList::~TZyDashStylesList() { Destroying(); }

}  // namespace zy
