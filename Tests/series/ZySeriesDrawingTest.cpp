// What a series makes of its data beyond a plain line: gaps, areas, bands, symbols, events, hits, legend items,
// markers.

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <random>

#include "graph/SampleChart.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/drawing/ZyRaster.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyFunctionSeries.h"
#include "series/ZyPointSeries.h"

namespace zy::testing {
namespace {

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

/// A chart with a data area from (50, 50) of 500 by 250 pixels between its edges, and axes from 0 to 10.
class ZySeriesDrawingTest : public ::testing::Test {
 protected:
  ZySeriesDrawingTest() { Chart.UseTenAxes(); }
  template <class TSeries = TZyPointSeries>
  TSeries& Add(const std::vector<double>& X, const std::vector<double>& Y) {
    return *Chart.AddSeries<TSeries>("S" + std::to_string(++Added), X, Y);
  }
  /// A line over the index.
  TZyLineSeries& AddLine(const std::vector<double>& Y) {
    auto& Line = Add<TZyLineSeries>({}, Y);
    Line.SetXData(nullptr);
    return Line;
  }
  std::vector<int> IndexesOf(const TZySeries& Series) {
    Chart.Paint();
    return {Series.PointIndex().begin(), Series.PointIndex().end()};
  }

  TSampleChart Chart;
  int Added = 0;
};

TEST_F(ZySeriesDrawingTest, PointsWithoutValuesAreLeftOut) {
  auto& Line = Add<TZyLineSeries>({0, 1, 2, NotANumber, Infinity, 5}, {1, 9, 2, NotANumber, Infinity, 3});
  Line.YData()->AddOutlier(1);
  EXPECT_EQ(IndexesOf(Line), (std::vector<int>{0, 2, 5}));
  EXPECT_EQ(std::tuple(Line.XStart(), Line.XStop(), Line.YStart(), Line.YStop()), std::tuple(0, 5, 1, 3));
  Line.SetOutliersVisible(true);
  EXPECT_EQ(IndexesOf(Line), (std::vector<int>{0, 1, 2, 5}));
  EXPECT_EQ(Line.YStop(), 9);
  Line.SetOutliersVisible(false);
  for (const int End : {0, 5}) Line.XData()->AddOutlier(End);
  EXPECT_EQ(IndexesOf(Line), std::vector<int>{2}) << "one point, and no line";
  Line.XData()->AddOutlier(2);
  EXPECT_EQ(IndexesOf(Line), std::vector<int>{});
  EXPECT_EQ(Line.FindPoint(50, 50), -1);

  auto& Other = Add<TZyLineSeries>({0, NotANumber, 2, 3, 4, 5}, {1, 9, 2, 8, 3, 7});
  Other.Calculate();
  EXPECT_EQ(Other.YStop(), 8) << "what has no X is no point";
  for (const int Gap : {0, 3, 5}) {
    Other.SetYValueTransformation(
        [Gap](TObject*, const TZyTransformEventArgs& e) { return e.Index == Gap ? NotANumber : e.Value; });
    std::vector<int> Left{0, 2, 3, 4, 5};
    std::erase(Left, Gap);
    EXPECT_EQ(IndexesOf(Other), Left);
  }
}

// Beside it the line through each single point, by the rasteriser's plain way for round corners.
TEST_F(ZySeriesDrawingTest, ReducedLinesLookLikeThatOfAllPoints) {
  for (const auto& [Count, Width, Ratio] :
       {std::tuple(3000, 1.0f, 2.0f), {3000, 2.0f, 1.0f}, {30000, 1.0f, 1.0f}, {30000, 2.0f, 2.0f}}) {
    SCOPED_TRACE(::testing::Message() << Count << " points, width " << Width << ", ratio " << Ratio);
    std::mt19937 Random(5);
    std::vector<double> Values;
    for (int i = 0; i < Count; ++i)
      Values.push_back(5 + 3 * std::sin(i * 9.0 / Count) + static_cast<double>(Random() % 1000) / 1000);
    TZyLineSeries& Line = AddLine(Values);
    Line.Line().SetWidth(Width);
    Line.Line().SetColor(0xFF000000);
    Chart.X->SetStop(Count - 1);
    Chart.Paint();
    Bitmap Reduced(600, 350, Ratio), Plain(600, 350, Ratio);
    for (Bitmap* Picture : {&Reduced, &Plain}) Graphics(*Picture).Clear(0xFFFFFFFF);
    {
      Graphics Canvas(Reduced);
      Canvas.SetSmoothingMode(SmoothingModeHighQuality);
      Line.PaintGr(Canvas);
    }
    std::vector<PointF> Points;
    for (int i = 0; i < Count; ++i)
      Points.push_back({(Chart.X->NumberToWorld(i) + 0.5f) * Ratio,
                        (Chart.Y->NumberToWorld(Values[static_cast<std::size_t>(i)]) + 0.5f) * Ratio});
    QImage& Image = Plain.ToQt();
    const TRasterTarget Target{reinterpret_cast<std::uint32_t*>(Image.bits()), Image.bytesPerLine() / 4, Image.width(),
                               Image.height()};
    TZyRaster(Target, {{0, 0, Image.width(), Image.height()}})
        .StrokeLines(Points, {.Width = Width * Ratio, .Join = TRasterJoin::Bevel}, TSolidPaint(0xFF000000));
    const auto InkAt = [](const Bitmap& Picture, int X, int Y) {
      return 255 - static_cast<int>(Picture.GetPixel(X, Y) & 255);
    };
    int Difference = 0, Ink = 0, Holes = 0, Spots = 0;  // where all of the neighbourhood is covered, or is not
    for (int Y = 2; Y + 2 < Image.height(); ++Y)
      for (int X = 2; X + 2 < Image.width(); ++X) {
        const int Wanted = InkAt(Plain, X, Y), Drawn = InkAt(Reduced, X, Y);
        Difference += std::abs(Drawn - Wanted);
        Ink += Wanted;
        if (Wanted == Drawn || (Wanted > 0 && Wanted < 255)) continue;
        bool IsLike = true;
        for (int i = 0; i < 25; ++i) IsLike = IsLike && InkAt(Plain, X + i % 5 - 2, Y + i / 5 - 2) == Wanted;
        if (IsLike) ++(Wanted > 0 ? Holes : Spots);
      }
    // Six points on a column are no dense line yet: the plain one hides its gaps by slanting ways.
    const bool IsDense = Count > 3000;
    EXPECT_LT(Difference, (IsDense ? 0.05 : 0.12) * Ink);
    EXPECT_LE(Holes, (IsDense ? 0.001 : 0.02) * Ink / 255);
    EXPECT_EQ(Spots, 0);
    Line.SetYData(nullptr);
  }
}

TEST_F(ZySeriesDrawingTest, AFeedIsThinnedAsIfItHadComeAtOnce) {
  auto& Series = Add({}, {3, 5, 2});
  Series.SetXData(nullptr);
  Chart.X->SetStop(50000);
  for (const bool HasSymbols : {true, false}) {
    Series.PointSymbol().SetVisible(HasSymbols);
    for (int Paint = 0; Paint < 200; ++Paint) {
      Series.YData()->Add(0);  // behind scanned values it tells nobody
      Chart.Paint();
    }
    const std::vector<int> Fed = IndexesOf(Series);
    EXPECT_LT(Fed.size(), 15u) << "six columns";
    Series.PointsModified();
    EXPECT_EQ(Fed, IndexesOf(Series));
  }
}

TEST_F(ZySeriesDrawingTest, SymbolsCountUnlessTheyLieOnTheOneBefore) {
  // 50 pixels a unit in x, 25 in y.
  auto& Points = Add({1, 1.02, 1.019, 1.06, 1.06, 1.06}, {1, 1, 1, 1, 1.04, 1.05});
  EXPECT_EQ(IndexesOf(Points), (std::vector<int>{0, 3, 5})) << "farther than one pixel from the last that is kept";
  EXPECT_EQ(Points.ExtraSpaceAt(TZyAxisPosition::Left), 7) << "(11 + 1) / 2 + 1";
  auto& Lone = Add({5}, {5});
  EXPECT_EQ(IndexesOf(Lone), std::vector<int>{0});
  EXPECT_EQ(Lone.FindPoint(305, 170), 0) << "within the size of the symbol";
}

TEST_F(ZySeriesDrawingTest, AnAreaClosesAtZeroOrAtTheAxisStart) {
  auto& Line = AddLine({2, 4});
  Line.Area().SetVisible(true);
  const std::pair<double, float> Cases[] = {{0, 300}, {-10, 175}, {1, 300}};
  for (const auto& [Start, Base] : Cases) {
    Chart.Y->SetStart(Start);
    Chart.Paint();
    ASSERT_EQ(Line.AreaPoints().size(), 4u);
    EXPECT_EQ(Line.AreaPoints()[2], (PointF{100, Base - 0.5f})) << Start;
    EXPECT_EQ(Line.AreaPoints()[3], (PointF{50, Base - 0.5f})) << Start;
  }
}

TEST_F(ZySeriesDrawingTest, WhatALogarithmicAxisHasNoPlaceForEndsAtTheDataArea) {
  auto& Line = AddLine({5, -3, 8});
  Line.Line().SetColor(0xFF123456);
  Line.Line().SetWidth(3);
  Chart.FixEnds(Chart.X, 0, 2);
  Chart.Y->SetScaling(TZyAxisScaling::Log);
  for (const bool HasArea : {false, true}) {
    Line.Area().SetVisible(HasArea);
    Line.Area().SetForeColor(0xFF123456);
    EXPECT_LE(BoxOf(Chart.Paint(), 0xFF123456).Bottom, 300) << HasArea;
  }
}

TEST_F(ZySeriesDrawingTest, ABandGoesBackAlongItsPartner) {
  auto& Upper = AddLine({8, 9, 8});
  auto& Lower = AddLine({1, 2});
  Upper.SetDrawBandTo(&Upper);
  EXPECT_EQ(Upper.DrawBandTo(), nullptr);
  Upper.SetDrawBandTo(&Lower);
  Lower.SetDrawBandTo(&Upper);  // both ways must not go round in circles
  Chart.Paint();
  EXPECT_TRUE(Upper.Area().Visible());
  ASSERT_EQ(Upper.AreaPoints().size(), 5u);
  EXPECT_EQ(Upper.AreaPoints()[3], (PointF{100, 250})) << "the partner's last point first";
  EXPECT_EQ(Upper.AreaPoints()[4], (PointF{50, 275}));
  Lower.YData()->SetValue(1, 4);
  Upper.PointsModified();
  Chart.Paint();
  EXPECT_EQ(Upper.AreaPoints()[3].Y, 200) << "stale points of the partner are computed first";
  delete &Lower;
  Chart.Paint();
  EXPECT_EQ(Upper.AreaPoints()[3].Y, 300 - 0.5f) << "the base line";
}

TEST_F(ZySeriesDrawingTest, TranslucentSymbolsStopTheLine) {
  auto& Series = Add({1, 2, 3}, {1, 2, 3});
  Series.PointSymbol().SetPointSymbol(TZyPointSymbol::Square);
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "SetClip(not "), 0);
  Series.PointSymbol().SetFillColor(0x80FF0000);
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "SetClip(not "), 1);
  Series.PointSymbol().SetVisible(false);
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "SetClip(not "), 0) << "no holes without symbols";
}

