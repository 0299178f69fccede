#include "platform/controls/TCustomEdit.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "platform/drawing/QtText.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

template class TWidgetOf<QWidget>;

ZY_PUBLISHED(TCustomEdit, TWinControl,
             Published<&TCustomEdit::Text, &TCustomEdit::SetText>("Text", std::string()).Hidden(),
             Published<&TCustomEdit::ReadOnly, &TCustomEdit::SetReadOnly>("ReadOnly", false),
             Published<&TCustomEdit::Alignment, &TCustomEdit::SetAlignment>("Alignment", TAlignment::taLeftJustify),
             Published<&TCustomEdit::TabStop, &TCustomEdit::SetTabStop>("TabStop", true),
             Published<&TCustomEdit::OnChange, &TCustomEdit::SetOnChange>("OnChange"), Republished("ParentFont Font"))
ZY_PUBLISHED(TEdit, TCustomEdit, Republished("Text"))

namespace {

/// A text as a line can hold it: no control characters.
std::string OneLine(std::string_view Text) {
  QString Result = ToQString(Text);
  Result.removeIf([](QChar C) { return C.category() == QChar::Other_Control; });
  return Result.toStdString();
}

}  // namespace

class TCustomEdit::TLine : public QLineEdit {
 public:
  TLine(TCustomEdit& Owner, bool TellsFocus) : FOwner(Owner.LiveHandle()), FTellsFocus(TellsFocus) {}

 protected:
  void focusInEvent(QFocusEvent* Event) override {
    QLineEdit::focusInEvent(Event);
    if (FTellsFocus && Event->reason() != Qt::PopupFocusReason) Tell(&TCustomEdit::Entered);
  }
  void mouseReleaseEvent(QMouseEvent* Event) override {
    QLineEdit::mouseReleaseEvent(Event);
    if (Event->button() == Qt::LeftButton && rect().contains(Event->position().toPoint())) Tell(&TCustomEdit::Click);
  }
  void mouseDoubleClickEvent(QMouseEvent* Event) override {
    QLineEdit::mouseDoubleClickEvent(Event);  // selects a word first
    if (Event->button() == Qt::LeftButton) Tell(&TCustomEdit::DblClick);
  }

 private:
  void Tell(void (TCustomEdit::*Operation)()) {
    HandleEvent([&] {
      TPersistent* const Owner = TPersistent::FromLiveHandle(FOwner);
      if (Owner != nullptr) (static_cast<TCustomEdit&>(*Owner).*Operation)();
    });
  }

  std::uint64_t FOwner;
  bool FTellsFocus;
};

TCustomEdit::TCustomEdit(TComponent* Owner) : TWidgetOf(Owner) {
  TCustomEdit::SetBounds(0, 0, 121, 21);
  SetTabStop(true);
}

TCustomEdit::~TCustomEdit() { Destroying(); }

QWidget* TCustomEdit::Make() { return MakeLine(true); }

QLineEdit* TCustomEdit::MakeLine(bool TellsFocus) { return new TLine(*this, TellsFocus); }

QLineEdit& TCustomEdit::LineOf(QWidget& Box) { return static_cast<QLineEdit&>(Box); }

template <class F>
void TCustomEdit::WithLine(F Do) {
  if (!HasWidget()) return;
  QLineEdit& Line = LineOf(Toolkit());
  const QSignalBlocker Silent(Line);
  Do(Line);
}

void TCustomEdit::Configure(QWidget& Box) {
  QLineEdit& Line = LineOf(Box);
  Line.setText(ToQString(FText));
  Line.setReadOnly(FReadOnly);
  Line.setAlignment(FAlignment == TAlignment::taRightJustify ? Qt::AlignRight
                    : FAlignment == TAlignment::taCenter     ? Qt::AlignHCenter
                                                             : Qt::AlignLeft);
  Line.setSelection(FSelStart, FSelLength);
}

void TCustomEdit::Listen(QWidget& Box) {
  QLineEdit& Line = LineOf(Box);
  On(Line, &QLineEdit::textChanged, [this](const QString& Present) {
    FText = Present.toStdString();
    FModified = true;
    Change();
  });
}

void TCustomEdit::SetText(const std::string& Value) {
  const std::string Line = OneLine(Value);
  if (Line == FText) return;
  FText = Line;
  FSelStart = FSelLength = 0;
  WithLine([this](QLineEdit& Box) { Box.setText(ToQString(FText)); });
  FModified = false;
  Change();
}

int TCustomEdit::SelStart() const {
  if (!HasWidget()) return FSelStart;
  const QLineEdit& Line = const_cast<TCustomEdit*>(this)->LineOf(const_cast<TCustomEdit*>(this)->Toolkit());
  return Line.hasSelectedText() ? Line.selectionStart() : Line.cursorPosition();
}

int TCustomEdit::SelLength() const {
  if (!HasWidget()) return FSelLength;
  return const_cast<TCustomEdit*>(this)->LineOf(const_cast<TCustomEdit*>(this)->Toolkit()).selectionLength();
}

void TCustomEdit::Select(int Start, int Length) {
  const int Count = static_cast<int>(ToQString(FText).size());
  FSelStart = std::clamp(Start, 0, Count);
  FSelLength = std::clamp(Length, 0, Count - FSelStart);
  WithLine([this](QLineEdit& Line) {
    Line.setCursorPosition(FSelStart);
    if (FSelLength > 0) Line.setSelection(FSelStart, FSelLength);
  });
}

void TCustomEdit::SelectAll() { Select(0, static_cast<int>(FText.size())); }

void TCustomEdit::SetReadOnly(bool Value) {
  FReadOnly = Value;
  WithLine([Value](QLineEdit& Line) { Line.setReadOnly(Value); });
}

void TCustomEdit::SetAlignment(TAlignment Value) {
  FAlignment = Value;
  With([this](QWidget& Box) { Configure(Box); });
}

int TCustomEdit::TextWidth() {
  const QLineEdit& Line = LineOf(Toolkit());
  constexpr int Margins = 4;  // of the text within the line
  return Line.contentsRect().width() - Line.textMargins().left() - Line.textMargins().right() - Margins;
}

int TCustomEdit::WidthOf(const std::string& Shown) {
  return LineOf(Toolkit()).fontMetrics().horizontalAdvance(ToQString(Shown));
}

bool TCustomEdit::WidgetEvent(QEvent& Event) {
  if (Event.type() == QEvent::Show) Appeared();
  return TWidgetOf::WidgetEvent(Event);
}

void TCustomEdit::Beep() { QApplication::beep(); }

void TCustomEdit::Change() {
  if (const TNotifyEvent Event = FOnChange) Event(this);
}

TEdit::TEdit(TComponent* Owner) : TCustomEdit(Owner) {}

TEdit::~TEdit() { Destroying(); }

}  // namespace zy
