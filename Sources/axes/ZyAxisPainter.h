#pragma once

#include "annotations/captions/ZyRichCaption.h"
#include "axes/ZyAxisLabels.h"
#include "axes/ZyAxisLook.h"
#include "axes/ZyAxisTicks.h"
#include "graph/styles/ZyArrowSettings.h"

namespace zy {

class Graphics;

/// Draws the line of an axis and its ticks, in the coordinates of the control.
class TZyAxisPainter {
 public:
  /// Exact says that places keep their fractions, as on paper. Geometry and look outlive this object.
  TZyAxisPainter(const TZyAxisGeometry& Geometry, const TZyAxisLook& Look, bool Exact)
      : FGeometry(Geometry), FLook(Look), FExact(Exact) {}

  /// A tick starts on the side of the axis line away from which it points, and the line covers its root.
  void PaintTicks(Graphics& Gr, const TZyAxisTicks& Ticks) const;
  /// An arrow lengthens the line beyond the end to which the values grow.
  void PaintLine(Graphics& Gr, const TZyAxisArrowPoint& Arrow) const;

 private:
  float Placed(float Place) const;

  const TZyAxisGeometry& FGeometry;
  const TZyAxisLook& FLook;
  bool FExact;
};

/// Distance between numbers and caption, and between the caption and the border of the control: above or below it, by
/// the side at which the axis stands.
float& DistanceNumbersCaptionOf(TZyAxisLook& Look, const TZyAxisGeometry& Geometry);
float& DistanceToBorderOf(TZyAxisLook& Look, const TZyAxisGeometry& Geometry);
float DistanceNumbersCaptionOf(const TZyAxisLook& Look, const TZyAxisGeometry& Geometry);
float DistanceToBorderOf(const TZyAxisLook& Look, const TZyAxisGeometry& Geometry);

/// The caption stands behind the numbers, at one end of the axis line or at its middle.
void PlaceAxisCaption(TZyRichCaptionObject& Caption, const TZyAxisGeometry& Geometry, const TZyAxisLook& Look,
                      const TZyAxisLabels& Labels);
/// Whether it runs along a vertical axis.
bool CaptionIsTurned(const TZyAxisGeometry& Geometry, const TZyAxisLook& Look);

/// Room across an axis in whole pixels: of its line and ticks, its numbers and its caption, which takes CaptionRoom.
float RoomAcross(const TZyAxisGeometry& Geometry, const TZyAxisLook& Look, const TZyAxisLabels& Labels,
                 float CaptionRoom);

}  // namespace zy
