// Every published property of every registered class, set to what nobody sets: the chart still paints, and undo still
// brings the old value back.

#include <gtest/gtest.h>

#include <chrono>
#include <iostream>
#include <limits>

#include "graph/SampleChart.h"
#include "platform/framework/Application.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/NumberText.h"
#include "platform/framework/Reflection.h"
#include "series/ZyPointSeries.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

using Clock = std::chrono::steady_clock;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Inf = std::numeric_limits<double>::infinity();
constexpr double Reals[] = {NaN, Inf, -Inf, 1e308, -1e308, 5e-324, -1e-40, 0, -0.0, -1, 1e9, -1e15, 0.3};
constexpr std::int64_t Wholes[] = {std::numeric_limits<std::int64_t>::min(),
                                   std::numeric_limits<std::int64_t>::max(),
                                   std::numeric_limits<std::int32_t>::min(),
                                   std::numeric_limits<std::int32_t>::max(),
                                   std::numeric_limits<std::uint32_t>::max(),
                                   -1,
                                   0,
                                   1,
                                   100000};

std::vector<std::string> Texts() {
  std::string Marked;
  while (Marked.size() < 1'000'000) Marked += "\\+2\\-\\b x\n";
  return {"", std::string(1'000'000, 'W'), Marked, std::string("\0\x01\xFF\xC0\\", 5), "\\"};
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

  void Paint() {
    Bitmap Picture(120, 90);
    Graphics Gr(Picture);
    FChart.Graph->PaintGr(Gr);
  }

  /// Sets a property, paints, undoes and paints: what is thrown names its reason, nothing takes long, and what was
  /// undone is what it was.
  template <class TSet>
  void Try(TPersistent& Object, const TPropInfo& Info, const std::string& What, const TSet& Set) {
    const auto Begin = Clock::now();
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
    const bool IsStep = FStack.CanUndo();
    Guarded("painting", [this] { Paint(); });
    while (FStack.CanUndo()) FStack.Undo();
    if (IsStep) {
      ++FUndone;
      const std::string After = ValueOf(Object, Info);
      EXPECT_TRUE(After == Before) << What << ": " << Before.substr(0, 40) << " became " << After.substr(0, 40);
    } else if (Info.Kind != TPropKind::Class && !Info.IsReadOnly) {
      Guarded("setting back", [&] { Restore(Object, Info); });
    }
    const std::chrono::duration<double> Taken = Clock::now() - Begin;
    EXPECT_LT(Taken.count(), 60) << What << " takes so long that a user would call it a hang";
    if (Taken.count() > FSlowest) {
      FSlowest = Taken.count();
      FSlowestWhat = What;
    }
    ++FTried;
  }

  std::string ValueOf(TPersistent& Object, const TPropInfo& Info) {
    if (Info.GetOrd != nullptr) FOrd = Info.GetOrd(Object);
    if (Info.GetFloat != nullptr) FFloat = Info.GetFloat(Object);
    if (Info.GetStr != nullptr) return Info.GetStr(Object);
    if (Info.GetObject != nullptr) return std::to_string(reinterpret_cast<std::uintptr_t>(Info.GetObject(Object)));
    return Info.GetOrd != nullptr ? std::to_string(FOrd) : Info.GetFloat != nullptr ? RealToText(FFloat) : "";
  }
  void Restore(TPersistent& Object, const TPropInfo& Info) const {
    if (Info.SetOrd != nullptr) Info.SetOrd(Object, FOldOrd);
    if (Info.SetFloat != nullptr) Info.SetFloat(Object, FOldFloat);
    if (Info.SetStr != nullptr) Info.SetStr(Object, FOldText);
  }

  void TryAll(TPersistent& Object, const std::string& Path, const TPropInfo& Info) {
    const std::string Name = Path + "." + Info.Name + " = ";
    FOldText = ValueOf(Object, Info);
    FOldOrd = FOrd;
    FOldFloat = FFloat;
    if (Info.SetFloat != nullptr)
      for (const double Value : Reals)
        Try(Object, Info, Name + RealToText(Value), [&] { Info.SetFloat(Object, Value); });
    if (Info.SetOrd != nullptr)
      for (const std::int64_t Value : Wholes)
        Try(Object, Info, Name + std::to_string(Value), [&] { Info.SetOrd(Object, Value); });
    if (Info.Kind == TPropKind::Enumeration)
      for (std::size_t Value = 0; Value <= Info.Values->Values.size(); ++Value)
        Try(Object, Info, Name + std::to_string(Value), [&] { Info.SetOrd(Object, static_cast<std::int64_t>(Value)); });
    if (Info.SetStr != nullptr)
      for (const std::string& Value : FTexts)
        Try(Object, Info, Name + Value.substr(0, 20), [&] { Info.SetStr(Object, Value); });
    if (Info.Kind != TPropKind::Class || Info.IsOwnedObject || Info.IsReadOnly) return;
    TPersistent* const Old = Info.GetObject(Object);
    std::vector<TPersistent*> Fitting{nullptr, &Object};
    for (const auto& [Other, OtherPath] : FObjects)
      if (Fitting.size() < 6 && Other->ClassInfo().InheritsFrom(Info.ObjectClass())) Fitting.push_back(Other);
    for (TPersistent* Value : Fitting) {
      Try(Object, Info, Name + (Value == nullptr ? "null" : Value->ClassName()),
          [&] { Info.SetObject(Object, Value); });
      Info.SetObject(Object, Old);
    }
  }

  testing::TSampleChart FChart;
  TZyUndoStack FStack{&FChart.Form};
  std::vector<std::pair<TPersistent*, std::string>> FObjects;
  const std::vector<std::string> FTexts = Texts();
  std::int64_t FOrd = 0, FOldOrd = 0;
  double FFloat = 0, FOldFloat = 0;
  std::string FOldText;
  int FTried = 0, FRefused = 0, FUndone = 0;
  double FSlowest = 0;
  std::string FSlowestWhat;
};

TEST_F(ExtremeValuesTest, EverySetterTakesOrRefusesThem) {
  for (const auto& [Object, Path] : FObjects)
    for (const TPropInfo* Info : Object->ClassInfo().Properties()) TryAll(*Object, Path, *Info);
  EXPECT_GT(FTried, 4000);
  EXPECT_GT(FRefused, 100) << "values beyond an enumeration";
  EXPECT_GT(FUndone, 1000);
  std::cout << FTried << " values, " << FRefused << " refused, " << FUndone << " undone; slowest " << FSlowest
            << " s: " << FSlowestWhat << '\n';
}

}  // namespace
}  // namespace zy
