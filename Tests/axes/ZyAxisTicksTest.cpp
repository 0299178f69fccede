// Ticks and labels of all kinds of scale.

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <tuple>

#include "axes/AxisSamples.h"
#include "axes/DateTimeSamples.h"
#include "texts/NumberText.h"

namespace zy::testing {
namespace {

using enum TZyAxisScaling;

void Lay(TSampleChart& Chart, TZyAxis& Axis, TZyAxisScaling Scaling, double Start, double Stop) {
  Axis.SetScaling(Scaling);
  Lay(Chart, Axis, Start, Stop);
}

/// Values of the first ticks, counted from the start of a date axis.
std::vector<long> FirstTicks(const TZyAxis& Axis, std::size_t Count) {
  std::vector<long> Result;
  const double First = Axis.Scaling() == DateTime ? Axis.Start() : 0;
  for (const TZyTick& Tick : Axis.Ticks()) {
    EXPECT_NEAR(Axis.NumberToWorld(Tick.Value), Tick.Position, 0);
    if (Result.size() < Count) Result.push_back(std::lround(Axis.WorldToNumber(Tick.Position) - First));
  }
  return Result;
}

// Days between dates by another calendar (python's datetime): over the end of a leap February, over the year 1900 that
// has none, and with weeks that begin on Sunday.
TEST(ZyAxisTicksTest, DatesFollowTheCalendar) {
  const struct {
    const char *Start, *Stop, *AxisStart, *AxisStop;
    std::vector<long> Days;  // the first ticks
    const char* Texts;
  } Cases[] = {
      {"2023-12-15", "2024-03-14", "2023-10-01", "2024-04-01", {0, 31, 61, 92, 123, 152, 183}, "Oct 23|Jan 24|Apr 24"},
      {"2024-01-10", "2024-12-31", "2024-01-01", "2025-01-01", {0, 31, 60, 91, 121}, "Jan 24|Jul 24|Jan 25"},
      {"2024-02-20", "2024-03-10", "2024-02-18", "2024-03-10", {0, 1, 2, 3, 4}, "2/18/24|3/3/24"},
      {"1896-3-1", "1905-6-1", "1895-1-1", "1910-1-1", {0, 365, 731, 1096, 1461, 1826, 2191}, "1895|1900|1905|1910"},
      {"1899-12-29 22:00", "1899-12-30 01:00", "1899-12-29 22:00", "1899-12-30 01:00", {}, "22:00|23:00|00:00|01:00"},
      {"1900-1-1 0:0:0.100", "1900-1-1 0:0:0.210", "1900-1-1 0:0:0.100", "1900-1-1 0:0:0.220", {}, "0.1|0.2"},
      {"2024-03-10", "2024-02-20", "2024-03-10", "2024-02-18", {}, "2/18/24|3/3/24"},  // from late to early
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(Case.Start);
    TSampleChart Chart;
    Lay(Chart, *Chart.X, DateTime, At(Case.Start), At(Case.Stop));
    EXPECT_EQ(Shown(Chart.X->Start()), Shown(At(Case.AxisStart)));
    EXPECT_EQ(Shown(Chart.X->Stop()), Shown(At(Case.AxisStop)));
    EXPECT_EQ(LabelsOf(*Chart.X), Case.Texts);
    EXPECT_EQ(FirstTicks(*Chart.X, Case.Days.size()), Case.Days);
  }
  TSampleChart Chart;
  Chart.X->SetDateTimeFormats({"yyyy-mm", "", "", "", "", "", ""});
  Lay(Chart, *Chart.X, DateTime, At("2024-01-10"), At("2024-12-31"));
  EXPECT_EQ(LabelsOf(*Chart.X), "2024-01|2024-07|2025-01");
  EXPECT_EQ(Chart.X->MajorIncrement(), 3 * 28);
  EXPECT_EQ(Chart.X->MinorIncrement(), 28);
}

TEST(ZyAxisTicksTest, SecondsDecadesAndRubrics) {
  const std::vector<long> Tens{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 20, 30};
  const struct {
    TZyAxisScaling Scaling;
    double Start, Stop, AxisStart, AxisStop;
    std::size_t Ticks;
    std::vector<long> First;
    const char* Texts;
    double Major, Minor;  // increments
  } Cases[] = {
      {Seconds, 0, 7200, 0, 7200, 25, {0, 300, 600, 900}, "00:00:00|00:30:00|01:00:00|01:30:00|02:00:00", 900, 300},
      {Seconds, 100, 260, 90, 270, 37, {90, 95, 100}, "01:30|02:00|02:30|03:00|03:30|04:00|04:30", 15, 5},
      {Seconds, 0, 864000, 0, 864000, 21, {0, 43200}, "00:00:00|4.00:00:00|8.00:00:00", 172800, 43200},
      {Log, 3, 725, 1, 1000, 28, Tens, "1|10|100|1000", 1, 0.04},
      {LogEE, 1e-5, 1e5, 1e-5, 1e5, 91, {}, "10\\+-4|10\\+-2|10\\+0|10\\+2|10\\+4", 1, 0.04},
      // 41 decades want a label for every sixth; ends are powers of thousand, ticks every second decade.
      {LogEE, 1, 1e40, 1, 1e42, 22, {1, 100}, "10\\+0|10\\+6|10\\+12|10\\+18|10\\+24|10\\+30|10\\+36|10\\+42", 6, 0.04},
      {LogEE, 1e-50, 1e50, 1e-54, 1e54, 19, {}, "10\\+-54|10\\+-36|10\\+-18|10\\+0|10\\+18|10\\+36|10\\+54", 18, 0.04},
      {Rubrics, 0, 4, 0, 4, 5, {0, 1, 2, 3, 4}, "one|two|three", 1, 1},  // a cell without a text
      {Rubrics, -3, 2, 0, 2, 3, {0, 1, 2}, "one|two", 1, 1},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(::testing::Message() << Case.Start << " to " << Case.Stop);
    TSampleChart Chart;
    Chart.X->Rubrics()->SetText("one\ntwo\nthree\n");
    Lay(Chart, *Chart.X, Case.Scaling, Case.Start, Case.Stop);
    EXPECT_DOUBLE_EQ(Chart.X->Start(), Case.AxisStart);
    EXPECT_DOUBLE_EQ(Chart.X->Stop(), Case.AxisStop);
    EXPECT_EQ(LabelsOf(*Chart.X), Case.Texts);
    ASSERT_EQ(Chart.X->Ticks().size(), Case.Ticks);
    EXPECT_EQ(FirstTicks(*Chart.X, Case.First.size()), Case.First);
    EXPECT_NEAR(Chart.X->MajorIncrement(), Case.Major, 1e-9);
    EXPECT_NEAR(Chart.X->MinorIncrement(), Case.Minor, 1e-9);
    if (Case.Scaling == Rubrics) {
      EXPECT_NEAR(Chart.X->AxLabels()[1]->X, Chart.X->NumberToWorld(1.5), 1);
    }
  }
}

TEST(ZyAxisTicksTest, LogarithmicScalesThatBeginInsideADecade) {
  const struct {
    double Start, Stop;
    std::vector<long> Ticks;
    const char* Texts;
  } Cases[] = {{300, 2500, {400, 500, 600, 700, 800, 900, 1000, 2000}, "1000"},
               {1.25e3, 1.75e3, {1250, 1260, 1270}, "1.3|1.4|1.5|1.6|1.7"}};  // no tick of a decade inside
  for (const auto& Case : Cases) {
    TSampleChart Chart;
    Chart.X->SetEndRounding(TZyAxisEndRounding::RndNothing);
    Chart.X->SetMaxForExtraExponent(10);
    Lay(Chart, *Chart.X, Log, Case.Start, Case.Stop);
    EXPECT_EQ(FirstTicks(*Chart.X, Case.Ticks.size()), Case.Ticks);
    EXPECT_EQ(LabelsOf(*Chart.X), Case.Texts);
  }
}

TEST(ZyAxisTicksTest, StepsOfTheUsersOwn) {
  TSampleChart Chart;
  Chart.X->SetAutoTickParts(false);
  const auto Take = [&](double Label, double Tick) {
    Chart.X->SetLabelPart(Label);
    Chart.X->SetMajorTickPart(Label);
    Chart.X->SetTickPart(Tick);
    Lay(Chart, *Chart.X, Normal, 0, 1);
  };
  Take(0.25, 0.125);
  EXPECT_EQ(LabelsOf(*Chart.X), "0.00|0.25|0.50|0.75|1.00");
  EXPECT_EQ(Chart.X->Ticks().size(), 9u);
  Take(2e-5, 2e-5);
  EXPECT_LE(Chart.X->Ticks().size(), 700u) << "no more than pixels";
}

TEST(ZyAxisTicksTest, PowersOfTenStandApartAndHaveRoom) {
  using enum TZyAxisPosition;
  for (const auto Position : {Bottom, Top, Left, Right}) {
    const bool Lying = Position == Bottom || Position == Top;
    TSampleChart Chart;
    TZyAxis& Axis = Lying ? *Chart.X : *Chart.Y;
    Axis.SetPosition(Position);
    Lay(Chart, Axis, Normal, 0, 10000);
    const TZyRichCaptionObject& Power = Axis.ExtraExponent();
    const auto Along = [Lying](const TZyRichCaptionObject& Text) { return Lying ? Text.X : Text.Y; };
    EXPECT_FLOAT_EQ(Along(Power), (Along(*Axis.AxLabels().back()) + Along(*Axis.AxLabels().end()[-2])) / 2);
    // Its outer edge is inside the control: 10 pixels of tick and 10 of distance from the line.
    const float Across = Lying ? Power.Y : Power.X, Extent = Lying ? Power.Height() : Power.Width();
    EXPECT_FLOAT_EQ(std::fabs(Across - (Lying ? Axis.AxTop() : Axis.AxLeft())), 20);
    const float Outer = Position == Bottom || Position == Right ? Across + Extent : Across - Extent;
    EXPECT_TRUE(Outer >= 0 && Outer <= static_cast<float>(Lying ? Axis.Height() : Axis.Width())) << Outer;
    if (Lying) {  // behind the last label, 12000, where that does not stand at the end
      Lay(Chart, Axis, 0, 13000);
      EXPECT_NEAR(Along(Power), Axis.NumberToWorld(12500), 0.01);
    }
    Lay(Chart, Axis, 0, 0.5);
    EXPECT_EQ(Power.Caption(), "");
  }
}

/// What lies between data and a rounded end, in steps between major ticks of decades and between labels of dates.
double EmptySteps(const TZyAxis& Axis, double First, double Last) {
  if (Axis.HasLogScaling())
    return std::log10(std::max(First / Axis.Start(), Axis.Stop() / Last)) / Axis.MajorTickPart();
  double Step = Axis.MajorIncrement() * 1.2, Previous = 1e9;  // of too few labels; months are longer than 28 days
  for (const TZyTick& Tick : Axis.Ticks()) {
    if (!Tick.Labelled) continue;
    Step = std::max(Step, Tick.Value - Previous);
    Previous = Tick.Value;
  }
  return std::max(First - Axis.Start(), Axis.Stop() - Last) / Step;
}

TEST(ZyAxisTicksTest, RoundedEndsLeaveLessThanAStepEmptyAndNeverCreep) {
  std::mt19937_64 Random(18);
  const auto Between = [&](double A, double B) { return std::uniform_real_distribution<double>(A, B)(Random); };
  for (int Index = 0; Index < 400; ++Index) {
    const bool IsDate = Index % 2 == 0;
    const double First = IsDate ? Between(0, 60000) : std::pow(10, Between(-8, 6));
    const double Last = IsDate           ? First + std::pow(10, Between(-6, 5))
                        : Index % 4 == 1 ? First * std::pow(10, Between(10, 90))
                                         : First * std::pow(10, Between(0.3, 25));
    SCOPED_TRACE(::testing::Message() << First << " to " << Last);
    TSampleChart Chart;
    TZyAxis& Axis = *Chart.X;
    Axis.SetScaling(IsDate ? DateTime : Index % 8 < 4 ? Log : LogEE);
    Chart.AddSeries("Series", {First, Last}, {0, 1});
    std::map<int, std::tuple<double, double, std::string>> Seen;
    for (const int Width : {400, 600, 1000, 600, 400, 400}) {  // and back, and a second time
      Chart.Graph->SetWidth(Width);
      Axis.Modified();
      Chart.Paint();
      EXPECT_LT(EmptySteps(Axis, First, Last), 1) << Width;
      const std::tuple State{Axis.Start(), Axis.Stop(), LabelsOf(Axis)};
      EXPECT_EQ(Seen.try_emplace(Width, State).first->second, State) << Width;
      if (IsDate || Axis.MajorTickPart() < 3) continue;
      EXPECT_TRUE(Axis.Ticks().front().Labelled && Axis.Ticks().back().Labelled);
    }
  }
}

/// An axis of random kind, ends and surroundings.
class TRandomAxis {
 public:
  explicit TRandomAxis(std::mt19937_64& Random) : FRandom(Random) {
    Axis.SetTwisted(Chance(4));
    Axis.SetLabelDistanceFactor(static_cast<float>(Chance(2) ? 1 : Between(0.1, 10)));
    Axis.SetEndRounding(static_cast<TZyAxisEndRounding>(FRandom() % 6));
    Axis.Rubrics()->SetText("one\ntwo\nthree\n");
    const auto Scaling = static_cast<TZyAxisScaling>(FRandom() % 6);
    double Start = Between(-1, 1) * Power(-20, 20), Span = Power(-20, 20);
    if (Chance(2)) Start = Between(-1, 1) * Span;
    if (Chance(20)) Start = Between(-1, 1) * Power(-330, 308), Span = Power(-330, 308);
    if (Scaling == DateTime) Start = Between(MinDateTime, MaxDateTime), Span = Between(-1, 4) * Power(-7, 6);
    if (Scaling == Rubrics) Start = Chance(2) ? Power(0, 20) : Between(-1, 5), Span = Power(0, 7);
    if (Scaling == Log || Scaling == LogEE) {
      Start = (Chance(10) ? -1 : 1) * Power(-100, 100);
      Span = std::fabs(Start) * Power(-2, 100);
      if (Chance(3)) Axis.SetLogToNormalScalingLevel(Between(0, 4));
    }
    if (Chance(20)) Span = Chance(2) ? 0 : -Span;
    Lay(Chart, Axis, Scaling, Start, Start + Span);
  }
  bool Chance(int OneIn) { return FRandom() % static_cast<unsigned>(OneIn) == 0; }
  double Between(double Low, double High) { return std::uniform_real_distribution<double>(Low, High)(FRandom); }
  double Power(double Low, double High) { return std::pow(10, Between(Low, High)); }

