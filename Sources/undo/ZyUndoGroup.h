#pragma once

#include "texts/ZyLocalize.h"
#include "undo/ZyUndoStack.h"

namespace zy {

/// One step of undo for all that changes while this object lives. Nothing without a stack.
class TZyUndoGroup {
 public:
  TZyUndoGroup(TZyUndoStack* Stack, TZyText Label) : FStack(Stack) {
    if (FStack == nullptr) return;
    const int Level = FStack->GroupLevel();
    FStack->StartGroup(LoadResString(Label));
    if (FStack->GroupLevel() == Level) FStack = nullptr;  // it is silent
  }
  /// A stack that was cleared meanwhile has no group to close.
  ~TZyUndoGroup() {
    if (FStack != nullptr && FStack->GroupLevel() > 0) FStack->StopGroup();
  }
  TZyUndoGroup(const TZyUndoGroup&) = delete;
  TZyUndoGroup& operator=(const TZyUndoGroup&) = delete;

 private:
  TZyUndoStack* FStack;
};

}  // namespace zy
