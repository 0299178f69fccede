// Runs the benchmarks of the program it is linked into, with an application, as controls and fonts need one.

#include <benchmark/benchmark.h>

#include "platform/controls/TApplication.h"

int main(int ArgCount, char** Args) {
  const zy::TApplication Program(ArgCount, Args);
  benchmark::Initialize(&ArgCount, Args);
  if (benchmark::ReportUnrecognizedArguments(ArgCount, Args)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
