#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDeadlineTimer>
#include <QWidget>
#include <map>

#include "annotations/ZyLegend.h"
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

TEST(ZyGraphAccessTest, LabelsAreToldAsTheyAreMeant) {
  TSampleChart Chart(400, 300);
  Chart.X->SetScaling(TZyAxisScaling::LogEE);
  Chart.AddSeries("Dose", {1, 100}, {0, 4e6});
  Chart.Paint();
  EXPECT_EQ(Chart.X->AccessibleItems(), (std::vector<std::string>{"10^0", "10^1", "10^2"}));
  EXPECT_EQ(Chart.Y->AccessibleItems().back(), "4E6");
}

std::string Heard;  // what screen readers are told, by signs of what it is

void Hear(QAccessibleEvent* Event) {
  const std::map<QAccessible::Event, char> Signs = {
      {QAccessible::ObjectCreated, '+'}, {QAccessible::ObjectDestroyed, '-'}, {QAccessible::NameChanged, '='}};
  const auto Sign = Signs.find(Event->type());
  if (Sign == Signs.end() || Event->object() != nullptr) return;  // of the toolkit's own
  Heard += Sign->second + Event->accessibleInterface()->text(QAccessible::Name).section(',', 0, 0).toStdString();
}

bool HasBus() { return qEnvironmentVariableIsSet("ZY_SCREEN_READER"); }

TEST(ZyGraphAccessTest, ScreenReadersAreToldWhatComesGoesAndChanges) {
  TSampleChart Chart(300, 200);
  for (TZyAxis* Axis : {Chart.X, Chart.Y}) Axis->SetNumbersVisible(false);
  TZySeries* const First = Chart.AddSeries("A", {1, 2}, {1, 2});
  TZySeries* const Second = Chart.AddSeries("B", {1, 2}, {1, 2});
  Chart.Form.Show();
  const auto HeardAfter = [&](const std::function<void()>& Do) {
    TreeOf(*QAccessible::queryAccessibleInterface(Chart.Graph->Widget()));  // nobody is told of what he never saw
    Heard.clear();
    Do();
    Chart.Graph->Widget()->grab();
    for (const QDeadlineTimer Deadline(400); !Deadline.hasExpired();) QApplication::processEvents();
    return Heard;
  };
  // The toolkit passes on nothing without a bus of screen readers, which is found while the program runs.
  for (const QDeadlineTimer Deadline(3000); HasBus() && !QAccessible::isActive() && !Deadline.hasExpired();)
    QApplication::processEvents();
  if (!HasBus()) GTEST_SKIP() << "see run_with_reader.sh";
  ASSERT_TRUE(QAccessible::isActive());
  QAccessible::installUpdateHandler(Hear);
  EXPECT_EQ(HeardAfter([] {}), "");
  EXPECT_EQ(HeardAfter([&] { Chart.X->SetCaption("time"); }), "=time");
  EXPECT_EQ(HeardAfter([&] { First->SetCaption("first"); }), "=first");
  auto* const Legend = new TZyLegend(&Chart.Form);
  Legend->SetName("Legend");
  EXPECT_EQ(HeardAfter([&] { Legend->SetParent(Chart.Graph); }), "+Legend");
  EXPECT_EQ(HeardAfter([&] { Second->SetIncludeInLegend(false); }), "-") << "an entry";
  EXPECT_EQ(HeardAfter([&] { delete Legend; }), "-");
  EXPECT_EQ(HeardAfter([&] { delete Second; }), "-");
  EXPECT_EQ(HeardAfter([&] { Chart.AddSeries("C", {1, 2}, {1, 2})->SetCaption("third"); }), "+third");
  QAccessible::installUpdateHandler(nullptr);
}

}  // namespace
}  // namespace zy::testing
