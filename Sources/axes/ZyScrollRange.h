#pragma once

#include <functional>
#include <optional>

#include "axes/ZyAxisTransform.h"

namespace zy {

/// The visible range of an axis within the whole one that scrolling and panning may show, both as places on the scale.
class TZyScrollRange {
 public:
  TZyScrollRange(const TZyAxisTransform& Transform, const TZyAxisRange& Shown, const TZyAxisRange& Whole)
      : FTransform(Transform),
        FWhole(Whole),
        FShownStart(Transform.ToScale(Shown.Start)),
        FShownStop(Transform.ToScale(Shown.Stop)),
        FLow(Transform.ToScale(Whole.Start)),
        FHigh(Transform.ToScale(Whole.Stop)) {}

  /// Length of the whole range; that of the visible one where there is none.
  double WholeLength() const { return FHigh - FLow > 0 ? FHigh - FLow : ShownLength(); }
  double ShownLength() const { return FShownStop - FShownStart; }
  /// A range and a place in units of a scroll bar whose 10000 are the whole range. The place may lie outside.
  int SizeOnBar(double Start, double Stop) const;
  int PositionOnBar(double Value) const;

  /// Rounds a start, where starts are rounded.
  using TRound = std::function<double(double Start)>;
  /// The range moved by a distance on the scale, as far as the whole one reaches; nothing when that is no range.
  std::optional<TZyAxisRange> MovedBy(double Distance, const TRound& Round) const;
  /// A range scaled around a place that stays where it is, as far as the whole one reaches. Nothing when its span is
  /// too small to be drawn.
  std::optional<TZyAxisRange> ScaledAround(double Start, double Stop, double Fixed, double Factor) const;

 private:
  const TZyAxisTransform FTransform;
  const TZyAxisRange FWhole;
  double FShownStart, FShownStop;
  double FLow, FHigh;
};

}  // namespace zy
