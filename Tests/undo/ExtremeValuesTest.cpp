// Every published property of every registered class, set to what nobody sets: the chart still paints, and undo still
// brings the old value back.

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <functional>
#include <map>

#include "graph/SampleChart.h"
#include "platform/framework/Application.h"
#include "platform/framework/Reflection.h"
#include "series/ZyPointSeries.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "undo/RandomSetters.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

constexpr double Reals[] = {NAN, HUGE_VAL, -HUGE_VAL, 1e308, -1e308, 5e-324, -1e-40, 0, -0.0, -1, 1e9, -1e15, 0.3};
constexpr std::int64_t Wholes[] = {INT64_MIN, INT64_MAX, INT32_MIN, INT32_MAX, UINT32_MAX, -1, 0, 1, 100000};

std::vector<std::string> Texts() {
  std::string Marked;
  while (Marked.size() < 200'000) Marked += "\\+2\\-\\b x\n";
  return {"", std::string(200'000, 'W'), Marked, std::string("\0\x01\xFF\xC0\\", 5), "\\"};
}

/// A chart with a series of each kind and one more component of every other registered class; small in every way.
class ExtremeValuesTest : public ::testing::Test {
 protected:
  ExtremeValuesTest() : FChart(120, 90) {
    FStack.SetLimit(0);
    FChart.AddSeries("Line", {1, 2, 3, 4}, {10, 30, 20, 40});
    for (const TClassInfo* Info : RegisteredClasses()) {
      if (Info->Factory() == nullptr || Info->InheritsFrom(TCustomApplication::StaticClassInfo())) continue;
      TComponent* const Made = Info->Factory()(&FChart.Form);
      Made->SetName(std::string("A") + Info->Name());
      if (auto* const Series = dynamic_cast<TZySeries*>(Made)) {
        Series->SetXAxis(FChart.X);
        Series->SetYAxis(FChart.Y);
        Series->SetXData(FChart.AddVector((Made->Name() + "X").c_str(), {1, 2, 3}));
        Series->SetYData(FChart.AddVector((Made->Name() + "Y").c_str(), {-5, 1e3, 7}));
      } else if (auto* const Control = dynamic_cast<TControl*>(Made)) {
        if (dynamic_cast<TForm*>(Made) == nullptr) Control->SetParent(FChart.Graph);
        Control->SetVisible(dynamic_cast<TWinControl*>(Made) == nullptr && dynamic_cast<TZyAxis*>(Made) == nullptr);
      }
    }
    FChart.Graph->SetUndoStack(&FStack);
    for (TComponent* Component : std::vector(FChart.Form.Components()))
      if (Component != &FStack) Collect(*Component, Component->ClassName());
  }

  void Collect(TPersistent& Object, const std::string& Path) {
    FObjects.emplace_back(&Object, Path);
    for (const TPropInfo* Info : Object.ClassInfo().Properties())
      if (Info->IsOwnedObject && Info->GetObject(Object) != nullptr)
        Collect(*Info->GetObject(Object), Path + "." + Info->Name);
  }

  /// Sets a property, paints, undoes and paints: what is thrown names its reason, nothing takes long, and what was
  /// undone is what it was.
  template <class TSet>
  void Try(TPersistent& Object, const TPropInfo& Info, const std::string& What, const TSet& Set) {
    const auto Begin = std::chrono::steady_clock::now();
    FStack.Clear();
    const std::string Before = ValueOf(Object, Info);
    const auto Guarded = [&](const char* Doing, const auto& Step) {
      try {
        Step();
      } catch (const Exception& Error) {
        EXPECT_STRNE(Error.what(), "") << What;
        ++FRefused;
      } catch (const std::exception& Error) {
        ADD_FAILURE() << What << ", " << Doing << ": " << Error.what();
      }
    };
    Guarded("setting", Set);
    EXPECT_TRUE(Info.GetFloat == nullptr || !What.starts_with("TZy") || std::isfinite(Info.GetFloat(Object))) << What;
    const bool IsStep = FStack.CanUndo();
    Guarded("painting", [this] { FChart.Paint(); });
    while (FStack.CanUndo()) FStack.Undo();
    if (IsStep) {
      ++FUndone;
      const std::string After = ValueOf(Object, Info);
      EXPECT_TRUE(After == Before) << What << ": " << Before.substr(0, 40) << " became " << After.substr(0, 40);
    } else {
      Guarded("setting back", FRestore);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - Begin, std::chrono::seconds(60)) << What << ", as good as a hang";
    ++FTried;
  }

  static std::string ValueOf(TPersistent& Object, const TPropInfo& Info) {
    if (Info.GetStr != nullptr) return Info.GetStr(Object);
    if (Info.GetObject != nullptr) return std::to_string(reinterpret_cast<std::uintptr_t>(Info.GetObject(Object)));
    if (Info.GetOrd != nullptr) return std::to_string(Info.GetOrd(Object));
    return Info.GetFloat != nullptr ? RealToText(Info.GetFloat(Object)) : "";
  }

  void TryAll(TPersistent& Object, const std::string& Path, const TPropInfo& Info) {
    const std::string Name = Path + "." + Info.Name + " = ";
    FRestore = testing::RestoreOf(Object, Info);
    const auto Ord = [&](std::int64_t Value) {
      Try(Object, Info, Name + std::to_string(Value), [&] { Info.SetOrd(Object, Value); });
    };
    if (Info.GetFloat != nullptr)
      for (const double Value : Reals)
        Try(Object, Info, Name + RealToText(Value), [&] { Info.SetFloat(Object, Value); });
    if (Info.GetOrd != nullptr)
      for (const std::int64_t Value : Wholes) Ord(Value);
    if (Info.Kind == TPropKind::Enumeration)
      for (std::size_t Value = 0; Value <= Info.Values->Values.size(); ++Value) Ord(static_cast<std::int64_t>(Value));
    if (Info.SetStr != nullptr)
      for (const std::string& Value : FTexts)
        Try(Object, Info, Name + Value.substr(0, 20), [&] { Info.SetStr(Object, Value); });
    if (Info.Kind != TPropKind::Class || Info.IsOwnedObject || Info.IsReadOnly) return;
    std::vector<TPersistent*> Fitting{nullptr, &Object};
    for (const auto& [Other, OtherPath] : FObjects)
      if (Fitting.size() < 6 && Other->ClassInfo().InheritsFrom(Info.ObjectClass())) Fitting.push_back(Other);
    for (TPersistent* Value : Fitting)
      Try(Object, Info, Name + (Value == nullptr ? "null" : Value->ClassName()),
          [&] { Info.SetObject(Object, Value); });
  }

  testing::TSampleChart FChart;
  TZyUndoStack FStack{&FChart.Form};
  std::vector<std::pair<TPersistent*, std::string>> FObjects;
  const std::vector<std::string> FTexts = Texts();
  std::function<void()> FRestore;
  int FTried = 0, FRefused = 0, FUndone = 0;
};

TEST_F(ExtremeValuesTest, EverySetterTakesOrRefusesThem) {
#ifdef __SANITIZE_THREAD__
  GTEST_SKIP() << "not checked: it has one thread, and would take a quarter of an hour";
#endif
  constexpr int Enough = 2;  // objects that have a property from the same row
  std::map<const TPropInfo*, int> Tried;
  for (const auto& [Object, Path] : FObjects)
    for (const TPropInfo* Info : Object->ClassInfo().Properties())
      if (++Tried[Info] <= Enough) TryAll(*Object, Path, *Info);
  EXPECT_GT(FTried, 4000);
  EXPECT_GT(FRefused, 100) << "values beyond an enumeration";
  EXPECT_GT(FUndone, 1000);
}

}  // namespace
}  // namespace zy
