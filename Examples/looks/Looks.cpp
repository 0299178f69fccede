// One chart in each of the looks: light, dark, for print, and of high contrast.
//
//   looks [FOLDER]
//
// Without a display, a picture of them is drawn into the folder instead, and the program ends.

#include <filesystem>
#include <iostream>
#include <map>
#include <string>

#include "Charts.h"
#include "common/CsvFile.h"
#include "common/Pictures.h"

namespace {

using namespace zy;

constexpr int Width = 560, Height = 360;

/// What Iowa generated from each source of energy, year by year.
TZyGraph2D& AddChart(TForm& Form, const char* Title, const TZyLook& Look) {
  auto& Graph = *new TZyGraph2D(&Form);
  Graph.SetParent(&Form);
  Graph.SetCaption(Title);
  Graph.SetCaptionVisible(true);
  Graph.TestPrimaryAxis();
  Graph.PrimaryXAxis()->SetCaption("Year");
  Graph.PrimaryYAxis()->SetCaption("TWh");

  const examples::TCsvFile File(ZY_EXAMPLE_DATA "/iowa-electricity.csv");
  struct TSource {
    TZyDoubleVector *Years, *Values;
  };
  std::map<std::string, TSource> Sources;
  for (std::size_t Row = 0; Row < File.RowCount(); ++Row) {
    TSource& Source = Sources[File.Text(Row, File.Column("source"))];
    if (Source.Years == nullptr) Source = {new TZyDoubleVector(&Form), new TZyDoubleVector(&Form)};
    Source.Years->Add(File.Year(Row, File.Column("year")));
    Source.Values->Add(File.Real(Row, File.Column("net_generation")) / 1000);
  }
  auto Symbol = TZyPointSymbol::Circle;
  for (const auto& [Name, Source] : Sources) {
    auto& Series = *new TZyPointSeries(&Form);
    Series.SetCaption(Name);
    Series.SetXData(Source.Years);
    Series.SetYData(Source.Values);
    Series.PointSymbol().SetPointSymbol(Symbol);
    Series.PointSymbol().SetSize(8);
    Symbol = Symbol == TZyPointSymbol::Circle ? TZyPointSymbol::Square : TZyPointSymbol::Diamond;
    Graph.AddSeries(Series);
  }
  auto& Legend = *new TZyLegend(&Form);
  Legend.SetParent(&Graph);
  Legend.SetGraph(&Graph);
  Legend.SetPosition(TZyLegendPosition::BottomCenterOfGraph);
  Legend.SetItemWidth(36);
  ApplyLook(Graph, Look);
  return Graph;
}

void AddCharts(TForm& Form) {
  Form.SetCaption("Zyphos: looks");
  Form.SetPosition(poScreenCenter);
  Form.SetBounds(0, 0, 2 * Width, 2 * Height);
  AddChart(Form, "Light", TZyLook::Light()).SetBounds(0, 0, Width, Height);
  AddChart(Form, "Dark", TZyLook::Dark()).SetBounds(Width, 0, Width, Height);
  AddChart(Form, "For print", TZyLook::Print()).SetBounds(0, Height, Width, Height);
  AddChart(Form, "High contrast", TZyLook::HighContrast()).SetBounds(Width, Height, Width, Height);
}

}  // namespace

int main(int ArgCount, char** Args) {
  TApplication Program(ArgCount, Args);
  try {
    TForm Form;
    AddCharts(Form);
    if (Program.HasDisplay()) {
      Form.Show();
      return Program.Run();
    }
    const std::filesystem::path Folder = ArgCount > 1 ? Args[1] : "out";
    std::filesystem::create_directories(Folder);
    examples::SavePictures(Folder / "looks", 2 * Width, 2 * Height, [&](Graphics& Canvas) { Form.PaintTo(Canvas); });
    std::cout << "Wrote " << (Folder / "looks.png").string() << '\n';
    return 0;
  } catch (const std::exception& Error) {
    std::cerr << "looks: " << Error.what() << '\n';
    return 1;
  }
}
