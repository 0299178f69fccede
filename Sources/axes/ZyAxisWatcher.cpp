#include "axes/ZyAxisWatcher.h"

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
  Watchers().ForEach([&Parent](const TZyAxisWatcher& Watcher) {
    const auto Handler = Watcher.FOnLaidOut;  // which may free the watcher
    Handler(Parent);
  });
}

}  // namespace zy
