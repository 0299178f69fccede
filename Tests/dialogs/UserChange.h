#pragma once

#include <QAbstractButton>
#include <QLineEdit>

#include "annotations/ZyCaptionEdit.h"
#include "controls/KeyEvents.h"
#include "dialogs/controls/ZyAreaStyles.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "platform/controls/TButtonControl.h"

namespace zy {

inline bool HasLines(const TWinControl& Control) {
  return Control.Name() == "AxRubrixEdit" || Control.Name() == "LabCaptionsEdit" || Control.Name() == "CaptionsEdit";
}

/// Does to a control what a user does to change its value. False for one that has no way of its own.
inline bool ChangeAsUser(TWinControl& Control, const QString& Typed = "3") {
  QWidget& Box = *Control.Widget();
  if (auto* const Check = dynamic_cast<TCheckBox*>(&Control)) {
    Check->SetFocus();
    SendKey(Control, Qt::Key_Space, " ");
  } else if (auto* const Radio = dynamic_cast<TRadioButton*>(&Control)) {
    if (Radio->Checked()) return false;
    static_cast<QAbstractButton&>(Box).click();
  } else if (auto* const Edit = dynamic_cast<TZyNumericUpDn*>(&Control)) {
    SendKey(Control, Edit->Value() >= Edit->MaxValue() ? Qt::Key_Down : Qt::Key_Up);
  } else if (dynamic_cast<TZyDoubleEdit*>(&Control) != nullptr || dynamic_cast<TEdit*>(&Control) != nullptr) {
    Control.SetFocus();
    static_cast<QLineEdit&>(Box).selectAll();
    Type(Control, Typed);
    SendKey(Control, Qt::Key_Return, "\r");
  } else if (dynamic_cast<TZyCaptionEdit*>(&Control) != nullptr) {
    Control.SetFocus();
    Type(Control, "y");
    if (HasLines(Control)) return Control.ReleaseFocus(), true;
    SendKey(Control, Qt::Key_Return, "\r");
  } else if (auto* const Pick = dynamic_cast<TZyColorPickCombo*>(&Control)) {
    Pick->SetActiveColor(Pick->ActiveColor() ^ 0xFF);  // as its palettes do
  } else if (auto* const List = dynamic_cast<TZyAreaStylesList*>(&Control)) {
    List->SetFocus();
    SendKey(Control, List->ItemIndex() == 0 ? Qt::Key_Down : Qt::Key_Home);
  } else if (auto* const Combo = dynamic_cast<TCustomComboBox*>(&Control)) {
    if (Combo->Items().Count() < 2) return false;
    SendKey(Control, Combo->ItemIndex() + 1 < Combo->Items().Count() ? Qt::Key_Down : Qt::Key_Up);
  } else {
    return false;
  }
  HandleEvents();
  return true;
}

}  // namespace zy
