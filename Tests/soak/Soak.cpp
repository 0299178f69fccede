// Uses charts at random for as long as it is told, and looks whether they come back to where they were.
//
// One form is edited: objects made, freed and changed, undo and redo, saving and loading. The other one is live: data
// stream in and out and shrink while it is zoomed and painted, further series, axes and coupled graphs come and go, and
// handlers throw, and free some of them. A third one is changed in the settings dialogs, as a user does. Others are
// stored as records, linked to controls, and shown from a table that stays in its file (Others.h). After each round
// everything is undone, or taken out again, and the bytes of the forms and the picture of the live one must be those of
// the beginning; at the end the memory in use must be that of the first rounds.

#include <malloc.h>

#include <QImage>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "controls/ControlSamples.h"
#include "framework/SampleComponent.h"
#include "fuzz/FontLeaks.h"
#include "graph/SampleChart.h"
#include "persistence/RandomChart.h"
#include "platform/controls/TApplication.h"
#include "series/ZyFittedLine.h"
#include "series/ZyPointSeries.h"
#include "soak/DialogWalk.h"
#include "soak/Others.h"
#include "undo/UndoWalk.h"

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

/// What a handler of the test throws.
struct TRefusal : std::runtime_error {
  TRefusal() : std::runtime_error("refused") {}
};

class TSoak {
 public:
  explicit TSoak(unsigned Seed) : FRandom(Seed), FOthers(Seed) {
    FLive.Form.SetName("Live");  // components are found again by the name of their form
    for (const char* Name : {"S1", "S2"}) FOwn.push_back(FLive.AddSeries(Name));
    FFirst = FLive.Form.Components().size();
    Restore();
    Restore();  // the first paint makes of an axis without data what it shows
  }

  void Round() {
    const std::string Live = BytesOf(FLive.Form);
    const QImage Picture = FLive.Paint().ToQt();
    Edit();
    UseDialogs();
    for (const std::string& Wrong : {FOthers.StoreRecords(), FOthers.UseLinks(), FOthers.UseTable()})
      if (!Wrong.empty()) Fail(Wrong);
    for (int Action = 0; Action < 300; ++Action) Use();
    Restore();
    ExpectEqual(BytesOf(FLive.Form), Live, "the live chart is not what it was");
    Expect(FLive.Paint().ToQt() == Picture, "the live chart does not look as it did");
  }

 private:
  int Roll(int Count) { return static_cast<int>(FRandom() % static_cast<unsigned>(Count)); }
  template <class T>
  T* AnyOf(const std::vector<T*>& List) {
    return List.empty() ? nullptr : List[static_cast<std::size_t>(Roll(static_cast<int>(List.size())))];
  }

  // ---- Edited ----

  void Edit() {
    TUndoWalk Edited(static_cast<unsigned>(FRandom()));
    const std::string Before = Edited.Text();
    Edited.Walk(300);
    const std::string After = Edited.Text();
    SaveAndLoad(Edited);
    const int Steps = Edited.Stack.UndoList().Count();
    Edited.UndoAll();
    ExpectEqual(Edited.Text(), Before, "the edited chart is not what it was");
    Edited.Stack.Redo(Steps - 1);
    ExpectEqual(Edited.Text(), After, "what was undone does not come again");
  }

  static void SaveAndLoad(TUndoForm& Edited) {
    for (TComponent* Component : Edited.Form.Components()) {
      if (auto* const Control = dynamic_cast<TControl*>(Component); Control != nullptr && !Control->HasParent())
        return;  // an axis of a graph that is gone lies in the form when it comes back
      if (auto* const Fit = dynamic_cast<TZyFittedLine*>(Component); Fit != nullptr && Fit->Order() == 0)
        return;  // one with a formula has the coefficients of that when it comes back
    }
    TForm Loaded;
    auto& Sample = *new TSample(&Loaded);  // only it makes its part
    Sample.SetName("Sample");
    Sample.MakePart();
    ReadBack(Edited.Form, Loaded);
    const auto BytesIn = [](TComponent& Form) { return TUndoForm::WithoutFollowers(BytesOf(Form)); };
    ExpectEqual(BytesIn(Loaded), BytesIn(Edited.Form), "what was loaded is not what was saved");
  }

  void UseDialogs() {
    TDialogWalk User(static_cast<unsigned>(FRandom()));
    const std::string Before = User.Chart().Text();
    if (const std::string Wrong = User.Walk(60); !Wrong.empty()) Fail("the dialogs: " + Wrong);
    const std::string After = User.Chart().Text();
    const int Steps = User.Chart().Stack.UndoList().Count();
    User.UndoAll();
    ExpectEqual(User.Chart().Text(), Before, "the chart of the dialogs is not what it was");
    User.Chart().Stack.Redo(Steps - 1);
    ExpectEqual(User.Chart().Text(), After, "what was done in the dialogs does not come again");
  }

