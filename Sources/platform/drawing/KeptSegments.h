#pragma once

#include <cstdint>
#include <vector>

#include "platform/drawing/Matrix.h"
#include "platform/drawing/ZyRaster.h"

namespace zy {

/// What Graphics::DrawSegments keeps of very many lines from one picture to the next, so that drawing the same lines
/// once more costs only their pixels. Whoever has one clears it when the lines are others; what else it depends on, it
/// knows.
class TKeptSegments {
 public:
  void Clear() { FIsMade = false; }

 private:
  friend class TPainterBackend;

  /// What the sums depend on beside the lines.
  struct TLook {
    Matrix Device;
    TRasterRect Box;
    float Width = 0;
    std::uint8_t Alpha = 0;
    bool operator==(const TLook& Other) const;
  };

  bool FIsMade = false;
  TLook FLook;
  std::vector<std::uint16_t> FSums;  // see TRasterSum
};

}  // namespace zy
