#include "platform/drawing/ZyRaster.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include "platform/drawing/ZyRasterThinQueue.h"
#include "platform/drawing/ZySymbolStamps.h"
#include "platform/framework/TCrew.h"

namespace zy {
namespace {

constexpr std::uint32_t Black = 0xFF000000;
const TSolidPaint Ink(Black);
constexpr float Nan = std::numeric_limits<float>::quiet_NaN(), Infinite = std::numeric_limits<float>::infinity();

using TPoints = std::vector<PointF>;

/// A transparent picture with a margin of pixels around it that nobody may touch.
class TCanvas {
 public:
  explicit TCanvas(int Width = 120, int Height = 90)
      : FWidth(Width), FHeight(Height), FPixels(static_cast<std::size_t>(Stride() * (Height + 2)), Untouched) {
    for (int Y = 0; Y < Height; ++Y) std::fill_n(&At(0, Y), Width, 0u);
  }
  ~TCanvas() {
    int Touched = 0;
    for (int Y = -1; Y <= FHeight; ++Y)
      for (int X = -1; X <= FWidth; ++X)
        Touched += (X < 0 || Y < 0 || X == FWidth || Y == FHeight) && At(X, Y) != Untouched;
    EXPECT_EQ(Touched, 0) << "pixels of the margin";
  }
  TRasterTarget Target() { return {&At(0, 0), Stride(), FWidth, FHeight}; }
  TRasterClip Clip() const { return {{0, 0, FWidth, FHeight}}; }
  TZyRaster Raster() { return {Target(), Clip()}; }
  std::uint32_t& At(int X, int Y) { return FPixels[static_cast<std::size_t>((Y + 1) * Stride() + X + 1)]; }
  int Alpha(int X, int Y) { return static_cast<int>(At(X, Y) >> 24); }
  int Width() const { return FWidth; }
  int Height() const { return FHeight; }
  /// Covered pixels, partly covered ones in part.
  double Area() {
    double Sum = 0;
    for (int Y = 0; Y < FHeight; ++Y)
      for (int X = 0; X < FWidth; ++X) Sum += Alpha(X, Y) / 255.0;
    return Sum;
  }
  int Most() {
    int Result = 0;
    for (int Y = 0; Y < FHeight; ++Y)
      for (int X = 0; X < FWidth; ++X) Result = std::max(Result, Alpha(X, Y));
    return Result;
  }
  /// The first pixel whose alpha is not what Expected says of it; empty if there is none.
  template <typename TExpected>
  std::string Unlike(TExpected Expected, double Tolerance = 0) {
    for (int Y = 0; Y < FHeight; ++Y)
      for (int X = 0; X < FWidth; ++X)
        if (const double Alpha = Expected(X, Y); !(std::abs(this->Alpha(X, Y) - Alpha) <= Tolerance))
          return (testing::Message() << this->Alpha(X, Y) << " at " << X << ',' << Y << ", not " << Alpha).GetString();
    return {};
  }

 private:
  static constexpr std::uint32_t Untouched = 0x12345678;
  int Stride() const { return FWidth + 2; }

