#include "looks/ZyLook.h"

#include <cmath>

#include "annotations/ZyCustomLegend.h"
#include "annotations/ZyMovable.h"
#include "annotations/ZyRichLabel.h"
#include "annotations/captions/ZyFont.h"
#include "axes/ZyAxis.h"
#include "graph/ZyGraph2D.h"
#include "graph/styles/ZyPointSymbolSettings.h"
#include "pie/ZyPieDonut.h"
#include "platform/framework/Reflection.h"
#include "platform/framework/SystemColors.h"
#include "series/ZyBars.h"
#include "undo/ZyUndoGroup.h"

namespace zy {
namespace {

// Okabe and Ito, Color Universal Design (2008): eight colours that people with any common colour vision tell apart.
constexpr TZyColor Blue = 0xFF0072B2, Vermilion = 0xFFD55E00, BluishGreen = 0xFF009E73, ReddishPurple = 0xFFCC79A7,
                   Orange = 0xFFE69F00, SkyBlue = 0xFF56B4E9, Yellow = 0xFFF0E442;

enum : int { WindowColor = 5, WindowTextColor = 8 };  // numbers of SystemColor

constexpr TZyColor WithAlphaOf(TZyColor Color, TZyColor Other) { return (Color & 0x00FFFFFF) | (Other & 0xFF000000); }

TZyColor Mix(TZyColor A, TZyColor B, double PartOfB) {
  const auto Channel = [&](unsigned Of, unsigned And) {
    return static_cast<unsigned>(std::lround(Of + (static_cast<double>(And) - Of) * PartOfB));
  };
  return ColorToARGB(255, Channel(GetR(A), GetR(B)), Channel(GetG(A), GetG(B)), Channel(GetB(A), GetB(B)));
}

/// A font that keeps its style.
struct TLookFont : TZyFont {
  TLookFont(const TZyFont& Present, const TZyLook& Look, float Size) {
    Assign(&Present);
    SetName(Look.FontName);
    SetSize(Size);
    SetFillColor(Look.Text);
  }
};

float CaptionSize(const TZyLook& Look) { return std::round((Look.TextSize + Look.TitleSize) / 2); }

void Show(TZyLineSettings& Line, TZyColor Color) {
  Line.SetVisible(GetAlpha(Color) != 0);
  if (Line.Visible()) Line.SetColor(Color);
}

void Apply(TZyAxis& Axis, const TZyLook& Look) {
  Axis.SetForeColor(Look.Axis);
  Axis.SetTickColor(Look.Axis);
  Axis.SetMajorTickColor(Look.Axis);
  Axis.SetFont(TLookFont(Axis.Font(), Look, Look.TextSize));
  Axis.SetCaptionFont(TLookFont(Axis.CaptionFont(), Look, CaptionSize(Look)));
  Axis.SetDistanceAxisLabels(4);
  Axis.SetDistanceNumbersCaption(6);
}

void ApplyToGraph(TZyGraph2D& Graph, const TZyLook& Look) {
  Graph.SetBackColor(Look.Back);
  Graph.SetDataAreaColor(Look.DataArea);
  Graph.SetFont(TLookFont(Graph.Font(), Look, Look.TitleSize));
  Show(Graph.DataAreaFrame(), Look.Frame);
  for (TZyLineSettings* Line : {&Graph.MajorGridHorizontal(), &Graph.MajorGridVertical()}) Show(*Line, Look.MajorGrid);
  for (TZyLineSettings* Line : {&Graph.MinorGridHorizontal(), &Graph.MinorGridVertical()}) Show(*Line, Look.MinorGrid);
  Graph.SetCaptionDistanceBefore(10);
  Graph.SetCaptionDistanceAfter(8);
  Graph.SetDistanceBorderAxisLeft(10);
  Graph.SetDistanceBorderAxisRight(16);
  Graph.SetDistanceBorderAxisTop(Graph.CaptionVisible() ? 0.0f : 12.0f);
  Graph.SetDistanceBorderAxisBottom(8);
}

}  // namespace

const TZyLook& TZyLook::Light() {
  static const TZyLook Look{.SeriesColors = {Blue, Vermilion, BluishGreen, ReddishPurple, Orange, SkyBlue, 0xFF000000}};
  return Look;
}

const TZyLook& TZyLook::Dark() {
  static const TZyLook Look{
      .Text = 0xFFE0E0E0,
      .Back = 0xFF202124,
      .Axis = 0xFFA8ABB0,
      .MajorGrid = 0xFF3C4043,
      .SeriesColors = {SkyBlue, Orange, BluishGreen, Yellow, ReddishPurple, Vermilion, 0xFFFFFFFF}};
  return Look;
}

const TZyLook& TZyLook::Print() {
  static const TZyLook Look{.TextSize = 9,
                            .TitleSize = 12,
                            .Frame = Colors::Black,
                            .MajorGrid = 0xFFD8D8D8,
                            .SeriesColors = {0xFF000000, Blue, Vermilion, BluishGreen, Orange, SkyBlue, ReddishPurple}};
  return Look;
}

const TZyLook& TZyLook::HighContrast() {
  static const TZyLook Look{
      .TextSize = 13,
      .TitleSize = 18,
      .Text = Colors::White,
      .Back = Colors::Black,
      .Axis = Colors::White,
      .Frame = Colors::White,
      .MajorGrid = 0xFF808080,
      .LineWidth = 3,
      .SeriesColors = {Yellow, SkyBlue, Colors::White, Orange, BluishGreen, ReddishPurple, Vermilion}};
  return Look;
}

TZyLook TZyLook::OfPalette() {
  const TZyColor Back = SystemColor(WindowColor), Text = SystemColor(WindowTextColor);
  TZyLook Result = GetBrightness(Back) < GetBrightness(Text) ? Dark() : Light();
  Result.Back = Back;
  Result.Text = Text;
  Result.Axis = Mix(Text, Back, 0.25);
  Result.MajorGrid = Mix(Text, Back, 0.85);
  return Result;
}

void SetSeriesColor(TZySeries& Series, TZyColor Color) {
  const TZyUndoGroup Group(Series.UndoStack(), _sSeriesColor);
  Series.Line().SetColor(WithAlphaOf(Color, Series.Line().Color()));
  Series.Area().SetForeColor(WithAlphaOf(Color, Series.Area().ForeColor()));
  for (const TPropInfo* Row : Series.ClassInfo().Properties()) {
    if (!Row->IsOwnedObject) continue;
    TPersistent* const Part = Row->GetObject(Series);  // of the kind's own
    if (auto* const Line = dynamic_cast<TZySimpleLineSettings*>(Part))
      Line->SetColor(WithAlphaOf(Color, Line->Color()));
    if (auto* const Area = dynamic_cast<TZyAreaSettings*>(Part))
      Area->SetForeColor(WithAlphaOf(Color, Area->ForeColor()));
    auto* const Symbol = dynamic_cast<TZyPointSymbolSettings*>(Part);
    if (Symbol == nullptr || std::string_view(Row->Name) != "PointSymbol") continue;
    Symbol->SetBorderColor(WithAlphaOf(Color, Symbol->BorderColor()));
    Symbol->SetFillColor(WithAlphaOf(Brighten(Color, 1.3), Symbol->FillColor()));
  }
}

void ApplyLook(TZyCustomLegend& Legend, const TZyLook& Look) {
  const TZyUndoGroup Group(Legend.UndoStack(), _sGraphLook);
  Legend.SetBackColor(Look.Back);
  Legend.SetFont(TLookFont(Legend.Font(), Look, Look.TextSize));
  Legend.SetCaptionFont(TLookFont(Legend.CaptionFont(), Look, CaptionSize(Look)));
  Show(Legend.Frame(), Look.Frame);
}

void ApplyLook(TZyMovable& Marker, const TZyLook& Look) {
  const TZyUndoGroup Group(Marker.UndoStack(), _sGraphLook);
  Marker.SetFont(TLookFont(Marker.Font(), Look, Look.TextSize));
  Marker.SetCaptionBackColor(WithAlphaOf(Look.Back, Marker.CaptionBackColor()));
  Marker.Line().SetColor(Look.Axis);
}

void ApplyLook(TZyRichLabel& Label, const TZyLook& Look) {
  const TLookFont Font(Label.Font(), Look, Look.TextSize);
  Label.Font().Assign(&Font);
}

void ApplyLook(TZySeries& Series, const TZyLook& Look, std::size_t Place) {
  const TZyUndoGroup Group(Series.UndoStack(), _sGraphLook);
  if (!Look.SeriesColors.empty()) SetSeriesColor(Series, Look.SeriesColors[Place % Look.SeriesColors.size()]);
  Series.Line().SetWidth(Look.LineWidth);
  if (auto* const Bars = dynamic_cast<TZyBars*>(&Series))
    Bars->SetFont(TLookFont(Bars->Font(), Look, Bars->Font().Size()));
}

void ApplyLook(TZyPieChart& Pie, const TZyLook& Look) {
  const TZyUndoGroup Group(Pie.UndoStack(), _sGraphLook);
  Pie.SetBackColor(Look.Back);
  Pie.SetCaptionFont(TLookFont(Pie.CaptionFont(), Look, Look.TitleSize));
  TLookFont Labels(Pie.Font(), Look, Pie.Font().Size());
  const bool AreCallouts = Pie.LabelPosition() == TZyPieLabelPosition::Callouts;
  if (AreCallouts) Pie.SetCalloutBackColor(WithAlphaOf(Look.Back, Pie.CalloutBackColor()));
  if (!AreCallouts) Labels.SetFillColor(Pie.Font().FillColor());
  Pie.SetFont(Labels);
  Pie.CalloutArrow().SetColor(Look.Axis);
  Pie.CalloutFrame().SetColor(Look.Axis);
  for (IZyGraphLegend* Each : Pie.RelatedLegends())
    if (auto* const Legend = dynamic_cast<TZyCustomLegend*>(Each)) ApplyLook(*Legend, Look);
}

void ApplyLook(TZyGraph2D& Graph, const TZyLook& Look) {
  Graph.TestPrimaryAxis();
  const TZyUndoGroup Group(Graph.UndoStack(), _sGraphLook);
  const TZySeriesUpdate Update(&Graph);
  ApplyToGraph(Graph, Look);
  for (TZyAxis* Axis : Graph.Axes()) Apply(*Axis, Look);
  for (IZyGraphLegend* Each : Graph.RelatedLegends())
    if (auto* const Legend = dynamic_cast<TZyCustomLegend*>(Each)) ApplyLook(*Legend, Look);
  for (TControl* Control : Graph.Controls()) {
    if (auto* const Marker = dynamic_cast<TZyMovable*>(Control)) ApplyLook(*Marker, Look);
    auto* const Label = dynamic_cast<TZyRichLabel*>(Control);
    if (Label == nullptr) continue;
    if (Graph.UndoStack() != nullptr) Graph.UndoStack()->PushProperty(Label, "ParentFont");
    Label->Font().PushToUndoStack(Graph.UndoStack(), LoadResString(_sGraphLook));
    ApplyLook(*Label, Look);
  }
  std::size_t Next = 0;
  for (TZySeries* Series : Graph.RelatedSeries()) ApplyLook(*Series, Look, Next++);
}

void ApplyLook(TZyCustomGraph& Chart, const TZyLook& Look) {
  if (auto* const Graph = dynamic_cast<TZyGraph2D*>(&Chart)) return ApplyLook(*Graph, Look);
  if (auto* const Pie = dynamic_cast<TZyPieChart*>(&Chart)) ApplyLook(*Pie, Look);
}

}  // namespace zy
