// The layout pass against sizes and places added up by hand.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <tuple>
#include <utility>

#include "axes/AxisSamples.h"
#include "graph/ChartStubs.h"
#include "platform/drawing/Font.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

using enum TZyAxisPosition;

/// A chart of five axes without texts: X, Y, a second one at the left, and one each at the top and at the right.
struct TFiveAxes : TSampleChart {
  TFiveAxes() {
    for (TZyAxis* Axis : Graph->Axes()) Axis->SetNumbersVisible(false);
  }
  /// Without those that stand upright, and without a series.
  void HideUpright() {
    for (TZyAxis* Axis : {Y, Left2, Right2}) Axis->SetVisible(false);
    Series.SetVisible(false);
  }
  TZyAxis *Left2 = AddAxis(*Graph, Left), *Top2 = AddAxis(*Graph, Top), *Right2 = AddAxis(*Graph, Right);
  TStubSeries& Series = *AddSeries<TStubSeries>("V", {0, 5, 10}, {0, 5, 10});
};

/// Where the line of an axis lies in the graph.
float LineOf(const TZyAxis& Axis) {
  return Axis.GetHorizontal() ? static_cast<float>(Axis.Top()) + Axis.AxTop()
                              : static_cast<float>(Axis.Left()) + Axis.AxLeft();
}

