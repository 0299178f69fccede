#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>
#include <random>
#include <set>
#include <stdexcept>

#include "controls/ControlSamples.h"
#include "framework/SampleComponent.h"
#include "pie/PieSample.h"
#include "pie/ZyPieFaces.h"
#include "platform/data/TDataSource.h"
#include "platform/drawing/TBitmap.h"
#include "platform/sql/TSqlDataSet.h"
#include "series/vectors/ZyIndexer.h"
#include "texts/Exceptions.h"
#include "undo/RandomSetters.h"

namespace zy::testing {
namespace {

using enum TZyPieChartType;

// --- Segments -------------------------------------------------------------------------------------------------------

TEST(ZyPieChart, MakesSegmentsOfValuesAboveZero) {
  constexpr double NaN = std::numeric_limits<double>::quiet_NaN(), Infinity = std::numeric_limits<double>::infinity();
  struct TRow {
    std::vector<double> Values;
    std::vector<float> Sweeps;
  };
  const TRow Rows[] = {{{10, 20, 0, -5}, {144, 288}},  // the total is 25
                       {{1, 3}, {90, 270}},
                       {{5}, {360}},
                       {{NaN, 1, Infinity, 1, -Infinity}, {180, 180}},
                       {{}, {}},
                       {{0, 0}, {}},
                       {{-1, -2}, {}},
                       {{5, -5}, {}},
                       {{5, -9}, {}},
                       {{NaN}, {}},
                       {{1e308, 1e308}, {}}};
  for (const TRow& Row : Rows) {
    TPieSample Sample(Row.Values);
    EXPECT_EQ(Sample.Sweeps(), Row.Sweeps) << ::testing::PrintToString(Row.Values);
    for (const TZyPieChartType Type : {FlatPie, FlatDonut, ThreeDPie, ThreeDDonut}) {
      Sample.Chart->SetPieChartType(Type);
      Sample.Chart->SetLabelPosition(TZyPieLabelPosition::Callouts);
      const auto Empty = TSampleChart::CallsOf([&](Graphics& Gr) { Sample.Chart->PaintGr(Gr); });
      const bool HasRing = std::ranges::any_of(Empty, [](auto& Call) { return Call.starts_with("DrawEllipse"); });
      EXPECT_EQ(HasRing, Row.Sweeps.empty());
    }
  }
}

TEST(ZyPieChart, TakesOutliersTransformationsOrderAndAnyVector) {
  TPieSample Sample({1, 3, 4});
  Sample.Values->AddOutlier(2);
  EXPECT_EQ(Sample.Sweeps(), (std::vector<float>{90, 270}));
  Sample.Chart->SetOutliersVisible(true);
  EXPECT_EQ(Sample.Sweeps(), (std::vector<float>{45, 135, 180}));
  Sample.Chart->SetValueTransformation([](TObject*, const TZyTransformEventArgs& e) { return 4 / e.Value; });
  EXPECT_NEAR(Sample.Sweeps()[0], 360 * 4 / (4 + 4.0 / 3 + 1), 1e-3);
  Sample.Chart->SetOrderAscending(true);
  Sample.Chart->BringUpToDate();
  EXPECT_EQ(Sample.Chart->GetLegendItemIndex(0), 2);
  EXPECT_THROW(Sample.Chart->GetLegendItemIndex(3), ERangeError);
  Sample.Chart->SetValueTransformation(nullptr);
  TZyIndexer Indexer;
  Indexer.SetRefVector(Sample.Values);
  Sample.Chart->SetValues(&Indexer);  // 0, 1, 2
  EXPECT_EQ(Sample.Sweeps(), (std::vector<float>{120, 240}));
  Sample.Chart->SetValues(nullptr);
  EXPECT_TRUE(Sample.Sweeps().empty());
}

TEST(ZyPieChart, ShowsNoChangeUntilItIsToldWithoutAutoUpdate) {
  TPieSample Sample({1, 3});
  Sample.Sweeps();
  Sample.Chart->SetAutoUpdate(false);
  Sample.Values->Add(4);
  EXPECT_EQ(Sample.Sweeps().size(), 2U);
  auto& Legend = Sample.AddLegend("Legend");
  Sample.Chart->Calculate();
  EXPECT_EQ(Sample.Sweeps().size(), 3U);
  Sample.Values->Add(1);
  Sample.Chart->Calculate();
  EXPECT_EQ(Legend.AccessibleItems().size(), 4U);
  Sample.Values->Delete(3);
  Sample.Chart->Calculate();
  Sample.Chart->SetAutoUpdate(true);
  Sample.Chart->BeginUpdate();
  Sample.Values->Add(4);
  EXPECT_EQ(Sample.Sweeps().size(), 3U);
  Sample.Chart->EndUpdate();
  EXPECT_EQ(Sample.Sweeps().size(), 4U);
}

TEST(ZyPieChart, TellsCaptions) {
  TPieSample Sample({10, 20, 12, 35});  // 77 in all
  const std::tuple<int, TZyLabelStyle, const char*, const char*> Rows[] = {
      {1, TZyLabelStyle::Value, "", "20"},
      {1, TZyLabelStyle::Value, "0.0 kWh", "20.0 kWh"},
      {1, TZyLabelStyle::CaptionsList, "0.0", "two"},
      {1, TZyLabelStyle::Percent, "", "25.97%"},
      {1, TZyLabelStyle::Percent, "0", "26%"},
      {1, TZyLabelStyle::Percent, "% 0", "% 26"},
      {3, TZyLabelStyle::CaptionAndValue, "", "four 35"},
      {3, TZyLabelStyle::CaptionAndPercent, "0.0", "four 45.5%"},
      {9, TZyLabelStyle::CaptionsList, "", ""}};
  for (const auto& [Idx, Style, Format, Text] : Rows)
    EXPECT_EQ(Sample.Chart->GetSegmentCaption(Idx, Style, Format), Text);
  Sample.Chart->SetOnGetLabel([](TObject*, TZyGetLabelEventArgs& e) { e.Caption += std::to_string(e.Index); });
  EXPECT_EQ(Sample.Chart->GetSegmentCaption(2, TZyLabelStyle::CaptionsList, ""), "three2");
  TSqlDataSet Query;
  TDataSource Source;
  Source.SetDataSet(&Query);
  Query.SetQuery("SELECT 'a' AS t UNION ALL SELECT NULL UNION ALL SELECT 'c'");
  Query.Open();
  Sample.Chart->SetOnGetLabel(nullptr);
  Sample.Chart->SetDataSource(&Source);
  Sample.Chart->SetCaptionsField("t");
  Sample.Chart->BringUpToDate();
  EXPECT_EQ(Sample.Chart->GetSegmentCaption(2, TZyLabelStyle::CaptionsList, ""), "c");
  TStringList Own;
  EXPECT_THROW(Sample.Chart->SetCaptions(&Own), Exception);
}

// --- Properties -----------------------------------------------------------------------------------------------------

TEST(ZyPieChart, BringsValuesIntoTheirLimitsBeforeItComparesThem) {
  TPieSample Sample;
  const std::tuple<const char*, double, float> Rows[] = {
      {"StartAngle", -90, 270},      {"StartAngle", 720, 0},      {"TotalAngle", 400, 40},
      {"TotalAngle", 365, 10},       {"TotalAngle", 4, 10},       {"TotalAngle", -180, 180},
      {"ThreeDElevation", 5, 10},    {"ThreeDElevation", 99, 80}, {"ThreeDPieHeight", 0, 0.001f},
      {"ThreeDPieHeight", 101, 100}, {"DonutHoleSize", 0, 1},     {"DonutHoleSize", 100, 99}};
  for (const auto& [Name, Value, Stored] : Rows) {
    const TPropInfo& Row = FindPropInfo(*Sample.Chart, Name);
    Row.SetFloat(*Sample.Chart, Value);
    EXPECT_EQ(static_cast<float>(Row.GetFloat(*Sample.Chart)), Stored) << Name << ' ' << Value;
    const int Steps = Sample.Stack.UndoCount();
    Row.SetFloat(*Sample.Chart, Value);
    EXPECT_EQ(Sample.Stack.UndoCount(), Steps) << Name << ' ' << Value;
  }
}

// Each property of the chart, its settings, its palette and a legend, set to something and undone.
TEST(ZyPieChart, UndoesEveryProperty) {
  TPieSample Sample;
  auto& Legend = Sample.AddLegend("Legend");
  Sample.Chart->SetLabelPosition(TZyPieLabelPosition::Callouts);
  Sample.Chart->SetExplodePercent(Sample.Out);
  Sample.Paint();
  std::vector<TPersistent*> Objects;
  for (TPersistent* Object : std::initializer_list<TPersistent*>{Sample.Chart, &Legend, &Sample.Palette->Items(2)})
    Collect(*Object, Objects);
  std::mt19937 Random(5);
  Sample.Stack.Clear();
  int Set = 0;
  for (TPersistent* Object : Objects)
    for (const TPropInfo* Info : Object->ClassInfo().Properties()) {
      if (!IsUndone(*Info)) continue;
      Sample.Paint();
      const std::string Before = BytesOf(Sample.Form);
      for (int Times = 0; Times < 4; ++Times) Set += SetAtRandom(*Object, *Info, Sample.Form, Random) ? 1 : 0;
      Sample.Paint();
      const std::string After = BytesOf(Sample.Form);
      const int Steps = Sample.Stack.UndoCount();
      while (Sample.Stack.CanUndo()) Sample.Stack.Undo();
      Sample.Paint();
      ASSERT_EQ(BytesOf(Sample.Form), Before) << Object->ClassName() << '.' << Info->Name;
      for (int Left = Steps; Left > 0; --Left) Sample.Stack.Redo();
      Sample.Paint();
      ASSERT_EQ(BytesOf(Sample.Form), After) << Object->ClassName() << '.' << Info->Name;
      while (Sample.Stack.CanUndo()) Sample.Stack.Undo();
      Sample.Stack.Clear();
    }
  EXPECT_GT(Set, 300);
}

TEST(ZyPieChart, ScalesLabelsByTheFontThatAUserSets) {
  TPieSample Sample;
  TZyPieChart& Chart = *Sample.Chart;
  Chart.SetLabelPosition(TZyPieLabelPosition::InsideHorizontal);
  for (int Times = 0; Times < 3; ++Times) {
    Sample.Paint();
    EXPECT_EQ(Chart.LabelSize(), 3.5f);
    EXPECT_FALSE(Chart.NeedsRecalculate());
    EXPECT_NEAR(Chart.Font().Size(), 0.035f * Chart.Layout()->PieRect().Width, 1e-3f);
  }
  TZyFont Other;
  Other.SetSize(20);
  Sample.Stack.Clear();
  Chart.SetFont(Other);
  EXPECT_EQ(Chart.LabelSize(), 7);
  Sample.Paint();
  Chart.Font().SetName("Times New Roman");  // another family alone scales nothing
  EXPECT_EQ(Chart.LabelSize(), 7);
  Sample.Stack.Undo();
  EXPECT_EQ(Chart.LabelSize(), 3.5f);
  Chart.SetParentFont(true);
  Sample.Form.ControlFont().SetSize(30);
  EXPECT_EQ(Chart.LabelSize(), 3.5f);
}

TEST(ZyPieChart, StaysWholeWhenHandlersThrow) {
  TPieSample Sample;
  TZyPieChart& Chart = *Sample.Chart;
  Chart.SetLabelPosition(TZyPieLabelPosition::Callouts);
  Sample.AddLegend("Legend");
  Sample.Paint();
  const auto Fail = [](auto&&...) -> void { throw std::runtime_error("no"); };
  Chart.SetOnGetLabel(Fail);
  EXPECT_THROW(Sample.Paint(), std::runtime_error);
  Chart.SetOnGetLabel(nullptr);
  const Bitmap Whole = Sample.Paint();
  Chart.SetOnGetBrush(Fail);  // a paint goes on with the palette's fills
  const Bitmap Same = Sample.Paint();
  for (int X = 0; X < Same.GetWidth(); ++X) ASSERT_EQ(Same.GetPixel(X, 150), Whole.GetPixel(X, 150)) << X;
  Chart.SetOnGetBrush(nullptr);
  Chart.SetExplodePercentTransformation([](auto&&...) -> double { throw std::runtime_error("no"); });
  EXPECT_THROW(Sample.Paint(), std::runtime_error);
  Chart.SetExplodePercentTransformation(nullptr);
  Chart.SetLabelSize(5);
  EXPECT_TRUE(Chart.NeedsRecalculate());
  Sample.Paint();
  EXPECT_FALSE(Chart.NeedsRecalculate());
  EXPECT_EQ(Chart.Labels().Count(), 4);
}

TEST(ZyPieChart, StaysWholeWhenHandlersFreeWhatItReads) {
  TPieSample Sample(std::vector<double>(1000, 1));
  TZyPieChart& Chart = *Sample.Chart;
  Chart.SetLabelPosition(TZyPieLabelPosition::Callouts);
  TZyPieLegend* Legend = &Sample.AddLegend("First");
  auto& Left = Sample.AddLegend("Second");
  Chart.SetValueTransformation([&](TObject*, const TZyTransformEventArgs& e) {
    if (e.Index == 7) Sample.Values->Clear();
    return e.Value;
  });
  Sample.Paint();
  EXPECT_EQ(Chart.TotalSum(), 1000);
  Chart.SetValueTransformation(nullptr);
  Sample.Values->AddRange(std::vector<double>(5, 1));
  Chart.SetOnGetLabel([&](TObject*, TZyGetLabelEventArgs&) {
    if (!Chart.Labels().Count()) return;
    delete std::exchange(Legend, nullptr);
  });
  Left.SetOnGetLegendItemCaption([&](TObject*, TZyLegendItemCaptionEventArgs&) { Left.SetPieChart(nullptr); });
  Sample.Paint();
  EXPECT_EQ(Chart.GetCount(), 5);
  EXPECT_TRUE(Chart.RelatedLegends().empty());
}

// The cut of the segment behind reaches beyond the rim of the one before it, whose walls hide it.
TEST(ZyPieChart, KeepsCutsOnTheFarSideBehindWalls) {
  TPieSample Sample({10, 17}, 220, 170);
  Sample.Chart->SetPieChartType(ThreeDDonut);
  Sample.Chart->SetStartAngle(180);
  Sample.Chart->SetThreeDPieHeight(40);
  Sample.Chart->SetThreeDElevation(35);
  Sample.Out->Add(25);
  Sample.Chart->SetExplodePercent(Sample.Out);
  Sample.Paint();
  EXPECT_EQ(Sample.Chart->SegmentAt(132, 46), 1);
}

// --- Painting -------------------------------------------------------------------------------------------------------

// By hand: a cut faces the viewer at a start between 90 and 270 and at a stop below 90 or above 270; the outer wall is
// seen from 0 to 180, the far wall of the hole from 180 to 360.
TEST(ZyPieFaces, ShowWhatFacesTheViewer) {
  using TArcs = std::vector<std::pair<float, float>>;
  struct TRow {
    float Start, Sweep;
    std::vector<float> Cuts, CutsBeforeHole;
    TArcs Outer, Inner;
  };
  const TRow Rows[] = {{0, 360, {0}, {0}, {{0, 180}}, {{180, 180}}},
                       {10, 50, {60}, {60}, {{10, 50}}, {}},
                       {90, 180, {}, {}, {{90, 90}}, {{180, 90}}},
                       {100, 20, {100}, {100}, {{100, 20}}, {}},
                       {200, 50, {200}, {}, {}, {{200, 50}}},
                       {300, 120, {60}, {60}, {{360, 60}}, {{300, 60}}},
                       {170, 300, {170}, {170}, {{360, 110}, {170, 10}}, {{180, 180}}},
                       {350, 300, {290}, {}, {{360, 180}}, {{350, 10}, {180, 110}}},
                       {-60, 45, {345}, {}, {}, {{300, 45}}}};
  for (const TRow& Row : Rows) {
    const TZyPieFaces Faces({0, 0, 200, 100}, RectF{50, 25, 100, 50}, 10, Row.Start, Row.Sweep);
    const auto Listed = [](const std::vector<TZyPieArc>& Arcs) {
      TArcs Result;
      for (const TZyPieArc& Arc : Arcs) Result.emplace_back(Arc.Start, Arc.Sweep);
      return Result;
    };
    SCOPED_TRACE(Row.Start);
    EXPECT_EQ(Faces.Cuts(), Row.Cuts);
    EXPECT_EQ(Faces.CutsBeforeHole(), Row.CutsBeforeHole);
    EXPECT_EQ(Listed(Faces.OuterArcs()), Row.Outer);
    EXPECT_EQ(Listed(Faces.InnerArcs()), Row.Inner);
  }
  // The place that is seen at 45 degrees, not the one at 45 degrees of a circle.
  const PointF Place = TZyPieFaces::OnRim({0, 0, 200, 100}, 45);
  EXPECT_NEAR(Place.X - 100, Place.Y - 50, 1e-3f);
}

TEST(ZyPieChart, AsksForPensAndBrushesOncePerPass) {
  for (const auto& [Type, Passes] : {std::pair{FlatPie, 1}, {FlatDonut, 1}, {ThreeDPie, 3}, {ThreeDDonut, 4}}) {
    TPieSample Sample({1, 3});
    std::vector<int> Asked(2);
    Sample.Chart->SetPieChartType(Type);
    Sample.Chart->SetOnGetBrush([&](TObject*, TZyBrushEventArgs& e) {
      ++Asked[static_cast<std::size_t>(e.Index)];
      EXPECT_EQ(std::pair(e.X, e.Y), e.Index == 0 ? std::pair(1.0, 90.0) : std::pair(3.0, 270.0));
    });
    Sample.Paint();
    EXPECT_EQ(Asked, std::vector<int>(2, Passes));
  }
  TPieSample Sample({1, 3});
  Sample.Chart->SetDropShadow(false);
  Sample.Chart->SegmentBorder().SetVisible(false);
  Sample.Chart->SetOnGetPen([](TObject*, TZyPenEventArgs& e) { e.Y = 10 * (e.Index + 1); });
  TRecordingGraphics Canvas;
  Sample.Chart->PaintGr(Canvas);
  ASSERT_EQ(Canvas.CallsOf("FillPie").size(), 2U);
  EXPECT_TRUE(Canvas.Calls()[Canvas.CallsOf("FillPie")[1]].ends_with(", 90 20)"));
}

/// What changes in the picture when one segment gets another colour is what is hit as this segment.
TEST(ZyPieChart, HitsWhatIsSeen) {
  for (const TZyPieChartType Type : {FlatPie, FlatDonut, ThreeDPie, ThreeDDonut})
    for (const bool IsExploded : {false, true}) {
      TPieSample Sample({10, 20, 12, 35, 8}, 300, 220);
      TZyPieChart& Chart = *Sample.Chart;
      Chart.SetPieChartType(Type);
      Chart.SetThreeDPieHeight(25);
      Chart.SetStartAngle(130);
      Chart.SetDropShadow(false);
      if (IsExploded) Sample.Out->AddRange({0, 30, 0, 20}), Chart.SetExplodePercent(Sample.Out);
      int Chosen = -1;
      const SolidBrush Plain(Colors::Gray), Other(Colors::Red);
      Chart.SetOnGetBrush([&](TObject*, TZyBrushEventArgs& e) { e.Brush = e.Index == Chosen ? &Other : &Plain; });
      const Bitmap Before = Sample.Paint();
      int Hits = 0, Misses = 0;
      for (Chosen = 0; Chosen < Chart.GetCount(); ++Chosen) {
        const Bitmap After = Sample.Paint();
        for (int Y = 2; Y < 218; Y += 7)
          for (int X = 2; X < 298; X += 5) {
            const auto At = [&](int Dx, int Dy) {
              return Chart.SegmentAt(static_cast<float>(X + Dx), static_cast<float>(Y + Dy));
            };
            const int Here = At(0, 0);
            if (At(2, 0) != Here || At(-2, 0) != Here || At(0, 2) != Here || At(0, -2) != Here) continue;  // an edge
            const bool Changes = Distance(Before.GetPixel(X, Y), After.GetPixel(X, Y)) > 8;
            Hits += Here == Chosen ? 1 : 0;
            Misses += Changes != (Here == Chosen) ? 1 : 0;
          }
      }
      EXPECT_GT(Hits, 100);
      EXPECT_LE(Misses, Hits / 50) << static_cast<int>(Type) << IsExploded;  // glass may hide a colour
    }
}

TEST(ZyPieChart, PaintsAtAnySize) {
  for (const TZyPieChartType Type : {FlatPie, ThreeDDonut})
    for (int Extent = 0; Extent <= 60; Extent += 3) {
      TPieSample Sample({1, 2, 3}, Extent, Extent);
      Sample.Chart->SetPieChartType(Type);
      Sample.Chart->SetLabelPosition(TZyPieLabelPosition::Callouts);
      Sample.AddLegend("Legend");
      EXPECT_NO_THROW(Sample.Paint()) << Extent;
      EXPECT_GE(Sample.Chart->Layout()->PieRect().Width, 0) << Extent;
    }
}

TEST(ZyPieChart, ManyCalloutsCostNoSquares) {
  const auto QuickestOf = [](int Count) {  // of processor time, so that a busy machine is not to blame
    std::clock_t Result = std::numeric_limits<std::clock_t>::max();
    for (int Times = 0; Times < 5; ++Times) {
      TPieSample Sample(std::vector<double>(static_cast<std::size_t>(Count), 1.0));
      Sample.Chart->SetLabelPosition(TZyPieLabelPosition::Callouts);
      const std::clock_t Start = std::clock();
      Sample.Chart->Calculate();
      Result = std::min(Result, std::clock() - Start);
    }
    return static_cast<double>(Result) / CLOCKS_PER_SEC;
  };
  EXPECT_LT(QuickestOf(8000), 32 * QuickestOf(1000) + 0.05);  // squares would be 64
}

// --- Palette --------------------------------------------------------------------------------------------------------

TEST(ZyFillPalette, HoldsFillsOfItsOwn) {
  TPieSample Sample;
  TZyFillPalette& Palette = *Sample.Palette;
  TZyFillSettings Fill;
  Fill.SetForeColor(Colors::Red);
  Fill.SetAreaStyle(TZyAreaStyle::Cross);
  Palette.SetItems(1, Fill);
  Palette.Insert(0, Fill);
  Palette.Move(0, 8);
  EXPECT_EQ(Palette.Items(8).ForeColor(), Colors::Red);
  EXPECT_EQ(Palette.Items(1).AreaStyle(), TZyAreaStyle::Cross);
  EXPECT_EQ(&Sample.Chart->PaletteItem(10), &Palette.Items(1));
  EXPECT_THROW(Palette.Items(9), ERangeError);
  EXPECT_THROW(Palette.SetItems(9, Fill), ERangeError);
  Palette.Items(0).SetForeColor(Colors::Green);
  EXPECT_TRUE(Sample.Stack.CanUndo());
  Palette.Delete(99);
  EXPECT_TRUE(Sample.Stack.CanUndo());
  Palette.Delete(0);
  EXPECT_FALSE(Sample.Stack.CanUndo());
  TZyFillPalette Copy;
  Copy.Assign(&Palette);
  EXPECT_EQ(Copy.Count(), 8);
  EXPECT_EQ(Copy.Items(0).AreaStyle(), TZyAreaStyle::Cross);
  TZyFillPalette Read;
  ReadBack(Palette, Read);
  ASSERT_EQ(Read.Count(), 8);
  for (int i = 0; i < 8; ++i) EXPECT_EQ(Read.Items(i).ForeColor(), Palette.Items(i).ForeColor());
}

TEST(ZyFillPalette, StepsOfItsFillsHoldWhenItComesBack) {
  TPieSample Sample;
  const std::pair Before(Sample.Palette->Items(2).ForeColor(), Sample.Palette->Items(2).BackColor());
  Sample.Palette->Items(2).SetForeColor(Colors::Blue);
  Sample.Palette->Items(2).SetBackColor(Colors::Red);
  Sample.Stack.PushComponent(Sample.Palette, "gone");
  delete Sample.Palette;
  Sample.Stack.Undo(Sample.Stack.UndoCount() - 1);
  ASSERT_NE(Sample.Chart->SegmentSettingsPalette(), nullptr);
  const TZyFillSettings& Fill = Sample.Chart->SegmentSettingsPalette()->Items(2);
  EXPECT_EQ(std::pair(Fill.ForeColor(), Fill.BackColor()), Before);
  Sample.Stack.Redo(1);
  EXPECT_EQ(std::pair(Fill.ForeColor(), Fill.BackColor()), std::pair(Colors::Blue, Colors::Red));
}

TEST(ZyPieChart, GetsAPaletteAndDataFromTheDesigner) {
  TForm Form;
  Form.SetDesigning(true);
  auto& Chart = *new TZyPieChart(&Form);
  Chart.SetDesigning(true);
  Chart.SetParent(&Form);
  Chart.SetName("Pie");
  ASSERT_NE(Chart.SegmentSettingsPalette(), nullptr);
  EXPECT_EQ(Chart.SegmentSettingsPalette()->Items(5).ForeColor(), Colors::Coral);
  ASSERT_NE(Chart.Values(), nullptr);
  EXPECT_EQ(Chart.Values()->Sum(), 133);
  Chart.SetBounds(0, 0, 300, 300);
  const std::tuple<int, int, TZyPieLegendPosition> Places[] = {{0, 0, TZyPieLegendPosition::LeftTop},
                                                               {110, 50, TZyPieLegendPosition::CenterTop},
                                                               {160, 150, TZyPieLegendPosition::RightCenter},
                                                               {140, 150, TZyPieLegendPosition::LeftCenter},
                                                               {250, 250, TZyPieLegendPosition::RightBottom}};
  for (const auto& [Left, Top, Position] : Places) {
    auto& Legend = *new TZyPieLegend(&Form);
    Legend.SetDesigning(true);
    Legend.SetBounds(Left, Top, 10, 10);
    Legend.SetParent(&Chart);
    EXPECT_EQ(Legend.Position(), Position);
    EXPECT_EQ(Legend.PieChart(), &Chart);
  }
}

// --- Legend ---------------------------------------------------------------------------------------------------------

TEST(ZyPieLegend, TakesRoomBesideThePieAndGivesItBack) {
  TPieSample Sample;
  TZyPieChart& Chart = *Sample.Chart;
  const auto Space = [&] {
    Chart.BringUpToDate();
    return Chart.PieExplodedRect();
  };
  const RectF Whole = Space();
  auto& First = Sample.AddLegend("First");
  auto& Second = Sample.AddLegend("Second");
  const float Left = Space().Width;
  EXPECT_EQ(Left, Whole.Width - static_cast<float>(First.Width() + Second.Width()) - 16);
  EXPECT_GT(First.Width(), 32);
  EXPECT_EQ(First.Left() + First.Width(), 400);
  EXPECT_EQ(Second.Left() + Second.Width(), First.Left() - 8);
  Second.SetVisible(false);
  First.SetPosition(TZyPieLegendPosition::CenterBottom);
  EXPECT_EQ(First.ItemsOrder(), TZyItemsOrder::ByRow);
  EXPECT_EQ(Space().Width, Whole.Width);
  EXPECT_EQ(static_cast<float>(First.Top()), Whole.Height + 1 - static_cast<float>(First.Height()));
  EXPECT_EQ(Space().Height, Whole.Height - static_cast<float>(First.Height()) - 8);
  First.SetParent(&Sample.Form);
  EXPECT_EQ(Space(), Whole);
  delete &Second;
  EXPECT_EQ(Space(), Whole);
}

TEST(ZyPieLegend, ListsTheSegmentsInTheirOrder) {
  TPieSample Sample;
  auto& Elsewhere = Sample.AddLegend("Elsewhere", &Sample.Form);
  const auto Items = [&] {
    Elsewhere.PreparePaint();
    return Elsewhere.AccessibleItems();
  };
  EXPECT_EQ(Items(), (std::vector<std::string>{"one", "two", "three", "four"}));
  Sample.Chart->SetOrderAscending(true);
  EXPECT_EQ(Items(), (std::vector<std::string>{"one", "three", "two", "four"}));
  Elsewhere.SetLabelsFrom(TZyLabelStyle::Percent);
  Elsewhere.SetLabelFormat("0");
  EXPECT_EQ(Items().back(), "45%");
  Elsewhere.SetOnGetLegendItemCaption([](TObject*, TZyLegendItemCaptionEventArgs& e) { e.Caption = "<" + e.Caption; });
  Sample.Values->SetValue(3, 0);
  EXPECT_EQ(Items(), (std::vector<std::string>{"<24%", "<29%", "<48%"}));
  Sample.Chart->SetValues(nullptr);
  EXPECT_TRUE(Items().empty());
  delete Sample.Chart;
  EXPECT_EQ(Elsewhere.PieChart(), nullptr);
  EXPECT_TRUE(Items().empty());
}

TEST(ZyPieLegend, StandsInThePicturesOfItsChart) {
  TPieSample Sample;
  Sample.Palette->Items(0).SetForeColor(0xFF123456);
  Sample.Chart->SetOnGetBrush(
      [White = SolidBrush(Colors::White)](TObject*, TZyBrushEventArgs& e) { e.Brush = &White; });
  auto& Legend = Sample.AddLegend("Legend");
  const Bitmap Picture = PictureOf(400, 300, [&](Graphics& Gr) { Sample.Chart->PaintToImage(Gr); });
  const TRect Swatch = BoxOf(Picture, 0xFF123456);
  EXPECT_GE(Swatch.Left, Legend.Left());
  EXPECT_EQ(Swatch.Right - Swatch.Left, 20 - 3);  // within the outline
  const auto Copy = Sample.Chart->AsTBitmap(0xFFFFFF);
  EXPECT_EQ(std::pair(Copy->Width(), Copy->Height()), std::pair(400, 300));
}

// --- Users ----------------------------------------------------------------------------------------------------------

TEST(ZyPieChart, MovesASegmentOutAndBackByClickAndKey) {
  TPieSample Sample({1, 1, 1, 1});
  TZyPieChart& Chart = *Sample.Chart;
  Sample.Paint();
  const std::string Before = BytesOf(Sample.Form);
  const RectF Pie = Chart.Layout()->PieRect();
  const int X = static_cast<int>(Pie.X + Pie.Width * 0.7f), Y = static_cast<int>(Pie.Y + Pie.Height * 0.7f);
  ASSERT_EQ(Chart.SegmentAt(static_cast<float>(X), static_cast<float>(Y)), 0);
  const auto Click = [&](int UpX) {
    Chart.MouseDown(mbLeft, {ssLeft}, X, Y);
    Chart.MouseUp(mbLeft, {}, UpX, Y);
    Sample.Paint();
  };
  Click(X);
  EXPECT_FALSE(Chart.Layout()->AnyExploded());
  Chart.SetExplodeOnClick(true);
  Click(1);
  EXPECT_FALSE(Chart.Layout()->AnyExploded());
  Click(X);
  EXPECT_EQ(Chart.Layout()->Segments()[0].Explosion, 10);
  Click(X);
  EXPECT_FALSE(Chart.Layout()->AnyExploded());
  Chart.SetTabStop(true);
  const auto Press = [&](TKey Key) { Chart.KeyDown(Key, {}), Sample.Paint(); };
  for (const TKey Key : {vkLeft, vkLeft, vkSpace}) Press(Key);
  EXPECT_EQ(Chart.ActiveSegment(), 2);
  EXPECT_EQ(Chart.Layout()->Segments()[2].Explosion, 10);
  Chart.SetTabStop(false);
  while (Sample.Stack.CanUndo()) Sample.Stack.Undo();
  Sample.Paint();
  EXPECT_EQ(BytesOf(Sample.Form), Before);
  while (Sample.Stack.CanRedo()) Sample.Stack.Redo();
  Sample.Paint();
  EXPECT_EQ(Chart.Layout()->Segments()[2].Explosion, 10);
}

TEST(ZyPieChart, NamesItsSegments) {
  TPieSample Sample({1, 3});
  Sample.Chart->Captions()->SetText("\\bone\\b\n");
  Sample.Chart->SetHint("all");
  Sample.Paint();
  EXPECT_EQ(Sample.Chart->AccessibleItems(), (std::vector<std::string>{"one: 1 (25%)", "3 (75%)"}));
  EXPECT_EQ(Sample.Chart->HintAt({1, 1}), "all");
  const RectF Pie = Sample.Chart->Layout()->PieRect();
  EXPECT_EQ(Sample.Chart->HintAt({static_cast<int>(Pie.X + Pie.Width / 4), static_cast<int>(Pie.Y + Pie.Height / 2)}),
            "3 (75%)");
}

}  // namespace
}  // namespace zy::testing
