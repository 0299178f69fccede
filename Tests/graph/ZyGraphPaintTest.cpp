// The paint order of a chart as a list of calls; rooms of solids, legends, coupling and the poll.

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>

#include "graph/ChartStubs.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TTimer.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

/// A series with a symbol at the corner of the data.
class TSymbolStub : public TZyLineSeries {
  ZY_CLASS(TSymbolStub, TZyLineSeries)
  using TZyLineSeries::TZyLineSeries;
  void DrawSymbols(Graphics& Gr) override { Gr.FillRectangle(SolidBrush(0xFF654321), 1, 2, 3, 4); }
};
ZY_PUBLISHED(TSymbolStub, TZyLineSeries)

class ZyGraphPaintTest : public ::testing::Test, public TSampleChart {
 protected:
  ZyGraphPaintTest() { Y->SetCaption("Y-Axis"); }

  /// Index of the first call from First on that holds a text.
  static std::size_t Find(const TCalls& Calls, std::string_view Text, std::size_t First = 0) {
    for (std::size_t Index = First; Index < Calls.size(); ++Index)
      if (Calls[Index].find(Text) != std::string::npos) return Index;
    ADD_FAILURE() << "no call with " << Text;
    return Calls.size();
  }
  static std::string Number(float Value) { return std::to_string(static_cast<int>(Value)); }
};

TEST_F(ZyGraphPaintTest, EverythingIsDrawnInTheOneOrder) {
  AddSeries<TSymbolStub>("A", {0, 1, 2, 3}, {1, 3, 2, 9})->Line().SetColor(0xFF0A0B0C);
  Graph->SetCaption("Title");
  Graph->SetCaptionVisible(true);
  Graph->SetBackColor(0xFFFAFAFA);
  Graph->SetDataAreaColor(0xFFE0E0E0);
  TZyColor Color = 0xFF010101;
  for (TZyLineSettings* Line : {&Graph->DataAreaFrame(), &Graph->MajorGridHorizontal(), &Graph->MajorGridVertical(),
                                &Graph->MinorGridVertical()}) {
    Line->SetVisible(true);
    Line->SetColor(Color);
    Color += 0x010101;
  }
  TStubLegend Legend(&Form);
  Legend.SetParent(Graph);
  Legend.SetBounds(500, 20, 50, 60);
  Graph->AddRelatedLegend(&Legend);
  const TCalls List = Calls();
  std::size_t Last = 0;
  const auto& [Left, Top, Width, Height] = Graph->DrawingArea();  // with one pixel more than lies between its edges
  const std::string Area = Number(Left) + " " + Number(Top) + " " + Number(Width - 1) + " " + Number(Height - 1) + ")";
  for (const std::string& Text :
       std::initializer_list<std::string>{"FillRectangle(FFFAFAFA, 0 0 600 400)", "FillRectangle(FFE0E0E0, " + Area,
                                          "\"Title\"", "pen FF030303", "pen FF040404", "pen FF020202", "pen FF0A0B0C",
                                          "FillRectangle(FF654321",  // symbols cover their lines, and later the axes
                                          "DrawRectangle(pen FF010101 1, " + Area, "\"Y-Axis\"",
                                          "FillRectangle(FF654321", "FillRectangle(FF123456, 0 0 7 8)"})
    Last = Find(List, Text, Last);
  EXPECT_TRUE(List[Last - 1].starts_with("SetTransform(1 0 0 1, 500 20)")) << List[Last - 1];
}

TEST_F(ZyGraphPaintTest, BackgroundsFollowTheirRules) {
  Graph->SetBackColor(0xFFFFFFFF);
  Graph->SetDataAreaColor(0xFFFFFFFF);
  EXPECT_EQ(CountOf(Calls(), "FillRectangle"), 1) << "a data area in the back colour is not drawn";
  Graph->DataAreaGradient().SetVisible(true);
  EXPECT_EQ(CountOf(Calls(), "FillRectangle(linear"), 1);
  Graph->BackgroundGradient().SetVisible(true);
  EXPECT_EQ(CountOf(Calls(), "FillRectangle(linear"), 2);
  Graph->SetBackColor(Colors::Transparent);
  EXPECT_EQ(CountOf(Calls(), "FillRectangle(FF"), 0) << "a transparent back shows what lies behind";

  Graph->SetBorderStyle(bsSingle);
  EXPECT_TRUE(Graph->NeedsRecalculate());
  const TCalls Screen = CallsOf([this](Graphics& Gr) { Graph->PaintTo(Gr); });
  EXPECT_TRUE(Screen.back().starts_with("DrawRectangle(") && Screen.back().ends_with("0 0 599 399)")) << Screen.back();
  EXPECT_EQ(CountOf(Calls(), "599 399"), 0) << "not in files";
}

