#include <gtest/gtest.h>

#include <QAccessible>

#include "graph/SampleChart.h"
#include "platform/drawing/QtText.h"
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
  Chart.X->SetCaption("Time in <b>s</b>");
  Chart.X->SetStart(0);
  Chart.X->SetStop(10);
  Chart.Y->SetScaling(TZyAxisScaling::DateTime);
  Chart.Y->SetNumbersVisible(false);
  Chart.AddSeries("Dose", {1, 2.5, 4}, {45000.5, 45002, 45001})->SetCaption("<b>Dose</b>");
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
  EXPECT_EQ(TreeOf(Node), "");
  Bars->SetVisible(false);
  Paint();
  EXPECT_EQ(TreeOf(Node), "");
}

}  // namespace
}  // namespace zy::testing
