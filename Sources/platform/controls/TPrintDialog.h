#pragma once

namespace zy {

class TPrinter;
class TWinControl;

/// Asks the user for a printer, or a PDF file, with paper, copies and what else it offers.
class TPrintDialog {
 public:
  /// Shows the dialog above the window of a control, or of none, until the user is done, and sets the printer as
  /// chosen. Whether to print. Throws EInvalidOperation without an application object, and EPrinter while the printer
  /// prints.
  static bool Execute(TPrinter& Printer, TWinControl* Above = nullptr);
};

}  // namespace zy
