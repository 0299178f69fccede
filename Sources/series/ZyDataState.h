#pragma once

#include <algorithm>

namespace zy {

/// What of a series is out of date: how many of its points the ranges describe, how many the pixels show, and whether
/// the pixels have to be computed.
///
/// Points that come are taken up where the last ones ended. Whatever shrinks is clamped at once, so that no count ever
/// lies beyond the data.
class TZyDataState {
 public:
  /// Points of the series as of the last time that it counted them.
  int Count() const { return FCount; }
  /// Those that the ranges describe.
  int LastCount() const { return FLastCount; }
  /// Those that the pixels show.
  int LastPointsCount() const { return FLastPointsCount; }
  bool PixelsAreStale() const { return FPixelsAreStale; }

  void SetCount(int Value) { FCount = Value; }
  /// Lowers what ranges and pixels know, never raises it.
  void SetLastCount(int Value) {
    FLastCount = std::min(FLastCount, Value);
    FLastPointsCount = std::min(FLastPointsCount, FLastCount);
  }
  /// The pixels of the points from Index on are taken once more with the next ones.
  void TakePixelsFrom(int Index) { FLastPointsCount = std::min(FLastPointsCount, Index); }
  /// Only so many points are left. Whether there were more.
  bool Shrink(int Value) {
    if (Value >= FCount) return false;
    FCount = Value;
    FLastCount = 0;
    PixelsModified();
    return true;
  }
  /// Begins anew.
  void Reset() {
    FCount = FLastCount = 0;
    PixelsModified();
  }
  /// All pixels are out of date.
  void PixelsModified() { PixelsModifiedFrom(0); }
  /// Those of the points from Index on are.
  void PixelsModifiedFrom(int Index) {
    TakePixelsFrom(Index);
    FPixelsAreStale = true;
    ++FChanges;
  }
  /// The ranges describe all points, and the pixels of the new ones are due.
  void RangesTaken() {
    FLastCount = FCount;
    FPixelsAreStale = true;
  }
  /// Points that the ranges do not know yet are taken once more with the next ones.
  void PixelsTaken() {
    FLastPointsCount = std::min(FCount, FLastCount);
    FPixelsAreStale = false;
  }
  /// How often pixels were told to be out of date. A run that computes them and finds another number at its end was
  /// overtaken by what its handlers did.
  unsigned Changes() const { return FChanges; }

 private:
  int FCount = 0;
  int FLastCount = 0;
  int FLastPointsCount = 0;
  unsigned FChanges = 0;
  bool FPixelsAreStale = false;
};

}  // namespace zy
