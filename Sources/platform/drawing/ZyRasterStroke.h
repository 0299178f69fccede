#pragma once

#include <span>
#include <vector>

#include "platform/drawing/ZyRaster.h"

namespace zy {

/// A place or a direction in double precision, in which outlines are computed.
struct TRasterPoint {
  double X = 0;
  double Y = 0;
};
constexpr TRasterPoint operator+(TRasterPoint A, TRasterPoint B) { return {A.X + B.X, A.Y + B.Y}; }
constexpr TRasterPoint operator-(TRasterPoint A, TRasterPoint B) { return {A.X - B.X, A.Y - B.Y}; }
constexpr TRasterPoint operator*(TRasterPoint A, double B) { return {A.X * B, A.Y * B}; }
constexpr double Dot(TRasterPoint A, TRasterPoint B) { return A.X * B.X + A.Y * B.Y; }
constexpr double Cross(TRasterPoint A, TRasterPoint B) { return A.X * B.Y - A.Y * B.X; }

/// The box outside of which a line's points cannot change a pixel of the clip.
class TRasterGuard {
 public:
  /// Reach is how far from its points a line can show.
  TRasterGuard(const TRasterRect& Clip, double Reach);
  bool Holds(TRasterPoint Point) const;
  /// The part of the line within, as fractions of its way; false when there is none.
  bool Cut(TRasterPoint From, TRasterPoint To, double& Start, double& End) const;
  /// The place at such a fraction of the way. It stays within, however far the ends are.
  TRasterPoint At(TRasterPoint From, TRasterPoint To, double Fraction) const;

 private:
  double FLeft, FTop, FRight, FBottom;
};

/// Writes the outline of a line, while its points come in, as edges of one orientation: both sides of the segments, the
/// corners on the outer side, and on the inner side the way through the corner itself, so that what overlaps adds up.
class TRasterStroker {
 public:
  TRasterStroker(TRasterCells& Cells, const TRasterStroke& Stroke, double Width);

  /// How far from its points the line can show.
  double Reach() const;
  void Begin(TRasterPoint Point, TRasterCap Cap);
  void LineTo(TRasterPoint Point);
  /// Direction is that of the caps when all points were equal.
  void End(TRasterCap Cap, TRasterPoint Direction = {1, 0});
  /// Back to the first point, which is joined.
  void Close();

 private:
  void Edge(TRasterPoint From, TRasterPoint To);
  void JoinTo(TRasterPoint Direction, TRasterPoint Normal, double Length, bool Closing);
  void OuterCorner(TRasterPoint From, TRasterPoint Onward, TRasterPoint To, TRasterPoint Back, double Cosine);
  void Arc(TRasterPoint From, TRasterPoint To, TRasterPoint Onward, double Angle);
  void EndShape(TRasterCap Cap, TRasterPoint From, TRasterPoint To, TRasterPoint Direction);
  void DrawDot(TRasterCap Cap, TRasterPoint Direction);

  TRasterCells& FCells;
  double FHalf;
  TRasterJoin FJoin;
  double FMiterLimit;
  double FArcStep;  // radians
  int FSegments = 0;
  TRasterCap FStartCap = TRasterCap::Flat;
  bool FHasSegment = false;
  TRasterPoint FFirst, FFirstDirection, FFirstNormal;
  double FFirstLength = 0;
  TRasterPoint FPoint, FDirection, FNormal;  // the last point and segment
  double FLength = 0;
  TRasterPoint FLeft, FRight;  // where the sides of the last segment start
};

/// Feeds Points into Stroker, as far as they matter within Guard.
void StrokeSolid(TRasterStroker& Stroker, const TRasterGuard& Guard, std::span<const PointF> Points,
                 const TRasterStroke& Stroke);

/// Cuts lines into dashes. The phase on lines outside the guard is computed and not walked.
class TRasterDasher {
 public:
  /// Lengths of dash and gap in turn, of an even count.
  void Run(TRasterStroker& Stroker, const TRasterGuard& Guard, std::span<const PointF> Points,
           const TRasterStroke& Stroke, std::span<const double> Lengths);

 private:
  void Segment(TRasterPoint From, TRasterPoint To);
  void Advance(double Length);
  void BeginDash(TRasterPoint Point, TRasterCap Cap);
  void AddPoint(TRasterPoint Point);
  void EndDash(TRasterCap Cap);
  void CloseLine();

  TRasterStroker* FStroker = nullptr;
  const TRasterGuard* FGuard = nullptr;
  std::span<const double> FLengths;
  double FPeriod = 0;
  TRasterCap FDashCap = TRasterCap::Flat;
  std::size_t FEntry = 0;  // of FLengths; even ones are dashes
  double FLeftOver = 0;    // length of the entry that is still to come
  TRasterPoint FDirection;
  bool FOpen = false;
  bool FHolding = false;  // the dash at the start of a closed line waits for that at its end
  std::vector<TRasterPoint> FHeld;
  TRasterCap FHeldEnd = TRasterCap::Flat;
};

}  // namespace zy
