#include "series/ZyBars.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "graph/SampleChart.h"
#include "persistence/RandomChart.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

using TRects = std::vector<RectF>;

/// Left, top, right and bottom of the bars, in the numbers of their corners.
TRects RectsOf(TZyBars& Bars) {
  TRects Result;
  for (std::size_t i = 0; i < Bars.Points().size(); ++i)
    Result.push_back({Bars.Points()[i].X, Bars.Points()[i].Y, Bars.BottomRight()[i].X, Bars.BottomRight()[i].Y});
  return Result;
}

void ExpectRects(TZyBars& Bars, const TRects& Expected) {
  const TRects Rects = RectsOf(Bars);
  ASSERT_EQ(Rects.size(), Expected.size());
  for (std::size_t i = 0; i < Rects.size(); ++i) {
    EXPECT_NEAR(Rects[i].X, Expected[i].X, 0.01) << i;
    EXPECT_NEAR(Rects[i].Y, Expected[i].Y, 0.01) << i;
    EXPECT_NEAR(Rects[i].Width, Expected[i].Width, 0.01) << i;
    EXPECT_NEAR(Rects[i].Height, Expected[i].Height, 0.01) << i;
  }
}

/// Bars on axes from 0 to 10: 50 pixels for 1 along X from 50, 25 along Y upwards from 300.
class ZyBarsTest : public ::testing::Test {
 protected:
  ZyBarsTest() { Chart.UseTenAxes(); }
  TZyBars* Add(const std::vector<double>& Edges, const std::vector<double>& Values) {
    return Chart.AddSeries<TZyBars>("B" + std::to_string(++FMade), Edges, Values);
  }
  TSampleChart Chart;

 private:
  int FMade = 0;
};

TEST_F(ZyBarsTest, CountsClassesAndTakesZeroIntoItsRange) {
  TZyBars* const Bars = Add({}, {5, 4, 3, 2, 6});
  Bars->SetXData(nullptr);
  Bars->Calculate();
  EXPECT_EQ(Bars->Count(), 5);
  EXPECT_EQ(Bars->XStart(), 0);
  EXPECT_EQ(Bars->XStop(), 5);
  EXPECT_EQ(Bars->YStart(), 0);
  EXPECT_EQ(Bars->YStop(), 6);
  for (const auto& [Edges, Count] : {std::pair{std::vector<double>{1, 2, 3, 4, 5, 6}, 5}, {{1, 2, 3, 4, 5}, 4}}) {
    TZyDoubleVector* const Data = Chart.AddVector("E" + std::to_string(Count), Edges);
    Bars->SetXData(Data);
    EXPECT_EQ(Bars->GetCount(), Count);
  }
  auto& Values = dynamic_cast<TZyDoubleVector&>(*Bars->YData());
  Values.AddOutlier(4);
  Values.AddOutlier(3);
  Bars->SetXData(nullptr);
  EXPECT_EQ(Bars->GetCount(), 3) << "outliers at the end make no bars";
  Bars->SetOutliersVisible(true);
  EXPECT_EQ(Bars->GetCount(), 5);
}

TEST_F(ZyBarsTest, ShiftedBarsShareAClass) {
  TZyBars* const First = Add({0, 2, 4}, {4, -2});
  TZyBars* const Second = Add({0, 2, 4}, {6, 1});
  TZyBars* const Third = Add({0, 2, 4}, {8, 8});
  Chart.FixEnds(Chart.Y, -2, 8);
  First->SetClassesDistance(20);
  Chart.Paint();
  // Classes of 100 pixels with 10 left free at both sides; 0 lies at 250.
  const float w = 80.0f / 3;
  ExpectRects(*First, {{60, 150, 60 + w, 250}, {160, 300, 160 + w, 250}});
  ExpectRects(*Second, {{60 + w, 100, 60 + 2 * w, 250}, {160 + w, 225, 160 + 2 * w, 250}});
  Second->SetVisible(false);
  Chart.Paint();
  ExpectRects(*Third, {{100, 50, 140, 250}, {200, 50, 240, 250}});
  Chart.X->SetTwisted(true);
  Chart.Paint();
  ExpectRects(*First, {{460, 150, 500, 250}, {360, 300, 400, 250}});
}

