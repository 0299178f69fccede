#include "platform/controls/TCustomRichEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QTextBlock>
#include <QTextEdit>
#include <algorithm>
#include <cstdlib>

#include "platform/controls/RichDocument.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

ZY_PUBLISHED(
    TCustomRichEdit, TWinControl,
    Published<&TCustomRichEdit::ReadOnly, &TCustomRichEdit::SetReadOnly>("ReadOnly", false),
    Published<&TCustomRichEdit::HideSelection, &TCustomRichEdit::SetHideSelection>("HideSelection", true),
    Published<&TCustomRichEdit::OnChange, &TCustomRichEdit::SetOnChange>("OnChange"),
    Published<&TCustomRichEdit::OnSelectionChange, &TCustomRichEdit::SetOnSelectionChange>("OnSelectionChange"))

namespace {

Qt::Alignment ToQt(TAlignment Value) {
  switch (Value) {
    case TAlignment::taRightJustify:
      return Qt::AlignRight;
    case TAlignment::taCenter:
      return Qt::AlignHCenter;
    default:
      return Qt::AlignLeft;
  }
}

bool DeletesMore(const QKeyEvent& Event) {
  for (const auto Key : {QKeySequence::DeleteStartOfWord, QKeySequence::DeleteEndOfWord, QKeySequence::DeleteEndOfLine,
                         QKeySequence::DeleteCompleteLine, QKeySequence::Delete, QKeySequence::Backspace})
    if (Event.matches(Key)) return true;
  return Event.key() == Qt::Key_Backspace || Event.key() == Qt::Key_Delete;
}

bool IsPrintable(const QKeyEvent& Event) { return !Event.text().isEmpty() && Event.text().front().isPrint(); }

}  // namespace

/// The toolkit's editor, which asks the control before it changes the text.
class TCustomRichEdit::TEditWidget : public QTextEdit {
 public:
  explicit TEditWidget(TCustomRichEdit& Owner) : FOwner(&Owner) {}
  /// Dies with or without the control; the document is the control's as long as that lives.
  ~TEditWidget() override {
    if (FOwner != nullptr && FOwner->FRich != nullptr && FOwner->FRich->Document().parent() == this)
      FOwner->FRich->Document().setParent(nullptr);
  }
  void Leave() { FOwner = nullptr; }
  bool IsComposing() const { return FComposing; }

 protected:
  void keyPressEvent(QKeyEvent* Event) override {
    TCustomRichEdit::HandleEvent([&] { KeyPressed(*Event); });
  }
  void inputMethodEvent(QInputMethodEvent* Event) override {
    TCustomRichEdit::HandleEvent([&] {
      if (FOwner == nullptr) return;
      const bool Composes = Event->commitString().isEmpty() && Event->replacementLength() == 0;
      const TScopedValue Composing(FComposing, Composes);
      if (Composes) return QTextEdit::inputMethodEvent(Event);
      FOwner->UserEdits(TRichEditAction::Type, [&] { QTextEdit::inputMethodEvent(Event); });
    });
  }
  void dropEvent(QDropEvent* Event) override {
    TCustomRichEdit::HandleEvent([&] {
      if (FOwner == nullptr) return;
      const TScopedValue Dropping(FDropping, true);
      FOwner->UserEdits(TRichEditAction::Drop, [&] { QTextEdit::dropEvent(Event); });
    });
  }
  void contextMenuEvent(QContextMenuEvent* Event) override {
    const std::unique_ptr<QMenu> Menu(createStandardContextMenu());
    for (QAction* Action : Menu->actions()) Reroute(*Action);
    if (FOwner != nullptr) FOwner->AddToMenu(*Menu);
    Menu->exec(Event->globalPos());
  }
  QMimeData* createMimeDataFromSelection() const override {
    return FOwner == nullptr ? new QMimeData : FOwner->SelectionContent().release();
  }
  bool canInsertFromMimeData(const QMimeData* Source) const override {
    return FOwner != nullptr && (Source->hasText() || Source->hasFormat(ToQString(FOwner->PrivateFormat())));
  }
  void insertFromMimeData(const QMimeData* Source) override {
    TCustomRichEdit::HandleEvent([&] {
      if (FOwner != nullptr && Source != nullptr) FOwner->Paste(*Source, FDropping);
    });
  }
  void paintEvent(QPaintEvent* Event) override {
    QTextEdit::paintEvent(Event);
    if (FOwner == nullptr || FOwner->FHideSelection || hasFocus() || textCursor().hasSelection()) return;
    QPainter Painter(viewport());
    Graphics Canvas(Painter);
    const QRect Caret = cursorRect();
    FOwner->PaintCaret(Canvas,
                       {static_cast<float>(Caret.left()), static_cast<float>(Caret.top()),
                        static_cast<float>(Caret.width()), static_cast<float>(Caret.height())},
                       palette().color(QPalette::Base).rgba());
  }