  // ---- Live ----

  static TZyDoubleVector* DataOf(TZyCustomDoubleVector* Data) { return dynamic_cast<TZyDoubleVector*>(Data); }

  /// What the live form has beside its first objects goes, and these have their data and no handlers.
  void Restore() {
    while (!More().empty()) delete More().back();
    ClearHandlers();
    for (TZySeries* Series : FOwn) {
      std::vector<double> X, Y;
      for (int Index = 0; Index < 2000; ++Index) {
        X.push_back(Index);
        Y.push_back(Index * 37 % 101);
      }
      DataOf(Series->XData())->SetInternalArray(X);
      DataOf(Series->YData())->SetInternalArray(Y);
    }
    FLive.Graph->ZoomReset();
    FLive.Paint();
  }

  void ClearHandlers() {
    for (TComponent* Component : FLive.Form.Components()) {
      if (auto* const Axis = dynamic_cast<TZyAxis*>(Component)) {
        Axis->SetOnGetTicks(nullptr);
        Axis->SetOnCalculated(nullptr);
        Axis->SetOnGetScaleLabel(nullptr);
      }
      if (auto* const Series = dynamic_cast<TZyPointSeries*>(Component)) Series->SetOnGetPointSymbol(nullptr);
      if (auto* const Series = dynamic_cast<TZySeries*>(Component)) {
        Series->SetOnGetPen(nullptr);
        Series->SetOnGetBrush(nullptr);
        Series->SetXValueTransformation(nullptr);
        Series->SetYValueTransformation(nullptr);
      }
    }
  }

  void Throw() {
    if (Roll(40) == 0) throw TRefusal();
  }
  /// Throws, or frees what came to the first objects, but for a graph.
  void ThrowOrFree() {
    Throw();
    const auto& List = FLive.Form.Components();
    const int Others = static_cast<int>(List.size() - FFirst);
    if (Others == 0 || Roll(40) != 0) return;
    TComponent* const Gone = List[FFirst + static_cast<std::size_t>(Roll(Others))];
    if (dynamic_cast<TZyGraph2D*>(Gone) == nullptr) delete Gone;
  }
  void SetHandler() {
    const int What = Roll(8);
    if (auto* const Axis = AnyOf(All<TZyAxis>())) {
      if (What == 0) Axis->SetOnGetTicks([this](TObject*) { Throw(); });
      if (What == 1) Axis->SetOnCalculated([this](TObject*) { ThrowOrFree(); });
      if (What == 2) Axis->SetOnGetScaleLabel([this](auto&&...) { Throw(); });
    }
    if (auto* const Series = AnyOf(All<TZySeries>())) {
      const auto Transform = [this](TObject*, const TZyTransformEventArgs& e) {
        Throw();
        return e.Value;
      };
      const auto Ask = [this](TObject*, auto&) { ThrowOrFree(); };
      if (What == 3) Series->SetXValueTransformation(Transform);
      if (What == 4) Series->SetYValueTransformation(Transform);
      if (What == 5) Series->SetOnGetPen(Ask);
      if (What == 6) Series->SetOnGetBrush(Ask);
      if (auto* const Points = dynamic_cast<TZyPointSeries*>(Series); Points != nullptr && What == 7)
        Points->SetOnGetPointSymbol(Ask);
    }
  }

  template <class T>
  std::vector<T*> All() {
    std::vector<T*> Result;
    for (TComponent* Component : FLive.Form.Components())
      if (auto* const Found = dynamic_cast<T*>(Component)) Result.push_back(Found);
    return Result;
  }
  /// Legends, markers, and the parts of these.
  std::vector<TGraphicControl*> Draggable() {
    std::vector<TGraphicControl*> Result;
    for (TZyGraph2D* Graph : All<TZyGraph2D>())
      for (TControl* Control : Graph->Controls())
        if (auto* const One = dynamic_cast<TGraphicControl*>(Control); One != nullptr && One->TakesKeys())
          Result.push_back(One);
    return Result;
  }
  template <class T>
  T* Named(T* Component) {
    Component->SetName("More" + std::to_string(++FMade));
    return Component;
  }
  /// What came to the first objects: by this test, or the axes that a chart makes for itself.
  std::vector<TComponent*> More() {
    const auto& List = FLive.Form.Components();
    return {List.begin() + static_cast<std::ptrdiff_t>(FFirst), List.end()};
  }
  TZyAxis* MakeAxis(TZyGraph2D& Graph) {
    auto* const Axis = Named(new TZyAxis(&FLive.Form));
    Axis->SetPosition(Roll(2) == 0 ? TZyAxisPosition::Left : TZyAxisPosition::Right);
    Axis->SetParent(&Graph);
    return Axis;
  }

