#pragma once

#include "dialogs/controls/ZyLinked.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TRadioGroup.h"

namespace zy {

/// A check box for a property that is yes or no.
class TZyCheckBox : public TZyLinked<TCheckBox> {
  ZY_CLASS(TZyCheckBox, TCheckBox)
  explicit TZyCheckBox(TComponent* Owner = nullptr);
  ~TZyCheckBox() override;

 protected:
  void CMChanged() override;
};

/// A group of radio buttons for a property that is a number from 0 on, or an enumeration.
class TZyRadioGroup : public TZyLinked<TRadioGroup> {
  ZY_CLASS(TZyRadioGroup, TRadioGroup)
  explicit TZyRadioGroup(TComponent* Owner = nullptr);
  ~TZyRadioGroup() override;

 protected:
  void CMChanged() override;
};

}  // namespace zy
