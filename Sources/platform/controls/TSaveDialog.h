#pragma once

#include <filesystem>
#include <string>

namespace zy {

class TWinControl;

/// Asks the user where to save a file, and warns before one is replaced.
class TSaveDialog {
 public:
  /// Names of kinds of files and their patterns in turn, between bars: "Picture|*.png|Any file|*". Any file at first.
  std::string Filter;
  /// The kind that is chosen, counted from 1.
  int FilterIndex = 1;
  /// What to propose, and what the user chose; an extension that is missing comes from the kind.
  std::filesystem::path FileName;
  /// The window's; the toolkit's own when empty.
  std::string Title;

  /// Shows the dialog above the window of a control, or of none, until the user is done. Whether a file was chosen;
  /// otherwise nothing is changed. Throws EInvalidOperation without an application object.
  bool Execute(TWinControl* Above = nullptr);
};

}  // namespace zy
