// The settings dialog of a chart with 20 axes and 200 series: opening it, one edit until the chart is painted, and
// going from one axis or series to the next.

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

#include "Cases.h"
#include "dialogs/forms/ZyGraphSettingsTool.h"
#include "platform/controls/TApplication.h"
#include "undo/ZyUndoStack.h"

namespace {

using namespace zy;

void HandleEvents() { dynamic_cast<TApplication&>(Application()).ProcessMessages(); }

struct TLargeChart : cases::TChart {
  static constexpr int AxisCount = 20, SeriesCount = 200;

  TLargeChart() {
    Form.SetName("Large");
    Form.SetBounds(0, 0, cases::Width, cases::Height);
    Graph->SetParent(&Form);
    for (int Index = 2; Index < AxisCount; ++Index) {
      auto* const Axis = new TZyAxis(&Form);
      Axis->SetName("Axis" + std::to_string(Index));
      Axis->SetPosition(Index % 2 == 0 ? TZyAxisPosition::Left : TZyAxisPosition::Right);
      Axis->SetParent(Graph);
      Axes.push_back(Axis);
    }
    const cases::TData Data(1000);
    for (int Index = 0; Index < SeriesCount; ++Index) {
      TZyLineSeries& Series = Add(Data.X, Data.Y);
      Series.SetCaption("series " + std::to_string(Index));
      Series.SetYAxis(Axes[static_cast<std::size_t>(Index) % Axes.size()]);
      AllSeries.push_back(&Series);
    }
    Graph->SetUndoStack(Stack);
    Form.Show();
    HandleEvents();
    Tool->SetGraph(Graph);
  }

  TZyUndoStack* Stack = new TZyUndoStack(&Form);
  TZyGraphSettingsTool* Tool = new TZyGraphSettingsTool(&Form);
  std::vector<TZyAxis*> Axes;
  std::vector<TZySeries*> AllSeries;
};

/// A dialog made and shown for the first time.
void Open(benchmark::State& State) {
  TLargeChart Chart;
  for (auto _ : State) {
    Chart.Tool->Show();
    HandleEvents();
    State.PauseTiming();
    delete Chart.Tool->Dialog();
    State.ResumeTiming();
  }
}
BENCHMARK(Open)->Unit(benchmark::kMillisecond);

/// One that was closed.
void OpenAgain(benchmark::State& State) {
  TLargeChart Chart;
  Chart.Tool->Show();
  HandleEvents();
  for (auto _ : State) {
    Chart.Tool->Dialog()->Close();
    Chart.Tool->Show();
    HandleEvents();
  }
}
BENCHMARK(OpenAgain)->Unit(benchmark::kMillisecond);

/// A key in a spin edit, with the paint of the chart.
void Edit(benchmark::State& State, const char* Page, const char* Control, TComponent* (*Target)(TLargeChart&)) {
  TLargeChart Chart;
  Chart.Tool->Show(*Target(Chart));
  HandleEvents();
  auto& Frame = Chart.Tool->Dialog()->Part<TZySettingsFrame>(Page);
  QWidget& Box = *Frame.Part<TWinControl>(Control).Widget();
  bool IsUp = false;
  for (auto _ : State) {
    QKeyEvent Event(QEvent::KeyPress, (IsUp = !IsUp) ? Qt::Key_Up : Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(&Box, &Event);
    HandleEvents();
  }
  if (!Chart.Stack->CanUndo()) State.SkipWithError("the key changed nothing");
}
BENCHMARK_CAPTURE(Edit, axis, "AxisSettingsFrame", "AxLineWidthUpDown", [](TLargeChart& Chart) -> TComponent* {
  return Chart.Axes[3];
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Edit, series, "SeriesSettingsFrame", "SeriesLineWidthUpDown", [](TLargeChart& Chart) -> TComponent* {
  return Chart.AllSeries[7];
})->Unit(benchmark::kMillisecond);

/// From one series to another.
void NextSeries(benchmark::State& State) {
  TLargeChart Chart;
  std::size_t Index = 0;
  Chart.Tool->Show(*Chart.AllSeries[0]);
  HandleEvents();
  for (auto _ : State) {
    Chart.Tool->Dialog()->SetActivPage(Chart.AllSeries[++Index % Chart.AllSeries.size()]);
    HandleEvents();
  }
}
BENCHMARK(NextSeries)->Unit(benchmark::kMillisecond);

}  // namespace
