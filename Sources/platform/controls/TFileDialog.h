#pragma once

#include <filesystem>
#include <string>

namespace zy {

class TWinControl;

/// What the dialogs for files have in common: they ask the user for one file. Show them by Execute.
class TFileDialog {
 public:
  /// Names of kinds of files and their patterns in turn, between bars: "Picture|*.png|Any file|*". Any file at first.
  std::string Filter;
  /// The kind that is chosen, counted from 1.
  int FilterIndex = 1;
  /// What to propose, and what the user chose.
  std::filesystem::path FileName;
  /// The window's; the toolkit's own when empty.
  std::string Title;

 protected:
  TFileDialog() = default;
  bool Ask(TWinControl* Above, bool ToSave);
};

/// Asks the user which file to open; one that is there.
class TOpenDialog : public TFileDialog {
 public:
  /// Shows the dialog above the window of a control, or of none, until the user is done. Whether a file was chosen;
  /// otherwise nothing is changed. Throws EInvalidOperation without an application object.
  bool Execute(TWinControl* Above = nullptr) { return Ask(Above, false); }
};

/// Asks the user where to save a file, and warns before one is replaced. An extension that is missing comes from the
/// kind.
class TSaveDialog : public TFileDialog {
 public:
  /// As TOpenDialog::Execute.
  bool Execute(TWinControl* Above = nullptr) { return Ask(Above, true); }
};

}  // namespace zy
