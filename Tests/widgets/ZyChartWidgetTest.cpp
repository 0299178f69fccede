#include "widgets/ZyChartWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QPrinter>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "annotations/ZyCrossHair.h"
#include "annotations/ZyLegend.h"
#include "annotations/ZyLineMarkers.h"
#include "dialogs/widgets/ZyPickWidgets.h"
#include "persistence/ZyIO.h"
#include "pie/ZyPieLegend.h"
#include "platform/controls/TApplication.h"
#include "platform/framework/TStream.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"
#include "ui_SampleForm.h"
#include "widgets/PublishedPaths.h"
#include "widgets/ZyLegendWidgets.h"
#include "widgets/ZyMarkerWidgets.h"
#include "widgets/ZyPieWidget.h"

namespace zy::testing {
namespace {

/// A chart widget in a shown window, with a line from (0, 0) to (2, 4).
class ZyChartWidgetTest : public ::testing::Test {
 protected:
  ZyChartWidgetTest() {
    auto* const Column = new QVBoxLayout(&FWindow);
    Column->addWidget(FChart);
    FValues->AddRange({0, 1, 4});
    FSeries = FChart->AddSeries<TZyLineSeries>(nullptr, FValues);
    FWindow.resize(500, 400);
    FWindow.show();
    Settle();
  }
  static void Settle() {
    QApplication::processEvents();
    QApplication::processEvents();
  }
  static void Send(QEvent::Type Type, const QPoint& Place, Qt::MouseButtons Buttons, TWinControl& To) {
    QMouseEvent Event(Type, Place, To.Widget()->mapToGlobal(Place), Qt::LeftButton, Buttons, Qt::NoModifier);
    QApplication::sendEvent(To.Widget(), &Event);
  }
  void Send(QEvent::Type Type, const QPoint& Place, Qt::MouseButtons Buttons) const {
    Send(Type, Place, Buttons, FChart->Graph());
  }
  /// As the window gets it, which brings it to what has the keyboard.
  void Press(Qt::Key Key, const QString& Text = {}) const {
    for (const auto Type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent Event(Type, Key, Qt::NoModifier, Text);
      QApplication::sendEvent(FWindow.windowHandle(), &Event);
    }
    Settle();
  }
  void Drag(const QPoint& From, const QPoint& To) const {
    Send(QEvent::MouseButtonPress, From, Qt::LeftButton);
    Send(QEvent::MouseMove, To, Qt::LeftButton);
    Send(QEvent::MouseButtonRelease, To, Qt::NoButton);
  }
  template <class S>
  int CountOf(S Signal, const std::function<void()>& Do) const {
    int Result = 0;
    const auto Connection = QObject::connect(FChart, Signal, FChart, [&Result] { ++Result; });
    Do();
    Settle();
    QObject::disconnect(Connection);
    return Result;
  }

