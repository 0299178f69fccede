// Uses two charts at random for as long as it is told, and looks whether they come back to where they were.
//
// One chart is edited: properties, data, undo and redo, saving and loading. It is only painted as what was loaded,
// since an axis forgets on its first paint what its ends were before there were data. The other one is live: data
// stream in and out while it is zoomed and painted. After each round everything is undone, and the bytes of both charts
// must be those of the beginning; at the end the memory in use must be that of the first rounds.

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "framework/Bytes.h"
#include "framework/SampleComponent.h"
#include "graph/SampleChart.h"
#include "platform/controls/TApplication.h"
#include "platform/framework/TReader.h"
#include "series/ZyPointSeries.h"
#include "undo/RandomSetters.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

[[noreturn]] void Fail(const std::string& What) {
  std::fprintf(stderr, "%s\n", What.c_str());
  std::exit(1);
}

void Expect(bool Holds, const char* What) {
  if (!Holds) Fail(What);
}

/// Says where the bytes of a chart begin to differ from those that it should have.
void ExpectEqual(const std::string& Bytes, const std::string& Expected, const char* What) {
  if (Bytes == Expected) return;
  std::size_t Place = 0;
  while (Place < std::min(Bytes.size(), Expected.size()) && Bytes[Place] == Expected[Place]) ++Place;
  const auto Around = [Place](const std::string& Text) {
    std::string Result = Text.substr(Place < 80 ? 0 : Place - 80, 160);
    for (char& Letter : Result)
      if (Letter < ' ' || Letter > '~') Letter = '.';
    return Result;
  };
  Fail(What + std::string("; byte ") + std::to_string(Place) + "\n" + Around(Expected) + "\n" + Around(Bytes));
}

/// Bytes that the program holds.
std::size_t MemoryInUse() {
  const struct mallinfo2 Info = mallinfo2();
  return Info.uordblks + Info.hblkhd;
}

class TSoak {
 public:
  explicit TSoak(unsigned Seed) : FRandom(Seed) {
    FStack->SetName("Stack");
    FStack->SetLimit(0);
    for (TSampleChart* Chart : {&FEdited, &FLive})
      for (const char* Name : {"S1", "S2"}) {
        TZyLineSeries& Series = *Chart->AddSeries(Name);
        Refill(Series);
      }
    FEdited.Graph->SetParentFont(false);  // else the first colour of its own would end it, which is no step
    FEdited.Graph->SetUndoStack(FStack.get());
    for (TComponent* Component : FEdited.Form.Components())
      if (dynamic_cast<TZyDoubleVector*>(Component) == nullptr) Collect(*Component, FObjects);
    FLive.Paint();
    FStack->Clear();
  }

  void Round() {
    const std::string Edited = BytesOf(FEdited.Form), Live = BytesOf(FLive.Form);
    for (int Action = 0; Action < 300; ++Action) {
      Edit();
      Stream();
    }
    FStack->Undo(FStack->UndoList().Count() - 1);
    for (TZySeries* Series : FLive.Graph->RelatedSeries()) Refill(*Series);
    FLive.Graph->ZoomReset();
    FLive.Paint();
    ExpectEqual(BytesOf(FEdited.Form), Edited, "the edited chart is not what it was");
    ExpectEqual(BytesOf(FLive.Form), Live, "the live chart is not what it was");
    FStack->Clear();
  }

 private:
  int Roll(int Count) { return static_cast<int>(FRandom() % static_cast<unsigned>(Count)); }

  /// The data that each series has between the rounds.
  static void Refill(TZySeries& Series) {
    std::vector<double> X, Y;
    for (int Index = 0; Index < 2000; ++Index) {
      X.push_back(Index);
      Y.push_back(Index * 37 % 101);
    }
    for (const auto& [Data, Values] : {std::pair(Series.XData(), &X), std::pair(Series.YData(), &Y)}) {
      auto& Vector = dynamic_cast<TZyDoubleVector&>(*Data);
      Vector.SetInternalArray(*Values);
      Vector.OutOfRange();
    }
  }

  void Append(TZySeries& Series, int Count) {
    auto* const X = dynamic_cast<TZyDoubleVector*>(Series.XData());
    auto* const Y = dynamic_cast<TZyDoubleVector*>(Series.YData());
    if (X == nullptr || Y == nullptr || X == Y) return;
    double Last = X->Count() > 0 ? X->Values().back() : 0;
    std::vector<double> NewX, NewY;
    for (int Index = 0; Index < Count; ++Index) {
      NewX.push_back(Last += 1);
      NewY.push_back(Roll(2000) / 10.0 - 50);
    }
    X->AddRange(NewX);
    Y->AddRange(NewY);
    for (TZyDoubleVector* Vector : {X, Y})
      for (int Above = std::max(Vector->Count() - 6000, 0); Above > 0; --Above) Vector->Delete(0);
  }

