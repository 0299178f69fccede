#include "looks/ZyPaletteLook.h"

#include "looks/ZyLook.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyUndoStack.h"

namespace zy {

ZY_PUBLISHED(TZyPaletteLook, TComponent, Published<&Self::Graph, &Self::SetGraph>("Graph"))

TZyPaletteLook::TZyPaletteLook(TComponent* Owner) : TComponent(Owner) {}

void TZyPaletteLook::SetGraph(TZyCustomGraph* Value) {
  if (FGraph == Value) return;
  FGraph = Value;
  Follow();
}

void TZyPaletteLook::Loaded() {
  TComponent::Loaded();
  Follow();
}

void TZyPaletteLook::Follow() {
  if (FGraph == nullptr || IsLoading() || FGraph->IsLoading()) return;
  TZyUndoStack* const Stack = FGraph->UndoStack();
  const bool WasEnabled = Stack != nullptr && Stack->Enabled();
  struct TSilence {
    TZyUndoStack* Stack;
    ~TSilence() {
      if (Stack != nullptr) Stack->SetEnabled(true);
    }
  } const Silence{WasEnabled ? Stack : nullptr};
  if (WasEnabled) Stack->SetEnabled(false);
  ApplyLook(*FGraph, TZyLook::OfPalette());
}

}  // namespace zy