TEST_F(ZyGraphPaintTest, SolidsOpenARoom) {
  TStubSeries& Series = *AddSeries<TStubSeries>("A", {0, 1}, {1, 5});
  Series.Solid = true;
  Series.Depth = {21, 12};
  Graph->SetDataAreaColor(0xFF808080);
  Graph->MajorGridHorizontal().SetVisible(true);
  Graph->MajorGridHorizontal().SetColor(0xFF020202);
  const TCalls List = Calls();
  EXPECT_GT(Series.Prepared, 0);
  const auto [Left, Top, Width, Height] = Graph->DrawingArea();
  // Depth 20 to the right and 12 up: the back wall is the data area moved by that, in a gradient around its colour.
  EXPECT_TRUE(List[Find(List, "FillRectangle(linear")].ends_with(", " + Number(Left + 20) + " " + Number(Top - 12) +
                                                                 " " + Number(Width - 1) + " " + Number(Height) + ")"));
  // The left wall at 0.85 and the floor at 0.75 of the lightness: 128 x 0.85 = 109 = 6D, 128 x 0.75 = 96 = 60.
  const std::size_t Wall = Find(List, "FillPolygon(FF6D6D6D, " + Number(Left) + " " + Number(Top) + ", " +
                                          Number(Left) + " " + Number(Top + Height));
  Find(List, "FillPolygon(FF606060, ", Wall);
  // Each grid line goes along the side wall and then along the back.
  const float Place = std::round(Y->Ticks().front().Position);
  const std::string Corner = Number(Left + 20) + " " + Number(Place - 12);
  const std::size_t Side = Find(List, "pen FF020202");
  EXPECT_EQ(List[Side], "DrawLine(pen FF020202 1, " + Number(Left) + " " + Number(Place) + ", " + Corner + ")");
  EXPECT_EQ(List[Side + 1],
            "DrawLine(pen FF020202 1, " + Corner + ", " + Number(Left + Width + 19) + " " + Number(Place - 12) + ")");
}

TEST_F(ZyGraphPaintTest, DataAreCutOnlyWhereTheAxisDoesNotShowThem) {
  AddSeries("A", {0, 1, 2, 3}, {1, 5, 3, 9});
  EXPECT_EQ(CountOf(Calls(), "SetClip"), 0) << "a chart that shows everything cuts nothing";
  Y->SetStopEnd(TZyAxisEnd::FirstSet);
  Y->SetStartStop(0, 6);  // the 9 lies above, the 1 is shown
  const TCalls AtTop = Calls();
  const RectF& Area = Graph->DrawingArea();
  EXPECT_EQ(CountOf(AtTop, "SetClip(0 " + Number(Area.Y) + " 600 " + Number(400 - Area.Y)), 1);
  Y->SetTwisted(true);  // now the same data lie below
  const TCalls AtBottom = Calls();
  EXPECT_EQ(CountOf(AtBottom, "SetClip(0 0 600 " + Number(Area.Y + Area.Height)), 1);
  // Neither a series that is hidden nor one on another axis, of which more is hidden, counts.
  auto* const Other = new TZyAxis(&Form);
  Other->SetPosition(TZyAxisPosition::Right);
  Other->SetParent(Graph);
  AddSeries("B", {0, 3}, {2, 3})->SetYAxis(Other);
  Y->SetStop(9);
  EXPECT_EQ(CountOf(Calls(), "SetClip"), 0);
  Other->SetStopEnd(TZyAxisEnd::Fixed);
  Other->SetStop(2.5);
  EXPECT_EQ(CountOf(Calls(), "SetClip(0"), 1) << "the series on it alone";
}

TEST_F(ZyGraphPaintTest, PointsAreFoundFromTheTopmostSeriesDown) {
  const TZySeries* const Below = AddSeries("A", {0, 1, 2}, {2, 4, 8});
  TZySeries* const Above = AddSeries("B", {0, 1, 2}, {8, 4, 2});
  Paint();
  const auto At = [this](double AtX, double AtY) {
    return Graph->FindSeriesPoint(static_cast<int>(std::lround(X->NumberToWorld(AtX))),
                                  static_cast<int>(std::lround(Y->NumberToWorld(AtY))));
  };
  const TZyFindSeriesPointResult Shared = At(1, 4), Lone = At(2, 8), None = At(0.5, 8);
  EXPECT_TRUE(Shared.Found && Shared.InSeries == Above && Shared.Index == 1);
  EXPECT_TRUE(Lone.Found && Lone.InSeries == Below && Lone.Index == 2 && Lone.X == 2 && Lone.Y == 8);
  EXPECT_TRUE(!None.Found && None.InSeries == nullptr && None.Index == -1);
  Above->PointsModified();
  EXPECT_EQ(At(0, 8).InSeries, nullptr) << "stale pixels find nothing";
}

