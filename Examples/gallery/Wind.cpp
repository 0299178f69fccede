// Wind over the north-west of Europe: an arrow for every fourth place, downwind and as long as the wind is fast, in
// three colours by its speed.

#include <cmath>
#include <numbers>

#include "gallery/Gallery.h"
#include "series/ZyArrows.h"

void zy::examples::MakeWind(TChartDocument& Document) {
  TChartPage Chart(Document);
  TZyGraph2D& Graph = Chart.AddGraph("Simulated wind", "Longitude in degrees", "Latitude in degrees");
  Graph.SetDataAreaColor(0xFFF4F8FB);

  const TCsvFile File = TChartPage::Data("windvectors.csv");
  const std::size_t Longitude = File.Column("longitude"), Latitude = File.Column("latitude");
  constexpr double DegreesPerMetre = 0.07;  // for a wind of 1 m/s
  struct TClass {
    double From, To;  // m/s
    const char* Caption;
    TZyColor Color;
  };
  const auto IsShown = [](double Degrees) { return static_cast<int>(std::floor(Degrees * 4)) % 2 == 0; };
  for (const TClass& Class : {TClass{0, 4, "up to 4 m/s", 0xFF7FA8C9},
                              {4, 7, "4 to 7 m/s", 0xFF2E6DA4},
                              {7, 99, "above 7 m/s", 0xFFB03A2E}}) {
    TZyDoubleVector* Vectors[4];  // x, y, and the ways along both
    for (TZyDoubleVector*& Vector : Vectors) Vector = &Chart.AddVector();
    for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
      const double X = File.Real(Row, Longitude), Y = File.Real(Row, Latitude);
      const double Speed = File.Real(Row, File.Column("speed"));
      if (!IsShown(X) || !IsShown(Y) || Speed < Class.From || Speed >= Class.To) continue;
      // The direction is the one that the wind comes from, clockwise from the north.
      const double Angle = File.Real(Row, File.Column("dir")) * std::numbers::pi / 180;
      Vectors[0]->Add(X);
      Vectors[1]->Add(Y);
      Vectors[2]->Add(-DegreesPerMetre * Speed * std::sin(Angle));
      Vectors[3]->Add(-DegreesPerMetre * Speed * std::cos(Angle));
    }
    auto& Arrows = Chart.AddSeries<TZyArrows>(Graph, Vectors[0], *Vectors[1], Class.Color);
    Arrows.SetDeltaX(Vectors[2]);
    Arrows.SetDeltaY(Vectors[3]);
    Arrows.SetCaption(Class.Caption);
  }
  TZyLegend& Legend = Chart.AddLegend(Graph, TZyLegendPosition::RightCenterOfGraph);
  Legend.BackgroundGradient().SetVisible(true);
  Legend.BackgroundGradient().SetFirstColor(0xFFF0F6FA);
  Legend.BackgroundGradient().SetMiddleColor(0xFFF4F8FB);
  Legend.BackgroundGradient().SetLastColor(0xFFDCE8F2);
  Legend.SetDropShadow(true);
  Legend.SetCornerRounding(10);
}