TEST_F(ZyBarsTest, StackedBarsStandOnThoseBelow) {
  TZyBars* const First = Add({0, 2, 4}, {4, 2});
  TZyBars* const Second = Add({0, 2, 4}, {3, 1});
  First->SetOverlayStyle(TZyBarsOverlayStyle::Stack);
  EXPECT_EQ(Second->OverlayStyle(), TZyBarsOverlayStyle::Stack);
  Chart.Paint();
  EXPECT_EQ(Second->YStop(), 7);
  EXPECT_EQ(Second->Get_Y(1), 3);
  ExpectRects(*Second, {{50, 125, 150, 200}, {150, 225, 250, 250}});
  dynamic_cast<TZyDoubleVector&>(*First->YData()).SetValue(0, 5);
  Chart.Paint();
  EXPECT_EQ(Second->YStop(), 8) << "a change below reaches the bars above";
  ExpectRects(*Second, {{50, 100, 150, 175}, {150, 225, 250, 250}});
  First->SetVisible(false);
  dynamic_cast<TZyDoubleVector&>(*First->YData()).AddOutlier(0);
  Chart.Paint();
  ExpectRects(*Second, {{50, 225, 150, 300}, {150, 225, 250, 250}});
  First->SetVisible(true);
  Second->SetLayer(-1);
  Chart.Paint();
  Chart.Paint();
  ExpectRects(*Second, {{50, 225, 150, 300}, {150, 275, 250, 300}});
  delete Second;
  Chart.Paint();
  EXPECT_EQ(First->YStop(), 2);
}

TEST_F(ZyBarsTest, LyingBarsExchangeTheVectors) {
  TZyBars* const First = Add({0, 4, 8}, {4, 2});
  TZyBars* const Second = Add({0, 4, 8}, {3, 1});
  TZyCustomDoubleVector* const Edges = First->XData();
  First->SetOverlayStyle(TZyBarsOverlayStyle::Stack);
  First->SetBarsHorizontal(true);
  EXPECT_EQ(First->YData(), Edges);
  EXPECT_TRUE(Second->BarsHorizontal());
  Chart.Paint();
  // Classes of 100 pixels, upwards from 300; 0 lies at 50, and bars begin beside it.
  ExpectRects(*First, {{51, 200, 250, 300}, {51, 100, 150, 200}});
  ExpectRects(*Second, {{250, 200, 400, 300}, {150, 100, 200, 200}});
  EXPECT_EQ(Second->Get_X(0), 7);
  for (const auto& [X, Y, Found] :
       {std::tuple(260, 250, 0), {260, 188, 0}, {260, 187, -1}, {160, 101, 1}, {249, 250, -1}})
    EXPECT_EQ(Second->FindPoint(X, Y), Found) << X << ", " << Y;
  First->SetBarsHorizontal(false);
  EXPECT_EQ(First->XData(), Edges);
}

TEST_F(ZyBarsTest, ClassesBesideNoBoundaryAreNotDrawn) {
  TZyBars* const Bars = Add({1, 2, 4, 6}, {1, 2, 3});
  dynamic_cast<TZyDoubleVector&>(*Bars->XData()).AddOutlier(2);
  Chart.Paint();
  // The boundary counts as 0: the class in front of it runs backwards, the one behind goes from 0 to 6.
  const TRects Rects = RectsOf(*Bars);
  ASSERT_EQ(Rects.size(), 3u);
  EXPECT_EQ(Rects[0], (RectF{100, 275, 150, 300}));
  EXPECT_EQ(Rects[1].X, Rects[1].Width);
  EXPECT_EQ(Rects[2], (RectF{50, 300, 350, 300})) << "a point beside it has no value";
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "FillRectangle(FF000080"), 1);
}