  void Edit() {
    switch (Roll(20)) {
      case 0:
        FEdited.Graph->UndoPushSeriesVectors();
        for (TZySeries* Series : FEdited.Graph->RelatedSeries())
          if (Series->XData() != nullptr && Series->YData() != nullptr) Append(*Series, 1 + Roll(200));
        return;
      case 1:
      case 2:
        if (FStack->CanUndo()) FStack->Undo(Roll(std::min(FStack->UndoList().Count(), 10)));
        return;
      case 3:
        if (FStack->CanRedo()) FStack->Redo(Roll(std::min(FStack->RedoList().Count(), 10)));
        return;
      case 4:
        return SaveAndLoad();
      default: {
        TPersistent& Object = *FObjects[static_cast<std::size_t>(Roll(static_cast<int>(FObjects.size())))];
        const auto& Properties = Object.ClassInfo().Properties();
        const TPropInfo& Info = *Properties[static_cast<std::size_t>(Roll(static_cast<int>(Properties.size())))];
        // A series that counts its points in place of data has none of either after loading.
        const bool IsData = Info.Name == std::string_view("XData") || Info.Name == std::string_view("YData");
        if (IsUndone(Info) && !IsData) SetAtRandom(Object, Info, FEdited.Form, FRandom);
      }
    }
  }

  void SaveAndLoad() {
    const std::string Saved = BytesOf(FEdited.Form);
    TMemoryStream Stream;
    Stream.WriteBuffer(Saved.data(), Saved.size());
    Stream.SetPosition(0);
    const std::unique_ptr<TComponent> Loaded(TReader(Stream).ReadRootComponent(nullptr));
    ExpectEqual(BytesOf(*Loaded), Saved, "what was loaded is not what was saved");
    for (TComponent* Component : Loaded->Components())
      if (auto* const Graph = dynamic_cast<TZyGraph2D*>(Component)) TSampleChart::Paint(*Graph);
  }

  void Stream() {
    const auto Place = [this] { return TPoint{Roll(600), Roll(400)}; };
    switch (Roll(10)) {
      case 0:
        for (TZySeries* Series : FLive.Graph->RelatedSeries()) Append(*Series, 1 + Roll(1000));
        break;
      case 1:
        FLive.Graph->ZoomTo(Place(), Place());
        break;
      case 2:
        FLive.Graph->ZoomAround(Place(), Roll(2) == 0 ? 0.8 : 1.25);
        break;
      case 3:
        FLive.Graph->ZoomBack();
        break;
      case 4:
        FLive.Graph->RedoZoom();
        break;
      case 5:
        if (Roll(5) == 0) FLive.Graph->ZoomReset();
        break;
      default:
        return;
    }
    FLive.Paint();
    const TPoint Mouse = Place();
    FLive.Graph->FindSeriesPoint(Mouse.X, Mouse.Y);
  }

  std::mt19937 FRandom;
  TSampleChart FEdited{600, 400}, FLive{600, 400};
  std::unique_ptr<TZyUndoStack> FStack = std::make_unique<TZyUndoStack>();
  std::vector<TPersistent*> FObjects;
};

int Run(double Seconds, unsigned Seed) {
  using Clock = std::chrono::steady_clock;
  std::printf("Seed %u\n", Seed);
  std::fflush(stdout);
  const auto End = Clock::now() + std::chrono::duration<double>(Seconds);
  TSoak Soak(Seed);
  std::vector<std::size_t> Memory;
  while (Clock::now() < End || Memory.size() < 8) {
    Soak.Round();
    Memory.push_back(MemoryInUse());
  }
  // The caches of labels and fonts take some 4 MiB until they are full, which they are after some ten thousand labels;
  // what a round leaves behind beyond that would soon be more. The least of many rounds counts.
  const auto Middle = Memory.begin() + static_cast<std::ptrdiff_t>(Memory.size() / 2);
  const std::size_t Early = *std::min_element(Memory.begin() + static_cast<std::ptrdiff_t>(Memory.size() / 4), Middle);
  const std::size_t Late = *std::min_element(Middle, Memory.end());
  std::printf("%zu rounds, memory %zu KiB, later %zu KiB\n", Memory.size(), Early / 1024, Late / 1024);
  const std::size_t Allowed = std::size_t{Memory.size() < 100 ? 4096U : 1024U} * 1024;
  Expect(Late < Early + Allowed, "memory grows");
  return 0;
}

}  // namespace
}  // namespace zy::testing

/// Arguments: seconds, 20 unless told otherwise, and the seed of a run to repeat.
int main(int ArgCount, char** Args) {
  const zy::TApplication Program(ArgCount, Args);
  const double Seconds = ArgCount > 1 ? std::atof(Args[1]) : 20;
  const unsigned Seed =
      ArgCount > 2 ? static_cast<unsigned>(std::strtoul(Args[2], nullptr, 10)) : std::random_device()();
  try {
    return zy::testing::Run(Seconds, Seed);
  } catch (const std::exception& Error) {
    std::fprintf(stderr, "%s\n", Error.what());
    return 1;
  }
}
