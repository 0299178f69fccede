#include "graph/ZyGraphPainter.h"

#include <algorithm>
#include <optional>

#include "graph/ZyGraph2D.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/ClipGuard.h"
#include "platform/drawing/LineGatherer.h"
#include "series/ZySeries.h"
#include "texts/Exceptions.h"

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

/// A series may leave the data area at each side where its axis shows all data of its own, as symbols at the edge do.
/// An end that was fixed by hand hides data just as a zoomed one does.
RectF TZyGraphPainter::DataClip(const TZySeries& Series) {
  const RectF& Area = FLook.Area;
  auto [Left, Top, Right, Bottom] = Client();
  for (const TZyAxis* Axis : {Series.XAxis(), Series.YAxis()}) {
    auto [AtLow, AtHigh] = BeyondOf(*Axis);
    AtLow = AtLow || Series.LeavesScaleOf(*Axis);
    if (Axis->Twisted()) std::swap(AtLow, AtHigh);
    if (Axis->GetHorizontal()) {
      if (AtLow) Left = Area.X;
      if (AtHigh) Right = Area.X + Area.Width;
    } else {
      if (AtLow) Bottom = Area.Y + Area.Height;
      if (AtHigh) Top = Area.Y;
    }
  }
  return {Left, Top, Right - Left, Bottom - Top};
}

/// Asked of each axis once in a paint, unless there are very many.
TZyBeyond TZyGraphPainter::BeyondOf(const TZyAxis& Axis) {
  const auto Known = std::ranges::find(FBeyond, &Axis, &TAsked::Axis);
  if (Known != FBeyond.end()) return Known->Beyond;
  return (FBeyond[FAsked++ % FBeyond.size()] = {&Axis, Axis.DataBeyond()}).Beyond;
}

RectF TZyGraphPainter::Client() const {
  return {0, 0, static_cast<float>(FGraph.ClientWidth()), static_cast<float>(FGraph.ClientHeight())};
}

template <class TDraw>
void TZyGraphPainter::PaintClippedToData(const TDraw& Draw) {
  const TClipGuard Saved(FGr);
  const TLineGatherer Gatherer(FGr);
  std::optional<TClipGuard> Cut;
  RectF Present = Client();
  for (TZySeries* Series : FGraph.RelatedSeries()) {
    if (const RectF Clip = DataClip(*Series); Clip != Present) {
      Present = Clip;
      Cut.reset();
      if (Clip != Client()) Cut.emplace(FGr), FGr.SetClip(Clip, CombineModeIntersect);
    }
    try {
      Draw(*Series);
    } catch (const EAbort&) {
      // A handler freed it.
    }
  }
}

// --- Axes and legends -----------------------------------------------------------------------------------------------

/// Draws a part of the chart in the coordinates of its control.
template <class TPart>
void TZyGraphPainter::PaintMoved(const TControl& Control, const TPart& Part) {
  const Matrix Saved = FGr.GetTransform();
  FGr.TranslateTransform(static_cast<float>(Control.Left()), static_cast<float>(Control.Top()));
  try {
    Part();
  } catch (const EAbort&) {
    // A handler freed it.
  }
  FGr.SetTransform(Saved);
}

void TZyGraphPainter::PaintAxes() {
  FGraph.ForEachAxis([this](TZyAxis& Axis) {
    if (Axis.Visible()) PaintMoved(Axis, [&] { Axis.PaintGr(FGr); });
  });
  FGraph.SetHighQuality(FGr, true);
}

/// Those of the graph in its order, and above them others that stand in it.
void TZyGraphPainter::PaintLegends() {
  const auto PaintOne = [this](IZyGraphLegend& Legend) {
    const TControl& Control = Legend.Control();
    if (Control.Parent() != &FGraph || !Control.Visible() || (FGraph.PaintsScreen() && Legend.IsMoving())) return;
    PaintMoved(Control, [&] { Legend.PaintGr(FGr); });
  };
  for (IZyGraphLegend* Legend : FGraph.RelatedLegends()) PaintOne(*Legend);
  for (std::size_t Index = 0; Index < FGraph.Controls().size(); ++Index) {
    auto* const Legend = dynamic_cast<IZyGraphLegend*>(FGraph.Controls()[Index]);
    if (Legend != nullptr && !FGraph.RelatedLegends().Contains(Legend)) PaintOne(*Legend);
  }
}

}  // namespace zy
