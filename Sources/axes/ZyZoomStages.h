#pragma once

#include <vector>

#include "axes/ZyAxisTypes.h"

namespace zy {

/// The ranges that an axis was zoomed to, one after the other, and which of them is shown. The first one, 0, is the
/// range before all zooming; without it there are none.
class TZyZoomStages {
 public:
  bool empty() const { return FRanges.empty(); }
  int Count() const { return static_cast<int>(FRanges.size()); }
  /// Index of the stage that is shown; 0 without stages.
  int Current() const { return FCurrent; }
  /// Stage 0. There is one.
  const TZyAxisRange& Whole() const { return FRanges.front(); }

  const std::vector<TZyAxisRange>& Ranges() const { return FRanges; }
  /// Takes over stages that were stored; Current is the index of one of them.
  void Take(std::vector<TZyAxisRange> Ranges, int Current);
  /// Makes a range stage 0, unless there are stages.
  void Begin(const TZyAxisRange& Whole);
  /// Adds a stage behind the one that is shown, and shows it; later ones are gone. There is a stage 0.
  void Push(const TZyAxisRange& Range);
  void Clear();
  /// Index of the stage before or behind the one that is shown, around the ends of the list. There are stages.
  int Before() const { return FCurrent > 0 ? FCurrent - 1 : Count() - 1; }
  int Behind() const { return FCurrent + 1 < Count() ? FCurrent + 1 : 0; }
  /// Shows a stage, 0 to Count - 1, and returns its range.
  const TZyAxisRange& Show(int Stage);

 private:
  std::vector<TZyAxisRange> FRanges;
  int FCurrent = 0;
};

}  // namespace zy
