#pragma once

#include <functional>

#include "platform/controls/TPostBox.h"

namespace zy {

/// A worker that asks its owner every 100 ms to look for new data.
///
/// The worker itself touches nothing: it posts the poll to the control thread, and posts no second one while one waits.
/// The destructor stops it first and waits for it; no poll comes afterwards. All workers share one thread and its beat.
class TZyPollingThread {
 public:
  using TPollEvent = std::function<void()>;

  /// Starts running at once; without OnPoll a tick does nothing.
  TZyPollingThread();
  ~TZyPollingThread();
  TZyPollingThread(const TZyPollingThread&) = delete;
  TZyPollingThread& operator=(const TZyPollingThread&) = delete;

  /// Runs on the control thread. To be set there, too.
  TPollEvent OnPoll;

 private:
  TPostBox FPostBox;
};

}  // namespace zy
