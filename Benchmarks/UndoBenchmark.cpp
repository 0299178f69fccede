// What an undo step and a property look-up cost, and that neither depends on how much was logged before.

#include <benchmark/benchmark.h>

#include "axes/ZyAxis.h"
#include "platform/controls/TForm.h"
#include "platform/framework/Reflection.h"
#include "texts/ZyLocalize.h"
#include "undo/ZyUndoStack.h"

namespace {

using namespace zy;

/// A form with a named axis, as an application has it.
struct TAxisForm {
  TAxisForm() {
    Form.SetName("Form");
    Axis->SetName("Axis");
  }
  TForm Form;
  TZyAxis* Axis = new TZyAxis(&Form);
};

/// One push of a float. Arguments: the limit, and how many pushes lie in the log before.
void PushProperty(benchmark::State& State) {
  TAxisForm Chart;
  TZyUndoStack Stack(&Chart.Form);
  Stack.SetLimit(static_cast<int>(State.range(0)));
  const auto Push = [&] { Stack.PushProperty(Chart.Axis, LoadResString(_sAxisThicknes), "AxisThicknes"); };
  for (std::int64_t Before = 0; Before < State.range(1); ++Before) Push();
  for (auto _ : State) Push();
}
BENCHMARK(PushProperty)
    ->ArgNames({"limit", "log"})
    ->Args({20, 0})
    ->Args({20, 1'000'000})
    ->Args({0, 0})
    ->Args({0, 1'000'000})
    ->Args({0, 4'000'000})
    ->Iterations(1'000'000)
    ->Unit(benchmark::kNanosecond);

/// A setter with its push, and the same setter without a stack.
void SetFloat(benchmark::State& State) {
  TAxisForm Chart;
  TZyUndoStack Stack(&Chart.Form);
  if (State.range(0) != 0) Chart.Axis->SetUndoStack(&Stack);
  float Value = 2;
  for (auto _ : State) Chart.Axis->SetAxisThicknes(Value = 5 - Value);
}
BENCHMARK(SetFloat)->ArgName("stack")->Arg(0)->Arg(1);

/// Property look-up by name in the class with the longest table; the last argument names a property that is not there.
void FindProperty(benchmark::State& State) {
  const TAxisForm Chart;
  const char* const Names[] = {"Name", "AxisThicknes", "StopEnd", "Nothing"};
  const std::string_view Name = Names[State.range(0)];
  for (auto _ : State) benchmark::DoNotOptimize(GetPropInfo(*Chart.Axis, Name));
}
BENCHMARK(FindProperty)->DenseRange(0, 3)->Iterations(1'000'000);

/// Reading and writing a float by name.
void FloatByName(benchmark::State& State) {
  const TAxisForm Chart;
  double Value = 2;
  for (auto _ : State) {
    SetFloatProp(*Chart.Axis, "AxisThicknes", Value = 5 - Value);
    benchmark::DoNotOptimize(GetFloatProp(*Chart.Axis, "AxisThicknes"));
  }
}
BENCHMARK(FloatByName);

}  // namespace
