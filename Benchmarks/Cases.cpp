// The cases that users of chart libraries ask for, each in a process of its own. Prints a row for each:
//
//     zyphos CASE SECONDS PEAK_KIB
//
// with the median of five runs, and as the unit beside them one scan of a million values for their extremes. Names of
// cases as arguments choose among them.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "graph/ZyGraph2D.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "series/ZyDoubleVector.h"
#include "series/ZyPointSeries.h"

namespace {

using namespace zy;

constexpr int Width = 1200, Height = 800;
constexpr int Million = 1000000;

struct TData {
  explicit TData(int Count) {
    std::mt19937 Random(1);
    std::uniform_real_distribution<double> Noise(-2, 2);
    X.reserve(static_cast<std::size_t>(Count));
    Y.reserve(static_cast<std::size_t>(Count));
    for (int i = 0; i < Count; ++i) {
      X.push_back(i * 1000.0 / Count);
      Y.push_back(10 * std::sin(0.05 * X.back()) + Noise(Random));
    }
  }
  std::vector<double> X, Y;
};

/// A chart with its axes on a form, which owns all that is added.
struct TChart {
  TChart(int AWidth = Width, int AHeight = Height) {
    Graph->SetBounds(0, 0, AWidth, AHeight);
    Graph->SetBackColor(Colors::White);
    Graph->TestPrimaryAxis();
  }
  template <class TSeries = TZyLineSeries>
  TSeries& Add(std::span<const double> X, std::span<const double> Y) {
    auto* const Series = new TSeries(&Form);
    auto* const XData = new TZyDoubleVector(&Form);
    auto* const YData = new TZyDoubleVector(&Form);
    XData->AddRange(X);
    YData->AddRange(Y);
    Series->SetXData(XData);
    Series->SetYData(YData);
    Series->SetXAxis(Graph->PrimaryXAxis());
    Series->SetYAxis(Graph->PrimaryYAxis());
    return *Series;
  }
  /// The same with arrays that the vectors take over, as an application hands over what it has just measured.
  TZyLineSeries& Take(TData& Data) {
    TZyLineSeries& Series = Add({}, {});
    dynamic_cast<TZyDoubleVector*>(Series.XData())->SetInternalArray(std::move(Data.X));
    dynamic_cast<TZyDoubleVector*>(Series.YData())->SetInternalArray(std::move(Data.Y));
    return Series;
  }
  void Paint(Bitmap& Picture) {
    Graphics Canvas(Picture);
    Graph->PaintGr(Canvas);
  }

  TForm Form;
  TZyGraph2D* Graph = new TZyGraph2D(&Form);
};

/// Seconds of the middle one of five runs. Prepare runs before each and is not counted.
double Median(
    const std::function<void()>& Run, const std::function<void()>& Prepare = [] {}) {
  std::vector<double> Seconds;
  for (int i = 0; i < 5; ++i) {
    Prepare();
    const auto Start = std::chrono::steady_clock::now();
    Run();
    Seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count());
  }
  std::sort(Seconds.begin(), Seconds.end());
  return Seconds[Seconds.size() / 2];
}

void Style(TZyLineSeries& Series, std::string_view Kind) {
  if (Kind == "w2") Series.Line().SetWidth(2);
  if (Kind == "area") {
    Series.Area().SetVisible(true);
    Series.Area().SetForeColor(0x504080C0);
  }
}

/// A new chart with a line of Count points: load, layout, first paint. Kind "copied" copies the data.
double FirstPaint(int Count, std::string_view Kind) {
  std::unique_ptr<TData> Data;
  Bitmap Picture(Width, Height);
  std::unique_ptr<TChart> Chart;
  return Median(
      [&] {
        Chart = std::make_unique<TChart>();
        Style(Kind == "copied" ? Chart->Add(Data->X, Data->Y) : Chart->Take(*Data), Kind);
        Chart->Paint(Picture);
      },
      [&] {
        Chart.reset();
        Data = std::make_unique<TData>(Count);
      });
}

/// The same chart once more, with nothing changed.
double Repaint(int Count, std::string_view Kind, float Ratio = 1) {
  TChart Chart;
  {
    TData Data(Count);
    Style(Chart.Take(Data), Kind);
  }
  Bitmap Picture(Width, Height, Ratio);
  Chart.Paint(Picture);
  return Median([&] { Chart.Paint(Picture); });
}

/// The same with the pixels of the line computed anew, as after a change of size.
double PaintAnew(int Count) {
  TChart Chart;
  const TData Data(Count);
  Chart.Add(Data.X, Data.Y);
  Bitmap Picture(Width, Height);
  Chart.Paint(Picture);
  return Median([&] { Chart.Paint(Picture); }, [&] { Chart.Graph->SeriesModified(); });
}

/// A thousand new points for a million, with the axes following.
double Stream() {
  constexpr int Step = 1000, Steps = 6;
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
  return Median(Append);
}

