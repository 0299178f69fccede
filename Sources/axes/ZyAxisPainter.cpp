#include "axes/ZyAxisPainter.h"

#include <algorithm>
#include <cmath>

#include "platform/drawing/Graphics.h"

namespace zy {

// --- Line and ticks -------------------------------------------------------------------------------------------------

float TZyAxisPainter::Placed(float Place) const { return FExact ? Place : std::round(Place); }

void TZyAxisPainter::PaintTicks(Graphics& Gr, const TZyAxisTicks& Ticks) const {
  const bool Grows = FGeometry.PointsOutwards() != FLook.TicksPointToData;
  const float Half = FLook.AxisThicknes / 2;
  const float Base = Grows ? std::ceil(FGeometry.Across() - Half) : std::floor(Half + FGeometry.Across());
  const float Sign = Grows ? 1 : -1;
  Pen TickPen(FLook.ForeColor, 1);
  for (const bool Major : {true, false}) {
    TickPen.SetColor(Major ? FLook.MajorTickColor : FLook.TickColor);
    TickPen.SetWidth(Major ? FLook.MajorTickThicknes : FLook.TickThicknes);
    const float End = Base + Sign * (Major ? FLook.MajorTickLength : FLook.TickLength);
    for (const TZyTick& Tick : Ticks.Ticks()) {
      if (Tick.Major != Major) continue;
      const float Place = Placed(Tick.Position);
      if (FGeometry.Horizontal()) {
        Gr.DrawLine(TickPen, Place, Base, Place, End);
      } else {
        Gr.DrawLine(TickPen, Base, Place, End, Place);
      }
    }
  }
}

void TZyAxisPainter::PaintLine(Graphics& Gr, const TZyAxisArrowPoint& Arrow) const {
  constexpr float LengthsOfArrow = 3;
  Pen LinePen(FLook.ForeColor, FLook.AxisThicknes);
  const float Line = Placed(FGeometry.Across());
  float First = FGeometry.Along();  // the left or the upper end
  float Last = First + FGeometry.Length;
  const SmoothingMode Saved = Gr.GetSmoothingMode();
  if (Arrow.Visible()) {
    const float Beyond = LengthsOfArrow * Arrow.PointLength();
    const auto Cap = ArrowPointCap(Arrow);
    if (FGeometry.Forward()) {
      Last += Beyond;
      LinePen.SetCustomEndCap(*Cap);
    } else {
      First -= Beyond;
      LinePen.SetCustomStartCap(*Cap);
    }
    Gr.SetSmoothingMode(SmoothingModeHighQuality);
  }
  if (FGeometry.Horizontal()) {
    Gr.DrawLine(LinePen, First, Line, Last, Line);
  } else {
    Gr.DrawLine(LinePen, Line, First, Line, Last);
  }
  if (Arrow.Visible()) Gr.SetSmoothingMode(Saved);
}

// --- Caption --------------------------------------------------------------------------------------------------------

float& DistanceNumbersCaptionOf(TZyAxisLook& Look, const TZyAxisGeometry& Geometry) {
  return Geometry.PointsOutwards() ? Look.CaptionDistanceBefore : Look.CaptionDistanceAfter;
}

float& DistanceToBorderOf(TZyAxisLook& Look, const TZyAxisGeometry& Geometry) {
  return Geometry.PointsOutwards() ? Look.CaptionDistanceAfter : Look.CaptionDistanceBefore;
}

float DistanceNumbersCaptionOf(const TZyAxisLook& Look, const TZyAxisGeometry& Geometry) {
  return Geometry.PointsOutwards() ? Look.CaptionDistanceBefore : Look.CaptionDistanceAfter;
}

float DistanceToBorderOf(const TZyAxisLook& Look, const TZyAxisGeometry& Geometry) {
  return Geometry.PointsOutwards() ? Look.CaptionDistanceAfter : Look.CaptionDistanceBefore;
}

bool CaptionIsTurned(const TZyAxisGeometry& Geometry, const TZyAxisLook& Look) {
  return !Geometry.Horizontal() && !Look.CaptionHorizontalOnVerticalAxis;
}

void PlaceAxisCaption(TZyRichCaptionObject& Caption, const TZyAxisGeometry& Geometry, const TZyAxisLook& Look,
                      const TZyAxisLabels& Labels) {
  Caption.ParseIfNeeded();
  const float Numbers =
      Look.NumbersVisible ? DistanceNumbersCaptionOf(Look, Geometry) + Labels.Reach(Geometry, Look) : 0;
  const float Base = LabelBase(Geometry, Look);
  const bool Outwards = Geometry.PointsOutwards(), Horizontal = Geometry.Horizontal();
  const float Across = Outwards ? Base + Numbers : Base - Numbers;
  const int Where = Look.CaptionAlignment == TAlignment::taLeftJustify ? 0
                    : Look.CaptionAlignment == TAlignment::taCenter    ? 1
                                                                       : 2;
  const float Part = Geometry.Length * static_cast<float>(Where) / 2;
  const bool Turned = CaptionIsTurned(Geometry, Look);
  Caption.Angle = Turned ? 90 : 0;
  Caption.X = Horizontal ? Geometry.Left + Part : Across;
  Caption.Y = Horizontal ? Across : Geometry.Top + Geometry.Length - Part;
  // Nine places in rows from top to bottom. A text along the axis puts one edge at the numbers and runs along; a
  // horizontal one on a vertical axis puts a side there, and its bottom at the lower end.
  int Row = 2 - Where, Column = Outwards ? 0 : 2;
  if (Horizontal || Turned) {
    Row = Outwards ? 0 : 2;
    Column = Where;
  }
  Caption.Alignment = static_cast<TZyContentAlignment>(3 * Row + Column);
}

float RoomAcross(const TZyAxisGeometry& Geometry, const TZyAxisLook& Look, const TZyAxisLabels& Labels,
                 float CaptionRoom) {
  float Room = std::ceil(Look.AxisThicknes / 2) + DistanceToBorderOf(Look, Geometry) + Look.MajorTickLength;
  if (Labels.Room() > 0) Room += Look.DistanceAxisLabels + Labels.Reach(Geometry, Look);
  if (CaptionRoom > 0)
    Room += CaptionRoom + (Labels.Room() > 0 ? DistanceNumbersCaptionOf(Look, Geometry) : Look.DistanceAxisLabels);
  if (const float Power = Labels.ExponentReach(Geometry, Look); Power > 0)
    Room = std::max(Room, Look.AxisThicknes + Look.MajorTickLength + Look.DistanceAxisLabels + Power);
  return std::ceil(std::max(Room, 0.0f));
}

}  // namespace zy
