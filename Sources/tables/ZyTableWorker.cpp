#include "tables/ZyTableWorker.h"

#include <cmath>

#include "platform/framework/ScopedFlag.h"
#include "platform/sql/SqlConnection.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// Whether a text names a database in memory, which belongs to one connection.
bool IsInMemory(const std::string& Connection) {
  return Connection.empty() || Connection == ":memory:" || Connection == "sqlite:" || Connection == "sqlite::memory:";
}

/// Whether a range is another one of the same length, of which at least half is the same.
bool IsPanned(const TZyTableQuestion& Old, const TZyTableQuestion& New) {
  constexpr double Alike = 0.01, Half = 0.5;
  const double Length = Old.Edges.back() - Old.Edges.front(), NewLength = New.Edges.back() - New.Edges.front();
  return std::fabs(NewLength - Length) <= Alike * Length &&
         std::fabs(New.Edges.front() - Old.Edges.front()) <= Half * Length;
}

}  // namespace

TZyTableWorker::TZyTableWorker(TZyTableSource Source, std::function<void()> OnAnswer)
    : FSource(std::move(Source)), FOnAnswer(std::move(OnAnswer)), FPostBox([this] { Posted(); }) {
  if (IsInMemory(FSource.Connection)) {
    FConnection = TSqlConnection::Share(FSource.Connection);
  } else {
    FThread = std::thread([this] { Execute(); });
  }
}

TZyTableWorker::~TZyTableWorker() {
  Stop();
  if (FThread.joinable()) FThread.join();
}

void TZyTableWorker::Stop() {
  {
    const std::lock_guard Lock(FMutex);
    FStops = true;
    FIsOutdated = true;
  }
  FChanged.notify_all();
}

void TZyTableWorker::Retire(std::unique_ptr<TZyTableWorker> Worker) {
  if (Worker == nullptr) return;
  // Made behind the texts and the toolkit's list of connections, so that they are there when it ends.
  LoadResString(_sDatabaseLost);
  static std::vector<std::unique_ptr<TZyTableWorker>> Retired;
  Worker->Stop();
  if (!Worker->FThread.joinable()) {  // a database in memory goes with the last who uses it
    Worker->FReader.reset();
    Worker->FConnection.reset();
  }
  Retired.push_back(std::move(Worker));
  std::erase_if(Retired, [](const std::unique_ptr<TZyTableWorker>& Each) {
    const std::lock_guard Lock(Each->FMutex);
    return (Each->FHasEnded || !Each->FThread.joinable()) && !Each->FIsAnswering;
  });
}

void TZyTableWorker::Ask(TZyTableQuestion Question) {
  const bool IsWhole = Question.Edges.empty();
  {
    const std::lock_guard Lock(FMutex);
    const bool IsRival = FIsRunning && FRunning.Edges.empty() == IsWhole;
    if (IsRival && !IsWhole && !IsPanned(FRunning, Question)) FIsOutdated = true;
    PlaceOf(IsWhole) = std::move(Question);
  }
  if (FThread.joinable()) {
    FChanged.notify_all();
  } else {
    FPostBox.Post();
  }
}

std::vector<TZyTableAnswer> TZyTableWorker::TakeAnswers() {
  const std::lock_guard Lock(FMutex);
  return std::exchange(FAnswers, {});
}

bool TZyTableWorker::IsBusy() const {
  const std::lock_guard Lock(FMutex);
  return FIsRunning || FWhole || FRange || !FAnswers.empty();
}

void TZyTableWorker::Wait() {
  std::unique_lock Lock(FMutex);
  if (FThread.joinable()) {
    FChanged.wait(Lock, [this] { return !FIsRunning && !FWhole && !FRange; });
  } else {
    while (Step(Lock)) {
    }
  }
}

void TZyTableWorker::Posted() {
  if (FStops) return;
  if (!FThread.joinable()) Wait();
  const TScopedValue<bool> Answering(FIsAnswering, true);
  FOnAnswer();
}

// --- The thread that asks -------------------------------------------------------------------------------------------

void TZyTableWorker::Execute() {
  std::unique_lock Lock(FMutex);
  while (true) {
    FChanged.wait(Lock, [this] { return FStops || FWhole || FRange; });
    if (FStops) break;
    Step(Lock);
  }
  Lock.unlock();
  FReader.reset();  // the connection belongs to this thread
  FConnection.reset();
  Lock.lock();
  FHasEnded = true;
}

/// Answers one of the questions that wait, the one for the whole table first. Whether there was one.
bool TZyTableWorker::Step(std::unique_lock<std::mutex>& Lock) {
  if (!FWhole && !FRange) return false;
  FRunning = *std::exchange(PlaceOf(FWhole.has_value()), {});
  FIsRunning = true;
  FIsOutdated = false;
  Lock.unlock();
  std::optional<TZyTableAnswer> Given = Answer(FRunning);  // nobody writes it while it runs
  Lock.lock();
  FIsRunning = false;
  const bool IsWanted = Given.has_value() && !FIsOutdated;
  if (IsWanted) FAnswers.push_back(std::move(*Given));
  FChanged.notify_all();
  if (IsWanted && FThread.joinable()) FPostBox.Post();
  return true;
}

std::optional<TZyTableAnswer> TZyTableWorker::Answer(const TZyTableQuestion& Question) {
  try {
    if (FConnection == nullptr) FConnection = TSqlConnection::Own(FSource.Connection);
    if (!FReader) FReader.emplace(*FConnection, FSource.Fields, FSource.Summary, FSource.Title);
    std::optional<TZyTableAnswer> Result = FReader->Answer(Question, [this] { return FIsOutdated.load(); });
    if (Result && !FHasTold) {
      FHasTold = true;
      Result->Notice = FReader->Notice(Result->Total.Count);
    }
    return Result;
  } catch (const std::exception& Error) {
    TZyTableAnswer Result;
    Result.Number = Question.Number;
    Result.IsWhole = Question.Edges.empty();
    Result.Error = Error.what();
    return Result;
  }
}

}  // namespace zy