double Scatter() {
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
  return Median(
      [&] {
        Chart = std::make_unique<TChart>();
        auto& Series = Chart->Add<TZyPointSeries>(X, Y);
        Series.Line().SetVisible(false);
        Series.PointSymbol().SetPointSymbol(TZyPointSymbol::Circle);
        Series.PointSymbol().SetSize(5);
        Chart->Paint(Picture);
      },
      [&] { Chart.reset(); });
}

/// One percent of a million points, another one each time.
double Zoom() {
  TChart Chart;
  const TData Data(Million);
  Chart.Add(Data.X, Data.Y);
  TZyAxis& Axis = *Chart.Graph->PrimaryXAxis();
  Axis.SetStartEnd(TZyAxisEnd::Fixed);
  Axis.SetStopEnd(TZyAxisEnd::Fixed);
  Bitmap Picture(Width, Height);
  double Start = 495;
  const auto Show = [&] {
    Axis.SetStartStop(Start, Start + 10);
    Start += 1;
    Chart.Paint(Picture);
  };
  Show();
  return Median(Show);
}

/// Many charts or curves: created, filled, laid out and painted.
double ManyCharts() {
  const TData Data(200);
  Bitmap Picture(300, 200);
  std::vector<std::unique_ptr<TChart>> Charts;
  return Median(
      [&] {
        for (int i = 0; i < 100; ++i) {
          Charts.push_back(std::make_unique<TChart>(300, 200));
          Charts.back()->Add(Data.X, Data.Y);
          Charts.back()->Paint(Picture);
        }
      },
      [&] { Charts.clear(); });
}

double ManyCurves() {
  TData Data(500);
  Bitmap Picture(Width, Height);
  std::unique_ptr<TChart> Chart;
  return Median(
      [&] {
        Chart = std::make_unique<TChart>();
        for (int i = 0; i < 2000; ++i) {
          for (double& Y : Data.Y) Y += 0.01;
          Chart->Add(Data.X, Data.Y);
        }
        Chart->Paint(Picture);
      },
      [&] { Chart.reset(); });
}

/// The unit: what it takes to look at each of a million values once.
double Scan() {
  const TData Data(Million);
  volatile double Result = 0;
  return Median([&] {
    double Low = Data.Y[0], High = Data.Y[0];
    for (const double Value : Data.Y) {
      Low = std::min(Low, Value);
      High = std::max(High, Value);
    }
    Result = High - Low;
  });
}

struct TCase {
  const char* Name;
  std::function<double()> Run;
};

const TCase Cases[] = {
    {"A-line1e6", [] { return FirstPaint(Million, "line"); }},
    {"A-line1e6-copied", [] { return FirstPaint(Million, "copied"); }},
    {"A-line1e6-repaint", [] { return Repaint(Million, "line"); }},
    {"A-line1e6-anew", [] { return PaintAnew(Million); }},
    {"A2-line1e6-w2", [] { return FirstPaint(Million, "w2"); }},
    {"A2-line1e6-w2-repaint", [] { return Repaint(Million, "w2"); }},
    {"A3-area1e6", [] { return FirstPaint(Million, "area"); }},
    {"A3-area1e6-repaint", [] { return Repaint(Million, "area"); }},
    {"B-line1e7", [] { return FirstPaint(10 * Million, "line"); }},
    {"B-line1e7-repaint", [] { return Repaint(10 * Million, "line"); }},
    {"C-stream", Stream},
    {"D-scatter1e5", Scatter},
    {"F-zoom1pct", Zoom},
    {"H-100charts", ManyCharts},
    {"J-2000curves", ManyCurves},
    {"K-hidpi2", [] { return Repaint(Million, "line", 2); }},
};

/// Runs a case in a child, so that its peak of memory is its own. False when it failed.
bool RunAlone(const char* Who, const char* Name, const std::function<double()>& Run, int ArgCount, char** Args) {
  std::fflush(stdout);
  const pid_t Child = fork();
  if (Child == 0) {
    const TApplication Program(ArgCount, Args);
    const double Seconds = Run();
    rusage Usage{};
    getrusage(RUSAGE_SELF, &Usage);
    std::printf("%s %s %.6f %ld\n", Who, Name, Seconds, Usage.ru_maxrss);
    std::fflush(stdout);
    _exit(0);
  }
  int Status = 1;
  return Child > 0 && waitpid(Child, &Status, 0) == Child && Status == 0;
}

}  // namespace

int main(int ArgCount, char** Args) {
  bool Good = RunAlone("limit", "A-line1e6", Scan, ArgCount, Args);
  for (const TCase& Case : Cases) {
    const bool Chosen = ArgCount == 1 || std::any_of(Args + 1, Args + ArgCount, [&](const char* Name) {
                          return std::string_view(Name) == Case.Name;
                        });
    if (Chosen) Good = RunAlone("zyphos", Case.Name, Case.Run, ArgCount, Args) && Good;
  }
  return Good ? 0 : 1;
}