TEST_F(ZyBarsTest, BoundariesStayWhereValuesAreMissing) {
  TZyBars* const Bars = Add({1, 2, 4, 6}, {1, NAN, 3});
  Chart.Paint();
  ExpectRects(*Bars, {{100, 275, 150, 300}, {150, 300, 250, 300}, {250, 225, 350, 300}});
  dynamic_cast<TZyDoubleVector&>(*Bars->YData()).AddOutlier(2);
  Chart.Paint();
  ExpectRects(*Bars, {{100, 275, 150, 300}, {150, 300, 250, 300}});
  EXPECT_EQ(Bars->XStop(), 4);
}

TEST_F(ZyBarsTest, EachHasItsDirectionAndItsLabelsWhateverItsPen) {
  TZyBars* const Lying = Add({0, 4, 8}, {5, 4});
  Lying->SetBarsHorizontal(true);
  TZyBars* const Upright = Add({0, 1, 2}, {8, 6});
  Upright->Line().SetWidth(60);
  Upright->Line().SetColor(Colors::Lime);
  Upright->SetLabelPosition(TZyBarLabelPosition::Centered);
  const auto Calls = Chart.Calls();
  EXPECT_EQ(Chart.CountOf(Calls, "FillRectangle(FF00FF00, 45 100 60 200)"), 1) << "a line, as wide as its pen";
  EXPECT_EQ(Chart.CountOf(Calls, "DrawString(\"8\""), 1);
  Upright->SetOnGetPen([](TObject*, TZyPenEventArgs& Args) { Args.Pen = nullptr; });
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "FillRectangle(FF00FF00"), 0);
}

TEST_F(ZyBarsTest, SolidsHaveTheDepthOfTheLastClass) {
  TZyBars* const Bars = Add({0, 2, 6}, {4, 6});
  Bars->SetClassesDistance(50);
  TZyBars* const Other = Add({0, 2, 6}, {1, 1});
  Other->SetBarStyle(TZyBarStyle::Cuboid);
  Other->SetDepth3D(60);
  Chart.Paint();
  EXPECT_EQ(Bars->BarStyle(), TZyBarStyle::Cuboid);
  // Half of 200 pixels, in 60 percent: 100 * 60 / 240 and / 400.
  EXPECT_FLOAT_EQ(Bars->DepthX(), 25);
  EXPECT_FLOAT_EQ(Bars->DepthY(), 15);
  EXPECT_EQ(Bars->FindPoint(100 + 25, 200 - 15), 0);
  EXPECT_EQ(Bars->FindPoint(100 + 26, 200), -1);
  // A class is half the axis. (P - 0.01 D) E k / U, without what is free, and to the right without half a gap.
  const float Free = (10 - 6) * 50.0f, HalfGap = 5 * 50 * 50 * 0.005f;
  EXPECT_NEAR(Bars->ExtraSpaceAt(TZyAxisPosition::Right), 4.5f * 60 * 0.0043f * 50 - HalfGap - Free, 0.01);
  EXPECT_NEAR(Bars->ExtraSpaceAt(TZyAxisPosition::Top), 4.5f * 60 * 0.0026f * 50 - 100, 0.01);
  EXPECT_EQ(Bars->ExtraSpaceAt(TZyAxisPosition::Left), 0);
}

