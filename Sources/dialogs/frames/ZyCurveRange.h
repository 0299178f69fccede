#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "annotations/ZyLineMarkers.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

class TZyFunctionSeries;

/// Two markers on a chart by which the user sets the range of a curve's calculation or of its display. What is dragged
/// from Begin to End is one step.
class TZyCurveRange {
 public:
  explicit TZyCurveRange(TComponent& Owner) : FOwner(Owner) {}

  /// Shows the markers at the ends of a range of a curve that stands on a chart. Moved runs behind each change.
  void Begin(TZyFunctionSeries& Curve, bool IsDisplay, std::function<void()> Moved);
  /// Hides them, and ends the step. Nothing when there is none.
  void End();
  bool IsActive() const { return FGroup.has_value(); }
  bool IsDisplay() const { return FIsDisplay; }
  /// Takes the ends of the range, which may have changed otherwise.
  void Show();

 private:
  TZyFunctionSeries* Curve() const;
  void MarkerMoved();

  TComponent& FOwner;
  std::unique_ptr<TZyVerticalMarker> FMarkers[2];
  std::optional<TZyUndoGroup> FGroup;
  std::function<void()> FMoved;
  std::uint64_t FCurve = 0;  // live handle
  bool FIsDisplay = false;
  bool FCanSet = true;
};

}  // namespace zy
