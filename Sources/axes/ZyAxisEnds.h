#pragma once

#include <limits>
#include <optional>
#include <vector>

#include "axes/ZyEndRounding.h"

namespace zy {

/// The ends of an axis: those that are shown, where they come from, and what the data say.
class TZyAxisEnds {
 public:
  // ---- The ends that are shown ----

  double Start() const { return FShown.Start; }
  double Stop() const { return FShown.Stop; }
  const TZyAxisRange& Shown() const { return FShown; }
  /// The ends last set by the user.
  const TZyAxisRange& Initial() const { return FInitial; }
  /// An end that the user sets.
  void SetStart(double Value) { FShown.Start = FInitial.Start = FLast.Start = Value; }
  void SetStop(double Value) { FShown.Stop = FInitial.Stop = FLast.Stop = Value; }
  /// Ends that a zoom sets: those that the user set stay known.
  void Show(const TZyAxisRange& Range) { FShown = FLast = Range; }
  /// The same, and the ends stay as they are, off the ticks, until others are shown or the data change.
  void ShowExactly(const TZyAxisRange& Range);
  bool AreExact() const { return FExact == FShown; }
  /// All that is known of an end, for undo: a setter stores the end alone, and forgets what it rested on.
  using TEnd = double TZyAxisRange::*;
  std::vector<double> StateOf(TEnd End) const {
    return {FShown.*End, FInitial.*End, FLast.*End, FAsked.*End, FRounded.*End};
  }
  void SetStateOf(TEnd End, const std::vector<double>& State);
  /// The same as Show for those of the two that lie in the data, as long as that leaves a span.
  void ShowInData(const TZyAxisRange& Range);
  /// A record was read. Values is the range of the data as it was stored with the ends; none for a record that left the
  /// ends alone. Ends that were laid out over data before they were stored, or padded, stay exactly: they would be
  /// padded once more, and rounded from elsewhere. No data wait.
  void TakeStored(const std::optional<TZyAxisRange>& Values);

  /// What the user decides; a moving range writes its width and its step here when they were left open.
  TZyEndRules Rules;
  /// What rounding rests on changed: ends that were shown exactly are rounded again.
  void DropExact() { FExact.reset(); }

  // ---- Data ----

  /// Range of the data; a start above the stop while none were seen.
  const TZyAxisRange& Values() const { return FValues; }
  /// Sample data that were never seen count as lying between the ends that are shown.
  void TakeValuesAsShown();
  bool HasValues() const { return FValues.Start < FValues.Stop; }
  /// The data changed: the next range of theirs is taken, whatever it is.
  void DataChanged();
  /// Whether a range of data waits to be taken.
  bool Waits() const { return FWaits; }
  /// Whether a range of data lies in the one that was taken last, or is that very one; what is none stands for no data.
  /// A fixed end is as good as any.
  bool Knows(const TZyAxisRange& Data, bool Exactly) const;
  /// Takes the range of the data, and returns the ends that follow from it; nothing when it is as before. A range that
  /// is none stands for no data. While a form is designed nothing moves by itself.
  std::optional<TZyAxisRange> TakeData(const TZyAxisRange& Data, bool IsDesigning);
  /// Shows ends that follow from data, Taken, as they are rounded; false when these are the same as the last time.
  bool ShowTaken(const TZyAxisRange& Taken, const TZyAxisRange& Rounded);
  /// Goes back to the ends as they were before rounding, where they follow the data.
  void Unround();
  /// Whether data lie beyond the ends, other than those that were fixed. Steps are those of the kind.
  bool IsClipped(const TZyScaleKind& Kind, const TZyAxisSteps& Steps) const;
  /// Start of the data when that is above 0, else 0.
  double FirstPositive() const;

  // ---- Rounding ----

  /// The rounding is out of date.
  void Invalidate() {
    FIsRounded = false;
    ++FInvalidations;
  }
  /// Rounding has shown ends that follow from data: the next layout, which would begin with the same ones, need not
  /// round them once more, unless it pads them.
  void Settle(const TZyEndRounding& Rounding);
  /// Rounds the ends where that was not done, or for another length. An end that still is what the last rounding, and
  /// padding, made of it is rounded again from where it was asked for: a change of anything else must not make an axis
  /// grow.
  void Round(const TZyEndRounding& Rounding);
  /// Shows the ends of a master, with the steps that rounding finds for them; rounding itself would move them off the
  /// master's.
  void Follow(const TZyAxisRange& Master, const TZyEndRounding& Rounding);

 private:
  void TakeMovingSlit(TZyAxisRange& Ends);
  /// The ends that are shown, before they were rounded.
  TZyAxisRange Asked() const;
  bool Pads() const { return Rules.StartPadding > 0 || Rules.StopPadding > 0; }

  static constexpr double Largest = std::numeric_limits<double>::max();

  TZyAxisRange FShown{0, 10};
  TZyAxisRange FInitial{0, 10};
  TZyAxisRange FLast{0, 10};  // last taken from data
  // Before and after the last rounding, and whether that was one of a zoomed axis.
  TZyAxisRange FAsked{0, 10}, FRounded{0, 10};
  bool FRoundedZoomed = false;
  std::optional<TZyAxisRange> FExact;
  TZyAxisRange FValues{Largest, -Largest};
  bool FWaits = false;
  bool FIsRounded = false;
  unsigned FInvalidations = 0;
  double FRoundedLength = 0;  // of the labels' room at the last rounding
};

}  // namespace zy
