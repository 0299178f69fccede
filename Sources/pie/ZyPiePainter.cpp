#include "pie/ZyPiePainter.h"

#include <array>
#include <cmath>
#include <numbers>

#include "analysis/ZyMath.h"
#include "graph/shapes/ZyDrawing.h"
#include "graph/styles/ZyGradientBrushes.h"
#include "pie/ZyPieDonut.h"
#include "platform/drawing/ClipGuard.h"
#include "platform/drawing/Graphics.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// Shades a cut by the angle at which it stands to the light, which comes from a fixed side.
LinearGradientBrush CutShade(const RectF& Rim, float Angle) {
  constexpr double LightAngle = 130, MostBlack = 150, MostWhite = 100;
  const double Turned = FitTo360Degrees(static_cast<double>(Angle) + LightAngle);
  const double Radians = Turned * (std::numbers::pi / 180);
  const auto Alpha = [](double Part, double Most) { return static_cast<unsigned>(std::lrint(std::fabs(Part) * Most)); };
  ARGB First = ColorToARGB(Alpha(std::sin(Radians), MostBlack), 0, 0, 0);
  ARGB Last = ColorToARGB(Alpha(std::cos(Radians), MostWhite), 255, 255, 255);
  if (Quadrant(Turned) % 2 == 0) std::swap(First, Last);
  return {{Rim.X - 1, Rim.Y, Rim.Width + 2, Rim.Height}, First, Last, 0.0f, false};
}

/// Shades a wall from the left of its rim to the right.
LinearGradientBrush WallShade(const RectF& Rim, const std::array<ARGB, 5>& Colors, const std::array<float, 5>& Places) {
  LinearGradientBrush Result({Rim.X, Rim.Y, Rim.Width + 1, Rim.Height}, Colors.front(), Colors.back(),
                             LinearGradientModeHorizontal);
  Result.SetInterpolationColors(Colors, Places);
  return Result;
}

}  // namespace

TZyPiePainter::TZyPiePainter(TZyPieChart& Chart, Graphics& Gr)
    : FChart(Chart),
      FGr(Gr),
      FLayout(Chart.Layout()),
      mGetPen(Chart.OnGetPen()),
      mGetBrush(Chart.OnGetBrush()),
      FBorderPen(Chart.SegmentBorder().GetPen(Chart.PieExplodedRect(), 0)),
      FHasBorder(Chart.SegmentBorder().Visible()),
      FIsClosed(FLayout != nullptr && !FLayout->AnyExploded() && FLayout->Shape().TotalAngle >= 360) {}

void TZyPiePainter::Paint() {
  FChart.SetHighQuality(FGr, true);
  PaintBackground();
  if (FLayout == nullptr || !(FLayout->PieRect().Width > 0)) return;
  if (FLayout->Segments().empty()) return PaintEmpty();
  if (FLayout->Shape().DropShadow) PaintShadow();
  PaintSegments();
  PaintLabels();
}

void TZyPiePainter::PaintBackground() {
  const RectF Whole{-1, -1, static_cast<float>(FChart.ClientWidth()) + 1,
                    static_cast<float>(FChart.ClientHeight()) + 1};
  if (GetAlpha(FChart.BackColor()) > 0) FGr.FillRectangle(SolidBrush(FChart.BackColor()), Whole);
  if (FChart.BackgroundGradient().Visible()) FGr.FillRectangle(*FChart.BackgroundGradient().GetBrush(Whole, 0), Whole);
  if (FChart.CaptionVisible()) FChart.FTitleRec.PaintGr(FGr);
}

void TZyPiePainter::PaintEmpty() {
  const RectF& Rim = FLayout->PieRect();
  if (FLayout->Shape().Is3D()) {
    const TZyPieFaces Whole(Rim, std::nullopt, FLayout->WallHeight(), 0, 360);
    FGr.DrawPath(*FBorderPen, Whole.OuterWall({0, 180}));
  }
  FGr.DrawEllipse(*FBorderPen, Rim);
  TZyRichCaptionObject Text;
  Text.CaptionFont().Assign(&FChart.Font());
  Text.Alignment = TZyContentAlignment::MiddleCenter;
  Text.SetCaption(LoadResString(_sPieEmpty));
  Text.X = Rim.X + Rim.Width / 2;
  Text.Y = Rim.Y + Rim.Height / 2;
  Text.ParseIfNeeded();
  Text.PaintGr(FGr);
}

