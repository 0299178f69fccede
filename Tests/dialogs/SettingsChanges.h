#pragma once

#include <set>
#include <string>

#include "dialogs/UserChange.h"
#include "dialogs/frames/ZySettingsFrame.h"
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
      if (!ChangeAsUser(Control)) continue;
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
