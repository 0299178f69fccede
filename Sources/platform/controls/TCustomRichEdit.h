#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/TRichText.h"
#include "platform/controls/TWinControl.h"
#include "platform/framework/Alignment.h"

class QMenu;
class QMimeData;
class QTextCursor;

namespace zy {

class TRichDocument;

/// What a user does to a text.
enum class TRichEditAction { Type, Return, Delete, Cut, Clear, Paste, Drop };

/// An editor of formatted text on the toolkit's, with atoms in it: pieces that caret and selection never enter.
///
/// Positions count characters of 16 bits as they are shown, the text of an atom with them and a line end as 1. What is
/// set to a place inside an atom goes to its end, or to its start when the caret was behind it. The text needs an
/// application object; all that changes it throws EInvalidOperation without one.
class TCustomRichEdit : public TWinControl {
  ZY_CLASS(TCustomRichEdit, TWinControl)
  explicit TCustomRichEdit(TComponent* Owner = nullptr);
  ~TCustomRichEdit() override;

  /// The text as it is shown; lines end with carriage return and line feed.
  std::string Text() const;
  /// Number of positions.
  int ShownLength() const;
  /// All runs, or those of a range.
  TRichRuns Runs() const;
  TRichRuns Runs(int Start, int Length) const;
  /// Replaces everything, in the control's alignment; the caret stands at the end.
  void SetRuns(const TRichRuns& Value);
  /// Replaces the selection; the caret stands behind.
  void InsertRuns(const TRichRuns& Value);
  std::vector<TRichAtomPlace> Atoms() const;

  int SelStart() const;
  void SetSelStart(int Value) { Select(Value, 0); }
  /// Never negative. Setting a negative one selects backward, with the caret in front.
  int SelLength() const;
  void SetSelLength(int Value) { Select(SelStart(), Value); }
  void Select(int Start, int Length);
  void SelectAll() { Select(0, ShownLength()); }
  std::string SelText() const;
  /// Replaces the selection by a text in the present format. Control characters but line ends are dropped.
  void SetSelText(std::string_view Value);
  virtual void ClearSelection();
  /// The format of the selection's first character, or of the next one typed.
  TRichFormat SelFormat() const;
  void ChangeSelFormat(const std::function<void(TRichFormat&)>& Change);

  /// Whether the text was changed since this was set to false.
  bool Modified() const { return FModified; }
  void SetModified(bool Value) { FModified = Value; }
  TAlignment Alignment() const { return FAlignment; }
  virtual void SetAlignment(TAlignment Value);
  bool ReadOnly() const { return FReadOnly; }
  void SetReadOnly(bool Value);
  /// Whether the place of the caret is shown only while the control has the keyboard; true at first.
  bool HideSelection() const { return FHideSelection; }
  void SetHideSelection(bool Value);

  virtual void CopyToClipboard();
  virtual void CutToClipboard();
  virtual void PasteFromClipboard();
  virtual void Undo();
  virtual void Redo();
  virtual bool CanUndo() const;
  virtual bool CanRedo() const;
  virtual void ClearUndo();

  /// Runs after each change of the text by the user.
  const TNotifyEvent& OnChange() const { return FOnChange; }
  void SetOnChange(TNotifyEvent Value) { FOnChange = std::move(Value); }
  const TNotifyEvent& OnSelectionChange() const { return FOnSelectionChange; }
  void SetOnSelectionChange(TNotifyEvent Value) { FOnSelectionChange = std::move(Value); }

 protected:
  /// Told before and after what the user does changes the text.
  virtual void BeforeEdit(TRichEditAction Action);
  virtual void AfterEdit(TRichEditAction Action);
  virtual void Change();
  virtual void SelectionChange();
  /// Whether a key is the control's own, so that the host's menu does not take it.
  virtual bool UsesKey(TKey Key, TShiftState Shift) const;
  /// Name and bytes of the selection in a form of the control's own on the clipboard; no name, no such form.
  virtual std::string PrivateFormat() const { return {}; }
  virtual std::string PrivateContent() const { return {}; }
  /// The runs of such bytes; an exception leaves the text as it is.
  virtual TRichRuns RunsOfPrivate(const std::string& Bytes);
  /// Draws the place of the caret while another control has the keyboard. Box is that of the caret.
  virtual void PaintCaret(Graphics& Canvas, const RectF& Box, ARGB Ground);
  /// Adds lines of the control's own to the menu under the right mouse button.
  virtual void AddToMenu(QMenu&) {}
  /// Has the toolkit's own steps back recorded, or not.
  void SetOwnUndo(bool Value);
  bool IsChanging() const { return FChanging; }
  const TRichLook& BaseLook() const;

  void ApplyFont() override;
  void ApplyStyle() override;
  QWidget* CreateWidget() override;
  bool WidgetEvent(QEvent& Event) override;

 private:
  class TEditWidget;
  class TChange;

  TRichDocument& Rich() const;
  QTextCursor Cursor() const;
  void SetCursor(const QTextCursor& Value);
  TRichLook LookOfFont() const;
  void ApplyLook();
  void NoteSelection();
  std::unique_ptr<QMimeData> SelectionContent() const;
  void Paste(const QMimeData& Content, bool IsDrop);
  TRichRuns PastedRuns(const QMimeData& Content);
  void UserEdits(TRichEditAction Action, const std::function<void()>& Edit);

  mutable std::unique_ptr<TRichDocument> FRich;
  std::unique_ptr<QTextCursor> FCursor;
  int FLastAnchor = 0, FLastPosition = 0;
  TAlignment FAlignment = TAlignment::taLeftJustify;
  bool FReadOnly = false;
  bool FHideSelection = true;
  bool FModified = false;
  bool FChanging = false;  // by the control itself
  bool FOwnUndo = true;
  TNotifyEvent FOnChange, FOnSelectionChange;
};

}  // namespace zy
