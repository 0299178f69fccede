#include "gallery/Gallery.h"

#include <cctype>

#include "looks/ZyLook.h"

namespace zy::examples {
namespace {

/// What has axes, but no series yet: those of the gallery have colours and widths of their own.
void Style(TZyGraph2D& Graph) {
  ApplyLook(Graph, TZyLook::Light());
  Graph.MajorGridVertical().SetVisible(false);
  for (TZyAxis* Axis : Graph.Axes()) Axis->Font().SetStyle({});
}

}  // namespace

TZyGraph2D& TChartPage::AddGraph(const char* Title, const char* XCaption, const char* YCaption) {
  auto& Graph = Add<TZyGraph2D>("Graph");
  Graph.SetParent(&Document.Page());
  Graph.SetAlign(alClient);
  Graph.SetCaption(Title);
  Graph.SetCaptionVisible(*Title != '\0');
  Graph.TestPrimaryAxis();
  Graph.PrimaryXAxis()->SetCaption(XCaption);
  Graph.PrimaryYAxis()->SetCaption(YCaption);
  Style(Graph);
  return Graph;
}

TChartPage::TStacked TChartPage::AddStacked(const char* LowerCaption, const char* Title, const char* UpperCaption,
                                            double Part) {
  TZyGraph2D& Lower = AddGraph("", "Date", LowerCaption);
  TZyGraph2D& Upper = AddGraph(Title, "", UpperCaption);
  Upper.SetAlign(alTop);
  Upper.SetHeight(static_cast<int>(Document.Page().Height() * Part));
  Lower.SetAlign(alClient);
  delete Upper.PrimaryXAxis();
  Upper.SetPrimaryXAxis(Lower.PrimaryXAxis());
  Lower.PrimaryXAxis()->SetScaling(TZyAxisScaling::DateTime);
  return {Lower, Upper};
}

TZyAxis& TChartPage::AddAxis(TZyGraph2D& Graph, TZyAxisPosition Position, const char* Caption) {
  auto& Axis = Add<TZyAxis>("Axis");
  Axis.SetPosition(Position);
  Axis.SetParent(&Graph);
  Axis.SetCaption(Caption);
  Style(Graph);
  return Axis;
}

TZyLegend& TChartPage::AddLegend(TZyGraph2D& Graph, TZyLegendPosition Position) {
  auto& Legend = Add<TZyLegend>("Legend");
  Legend.SetParent(&Graph);
  Legend.SetGraph(&Graph);
  Legend.SetPosition(Position);
  Legend.SetItemWidth(36);
  Legend.SetDistanceItemCaption(6);
  Legend.SetDistanceBetweenColumns(16);
  ApplyLook(Legend, TZyLook::Light());
  return Legend;
}

TZyLegend& TChartPage::AddLegend(TZyGraph2D& Graph, TPoint Place) {
  TZyLegend& Legend = AddLegend(Graph, TZyLegendPosition::FreeFloating);
  Legend.SetBounds(Place.X, Place.Y, 0, 0);
  Legend.SetBackColor(0xF0FFFFFF);
  Legend.Frame().SetVisible(true);
  Legend.Frame().SetColor(0xFFB0B0B0);
  Legend.SetDropShadow(true);
  return Legend;
}

TZyPieChart& TChartPage::AddPie(const char* Title, TZyPieChartType Type, std::span<const TZyColor> Colors) {
  auto& Pie = Add<TZyPieChart>("Pie");
  Pie.SetParent(&Document.Page());
  Pie.SetAlign(alClient);
  Pie.SetBackColor(zy::Colors::White);
  Pie.SetCaption(Title);
  Pie.SetCaptionVisible(true);
  Pie.SetCaptionDistanceBefore(10);
  Pie.SetCaptionDistanceAfter(8);
  Pie.CaptionFont().SetSize(14);
  for (auto Set : {&TZyPieChart::SetDistanceAtLeft, &TZyPieChart::SetDistanceAtRight, &TZyPieChart::SetDistanceAtTop,
                   &TZyPieChart::SetDistanceAtBottom})
    (Pie.*Set)(16);
  Pie.SetPieChartType(Type);
  auto& Palette = Add<TZyFillPalette>("Palette");
  for (const TZyColor Color : Colors) {
    TZyFillSettings Fill;
    Fill.SetForeColor(Color);
    Palette.Add(Fill);
  }
  Pie.SetSegmentSettingsPalette(&Palette);
  Pie.SegmentBorder().SetColor(zy::Colors::White);
  Pie.SetValues(&AddVector());
  return Pie;
}

TZyPieLegend& TChartPage::AddPieLegend(TZyPieChart& Pie, TZyPieLegendPosition Position) {
  auto& Legend = Add<TZyPieLegend>("Legend");
  Legend.SetParent(&Pie);
  Legend.SetPieChart(&Pie);
  Legend.SetPosition(Position);
  Legend.SetDistanceToPie(16);
  ApplyLook(Legend, TZyLook::Light());
  return Legend;
}

std::string TChartPage::ReadableName(std::string Name) {
  char Before = ' ';
  for (char& Letter : Name) {
    if (Letter == '_') Letter = ' ';
    if (Before == ' ') Letter = static_cast<char>(std::toupper(static_cast<unsigned char>(Letter)));
    Before = Letter;
  }
  return Name;
}

std::span<const TEntry> Entries() {
  static constexpr TEntry All[] = {{"shares", "Shares on a date axis", MakeShares},
                                   {"carbon-dioxide", "Trend and seasons", MakeCarbonDioxide},
                                   {"weather", "A band and two Y axes", MakeWeather},
                                   {"health", "Points on a log axis", MakeHealth},
                                   {"day", "Time of day", MakeDay},
                                   {"coupled", "Two graphs, one X axis", MakeCoupled},
                                   {"sides", "Axes on four sides", MakeSides},
                                   {"rubrics", "An axis of texts", MakeRubrics},
                                   {"ohlc", "OHLC bars and volume", MakeOHLC},
                                   {"candles", "Candles and volume", MakeCandles},
                                   {"electricity", "Stacked bars", MakeElectricity},
                                   {"electricity-cuboids", "Stacked cuboids", MakeElectricityCuboids},
                                   {"electricity-cylinders", "Stacked cylinders", MakeElectricityCylinders},
                                   {"electricity-lying", "Lying bars", MakeElectricityLying},
                                   {"electricity-lying-cuboids", "Lying cuboids", MakeElectricityLyingCuboids},
                                   {"electricity-lying-cylinders", "Lying cylinders", MakeElectricityLyingCylinders},
                                   {"population", "Bubbles on a log axis", MakePopulation},
                                   {"wind", "Arrows", MakeWind},
                                   {"months", "Error bars in both directions", MakeMonths},
                                   {"curves", "Curves through points", MakeCurves},
                                   {"trend", "Average, slope and regression", MakeTrend},
                                   {"averages", "Moving averages and an integral", MakeAverages},
                                   {"fit", "A formula fitted to data", MakeFit},
                                   {"polynomial", "A polynomial and its residuals", MakePolynomial},
                                   {"spectrum", "A spectrum", MakeSpectrum},
                                   {"zero-origin", "Axes through zero", MakeZeroOrigin},
                                   {"pie", "Pie", MakePie},
                                   {"donut", "Donut", MakeDonut},
                                   {"pie-solid", "Pie as a solid", MakeSolidPie},
                                   {"donut-solid", "Donut as a solid", MakeSolidDonut},
                                   {"pie-forty", "Forty segments", MakeForty},
                                   {"pie-bound", "Pie on a database", MakeBoundPie, false}};
  return All;
}

}  // namespace zy::examples