  TZySeries* AddOfAnyKind() {
    std::vector<const TClassInfo*> Kinds;
    for (const TClassInfo* Info : RegisteredClasses())
      if (Info->Factory() != nullptr && Info->InheritsFrom(TZySeries::StaticClassInfo())) Kinds.push_back(Info);
    return dynamic_cast<TZySeries*>(AnyOf(Kinds)->Factory()(&FLive.Form));
  }

  void Make() {
    if (More().size() > 30) return;
    switch (Roll(8)) {
      case 7:
        return MakePie();
      case 4:
        return MakeLegend();
      case 5:
      case 6:
        return MakeMarker();
      case 0:
        return Named(new TZyDoubleVector(&FLive.Form))->AddRange({1, 5, 3});
      case 1:
        return void(MakeAxis(*AnyOf(All<TZyGraph2D>())));
      case 2: {
        auto* const Graph = Named(new TZyGraph2D(&FLive.Form));
        Graph->SetParent(&FLive.Form);
        Graph->SetPrimaryXAxis(FLive.X);
        return Graph->SetPrimaryYAxis(MakeAxis(*Graph));
      }
      default: {
        auto* const Series = Named(AddOfAnyKind());
        Quieten(*Series);
        Series->SetXAxis(FLive.X);
        Series->SetYAxis(AnyOf(All<TZyAxis>()));
        for (const TPropInfo* Info : Series->ClassInfo().Properties())
          if (Info->Kind == TPropKind::Class &&
              Info->ObjectClass().InheritsFrom(TZyCustomDoubleVector::StaticClassInfo()))
            Info->SetObject(*Series, AnyOf(All<TZyDoubleVector>()));
      }
    }
  }

  void MakeLegend() {
    auto* const Legend = Named(new TZyLegend(&FLive.Form));
    Legend->SetParent(AnyOf(All<TZyGraph2D>()));
    Legend->SetPosition(static_cast<TZyLegendPosition>(Roll(2) == 0 ? 10 : Roll(11)));
    if (Roll(2) == 0) Legend->SetOnGetLegendItemCaption([this](auto&&...) { Throw(); });
    if (Roll(2) == 0) Legend->SetOnDrawLegendItem([this](auto&&...) { Throw(); });
  }

  void MakePie() {
    auto* const Pie = Named(new TZyPieChart(&FLive.Form));
    Pie->SetParent(&FLive.Form);
    Pie->SetBounds(0, 0, Roll(300), Roll(300));
    Pie->SetPieChartType(static_cast<TZyPieChartType>(Roll(4)));
    Pie->SetLabelPosition(static_cast<TZyPieLabelPosition>(Roll(4)));
    Pie->SetValues(AnyOf(All<TZyDoubleVector>()));
    if (Roll(2) == 0) Pie->SetExplodePercent(AnyOf(All<TZyDoubleVector>()));
    Pie->SetExplodeOnClick(true);
    if (Roll(3) == 0) Pie->SetOnGetLabel([this](auto&&...) { Throw(); });
    if (Roll(3) == 0) Pie->SetOnGetBrush([this](auto&&...) { Throw(); });
    if (Roll(2) == 0) return;
    auto* const Legend = Named(new TZyPieLegend(&FLive.Form));
    Legend->SetParent(Roll(2) == 0 ? static_cast<TWinControl*>(Pie) : &FLive.Form);
    Legend->SetPieChart(Pie);
    Legend->SetPosition(static_cast<TZyPieLegendPosition>(Roll(8)));
  }

  /// A click, a question and a paint. Thousands of segments are more than anybody shows.
  void UsePie(TZyPieChart& Pie, TPoint Mouse) {
    if (Pie.Values() != nullptr && Pie.Values()->Count() > 300) Pie.SetValues(nullptr);
    Pie.HintAt(Mouse);
    if (Roll(4) == 0 && (Pie.ExplodePercent() == nullptr || More().size() < 30)) {
      Pie.MouseDown(mbLeft, {ssLeft}, Mouse.X, Mouse.Y);
      Pie.MouseUp(mbLeft, {}, Mouse.X, Mouse.Y);
    }
    PictureOf(std::max(Pie.Width(), 1), std::max(Pie.Height(), 1), [&](Graphics& Gr) { Pie.PaintToImage(Gr); });
  }

