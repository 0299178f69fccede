#pragma once

namespace zy {

class TControl;

/// A parent of markers that hears of their moves, beside the handlers of their events and behind these.
class IZyMarkerListener {
 public:
  virtual ~IZyMarkerListener() = default;
  /// A marker moves, or IsOver, has moved. Whoever hears of it may free the marker.
  virtual void MarkerMoves(TControl& Marker, bool IsOver) = 0;
};

}  // namespace zy
