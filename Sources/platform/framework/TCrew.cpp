#include "platform/framework/TCrew.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace zy {
namespace {

std::atomic<int> ChosenProcessors = 0;

}  // namespace

int TCrew::Processors() {
  static const int OfMachine = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
  const int Chosen = ChosenProcessors.load(std::memory_order_relaxed);
  return Chosen > 0 ? Chosen : OfMachine;
}

void TCrew::SetProcessors(int Count) { ChosenProcessors.store(Count, std::memory_order_relaxed); }

class TCrew::TState {
 public:
  explicit TState(int Lanes) : FLanes(static_cast<std::size_t>(std::max(Lanes, 1))) {}
  ~TState() {
    {
      const std::lock_guard Lock(FMutex);
      FEnds = true;
    }
    FChanged.notify_all();
    for (std::thread& Thread : FThreads) Thread.join();
  }

  void Post(std::function<void(int)> Job) {
    {
      const std::lock_guard Lock(FMutex);
      FJobs.push_back(std::move(Job));
      ++FPosted;
    }
    if (!std::exchange(FHasStarted, true)) Start();
    FChanged.notify_all();
  }

  void FinishUpTo(std::size_t Jobs) {
    std::unique_lock Lock(FMutex);
    while (FJobs.size() > Jobs) {
      if (Step(Lock)) continue;
      FChanged.wait(Lock);
    }
  }

 private:
  struct TLane {
    std::size_t Done = 0;  // jobs, of all that were ever posted
    bool IsTaken = false;
  };

  void Start() {
    const int Helpers = std::min(static_cast<int>(FLanes.size()), Processors()) - 1;
    try {
      while (static_cast<int>(FThreads.size()) < Helpers) FThreads.emplace_back([this] { Execute(); });
    } catch (const std::system_error&) {
      // No more threads: the others do it.
    }
  }

  void Execute() {
    std::unique_lock Lock(FMutex);
    while (!FEnds)
      if (!Step(Lock)) FChanged.wait(Lock);
  }

  /// Does a job of a lane that nobody works at, the one that is behind most; false when there is none.
  bool Step(std::unique_lock<std::mutex>& Lock) {
    TLane* Next = nullptr;
    for (TLane& Lane : FLanes)
      if (!Lane.IsTaken && Lane.Done < FPosted && (Next == nullptr || Lane.Done < Next->Done)) Next = &Lane;
    if (Next == nullptr) return false;
    Next->IsTaken = true;
    const std::function<void(int)>& Job = FJobs[Next->Done - FForgotten];  // stays where it is while others come
    Lock.unlock();
    Job(static_cast<int>(Next - FLanes.data()));
    Lock.lock();
    Next->IsTaken = false;
    ++Next->Done;
    Forget();
    FChanged.notify_all();
    return true;
  }

  /// Drops the jobs that every lane has done.
  void Forget() {
    std::size_t Done = FPosted;
    for (const TLane& Lane : FLanes) Done = std::min(Done, Lane.Done);
    for (; FForgotten < Done; ++FForgotten) FJobs.pop_front();
  }

  std::mutex FMutex;
  std::condition_variable FChanged;
  std::deque<std::function<void(int)>> FJobs;
  std::vector<TLane> FLanes;
  std::size_t FPosted = 0, FForgotten = 0;
  bool FEnds = false, FHasStarted = false;
  std::vector<std::thread> FThreads;
};

TCrew::TCrew(int Lanes) : FState(std::make_unique<TState>(Lanes)) {}

TCrew::~TCrew() { Finish(); }

void TCrew::Post(std::function<void(int Lane)> Job) { FState->Post(std::move(Job)); }

void TCrew::Finish() { FState->FinishUpTo(0); }

void TCrew::FinishUpTo(int Jobs) { FState->FinishUpTo(static_cast<std::size_t>(std::max(Jobs, 0))); }

void InParallel(int Pieces, const std::function<void(int Piece)>& Work) {
  if (Pieces <= 1 || TCrew::Processors() == 1) {
    for (int Piece = 0; Piece < Pieces; ++Piece) Work(Piece);
    return;
  }
  TCrew Crew(Pieces);
  Crew.Post([&Work](int Piece) { Work(Piece); });
}

}  // namespace zy
