// The paint order of a chart as a list of calls; rooms of solids, legends, coupling and the poll.

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>

#include "graph/ZyGraph2D.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/controls/TTimer.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/TRecordingGraphics.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyDoubleVector.h"
#include "series/ZyLineSeries.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

/// A series that is drawn as solids of 20 x 12 pixels depth.
class TSolidStub : public TZyLineSeries, public IZySolidSeries {
  ZY_CLASS(TSolidStub, TZyLineSeries)
  using TZyLineSeries::TZyLineSeries;
  bool IsSolid() const override { return true; }
  void PrepareDepth() override { ++Prepared; }
  float HorizontalDepth() const override { return 21; }
  float VerticalDepth() const override { return 12; }
  int Prepared = 0;
};
ZY_PUBLISHED(TSolidStub, TZyLineSeries)

/// A series with a symbol at the corner of the data.
class TSymbolStub : public TZyLineSeries {
  ZY_CLASS(TSymbolStub, TZyLineSeries)
  using TZyLineSeries::TZyLineSeries;
  void DrawSymbols(Graphics& Gr) override { Gr.FillRectangle(SolidBrush(0xFF654321), 1, 2, 3, 4); }
};
ZY_PUBLISHED(TSymbolStub, TZyLineSeries)

/// A legend that fills its box.
class TLegendStub : public TGraphicControl, public IZyGraphLegend {
  ZY_CLASS(TLegendStub, TGraphicControl)
  using TGraphicControl::TGraphicControl;
  TControl& Control() override { return *this; }
  TZyLegendPosition Position() const override { return TZyLegendPosition::FreeFloating; }
  void PreparePaint() override {}
  void PaintGr(Graphics& Gr) override { Gr.FillRectangle(SolidBrush(0xFF123456), 0, 0, 7, 8); }
  void Modified() override { ++Modifications; }
  void SetUndoStack(TZyUndoStack* Value) override { Stack = Value; }
  int Modifications = 0;
  TZyUndoStack* Stack = nullptr;
};
ZY_PUBLISHED(TLegendStub, TGraphicControl)

class ZyGraphPaintTest : public ::testing::Test {
 protected:
  ZyGraphPaintTest() {
    Graph.SetParent(&Form);
    Graph.SetBounds(0, 0, 600, 400);
    Graph.TestPrimaryAxis();
  }

  template <class TSeries>
  TSeries& AddSeries(std::initializer_list<double> Y) {
    auto* const X = new TZyDoubleVector(&Form);
    auto* const Data = new TZyDoubleVector(&Form);
    Data->SetName("Data" + std::to_string(Form.Components().size()));
    for (std::size_t Index = 0; Index < Y.size(); ++Index) X->Add(static_cast<double>(Index));
    Data->AddRange(Y);
    auto* const Series = new TSeries(&Form);
    Series->SetName("Series" + std::to_string(Form.Components().size()));
    Series->SetXData(X);
    Series->SetYData(Data);
    Series->SetXAxis(Graph.PrimaryXAxis());
    Series->SetYAxis(Graph.PrimaryYAxis());
    return *Series;
  }

  std::vector<std::string> Calls() {
    TRecordingGraphics Canvas;
    Graph.PaintGr(Canvas);
    return Canvas.Calls();
  }
  /// Index of the first call from First on that holds a text.
  static std::size_t Find(const std::vector<std::string>& Calls, std::string_view Text, std::size_t First = 0) {
    for (std::size_t Index = First; Index < Calls.size(); ++Index)
      if (Calls[Index].find(Text) != std::string::npos) return Index;
    ADD_FAILURE() << "no call with " << Text;
    return Calls.size();
  }
  static std::string Number(float Value) { return std::to_string(static_cast<int>(Value)); }

  TForm Form;
  TZyGraph2D& Graph = *new TZyGraph2D(&Form);
};

