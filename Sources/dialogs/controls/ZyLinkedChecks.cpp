#include "dialogs/controls/ZyLinkedChecks.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyCheckBox, TCheckBox, Published<&TZyCheckBox::PropertyLinks>("PropertyLinks"))
ZY_PUBLISHED(TZyRadioGroup, TRadioGroup, Published<&TZyRadioGroup::PropertyLinks>("PropertyLinks"))

TZyCheckBox::TZyCheckBox(TComponent* Owner) : TZyLinked(Owner) { LinkBy("Checked"); }

TZyCheckBox::~TZyCheckBox() { Destroying(); }

void TZyCheckBox::CMChanged() {
  Inherited::CMChanged();
  SetLink(Checked());
}

TZyRadioGroup::TZyRadioGroup(TComponent* Owner) : TZyLinked(Owner) { LinkBy("ItemIndex"); }

TZyRadioGroup::~TZyRadioGroup() { Destroying(); }

void TZyRadioGroup::CMChanged() {
  Inherited::CMChanged();
  SetLink(ItemIndex());
}

}  // namespace zy
