#include "platform/controls/TPrintPreview.h"

#include <QApplication>
#include <QPointer>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <exception>

#include "platform/controls/TPrinter.h"
#include "platform/controls/TWinControl.h"
#include "platform/framework/ScopedFlag.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

bool TPrintPreview::Execute(TPrinter& Printer, const std::function<void(TPrinter&)>& Print, TWinControl* Above) {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
    throw EInvalidOperation(Format(LoadResString(_sWidgetNeedsApplication), {Printer.Title()}));
  Printer.CheckIdle();
  const TScopedValue Preview(Printer.FIsPreview, true);
  // The window may be deleted while the dialog is there, and the dialog with it.
  const QPointer Dialog =
      new QPrintPreviewDialog(&Printer.ToQt(), Above != nullptr ? Above->Widget()->window() : nullptr);
  std::exception_ptr Failure;
  QObject::connect(Dialog, &QPrintPreviewDialog::paintRequested, Dialog, [&](QPrinter*) {
    if (Failure != nullptr) return;
    try {
      Print(Printer);
    } catch (...) {
      Failure = std::current_exception();
      Printer.Abort();
      QMetaObject::invokeMethod(Dialog, &QDialog::reject, Qt::QueuedConnection);
    }
  });
  const bool IsPrinted = Dialog->exec() == QDialog::Accepted;
  delete Dialog;
  if (Failure != nullptr) std::rethrow_exception(Failure);
  return IsPrinted;
}

}  // namespace zy
