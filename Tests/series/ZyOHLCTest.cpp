#include "series/ZyOHLC.h"

#include <gtest/gtest.h>

#include <QImage>

#include <cmath>
#include <limits>
#include <random>

#include "graph/SampleChart.h"
#include "persistence/RandomChart.h"
#include "series/ZyCandleSticks.h"

namespace zy::testing {
namespace {

/// Three records on axes from 0 to 10.
template <class TSeries>
class TRecords : public ::testing::Test {
 protected:
  TRecords() {
    Chart.UseTenAxes();
    Series->SetLowData(Low);
    Series->SetOpenData(Open);
    Series->SetHighData(High);
  }
  TZyDoubleVector& X() { return dynamic_cast<TZyDoubleVector&>(*Series->XData()); }
  TZyDoubleVector& Close() { return dynamic_cast<TZyDoubleVector&>(*Series->YData()); }
  TSampleChart Chart;
  TSeries* Series = Chart.AddSeries<TSeries>("Prices", {2, 6, 8}, {5, 3, 7});
  TZyDoubleVector* Low = Chart.AddVector("Low", {1, 2, 3});
  TZyDoubleVector* Open = Chart.AddVector("Open", {2, 4, 5});
  TZyDoubleVector* High = Chart.AddVector("High", {6, 9, 8, 10});
};
using ZyOHLCTest = TRecords<TZyOHLC>;
using ZyCandleSticksTest = TRecords<TZyCandleSticks>;

TEST_F(ZyOHLCTest, RangesGoFromLowToHighOverTheShortestVector) {
  Series->Calculate();
  EXPECT_EQ(Series->Count(), 3);
  EXPECT_EQ(Series->XStart(), 2);
  EXPECT_EQ(Series->XStop(), 8);
  EXPECT_EQ(Series->YStart(), 1);
  EXPECT_EQ(Series->YStop(), 9);
  Open->AddOutlier(1);
  Series->Calculate();
  EXPECT_EQ(Series->YStop(), 8);
  Series->SetXValueTransformation(
      [](TObject*, const TZyTransformEventArgs& e) { return e.Index == 2 ? NAN : -e.Value; });
  Series->SetLowValueTransformation([](TObject*, const TZyTransformEventArgs& e) { return e.Value - 5; });
  Series->Calculate();
  EXPECT_EQ(Series->XStart(), -2) << "what a transformation makes no number of is left out";
  EXPECT_EQ(Series->YStart(), -4);
  Series->SetLowValueTransformation(nullptr);
  Low->SetInternalArray({-3, 4, -1, 2});
  Chart.Y->SetScaling(TZyAxisScaling::Log);
  Series->Calculate();
  EXPECT_EQ(Series->YStart(), 2) << "lows below 0 are no place on a logarithmic axis";
  for (const int Record : {0, 2}) Open->AddOutlier(Record);
  Series->Calculate();
  EXPECT_GT(Series->YStart(), Series->YStop()) << "no record has values";
  Series->SetYData(nullptr);
  EXPECT_TRUE(Chart.Graph->RelatedSeries().empty()) << "the index is no close";
}

TEST_F(ZyOHLCTest, DrawsABarWithTwoTicksAndIsHitWithinThem) {
  for (const float Width : {0.0f, HUGE_VALF}) {
    Series->SetBarWidth(Width);
    EXPECT_EQ(Series->BarWidth(), 1);
  }
  Series->SetBarWidth(10);
  Series->SetIndicatorLength(-3);
  EXPECT_EQ(Series->IndicatorLength(), 1);
  Series->SetIndicatorLength(7);
  Series->Area().Gradient().SetVisible(true);
  const auto Calls = Chart.Calls();
  EXPECT_FALSE(Series->Area().Gradient().Visible());
  // The bar and a tick at both sides take 12 of the 500 pixels of the X axis. The first record: x 2 of 10 in 488 pixels
  // from 50; low 1, open 2, high 6, close 5 of 10 in 250 pixels, upwards from 300.
  for (const std::string_view Call :
       {"FillRectangle(FF00008B, 142.6 150 10 125)", "DrawRectangle(pen FF00008B 1, 142.6 150 10 125)",
        "142.6 250, 135.6 250", "152.6 175, 159.6 175"})
    EXPECT_EQ(Chart.CountOf(Calls, Call), 1) << Call;
  for (const auto& [X, Y, Found] : {std::tuple(136, 200, 0), {135, 200, -1}, {160, 275, 0}, {150, 276, -1}})
    EXPECT_EQ(Series->FindPoint(X, Y), Found) << X << ", " << Y;
  Chart.Y->SetTwisted(true);
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "DrawRectangle(pen FF00008B 1, 142.6 75 10 125)"), 1) << "upside down";
  EXPECT_EQ(Series->FindPoint(140, 190), 0);
  int Asked = 0;
  Series->SetOnGetPen([&](TObject*, TZyPenEventArgs& Args) {
    ++Asked;
    if (Args.Index == 1) Args.Visible = false;
  });
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "DrawRectangle(pen FF00008B"), 1) << "what a handler hides stays hidden";
  EXPECT_EQ(Asked, 3);
}

