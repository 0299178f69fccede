#pragma once

#include <string>

#include "platform/controls/TApplicationEvents.h"
#include "platform/controls/TPopupForm.h"
#include "undo/ZyUndoStack.h"

namespace zy {

class TLabel;
class TZyDropDnButton;
class TZyLevelsList;

/// The list that undo and redo buttons drop down: the steps, the newest first, of which the top ones are marked by the
/// mouse or the arrow keys and replayed by a click or the return key, and a line that says how many these are. The
/// escape key, and a click elsewhere, close it and change nothing.
///
/// One form serves all buttons of the program; the application owns it. 199 by 135 pixels, and more where the font
/// needs it. It closes when its button or the stack dies, and when there is no step any more; steps that come while it
/// is open are in it from the next idle moment on.
class TZyUndoListFrm : public TForm {
  ZY_CLASS(TZyUndoListFrm, TForm)
  explicit TZyUndoListFrm(TComponent* Owner = nullptr);
  ~TZyUndoListFrm() override;

  /// The form of the program, made when there is none.
  static TZyUndoListFrm& Get();

  /// Opens below a button that is shown and has a stack.
  void DropDown(TZyDropDnButton& Button);
  /// Closes the list and tells the button.
  void FormDeactivate();

  TZyLevelsList& LevelsList() { return *FLevelsList; }
  TLabel& StatusLab() { return *FStatusLab; }
  /// Whether the steps are those that can be redone.
  bool ForRedo() const { return FForRedo; }
  /// The button whose list is open, null for none.
  TZyDropDnButton* ParentBtn() const { return FParentBtn; }

 protected:
  void DoShow() override;
  void Deactivate() override;
  bool WidgetEvent(QEvent& Event) override;
  QWidget* CreateWidget() override;

 private:
  const TStrings& Steps() const { return FForRedo ? FStack->RedoList() : FStack->UndoList(); }
  void SetParentBtn(TZyDropDnButton* Value);
  void SetStack(TZyUndoStack* Value);
  void Place(const TZyDropDnButton& Button);
  void LevelsListClick();
  void ShowStatus();
  void Refresh();

  bool FForRedo = false;
  TRef<TZyDropDnButton> FParentBtn{this, &TZyUndoListFrm::SetParentBtn};
  TRef<TZyUndoStack> FStack{this, &TZyUndoListFrm::SetStack};
  TZyLevelsList* FLevelsList;  // owned by the form, as all in it
  TLabel* FStatusLab;
  std::string FNewest;  // label of the first step that is listed
  TFocusMark FFocus;    // what had the keyboard before
  TApplicationEvents FIdle;
};

}  // namespace zy
