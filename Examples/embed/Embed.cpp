// A chart in a window of the toolkit: in a layout, beside ordinary widgets that work on it, by signals and slots.
//
//   embed [PNG]
//
// Without a display the window is drawn into the picture, and the program ends.

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>
#include <filesystem>
#include <iostream>

#include "platform/controls/TApplication.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "widgets/ZyChartWidget.h"

namespace {

using namespace zy;

/// A damped oscillation, which grows by a stretch at a time.
void Append(TZyDoubleVector& Times, TZyDoubleVector& Values) {
  constexpr int Points = 250;
  for (int Point = 0; Point < Points; ++Point) {
    const double Time = 0.01 * static_cast<double>(Times.Count());
    Times.Add(Time);
    Values.Add(10 * std::exp(-Time / 4) * std::cos(6 * Time));
  }
}

/// What lies at a place of the chart.
QString TextAt(const ZyChartWidget& Chart, const QPoint& Place) {
  const TZyFindSeriesPointResult Hit = Chart.Graph().FindSeriesPoint(Place.x(), Place.y());
  return Hit.Found ? QString("%1 mm after %2 s").arg(Hit.Y, 0, 'f', 2).arg(Hit.X, 0, 'f', 2) : QString();
}

int Run(int ArgCount, char** Args) {
  const TApplication Program(ArgCount, Args);  // an application with its own QApplication needs none
  QMainWindow Window;
  Window.setWindowTitle("Zyphos: a chart in a layout");
  auto* const Center = new QWidget(&Window);
  auto* const Column = new QVBoxLayout(Center);
  auto* const Row = new QHBoxLayout;
  auto* const Grow = new QPushButton("Append points");
  auto* const Grid = new QCheckBox("Grid");
  auto* const Reading = new QLabel;
  Row->addWidget(Grow);
  Row->addWidget(Grid);
  Row->addStretch();
  Row->addWidget(Reading);
  Column->addLayout(Row);

  auto* const Chart = new ZyChartWidget;
  Column->addWidget(Chart, 1);
  Chart->setLook(ZyChartWidget::LightLook);
  Chart->setCaption("A damped oscillation");
  Chart->setXCaption("Time in s");
  Chart->setYCaption("Deflection in mm");
  auto* const Times = new TZyDoubleVector(&Chart->Owner());
  auto* const Values = new TZyDoubleVector(&Chart->Owner());
  Append(*Times, *Values);
  Chart->AddSeries<TZyLineSeries>(Times, Values)->Line().SetColor(Colors::DarkBlue);

  QObject::connect(Grow, &QPushButton::clicked, Chart, [=] { Append(*Times, *Values); });
  QObject::connect(Grid, &QCheckBox::toggled, Chart, [=](bool Value) {
    for (const char* const Lines : {"MajorGridHorizontal.Visible", "MajorGridVertical.Visible"})
      Chart->setProperty(Lines, Value);
  });
  QObject::connect(Chart, &ZyChartWidget::clicked, Reading,
                   [=](const QPoint& Place) { Reading->setText(TextAt(*Chart, Place)); });

  Window.setCentralWidget(Center);
  Window.resize(900, 600);
  Grid->setChecked(true);
  Window.show();
  if (Program.HasDisplay()) return QApplication::exec();

  Grow->click();
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
