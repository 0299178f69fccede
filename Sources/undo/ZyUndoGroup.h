#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "texts/ZyLocalize.h"

namespace zy {

class TPersistent;
class TZyUndoStack;

/// What happens while this object lives is one step that can be undone. Nothing without a stack, and while the stack is
/// silent. The group is closed however the block is left, also while the stack is switched off, unless it was cleared
/// or died meanwhile. Groups that live longer than a block may overlap: the step ends with the last of them. Where the
/// end of the group cannot be written, as on a full disk, the stack is cleared: undo goes on from there.
class TZyUndoGroup {
 public:
  TZyUndoGroup(TZyUndoStack* Stack, std::string_view Comment);
  TZyUndoGroup(TZyUndoStack* Stack, TZyText Label) : TZyUndoGroup(Stack, std::string_view(LoadResString(Label))) {}
  /// The step of a property whose setter changes others too: the first name gives the label, and all are logged. Undo
  /// writes them back from the last to the first.
  TZyUndoGroup(TZyUndoStack* Stack, TPersistent& Instance, std::initializer_list<std::string_view> PropNames);
  ~TZyUndoGroup();
  TZyUndoGroup(const TZyUndoGroup&) = delete;
  TZyUndoGroup& operator=(const TZyUndoGroup&) = delete;

 private:
  std::uint64_t FStack = 0;  // live handle of the stack, 0 when no group was opened
  int FClears = 0;           // of the stack, when it was opened
};

}  // namespace zy
