// A chart in a widget, fed by an item model.

#include <QApplication>
#include <QStandardItemModel>
#include <cstdio>

#include <zyphos/Charts.h>
#include <zyphos/Models.h>
#include <zyphos/Widgets.h>

int main(int ArgCount, char** Args) {
  const QApplication Program(ArgCount, Args);
  QStandardItemModel Model(3, 1);
  for (int Row = 0; Row < 3; ++Row) Model.setData(Model.index(Row, 0), Row * Row);
  zy::ZyChartWidget Chart;
  auto* const Values = new zy::TZyDoubleVector(&Chart.Owner());
  zy::TZyModelNumbers Link;
  Link.SetVector(Values);
  Link.Bind(&Model, 0);
  Chart.AddSeries<zy::TZyLineSeries>(nullptr, Values);
  Chart.setProperty("BackColor", QColor(Qt::yellow));
  const bool Painted = Chart.grab().toImage().pixelColor(1, 1) == Qt::yellow;
  const double Top = Chart.Graph().PrimaryYAxis()->Stop();
  std::printf("painted: %d, top: %g\n", Painted, Top);
  return Painted && Top >= 4 ? 0 : 1;
}
