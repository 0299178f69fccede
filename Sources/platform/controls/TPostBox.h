#pragma once

#include <functional>
#include <memory>

namespace zy {

/// Lets another thread ask for a call on the control thread.
///
/// Made and destroyed on the control thread. Requests that come while one waits are one with it, so that a busy control
/// thread is not flooded; a request that still waits at destruction is dropped. The call comes from the event loop: in
/// a program that never handles events it never comes.
class TPostBox {
 public:
  explicit TPostBox(std::function<void()> Proc);
  ~TPostBox();
  TPostBox(const TPostBox&) = delete;
  TPostBox& operator=(const TPostBox&) = delete;

  /// Asks for one call of the procedure. From any thread.
  void Post();

 private:
  class TReceiver;
  std::unique_ptr<TReceiver> FReceiver;
};

}  // namespace zy
