#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/forms/ZyUndoWatch.h"
#include "dialogs/frames/ZySettingsFrame.h"
#include "platform/controls/TApplicationEvents.h"
#include "platform/controls/TForm.h"
#include "platform/controls/TPageControl.h"
#include "platform/controls/TPaletteWatch.h"
#include "undo/ZyUndoStack.h"

namespace zy {

class TPanel;
class TToolBar;
class TToolButton;
class TZyColorPickCombo;
class TZyDropDnButton;

/// What the dialogs of charts have in common: pages, a line with the undo and redo buttons, a tool bar for the style of
/// captions, and a line for messages.
///
/// The tool bar acts on the caption edit that has the keyboard, or had it before the user went to one of the bar's own
/// boxes. While the form is shown, each undo and redo of its stack brings the controls up to date, and so does, at the
/// next idle moment, what the program or a calculation changes. It is not modal; the escape key closes it.
class TZySettingsForm : public TForm {
  ZY_CLASS(TZySettingsForm, TForm)
  ~TZySettingsForm() override;

  /// Brings the controls of the page in front up to date. Changes nothing of the chart, and logs nothing.
  virtual void UpdateControls() = 0;
  /// The stack in use: the chart's, or in a form designer one of the form's own.
  TZyUndoStack* UndoStack() const { return FUndoStack; }
  TPageControl& Pages() const { return *FPages; }
  /// False while the form fills its own controls.
  bool CanSet() const { return FCanSet; }
  /// Shows the style of the selection in a caption edit in the tool bar.
  void CaptionEditSelectionChange(TZyCaptionEdit& Edit);
  void KeyDown(TKey& Key, TShiftState Shift) override;

  template <class T>
  T& Part(std::string_view PartName) const {
    return dynamic_cast<T&>(*FindComponent(PartName));
  }

 protected:
  TZySettingsForm(TComponent* Owner, const char* PagesName, TZyText Title);

  TTabSheet& AddPage(const char* PageName, const std::string& Title);
  /// Puts a frame with a name on a page, which it fills, and tells the tool bar of its caption edits.
  void AddFrame(TTabSheet& Page, TZySettingsFrame& Frame, const char* FrameName);
  /// The frame of that name on a page, null when it has none.
  static TZySettingsFrame* FrameOn(const TTabSheet* Page, std::string_view FrameName);
  void WatchCaptions(TZySettingsFrame& Frame);
  /// Takes another stack: the buttons act on it, and the form hears of what they do.
  void TakeUndoStack(TZyUndoStack* Value);
  /// Ends what hangs on the form being shown.
  virtual void Hidden() {}
  virtual void Idle();
  /// Ends what would stand in the way of undo.
  virtual void BeforeUndo() {}
  TPanel& SecondLine() const { return *FSecondLine; }

  void DoShow() override;
  void Activate() override;
  void CMVisibleChanged() override;
  void ArrangeWidgets() override;
  /// Arranges what is on a page, once it has a widget.
  virtual void ArrangePage(TTabSheet& Page);

  bool FAsDesigner = false;
  bool FCanSet = true;
  bool FDoOwnStack = false;  // the stack is the form's own

 private:
  void AddStyleBar();
  void AddUndoBar();
  void Watch();
  void Follow();
  void SetUndoStack(TZyUndoStack* Value) { TakeUndoStack(Value); }
  TZyCaptionEdit* SelectedEdit() const;
  void ShowStyle(bool IsEnabled);
  void ChangeStyle(const std::function<void(TZyCaptionEdit&)>& Change);
  void ToFirstLetter(char32_t& Letter);

  TPageControl* FPages;
  TPanel* FSecondLine;
  TToolBar* FStyleBar;
  TZyColorPickCombo* FColorPick = nullptr;
  TComboBox* FFontsCombo = nullptr;
  std::vector<TToolButton*> FStyleButtons;
  std::vector<TZyDropDnButton*> FUndoButtons;
  std::vector<std::uint64_t> FEdits;  // live handles of the caption edits
  std::uint64_t FSelectedEdit = 0;
  TRef<TZyUndoStack> FUndoStack{this, &TZySettingsForm::SetUndoStack};
  std::unique_ptr<TZyUndoWatch> FWatch;
  TApplicationEvents FIdle;
};

}  // namespace zy