TEST_F(ZyBarsTest, LabelsStandAtTheirPlaces) {
  TZyBars* const Bars = Add({0, 2, 4}, {8, 0.1});
  Bars->SetLabelSize(12);
  const auto PlaceOf = [&](TZyBarLabelPosition Position) {
    Bars->SetLabelPosition(Position);
    Chart.Paint();
    return Bars->Labels().GetValue(0);
  };
  using enum TZyBarLabelPosition;
  for (const bool Vertical : {false, true}) {
    Bars->SetLabelVertical(Vertical);
    const TZyRichCaptionObject* Label = PlaceOf(Centered);
    EXPECT_EQ(Label->PlainText(), "8");
    EXPECT_FLOAT_EQ(Label->CaptionFont().Size(), 12) << "percents of a class of 100 pixels";
    const float h = Vertical ? Label->Width() : Label->Height();
    EXPECT_FLOAT_EQ(Label->X, 100);
    EXPECT_FLOAT_EQ(Label->Y, 200);
    EXPECT_FLOAT_EQ(PlaceOf(OnBottom)->Y, 300 - 0.75f * h);
    EXPECT_FLOAT_EQ(PlaceOf(InTop)->Y, 100 + 0.75f * h);
    EXPECT_FLOAT_EQ(PlaceOf(ThreeFourth)->Y, 150);
    EXPECT_NEAR(PlaceOf(GoldenCut)->Y, 100 + 200 * 0.381966, 0.01);
    const TZyRichCaptionObject& Small = *Bars->Labels()[1];
    EXPECT_FLOAT_EQ(Small.Y, 297.5f - (Vertical ? Small.Width() : Small.Height()) / 2)
        << "what does not fit moves on top";
    EXPECT_FLOAT_EQ(PlaceOf(OnTopOfBar)->Y, 100 - h / 2);
  }
  Bars->SetLabelVertical(false);
  TZyBars* const Above = Add({0, 2, 4}, {1, 1});
  Bars->SetOverlayStyle(TZyBarsOverlayStyle::Stack);
  Chart.Paint();
  EXPECT_EQ(Bars->LabelPosition(), InTop) << "there is no room on top of it";
  EXPECT_FLOAT_EQ(Bars->Labels().GetValue(1)->Y, 298.75f);
  delete Above;
  Bars->SetBarsHorizontal(true);
  const TZyRichCaptionObject* Label = PlaceOf(OnBottom);
  const float w = Label->Width(), h = Label->Height();
  EXPECT_FLOAT_EQ(Label->X, 51 + w / 2 + h / 2);
  EXPECT_FLOAT_EQ(Label->Y, 275);
  EXPECT_FLOAT_EQ(PlaceOf(InTop)->X, 450 - w / 2 - h / 2);
  EXPECT_NEAR(PlaceOf(GoldenCut)->X, 51 + 399 * 0.6180339, 0.01);
  EXPECT_FLOAT_EQ(PlaceOf(OnTopOfBar)->X, 450 + w / 2 + h / 4);
}

TEST_F(ZyBarsTest, LabelsShowValuesCaptionsAndPercents) {
  TZyBars* const Bars = Add({0, 2, 4, 6}, {2, 6, 1});
  Bars->SetLabelPosition(TZyBarLabelPosition::Centered);
  Bars->Captions()->Add("low");
  dynamic_cast<TZyDoubleVector&>(*Bars->YData()).AddOutlier(2);
  Bars->SetOutliersVisible(true);
  struct TCase {
    TZyLabelStyle From;
    const char *Format, *First, *Second;
  };
  using enum TZyLabelStyle;
  for (const auto& [From, Format, First, Second] : {TCase{Value, "0.0", "2.0", "6.0"},
                                                    {CaptionsList, "0.0", "low", ""},
                                                    {CaptionAndValue, "", "low 2", "6"},
                                                    {Percent, "", "22.22%", "66.67%"},
                                                    {CaptionAndPercent, "0", "low 22%", "67%"},
                                                    {Percent, "0.0 % 'of all'", "22.2 % of all", "66.7 % of all"}}) {
    Bars->SetLabelFrom(From);
    Bars->SetLabelFormat(Format);
    Chart.Paint();
    EXPECT_EQ(Bars->Labels()[0]->PlainText(), First);
    EXPECT_EQ(Bars->Labels()[1] == nullptr ? "" : Bars->Labels()[1]->PlainText(), Second);
  }
  Bars->SetOutliersVisible(false);
  Bars->SetLabelFormat("");
  Bars->SetOnGetLabel([](TObject*, TZyGetLabelEventArgs& Args) { Args.Caption += " #" + std::to_string(Args.Index); });
  Chart.Paint();
  ASSERT_EQ(Bars->Labels().Count(), 2);
  EXPECT_EQ(Bars->Labels()[1]->PlainText(), "75% #1") << "of those that are to be seen";
}

