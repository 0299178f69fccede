#include "annotations/ZyCaptionEdit.h"

#include <QAction>
#include <QMenu>
#include <algorithm>

#include "annotations/ZyVariablePicker.h"
#include "annotations/captions/ZyRichCaption.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/Utf8.h"
#include "texts/ZyLocalize.h"
#include "texts/ZySettingsTexts.h"
#include "undo/ZyUndoStack.h"

namespace zy {

ZY_PUBLISHED(TZyCaptionEdit, TCustomRichEdit,
             Published<&TZyCaptionEdit::Caption, &TZyCaptionEdit::SetCaption>("Caption", TZyRichCaption(),
                                                                              _sCaptEditSetCaption),
             Published<&TZyCaptionEdit::Alignment, &TZyCaptionEdit::SetAlignment>("Alignment",
                                                                                  TAlignment::taLeftJustify,
                                                                                  _sCaptEditAlignment),
             Published<&TZyCaptionEdit::PropertyLinks>("PropertyLinks"))

namespace {

/// A variable as the editor shows it: its value, drawn as captions are.
class TVariableAtom : public TRichAtom {
 public:
  explicit TVariableAtom(std::shared_ptr<const TZyCaptionAtom> Variable) : FVariable(std::move(Variable)) {}
  const std::shared_ptr<const TZyCaptionAtom>& Variable() const { return FVariable; }

  std::string Shown() const override { return FVariable->Shown; }
  SizeF Measure(const TRichLook& Look) const override {
    const auto Layout = CaptionLayoutOf(FVariable->Value, LookOf(Look));
    return {Layout->Width, Layout->Height};
  }
  void Paint(Graphics& Canvas, PointF TopLeft, const TRichLook& Look) const override {
    TZyRichCaptionObject Drawn;
    Drawn.CaptionFont().SetName(Look.Name);
    Drawn.CaptionFont().SetSize(Look.Size);
    Drawn.CaptionFont().SetStyle(Look.Style);
    Drawn.CaptionFont().SetFillColor(Look.Color);
    Drawn.SetCaption(FVariable->Value);
    Drawn.X = TopLeft.X;
    Drawn.Y = TopLeft.Y;
    Drawn.PaintGr(Canvas);
  }

 private:
  static TZyCaptionLook LookOf(const TRichLook& Look) {
    TZyCaptionLook Result;
    Result.FontName = Look.Name;
    Result.FontSize = Look.Size;
    Result.FontStyle = Look.Style;
    return Result;
  }
  std::shared_ptr<const TZyCaptionAtom> FVariable;
};

const TZyCaptionAtom& VariableOf(const TRichAtom& Atom) { return *dynamic_cast<const TVariableAtom&>(Atom).Variable(); }

/// Text in 16-bit characters, low byte first, with a final zero, as other programs register such formats.
std::string ToWideBytes(std::string_view Text) {
  std::string Result;
  const auto Put = [&](char32_t Unit) {
    Result += static_cast<char>(Unit & 0xFFu);
    Result += static_cast<char>(Unit >> 8 & 0xFFu);
  };
  while (!Text.empty()) {
    const TUtf8Char Each = FirstUtf8Char(Text);
    const char32_t Code = Each.Length == 0 ? 0xFFFD : Each.Code;
    if (Code > 0xFFFF) {
      Put(0xD800 + ((Code - 0x10000) >> 10));
      Put(0xDC00 + ((Code - 0x10000) & 0x3FFu));
    } else {
      Put(Code);
    }
    Text.remove_prefix(std::max<std::size_t>(Each.Length, 1));
  }
  Put(0);
  return Result;
}

std::string FromWideBytes(const std::string& Bytes) {
  std::string Result;
  const auto UnitAt = [&](std::size_t At) -> char32_t {
    if (At + 1 >= Bytes.size()) return 0;
    return static_cast<char32_t>(static_cast<unsigned char>(Bytes[At]) |
                                 static_cast<unsigned>(static_cast<unsigned char>(Bytes[At + 1])) << 8);
  };
  for (std::size_t At = 0; UnitAt(At) != 0; At += 2) {
    char32_t Code = UnitAt(At);
    const char32_t Next = UnitAt(At + 2);
    if (Code >= 0xD800 && Code < 0xDC00 && Next >= 0xDC00 && Next < 0xE000) {
      Code = 0x10000 + ((Code - 0xD800) << 10) + (Next - 0xDC00);
      At += 2;
    }
    AppendUtf8(Result, Code);
  }
  return Result;
}

}  // namespace

/// Hears that a variable may have another value.
class TZyCaptionEdit::TDependent : public TZyVariableDependent {
 public:
  explicit TDependent(TZyCaptionEdit& Edit) : FEdit(Edit) {}
  void VariablesChanged() override { FEdit.ShowAgain(); }