TEST_F(ZyGraphPaintTest, GraphsThatShareAnXAxisAreCoupled) {
  TZyGraph2D& Other = AddCoupled();
  TStubLegend Legend(&Form), OtherLegend(&Form);
  Graph->AddRelatedLegend(&Legend);
  Other.AddRelatedLegend(&OtherLegend);
  Other.AddRelatedLegend(&OtherLegend);
  Graph->CheckCoupled();
  Other.CheckCoupled();
  EXPECT_FALSE(Graph->IsCoupledGraph());
  EXPECT_EQ(Listed(Graph->ChildGraphs()), (std::vector<TZyGraph2D*>{&Other}));
  EXPECT_TRUE(Other.IsCoupledGraph());
  EXPECT_EQ(Listed(Other.AllAxes()).back(), X);
  Other.LegendsModified();  // goes through the graph of the axis, which reaches this graph's legends once more
  EXPECT_EQ(Legend.Modifications, 1);
  EXPECT_EQ(OtherLegend.Modifications, 2);
  TZyUndoStack Stack(&Form);
  Graph->SetUndoStack(&Stack);
  EXPECT_EQ(Legend.Stack, &Stack);
  Graph->SetUndoStack(nullptr);
  delete &Other;
  EXPECT_FALSE(Graph->HasChildGraphs()) << "at once";
  auto* const Second = new TZyAxis(&Form);
  Second->SetParent(Graph);
  Graph->CheckCoupled();
  delete Second;
  EXPECT_EQ(Listed(Graph->AllAxes()), (std::vector<TZyAxis*>{X, Y}));

  auto& Crossed = *new TZyGraph2D(&Form);  // two that use each other's
  Crossed.SetParent(&Form);
  Crossed.TestPrimaryAxis();
  Graph->SetPrimaryXAxis(Crossed.PrimaryXAxis());
  Crossed.SetPrimaryXAxis(X);
  for (TZyGraph2D* One : {static_cast<TZyGraph2D*>(Graph), &Crossed}) Paint(*One);
  Legend.Modifications = 0;
  Graph->LegendsModified();
  EXPECT_EQ(Legend.Modifications, 1);
  Graph->RemoveRelatedLegend(&Legend);
}

TEST_F(ZyGraphPaintTest, AHandlerThatThrowsLeavesNothingBehind) {
  TZyGraph2D& Other = AddCoupled();
  AddSeries("A", {0, 1, 2}, {1, 2, 3});
  TStubLegend Legend(&Form);
  Graph->AddRelatedLegend(&Legend);
  Legend.Fails = true;
  EXPECT_THROW(Graph->LegendsModified(), EInvalidOperation);
  Legend.Fails = false;
  Graph->LegendsModified();
  EXPECT_EQ(Legend.Modifications, 2);
  Paint(Other);
  const TCalls Before = Calls();
  for (TZyAxis* Axis : {X, Y, Other.PrimaryYAxis()}) {
    Axis->SetOnGetTicks([](auto&&...) { throw EInvalidOperation("no"); });
    for (TZyGraph2D* One : {static_cast<TZyGraph2D*>(Graph), &Other}) {
      One->Modified();
      try {
        Paint(*One);
      } catch (const EInvalidOperation&) {
      }
    }
    Axis->SetOnGetTicks({});
    Paint(Other);
    EXPECT_EQ(Calls(), Before);
  }
}

