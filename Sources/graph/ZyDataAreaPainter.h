#pragma once

#include "graph/styles/ZyGradientSettings.h"
#include "graph/styles/ZyLineSettings.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/GraphicsBackend.h"

namespace zy {

class Graphics;
class IZySolidSeries;
class Pen;
class TZyAxis;

/// What the data area of a chart looks like.
struct TZyDataAreaLook {
  RectF Area;  // in client pixels; width and height count one pixel more than the distance between the edges
  TZyColor Color;
  TZyColor BackColor;  // of the chart
  TZyGradientSettings& Gradient;
  TZyLineSettings &Frame, &MajorHorizontal, &MinorHorizontal, &MajorVertical, &MinorVertical;
  const TZyAxis &X, &Y;         // whose ticks the grid lines stand on
  SmoothingMode Smoothing;      // of what is smoothed at all
  bool HasAxisAtRight = false;  // any of the chart's
  bool KeepsFractions = false;  // grid lines for a printer or a file; on the screen they lie on whole pixels

  bool HasGrid() const;
};

/// Draws the data area for one paint: its ground, the grids, the frame. Series that are drawn as solids make it a room,
/// with a wall at the back, one at the side and a floor.
class TZyDataAreaPainter {
 public:
  /// Solids may be null. Look must outlive the painter.
  TZyDataAreaPainter(Graphics& Gr, const TZyDataAreaLook& Look, IZySolidSeries* Solids);

  void PaintGround() const;
  void PaintVerticalGrid() const;
  void PaintHorizontalGrid() const;
  void PaintFrame() const;

 private:
  bool HasOwnColor() const { return FLook.Color != FLook.BackColor; }
  void PaintWalls() const;
  void PaintRoomEdges(const Pen& EdgePen) const;
  float GridPlace(float Tick) const;
  void Smooth(bool On) const;

  Graphics& FGr;
  const TZyDataAreaLook& FLook;
  bool FIsRoom = false;
  float FDepthX = 0;  // pixels from the front to the back
  float FDepthY = 0;
  float FFloor = 0;  // where floor and side wall meet the front
  float FWall = 0;
};

}  // namespace zy
