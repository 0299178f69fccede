#include "platform/drawing/ZyRaster.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <set>
#include <vector>

#include "platform/drawing/ZySymbolStamps.h"

namespace zy {
namespace {

constexpr std::uint32_t Black = 0xFF000000;
const TSolidPaint Ink(Black);

using TPoints = std::vector<PointF>;

/// A transparent picture with a margin of pixels around it that nobody may touch.
class TCanvas {
 public:
  explicit TCanvas(int Width = 120, int Height = 90)
      : FWidth(Width), FHeight(Height), FPixels(static_cast<std::size_t>(Stride() * (Height + 2)), Untouched) {
    for (int Y = 0; Y < Height; ++Y)
      for (int X = 0; X < Width; ++X) At(X, Y) = 0;
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
  bool MarginIsUntouched() const {
    const auto Stays = [this](int X, int Y) {
      return FPixels[static_cast<std::size_t>(Y * Stride() + X)] == Untouched;
    };
    for (int X = 0; X < FWidth + 2; ++X)
      if (!Stays(X, 0) || !Stays(X, FHeight + 1)) return false;
    for (int Y = 0; Y < FHeight + 2; ++Y)
      if (!Stays(0, Y) || !Stays(FWidth + 1, Y)) return false;
    return true;
  }

 private:
  static constexpr std::uint32_t Untouched = 0x12345678;
  int Stride() const { return FWidth + 2; }

  int FWidth;
  int FHeight;
  std::vector<std::uint32_t> FPixels;
};

/// The toolkit's picture of the same.
class TReference {
 public:
  explicit TReference(const TCanvas& Like) : FImage(Like.Width(), Like.Height(), QImage::Format_ARGB32_Premultiplied) {
    FImage.fill(0);
  }
  template <typename TDraw>
  void Draw(TDraw Action) {
    QPainter Painter(&FImage);
    Painter.setRenderHint(QPainter::Antialiasing);
    Action(Painter);
  }
  const QImage& Image() const { return FImage; }

