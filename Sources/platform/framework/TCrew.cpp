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

/// Threads that wait for crews to help: to start one takes longer than most of what a crew does. They are there until
/// the program ends, and are no hindrance to its end.
class THelpers {
 public:
  static THelpers& Instance() {
    static auto& Result = *new THelpers;  // never freed, as its threads are in it to the last
    return Result;
  }

  /// Has Help called on so many threads, as soon as each is free. Where no thread can be started it is left undone.
  void Call(int Number, const std::function<void()>& Help) {
    {
      const std::lock_guard Lock(FMutex);
      for (int i = 0; i < Number && FCalls.size() < MostCalls; ++i) FCalls.push_back(Help);
      try {
        for (; FThreads < Number; ++FThreads) std::thread([this] { Execute(); }).detach();
      } catch (const std::system_error&) {
        // No more threads: the others do it.
      }
    }
    FChanged.notify_all();
  }

 private:
  [[noreturn]] void Execute() {
    std::unique_lock Lock(FMutex);
    while (true) {
      FChanged.wait(Lock, [this] { return !FCalls.empty(); });
      std::function<void()> Help = std::move(FCalls.front());
      FCalls.pop_front();
      Lock.unlock();
      Help();
      Help = {};
      Lock.lock();
    }
  }

  static constexpr std::size_t MostCalls = 256;  // that wait; further ones would come too late

  std::mutex FMutex;
  std::condition_variable FChanged;
  std::deque<std::function<void()>> FCalls;
  int FThreads = 0;
};

}  // namespace

int TCrew::Processors() {
  static const int OfMachine = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
  const int Chosen = ChosenProcessors.load(std::memory_order_relaxed);
  return Chosen > 0 ? Chosen : OfMachine;
}

void TCrew::SetProcessors(int Count) { ChosenProcessors.store(Count, std::memory_order_relaxed); }

/// Shared with those who help: one that comes late finds the end.
class TCrew::TState : public std::enable_shared_from_this<TState> {
 public:
  explicit TState(int Lanes) : FLanes(static_cast<std::size_t>(std::max(Lanes, 1))) {}

  void End() {
    {
      const std::lock_guard Lock(FMutex);
      FEnds = true;
    }
    FChanged.notify_all();
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
    if (Helpers > 0) THelpers::Instance().Call(Helpers, [Self = shared_from_this()] { Self->Help(); });
  }

  void Help() {
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
};

TCrew::TCrew(int Lanes) : FState(std::make_shared<TState>(Lanes)) {}

TCrew::~TCrew() {
  Finish();
  FState->End();
}

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
