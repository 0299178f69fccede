#include "platform/controls/RichDocument.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextBlock>
#include <QTextObjectInterface>
#include <algorithm>
#include <cstring>

#include "platform/drawing/Graphics.h"
#include "platform/drawing/QtText.h"

Q_DECLARE_METATYPE(std::shared_ptr<const zy::TRichAtom>)

namespace zy {
namespace {

using TAtomRef = std::shared_ptr<const TRichAtom>;

constexpr int AtomType = QTextFormat::UserObject + 1;
enum : int { AtomProperty = QTextFormat::UserProperty + 1, ScriptProperty, ColorProperty };
constexpr float ScriptSize = 0.7f;  // of the text's size
constexpr float Lift = 0.4f;        // of the text's size, as the drop
constexpr float Drop = 0.2f;
constexpr qreal LeastWidth = 3;  // of an atom that shows nothing

TAtomRef AtomOf(const QTextFormat& Format) {
  if (Format.objectType() != AtomType) return nullptr;
  return Format.property(AtomProperty).value<TAtomRef>();
}

QFont FontOf(const TRichLook& Look) {
  QFont Result(ToQString(Look.Name));
  Result.setPointSizeF(static_cast<double>(Look.Size));
  Result.setBold(Look.Style.Contains(TFontStyle::Bold));
  Result.setItalic(Look.Style.Contains(TFontStyle::Italic));
  Result.setUnderline(Look.Style.Contains(TFontStyle::Underline));
  Result.setStrikeOut(Look.Style.Contains(TFontStyle::Strikeout));
  return Result;
}

TFontStyles StyleOf(const QTextCharFormat& Format) {
  TFontStyles Result;
  if (Format.fontWeight() >= QFont::DemiBold) Result.Include(TFontStyle::Bold);
  if (Format.fontItalic()) Result.Include(TFontStyle::Italic);
  if (Format.fontUnderline()) Result.Include(TFontStyle::Underline);
  if (Format.fontStrikeOut()) Result.Include(TFontStyle::Strikeout);
  return Result;
}

std::string FamilyOf(const QTextCharFormat& Format) {
  const QStringList Families = Format.fontFamilies().toStringList();
  return Families.isEmpty() ? std::string() : Families.front().toStdString();
}

/// Draws the atoms of a document. The toolkit finds the interface by its name.
class TAtomPainter : public QObject, public QTextObjectInterface {
 public:
  explicit TAtomPainter(const TRichDocument& Document) : FDocument(Document) {}

  void* qt_metacast(const char* Name) override {
    if (std::strcmp(Name, qobject_interface_iid<QTextObjectInterface*>()) == 0)
      return static_cast<QTextObjectInterface*>(this);
    return QObject::qt_metacast(Name);
  }

  QSizeF intrinsicSize(QTextDocument*, int, const QTextFormat& Format) override {
    const TAtomRef Atom = AtomOf(Format);
    if (Atom == nullptr) return {};
    const TRichLook Look = LookOf(Format.toCharFormat());
    const SizeF Size = Atom->Measure(Look);
    // The toolkit stands objects on the base line; what hangs below it finds room in the line.
    const qreal Height = static_cast<qreal>(Size.Height) - QFontMetricsF(FontOf(Look)).descent();
    return {std::max(static_cast<qreal>(Size.Width), LeastWidth), std::max(Height, LeastWidth)};
  }

  void drawObject(QPainter* Painter, const QRectF& Box, QTextDocument*, int, const QTextFormat& Format) override {
    const TAtomRef Atom = AtomOf(Format);
    if (Atom == nullptr) return;
    TRichLook Look = LookOf(Format.toCharFormat());
    Look.Color = Painter->pen().color().rgba();
    // The toolkit raises texts, and leaves objects on the line.
    const QTextCharFormat Text = Format.toCharFormat();
    const QFontMetricsF Face(FontOf(Look));
    const qreal Raised = Text.baselineOffset() * Face.height() / 100;
    QColor Ground = Painter->pen().color();
    Ground.setAlpha(24);
    Painter->fillRect(Box.adjusted(0, -Raised, 0, Face.descent() - Raised), Ground);
    Graphics Canvas(*Painter);
    Atom->Paint(Canvas, {static_cast<float>(Box.left()), static_cast<float>(Box.top() - Raised)}, Look);
  }

