// What a series makes of its data beyond a plain line: gaps, areas, bands, symbols, events, hits, legend items,
// markers.

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "graph/SampleChart.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/TRecordingGraphics.h"
#include "platform/drawing/ZyRaster.h"
#include "series/ZyFunctionSeries.h"
#include "series/ZyPointSeries.h"

namespace zy::testing {
namespace {

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

/// A chart with a data area from (50, 50) of 500 by 250 pixels between its edges, and axes from 0 to 10.
class ZySeriesDrawingTest : public ::testing::Test {
 protected:
  ZySeriesDrawingTest() {
    Chart.UsePlainAxes();
    for (TZyAxis* Axis : {Chart.X, Chart.Y}) {
      Axis->SetStartEnd(TZyAxisEnd::Fixed);
      Axis->SetStopEnd(TZyAxisEnd::Fixed);
    }
  }
  template <class TSeries = TZyPointSeries>
  TSeries& Add(std::initializer_list<double> X, std::initializer_list<double> Y) {
    auto& Series = *new TSeries(&Chart.Form);
    Series.SetXAxis(Chart.X);
    Series.SetYAxis(Chart.Y);
    Series.SetXData(Chart.AddVector("", X));
    Series.SetYData(Chart.AddVector("", Y));
    return Series;
  }
  TZyLineSeries& AddLine(std::initializer_list<double> Y) {
    auto& Line = Add<TZyLineSeries>({}, Y);
    Line.SetXData(nullptr);
    return Line;
  }
  std::vector<int> IndexesOf(const TZySeries& Series) {
    Chart.Paint();
    return {Series.PointIndex().begin(), Series.PointIndex().end()};
  }
  static std::vector<std::string> CallsOf(const std::function<void(Graphics&)>& Draw) {
    TRecordingGraphics Canvas;
    Draw(Canvas);
    return Canvas.Calls();
  }
  static std::size_t CountOf(const std::vector<std::string>& Calls, std::string_view Text) {
    return static_cast<std::size_t>(std::count_if(
        Calls.begin(), Calls.end(), [&](const std::string& Call) { return Call.find(Text) != std::string::npos; }));
  }