// An axis needs 11 pixels across: half its line of 1 rounded up, and the major tick of 10. Its line is the last of its
// pixels at the left and the top, and the second at the right and the bottom. So there are 22, 11, 10 and 10 pixels
// outside the data area, which counts one pixel more than lies between its edges.
TEST(ZyAxisLayoutTest, AddsUpAxesOnAllSides) {
  using TC = TFiveAxes;
  const auto LongArrow = [](TC& C) { C.X->ArrowPoint().SetVisible(true), C.X->ArrowPoint().SetPointLength(9.5f); };
  const auto Zoom = [](TC& C) {
    C.Series.ExtraSpace = 29.5f;
    C.Paint();
    C.X->SetStartStop(2, 8);
    C.Graph->Modified();
  };
  const auto Walls = [](TC& C) { C.Graph->MajorGridHorizontal().SetVisible(true); };
  const struct {
    const char* Name;
    std::function<void(TC&)> Set;
    RectF Area;
    float YLine, Left2Line;
  } Cases[] = {
      {"plain", [](TC&) {}, {22, 11, 569, 380}, 22, 11},
      {"border", [](TC& C) { C.Graph->SetDistanceBorderAxisLeft(4.2f); }, {27, 11, 564, 380}, 27, 16},
      {"single border", [](TC& C) { C.Graph->SetBorderStyle(bsSingle); }, {22, 11, 569, 376}, 22, 11},
      {"inner axis hidden", [](TC& C) { C.Y->SetVisible(false); }, {11, 11, 580, 380}, 22, 11},
      {"all hidden at the sides", [](TC& C) { C.HideUpright(); }, {0, 11, 600, 380}, 11, 11},
      {"bottom hidden", [](TC& C) { C.X->SetVisible(false); }, {22, 11, 569, 390}, 22, 11},
      {"gap to the values", [](TC& C) { C.Y->SetDistanceValuesAxis(5); }, {27, 11, 564, 380}, 22, 11},
      {"gap on the outer axis", [](TC& C) { C.Left2->SetDistanceValuesAxis(5); }, {22, 11, 569, 380}, 22, 11},
      {"ticks to the data", [](TC& C) { C.Y->SetTicksPointToData(true); }, {12, 11, 579, 380}, 12, 11},
      {"ticks to the data below", [](TC& C) { C.X->SetTicksPointToData(true); }, {22, 11, 569, 389}, 22, 11},
      {"thick line", [](TC& C) { C.Left2->SetAxisThicknes(3); }, {23, 11, 568, 380}, 23, 11},
      {"long ticks", [](TC& C) { C.Left2->SetMajorTickLength(25); }, {37, 11, 554, 380}, 37, 26},
      {"border gap", [](TC& C) { C.Y->SetDistanceToBorder(6); }, {28, 11, 563, 380}, 28, 11},
      {"arrow to the right", [](TC& C) { C.X->ArrowPoint().SetVisible(true); }, {22, 11, 558, 380}, 22, 11},
      // 28.5 of room, where the axes have 22
      {"arrow to the left", [&](TC& C) { LongArrow(C), C.X->SetTwisted(true); }, {29, 11, 562, 380}, 29, 11},
      // 30 pixels at the right, where the axis has 10; zoomed, the drawing goes beyond the data area anyway, and there
      // is a scroll bar of 17 pixels
      {"drawn beyond the last point", [](TC& C) { C.Series.ExtraSpace = 29.5f; }, {22, 11, 549, 380}, 22, 11},
      {"zoomed", Zoom, {22, 11, 569, 363}, 22, 11},
      // Depth is there before walls only.
      {"solid series", [](TC& C) { C.Series.Solid = true; }, {22, 11, 569, 380}, 22, 11},
      {"walls", Walls, {22, 11, 569, 380}, 22, 11},
      {"depth", [&](TC& C) { C.Series.Solid = true, Walls(C); }, {22, 30, 566, 361}, 22, 11},
      {"arrow upwards", [](TC& C) { C.Y->ArrowPoint().SetVisible(true); }, {22, 21, 569, 370}, 22, 11},
  };
  for (const auto& Case : Cases) {
    TFiveAxes Chart;
    Case.Set(Chart);
    Chart.Paint();
    SCOPED_TRACE(Case.Name);
    const RectF& Area = Chart.Graph->DrawingArea();
    EXPECT_EQ(Area, Case.Area);
    EXPECT_EQ(LineOf(*Chart.Y), Case.YLine);
    EXPECT_EQ(LineOf(*Chart.Left2), Case.Left2Line);
    for (TZyAxis* Axis : Chart.Graph->Axes()) {
      EXPECT_EQ(Axis->AxLength(), (Axis->GetHorizontal() ? Area.Width : Area.Height) - 1);
      EXPECT_EQ(Axis->GetHorizontal() ? Axis->AxLeft() : Axis->AxTop(), Axis->GetHorizontal() ? Area.X : Area.Y);
      EXPECT_FALSE(Axis->NeedsRecalculate());
      const float Line = Axis->GetHorizontal() ? Axis->AxTop() : Axis->AxLeft(), Half = Axis->AxisThicknes() / 2 + 0.5f;
      EXPECT_GE(Line + 1, Half) << "no line outside its control";
      EXPECT_LE(Line + Half, static_cast<float>(Axis->GetHorizontal() ? Axis->Height() : Axis->Width()));
    }
  }
}

TEST(ZyAxisLayoutTest, AnAxisThatIsNotSizedHasRoomForItsOwnExtent) {
  TSampleChart Chart;
  Chart.X->SetAutoSize(false);
  Chart.X->SetBounds(0, 380, 150, 20);
  Chart.Graph->Calculate();
  EXPECT_EQ(LabelsOf(*Chart.X), "0|5|10") << "2 * 38.4 + 70 pixels have room in these, and with step 5 no more";
}

TEST(ZyAxisLayoutTest, ArrowsStandWhereTheValuesGrow) {
  for (const bool Twisted : {false, true}) {
    TFiveAxes Chart;
    Chart.HideUpright();
    Chart.X->SetForeColor(Colors::Red);
    Chart.X->ArrowPoint().SetVisible(true);  // 21 pixels of line and tip beyond the end
    Chart.X->SetTwisted(Twisted);
    const Bitmap Picture = Chart.Paint();
    const int Row = static_cast<int>(LineOf(*Chart.X));
    for (const int Column : {5, 594}) {
      EXPECT_NE(Picture.GetPixel(Column, Row), 0u);
      EXPECT_EQ(Picture.GetPixel(Column, Row - 1) != 0, (Column == 5) == Twisted) << "the tip is wider than the line";
    }
  }
}