TEST_F(ZyGraphPaintTest, EverythingIsDrawnInTheOneOrder) {
  AddSeries<TSymbolStub>({1, 3, 2, 9}).Line().SetColor(0xFF0A0B0C);
  Graph.SetCaption("Title");
  Graph.SetCaptionVisible(true);
  Graph.SetBackColor(0xFFFAFAFA);
  Graph.SetDataAreaColor(0xFFE0E0E0);
  Graph.DataAreaFrame().SetVisible(true);
  Graph.DataAreaFrame().SetColor(0xFF010101);
  Graph.MajorGridVertical().SetVisible(true);
  Graph.MinorGridVertical().SetVisible(true);
  Graph.MajorGridHorizontal().SetVisible(true);
  Graph.MajorGridHorizontal().SetColor(0xFF020202);
  Graph.MajorGridVertical().SetColor(0xFF030303);
  Graph.MinorGridVertical().SetColor(0xFF040404);
  TLegendStub Legend(&Form);
  Legend.SetParent(&Graph);
  Legend.SetBounds(500, 20, 50, 60);
  Graph.AddRelatedLegend(&Legend);
  const auto List = Calls();
  const char* const Order[] = {"FillRectangle(FFFAFAFA, 0 0 600 400)",
                               "FillRectangle(FFE0E0E0",
                               "\"Title\"",
                               "pen FF030303",
                               "pen FF040404",
                               "pen FF020202",
                               "pen FF0A0B0C",
                               "FillRectangle(FF654321",  // symbols cover their lines, and later the axes
                               "DrawRectangle(pen FF010101",
                               "\"Y-Axis\"",
                               "FillRectangle(FF654321",
                               "FillRectangle(FF123456, 0 0 7 8)"};
  std::size_t Last = 0;
  for (const char* Text : Order) {
    Last = Find(List, Text, Last);
  }
  EXPECT_EQ(List[Find(List, "FillRectangle(FF123456") - 1].substr(0, 30), "SetTransform(1 0 0 1, 500 20)");
}

TEST_F(ZyGraphPaintTest, BackgroundsFollowTheirRules) {
  const auto Count = [this](std::string_view Text) {
    int Found = 0;
    for (const std::string& Call : Calls()) Found += Call.find(Text) != std::string::npos ? 1 : 0;
    return Found;
  };
  Graph.SetBackColor(0xFFFFFFFF);
  Graph.SetDataAreaColor(0xFFFFFFFF);
  EXPECT_EQ(Count("FillRectangle"), 1) << "a data area in the back colour is not drawn";
  Graph.DataAreaGradient().SetVisible(true);
  EXPECT_EQ(Count("FillRectangle(linear"), 1);
  Graph.BackgroundGradient().SetVisible(true);
  EXPECT_EQ(Count("FillRectangle(linear"), 2);
  Graph.SetBackColor(Colors::Transparent);
  EXPECT_EQ(Count("FillRectangle(FF"), 0) << "a transparent back shows what lies behind";
}

TEST_F(ZyGraphPaintTest, ABorderRunsRoundTheChartOnTheScreen) {
  Graph.SetBorderStyle(bsSingle);
  EXPECT_TRUE(Graph.NeedsRecalculate());
  TRecordingGraphics Screen;
  Graph.PaintTo(Screen);
  EXPECT_EQ(Screen.Calls().back().substr(0, 14), "DrawRectangle(");
  EXPECT_NE(Screen.Calls().back().find("0 0 599 399"), std::string::npos);
  for (const std::string& Call : Calls()) EXPECT_EQ(Call.find("599 399"), std::string::npos) << "not in files";
}