/// The shadow is dear, and the same in each paint: on pictures it is kept as one.
void TZyPiePainter::PaintShadow() {
  constexpr float Part = 0.04f;  // of the width of the pie
  const TZyPieCalculation& Layout = *FLayout;
  const float Way = Part * Layout.PieRect().Width;
  const GraphicsPath Path = ShadowOutline();
  const RectF Box = Path.GetBounds();
  const PointF Corner{std::floor(Box.X), std::floor(Box.Y)};
  const auto Draw = [&](Graphics& Gr) {
    Gr.TranslateTransform(-Corner.X, -Corner.Y);
    GraphicsPath Moved = Path;
    DrawShadow(Gr, Moved, Way, Way, HasOverlaps());
  };
  FGr.DrawStamps(ShadowLook(), {-1, -1, Box.Width + Way + 4, Box.Height + Way + 4}, {&Corner, 1}, Draw);
}

/// Whether segments that moved out lie over each other: solids do with their walls, flat ones where there is more than
/// a turn of them, as with values below 0.
bool TZyPiePainter::HasOverlaps() const {
  constexpr float WholeTurn = 360.01f;
  if (!FLayout->AnyExploded()) return false;
  float Sum = 0;
  for (const TZyPieSegment& Segment : FLayout->Segments()) Sum += std::fabs(Segment.Sweep);
  return FLayout->Shape().Is3D() || Sum > WholeTurn;
}

/// A whole turn casts the same shadow wherever it starts.
float TZyPiePainter::ShadowStart() const {
  constexpr float Whole = 360;
  return FLayout->Shape().TotalAngle == Whole ? 0 : FLayout->Shape().StartAngle;
}

/// All that decides the pixels of the shadow, as bytes.
std::string TZyPiePainter::ShadowLook() const {
  std::string Result = "pie shadow";
  const auto Add = [&Result](auto Value) { Result.append(reinterpret_cast<const char*>(&Value), sizeof Value); };
  const TZyPieCalculation& Layout = *FLayout;
  Add(Layout.PieRect());
  Add(Layout.Shape().Type);
  for (const float Value : {Layout.WallHeight(), FChart.DonutHoleSize(), ShadowStart(), Layout.Shape().TotalAngle})
    Add(Value);
  if (!Layout.AnyExploded()) return Result;
  for (const TZyPieSegment& Segment : Layout.Segments()) {
    Add(Segment.Start);
    Add(Segment.Sweep);
    Add(Segment.Shift);
  }
  return Result;
}

/// Of all segments, or of the whole when none has moved out.
GraphicsPath TZyPiePainter::ShadowOutline() const {
  const TZyPieCalculation& Layout = *FLayout;
  GraphicsPath Path(Layout.AnyExploded() ? FillModeWinding : FillModeAlternate);
  if (Layout.AnyExploded()) {
    for (std::size_t i = 0; i < Layout.Segments().size(); ++i)
      FChart.FacesOf(Layout, static_cast<int>(i), Layout.Segments()[i].Sweep).AddOutline(Path, true);
    return Path;
  }
  std::optional<RectF> Hole;
  if (Layout.Shape().IsDonut()) Hole = TZyPieFaces::HoleIn(Layout.PieRect(), FChart.DonutHoleSize());
  TZyPieFaces(Layout.PieRect(), Hole, Layout.WallHeight(), ShadowStart(), Layout.Shape().TotalAngle)
      .AddOutline(Path, false);
  return Path;
}

// --- Segments -------------------------------------------------------------------------------------------------------

template <class TDraw>
void TZyPiePainter::Pass(const TDraw& Draw) {
  for (const int Segment : FLayout->Order()) Draw(Prepare(Segment));
}

void TZyPiePainter::PaintSegments() {
  const TZyPieShape& Shape = FLayout->Shape();
  if (Shape.Is3D()) {
    Pass([this](const TTurn& Turn) { DrawCuts(Turn); });
    if (Shape.IsDonut()) Pass([this](const TTurn& Turn) { DrawInnerWall(Turn); });
    Pass([this](const TTurn& Turn) { DrawOuterWall(Turn); });
  }
  Pass([this](const TTurn& Turn) { DrawTop(Turn); });
}

