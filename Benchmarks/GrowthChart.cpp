// Draws how the cost of a chart grows with its points, from what scripts/bench.sh measured, and prints the exponents.
//
//     growth_chart JSON PNG

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "graph/ZyGraph2D.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "series/ZyPointSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace {

using namespace zy;

struct TLine {
  const char* Name;
  TZyColor Color;
  std::vector<std::pair<double, const char*>> Cases;  // points, and the case that has them
};

const TLine Lines[] = {
    {"first paint", Colors::DarkOrange, {{1e4, "N4-first"}, {1e5, "N5-first"}, {1e6, "A-line1e6"}, {1e7, "B-line1e7"}}},
    {"repaint",
     Colors::SteelBlue,
     {{1e4, "N4-repaint"},
      {1e5, "N5-repaint"},
      {1e6, "A-line1e6-repaint"},
      {1e7, "B-line1e7-repaint"},
      {1e8, "B8-line1e8-repaint"}}},
    {"zoom to another hundredth",
     Colors::SeaGreen,
     {{1e4, "N4-zoom1pct"},
      {1e5, "N5-zoom1pct"},
      {1e6, "F-zoom1pct"},
      {1e7, "N7-zoom1pct"},
      {1e8, "B8-line1e8-zoom1pct"}}},
};

/// Milliseconds of the quickest run of each case: medians of a busy machine tell more of the machine.
std::map<std::string, double> Read(const char* FileName) {
  QFile File(FileName);
  std::map<std::string, double> Result;
  if (!File.open(QIODevice::ReadOnly)) return Result;
  for (const auto& Case : QJsonDocument::fromJson(File.readAll()).object()["cases"].toArray()) {
    const QJsonObject Fields = Case.toObject();
    Result[Fields["name"].toString().toStdString()] = Fields["best_seconds"].toDouble() * 1000;
  }
  return Result;
}

/// The slope of the straight line through the logarithms that is the best by least squares.
double ExponentOf(const std::vector<double>& X, const std::vector<double>& Y) {
  double SumX = 0, SumY = 0, SumXX = 0, SumXY = 0;
  const auto Count = static_cast<double>(X.size());
  for (std::size_t i = 0; i < X.size(); ++i) {
    const double A = std::log(X[i]), B = std::log(Y[i]);
    SumX += A;
    SumY += B;
    SumXX += A * A;
    SumXY += A * B;
  }
  return (Count * SumXY - SumX * SumY) / (Count * SumXX - SumX * SumX);
}

}  // namespace

int main(int ArgCount, char** Args) {
  if (ArgCount != 3) return 2;
  const TApplication Program(ArgCount, Args);
  const std::map<std::string, double> Measured = Read(Args[1]);
  if (Measured.empty()) {
    std::fprintf(stderr, "%s holds no cases\n", Args[1]);
    return 1;
  }
  TForm Form;
  auto* const Graph = new TZyGraph2D(&Form);
  Graph->SetBounds(0, 0, 640, 400);
  Graph->SetBackColor(Colors::White);
  Graph->TestPrimaryAxis();
  Graph->SetDistanceBorderAxisRight(16);
  Graph->SetDistanceBorderAxisTop(12);
  Graph->MajorGridHorizontal().SetVisible(true);
  Graph->MajorGridHorizontal().SetColor(0xFFD0D0D0);
  Graph->PrimaryXAxis()->SetCaption("Points");
  Graph->PrimaryYAxis()->SetCaption("Milliseconds");
  Graph->PrimaryXAxis()->SetScaling(TZyAxisScaling::LogEE);
  Graph->PrimaryYAxis()->SetScaling(TZyAxisScaling::Log);
  std::string Title;
  for (const TLine& Line : Lines) {
    std::vector<double> X, Y;
    for (const auto& [Points, Name] : Line.Cases) {
      const auto Found = Measured.find(Name);
      if (Found == Measured.end()) continue;
      X.push_back(Points);
      Y.push_back(Found->second);
    }
    if (X.size() < 2) continue;
    auto* const XData = new TZyDoubleVector(&Form);
    auto* const YData = new TZyDoubleVector(&Form);
    XData->AddRange(X);
    YData->AddRange(Y);
    auto* const Series = new TZyPointSeries(&Form);
    Series->SetXData(XData);
    Series->SetYData(YData);
    Series->SetXAxis(Graph->PrimaryXAxis());
    Series->SetYAxis(Graph->PrimaryYAxis());
    Series->Line().SetColor(Line.Color);
    Series->Line().SetWidth(2);
    Series->PointSymbol().SetBorderColor(Line.Color);
    char Part[120];
    std::snprintf(Part, sizeof Part, "\\c[A=255, R=%u, G=%u, B=%u]%s   ", Line.Color >> 16 & 255, Line.Color >> 8 & 255,
                  Line.Color & 255, Line.Name);
    Title += Part;
    std::printf("%s: n^%.2f\n", Line.Name, ExponentOf(X, Y));
  }
  Graph->SetCaption(TZyRichCaption(Title));
  Graph->SetCaptionVisible(true);
  Graph->SetCaptionDistanceBefore(8);
  Graph->SetCaptionDistanceAfter(6);
  Bitmap Picture(640, 400);
  {
    Graphics Canvas(Picture);
    Graph->PaintGr(Canvas);
  }
  Picture.Save(std::filesystem::path(Args[2]));
  return 0;
}