SizeF NumberExtent(std::string_view Text) { return CaptionExtent(Font("Arial", 12, {TFontStyle::Bold}), Text); }

TEST(ZyAxisLayoutTest, LongLabelsPushTheMarginsAcross) {
  for (const bool Twisted : {false, true}) {
    TFiveAxes Chart;
    Chart.HideUpright();
    Chart.X->SetNumbersVisible(true);
    Chart.X->SetTwisted(Twisted);
    Chart.X->SetOnGetScaleLabel(
        [](TObject*, TZyScaleLabelEventArgs& Args) { Args.Caption = Args.Value == 10 ? "ten ten ten" : "-"; });
    Chart.Graph->Calculate();
    // No axis stands at the sides, so that half of the outer label is the margin; 2 pixels more at the right.
    const float Long = NumberExtent("ten ten ten").Width / 2, Short = NumberExtent("-").Width / 2;
    const float Left = std::ceil(Twisted ? Long : Short), Right = std::ceil((Twisted ? Short : Long) + 2);
    EXPECT_EQ(Chart.Graph->DrawingArea().X, Left);
    EXPECT_EQ(Chart.Graph->DrawingArea().Width, 600 - Left - Right + 1);
  }
  // A turned label takes the other extent across, and both in parts along.
  TFiveAxes Chart;
  Chart.X->SetNumbersVisible(true);
  Chart.X->SetRubricsAngle(90);
  Chart.Graph->Calculate();
  const float Across = std::ceil(1 + 10 + NumberExtent("10").Width);
  EXPECT_NEAR(Chart.Graph->DrawingArea().Height, 400 - 11 - (Across - 1) + 1, 1);
}

TEST(ZyAxisLayoutTest, LeavesRoomForNumbersCaptionsAndOverhangs) {
  for (const bool Lying : {false, true}) {  // the caption on Y
    TSampleChart Chart;
    Chart.X->SetCaption("abscissa");
    Chart.Y->SetCaption("ordinate  ");
    Chart.Y->SetCaptionHorizontalOnVerticalAxis(Lying);
    Chart.Graph->Calculate();
    const SizeF Label = NumberExtent("10");
    const SizeF Caption = CaptionExtent(Font("Times New Roman", 14, {TFontStyle::Bold}), "ordinate");
    const float Left = std::ceil(1 + 10 + Label.Width + (Lying ? Caption.Width : Caption.Height));
    const float Bottom = std::ceil(1 + 10 + Label.Height + Caption.Height) - 1;
    const float Right = std::ceil(Label.Width / 2 + 2), Top = std::ceil(Label.Height / 2);
    EXPECT_EQ(Chart.Graph->DrawingArea(), (RectF{Left, Top, 601 - Left - Right, 401 - Top - Bottom}));
  }
}