TEST_F(ZySeriesDrawingTest, EventsSeeTransformedValuesAndMayChangeTheLook) {
  auto& Series = Add({1, 2, 3}, {1, 2, 3});
  Series.Area().SetVisible(true);
  Series.SetYValueTransformation([](TObject*, const TZyTransformEventArgs& e) { return 10 - e.Value; });
  std::vector<double> Seen;
  Series.SetOnGetPen([&](TObject* Sender, TZyPenEventArgs& e) {
    EXPECT_EQ(Sender, &Series);
    Seen.push_back(e.X * 100 + e.Y);
    e.Visible = e.Index != 1;
  });
  const SolidBrush Red(Colors::Red);
  Series.SetOnGetBrush([&](TObject*, TZyBrushEventArgs& e) { e.Brush = &Red; });
  Series.SetOnGetPointSymbol([&](TObject*, PointSymbolEventArgs& e) {
    e.Visible = e.Index == 2;
    e.Symbol = TZyPointSymbol::Circle;
    e.Size = 21;
  });
  Series.PointSymbol().SetVisible(false);
  Series.Calculate();
  const auto Calls = Chart.Calls();
  EXPECT_EQ(std::pair(Series.YStart(), Series.YStop()), std::pair(7.0, 9.0));
  EXPECT_EQ(Seen, (std::vector<double>{109, 208}));
  EXPECT_EQ(Chart.CountOf(Calls, "FillPolygon(FFFF0000"), 2);
  EXPECT_EQ(Chart.CountOf(Calls, "FillPolygon(FFFF0000, 100 75, 150.5 100, 150.5 299.5, 100 299.5"), 1)
      << "half a pixel over the seam, down to half a pixel above 0";
  EXPECT_EQ(Chart.CountOf(Calls, "DrawEllipse"), 2) << "below the axes and above them";
}