  QWidget FWindow;
  QPointer<ZyChartWidget> FChart = new ZyChartWidget;
  TZyDoubleVector* FValues = new TZyDoubleVector(&FChart->Owner());
  TZyLineSeries* FSeries = nullptr;
};

TEST_F(ZyChartWidgetTest, SignalsLeaveTheEventsOfTheChartToTheApplication) {
  int Handled = 0;
  QPoint Told;
  FChart->Graph().SetOnClick([&](TObject*) { ++Handled; });
  FChart->Graph().SetOnEndZoom([&](TObject*) { ++Handled; });
  QObject::connect(FChart, &ZyChartWidget::clicked, &FWindow, [&](const QPoint& Place) { Told = Place; });
  Drag({200, 150}, {200, 150});
  EXPECT_EQ(Told, QPoint(200, 150));
  EXPECT_EQ(Handled, 1);
  EXPECT_EQ(CountOf(&ZyChartWidget::zoomed, [&] { Drag({200, 100}, {350, 220}); }), 1);
  EXPECT_EQ(Told, QPoint(200, 150)) << "a drag is no click";
  EXPECT_TRUE(FChart->Graph().GetCanZoomBack());
  EXPECT_EQ(CountOf(&ZyChartWidget::zoomed, [&] { FChart->Graph().ZoomBack(); }), 1);
  EXPECT_EQ(CountOf(&ZyChartWidget::doubleClicked,
                    [&] {
                      Send(QEvent::MouseButtonDblClick, {200, 150}, Qt::LeftButton);
                    }),
            1);
  const auto Change = [&](const std::function<void()>& Do) {
    FWindow.grab();
    Settle();
    return CountOf(&ZyChartWidget::contentChanged, Do);
  };
  EXPECT_EQ(Change([&] {
              for (int i = 0; i < 100; ++i) FValues->Add(i);
            }),
            1)
      << "once for all";
  EXPECT_EQ(Change([&] { Drag({200, 100}, {350, 220}); }), 0) << "a zoom";
  EXPECT_EQ(Change([&] {
              TMemoryStream File;
              FChart->Graph().SaveImage(File, TZyImageFileFormat::PNG, TZyPictureSize::Pixels(300, 200));
              FWindow.resize(FWindow.width() + 20, FWindow.height());
            }),
            0)
      << "other extents";
  EXPECT_EQ(Change([&] { delete FSeries; }), 1);
  EXPECT_EQ(Change([] {}), 0);
}

TEST_F(ZyChartWidgetTest, TellsBeginAndEndOfZoomsAndPansThatAre) {
  std::string Told;
  const auto Note = [&](auto Signal, const char* Name) {
    QObject::connect(FChart, Signal, FChart, [&Told, Name] { Told += Name; });
  };
  Note(&ZyChartWidget::zoomStarted, "<");
  Note(&ZyChartWidget::zoomed, ">");
  Note(&ZyChartWidget::panStarted, "[");
  Note(&ZyChartWidget::panned, "]");
  Note(&ZyChartWidget::clicked, "c");
  TZyGraph2D& Graph = FChart->Graph();
  Graph.ZoomBack();
  Graph.PrimaryXAxis()->SetScaling(TZyAxisScaling::Seconds);
  EXPECT_EQ(std::exchange(Told, {}), "") << "nothing to go back to";
  Drag({200, 100}, {350, 220});
  EXPECT_EQ(std::exchange(Told, {}), "<>");
  Graph.SetFocus();
  Press(Qt::Key_Right);
  EXPECT_EQ(std::exchange(Told, {}), "]");
  Graph.Zoom().SetZoomShift({ssRight});
  Graph.Zoom().SetPanningShift({ssLeft});
  Drag({200, 100}, {210, 120});
  Graph.ZoomReset();
  EXPECT_EQ(std::exchange(Told, {}), "[]>");
  Send(QEvent::MouseButtonPress, {200, 150}, Qt::LeftButton);
  Send(QEvent::MouseMove, {300, 150}, Qt::LeftButton);
  Send(QEvent::MouseButtonRelease, {200, 150}, Qt::NoButton);
  EXPECT_EQ(Told, "") << "a drag that comes back is no click";
}

TEST_F(ZyChartWidgetTest, TellsPointsItemsOfLegendsAndMarkers) {
  std::string Told;
  const auto Point = [&](TZySeries* Series, int Index) {
    Told += (Series == FSeries ? " point " : " none ") + std::to_string(Index);
  };
  FChart->setLegendVisible(true);
  auto* const Marker = new TZyVerticalMarker(&FChart->Owner());
  Marker->SetParent(&FChart->Graph());
  Marker->SetXAxis(FChart->Graph().PrimaryXAxis());
  Marker->SetX(0.5);
  FWindow.grab();
  QObject::connect(FChart, &ZyChartWidget::pointHovered, FChart, Point);
  QObject::connect(FChart, &ZyChartWidget::pointClicked, FChart, Point);
  QObject::connect(FChart, &ZyChartWidget::legendItemClicked, FChart, [&](TZySeries* Series) { Point(Series, 99); });
  QObject::connect(FChart, &ZyChartWidget::markerMoving, FChart, [&] { Told += " moving"; });
  QObject::connect(FChart, &ZyChartWidget::markerMoved, FChart,
                   [&](TZyMovable* Which) { Told += Which == Marker ? " moved" : " other"; });
  const auto PixelOf = [&](double X, double Y) {
    return QPoint(qRound(FSeries->XAxis()->NumberToWorld(X)), qRound(FSeries->YAxis()->NumberToWorld(Y)));
  };
  const QPoint One = PixelOf(1, 1);
  for (const QPoint& Place : {One, One, One + QPoint(0, 30)}) Send(QEvent::MouseMove, Place, Qt::NoButton);
  Drag(One, One);
  EXPECT_EQ(std::exchange(Told, {}), " point 1 none -1 point 1");
  const auto& Legend = dynamic_cast<TZyLegend&>(*FChart->Owner().FindComponent("Legend"));
  const TRect Item = Legend.ItemRects().at(0);
  const QPoint OnCaption(Legend.Left() + Item.Right + 10, Legend.Top() + (Item.Top + Item.Bottom) / 2);
  Drag(OnCaption, OnCaption);
  EXPECT_EQ(std::exchange(Told, {}), " point 99");
  Drag(PixelOf(0.5, 3), PixelOf(1.5, 3));
  Marker->SetX(1);
  EXPECT_EQ(Told, " moving moved moved");
}

TEST_F(ZyChartWidgetTest, TakesKeysByTabulatorUnlessToldOtherwise) {
  auto* const Pie = new ZyPieWidget;
  Pie->Values()->AddRange({45, 30, 15, 10});
  FWindow.layout()->addWidget(Pie);
  FWindow.activateWindow();
  Settle();
  FChart->setFocus();
  EXPECT_EQ(CountOf(&ZyChartWidget::zoomed, [&] { Press(Qt::Key_Plus); }), 1);
  for (const Qt::Key Key : {Qt::Key_Tab, Qt::Key_Right, Qt::Key_Right}) Press(Key);
  EXPECT_EQ(Pie->Graph().ActiveSegment(), 1);
  FChart->setFocusPolicy(Qt::NoFocus);
  Pie->setFocusPolicy(Qt::ClickFocus);
  Pie->Graph().SetControlStyle(Pie->Graph().ControlStyle());
  for (const Qt::Key Key : {Qt::Key_Tab, Qt::Key_Right}) Press(Key);
  EXPECT_FALSE(FChart->hasFocus());
  EXPECT_EQ(Pie->Graph().ActiveSegment(), 2) << "nothing else takes the keys";
}

TEST_F(ZyChartWidgetTest, ErrorsAreToldOrGoToTheApplication) {
  FChart->Graph().SetOnClick([](TObject*) { throw Exception("no such point"); });
  std::vector<std::string> Told;
  QObject::connect(FChart, &ZyChartWidget::errorOccurred, &FWindow,
                   [&](const QString& Text) { Told.push_back(Text.toStdString()); });
  Drag({200, 150}, {200, 150});
  FSeries->SetOnGetPen([](TObject*, TZyPenEventArgs&) { throw Exception("no pen"); });
  FWindow.grab();
  FChart->setProperty("PrimaryXAxis.Position", "Nowhere");
  FChart->setProperty("PrimaryXAxis.Positio", "Top");
  FChart->setProperty("Legend.Positio", "BottomCenterOfGraph");
  FChart->setProperty("somebody.own", 1);
  ASSERT_EQ(Told.size(), 5u);
  EXPECT_EQ(Told[0], "no such point");
  EXPECT_EQ(Told[1], "no pen");
  EXPECT_TRUE(Told[2].find("Position") != std::string::npos && Told[2].find("Nowhere") != std::string::npos) << Told[2];
  EXPECT_EQ(Told[3], "Property: \"PrimaryXAxis.Positio\" not found");
  EXPECT_EQ(Told[4], "Property: \"Legend.Positio\" not found");
}

TEST_F(ZyChartWidgetTest, AnyPartMayBeDeletedFromASlot) {
  QObject::connect(FChart, &ZyChartWidget::clicked, &FWindow, [&] { delete FChart.data(); });
  Drag({200, 150}, {200, 150});
  EXPECT_EQ(FChart, nullptr);
  FChart = new ZyChartWidget;
  FWindow.layout()->addWidget(FChart);
  Settle();
  FChart->ShowSamples();
  FChart->Graph().Zoom().SetResetOnRightBottomLeftTopFrame(true);
  FWindow.grab();
  FChart->Graph().ZoomTo({200, 100}, {300, 200});
  QObject::connect(FChart, &ZyChartWidget::zoomed, &FWindow, [&] { delete FChart.data(); });
  Drag({300, 200}, {200, 100});  // which goes back
  EXPECT_EQ(FChart, nullptr);
}

TEST_F(ZyChartWidgetTest, EveryPublishedPropertyIsOneOfTheWidget) {
  ZyPieWidget Pie;
  FChart->setLegendVisible(true);
  Pie.setLegendVisible(true);
  for (ZyCustomChartWidget* Widget :
       {static_cast<ZyCustomChartWidget*>(FChart), static_cast<ZyCustomChartWidget*>(&Pie)}) {
    const std::vector<std::string> Paths = Widget->PropertyPaths();
    EXPECT_GT(Paths.size(), 60u);
    for (const std::string& Each : Paths) {
      const QString Path = QString::fromStdString(Each);
      const QVariant Before = Widget->PropertyAt(Path);
      ASSERT_TRUE(Before.isValid()) << Each;
      ASSERT_TRUE(Widget->SetPropertyAt(Path, Before)) << Each;
      ASSERT_EQ(Widget->PropertyAt(Path), Before) << Each;
    }
  }
  FChart->setProperty("MajorGridVertical.Visible", true);
  FChart->setProperty("MajorGridVertical.Color", QColor(1, 2, 3, 4));
  FChart->setProperty("MajorGridVertical.Width", 2.5);
  FChart->setProperty("PrimaryXAxis.Caption", QString("größer"));
  FChart->setProperty("Legend.Position", "TopCenterOfGraph");
  FChart->setProperty("Zoom.StartZoom", "[ssRight]");
  FChart->setProperty("of my own", 7);
  TZyGraph2D& Graph = FChart->Graph();
  EXPECT_TRUE(Graph.MajorGridVertical().Visible());
  EXPECT_EQ(Graph.MajorGridVertical().Color(), 0x04010203u);
  EXPECT_EQ(Graph.MajorGridVertical().Width(), 2.5f);
  EXPECT_EQ(Graph.PrimaryXAxis()->Caption(), "größer");
  EXPECT_EQ(dynamic_cast<TZyLegend&>(*FChart->Owner().FindComponent("Legend")).Position(),
            TZyLegendPosition::TopCenterOfGraph);
  EXPECT_TRUE(Graph.Zoom().StartZoom() == TShiftState{ssRight});
  EXPECT_EQ(FChart->property("of my own"), 7);
  Graph.MajorGridVertical().SetVisible(false);
  FChart->setProperty("MajorGridVertical.Visible", true);
  EXPECT_TRUE(Graph.MajorGridVertical().Visible()) << "the same value once more";
  ZyChartWidget Plain;
  Plain.setProperty("Legend.Position", "TopCenterOfGraph");
  EXPECT_FALSE(Plain.legendVisible()) << "made for its position";
  EXPECT_FALSE(FChart->PropertyAt("of my own").isValid());
  EXPECT_FALSE(FChart->PropertyAt("Width").isValid()) << "the layout's business";
  EXPECT_FALSE(FChart->PropertyAt("OnClick").isValid());
}

TEST_F(ZyChartWidgetTest, NamesItsOwnerSoThatStoredChartsFindTheirParts) {
  ZyChartWidget First, Second;
  EXPECT_NE(First.Owner().Name(), Second.Owner().Name());
  FChart->setObjectName("voltage");
  EXPECT_EQ(GetComponentRef(FSeries), "voltage.LineSeries1");
  First.setObjectName("voltage");
  EXPECT_NE(First.Owner().Name(), "voltage") << "taken";
  const std::string Before = Second.Owner().Name();
  Second.setObjectName("two words");
  EXPECT_EQ(Second.Owner().Name(), Before);
  FValues->SetName("Values");
  TMemoryStream Stream;
  FChart->Graph().WriteTo(Stream);
  FValues->Clear();
  delete FSeries;
  Stream.SetPosition(0);
  FChart->Graph().ReadFrom(Stream);
  EXPECT_EQ(FChart->Graph().RelatedSeries().size(), 1u);
  EXPECT_EQ(FValues->Sum(), 5);
}

TEST_F(ZyChartWidgetTest, PrintsAndShowsSamplesOnlyInAnEmptyChart) {
  const QTemporaryDir Folder;
  QPrinter Printer(QPrinter::HighResolution);
  Printer.setOutputFormat(QPrinter::PdfFormat);
  Printer.setOutputFileName(Folder.filePath("chart.pdf"));
  FChart->print(&Printer);
  EXPECT_GT(QFileInfo(Folder.filePath("chart.pdf")).size(), 1000);
  FChart->ShowSamples();
  EXPECT_EQ(FChart->Graph().RelatedSeries().size(), 1u);
  ZyChartWidget Empty;
  Empty.ShowSamples();
  EXPECT_GT(Empty.Graph().RelatedSeries().size(), 0u);
  for (TZySeries* Series : Empty.Graph().RelatedSeries()) EXPECT_GT(Series->GetCount(), 1);
  ZyPieWidget Pie;
  Pie.ShowSamples();
  Pie.resize(300, 300);
  Pie.grab();
  Pie.Graph().SetOrderAscending(true);
  Pie.grab();
  int Clicked = -1, Hovered = -1;
  QObject::connect(&Pie, &ZyPieWidget::segmentClicked, &Pie, [&](int Index) { Clicked = Index; });
  QObject::connect(&Pie, &ZyPieWidget::segmentHovered, &Pie, [&](int Index) { Hovered = Index; });
  Send(QEvent::MouseMove, {200, 200}, Qt::NoButton, Pie.Graph());
  for (const auto Type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
    Send(Type, {200, 200}, Qt::LeftButton, Pie.Graph());
  EXPECT_EQ(Clicked, 2) << "45 degrees below the right, where 10 of 100 come before and 15 lie";
  EXPECT_EQ(Hovered, 2);
  Send(QEvent::MouseMove, {1, 1}, Qt::NoButton, Pie.Graph());
  EXPECT_EQ(Hovered, -1);
  TZyUndoStack Stack;
  Pie.setLook(ZyPieWidget::DarkLook);
  Pie.Graph().SetUndoStack(&Stack);
  Pie.setLegendVisible(true);
  EXPECT_EQ(Stack.UndoCount(), 0) << "the look of the legend is no step of its own";
  EXPECT_TRUE(Pie.SetPropertyAt("Font.Size", 7));
  EXPECT_EQ(Pie.Graph().Font().Size(), 7) << "of the labels, not of the control";
  EXPECT_LT(Pie.backColor().lightness(), 64);
  EXPECT_EQ(Pie.PropertyAt("Legend.BackColor"), Pie.PropertyAt("BackColor")) << "it came later";
  Pie.Graph().SetLabelPosition(TZyPieLabelPosition::Callouts);
  for (int Times = 0; Times < 2; ++Times) {  // callouts that come after the look, and before it
    const auto Light = [](TZyColor Color) { return QColor::fromRgba(Color).lightness(); };
    EXPECT_GT(std::abs(Light(Pie.Graph().Font().FillColor()) - Light(Pie.Graph().CalloutBackColor())), 100);
    Pie.setLook(ZyPieWidget::DarkLook);
  }
}

TEST_F(ZyChartWidgetTest, MarkersAreChildrenOfTheChart) {
  auto* const Instant = new ZyVerticalMarkerWidget(FChart);
  Instant->setGeometry(3, 3, 50, 50);
  Instant->setProperty("X", 0.5);
  Instant->show();
  Settle();
  TZyGraph2D& Graph = FChart->Graph();
  const auto PixelOf = [&](double Value) { return static_cast<int>(Graph.PrimaryXAxis()->NumberToWorld(Value)); };
  EXPECT_EQ(Instant->Control()->X(), 0.5) << "whatever the form's geometry was";
  EXPECT_NEAR(Instant->geometry().center().x(), PixelOf(0.5), 1);
  FWindow.resize(700, 400);
  Settle();
  EXPECT_NEAR(Instant->geometry().center().x(), PixelOf(0.5), 1);
  int Moved = 0;
  QObject::connect(Instant, &ZyMarkerWidget::moved, Instant, [&Moved] { ++Moved; });
  EXPECT_EQ(FChart->childAt(PixelOf(0.5), 150), Graph.Widget()) << "the mouse goes through";
  Drag({PixelOf(0.5), 150}, {PixelOf(1.5), 150});
  EXPECT_EQ(Moved, 1);
  EXPECT_NEAR(Instant->PropertyAt("X").toDouble(), 1.5, 0.02);
  Instant->hide();
  EXPECT_FALSE(Instant->Control()->Visible());
  TMemoryStream Stream;
  FChart->Graph().WriteTo(Stream);
  Stream.SetPosition(0);
  FChart->Graph().ReadFrom(Stream);
  ASSERT_NE(Instant->Control(), nullptr) << "no part of the record";
  Instant->setParent(&FWindow);
  EXPECT_EQ(Instant->Control()->XAxis(), nullptr);
  EXPECT_EQ(Instant->ChartWidget(), nullptr);
  Instant->setParent(FChart);
  EXPECT_EQ(Instant->Control()->XAxis(), Graph.PrimaryXAxis());
  const QPointer<ZyCrossHairWidget> Cross = new ZyCrossHairWidget(FChart);
  delete Cross->Control();
  EXPECT_FALSE(Cross->PropertyAt("X").isValid() || Cross->SetPropertyAt("X", 1));
  delete FChart;
  EXPECT_EQ(Cross, nullptr);
}

TEST_F(ZyChartWidgetTest, LegendsStandOnChartsOrBesideThem) {
  ZyChartWidget Other;
  FChart->setObjectName("first");
  FChart->setLook(ZyChartWidget::DarkLook);
  auto* const On = new ZyLegendWidget(FChart);
  On->setGeometry(40, 30, 10, 10);
  On->show();
  Settle();
  EXPECT_EQ(On->pos(), QPoint(40, 30));
  EXPECT_EQ(On->Control()->Left(), 40);
  EXPECT_GT(On->width(), 60) << "as large as its items";
  EXPECT_EQ(On->Control()->BackColor(), FChart->Graph().BackColor()) << "the look came before";
  On->setPosition(ZyLegendWidget::TopCenterOfGraph);
  FWindow.grab();
  Settle();
  EXPECT_NEAR(On->geometry().center().x(), FChart->width() / 2, 1);
  EXPECT_LT(On->y(), 30);
  auto* const Beside = new ZyLegendWidget(&FWindow);
  EXPECT_EQ(Beside->Listed(), FChart) << "the nearest";
  Beside->setChart("none");
  EXPECT_EQ(Beside->Listed(), nullptr);
  Beside->setChart("first");
  FChart->setObjectName("renamed");
  EXPECT_EQ(Beside->chart(), "renamed");
  FWindow.layout()->addWidget(Beside);
  FWindow.grab();
  Settle();
  EXPECT_EQ(Beside->Control()->Items().size(), 1u);
  EXPECT_GT(Beside->sizeHint().width(), 60);
  const int Before = Beside->sizeHint().height();
  FChart->AddSeries<TZyLineSeries>(nullptr, FValues);
  Settle();
  FWindow.grab();
  EXPECT_GT(Beside->sizeHint().height(), Before) << "one more";
  ZyPieWidget Pie;
  auto* const Segments = new ZyPieLegendWidget(&Pie);
  EXPECT_EQ(Segments->Control()->PieChart(), &Pie.Graph());
  EXPECT_EQ((new ZyLegendWidget(&Pie))->Listed(), nullptr) << "another kind of chart";
  delete FChart;
  EXPECT_EQ(Beside->Listed(), nullptr);
  Beside->grab();
}

TEST_F(ZyChartWidgetTest, FormsAreCompiled) {
  QWidget Window;
  Ui::SampleForm Form;
  Form.setupUi(&Window);
  Window.show();
  while (!TApplication::Idle()) Settle();
  EXPECT_EQ(Form.chart->PropertyAt("PrimaryXAxis.Caption"), "Time");
  EXPECT_EQ(Form.chart->backColor(), QColor("#202124"));
  EXPECT_EQ(Form.instant->Control()->X(), 2.5);
  EXPECT_EQ(Form.instant->Control()->XAxis(), Form.chart->Graph().PrimaryXAxis());
  EXPECT_EQ(Form.legend->Control()->Position(), TZyLegendPosition::TopCenterOfGraph);
  EXPECT_EQ(Form.segments->Control()->PieChart(), &Form.pie->Graph());
  EXPECT_EQ(Form.color->color(), Form.chart->backColor());
}

TEST_F(ZyChartWidgetTest, ControlsAreTiedToChartsByTheirNames) {
  FChart->setObjectName("chart");
  ZyColorPickWidget Color;
  ZyNumericUpDnWidget Width;
  Color.setLinks({"chart.Graph.BackColor"});
  Width.setProperty("MaxValue", 20.0);
  Width.setLinks({"chart.Graph.DataAreaFrame.Width"});
  for (QWidget* Each : {static_cast<QWidget*>(&Color), static_cast<QWidget*>(&Width)}) Each->show();
  int Changes = 0;
  QObject::connect(&Color, &ZyLinkedWidget::changed, &Color, [&Changes] { ++Changes; });
  FChart->setBackColor(Qt::green);
  FChart->Graph().DataAreaFrame().SetWidth(7);
  while (!TApplication::Idle()) Settle();
  EXPECT_EQ(Color.color(), QColor(Qt::green));
  EXPECT_EQ(Changes, 1);
  EXPECT_EQ(Width.value(), 7);
  Color.setColor(Qt::blue);
  Width.setValue(9);
  EXPECT_EQ(FChart->backColor(), QColor(Qt::blue));
  EXPECT_EQ(FChart->Graph().DataAreaFrame().Width(), 9);
}

}  // namespace
}  // namespace zy::testing