TEST_F(ZyGraphPaintTest, ALayoutThatAHandlerRefusesHalfWayLeavesNothingBehind) {
  TZySeries* const Series = AddSeries("A", {0, 999}, {3, 70});
  Y->SetStartPadding(0.1);
  Paint();
  const auto Swing = [&](double Stop) {
    Series->YData()->SetValue(1, 7000);  // other steps, and then back to the same ends
    Paint();
    Series->YData()->SetValue(1, Stop);
  };
  const auto State = [&] { return std::tuple(Calls(), Y->Start(), Y->Stop(), Y->LabelPart(), Y->Width()); };
  Swing(70);
  Paint();
  const auto Before = State();
  int Made = 0;
  for (int Refused = 0; Made >= Refused; ++Refused) {
    Made = 0;
    const auto Refuse = [&](TObject*, TZyScaleLabelEventArgs&) {
      if (++Made > Refused) throw EInvalidOperation("no");
    };
    Swing(70);
    Y->SetOnGetScaleLabel(Refuse);
    try {
      Paint();
    } catch (const EInvalidOperation&) {
    }
    Y->SetOnGetScaleLabel({});
    Paint();
    ASSERT_EQ(State(), Before) << "after " << Refused << " labels";
  }
}

TEST_F(ZyGraphPaintTest, ThePollTakesNewDataOnTheControlThread) {
  TZySeries* const Series = AddSeries("A", {0, 1, 2}, {0, 1, 2});
  Paint();
  const double Before = Y->Stop();
  Series->YData()->SetValue(2, 500);
  EXPECT_EQ(Y->Stop(), Before) << "a write computes nothing";
  std::this_thread::sleep_for(std::chrono::milliseconds(350));
  EXPECT_EQ(Y->Stop(), Before) << "nor does the worker";
  for (int Tries = 0; Tries < 50 && Y->Stop() == Before; ++Tries) {
    dynamic_cast<TApplication&>(Application()).ProcessMessages();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  EXPECT_GE(Y->Stop(), 500.0);
}

TEST_F(ZyGraphPaintTest, DataOfAllSeriesAreOneStepOfUndo) {
  TZyUndoStack Stack(&Form);
  Graph->SetUndoStack(&Stack);
  TZySeries* const Series = AddSeries("A", {0, 1, 2}, {1, 2, 3});
  AddSeries("B", {}, {4, 5, 6})->SetXData(Series->XData());  // shared
  EXPECT_EQ(Graph->GetVectorsList().size(), 3u);
  Stack.Clear();
  Graph->UndoPushSeriesVectors();
  Series->YData()->Clear();
  EXPECT_EQ(Stack.UndoList().Text(), "Graph series data\n");
  Stack.Undo();
  EXPECT_EQ(Series->YData()->Count(), 3);
  Stack.Clear();
  Series->Renumber(5);
  Paint();
  EXPECT_EQ(Stack.UndoList().Text(), "") << "numbers of layers are no step";
  TZyFont Large;
  Large.SetSize(30);
  Graph->SetFont(Large);
  EXPECT_EQ(Stack.UndoList().Text(), "Font of graph title\n");
  Stack.Undo();
  EXPECT_TRUE(Graph->ParentFont() && Graph->Font().Size() < 30);
  Stack.Redo();
  EXPECT_TRUE(!Graph->ParentFont() && Graph->Font().Size() == 30);
  Graph->SetUndoStack(nullptr);
}

TEST_F(ZyGraphPaintTest, AFedChartMayGoWhileItIsPainted) {
  for (int Round = 0; Round < 3; ++Round) {
    TSampleChart Chart;
    TZySeries* const Series = Chart.AddSeries("A");
    Chart.Form.Show();
    TTimer Feed(&Chart.Form);
    Feed.SetInterval(1);
    int Fed = 0;
    Feed.SetOnTimer([&](TObject*) {
      for (int Point = 0; Point < 20; ++Point, ++Fed) {
        Series->XData()->Add(Fed);
        Series->YData()->Add(std::sin(0.01 * Fed));
      }
      if (Chart.Graph != nullptr) Chart.Graph->Invalidate();
      if (Fed >= 2000) delete std::exchange(Chart.Graph, nullptr);
    });
    const auto End = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (Fed < 2500 && std::chrono::steady_clock::now() < End)
      dynamic_cast<TApplication&>(Application()).ProcessMessages();
    EXPECT_GE(Fed, 2500) << "the data go on without the chart";
    EXPECT_EQ(Series->XAxis(), nullptr);
  }
}

TEST(ZyGraphDesignTest, ANewGraphTakesItsOwnersUndoStack) {
  TForm Form;
  Form.SetDesigning(true);
  auto* const First = new TZyGraph2D(&Form);
  for (const char* Name : {"Graph1", "Graph5"}) {
    First->SetName(Name);
    EXPECT_EQ(First->Caption(), Name) << "the caption follows the name";
  }
  ASSERT_NE(First->UndoStack(), nullptr);
  EXPECT_EQ(First->UndoStack()->Name(), "ZyUndoStack1");
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
}  // namespace zy::testing
