#include "graph/ZyPollingThread.h"

#include <chrono>

namespace zy {
namespace {

constexpr std::chrono::milliseconds Tick(100);

}  // namespace

TZyPollingThread::TZyPollingThread()
    : FPostBox([this] {
        if (OnPoll) OnPoll();
      }),
      FThread([this] { Execute(); }) {}

TZyPollingThread::~TZyPollingThread() {
  {
    const std::lock_guard Lock(FMutex);
    FTerminated = true;
  }
  FStop.notify_one();
  FThread.join();
}

void TZyPollingThread::Execute() {
  std::unique_lock Lock(FMutex);
  while (!FStop.wait_for(Lock, Tick, [this] { return FTerminated; })) FPostBox.Post();
}

}  // namespace zy
