#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDeadlineTimer>
#include <QWidget>

#include "annotations/ZyLegend.h"
#include "graph/SampleChart.h"
#include "series/ZyBars.h"
#include "texts/Exceptions.h"

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
  Chart.AddSeries("Dose", {1, 100}, {0, 5e6});
  Chart.Paint();
  EXPECT_EQ(Chart.X->AccessibleItems(), (std::vector<std::string>{"10^0", "10^1", "10^2"}));
  EXPECT_EQ(Chart.Y->AccessibleItems().back(), "5E6");
}

std::string Heard;  // what screen readers are told

void Hear(QAccessibleEvent* Event) {
  const char* const Kind = Event->type() == QAccessible::ObjectCreated     ? "+"
                           : Event->type() == QAccessible::ObjectDestroyed ? "-"
                           : Event->type() == QAccessible::NameChanged     ? "="
                                                                           : nullptr;
  if (Kind == nullptr || Event->object() != nullptr) return;  // of the toolkit's own
  Heard += Kind + Event->accessibleInterface()->text(QAccessible::Name).section(',', 0, 0).toStdString() + ' ';
}

TEST(ZyGraphAccessTest, ScreenReadersAreToldWhatComesGoesAndChanges) {
  TSampleChart Chart(300, 200);
  for (TZyAxis* Axis : {Chart.X, Chart.Y}) Axis->SetNumbersVisible(false);
  TZySeries* const First = Chart.AddSeries("A", {1, 2}, {1, 2});
  First->SetCaption("first");
  Chart.Form.Show();
  const auto HeardAfter = [&](const std::function<void()>& Do) {
    Heard.clear();
    Do();
    Chart.Graph->Widget()->grab();
    for (const QDeadlineTimer Deadline(400); !Deadline.hasExpired();) QApplication::processEvents();
    return Heard;
  };
  QAccessible::installUpdateHandler(Hear);
  const QAccessibleInterface& Node = *QAccessible::queryAccessibleInterface(Chart.Graph->Widget());
  EXPECT_GT(Node.childCount(), 0);
  EXPECT_EQ(HeardAfter([&] { Chart.X->SetCaption("unheard"); }), "") << "nobody is there";
  QAccessible::setActive(true);
  EXPECT_EQ(HeardAfter([] {}), "=unheard ");
  EXPECT_EQ(HeardAfter([] {}), "");
  EXPECT_EQ(HeardAfter([&] { First->SetCaption("renamed"); }), "=renamed ");
  TZySeries* Second = nullptr;
  EXPECT_EQ(HeardAfter([&] {
              Second = Chart.AddSeries("B", {1, 2}, {1, 2});
              Second->SetCaption("second");
            }),
            "+second ");
  auto* const Legend = new TZyLegend(&Chart.Form);
  Legend->SetName("Legend");
  EXPECT_EQ(HeardAfter([&] { Legend->SetParent(Chart.Graph); }), "+Legend ");
  EXPECT_EQ(HeardAfter([&] { Second->SetIncludeInLegend(false); }), "- ") << "an entry";
  EXPECT_EQ(HeardAfter([&] { delete Legend; }), "- ");
  EXPECT_EQ(HeardAfter([&] { delete Second; }), "- ");
  Chart.X->SetOnGetScaleLabel([](TObject*, TZyScaleLabelEventArgs&) { throw Exception("no label"); });
  Chart.X->SetNumbersVisible(true);
  EXPECT_NO_THROW(Node.childCount());
  Chart.X->SetOnGetScaleLabel({});
  QAccessible::setActive(false);
  QAccessible::installUpdateHandler(nullptr);
}

}  // namespace
}  // namespace zy::testing