  void MakeMarker() {
    std::vector<const TClassInfo*> Kinds;
    for (const TClassInfo* Info : RegisteredClasses())
      if (Info->Factory() != nullptr && Info->InheritsFrom(TZyMovable::StaticClassInfo())) Kinds.push_back(Info);
    auto* const Marker = Named(dynamic_cast<TZyMovable*>(AnyOf(Kinds)->Factory()(&FLive.Form)));
    Marker->SetParent(AnyOf(All<TZyGraph2D>()));
    if (Roll(4) > 0) Marker->SetXAxis(FLive.X);
    if (Roll(4) > 0) Marker->SetYAxis(AnyOf(All<TZyAxis>()));
    Marker->SetCaption(Roll(2) == 0 ? "marker" : R"(\bmalformed<%x)");
    Marker->SetCaptionVisible(Roll(3) > 0);
    Marker->SetSnapToSeriesValues(Roll(2) == 0);
    if (Roll(4) == 0) Marker->SetSnappedSeries(AnyOf(All<TZySeries>()));
    if (Roll(4) == 0) Marker->SetSnappedIdx(Roll(2000));
    if (Roll(3) == 0) Marker->SetOnMarkerMoving([this](TObject*) { ThrowOrFree(); });
    if (Roll(3) == 0) Marker->SetOnMarkerMoved([this](TObject*) { ThrowOrFree(); });
  }

  /// A part of a drag, which need not begin or end, and whose handlers may throw, or free what is dragged.
  void Drag(TGraphicControl& Dragged) {
    const std::uint64_t Handle = Dragged.LiveHandle();
    const auto Alive = [Handle] { return TPersistent::FromLiveHandle(Handle) != nullptr; };
    const int X = Roll(900) - 200, Y = Roll(700) - 200;
    if (Roll(2) == 0) Dragged.MouseDown(mbLeft, {ssLeft}, X, Y);
    for (int Moves = Roll(4); Moves > 0 && Alive(); --Moves) Dragged.MouseMove({ssLeft}, Roll(900) - 200, Y);
    TKey Key = std::array{vkEscape, vkLeft, vkDown, vkSpace}[static_cast<std::size_t>(Roll(4))];
    if (Roll(3) == 0 && Alive()) Dragged.KeyDown(Key, {});
    if (Roll(2) == 0 && Alive()) Dragged.MouseUp(mbLeft, {}, X, Y);
    if (Roll(4) == 0 && Alive()) Dragged.SetVisible(!Dragged.Visible());
  }