TEST_F(ZyBarsTest, CaptionsComeFromAListOfTheApplicationOrADataSet) {
  TZyBars* const Bars = Add({0, 2, 4}, {2, 6});
  TZyUndoStack Stack;
  Bars->SetUndoStack(&Stack);
  Bars->SetLabelPosition(TZyBarLabelPosition::Centered);
  Bars->SetLabelFrom(TZyLabelStyle::CaptionsList);
  const auto First = [&] {
    Chart.Paint();
    const auto& Labels = Bars->Labels();
    return Labels.Count() == 0 || Labels[0] == nullptr ? std::string() : Labels[0]->PlainText();
  };
  int Told = 0;
  {
    TStringList List;
    List.Add("one");
    List.OnChange = [&Told](TObject*) { ++Told; };
    Bars->SetCaptions(&List);
    EXPECT_EQ(First(), "one");
    List.Put(0, "two");
    EXPECT_EQ(First(), "two");
    EXPECT_EQ(Told, 1);
    Stack.Undo();
    EXPECT_EQ(List.Get(0), "one");
  }
  EXPECT_EQ(First(), "");
  TSampleData Data;
  Bars->SetDataSource(Data.Source);
  Bars->SetCaptionsField("r");
  EXPECT_EQ(First(), "one");
  EXPECT_EQ(Bars->Captions(), nullptr);
  TStringList Other;
  EXPECT_THROW(Bars->SetCaptions(&Other), EExternal);
}

TEST_F(ZyBarsTest, TheFirstVisibleOnesPaintAllClassByClass) {
  TZyBars* const Empty = Add({0, 2, 4}, {});
  TZyBars* const First = Add({0, 2, 4}, {2, 6});
  TZyBars* const Second = Add({0, 2, 4}, {3, 5});
  First->Area().SetForeColor(Colors::Red);
  std::vector<std::string> Asked;
  for (TZyBars* Bars : {First, Second})
    Bars->SetOnGetBrush([&Asked, Bars](TObject*, TZyBrushEventArgs& Args) {
      EXPECT_TRUE(Args.Visible) << "filled anew for each bar";
      Args.Visible = Args.Index > 0;
      Asked.push_back(Bars->Name() + "." + std::to_string(Args.Index) + "=" + std::to_string(static_cast<int>(Args.Y)));
    });
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "FillRectangle(FFFF0000"), 1);
  EXPECT_EQ(Asked, (std::vector<std::string>{"B2.0=2", "B3.0=3", "B2.1=6", "B3.1=5"}));
  Asked.clear();
  First->SetVisible(false);
  Chart.Paint();
  EXPECT_EQ(Asked, (std::vector<std::string>{"B3.0=3", "B3.1=5"}));
  First->SetVisible(true);
  delete Empty;
  First->SetOnGetBrush([Second](TObject*, TZyBrushEventArgs&) { delete Second; });
  Chart.Paint();
  EXPECT_EQ(Chart.Graph->SeriesCount(), 1);
  First->SetOnGetBrush([First](TObject*, TZyBrushEventArgs&) { delete First; });
  Chart.Paint();
  EXPECT_EQ(Chart.Graph->SeriesCount(), 0);
  for (const auto Position : {TZyBarLabelPosition::OnTopOfBar, TZyBarLabelPosition::Centered}) {  // in a layout first
    TZyBars* const Below = Add({0, 2, 4}, {2, 6});
    TZyBars* const Above = Add({0, 2, 4}, {3, 5});
    Below->SetOverlayStyle(TZyBarsOverlayStyle::Stack);
    Above->SetLabelPosition(Position);
    Below->SetLabelPosition(TZyBarLabelPosition::Centered);
    Below->SetOnGetLabel([Below, Above](TObject*, TZyGetLabelEventArgs&) { delete Above, delete Below; });
    Chart.Paint();
    EXPECT_EQ(Chart.Graph->SeriesCount(), 0);
    Chart.Paint();
  }
}

