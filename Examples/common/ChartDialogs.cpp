#include "common/ChartDialogs.h"

#include <QMessageBox>

#include "common/ChartForms.h"
#include "platform/controls/TFileDialog.h"

namespace zy::examples {
namespace {

template <class TDialog>
std::optional<std::filesystem::path> Ask(TWinControl* Parent, const std::string& Title, const std::string& Filter,
                                         const std::filesystem::path& FileName) {
  TDialog Dialog;
  Dialog.Title = Title;
  Dialog.Filter = Filter;
  Dialog.FileName = FileName;
  if (!Dialog.Execute(Parent)) return std::nullopt;
  return Dialog.FileName;
}

}  // namespace

std::optional<std::filesystem::path> AskToOpen(TWinControl* Parent, const std::string& Title, const std::string& Filter,
                                               const std::filesystem::path& FileName) {
  return Ask<TOpenDialog>(Parent, Title, Filter, FileName);
}

std::optional<std::filesystem::path> AskToSave(TWinControl* Parent, const std::filesystem::path& FileName) {
  return Ask<TSaveDialog>(Parent, "Save the chart", ChartFileFilter(true), FileName);
}

bool MayLeave(QWidget* Parent, const char* Program, const TZyUndoStack& Undo, const std::function<bool()>& Save) {
  if (Undo.Saved()) return true;
  const auto Answer =
      QMessageBox::question(Parent, Program, "The chart was changed. Save the changes?",
                            QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
  return Answer == QMessageBox::Discard || (Answer == QMessageBox::Save && Save());
}

}  // namespace zy::examples
