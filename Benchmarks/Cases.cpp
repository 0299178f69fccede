// The cases that users of chart libraries ask for, each in a process of its own. Prints for each:
//
//     aim CASE UNITS                  where one is set
//     zyphos CASE SECONDS PEAK_KIB    the median of its runs
//     best CASE SECONDS               the quickest of them: what is left when other programs do not disturb
//     limit CASE SECONDS              the unit: one scan of a million values for their extremes, in turns with the runs
//     allocations CASE COUNT          of one more repaint with nothing changed
//
// Names of cases as arguments choose among them. `--cold FILE` draws a chart of 100 points into a PNG file and ends, to
// be measured from outside; `--cold-toolkit FILE` has the toolkit alone draw and write something like it.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

#include "Cases.h"
#include "platform/controls/TApplication.h"
#include "series/ZyPointSeries.h"

namespace {

using namespace zy;
using namespace zy::cases;

void Style(TZyLineSeries& Series, std::string_view Kind) {
  if (Kind == "w2") Series.Line().SetWidth(2);
  if (Kind == "area") {
    Series.Area().SetVisible(true);
    Series.Area().SetForeColor(0x504080C0);
  }
}

/// A new chart with a line of Count points: load, layout, first paint. Kind "copied" copies the data.
TResult FirstPaint(int Count, std::string_view Kind) {
  std::unique_ptr<TData> Data;
  Bitmap Picture(Width, Height);
  std::unique_ptr<TChart> Chart;
  const TResult Result = Median(
      [&] {
        Chart = std::make_unique<TChart>();
        Style(Kind == "copied" ? Chart->Add(Data->X, Data->Y) : Chart->Take(*Data), Kind);
        Chart->Paint(Picture);
      },
      [&] {
        Chart.reset();
        Data = std::make_unique<TData>(Count);
      });
  return WithAllocations(Result, *Chart, Picture);
}

/// The same chart once more, with nothing changed.
TResult Repaint(int Count, std::string_view Kind, float Ratio = 1) {
  TChart Chart;
  {
    TData Data(Count);
    Style(Chart.Take(Data), Kind);
  }
  Bitmap Picture(Width, Height, Ratio);
  Chart.Paint(Picture);
  return WithAllocations(Median([&] { Chart.Paint(Picture); }), Chart, Picture);
}

/// The same with the pixels of the line computed anew, as after a change of size. Kind "loglog" has both axes
/// logarithmic, for a power law over six decades with noise.
TResult PaintAnew(int Count, std::string_view Kind) {
  TChart Chart;
  {
    TData Data(Count);
    if (Kind == "loglog") {
      for (std::size_t i = 0; i < Data.X.size(); ++i) {
        Data.X[i] = std::pow(10.0, 6 * Data.X[i] / 1000);
        Data.Y[i] = std::sqrt(Data.X[i]) * std::exp(Data.Y[i] / 10);
      }
      Chart.Graph->PrimaryXAxis()->SetScaling(TZyAxisScaling::Log);
      Chart.Graph->PrimaryYAxis()->SetScaling(TZyAxisScaling::Log);
    }
    Chart.Take(Data);
  }
  Bitmap Picture(Width, Height);
  Chart.Paint(Picture);
  const TResult Result = Median([&] { Chart.Paint(Picture); }, [&] { Chart.Graph->SeriesModified(); });
  return WithAllocations(Result, Chart, Picture);
}

/// A thousand new points for a million, with the axes following.
TResult Stream() {
  constexpr int Step = 1000, Steps = MostRuns + 1;
  const TData Data(Million + Steps * Step);
  TChart Chart;
  const std::span<const double> X(Data.X), Y(Data.Y);
  TZyLineSeries& Series = Chart.Add(X.first(Million), Y.first(Million));
  Bitmap Picture(Width, Height);
  Chart.Paint(Picture);
  std::size_t Count = Million;
  const auto Append = [&] {
    dynamic_cast<TZyDoubleVector*>(Series.XData())->AddRange(X.subspan(Count, Step));
    dynamic_cast<TZyDoubleVector*>(Series.YData())->AddRange(Y.subspan(Count, Step));
    Count += Step;
    Chart.Paint(Picture);
  };
  Append();
  return WithAllocations(Median(Append), Chart, Picture);
}

TResult Scatter() {
  constexpr int Count = 100000;
  std::mt19937 Random(1);
  std::uniform_real_distribution<double> Anywhere(0, 1);
  std::vector<double> X, Y;
  for (int i = 0; i < Count; ++i) {
    X.push_back(Anywhere(Random));
    Y.push_back(Anywhere(Random));
  }
  Bitmap Picture(Width, Height);
  std::unique_ptr<TChart> Chart;
  const TResult Result = Median(
      [&] {
        Chart = std::make_unique<TChart>();
        auto& Series = Chart->Add<TZyPointSeries>(X, Y);
        Series.Line().SetVisible(false);
        Series.PointSymbol().SetPointSymbol(TZyPointSymbol::Circle);
        Series.PointSymbol().SetSize(5);
        Chart->Paint(Picture);
      },
      [&] { Chart.reset(); });
  return WithAllocations(Result, *Chart, Picture);
}

/// One percent of the points, another one each time.
TResult Zoom(int Count) {
  TChart Chart;
  {
    TData Data(Count);
    Chart.Take(Data);
  }
  TZyAxis& Axis = *Chart.Graph->PrimaryXAxis();
  Axis.SetStartEnd(TZyAxisEnd::Fixed);
  Axis.SetStopEnd(TZyAxisEnd::Fixed);
  Bitmap Picture(Width, Height);
  double Start = 495;
  const auto Show = [&] {
    Axis.SetStartStop(Start, Start + 10);
    Start = Start < 900 ? Start + 1 : 495;
    Chart.Paint(Picture);
  };
  Show();
  return WithAllocations(Median(Show), Chart, Picture);
}

/// Thirty notches of the wheel over the middle, each with its paint. What counts is the stage that took longest: its
/// middle and its quickest time of several ways down.
TResult WheelStages() {
  constexpr int Stages = 30, Ways = 15;
  constexpr double Notch = 1 / 1.5;
  TChart Chart;
  {
    TData Data(Million);
    Chart.Take(Data);
  }
  Bitmap Picture(Width, Height);
  Chart.Paint(Picture);
  std::vector<std::vector<double>> Times(Stages);
  std::vector<double> Scans;
  const std::vector<double> Values = TData(Million).Y;
  volatile double Span = 0;
  for (int Way = 0; Way < Ways; ++Way) {
    for (std::vector<double>& OfStage : Times) {
      OfStage.push_back(SecondsOf([&] {
        Chart.Graph->ZoomAround({Width / 2, Height / 2}, Notch);
        Chart.Paint(Picture);
      }));
      Span = Scan(Values);
      Scans.push_back(SecondsOf([&] { Span = Scan(Values); }));
    }
    Chart.Graph->ZoomReset();
    Chart.Paint(Picture);
  }
  TResult Result;
  for (std::vector<double>& OfStage : Times) {
    Result.Best = std::max(Result.Best, *std::min_element(OfStage.begin(), OfStage.end()));
    Result.Seconds = std::max(Result.Seconds, MiddleOf(OfStage));
  }
  Result.Limit = MiddleOf(Scans);
  return WithAllocations(Result, Chart, Picture);
}

/// Many charts or curves: created, filled, laid out and painted.
TResult ManyCharts() {
  const TData Data(200);
  Bitmap Picture(300, 200);
  std::vector<std::unique_ptr<TChart>> Charts;
  const TResult Result = Median(
      [&] {
        for (int i = 0; i < 100; ++i) {
          Charts.push_back(std::make_unique<TChart>(300, 200));
          Charts.back()->Add(Data.X, Data.Y);
          Charts.back()->Paint(Picture);
        }
      },
      [&] { Charts.clear(); });
  return WithAllocations(Result, *Charts.back(), Picture);
}

TResult ManyCurves() {
  TData Data(500);
  Bitmap Picture(Width, Height);
  std::unique_ptr<TChart> Chart;
  const TResult Result = Median(
      [&] {
        Chart = std::make_unique<TChart>();
        for (int i = 0; i < 2000; ++i) {
          for (double& Y : Data.Y) Y += 0.01;
          Chart->Add(Data.X, Data.Y);
        }
        Chart->Paint(Picture);
      },
      [&] { Chart.reset(); });
  return WithAllocations(Result, *Chart, Picture);
}

/// Whether the machine has room for so many points, and for a chart beside them.
bool HasMemoryFor(double Points) {
  const double Free = static_cast<double>(sysconf(_SC_AVPHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGESIZE));
  return Free > 2.5 * 2 * sizeof(double) * Points;
}

/// A chart of a few points from nothing to a file.
void DrawCold(const char* FileName) {
  const TData Data(100);
  Bitmap Picture(Width, Height);
  TChart Chart;
  Chart.Add(Data.X, Data.Y);
  Chart.Paint(Picture);
  Picture.Save(std::filesystem::path(FileName));
}

/// What the toolkit needs by itself for such a picture: a ground, a line, some texts, a file.
void DrawColdByToolkit(const char* FileName) {
  const TData Data(100);
  QImage Picture(Width, Height, QImage::Format_RGB32);
  Picture.fill(Qt::white);
  QPainter Painter(&Picture);
  Painter.setRenderHint(QPainter::Antialiasing);
  Painter.setPen(Qt::red);
  QPolygonF Line;
  for (std::size_t i = 0; i < Data.X.size(); ++i) Line << QPointF(50 + 1.1 * Data.X[i], 400 - 30 * Data.Y[i]);
  Painter.drawPolyline(Line);
  Painter.setPen(Qt::black);
  for (int i = 0; i < 11; ++i) Painter.drawText(QPointF(50 + 110.0 * i, 790), QString::number(100 * i));
  for (int i = 0; i < 9; ++i) Painter.drawText(QPointF(5, 20 + 90.0 * i), QString::number(12 - 3 * i));
  Painter.end();
  Picture.save(QString::fromLocal8Bit(FileName));
}

/// Eight curves of a million points each, and a thousand more on each before every paint.
TResult Live() {
  constexpr int Step = 1000, Curves = 8, Steps = MostRuns + 1;
  const TData Data(Million + Steps * Step);
  TChart Chart;
  const std::span<const double> X(Data.X), Y(Data.Y);
  std::vector<TZyLineSeries*> Series;
  for (int i = 0; i < Curves; ++i) Series.push_back(&Chart.Add(X.first(Million), Y.first(Million)));
  Bitmap Picture(Width, Height);
  Chart.Paint(Picture);
  std::size_t Count = Million;
  const auto Append = [&] {
    for (TZyLineSeries* const Each : Series) {
      dynamic_cast<TZyDoubleVector*>(Each->XData())->AddRange(X.subspan(Count, Step));
      dynamic_cast<TZyDoubleVector*>(Each->YData())->AddRange(Y.subspan(Count, Step));
    }
    Count += Step;
    Chart.Paint(Picture);
  };
  Append();
  return WithAllocations(Median(Append), Chart, Picture);
}

constexpr int Hundred = 100 * Million;

const TCase Cases[] = {
    {"A-line1e6", 4, [] { return FirstPaint(Million, "line"); }},
    {"A-line1e6-copied", 0, [] { return FirstPaint(Million, "copied"); }},
    {"A-line1e6-repaint", 3, [] { return Repaint(Million, "line"); }},
    {"A-line1e6-anew", 0, [] { return PaintAnew(Million, "line"); }},
    {"A2-line1e6-w2", 20, [] { return FirstPaint(Million, "w2"); }},
    {"A2-line1e6-w2-repaint", 5, [] { return Repaint(Million, "w2"); }},
    {"A3-area1e6", 20, [] { return FirstPaint(Million, "area"); }},
    {"A3-area1e6-repaint", 5, [] { return Repaint(Million, "area"); }},
    {"B-line1e7", 130, [] { return FirstPaint(10 * Million, "line"); }},
    {"B-line1e7-repaint", 6, [] { return Repaint(10 * Million, "line"); }},
    {"B8-line1e8-repaint", 0, [] { return Repaint(Hundred, "line"); }},
    {"B8-line1e8-zoom1pct", 0, [] { return Zoom(Hundred); }},
    {"C-stream", 1, Stream},
    {"L-live8", 8, Live},
    {"D-scatter1e5", 8, Scatter},
    {"F-zoom1pct", 1.4, [] { return Zoom(Million); }},
    {"W-wheel30", 1.4, WheelStages},
    {"G-loglog1e6", 3.6, [] { return PaintAnew(Million, "loglog"); }},
    {"H-100charts", 7, ManyCharts},
    {"J-2000curves", 60, ManyCurves},
    {"K-hidpi2", 1.2, [] { return Repaint(Million, "line", 2); }},
    // How the cost grows with the points, together with the cases above.
    {"N4-first", 0, [] { return FirstPaint(Million / 100, "line"); }},
    {"N5-first", 0, [] { return FirstPaint(Million / 10, "line"); }},
    {"N4-repaint", 0, [] { return Repaint(Million / 100, "line"); }},
    {"N5-repaint", 0, [] { return Repaint(Million / 10, "line"); }},
    {"N4-zoom1pct", 0, [] { return Zoom(Million / 100); }},
    {"N5-zoom1pct", 0, [] { return Zoom(Million / 10); }},
    {"N7-zoom1pct", 0, [] { return Zoom(10 * Million); }},
};

/// Runs a case in a child, so that its peak of memory is its own. False when it failed.
bool RunAlone(const TCase& Case, int ArgCount, char** Args) {
  std::fflush(stdout);
  const pid_t Child = fork();
  if (Child == 0) {
    const TApplication Program(ArgCount, Args);
    const TResult Result = Case.Run();
    rusage Usage{};
    getrusage(RUSAGE_SELF, &Usage);
    if (Case.Aim > 0) std::printf("aim %s %g\n", Case.Name, Case.Aim);
    std::printf("zyphos %s %.6f %ld\n", Case.Name, Result.Seconds, Usage.ru_maxrss);
    std::printf("best %s %.6f\n", Case.Name, Result.Best);
    std::printf("limit %s %.6f\n", Case.Name, Result.Limit);
    std::printf("allocations %s %ld\n", Case.Name, Result.Allocations);
    std::fflush(stdout);
    _exit(0);
  }
  int Status = 1;
  return Child > 0 && waitpid(Child, &Status, 0) == Child && Status == 0;
}

}  // namespace

