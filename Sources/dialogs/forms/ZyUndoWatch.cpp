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
    Known = Made;
    Take(Made, Stack);
    return Made;
  }
  /// What stands in the stack's events for the application's own handlers.
  struct TCall {
    std::weak_ptr<THook> Hook;
    TZyUndoStack::TNotifyEvent THook::*Event;
    void operator()(TObject* Sender) const { Tell(Hook, Sender, Event); }
  };
  static bool IsOurs(const TZyUndoStack::TNotifyEvent& Event) { return Event.target<TCall>() != nullptr; }
  static void Take(const std::shared_ptr<THook>& Hook, TZyUndoStack& Stack) {
    if (!IsOurs(Stack.OnUndo())) {
      Hook->OnUndo = Stack.OnUndo();
      Stack.SetOnUndo(TCall{Hook, &THook::OnUndo});
    }
    if (!IsOurs(Stack.OnRedo())) {
      Hook->OnRedo = Stack.OnRedo();
      Stack.SetOnRedo(TCall{Hook, &THook::OnRedo});
    }
  }
  ~THook() {
    All().erase(Stack);
    auto* const Alive = static_cast<TZyUndoStack*>(TPersistent::FromLiveHandle(Stack));
    if (Alive == nullptr) return;
    if (IsOurs(Alive->OnUndo())) Alive->SetOnUndo(std::move(OnUndo));
    if (IsOurs(Alive->OnRedo())) Alive->SetOnRedo(std::move(OnRedo));
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

void TZyUndoWatch::Renew() {
  auto* const Stack = static_cast<TZyUndoStack*>(TPersistent::FromLiveHandle(FHook->Stack));
  if (Stack != nullptr) THook::Take(FHook, *Stack);
}

TZyUndoWatch::~TZyUndoWatch() { std::erase(FHook->Watches, this); }

}  // namespace zy
