#pragma once

#include "platform/drawing/Graphics.h"

namespace zy {

/// Lets a canvas gather thin lines until a block is left; see Graphics::GatherLines.
class TLineGatherer {
 public:
  explicit TLineGatherer(Graphics& Gr) : FGr(Gr) { FGr.GatherLines(true); }
  ~TLineGatherer() { FGr.GatherLines(false); }
  TLineGatherer(const TLineGatherer&) = delete;
  TLineGatherer& operator=(const TLineGatherer&) = delete;

 private:
  Graphics& FGr;
};

}  // namespace zy
