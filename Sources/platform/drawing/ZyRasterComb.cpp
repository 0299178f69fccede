#include "platform/drawing/ZyRasterComb.h"

#include <algorithm>
#include <cmath>

#include "platform/drawing/ZyRasterBlend.h"
#include "platform/drawing/ZyRasterCells.h"

namespace zy {
namespace {

constexpr std::size_t FewestPoints = 64;
constexpr std::size_t LongestWay = 4;  // points between two bars
constexpr double SameStep = 1e-3;      // pixels by which distances of bars may differ, from their rounding

/// A segment straight up or down, and long enough to be worth it.
bool IsBar(const PointF& From, const PointF& To, double Width) {
  return From.X == To.X && std::fabs(To.Y - From.Y) > 2 * Width;
}

}  // namespace

bool FillsColumns(std::span<const PointF> Points, float Width) {
  if (Points.size() < FewestPoints) return false;
  std::size_t Bars = 0;
  for (std::size_t i = 0; i + 1 < Points.size(); ++i) Bars += IsBar(Points[i], Points[i + 1], Width) ? 1 : 0;
  return Bars * 8 > Points.size();
}

void TRasterComb::Run(TRasterCells& Cells, TRasterStroker& Stroker, const TRasterGuard& Guard,
                      std::span<const PointF> Points, const TRasterStroke& Stroke, double Width,
                      const std::optional<TInk>& Ink) {
  FCells = &Cells;
  FStroker = &Stroker;
  FGuard = &Guard;
  FPoints = Points;
  FStroke = &Stroke;
  FWidth = Width;
  FInk = Ink;
  FThin = Ink && Width == 1 ? std::optional(TRasterThin(Ink->Target, Ink->Box, Ink->Color)) : std::nullopt;
  FDrawn = 0;
  FGroup.clear();
  double Step = 0;
  for (std::size_t i = 0; i + 1 < Points.size(); ++i) {
    if (!IsBar(Points[i], Points[i + 1], Width)) continue;
    const auto [Top, Bottom] = std::minmax(Points[i].Y, Points[i + 1].Y);
    const TBar Bar{i, Points[i].X, Top, Bottom};
    if (!FGroup.empty() && !Follows(FGroup.back(), Bar, Step)) FillGroup();
    if (!FGroup.empty()) StrokeWay(FGroup.back(), Bar);
    if (FGroup.size() == 1) Step = Bar.X - FGroup.back().X;
    FGroup.push_back(Bar);
  }
  FillGroup();
  StrokeUpTo(Points.size() - 1);
}

/// Whether the bars touch. Step is the distance of those before, if there are any.
bool TRasterComb::Follows(const TBar& Last, const TBar& Next, double Step) const {
  const double Distance = Next.X - Last.X;
  if (std::fabs(Distance) > FWidth + SameStep || std::fabs(Distance) < SameStep) return false;
  if (FGroup.size() > 1 && std::fabs(Distance - Step) > SameStep) return false;
  return Next.First - Last.First <= LongestWay + 2;
}

// --- Ways from bar to bar -------------------------------------------------------------------------------------------

/// Draws what two bars that touch leave uncovered of the line between them: parts around points above or below what
/// both cover. A way straight from end to end sticks out beside the shorter bar.
void TRasterComb::StrokeWay(const TBar& Last, const TBar& Next) {
  const double Top = std::max(Last.Top, Next.Top) + FWidth / 2,
               Bottom = std::min(Last.Bottom, Next.Bottom) - FWidth / 2;
  const std::span<const PointF> Way = FPoints.subspan(Last.First + 1, Next.First - Last.First);
  const auto [Left, Right] = std::minmax(Last.X, Next.X);
  const auto IsBeside = [Low = Left, High = Right](const PointF& Point) { return Point.X < Low || Point.X > High; };
  if (Top > Bottom || std::any_of(Way.begin(), Way.end(), IsBeside)) return StrokePart(Way);

  const auto SideOf = [&](const PointF& Point) { return Point.Y < Top ? -1 : Point.Y > Bottom ? 1 : 0; };
  const auto Cut = [&](const PointF& From, const PointF& To, int Side) {
    const double Y = Side < 0 ? Top : Bottom, Part = (Y - From.Y) / (To.Y - From.Y);
    return PointF{static_cast<float>(From.X + Part * (To.X - From.X)), static_cast<float>(Y)};
  };
  int Side = 0;  // on which the part runs
  for (std::size_t i = 0; i < Way.size(); ++i) {
    const int Here = SideOf(Way[i]);
    if (Side != 0 && Here == Side) FPart.push_back(Way[i]);
    if (Side != 0 && Here != Side) {
      FPart.push_back(Cut(Way[i - 1], Way[i], Side));
      StrokePart(FPart);
      Side = 0;
    }
    const bool IsEndOfBar = i == 0 || i + 1 == Way.size();
    if (Side != 0 || Here == 0 || (IsEndOfBar && Way.size() > 2)) continue;
    FPart.clear();
    if (i > 0) FPart.push_back(SideOf(Way[i - 1]) == Here ? Way[i - 1] : Cut(Way[i - 1], Way[i], Here));
    FPart.push_back(Way[i]);
    Side = Here;
  }
  if (Side != 0) StrokePart(FPart);
}

/// A part of the line by itself, over or under what else is drawn.
void TRasterComb::StrokePart(std::span<const PointF> Points, TRasterCap StartCap, TRasterCap EndCap) {
  if (Points.size() < 2) return;
  if (FThin) return FThin->Line(Points, StartCap, EndCap);
  TRasterStroke Part = *FStroke;
  Part.StartCap = StartCap;
  Part.EndCap = EndCap;
  StrokeSolid(*FStroker, *FGuard, Points, Part);
}

/// The part of the line that is still to be drawn, up to a point.
void TRasterComb::StrokeUpTo(std::size_t Last) {
  if (Last <= FDrawn) return;
  StrokePart(FPoints.subspan(FDrawn, Last - FDrawn + 1), FDrawn > 0 ? TRasterCap::Flat : FStroke->StartCap,
             Last + 1 < FPoints.size() ? TRasterCap::Flat : FStroke->EndCap);
  FDrawn = Last;
}

// --- Bars -----------------------------------------------------------------------------------------------------------

void TRasterComb::FillGroup() {
  if (FGroup.size() > 1) {
    StrokeUpTo(FGroup.front().First);
    FDrawn = FGroup.back().First + 1;
    if (FGroup[0].X > FGroup[1].X) std::reverse(FGroup.begin(), FGroup.end());
    if (FillsPixels()) {
      constexpr std::size_t Together = 16;  // of a pixel's width fill a line of the processor's cache
      for (std::span<const TBar> Rest = FGroup; !Rest.empty(); Rest = Rest.subspan(std::min(Together, Rest.size())))
        FillPixels(Rest.first(std::min(Together, Rest.size())));
    } else {
      OutlineGroup();
    }
  }
  FGroup.clear();
}

/// Of bars that stand a whole number of their distances apart, the right side of one lies on the left side of another:
/// only where one is longer than the other is there an edge.
void TRasterComb::OutlineGroup() {
  const double Step = FGroup[1].X - FGroup[0].X;
  const double Apart = std::round(FWidth / Step);
  const bool Meet = std::fabs(Apart * Step - FWidth) < SameStep;
  const auto Shift = static_cast<std::size_t>(Apart);
  const auto Side = [this](double X, double From, double To) { FCells->AddEdge(X, From, X, To); };
  for (std::size_t i = 0; i < FGroup.size(); ++i) {
    const TBar& Bar = FGroup[i];
    if (!Meet || i < Shift) Side(Bar.X - FWidth / 2, Bar.Top, Bar.Bottom);
    const double Right = Bar.X + FWidth / 2;
    if (Meet && i + Shift < FGroup.size()) {
      const TBar& Other = FGroup[i + Shift];
      Side(Right, Other.Top, Bar.Top);
      Side(Right, Bar.Bottom, Other.Bottom);
    } else {
      Side(Right, Bar.Bottom, Bar.Top);
    }
  }
}

/// Whether each bar of the group covers whole columns of pixels.
bool TRasterComb::FillsPixels() const {
  const auto IsWhole = [](double Value) { return std::fabs(Value - std::round(Value)) < SameStep; };
  return FInk.has_value() && IsWhole(FWidth) && IsWhole(FGroup[0].X - FWidth / 2) && IsWhole(FGroup[1].X - FGroup[0].X);
}

/// Writes the pixels that bars side by side cover in full, at once the rows that all of them share, and their ends.
void TRasterComb::FillPixels(std::span<const TBar> Bars) {
  const TRasterRect& Box = FInk->Box;
  const auto Column = [&](double X) {
    return static_cast<int>(std::lround(std::clamp<double>(X, Box.Left, Box.Right)));
  };
  const auto FirstOf = [&](const TBar& Bar) {
    return static_cast<int>(std::ceil(std::clamp<double>(Bar.Top, Box.Top, Box.Bottom)));
  };
  const auto EndOf = [&](const TBar& Bar) {
    return static_cast<int>(std::clamp<double>(Bar.Bottom, Box.Top, Box.Bottom));
  };
  int First = Box.Top, End = Box.Bottom;
  for (const TBar& Bar : Bars) {
    First = std::max(First, FirstOf(Bar));
    End = std::min(End, EndOf(Bar));
  }
  End = std::max(First, End);
  FillRows(Column(Bars.front().X - FWidth / 2), Column(Bars.back().X + FWidth / 2), First, End);
  for (const TBar& Bar : Bars) {
    const int Left = Column(Bar.X - FWidth / 2), Right = Column(Bar.X + FWidth / 2);
    const int Top = FirstOf(Bar), Bottom = EndOf(Bar);
    FillRows(Left, Right, Top, std::min(First, Bottom));
    FillRows(Left, Right, std::max(End, Top), Bottom);
    if (Bar.Top > Box.Top) BlendPart(Left, Right, Top - 1, Top - Bar.Top);
    if (Bar.Bottom < Box.Bottom) BlendPart(Left, Right, Bottom, Bar.Bottom - Bottom);
  }
}

void TRasterComb::FillRows(int Left, int Right, int Top, int Bottom) {
  const std::ptrdiff_t Stride = FInk->Target.Stride;
  std::uint32_t* Pixels = FInk->Target.Pixels + Top * Stride;
  if (Right - Left == 1) {
    for (int Row = Top; Row < Bottom; ++Row, Pixels += Stride) Pixels[Left] = FInk->Color;
  } else {
    for (int Row = Top; Row < Bottom; ++Row, Pixels += Stride) std::fill(Pixels + Left, Pixels + Right, FInk->Color);
  }
}

/// A row that the end of a bar covers in part.
void TRasterComb::BlendPart(int Left, int Right, int Row, double Part) {
  const std::uint8_t Coverage = CoverageOfPart(std::clamp(Part, 0.0, 1.0));
  if (Coverage == 0 || Left >= Right || Row < FInk->Box.Top || Row >= FInk->Box.Bottom) return;
  BlendEven(FInk->Target.Pixels + Row * FInk->Target.Stride + Left, Coverage, Right - Left, FInk->Color);
}

}  // namespace zy
