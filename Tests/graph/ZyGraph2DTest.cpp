#include "graph/ZyGraph2D.h"

#include <gtest/gtest.h>

#include <QImage>
#include <array>
#include <cmath>
#include <optional>

#include "drawing/Pixels.h"
#include "graph/SampleChart.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"

namespace zy::testing {
namespace {

TEST(ZyGraph2DTest, FirstPaintMakesTheAxesThatAreMissing) {
  TForm Form;
  TZyGraph2D Graph(&Form);
  EXPECT_EQ(Graph.PrimaryXAxis(), nullptr);
  TSampleChart::Paint(Graph);
  ASSERT_NE(Graph.PrimaryXAxis(), nullptr);
  ASSERT_NE(Graph.PrimaryYAxis(), nullptr);
  EXPECT_EQ(Graph.Axes(), (std::vector<TZyAxis*>{Graph.PrimaryXAxis(), Graph.PrimaryYAxis()}));
  EXPECT_EQ(Graph.PrimaryXAxis()->Caption(), "X-Axis");
  EXPECT_EQ(Graph.PrimaryYAxis()->Caption(), "Y-Axis");
  EXPECT_EQ(Graph.PrimaryXAxis()->Name(), "XAxis1");
  EXPECT_EQ(Graph.PrimaryYAxis()->Name(), "YAxis1");
  EXPECT_EQ(Graph.PrimaryXAxis()->Owner(), &Form);
  EXPECT_EQ(Graph.PrimaryYAxis()->Position(), TZyAxisPosition::Left);
  // One that goes later is not made again, and there is nothing to paint without it.
  delete Graph.PrimaryXAxis();
  EXPECT_LT(InkBox(TSampleChart::Paint(Graph)).Right, 0);
  EXPECT_EQ(Graph.PrimaryXAxis(), nullptr);
}

TEST(ZyGraph2DTest, PrimaryAxesGetTheirDirection) {
  TSampleChart Chart;
  Chart.X->SetPosition(TZyAxisPosition::Right);
  Chart.Y->SetPosition(TZyAxisPosition::Top);
  Chart.Paint();
  EXPECT_EQ(Chart.X->Position(), TZyAxisPosition::Bottom);
  EXPECT_EQ(Chart.Y->Position(), TZyAxisPosition::Left);
}

TEST(ZyGraph2DTest, UpdatesAreBundled) {
  TSampleChart Chart;
  Chart.Paint();
  const RectF Before = Chart.Graph->DrawingArea();
  Chart.Graph->BeginUpdate();
  Chart.Graph->BeginUpdate();
  Chart.Graph->SetDistanceBorderAxisLeft(30);
  Chart.Graph->SetDistanceBorderAxisTop(30);
  Chart.Graph->EndUpdate();
  EXPECT_TRUE(Chart.Graph->Updating());
  Chart.Graph->Calculate();
  Chart.X->Calculate();
  EXPECT_FALSE(TZyAxis::LayoutRunning);
  EXPECT_EQ(Chart.Graph->DrawingArea(), Before);
  Chart.Graph->Invalidations = 0;
  Chart.Graph->EndUpdate();
  EXPECT_EQ(Chart.Graph->Invalidations, 1);
  Chart.Paint();
  EXPECT_EQ(Chart.Graph->DrawingArea().X, Before.X + 30);
  Chart.Graph->Invalidations = 0;
  Chart.Graph->BeginUpdate();
  Chart.Graph->EndUpdate();
  EXPECT_EQ(Chart.Graph->Invalidations, 0) << "nothing is due";
  Chart.Graph->EndUpdate();
  EXPECT_FALSE(Chart.Graph->Updating()) << "one end too many";
}

TEST(ZyGraph2DTest, SeriesPaintInTheOrderOfTheirLayers) {
  TSampleChart Chart;
  std::vector<TZySeries*> Series;
  for (const char* Name : {"A", "B", "C", "D"}) Series.push_back(Chart.AddSeries(Name, {0, 1}, {0, 1}));
  const int Layers[] = {5, 2, 5, -1};
  for (std::size_t i = 0; i < 4; ++i) Series[i]->SetLayer(Layers[i]);
  Chart.Graph->SortLayers();
  const auto& Sorted = Chart.Graph->RelatedSeries();
  EXPECT_EQ(Sorted, (std::vector<TZySeries*>{Series[3], Series[1], Series[2], Series[0]}))
      << "by selection and exchange: the first goes where the lowest was";
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(Sorted[i]->Layer(), static_cast<int>(i));
  Chart.Graph->SortLayers();
  EXPECT_EQ(Sorted[3], Series[0]);

  // The last one lies on top.
  Chart.Graph->SetSmoothingMode(TZySmoothingMode::None);
  Chart.UsePlainAxes();
  for (TZySeries* One : Series) {
    One->SetLayer(10);
    const Bitmap Picture = Chart.Paint();
    EXPECT_EQ(Picture.GetPixel(300, 175), One->Line().Color());
  }
}

TEST(ZyGraph2DTest, FillsBackgroundAndDataArea) {
  TSampleChart Chart;
  Chart.UsePlainAxes();
  for (TZyAxis* Axis : {Chart.X, Chart.Y}) Axis->SetVisible(false);
  Chart.Graph->SetDistanceBorderAxisLeft(50);
  Chart.Graph->SetDistanceBorderAxisBottom(100);
  EXPECT_LT(InkBox(Chart.Paint()).Right, 0) << "transparent";
  constexpr TZyColor Back = 0xFFEEEEEE, Area = 0xFFFFFF00;
  Chart.Graph->SetBackColor(Back);
  Chart.Graph->SetDataAreaColor(Area);
  Bitmap Picture = Chart.Paint();
  // The data area fills columns 50 to 549 and rows 50 to 299: its edges lie at 50 and 550, at 50 and 300.
  for (const int X : {50, 300, 549})
    for (const int Y : {50, 175, 299}) EXPECT_EQ(Picture.GetPixel(X, Y), Area) << X << ", " << Y;
  const std::pair<int, int> Outside[] = {{0, 0}, {599, 399}, {49, 175}, {550, 175}, {300, 49}, {300, 300}};
  for (const auto& [X, Y] : Outside) EXPECT_EQ(Picture.GetPixel(X, Y), Back) << X << ", " << Y;
  Chart.Graph->DataAreaFrame().SetVisible(true);
  Picture = Chart.Paint();
  const std::pair<int, int> Frame[] = {{50, 175}, {550, 175}, {300, 50}, {300, 300}};
  for (const auto& [X, Y] : Frame) EXPECT_EQ(Picture.GetPixel(X, Y), Colors::Black) << X << ", " << Y;
}

TEST(ZyGraph2DTest, GridLinesStandOnTheTicks) {
  TSampleChart Chart;
  Chart.Graph->SetBackColor(Colors::White);
  Chart.Graph->MajorGridVertical().SetVisible(true);
  Chart.Graph->MinorGridVertical().SetVisible(true);
  Chart.Graph->MajorGridHorizontal().SetVisible(true);
  const Bitmap Picture = Chart.Paint();
  const RectF& Area = Chart.Graph->DrawingArea();
  const int Top = static_cast<int>(Area.Y), Bottom = static_cast<int>(Area.Y + Area.Height - 1);
  const int Left = static_cast<int>(Area.X);
  // Between two horizontal lines: 10 labels on X, and 9 minor lines between each two.
  const int Row = static_cast<int>(std::lround(Chart.Y->NumberToWorld(1)));
  int Major = 0, Minor = 0;
  for (std::size_t i = 1; i < Chart.X->Ticks().size(); ++i) {
    const int Column = static_cast<int>(std::lround(Chart.X->NumberToWorld(static_cast<double>(i) * 0.1)));
    const TZyColor Color = Picture.GetPixel(Column, Row);
    (i % 10 == 0 ? Major : Minor) += Color == (i % 10 == 0 ? Colors::Green : Colors::Gray) ? 1 : 0;
  }
  EXPECT_EQ(Major, 10);
  EXPECT_EQ(Minor, 90);
  int Lines = 0;
  const int Column = static_cast<int>(std::lround(Chart.X->NumberToWorld(0.15)));
  for (int Y = Top; Y < Bottom; ++Y) {
    if (Picture.GetPixel(Column, Y) != Colors::Green) continue;
    ++Lines;
    const double Value = Chart.Y->WorldToNumber(static_cast<float>(Y));
    EXPECT_NEAR(Value, 2 * std::round(Value / 2), 0.02) << Y;
  }
  EXPECT_EQ(Lines, 5) << "2 to 10; the line at 0 lies under the axis";
  // A line goes through all of the data area and not beyond it.
  const int At5 = static_cast<int>(std::lround(Chart.X->NumberToWorld(5)));
  EXPECT_EQ(Picture.GetPixel(At5, Top), Colors::Green);
  EXPECT_EQ(Picture.GetPixel(At5, Top - 1), Colors::White);
  EXPECT_EQ(Picture.GetPixel(At5, Bottom - 1), Colors::Green);
  const int At6 = static_cast<int>(std::lround(Chart.Y->NumberToWorld(6)));
  EXPECT_EQ(Picture.GetPixel(Left + 1, At6), Colors::Green);
  EXPECT_EQ(Picture.GetPixel(static_cast<int>(Area.X + Area.Width - 1), At6), Colors::Green);
  EXPECT_EQ(Picture.GetPixel(static_cast<int>(Area.X + Area.Width), At6), Colors::White);
}

TEST(ZyGraph2DTest, LinesLieWhereTheAxesSay) {
  for (const auto Mode : {TZySmoothingMode::None, TZySmoothingMode::HighQuality}) {
    TSampleChart Chart;
    Chart.UsePlainAxes();
    Chart.Graph->SetSmoothingMode(Mode);
    Chart.X->SetStartEnd(TZyAxisEnd::Fixed);
    Chart.X->SetStopEnd(TZyAxisEnd::Fixed);
    Chart.Y->SetStartEnd(TZyAxisEnd::Fixed);
    Chart.Y->SetStopEnd(TZyAxisEnd::Fixed);
    TZyLineSeries* const Level = Chart.AddSeries("Level", {-5, 15}, {4, 4});
    Level->Line().SetColor(Colors::Red);
    TZyLineSeries* const Plumb = Chart.AddSeries("Plumb", {2, 2}, {-5, 15});
    Plumb->Line().SetColor(Colors::Blue);
    const Bitmap Picture = Chart.Paint();
    for (const int X : {51, 300, 549}) {
      EXPECT_EQ(Picture.GetPixel(X, 200), Colors::Red) << X;
      EXPECT_EQ(Picture.GetPixel(X, 199), 0u) << X;
      EXPECT_EQ(Picture.GetPixel(X, 201), 0u) << X;
    }
    EXPECT_EQ(Picture.GetPixel(30, 200), 0u) << "cut off at the data area";
    EXPECT_EQ(Picture.GetPixel(560, 200), 0u) << "cut off at the data area";
    for (const int Y : {51, 175, 299}) {
      EXPECT_EQ(Picture.GetPixel(150, Y), Colors::Blue) << Y;
      EXPECT_EQ(Picture.GetPixel(149, Y), 0u) << Y;
    }
  }
}

TEST(ZyGraph2DTest, PaintsAfterAChangeOfDataMoveTheEnds) {
  TSampleChart Chart;
  TZyLineSeries* const Series = Chart.AddSeries("Series", {0, 1}, {0, 1});
  Chart.Paint();
  EXPECT_EQ(Chart.Y->Stop(), 1);
  Series->XData()->Add(2);
  Series->YData()->Add(50);
  Chart.Paint();
  EXPECT_EQ(Chart.X->Stop(), 2);
  EXPECT_EQ(Chart.Y->Stop(), 50);
  EXPECT_EQ(Series->Points().back(), (PointF{Chart.X->NumberToWorld(2), Chart.Y->NumberToWorld(50)}));
  Series->YData()->SetValue(2, 5);
  Chart.Paint();
  EXPECT_EQ(Chart.Y->Stop(), 5);
  Series->YData()->SetValue(1, 3);  // no range changes, and yet the line does
  Chart.Paint();
  EXPECT_EQ(Series->Points()[1], (PointF{Chart.X->NumberToWorld(1), Chart.Y->NumberToWorld(3)}));
}

/// A chart with something of everything.
void FillChart(TSampleChart& Chart) {
  Chart.AddSeries("First", {0.3, 1, 4, 9.7}, {0.1, 7.3, 2, 5});
  TZyLineSeries* const Second = Chart.AddSeries("Second", {0, 3, 9}, {9, 1, 0.2});
  Second->Line().SetWidth(3);
  Second->Line().SetDashStyle(DashStyleDash);
  Second->SetLayer(-1);
  Chart.X->SetCaption("abscissa");
  Chart.X->SetTickLength(9);
  Chart.X->SetTickColor(Colors::Red);
  Chart.Y->SetCaption("ordinate");
  Chart.Y->SetTwisted(true);
  Chart.Y->Font().SetSize(9);
  Chart.Y->SetStartEnd(TZyAxisEnd::FirstSet);
  Chart.Y->SetStart(-2.5);
  Chart.Graph->SetCaption("Title");
  Chart.Graph->SetCaptionVisible(true);
  Chart.Graph->SetBackColor(Colors::White);
  Chart.Graph->SetDataAreaColor(0xFFFFFFE0);
  Chart.Graph->DataAreaFrame().SetVisible(true);
  Chart.Graph->MinorGridHorizontal().SetVisible(true);
  Chart.Graph->MajorGridVertical().SetVisible(true);
}

TEST(ZyGraph2DTest, PaintsTheSamePictureTwice) {
  TSampleChart Chart;
  FillChart(Chart);
  const Bitmap First = Chart.Paint();
  EXPECT_TRUE(First.ToQt() == Chart.Paint().ToQt());
  Chart.Graph->Modified();
  EXPECT_TRUE(First.ToQt() == Chart.Paint().ToQt()) << "after a layout";
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

TEST(ZyGraph2DTest, ComesBackFromAnotherSize) {
  TSampleChart Chart;
  Chart.AddSeries("Series", {0.3, 1, 4, 9.7}, {0.37, 8.2, 2, 5});
  const Bitmap First = Chart.Paint();
  for (const int Size : {1, 30, 200, 3000}) {
    Chart.Graph->SetBounds(0, 0, Size, Size);
    Chart.Paint();
    Chart.Graph->SetBounds(0, 0, 600, 400);
    EXPECT_TRUE(First.ToQt() == Chart.Paint().ToQt()) << Size;
  }
}

TEST(ZyGraph2DTest, AFormReadBackPaintsTheSamePicture) {
  for (const bool PaintedBefore : {false, true}) {
    TMemoryStream Stream;
    std::optional<Bitmap> First;
    {
      TSampleChart Chart;
      FillChart(Chart);
      if (PaintedBefore) First = Chart.Paint();
      {
        TWriter Writer(Stream);
        Writer.WriteRootComponent(Chart.Form);
      }
      if (!PaintedBefore) First = Chart.Paint();
    }
    Stream.SetPosition(0);
    TForm Form;
    TReader Reader(Stream);
    Reader.ReadRootComponent(&Form);
    auto* const Graph = dynamic_cast<TZyGraph2D*>(Form.FindComponent("Graph"));
    ASSERT_NE(Graph, nullptr);
    EXPECT_EQ(Graph->Axes().size(), 2u);
    EXPECT_EQ(Graph->RelatedSeries().size(), 2u);
    EXPECT_TRUE(First->ToQt() == TSampleChart::Paint(*Graph).ToQt());
  }
}

}  // namespace
}  // namespace zy::testing