TEST_F(ZySeriesDrawingTest, AGivenPenDrawsUnsmoothedLinesToo) {
  TZyLineSeries& Line = AddLine({});
  for (int i = 0; i < 101; ++i) Line.YData()->Add(i % 2);
  Chart.Graph->SetSmoothingMode(TZySmoothingMode::None);
  const TZyPen Pen(0xFFABCDEF, 4);
  Line.SetLinePen(&Pen);
  EXPECT_EQ(Chart.CountOf(Chart.Calls(), "DrawLines(pen FFABCDEF 4"), 1);
  EXPECT_TRUE(Line.CanDoCanvasDraw());
}

TEST_F(ZySeriesDrawingTest, HandlersMayFreeTheirSeries) {
  const auto Free = [](TObject* Sender, auto&) { delete Sender; };
  for (int Event = 0; Event < 3; ++Event) {
    auto& Series = Add({1, 2, 3}, {1, 2, 3});
    Series.Area().SetVisible(true);
    if (Event == 0) Series.SetOnGetPen(Free);
    if (Event == 1) Series.SetOnGetBrush(Free);
    if (Event == 2) Series.SetOnGetPointSymbol(Free);
    auto& Next = Add<TZyLineSeries>({1, 2}, {1, 2});
    Chart.Paint();
    EXPECT_EQ(Listed(Chart.Graph->RelatedSeries()), std::vector<TZySeries*>{&Next}) << Event;
    EXPECT_FALSE(Next.RecalculatePoints()) << "drawn all the same";
    delete &Next;
  }
}