TEST_F(ZyGraphPaintTest, SolidsOpenARoom) {
  TSolidStub& Series = AddSeries<TSolidStub>({1, 5});
  Graph.SetDataAreaColor(0xFF808080);
  Graph.MajorGridHorizontal().SetVisible(true);
  Graph.MajorGridHorizontal().SetColor(0xFF020202);
  const auto List = Calls();
  EXPECT_GT(Series.Prepared, 0);
  const auto [X, Y, W, H] = Graph.DrawingArea();
  // Depth 20 to the right and 12 up: the back wall is the data area moved by that, in a gradient around its colour.
  const std::size_t Back = Find(List, "FillRectangle(linear");
  EXPECT_NE(List[Back].find(Number(X + 20) + " " + Number(Y - 12) + " " + Number(W - 1) + " " + Number(H)),
            std::string::npos)
      << List[Back];
  // The left wall at 0.85 and the floor at 0.75 of the lightness: 128 x 0.85 = 109 = 6D, 128 x 0.75 = 96 = 60.
  EXPECT_EQ(Find(List, "FillPolygon(FF6D6D6D, " + Number(X) + " " + Number(Y) + ", " + Number(X) + " " + Number(Y + H)),
            Find(List, "FillPolygon(FF6D6D6D"));
  EXPECT_GT(Find(List, "FillPolygon(FF606060, "), Find(List, "FillPolygon(FF6D6D6D"));
  // Each grid line goes along the side wall and then along the back.
  const std::size_t Side = Find(List, "pen FF020202");
  const float Place = std::round(Graph.PrimaryYAxis()->Ticks().front());
  EXPECT_EQ(List[Side], "DrawLine(pen FF020202 1, " + Number(X) + " " + Number(Place) + ", " + Number(X + 20) + " " +
                            Number(Place - 12) + ")");
  EXPECT_EQ(List[Side + 1], "DrawLine(pen FF020202 1, " + Number(X + 20) + " " + Number(Place - 12) + ", " +
                                Number(X + W + 19) + " " + Number(Place - 12) + ")");
}

TEST_F(ZyGraphPaintTest, DataAreCutOnlyWhereTheAxisDoesNotShowThem) {
  AddSeries<TZyLineSeries>({1, 5, 3, 9});
  const auto Clip = [this] {
    for (const std::string& Call : Calls())
      if (Call.rfind("SetClip", 0) == 0) return Call;
    return std::string();
  };
  EXPECT_EQ(Clip(), "") << "a chart that shows everything cuts nothing";
  Graph.PrimaryYAxis()->SetStop(6);  // the 9 lies above, the 1 is shown
  Graph.PrimaryYAxis()->SetStopEnd(TZyAxisEnd::FirstSet);
  Graph.PrimaryYAxis()->SetStartStop(0, 6);
  const std::string AtTop = Clip();
  const auto [X, Y, W, H] = Graph.DrawingArea();
  EXPECT_NE(AtTop.find("0 " + Number(Y) + " 600 " + Number(400 - Y)), std::string::npos) << AtTop;
  Graph.PrimaryYAxis()->SetTwisted(true);  // now the same data lie below
  const std::string AtBottom = Clip();
  const RectF Area = Graph.DrawingArea();
  EXPECT_NE(AtBottom.find("0 0 600 " + Number(Area.Y + Area.Height)), std::string::npos) << AtBottom;
}

TEST_F(ZyGraphPaintTest, PointsAreFoundFromTheTopmostSeriesDown) {
  TZyLineSeries& Below = AddSeries<TZyLineSeries>({2, 4, 8});
  TZyLineSeries& Above = AddSeries<TZyLineSeries>({8, 4, 2});
  Calls();
  const auto At = [this](double X, double Y) {
    return Graph.FindSeriesPoint(static_cast<int>(std::lround(Graph.PrimaryXAxis()->NumberToWorld(X))),
                                 static_cast<int>(std::lround(Graph.PrimaryYAxis()->NumberToWorld(Y))));
  };
  const TZyFindSeriesPointResult Shared = At(1, 4);
  EXPECT_TRUE(Shared.Found);
  EXPECT_EQ(Shared.InSeries, &Above);
  EXPECT_EQ(Shared.Index, 1);
  const TZyFindSeriesPointResult Lone = At(2, 8);
  EXPECT_EQ(Lone.InSeries, &Below);
  EXPECT_EQ(Lone.Index, 2);
  EXPECT_EQ(Lone.X, 2.0);
  EXPECT_EQ(Lone.Y, 8.0);
  const TZyFindSeriesPointResult None = At(0.5, 8);
  EXPECT_FALSE(None.Found);
  EXPECT_EQ(None.InSeries, nullptr);
  EXPECT_EQ(None.Index, -1);
  Above.PointsModified();
  EXPECT_EQ(At(0, 8).InSeries, nullptr) << "stale pixels find nothing";
}

