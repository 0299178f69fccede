#pragma once

#include <memory>
#include <string>
#include <vector>

#include "analysis/ZyParseFktLists.h"
#include "annotations/captions/ZyCaptionRuns.h"
#include "annotations/captions/ZyCaptionText.h"
#include "platform/controls/TCustomRichEdit.h"
#include "texts/ZyLocalize.h"
#include "undo/ZyEditState.h"
#include "undo/ZyUndoLink.h"
#include "undo/controls/ZyPropertyLinks.h"

namespace zy {

class TZyVariablePicker;

/// One variable in the text of a caption edit.
struct TZyCaptionVariableRec {
  int EditStart = 0;   ///< place in the text, a line end counting 1
  int EditLength = 0;  ///< characters of the value as it is shown
  std::string Variable;
  TZyRichCaption Value;
};

/// The editor of a caption: shows the text as it will be drawn, with each variable as its value, and gives the caption
/// back with its markup. Caret and selection never stand inside a variable, and one key removes it whole.
///
/// What was not edited comes back as it was set, byte by byte. Steps back go to UndoStack, at first a stack of the
/// edit's own; a run of characters typed at one place is one step.
class TZyCaptionEdit : public TCustomRichEdit, public IZyEditState {
  ZY_CLASS(TZyCaptionEdit, TCustomRichEdit)
  explicit TZyCaptionEdit(TComponent* Owner = nullptr);
  ~TZyCaptionEdit() override;

  /// Setting throws what ReadCaption throws, and changes nothing then; while the control is loaded, when a step is
  /// undone, and for a linked property, "..." stands for a value that cannot be had.
  TZyRichCaption Caption() const;
  void SetCaption(const TZyRichCaption& Value);
  /// The caption of a range of positions, which stands by itself: behind the start it begins with colour and family.
  TZyRichCaption GetSelectedCaption(int SelStart, int SelLength) const;
  /// The variables in the order of the text.
  std::vector<TZyCaptionVariableRec> Variables() const;

  /// Formats of the selection, or of what is typed next.
  bool Bold() const { return HasStyle(TFontStyle::Bold); }
  void SetBold(bool Value) { SetStyle(TFontStyle::Bold, Value, _sCaptEditBold); }
  bool Italic() const { return HasStyle(TFontStyle::Italic); }
  void SetItalic(bool Value) { SetStyle(TFontStyle::Italic, Value, _sCaptEditItalic); }
  bool Underline() const { return HasStyle(TFontStyle::Underline); }
  void SetUnderline(bool Value) { SetStyle(TFontStyle::Underline, Value, _sCaptEditUnderline); }
  bool Strikeout() const { return HasStyle(TFontStyle::Strikeout); }
  void SetStrikeout(bool Value) { SetStyle(TFontStyle::Strikeout, Value, _sCaptEditStrikeout); }
  bool Superscript() const { return SelFormat().Superscript; }
  void SetSuperscript(bool Value);
  bool Subscript() const { return SelFormat().Subscript && !SelFormat().Superscript; }
  void SetSubscript(bool Value);
  std::string FontName() const;
  /// An empty name, and the control's own, are the caption's family. Throws EConvertError for a name that the caption
  /// language cannot hold. With all the text selected, the control's font takes the name.
  void SetFontName(const std::string& Value);
  TZyColor SelColor() const;
  void SetSelColor(TZyColor Value);
  TAlignment Alignment() const { return Inherited::Alignment(); }
  void SetAlignment(TAlignment Value) override;

  /// The variable that the selection ends in or behind; empty for none. Setting replaces the selection by a variable;
  /// throws what a formula throws, and changes nothing then. An empty name does nothing.
  std::string SelVariable() const;
  void SetSelVariable(const std::string& Value);
  /// Opens the tree of variables, as Ctrl+Space and a line of the menu do: what the user chooses there becomes
  /// SelVariable. Nothing without a widget, and for text that cannot be changed.
  void PickVariable();

  /// Properties that the caption is that of; see TZyPropertyLinks. What cannot be evaluated there shows as "...".
  TZyPropertyLinks& PropertyLinks() { return FLink; }

  TZyUndoStack* UndoStack() const { return FUndo; }
  /// Null for the toolkit's own steps. A stack of the edit's own is freed when another one comes.
  void SetUndoStack(TZyUndoStack* Value);

  std::string EditText() const override { return Caption(); }
  void SetEditText(const std::string& Value) override;
  int SelStart() const override { return Inherited::SelStart(); }
  void SetSelStart(int Value) override { Inherited::SetSelStart(Value); }
  int SelLength() const override { return Inherited::SelLength(); }
  void SetSelLength(int Value) override { Inherited::SetSelLength(Value); }

  void Undo() override;
  void Redo() override;
  bool CanUndo() const override;
  bool CanRedo() const override;
  void ClearUndo() override;
  void KeyDown(TKey& Key, TShiftState Shift) override;
  void Loaded() override;

 protected:
  void BeforeEdit(TRichEditAction Action) override;
  void AddToMenu(QMenu& Menu) override;
  void AfterEdit(TRichEditAction Action) override;
  void Change() override;
  bool UsesKey(TKey Key, TShiftState Shift) const override;
  std::string PrivateFormat() const override;
  std::string PrivateContent() const override;
  TRichRuns RunsOfPrivate(const std::string& Bytes) override;
  void PaintCaret(Graphics& Canvas, const RectF& Box, ARGB Ground) override;
  void CMFontChanged() override;

 private:
  class TDependent;

  TRichRuns ToRich(const TZyCaptionRuns& Runs) const;
  TZyCaptionRuns ToCaption(const TRichRuns& Runs) const;
  TFontStyles Toggled(TFontStyles Style) const;
  void Show(const TZyRichCaption& Value, TZyCaptionReading Reading);
  void ShowAgain();
  bool HasStyle(TFontStyle Value) const { return SelFormat().Style.Contains(Value); }
  void SetStyle(TFontStyle Style, bool Value, TZyText Label);
  void ChangeFormat(TZyText Label, const std::function<void(TRichFormat&)>& Change);
  void PushEditState(TZyText Label);
  bool FlipsFormat(TKey Key);

  std::unique_ptr<TDependent> FDependent;
  TZyUndoStack* FOwnStack;
  TZyUndoLink FUndo{this, &TZyCaptionEdit::SetUndoStack};
  TZyRichCaption FCaption;  // as last set
  TZyRichCaption FShown;    // what the text gave when FCaption was shown
  int FLastInputPos = -1;   // where the last typed character went in
  int FLastDeletePos = -1;
  TZyVariablePicker* FPicker = nullptr;  // owned as a component; null before it was opened
  TZyPropertyLinks FLink{*this, "Caption"};
};

}  // namespace zy
