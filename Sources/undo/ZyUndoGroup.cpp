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

TZyUndoGroup::~TZyUndoGroup() {
  auto* const Stack = static_cast<TZyUndoStack*>(TPersistent::FromLiveHandle(FStack));
  if (Stack == nullptr || Stack->Clears() != FClears || Stack->GroupLevel() <= 0) return;
  const bool WasEnabled = Stack->Enabled();
  Stack->SetEnabled(true);  // one that stayed open would refuse undo for good
  try {
    Stack->StopGroup();
  } catch (...) {
    // The log could not be written. What is on its way out counts more; the group ends with the outer one.
  }
  Stack->SetEnabled(WasEnabled);
}

}  // namespace zy
