#pragma once

#include "series/ZySeries.h"

namespace zy {

/// A curve that a function series owns as its second one, such as the phase beside the amplitude. Its data and its X
/// axis are those of its owner.
class TZyChildSeries : public TZySeries {
  ZY_CLASS(TZyChildSeries, TZySeries)
  explicit TZyChildSeries(TComponent* Owner = nullptr);

  using TZySeries::OnGetPointSymbol;
  using TZySeries::PointSymbol;
  using TZySeries::SetOnGetPointSymbol;

  /// Follows the owner, and so is no step of undo.
  void SetXAxis(TZyAxis* Value) override;
  /// The Y axis that the owner gives it because it has none, which is no step either.
  void TakeYAxis(TZyAxis* Value);
};

}  // namespace zy