 private:
  void KeyPressed(QKeyEvent& Event) {
    if (FOwner == nullptr) return;
    const bool ToRedo =
        Event.matches(QKeySequence::Redo) || (Event.key() == Qt::Key_Y && Event.modifiers() == Qt::ControlModifier);
    if (Event.matches(QKeySequence::Undo)) return FOwner->Undo();
    if (ToRedo) return FOwner->Redo();
    if (Event.matches(QKeySequence::Copy)) return FOwner->CopyToClipboard();
    if (Event.matches(QKeySequence::Cut)) return FOwner->CutToClipboard();
    if (Event.matches(QKeySequence::Paste)) return FOwner->PasteFromClipboard();
    if (Event.key() == Qt::Key_Tab || Event.key() == Qt::Key_Backtab) return Event.ignore();
    const auto Go = [&] { QTextEdit::keyPressEvent(&Event); };
    if (isReadOnly()) return Go();
    if (DeletesMore(Event)) return FOwner->UserEdits(TRichEditAction::Delete, Go);
    if (Event.key() == Qt::Key_Return || Event.key() == Qt::Key_Enter) {
      // With the shift key the toolkit would break the line within a paragraph, which is another character.
      QKeyEvent Unshifted(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
      return FOwner->UserEdits(TRichEditAction::Return, [&] { QTextEdit::keyPressEvent(&Unshifted); });
    }
    if (IsPrintable(Event)) return FOwner->UserEdits(TRichEditAction::Type, Go);
    Go();
  }

  /// The menu of the toolkit does what the control does.
  void Reroute(QAction& Action) {
    const auto To = [&](bool IsEnabled, std::function<void(TCustomRichEdit&)> Operation) {
      Action.disconnect();
      Action.setEnabled(IsEnabled);
      QObject::connect(&Action, &QAction::triggered, this, [this, Operation = std::move(Operation)] {
        TCustomRichEdit::HandleEvent([&] {
          if (FOwner != nullptr) Operation(*FOwner);
        });
      });
    };
    const QString Name = Action.objectName();
    if (FOwner == nullptr) return;
    const bool CanCut = textCursor().hasSelection() && !isReadOnly();
    if (Name == "edit-undo") To(FOwner->CanUndo() && !isReadOnly(), [](TCustomRichEdit& Edit) { Edit.Undo(); });
    if (Name == "edit-redo") To(FOwner->CanRedo() && !isReadOnly(), [](TCustomRichEdit& Edit) { Edit.Redo(); });
    if (Name == "edit-cut") To(CanCut, [](TCustomRichEdit& Edit) { Edit.CutToClipboard(); });
    if (Name == "edit-copy") To(textCursor().hasSelection(), [](TCustomRichEdit& Edit) { Edit.CopyToClipboard(); });
    if (Name == "edit-paste") To(canPaste(), [](TCustomRichEdit& Edit) { Edit.PasteFromClipboard(); });
    if (Name == "edit-delete") To(CanCut, [](TCustomRichEdit& Edit) { Edit.ClearSelection(); });
  }

  TCustomRichEdit* FOwner;
  bool FComposing = false;
  bool FDropping = false;
};

/// A change by the control itself: the toolkit's signals are not heard, and what has changed is told at the end.
class TCustomRichEdit::TChange {
 public:
  explicit TChange(TCustomRichEdit& Edit) : FEdit(Edit), FOuter(std::exchange(Edit.FChanging, true)) {}
  ~TChange() { FEdit.FChanging = FOuter; }
  TChange(const TChange&) = delete;
  TChange& operator=(const TChange&) = delete;

