// What grows with the number of objects of a form, not of points: naming them, captions that name them, taking series
// out one by one, texts from a file. The argument is the number; each has to grow with it, not with its square.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "annotations/captions/ZyRichCaption.h"
#include "graph/ZyGraph2D.h"
#include "persistence/ZyIO.h"
#include "platform/controls/TForm.h"
#include "platform/framework/Application.h"
#include "platform/framework/TStream.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace {

using namespace zy;

void EachNumber(benchmark::internal::Benchmark* Case) {
  for (const int Number : {2000, 4000, 8000}) Case->Arg(Number);
  Case->Unit(benchmark::kMillisecond)->UseRealTime();
}

/// A form with a chart of so many named series over one vector.
class TManySeries {
 public:
  explicit TManySeries(std::int64_t Number) {
    Form.SetName("Form");
    auto* const Graph = new TZyGraph2D(&Form);
    Graph->SetParent(&Form);
    Graph->TestPrimaryAxis();
    auto* const Data = new TZyDoubleVector(&Form);
    Data->AddRange({1, 2, 3});
    for (std::int64_t i = 0; i < Number; ++i) {
      auto* const Series = new TZyLineSeries(&Form);
      Series->SetName("S" + std::to_string(i));
      Series->SetXAxis(Graph->PrimaryXAxis());
      Series->SetYAxis(Graph->PrimaryYAxis());
      Series->SetYData(Data);
      All.push_back(Series);
    }
  }

  TForm Form;
  std::vector<TZySeries*> All;
};

void NameObjects(benchmark::State& State) {
  for (auto _ : State) {
    TComponent Owner;
    for (std::int64_t i = 0; i < State.range(0); ++i)
      for (const char* Base : {"Series", "Values"}) (new TComponent(&Owner))->SetName(UniqueName(&Owner, Base));
  }
}
BENCHMARK(NameObjects)->Apply(EachNumber);

/// Captions that each show the caption of another series.
void CaptionsOfSeries(benchmark::State& State) {
  const TManySeries Many(State.range(0));
  for (auto _ : State) {
    std::vector<std::unique_ptr<TZyRichCaptionObject>> Captions;
    for (const TZySeries* Series : Many.All) {
      Captions.push_back(std::make_unique<TZyRichCaptionObject>());
      Captions.back()->SetCaption("<%Form." + Series->Name() + ".Caption%>");
      Captions.back()->ParseForSize();
    }
  }
}
BENCHMARK(CaptionsOfSeries)->Apply(EachNumber);

void RemoveSeries(benchmark::State& State) {
  for (auto _ : State) {
    State.PauseTiming();
    auto Many = std::make_unique<TManySeries>(State.range(0));
    State.ResumeTiming();
    for (TZySeries* Series : Many->All) delete Series;
    State.PauseTiming();
    Many.reset();
    State.ResumeTiming();
  }
}
BENCHMARK(RemoveSeries)->Apply(EachNumber);

/// Twenty-five texts for each object.
void TextsFromFile(benchmark::State& State) {
  const auto Name = GetTemporaryPath() / "zyphos-texts";
  const std::int64_t Number = 25 * State.range(0);
  {
    TFileStream File(Name, fmCreate);
    for (std::int64_t i = 0; i < Number; ++i) StringToStream(File, "text");
  }
  for (auto _ : State) {
    TFileStream File(Name, fmOpenRead);
    for (std::int64_t i = 0; i < Number; ++i) benchmark::DoNotOptimize(StringFromStream(File));
  }
  std::filesystem::remove(Name);
}
BENCHMARK(TextsFromFile)->Apply(EachNumber);

}  // namespace
