#pragma once

#include <array>
#include <optional>
#include <vector>

#include "platform/drawing/Geometry.h"
#include "platform/drawing/GraphicsPath.h"

namespace zy {

/// A part of the rim: where it starts, and its sweep, in degrees.
struct TZyPieArc {
  float Start = 0;
  float Sweep = 0;
};

/// The faces of one segment of a pie, or of the whole of it: what is drawn, and what is hit. Pixels, y down; angles as
/// they are seen on the ellipse, clockwise from the x axis.
///
/// A solid is its top face and the same moved down by the height of its wall. Seen are the outer wall from 0 to 180
/// degrees, the far wall of the hole from 180 to 360, and the cuts that face the viewer.
class TZyPieFaces {
 public:
  /// Rim is the box of the top face's ellipse. Hole is the box of the hole, nothing for a pie. Height is that of the
  /// wall, 0 for what is flat.
  TZyPieFaces(const RectF& Rim, const std::optional<RectF>& Hole, float Height, float Start, float Sweep);

  using TCut = std::array<PointF, 4>;

  const RectF& Rim() const { return FRim; }
  const std::optional<RectF>& Hole() const { return FHole; }
  float Start() const { return FStart; }
  float Sweep() const { return FSweep; }

  /// The top face.
  GraphicsPath Top() const;
  /// The angles of the cuts that face the viewer.
  std::vector<float> Cuts() const;
  /// Those on the near side, which stand in front of the far wall of the hole.
  std::vector<float> CutsBeforeHole() const;
  TCut CutAt(float Angle) const;
  /// What of a cut lies outside of the rim of the segment beside it; nothing when all lies within.
  std::optional<TCut> CutBeyond(float Angle, const RectF& Other) const;
  /// What is seen of the outer wall, and of the far wall of the hole: none, one or two parts of the rim.
  std::vector<TZyPieArc> OuterArcs() const;
  std::vector<TZyPieArc> InnerArcs() const;
  /// The wall below a part of the outer rim, or of that of the hole.
  GraphicsPath OuterWall(const TZyPieArc& Arc) const { return WallBelow(FRim, Arc); }
  GraphicsPath InnerWall(const TZyPieArc& Arc) const { return WallBelow(*FHole, Arc); }
  /// Adds the outline of top and walls together. Closed ends the figure of a flat donut.
  void AddOutline(GraphicsPath& Path, bool Closed) const;

  /// The place on the rim of an ellipse at an angle.
  static PointF OnRim(const RectF& Rim, float Angle);
  /// The box of the hole in that of the rim; its size in percent.
  static RectF HoleIn(const RectF& Rim, float Percent);

 private:
  RectF Lowered(const RectF& Box) const { return {Box.X, Box.Y + FHeight, Box.Width, Box.Height}; }
  GraphicsPath WallBelow(const RectF& Box, const TZyPieArc& Arc) const;
  void AddSolidOutline(GraphicsPath& Path) const;
  void AddArcBetween(GraphicsPath& Path, const RectF& Box, float From, float To) const;
  PointF Inner(float Angle) const;
  TCut Wall(PointF From, PointF To) const { return {From, To, {To.X, To.Y + FHeight}, {From.X, From.Y + FHeight}}; }

  RectF FRim;
  std::optional<RectF> FHole;
  float FHeight;
  float FStart;
  float FSweep;
  float FFrom;  // the start within a turn, and the stop that belongs to it
  float FTo;
};

}  // namespace zy
