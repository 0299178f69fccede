#include "axes/ZyAxisWatcher.h"

#include <vector>

namespace zy {
namespace {

std::vector<TZyAxisWatcher*>& Watchers() {
  static std::vector<TZyAxisWatcher*> Result;
  return Result;
}

}  // namespace

TZyAxisWatcher::TZyAxisWatcher(std::function<void(const TWinControl& Parent)> OnLaidOut)
    : FOnLaidOut(std::move(OnLaidOut)) {
  Watchers().push_back(this);
}

TZyAxisWatcher::~TZyAxisWatcher() { std::erase(Watchers(), this); }

void TZyAxisWatcher::Tell(const TWinControl& Parent) {
  for (const TZyAxisWatcher* Watcher : Watchers()) Watcher->FOnLaidOut(Parent);
}

}  // namespace zy