TEST(ZyAxisLayoutTest, AxesCrossAtZero) {
  TSampleChart Chart;
  Lay(Chart, *Chart.Y, -5, 5);
  const auto Ticks = Chart.Y->Ticks().size();
  Chart.X->SetVisible(false);
  Chart.Graph->SetZeroOrigin(true);
  Chart.Graph->SetDistanceBorderAxisLeft(50);
  Chart.Graph->SetDistanceBorderAxisRight(50);
  Lay(Chart, *Chart.X, -5, 5);
  EXPECT_TRUE(Chart.X->Visible());
  const RectF& Area = Chart.Graph->DrawingArea();
  // The first label on X is -5 with half its width beyond the end, and no axis at the sides: border and overhang.
  EXPECT_EQ(Area.X, 50 + std::ceil(NumberExtent("-5").Width / 2));
  EXPECT_EQ(Area.X + Area.Width - 1, 600 - 50 - std::ceil(NumberExtent("5").Width / 2 + 2));
  EXPECT_NEAR(LineOf(*Chart.Y), Area.X + (Area.Width - 1) / 2, 0.5);
  EXPECT_NEAR(static_cast<float>(Chart.X->Top()), Area.Y + (Area.Height - 1) / 2, 0.5);
  for (const TZyAxis* Axis : {Chart.X, Chart.Y}) {
    for (const std::string& Text : Axis->LabelTexts()) EXPECT_NE(Text, "0");
    for (const float Tick : PlacesOf(*Axis)) EXPECT_GT(std::fabs(Tick - Axis->NumberToWorld(0)), 0.1f);
  }
  EXPECT_EQ(Chart.Y->Ticks().size(), Ticks - 1);
  // Axes that do not reach zero, or begin there, keep their sides.
  for (const double Start : {0.0, 1.0}) {
    Lay(Chart, *Chart.Y, Start, 5);
    Lay(Chart, *Chart.X, Start, 5);
    EXPECT_EQ(LabelsOf(*Chart.X), std::string("0.5|1.0|1.5|2.0|2.5|3.0|3.5|4.0|4.5|5.0").substr(Start == 0 ? 0 : 8));
    EXPECT_EQ(LineOf(*Chart.Y), Area.X);
    EXPECT_EQ(LineOf(*Chart.X), Area.Y + Area.Height - 1);
  }
}

TEST(ZyAxisLayoutTest, LegendsReserveTheirSides) {
  using enum TZyLegendPosition;
  // The plain chart of five axes with 40 x 60 legends; the sides have 22, 11, 10 and 10 pixels without.
  const struct {
    TZyLegendPosition Position;
    RectF Area;
    int Left, Top;
  } Cases[] = {
      {BottomCenterOfGraph, {22, 11, 569, 320}, 280, 340},
      {BottomCenterOfAxis, {22, 11, 569, 320}, 22 + 529 / 2, 340},
      {TopCenterOfGraph, {22, 71, 569, 320}, 280, 0},
      {TopCenterOfAxis, {22, 71, 569, 320}, 22 + 529 / 2, 0},
      {LeftCenterOfGraph, {62, 11, 529, 380}, 0, 170},
      {LeftCenterOfAxis, {62, 11, 529, 380}, 0, 171},
      {LeftTopOfAxis, {62, 11, 529, 380}, 0, 11},
      {RightCenterOfGraph, {22, 11, 529, 380}, 560, 170},
      {RightCenterOfAxis, {22, 11, 529, 380}, 560, 171},
      {RightTopOfAxis, {22, 11, 529, 380}, 560, 11},
      {FreeFloating, {22, 11, 569, 380}, 7, 9},
  };
  for (const auto& Case : Cases) {
    TFiveAxes Chart;
    TStubLegend Legend(Chart, Case.Position, 40, 60);
    TStubLegend Smaller(Chart, Case.Position, 30, 50);  // shares the side and takes no more room
    TStubLegend Hidden(Chart, Case.Position, 300, 300);
    Hidden.SetVisible(false);
    Chart.Graph->Calculate();
    SCOPED_TRACE(static_cast<int>(Case.Position));
    EXPECT_EQ(Chart.Graph->DrawingArea(), Case.Area);
    EXPECT_EQ((TPoint{Legend.Left(), Legend.Top()}), (TPoint{Case.Left, Case.Top}));
    EXPECT_EQ(Hidden.Left(), 7);
  }
}

TEST(ZyAxisLayoutTest, TheCaptionKeepsClearOfThePowerOfTen) {
  TSampleChart Chart;
  Chart.Y->SetStop(250000);
  Chart.Y->SetCaption("Caption as long as the axis");
  Chart.Y->SetCaptionColor(Colors::Red);
  const Bitmap Picture = Chart.Paint();
  const TZyRichCaptionObject& Power = Chart.Y->ExtraExponent();
  ASSERT_EQ(Power.Caption(), "·10\\+5");
  int LastRed = -1;
  for (int Y = 0; Y < Picture.GetHeight(); ++Y)
    for (int X = 0; X < 100; ++X)
      if (Picture.GetPixel(X, Y) == Colors::Red) LastRed = std::max(LastRed, X);
  EXPECT_GT(LastRed, 0);
  EXPECT_LT(static_cast<float>(LastRed), static_cast<float>(Chart.Y->Left()) + Power.X - Power.Width());
}

