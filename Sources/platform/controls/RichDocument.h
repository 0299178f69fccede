#pragma once

#include <QObject>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <functional>
#include <memory>
#include <vector>

#include "platform/controls/TRichText.h"

class QMimeData;

namespace zy {

/// The toolkit's document of a rich text editor, and its runs. Positions inside count each atom as one character, those
/// that are shown count the characters of its text.
class TRichDocument {
 public:
  TRichDocument();
  /// The document goes too, unless a widget that is its parent still shows it.
  ~TRichDocument();
  TRichDocument(const TRichDocument&) = delete;
  TRichDocument& operator=(const TRichDocument&) = delete;

  QTextDocument& Document() { return *FDocument; }
  void SetBase(const TRichLook& Base);
  const TRichLook& Base() const { return FBase; }

  QTextCharFormat ToQt(const TRichFormat& Format) const;
  TRichFormat FromQt(const QTextCharFormat& Format) const;
  /// Replaces the selection of a cursor.
  void Insert(QTextCursor& Cursor, const TRichRuns& Runs) const;
  TRichRuns Read(int From, int To) const;
  void ChangeFormats(const QTextCursor& Cursor, const std::function<void(TRichFormat&)>& Change) const;
  std::vector<TRichAtomPlace> Atoms() const;
  int Length() const { return FDocument->characterCount() - 1; }
  int ToShown(int Position) const;
  /// A position inside an atom is that behind it, or in front of it.
  int ToDocument(int Shown, bool Forward) const;

 private:
  QTextDocument* FDocument;
  std::shared_ptr<QObject> FPainter;
  TRichLook FBase;
};

/// What is pasted of a foreign text: '\n' breaks lines, a tab is a blank, no other control characters.
std::string PlainPasteOf(const QString& Text);
/// Runs of a foreign rich text; pictures are left out.
TRichRuns RichPasteOf(const QString& Html, const TRichDocument& Target);
/// The same runs for other programs.
QString HtmlOf(const TRichRuns& Runs, const TRichLook& Base);

}  // namespace zy