/// Dense bars are drawn column by column. An event that changes nothing makes each of them be drawn.
TEST_F(ZyBarsTest, DenseBarsLookLikeAllOfThem) {
  std::mt19937 Random(1);
  for (const bool Lying : {false, true}) {
    TSampleChart Dense;
    Dense.UsePlainAxes();
    Dense.Graph->SetSmoothingMode(TZySmoothingMode::None);
    TZyBars* Bars[3];
    for (TZyBars*& One : Bars) {
      One = Dense.AddSeries<TZyBars>("B" + std::to_string(&One - Bars));
      One->SetXData(nullptr);
      auto& Values = dynamic_cast<TZyDoubleVector&>(*One->YData());
      for (int i = 0; i < 9000; ++i)
        Values.Add(std::sin(i / 500.0) * 3 + static_cast<double>(Random() % 1000) / 400 - 1);
      One->Line().SetColor(&One == Bars ? Colors::Red : (&One == Bars + 1 ? Colors::Green : Colors::Blue));
    }
    Bars[0]->SetOverlayStyle(TZyBarsOverlayStyle::Stack);
    Bars[0]->SetBarsHorizontal(Lying);
    Dense.Paint();
    const Bitmap Fast = Dense.Paint();
    for (TZyBars* One : Bars) One->SetOnGetPen([](TObject*, TZyPenEventArgs&) {});
    const Bitmap Slow = Dense.Paint();
    int Differ = 0, Drawn = 0;
    for (int y = 0; y < Fast.GetHeight(); ++y)
      for (int x = 0; x < Fast.GetWidth(); ++x) {
        Differ += Fast.GetPixel(x, y) != Slow.GetPixel(x, y);
        Drawn += Slow.GetPixel(x, y) == Colors::Blue;
      }
    EXPECT_GT(Drawn, 5000);
    EXPECT_LT(Differ, 250) << Lying;  // of 125,000: rounding at the edges of columns
  }
}

TEST_F(ZyBarsTest, WhatALabelsHandlerTakesAwayIsNotFound) {
  TZyBars* const Bars = Add({0, 1, 2, 3, 4}, {1, 2, 3, 4});
  Bars->SetLabelPosition(TZyBarLabelPosition::Centered);
  Chart.Paint();  // with the layout, which asks for labels as well
  bool Takes = true;
  Bars->SetOnGetLabel([&](auto&&...) {
    if (std::exchange(Takes, false)) dynamic_cast<TZyDoubleVector&>(*Bars->YData()).Delete(0);
  });
  Chart.Paint();
  EXPECT_FALSE(Bars->NearestPoint({225, 200}).Found);
  Bars->SetOnGetLabel({});
  Chart.Paint();
  EXPECT_EQ(Bars->Points().size(), 3u);
}

TEST_F(ZyBarsTest, PaintsOnWhateverTheData) {
  constexpr double NaN = std::numeric_limits<double>::quiet_NaN(), Inf = HUGE_VAL;
  const std::vector<std::vector<double>> Lists = {
      {}, {0}, {1, 2, 3, 4}, {4, 3, 2, 1}, {2, 2, 2, 2}, {NaN, NaN}, {Inf, 1, NaN}, {1e308, -1e308, 3}, {-1, -5, 0}};
  std::vector<TZyBars*> All;
  for (const auto& Edges : Lists)
    for (const auto& Values : Lists) All.push_back(Add(Edges, Values));
  for (const TZyAxisScaling Scaling : {TZyAxisScaling::Normal, TZyAxisScaling::Log, TZyAxisScaling::DateTime}) {
    for (TZyAxis* Axis : {Chart.X, Chart.Y}) Axis->SetScaling(Scaling);
    for (int Style = 0; Style < 12; ++Style) {
      All[0]->SetBarStyle(static_cast<TZyBarStyle>(Style % 3));
      All[0]->SetOverlayStyle(static_cast<TZyBarsOverlayStyle>(Style / 3 % 2));
      All[0]->SetBarsHorizontal(Style >= 6);
      for (TZyBars* Bars : All) {
        Bars->SetLabelFrom(TZyLabelStyle::CaptionAndPercent);
        Bars->SetLabelFormat("\\c[%s;;'");
        Bars->SetLabelPosition(TZyBarLabelPosition::OnTopOfBar);
      }
      Chart.Paint();
      for (TZyBars* Bars : All)
        for (const RectF& R : RectsOf(*Bars)) EXPECT_TRUE(std::isfinite(R.X + R.Y + R.Width + R.Height));
    }
  }
}

}  // namespace
}  // namespace zy::testing
