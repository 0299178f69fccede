// The coverage rasteriser and the symbol stamps beside the toolkit's painter: 1200 x 800 pixels, smooth, one thread.

#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "platform/drawing/ZyRaster.h"
#include "platform/drawing/ZySymbolStamps.h"

namespace {

using namespace zy;

constexpr int Width = 1200;
constexpr int Height = 800;

/// A picture that both sides draw on.
struct TCanvas {
  TCanvas() { Image.fill(Qt::white); }
  TRasterTarget Target() {
    return {reinterpret_cast<std::uint32_t*>(Image.bits()), Image.bytesPerLine() / 4, Image.width(), Image.height()};
  }
  TRasterClip Clip() const { return {{0, 0, Image.width(), Image.height()}}; }
  QImage Image{Width, Height, QImage::Format_ARGB32_Premultiplied};
};

/// A sine, with noise over most of the picture's height or without.
std::vector<PointF> Wave(int Count, bool Noisy) {
  std::mt19937 Random(1);
  std::uniform_real_distribution<double> Noise(-250, 250);
  std::vector<PointF> Result;
  for (int Index = 0; Index < Count; ++Index) {
    const double X = static_cast<double>(Index) * Width / Count;
    const double Sine = std::sin(0.05 * X);
    const double Y = Noisy ? 400 + 100 * Sine + Noise(Random) : 400 + 300 * Sine;
    Result.push_back({static_cast<float>(X), static_cast<float>(Y)});
  }
  return Result;
}

std::vector<PointF> Area(std::vector<PointF> Line) {
  Line.push_back({Line.back().X, Height - 10});
  Line.push_back({Line.front().X, Height - 10});
  return Line;
}

/// A regular polygon about (100.3, 100.4).
std::vector<PointF> Polygon(int Count, double Radius) {
  std::vector<PointF> Result;
  for (int Index = 0; Index < Count; ++Index) {
    const double Angle = 2 * std::numbers::pi * Index / Count;
    Result.push_back(
        {static_cast<float>(100.3 + Radius * std::cos(Angle)), static_cast<float>(100.4 + Radius * std::sin(Angle))});
  }
  return Result;
}

QPolygonF ToQt(const std::vector<PointF>& Points) {
  QPolygonF Result;
  for (const PointF& Point : Points) Result.append({Point.X, Point.Y});
  return Result;
}

void StrokeByRaster(benchmark::State& State, const std::vector<PointF>& Points, float PenWidth) {
  TCanvas Canvas;
  TZyRaster Raster(Canvas.Target(), Canvas.Clip());
  const TSolidPaint Ink(0xFF0000FF);
  for (auto _ : State) Raster.StrokeLines(Points, {.Width = PenWidth, .Join = TRasterJoin::MiterCut}, Ink);
}

constexpr float Dashes[] = {8, 4};

void DashesByRaster(benchmark::State& State, const std::vector<PointF>& Points, float PenWidth) {
  TCanvas Canvas;
  TZyRaster Raster(Canvas.Target(), Canvas.Clip());
  const TSolidPaint Ink(0xFF0000FF);
  const TRasterStroke Stroke{.Width = PenWidth, .Join = TRasterJoin::MiterCut, .Dashes = Dashes};
  for (auto _ : State) Raster.StrokeLines(Points, Stroke, Ink);
}

void DashesByPainter(benchmark::State& State, const std::vector<PointF>& Points, float PenWidth) {
  TCanvas Canvas;
  QPainter Painter(&Canvas.Image);
  Painter.setRenderHint(QPainter::Antialiasing);
  QPen Ink(QColor(0, 0, 255), static_cast<double>(PenWidth), Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
  Ink.setMiterLimit(10);
  const double Unit = static_cast<double>(PenWidth);
  Ink.setDashPattern({static_cast<double>(Dashes[0]) / Unit, static_cast<double>(Dashes[1]) / Unit});
  Painter.setPen(Ink);
  const QPolygonF Line = ToQt(Points);
  for (auto _ : State) Painter.drawPolyline(Line);
}

void StrokeByPainter(benchmark::State& State, const std::vector<PointF>& Points, float PenWidth) {
  TCanvas Canvas;
  QPainter Painter(&Canvas.Image);
  Painter.setRenderHint(QPainter::Antialiasing);
  QPen Ink(QColor(0, 0, 255), static_cast<double>(PenWidth), Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
  Ink.setMiterLimit(10);
  Painter.setPen(Ink);
  const QPolygonF Line = ToQt(Points);
  for (auto _ : State) Painter.drawPolyline(Line);
}

void FillByRaster(benchmark::State& State, const std::vector<PointF>& Points, std::uint32_t Color) {
  TCanvas Canvas;
  TZyRaster Raster(Canvas.Target(), Canvas.Clip());
  const TSolidPaint Ink(Color);
  for (auto _ : State) Raster.FillPolygon(Points, false, Ink);
}

void FillByPainter(benchmark::State& State, const std::vector<PointF>& Points, std::uint32_t Color) {
  TCanvas Canvas;
  QPainter Painter(&Canvas.Image);
  Painter.setRenderHint(QPainter::Antialiasing);
  Painter.setPen(Qt::NoPen);
  Painter.setBrush(QColor::fromRgba(Color));
  const QPolygonF Shape = ToQt(Points);
  for (auto _ : State) Painter.drawPolygon(Shape);
}

void PaintCircle(QPainter& Painter, const QPointF& Centre) {
  Painter.setPen(QPen(QColor(0, 0, 128), 1.2));
  Painter.setBrush(QColor(90, 160, 255));
  Painter.drawEllipse(Centre, 4, 4);
}

std::vector<PointF> Places() {
  std::mt19937 Random(2);
  std::uniform_real_distribution<float> X(0, Width), Y(0, Height);
  std::vector<PointF> Result(10'000);
  for (PointF& Place : Result) Place = {X(Random), Y(Random)};
  return Result;
}

void CirclesByStamps(benchmark::State& State) {
  TCanvas Canvas;
  TZySymbolStamps Stamps;
  const std::vector<PointF> At = Places();
  const auto Paint = [](const TRasterTarget& Stamp, PointF Anchor) {
    QImage Picture(reinterpret_cast<uchar*>(Stamp.Pixels), Stamp.Width, Stamp.Height, Stamp.Stride * 4,
                   QImage::Format_ARGB32_Premultiplied);
    QPainter Painter(&Picture);
    Painter.setRenderHint(QPainter::Antialiasing);
    PaintCircle(Painter, {Anchor.X, Anchor.Y});
  };
  for (auto _ : State) {
    Stamps.Clear();  // the stamps are made anew each time
    Stamps.Draw(Canvas.Target(), Canvas.Clip(), "circle", {-5, -5, 10, 10}, At, Paint);
  }
}

void CirclesByPainter(benchmark::State& State) {
  TCanvas Canvas;
  QPainter Painter(&Canvas.Image);
  Painter.setRenderHint(QPainter::Antialiasing);
  const std::vector<PointF> At = Places();
  for (auto _ : State)
    for (const PointF& Place : At) PaintCircle(Painter, {Place.X, Place.Y});
}

using TStroke = void (*)(benchmark::State&, const std::vector<PointF>&, float);
using TFill = void (*)(benchmark::State&, const std::vector<PointF>&, std::uint32_t);

template <typename TFunction, typename TArgument>
void Register(const std::string& Case, TFunction Ours, TFunction Theirs, const std::vector<PointF>& Points,
              TArgument Argument) {
  benchmark::RegisterBenchmark((Case + "/raster").c_str(), Ours, Points, Argument)->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark((Case + "/painter").c_str(), Theirs, Points, Argument)->Unit(benchmark::kMicrosecond);
}

void RegisterAll() {
  for (const float PenWidth : {1.0f, 1.5f, 2.0f, 5.0f, 20.0f}) {
    const auto Stroke = [&](const std::string& Name, const std::vector<PointF>& Points) {
      char Pen[16];
      std::snprintf(Pen, sizeof Pen, "/%g", static_cast<double>(PenWidth));
      Register<TStroke, float>(Name + Pen, StrokeByRaster, StrokeByPainter, Points, PenWidth);
    };
    Stroke("noise_2000", Wave(2000, true));
    Stroke("noise_100", Wave(100, true));
    Stroke("noise_20", Wave(20, true));
    Stroke("sine_2000", Wave(2000, false));
    Stroke("sine_200", Wave(200, false));
    Stroke("line_long", {{10.3f, 10.2f}, {1100.1f, 700.7f}});
    Stroke("line_level", {{10, 20.5f}, {1100, 20.5f}});
    Stroke("line_3_points", {{10, 20.2f}, {17.5f, 12}, {25.3f, 21}});
    Stroke("line_20_points", Polygon(20, 15));
  }
  for (const int Count : {200, 500, 1000, 5000})
    Register<TStroke, float>("noise_" + std::to_string(Count) + "/1", StrokeByRaster, StrokeByPainter,
                             Wave(Count, true), 1);
  Register<TStroke, float>("dashed_sine_2000/1", DashesByRaster, DashesByPainter, Wave(2000, false), 1);
  Register<TStroke, float>("dashed_sine_2000/2", DashesByRaster, DashesByPainter, Wave(2000, false), 2);
  Register<TStroke, float>("dashed_line_3_points/1", DashesByRaster, DashesByPainter,
                           {{10, 20.2f}, {17.5f, 12}, {25.3f, 21}}, 1);
  Register<TFill, std::uint32_t>("area_2000_alpha", FillByRaster, FillByPainter, Area(Wave(2000, true)), 0x800000FF);
  Register<TFill, std::uint32_t>("area_2000", FillByRaster, FillByPainter, Area(Wave(2000, true)), 0xFF0000FF);
  Register<TFill, std::uint32_t>("area_sine_2000_alpha", FillByRaster, FillByPainter, Area(Wave(2000, false)),
                                 0x800000FF);
  Register<TFill, std::uint32_t>("polygon_10x10", FillByRaster, FillByPainter, Polygon(5, 5), 0xFF0000FF);
  Register<TFill, std::uint32_t>("polygon_80x80", FillByRaster, FillByPainter, Polygon(12, 40), 0x800000FF);
  benchmark::RegisterBenchmark("circles_10000/stamps", CirclesByStamps)->Unit(benchmark::kMicrosecond);
  benchmark::RegisterBenchmark("circles_10000/painter", CirclesByPainter)->Unit(benchmark::kMicrosecond);
}

}  // namespace

int main(int ArgCount, char** Args) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication Program(ArgCount, Args);
  benchmark::Initialize(&ArgCount, Args);
  RegisterAll();
  benchmark::RunSpecifiedBenchmarks();
}