TZyPiePainter::TTurn TZyPiePainter::Prepare(int Segment) {
  const TZyPieSegment& Data = FLayout->Segments()[static_cast<std::size_t>(Segment)];
  TTurn Result{Segment, FChart.FacesOf(*FLayout, Segment, Data.Sweep), FBorderPen.get(), nullptr,
               FChart.PaletteItem(Segment).GetBrush()};
  Result.Fill = Result.Own.get();
  TZyPenEventArgs Outline{Data.DataIndex, Data.Value, static_cast<double>(Data.Sweep), FBorderPen.get(), true};
  TZyBrushEventArgs Fill{Data.DataIndex, Data.Value, static_cast<double>(Data.Sweep), Result.Own.get(), true};
  try {
    if (mGetPen) mGetPen(&FChart, Outline);
    if (mGetBrush) mGetBrush(&FChart, Fill);
  } catch (const std::exception&) {
    return Result;
  }
  if (Outline.Y != static_cast<double>(Data.Sweep))
    Result.Faces = FChart.FacesOf(*FLayout, Segment, static_cast<float>(Outline.Y));
  if (Outline.Pen != nullptr) Result.SegmentPen = Outline.Pen;
  if (Fill.Brush != nullptr) Result.Fill = Fill.Brush;
  return Result;
}

void TZyPiePainter::DrawTop(const TTurn& Turn) {
  const TZyPieFaces& Faces = Turn.Faces;
  if (Faces.Hole()) {
    const GraphicsPath Top = Faces.Top();
    FGr.FillPath(*Turn.Fill, Top);
    if (FHasBorder) FGr.DrawPath(*Turn.SegmentPen, Top);
  } else {
    FGr.FillPie(*Turn.Fill, Faces.Rim(), Faces.Start(), Faces.Sweep());
    if (FHasBorder) FGr.DrawPie(*Turn.SegmentPen, Faces.Rim(), Faces.Start(), Faces.Sweep());
  }
  if (FLayout->Shape().Is3D()) DrawGlass(Turn);
}

/// Two layers over the top of a solid, as light falls on it.
void TZyPiePainter::DrawGlass(const TTurn& Turn) {
  const TZyPieFaces& Faces = Turn.Faces;
  const auto Slant = LinearBrush(Faces.Rim(), 120, 0.5f, 0x30000000, 0x00FFFFFF, 0xF0FFFFFF);
  const auto Spot = EllipticalBrush(Faces.Rim(), {0.3f, 0.8f}, 0x00FFFFFF, 0x90FFFFFF, 0x20FFFFFF);
  for (const Brush* Layer : {Slant.get(), Spot.get()}) {
    if (Faces.Hole())
      FGr.FillPath(*Layer, Faces.Top());
    else
      FGr.FillPie(*Layer, Faces.Rim(), Faces.Start(), Faces.Sweep());
  }
}

void TZyPiePainter::DrawCuts(const TTurn& Turn) {
  if (FIsClosed) return;
  for (const float Angle : Turn.Faces.Cuts()) DrawCut(Turn, Angle, Turn.Faces.CutAt(Angle));
}

/// The inner end of a part of a cut has no line.
void TZyPiePainter::DrawCut(const TTurn& Turn, float Angle, const TZyPieFaces::TCut& Cut, bool IsWhole) {
  FGr.FillPolygon(*Turn.Fill, Cut);
  if (FHasBorder && IsWhole) FGr.DrawPolygon(*Turn.SegmentPen, Cut);
  if (FHasBorder && !IsWhole) FGr.DrawLines(*Turn.SegmentPen, Cut);
  FGr.FillPolygon(CutShade(Turn.Faces.Rim(), Angle), Cut);
}

void TZyPiePainter::DrawWall(const TTurn& Turn, const GraphicsPath& Wall, const Brush& Shade) {
  FGr.FillPath(*Turn.Fill, Wall);
  if (FHasBorder) FGr.DrawPath(*Turn.SegmentPen, Wall);
  FGr.FillPath(Shade, Wall);
}

/// The far wall of the hole would cover the cuts of its own segment that stand before it: they come again.
void TZyPiePainter::DrawInnerWall(const TTurn& Turn) {
  const LinearGradientBrush Shade = WallShade(
      *Turn.Faces.Hole(), {0xC0000000, 0x80000000, 0x30000000, 0x30FFFFFF, 0x30000000}, {0, 0.25f, 0.5f, 0.8f, 1});
  for (const TZyPieArc& Arc : Turn.Faces.InnerArcs()) DrawWall(Turn, Turn.Faces.InnerWall(Arc), Shade);
  if (FIsClosed) return;
  for (const float Angle : Turn.Faces.CutsBeforeHole()) DrawCut(Turn, Angle, Turn.Faces.CutAt(Angle));
}

