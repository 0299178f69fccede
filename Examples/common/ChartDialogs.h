#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "undo/ZyUndoStack.h"

class QWidget;

namespace zy {
class TWinControl;
}

namespace zy::examples {

// What programs with charts in files ask their users. Nothing is returned when they change their minds.

/// A file to open, of those that the filter lists.
std::optional<std::filesystem::path> AskToOpen(TWinControl* Parent, const std::string& Title, const std::string& Filter,
                                               const std::filesystem::path& FileName = {});
/// A file for a chart, whose form follows from the ending.
std::optional<std::filesystem::path> AskToSave(TWinControl* Parent, const std::filesystem::path& FileName);
/// Whether a chart may go: it has not changed, Save has saved it (and says so), or the user does not want the changes.
bool MayLeave(QWidget* Parent, const char* Program, const TZyUndoStack& Undo, const std::function<bool()>& Save);

}  // namespace zy::examples