TEST_F(ZyGraphPaintTest, GraphsThatShareAnXAxisAreCoupled) {
  auto& Other = *new TZyGraph2D(&Form);
  Other.SetParent(&Form);
  Other.SetPrimaryXAxis(Graph.PrimaryXAxis());
  TLegendStub Legend(&Form), OtherLegend(&Form);
  Graph.AddRelatedLegend(&Legend);
  Other.AddRelatedLegend(&OtherLegend);
  Other.AddRelatedLegend(&OtherLegend);
  Graph.CheckCoupled();
  Other.CheckCoupled();
  EXPECT_TRUE(Graph.HasChildGraphs());
  EXPECT_FALSE(Graph.IsCoupledGraph());
  EXPECT_EQ(Graph.ChildGraphs(), (std::vector<TZyGraph2D*>{&Other}));
  EXPECT_TRUE(Other.IsCoupledGraph());
  EXPECT_EQ(Other.AllAxes().back(), Graph.PrimaryXAxis());
  Other.LegendsModified();  // goes through the graph of the axis, which reaches this graph's legends once more
  EXPECT_EQ(Legend.Modifications, 1);
  EXPECT_EQ(OtherLegend.Modifications, 2);
  TZyUndoStack Stack(&Form);
  Graph.SetUndoStack(&Stack);
  EXPECT_EQ(Legend.Stack, &Stack);
  Graph.SetUndoStack(nullptr);
  delete &Other;
  Graph.CheckCoupled();
  EXPECT_FALSE(Graph.HasChildGraphs());
  Graph.RemoveRelatedLegend(&Legend);
}

TEST_F(ZyGraphPaintTest, GraphsMayUseEachOthersXAxes) {
  auto& Other = *new TZyGraph2D(&Form);
  Other.SetParent(&Form);
  Other.TestPrimaryAxis();
  TZyAxis* const Own = Graph.PrimaryXAxis();
  Graph.SetPrimaryXAxis(Other.PrimaryXAxis());
  Other.SetPrimaryXAxis(Own);
  TLegendStub Legend(&Form);
  Graph.AddRelatedLegend(&Legend);
  Calls();
  TRecordingGraphics Canvas;
  Other.PaintGr(Canvas);
  Graph.LegendsModified();
  EXPECT_EQ(Legend.Modifications, 1);
  Graph.RemoveRelatedLegend(&Legend);
}

