#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace zy {

class TZyUndoStack;

/// Hears of each undo and redo of a stack as long as it lives, before the handlers that the application has there. Any
/// number of watches may come and go in any order. An application that sets other handlers meanwhile goes in front,
/// until Renew.
class TZyUndoWatch {
 public:
  TZyUndoWatch(TZyUndoStack& Stack, std::function<void()> Done);
  ~TZyUndoWatch();
  /// Looks after handlers that the application has set; to be called at idle.
  void Renew();
  TZyUndoWatch(const TZyUndoWatch&) = delete;
  TZyUndoWatch& operator=(const TZyUndoWatch&) = delete;

 private:
  struct THook;
  std::shared_ptr<THook> FHook;
  std::function<void()> FDone;
};

}  // namespace zy