  int FWidth;
  int FHeight;
  std::vector<std::uint32_t> FPixels;
};

/// Expects the toolkit's picture of the same. Tolerances are coverages from 0 to 1: the mean over the pixels that
/// either covers, and at worst.
template <typename TDraw>
void ExpectAsTheToolkit(TCanvas& Canvas, double MeanTolerance, double WorstTolerance, TDraw Draw) {
  QImage Theirs(Canvas.Width(), Canvas.Height(), QImage::Format_ARGB32_Premultiplied);
  Theirs.fill(0);
  QPainter Painter(&Theirs);
  Painter.setRenderHint(QPainter::Antialiasing);
  Draw(Painter);
  Painter.end();
  int Sum = 0, Worst = 0, Count = 0;
  for (int Y = 0; Y < Canvas.Height(); ++Y)
    for (int X = 0; X < Canvas.Width(); ++X) {
      const int Alpha = qAlpha(Theirs.pixel(X, Y)), Difference = std::abs(Canvas.Alpha(X, Y) - Alpha);
      Count += Alpha != 0 || Difference != 0;
      Sum += Difference;
      Worst = std::max(Worst, Difference);
    }
  EXPECT_LE(Sum, MeanTolerance * 255 * Count);
  EXPECT_LE(Worst, WorstTolerance * 255);
}

QPolygonF ToQt(const TPoints& Points) {
  QPolygonF Result;
  for (const PointF& Point : Points) Result.append({Point.X, Point.Y});
  return Result;
}

TPoints Circle(float X, float Y, float Radius, int Count, int Step = 1) {
  TPoints Result;
  for (int Index = 0; Index < Count; ++Index) {
    const float Angle = 2 * std::numbers::pi_v<float> * static_cast<float>(Index * Step) / static_cast<float>(Count);
    Result.push_back({X + Radius * std::sin(Angle), Y - Radius * std::cos(Angle)});
  }
  return Result;
}

TPoints Box(float Left, float Top, float Right, float Bottom) {
  return {{Left, Top}, {Right, Top}, {Right, Bottom}, {Left, Bottom}};
}

TPoints Wave() {
  TPoints Result;
  for (float X = 10; X <= 110; X += 0.5f) Result.push_back({X, 45 + 30 * std::sin(X / 9)});
  return Result;
}

const TPoints ZigZag = {{15.2f, 20.1f}, {40.7f, 70.3f}, {60, 25.5f}, {70.5f, 65}, {104.3f, 60.2f}};
const TPoints Tight = {{20, 20}, {95.3f, 30.1f}, {22.2f, 40.4f}, {60, 75}, {60.5f, 50}};
const TPoints WaveLine = Wave();
const TPoints* const Lines[] = {&ZigZag, &Tight, &WaveLine};

// --- beside the toolkit's picture ---

using TJoinPair = std::pair<TRasterJoin, Qt::PenJoinStyle>;
constexpr TJoinPair Joins[] = {{TRasterJoin::Miter, Qt::SvgMiterJoin},
                               {TRasterJoin::MiterCut, Qt::MiterJoin},
                               {TRasterJoin::Bevel, Qt::BevelJoin},
                               {TRasterJoin::Round, Qt::RoundJoin}};
using TCapPair = std::pair<TRasterCap, Qt::PenCapStyle>;
constexpr TCapPair Caps[] = {
    {TRasterCap::Flat, Qt::FlatCap}, {TRasterCap::Square, Qt::SquareCap}, {TRasterCap::Round, Qt::RoundCap}};

void ExpectStrokeAsTheToolkit(const TPoints& Points, TRasterStroke Stroke, const TJoinPair& Join, const TCapPair& Cap) {
  SCOPED_TRACE(testing::Message() << "width " << Stroke.Width << ", join " << Join.second << ", cap " << Cap.second
                                  << ", closed " << Stroke.Closed << ", offset " << Stroke.DashOffset << ", first at "
                                  << Points.front().X);
  TCanvas Canvas;
  Stroke.Join = Join.first;
  Stroke.StartCap = Stroke.EndCap = Stroke.DashCap = Cap.first;
  Canvas.Raster().StrokeLines(Points, Stroke, Ink);
  QPen Pen(Qt::black, static_cast<double>(Stroke.Width), Qt::SolidLine, Cap.second, Join.second);
  Pen.setMiterLimit(static_cast<double>(Stroke.MiterLimit));
  QList<qreal> Pattern;
  for (const float Length : Stroke.Dashes) Pattern.append(static_cast<double>(Length / Stroke.Width));
  if (!Pattern.isEmpty()) {
    Pen.setDashPattern(Pattern);
    Pen.setDashOffset(static_cast<double>(Stroke.DashOffset / Stroke.Width));
  }
  QPainterPath Path;
  Path.addPolygon(ToQt(Points));
  if (Stroke.Closed) Path.closeSubpath();
  // Measured: 0.011 and 0.39. The worst pixels are those in which two sides of a line meet: there both rasterisers add
  // what the sides cover, and cut the outline into different pieces. A gentle curve has no such place.
  const bool IsRound = Join.first == TRasterJoin::Round, IsGentle = &Points == &WaveLine && Stroke.Width < 5;
  const double Worst = IsRound && IsGentle && !Stroke.Closed ? 0.1 : 0.4;
  ExpectAsTheToolkit(Canvas, IsRound ? 0.009 : 0.015, Worst, [&](QPainter& Painter) {
    // The toolkit's round corners darken the rim of a curve, unless their overlaps are taken out before.
    if (!IsRound) return Painter.strokePath(Path, Pen);
    Painter.fillPath(QPainterPathStroker(Pen).createStroke(Path).simplified(), Qt::black);
  });
}

TEST(ZyRasterStroke, LooksAsTheToolkitDrawsIt) {
  for (const TPoints* Points : Lines)
    for (const TCapPair& Cap : Caps) {
      for (const float Width : {0.7f, 1.3f, 2.0f, 3.5f, 8.0f, 20.0f})
        for (const TJoinPair& Join : Joins)
          for (const bool Closed : {false, true}) {
            const bool IsRound = Join.first == TRasterJoin::Round;
            // The toolkit has no finer pens, and discs of its wide curves reach over a flat end.
            if (!IsRound && Width < 1) continue;
            if (IsRound && Width > 8 && Cap.first == TRasterCap::Flat && Points == &WaveLine) continue;
            ExpectStrokeAsTheToolkit(
                *Points, {.Width = Width, .ExactWidth = Width < 1, .MiterLimit = 3, .Closed = Closed}, Join, Cap);
          }
      const float Pattern[] = {9, 5, 3.5f, 6};
      for (const float Width : {1.3f, 2.0f, 4.0f})
        for (const float Offset : {0.0f, 4.0f, 12.5f, 50.0f})
          ExpectStrokeAsTheToolkit(*Points, {.Width = Width, .Dashes = Pattern, .DashOffset = Offset}, Joins[2], Cap);
    }
}

/// Lines with a start and stop anywhere, some far outside, others within a pixel.
TPoints AnyLine(std::mt19937& Random) {
  TPoints Result;
  std::uniform_real_distribution<float> Anywhere(-60, 160), Nearby(-3, 3), Choice(0, 1);
  for (int Index = 0; Index < 12; ++Index) {
    const bool IsNear = Index > 0 && Choice(Random) < 0.4f;
    const PointF From = IsNear ? Result.back() : PointF{};
    auto& Spread = IsNear ? Nearby : Anywhere;
    Result.push_back({From.X + Spread(Random), From.Y + Spread(Random)});
  }
  if (Choice(Random) < 0.3f) Result[3].X *= 1000;
  return Result;
}

TEST(ZyRasterThin, LooksAsTheToolkitDrawsIt) {
  std::mt19937 Random(1);
  for (int Round = 0; Round < 300; ++Round) {
    SCOPED_TRACE(Round);
    const TPoints Points = Round < 3 ? *Lines[Round] : AnyLine(Random);
    const std::uint32_t Color = Round % 4 == 3 ? 0x90000000 : Black;
    TCanvas Canvas;
    Canvas.Raster().ThinLine(Points, 1, TRasterCap::Flat, Color);
    ExpectAsTheToolkit(Canvas, 0.015, 0.2, [&](QPainter& Painter) {
      Painter.setPen(QPen(QColor::fromRgba(Color), 1, Qt::SolidLine, Qt::FlatCap));
      Painter.drawPolyline(ToQt(Points));
    });
  }
}

/// As many processors as the machine may not have.
class TProcessors {
 public:
  explicit TProcessors(int Count) { TCrew::SetProcessors(Count); }
  ~TProcessors() { TCrew::SetProcessors(0); }
};

/// Lines of every slope, length and colour, within the picture, across its edges and far beyond.
std::vector<TPoints> ManyLines(const TCanvas& Canvas) {
  std::mt19937 Random(3);
  const auto Between = [&](float Low, float High) { return std::uniform_real_distribution<float>(Low, High)(Random); };
  const auto Width = static_cast<float>(Canvas.Width()), Height = static_cast<float>(Canvas.Height());
  std::vector<TPoints> Result;
  for (int i = 0; i < 300; ++i) {
    const float Reach = i % 7 == 0 ? 1e4f : i % 3 == 0 ? 40 : -5, Step = Between(0.2f, 30), Slope = Between(0, 2);
    TPoints& Line = Result.emplace_back();
    float X = Between(-Reach, Width + Reach);
    for (int k = 0; k < 200; ++k) {
      X = i % 2 == 0 ? Between(-Reach, Width + Reach) : X < Width ? X + Step : -Reach;
      const float Level = Line.empty() || k % 9 == 0 ? Between(-Reach, Height + Reach) : Line.back().Y;
      Line.push_back({X, i % 5 == 0 ? Level : Level + Between(-Slope, Slope) * Step});
    }
  }
  return Result;
}

TEST(ZyRasterThin, AllProcessorsDrawThePixelsOfOne) {
  TCanvas One(700, 300), All(700, 300);
  const std::vector<TPoints> Each = ManyLines(One);
  const TRasterClip Clip{{3, 5, 690, 290}};
  const auto Draw = [&](TCanvas& Canvas, TRasterThinQueue* Queue) {
    for (std::size_t i = 0; i < Each.size(); ++i)
      TZyRaster(Canvas.Target(), Clip)
          .ThinLine(Each[i], i % 4 == 0 ? 0.6f : 1, TRasterCap::Square,
                    static_cast<std::uint32_t>(0x00335511 * i) | (i % 3 == 0 ? 0x50000000u : 0xFF000000u), Queue);
  };
  Draw(One, nullptr);
  for (const int Count : {1, 2, 5, 64}) {
    const TProcessors Processors(Count);
    TRasterThinQueue Queue;
    for (int Round = 0; Round < 2; ++Round) {  // the second one finds the memory of the first
      for (int Y = 0; Y < All.Height(); ++Y) std::fill_n(&All.At(0, Y), All.Width(), 0u);
      Draw(All, &Queue);
      Queue.Finish();
      EXPECT_TRUE(Queue.IsEmpty());
      for (int Y = 0; Y < All.Height(); ++Y)
        ASSERT_TRUE(std::equal(&One.At(0, Y), &One.At(0, Y) + One.Width(), &All.At(0, Y)))
            << "row " << Y << " by " << Count;
    }
  }
}

TEST(ZySymbolStamps, AllProcessorsDrawThePixelsOfOne) {
  TCanvas One(300, 200), All(300, 200);
  std::mt19937 Random(4);
  std::uniform_real_distribution<float> X(-20, 320), Y(-20, 220);
  TPoints Places(20'000);
  for (PointF& Place : Places) Place = {X(Random), Y(Random)};
  const auto Paint = [](const TRasterTarget& Stamp, PointF Anchor) {
    TZyRaster(Stamp, {{0, 0, Stamp.Width, Stamp.Height}})
        .FillBox(Anchor.X - 4, Anchor.Y - 3, Anchor.X + 5, Anchor.Y + 9, 0x60FF0080 ^ static_cast<unsigned>(Anchor.X));
  };
  for (const auto& [Canvas, Count] : {std::pair(&One, 1), std::pair(&All, 3)}) {
    const TProcessors Processors(Count);
    TZySymbolStamps().Draw(Canvas->Target(), Canvas->Clip(), "box", {-5, -4, 12, 15}, Places, Paint);
  }
  for (int Row = 0; Row < One.Height(); ++Row)
    ASSERT_TRUE(std::equal(&One.At(0, Row), &One.At(0, Row) + One.Width(), &All.At(0, Row))) << "row " << Row;
}

TEST(ZyRasterFill, LooksAsTheToolkitDrawsIt) {
  const std::vector<std::vector<TPoints>> Shapes = {
      {Circle(60, 45, 38.3f, 3)},
      {Circle(60.2f, 45.7f, 40, 5, 2)},  // a star that crosses itself
      {Circle(60, 45, 40, 60), Circle(55, 45, 20, 7)},
      {Circle(60, 45, 40, 60), Circle(55, 45, 20, 7, -1)},  // the other way
      {Circle(30, 45, 70, 9, 4)}};                          // beyond the picture
  for (const std::vector<TPoints>& Shape : Shapes)
    for (const bool Winding : {false, true})
      for (const bool Smooth : {false, true}) {
        SCOPED_TRACE(testing::Message() << &Shape - Shapes.data() << Winding << Smooth);
        TCanvas Canvas;
        QPainterPath Path;
        Path.setFillRule(Winding ? Qt::WindingFill : Qt::OddEvenFill);
        std::vector<std::span<const PointF>> Parts(Shape.begin(), Shape.end());
        for (const TPoints& Part : Shape) {
          Path.addPolygon(ToQt(Part));
          Path.closeSubpath();
        }
        Canvas.Raster().FillPolygons(Parts, Winding, Ink, Smooth);
        ExpectAsTheToolkit(Canvas, 0.004, Smooth ? 0.1 : 1.1, [&](QPainter& Painter) {
          Painter.setRenderHint(QPainter::Antialiasing, Smooth);
          Painter.fillPath(Path, Qt::black);
        });
      }
}

// --- by hand ---

/// An upright rectangle, whose pixels are covered by the product of what they share each way.
auto Rectangle(double Left, double Top, double Right, double Bottom, double Alpha = 255) {
  const auto Overlap = [](double Low, double High, int Pixel) {
    return std::max(0.0, std::min(High, Pixel + 1.0) - std::max(Low, static_cast<double>(Pixel)));
  };
  return [=](int X, int Y) { return Alpha * Overlap(Left, Right, X) * Overlap(Top, Bottom, Y); };
}

/// A paint of its own at each place, or at each column, or in each row.
class TPlacePaint : public TRasterPaint {
 public:
  explicit TPlacePaint(bool Upright = false, bool Level = false) : FUpright(Upright), FLevel(Level) {}
  std::uint32_t ColorAt(int X, int Y) const {
    return Black | static_cast<std::uint32_t>((FLevel ? 0 : X << 8) | (FUpright ? 0 : Y));
  }
  bool IsUpright() const override { return FUpright; }
  bool IsLevel() const override { return FLevel; }
  void Fetch(int X, int Y, int Count, std::uint32_t* Pixels) const override {
    for (int Index = 0; Index < Count; ++Index) Pixels[Index] = ColorAt(X + Index, Y);
  }

 private:
  bool FUpright, FLevel;
};

TEST(ZyRasterFill, UprightRectanglesAreExact) {
  struct TBox {
    float Left, Top, Right, Bottom;
  };
  for (const auto& [Left, Top, Right, Bottom] : {TBox{10.25f, 5.75f, 20.5f, 9.125f},
                                                 {3.25f, 4.5f, 3.5f, 4.75f},
                                                 {7.5f, 3.125f, 7.75f, 63.125f},
                                                 {0, 0, 120, 90},
                                                 {-7.5f, -3, 4.5f, 95.5f},
                                                 {100.5f, 80.25f, 1e6f, 1e6f},
                                                 {-1e9f, 30.5f, 1e9f, 31.75f}}) {
    TCanvas Filled, Wound, Boxed, Shaded;
    Filled.Raster().FillPolygon(Box(Left, Top, Right, Bottom), false, Ink);
    Wound.Raster().FillPolygon(Box(Left, Bottom, Right, Top), true, Ink);
    Boxed.Raster().FillBox(Left, Top, Right, Bottom, 0xC0FF8000);
    Shaded.Raster().FillBox(Left, Top, Right, Bottom, TPlacePaint());
    EXPECT_EQ(Filled.Unlike(Rectangle(Left, Top, Right, Bottom), 0.51), "") << Left;
    EXPECT_EQ(Wound.Unlike(Rectangle(Left, Top, Right, Bottom), 0.51), "") << Left;
    EXPECT_EQ(Boxed.Unlike(Rectangle(Left, Top, Right, Bottom, 0xC0), 1), "") << Left;
    EXPECT_EQ(Shaded.Unlike(Rectangle(Left, Top, Right, Bottom), 0.51), "") << Left;
  }
  // An upright line is a rectangle too; a square cap adds half a width.
  TCanvas Canvas;
  Canvas.Raster().StrokeLines(TPoints{{10.5f, 40.25f}, {60.25f, 40.25f}}, {.Width = 2.5f, .EndCap = TRasterCap::Square},
                              TSolidPaint(0x80000000));
  EXPECT_EQ(Canvas.Unlike(Rectangle(10.5, 39, 61.5, 41.5, 128), 0.51), "");
}

TEST(ZyRasterFill, CoverageAddsUpToTheArea) {
  std::mt19937 Random(3);
  std::uniform_real_distribution<float> X(0, 120), Y(0, 90);
  for (int Round = 0; Round < 200; ++Round) {
    const PointF A{X(Random), Y(Random)}, B{X(Random), Y(Random)}, C{X(Random), Y(Random)};
    const double Doubled = static_cast<double>(B.X - A.X) * (C.Y - A.Y) - static_cast<double>(C.X - A.X) * (B.Y - A.Y);
    TCanvas Canvas;
    Canvas.Raster().FillPolygon(TPoints{A, B, C}, Round % 2 == 0, Ink);
    EXPECT_NEAR(Canvas.Area(), std::abs(Doubled) / 2, 0.1) << Round;
  }
}

TEST(ZyRasterStroke, ALineMayRunOverItselfAnyNumberOfTimes) {
  for (const int Count : {4, 400, 32768, 65537, 300'000}) {
    TPoints Points;
    for (int Index = 0; Index < Count; ++Index) Points.push_back({50, Index % 2 == 0 ? 10.0f : 80.0f});
    for (const TJoinPair& Join : Joins) {
      TCanvas Canvas;
      Canvas.Raster().StrokeLines(Points, {.Width = 2, .Join = Join.first, .MiterLimit = 2}, TSolidPaint(0x60FF0000));
      for (int Y = 12; Y < 78; ++Y)
        for (const int X : {48, 49, 50, 51}) ASSERT_EQ(Canvas.At(X, Y), X == 49 || X == 50 ? 0x60600000u : 0) << Count;
    }
  }
}

// On each column a bar, and two points on the way to the next that mostly lie within both bars. Each bar is covered
// wholly, and nothing shows where neither a bar nor a way between two is, drawn by itself. Opaque bars go straight into
// the picture, others by their coverage.
TEST(ZyRasterStroke, DenseLinesFillTheirColumns) {
  std::mt19937 Random(6);
  const auto Between = [&](float Low, float High) { return std::uniform_real_distribution<float>(Low, High)(Random); };
  for (const unsigned Leaving : {0, 2, 8})
    for (const auto& [First, Step] : {PointF{-2.5f, 1}, {-2, 1}, {-2.5f, 2}, {122.5f, -1}, {-2.5f, 0.7f}})
      for (const float Width : {1.0f, 2.0f, 3.0f, 4.0f}) {
        SCOPED_TRACE(testing::Message() << Leaving << ' ' << First << ' ' << Step << ' ' << Width);
        const TRasterStroke Stroke{.Width = Width, .Join = TRasterJoin::Bevel};
        TCanvas Opaque, Nearly, Bars, Pieces;
        TPoints Line;
        for (float X = First; X > -3 && X < 123; X += Step) {
          const float Top = Between(-9, 40), Bottom = Between(50, 99), Start = Between(42, 48);
          const bool Down = Random() % 2 == 0, Leaves = Leaving != 0 && Random() % Leaving == 0;
          Line.insert(Line.end(), {{X - Step * 0.3f, Start},
                                   {X, Down ? Top : Bottom},
                                   {X, Down ? Bottom : Top},
                                   {X + Step * 0.3f, Leaves ? Between(-15, 30) : Between(42, 48)}});
          Bars.Raster().FillBox(std::ceil(X - Width / 2), std::ceil(Top), std::floor(X + Width / 2), std::floor(Bottom),
                                Black);
        }
        ASSERT_TRUE(FillsColumns(Line, Width));
        Opaque.Raster().StrokeLines(Line, Stroke, TSolidPaint(0xFF00FF00));
        Nearly.Raster().StrokeLines(Line, Stroke, TSolidPaint(0xFE00FF00));
        for (std::size_t Index = 2; Index < Line.size(); ++Index)
          Pieces.Raster().StrokeLines(std::span(Line).subspan(Index - 2, 3), Stroke, Ink);
        for (TCanvas* Canvas : {&Opaque, &Nearly}) {
          const auto Expected = [&](int X, int Y) {
            return Bars.Alpha(X, Y) == 255 ? 255 : Pieces.Alpha(X, Y) == 0 ? 0 : Canvas->Alpha(X, Y);
          };
          EXPECT_EQ(Canvas->Unlike(Expected, 2), "");
        }
        if (std::fabs(Step) > Width) continue;  // ways between are drawn by two models
        EXPECT_NEAR(Opaque.Area(), Nearly.Area() * 255 / 254, 0.02 * Nearly.Area());
        // Of wide bars that overlap, two ends in one pixel add up in one way or the other.
        if (Leaving != 0 || Width > 1) continue;
        EXPECT_EQ(Opaque.Unlike([&](int X, int Y) { return Nearly.Alpha(X, Y); }, 3), "");
      }
}

TEST(ZyRasterStroke, ThinLinesPaleByTheirWidth) {
  for (const bool Exact : {false, true}) {
    for (const float Width : {0.25f, 0.5f, 0.75f}) {
      TCanvas Canvas;
      Canvas.Raster().StrokeLines(TPoints{{10, 20.3f}, {110, 60.8f}}, {.Width = Width, .ExactWidth = Exact}, Ink);
      const double Length = std::hypot(100, 40.5);
      EXPECT_NEAR(Canvas.Area(), Width * Length, 0.01 * Length) << Width;
    }
  }
  TCanvas Canvas;
  Canvas.Raster().StrokeLines(TPoints{{10, 20.5f}, {20, 20.5f}}, {.Width = 0.25f}, Ink);
  EXPECT_EQ(Canvas.Unlike(Rectangle(10, 20, 20, 21, 64), 0.51), "");
}

TEST(ZyRasterStroke, DashesCloseUp) {
  // Once around is 120 pixels, and the pattern starts and ends within a dash about the first corner.
  const float Pattern[] = {20, 10};
  TCanvas Canvas;
  Canvas.Raster().StrokeLines(Box(20, 20, 60, 40), {.Width = 4, .Dashes = Pattern, .DashOffset = 10, .Closed = true},
                              Ink);
  EXPECT_EQ(Canvas.Alpha(18, 18), 255);  // joined: neither end of the line covers this one
  std::string Row;
  for (int X = 16; X < 64; X += 2) Row += Canvas.Alpha(X, 20) == 255 ? '#' : Canvas.Alpha(X, 20) == 0 ? '.' : '+';
  EXPECT_EQ(Row, ".######.....##########..");  // up to 30, and from 40 to 60
}

// --- clips and paints ---

TEST(ZyRaster, ClipsToBoxAndMask) {
  const auto Draw = [](TZyRaster Raster) {
    Raster.StrokeLines(ZigZag, {.Width = 5, .Join = TRasterJoin::Round, .Closed = true}, TSolidPaint(0xC0204080));
    Raster.FillPolygon(Circle(60, 45, 30, 5, 2), true, TSolidPaint(0x80FF8000));
    const float Pattern[] = {5, 3};
    Raster.StrokeLines(Tight, {.Width = 2, .Dashes = Pattern}, Ink);
  };
  TCanvas Whole, Half;
  Draw(Whole.Raster());
  std::vector<std::uint8_t> Mask(120 * 90);
  for (std::size_t Index = 0; Index < Mask.size(); ++Index) Mask[Index] = Index % 3 == 0 ? 255 : 0;
  for (const bool Masked : {false, true}) {
    TCanvas Part;
    Draw({Part.Target(), {{33, 21, 78, 60}, Masked ? Mask.data() : nullptr, 120}});
    const auto Expected = [&](int X, int Y) {
      const bool IsInside = X >= 33 && X < 78 && Y >= 21 && Y < 60 && (!Masked || (Y * 120 + X) % 3 == 0);
      return IsInside ? Whole.Alpha(X, Y) : 0;
    };
    EXPECT_EQ(Part.Unlike(Expected, 2), "") << Masked;
  }
  std::fill(Mask.begin(), Mask.end(), std::uint8_t{128});
  TZyRaster(Half.Target(), {{0, 0, 999, 999}, Mask.data(), 120}).FillPolygon(Box(10, 10, 20, 20), true, Ink);
  EXPECT_EQ(Half.Unlike(Rectangle(10, 10, 20, 20, 128), 0.51), "");
}

TEST(ZyRaster, BlendsThePaintOfEachPixel) {
  for (const auto& Paint : {TPlacePaint(), TPlacePaint(true), TPlacePaint(false, true)}) {
    TCanvas Filled, Boxed;
    Filled.Raster().FillPolygon(TPoints{{7, 5}, {101, 5}, {101, 80}, {60, 80}, {60, 40}, {7, 40}}, true, Paint);
    Boxed.Raster().FillBox(60, 40, 101, 80, Paint);
    Boxed.Raster().FillBox(7, 5, 101, 40, Paint);
    for (int Y = 5; Y < 80; ++Y)
      for (int X = Y < 40 ? 7 : 60; X < 101; ++X) {
        ASSERT_EQ(Filled.At(X, Y), Paint.ColorAt(X, Y));
        ASSERT_EQ(Boxed.At(X, Y), Paint.ColorAt(X, Y));
      }
    EXPECT_EQ(Filled.Area(), 94 * 35 + 41 * 40);
    EXPECT_EQ(Boxed.Area(), 94 * 35 + 41 * 40);
  }
  TCanvas Canvas;
  Canvas.At(4, 4) = 0xFF0000FF;
  Canvas.Raster().FillPolygon(Box(4, 4, 5, 5), true, TSolidPaint(0x80FF0000));
  EXPECT_EQ(Canvas.At(4, 4), 0xFF80007Fu);  // 128 of red, and 127 / 255 of the blue
}

TEST(ZyRaster, EdgesThatEndAtTheBorderLeaveNothingBehind) {
  TCanvas Canvas;
  for (int Row = 1; Row < 80; ++Row) {
    const float End = std::nextafter(static_cast<float>(Row), 0.0f);  // a flat edge that ends just above a whole row
    Canvas.Raster().FillPolygon(TPoints{{110, 0}, {0, End}, {0, 0}}, false, TSolidPaint(0));
    Canvas.Raster().FillPolygon(Box(100, 80, 110, 85), false, Ink);
  }
  EXPECT_NEAR(Canvas.Area(), 50, 1e-6) << "the second shape alone";
}

// --- hostile input ---

TEST(ZyRasterHostile, FarPointsKeepTheVisiblePart) {
  for (const float Far : {1e4f, 1e9f, 1e12f, 1e20f, 3e38f}) {
    TCanvas Level, Slanted, Full, Beside;
    Level.Raster().StrokeLines(TPoints{{-Far, 45}, {Far, 45}}, {.Width = 3}, Ink);
    Slanted.Raster().StrokeLines(TPoints{{-Far, -Far}, {Far, Far}, {Far, 0}, {Far, -Far}}, {.Width = 4}, Ink);
    if (Far <= 1e12f) {
      EXPECT_EQ(Level.Unlike(Rectangle(0, 43.5, 120, 46.5), 0.51), "") << Far;
      for (int Place = 4; Place < 86; ++Place) {
        EXPECT_EQ(Slanted.Alpha(Place, Place), 255) << Far;
        EXPECT_EQ(Slanted.Alpha(Place + 4, Place), 0) << Far;
      }
    }
    Full.Raster().FillPolygon(Box(-Far, -Far, Far, Far), false, Ink);
    EXPECT_EQ(Full.Unlike(Rectangle(0, 0, 120, 90)), "") << Far;
    for (const auto& [X, Y] : {PointF{Far, 0}, {-Far, 0}, {0, Far}, {0, -Far}}) {
      Beside.Raster().FillPolygon(TPoints{{X, Y}, {X * 0.9f, Y + 30}, {X, Y + 60}}, true, Ink);
      Beside.Raster().StrokeLines(TPoints{{X, Y}, {X + 50, Y}, {X, Y + 60}}, {.Width = 3, .Closed = true}, Ink);
    }
    EXPECT_EQ(Beside.Most(), 0) << Far;
  }
  TPoints Dense = {{100, -400}};  // bars beyond all integers, 512 apart: the spacing of floats there
  for (int Index = 0; Index < 64; ++Index) {
    const float X = 4294967296.0f + 512.0f * static_cast<float>(Index);
    Dense.insert(Dense.end(), {{X, Index % 2 == 0 ? -400.0f : 1000.0f}, {X, Index % 2 == 0 ? 1000.0f : -400.0f}});
  }
  TCanvas Canvas;
  Canvas.Raster().StrokeLines(Dense, {.Width = 512, .Join = TRasterJoin::Bevel}, Ink);
  EXPECT_EQ(Canvas.Most(), 0);
}

TEST(ZyRasterHostile, ClosedLinesMayLeaveThePicture) {
  TPoints Points = Box(20.5f, 30.5f, 1e4f, 1e4f);
  TCanvas Frame;  // its left and upper side, corner included
  Frame.Raster().FillPolygon(TPoints{{19, 29}, {120, 29}, {120, 32}, {22, 32}, {22, 90}, {19, 90}}, true, Ink);
  for (int First = 0; First < 4; ++First) {
    TCanvas Canvas;
    Canvas.Raster().StrokeLines(Points, {.Width = 3, .Closed = true}, TSolidPaint(0x80000000));
    EXPECT_EQ(Canvas.Unlike([&](int X, int Y) { return Frame.Alpha(X, Y) == 255 ? 128 : 0; }), "") << First;
    std::rotate(Points.begin(), Points.begin() + 1, Points.end());
  }
}

TEST(ZyRasterHostile, DashesKeepTheirPhaseOverAnyLength) {
  const float Pattern[] = {8, 4}, Fine[] = {1e-30f, 3e-30f};
  struct {
    TPoints Line;
    int Phase;
  } const Cases[] = {{{{0, 45}, {1e7f, 45}}, 0},  // whole periods before the picture
                     {{{-12, 45}, {1e7f, 45}}, 0},
                     {{{-1.2e6f, 45}, {1e7f, 45}}, 0},
                     {{{-1.5e7f, 45}, {1e7f, 45}}, 0},
                     // A detour out of sight of 2,000 pixels comes first: 166 periods and a dash.
                     {{{-100, 45}, {-100, -955}, {-100, 45}, {200, 45}}, 100 + 8}};
  for (const auto& [Line, Phase] : Cases) {
    TCanvas Canvas;
    Canvas.Raster().StrokeLines(Line, {.Width = 2, .Dashes = Pattern}, Ink);
    for (int X = 0; X < 120; ++X)
      EXPECT_NEAR(Canvas.Alpha(X, 45), (X + Phase) % 12 < 8 ? 255 : 0, 1) << Line[0].X << ' ' << X;
  }
  // Too fine to see: as pale as what is drawn of it.
  TCanvas Canvas;
  Canvas.Raster().StrokeLines(TPoints{{10, 45}, {20, 45}}, {.Width = 2, .Dashes = Fine}, Ink);
  EXPECT_EQ(Canvas.Unlike(Rectangle(10, 44, 20, 46, 64), 0.51), "");
}

TEST(ZyRasterHostile, WhatIsNotANumberIsLeftOut) {
  TCanvas Canvas;
  for (const float Bad : {Nan, Infinite, -Infinite}) {
    for (const PointF& Point : {PointF{Bad, 40}, {40, Bad}, {Bad, Bad}}) {
      Canvas.Raster().StrokeLines(TPoints{{10, 10}, Point, {50, 50}}, {.Width = 3}, Ink);
      Canvas.Raster().FillPolygon(TPoints{{10, 10}, Point, {50, 50}}, true, Ink);
    }
    if (Bad != Infinite) Canvas.Raster().StrokeLines(ZigZag, {.Width = Bad}, Ink);
  }
  Canvas.Raster().StrokeLines({}, {.Width = 3}, Ink);
  Canvas.Raster().FillPolygon({}, true, Ink);
  Canvas.Raster().FillPolygon(TPoints{{10, 10}, {20, 20}}, true, Ink);
  Canvas.Raster().StrokeLines(TPoints{{10, 10}, {10, 10}}, {.Width = 3}, Ink);
  Canvas.Raster().FillBox(double{Nan}, 0, 5, 5, Black);
  Canvas.Raster().FillBox(0, 5, 5, double{Nan}, Black);
  Canvas.Raster().FillBox(1e300, -1e300, 1e301, 1e300, Black);
  EXPECT_EQ(Canvas.Most(), 0);
  const float Dashes[] = {Nan, -3, Infinite};  // no length: solid
  Canvas.Raster().StrokeLines(TPoints{{10, 45}, {20, 45}},
                              {.Width = 2, .MiterLimit = Nan, .Dashes = Dashes, .DashOffset = Nan}, Ink);
  EXPECT_EQ(Canvas.Unlike(Rectangle(10, 44, 20, 46)), "");
}

/// Whatever was drawn: nothing outside the clip, nothing beyond the paint's alpha, and nothing left behind for the
/// next.
TEST(ZyRasterHostile, RandomShapesStayWithinTheirBounds) {
  std::mt19937 Random(5);
  const auto Pick = [&](int Count) { return static_cast<int>(Random() % static_cast<unsigned>(Count)); };
  const auto Real = [&](float Low, float High) { return std::uniform_real_distribution<float>(Low, High)(Random); };
  for (int Round = 0; Round < 3000; ++Round) {
    SCOPED_TRACE(Round);
    TCanvas Canvas(1 + Pick(90), 1 + Pick(60));
    const float Spread = std::pow(10.0f, Real(0, Pick(4) == 0 ? 30 : 3));
    TPoints Points(static_cast<std::size_t>(Pick(40)));
    for (PointF& Point : Points) {
      Point = {Real(-1, 1) * Spread + Real(0, 50), Real(-1, 1) * Spread + Real(0, 50)};
      if (Pick(4) == 0) Point = {std::round(Point.X), std::round(Point.Y)};
      if (Pick(6) == 0) Point = Points[0];
    }
    const TRasterRect Box{Pick(40) - 10, Pick(30) - 10, Pick(120), Pick(80)};
    TZyRaster Raster(Canvas.Target(), {Box});
    const TSolidPaint Paint(0x70FFFFFF);
    if (Pick(3) == 0) {
      Raster.FillPolygon(Points, Pick(2) == 0, Paint, Pick(3) != 0);
    } else {
      std::vector<float> Dashes(static_cast<std::size_t>(Pick(5)));
      for (float& Dash : Dashes) Dash = Pick(4) == 0 ? 0 : Real(0, 20);
      Raster.StrokeLines(Points,
                         {.Width = std::pow(10.0f, Real(-2, 3)),
                          .ExactWidth = Pick(2) == 0,
                          .Join = static_cast<TRasterJoin>(Pick(4)),
                          .MiterLimit = Real(0, 12),
                          .StartCap = static_cast<TRasterCap>(Pick(3)),
                          .EndCap = static_cast<TRasterCap>(Pick(3)),
                          .DashCap = static_cast<TRasterCap>(Pick(3)),
                          .Dashes = Dashes,
                          .DashOffset = Real(-50, 50),
                          .Closed = Pick(2) == 0},
                         Paint);
    }
    const auto Bounded = [&](int X, int Y) {
      const bool IsInside = X >= Box.Left && X < Box.Right && Y >= Box.Top && Y < Box.Bottom;
      return IsInside ? std::min(Canvas.Alpha(X, Y), 0x70) : 0;
    };
    ASSERT_EQ(Canvas.Unlike(Bounded), "");
    if (Round % 50 != 0) continue;
    TCanvas After;
    After.Raster().FillPolygon(zy::Box(10.5f, 10, 20, 20), true, Ink);
    ASSERT_EQ(After.Unlike(Rectangle(10.5, 10, 20, 20), 0.51), "");
  }
}

// --- stamps ---

void PaintDisc(const TRasterTarget& Target, const TRasterClip& Clip, PointF At) {
  TZyRaster(Target, Clip).FillPolygon(Circle(At.X, At.Y, 5, 24), true, TSolidPaint(0xC03060FF));
}
constexpr RectF DiscExtent{-5, -5, 10, 10};
int StampsPainted = 0;
void PaintStamp(const TRasterTarget& Stamp, PointF Anchor) {
  ++StampsPainted;
  PaintDisc(Stamp, {{0, 0, Stamp.Width, Stamp.Height}}, Anchor);
}

TEST(ZySymbolStamps, LookAsIfPaintedAtTheNearestQuarterPixel) {
  std::mt19937 Random(6);
  std::uniform_real_distribution<float> X(-10, 130), Y(-10, 100);
  TPoints Places(300);
  for (PointF& Place : Places) Place = {X(Random), Y(Random)};
  TCanvas Stamped, Painted;
  StampsPainted = 0;
  const TRasterClip Clip{{3, 2, 110, 85}};
  TZySymbolStamps Stamps;
  Stamps.Draw(Stamped.Target(), Clip, "disc", DiscExtent, Places, PaintStamp);
  for (const PointF& Place : Places)
    PaintDisc(Painted.Target(), Clip, {std::round(Place.X * 4) / 4, std::round(Place.Y * 4) / 4});
  for (int Row = 0; Row < Stamped.Height(); ++Row)
    for (int Column = 0; Column < Stamped.Width(); ++Column)
      for (const int Shift : {0, 8, 16, 24})
        ASSERT_NEAR((Stamped.At(Column, Row) >> Shift) & 255, (Painted.At(Column, Row) >> Shift) & 255, 3)
            << Column << ',' << Row;
  EXPECT_EQ(StampsPainted, 16);
}

TEST(ZySymbolStamps, KeepTheLooksUsedLast) {
  TCanvas Canvas;
  TZySymbolStamps Stamps(2);
  const TPoints Places = {{20, 20}, {40.1f, 50.05f}};  // the same quarter
  std::string Calls;
  for (const char Look : std::string_view("abacab-b")) {  // c takes the place of b
    StampsPainted = 0;
    if (Look == '-') {
      Stamps.Clear();
    } else {
      Stamps.Draw(Canvas.Target(), Canvas.Clip(), {&Look, 1}, DiscExtent, Places, PaintStamp);
    }
    Calls += std::to_string(StampsPainted);
  }
  EXPECT_EQ(Calls, "11010101");
}

TEST(ZySymbolStamps, HonourMasksAndHostilePlaces) {
  TCanvas Canvas;
  std::vector<std::uint8_t> Mask(120 * 90);
  for (std::size_t Index = 0; Index < Mask.size(); ++Index) Mask[Index] = Index % 120 < 60 ? 255 : 0;
  const TPoints Places = {{60, 45}, {Nan, 3}, {3, Nan}, {1e30f, 3}, {-3e38f, 2e9f}, {3, -Infinite}};
  TZySymbolStamps Stamps;
  const auto Draw = [&](const RectF& Extent) {
    Stamps.Clear();
    Stamps.Draw(Canvas.Target(), {Canvas.Clip().Box, Mask.data(), 120}, "disc", Extent, Places, PaintStamp);
  };
  for (const RectF& Unusable : {RectF{Nan, 0, 5, 5}, {0, 0, 0, 5}, {0, 0, 5, Nan}, {1e30f, 0, 5, 5}}) Draw(Unusable);
  EXPECT_EQ(Canvas.Most(), 0);
  Draw(DiscExtent);
  EXPECT_EQ(Canvas.Alpha(58, 45), 0xC0);
  EXPECT_EQ(Canvas.Alpha(61, 45), 0);
  Draw({-1e3f, -1e3f, 1e30f, 1e30f});  // cut, not fatal
  EXPECT_EQ(Canvas.Alpha(61, 45), 0);
}

}  // namespace
}  // namespace zy
