#include "platform/drawing/ZyRasterStroke.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/drawing/ZyRasterCells.h"

namespace zy {
namespace {

/// Points that are nearer to the last one than this are passed over, in pixels.
constexpr double LeastLength = 1.0 / 64;
/// How far an arc's chords may be off, in pixels.
constexpr double ArcTolerance = 1.0 / 32;
/// After so many segments the sums are brought back to 1; a segment adds less than 4 to a pixel, and 32767 fit in.
constexpr int SegmentsToCollapse = 4096;

TRasterPoint ToDouble(const PointF& Point) { return {Point.X, Point.Y}; }

}  // namespace

TRasterGuard::TRasterGuard(const TRasterRect& Clip, double Reach)
    : FLeft(Clip.Left - Reach), FTop(Clip.Top - Reach), FRight(Clip.Right + Reach), FBottom(Clip.Bottom + Reach) {}

bool TRasterGuard::Holds(TRasterPoint Point) const {
  return Point.X >= FLeft && Point.X <= FRight && Point.Y >= FTop && Point.Y <= FBottom;
}

// The parametric clipping of Liang and Barsky ("A New Concept and Method for Line Clipping", ACM TOG 3(1), 1984).
bool TRasterGuard::Cut(TRasterPoint From, TRasterPoint To, double& Start, double& End) const {
  Start = 0;
  End = 1;
  const auto Narrow = [&](double Way, double Low, double High) {  // what of the way is between Low and High
    if (Way == 0) return Low <= 0 && High >= 0;
    Start = std::max(Start, (Way > 0 ? Low : High) / Way);
    End = std::min(End, (Way > 0 ? High : Low) / Way);
    return Start < End;
  };
  return Narrow(To.X - From.X, FLeft - From.X, FRight - From.X) &&
         Narrow(To.Y - From.Y, FTop - From.Y, FBottom - From.Y);
}

TRasterPoint TRasterGuard::At(TRasterPoint From, TRasterPoint To, double Fraction) const {
  const TRasterPoint Place = From + (To - From) * Fraction;
  return {std::clamp(Place.X, FLeft, FRight), std::clamp(Place.Y, FTop, FBottom)};
}

TRasterStroker::TRasterStroker(TRasterCells& Cells, const TRasterStroke& Stroke, double Width)
    : FCells(Cells),
      FHalf(Width / 2),
      FJoin(Stroke.Join),
      FMiterLimit(std::isfinite(Stroke.MiterLimit) ? std::clamp(Stroke.MiterLimit, 0.0f, 1000.0f) : 10.0),
      FArcStep(2 * std::acos(std::max(0.5, 1 - ArcTolerance / FHalf))) {}

double TRasterStroker::Reach() const {
  if (FJoin == TRasterJoin::Miter) return FHalf * std::max(1.5, FMiterLimit) + 1;
  if (FJoin == TRasterJoin::MiterCut) return FHalf * (1.5 + 2 * FMiterLimit) + 1;
  return FHalf * 1.5 + 1;
}

inline void TRasterStroker::Edge(TRasterPoint From, TRasterPoint To) { FCells.AddEdge(From.X, From.Y, To.X, To.Y); }

void TRasterStroker::Begin(TRasterPoint Point, TRasterCap Cap) {
  FFirst = FPoint = Point;
  FStartCap = Cap;
  FHasSegment = false;
}

void TRasterStroker::LineTo(TRasterPoint Point) {
  const TRasterPoint Way = Point - FPoint;
  const double Length = std::sqrt(Dot(Way, Way));
  if (Length < LeastLength) return;
  const TRasterPoint Direction = Way * (1 / Length);
  const TRasterPoint Normal{-Direction.Y * FHalf, Direction.X * FHalf};
  if (!FHasSegment) {
    FHasSegment = true;
    FFirstDirection = Direction;
    FFirstNormal = Normal;
    FFirstLength = Length;
    FLeft = FPoint + Normal;
    FRight = FPoint - Normal;
    FFirst = FPoint;
    Edge(FRight, FLeft);
  } else {
    JoinTo(Direction, Normal, Length, false);
    if (++FSegments == SegmentsToCollapse) {
      FSegments = 0;
      Edge(FLeft, FRight);
      FCells.Collapse();
      Edge(FRight, FLeft);
    }
  }
  FPoint = Point;
  FDirection = Direction;
  FNormal = Normal;
  FLength = Length;
}

/// Ends the sides of the last segment at FPoint and starts those of the next.
void TRasterStroker::JoinTo(TRasterPoint Direction, TRasterPoint Normal, double Length, bool Closing) {
  const double Cosine = Dot(FDirection, Direction);
  // So slight a turn looks the same with any corner: both sides meet in one point each.
  const bool Slight = Cosine > 0.9 && FHalf * (1 - Cosine) < 1.0 / 16 && std::min(FLength, Length) > FHalf / 4;
  if (Slight && !Closing) {
    const TRasterPoint Meeting = (FNormal + Normal) * (1 / (1 + Cosine));
    const TRasterPoint Left = FPoint + Meeting, Right = FPoint - Meeting;
    Edge(FLeft, Left);
    Edge(Right, FRight);
    FLeft = Left;
    FRight = Right;
    return;
  }
  const TRasterPoint LeftEnd = FPoint + FNormal, RightEnd = FPoint - FNormal;
  Edge(FLeft, LeftEnd);
  Edge(RightEnd, FRight);
  FLeft = FPoint + Normal;
  FRight = FPoint - Normal;
  if (Cross(FDirection, Direction) > 0) {
    Edge(LeftEnd, FPoint);
    Edge(FPoint, FLeft);
    OuterCorner(FRight, Direction * -1, RightEnd, FDirection, Cosine);
  } else {
    Edge(FRight, FPoint);
    Edge(FPoint, RightEnd);
    OuterCorner(LeftEnd, FDirection, FLeft, Direction * -1, Cosine);
  }
}

/// The corner between two outer ends. Onward leads on from From, and Back from To, to where both sides would meet.
void TRasterStroker::OuterCorner(TRasterPoint From, TRasterPoint Onward, TRasterPoint To, TRasterPoint Back,
                                 double Cosine) {
  const double Up = std::max(0.0, 1 + Cosine), Down = std::max(0.0, 1 - Cosine);
  switch (FJoin) {
    case TRasterJoin::Round:
      Arc(From, To, Onward, std::acos(std::clamp(Cosine, -1.0, 1.0)));
      return;
    case TRasterJoin::Miter:
      // Half the turn's cosine is 1 / (length of the corner in widths).
      if (Up / 2 * FMiterLimit * FMiterLimit < 1) break;
      {
        const TRasterPoint Tip = From + Onward * (FHalf * std::sqrt(Down / Up));
        Edge(From, Tip);
        Edge(Tip, To);
      }
      return;
    case TRasterJoin::MiterCut: {
      const double Longest = 2 * FHalf * FMiterLimit;
      const double Extent = Down * FHalf * FHalf < Longest * Longest * Up ? FHalf * std::sqrt(Down / Up) : Longest;
      const TRasterPoint A = From + Onward * Extent, B = To + Back * Extent;
      Edge(From, A);
      Edge(A, B);
      Edge(B, To);
      return;
    }
    case TRasterJoin::Bevel:
      break;
  }
  Edge(From, To);
}

/// Chords of the arc about FPoint from From to To, of so many radians, that sets out to the side of Onward.
void TRasterStroker::Arc(TRasterPoint From, TRasterPoint To, TRasterPoint Onward, double Angle) {
  const int Steps = std::max(1, static_cast<int>(std::ceil(Angle / FArcStep)));
  TRasterPoint Spoke = From - FPoint;
  const double Turn = Angle / Steps * (Cross(Spoke, Onward) < 0 ? -1 : 1);
  const double Cosine = std::cos(Turn), Sine = std::sin(Turn);
  TRasterPoint Last = From;
  for (int Step = 1; Step < Steps; ++Step) {
    Spoke = {Spoke.X * Cosine - Spoke.Y * Sine, Spoke.X * Sine + Spoke.Y * Cosine};
    Edge(Last, FPoint + Spoke);
    Last = FPoint + Spoke;
  }
  Edge(Last, To);
}

/// The end of a line about FPoint: from one side to the other, around whatever lies ahead in Direction.
void TRasterStroker::EndShape(TRasterCap Cap, TRasterPoint From, TRasterPoint To, TRasterPoint Direction) {
  switch (Cap) {
    case TRasterCap::Flat:
      Edge(From, To);
      break;
    case TRasterCap::Square: {
      const TRasterPoint Ahead = Direction * FHalf;
      Edge(From, From + Ahead);
      Edge(From + Ahead, To + Ahead);
      Edge(To + Ahead, To);
      break;
    }
    case TRasterCap::Round:
      Arc(From, To, Direction, std::numbers::pi);
      break;
  }
}

void TRasterStroker::End(TRasterCap Cap, TRasterPoint Direction) {
  if (!FHasSegment) {
    if (Cap != TRasterCap::Flat) DrawDot(Cap, Direction);
    return;
  }
  const TRasterPoint Left = FPoint + FNormal, Right = FPoint - FNormal;
  Edge(FLeft, Left);
  Edge(Right, FRight);
  EndShape(Cap, Left, Right, FDirection);
  if (FStartCap == TRasterCap::Flat) return;
  FPoint = FFirst;
  const TRasterPoint FirstLeft = FFirst + FFirstNormal, FirstRight = FFirst - FFirstNormal;
  Edge(FirstLeft, FirstRight);
  EndShape(FStartCap, FirstRight, FirstLeft, FFirstDirection * -1);
}

void TRasterStroker::DrawDot(TRasterCap Cap, TRasterPoint Direction) {
  const TRasterPoint Normal{-Direction.Y * FHalf, Direction.X * FHalf};
  const TRasterPoint Left = FPoint + Normal, Right = FPoint - Normal;
  EndShape(Cap, Left, Right, Direction);
  EndShape(Cap, Right, Left, Direction * -1);
}

void TRasterStroker::Close() {
  if (!FHasSegment) return End(FStartCap);
  LineTo(FFirst);
  FPoint = FFirst;
  JoinTo(FFirstDirection, FFirstNormal, FFirstLength, true);
  Edge(FLeft, FRight);
}

void StrokeSolid(TRasterStroker& Stroker, const TRasterGuard& Guard, std::span<const PointF> Points,
                 const TRasterStroke& Stroke) {
  const std::size_t Count = Points.size();
  const std::size_t Segments = Stroke.Closed ? Count : Count - 1;
  const auto At = [&](std::size_t Index) { return ToDouble(Points[Index < Count ? Index : Index - Count]); };
  // A closed line that leaves the guard is drawn as an open one from there on, so that its first point is joined too.
  std::size_t First = 0;
  bool Closes = false;
  if (Stroke.Closed) {
    while (First < Count && Guard.Holds(At(First))) ++First;
    Closes = First == Count;
    if (Closes) First = 0;
  }
  bool Open = false;
  for (std::size_t Index = First; Index < First + Segments; ++Index) {
    const TRasterPoint From = At(Index), To = At(Index + 1);
    const bool HoldsFrom = Guard.Holds(From), HoldsTo = Guard.Holds(To);
    double Start = 0, End = 1;
    if ((!HoldsFrom || !HoldsTo) && !Guard.Cut(From, To, Start, End)) {
      if (Open) Stroker.End(TRasterCap::Flat);
      Open = false;
      continue;
    }
    if (!Open) {
      const bool IsStart = HoldsFrom && Index == 0 && !Stroke.Closed;
      Stroker.Begin(HoldsFrom ? From : Guard.At(From, To, Start), IsStart ? Stroke.StartCap : TRasterCap::Flat);
      Open = true;
    }
    Stroker.LineTo(HoldsTo ? To : Guard.At(From, To, End));
    if (!HoldsTo) {
      Stroker.End(TRasterCap::Flat);
      Open = false;
    }
  }
  if (!Open) return;
  if (Closes)
    Stroker.Close();
  else
    Stroker.End(Stroke.EndCap);
}

}  // namespace zy
