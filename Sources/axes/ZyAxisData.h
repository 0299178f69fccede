#pragma once

#include "axes/ZyAxisTypes.h"
#include "graph/parts/ZyAxisSeries.h"
#include "platform/framework/TRefList.h"

namespace zy {

/// The data of an axis: what its series hold in its direction.
class TZyAxisData {
 public:
  /// A view of a list, which outlives it.
  TZyAxisData(const TRefList<IZyAxisSeries>& Series, bool Horizontal) : FSeries(Series), FHorizontal(Horizontal) {}

  bool empty() const { return FSeries.empty(); }
  /// The range of all visible series; a start above the stop when there is none.
  TZyAxisRange Range() const;
  /// The smallest value above 0 of all data that lies below Stop; 0 when there is none.
  double SmallestPositiveBelow(double Stop) const;

  // ---- While a form is designed ----

  /// Scales the sample data so that a range of values comes to lie where another one is.
  void RescaleSamples(const TZyAxisRange& From, const TZyAxisRange& To) const;
  /// Scales the sample data of all series but the first, so that none lies on top of another.
  void SpreadSamples(double Start) const;

 private:
  const TRefList<IZyAxisSeries>& FSeries;
  bool FHorizontal;
};

}  // namespace zy
