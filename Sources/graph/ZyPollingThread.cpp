#include "graph/ZyPollingThread.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace zy {
namespace {

constexpr std::chrono::milliseconds Tick(100);

/// The one thread of the process behind all workers: starting one for each chart would cost more than the chart. It
/// starts with the first of them and rests while there is none.
class TTicker {
 public:
  static TTicker& Instance() {
    static TTicker Result;
    return Result;
  }

  void Enter(TPostBox& PostBox) {
    {
      const std::lock_guard Lock(FMutex);
      FPostBoxes.push_back(&PostBox);
      if (FPostBoxes.size() > 1) return;  // it runs already
    }
    FChanged.notify_one();
  }
  /// Afterwards nothing is posted there.
  void Leave(TPostBox& PostBox) {
    const std::lock_guard Lock(FMutex);
    std::erase(FPostBoxes, &PostBox);
  }

 private:
  TTicker() : FThread([this] { Execute(); }) {}
  ~TTicker() {
    {
      const std::lock_guard Lock(FMutex);
      FTerminated = true;
    }
    FChanged.notify_one();
    FThread.join();
  }

  void Execute() {
    std::unique_lock Lock(FMutex);
    while (true) {
      FChanged.wait(Lock, [this] { return FTerminated || !FPostBoxes.empty(); });
      if (FChanged.wait_for(Lock, Tick, [this] { return FTerminated; })) return;
      for (TPostBox* PostBox : FPostBoxes) PostBox->Post();
    }
  }

  std::mutex FMutex;
  std::condition_variable FChanged;
  std::vector<TPostBox*> FPostBoxes;
  bool FTerminated = false;
  std::thread FThread;  // last: it uses all of the above
};

}  // namespace

TZyPollingThread::TZyPollingThread()
    : FPostBox([this] {
        if (OnPoll) OnPoll();
      }) {
  TTicker::Instance().Enter(FPostBox);
}

TZyPollingThread::~TZyPollingThread() { TTicker::Instance().Leave(FPostBox); }

}  // namespace zy