  void Append(TZySeries& Series, int Count) {
    TZyDoubleVector *const X = DataOf(Series.XData()), *const Y = DataOf(Series.YData());
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
  void Shrink(TZyDoubleVector& Data) {
    if (Roll(4) == 0) return Data.Clear();
    if (Roll(3) == 0) return Data.SetInternalArray(std::vector<double>(static_cast<std::size_t>(Roll(4)), 2.5));
    for (int Left = Roll(100); Left > 0; --Left) Data.Delete(Roll(std::max(Data.Count(), 1)));
  }

  /// One change, and a paint of all graphs. Whatever is thrown is what a handler threw, or a curve without points.
  void Use() {
    const auto Place = [this] { return TPoint{Roll(600), Roll(400)}; };
    const int What = Roll(20);
    try {
      if (What == 0)
        for (TZySeries* Series : FLive.Graph->RelatedSeries()) Append(*Series, 1 + Roll(1000));
      if (What == 1) FLive.Graph->ZoomTo(Place(), Place());
      if (What == 2) FLive.Graph->ZoomAround(Place(), Roll(2) == 0 ? 0.8 : 1.25);
      if (What == 3) FLive.Graph->ZoomBack();
      if (What == 4) FLive.Graph->RedoZoom();
      if (What == 5 && Roll(5) == 0) FLive.Graph->ZoomReset();
      if (What == 6) Shrink(*AnyOf(All<TZyDoubleVector>()));
      if (What == 7) Make();
      if (What == 8) delete AnyOf(More());
      if (What == 9) SetHandler();
      if (What == 10) ClearHandlers();
      if (What == 11)
        if (auto* const Dragged = AnyOf(Draggable())) Drag(*Dragged);
      if (What > 11) return;
      const TPoint Mouse = Place();  // before the paint, too
      for (int Times = 0; Times < 2; ++Times) {
        for (TZyGraph2D* Graph : All<TZyGraph2D>()) Graph->FindSeriesPoint(Mouse.X, Mouse.Y);
        for (TZySeries* Series : All<TZySeries>()) {
          Series->NearestPoint({static_cast<float>(Mouse.X), static_cast<float>(Mouse.Y)});
          Series->GetY(Mouse.X);
        }
        for (TZyGraph2D* Graph : All<TZyGraph2D>()) TSampleChart::Paint(*Graph);
        for (TZyPieChart* Pie : All<TZyPieChart>()) UsePie(*Pie, Mouse);
      }
    } catch (const TRefusal&) {
      // The next action finds the chart as the handler left it.
    } catch (const EMathError&) {
    }
  }

  std::mt19937 FRandom;
  TOthers FOthers;
  TSampleChart FLive{600, 400};
  std::vector<TZySeries*> FOwn;
  std::size_t FFirst = 0;
  int FMade = 0;
};

/// The caches of shadows, symbols and texts keep what was painted last, up to 16 MiB of each: now always the same.
void FillCaches() {
  TForm Form;
  TZyDoubleVector Values(&Form);
  Values.AddRange({1, 2, 3});
  TZyPieChart Pie(&Form);
  Pie.SetValues(&Values);
  Pie.SetDropShadow(true);
  for (int Size = 800; Size < 820; ++Size) {
    Pie.SetBounds(0, 0, Size, Size);
    PictureOf(Size, Size, [&](Graphics& Gr) { Pie.PaintToImage(Gr); });
  }
  TSampleChart Chart(120, 90);
  auto* const Points = Chart.AddSeries<TZyPointSeries>("Points", {1, 2}, {1, 2});
  for (unsigned Look = 0; Look < 128; ++Look) {
    Points->PointSymbol().SetFillColor(0xFF000000 + Look);
    Chart.Paint();
  }
  PictureOf(120, 90, [](Graphics& Gr) {
    for (unsigned Look = 0; Look < 512; ++Look)
      Gr.DrawString("text", Font("Arial", 10), SolidBrush(0xFF000000 + Look), 10, 10);
  });
  PictureOf(2000, 1500, [](Graphics& Gr) {  // larger than any other one, for what is kept for each pixel
    Gr.SetSmoothingMode(SmoothingModeAntiAlias);
    GraphicsPath Hole;
    Hole.AddEllipse({0, 0, 2000, 1500});
    Gr.FillPath(SolidBrush(0x80000000), Hole);
    Gr.ExcludeClip(Region(Hole));
    Gr.FillRectangle(SolidBrush(0x80000000), 0, 0, 2000, 1500);
  });
}

int Run(double Seconds, unsigned Seed) {
  using Clock = std::chrono::steady_clock;
  std::printf("Seed %u\n", Seed);
  std::fflush(stdout);
  const auto End = Clock::now() + std::chrono::duration<double>(Seconds);
  FillCaches();
  TSoak Soak(Seed);
  std::vector<std::size_t> Memory;
  constexpr std::size_t Rounds = 5;  // from one look at the memory to the next
  while (Clock::now() < End || Memory.size() < 8) {
    for (std::size_t Round = 0; Round < Rounds; ++Round) Soak.Round();
    FillCaches();
    Memory.push_back(MemoryInUse());
  }
  // The caches of labels, of the toolkit's fonts and of the database take some 20 MiB until they are full, which they
  // are after some ten thousand labels, hundred sizes of fonts and some hundred rounds, and creep by some
  // hundred KiB more then. In a thousand rounds, of which a quarter lies between the two looks, some eight KiB that
  // each round leaves behind are found; what is lost altogether, AddressSanitizer finds. The least of many rounds
  // counts.
  const auto Middle = Memory.begin() + static_cast<std::ptrdiff_t>(Memory.size() / 2);
  const std::size_t Early = *std::min_element(Memory.begin() + static_cast<std::ptrdiff_t>(Memory.size() / 4), Middle);
  const std::size_t Late = *std::min_element(Middle, Memory.end());
  std::printf("%zu rounds, memory %zu KiB, later %zu KiB\n", Rounds * Memory.size(), Early / 1024, Late / 1024);
  const std::size_t Allowed = (Rounds * Memory.size() < 1000 ? std::size_t{24576} : 2048) * 1024;
  Expect(Late < Early + Allowed, "memory grows");
  return 0;
}

}  // namespace
}  // namespace zy::testing

/// Arguments: seconds, 20 unless told otherwise, and the seed of a run to repeat.
int main(int ArgCount, char** Args) {
  zy::TApplication Program(ArgCount, Args);
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});  // windows without a screen
  Program.OnShowMessage = [](std::string_view) {};
  Program.OnException = [](const std::exception& Error) {
    if (dynamic_cast<const zy::EMathError*>(&Error) == nullptr)
      zy::testing::Fail(std::string("exception: ") + Error.what());
  };
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
