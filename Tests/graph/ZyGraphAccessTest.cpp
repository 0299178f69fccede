#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>

#include "graph/SampleChart.h"
#include "series/ZyBars.h"

namespace zy::testing {
namespace {

class TOwnBars : public TZyBars {
 public:
  using TZyBars::TZyBars;
};

/// The names below a node, one a line, deeper ones indented.
std::string TreeOf(const QAccessibleInterface& Node, const std::string& Indent = "") {
  std::string Result;
  for (int Index = 0; Index < Node.childCount(); ++Index) {
    const QAccessibleInterface& Child = *Node.child(Index);
    EXPECT_EQ(Node.indexOfChild(&Child), Index);
    Result += Indent + Child.text(QAccessible::Name).toStdString() + '\n' + TreeOf(Child, Indent + "  ");
  }
  return Result;
}

TEST(ZyGraphAccessTest, ScreenReadersFindAxesAndSeries) {
  TSampleChart Chart(300, 200);
  Chart.X->SetCaption("Time in \\bs\\b");
  Chart.X->SetStart(0);
  Chart.X->SetStop(10);
  Chart.Y->SetScaling(TZyAxisScaling::DateTime);
  Chart.Y->SetNumbersVisible(false);
  Chart.AddSeries("Dose", {1, 2.5, 4}, {45000.5, 45002, 45001})->SetCaption("\\bDose\\b");
  auto* const Bars = Chart.AddSeries<TOwnBars>("Own", {1, 2.5, 4}, {45000.5, 45002, 45001});
  Chart.AddSeries("Empty", {1}, {std::numeric_limits<double>::quiet_NaN()});
  Chart.Form.Show();
  const QAccessibleInterface& Node = *QAccessible::queryAccessibleInterface(Chart.Graph->Widget());
  Bitmap Picture(300, 200);
  const auto Paint = [&] {
    Graphics Gr(Picture);
    Chart.Graph->PaintGr(Gr);
  };
  Paint();
  const std::string Axes =
      "\n\n"  // the scroll bars of the toolkit
      "Time in s: 1.0 to 4.0\n  1.0\n  1.5\n  2.0\n  2.5\n  3.0\n  3.5\n  4.0\nY\n"
      "Dose, line: 3 points, X 1 to 4, Y 2023-03-15 12:00:00 to 2023-03-17 00:00:00\n";
  EXPECT_EQ(TreeOf(Node), Axes +
                              "ZyBars1, bars: 2 points, X 1 to 4, Y 1899-12-30 00:00:00 to 2023-03-17 00:00:00\n"
                              "ZyLineSeries1, line: no points\n");
  Bars->SetVisible(false);
  Paint();
  EXPECT_EQ(TreeOf(Node), Axes + "ZyBars1, bars: hidden\nZyLineSeries1, line: no points\n");
}

}  // namespace
}  // namespace zy::testing
