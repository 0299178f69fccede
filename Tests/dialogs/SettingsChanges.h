#pragma once

#include <QAbstractButton>
#include <QLineEdit>
#include <set>
#include <string>

#include "annotations/ZyCaptionEdit.h"
#include "controls/KeyEvents.h"
#include "dialogs/controls/ZyAreaStyles.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "dialogs/frames/ZySettingsFrame.h"
#include "platform/controls/TButtonControl.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyUndoStack.h"

namespace zy {

/// A window for a frame, whose controls are set as a user sets them.
class TSettingsTest : public ::testing::Test {
 protected:
  TSettingsTest() {
    FForm.SetName("Dialog");
    FForm.SetBounds(0, 0, 500, 4000);
  }

  template <class TFrameClass>
  TFrameClass& Show() {
    auto* const Frame = new TFrameClass(&FForm);
    Frame->SetBounds(0, 0, 480, 3900);
    Frame->SetParent(&FForm);
    ShowNow(FForm);
    QApplication::setActiveWindow(FForm.Widget());
    return *Frame;
  }

  /// Does to a control what a user does to change its value. False for one that has no way of its own.
  static bool Change(TWinControl& Control) {
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
      Type(Control, "3");
      SendKey(Control, Qt::Key_Return, "\r");
    } else if (dynamic_cast<TZyCaptionEdit*>(&Control) != nullptr) {
      Control.SetFocus();
      Type(Control, "y");
      if (FindLines(Control)) return Control.ReleaseFocus(), true;
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
  static bool FindLines(const TWinControl& Control) {
    return Control.Name() == "AxRubrixEdit" || Control.Name() == "LabCaptionsEdit" || Control.Name() == "CaptionsEdit";
  }

  static std::string TextOf(TPersistent& Object, const std::string& Path) {
    const TZyPropertyPlace Place = FindPlace(Object, Path);
    if (!Place) return "none";
    if (Place.Info->Kind != TPropKind::Class) {
      const TZySettingValue Value = Place.Get();
      if (const auto* const Text = std::get_if<std::string>(&Value)) return *Text;
      if (const auto* const Real = std::get_if<double>(&Value)) return RealToText(*Real);
      return std::to_string(std::get<std::int64_t>(Value));
    }
    if (const auto* const List = dynamic_cast<const TStrings*>(Place.GetObject())) return List->Text();
    return std::to_string(reinterpret_cast<std::uintptr_t>(Place.GetObject()));
  }

  /// Changes each property of an object through its control: it is one step, which undo takes back and redo brings
  /// again. Returns how many there were.
  int ChangeAll(TZySettingsFrame& Frame, TPersistent& Object, const std::set<std::string>& Exceptions = {}) {
    int Changed = 0;
    for (const TZySetting& Each : Frame.Settings()) {
      TWinControl& Control = *Each.Control;
      const std::string What = std::string(Object.ClassName()) + ", " + Control.Name();
      if (!Control.Widget()->isVisible() || !Control.Enabled() || Exceptions.contains(Control.Name())) continue;
      FStack.Clear();
      const std::string Before = TextOf(Object, Each.Path);
      if (!Change(Control)) continue;
      const std::string After = TextOf(Object, Each.Path);
      EXPECT_NE(After, Before) << What;
      EXPECT_EQ(FStack.UndoCount(), 1) << What << ": " << FStack.UndoList().Text();
      FStack.Undo();
      Frame.UpdateControls();
      EXPECT_EQ(TextOf(Object, Each.Path), Before) << What << ", undone";
      FStack.Redo();
      Frame.UpdateControls();
      EXPECT_EQ(TextOf(Object, Each.Path), After) << What << ", done again";
      FStack.Undo();
      Frame.UpdateControls();
      ++Changed;
    }
    return Changed;
  }

  TZyUndoStack FStack;
  TForm FForm;
};

}  // namespace zy