TEST_F(ZySeriesDrawingTest, HandlersMayFreeTheAxis) {
  std::size_t Kinds = 1;
  for (std::size_t Kind = 0; Kind < Kinds; ++Kind)
    for (const bool OfLayout : {false, true}) {
      TSampleChart Painted;
      const auto All = Painted.AddOfEachKind("");
      Kinds = All.size();
      for (TZySeries* Each : All)
        if (auto* const Curve = dynamic_cast<TZyFunctionSeries*>(Each))  // which may lack a formula
          Curve->SetOnCalculationError([](TObject*, const std::exception&) {});
      const auto Free = [&](auto&&...) { delete std::exchange(Painted.Y, nullptr); };
      All[Kind]->Area().SetVisible(true);
      for (const TPropInfo* Info : All[Kind]->ClassInfo().Properties())
        if (Info->Kind == TPropKind::Class && Info->GetObject(*All[Kind]) == nullptr &&
            Info->ObjectClass().InheritsFrom(TZyCustomDoubleVector::StaticClassInfo()))
          Info->SetObject(*All[Kind], All[Kind]->YData());
      if (OfLayout) {
        Painted.X->SetOnCalculated(Free);
      } else {
        All[Kind]->SetOnGetPen(Free);
        All[Kind]->SetOnGetBrush(Free);
      }
      for (int Round = 0; Round < 2; ++Round) Painted.Paint();
      EXPECT_TRUE(Painted.Y != nullptr || Painted.Graph->RelatedSeries().empty());
    }
}

