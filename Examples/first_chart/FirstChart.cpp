// The first chart: closing prices of the S&P 500 over 20 years, drawn into a picture and, where there is a display,
// into a window.
//
//   first_chart [CSV [PNG]]

#include <filesystem>
#include <iostream>

#include "common/CsvFile.h"
#include "graph/ZyGraph2D.h"
#include "looks/ZyLook.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace {

using namespace zy;

/// Puts a chart of the prices on the form. The form owns all of it.
TZyGraph2D& MakeChart(TForm& Form, const examples::TCsvFile& Prices) {
  auto* const Years = new TZyDoubleVector(&Form);
  auto* const Closes = new TZyDoubleVector(&Form);
  const std::size_t Date = Prices.Column("date"), Close = Prices.Column("close");
  for (std::size_t Row = 0; Row < Prices.RowCount(); ++Row) {
    Years->Add(Prices.Year(Row, Date));
    Closes->Add(Prices.Real(Row, Close));
  }

  auto* const Graph = new TZyGraph2D(&Form);
  Graph->SetParent(&Form);
  Graph->SetBounds(0, 0, Form.ClientWidth(), Form.ClientHeight());
  Graph->SetCaption("S&P 500, daily closing prices");
  Graph->SetCaptionVisible(true);
  Graph->TestPrimaryAxis();
  Graph->PrimaryXAxis()->SetCaption("Year");
  Graph->PrimaryYAxis()->SetCaption("Index points");

  auto* const Series = new TZyLineSeries(&Form);
  Series->SetXData(Years);
  Series->SetYData(Closes);
  Graph->AddSeries(*Series);
  ApplyLook(*Graph, TZyLook::Light());
  return *Graph;
}

void SavePicture(TZyGraph2D& Graph, const std::filesystem::path& FileName) {
  Bitmap Picture(Graph.Width(), Graph.Height());
  Graphics Canvas(Picture);
  Graph.PaintGr(Canvas);
  if (FileName.has_parent_path()) std::filesystem::create_directories(FileName.parent_path());
  Picture.Save(FileName);
  std::cout << "Wrote " << FileName.string() << '\n';
}

}  // namespace

int main(int ArgCount, char** Args) {
  TApplication Program(ArgCount, Args);
  try {
    const examples::TCsvFile Prices(ArgCount > 1 ? Args[1] : ZY_EXAMPLE_DATA "/sp500-2000.csv");
    TForm Form;
    Form.SetCaption("Zyphos: first chart");
    Form.SetBounds(0, 0, 1200, 800);
    TZyGraph2D& Graph = MakeChart(Form, Prices);
    SavePicture(Graph, ArgCount > 2 ? Args[2] : "out/first_chart.png");
    if (!Program.HasDisplay()) return 0;
    Form.Show();
    return Program.Run();
  } catch (const std::exception& Error) {
    std::cerr << "first_chart: " << Error.what() << '\n';
    return 1;
  }
}
