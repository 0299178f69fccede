// Labels as an axis makes them: an object each, with the font of the axis, parsed and measured.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "annotations/captions/ZyRichCaption.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"

namespace {

std::size_t Allocations = 0;

}  // namespace

void* operator new(std::size_t Size) {
  ++Allocations;
  if (void* const Result = std::malloc(Size)) return Result;
  throw std::bad_alloc();
}
void operator delete(void* Pointer) noexcept { std::free(Pointer); }
void operator delete(void* Pointer, std::size_t) noexcept { std::free(Pointer); }

namespace {

using namespace zy;

constexpr int Count = 300;

void MakeLabels(TZyRichCaptionObjects& Labels, const TZyFont& Face, const std::vector<std::string>& Texts) {
  Labels.Clear();
  for (const std::string& Text : Texts) {
    auto Label = std::make_unique<TZyRichCaptionObject>();
    Label->SetCaption(Text);
    Label->CaptionFont().Assign(&Face);
    Label->ParseForSize();
    Labels.Add(std::move(Label));
  }
}

std::vector<std::string> TextsFrom(int First, const std::string& End) {
  std::vector<std::string> Texts;
  for (int i = 0; i < Count; ++i) Texts.push_back(std::to_string(First + i) + End);
  return Texts;
}

/// Texts that were seen before.
void WarmLabels(benchmark::State& State, const std::string& End) {
  TZyFont Face;
  Face.SetName("Arial");
  Face.SetSize(12);
  const std::vector<std::string> Texts = TextsFrom(1000, End);
  TZyRichCaptionObjects Labels;
  MakeLabels(Labels, Face, Texts);
  const std::size_t Before = Allocations;
  for (auto _ : State) MakeLabels(Labels, Face, Texts);
  State.counters["allocations/label"] =
      static_cast<double>(Allocations - Before) / static_cast<double>(State.iterations()) / Count;
}
BENCHMARK_CAPTURE(WarmLabels, plain, std::string(".5"))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(WarmLabels, exponent, std::string("·10\\+3"))->Unit(benchmark::kMicrosecond);

/// Texts that are new each time.
void NewLabels(benchmark::State& State, const std::string& End) {
  TZyFont Face;
  Face.SetName("Arial");
  Face.SetSize(12);
  int First = 0;
  TZyRichCaptionObjects Labels;
  for (auto _ : State) {
    State.PauseTiming();
    const std::vector<std::string> Texts = TextsFrom(First += Count, End);
    State.ResumeTiming();
    MakeLabels(Labels, Face, Texts);
  }
}
BENCHMARK_CAPTURE(NewLabels, plain, std::string(".5"))->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(NewLabels, exponent, std::string("·10\\+3"))->Unit(benchmark::kMicrosecond);

void PaintLabels(benchmark::State& State) {
  TZyFont Face;
  TZyRichCaptionObjects Labels;
  MakeLabels(Labels, Face, TextsFrom(1000, ".5"));
  Bitmap Picture(1200, 800);
  Graphics Canvas(Picture);
  for (auto _ : State) {
    float Place = 0;
    for (const auto& Label : Labels) {
      Label->X = Place += 3;
      Label->Y = Place;
      Label->PaintGr(Canvas);
    }
  }
}
BENCHMARK(PaintLabels)->Unit(benchmark::kMicrosecond);

}  // namespace
