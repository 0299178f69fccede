#include "undo/ZyUndoGroup.h"

#include "undo/ZyUndoStack.h"

namespace zy {

TZyUndoGroup::TZyUndoGroup(TZyUndoStack* Stack, std::string_view Comment) {
  if (Stack == nullptr) return;
  const int Level = Stack->GroupLevel();
  Stack->StartGroup(Comment);
  if (Stack->GroupLevel() <= Level) return;
  FStack = Stack->LiveHandle();
  FClears = Stack->Clears();
}

TZyUndoGroup::TZyUndoGroup(TZyUndoStack* Stack, TPersistent& Instance,
                           std::initializer_list<std::string_view> PropNames)
    : TZyUndoGroup(Stack, Stack == nullptr ? std::string_view() : TZyUndoStack::LabelOf(Instance, *PropNames.begin())) {
  if (Stack == nullptr) return;
  for (const std::string_view PropName : PropNames)
    Stack->PushProperty(&Instance, TZyUndoStack::LabelOf(Instance, *PropNames.begin()), PropName);
}

namespace {

/// Where the end of a group cannot be written, what the log has before it would be undone without the group's own
/// changes: none of it counts any more. What is on its way out of the block counts more than a second failure.
void StopOrClear(TZyUndoStack& Stack) {
  try {
    Stack.StopGroup();
  } catch (...) {
    try {
      Stack.Clear();
    } catch (...) {
    }
  }
}

}  // namespace

TZyUndoGroup::~TZyUndoGroup() {
  auto* const Stack = static_cast<TZyUndoStack*>(TPersistent::FromLiveHandle(FStack));
  if (Stack == nullptr || Stack->Clears() != FClears || Stack->GroupLevel() <= 0) return;
  const bool WasEnabled = Stack->Enabled();
  Stack->SetEnabled(true);  // one that stayed open would refuse undo for good
  StopOrClear(*Stack);
  Stack->SetEnabled(WasEnabled);
}

}  // namespace zy