TEST_F(ZyCandleSticksTest, DrawsBodiesInTheirColoursWithWicks) {
  EXPECT_EQ(Series->BarWidth(), 6);
  Series->SetBarWidth(10);
  Open->SetValue(2, 7);
  Series->SetOpenValueTransformation(
      [](TObject*, const TZyTransformEventArgs& e) { return e.Index == 1 ? 2.5 : e.Value; });
  // Half a body takes 5 of the 500 pixels of the X axis; 25 pixels for 1 upwards from 300.
  const auto Expect = [this](std::initializer_list<std::string_view> Expected, int Frames) {
    const auto Calls = Chart.Calls();
    for (const std::string_view Call : Expected) EXPECT_EQ(Chart.CountOf(Calls, Call), 1) << Call;
    EXPECT_EQ(Chart.CountOf(Calls, " 10 75)") + Chart.CountOf(Calls, " 10 12.5)"), 2 + Frames);
    EXPECT_TRUE(Series->SeriesVisible()) << "bodies are there without lines";
  };
  Expect({"FillRectangle(FF008000, 144 175 10 75)", "DrawRectangle(pen FF000000 1, 144 175 10 75)",
          "pen FF000000 1, 149 250, 149 275", "pen FF000000 1, 149 175, 149 150",
          "FillRectangle(FFFF0000, 342 225 10 12.5)", "pen FF000000 1, 347 237.5, 347 250",
          "DrawLine(pen FF000000 1, 441 125, 451 125)"},
         2);
  Series->SetShadowsSameColorAsFill(true);
  Expect({"DrawRectangle(pen FF008000 1, 144 175 10 75)", "pen FF008000 1, 149 250, 149 275",
          "DrawRectangle(pen FFFF0000 1, 342 225 10 12.5)", "DrawLine(pen FF000000 1, 441 125, 451 125)"},
         2);
  Series->Line().SetVisible(false);
  Expect({"FillRectangle(FF008000, 144 175 10 75)", "FillRectangle(FFFF0000, 342 225 10 12.5)"}, 0);
  Series->Line().SetVisible(true);
  Series->SetShadowsSameColorAsFill(false);
  Chart.Y->SetTwisted(true);
  Expect(
      {"FillRectangle(FF008000, 144 100 10 75)", "pen FF000000 1, 149 100, 149 75", "pen FF000000 1, 149 175, 149 200"},
      2);
  for (const auto& [X, Y, Found] :
       {std::tuple(144, 190, 0), {143, 190, -1}, {154, 75, 0}, {154, 74, -1}, {440, 130, -1}})
    EXPECT_EQ(Series->FindPoint(X, Y), Found) << X << ", " << Y;
  Series->SetOnGetPen([](TObject*, TZyPenEventArgs& Args) { Args.Visible = Args.Visible && Args.Index < 1; });
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "DrawRectangle(pen FF000000"), 1) << "what a handler hides stays hidden";
  Series->SetOnGetPen([this](TObject*, TZyPenEventArgs&) { Open->Clear(); });
  Chart.Paint();
  EXPECT_EQ(Series->Count(), 0);
}

TEST_F(ZyCandleSticksTest, ItemsOfLegendsAreMiniatures) {
  const auto ItemOf = [](TZySeries& One) {
    return TSampleChart::CallsOf([&One](Graphics& Gr) { One.DrawListItem({&Gr, {10, 20, 50, 40}, 0}); });
  };
  // The middle lies at 29: a body of 6 from 26, in quarters of 10 pixels.
  auto Calls = ItemOf(*Series);
  EXPECT_EQ(Series->GetItemHeight(), 8);
  for (const std::string_view Call : {"FillRectangle(FF008000, 20 26 10 6)", "FillRectangle(FFFF0000, 30 26 10 6)",
                                      "DrawRectangle(pen FF000000 1, 20 26 20 6)", "10 29, 20 29", "40 29, 50 29"})
    EXPECT_EQ(TSampleChart::CountOf(Calls, Call), 1) << Call;
  Series->SetShadowsSameColorAsFill(true);
  Calls = ItemOf(*Series);
  EXPECT_EQ(TSampleChart::CountOf(Calls, "DrawRectangle"), 0);
  EXPECT_EQ(TSampleChart::CountOf(Calls, "DrawLine(pen FF008000 1, 10 29, 20 29"), 1);
  EXPECT_EQ(TSampleChart::CountOf(Calls, "DrawLine(pen FFFF0000 1, 40 29, 50 29"), 1);
  auto* const Bars = Chart.AddSeries<TZyOHLC>("Bars");
  EXPECT_EQ(Bars->GetItemHeight(), 16);
  Calls = ItemOf(*Bars);
  for (const std::string_view Call : {"FillRectangle(FF00008B, 10 27 40 4)",
                                      "DrawRectangle(pen FF00008B 1, 10.5 27 39 4)", "20 27, 20 22", "40 31, 40 36"})
    EXPECT_EQ(TSampleChart::CountOf(Calls, Call), 1) << Call;
}