/// The walls of those beside a segment that moves out cover its cuts as well: what lies before them comes again.
void TZyPiePainter::DrawOuterWall(const TTurn& Turn) {
  for (const auto& [Angle, Cut] : FChart.CutsBeyond(*FLayout, Turn.Segment, Turn.Faces))
    DrawCut(Turn, Angle, Cut, false);
  const LinearGradientBrush Shade = WallShade(
      Turn.Faces.Rim(), {0x00FFFFFF, 0xBFFFFFFF, 0x00FFFFFF, 0x30000000, 0x90000000}, {0, 0.2f, 0.5f, 0.75f, 1});
  for (const TZyPieArc& Arc : Turn.Faces.OuterArcs()) DrawWall(Turn, Turn.Faces.OuterWall(Arc), Shade);
}

// --- Labels ---------------------------------------------------------------------------------------------------------

void TZyPiePainter::PaintLabels() {
  if (!FLayout->Callouts().empty()) PaintCallouts();
  for (std::size_t i = 0; i < FChart.Labels().size(); ++i) FChart.Labels()[i]->PaintGr(FGr);
}

RectF TZyPiePainter::BoxOf(std::size_t Index) const {
  constexpr float Unit = 0.02f;  // of the font size
  const TZyRichCaptionObject& Label = *FChart.Labels()[Index];
  const float Margin = FChart.Font().Size() * FChart.CalloutSpaceToBorder() * Unit;
  const float Width = Label.Width() + Margin, Height = Label.Height() + Margin;
  return {Label.X - Width / 2, Label.Y - Height / 2, Width, Height};
}

/// All lines first, so that no box is crossed by the line of another one.
void TZyPiePainter::PaintCallouts() {
  using enum TZyCalloutArrowVisibleMode;
  constexpr unsigned Hiding = 200;  // a box that is nearly clear casts no shadow
  constexpr float Unit = 0.02f;
  const std::size_t Count = std::min(FLayout->Callouts().size(), FChart.Labels().size());
  const TZyCalloutArrowVisibleMode Mode = FChart.CalloutArrow().Visible() ? FChart.CalloutArrowVisibleMode() : None;
  if (Mode != None) {
    const auto Line = FChart.CalloutArrow().GetPen(ToRectF(FChart.ClientRect()), 0);
    for (std::size_t i = 0; i < Count; ++i)
      if (Mode == AllVisible || FLayout->Callouts()[i].Overlayed) PaintCalloutLine(i, *Line);
  }
  const bool HasShadow =
      FChart.CalloutShadow() && (GetAlpha(FChart.CalloutBackColor()) >= Hiding || FChart.CalloutGradient().Visible());
  const SolidBrush Plain(FChart.CalloutBackColor());
  for (std::size_t i = 0; i < Count; ++i) {
    const RectF Box = BoxOf(i);
    const auto Frame = FChart.CalloutFrame().GetPen(FLayout->PieRect(), 0);
    const auto Shaded = FChart.CalloutGradient().Visible() ? FChart.CalloutGradient().GetBrush(Box, 0) : nullptr;
    DrawRoundRect(FGr, Shaded != nullptr ? *Shaded : static_cast<const Brush&>(Plain), *Frame, Box,
                  FChart.Font().Size() * FChart.CalloutRounding() * Unit, FChart.CalloutFrame().Visible(), HasShadow,
                  FChart.CalloutRaised(), FChart.CalloutLowered());
  }
}

/// From the label over the place where its box would stand to the rim. It does not shine through the box.
void TZyPiePainter::PaintCalloutLine(std::size_t Index, const TZyPen& Line) {
  constexpr unsigned Opaque = 255;
  const TZyPieCallout& Callout = FLayout->Callouts()[Index];
  const TZyRichCaptionObject& Label = *FChart.Labels()[Index];
  const TClipGuard Clip(FGr);
  if (GetAlpha(FChart.CalloutBackColor()) < Opaque) FGr.ExcludeClip(BoxOf(Index));
  const PointF Points[] = {{Label.X, Label.Y}, Callout.Bent, Callout.Start};
  FGr.DrawLines(Line, Points);
}

}  // namespace zy
