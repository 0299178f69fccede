#include "platform/controls/TFileDialog.h"

#include <QApplication>
#include <QFileDialog>
#include <algorithm>

#include "platform/controls/TWinControl.h"
#include "platform/drawing/QtText.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// The filter in the toolkit's words, one for each kind: "Picture (*.png)".
QStringList Kinds(const std::string& Filter) {
  const QStringList Parts = ToQString(Filter).split('|');
  QStringList Result;
  for (qsizetype Index = 0; Index + 1 < Parts.size(); Index += 2)
    Result += Parts[Index] + " (" + QString(Parts[Index + 1]).replace(';', ' ') + ")";
  return Result;
}

/// The extension of a kind's first pattern without its point; empty for any file.
QString ExtensionOf(const QString& Kind) {
  const qsizetype Start = Kind.lastIndexOf("(*.") + 3;
  if (Start < 3) return {};
  const qsizetype End = std::min(Kind.indexOf(' ', Start), Kind.indexOf(')', Start));
  return Kind.mid(Start, (End < 0 ? Kind.indexOf(')', Start) : End) - Start);
}

}  // namespace

bool TFileDialog::Ask(TWinControl* Above, bool ToSave) {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
    throw EInvalidOperation(Format(LoadResString(_sWidgetNeedsApplication), {Title}));
  QFileDialog Dialog(Above != nullptr ? Above->Widget()->window() : nullptr, ToQString(Title));
  Dialog.setAcceptMode(ToSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  if (!ToSave) Dialog.setFileMode(QFileDialog::ExistingFile);
  const QStringList Names = Kinds(Filter);
  if (!Names.isEmpty()) {
    Dialog.setNameFilters(Names);
    const auto Chosen = std::clamp<qsizetype>(FilterIndex - 1, 0, Names.size() - 1);
    Dialog.selectNameFilter(Names[Chosen]);
    Dialog.setDefaultSuffix(ExtensionOf(Names[Chosen]));
    QObject::connect(&Dialog, &QFileDialog::filterSelected, &Dialog,
                     [&Dialog](const QString& Kind) { Dialog.setDefaultSuffix(ExtensionOf(Kind)); });
  }
  if (!FileName.empty()) Dialog.selectFile(ToQString(FileName.string()));
  if (Dialog.exec() != QDialog::Accepted || Dialog.selectedFiles().isEmpty()) return false;
  FileName = Dialog.selectedFiles().front().toStdString();
  if (!Names.isEmpty()) FilterIndex = static_cast<int>(Names.indexOf(Dialog.selectedNameFilter())) + 1;
  return true;
}

}  // namespace zy