TEST(ZyAxisLayoutTest, CoupledGraphsShareTheWidthThatBothHave) {
  TSampleChart Chart;
  Chart.UsePlainAxes();
  TZyGraph2D* const Lower = &Chart.AddCoupled();
  Lower->SetBounds(0, 400, 600, 300);
  TZyAxis *const Y = AddAxis(*Lower, Left), *const Far = AddAxis(*Lower, Right);
  for (TZyAxis* Axis : {Y, Far}) Axis->SetNumbersVisible(false);
  Y->SetMajorTickLength(90);  // 91 pixels across
  Lower->SetPrimaryYAxis(Y);
  for (int Round = 0; Round < 3; ++Round) {  // a layout that is due again finds the same
    Chart.Graph->Modified();
    Lower->Modified();
    Chart.Graph->Calculate();
    Lower->Calculate();
    Y->Calculate();
    Chart.Graph->Calculate();
    // The upper graph alone has 50 to 550, the lower one 91 to 590.
    for (const TZyGraph2D* Graph : {static_cast<TZyGraph2D*>(Chart.Graph), Lower}) {
      EXPECT_EQ(Graph->DrawingArea().X, 91);
      EXPECT_EQ(Graph->DrawingArea().Width, 550 - 91 + 1);
      EXPECT_EQ(Graph->HorizontalScrollBar()->Left(), 91) << "below the axis";
    }
    EXPECT_EQ(Chart.X->AxLeft(), 91);
    EXPECT_EQ(Chart.X->AxLength(), 550 - 91);
    EXPECT_EQ(LineOf(*Y), 91);
    EXPECT_EQ(LineOf(*Chart.Y), 91);
    EXPECT_EQ(LineOf(*Far), 550);
  }
}

TEST(ZyAxisLayoutTest, TinyChartsKeepUsableAxes) {
  for (const int Size : {0, 1, 11, 39, 60})
    for (const bool Zero : {false, true}) {
      TSampleChart Chart(Size, Size);
      Chart.X->SetCaption("abscissa");
      Chart.X->SetStart(-3);
      Chart.Graph->SetZeroOrigin(Zero);
      TStubLegend Legend(Chart, TZyLegendPosition::RightTopOfAxis, 40, 60);
      TZyGraph2D& Upper = Chart.AddCoupled();
      Upper.SetBounds(0, 0, Size, Size);
      TSampleChart::Paint(Upper);
      Chart.Paint();
      for (const TZyGraph2D* Graph : {static_cast<TZyGraph2D*>(Chart.Graph), &Upper}) {
        const RectF& Area = Graph->DrawingArea();
        const TZyAxis& Left = *Graph->PrimaryYAxis();
        EXPECT_EQ(Area, (RectF{Chart.X->AxLeft(), Left.AxTop(), Chart.X->AxLength() + 1, Left.AxLength() + 1}));
        EXPECT_TRUE(Zero || static_cast<float>(Left.Left()) + Left.AxLeft() == Area.X);
      }
      EXPECT_TRUE(Zero ||
                  static_cast<float>(Chart.X->Top()) + Chart.X->AxTop() == Chart.Y->AxTop() + Chart.Y->AxLength());
      for (const TZyAxis* Axis : {Chart.X, Chart.Y, Upper.PrimaryYAxis()}) {
        EXPECT_GE(Axis->AxLength(), 40);
        EXPECT_GE(Axis->Ticks().size(), 2u);
        for (const float Tick : PlacesOf(*Axis)) EXPECT_TRUE(std::isfinite(Tick));
      }
      EXPECT_TRUE(std::isfinite(Chart.Graph->DrawingArea().Width));
    }
}

