#include "platform/drawing/FontFamily.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QPointer>
#include <QStringList>

#include "platform/drawing/QtText.h"

namespace zy {
namespace {

/// A family and one that was made with its widths.
struct TTwin {
  const char* Family;
  const char* Substitute;
};

constexpr TTwin Twins[] = {
    {"Arial", "Liberation Sans"},
    {"Arial", "Arimo"},
    {"Arial", "Helvetica"},
    {"Helvetica", "Liberation Sans"},
    {"Helvetica", "Arimo"},
    {"Helvetica", "Nimbus Sans"},
    {"Helvetica", "Arial"},
    {"Arial Narrow", "Liberation Sans Narrow"},
    {"Times New Roman", "Liberation Serif"},
    {"Times New Roman", "Tinos"},
    {"Times", "Liberation Serif"},
    {"Times", "Tinos"},
    {"Times", "Nimbus Roman"},
    {"Times", "Times New Roman"},
    {"Courier New", "Liberation Mono"},
    {"Courier New", "Cousine"},
    {"Courier", "Liberation Mono"},
    {"Courier", "Cousine"},
    {"Courier", "Nimbus Mono PS"},
    {"Courier", "Courier New"},
    {"Calibri", "Carlito"},
    {"Cambria", "Caladea"},
};

}  // namespace

bool FontFamily::IsAvailable() const {
  const QString Family = ToQString(FFamilyName);
  if (Family.isEmpty()) return false;
  if (QFontDatabase::hasFamily(Family)) return true;
  const QString Shown = QFontInfo(QFont(Family)).family();
  for (const TTwin& Twin : Twins)
    if (Family.compare(QLatin1String(Twin.Family), Qt::CaseInsensitive) == 0 &&
        Shown.compare(QLatin1String(Twin.Substitute), Qt::CaseInsensitive) == 0)
      return true;
  return false;
}

bool Font::IsAvailable() const { return FontFamily(FFamilyName).IsAvailable(); }

bool FontFamily::IsStyleAvailable(TFontStyles Style) const {
  if (!IsAvailable()) return false;
  const QString Shown = QFontInfo(QFont(ToQString(FFamilyName))).family();
  const bool Bold = Style.Contains(TFontStyle::Bold), Italic = Style.Contains(TFontStyle::Italic);
  for (const QString& Face : QFontDatabase::styles(Shown))
    if ((QFontDatabase::weight(Shown, Face) >= QFont::DemiBold) == Bold && QFontDatabase::italic(Shown, Face) == Italic)
      return true;
  return false;
}

std::vector<FontFamily> InstalledFontCollection::GetFamilies() const {
  std::vector<FontFamily> Result;
  for (const QString& Family : QFontDatabase::families())
    if (!QFontDatabase::isPrivateFamily(Family)) Result.emplace_back(Family.toStdString());
  return Result;
}

unsigned InstalledFontCollection::Version() {
  static unsigned Changes = 0;
  static QPointer<QGuiApplication> Known;
  if (Known != qGuiApp) {
    Known = qGuiApp;
    ++Changes;
    if (Known != nullptr) QObject::connect(Known, &QGuiApplication::fontDatabaseChanged, Known, [] { ++Changes; });
  }
  return Changes;
}

}  // namespace zy
