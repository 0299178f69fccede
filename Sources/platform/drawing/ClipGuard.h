#pragma once

#include "platform/drawing/Graphics.h"
#include "platform/drawing/Region.h"

namespace zy {

/// Gives a canvas its present clip back when a block is left, however that happens.
class TClipGuard {
 public:
  explicit TClipGuard(Graphics& Gr) : FGr(Gr), FClip(Gr.GetClip()) {}
  ~TClipGuard() { FGr.SetClip(FClip); }
  TClipGuard(const TClipGuard&) = delete;
  TClipGuard& operator=(const TClipGuard&) = delete;

 private:
  Graphics& FGr;
  Region FClip;
};

}  // namespace zy
