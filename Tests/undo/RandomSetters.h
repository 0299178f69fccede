#pragma once

#include <functional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "annotations/captions/ZyFont.h"
#include "platform/controls/TCustomPanel.h"
#include "platform/framework/TPropInfo.h"

namespace zy::testing {

/// What is set without undo: the curve that divides the points, what the designer sets once, looks and sizes without
/// a step, the paddings of an axis, the offset of a regression that is not fixed, how markers are dragged, and the
/// table and the parts of a sample and of a cross hair; and how long a fit goes on from the last one, whose
/// coefficients are no step.
inline const std::set<std::string_view> NotUndone = {"BufferType",
                                                     "PanningCursor",
                                                     "SmoothingMode",
                                                     "AutoUpdate",
                                                     "ParentFont",
                                                     "StartPadding",
                                                     "StopPadding",
                                                     "MergeLegendItemWith",
                                                     "DrawBandTo",
                                                     "RubricsField",
                                                     "DataSource",
                                                     "DataField",
                                                     "CaptionsField",
                                                     "Table",
                                                     "Part",
                                                     "RangeFromFunction",
                                                     "Offset",
                                                     "AutoSize",
                                                     "SnapToSeriesValues",
                                                     "MouseDrag",
                                                     "HoverGrips",
                                                     "Iterations",
                                                     "ArrowEndGripCursor",
                                                     "BentLengthGripCursor",
                                                     "CaptionGripCursor",
                                                     "HorizontalCursor",
                                                     "VerticalCursor",
                                                     "HorizontalMarker",
                                                     "VerticalMarker"};

/// What every panel has, places and names above all, is set without undo too.
inline bool IsUndone(const TPropInfo& Info) {
  return !NotUndone.contains(Info.Name) && TCustomPanel::StaticClassInfo().FindProperty(Info.Name) == nullptr;
}

/// Writes some value of the property's kind through its setter. False for kinds that the walk leaves alone.
inline bool SetAtRandom(TPersistent& Object, const TPropInfo& Info, TComponent& Root, std::mt19937& Random) {
  const auto Roll = [&Random](std::size_t Count) { return static_cast<std::int64_t>(Random() % Count); };
  const auto SetOrd = [&](std::int64_t Value) { return Info.SetOrd(Object, Value), true; };
  switch (Info.Kind) {
    case TPropKind::Enumeration:
      return SetOrd(Roll(Info.Values->Values.size()));
    case TPropKind::Char:
      return SetOrd(Roll(256));
    case TPropKind::Integer:
      return SetOrd(Info.Name == std::string_view("Small") ? Roll(256) - 128 : Roll(2000));
    case TPropKind::Int64:
      return SetOrd(Roll(2000) << Roll(31));
    case TPropKind::Float:
      Info.SetFloat(Object, static_cast<double>(Roll(4000) - 1000) / 16);
      return true;
    case TPropKind::String:
      if (Info.Name == std::string_view("Expression")) {
        constexpr const char* Formulas[] = {"", "A*X+B", "X*C", "A-X"};
        return Info.SetStr(Object, Formulas[Roll(std::size(Formulas))]), true;
      }
      Info.SetStr(Object, "text " + std::to_string(Roll(100)));
      return true;
    case TPropKind::DynArray:
      Info.SetVariant(Object, TVariant::TArray(static_cast<std::size_t>(Roll(5)), static_cast<double>(Roll(9)) / 3));
      return true;
    case TPropKind::Variant:
      Info.SetVariant(Object, Roll(2) == 0 ? TVariant(TVariant::TArray{1, "two", 3.5}) : TVariant(Roll(100)));
      return true;
    case TPropKind::Class: {
      if (Info.IsOwnedObject) return false;
      std::vector<TPersistent*> Fitting{nullptr};
      for (TComponent* Component : Root.Components())
        if (Component->ClassInfo().InheritsFrom(Info.ObjectClass())) Fitting.push_back(Component);
      Info.SetObject(Object, Fitting[static_cast<std::size_t>(Roll(Fitting.size()))]);
      return true;
    }
    default:
      return false;
  }
}

/// Notes an object and the settings that it owns, fonts left out: who changes a font pushes it as a whole before. A
/// component that it owns is no part of its record.
inline void Collect(TPersistent& Object, std::vector<TPersistent*>& Into, bool IsForRecord = false) {
  Into.push_back(&Object);
  for (const TPropInfo* Info : Object.ClassInfo().Properties())
    if (Info->IsOwnedObject && !Info->ObjectClass().InheritsFrom(TZyFont::StaticClassInfo()) &&
        !Info->ObjectClass().Properties().empty() &&
        !(IsForRecord && Info->ObjectClass().InheritsFrom(TComponent::StaticClassInfo())))
      Collect(*Info->GetObject(Object), Into, IsForRecord);
}

/// What sets a property to the value that it has now.
inline std::function<void()> RestoreOf(TPersistent& Object, const TPropInfo& Info) {
  if (Info.GetOrd != nullptr) return [&, Old = Info.GetOrd(Object)] { Info.SetOrd(Object, Old); };
  if (Info.GetFloat != nullptr) return [&, Old = Info.GetFloat(Object)] { Info.SetFloat(Object, Old); };
  if (Info.SetStr != nullptr) return [&, Old = Info.GetStr(Object)] { Info.SetStr(Object, Old); };
  if (Info.SetObject != nullptr) return [&, Old = Info.GetObject(Object)] { Info.SetObject(Object, Old); };
  return [] {};
}

}  // namespace zy::testing
