// The one order in which a chart is drawn.

#include <algorithm>
#include <cmath>

#include "graph/ZyGraph2D.h"
#include "graph/styles/ZyGradientBrushes.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "series/ZySeries.h"

namespace zy {
namespace {

/// Switches smoothing for a line: on for a solid one, since dashes of a smooth line blur.
bool IsSmoothLine(const TZyLineSettings& Line) { return Line.DashStyle() == DashStyleSolid; }

}  // namespace

/// Series may leave the data area at each side whose axes show all of their data, as symbols at the edge do. An end
/// that was fixed by hand hides data just as a zoomed one does.
RectF TZyGraph2D::DataClip() const {
  float Left = 0, Top = 0;
  auto Right = static_cast<float>(ClientWidth()), Bottom = static_cast<float>(ClientHeight());
  const auto Cut = [&](const TZyAxis& Axis, double First, double Last) {
    const double Nearly = (Axis.Stop() - Axis.Start()) * 1e-8;
    bool CutsLow = Axis.Start() - Nearly > First, CutsHigh = Axis.Stop() + Nearly < Last;
    if (Axis.Twisted()) std::swap(CutsLow, CutsHigh);
    if (Axis.GetHorizontal()) {
      if (CutsLow) Left = FDrawingArea.X;
      if (CutsHigh) Right = FDrawingArea.X + FDrawingArea.Width;
    } else {
      if (CutsLow) Bottom = FDrawingArea.Y + FDrawingArea.Height;
      if (CutsHigh) Top = FDrawingArea.Y;
    }
  };
  for (const TZySeries* Series : FRelatedSeries) {
    Cut(*Series->XAxis(), Series->XStart(), Series->XStop());
    Cut(*Series->YAxis(), Series->YStart(), Series->YStop());
  }
  return {Left, Top, Right - Left, Bottom - Top};
}

template <class TDraw>
void TZyGraph2D::PaintClippedToData(Graphics& Gr, const TDraw& Draw) {
  const Region Saved = Gr.GetClip();
  const RectF Clip = DataClip(), Whole{0, 0, static_cast<float>(ClientWidth()), static_cast<float>(ClientHeight())};
  if (Clip != Whole) Gr.SetClip(Clip, CombineModeIntersect);
  for (TZySeries* Series : FRelatedSeries) Draw(*Series);
  Gr.SetClip(Saved);
}

void TZyGraph2D::Paint(Graphics& Gr) {
  const TRect Clip = PaintBox();
  if (FLastClip.Right == 0) FLastClip = Clip;
  const bool Grows = Clip.Left < FLastClip.Left || Clip.Bottom > FLastClip.Bottom;
  const bool Moves = Clip.Left != FLastClip.Left || Clip.Right != FLastClip.Right;
  // A line in whole pixels, and the pattern of an area, may not fit what stands beside the part that is painted.
  const bool DoRepaint =
      !IsDesigning() && std::any_of(FRelatedSeries.begin(), FRelatedSeries.end(), [&](TZySeries* Series) {
        return Series->Visible() &&
               ((Grows && Series->CanDoCanvasDraw()) || (Moves && Series->Area().Visible() && !Series->Area().Solid()));
      });
  FLastClip = Clip;
  PaintGr(Gr);
  TZyCustomGraph::Paint(Gr);
  if (DoRepaint) Invalidate();
}

/// What comes before any drawing: the axes, new data, the layout. Whether there is something to draw.
bool TZyGraph2D::PreparePaint() {
  if (FOnce) {
    TestPrimaryAxis();
    SetBounds(Left(), Top(), Width(), Height());
    FOnce = false;
  }
  if (FPrimaryXAxis == nullptr || FPrimaryYAxis == nullptr) return false;
  TestSeriesAndAxis();
  CalculateWhenDirty();
  return true;
}

void TZyGraph2D::PaintGr(Graphics& Gr) {
  if (!PreparePaint()) return;
  const TRoom Room = FindRoom();
  SetHighQuality(Gr, false);
  PaintBackground(Gr);
  PaintDataArea(Gr, Room);
  if (CaptionVisible()) FTitleRec.PaintGr(Gr);
  PaintVerticalGrid(Gr, Room);
  PaintHorizontalGrid(Gr, Room);
  SetHighQuality(Gr, true);
  PaintClippedToData(Gr, [&Gr](TZySeries& Series) { Series.PaintGr(Gr); });
  PaintFrame(Gr);
  PaintAxes(Gr);
  PaintClippedToData(Gr, [&Gr](TZySeries& Series) { Series.DrawSymbols(Gr); });
  PaintLegends(Gr);
  SetHighQuality(Gr, false);
  ShowScrollBars();
}

/// An axis that waits for layout counts as well, so that series never draw on a scale that is out of date.
void TZyGraph2D::CalculateWhenDirty() {
  if (FPrimaryXAxis == nullptr || FPrimaryYAxis == nullptr) return;
  bool IsDirty = FNeedsRecalculate || FPrimaryXAxis->NeedsRecalculate();
  ForEachAxis([&IsDirty](const TZyAxis& Axis) { IsDirty = IsDirty || Axis.NeedsRecalculate(); });
  if (IsDirty) Calculate();
}

// --- Background and data area ---------------------------------------------------------------------------------------

bool TZyGraph2D::HasDataAreaColor() const { return FDataAreaColor != BackColor() && GetAlpha(FDataAreaColor) > 0; }

bool TZyGraph2D::ShowsWalls() const {
  const std::vector<TZyLineSettings*> Grids = Lines();
  return FDataAreaColor != BackColor() ||
         std::any_of(Grids.begin() + 1, Grids.end(), [](const TZyLineSettings* Grid) { return Grid->Visible(); });
}

/// The first series of solids decides how deep the room is.
TZyGraph2D::TRoom TZyGraph2D::FindRoom() const {
  TRoom Room;
  IZySolidSeries* Solids = nullptr;
  for (TZySeries* Series : FRelatedSeries) {
    Solids = dynamic_cast<IZySolidSeries*>(Series);
    if (Solids != nullptr && Solids->IsSolid()) break;
    Solids = nullptr;
  }
  if (Solids == nullptr) return Room;
  Solids->PrepareDepth();
  Room.IsOpen = true;
  Room.DepthX = std::round(Solids->HorizontalDepth() - 1);
  Room.DepthY = std::round(Solids->VerticalDepth());
  Room.Floor = std::round(FPrimaryXAxis->Position() == TZyAxisPosition::Top ? FDrawingArea.Y
                                                                            : FDrawingArea.Y + FDrawingArea.Height - 1);
  Room.Wall = std::round(FPrimaryYAxis->Position() == TZyAxisPosition::Left ? FDrawingArea.X
                                                                            : FDrawingArea.X + FDrawingArea.Width);
  const std::vector<TZyLineSettings*> Grids = Lines();
  Room.HasGrid =
      std::any_of(Grids.begin() + 1, Grids.end(), [](const TZyLineSettings* Grid) { return Grid->Visible(); });
  Room.HasAxisAtRight = std::any_of(FAxes.begin(), FAxes.end(),
                                    [](const TZyAxis* Axis) { return Axis->Position() == TZyAxisPosition::Right; });
  return Room;
}

void TZyGraph2D::PaintBackground(Graphics& Gr) {
  const RectF Whole{0, 0, static_cast<float>(Width()), static_cast<float>(Height())};
  if (GetAlpha(BackColor()) > 0) Gr.FillRectangle(SolidBrush(BackColor()), Whole);
  if (BackgroundGradient().Visible()) Gr.FillRectangle(*BackgroundGradient().GetBrush(Whole, 0), Whole);
}

void TZyGraph2D::PaintDataArea(Graphics& Gr, const TRoom& Room) {
  if (!FDataAreaGradient.Visible() && !HasDataAreaColor()) return;
  if (Room.IsOpen) return PaintWalls(Gr, Room);
  const RectF Area{FDrawingArea.X, FDrawingArea.Y, FDrawingArea.Width - 1, FDrawingArea.Height - 1};
  if (FDataAreaGradient.Visible()) {
    Gr.FillRectangle(*FDataAreaGradient.GetBrush(Area, 0), Area);
  } else {
    Gr.FillRectangle(SolidBrush(FDataAreaColor), Area);
  }
}

/// The back wall, and in darker shades the wall at the left and the floor.
void TZyGraph2D::PaintWalls(Graphics& Gr, const TRoom& Room) {
  const auto [X, Y, W, H] = FDrawingArea;
  const float Dx = Room.DepthX, Dy = Room.DepthY;
  const RectF Back{X + Dx, Y - Dy, W - 1, H};
  const auto BackBrush = FDataAreaGradient.Visible() ? FDataAreaGradient.GetBrush(Back, 0)
                                                     : LinearBrush(Back, 0, 0.5f, Brighten(FDataAreaColor, 1.2),
                                                                   FDataAreaColor, Brighten(FDataAreaColor, 0.8));
  Gr.FillRectangle(*BackBrush, Back);
  SetHighQuality(Gr, true);
  const TZyColor Wall = FDataAreaGradient.Visible() ? FDataAreaGradient.FirstColor() : FDataAreaColor;
  const PointF Left[] = {{X, Y}, {X, Y + H}, {X + Dx, Y + H - Dy}, {X + Dx, Y - Dy}};
  Gr.FillPolygon(SolidBrush(Brighten(Wall, 0.85)), Left);
  const PointF Floor[] = {
      {X + W - 2, Y + H - 1}, {X + W + Dx, Y + H - Dy - 1}, {X + Dx, Y + H - Dy - 1}, {X - 1, Y + H - 1}};
  Gr.FillPolygon(SolidBrush(Brighten(Wall, 0.75)), Floor);
  SetHighQuality(Gr, false);
}

// --- Grids ----------------------------------------------------------------------------------------------------------

/// Whole pixels on the screen; printers and files keep the fraction.
float TZyGraph2D::GridPlace(float Tick) const { return FDoingMetafile ? Tick : std::round(Tick); }

void TZyGraph2D::PaintVerticalGrid(Graphics& Gr, const TRoom& Room) const {
  const auto [X, Y, W, H] = FDrawingArea;
  const auto Draw = [&, Top = Y, Bottom = Y + H - 1](const TZyLineSettings& Grid, bool Major) {
    if (!Grid.Visible()) return;
    const auto GridPen = Grid.GetPen(FDrawingArea, 0);
    if (Room.IsOpen) SetHighQuality(Gr, IsSmoothLine(Grid));
    for (const TZyTick& Tick : FPrimaryXAxis->Ticks()) {
      if (Tick.Grid != Major) continue;
      const float Place = GridPlace(Tick.Position);
      if (!Room.IsOpen) {
        Gr.DrawLine(*GridPen, Place, Top, Place, Bottom);
        continue;
      }
      Gr.DrawLine(*GridPen, Place, Room.Floor, Place + Room.DepthX, Room.Floor - Room.DepthY);
      Gr.DrawLine(*GridPen, Place + Room.DepthX, Top - Room.DepthY, Place + Room.DepthX, Bottom - Room.DepthY);
    }
  };
  Draw(*FMajorGridVertical, true);
  Draw(*FMinorGridVertical, false);
}

void TZyGraph2D::PaintHorizontalGrid(Graphics& Gr, const TRoom& Room) const {
  const auto [X, Y, W, H] = FDrawingArea;
  const auto Draw = [&, Left = X, Right = X + W - 1](const TZyLineSettings& Grid, bool Major) {
    const bool HasEdges = Major && Room.IsOpen && Room.HasGrid;  // the major pen also draws the edges of the room
    if (!Grid.Visible() && !HasEdges) return;
    const auto GridPen = Grid.GetPen(FDrawingArea, 0);
    if (Room.IsOpen) SetHighQuality(Gr, IsSmoothLine(Grid));
    for (const TZyTick& Tick : FPrimaryYAxis->Ticks()) {
      if (!Grid.Visible() || Tick.Grid != Major) continue;
      const float Place = GridPlace(Tick.Position);
      if (!Room.IsOpen) {
        Gr.DrawLine(*GridPen, Left, Place, Right, Place);
        continue;
      }
      Gr.DrawLine(*GridPen, Room.Wall, Place, Room.Wall + Room.DepthX, Place - Room.DepthY);
      Gr.DrawLine(*GridPen, Left + Room.DepthX, Place - Room.DepthY, Right + 1 + Room.DepthX - 1, Place - Room.DepthY);
    }
    if (HasEdges) PaintRoomEdges(Gr, *GridPen, Room);
  };
  Draw(*FMajorGridHorizontal, true);
  Draw(*FMinorGridHorizontal, false);
}

void TZyGraph2D::PaintRoomEdges(Graphics& Gr, const Pen& EdgePen, const TRoom& Room) const {
  const auto [X, Y, W, H] = FDrawingArea;
  const float Right = X + W - 1, Bottom = Y + H - 1;
  const bool HasOwnColor = FDataAreaColor != BackColor();
  constexpr float Near = 2;  // an axis this close to the data area draws its line on the edge
  if (!Room.HasAxisAtRight && !FMajorGridVertical->Visible()) {
    Gr.DrawLine(EdgePen, Right, Bottom, Right + Room.DepthX, Bottom - Room.DepthY);
    if (HasOwnColor)
      Gr.DrawLine(EdgePen, Right + Room.DepthX, Bottom - Room.DepthY, Right + Room.DepthX, Y - Room.DepthY);
  }
  if (!HasOwnColor) return;
  const bool LeftIsAxis = FPrimaryYAxis->Visible() && FPrimaryYAxis->Position() == TZyAxisPosition::Left &&
                          FPrimaryYAxis->DistanceValuesAxis() <= Near;
  if (!LeftIsAxis) Gr.DrawLine(EdgePen, X, Bottom, X, Y);
  const bool BottomIsAxis = FPrimaryXAxis->Visible() && FPrimaryXAxis->DistanceValuesAxis() <= Near;
  if (!BottomIsAxis) Gr.DrawLine(EdgePen, X, Bottom, Right, Bottom);
}

// --- Frame, axes, legends -------------------------------------------------------------------------------------------

void TZyGraph2D::PaintFrame(Graphics& Gr) const {
  if (!FDataAreaFrame->Visible()) return;
  const float Grow = FDataAreaFrame->Width();
  const RectF View{FDrawingArea.X - Grow, FDrawingArea.Y - Grow, FDrawingArea.Width + 2 * Grow,
                   FDrawingArea.Height + 2 * Grow};
  Gr.DrawRectangle(*FDataAreaFrame->GetPen(View, 0), FDrawingArea.X, FDrawingArea.Y, FDrawingArea.Width - 1,
                   FDrawingArea.Height - 1);
}

/// Draws a part of the chart in the coordinates of its control.
template <class TPart>
void TZyGraph2D::PaintMoved(Graphics& Gr, const TControl& Control, const TPart& Part) {
  const Matrix Saved = Gr.GetTransform();
  Gr.TranslateTransform(static_cast<float>(Control.Left()), static_cast<float>(Control.Top()));
  Part();
  Gr.SetTransform(Saved);
}

void TZyGraph2D::PaintAxes(Graphics& Gr) {
  ForEachAxis([&](TZyAxis& Axis) {
    if (Axis.Visible()) PaintMoved(Gr, Axis, [&] { Axis.PaintGr(Gr); });
  });
  SetHighQuality(Gr, true);
}

void TZyGraph2D::PaintLegends(Graphics& Gr) {
  for (IZyGraphLegend* Legend : RelatedLegends()) {
    const TControl& Control = Legend->Control();
    if (Control.Parent() == this && Control.Visible()) PaintMoved(Gr, Control, [&] { Legend->PaintGr(Gr); });
  }
}

}  // namespace zy
