#pragma once

#include <initializer_list>

#include "axes/ZyAxis.h"
#include "texts/ZyLocalize.h"
#include "undo/ZyUndoStack.h"

namespace zy {

/// One step of undo for a property of an axis together with those that its setter changes too. It stays open as long
/// as this object lives. Undo writes the values back from the last to the first.
class TAxisUndoGroup {
 public:
  TAxisUndoGroup(TZyAxis& Axis, TZyText Label, std::initializer_list<const char*> PropNames)
      : FStack(Axis.UndoStack()) {
    if (FStack == nullptr) return;
    FStack->StartGroup(LoadResString(Label));
    for (const char* PropName : PropNames) FStack->PushProperty(&Axis, LoadResString(Label), PropName);
  }
  ~TAxisUndoGroup() {
    if (FStack != nullptr) FStack->StopGroup();
  }
  TAxisUndoGroup(const TAxisUndoGroup&) = delete;
  TAxisUndoGroup& operator=(const TAxisUndoGroup&) = delete;

 private:
  TZyUndoStack* FStack;
};

}  // namespace zy
