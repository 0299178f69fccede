#include "axes/ZyAxis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "graph/SampleChart.h"
#include "platform/drawing/Font.h"

namespace zy::testing {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

using TTexts = std::vector<std::string>;

/// Indexes of the flags that are set.
std::vector<int> IndexesOf(const std::vector<bool>& Flags) {
  std::vector<int> Result;
  for (std::size_t i = 0; i < Flags.size(); ++i)
    if (Flags[i]) Result.push_back(static_cast<int>(i));
  return Result;
}

/// First, First + Step, ... while below Count.
std::vector<int> Every(int First, int Step, int Count) {
  std::vector<int> Result;
  for (int i = First; i < Count; i += Step) Result.push_back(i);
  return Result;
}

TEST(ZyAxisTest, MapsValuesToPixelsAndBackAtAllFourSides) {
  const struct {
    TZyAxisPosition XPosition, YPosition;
    float Left, Top, Right, Bottom;  // borders that make the data area the same each time
  } Cases[] = {{TZyAxisPosition::Bottom, TZyAxisPosition::Left, 39, 50, 50, 90},
               {TZyAxisPosition::Top, TZyAxisPosition::Right, 50, 39, 40, 100}};
  for (const auto& [XPosition, YPosition, Left, Top, Right, Bottom] : Cases) {
    TSampleChart Chart;
    Chart.UsePlainAxes();
    Chart.X->SetPosition(XPosition);
    Chart.Y->SetPosition(YPosition);
    Chart.Graph->SetDistanceBorderAxisLeft(Left);
    Chart.Graph->SetDistanceBorderAxisTop(Top);
    Chart.Graph->SetDistanceBorderAxisRight(Right);
    Chart.Graph->SetDistanceBorderAxisBottom(Bottom);
    Chart.Graph->Calculate();
    EXPECT_EQ(Chart.Graph->DrawingArea(), (RectF{50, 50, 501, 251}));
    for (const bool Twisted : {false, true}) {
      Chart.X->SetTwisted(Twisted);
      Chart.Y->SetTwisted(Twisted);
      Chart.Graph->Calculate();
      const struct {
        double Value;
        float X, Y;  // pixels when not twisted
      } Values[] = {{0, 50, 300}, {10, 550, 50}, {5, 300, 175}, {4, 250, 200}, {-1, 0, 325}, {11, 600, 25}};
      for (const auto& [Value, X, Y] : Values) {
        EXPECT_FLOAT_EQ(Chart.X->NumberToWorld(Value), Twisted ? 600 - X : X) << Value;
        EXPECT_FLOAT_EQ(Chart.Y->NumberToWorld(Value), Twisted ? 350 - Y : Y) << Value;
        EXPECT_NEAR(Chart.X->WorldToNumber(Twisted ? 600 - X : X), Value, 1e-12);
        EXPECT_NEAR(Chart.Y->WorldToNumber(Twisted ? 350 - Y : Y), Value, 1e-12);
      }
    }
  }
}

// A label is by its estimate 19.2 pixels wide per character across a horizontal axis of 600 pixels, and 30 high along a
// vertical one of 400. With 70 pixels between them, the steps refine until the labels do not fit. For 0 to 10 on the X
// axis: step 2 takes 6 * 38.4 + 5 * 70 = 580.4, step 1 takes 11 * 38.4 + 10 * 70 = 1122.4 and stands; 2 and 5 minor
// ticks make a half and a tenth of it. On the Y axis: step 5 takes 3 * 30 + 2 * 70 = 230, step 2 takes 6 * 30 + 5 * 70
// = 530.
TEST(ZyAxisTest, ChoosesTicksAndLabelsByTheRoom) {
  const struct {
    double Start, Stop;          // as set
    double AxisStart, AxisStop;  // rounded to major ticks
    int Ticks, FirstLabel, LabelEvery;
    TTexts Texts;
    bool OnX;
  } Cases[] = {
      {0, 10, 0, 10, 101, 0, 10, {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}, true},
      {0, 10, 0, 10, 51, 0, 10, {"0", "2", "4", "6", "8", "10"}, false},
      {0, 1000, 0, 1000, 51, 0, 10, {"0", "200", "400", "600", "800", "1000"}, true},
      {-3, 7, -3, 7, 101, 0, 10, {"-3", "-2", "-1", "0", "1", "2", "3", "4", "5", "6", "7"}, true},
      {-3, 7, -3, 7, 51, 5, 10, {"-2", "0", "2", "4", "6"}, false},
      {1400, 1400.5, 1400, 1400.5, 26, 0, 10, {"1400.0", "1400.2", "1400.4"}, true},
      {1400, 1400.5, 1400, 1400.5, 51, 0, 10, {"1400.0", "1400.1", "1400.2", "1400.3", "1400.4", "1400.5"}, false},
      {5, 5 + 1e-9, 5, 5 + 1e-9, 11, 0, 5, {"5.0000000000", "5.0000000005", "5.0000000010"}, true},
      {-0.5, 0.5, -0.5, 0.5, 51, 5, 10, {"-0.4", "-0.2", "0.0", "0.2", "0.4"}, true},
      {0.37, 8.2, 0, 8.5, 86, 0, 10, {"0", "1", "2", "3", "4", "5", "6", "7", "8"}, true},
      {0.37, 8.2, 0, 9, 46, 0, 10, {"0", "2", "4", "6", "8"}, false},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(::testing::Message() << Case.Start << " to " << Case.Stop << (Case.OnX ? " on X" : " on Y"));
    TSampleChart Chart;
    TZyAxis& Axis = Case.OnX ? *Chart.X : *Chart.Y;
    Axis.SetStop(Case.Stop);
    Axis.SetStart(Case.Start);
    Chart.Graph->Calculate();
    EXPECT_NEAR(Axis.Start(), Case.AxisStart, 1e-14);
    EXPECT_NEAR(Axis.Stop(), Case.AxisStop, 1e-14);
    EXPECT_EQ(Axis.LabelTexts(), Case.Texts);
    ASSERT_EQ(Axis.Ticks().size(), static_cast<std::size_t>(Case.Ticks));
    EXPECT_EQ(IndexesOf(Axis.MajorTicks()), Every(0, 5, Case.Ticks));
    EXPECT_EQ(IndexesOf(Axis.MajorGridTicks()), Every(Case.FirstLabel, Case.LabelEvery, Case.Ticks));
    const RectF& Area = Chart.Graph->DrawingArea();
    const float First = Case.OnX ? Area.X : Area.Y + Area.Height - 1;
    const float Last = Case.OnX ? Area.X + Area.Width - 1 : Area.Y;
    for (int i = 0; i < Case.Ticks; ++i)
      EXPECT_NEAR(Axis.Ticks()[static_cast<std::size_t>(i)],
                  First + (Last - First) * static_cast<float>(i) / static_cast<float>(Case.Ticks - 1), 0.002);
  }
}

TEST(ZyAxisTest, GapFactorAndExtraDigitsChangeTheLabels) {
  TSampleChart Chart;
  Chart.X->SetLabelDistanceFactor(10);  // 2 * 38.4 + 700 is too much for step 10, but a scale needs two labels
  Chart.Graph->Calculate();
  EXPECT_EQ(Chart.X->LabelTexts(), (TTexts{"0", "10"}));
  Chart.X->SetLabelDistanceFactor(0.1f);  // step 1: 11 * 38.4 + 10 * 7 = 492.4; step 0.5: 21 * 57.6 and more
  Chart.Graph->Calculate();
  EXPECT_EQ(Chart.X->LabelTexts().size(), 21u);
  EXPECT_EQ(Chart.X->LabelTexts()[1], "0.5");
  Chart.X->SetLabelDistanceFactor(1);
  Chart.X->SetExtraDigits(2);  // wider texts: step 2 takes 6 * 96 + 5 * 70
  Chart.Graph->Calculate();
  EXPECT_EQ(Chart.X->LabelTexts(), (TTexts{"0.00", "2.00", "4.00", "6.00", "8.00", "10.00"}));
  Chart.X->SetNumbersVisible(false);
  Chart.Graph->Calculate();
  EXPECT_TRUE(Chart.X->LabelTexts().empty());
}

TEST(ZyAxisTest, LayoutLeavesRoomForNumbersCaptionsAndOverhangs) {
  TSampleChart Chart;
  Chart.X->SetCaption("abscissa");
  Chart.Y->SetCaption("ordinate  ");
  Chart.Graph->Calculate();
  EXPECT_EQ(Chart.Y->Caption(), "ordinate");
  const SizeF Label = CaptionExtent(Font("Arial", 12, {TFontStyle::Bold}), "10");
  const float CaptionHeight = CaptionExtent(Font("Times New Roman", 14, {TFontStyle::Bold}), "ordinate").Height;
  const float Left = std::ceil(1 + 10 + Label.Width + CaptionHeight);
  const float Bottom = std::ceil(1 + 10 + Label.Height + CaptionHeight) - 1;
  const float Right = std::ceil(Label.Width / 2 + 2);
  const float Top = std::ceil(Label.Height / 2);
  EXPECT_EQ(Chart.Graph->DrawingArea(), (RectF{Left, Top, 601 - Left - Right, 401 - Top - Bottom}));
}

TEST(ZyAxisTest, EndsFollowTheirModes) {
  using enum TZyAxisEnd;
  const struct {
    TZyAxisEnd StartEnd, StopEnd;
    double DataStart, DataStop;
    double Start, Stop;
  } Cases[] = {
      // The ends are set to 0 and 10; a span below 10 has major ticks of 0.5 on this axis, one below 100 of 5.
      {AutoRange, AutoRange, 2, 8, 2, 8},
      {AutoRange, AutoRange, 0.3, 9.7, 0, 10},
      {AutoRange, AutoRange, 2, 33, 0, 35},
      {AutoRange, AutoRange, 5, 5, 4, 6},
      {FirstSet, FirstSet, 2, 8, 0, 10},
      {FirstSet, FirstSet, -3, 8, -3, 10},
      {FirstSet, FirstSet, 2, 33, 0, 35},
      {Fixed, Fixed, -100, 100, 0, 10},
      {Fixed, AutoRange, 2, 33, 0, 35},
      {AutoRange, Fixed, -7, 100, -7, 10},
      {MovingSlit, Fixed, -100, 100, 0, 10},
      // The data span 84.8 and have ticks of 1; rounded to 90 they leave room for ticks of 2 only, which must stay.
      {AutoRange, AutoRange, -9.7, 75.1, -10, 80},
  };
  for (const auto& Case : Cases) {
    TSampleChart Chart;
    TZyLineSeries* const Series = Chart.AddSeries("Series", {Case.DataStart, Case.DataStop}, {0, 1});
    Chart.X->SetStartEnd(Case.StartEnd);
    Chart.X->SetStopEnd(Case.StopEnd);
    EXPECT_EQ(Chart.X->StartEnd(), Case.StartEnd == MovingSlit ? Fixed : Case.StartEnd);
    Chart.Paint();
    SCOPED_TRACE(::testing::Message() << Case.DataStart << " to " << Case.DataStop);
    EXPECT_NEAR(Chart.X->Start(), Case.Start, 1e-14);
    EXPECT_NEAR(Chart.X->Stop(), Case.Stop, 1e-14);
    // Nothing changes without new data, after a resize, and when the same data come again.
    const double Start = Chart.X->Start(), Stop = Chart.X->Stop();
    const TTexts Texts = Chart.X->LabelTexts();
    const auto Ticks = Chart.X->Ticks();
    Chart.Graph->SetHeight(300);
    Chart.Paint();
    Series->RangesModified();
    Chart.Y->SetStop(20);
    Chart.Paint();
    EXPECT_EQ(Chart.X->Start(), Start);
    EXPECT_EQ(Chart.X->Stop(), Stop);
    EXPECT_EQ(Chart.X->LabelTexts(), Texts);
    EXPECT_EQ(Chart.X->Ticks(), Ticks);
  }
}

TEST(ZyAxisTest, FirstPaintRangesByTheSizeOfTheGraph) {
  // A new axis has an extent of its own, for which a step of 0.5 would be the finest.
  TSampleChart Chart;
  Chart.AddSeries("Series", {0, 1}, {0.2, 0.9});
  Chart.Paint();
  EXPECT_NEAR(Chart.Y->Start(), 0.2, 1e-14);
  EXPECT_NEAR(Chart.Y->Stop(), 0.9, 1e-14);
}

TEST(ZyAxisTest, RepairsEqualAndReversedEnds) {
  using enum TZyAxisEnd;
  const struct {
    double Value;
    TZyAxisEnd StartEnd, StopEnd;
    double Start, Stop;
  } Cases[] = {
      {5, AutoRange, AutoRange, 4, 6}, {5, Fixed, AutoRange, 5, 6},      {5, Fixed, Fixed, 5, 6},
      {5, AutoRange, Fixed, 4, 5},     {0, AutoRange, AutoRange, -1, 1}, {-300, AutoRange, AutoRange, -400, -200},
  };
  for (const auto& Case : Cases) {
    TSampleChart Chart;
    Chart.X->SetStart(Case.Value);
    Chart.X->SetStop(Case.Value);
    Chart.X->SetStartEnd(Case.StartEnd);
    Chart.X->SetStopEnd(Case.StopEnd);
    Chart.Graph->Calculate();
    EXPECT_NEAR(Chart.X->Start(), Case.Start, 1e-12) << Case.Value;
    EXPECT_NEAR(Chart.X->Stop(), Case.Stop, 1e-12) << Case.Value;
  }
  TSampleChart Chart;
  Chart.X->SetStart(20);
  Chart.Graph->Calculate();
  EXPECT_EQ(Chart.X->Start(), 0);
  EXPECT_EQ(Chart.X->Stop(), 100);
  Chart.X->SetStart(NotANumber);
  Chart.X->SetStop(Infinity);
  EXPECT_FALSE(Chart.X->NeedsRecalculate());
}

TEST(ZyAxisTest, FallsBackToTheSetEndsWithoutData) {
  TSampleChart Chart;
  Chart.X->SetStop(20);
  TZyLineSeries* const Series = Chart.AddSeries("Series", {100, 200}, {1, 2});
  Chart.Paint();
  EXPECT_EQ(Chart.X->Start(), 100);
  EXPECT_EQ(Chart.X->Stop(), 200);
  Series->XData()->Clear();
  Chart.Paint();
  EXPECT_EQ(Chart.X->Start(), 0);
  EXPECT_EQ(Chart.X->Stop(), 20);
  // A hidden series counts as none; another one stays.
  Chart.AddSeries("Other", {-5, 5}, {1, 2});
  Series->XData()->Add(100);
  Series->XData()->Add(200);
  Series->SetVisible(false);
  Chart.Paint();
  EXPECT_EQ(Chart.X->Start(), -5);
  EXPECT_EQ(Chart.X->Stop(), 5);
}

TEST(ZyAxisTest, SettersMarkForLayoutOnlyWhatMovesSomething) {
  using TStep = std::function<void(TZyAxis&)>;
  const struct {
    const char* Name;
    TStep Set;
    bool Layout, Repaint;
  } Cases[] = {
      {"NumbersColor", [](TZyAxis& A) { A.SetNumbersColor(Colors::Red); }, false, true},
      {"colour of the font", [](TZyAxis& A) { A.Font().SetFillColor(Colors::Red); }, true, true},
      {"same NumbersColor", [](TZyAxis& A) { A.SetNumbersColor(Colors::DarkBlue); }, false, false},
      {"whole turn", [](TZyAxis& A) { A.SetRubricsAngle(360); }, false, false},
      {"level of a linear axis", [](TZyAxis& A) { A.SetLogToNormalScalingLevel(2); }, false, false},
      {"Scaling", [](TZyAxis& A) { A.SetScaling(TZyAxisScaling::Log); }, true, true},
      {"automatic LabelPart", [](TZyAxis& A) { A.SetLabelPart(0.5); }, false, false},
      {"no StartPadding", [](TZyAxis& A) { A.SetStartPadding(0); }, false, false},
      {"SetStartStop", [](TZyAxis& A) { A.SetStartStop(1, 2); }, true, true},
      {"short TickLength", [](TZyAxis& A) { A.SetTickLength(-9); }, false, true},
      {"long TickLength", [](TZyAxis& A) { A.SetTickLength(-11); }, true, true},
      {"short MajorTickLength", [](TZyAxis& A) { A.SetMajorTickLength(5); }, false, true},
      {"long MajorTickLength", [](TZyAxis& A) { A.SetMajorTickLength(6); }, true, true},
      {"same MajorTickLength", [](TZyAxis& A) { A.SetMajorTickLength(-10); }, false, false},
      {"blank Caption", [](TZyAxis& A) { A.SetCaption("  "); }, false, false},
      {"Twisted", [](TZyAxis& A) { A.SetTwisted(true); }, true, true},
      {"same TickThicknes", [](TZyAxis& A) { A.SetTickThicknes(-1); }, false, false},
      {"Start", [](TZyAxis& A) { A.SetStart(-5); }, true, true},
      {"same Stop", [](TZyAxis& A) { A.SetStop(10); }, false, false},
  };
  for (const auto& Case : Cases) {
    TSampleChart Chart;
    Chart.Graph->Calculate();
    ASSERT_FALSE(Chart.X->NeedsRecalculate());
    class TCounter : public TZyAxis {
     public:
      using TZyAxis::TZyAxis;
      int Count = 0;

     protected:
      void InvalidateBox() override { ++Count; }
    };
    TCounter Axis(&Chart.Form);
    Axis.SetParent(Chart.Graph);
    Chart.Graph->Calculate();
    Axis.Calculate();
    Axis.Count = 0;
    Case.Set(Axis);
    EXPECT_EQ(Axis.NeedsRecalculate(), Case.Layout) << Case.Name;
    EXPECT_EQ(Axis.Count > 0, Case.Repaint) << Case.Name;
  }
}

TEST(ZyAxisTest, TickColoursFollowTheLineUntilTheyAreSetApart) {
  TZyAxis Axis;
  Axis.SetTickColor(Colors::Red);
  Axis.SetForeColor(Colors::Blue);
  EXPECT_EQ(Axis.TickColor(), Colors::Red);
  EXPECT_EQ(Axis.MajorTickColor(), Colors::Blue);
  Axis.SetTickColor(Colors::Blue);  // and again when they are set to its colour
  Axis.SetForeColor(Colors::Green);
  EXPECT_EQ(Axis.TickColor(), Colors::Green);
}

TEST(ZyAxisTest, TicksStartAtTheFarSideOfTheLine) {
  // A line of 3 pixels covers one row on each side of its own. A tick of 10 pixels that points away from the data
  // starts at the row above and shows below the line, one that points to them starts at the row below.
  for (const bool ToData : {false, true}) {
    TSampleChart Chart;
    Chart.UsePlainAxes();
    Chart.Y->SetVisible(false);
    Chart.X->SetAxisThicknes(3);
    Chart.X->SetTicksPointToData(ToData);
    Chart.X->SetMajorTickColor(Colors::Red);
    Chart.Graph->SetSmoothingMode(TZySmoothingMode::None);
    const Bitmap Picture = Chart.Paint();
    const int Column = static_cast<int>(std::lround(Chart.X->NumberToWorld(5)));
    const RectF& Area = Chart.Graph->DrawingArea();
    const int Line = static_cast<int>(Area.Y + Area.Height - 1);
    for (int Off = -1; Off <= 1; ++Off) EXPECT_EQ(Picture.GetPixel(Column, Line + Off), Colors::Black) << Off;
    for (int Off = 2; Off <= 9; ++Off) {
      EXPECT_EQ(Picture.GetPixel(Column, Line + Off), ToData ? 0 : Colors::Red) << Off;
      EXPECT_EQ(Picture.GetPixel(Column, Line - Off), ToData ? Colors::Red : 0) << Off;
    }
  }
}

}  // namespace
}  // namespace zy::testing
