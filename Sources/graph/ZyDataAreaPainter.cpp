#include "graph/ZyDataAreaPainter.h"

#include <cmath>

#include "axes/ZyAxis.h"
#include "graph/parts/ZyGraphParts.h"
#include "graph/styles/ZyGradientBrushes.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"

namespace zy {
namespace {

/// Dashes of a smooth line blur.
bool IsSmoothLine(const TZyLineSettings& Line) { return Line.DashStyle() == DashStyleSolid; }

}  // namespace

bool TZyDataAreaLook::HasGrid() const {
  return MajorHorizontal.Visible() || MinorHorizontal.Visible() || MajorVertical.Visible() || MinorVertical.Visible();
}

TZyDataAreaPainter::TZyDataAreaPainter(Graphics& Gr, const TZyDataAreaLook& Look, IZySolidSeries* Solids)
    : FGr(Gr), FLook(Look), FIsRoom(Solids != nullptr) {
  if (Solids == nullptr) return;
  Solids->PrepareDepth();
  FDepthX = std::round(Solids->HorizontalDepth() - 1);
  FDepthY = std::round(Solids->VerticalDepth());
  const auto [X, Y, W, H] = Look.Area;
  FFloor = std::round(Look.X.Position() == TZyAxisPosition::Top ? Y : Y + H - 1);
  FWall = std::round(Look.Y.Position() == TZyAxisPosition::Left ? X : X + W);
}

void TZyDataAreaPainter::Smooth(bool On) const { FGr.SetSmoothingMode(On ? FLook.Smoothing : SmoothingModeNone); }

// --- Ground ---------------------------------------------------------------------------------------------------------

void TZyDataAreaPainter::PaintGround() const {
  if (!FLook.Gradient.Visible() && !(HasOwnColor() && GetAlpha(FLook.Color) > 0)) return;
  if (FIsRoom) return PaintWalls();
  const RectF Ground{FLook.Area.X, FLook.Area.Y, FLook.Area.Width - 1, FLook.Area.Height - 1};
  if (FLook.Gradient.Visible()) {
    FGr.FillRectangle(*FLook.Gradient.GetBrush(Ground, 0), Ground);
  } else {
    FGr.FillRectangle(SolidBrush(FLook.Color), Ground);
  }
}

/// The back wall, and in darker shades the wall at the left and the floor.
void TZyDataAreaPainter::PaintWalls() const {
  const auto [X, Y, W, H] = FLook.Area;
  const float Dx = FDepthX, Dy = FDepthY;
  const bool HasGradient = FLook.Gradient.Visible();
  const RectF Back{X + Dx, Y - Dy, W - 1, H};
  const auto BackBrush =
      HasGradient ? FLook.Gradient.GetBrush(Back, 0)
                  : LinearBrush(Back, 0, 0.5f, Brighten(FLook.Color, 1.2), FLook.Color, Brighten(FLook.Color, 0.8));
  FGr.FillRectangle(*BackBrush, Back);
  Smooth(true);
  const TZyColor Wall = HasGradient ? FLook.Gradient.FirstColor() : FLook.Color;
  const PointF Left[] = {{X, Y}, {X, Y + H}, {X + Dx, Y + H - Dy}, {X + Dx, Y - Dy}};
  FGr.FillPolygon(SolidBrush(Brighten(Wall, 0.85)), Left);
  const PointF Floor[] = {
      {X + W - 2, Y + H - 1}, {X + W + Dx, Y + H - Dy - 1}, {X + Dx, Y + H - Dy - 1}, {X - 1, Y + H - 1}};
  FGr.FillPolygon(SolidBrush(Brighten(Wall, 0.75)), Floor);
  Smooth(false);
}

// --- Grids ----------------------------------------------------------------------------------------------------------

float TZyDataAreaPainter::GridPlace(float Tick) const { return FLook.KeepsFractions ? Tick : std::round(Tick); }

void TZyDataAreaPainter::PaintVerticalGrid() const {
  const auto [X, Y, W, H] = FLook.Area;
  const auto Draw = [&, Top = Y, Bottom = Y + H - 1](const TZyLineSettings& Grid, bool Major) {
    if (!Grid.Visible()) return;
    const auto GridPen = Grid.GetPen(FLook.Area, 0);
    if (FIsRoom) Smooth(IsSmoothLine(Grid));
    for (const TZyTick& Tick : FLook.X.Ticks()) {
      if (Tick.Grid != Major) continue;
      const float Place = GridPlace(Tick.Position);
      if (!FIsRoom) {
        FGr.DrawLine(*GridPen, Place, Top, Place, Bottom);
        continue;
      }
      FGr.DrawLine(*GridPen, Place, FFloor, Place + FDepthX, FFloor - FDepthY);
      FGr.DrawLine(*GridPen, Place + FDepthX, Top - FDepthY, Place + FDepthX, Bottom - FDepthY);
    }
  };
  Draw(FLook.MajorVertical, true);
  Draw(FLook.MinorVertical, false);
}

void TZyDataAreaPainter::PaintHorizontalGrid() const {
  const auto [X, Y, W, H] = FLook.Area;
  const auto Draw = [&, Left = X, Right = X + W - 1](const TZyLineSettings& Grid, bool Major) {
    const bool HasEdges = Major && FIsRoom && FLook.HasGrid();  // the major pen also draws the edges of the room
    if (!Grid.Visible() && !HasEdges) return;
    const auto GridPen = Grid.GetPen(FLook.Area, 0);
    if (FIsRoom) Smooth(IsSmoothLine(Grid));
    for (const TZyTick& Tick : FLook.Y.Ticks()) {
      if (!Grid.Visible() || Tick.Grid != Major) continue;
      const float Place = GridPlace(Tick.Position);
      if (!FIsRoom) {
        FGr.DrawLine(*GridPen, Left, Place, Right, Place);
        continue;
      }
      FGr.DrawLine(*GridPen, FWall, Place, FWall + FDepthX, Place - FDepthY);
      FGr.DrawLine(*GridPen, Left + FDepthX, Place - FDepthY, Right + 1 + FDepthX - 1, Place - FDepthY);
    }
    if (HasEdges) PaintRoomEdges(*GridPen);
  };
  Draw(FLook.MajorHorizontal, true);
  Draw(FLook.MinorHorizontal, false);
}

void TZyDataAreaPainter::PaintRoomEdges(const Pen& EdgePen) const {
  const auto [X, Y, W, H] = FLook.Area;
  const float Right = X + W - 1, Bottom = Y + H - 1;
  constexpr float Near = 2;  // an axis this close to the data area draws its line on the edge
  if (!FLook.HasAxisAtRight && !FLook.MajorVertical.Visible()) {
    FGr.DrawLine(EdgePen, Right, Bottom, Right + FDepthX, Bottom - FDepthY);
    if (HasOwnColor()) FGr.DrawLine(EdgePen, Right + FDepthX, Bottom - FDepthY, Right + FDepthX, Y - FDepthY);
  }
  if (!HasOwnColor()) return;
  const bool LeftIsAxis =
      FLook.Y.Visible() && FLook.Y.Position() == TZyAxisPosition::Left && FLook.Y.DistanceValuesAxis() <= Near;
  if (!LeftIsAxis) FGr.DrawLine(EdgePen, X, Bottom, X, Y);
  const bool BottomIsAxis = FLook.X.Visible() && FLook.X.DistanceValuesAxis() <= Near;
  if (!BottomIsAxis) FGr.DrawLine(EdgePen, X, Bottom, Right, Bottom);
}

// --- Frame ----------------------------------------------------------------------------------------------------------

void TZyDataAreaPainter::PaintFrame() const {
  if (!FLook.Frame.Visible()) return;
  const auto [X, Y, W, H] = FLook.Area;
  const float Grow = FLook.Frame.Width();
  FGr.DrawRectangle(*FLook.Frame.GetPen(RectF{X - Grow, Y - Grow, W + 2 * Grow, H + 2 * Grow}, 0), X, Y, W - 1, H - 1);
}

}  // namespace zy
