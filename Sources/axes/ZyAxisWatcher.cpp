#include "axes/ZyAxisWatcher.h"

#include <cstdint>
#include <exception>

#include "platform/controls/TWinControl.h"
#include "platform/data/TListeners.h"

namespace zy {
namespace {

TListeners<TZyAxisWatcher>& Watchers() {
  static auto& Result = *new TListeners<TZyAxisWatcher>;  // outlives static charts
  return Result;
}

}  // namespace

TZyAxisWatcher::TZyAxisWatcher(std::function<void(const TWinControl& Parent)> OnLaidOut)
    : FOnLaidOut(std::move(OnLaidOut)) {
  Watchers().Add(this);
}

TZyAxisWatcher::~TZyAxisWatcher() { Watchers().Remove(this); }

void TZyAxisWatcher::Tell(const TWinControl& Parent) {
  const std::uint64_t Alive = Parent.LiveHandle();
  std::exception_ptr Failure;
  Watchers().ForEach([&](const TZyAxisWatcher& Watcher) {
    if (TPersistent::FromLiveHandle(Alive) == nullptr) return;  // one of them freed it
    const auto Handler = Watcher.FOnLaidOut;                    // which may free the watcher
    try {
      Handler(Parent);
    } catch (...) {  // the others are told all the same
      if (Failure == nullptr) Failure = std::current_exception();
    }
  });
  if (Failure != nullptr) std::rethrow_exception(Failure);
}

}  // namespace zy
