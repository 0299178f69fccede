#pragma once

#include <span>
#include <vector>

#include "pie/ZyPieTypes.h"

namespace zy {

/// What decides the shape of a pie. Angles are degrees, clockwise from the x axis: 90 points down, to the viewer's side
/// of a solid.
struct TZyPieShape {
  TZyPieChartType Type = TZyPieChartType::FlatPie;
  float StartAngle = 0;
  float TotalAngle = 360;  ///< that the segments share
  float Elevation = 50;    ///< of solids: height of the ellipse in percent of its width
  float PieHeight = 10;    ///< of solids: height of the wall in percent of the ellipse's width
  float HoleSize = 35;     ///< of donuts: hole in percent of the pie
  bool DropShadow = true;

  bool Is3D() const { return Type == TZyPieChartType::ThreeDPie || Type == TZyPieChartType::ThreeDDonut; }
  bool IsDonut() const { return Type == TZyPieChartType::FlatDonut || Type == TZyPieChartType::ThreeDDonut; }
  /// Height of the ellipse by its width.
  float Squeeze() const { return Is3D() ? Elevation * 0.01f : 1; }
};

/// A segment as it was computed; angles are clockwise from the x axis.
struct TZyPieSegment {
  int DataIndex = 0;
  double Value = 0;      ///< transformed
  double Explosion = 0;  ///< percent of the radius by which it is to move out
  float Sweep = 0;       ///< degrees
  float Start = 0;
  PointF Shift{};  ///< by which it has moved out

  float Stop() const { return Start + Sweep; }
  float Middle() const { return Start + Sweep / 2; }
};

/// The line that leads from a label in a box to its segment.
struct TZyPieCallout {
  PointF Start;  ///< on the rim
  PointF Bent;   ///< where the box stood before it made room for others
  bool Overlayed = false;
};

/// How the boxes of callouts are; lengths as TZyPieChart publishes them.
struct TZyCalloutLook {
  float LabelSize = 3.5f;   ///< font size in percent of the pie's width
  float DistanceToPie = 0;  ///< in percent of the font size, counted from a diameter, as all that follow
  float SpaceToBorder = 0;  ///< 0 for a box that shows nothing but its text
};

/// By how much of the pie's width things stick out at its sides.
struct TZyPieOverhangs {
  float Left = 0;
  float Top = 0;
  float Right = 0;
  float Bottom = 0;
};

/// Turns values into the angles, places and order of the segments of a pie and of their labels.
///
/// All is computed in units of the radius, with the middle of the pie at the origin and y down, since the size of a pie
/// depends on how far its labels stick out; FitInto brings all into pixels at the end. The order of the calls is that
/// of the operations below.
class TZyPieCalculation {
 public:
  explicit TZyPieCalculation(const TZyPieShape& Shape);

  /// Appends a segment. A sweep that is no number, as after a total of nothing, leaves it out.
  void Add(int DataIndex, double Value, double Sweep, double Explosion);
  /// Sorts the segments by their sweeps if asked for, and gives them their angles, shifts and drawing order.
  void Arrange(bool OrderAscending);
  /// Labels on the segments.
  void PlaceInside();
  /// Labels in boxes around the pie, as close to it as they can stand, pushed apart where they overlap. Extents are
  /// those of the texts by the size of their font.
  void PlaceCallouts(const TZyCalloutLook& Look, std::span<const SizeF> Extents);
  /// Makes the pie as large as the space allows, in the middle of it. Nothing is ever larger than the space; without
  /// any, the pie has no extent.
  void FitInto(const RectF& Space);

  const std::vector<TZyPieSegment>& Segments() const { return FSegments; }
  /// Segments as they are drawn, from the back to the front.
  const std::vector<int>& Order() const { return FOrder; }
  bool AnyExploded() const { return FAnyExploded; }
  /// Middles of the labels, one for each segment once they were placed.
  const std::vector<PointF>& Labels() const { return FLabels; }
  /// One for each segment when labels stand in boxes.
  const std::vector<TZyPieCallout>& Callouts() const { return FCallouts; }
  const TZyPieOverhangs& Overhangs() const { return FOverhangs; }
  /// Box of the top face in pixels, and height of the wall, 0 for flat ones.
  const RectF& PieRect() const { return FPieRect; }
  float WallHeight() const { return FWallHeight; }
  const TZyPieShape& Shape() const { return FShape; }

  /// The place on the rim that is seen at an angle.
  PointF RimPoint(double Angle) const;
  /// The angle of an aligned label, which never stands on its head; degrees, counter-clockwise. The middle of a large
  /// segment may lie in a second turn.
  static float AlignedAngle(float Middle);

 private:
  struct TBox;

  void SetStarts();
  void SetOrder();
  void Explode();
  TBox PlaceBox(const TZyPieSegment& Segment, SizeF Half, float Gap);
  void AddOverhangOf(const std::vector<TBox>& Boxes);

  TZyPieShape FShape;
  double FSqueeze;
  bool FAnyExploded = false;
  std::vector<TZyPieSegment> FSegments;
  std::vector<int> FOrder;
  std::vector<PointF> FLabels;
  std::vector<TZyPieCallout> FCallouts;
  TZyPieOverhangs FOverhangs;
  RectF FPieRect;
  float FWallHeight = 0;
};

}  // namespace zy
