// A chart in a window of the toolkit: in a layout, beside ordinary widgets that work on it.
//
//   embed [PNG]
//
// Without a display the window is drawn into the picture, and the program ends.

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>
#include <filesystem>
#include <iostream>

#include "graph/ZyGraph2D.h"
#include "platform/controls/TApplication.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace {

using namespace zy;

/// A chart of a damped oscillation that grows by a stretch at a time. The chart is a component of its own; the vectors
/// and the series belong to it.
class TOscillation {
 public:
  TOscillation() {
    FGraph.SetBackColor(Colors::White);
    FGraph.SetCaption("A damped oscillation");
    FGraph.SetCaptionVisible(true);
    FGraph.SetCaptionDistanceBefore(8);
    FGraph.SetDistanceBorderAxisRight(16);
    FGraph.MajorGridHorizontal().SetColor(0xFFD0D0D0);
    FGraph.MajorGridVertical().SetColor(0xFFD0D0D0);
    FGraph.TestPrimaryAxis();
    FGraph.PrimaryXAxis()->SetCaption("Time in s");
    FGraph.PrimaryYAxis()->SetCaption("Deflection in mm");
    FSeries.SetXData(&FTimes);
    FSeries.SetYData(&FValues);
    FSeries.SetXAxis(FGraph.PrimaryXAxis());
    FSeries.SetYAxis(FGraph.PrimaryYAxis());
    FSeries.Line().SetColor(Colors::DarkBlue);
    Append();
  }

  void Append() {
    constexpr int Points = 250;
    for (int Point = 0; Point < Points; ++Point) {
      const double Time = 0.01 * static_cast<double>(FTimes.Count());
      FTimes.Add(Time);
      FValues.Add(10 * std::exp(-Time / 4) * std::cos(6 * Time));
    }
    FGraph.Invalidate();
  }

  void ShowGrid(bool Value) {
    FGraph.MajorGridHorizontal().SetVisible(Value);
    FGraph.MajorGridVertical().SetVisible(Value);
  }

  TZyGraph2D& Graph() { return FGraph; }

 private:
  TZyGraph2D FGraph;
  TZyDoubleVector FTimes, FValues;
  TZyLineSeries FSeries;
};

int Run(int ArgCount, char** Args) {
  const TApplication Program(ArgCount, Args);  // an application with its own QApplication needs none
  QMainWindow Window;
  Window.setWindowTitle("Zyphos: a chart in a layout");
  auto* const Center = new QWidget(&Window);
  auto* const Column = new QVBoxLayout(Center);
  auto* const Row = new QHBoxLayout;
  auto* const Append = new QPushButton("Append points");
  auto* const Grid = new QCheckBox("Grid");
  Row->addWidget(Append);
  Row->addWidget(Grid);
  Row->addStretch();
  Column->addLayout(Row);

  TOscillation Oscillation;
  Column->addWidget(Oscillation.Graph().Widget(), 1);
  QObject::connect(Append, &QPushButton::clicked, &Window, [&] { Oscillation.Append(); });
  QObject::connect(Grid, &QCheckBox::toggled, &Window, [&](bool Value) { Oscillation.ShowGrid(Value); });

  Window.setCentralWidget(Center);
  Window.resize(900, 600);
  Window.show();
  if (Program.HasDisplay()) return QApplication::exec();

  Grid->click();
  Append->click();
  const std::filesystem::path FileName = ArgCount > 1 ? Args[1] : "out/embed.png";
  if (FileName.has_parent_path()) std::filesystem::create_directories(FileName.parent_path());
  if (!Window.grab().save(QString::fromStdString(FileName.string()))) {
    std::cerr << "embed: cannot write " << FileName.string() << '\n';
    return 1;
  }
  std::cout << "Wrote " << FileName.string() << '\n';
  return 0;
}

}  // namespace

int main(int ArgCount, char** Args) {
  try {
    return Run(ArgCount, Args);
  } catch (const std::exception& Error) {
    std::cerr << "embed: " << Error.what() << '\n';
    return 1;
  }
}