TEST_F(ZySeriesDrawingTest, FindsWhatAPlainSearchFinds) {
  std::mt19937 Random(4);
  for (const int Points : {300, 20000}) {
    auto& Series = Add({}, {});
    for (TZyCustomDoubleVector* Vector : {Series.XData(), Series.YData()})
      for (int i = 0; i < Points; ++i) Vector->Add(static_cast<double>(Random() % 1200) / 100 - 1);
    EXPECT_FALSE(Series.NearestX(100).Found) << "before the first paint";
    Chart.Paint();
    const auto [Left, Top, Width, Height] = Chart.Graph->DrawingArea();
    for (int Try = 0; Try < 200; ++Try) {
      const PointF From{static_cast<float>(Random() % 700) - 50, static_cast<float>(Random() % 500) - 50};
      int First = -1;
      float Nearest[3] = {1e30f, 1e30f, 1e30f};
      for (std::size_t i = 0; i < Series.Points().size(); ++i) {
        const auto [X, Y] = Series.Points()[i];
        const float Dx = std::fabs(X - From.X), Dy = std::fabs(Y - From.Y);
        if (First < 0 && Dx <= 11 && Dy <= 11) First = Series.PointIndex()[i];
        const bool InX = X >= Left && X <= Left + Width, InY = Y >= Top && Y <= Top + Height;
        if (InX && InY) Nearest[0] = std::min(Nearest[0], std::hypot(Dx, Dy));
        if (InX) Nearest[1] = std::min(Nearest[1], Dx);
        if (InY) Nearest[2] = std::min(Nearest[2], Dy);
      }
      ASSERT_EQ(Series.FindPoint(static_cast<int>(From.X), static_cast<int>(From.Y)), First);
      const TZyNearestPointResult Found[] = {Series.NearestPoint(From), Series.NearestX(From.X),
                                             Series.NearestY(From.Y)};
      for (int Way = 0; Way < 3; ++Way) {
        ASSERT_EQ(Found[Way].Distance, Nearest[Way]) << Way;
        ASSERT_EQ(Found[Way].X, Series.XData()->GetValue(Found[Way].Index));
      }
    }
    delete &Series;
  }
}

TEST_F(ZySeriesDrawingTest, InterpolatesBetweenPointsWithValues) {
  auto& Series = AddLine({0, 10, 999, 30, 20});
  EXPECT_EQ(Series.GetY(1), 0) << "nothing is calculated yet";
  Series.YData()->AddOutlier(2);
  Series.Calculate();
  const std::pair<double, double> Cases[] = {{0.5, 5}, {2, 20}, {3.5, 25}, {-1, -10}, {6, 0}, {1, 10}, {4, 20}};
  for (const auto& [X, Y] : Cases) EXPECT_DOUBLE_EQ(Series.GetY(X), Y) << X;
  auto& Unordered = Add<TZyLineSeries>({0, 2, 1, 4}, {0, 20, 10, 40});
  Unordered.Calculate();
  EXPECT_DOUBLE_EQ(Unordered.GetY(0.5), 5);
}

/// The line y = 2 x.
class TCurveStub : public TZyFunctionSeries {
 public:
  explicit TCurveStub(TComponent* Owner) : TZyFunctionSeries(Owner, std::make_unique<TZyCalculation>()) {}
  double GetY(double AtX) const override { return 2 * AtX; }
};

TEST_F(ZySeriesDrawingTest, ACurveDividesPointsAndHasNoIndex) {
  auto& Series = Add({1, 2, 3, 4}, {1, 1, 1, 1});
  auto& Curve = Add<TCurveStub>({0, 5}, {0, 10});
  Series.SetRangeFromFunction(&Curve);
  Curve.SetCalculationStart(2);
  Curve.SetCalculationStop(3);
  Curve.SetAutoStart(false);
  Curve.SetAutoStop(false);
  Series.PointSymbol().SetPointSymbol(TZyPointSymbol::Circle);
  Series.OutOfRangePointSymbol().SetPointSymbol(TZyPointSymbol::Square);
  Series.PointSymbol().SetSize(9);
  Chart.Paint();
  const auto Calls = Chart.CallsOf([&](Graphics& Gr) { Series.DrawSymbols(Gr); });
  EXPECT_EQ(Chart.CountOf(Calls, "DrawEllipse"), 2);
  EXPECT_EQ(Chart.CountOf(Calls, "FillPolygon(FFD3D3D3"), 2);
  const PointF End = Curve.Points().back();
  const auto Found = Chart.Graph->FindSeriesPoint(static_cast<int>(End.X), static_cast<int>(End.Y));
  ASSERT_EQ(Found.InSeries, &Curve);
  EXPECT_EQ(Found.Index, -1);
  EXPECT_NEAR(Found.X, 3, 1e-2) << "a whole pixel is at most 10 / 501";
  EXPECT_NEAR(Found.Y, 2 * Found.X, 1e-5);
  delete &Curve;
  EXPECT_EQ(Series.RangeFromFunction(), nullptr);
}

/// A marker that notes where it was sent.
class TMarkerStub : public TGraphicControl, public IZySnappingMarker {
 public:
  using TGraphicControl::TGraphicControl;
  TControl& Control() override { return *this; }
  TZySeries* LinkedSeries() const override { return Series; }
  int SnappedIdx() const override { return Idx; }
  void TakeSnappedIdx(int Value) override { Idx = Value; }
  void SnapTo(double X, double Y) override { Place = {X, Y}; }

