#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/drawing/ZyRaster.h"
#include "platform/framework/TCrew.h"

namespace zy {

/// Thin lines that are gathered and drawn by all processors, while the caller prepares more of them: each draws the
/// lines, one after the other, in columns of its own. The pixels are those of TZyRaster::ThinLine.
///
/// Short queues are drawn by the caller alone. Some megabytes of memory at most are kept for the next ones.
class TRasterThinQueue {
 public:
  TRasterThinQueue();
  TRasterThinQueue(const TRasterThinQueue&) = delete;
  TRasterThinQueue& operator=(const TRasterThinQueue&) = delete;
  ~TRasterThinQueue();

  /// As TZyRaster::ThinLine, at some time until Finish returns. Color is premultiplied, Clip lies within the target,
  /// which stays the same until then and is drawn into by nobody else.
  void Add(const TRasterTarget& Target, const TRasterRect& Clip, std::uint32_t Color, std::span<const PointF> Points,
           TRasterCap Cap);
  bool IsEmpty() const { return FNext == nullptr && !FCrew; }
  void Finish();

 private:
  struct TBlock;

  void PostBlock();

  TRasterTarget FTarget;
  std::vector<std::unique_ptr<TBlock>> FBlocks;  // all that were made
  TBlock* FNext = nullptr;                       // the one that is filled
  int FLanes = 1;
  std::optional<TCrew> FCrew;
};

}  // namespace zy