 private:
  TRichLook LookOf(const QTextCharFormat& Text) const {
    const TRichFormat Format = FDocument.FromQt(Text);
    TRichLook Look = FDocument.Base();
    if (!Format.Name.empty()) Look.Name = Format.Name;
    Look.Style = Format.Style;
    if (Format.Superscript || Format.Subscript) Look.Size *= ScriptSize;
    return Look;
  }

  const TRichDocument& FDocument;
};

/// Calls Proc(position, length, format, text) for the fragments of one format between two positions, and with the text
/// "\n" for each line end.
template <class TProc>
void ForEachFragment(const QTextDocument& Document, int From, int To, const TProc& Proc) {
  for (QTextBlock Block = Document.findBlock(From); Block.isValid() && Block.position() <= To; Block = Block.next()) {
    if (Block.position() > From) Proc(Block.position() - 1, 1, Block.charFormat(), QStringLiteral("\n"));
    for (auto Each = Block.begin(); !Each.atEnd(); ++Each) {
      const QTextFragment Part = Each.fragment();
      const int Start = std::max(Part.position(), From), End = std::min(Part.position() + Part.length(), To);
      if (Start < End)
        Proc(Start, End - Start, Part.charFormat(), Part.text().mid(Start - Part.position(), End - Start));
    }
  }
}

int ShownLength(const TRichAtom& Atom) { return static_cast<int>(ToQString(Atom.Shown()).size()); }

void Append(TRichRuns& Runs, const TRichFormat& Format, const std::string& Text) {
  if (Text.empty()) return;
  if (Runs.empty() || Runs.back().Atom != nullptr || !(Runs.back().Format == Format))
    Runs.push_back({Format, {}, nullptr});
  Runs.back().Text += Text;
}

}  // namespace

TRichDocument::TRichDocument() : FDocument(new QTextDocument), FPainter(std::make_shared<TAtomPainter>(*this)) {
  FDocument->documentLayout()->registerHandler(AtomType, FPainter.get());
}

TRichDocument::~TRichDocument() {
  FPainter.reset();
  if (FDocument->parent() == nullptr) delete FDocument;
}

void TRichDocument::SetBase(const TRichLook& Base) {
  FBase = Base;
  FDocument->setDefaultFont(FontOf(Base));
}

QTextCharFormat TRichDocument::ToQt(const TRichFormat& Format) const {
  QTextCharFormat Result;
  Result.setFontWeight(Format.Style.Contains(TFontStyle::Bold) ? QFont::Bold : QFont::Normal);
  Result.setFontItalic(Format.Style.Contains(TFontStyle::Italic));
  Result.setFontUnderline(Format.Style.Contains(TFontStyle::Underline));
  Result.setFontStrikeOut(Format.Style.Contains(TFontStyle::Strikeout));
  if (!Format.Name.empty()) Result.setFontFamilies({ToQString(Format.Name)});
  if (Format.Color) {
    Result.setForeground(QColor::fromRgba(*Format.Color));
    Result.setProperty(ColorProperty, static_cast<uint>(*Format.Color));
  }
  if (Format.Superscript || Format.Subscript) {
    Result.setProperty(ScriptProperty, (Format.Superscript ? 1 : 0) + (Format.Subscript ? 2 : 0));
    TRichLook Small = FBase;
    Small.Size *= ScriptSize;
    if (!Format.Name.empty()) Small.Name = Format.Name;
    Result.setFontPointSize(static_cast<double>(Small.Size));
    const float Pixels = (Format.Superscript ? Lift : -Drop) * FBase.Size * Font::PixelsPerPoint;
    Result.setBaselineOffset(100 * static_cast<double>(Pixels) / QFontMetricsF(FontOf(Small)).height());
  }
  return Result;
}

TRichFormat TRichDocument::FromQt(const QTextCharFormat& Format) const {
  TRichFormat Result;
  Result.Style = Format.hasProperty(QTextFormat::FontWeight) ? StyleOf(Format) : FBase.Style;
  const int Script = Format.intProperty(ScriptProperty);
  Result.Superscript = (Script & 1) != 0;
  Result.Subscript = (Script & 2) != 0;
  if (Format.hasProperty(ColorProperty)) Result.Color = Format.property(ColorProperty).toUInt();
  Result.Name = FamilyOf(Format);
  return Result;
}

void TRichDocument::Insert(QTextCursor& Cursor, const TRichRuns& Runs) const {
  Cursor.beginEditBlock();
  Cursor.removeSelectedText();
  for (const TRichRun& Run : Runs) {
    QTextCharFormat Format = ToQt(Run.Format);
    if (Run.Atom != nullptr) {
      Format.setObjectType(AtomType);
      Format.setProperty(AtomProperty, QVariant::fromValue(Run.Atom));
      Cursor.insertText(QString(QChar::ObjectReplacementCharacter), Format);
      Cursor.setCharFormat(ToQt(Run.Format));  // what is typed next is no atom
      continue;
    }
    bool IsFirst = true;
    ForEachLine(Run.Text, [&](std::string_view Line) {
      if (!IsFirst) Cursor.insertBlock(Cursor.blockFormat(), Format);
      IsFirst = false;
      if (!Line.empty()) Cursor.insertText(ToQString(Line), Format);
    });
  }
  Cursor.endEditBlock();
}

TRichRuns TRichDocument::Read(int From, int To) const {
  TRichRuns Result;
  ForEachFragment(*FDocument, From, To, [&](int, int Length, const QTextCharFormat& Format, QString Text) {
    const TRichFormat Look = FromQt(Format);
    if (const TAtomRef Atom = AtomOf(Format)) {
      for (; Length > 0; --Length) Result.push_back({Look, {}, Atom});
      return;
    }
    Text.remove(QChar::ObjectReplacementCharacter);  // typed or pasted: no atom of ours
    Append(Result, Look, Text.toStdString());
  });
  return Result;
}

void TRichDocument::ChangeFormats(const QTextCursor& Cursor, const std::function<void(TRichFormat&)>& Change) const {
  struct TPart {
    int Start, Length;
    QTextCharFormat Format;
  };
  std::vector<TPart> Parts;
  ForEachFragment(*FDocument, Cursor.selectionStart(), Cursor.selectionEnd(),
                  [&](int Start, int Length, const QTextCharFormat& Old, const QString& Text) {
                    if (Text == QLatin1String("\n")) return;
                    TRichFormat Look = FromQt(Old);
                    Change(Look);
                    QTextCharFormat Format = ToQt(Look);
                    if (AtomOf(Old) != nullptr) {
                      Format.setObjectType(AtomType);
                      Format.setProperty(AtomProperty, Old.property(AtomProperty));
                    }
                    Parts.push_back({Start, Length, Format});
                  });
  QTextCursor Each(FDocument);
  Each.beginEditBlock();
  for (const TPart& Part : Parts) {
    Each.setPosition(Part.Start);
    Each.setPosition(Part.Start + Part.Length, QTextCursor::KeepAnchor);
    Each.setCharFormat(Part.Format);
  }
  Each.endEditBlock();
}

std::vector<TRichAtomPlace> TRichDocument::Atoms() const {
  std::vector<TRichAtomPlace> Result;
  int Longer = 0;  // shown positions beyond those of the document
  ForEachFragment(*FDocument, 0, Length(), [&](int Start, int Count, const QTextCharFormat& Format, const QString&) {
    const TAtomRef Atom = AtomOf(Format);
    if (Atom == nullptr) return;
    for (; Count > 0; --Count, ++Start) {
      const int Shown = ShownLength(*Atom);
      Result.push_back({Start + Longer, Shown, Atom, Start});
      Longer += Shown - 1;
    }
  });
  return Result;
}

int TRichDocument::ToShown(int Position) const {
  int Result = Position;
  for (const TRichAtomPlace& Place : Atoms())
    if (Place.Position < Position) Result += Place.Length - 1;
  return Result;
}

int TRichDocument::ToDocument(int Shown, bool Forward) const {
  int Shorter = 0;
  for (const TRichAtomPlace& Place : Atoms()) {
    if (Place.Start >= Shown) break;
    if (Shown < Place.Start + Place.Length) return Place.Position + (Forward ? 1 : 0);
    Shorter += Place.Length - 1;
  }
  return std::clamp(Shown - Shorter, 0, Length());
}

std::string PlainPasteOf(const QString& Text) {
  QString Result;
  Result.reserve(Text.size());
  for (qsizetype i = 0; i < Text.size(); ++i) {
    const QChar C = Text[i];
    const bool IsBreak = C == u'\n' || C == u'\r' || C == QChar::LineSeparator || C == QChar::ParagraphSeparator;
    if (C == u'\r' && i + 1 < Text.size() && Text[i + 1] == u'\n') continue;
    const bool IsNoText = C.category() == QChar::Other_Control || C == QChar::ObjectReplacementCharacter ||
                          (C.unicode() >= 0xFDD0 && C.unicode() <= 0xFDEF) || C.unicode() >= 0xFFFE;
    if (IsBreak) {
      Result += u'\n';
    } else if (C == u'\t') {
      Result += u' ';
    } else if (!IsNoText) {
      Result += C;
    }
  }
  return Result.toStdString();
}

TRichRuns RichPasteOf(const QString& Html, const TRichDocument& Target) {
  QTextDocument Foreign;
  Foreign.setDefaultFont(FontOf(Target.Base()));
  Foreign.setHtml(Html);
  TRichRuns Result;
  ForEachFragment(Foreign, 0, Foreign.characterCount() - 1,
                  [&](int, int, const QTextCharFormat& Format, const QString& Text) {
                    TRichFormat Look;
                    Look.Style = StyleOf(Format);
                    Look.Superscript = Format.verticalAlignment() == QTextCharFormat::AlignSuperScript;
                    Look.Subscript = Format.verticalAlignment() == QTextCharFormat::AlignSubScript;
                    if (Format.foreground().style() == Qt::SolidPattern)
                      Look.Color = Format.foreground().color().rgba();
                    Look.Name = FamilyOf(Format);
                    Append(Result, Look, PlainPasteOf(Text));
                  });
  return Result;
}

QString HtmlOf(const TRichRuns& Runs, const TRichLook& Base) {
  QTextDocument Copy;
  Copy.setDefaultFont(FontOf(Base));
  QTextCursor Cursor(&Copy);
  for (const TRichRun& Run : Runs) {
    QTextCharFormat Format;
    Format.setFontWeight(Run.Format.Style.Contains(TFontStyle::Bold) ? QFont::Bold : QFont::Normal);
    Format.setFontItalic(Run.Format.Style.Contains(TFontStyle::Italic));
    Format.setFontUnderline(Run.Format.Style.Contains(TFontStyle::Underline));
    Format.setFontStrikeOut(Run.Format.Style.Contains(TFontStyle::Strikeout));
    if (!Run.Format.Name.empty()) Format.setFontFamilies({ToQString(Run.Format.Name)});
    if (Run.Format.Color) Format.setForeground(QColor::fromRgba(*Run.Format.Color));
    if (Run.Format.Superscript || Run.Format.Subscript)
      Format.setVerticalAlignment(Run.Format.Superscript ? QTextCharFormat::AlignSuperScript
                                                         : QTextCharFormat::AlignSubScript);
    Cursor.insertText(ToQString(Run.Atom != nullptr ? Run.Atom->Shown() : Run.Text), Format);
  }
  return Copy.toHtml();
}

}  // namespace zy
