#include "platform/controls/Translators.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QString>
#include <algorithm>
#include <exception>
#include <sstream>
#include <string>

#include "platform/controls/TApplication.h"
#include "texts/ZyTableTexts.h"

namespace zy {
namespace {

/// The text of a row as language files write it.
std::string Escaped(const std::string& Text) {
  std::string Result;
  for (const char Letter : Text) {
    if (Letter == '\n')
      Result += "\\r";
    else
      Result.append(Letter == '\\' ? 2 : 1, Letter);
  }
  return Result;
}

/// Loads what the translators have as a language file of these rows.
void LoadTranslations() {
  ResetLanguage();
  std::string Rows;
  for (std::size_t i = 0; i < AllTextCount; ++i) {
    const auto Row = static_cast<TZyText>(i);
    const std::string Symbol(TextSymbol(Row));
    std::string English = LoadResString(Row);
    std::ranges::replace(English, '\r', '\n');
    QString Text = QCoreApplication::translate("Zyphos", English.c_str(), Symbol.c_str()).trimmed();
    Text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    if (!Text.isEmpty()) Rows += Symbol + " = " + Escaped(Text.toStdString()) + '\n';
  }
  std::istringstream Stream(Rows);
  LoadLanguage(Stream, "QCoreApplication::translate");
}

class TFilter : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* Watched, QEvent* Event) override {
    if (Event->type() != QEvent::LanguageChange || Watched != QCoreApplication::instance()) return false;
    try {
      LoadTranslations();
    } catch (const std::exception& Error) {
      TApplication::HandleException(Error);
    }
    return false;
  }
};

}  // namespace

void UseTranslators() {
  static QPointer<TFilter> Filter;
  QCoreApplication* const Application = QCoreApplication::instance();
  if (Application == nullptr) return;
  if (Filter == nullptr) {
    Filter = new TFilter(Application);
    Application->installEventFilter(Filter);
  }
  LoadTranslations();
}

}  // namespace zy
