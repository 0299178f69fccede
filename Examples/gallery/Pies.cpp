// Electricity by source in one year as pies and donuts, flat and as solids; a pie of forty countries, whose callouts
// make room for each other; one that a database fills.

#include <algorithm>
#include <numeric>
#include <vector>

#include "gallery/Gallery.h"
#include "platform/sql/TSqlDataSet.h"

namespace zy::examples {
namespace {

constexpr TZyColor SourceColors[] = {0xFF8C7B6B, 0xFFE8B93A, 0xFF4E9F50};
constexpr const char* Title = "Electricity in Iowa by source, 2017";

/// The sources of the last year and what they gave, in 1,000 MWh.
std::vector<std::pair<std::string, double>> LastYear() {
  const TCsvFile File = TChartPage::Data("iowa-electricity.csv");
  std::vector<std::pair<std::string, double>> Result;
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row)
    if (File.Text(Row, File.Column("year")).starts_with("2017"))
      Result.emplace_back(File.Text(Row, File.Column("source")), File.Real(Row, File.Column("net_generation")));
  return Result;
}

TZyPieChart& AddElectricity(TChartPage& Chart, TZyPieChartType Type) {
  TZyPieChart& Pie = Chart.AddPie(Title, Type, SourceColors);
  for (const auto& [Source, Generation] : LastYear()) {
    Pie.Captions()->Add(Source);
    dynamic_cast<TZyDoubleVector&>(*Pie.Values()).Add(Generation);
  }
  Pie.SetStartAngle(270);
  return Pie;
}

}  // namespace

void MakePie(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyPieChart& Pie = AddElectricity(Chart, TZyPieChartType::FlatPie);
  Pie.SetLabelPosition(TZyPieLabelPosition::InsideHorizontal);
  Pie.SetLabelFrom(TZyLabelStyle::Percent);
  Pie.SetLabelFormat("0.0");
  Pie.Font().SetStyle({TFontStyle::Bold});
  Pie.SetLabelColor(Colors::White);
  Chart.AddPieLegend(Pie, TZyPieLegendPosition::RightCenter);
}

void MakeDonut(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyPieChart& Pie = AddElectricity(Chart, TZyPieChartType::FlatDonut);
  Pie.SetDonutHoleSize(55);
  Pie.SetLabelPosition(TZyPieLabelPosition::InsideAligned);
  Pie.SetLabelFrom(TZyLabelStyle::Percent);
  Pie.SetLabelFormat("0");
  Pie.SetLabelSize(4.5f);
  Pie.SetLabelColor(Colors::White);
  Chart.AddPieLegend(Pie, TZyPieLegendPosition::CenterBottom);
}

void MakeSolidPie(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyPieChart& Pie = AddElectricity(Chart, TZyPieChartType::ThreeDPie);
  TZyDoubleVector& Out = Chart.AddVector();
  Out.AddRange({0, 20, 0});
  Pie.SetExplodePercent(&Out);
  Pie.SetThreeDPieHeight(14);
  Pie.SegmentBorder().SetVisible(false);
  Pie.SetLabelPosition(TZyPieLabelPosition::InsideHorizontal);
  Pie.SetLabelFrom(TZyLabelStyle::CaptionAndPercent);
  Pie.SetLabelFormat("0.0");
  Pie.SetLabelSize(2.6f);
}

void MakeSolidDonut(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyPieChart& Pie = AddElectricity(Chart, TZyPieChartType::ThreeDDonut);
  Pie.SetStartAngle(200);
  Pie.SetThreeDPieHeight(14);
  Pie.SegmentBorder().SetVisible(false);
  Pie.SetLabelPosition(TZyPieLabelPosition::Callouts);
  Pie.SetLabelFrom(TZyLabelStyle::CaptionAndValue);
  Pie.SetLabelSize(2.4f);
  Pie.SetCalloutDistanceToPie(60);
  Pie.SetCalloutRounding(20);
  Pie.SetCalloutShadow(true);
  Pie.SetCalloutArrowVisibleMode(TZyCalloutArrowVisibleMode::AllVisible);
  TZyPieLegend& Legend = Chart.AddPieLegend(Pie, TZyPieLegendPosition::RightTop);
  Legend.SetLabelsFrom(TZyLabelStyle::CaptionAndPercent);
  Legend.SetLabelFormat("0.0");
  Legend.SetCaption("Shares");
  Legend.SetCaptionVisible(true);
}

/// Not the largest countries, so that segments are small.
void MakeForty(TChartDocument& Document) {
  constexpr std::size_t First = 45, Count = 40;
  TChartPage Chart(Document);
  const TCsvFile File = TChartPage::Data("gapminder-health-income.csv");
  std::vector<std::size_t> Rows(File.RowCount());
  std::iota(Rows.begin(), Rows.end(), std::size_t{0});
  std::ranges::sort(Rows, std::greater<>(), [&](std::size_t Row) { return File.Real(Row, File.Column("population")); });
  TZyPieChart& Pie = Chart.AddPie("Forty countries of middle size by population", TZyPieChartType::FlatPie, {});
  Pie.SegmentSettingsPalette()->FillDefaults();
  for (std::size_t Place = First; Place < First + Count; ++Place) {
    Pie.Captions()->Add(File.Text(Rows[Place], File.Column("country")));
    dynamic_cast<TZyDoubleVector&>(*Pie.Values()).Add(File.Real(Rows[Place], File.Column("population")));
  }
  Pie.SetLabelPosition(TZyPieLabelPosition::Callouts);
  Pie.SetLabelFrom(TZyLabelStyle::CaptionsList);
  Pie.SetLabelSize(1.8f);
  Pie.SetStartAngle(45);
  Pie.SetDropShadow(false);
  Pie.SetCalloutSpaceToBorder(2);
  Pie.SetCalloutBackColor(Colors::White);
  Pie.CalloutFrame().SetVisible(false);
  Pie.CalloutArrow().SetColor(Colors::Gray);
}

/// The values and the captions come from a query, and follow the table.
void MakeBoundPie(TChartDocument& Document) {
  TChartPage Chart(Document);
  auto& Query = Chart.Add<TSqlDataSet>("Query");
  Query.ExecSQL("DROP TABLE IF EXISTS electricity");
  Query.ExecSQL("CREATE TABLE electricity (source TEXT, generation REAL)");
  for (const auto& [Source, Generation] : LastYear())
    Query.ExecSQL("INSERT INTO electricity VALUES ('" + Source + "', " + std::to_string(Generation) + ")");
  Query.SetQuery("SELECT source, generation FROM electricity ORDER BY generation DESC");
  Query.Open();
  auto& Source = Chart.Add<TDataSource>("Source");
  Source.SetDataSet(&Query);
  constexpr TZyColor BySize[] = {SourceColors[0], SourceColors[2], SourceColors[1]};
  TZyPieChart& Pie = Chart.AddPie(Title, TZyPieChartType::ThreeDPie, BySize);
  auto& Values = dynamic_cast<TZyDoubleVector&>(*Pie.Values());
  Values.SetDataSource(&Source);
  Values.SetDataField("generation");
  Pie.SetDataSource(&Source);
  Pie.SetCaptionsField("source");
  Pie.SetLabelPosition(TZyPieLabelPosition::Callouts);
  Pie.SetLabelFrom(TZyLabelStyle::CaptionAndPercent);
  Pie.SetLabelFormat("0.0");
  Pie.SetLabelSize(2.4f);
  Pie.SetThreeDElevation(35);
}

}  // namespace zy::examples