 private:
  std::mt19937_64& FRandom;

 public:
  TSampleChart Chart{static_cast<int>(Power(0, 3.4)) - 1, static_cast<int>(Power(0, 3.4)) - 1};
  TZyAxis& Axis = Chance(2) ? *Chart.X : *Chart.Y;
};

/// A label reads as the value of its tick, as far as its digits go.
void ExpectReadableLabels(const TZyAxis& Axis) {
  const std::string& Power = Axis.ExtraExponent().Caption();
  if (Power.empty() && Axis.AxLabels().size() < 2) return;  // it may stand for a mantissa
  const double Unit = Power.empty() ? 1 : std::pow(10, StrToFloat(Power.substr(Power.find('+') + 1)));
  for (const auto& Label : Axis.AxLabels()) {
    const std::string& Text = Label->Caption();
    const std::size_t Point = std::min(Text.find('.'), Text.size() - 1);
    const double LastDigit = std::pow(10, static_cast<double>(Point) - static_cast<double>(Text.size() - 1));
    EXPECT_NEAR(StrToFloat(Text) * Unit, Axis.WorldToNumber(Axis.GetHorizontal() ? Label->X : Label->Y),
                (0.5 * LastDigit + 1e-15) * Unit + 1e-3 * std::fabs(Axis.NormalizeConst()));
    EXPECT_FALSE(Text.front() == '-' && StrToFloat(Text) == 0) << Text;
  }
}

TEST(ZyAxisTicksTest, WhatHoldsOfEveryAxis) {
  std::mt19937_64 Random(20);
  for (int Index = 0; Index < 2000; ++Index) {
    TRandomAxis Sample(Random);
    TZyAxis& Axis = Sample.Axis;
    SCOPED_TRACE(::testing::Message() << Index << ": kind " << static_cast<int>(Axis.Scaling()) << ", " << Axis.Start()
                                      << " to " << Axis.Stop() << " on " << Axis.AxLength());
    // Ticks go one way, stand inside, and are no more than pixels. Only ends that are not rounded may leave none.
    const std::vector<float> Ticks = PlacesOf(Axis);
    EXPECT_TRUE(!Ticks.empty() || Axis.EndRounding() == TZyAxisEndRounding::RndNothing);
    EXPECT_LE(static_cast<float>(Ticks.size()), 1.12f * Axis.AxLength() + 2);
    const float Low = Axis.GetHorizontal() ? Axis.AxLeft() : Axis.AxTop();
    for (std::size_t i = 0; i < Ticks.size(); ++i) {
      EXPECT_TRUE(Ticks[i] > Low - 1.01f && Ticks[i] < Low + Axis.AxLength() + 1.01f) << Ticks[i];
      EXPECT_TRUE(i < 2 || (Ticks[i] > Ticks[i - 1]) == (Ticks[1] > Ticks[0]));
    }
    if (Axis.Scaling() == Normal) ExpectReadableLabels(Axis);
    // Laid out again, nothing moves.
    const auto State = [&Axis] { return std::tuple(Axis.Start(), Axis.Stop(), PlacesOf(Axis), Axis.LabelTexts()); };
    const auto Before = State();
    Axis.Modified();
    Sample.Chart.Graph->Calculate();
    EXPECT_EQ(State(), Before);
  }
}

}  // namespace
}  // namespace zy::testing
