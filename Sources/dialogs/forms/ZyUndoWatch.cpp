#include "dialogs/forms/ZyUndoWatch.h"

#include <algorithm>
#include <map>
#include <vector>

#include "undo/ZyUndoStack.h"

namespace zy {

/// The handlers of a stack that all its watches share: each event goes to them first.
struct TZyUndoWatch::THook {
  std::uint64_t Stack = 0;  // live handle
  TZyUndoStack::TNotifyEvent OnUndo, OnRedo;
  std::vector<const TZyUndoWatch*> Watches;

  static std::map<std::uint64_t, std::weak_ptr<THook>>& All() {
    static std::map<std::uint64_t, std::weak_ptr<THook>> Hooks;
    return Hooks;
  }
  static std::shared_ptr<THook> Of(TZyUndoStack& Stack) {
    std::weak_ptr<THook>& Known = All()[Stack.LiveHandle()];
    if (auto Present = Known.lock()) return Present;
    auto Made = std::make_shared<THook>();
    Made->Stack = Stack.LiveHandle();
    Made->OnUndo = Stack.OnUndo();
    Made->OnRedo = Stack.OnRedo();
    const std::weak_ptr<THook> Weak = Made;
    Stack.SetOnUndo([Weak](TObject* Sender) { Tell(Weak, Sender, &THook::OnUndo); });
    Stack.SetOnRedo([Weak](TObject* Sender) { Tell(Weak, Sender, &THook::OnRedo); });
    Known = Made;
    return Made;
  }
  ~THook() {
    All().erase(Stack);
    auto* const Alive = static_cast<TZyUndoStack*>(TPersistent::FromLiveHandle(Stack));
    if (Alive == nullptr) return;
    Alive->SetOnUndo(std::move(OnUndo));
    Alive->SetOnRedo(std::move(OnRedo));
  }

  /// What is told may end watches, and the last of them the hook.
  static void Tell(const std::weak_ptr<THook>& Weak, TObject* Sender, TZyUndoStack::TNotifyEvent THook::*Event) {
    const std::shared_ptr<THook> Hook = Weak.lock();
    if (Hook == nullptr) return;
    for (const TZyUndoWatch* Watch : std::vector(Hook->Watches))
      if (std::ranges::find(Hook->Watches, Watch) != Hook->Watches.end()) Watch->FDone();
    if (const TZyUndoStack::TNotifyEvent Own = (*Hook).*Event) Own(Sender);
  }
};

TZyUndoWatch::TZyUndoWatch(TZyUndoStack& Stack, std::function<void()> Done)
    : FHook(THook::Of(Stack)), FDone(std::move(Done)) {
  FHook->Watches.push_back(this);
}

TZyUndoWatch::~TZyUndoWatch() { std::erase(FHook->Watches, this); }

}  // namespace zy
