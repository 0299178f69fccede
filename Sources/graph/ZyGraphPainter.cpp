#include "graph/ZyGraphPainter.h"

#include <utility>

#include "graph/ZyGraph2D.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/ClipGuard.h"
#include "platform/drawing/Graphics.h"
#include "series/ZySeries.h"

namespace zy {

TZyGraphPainter::TZyGraphPainter(TZyGraph2D& Graph, Graphics& Gr)
    : FGraph(Graph), FGr(Gr), FLook(LookOf(Graph)), FDataArea(Gr, FLook, SolidsOf(Graph)) {}

TZyDataAreaLook TZyGraphPainter::LookOf(TZyGraph2D& Graph) {
  bool HasAxisAtRight = false;
  for (const TZyAxis* Axis : Graph.AllAxes())
    HasAxisAtRight = HasAxisAtRight || Axis->Position() == TZyAxisPosition::Right;
  return {.Area = Graph.DrawingArea(),
          .Color = Graph.DataAreaColor(),
          .BackColor = Graph.BackColor(),
          .Gradient = Graph.DataAreaGradient(),
          .Frame = Graph.DataAreaFrame(),
          .MajorHorizontal = Graph.MajorGridHorizontal(),
          .MinorHorizontal = Graph.MinorGridHorizontal(),
          .MajorVertical = Graph.MajorGridVertical(),
          .MinorVertical = Graph.MinorGridVertical(),
          .X = *Graph.PrimaryXAxis(),
          .Y = *Graph.PrimaryYAxis(),
          .Smoothing = Graph.SmoothingOfSurfaces(),
          .HasAxisAtRight = HasAxisAtRight,
          .KeepsFractions = Graph.DoingMetafile()};
}

/// The first series of solids decides how deep the room is.
IZySolidSeries* TZyGraphPainter::SolidsOf(const TZyGraph2D& Graph) {
  for (TZySeries* Series : Graph.RelatedSeries()) {
    auto* const Solids = dynamic_cast<IZySolidSeries*>(Series);
    if (Solids != nullptr && Solids->IsSolid()) return Solids;
  }
  return nullptr;
}

void TZyGraphPainter::Paint() {
  FGraph.SetHighQuality(FGr, false);
  PaintBackground();
  FDataArea.PaintGround();
  if (FGraph.CaptionVisible()) FGraph.PaintTitle(FGr);
  FDataArea.PaintVerticalGrid();
  FDataArea.PaintHorizontalGrid();
  FGraph.SetHighQuality(FGr, true);
  PaintClippedToData([this](TZySeries& Series) { Series.PaintGr(FGr); });
  FDataArea.PaintFrame();
  PaintAxes();
  PaintClippedToData([this](TZySeries& Series) { Series.DrawSymbols(FGr); });
  PaintLegends();
  FGraph.SetHighQuality(FGr, false);
}

RectF TZyGraphPainter::Whole() const {
  return {0, 0, static_cast<float>(FGraph.Width()), static_cast<float>(FGraph.Height())};
}

void TZyGraphPainter::PaintBackground() {
  const TZyColor Color = FGraph.BackColor();
  if (GetAlpha(Color) > 0) FGr.FillRectangle(SolidBrush(Color), Whole());
  TZyGradientSettings& Gradient = FGraph.BackgroundGradient();
  if (Gradient.Visible()) FGr.FillRectangle(*Gradient.GetBrush(Whole(), 0), Whole());
}

// --- Series ---------------------------------------------------------------------------------------------------------

/// Series may leave the data area at each side whose axes show all of their data, as symbols at the edge do. An end
/// that was fixed by hand hides data just as a zoomed one does.
RectF TZyGraphPainter::DataClip() const {
  const RectF& Area = FLook.Area;
  float Left = 0, Top = 0;
  auto Right = static_cast<float>(FGraph.ClientWidth()), Bottom = static_cast<float>(FGraph.ClientHeight());
  const auto Cut = [&](const TZyAxis& Axis, double First, double Last) {
    const double Nearly = (Axis.Stop() - Axis.Start()) * 1e-8;
    bool CutsLow = Axis.Start() - Nearly > First, CutsHigh = Axis.Stop() + Nearly < Last;
    if (Axis.Twisted()) std::swap(CutsLow, CutsHigh);
    if (Axis.GetHorizontal()) {
      if (CutsLow) Left = Area.X;
      if (CutsHigh) Right = Area.X + Area.Width;
    } else {
      if (CutsLow) Bottom = Area.Y + Area.Height;
      if (CutsHigh) Top = Area.Y;
    }
  };
  for (const TZySeries* Series : FGraph.RelatedSeries()) {
    Cut(*Series->XAxis(), Series->XStart(), Series->XStop());
    Cut(*Series->YAxis(), Series->YStart(), Series->YStop());
  }
  return {Left, Top, Right - Left, Bottom - Top};
}

template <class TDraw>
void TZyGraphPainter::PaintClippedToData(const TDraw& Draw) {
  const TClipGuard Saved(FGr);
  const RectF Clip = DataClip();
  const RectF Client{0, 0, static_cast<float>(FGraph.ClientWidth()), static_cast<float>(FGraph.ClientHeight())};
  if (Clip != Client) FGr.SetClip(Clip, CombineModeIntersect);
  for (TZySeries* Series : FGraph.RelatedSeries()) Draw(*Series);
}

// --- Axes and legends -----------------------------------------------------------------------------------------------

/// Draws a part of the chart in the coordinates of its control.
template <class TPart>
void TZyGraphPainter::PaintMoved(const TControl& Control, const TPart& Part) {
  const Matrix Saved = FGr.GetTransform();
  FGr.TranslateTransform(static_cast<float>(Control.Left()), static_cast<float>(Control.Top()));
  Part();
  FGr.SetTransform(Saved);
}

void TZyGraphPainter::PaintAxes() {
  FGraph.ForEachAxis([this](TZyAxis& Axis) {
    if (Axis.Visible()) PaintMoved(Axis, [&] { Axis.PaintGr(FGr); });
  });
  FGraph.SetHighQuality(FGr, true);
}

void TZyGraphPainter::PaintLegends() {
  for (IZyGraphLegend* Legend : FGraph.RelatedLegends()) {
    const TControl& Control = Legend->Control();
    if (Control.Parent() == &FGraph && Control.Visible()) PaintMoved(Control, [&] { Legend->PaintGr(FGr); });
  }
}

}  // namespace zy
