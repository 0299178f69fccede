#include "platform/controls/TPrintDialog.h"

#include <QApplication>
#include <QPrintDialog>
#include <QPrinter>

#include "platform/controls/TPrinter.h"
#include "platform/controls/TWinControl.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

bool TPrintDialog::Execute(TPrinter& Printer, TWinControl* Above) {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
    throw EInvalidOperation(Format(LoadResString(_sWidgetNeedsApplication), {Printer.Title()}));
  if (Printer.Printing()) throw EPrinter(LoadResString(_sPrinting));
  QPrintDialog Dialog(&Printer.ToQt(), Above != nullptr ? Above->Widget()->window() : nullptr);
  Dialog.setOption(QAbstractPrintDialog::PrintToFile, true);
  if (Dialog.exec() != QDialog::Accepted) return false;
  QPrinter& Chosen = Printer.ToQt();
  if (Chosen.outputFormat() == QPrinter::PdfFormat)
    Printer.SetFileName(Chosen.outputFileName().toStdString());
  else
    Printer.SetFileName({});
  return true;
}

}  // namespace zy
