// What a chart costs to save and to load in each form, beside a plain copy of the same bytes to and from a file.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "graph/ZyGraph2D.h"
#include "platform/controls/TForm.h"
#include "platform/framework/TIniFile.h"
#include "platform/framework/XmlDocument.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace {

using namespace zy;

/// A chart on a form. Without series it is one to load into, which has the names and nothing else.
struct TChart {
  explicit TChart(int Series = 0, int Points = 0) {
    Form.SetName("Form");
    Graph->SetName("Graph");
    Graph->SetParent(&Form);
    for (int Index = 0; Index < Series; ++Index) Add(Points);
  }
  void Add(int Points) {
    if (Graph->PrimaryXAxis() == nullptr) Graph->TestPrimaryAxis();
    auto* const Series = new TZyLineSeries(&Form);
    auto* const X = new TZyDoubleVector(&Form);
    auto* const Y = new TZyDoubleVector(&Form);
    for (TComponent* Component :
         {static_cast<TComponent*>(Series), static_cast<TComponent*>(X), static_cast<TComponent*>(Y)})
      Component->SetName("C" + std::to_string(Count++));
    for (int Index = 0; Index < Points; ++Index) {
      X->Add(0.1 * Index);
      Y->Add(1.0 / (1 + Index));
    }
    Series->SetXData(X);
    Series->SetYData(Y);
    Series->SetXAxis(Graph->PrimaryXAxis());
    Series->SetYAxis(Graph->PrimaryYAxis());
  }
  TForm Form;
  TZyGraph2D* Graph = new TZyGraph2D(&Form);
  int Count = 0;
};

enum TForm3 { Stream, Xml, Ini };

const std::filesystem::path& File() {
  static const std::filesystem::path Name = std::filesystem::temp_directory_path() / "zy_record_benchmark";
  return Name;
}

void Save(const TChart& Chart, TForm3 Form) {
  if (Form == Stream) return Chart.Graph->WriteTo(File());
  if (Form == Xml) {
    const TXMLDocument Document("Chart");
    Chart.Graph->WriteTo(Document.DocumentElement());
    return Document.SaveToFile(File());
  }
  std::filesystem::remove(File());
  TIniFile Keys(File());
  Chart.Graph->WriteTo(Keys, "Chart");
  Keys.UpdateFile();
}

void Load(TChart& Chart, TForm3 Form) {
  if (Form == Stream) return Chart.Graph->ReadFrom(File());
  if (Form == Xml) {
    TXMLDocument Document;
    Document.LoadFromFile(File());
    return Chart.Graph->ReadFrom(Document.DocumentElement());
  }
  const TIniFile Keys(File());
  Chart.Graph->ReadFrom(Keys, "Chart");
}

/// Values in a minute, and bytes in a second.
void Count(benchmark::State& State, std::int64_t Values) {
  const auto Size = static_cast<std::int64_t>(std::filesystem::file_size(File()));
  State.SetBytesProcessed(State.iterations() * Size);
  State.counters["values/min"] =
      benchmark::Counter(static_cast<double>(State.iterations() * Values) * 60, benchmark::Counter::kIsRate);
  std::filesystem::remove(File());
}

/// Into a new form each time, which is made and freed outside of the measure.
void LoadEachTime(benchmark::State& State, TForm3 Form) {
  for (auto _ : State) {
    State.PauseTiming();
    auto Chart = std::make_unique<TChart>();
    State.ResumeTiming();
    Load(*Chart, Form);
    State.PauseTiming();
    Chart.reset();
    State.ResumeTiming();
  }
}

/// One series of 1,000,000 points. Argument: the form.
constexpr int Million = 1000000;
void SaveMillion(benchmark::State& State) {
  const TChart Chart(1, Million);
  const auto Form = static_cast<TForm3>(State.range(0));
  for (auto _ : State) Save(Chart, Form);
  Count(State, 2 * Million);
}
BENCHMARK(SaveMillion)->ArgName("form")->DenseRange(Stream, Ini)->Unit(benchmark::kMillisecond);

void LoadMillion(benchmark::State& State) {
  const auto Form = static_cast<TForm3>(State.range(0));
  Save(TChart(1, Million), Form);
  LoadEachTime(State, Form);
  Count(State, 2 * Million);
}
BENCHMARK(LoadMillion)->ArgName("form")->DenseRange(Stream, Ini)->Unit(benchmark::kMillisecond);

/// The bytes of the stream alone, by the C library in one call.
std::vector<char> Bytes() {
  Save(TChart(1, Million), Stream);
  std::vector<char> Result(std::filesystem::file_size(File()));
  std::FILE* const In = std::fopen(File().c_str(), "rb");
  if (std::fread(Result.data(), 1, Result.size(), In) != Result.size()) std::abort();
  std::fclose(In);
  return Result;
}

/// As the library does it: a new file beside the old one, which it replaces.
void PlainWrite(benchmark::State& State) {
  const std::vector<char> All = Bytes();
  const std::string New = File().string() + ".new";
  for (auto _ : State) {
    std::FILE* const Out = std::fopen(New.c_str(), "wb");
    std::fwrite(All.data(), 1, All.size(), Out);
    std::fclose(Out);
    std::filesystem::rename(New, File());
  }
  Count(State, 2 * Million);
}
BENCHMARK(PlainWrite)->Unit(benchmark::kMillisecond);

/// Into memory that is new each time, as the vectors of a chart are.
void PlainRead(benchmark::State& State) {
  const std::size_t Size = Bytes().size();
  for (auto _ : State) {
    const auto All = std::make_unique_for_overwrite<char[]>(Size);
    std::FILE* const In = std::fopen(File().c_str(), "rb");
    if (std::fread(All.get(), 1, Size, In) != Size) std::abort();
    std::fclose(In);
  }
  Count(State, 2 * Million);
}
BENCHMARK(PlainRead)->Unit(benchmark::kMillisecond);

/// Many series of 100 points. Arguments: the form, how many.
void SaveMany(benchmark::State& State) {
  const TChart Chart(static_cast<int>(State.range(1)), 100);
  for (auto _ : State) Save(Chart, static_cast<TForm3>(State.range(0)));
  Count(State, 200 * State.range(1));
}
void LoadMany(benchmark::State& State) {
  const auto Form = static_cast<TForm3>(State.range(0));
  Save(TChart(static_cast<int>(State.range(1)), 100), Form);
  LoadEachTime(State, Form);
  Count(State, 200 * State.range(1));
}
void Numbers(benchmark::internal::Benchmark* Cases) {
  Cases->ArgNames({"form", "series"})->ArgsProduct({{Stream, Xml, Ini}, {250, 500, 1000, 2000}});
  Cases->Unit(benchmark::kMillisecond);
}
BENCHMARK(SaveMany)->Apply(Numbers);
BENCHMARK(LoadMany)->Apply(Numbers);

}  // namespace