TEST_F(ZyCandleSticksTest, VectorsComeFromDataSets) {
  TSampleData Data;
  for (TZyDoubleVector* Vector : {Low, Open, High, &Close()}) {
    Vector->SetDataSource(Data.Source);
    Vector->SetDataField("v");
  }
  X().SetInternalArray({1, 2, 3});
  Chart.Paint();
  EXPECT_EQ(Series->Count(), 2) << "1.5, 4, and no value at the end";
  EXPECT_EQ(Series->YStart(), 1.5);
  EXPECT_EQ(Series->YStop(), 4);
}

/// Dense records are drawn column by column. An event that changes nothing makes each of them be drawn.
template <class TSeries>
void ExpectDenseToLookLikeAll(const std::function<void(TSeries&)>& Prepare) {
  constexpr int Count = 6000;
  TSampleChart Chart;
  Chart.UsePlainAxes();
  auto& Series = *Chart.AddSeries<TSeries>("Prices");
  std::mt19937 Random(1);
  const auto Step = [&Random] { return static_cast<double>(Random() % 1000) / 1000; };
  std::vector<double> X, Low, Open, High, Close;
  double Price = 100;
  for (int i = 0; i < Count; ++i) {
    X.push_back(i + Step());
    Open.push_back(Price);
    Price = i % 50 == 7 ? Price : Price + 6 * Step() - 3;
    Close.push_back(Price);
    Low.push_back(std::min(Open.back(), Price) - 3 * Step());
    High.push_back(std::max(Open.back(), Price) + 3 * Step());
  }
  Series.SetXData(Chart.AddVector("DenseX", X));
  Series.SetLowData(Chart.AddVector("Low", Low));
  Series.SetOpenData(Chart.AddVector("Open", Open));
  Series.SetHighData(Chart.AddVector("High", High));
  Series.SetCloseData(Chart.AddVector("Close", Close));
  Prepare(Series);
  for (const auto& [Mode, Most] : {std::pair(TZySmoothingMode::None, 0.01), {TZySmoothingMode::AntiAlias, 0.25}}) {
    Chart.Graph->SetSmoothingMode(Mode);
    Series.SetOnGetPen(nullptr);
    Chart.Paint();
    EXPECT_LT(Chart.Calls().size(), 100u);
    const Bitmap Fast = Chart.Paint();
    Series.SetOnGetPen([](TObject*, TZyPenEventArgs&) {});
    const Bitmap Slow = Chart.Paint();
    double Differ = 0, Drawn = 0;
    for (int y = 0; y < Fast.GetHeight(); ++y)
      for (int x = 0; x < Fast.GetWidth(); ++x) {
        Differ += Distance(Fast.GetPixel(x, y), Slow.GetPixel(x, y)) / 255.0;
        Drawn += Slow.GetPixel(x, y) >> 24 == 0 ? 0 : 1;
      }
    EXPECT_GT(Drawn, 10000);
    EXPECT_LT(Differ, Most * Drawn) << "smoothed edges lie between columns, and those of columns do not";
  }
}

TEST(ZyRecordSeriesTest, DenseOnesLookLikeAllOfThem) {
  for (const bool HasLine : {true, false})
    for (const bool HasMore : {true, false}) {
      SCOPED_TRACE(::testing::Message() << HasLine << HasMore);
      ExpectDenseToLookLikeAll<TZyCandleSticks>([&](TZyCandleSticks& Series) {
        Series.Line().SetVisible(HasLine);
        Series.SetShadowsSameColorAsFill(HasMore);
      });
      ExpectDenseToLookLikeAll<TZyOHLC>([&](TZyOHLC& Series) {
        Series.Line().SetVisible(HasLine);
        Series.Area().SetForeColor(Colors::Orange);
        Series.Area().SetVisible(HasMore || !HasLine);
      });
    }
}