 private:
  QImage FImage;
};

QPolygonF ToQt(const TPoints& Points) {
  QPolygonF Result;
  for (const PointF& Point : Points) Result.append({Point.X, Point.Y});
  return Result;
}

/// How far two pictures are apart, in fractions of full coverage: over the pixels that either has, and at worst.
struct TDistance {
  double Mean = 0;
  double Worst = 0;
};

TDistance Compare(TCanvas& Ours, const TReference& Theirs) {
  TDistance Result;
  int Count = 0;
  for (int Y = 0; Y < Ours.Height(); ++Y) {
    for (int X = 0; X < Ours.Width(); ++X) {
      const int A = Ours.Alpha(X, Y), B = qAlpha(Theirs.Image().pixel(X, Y));
      if (A == 0 && B == 0) continue;
      const double Difference = std::abs(A - B) / 255.0;
      Result.Mean += Difference;
      Result.Worst = std::max(Result.Worst, Difference);
      ++Count;
    }
  }
  if (Count > 0) Result.Mean /= Count;
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

TPoints Wave() {
  TPoints Result;
  for (int Index = 0; Index <= 200; ++Index) {
    const float X = 10 + static_cast<float>(Index) / 2;
    Result.push_back({X, 45 + 30 * std::sin(X / 9)});
  }
  return Result;
}

const TPoints ZigZag = {{15.2f, 20.1f}, {40.7f, 70.3f}, {60, 25.5f}, {70.5f, 65}, {104.3f, 60.2f}};
const TPoints Tight = {{20, 20}, {95.3f, 30.1f}, {22.2f, 40.4f}, {60, 75}, {60.5f, 50}};

const TPoints WaveLine = Wave();
const TPoints* const Lines[] = {&ZigZag, &Tight, &WaveLine};

// --- beside the toolkit's picture ---

struct TJoinPair {
  TRasterJoin Ours;
  Qt::PenJoinStyle Theirs;
};
constexpr TJoinPair Joins[] = {{TRasterJoin::Miter, Qt::SvgMiterJoin},
                               {TRasterJoin::MiterCut, Qt::MiterJoin},
                               {TRasterJoin::Bevel, Qt::BevelJoin},
                               {TRasterJoin::Round, Qt::RoundJoin}};
struct TCapPair {
  TRasterCap Ours;
  Qt::PenCapStyle Theirs;
};
constexpr TCapPair Caps[] = {
    {TRasterCap::Flat, Qt::FlatCap}, {TRasterCap::Square, Qt::SquareCap}, {TRasterCap::Round, Qt::RoundCap}};

// Measured: 0.011 and 0.35. The worst pixels are those in which two sides of a line meet: there both rasterisers add
// what the sides cover, and cut the outline into different pieces.
constexpr double MeanTolerance = 0.015;
constexpr double WorstTolerance = 0.4;

TDistance StrokeDistance(const TPoints& Points, TRasterStroke Stroke, const TJoinPair& Join, const TCapPair& Cap) {
  TCanvas Canvas;
  Stroke.Join = Join.Ours;
  Stroke.StartCap = Stroke.EndCap = Stroke.DashCap = Cap.Ours;
  Canvas.Raster().StrokeLines(Points, Stroke, Ink);
  EXPECT_TRUE(Canvas.MarginIsUntouched());
  TReference Reference(Canvas);
  Reference.Draw([&](QPainter& Painter) {
    QPen Pen(Qt::black, static_cast<double>(Stroke.Width), Qt::SolidLine, Cap.Theirs, Join.Theirs);
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
    Painter.strokePath(Path, Pen);
  });
  const TDistance Result = Compare(Canvas, Reference);
  if (getenv("ZY_SHOW")) printf("%g %g\n", Result.Mean, Result.Worst);
  return Result;
}

TEST(ZyRasterStroke, LooksAsTheToolkitDrawsIt) {
  for (const float Width : {1.3f, 2.0f, 3.5f, 8.0f, 20.0f}) {
    for (const TJoinPair& Join : Joins) {
      for (const TCapPair& Cap : Caps) {
        for (const bool Closed : {false, true}) {
          for (const TPoints* Points : Lines) {
            // The toolkit's round corners darken the rim of a curve: see RoundLinesCoverWhatIsNear for these.
            if (Join.Ours == TRasterJoin::Round && Points == &WaveLine) continue;
            const TDistance Distance =
                StrokeDistance(*Points, {.Width = Width, .MiterLimit = 3, .Closed = Closed}, Join, Cap);
            SCOPED_TRACE(testing::Message()
                         << "width " << Width << ", join " << static_cast<int>(Join.Ours) << ", cap "
                         << static_cast<int>(Cap.Ours) << ", closed " << Closed << ", first at " << Points->front().X);
            EXPECT_LT(Distance.Mean, MeanTolerance);
            EXPECT_LT(Distance.Worst, WorstTolerance);
          }
        }
      }
    }
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
    const TPoints Points = Round < 3 ? *Lines[Round] : AnyLine(Random);
    const std::uint32_t Color = Round % 4 == 3 ? 0x90000000 : Black;
    TCanvas Canvas;
    Canvas.Raster().ThinLine(Points, 1, TRasterCap::Flat, Color);
    EXPECT_TRUE(Canvas.MarginIsUntouched());
    TReference Reference(Canvas);
    Reference.Draw([&](QPainter& Painter) {
      Painter.setPen(QPen(QColor::fromRgba(Color), 1, Qt::SolidLine, Qt::FlatCap));
      Painter.drawPolyline(ToQt(Points));
    });
    const TDistance Distance = Compare(Canvas, Reference);
    EXPECT_LT(Distance.Mean, 0.015) << Round;
    EXPECT_LT(Distance.Worst, 0.2) << Round;
  }
}

TEST(ZyRasterStroke, DashesLookAsTheToolkitDrawsThem) {
  const float Pattern[] = {9, 5, 3.5f, 6};
  for (const float Width : {1.3f, 2.0f, 4.0f}) {
    for (const TCapPair& Cap : Caps) {
      for (const float Offset : {0.0f, 4.0f, 12.5f, 50.0f}) {
        for (const TPoints* Points : Lines) {
          const TDistance Distance =
              StrokeDistance(*Points, {.Width = Width, .Dashes = Pattern, .DashOffset = Offset}, Joins[2], Cap);
          SCOPED_TRACE(testing::Message() << "width " << Width << ", cap " << static_cast<int>(Cap.Ours) << ", offset "
                                          << Offset << ", first at " << Points->front().X);
          EXPECT_LT(Distance.Mean, MeanTolerance);
          EXPECT_LT(Distance.Worst, WorstTolerance);
        }
      }
    }
  }
}

/// Covered part of each pixel by what is nearer than Radius to the line: counted at 16 x 16 places.
double NearPart(const TPoints& Points, float Radius, int X, int Y) {
  const auto Distance = [&](float Px, float Py) {
    float Least = std::numeric_limits<float>::max();
    for (std::size_t Index = 1; Index < Points.size(); ++Index) {
      const PointF &A = Points[Index - 1], &B = Points[Index];
      const float Dx = B.X - A.X, Dy = B.Y - A.Y;
      const float Part = std::clamp(((Px - A.X) * Dx + (Py - A.Y) * Dy) / (Dx * Dx + Dy * Dy), 0.0f, 1.0f);
      Least = std::min(Least, std::hypot(Px - A.X - Part * Dx, Py - A.Y - Part * Dy));
    }
    return Least;
  };
  const float Middle = Distance(static_cast<float>(X) + 0.5f, static_cast<float>(Y) + 0.5f);
  if (std::abs(Middle - Radius) > 0.75f) return Middle < Radius;  // all of the pixel is on one side
  int Hits = 0;
  for (int Row = 0; Row < 16; ++Row)
    for (int Column = 0; Column < 16; ++Column)
      Hits += Distance(static_cast<float>(X) + (static_cast<float>(Column) + 0.5f) / 16,
                       static_cast<float>(Y) + (static_cast<float>(Row) + 0.5f) / 16) <= Radius;
  return Hits / 256.0;
}

TEST(ZyRasterStroke, RoundLinesCoverWhatIsNear) {
  for (const float Width : {0.7f, 1.0f, 1.3f, 3.5f, 8.0f, 20.0f}) {
    for (const TPoints* Points : Lines) {
      TCanvas Canvas;
      Canvas.Raster().StrokeLines(*Points,
                                  {.Width = Width,
                                   .ExactWidth = true,
                                   .Join = TRasterJoin::Round,
                                   .StartCap = TRasterCap::Round,
                                   .EndCap = TRasterCap::Round},
                                  Ink);
      double Sum = 0, Worst = 0;
      int Count = 0;
      for (int Y = 0; Y < Canvas.Height(); ++Y) {
        for (int X = 0; X < Canvas.Width(); ++X) {
          const double Part = NearPart(*Points, Width / 2, X, Y);
          if (Part == 0 && Canvas.Alpha(X, Y) == 0) continue;
          const double Error = std::abs(Canvas.Alpha(X, Y) / 255.0 - Part);
          Sum += Error;
          Worst = std::max(Worst, Error);
          ++Count;
        }
      }
      EXPECT_LT(Sum / Count, 0.008) << Width;
      // Where two sides meet in a pixel, what they cover is added; a gentle curve has no such place.
      const bool IsGentle = Points == &WaveLine && Width < 5;
      EXPECT_LT(Worst, IsGentle ? 0.03 : WorstTolerance) << Width;
    }
  }
}

TEST(ZyRasterFill, LooksAsTheToolkitDrawsIt) {
  const std::vector<std::vector<TPoints>> Shapes = {
      {Circle(60, 45, 38.3f, 3)},
      {Circle(60.2f, 45.7f, 40, 5, 2)},  // a star that crosses itself
      {Circle(60, 45, 40, 60), Circle(55, 45, 20, 7)},
      {Circle(60, 45, 40, 60), Circle(55, 45, 20, 7, -1)},  // the other way
      {Circle(30, 45, 70, 9, 4)}};                          // beyond the picture
  for (const std::vector<TPoints>& Shape : Shapes) {
    for (const bool Winding : {false, true}) {
      for (const bool Smooth : {false, true}) {
        TCanvas Canvas;
        QPainterPath Path;
        Path.setFillRule(Winding ? Qt::WindingFill : Qt::OddEvenFill);
        std::vector<std::span<const PointF>> Parts;
        for (const TPoints& Part : Shape) {
          Parts.emplace_back(Part);
          Path.addPolygon(ToQt(Part));
          Path.closeSubpath();
        }
        Canvas.Raster().FillPolygons(Parts, Winding, Ink, Smooth);
        EXPECT_TRUE(Canvas.MarginIsUntouched());
        TReference Reference(Canvas);
        Reference.Draw([&](QPainter& Painter) {
          Painter.setRenderHint(QPainter::Antialiasing, Smooth);
          Painter.fillPath(Path, Qt::black);
        });
        const TDistance Distance = Compare(Canvas, Reference);
        if (getenv("ZY_SHOW")) printf("fill %d %d %g %g\n", Winding, Smooth, Distance.Mean, Distance.Worst);
        EXPECT_LT(Distance.Mean, 0.004) << Winding << Smooth;
        if (Smooth) {
          EXPECT_LT(Distance.Worst, 0.1) << Winding;
        }
      }
    }
  }
}

// --- by hand ---

double Overlap(double Low, double High, int Pixel) {
  return std::max(0.0, std::min(High, Pixel + 1.0) - std::max(Low, static_cast<double>(Pixel)));
}

/// Checks the picture of an upright rectangle, whose pixels are covered by the product of what they share each way.
void ExpectRectangle(TCanvas& Canvas, double Left, double Top, double Right, double Bottom, double Alpha = 255) {
  for (int Y = 0; Y < Canvas.Height(); ++Y)
    for (int X = 0; X < Canvas.Width(); ++X)
      ASSERT_NEAR(Canvas.Alpha(X, Y), Alpha * Overlap(Left, Right, X) * Overlap(Top, Bottom, Y), 0.51) << X << ',' << Y;
}

TEST(ZyRasterFill, UprightRectanglesAreExact) {
  struct TBox {
    float Left, Top, Right, Bottom;
  };
  const TBox Boxes[] = {{10.25f, 5.75f, 20.5f, 9.125f}, {3.25f, 4.5f, 3.5f, 4.75f},   {0, 0, 120, 90},
                        {-7.5f, -3, 4.5f, 95.5f},       {100.5f, 80.25f, 1e6f, 1e6f}, {-1e9f, 30.5f, 1e9f, 31.75f}};
  for (const TBox& Box : Boxes) {
    for (const bool Winding : {false, true}) {
      TCanvas Canvas;
      const TPoints Points = {
          {Box.Left, Box.Top}, {Box.Left, Box.Bottom}, {Box.Right, Box.Bottom}, {Box.Right, Box.Top}};
      Canvas.Raster().FillPolygon(Points, Winding, Ink);
      ExpectRectangle(Canvas, Box.Left, Box.Top, Box.Right, Box.Bottom);
      EXPECT_TRUE(Canvas.MarginIsUntouched());
    }
  }
  // An upright line is a rectangle too; a square cap adds half a width.
  TCanvas Canvas;
  Canvas.Raster().StrokeLines(TPoints{{10.5f, 40.25f}, {60.25f, 40.25f}}, {.Width = 2.5f, .EndCap = TRasterCap::Square},
                              TSolidPaint(0x80000000));
  ExpectRectangle(Canvas, 10.5, 39, 61.5, 41.5, 128);
}

TEST(ZyRasterFill, CoverageAddsUpToTheArea) {
  std::mt19937 Random(3);
  std::uniform_real_distribution<float> X(0, 120), Y(0, 90);
  for (int Round = 0; Round < 200; ++Round) {
    const TPoints Corners = {{X(Random), Y(Random)}, {X(Random), Y(Random)}, {X(Random), Y(Random)}};
    const double Area = std::abs(static_cast<double>(Corners[1].X - Corners[0].X) * (Corners[2].Y - Corners[0].Y) -
                                 static_cast<double>(Corners[2].X - Corners[0].X) * (Corners[1].Y - Corners[0].Y)) /
                        2;
    TCanvas Canvas;
    Canvas.Raster().FillPolygon(Corners, Round % 2 == 0, Ink);
    EXPECT_NEAR(Canvas.Area(), Area, 0.1) << Round;
  }
}

TEST(ZyRasterStroke, TranslucentLinesAreEven) {
  std::mt19937 Random(4);
  std::uniform_real_distribution<float> Y(5, 85);
  TPoints Noise;
  for (int Index = 0; Index < 400; ++Index) Noise.push_back({static_cast<float>(Index) * 0.3f, Y(Random)});
  for (const TRasterJoin Join : {TRasterJoin::Miter, TRasterJoin::MiterCut, TRasterJoin::Bevel, TRasterJoin::Round}) {
    TCanvas Canvas;
    Canvas.Raster().StrokeLines(Noise, {.Width = 3, .Join = Join}, TSolidPaint(0x60FF0000));
    EXPECT_EQ(Canvas.Most(), 0x60);
    EXPECT_EQ(Canvas.At(60, 45), 0x60600000u);  // well within the noise: covered hundreds of times
  }
}

TEST(ZyRasterStroke, ALineMayRunOverItselfAnyNumberOfTimes) {
  for (const std::size_t Count : {std::size_t{4}, std::size_t{32768}, std::size_t{65537}, std::size_t{300'000}}) {
    TPoints Points(Count);
    for (std::size_t Index = 0; Index < Count; ++Index) Points[Index] = {50, Index % 2 == 0 ? 10.0f : 80.0f};
    for (const TRasterJoin Join : {TRasterJoin::Miter, TRasterJoin::Round}) {
      TCanvas Canvas;
      Canvas.Raster().StrokeLines(Points, {.Width = 2, .Join = Join, .MiterLimit = 2}, Ink);
      for (int Y = 12; Y < 78; ++Y)
        for (const int X : {48, 49, 50, 51}) ASSERT_EQ(Canvas.Alpha(X, Y), X == 49 || X == 50 ? 255 : 0) << Count;
    }
  }
}

// On each column a bar, and two points on the way to the next that mostly lie within both bars. Each bar is covered
// wholly, and nothing but the ways that leave the bars shows beside them.
TEST(ZyRasterStroke, DenseLinesFillTheirColumns) {
  std::mt19937 Random(6);
  const auto Between = [&Random](float Low, float High) {
    return std::uniform_real_distribution<float>(Low, High)(Random);
  };
  for (const float Step : {1.0f, 2.0f, -1.0f, 0.7f})
    for (const int Width : {1, 2, 3}) {
      struct TColumn {
        float X, Top, Bottom;
        bool Leaves;  // the way to the next bar leaves one of the two
      };
      std::vector<TColumn> Columns;
      TPoints Line;
      float X = Step > 0 ? 10.5f : 109.5f;
      for (; X > 10 && X < 110; X += Step) {
        const bool Leaves = Random() % 8 == 0;
        const float Ends[] = {Between(15, 30), Between(60, 75)};
        const bool Down = Random() % 2 == 0;
        Line.push_back({X - Step * 0.3f, Between(40, 50)});
        Line.push_back({X, Ends[Down ? 0 : 1]});
        Line.push_back({X, Ends[Down ? 1 : 0]});
        Line.push_back({X + Step * 0.3f, Leaves ? 5.0f : Between(40, 50)});
        Columns.push_back({X, Ends[0], Ends[1], Leaves});
      }
      ASSERT_TRUE(FillsColumns(Line, static_cast<float>(Width)));
      TCanvas Canvas;
      Canvas.Raster().StrokeLines(Line, {.Width = static_cast<float>(Width), .Join = TRasterJoin::Bevel}, Ink);
      EXPECT_TRUE(Canvas.MarginIsUntouched());
      std::vector<float> Highest(120, 90), Lowest(120, 0);
      std::vector<bool> MayShowMore(120);
      const float Half = static_cast<float>(Width) / 2;
      for (const TColumn& Column : Columns) {
        for (int Y = static_cast<int>(Column.Top) + 2; Y < static_cast<int>(Column.Bottom) - 1; ++Y)
          for (auto Pixel = std::ceil(Column.X - Half); Pixel + 1 <= Column.X + Half; ++Pixel)
            ASSERT_EQ(Canvas.Alpha(static_cast<int>(Pixel), Y), 255) << Step << ' ' << Width << ' ' << Column.X;
        const float Reach = Half + std::fabs(Step) * 0.3f + (Column.Leaves ? 2.0f : 1.0f);
        for (auto Pixel = static_cast<int>(Column.X - Reach); Pixel <= static_cast<int>(Column.X + Reach); ++Pixel) {
          const auto At = static_cast<std::size_t>(Pixel);
          Highest[At] = std::min(Highest[At], Column.Top);
          Lowest[At] = std::max(Lowest[At], Column.Bottom);
          MayShowMore[At] = MayShowMore[At] || Column.Leaves;
        }
      }
      for (int Pixel = 0; Pixel < 120; ++Pixel)
        for (int Y = 0; Y < 90; ++Y) {
          const auto At = static_cast<std::size_t>(Pixel);
          const auto Row = static_cast<float>(Y);
          if (MayShowMore[At] || (Row >= Highest[At] - 2 && Row <= Lowest[At] + 1)) continue;
          ASSERT_EQ(Canvas.Alpha(Pixel, Y), 0) << Step << ' ' << Width << ' ' << Pixel << ' ' << Y;
        }
    }
}

// Opaque bars go straight into the picture, others by their coverage. Ways that leave the bars are drawn by the model
// of thin lines in the one case, and may differ a little.
TEST(ZyRasterStroke, OpaqueBarsCoverWhatOthersCover) {
  std::mt19937 Random(8);
  std::uniform_real_distribution<float> Top(-9, 40), Bottom(50, 99), Inside(42, 48);
  for (const bool Leaves : {false, true})
    for (const int Width : {1, 2, 4}) {
      TPoints Line;
      for (float X = -2.5f + static_cast<float>(Width % 2) / 2; X < 123; ++X) {
        Line.push_back({X - 0.3f, Leaves ? Top(Random) : Inside(Random)});
        Line.push_back({X, Top(Random)});
        Line.push_back({X, Bottom(Random)});
        Line.push_back({X + 0.3f, Inside(Random)});
      }
      TCanvas Opaque, Nearly;
      const TRasterStroke Stroke{.Width = static_cast<float>(Width), .Join = TRasterJoin::Bevel};
      Opaque.Raster().StrokeLines(Line, Stroke, TSolidPaint(0xFF00FF00));
      Nearly.Raster().StrokeLines(Line, Stroke, TSolidPaint(0xFE00FF00));
      EXPECT_TRUE(Opaque.MarginIsUntouched());
      EXPECT_NEAR(Opaque.Area(), Nearly.Area() * 255 / 254, 0.02 * Nearly.Area()) << Width;
      // Of wide bars that overlap, two ends in one pixel add up in one way or the other.
      for (int Y = 0; !Leaves && Width == 1 && Y < Opaque.Height(); ++Y)
        for (int X = 0; X < Opaque.Width(); ++X)
          ASSERT_NEAR(Opaque.Alpha(X, Y), Nearly.Alpha(X, Y), 3) << X << ' ' << Y;
    }
}

TEST(ZyRasterStroke, BarsBeyondAllIntegersShowNowhere) {
  TPoints Line = {{100, -400}};
  for (int i = 0; i < 64; ++i) {  // 512 apart, the spacing of floats there
    const float X = 4294967296.0f + 512.0f * static_cast<float>(i);
    Line.push_back({X, i % 2 == 0 ? -400.0f : 1000.0f});
    Line.push_back({X, i % 2 == 0 ? 1000.0f : -400.0f});
  }
  TCanvas Canvas;
  Canvas.Raster().StrokeLines(Line, {.Width = 512, .Join = TRasterJoin::Bevel}, Ink);
  EXPECT_EQ(Canvas.Most(), 0);
}

TEST(ZyRasterStroke, BoxesCoverTheirArea) {
  for (const RectF Box :
       {RectF{10, 20, 30, 5}, {10.25f, 20.5f, 30.5f, 0.25f}, {7.5f, 3.125f, 0.25f, 60}, {-5, -5, 200, 200}}) {
    TCanvas Boxed, Filled;
    const float Right = Box.X + Box.Width, Bottom = Box.Y + Box.Height;
    Boxed.Raster().FillBox(Box.X, Box.Y, Right, Bottom, 0xC0FF8000);
    Filled.Raster().FillPolygon(TPoints{{Box.X, Box.Y}, {Right, Box.Y}, {Right, Bottom}, {Box.X, Bottom}}, true,
                                TSolidPaint(0xC0FF8000));
    EXPECT_TRUE(Boxed.MarginIsUntouched());
    for (int Y = 0; Y < Boxed.Height(); ++Y)
      for (int X = 0; X < Boxed.Width(); ++X) ASSERT_NEAR(Boxed.Alpha(X, Y), Filled.Alpha(X, Y), 1) << X << ' ' << Y;
  }
  TCanvas Canvas;
  const double Nan = std::numeric_limits<double>::quiet_NaN();
  Canvas.Raster().FillBox(Nan, 0, 5, 5, 0xFF000000);
  Canvas.Raster().FillBox(0, 5, 5, Nan, 0xFF000000);
  Canvas.Raster().FillBox(1e300, -1e300, 1e301, 1e300, 0xFF000000);
  EXPECT_EQ(Canvas.Most(), 0);
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
  ExpectRectangle(Canvas, 10, 20, 20, 21, 64);
}

TEST(ZyRasterStroke, DashesCloseUp) {
  // Once around is 120 pixels, and the pattern starts and ends within a dash about the first corner.
  const float Pattern[] = {20, 10};
  TCanvas Canvas;
  Canvas.Raster().StrokeLines(TPoints{{20, 20}, {60, 20}, {60, 40}, {20, 40}},
                              {.Width = 4, .Dashes = Pattern, .DashOffset = 10, .Closed = true}, Ink);
  EXPECT_EQ(Canvas.Alpha(18, 18), 255);  // joined: neither end of the line covers this one
  const auto RowText = [&](int Y, int From, int To) {
    std::string Text;
    for (int X = From; X < To; X += 2) Text += Canvas.Alpha(X, Y) == 255 ? '#' : Canvas.Alpha(X, Y) == 0 ? '.' : '+';
    return Text;
  };
  EXPECT_EQ(RowText(20, 16, 64), ".######.....##########..");  // up to 30, and from 40 to 60
}

// --- clips and paints ---

TEST(ZyRaster, ClipsToBoxAndMask) {
  const auto Draw = [](TZyRaster Raster) {
    Raster.StrokeLines(ZigZag, {.Width = 5, .Join = TRasterJoin::Round, .Closed = true}, TSolidPaint(0xC0204080));
    Raster.FillPolygon(Circle(60, 45, 30, 5, 2), true, TSolidPaint(0x80FF8000));
    const float Pattern[] = {5, 3};
    Raster.StrokeLines(Tight, {.Width = 2, .Dashes = Pattern}, Ink);
  };
  TCanvas Whole;
  Draw(Whole.Raster());
  const TRasterRect Box{33, 21, 78, 60};
  std::vector<std::uint8_t> Mask(static_cast<std::size_t>(Whole.Width() * Whole.Height()));
  for (std::size_t Index = 0; Index < Mask.size(); ++Index) Mask[Index] = Index % 3 == 0 ? 255 : 0;
  for (const bool Masked : {false, true}) {
    TCanvas Part;
    Draw({Part.Target(), {Box, Masked ? Mask.data() : nullptr, Part.Width()}});
    for (int Y = 0; Y < Part.Height(); ++Y) {
      for (int X = 0; X < Part.Width(); ++X) {
        const bool Inside = X >= Box.Left && X < Box.Right && Y >= Box.Top && Y < Box.Bottom &&
                            (!Masked || (Y * Part.Width() + X) % 3 == 0);
        ASSERT_NEAR(Part.Alpha(X, Y), Inside ? Whole.Alpha(X, Y) : 0, 2) << X << ',' << Y;
      }
    }
  }
  TCanvas Half;
  std::fill(Mask.begin(), Mask.end(), std::uint8_t{128});
  TZyRaster(Half.Target(), {{0, 0, 999, 999}, Mask.data(), Half.Width()})
      .FillPolygon(TPoints{{10, 10}, {20, 10}, {20, 20}, {10, 20}}, true, Ink);
  ExpectRectangle(Half, 10, 10, 20, 20, 128);
}

/// Every pixel has a colour of its own.
class TPlacePaint : public TRasterPaint {
 public:
  static std::uint32_t ColorAt(int X, int Y) { return Black | static_cast<std::uint32_t>(X << 8 | Y); }
  void Fetch(int X, int Y, int Count, std::uint32_t* Pixels) const override {
    for (int Index = 0; Index < Count; ++Index) Pixels[Index] = ColorAt(X + Index, Y);
  }
};

TEST(ZyRaster, FetchesThePaintOfEachPixel) {
  TCanvas Canvas;
  Canvas.Raster().FillPolygon(TPoints{{7, 5}, {101, 5}, {101, 80}, {7, 80}}, true, TPlacePaint());
  for (int Y = 5; Y < 80; ++Y)
    for (int X = 7; X < 101; ++X) ASSERT_EQ(Canvas.At(X, Y), TPlacePaint::ColorAt(X, Y));
  EXPECT_EQ(Canvas.Area(), 94 * 75);
}

TEST(ZyRaster, BlendsAsPremultipliedSourceOver) {
  TCanvas Canvas;
  Canvas.At(4, 4) = 0xFF0000FF;
  Canvas.Raster().FillPolygon(TPoints{{4, 4}, {5, 4}, {5, 5}, {4, 5}}, true, TSolidPaint(0x80FF0000));
  EXPECT_EQ(Canvas.At(4, 4), 0xFF80007Fu);  // 128 of red, and 127 / 255 of the blue
}

// --- hostile input ---

TEST(ZyRasterHostile, FarPointsKeepTheVisiblePart) {
  for (const float Far : {1e4f, 1e9f, 1e12f, 1e20f, 3e38f}) {
    TCanvas Level;
    Level.Raster().StrokeLines(TPoints{{-Far, 45}, {Far, 45}}, {.Width = 3}, Ink);
    if (Far <= 1e12f) ExpectRectangle(Level, 0, 43.5, 120, 46.5);
    TCanvas Slanted;
    Slanted.Raster().StrokeLines(TPoints{{-Far, -Far}, {Far, Far}, {Far, 0}, {Far, -Far}}, {.Width = 4}, Ink);
    for (int Place = 4; Place < 86 && Far <= 1e12f; ++Place) {
      EXPECT_EQ(Slanted.Alpha(Place, Place), 255) << Far;
      EXPECT_EQ(Slanted.Alpha(Place + 4, Place), 0) << Far;
    }
    TCanvas Full;
    Full.Raster().FillPolygon(TPoints{{-Far, -Far}, {Far, -Far}, {Far, Far}, {-Far, Far}}, false, Ink);
    ExpectRectangle(Full, 0, 0, 120, 90);
    TCanvas Beside;
    for (const PointF& Way : {PointF{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
      const float X = Way.X * Far, Y = Way.Y * Far;
      Beside.Raster().FillPolygon(TPoints{{X, Y}, {X * 0.9f, Y + 30}, {X, Y + 60}}, true, Ink);
      Beside.Raster().StrokeLines(TPoints{{X, Y}, {X + 50, Y}, {X, Y + 60}}, {.Width = 3, .Closed = true}, Ink);
    }
    EXPECT_EQ(Beside.Most(), 0) << Far;
  }
}

TEST(ZyRasterHostile, ClosedLinesMayLeaveThePicture) {
  const TPoints Points = {{20.5f, 30.5f}, {20.5f, 1e4f}, {1e4f, 1e4f}, {1e4f, 30.5f}};
  for (std::size_t First = 0; First < Points.size(); ++First) {
    TPoints Turned = Points;
    std::rotate(Turned.begin(), Turned.begin() + static_cast<std::ptrdiff_t>(First), Turned.end());
    TCanvas Canvas;
    Canvas.Raster().StrokeLines(Turned, {.Width = 3, .Closed = true}, TSolidPaint(0x80000000));
    TCanvas Frame;  // its left and upper side, corner included
    Frame.Raster().FillPolygon(TPoints{{19, 29}, {120, 29}, {120, 32}, {22, 32}, {22, 90}, {19, 90}}, true, Ink);
    for (int Y = 0; Y < Canvas.Height(); ++Y)
      for (int X = 0; X < Canvas.Width(); ++X)
        ASSERT_EQ(Canvas.Alpha(X, Y), Frame.Alpha(X, Y) == 255 ? 128 : 0) << First;
  }
}

TEST(ZyRasterHostile, DashesKeepTheirPhaseOverAnyLength) {
  const float Pattern[] = {8, 4};
  for (const float Start : {0.0f, -12.0f, -1.2e6f, -1.5e7f}) {  // whole periods before the picture
    TCanvas Canvas;
    Canvas.Raster().StrokeLines(TPoints{{Start, 45}, {1e7f, 45}}, {.Width = 2, .Dashes = Pattern}, Ink);
    for (int X = 0; X < 120; ++X) EXPECT_NEAR(Canvas.Alpha(X, 45), X % 12 < 8 ? 255 : 0, 1) << Start << ' ' << X;
  }
  // A detour out of sight of 2,000 pixels comes first: 166 periods and a dash.
  TCanvas Detour;
  Detour.Raster().StrokeLines(TPoints{{-100, 45}, {-100, -955}, {-100, 45}, {200, 45}}, {.Width = 2, .Dashes = Pattern},
                              Ink);
  for (int X = 0; X < 120; ++X) EXPECT_NEAR(Detour.Alpha(X, 45), (X + 100 + 8) % 12 < 8 ? 255 : 0, 1) << X;
  // Too fine to see: as pale as what is drawn of it.
  const float Fine[] = {1e-30f, 3e-30f};
  TCanvas Canvas;
  Canvas.Raster().StrokeLines(TPoints{{10, 45}, {20, 45}}, {.Width = 2, .Dashes = Fine}, Ink);
  ExpectRectangle(Canvas, 10, 44, 20, 46, 64);
}

TEST(ZyRasterHostile, WhatIsNotANumberIsLeftOut) {
  constexpr float Nan = std::numeric_limits<float>::quiet_NaN();
  constexpr float Infinite = std::numeric_limits<float>::infinity();
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
  EXPECT_EQ(Canvas.Most(), 0);
  const float Dashes[] = {Nan, -3, Infinite};  // no length: solid
  Canvas.Raster().StrokeLines(TPoints{{10, 45}, {20, 45}},
                              {.Width = 2, .MiterLimit = Nan, .Dashes = Dashes, .DashOffset = Nan}, Ink);
  ExpectRectangle(Canvas, 10, 44, 20, 46);
}

/// Whatever was drawn: nothing outside the clip, nothing beyond the paint's alpha, and nothing left behind for the
/// next.
TEST(ZyRasterHostile, RandomShapesStayWithinTheirBounds) {
  std::mt19937 Random(5);
  const auto Pick = [&](int Count) { return static_cast<int>(Random() % static_cast<unsigned>(Count)); };
  const auto Real = [&](float Low, float High) { return std::uniform_real_distribution<float>(Low, High)(Random); };
  for (int Round = 0; Round < 3000; ++Round) {
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
    ASSERT_TRUE(Canvas.MarginIsUntouched()) << Round;
    ASSERT_LE(Canvas.Most(), 0x70) << Round;
    for (int Y = 0; Y < Canvas.Height(); ++Y)
      for (int X = 0; X < Canvas.Width(); ++X)
        ASSERT_TRUE(Canvas.Alpha(X, Y) == 0 || (X >= Box.Left && X < Box.Right && Y >= Box.Top && Y < Box.Bottom));
    if (Round % 50 != 0) continue;
    TCanvas After;
    After.Raster().FillPolygon(TPoints{{10.5f, 10}, {20, 10}, {20, 20}, {10.5f, 20}}, true, Ink);
    ExpectRectangle(After, 10.5, 10, 20, 20);
  }
}

// --- stamps ---

/// Paints a disc by the rasteriser and counts how often it was asked to.
struct TDiscPainter {
  int Calls = 0;
  TZySymbolStamps::TPaintSymbol Function() {
    return [this](const TRasterTarget& Stamp, PointF Anchor) {
      ++Calls;
      Paint(Stamp, {{0, 0, Stamp.Width, Stamp.Height}}, Anchor);
    };
  }
  static void Paint(const TRasterTarget& Target, const TRasterClip& Clip, PointF At) {
    TZyRaster(Target, Clip).FillPolygon(Circle(At.X, At.Y, 5, 24), true, TSolidPaint(0xC03060FF));
  }
  static constexpr RectF Extent{-5, -5, 10, 10};
};

TEST(ZySymbolStamps, LookAsIfPaintedAtTheNearestQuarterPixel) {
  std::mt19937 Random(6);
  std::uniform_real_distribution<float> X(-10, 130), Y(-10, 100);
  TPoints Places(300);
  for (PointF& Place : Places) Place = {X(Random), Y(Random)};
  TCanvas Stamped, Painted;
  const TRasterClip Clip{{3, 2, 110, 85}};
  TZySymbolStamps Stamps;
  TDiscPainter Painter;
  Stamps.Draw(Stamped.Target(), Clip, "disc", TDiscPainter::Extent, Places, Painter.Function());
  for (const PointF& Place : Places)
    TDiscPainter::Paint(Painted.Target(), Clip,
                        {std::floor(Place.X * 4 + 0.5f) / 4, std::floor(Place.Y * 4 + 0.5f) / 4});
  for (int Row = 0; Row < Stamped.Height(); ++Row)
    for (int Column = 0; Column < Stamped.Width(); ++Column)
      for (const int Shift : {0, 8, 16, 24})
        ASSERT_NEAR((Stamped.At(Column, Row) >> Shift) & 255, (Painted.At(Column, Row) >> Shift) & 255, 3)
            << Column << ',' << Row;
  EXPECT_EQ(Painter.Calls, 16);
  EXPECT_TRUE(Stamped.MarginIsUntouched());
}

TEST(ZySymbolStamps, KeepTheLooksUsedLast) {
  TCanvas Canvas;
  TZySymbolStamps Stamps(2);
  TDiscPainter Painter;
  const TPoints Places = {{20, 20}, {40.1f, 50.05f}};  // the same quarter
  const auto CallsFor = [&](std::string_view Look) {
    Painter.Calls = 0;
    Stamps.Draw(Canvas.Target(), Canvas.Clip(), Look, TDiscPainter::Extent, Places, Painter.Function());
    return Painter.Calls;
  };
  EXPECT_EQ(CallsFor("a"), 1);
  EXPECT_EQ(CallsFor("b"), 1);
  EXPECT_EQ(CallsFor("a"), 0);
  EXPECT_EQ(CallsFor("c"), 1);  // in place of b
  EXPECT_EQ(CallsFor("a"), 0);
  EXPECT_EQ(CallsFor("b"), 1);
  Stamps.Clear();
  EXPECT_EQ(CallsFor("b"), 1);
}

TEST(ZyRaster, EdgesThatEndAtTheBorderLeaveNothingBehind) {
  TCanvas Canvas;
  for (int Row = 1; Row < 80; ++Row) {
    const float End = std::nextafter(static_cast<float>(Row), 0.0f);  // a flat edge that ends just above a whole row
    const TPoints Slope = {{110, 0}, {0, End}, {0, 0}};
    Canvas.Raster().FillPolygon(Slope, false, TSolidPaint(0));
    const TPoints Corner = {{100, 80}, {110, 80}, {110, 85}, {100, 85}};
    Canvas.Raster().FillPolygon(Corner, false, TSolidPaint(0xFF000000));
  }
  EXPECT_NEAR(Canvas.Area(), 50, 1e-6) << "the second shape alone";
}

TEST(ZySymbolStamps, HonourMasksAndHostilePlaces) {
  TCanvas Canvas;
  std::vector<std::uint8_t> Mask(static_cast<std::size_t>(Canvas.Width() * Canvas.Height()));
  for (int Y = 0; Y < Canvas.Height(); ++Y)
    for (int X = 0; X < Canvas.Width() / 2; ++X) Mask[static_cast<std::size_t>(Y * Canvas.Width() + X)] = 255;
  const float Nan = std::numeric_limits<float>::quiet_NaN();
  const TPoints Places = {{60, 45},   {Nan, 3},       {3, Nan},
                          {1e30f, 3}, {-3e38f, 2e9f}, {3, -std::numeric_limits<float>::infinity()}};
  TZySymbolStamps Stamps;
  TDiscPainter Painter;
  const auto Draw = [&](const RectF& Extent) {
    Stamps.Clear();
    Stamps.Draw(Canvas.Target(), {Canvas.Clip().Box, Mask.data(), Canvas.Width()}, "disc", Extent, Places,
                Painter.Function());
  };
  for (const RectF& Unusable : {RectF{Nan, 0, 5, 5}, {0, 0, 0, 5}, {0, 0, 5, Nan}, {1e30f, 0, 5, 5}}) Draw(Unusable);
  EXPECT_EQ(Canvas.Most(), 0);
  Draw(TDiscPainter::Extent);
  EXPECT_EQ(Canvas.Alpha(58, 45), 0xC0);
  EXPECT_EQ(Canvas.Alpha(61, 45), 0);
  Draw({-1e3f, -1e3f, 1e30f, 1e30f});  // cut, not fatal
  EXPECT_EQ(Canvas.Alpha(61, 45), 0);
}

}  // namespace
}  // namespace zy
