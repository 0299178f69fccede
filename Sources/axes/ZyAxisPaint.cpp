// Painting of an axis: ticks, line, labels and caption.

#include <cmath>

#include "axes/ZyAxis.h"
#include "graph/ZyGraph2D.h"
#include "platform/drawing/Graphics.h"

namespace zy {

void TZyAxis::Paint(Graphics& Gr) {
  if (Graph() == nullptr) PaintGr(Gr);
}

void TZyAxis::PaintGr(Graphics& Gr) {
  if (LayoutRunning) return;
  if (FNeedsRecalculate) Calculate();
  PaintTicks(Gr);
  PaintLine(Gr);
  if (FNumbersVisible)
    for (const auto& Label : FAxLabels) Label->PaintGr(Gr);
  if (FCaptionVisible) FCaptionRec.PaintGr(Gr);
}

/// A tick starts on the side of the axis line away from which it points, and the line covers its root.
void TZyAxis::PaintTicks(Graphics& Gr) const {
  const bool Grows = PointsOutwards() != FTicksPointToData;
  const float Origin = GetHorizontal() ? FAxTop : FAxLeft;
  const float Half = FAxisThicknes / 2;
  const float Base = Grows ? std::ceil(Origin - Half) : std::floor(Half + Origin);
  const float Sign = Grows ? 1 : -1;
  Pen TickPen(FForeColor, 1);
  const auto DrawAll = [&](bool Major) {
    TickPen.SetColor(Major ? FMajorTickColor : FTickColor);
    TickPen.SetWidth(Major ? FMajorTickThicknes : FTickThicknes);
    const float End = Base + Sign * (Major ? FMajorTickLength : FTickLength);
    for (std::size_t Index = 0; Index < FTicks.size(); ++Index) {
      if (FMajorTick[Index] != Major) continue;
      const float Pos = std::round(FTicks[Index]);
      if (GetHorizontal()) {
        Gr.DrawLine(TickPen, Pos, Base, Pos, End);
      } else {
        Gr.DrawLine(TickPen, Base, Pos, End, Pos);
      }
    }
  };
  DrawAll(true);
  DrawAll(false);
}

void TZyAxis::PaintLine(Graphics& Gr) const {
  const Pen LinePen(FForeColor, FAxisThicknes);
  if (GetHorizontal()) {
    const float Y = std::round(FAxTop);
    Gr.DrawLine(LinePen, FAxLeft, Y, FAxLeft + FAxLength, Y);
  } else {
    const float X = std::round(FAxLeft);
    Gr.DrawLine(LinePen, X, FAxTop, X, FAxTop + FAxLength);
  }
}

/// Room of the caption across the axis.
float TZyAxis::CaptionExtent() const {
  return FCaptionVisible && !FCaptionRec.Caption().empty() ? FCaptionRec.Height() : 0;
}

}  // namespace zy