  TZySeries* Series = nullptr;
  int Idx = -1;
  std::pair<double, double> Place;
  std::shared_ptr<int> Alive;  ///< counts it out
};

TEST_F(ZySeriesDrawingTest, MarkersKeepToTheirPoints) {
  auto& Line = Add<TZyLineSeries>({1, 2, 3, 4}, {5, 6, 7, 8});
  auto& Data = dynamic_cast<TZyDoubleVector&>(*Line.YData());
  int Alive = 0;
  std::vector<double> Seen;  // when the last one died
  const auto AddMarker = [&](int Idx) {
    auto* const Marker = new TMarkerStub(&Chart.Form);
    Marker->SetParent(Chart.Graph);
    Marker->Series = &Line;
    Marker->Idx = Idx;
    Marker->Alive = std::shared_ptr<int>(&++Alive, [&](int* Count) {
      --*Count;
      Seen = {Data.Values().begin(), Data.Values().end()};
    });
    return Marker;
  };
  AddMarker(1);
  TMarkerStub* const Third = AddMarker(2);
  Line.Calculate();
  EXPECT_EQ(Third->Place, std::pair(3.0, 7.0));
  for (const bool IsOutlier : {true, false}) {
    Data.SetOutlier(2, IsOutlier);
    Line.Calculate();
    EXPECT_EQ(Third->Visible(), !IsOutlier);
  }
  Data.Insert(0, 4);
  EXPECT_EQ(Third->Idx, 3);
  Line.XData()->Insert(0, 0);
  EXPECT_EQ(Third->Idx, 3) << "markers follow the Y data only";
  Data.Delete(2);
  EXPECT_EQ(Alive, 1) << "that of the point itself goes";
  EXPECT_EQ(Seen, (std::vector<double>{4, 5, 7, 8}));
  EXPECT_EQ(Third->Idx, 2);
  Data.Delete(2, false);
  EXPECT_EQ(Alive, 1);
  Data.Clear();
  EXPECT_EQ(Alive, 0);
}

TEST_F(ZySeriesDrawingTest, LegendItemsShowLineAreaAndSymbol) {
  auto& Series = Add({1, 2}, {1, 2});
  auto& Partner = Add<TZyLineSeries>({1, 2}, {1, 2});
  Series.Line().SetColor(0xFF010203);
  Series.Area().SetForeColor(0xFF040506);
  Series.PointSymbol().SetVisible(false);
  Chart.Paint();
  const auto ExpectItem = [&](const char* Call, std::optional<LegendItemStyle> Style = {}) {
    const auto Calls = Chart.CallsOf([&](Graphics& Gr) {
      const TZyLegendItemDrawArgs Args{&Gr, TRect{10, 20, 50, 40}, 0};
      Style ? Series.DrawListItem(Args, *Style) : Series.DrawListItem(Args);
    });
    EXPECT_GE(Chart.CountOf(Calls, Call), 1) << Call;
  };
  EXPECT_EQ(Series.GetItemHeight(), 1);
  ExpectItem("DrawLine(pen FF010203 1, 10 30, 50 30)");
  Series.Area().SetVisible(true);
  EXPECT_EQ(Series.GetItemHeight(), 7);
  ExpectItem("FillRectangle(FF040506, 10 30 40 10)");
  ExpectItem("10 20, 50 40", LegendItemStyle::DescendingDiagonal);
  Series.Line().SetVisible(false);
  ExpectItem("FillRectangle(FF040506, 10 20 40 20)");
  Series.PointSymbol().SetVisible(true);
  EXPECT_EQ(Series.GetItemHeight(), 13);

  // Of two lines in one item, the first lies across, the second from corner to corner.
  Series.PointSymbol().SetVisible(false);
  Series.Line().SetVisible(true);
  Series.SetMergeLegendItemWith(&Series);
  EXPECT_EQ(Series.MergeLegendItemWith(), nullptr);
  Series.SetMergeLegendItemWith(&Partner);
  const auto Calls = Chart.CallsOf([&](Graphics& Gr) { Series.DrawMergedItems({&Gr, TRect{10, 20, 50, 40}, 0}); });
  for (const char* Line : {"10 30, 50 30", "10 40, 50 20"}) EXPECT_EQ(Chart.CountOf(Calls, Line), 1) << Line;
}

}  // namespace
}  // namespace zy::testing
