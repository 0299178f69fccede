#pragma once

#include "graph/ZyColors.h"
#include "platform/drawing/Pen.h"

namespace zy {

/// The pen of all line settings.
class TZyPen : public Pen {
 public:
  using Pen::Pen;
  TZyColor Color() const { return GetColor(); }
  float Width() const { return GetWidth(); }
  TDashStyle DashStyle() const { return GetDashStyle(); }
};

}  // namespace zy
