#include "graph/ZyGraph2D.h"

#include <gtest/gtest.h>

#include <QImage>
#include <array>
#include <cmath>

#include "controls/ControlSamples.h"
#include "framework/SampleComponent.h"
#include "graph/SampleChart.h"

namespace zy::testing {
namespace {

TEST(ZyGraph2DTest, FirstPaintMakesTheAxesThatAreMissing) {
  TForm Form;
  Form.SetName("Form");
  TZyGraph2D Graph(&Form);
  TSampleChart::Paint(Graph);
  EXPECT_EQ(Graph.Axes(), (std::vector<TZyAxis*>{Graph.PrimaryXAxis(), Graph.PrimaryYAxis()}));
  std::string Made;
  for (const TZyAxis* Axis : Graph.Axes())
    Made += Axis->Name() + " of " + Axis->Owner()->Name() + ": " + Axis->Caption() + "\n";
  EXPECT_EQ(Made, "XAxis1 of Form: X-Axis\nYAxis1 of Form: Y-Axis\n");
  // One that goes later is not made again, and there is nothing to paint without it.
  delete Graph.PrimaryXAxis();
  EXPECT_LT(InkBox(TSampleChart::Paint(Graph)).Right, 0);
  EXPECT_EQ(Graph.PrimaryXAxis(), nullptr);

  TSampleChart Chart;
  Chart.X->SetPosition(TZyAxisPosition::Right);
  Chart.Y->SetPosition(TZyAxisPosition::Top);
  Chart.Paint();
  EXPECT_EQ(Chart.X->Position(), TZyAxisPosition::Bottom) << "primary axes get their direction";
  EXPECT_EQ(Chart.Y->Position(), TZyAxisPosition::Left);
}

TEST(ZyGraph2DTest, AFormUnderDesignLoadsWhatItSaves) {
  for (const bool IsVisible : {true, false}) {
    TSampleChart Chart;
    for (TZySeries* Series : Chart.AddOfEachKind("")) Series->SetVisible(IsVisible);
    TForm Form;
    Form.SetDesigning(true);
    ReadBack(Chart.Form, Form);
    EXPECT_EQ(BytesOf(Form), BytesOf(Chart.Form));
    auto* const Series = dynamic_cast<TZySeries*>(Form.FindComponent("TZyLineSeries"));
    Series->SetVisible(!IsVisible);
    TSampleChart::Paint(dynamic_cast<TZyGraph2D&>(*Form.FindComponent("Graph")));
    EXPECT_EQ(Series->Points().empty(), IsVisible);
  }
  // A new series that finds a graph whose axes are still to come.
  TForm Form;
  Form.SetDesigning(true);
  TZyGraph2D Graph(&Form);
  TZyLineSeries Series(&Form);
  Series.SetVisible(false);
  EXPECT_FALSE(Series.SeriesVisible());
}

TEST(ZyGraph2DTest, UpdatesAreBundled) {
  TSampleChart Chart;
  Chart.Paint();
  TCountingGraph& Graph = *Chart.Graph;
  const RectF Before = Graph.DrawingArea();
  Graph.BeginUpdate();
  Graph.BeginUpdate();
  Graph.SetDistanceBorderAxisLeft(30);
  Graph.SetDistanceBorderAxisTop(30);
  Graph.EndUpdate();
  Graph.Calculate();
  Chart.X->Calculate();
  EXPECT_FALSE(TZyAxis::LayoutRunning);
  EXPECT_EQ(Graph.DrawingArea(), Before);
  Graph.Invalidations = 0;
  Graph.EndUpdate();
  EXPECT_EQ(Graph.Invalidations, 1);
  Chart.Paint();
  EXPECT_EQ(Graph.DrawingArea().X, Before.X + 30);
  Graph.Invalidations = 0;
  Graph.BeginUpdate();
  Graph.EndUpdate();
  EXPECT_EQ(Graph.Invalidations, 0) << "nothing is due";
  Graph.EndUpdate();
  EXPECT_FALSE(Graph.Updating()) << "one end too many";
}

TEST(ZyGraph2DTest, SeriesPaintInTheOrderOfTheirLayers) {
  TSampleChart Chart;
  std::vector<TZySeries*> Series;
  for (const int Layer : {5, 2, 5, -1}) {
    Series.push_back(Chart.AddSeries("S" + std::to_string(Series.size()), {0, 1}, {0, 1}));
    Series.back()->SetLayer(Layer);
  }
  Chart.Graph->SortLayers();
  const auto& Sorted = Chart.Graph->RelatedSeries();
  EXPECT_EQ(Listed(Sorted), (std::vector<TZySeries*>{Series[3], Series[1], Series[2], Series[0]}))
      << "by selection and exchange: the first goes where the lowest was";
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(Sorted[i]->Layer(), static_cast<int>(i));
  Chart.Graph->SetSmoothingMode(TZySmoothingMode::None);
  Chart.UsePlainAxes();
  for (TZySeries* One : Series) {
    One->SetLayer(10);
    EXPECT_EQ(Chart.Paint().GetPixel(300, 175), One->Line().Color()) << "the last one lies on top";
  }
}

TEST(ZyGraph2DTest, GridLinesStandOnTheTicks) {
  TSampleChart Chart;
  Chart.Graph->SetBackColor(Colors::White);
  Chart.Graph->MajorGridVertical().SetVisible(true);
  Chart.Graph->MinorGridVertical().SetVisible(true);
  Chart.Graph->MajorGridHorizontal().SetVisible(true);
  const Bitmap Picture = Chart.Paint();
  const auto At = [](const TZyAxis* Axis, double Value) {
    return static_cast<int>(std::lround(Axis->NumberToWorld(Value)));
  };
  // Ten labels on X and nine minor lines between each two; on Y, 2 to 10: the line at 0 lies under the axis.
  for (int i = 1; i <= 100; ++i)
    EXPECT_EQ(Picture.GetPixel(At(Chart.X, i * 0.1), At(Chart.Y, 1)), i % 10 == 0 ? Colors::Green : Colors::Gray) << i;
  const int Between = At(Chart.X, 0.15), At5 = At(Chart.X, 5), At6 = At(Chart.Y, 6);
  for (int i = 1; i <= 10; ++i)
    EXPECT_EQ(Picture.GetPixel(Between, At(Chart.Y, i)), i % 2 == 0 ? Colors::Green : Colors::White) << i;
  // A line goes through all of the data area and not beyond it.
  const RectF& Area = Chart.Graph->DrawingArea();
  const int Top = static_cast<int>(Area.Y), Right = static_cast<int>(Area.X + Area.Width);
  EXPECT_EQ(Picture.GetPixel(At5, Top), Colors::Green);
  EXPECT_EQ(Picture.GetPixel(At5, Top - 1), Colors::White);
  EXPECT_EQ(Picture.GetPixel(At5, static_cast<int>(Area.Y + Area.Height - 2)), Colors::Green);
  EXPECT_EQ(Picture.GetPixel(static_cast<int>(Area.X) + 1, At6), Colors::Green);
  EXPECT_EQ(Picture.GetPixel(Right - 1, At6), Colors::Green);
  EXPECT_EQ(Picture.GetPixel(Right, At6), Colors::White);
}

TEST(ZyGraph2DTest, LinesLieWhereTheAxesSay) {
  for (const auto Mode : {TZySmoothingMode::None, TZySmoothingMode::HighQuality}) {
    TSampleChart Chart;
    Chart.UsePlainAxes();
    Chart.Graph->SetSmoothingMode(Mode);
    for (TZyAxis* Axis : {Chart.X, Chart.Y}) Chart.FixEnds(Axis, 0, 10);
    Chart.AddSeries("Level", {-5, 15}, {4, 4});
    Chart.AddSeries("Plumb", {2, 2}, {-5, 15});
    const Bitmap Picture = Chart.Paint();
    for (const int X : {51, 300, 549}) EXPECT_EQ(ColumnText(Picture, X, 198, 5), "..#..") << X;
    for (const int Y : {51, 175, 299}) EXPECT_EQ(RowText(Picture, Y, 148, 5), "..#..") << Y;
    for (const int X : {30, 560}) EXPECT_EQ(Picture.GetPixel(X, 200), 0u) << "cut off at the data area";
  }
}

TEST(ZyGraph2DTest, PaintsAfterAChangeOfDataMoveTheEnds) {
  TSampleChart Chart;
  TZyLineSeries* const Series = Chart.AddSeries("Series", {0, 1, 2}, {0, 1, 50});
  Chart.Paint();
  Series->YData()->SetValue(2, 5);
  Chart.Paint();
  EXPECT_EQ(Chart.Y->Stop(), 5);
  Series->YData()->SetValue(1, 3);  // no range changes, and yet the line does
  Chart.Paint();
  EXPECT_EQ(Series->Points()[1], (PointF{Chart.X->NumberToWorld(1), Chart.Y->NumberToWorld(3)}));
}

TEST(ZyGraph2DTest, PaintsTheSamePictureAgain) {
  TSampleChart Chart;
  Chart.AddSeries("First", {0.3, 1, 4, 9.7}, {0.37, 7.3, 2, 5});
  TZyLineSeries* const Second = Chart.AddSeries("Second", {0, 3, 9}, {9, 1, 0.2});
  Second->Line().SetDashStyle(DashStyleDash);
  Second->SetLayer(-1);
  Chart.Y->SetTwisted(true);
  Chart.Graph->SetCaption("Title");
  Chart.Graph->SetCaptionVisible(true);
  Chart.Graph->SetDataAreaColor(0xFFFFFFE0);
  Chart.Graph->MajorGridVertical().SetVisible(true);
  TForm Form;
  ReadBack(Chart.Form, Form);
  const QImage First = Chart.Paint().ToQt();
  EXPECT_EQ(First, Chart.Paint().ToQt());
  Chart.Graph->Modified();
  EXPECT_EQ(First, Chart.Paint().ToQt()) << "after a layout";
  for (const int Size : {1, 30, 200, 3000}) {
    Chart.Graph->SetBounds(0, 0, Size, Size);
    Chart.Paint();
    Chart.Graph->SetBounds(0, 0, 600, 400);
    EXPECT_EQ(First, Chart.Paint().ToQt()) << Size;
  }
  EXPECT_EQ(First, TSampleChart::Paint(dynamic_cast<TZyGraph2D&>(*Form.FindComponent("Graph"))).ToQt());
  // Whoever lends the surface gets it back as it was, and a clip that was set holds.
  Bitmap Picture(600, 400);
  Graphics Gr(Picture);
  Gr.SetClip(RectF{100, 100, 200, 150});
  const Region Clip = Gr.GetClip();
  Chart.Graph->PaintGr(Gr);
  EXPECT_EQ(Gr.GetClip(), Clip);
  EXPECT_EQ(Gr.GetTransform().Elements(), Matrix().Elements());
  const TInkBox Box = InkBox(Picture);
  EXPECT_EQ((std::array{Box.Left, Box.Top, Box.Right, Box.Bottom}), (std::array{100, 100, 299, 249}));
}

}  // namespace
}  // namespace zy::testing