TEST_F(ZyGraphPaintTest, ThePollTakesNewDataOnTheControlThread) {
  auto& Application = dynamic_cast<TApplication&>(zy::Application());
  TZyLineSeries& Series = AddSeries<TZyLineSeries>({0, 1, 2});
  Calls();
  const double Before = Graph.PrimaryYAxis()->Stop();
  dynamic_cast<TZyDoubleVector&>(*Series.YData()).SetValue(2, 500);
  EXPECT_EQ(Graph.PrimaryYAxis()->Stop(), Before) << "a write computes nothing";
  std::this_thread::sleep_for(std::chrono::milliseconds(350));
  EXPECT_EQ(Graph.PrimaryYAxis()->Stop(), Before) << "nor does the worker";
  for (int Tries = 0; Tries < 50 && Graph.PrimaryYAxis()->Stop() == Before; ++Tries) {
    Application.ProcessMessages();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  EXPECT_GE(Graph.PrimaryYAxis()->Stop(), 500.0);
}

TEST_F(ZyGraphPaintTest, DataOfAllSeriesAreOneStepOfUndo) {
  TZyUndoStack Stack(&Form);
  Form.SetName("PaintForm");
  Graph.SetUndoStack(&Stack);
  TZyLineSeries& Series = AddSeries<TZyLineSeries>({1, 2, 3});
  TZyLineSeries& Second = AddSeries<TZyLineSeries>({4, 5, 6});
  Second.SetXData(Series.XData());  // shared
  EXPECT_EQ(Graph.GetVectorsList().size(), 3u);
  Stack.Clear();
  Graph.UndoPushSeriesVectors();
  dynamic_cast<TZyDoubleVector*>(Series.YData())->Clear();
  EXPECT_EQ(Stack.UndoList().Get(0), "Graph series data");
  EXPECT_EQ(Stack.UndoList().Count(), 1);
  Stack.Undo();
  EXPECT_EQ(Series.YData()->Count(), 3);
  Graph.SetUndoStack(nullptr);
}

TEST_F(ZyGraphPaintTest, AFedChartMayGoWhileItIsPainted) {
  auto& Application = dynamic_cast<TApplication&>(zy::Application());
  for (int Round = 0; Round < 3; ++Round) {
    TForm Window;
    Window.SetBounds(0, 0, 300, 200);
    auto* Chart = new TZyGraph2D(&Window);
    Chart->SetParent(&Window);
    Chart->SetAlign(alClient);
    Chart->TestPrimaryAxis();
    TZyDoubleVector X(&Window), Y(&Window);
    TZyLineSeries Series(&Window);
    Series.SetXData(&X);
    Series.SetYData(&Y);
    Series.SetXAxis(Chart->PrimaryXAxis());
    Series.SetYAxis(Chart->PrimaryYAxis());
    Window.Show();
    TTimer Feed(&Window);
    Feed.SetInterval(1);
    int Fed = 0;
    Feed.SetOnTimer([&](TObject*) {
      for (int Point = 0; Point < 20; ++Point, ++Fed) {
        X.Add(Fed);
        Y.Add(std::sin(0.01 * Fed));
      }
      if (Chart != nullptr) Chart->Invalidate();
      if (Fed < 2000) return;
      delete Chart;
      Chart = nullptr;
    });
    const auto End = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (Fed < 2500 && std::chrono::steady_clock::now() < End) Application.ProcessMessages();
    EXPECT_EQ(Chart, nullptr);
    EXPECT_GE(Fed, 2500) << "the data go on without the chart";
    EXPECT_EQ(Series.XAxis(), nullptr);
  }
}

TEST(ZyGraphDesignTest, ANewGraphTakesItsOwnersUndoStack) {
  TForm Form;
  Form.SetDesigning(true);
  auto* const First = new TZyGraph2D(&Form);
  First->SetName("Graph1");
  ASSERT_NE(First->UndoStack(), nullptr);
  EXPECT_EQ(First->UndoStack()->Name(), "ZyUndoStack1");
  EXPECT_EQ(First->Caption(), "Graph1") << "the caption follows the name";
  First->SetName("Graph5");
  EXPECT_EQ(First->Caption(), "Graph5");
  First->SetCaption("own");
  First->SetName("Graph6");
  EXPECT_EQ(First->Caption(), "own");
  EXPECT_EQ(First->MajorGridVertical().DashStyle(), DashStyleDash);
  EXPECT_EQ(First->MinorGridHorizontal().DashStyle(), DashStyleDot);
  EXPECT_EQ(First->DataAreaGradient().LinearAngle(), 90.0f);
  auto* const Second = new TZyGraph2D(&Form);
  Second->SetName("Graph2");
  EXPECT_EQ(Second->UndoStack(), First->UndoStack());
}

}  // namespace
}  // namespace zy
