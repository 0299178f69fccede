#pragma once

#include <functional>

namespace zy {

class TPrinter;
class TWinControl;

/// Shows the user what a document would look like on paper, in a dialog of the toolkit's that can print it.
class TPrintPreview {
 public:
  /// Shows the dialog above the window of a control, or of none, until the user closes it; returns whether the document
  /// was printed. Print prints the whole document, from BeginDoc to EndDoc, and is called for each preview: the user
  /// may choose other paper, another way that it lies, another printer. It does so without a printer, too. What Print
  /// throws closes the dialog and comes out here. Throws EInvalidOperation without an application object, and EPrinter
  /// while the printer prints.
  static bool Execute(TPrinter& Printer, const std::function<void(TPrinter&)>& Print, TWinControl* Above = nullptr);
};

}  // namespace zy