int main(int ArgCount, char** Args) {
  if (ArgCount == 3 && std::string_view(Args[1]) == "--cold") {
    const TApplication Program(ArgCount, Args);
    DrawCold(Args[2]);
    return 0;
  }
  if (ArgCount == 3 && std::string_view(Args[1]) == "--cold-toolkit") {
    const QApplication Program(ArgCount, Args);
    DrawColdByToolkit(Args[2]);
    return 0;
  }
  bool Good = true;
  std::vector<TCase> All(std::begin(Cases), std::end(Cases));
  for (const std::span<const TCase> More : {KindCases(), CurveCases(), LegendCases(), MarkerCases(), PieCases()})
    All.insert(All.end(), More.begin(), More.end());
  for (const TCase& Case : All) {
    const std::string_view Name = Case.Name;
    const bool Chosen =
        ArgCount == 1 || std::any_of(Args + 1, Args + ArgCount, [&](const char* Arg) { return Name == Arg; });
    if (!Chosen) continue;
    if (Name.starts_with("B8") && !HasMemoryFor(Hundred)) {
      std::printf("skipped %s too little free memory for 100,000,000 points\n", Case.Name);
      continue;
    }
    Good = RunAlone(Case, ArgCount, Args) && Good;
  }
  return Good ? 0 : 1;
}
