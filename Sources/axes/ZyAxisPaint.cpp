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
  FExtraExponentRec.PaintGr(Gr);
}

/// A tick starts on the side of the axis line away from which it points, and the line covers its root.
void TZyAxis::PaintTicks(Graphics& Gr) const {
  const bool Grows = PointsOutwards() != FTicksPointToData;
  const float Origin = GetHorizontal() ? FAxTop : FAxLeft;
  const float Half = FAxisThicknes / 2;
  const float Base = Grows ? std::ceil(Origin - Half) : std::floor(Half + Origin);
  const float Sign = Grows ? 1 : -1;
  const TZyGraph2D* const Chart = Graph();
  const bool Exact = Chart != nullptr && Chart->DoingMetafile();
  Pen TickPen(FForeColor, 1);
  const auto DrawAll = [&](bool Major) {
    TickPen.SetColor(Major ? FMajorTickColor : FTickColor);
    TickPen.SetWidth(Major ? FMajorTickThicknes : FTickThicknes);
    const float End = Base + Sign * (Major ? FMajorTickLength : FTickLength);
    for (std::size_t Index = 0; Index < FTicks.size(); ++Index) {
      if (FMajorTick[Index] != Major) continue;
      const float Pos = Exact ? FTicks[Index] : std::round(FTicks[Index]);
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

/// An arrow lengthens the line beyond the end to which the values grow.
void TZyAxis::PaintLine(Graphics& Gr) const {
  Pen LinePen(FForeColor, FAxisThicknes);
  const TZyGraph2D* const Chart = Graph();
  const bool Exact = Chart != nullptr && Chart->DoingMetafile();
  const float Across = GetHorizontal() ? FAxTop : FAxLeft;
  const float Line = Exact ? Across : std::round(Across);
  float First = GetHorizontal() ? FAxLeft : FAxTop;  // the left or the upper end
  float Last = First + FAxLength;
  const bool HasArrow = FArrowPoint.Visible();
  const SmoothingMode Saved = Gr.GetSmoothingMode();
  if (HasArrow) {
    const float Beyond = 3 * FArrowPoint.PointLength();
    const auto Cap = ArrowPointCap(FArrowPoint);
    if (GetHorizontal() != FTwisted) {
      Last += Beyond;
      LinePen.SetCustomEndCap(*Cap);
    } else {
      First -= Beyond;
      LinePen.SetCustomStartCap(*Cap);
    }
    Gr.SetSmoothingMode(SmoothingModeHighQuality);
  }
  if (GetHorizontal()) {
    Gr.DrawLine(LinePen, First, Line, Last, Line);
  } else {
    Gr.DrawLine(LinePen, Line, First, Line, Last);
  }
  if (HasArrow) Gr.SetSmoothingMode(Saved);
}

/// Room of the caption on the screen, across a horizontal axis.
float TZyAxis::CaptionHeight() const {
  if (!FCaptionVisible || FCaptionRec.Caption().empty()) return 0;
  return CaptionIsTurned() ? FCaptionRec.Width() : FCaptionRec.Height();
}

/// The same across a vertical axis.
float TZyAxis::CaptionWidth() const {
  if (!FCaptionVisible || FCaptionRec.Caption().empty()) return 0;
  return CaptionIsTurned() ? FCaptionRec.Height() : FCaptionRec.Width();
}

}  // namespace zy