  TSampleChart Chart;
};

TEST_F(ZySeriesDrawingTest, PointsWithoutValuesAreLeftOut) {
  const double Infinity = std::numeric_limits<double>::infinity();
  auto& Line = Add<TZyLineSeries>({0, 1, 2, 3, 4, 5}, {1, 9, 2, NotANumber, Infinity, 3});
  Line.YData()->AddOutlier(1);
  EXPECT_EQ(IndexesOf(Line), (std::vector<int>{0, 2, 5}));
  EXPECT_EQ(Line.YStop(), 3);
  Line.SetOutliersVisible(true);
  EXPECT_EQ(IndexesOf(Line), (std::vector<int>{0, 1, 2, 5}));
  EXPECT_EQ(Line.YStop(), 9);
  Line.SetOutliersVisible(false);
  for (const int End : {0, 5}) Line.XData()->AddOutlier(End);
  EXPECT_EQ(IndexesOf(Line), std::vector<int>{2}) << "one point, and no line";
  Line.XData()->AddOutlier(2);
  EXPECT_TRUE(IndexesOf(Line).empty());
  EXPECT_EQ(Line.FindPoint(50, 50), -1);
}

// Each column shows the extremes of the values in it, and of nothing else.
TEST_F(ZySeriesDrawingTest, ReducesColumnsAroundGaps) {
  auto& Line = AddLine({});
  auto& Data = dynamic_cast<TZyDoubleVector&>(*Line.YData());
  std::mt19937 Random(3);
  std::vector<double> Values;
  for (int i = 0; i < 100000; ++i)
    Values.push_back(Random() % 100 == 0 ? NotANumber : 5 + static_cast<double>(Random() % 1000) / 250);
  for (const int i : {7, 500, 501, 502, 70000}) Values[static_cast<std::size_t>(i)] = 1000;
  Data.AddRange(Values);
  Chart.X->SetStop(99999);
  for (const int i : {7, 500, 501, 502, 70000}) Data.AddOutlier(i);
  Chart.Paint();
  EXPECT_LE(Line.Points().size(), 4u * 501u);
  std::vector<std::pair<double, double>> Wanted(502, {1e9, -1e9}), Drawn = Wanted;
  const auto Take = [&](auto& Columns, int i) {
    const double Value = Values[static_cast<std::size_t>(i)];
    auto& [Low, High] = Columns[static_cast<std::size_t>(std::lround(Chart.X->NumberToWorld(i)) - 50)];
    Low = std::min(Low, Value);
    High = std::max(High, Value);
  };
  for (int i = 0; i < 100000; ++i)
    if (Line.HasValuesAt(i)) Take(Wanted, i);
  for (const int i : Line.PointIndex()) {
    ASSERT_TRUE(Line.HasValuesAt(i)) << i;
    Take(Drawn, i);
  }
  // The thinning drops what moves less than a pixel, a 25th of a unit.
  for (std::size_t Column = 0; Column < 500; ++Column) {
    EXPECT_NEAR(Drawn[Column].first, Wanted[Column].first, 0.09) << Column;
    EXPECT_NEAR(Drawn[Column].second, Wanted[Column].second, 0.09) << Column;
  }
}

// Beside it the line through each single point, by the rasteriser's plain way for round corners.
TEST_F(ZySeriesDrawingTest, ReducedLinesLookLikeThatOfAllPoints) {
  for (const int Count : {3000, 30000})
    for (const float Width : {1.0f, 2.0f})
      for (const float Ratio : {1.0f, 2.0f}) {
        SCOPED_TRACE(::testing::Message() << Count << " points, width " << Width << ", ratio " << Ratio);
        auto& Line = AddLine({});
        std::mt19937 Random(5);
        std::vector<double> Values;
        for (int i = 0; i < Count; ++i)
          Values.push_back(5 + 3 * std::sin(i * 9.0 / Count) + static_cast<double>(Random() % 1000) / 1000);
        dynamic_cast<TZyDoubleVector&>(*Line.YData()).AddRange(Values);
        Line.Line().SetWidth(Width);
        Line.Line().SetColor(0xFF000000);
        Chart.X->SetStop(Count - 1);
        Bitmap Reduced(600, 350, Ratio), Plain(600, 350, Ratio);
        {
          Graphics Canvas(Reduced);
          Chart.Graph->PaintGr(Canvas);
          Canvas.Clear(0xFFFFFFFF);
          Canvas.SetSmoothingMode(SmoothingModeHighQuality);
          Line.PaintGr(Canvas);
          Graphics(Plain).Clear(0xFFFFFFFF);
        }
        std::vector<PointF> Points;
        for (int i = 0; i < Count; ++i)
          Points.push_back({(Chart.X->NumberToWorld(i) + 0.5f) * Ratio,
                            (Chart.Y->NumberToWorld(Values[static_cast<std::size_t>(i)]) + 0.5f) * Ratio});
        QImage& Image = Plain.ToQt();
        const TRasterTarget Target{reinterpret_cast<std::uint32_t*>(Image.bits()), Image.bytesPerLine() / 4,
                                   Image.width(), Image.height()};
        TZyRaster(Target, {{0, 0, Image.width(), Image.height()}})
            .StrokeLines(Points, {.Width = Width * Ratio, .Join = TRasterJoin::Bevel}, TSolidPaint(0xFF000000));
        const auto InkAt = [](const Bitmap& Picture, int X, int Y) {
          return 255 - static_cast<int>(Picture.GetPixel(X, Y) & 255);
        };
        double Difference = 0, Ink = 0;
        int Holes = 0, Spots = 0;  // where all of the neighbourhood is covered, or is not
        for (int Y = 2; Y + 2 < Image.height(); ++Y)
          for (int X = 2; X + 2 < Image.width(); ++X) {
            const int Wanted = InkAt(Plain, X, Y), Drawn = InkAt(Reduced, X, Y);
            Difference += std::abs(Drawn - Wanted);
            Ink += Wanted;
            if (Wanted == Drawn || (Wanted > 0 && Wanted < 255)) continue;
            int Least = 255, Most = 0;
            for (int i = -2; i <= 2; ++i)
              for (int k = -2; k <= 2; ++k) {
                Least = std::min(Least, InkAt(Plain, X + i, Y + k));
                Most = std::max(Most, InkAt(Plain, X + i, Y + k));
              }
            Holes += Least == 255 && Drawn < 255 ? 1 : 0;
            Spots += Most == 0 && Drawn > 0 ? 1 : 0;
          }
        // Six points on a column are no dense line yet: the plain one hides its gaps by slanting ways.
        const bool IsDense = Count > 3000;
        EXPECT_LT(Difference, (IsDense ? 0.05 : 0.12) * Ink);
        EXPECT_LE(Holes, (IsDense ? 0.001 : 0.02) * Ink / 255);
        EXPECT_EQ(Spots, 0);
        Line.SetYData(nullptr);
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
  Chart.Paint();
  ASSERT_EQ(Line.AreaPoints().size(), 4u);
  EXPECT_EQ(Line.AreaPoints()[2], (PointF{100, 300 - 0.5f}));
  EXPECT_EQ(Line.AreaPoints()[3], (PointF{50, 300 - 0.5f}));
  Chart.Y->SetStart(-10);
  Chart.Paint();
  EXPECT_EQ(Line.AreaPoints()[2].Y, 175 - 0.5f);
  Chart.Y->SetStart(1);
  Chart.Paint();
  EXPECT_EQ(Line.AreaPoints()[2].Y, 300 - 0.5f);
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
  EXPECT_EQ(Upper.AreaPoints().size(), 5u) << "three points and the base line";
  EXPECT_EQ(Upper.AreaPoints()[3].Y, 300 - 0.5f);
}

TEST_F(ZySeriesDrawingTest, TranslucentSymbolsStopTheLine) {
  auto& Series = Add({1, 2, 3}, {1, 2, 3});
  Series.PointSymbol().SetPointSymbol(TZyPointSymbol::Square);
  const auto Holes = [&] { return CountOf(CallsOf([&](Graphics& Gr) { Chart.Graph->PaintGr(Gr); }), "SetClip(not "); };
  EXPECT_EQ(Holes(), 0u);
  Series.PointSymbol().SetFillColor(0x80FF0000);
  EXPECT_EQ(Holes(), 1u);
  Series.PointSymbol().SetVisible(false);
  EXPECT_EQ(Holes(), 0u) << "no holes without symbols";
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
  Chart.Graph->SetBackColor(Colors::White);
  const auto Calls = CallsOf([&](Graphics& Gr) { Series.Calculate(), Chart.Graph->PaintGr(Gr); });
  EXPECT_EQ(Series.YStart(), 7);
  EXPECT_EQ(Series.YStop(), 9);
  EXPECT_EQ(Seen, (std::vector<double>{109, 208}));
  EXPECT_EQ(CountOf(Calls, "FillPolygon(FFFF0000"), 2u);
  EXPECT_EQ(CountOf(Calls, "FillPolygon(FFFF0000, 100 75, 150.5 100, 150.5 299.5, 100 299.5"), 1u)
      << "half a pixel over the seam, down to half a pixel above 0";
  EXPECT_EQ(CountOf(Calls, "DrawEllipse"), 2u) << "below the axes and above them";
}

TEST_F(ZySeriesDrawingTest, FindsWhatAPlainSearchFinds) {
  std::mt19937 Random(4);
  for (const int Count : {300, 20000}) {
    auto& Series = Add({}, {});
    std::vector<double> X, Y;
    for (int i = 0; i < Count; ++i) {
      X.push_back(static_cast<double>(Random() % 1200) / 100 - 1);
      Y.push_back(static_cast<double>(Random() % 1200) / 100 - 1);
    }
    dynamic_cast<TZyDoubleVector&>(*Series.XData()).AddRange(X);
    dynamic_cast<TZyDoubleVector&>(*Series.YData()).AddRange(Y);
    EXPECT_FALSE(Series.NearestX(100).Found) << "before the first paint";
    Chart.Paint();
    const auto Pixels = Series.Points();
    for (int Try = 0; Try < 200; ++Try) {
      const PointF From{static_cast<float>(Random() % 700) - 50, static_cast<float>(Random() % 500) - 50};
      int First = -1;
      float Nearest[3] = {1e30f, 1e30f, 1e30f};
      for (std::size_t i = 0; i < Pixels.size(); ++i) {
        const float Dx = std::fabs(Pixels[i].X - From.X), Dy = std::fabs(Pixels[i].Y - From.Y);
        if (First < 0 && Dx <= 11 && Dy <= 11) First = Series.PointIndex()[i];
        const auto [Left, Top, Width, Height] = Chart.Graph->DrawingArea();
        const bool InX = Pixels[i].X >= Left && Pixels[i].X <= Left + Width;
        const bool InY = Pixels[i].Y >= Top && Pixels[i].Y <= Top + Height;
        if (InX && InY) Nearest[0] = std::min(Nearest[0], std::hypot(Dx, Dy));
        if (InX) Nearest[1] = std::min(Nearest[1], Dx);
        if (InY) Nearest[2] = std::min(Nearest[2], Dy);
      }
      ASSERT_EQ(Series.FindPoint(static_cast<int>(From.X), static_cast<int>(From.Y)), First);
      const TZyNearestPointResult Found[] = {Series.NearestPoint(From), Series.NearestX(From.X),
                                             Series.NearestY(From.Y)};
      for (int Way = 0; Way < 3; ++Way) {
        ASSERT_TRUE(Found[Way].Found);
        ASSERT_EQ(Found[Way].Distance, Nearest[Way]) << Way;
        ASSERT_EQ(Found[Way].X, X[static_cast<std::size_t>(Found[Way].Index)]);
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

/// A curve whose data range is 2 to 3.
class TCurveStub : public TZyFunctionSeries {
 public:
  using TZyFunctionSeries::TZyFunctionSeries;
  double GetCalcStart() const override { return 2; }
  double GetCalcStop() const override { return 3; }
  double GetY(double AtX) const override { return 2 * AtX; }
};

TEST_F(ZySeriesDrawingTest, ACurveDividesPointsAndHasNoIndex) {
  auto& Series = Add({1, 2, 3, 4}, {1, 1, 1, 1});
  auto& Curve = Add<TCurveStub>({0, 5}, {0, 10});
  Series.SetRangeFromFunction(&Curve);
  Series.PointSymbol().SetPointSymbol(TZyPointSymbol::Circle);
  Series.OutOfRangePointSymbol().SetPointSymbol(TZyPointSymbol::Square);
  Series.PointSymbol().SetSize(9);
  Chart.Paint();
  const auto Calls = CallsOf([&](Graphics& Gr) { Series.DrawSymbols(Gr); });
  EXPECT_EQ(CountOf(Calls, "DrawEllipse"), 2u);
  EXPECT_EQ(CountOf(Calls, "FillPolygon(FFD3D3D3"), 2u);
  const PointF End = Curve.Points()[1];
  const TZyFindSeriesPointResult Found = Chart.Graph->FindSeriesPoint(static_cast<int>(End.X), static_cast<int>(End.Y));
  ASSERT_EQ(Found.InSeries, &Curve);
  EXPECT_EQ(Found.Index, -1);
  EXPECT_NEAR(Found.X, 5, 1e-5);
  EXPECT_NEAR(Found.Y, 10, 1e-5);
  delete &Curve;
  EXPECT_EQ(Series.RangeFromFunction(), nullptr);
}

/// A marker that notes where it was sent.
class TMarkerStub : public TGraphicControl, public IZySnappingMarker {
 public:
  using TGraphicControl::TGraphicControl;
  TControl& Control() override { return *this; }
  TZySeries* SnappedSeries() const override { return Series; }
  int SnappedIdx() const override { return Idx; }
  void SetSnappedIdx(int Value) override { Idx = Value; }
  void SnapTo(double X, double Y) override { Place = {X, Y}; }

  TZySeries* Series = nullptr;
  int Idx = -1;
  std::pair<double, double> Place;
};

TEST_F(ZySeriesDrawingTest, MarkersKeepToTheirPoints) {
  auto& Line = Add<TZyLineSeries>({1, 2, 3, 4}, {5, 6, 7, 8});
  auto& Data = dynamic_cast<TZyDoubleVector&>(*Line.YData());
  const auto AddMarker = [&](int Idx) {
    auto* const Marker = new TMarkerStub(&Chart.Form);
    Marker->SetParent(Chart.Graph);
    Marker->Series = &Line;
    Marker->Idx = Idx;
    return Marker;
  };
  AddMarker(1);
  TMarkerStub* const Third = AddMarker(2);
  Line.Calculate();
  EXPECT_EQ(Third->Place, std::pair(3.0, 7.0));
  Data.AddOutlier(2);
  Line.Calculate();
  EXPECT_FALSE(Third->Visible());
  Data.RemoveOutlier(2);
  Line.Calculate();
  EXPECT_TRUE(Third->Visible());
  Data.Insert(0, 4);
  EXPECT_EQ(Third->Idx, 3);
  Line.XData()->Insert(0, 0);
  EXPECT_EQ(Third->Idx, 3) << "markers follow the Y data only";
  const auto Markers = [&] {
    const auto& Controls = Chart.Graph->Controls();
    return std::count_if(Controls.begin(), Controls.end(),
                         [](const auto* Control) { return dynamic_cast<const TMarkerStub*>(Control) != nullptr; });
  };
  Data.Delete(2);
  EXPECT_EQ(Markers(), 1) << "that of the point itself goes";
  EXPECT_EQ(Third->Idx, 2);
  Data.Delete(2, false);
  EXPECT_EQ(Markers(), 1);
  Data.Clear();
  EXPECT_EQ(Markers(), 0);
}

TEST_F(ZySeriesDrawingTest, LegendItemsShowLineAreaAndSymbol) {
  auto& Series = Add({1, 2}, {1, 2});
  Series.Line().SetColor(0xFF010203);
  Series.Area().SetForeColor(0xFF040506);
  Series.PointSymbol().SetVisible(false);
  Chart.Paint();
  const auto Item = [&](std::optional<LegendItemStyle> Style) {
    const auto Calls = CallsOf([&](Graphics& Gr) {
      const TZyLegendItemDrawArgs Args{&Gr, TRect{10, 20, 50, 40}, 0};
      if (Style)
        Series.DrawListItem(Args, *Style);
      else
        Series.DrawListItem(Args);
    });
    std::string All;
    for (const std::string& Call : Calls) All += Call + '\n';
    return All;
  };
  EXPECT_EQ(Series.GetItemHeight(), 1);
  EXPECT_NE(Item({}).find("DrawLine(pen FF010203 1, 10 30, 50 30)"), std::string::npos) << Item({});
  Series.Area().SetVisible(true);
  EXPECT_EQ(Series.GetItemHeight(), 7);
  EXPECT_NE(Item({}).find("FillRectangle(FF040506, 10 30 40 10)"), std::string::npos) << Item({});
  EXPECT_NE(Item(LegendItemStyle::DescendingDiagonal).find("10 20, 50 40"), std::string::npos);
  Series.Line().SetVisible(false);
  EXPECT_NE(Item({}).find("FillRectangle(FF040506, 10 20 40 20)"), std::string::npos) << "whole";
  Series.PointSymbol().SetVisible(true);
  EXPECT_EQ(Series.GetItemHeight(), 13);

  // Of two lines in one item, the first lies across, the second from corner to corner.
  auto& Partner = Add<TZyLineSeries>({1, 2}, {1, 2});
  Series.PointSymbol().SetVisible(false);
  Series.Line().SetVisible(true);
  Series.SetMergeLegendItemWith(&Series);
  EXPECT_EQ(Series.MergeLegendItemWith(), nullptr);
  Series.SetMergeLegendItemWith(&Partner);
  const auto Calls = CallsOf([&](Graphics& Gr) { Series.DrawMergedItems({&Gr, TRect{10, 20, 50, 40}, 0}); });
  EXPECT_EQ(CountOf(Calls, "10 30, 50 30"), 1u);
  EXPECT_EQ(CountOf(Calls, "10 40, 50 20"), 1u);
}

}  // namespace
}  // namespace zy::testing
