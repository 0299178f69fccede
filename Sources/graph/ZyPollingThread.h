#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

#include "platform/controls/TPostBox.h"

namespace zy {

/// A worker that asks its owner every 100 ms to look for new data.
///
/// The worker itself touches nothing: it posts the poll to the control thread, and posts no second one while one waits.
/// The destructor stops it first and waits for it; no poll comes afterwards.
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
  void Execute();

  TPostBox FPostBox;
  std::mutex FMutex;
  std::condition_variable FStop;
  bool FTerminated = false;
  std::thread FThread;  // last: it uses all of the above
};

}  // namespace zy