/// However data come, change and go, picture and ranges are those of the same data in one go.
TEST_F(ZyCandleSticksTest, RecordsThatComeLeaveTheOthersAsTheyAre) {
  std::mt19937 Random(7);
  int Step = 0;
  TZyDoubleVector* const All[] = {&X(), &Close(), Low, Open, High};
  const auto AnyValue = [&] { return static_cast<int>(Random()) % (Step + 10) / 50.0 + 5; };  // farther and farther off
  const auto Add = [&](double At) {
    for (TZyDoubleVector* Data : All) Data->Add(Data == &X() ? At : AnyValue());
  };
  for (TZyDoubleVector* Data : All) Data->Clear();
  for (; Step < 200; ++Step) {
    if (Step == 50)
      for (int i = 0; i < 4000; ++i) Add(2 + i / 800.0);  // dense from here on
    const int What = static_cast<int>(Random() % 8), Last = X().Count() - 1;
    if (What < 4 || Last < 4) Add(Last < 0 ? 0 : X()[Last] + 0.004);
    if (What == 4) All[1 + Random() % 4]->SetValue(std::max(Last - static_cast<int>(Random() % 30), 0), AnyValue());
    if (What == 5)
      for (TZyDoubleVector* Data : All) Data->Delete(Last);
    if (What > 5 && Step > 150) All[1 + Random() % 4]->SetOutlier(Last, What == 6);
    const Bitmap Quick = Chart.Paint();
    const double Start = Series->YStart(), Stop = Series->YStop();
    Series->SetBarWidth(5);
    Chart.Paint();  // another picture, so that nothing is left of the first one
    Series->SetBarWidth(6);
    Series->RangesModified();
    ASSERT_EQ(Quick.ToQt(), Chart.Paint().ToQt()) << Step;
    ASSERT_EQ(std::pair(Start, Stop), std::pair(Series->YStart(), Series->YStop())) << Step;
  }
  Series->SetBarWidth(1e30f);
  Chart.Paint();
}

TEST(ZyRecordSeriesTest, ANewOneShowsSamplesToTheDesigner) {
  TSampleChart Chart;
  Chart.FixEnds(Chart.Y, 2, 12);
  Chart.Form.SetDesigning(true);
  auto* const Series = Chart.AddSeries<TZyOHLC>("Prices");
  TZyDoubleVector *const Low = Chart.AddVector("Low"), *const Open = Chart.AddVector("Open", {7, 8}),
                         *const High = Chart.AddVector("High");
  Series->SetLowData(Low);
  Series->SetHighData(High);
  EXPECT_EQ(Low->Count(), 0);
  Series->SetOpenData(Open);
  ASSERT_EQ(Low->Count(), 11);
  EXPECT_EQ(Open->Count(), 2) << "only what is empty is filled";
  EXPECT_NEAR(Low->Minimum(), 2, 1e-12);
  EXPECT_NEAR(High->Maximum(), 12, 1e-12);
  for (int i = 0; i < 11; ++i) {
    EXPECT_LE(Low->GetValue(i), Series->CloseData()->GetValue(i));
    EXPECT_LE(Series->CloseData()->GetValue(i), High->GetValue(i));
  }
  EXPECT_EQ(Series->XData()->Count(), 11);
}

TEST(ZyRecordSeriesTest, PaintsOnWhateverTheData) {
  constexpr double NaN = std::numeric_limits<double>::quiet_NaN(), Inf = HUGE_VAL;
  const std::vector<std::vector<double>> Lists = {
      {}, {0}, {1, 2, 3, 4}, {4, 3, 2, 1}, {NaN, 2, Inf}, {1e308, -1e308, 3}, {-1, -5, 0}};
  TSampleChart Chart;
  std::vector<TZyDoubleVector*> Vectors{nullptr};
  for (const auto& Values : Lists) Vectors.push_back(Chart.AddVector("V" + std::to_string(Vectors.size()), Values));
  std::mt19937 Random(5);
  const auto Any = [&] { return Vectors[Random() % Vectors.size()]; };
  std::vector<TZyCustomOHLC*> All;
  for (int i = 0; i < 30; ++i) {
    const std::string Name = "S" + std::to_string(i);
    All.push_back(i % 2 == 0 ? static_cast<TZyCustomOHLC*>(Chart.AddSeries<TZyOHLC>(Name))
                             : Chart.AddSeries<TZyCandleSticks>(Name));
  }
  for (int Round = 0; Round < 60; ++Round) {
    for (TZyAxis* Axis : {Chart.X, Chart.Y}) Axis->SetScaling(static_cast<TZyAxisScaling>(Random() % 5));
    for (TZyCustomOHLC* Series : All) {
      Series->SetXData(Any());
      Series->SetLowData(Any());
      Series->SetOpenData(Any());
      Series->SetHighData(Any());
      Series->SetCloseData(Any());
    }
    Chart.Paint();
    for (const TZyCustomOHLC* Series : All)
      for (const PointF& P : Series->Points()) EXPECT_TRUE(std::isfinite(P.X + P.Y));
  }
}

}  // namespace
}  // namespace zy::testing