 private:
  TZyCaptionEdit& FEdit;
};

TZyCaptionEdit::TZyCaptionEdit(TComponent* Owner)
    : TCustomRichEdit(Owner), FDependent(std::make_unique<TDependent>(*this)), FOwnStack(new TZyUndoStack(this)) {
  FUndo.Set(FOwnStack);
  SetOwnUndo(false);
}

TZyCaptionEdit::~TZyCaptionEdit() {
  Destroying();
  FDependent.reset();
}

// --- Caption and text -----------------------------------------------------------------------------------------------

TFontStyles TZyCaptionEdit::Toggled(TFontStyles Style) const {
  return TFontStyles::FromBits(Style.Bits() ^ BaseLook().Style.Bits());
}

TRichRuns TZyCaptionEdit::ToRich(const TZyCaptionRuns& Runs) const {
  TRichRuns Result;
  for (const TZyCaptionRun& Run : Runs) {
    TRichRun& Rich = Result.emplace_back();
    Rich.Format.Style = Toggled(Run.Style.Toggled);
    Rich.Format.Superscript = Run.Style.Superscript;
    Rich.Format.Subscript = Run.Style.Subscript;
    if (Run.Style.Color != BaseLook().Color) Rich.Format.Color = Run.Style.Color;
    if (Run.Style.Family != BaseLook().Name) Rich.Format.Name = Run.Style.Family;
    Rich.Text = Run.Text;
    if (Run.Atom != nullptr) Rich.Atom = std::make_shared<const TVariableAtom>(Run.Atom);
  }
  return Result;
}

TZyCaptionRuns TZyCaptionEdit::ToCaption(const TRichRuns& Runs) const {
  TZyCaptionRuns Result;
  for (const TRichRun& Rich : Runs) {
    TZyCaptionRun& Run = Result.emplace_back();
    Run.Style.Toggled = Toggled(Rich.Format.Style);
    Run.Style.Superscript = Rich.Format.Superscript;
    Run.Style.Subscript = Rich.Format.Subscript;
    Run.Style.Color = Rich.Format.Color;
    // A family of another program may have a name that captions cannot hold.
    const bool CanHold = Rich.Format.Name.find_first_of("]\r\n") == std::string::npos;
    if (CanHold) Run.Style.Family = Rich.Format.Name;
    Run.Text = Rich.Text;
    if (Rich.Atom != nullptr) Run.Atom = dynamic_cast<const TVariableAtom&>(*Rich.Atom).Variable();
  }
  return Result;
}

/// The caption of a text that is as it was when FCaption was shown is that one, whatever markup it has.
TZyRichCaption TZyCaptionEdit::Caption() const {
  if (!Modified()) return FCaption;
  const TZyRichCaption Written = WriteCaption(ToCaption(Runs()));
  return Written == FShown ? FCaption : Written;
}

void TZyCaptionEdit::SetCaption(const TZyRichCaption& Value) {
  if (Value == FCaption && !Modified()) return;
  const bool Lenient = IsLoading() || IsDesigning() || FLink.IsBusy();
  Show(Value, Lenient ? TZyCaptionReading::Lenient : TZyCaptionReading::Strict);
  SetModified(false);
}

void TZyCaptionEdit::SetEditText(const std::string& Value) {
  Show(Value, TZyCaptionReading::Lenient);
  SetModified(true);
  FLink.SetLink(Value);
}

void TZyCaptionEdit::Show(const TZyRichCaption& Value, TZyCaptionReading Reading) {
  const TRichRuns Wanted = ToRich(ReadCaption(Value, FDependent.get(), Reading));
  FCaption = Value;
  SetRuns(Wanted);
  FShown = WriteCaption(ToCaption(Runs()));
  FLastInputPos = SelStart();
  FLastDeletePos = -1;
}

/// The same text with the values of now.
void TZyCaptionEdit::ShowAgain() {
  const bool WasModified = Modified();
  const int Start = SelStart(), Length = SelLength();
  Show(Caption(), TZyCaptionReading::Lenient);
  Select(Start, Length);
  SetModified(WasModified);
  Invalidate();
}

void TZyCaptionEdit::Loaded() {
  Inherited::Loaded();
  if (!FCaption.empty()) ShowAgain();  // what its variables name is there now
  FLink.Loaded();
}

void TZyCaptionEdit::Change() {
  const std::uint64_t Alive = LiveHandle();
  Inherited::Change();
  if (FromLiveHandle(Alive) != nullptr && FLink.HasItems()) FLink.SetLink(Caption());
}

void TZyCaptionEdit::CMFontChanged() {
  if (IsLoading() || FCaption.empty()) return Inherited::CMFontChanged();
  const TZyRichCaption Kept = Caption();
  const bool WasModified = Modified();
  Inherited::CMFontChanged();
  Show(Kept, TZyCaptionReading::Lenient);
  SetModified(WasModified);
}

TZyRichCaption TZyCaptionEdit::GetSelectedCaption(int Start, int Length) const {
  if (Length <= 0 || ShownLength() == 0) return {};
  const std::string Written = WriteCaption(ToCaption(Runs(Start, Length)));
  if (Start <= 0) return Written;
  return "\\c" + ARGBToRichID(BaseLook().Color) + "\\f[" + BaseLook().Name + "]" + Written;
}

std::vector<TZyCaptionVariableRec> TZyCaptionEdit::Variables() const {
  std::vector<TZyCaptionVariableRec> Result;
  for (const TRichAtomPlace& Place : Atoms()) {
    const TZyCaptionAtom& Atom = VariableOf(*Place.Atom);
    Result.push_back({Place.Start, Place.Length, Atom.Variable(), TZyRichCaption(Atom.Value)});
  }
  return Result;
}

// --- Formats --------------------------------------------------------------------------------------------------------

void TZyCaptionEdit::ChangeFormat(TZyText Label, const std::function<void(TRichFormat&)>& Change) {
  PushEditState(Label);
  ChangeSelFormat(Change);
  FLastInputPos = SelStart();
}

void TZyCaptionEdit::SetStyle(TFontStyle Style, bool Value, TZyText Label) {
  ChangeFormat(Label, [=](TRichFormat& Format) {
    if (Value) {
      Format.Style.Include(Style);
    } else {
      Format.Style.Exclude(Style);
    }
  });
}

void TZyCaptionEdit::SetSuperscript(bool Value) {
  ChangeFormat(_sCaptEditSuperscript, [=](TRichFormat& Format) {
    Format.Superscript = Value;
    Format.Subscript = false;
  });
}

void TZyCaptionEdit::SetSubscript(bool Value) {
  ChangeFormat(_sCaptEditSubscript, [=](TRichFormat& Format) {
    Format.Subscript = Value;
    Format.Superscript = false;
  });
}

std::string TZyCaptionEdit::FontName() const {
  const std::string Own = SelFormat().Name;
  return Own.empty() ? BaseLook().Name : Own;
}

void TZyCaptionEdit::SetFontName(const std::string& Value) {
  if (Value.find_first_of("]\r\n") != std::string::npos)
    throw EConvertError(Format(LoadResString(_sPropUnknownValue), {Value, "FontName"}));
  const bool IsAll = SelLength() > 0 && SelLength() == ShownLength();
  ChangeFormat(_sCaptEditFontName,
               [&](TRichFormat& Format) { Format.Name = Value == BaseLook().Name ? std::string() : Value; });
  if (!IsAll || Value.empty()) return;
  const int Length = SelLength();
  ControlFont().SetName(Value);  // shows the caption again, in which the family is the own one now
  Select(0, Length);
}

TZyColor TZyCaptionEdit::SelColor() const { return SelFormat().Color.value_or(BaseLook().Color); }

void TZyCaptionEdit::SetSelColor(TZyColor Value) {
  ChangeFormat(_sCaptEditColor, [=, this](TRichFormat& Format) {
    Format.Color = Value == BaseLook().Color ? std::nullopt : std::optional(Value);
  });
}

void TZyCaptionEdit::SetAlignment(TAlignment Value) {
  if (Value == Alignment()) return;
  if (UndoStack() != nullptr) UndoStack()->PushProperty(this, "Alignment");
  Inherited::SetAlignment(Value);
}

std::string TZyCaptionEdit::SelVariable() const {
  const int End = SelStart() + SelLength();
  for (const TZyCaptionVariableRec& Each : Variables())
    if (Each.EditStart < End && Each.EditStart + Each.EditLength >= End) return Each.Variable;
  return {};
}

void TZyCaptionEdit::SetSelVariable(const std::string& Value) {
  if (Value.empty()) return;
  const auto Atom = std::make_shared<const TVariableAtom>(CaptionAtomOf(Value, FDependent.get()));
  PushEditState(_sCaptEditInsVar);
  InsertRuns({{SelFormat(), {}, Atom}});
}

// --- Undo -----------------------------------------------------------------------------------------------------------

void TZyCaptionEdit::SetUndoStack(TZyUndoStack* Value) {
  if (Value == FUndo) return;
  FUndo.Set(Value);
  if (Value != FOwnStack) delete std::exchange(FOwnStack, nullptr);
  SetOwnUndo(Value == nullptr);
}

void TZyCaptionEdit::PushEditState(TZyText Label) {
  if (UndoStack() != nullptr && !IsChanging())
    UndoStack()->PushEditState(this, Caption(), SelStart(), SelLength(), LoadResString(Label));
}

void TZyCaptionEdit::Undo() { UndoStack() != nullptr ? UndoStack()->Undo() : Inherited::Undo(); }

void TZyCaptionEdit::Redo() { UndoStack() != nullptr ? UndoStack()->Redo() : Inherited::Redo(); }

bool TZyCaptionEdit::CanUndo() const { return UndoStack() != nullptr ? UndoStack()->CanUndo() : Inherited::CanUndo(); }

bool TZyCaptionEdit::CanRedo() const { return UndoStack() != nullptr ? UndoStack()->CanRedo() : Inherited::CanRedo(); }

void TZyCaptionEdit::ClearUndo() { UndoStack() != nullptr ? UndoStack()->Clear() : Inherited::ClearUndo(); }

/// What is typed, or deleted, in a row at one place is one step.
void TZyCaptionEdit::BeforeEdit(TRichEditAction Action) {
  const bool Goes = Modified() && SelLength() == 0 && SelStart() == FLastInputPos;
  const bool GoesDeleting = Modified() && SelLength() == 0 && SelStart() == FLastDeletePos;
  switch (Action) {
    case TRichEditAction::Type:
      if (!Goes) PushEditState(_sCaptEditEnter);
      return;
    case TRichEditAction::Return:
    case TRichEditAction::Delete:
      if (SelLength() > 0)
        PushEditState(_sCaptEditClear);
      else if (!Goes && !GoesDeleting)
        PushEditState(_sCaptEditEnter);
      return;
    case TRichEditAction::Cut:
    case TRichEditAction::Clear:
      return PushEditState(_sCaptEditClear);
    case TRichEditAction::Paste:
      return PushEditState(_sCaptEditPaste);
    case TRichEditAction::Drop:
      return PushEditState(_sCaptEditMoved);
  }
}

void TZyCaptionEdit::AfterEdit(TRichEditAction Action) {
  const bool Deletes = Action == TRichEditAction::Delete || Action == TRichEditAction::Return;
  (Deletes ? FLastDeletePos : FLastInputPos) = SelStart();
}

// --- Keyboard and clipboard -----------------------------------------------------------------------------------------

bool TZyCaptionEdit::UsesKey(TKey Key, TShiftState Shift) const {
  constexpr std::string_view Letters = "BIUOCXVZY";
  if (!Shift.Contains(ssCtrl) || Shift.Contains(ssAlt)) return false;
  return Key == vkAdd || Key == vkSubtract || Key == vkSpace ||
         (Key < 128 && Letters.find(static_cast<char>(Key)) != std::string_view::npos);
}

bool TZyCaptionEdit::FlipsFormat(TKey Key) {
  switch (Key) {
    case 'B':
      return SetBold(!Bold()), true;
    case 'I':
      return SetItalic(!Italic()), true;
    case 'U':
      return SetUnderline(!Underline()), true;
    case 'O':
      return SetStrikeout(!Strikeout()), true;
    case vkAdd:
      return SetSuperscript(!Superscript()), true;
    case vkSubtract:
      return SetSubscript(!Subscript()), true;
    case vkSpace:
      return PickVariable(), true;
    default:
      return false;
  }
}

void TZyCaptionEdit::KeyDown(TKey& Key, TShiftState Shift) {
  Inherited::KeyDown(Key, Shift);
  const bool IsScript = Key == vkAdd || Key == vkSubtract;  // plus needs the shift key on some keyboards
  const bool IsChord = Shift.Contains(ssCtrl) && !Shift.Contains(ssAlt) && (IsScript || !Shift.Contains(ssShift));
  if (IsChord && !ReadOnly() && FlipsFormat(Key)) Key = 0;
}

// --- The tree of variables ------------------------------------------------------------------------------------------

void TZyCaptionEdit::PickVariable() {
  if (!HasWidget() || ReadOnly()) return;
  if (FPicker == nullptr) FPicker = new TZyVariablePicker(*this);
  FPicker->Open();
}

void TZyCaptionEdit::AddToMenu(QMenu& Menu) {
  Menu.addSeparator();
  QAction* const Line = Menu.addAction(ToQString(LoadResString(_sPickVariable)) + "\tCtrl+Space");
  Line->setEnabled(!ReadOnly());
  QObject::connect(Line, &QAction::triggered, Widget(), [this] { HandleEvent([this] { PickVariable(); }); });
}

/// The name by which the toolkit finds a format that is registered as "TZyCaptionEdit".
std::string TZyCaptionEdit::PrivateFormat() const { return "application/x-qt-windows-mime;value=\"TZyCaptionEdit\""; }

std::string TZyCaptionEdit::PrivateContent() const { return ToWideBytes(GetSelectedCaption(SelStart(), SelLength())); }

TRichRuns TZyCaptionEdit::RunsOfPrivate(const std::string& Bytes) {
  return ToRich(ReadCaption(FromWideBytes(Bytes), FDependent.get()));
}

void TZyCaptionEdit::PaintCaret(Graphics& Canvas, const RectF& Box, ARGB Ground) {
  const Pen Line(ContrastForeColorARGB(Ground), 1);
  const float Top = Box.Y - 1, Bottom = Box.Y + Box.Height;
  Canvas.DrawLine(Line, Box.X, Top, Box.X, Bottom);
  for (const float Y : {Top, Bottom}) {
    Canvas.DrawLine(Line, Box.X - 3, Y, Box.X - 1, Y);
    Canvas.DrawLine(Line, Box.X + 1, Y, Box.X + 3, Y);
  }
}

}  // namespace zy
