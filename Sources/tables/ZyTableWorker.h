#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/controls/TPostBox.h"
#include "tables/ZyTableReader.h"

namespace zy {

/// Where a table lies, and what is read of it.
struct TZyTableSource {
  std::string Connection;  // as of TSqlDataSet::ConnectionText
  TZyTableFields Fields;
  std::string Summary, Title;
};

/// Asks a table off the control thread, by a connection of its own; nothing else is shared but questions and answers,
/// under one lock. A database in memory, which no second connection sees, is asked on the control thread, from the
/// event loop.
///
/// There is at most one question for the whole table and one for a range of it: a newer one takes the place of an older
/// one that waits, and ends one under way after its present statement. All members are for the control thread.
class TZyTableWorker {
 public:
  /// OnAnswer runs on the control thread, from the event loop, when there is an answer to take.
  TZyTableWorker(TZyTableSource Source, std::function<void()> OnAnswer);
  /// Waits for the statement under way.
  ~TZyTableWorker();
  /// Has nothing answered any more, and does not wait: the worker is freed when its statement has ended and another one
  /// retires, or with the program, which waits. Until then its connection is open. It may be called by OnAnswer.
  static void Retire(std::unique_ptr<TZyTableWorker> Worker);
  TZyTableWorker(const TZyTableWorker&) = delete;
  TZyTableWorker& operator=(const TZyTableWorker&) = delete;

  void Ask(TZyTableQuestion Question);
  std::vector<TZyTableAnswer> TakeAnswers();
  /// Whether a question waits or is under way, or an answer is not taken yet.
  bool IsBusy() const;
  /// Returns when no question waits or is under way any more.
  void Wait();

 private:
  std::optional<TZyTableQuestion>& PlaceOf(bool IsWhole) { return IsWhole ? FWhole : FRange; }
  void Stop();
  void Execute();
  bool Step(std::unique_lock<std::mutex>& Lock);
  std::optional<TZyTableAnswer> Answer(const TZyTableQuestion& Question);
  void Posted();

  const TZyTableSource FSource;
  std::function<void()> FOnAnswer;
  TPostBox FPostBox;
  mutable std::mutex FMutex;
  std::condition_variable FChanged;
  std::optional<TZyTableQuestion> FWhole, FRange;  // those that wait
  TZyTableQuestion FRunning;                       // the one under way
  bool FIsRunning = false, FStops = false;
  bool FHasEnded = false;     // the thread
  bool FIsAnswering = false;  // OnAnswer runs
  std::vector<TZyTableAnswer> FAnswers;
  std::atomic<bool> FIsOutdated = false;  // the one under way is

  // Of the thread that asks.
  std::shared_ptr<TSqlConnection> FConnection;
  std::optional<TZyTableReader> FReader;
  bool FHasTold = false;

  std::thread FThread;  // last: it uses all of the above
};

}  // namespace zy
