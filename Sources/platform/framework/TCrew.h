#pragma once

#include <functional>
#include <memory>

namespace zy {

/// Spreads work over the machine's processors, for as long as it lives. The threads that help are the program's: they
/// wait from one crew to the next, which is five times as quick as to start them, and are there from the first job on.
///
/// Work comes in jobs, and each is done once for every lane. Jobs of one lane follow each other in the order in which
/// they were posted, those of different lanes run at the same time: so a lane may be a part of a picture, into which
/// nobody else draws. Jobs must not throw, and must not touch components. Where the machine has one processor, or no
/// thread can be started, everything is done by the caller.
class TCrew {
 public:
  /// For so many lanes, at least one.
  explicit TCrew(int Lanes);
  TCrew(const TCrew&) = delete;
  TCrew& operator=(const TCrew&) = delete;
  /// Finishes first.
  ~TCrew();

  /// Has Job(Lane) called for each lane, at some time until Finish returns.
  void Post(std::function<void(int Lane)> Job);
  /// Takes part in what is left, and returns when all of it is done.
  void Finish();
  /// The same until at most so many jobs are unfinished.
  void FinishUpTo(int Jobs);

  /// Processors that the program may use, one at least.
  static int Processors();
  /// What Processors() answers from now on: for a program that keeps some for itself, and for tests; 0 for all that the
  /// machine has.
  static void SetProcessors(int Count);

 private:
  class TState;
  std::shared_ptr<TState> FState;
};

/// Calls Work for each piece of some, 0 to Pieces - 1, at the same time where the machine can; returns when all is
/// done. See TCrew for what Work may do.
void InParallel(int Pieces, const std::function<void(int Piece)>& Work);

}  // namespace zy