 private:
  TCustomRichEdit& FEdit;
  bool FOuter;
};

TCustomRichEdit::TCustomRichEdit(TComponent* Owner) : TWinControl(Owner) {
  TCustomRichEdit::SetBounds(0, 0, 185, 89);
  SetTabStop(true);
}

TCustomRichEdit::~TCustomRichEdit() {
  Destroying();
  if (FRich != nullptr)
    if (auto* const Box = dynamic_cast<TEditWidget*>(FRich->Document().parent())) Box->Leave();
  if (HasWidget()) static_cast<TEditWidget*>(Widget())->Leave();
}

TRichDocument& TCustomRichEdit::Rich() const {
  if (FRich == nullptr) {
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
      throw EInvalidOperation(Format(LoadResString(_sWidgetNeedsApplication), {Name()}));
    FRich = std::make_unique<TRichDocument>();
    FRich->Document().setUndoRedoEnabled(FOwnUndo);
    FRich->SetBase(LookOfFont());
  }
  return *FRich;
}

// --- Widget ---------------------------------------------------------------------------------------------------------

QWidget* TCustomRichEdit::CreateWidget() {
  TRichDocument& Text = Rich();
  auto* const Box = new TEditWidget(*this);
  Text.Document().setParent(Box);
  Box->setDocument(&Text.Document());
  Box->setAcceptRichText(true);
  Box->setTabChangesFocus(true);
  Box->setLineWrapMode(QTextEdit::NoWrap);
  Box->setReadOnly(FReadOnly);
  if (FCursor != nullptr) Box->setTextCursor(*FCursor);
  const auto Tell = [this, Box](auto Proc) {
    if (!FChanging && !Box->IsComposing()) HandleEvent(Proc);
  };
  QObject::connect(&Text.Document(), &QTextDocument::contentsChange, Box, [this, Box](int, int, int) {
    if (!FChanging && !Box->IsComposing()) FModified = true;
  });
  QObject::connect(Box, &QTextEdit::textChanged, Box, [this, Tell] { Tell([this] { Change(); }); });
  QObject::connect(Box, &QTextEdit::selectionChanged, Box, [this, Tell] { Tell([this] { NoteSelection(); }); });
  QObject::connect(Box, &QTextEdit::cursorPositionChanged, Box, [this, Tell] { Tell([this] { NoteSelection(); }); });
  return Box;
}

void TCustomRichEdit::ApplyStyle() {
  Inherited::ApplyStyle();
  ApplyFocusPolicy(true);
}

TRichLook TCustomRichEdit::LookOfFont() const {
  const TControlFont& Face = const_cast<TCustomRichEdit*>(this)->ControlFont();
  return {Face.Name(), Face.Size(), Face.Style(), Face.Color()};
}

const TRichLook& TCustomRichEdit::BaseLook() const { return Rich().Base(); }

/// Black is the colour of a font that was never set: texts have that of the desktop then, dark ones included.
void TCustomRichEdit::ApplyLook() {
  const TChange Silent(*this);
  Rich().SetBase(LookOfFont());
  if (!HasWidget()) return;
  constexpr ARGB Unset = 0xFF000000;
  QWidget& Box = *Widget();
  Box.setFont(Rich().Document().defaultFont());
  QPalette Colors;
  if (Rich().Base().Color != Unset) Colors.setColor(QPalette::Text, QColor::fromRgba(Rich().Base().Color));
  Box.setPalette(Colors);
}

/// The text has the font whether it was set or not.
void TCustomRichEdit::ApplyFont() {
  if (FRich != nullptr) ApplyLook();
}

bool TCustomRichEdit::WidgetEvent(QEvent& Event) {
  if (Inherited::WidgetEvent(Event)) return true;
  if (Event.type() != QEvent::ShortcutOverride) return false;
  const auto& Keys = static_cast<QKeyEvent&>(Event);
  TShiftState Shift;
  if (Keys.modifiers() & Qt::ShiftModifier) Shift.Include(ssShift);
  if (Keys.modifiers() & Qt::ControlModifier) Shift.Include(ssCtrl);
  if (Keys.modifiers() & Qt::AltModifier) Shift.Include(ssAlt);
  TKey Key = Keys.key() < 128 ? static_cast<TKey>(Keys.key()) : TKey{0};
  if (Keys.key() == Qt::Key_Plus) Key = vkAdd;
  if (Keys.key() == Qt::Key_Minus) Key = vkSubtract;
  if (!UsesKey(Key, Shift)) return false;
  Event.accept();
  return true;
}

QTextCursor TCustomRichEdit::Cursor() const {
  if (HasWidget()) return static_cast<QTextEdit*>(const_cast<TCustomRichEdit*>(this)->Widget())->textCursor();
  return FCursor != nullptr ? *FCursor : QTextCursor(&Rich().Document());
}

void TCustomRichEdit::SetCursor(const QTextCursor& Value) {
  {
    const TChange Silent(*this);
    FCursor = std::make_unique<QTextCursor>(Value);
    if (HasWidget()) static_cast<QTextEdit*>(Widget())->setTextCursor(Value);
  }
  if (!FChanging) NoteSelection();
}

void TCustomRichEdit::NoteSelection() {
  const QTextCursor Present = Cursor();
  FCursor = std::make_unique<QTextCursor>(Present);
  if (Present.anchor() == FLastAnchor && Present.position() == FLastPosition) return;
  FLastAnchor = Present.anchor();
  FLastPosition = Present.position();
  SelectionChange();
}

// --- Text -----------------------------------------------------------------------------------------------------------

std::string TCustomRichEdit::Text() const {
  std::string Result;
  for (const TRichRun& Run : Runs())
    for (const char C : Run.Atom != nullptr ? Run.Atom->Shown() : Run.Text)
      C == '\n' ? Result.append("\r\n") : Result.append(1, C);
  return Result;
}

int TCustomRichEdit::ShownLength() const { return Rich().ToShown(Rich().Length()); }

TRichRuns TCustomRichEdit::Runs() const { return Rich().Read(0, Rich().Length()); }

TRichRuns TCustomRichEdit::Runs(int Start, int Length) const {
  return Rich().Read(Rich().ToDocument(Start, false), Rich().ToDocument(Start + Length, true));
}

void TCustomRichEdit::SetRuns(const TRichRuns& Value) {
  QTextCursor All(&Rich().Document());
  {
    const TChange Silent(*this);
    All.select(QTextCursor::Document);
    All.removeSelectedText();
    QTextBlockFormat Lines;
    Lines.setAlignment(ToQt(FAlignment));
    All.setBlockFormat(Lines);
    TRichFormat Plain;
    Plain.Style = Rich().Base().Style;
    All.setBlockCharFormat(Rich().ToQt(Plain));
    All.setCharFormat(Rich().ToQt(Plain));
    Rich().Insert(All, Value);
  }
  SetCursor(All);
}

void TCustomRichEdit::InsertRuns(const TRichRuns& Value) {
  QTextCursor Place = Cursor();
  const std::uint64_t Alive = LiveHandle();
  {
    const TChange Silent(*this);
    Rich().Insert(Place, Value);
    FModified = true;
  }
  SetCursor(Place);
  if (FromLiveHandle(Alive) != nullptr && !FChanging) Change();
}

std::vector<TRichAtomPlace> TCustomRichEdit::Atoms() const { return Rich().Atoms(); }

int TCustomRichEdit::SelStart() const { return Rich().ToShown(Cursor().selectionStart()); }

int TCustomRichEdit::SelLength() const { return Rich().ToShown(Cursor().selectionEnd()) - SelStart(); }

void TCustomRichEdit::Select(int Start, int Length) {
  QTextCursor Place = Cursor();
  const bool Forward = Start >= Rich().ToShown(Place.position());
  const int Other = std::clamp(Start, 0, ShownLength()) + std::clamp(Length, -ShownLength(), ShownLength());
  const int From = Rich().ToDocument(Start, Length == 0 && Forward);
  const int To = Length == 0 ? From : Rich().ToDocument(Other, Length > 0);
  Place.setPosition(Length < 0 ? Rich().ToDocument(Start, true) : From);
  if (Length != 0) Place.setPosition(To, QTextCursor::KeepAnchor);
  SetCursor(Place);
}

std::string TCustomRichEdit::SelText() const {
  std::string Result;
  for (const TRichRun& Run : Rich().Read(Cursor().selectionStart(), Cursor().selectionEnd()))
    Result += Run.Atom != nullptr ? Run.Atom->Shown() : Run.Text;
  return Result;
}

void TCustomRichEdit::SetSelText(std::string_view Value) {
  InsertRuns({{SelFormat(), PlainPasteOf(ToQString(Value)), nullptr}});
}

void TCustomRichEdit::ClearSelection() {
  if (!Cursor().hasSelection()) return;
  UserEdits(TRichEditAction::Clear, [this] { InsertRuns({}); });
}

TRichFormat TCustomRichEdit::SelFormat() const {
  QTextCursor Place = Cursor();
  if (Place.hasSelection()) {
    const TRichRuns First = Rich().Read(Place.selectionStart(), Place.selectionStart() + 1);
    if (!First.empty()) return First.front().Format;
  }
  return Rich().FromQt(Place.charFormat());
}

void TCustomRichEdit::ChangeSelFormat(const std::function<void(TRichFormat&)>& Change) {
  QTextCursor Place = Cursor();
  const bool HasSelection = Place.hasSelection();
  {
    const TChange Silent(*this);
    if (HasSelection) {
      Rich().ChangeFormats(Place, Change);
      FModified = true;
    } else {
      TRichFormat Next = SelFormat();
      Change(Next);
      Place.setCharFormat(Rich().ToQt(Next));
    }
  }
  const std::uint64_t Alive = LiveHandle();
  SetCursor(Place);
  if (FromLiveHandle(Alive) != nullptr && HasSelection && !FChanging) this->Change();
}

void TCustomRichEdit::SetAlignment(TAlignment Value) {
  if (Value == FAlignment) return;
  FAlignment = Value;
  if (FRich == nullptr) return;
  const TChange Silent(*this);
  QTextCursor All(&Rich().Document());
  All.select(QTextCursor::Document);
  QTextBlockFormat Lines;
  Lines.setAlignment(ToQt(FAlignment));
  All.mergeBlockFormat(Lines);
}

void TCustomRichEdit::SetReadOnly(bool Value) {
  FReadOnly = Value;
  if (HasWidget()) static_cast<QTextEdit*>(Widget())->setReadOnly(Value);
}

void TCustomRichEdit::SetHideSelection(bool Value) {
  FHideSelection = Value;
  if (HasWidget()) static_cast<QTextEdit*>(Widget())->viewport()->update();
}

// --- What the user does ---------------------------------------------------------------------------------------------

void TCustomRichEdit::UserEdits(TRichEditAction Action, const std::function<void()>& Edit) {
  const std::uint64_t Alive = LiveHandle();
  BeforeEdit(Action);
  if (FromLiveHandle(Alive) == nullptr) return;
  Edit();
  if (FromLiveHandle(Alive) != nullptr) AfterEdit(Action);
}

std::unique_ptr<QMimeData> TCustomRichEdit::SelectionContent() const {
  auto Content = std::make_unique<QMimeData>();
  const QTextCursor Place = Cursor();
  Content->setText(ToQString(SelText()));
  Content->setHtml(HtmlOf(Rich().Read(Place.selectionStart(), Place.selectionEnd()), Rich().Base()));
  if (const std::string Name = PrivateFormat(); !Name.empty())
    Content->setData(ToQString(Name), QByteArray::fromStdString(PrivateContent()));
  return Content;
}

void TCustomRichEdit::CopyToClipboard() {
  if (Cursor().hasSelection()) QGuiApplication::clipboard()->setMimeData(SelectionContent().release());
}

void TCustomRichEdit::CutToClipboard() {
  if (FReadOnly || !Cursor().hasSelection()) return CopyToClipboard();
  CopyToClipboard();
  UserEdits(TRichEditAction::Cut, [this] { InsertRuns({}); });
}

void TCustomRichEdit::PasteFromClipboard() {
  const QMimeData* const Content = QGuiApplication::clipboard()->mimeData();
  if (!FReadOnly && Content != nullptr) Paste(*Content, false);
}

TRichRuns TCustomRichEdit::PastedRuns(const QMimeData& Content) {
  const QString Private = ToQString(PrivateFormat());
  if (!Private.isEmpty() && Content.hasFormat(Private)) return RunsOfPrivate(Content.data(Private).toStdString());
  if (Content.hasHtml()) return RichPasteOf(Content.html(), Rich());
  return {{SelFormat(), PlainPasteOf(Content.text()), nullptr}};
}

/// Reads all before anything changes. A drop has been announced already.
void TCustomRichEdit::Paste(const QMimeData& Content, bool IsDrop) {
  const TRichRuns Pasted = PastedRuns(Content);
  const bool IsNothing =
      std::ranges::all_of(Pasted, [](const TRichRun& Run) { return Run.Atom == nullptr && Run.Text.empty(); });
  if (IsNothing) return;
  if (IsDrop) return InsertRuns(Pasted);
  UserEdits(TRichEditAction::Paste, [&] { InsertRuns(Pasted); });
}

TRichRuns TCustomRichEdit::RunsOfPrivate(const std::string&) { return {}; }

void TCustomRichEdit::Undo() { Rich().Document().undo(); }

void TCustomRichEdit::Redo() { Rich().Document().redo(); }

bool TCustomRichEdit::CanUndo() const { return FRich != nullptr && Rich().Document().isUndoAvailable(); }

bool TCustomRichEdit::CanRedo() const { return FRich != nullptr && Rich().Document().isRedoAvailable(); }

void TCustomRichEdit::ClearUndo() { Rich().Document().clearUndoRedoStacks(); }

void TCustomRichEdit::SetOwnUndo(bool Value) {
  FOwnUndo = Value;
  if (FRich != nullptr) FRich->Document().setUndoRedoEnabled(Value);
}

void TCustomRichEdit::BeforeEdit(TRichEditAction) {}

void TCustomRichEdit::AfterEdit(TRichEditAction) {}

void TCustomRichEdit::Change() {
  if (const TNotifyEvent Event = FOnChange) Event(this);
}

void TCustomRichEdit::SelectionChange() {
  if (const TNotifyEvent Event = FOnSelectionChange) Event(this);
}

bool TCustomRichEdit::UsesKey(TKey, TShiftState) const { return false; }

void TCustomRichEdit::PaintCaret(Graphics&, const RectF&, ARGB) {}

}  // namespace zy
