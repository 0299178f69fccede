// What drawing through Graphics costs beside the toolkit's own painter, on a picture of 1200 x 800, anti-aliased.

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <random>

#include "graph/shapes/ZyDrawing.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Metafile.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/TStream.h"

namespace {

using namespace zy;

constexpr int Width = 1200, Height = 800;

using TDrawBar = void (*)(Graphics&, TZyColor, TZyColor, float, float, float, float, float, float);

/// A sine that fills the picture, with noise over most of its height or with none.
std::vector<PointF> Wave(int Count, bool Noisy) {
  std::mt19937 Random(7);
  std::uniform_real_distribution<float> Noise(-350, 350);
  std::vector<PointF> Points;
  for (int Index = 0; Index < Count; ++Index) {
    const float X = static_cast<float>(Width) * static_cast<float>(Index) / static_cast<float>(Count);
    Points.push_back({X, 400 + 40 * std::sin(0.05f * X) * (Noisy ? 1 : 8) + (Noisy ? Noise(Random) : 0)});
  }
  return Points;
}

std::vector<PointF> Closed(std::vector<PointF> Points) {
  Points.push_back({Width, Height});
  Points.push_back({0, Height});
  return Points;
}

std::vector<PointF> Scattered(int Count) {
  std::mt19937 Random(11);
  std::uniform_real_distribution<float> X(0, Width), Y(0, Height);
  std::vector<PointF> Points;
  for (int Index = 0; Index < Count; ++Index) Points.push_back({X(Random), Y(Random)});
  return Points;
}

QPolygonF ForToolkit(const std::vector<PointF>& Points) {
  QPolygonF Result;
  for (const PointF& Point : Points) Result.append(QPointF(Point.X + 0.5f, Point.Y + 0.5f));
  return Result;
}

/// Runs Draw on a Graphics that stays open, as in one paint.
template <class TDraw>
void WithGraphics(benchmark::State& State, TDraw Draw) {
  Bitmap Picture(Width, Height);
  Graphics Canvas(Picture);
  Canvas.Clear(0xFFFFFFFF);
  Canvas.SetSmoothingMode(SmoothingModeHighQuality);
  for (auto _ : State) Draw(Canvas);
}

template <class TDraw>
void WithPainter(benchmark::State& State, TDraw Draw) {
  QImage Picture(Width, Height, QImage::Format_ARGB32_Premultiplied);
  Picture.fill(Qt::white);
  QPainter Painter(&Picture);
  Painter.setRenderHint(QPainter::Antialiasing);
  for (auto _ : State) Draw(Painter);
}

QPen PainterPen(double PenWidth) { return {Qt::red, PenWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin}; }

void Polyline(benchmark::State& State, bool Noisy, float PenWidth, int Count) {
  const auto Points = Wave(Count, Noisy);
  const Pen Line(0xFFFF0000, PenWidth);
  WithGraphics(State, [&](Graphics& Canvas) { Canvas.DrawLines(Line, Points); });
}

void PolylineByPainter(benchmark::State& State, bool Noisy, double PenWidth, int Count) {
  const auto Points = ForToolkit(Wave(Count, Noisy));
  WithPainter(State, [&](QPainter& Painter) {
    Painter.setPen(PainterPen(PenWidth));
    Painter.drawPolyline(Points);
  });
}

#define ZY_LINE_BENCHMARK(Name, Noisy, PenWidth, Count)                                     \
  BENCHMARK_CAPTURE(Polyline, Name, Noisy, PenWidth, Count)->Unit(benchmark::kMicrosecond); \
  BENCHMARK_CAPTURE(PolylineByPainter, Name, Noisy, PenWidth, Count)->Unit(benchmark::kMicrosecond)
ZY_LINE_BENCHMARK(noise_width_1, true, 1, 2000);
ZY_LINE_BENCHMARK(noise_width_2, true, 2, 2000);
ZY_LINE_BENCHMARK(smooth_width_1, false, 1, 2000);
ZY_LINE_BENCHMARK(smooth_width_2, false, 2, 2000);
ZY_LINE_BENCHMARK(three_points_width_1, false, 1, 3);
ZY_LINE_BENCHMARK(three_points_width_2, false, 2, 3);

void Area(benchmark::State& State) {
  const auto Points = Closed(Wave(2000, true));
  const SolidBrush Fill(0x80FF0000);
  WithGraphics(State, [&](Graphics& Canvas) { Canvas.FillPolygon(Fill, Points); });
}
BENCHMARK(Area)->Unit(benchmark::kMicrosecond);

void AreaByPainter(benchmark::State& State) {
  const auto Points = ForToolkit(Closed(Wave(2000, true)));
  WithPainter(State, [&](QPainter& Painter) {
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(QColor(255, 0, 0, 128));
    Painter.drawPolygon(Points);
  });
}
BENCHMARK(AreaByPainter)->Unit(benchmark::kMicrosecond);

void SmallPolygon(benchmark::State& State) {
  const PointF Points[] = {{100, 100}, {110, 103}, {107, 110}, {98, 108}};
  const SolidBrush Fill(0xFFFF0000);
  WithGraphics(State, [&](Graphics& Canvas) { Canvas.FillPolygon(Fill, Points); });
}
BENCHMARK(SmallPolygon)->Unit(benchmark::kNanosecond);

void SmallPolygonByPainter(benchmark::State& State) {
  const QPolygonF Points = ForToolkit({{100, 100}, {110, 103}, {107, 110}, {98, 108}});
  WithPainter(State, [&](QPainter& Painter) {
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(Qt::red);
    Painter.drawPolygon(Points);
  });
}
BENCHMARK(SmallPolygonByPainter)->Unit(benchmark::kNanosecond);

void Circles(benchmark::State& State) {
  const auto Points = Scattered(10000);
  const Pen Outline(0xFF0000FF, 1);
  const SolidBrush Fill(0xFF80C0FF);
  WithGraphics(State,
               [&](Graphics& Canvas) { DrawPointSymbols(Canvas, Outline, Fill, Points, 11, TZyPointSymbol::Circle); });
}
BENCHMARK(Circles)->Unit(benchmark::kMicrosecond);

void CirclesByPainter(benchmark::State& State) {
  const auto Points = ForToolkit(Scattered(10000));
  WithPainter(State, [&](QPainter& Painter) {
    Painter.setPen(QPen(Qt::blue, 1));
    Painter.setBrush(QColor(128, 192, 255));
    for (const QPointF& Point : Points) Painter.drawEllipse(Point, 5, 5);
  });
}
BENCHMARK(CirclesByPainter)->Unit(benchmark::kMicrosecond);

/// A line through all points, kept out of a hole at each of them. The argument is their number; 0 holes is the line
/// through 10,000 points alone.
void LineWithHoles(benchmark::State& State) {
  const int Holes = static_cast<int>(State.range(0));
  const auto Points = Wave(Holes == 0 ? 10000 : Holes, true);
  const Pen Line(0xFFFF0000, 2);
  WithGraphics(State, [&](Graphics& Canvas) {
    const Region Saved = Canvas.GetClip();
    if (Holes > 0)
      for (const PointF& Point : Points) ExcludeSymbolSpace(Canvas, Point.X, Point.Y, 11, TZyPointSymbol::Circle);
    Canvas.DrawLines(Line, Points);
    Canvas.SetClip(Saved);
  });
}
BENCHMARK(LineWithHoles)->ArgName("holes")->Arg(0)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

/// The same written as a file, which keeps shapes for shapes; of a smooth line, holes lie over each other.
void FileWithHoles(benchmark::State& State, const char* Format, bool Noisy) {
  const auto Points = Wave(static_cast<int>(State.range(0)), Noisy);
  Metafile Page(Width, Height);
  {
    Graphics Canvas(Page);
    Canvas.SetSmoothingMode(SmoothingModeHighQuality);
    for (const PointF& Point : Points) ExcludeSymbolSpace(Canvas, Point.X, Point.Y, 11, TZyPointSymbol::Circle);
    Canvas.DrawLines(Pen(0xFFFF0000, 2), Points);
  }
  for (auto _ : State) {
    TMemoryStream Stream;
    Page.Save(Stream, Format);
  }
}
void FileSizes(benchmark::internal::Benchmark* Case) {
  for (const int Count : {1000, 2000, 4000, 8000}) Case->Arg(Count);
  Case->Unit(benchmark::kMillisecond);
}
BENCHMARK_CAPTURE(FileWithHoles, PDF, "PDF", true)->Apply(FileSizes);
BENCHMARK_CAPTURE(FileWithHoles, PDF_smooth, "PDF", false)->Apply(FileSizes);
BENCHMARK_CAPTURE(FileWithHoles, EMF, "EMF", true)->Apply(FileSizes);
BENCHMARK_CAPTURE(FileWithHoles, EMF_smooth, "EMF", false)->Apply(FileSizes);

/// A hundred framed bars of 40 pixels, as boxes or as cylinders.
void Bars(benchmark::State& State, bool AreBoxes) {
  WithGraphics(State, [&](Graphics& Canvas) {
    for (int Index = 0; Index < 100; ++Index) {
      const float X = static_cast<float>(Index % 20) * 60, Y = static_cast<float>(Index / 20) * 160 + 20;
      const auto Draw = AreBoxes ? static_cast<TDrawBar>(Draw3DBar) : DrawCylinderVertical;
      Draw(Canvas, 0xFF000080, 0xFF4080C0, X, Y, X + 40, Y + 130, 14, 10);
    }
  });
}
BENCHMARK_CAPTURE(Bars, boxes, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Bars, cylinders, false)->Unit(benchmark::kMillisecond);

}  // namespace