TEST(ZyAxisLayoutTest, TellsMarkersAndLeavesTheFlagClear) {
  TSampleChart Chart;
  TStubMarker Marker(&Chart.Form);
  Marker.SetParent(Chart.Graph);
  Chart.Graph->BeginUpdate();
  Chart.X->Calculate();
  EXPECT_FALSE(TZyAxis::LayoutRunning);
  EXPECT_EQ(Marker.After, 0);
  Chart.Graph->EndUpdate();
  Chart.X->SetOnCalculated([&](TObject*) {
    delete std::exchange(Chart.Y, nullptr);  // a listener may free what stands behind it
    Chart.X->SetOnCalculated({});
  });
  Chart.X->Calculate();
  EXPECT_EQ(Marker.After, 1);
  EXPECT_EQ(Marker.Inside, 0);
  EXPECT_EQ(Chart.Y, nullptr);
  Chart.X->SetOnCalculated([](TObject*) { throw EInvalidOperation("no"); });
  EXPECT_THROW(Chart.X->Calculate(), EInvalidOperation);
  EXPECT_EQ(Marker.After, 2) << "nobody would tell it later";
}

TEST(ZyAxisLayoutTest, OtherAxesThanThePrimaryOnesAreRoundedForTheirNewLength) {
  TSampleChart Chart(600, 700);
  auto* const Axis = new TZyAxis(&Chart.Form);
  Axis->SetPosition(Right);
  Axis->SetParent(Chart.Graph);
  TZySeries* const Series = Chart.AddSeries("A", {0, 1}, {0, 7600});
  Series->SetYAxis(Axis);
  Chart.Paint();
  const auto State = [&] { return std::tuple(Axis->Stop(), Axis->LabelPart(), Axis->Ticks().size()); };
  const auto High = State();
  Chart.Graph->SetBounds(0, 0, 600, 160);
  Chart.Paint();
  const auto Low = State();
  EXPECT_NE(Low, High) << "nine labels do not fit any more";
  Axis->Modified();
  Chart.Paint();
  EXPECT_EQ(State(), Low);
}

TEST(ZyAxisLayoutTest, PanningMovesTicksOnly) {
  TSampleChart Chart;
  Chart.Graph->Calculate();
  const RectF Area = Chart.Graph->DrawingArea();
  Chart.Graph->SetPanning(true);
  Chart.X->SetStartStop(10000.3, 10010.3);  // wider texts, and ends off the ticks
  Chart.X->Calculate();
  Chart.Graph->SetPanning(false);
  EXPECT_EQ(Chart.Graph->DrawingArea(), Area);
  EXPECT_EQ(Chart.X->Start(), 10000.3);
  EXPECT_FLOAT_EQ(Chart.X->NumberToWorld(10000.3), Area.X);
  EXPECT_FLOAT_EQ(Chart.X->NumberToWorld(10010.3), Area.X + Area.Width - 1);
}

TEST(ZyAxisLayoutTest, DesignedAxesTakeTheSideWhereTheyAreDropped) {
  const std::tuple<int, int, TZyAxisPosition> Cases[] = {{300, 390, Bottom}, {10, 200, Left},  {590, 200, Right},
                                                         {300, 10, Top},     {150, 101, Left}, {150, 99, Top}};
  for (const auto& [X, Y, Position] : Cases) {
    TSampleChart Chart;
    Chart.Form.SetDesigning(true);
    TZyAxis Axis(&Chart.Form);
    Axis.SetDesigning(true);
    Axis.SetBounds(X, Y, 400, 20);
    Axis.SetParent(Chart.Graph);
    EXPECT_EQ(Axis.Position(), Position) << X << ' ' << Y;
    EXPECT_EQ(Axis.GetHorizontal() ? Axis.Width() : Axis.Height(), Axis.GetHorizontal() ? 600 : 400);
  }
}

}  // namespace
}  // namespace zy::testing
