#include "pie/ZyPieFaces.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "analysis/ZyMath.h"

namespace zy {
namespace {

float Fit(float Angle) { return static_cast<float>(FitTo360Degrees(static_cast<double>(Angle))); }

PointF MiddleOf(const RectF& Box) { return {Box.X + Box.Width * 0.5f, Box.Y + Box.Height * 0.5f}; }

/// The part between two angles, of at most half a turn; nothing where the second is not behind the first.
void AddPart(std::vector<TZyPieArc>& Arcs, float From, float To) {
  constexpr float HalfTurn = 180;
  if (To > From) Arcs.push_back({From, std::min(To - From, HalfTurn)});
}

}  // namespace

TZyPieFaces::TZyPieFaces(const RectF& Rim, const std::optional<RectF>& Hole, float Height, float Start, float Sweep)
    : FRim(Rim),
      FHole(Hole),
      FHeight(Height),
      FStart(Start),
      FSweep(Sweep),
      FFrom(Fit(Start)),
      FTo(FFrom + std::min(Sweep, 360.0f)) {}

PointF TZyPieFaces::OnRim(const RectF& Rim, float Angle) {
  const double Seen = static_cast<double>(Angle) * (std::numbers::pi / 180);
  const auto Width = static_cast<double>(Rim.Width), Height = static_cast<double>(Rim.Height);
  const double OnCircle = std::atan2(std::sin(Seen) * Width, std::cos(Seen) * Height);
  const PointF Middle = MiddleOf(Rim);
  return {Middle.X + static_cast<float>(std::cos(OnCircle) * Width * 0.5),
          Middle.Y + static_cast<float>(std::sin(OnCircle) * Height * 0.5)};
}

RectF TZyPieFaces::HoleIn(const RectF& Rim, float Percent) {
  const PointF Middle = MiddleOf(Rim);
  const float Width = Rim.Width * Percent * 0.01f, Height = Rim.Height * Percent * 0.01f;
  return {Middle.X - Width * 0.5f, Middle.Y - Height * 0.5f, Width, Height};
}

GraphicsPath TZyPieFaces::Top() const {
  GraphicsPath Path;
  if (!FHole) {
    Path.AddPie(FRim, FStart, FSweep);
    return Path;
  }
  Path.AddArc(FRim, FStart, FSweep);
  Path.AddArc(*FHole, FStart + FSweep, -FSweep);
  Path.CloseFigure();
  return Path;
}

// --- Cuts -----------------------------------------------------------------------------------------------------------

/// A cut at the start faces the viewer on the left, one at the stop on the right.
std::vector<float> TZyPieFaces::Cuts() const {
  std::vector<float> Result;
  const float Stop = Fit(FTo);
  if (FFrom > 90 && FFrom < 270) Result.push_back(FFrom);
  if (Stop < 90 || Stop > 270) Result.push_back(Stop);
  return Result;
}

std::vector<float> TZyPieFaces::CutsBeforeHole() const {
  std::vector<float> Result;
  const float Stop = Fit(FTo);
  if (FFrom > 90 && FFrom < 180) Result.push_back(FFrom);
  if (Stop < 90) Result.push_back(Stop);
  return Result;
}

/// From the middle, or from the rim of the hole, to the outer rim.
PointF TZyPieFaces::Inner(float Angle) const { return FHole ? OnRim(*FHole, Angle) : MiddleOf(FRim); }

TZyPieFaces::TCut TZyPieFaces::CutAt(float Angle) const { return Wall(Inner(Angle), OnRim(FRim, Angle)); }

std::optional<TZyPieFaces::TCut> TZyPieFaces::CutBeyond(float Angle, const RectF& Other) const {
  const PointF From = Inner(Angle), To = OnRim(FRim, Angle), Middle = MiddleOf(Other);
  const auto InUnits = [&](PointF Place) {
    return std::pair{static_cast<double>((Place.X - Middle.X) / Other.Width * 2),
                     static_cast<double>((Place.Y - Middle.Y) / Other.Height * 2)};
  };
  const auto [X, Y] = InUnits(From);
  const auto [EndX, EndY] = InUnits(To);
  const double Dx = EndX - X, Dy = EndY - Y, Length = Dx * Dx + Dy * Dy, Along = X * Dx + Y * Dy;
  const double Root = Along * Along - Length * (X * X + Y * Y - 1);
  if (!(Length > 0)) return {};
  const double Part = Root > 0 ? std::clamp((std::sqrt(Root) - Along) / Length, 0.0, 1.0) : 0;  // where it leaves
  if (Part >= 1) return {};
  const auto At = static_cast<float>(Part);
  return Wall({From.X + At * (To.X - From.X), From.Y + At * (To.Y - From.Y)}, To);
}

// --- Walls ----------------------------------------------------------------------------------------------------------

std::vector<TZyPieArc> TZyPieFaces::OuterArcs() const {
  std::vector<TZyPieArc> Result;
  if (FTo > 360) AddPart(Result, std::max(FFrom, 360.0f), FTo);
  if (FFrom < 180) AddPart(Result, FFrom, std::min(FTo, 180.0f));
  return Result;
}

std::vector<TZyPieArc> TZyPieFaces::InnerArcs() const {
  std::vector<TZyPieArc> Result;
  AddPart(Result, std::max(FFrom, 180.0f), std::min(FTo, 360.0f));
  AddPart(Result, 180, FTo - 360);
  return Result;
}

GraphicsPath TZyPieFaces::WallBelow(const RectF& Box, const TZyPieArc& Arc) const {
  GraphicsPath Path;
  Path.AddArc(Box, Arc.Start, Arc.Sweep);
  Path.AddArc(Lowered(Box), Arc.Start + Arc.Sweep, -Arc.Sweep);
  Path.CloseFigure();
  return Path;
}

// --- Outline --------------------------------------------------------------------------------------------------------

void TZyPieFaces::AddOutline(GraphicsPath& Path, bool Closed) const {
  if (FHeight > 0) return AddSolidOutline(Path);
  if (!FHole) return Path.AddPie(FRim, FStart, FSweep);
  Path.AddArc(FRim, FStart, FSweep);
  Path.AddArc(*FHole, FStart + FSweep, -FSweep);
  if (Closed) Path.CloseFigure();
}

void TZyPieFaces::AddArcBetween(GraphicsPath& Path, const RectF& Box, float From, float To) const {
  if (To > From) Path.AddArc(Box, From, To - From);
}

/// Along the cut at the start, the rim, the cut at the stop, and back along the hole. Of the rim, the front is that of
/// the bottom and the back that of the top.
void TZyPieFaces::AddSolidOutline(GraphicsPath& Path) const {
  const auto AddCut = [&](PointF From, PointF To, bool IsLow) {
    const float Down = IsLow ? FHeight : 0;
    Path.AddLine(From.X, From.Y + Down, To.X, To.Y + Down);
  };
  AddCut(Inner(FFrom), OnRim(FRim, FFrom), FFrom <= 270);
  AddArcBetween(Path, Lowered(FRim), std::min(FFrom, 270.0f), std::min(FTo, 180.0f));
  AddArcBetween(Path, FRim, std::max(FFrom, 180.0f), std::min(FTo, 360.0f));
  if (FTo > 360) AddArcBetween(Path, Lowered(FRim), std::max(FFrom, 360.0f), FTo);
  const float Stop = Fit(FTo);
  AddCut(OnRim(FRim, Stop), Inner(Stop), !((FHole ? FTo : Stop) > 180 && (FHole ? FTo : Stop) < 270));
  if (FHole) {
    const RectF Low = Lowered(*FHole);
    const auto AddBack = [&](float From, float To) {
      if (From > To) Path.AddArc(Low, From, To - From);
    };
    if (FTo > 360) AddBack(FTo, std::max(FFrom, 360.0f));
    AddBack(std::min(FTo, 360.0f), std::max(FFrom, 180.0f));
    AddBack(std::min(FTo, 180.0f), std::min(FFrom, 270.0f));
  }
  Path.CloseFigure();
}

}  // namespace zy
