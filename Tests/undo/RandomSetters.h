#pragma once

#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/TCustomPanel.h"
#include "platform/framework/TPropInfo.h"

namespace zy::testing {

/// What is set without undo: what the designer sets once, the one look without a step, and the paddings of an axis.
inline const std::set<std::string_view> NotUndone = {
    "BufferType",  "PanningCursor",       "SmoothingMode", "AutoUpdate",   "ParentFont", "StartPadding",
    "StopPadding", "MergeLegendItemWith", "DrawBandTo",    "RubricsField", "DataSource", "DataField"};

/// What every panel has, places and names above all, is set without undo too.
inline bool IsUndone(const TPropInfo& Info) {
  return !NotUndone.contains(Info.Name) && TCustomPanel::StaticClassInfo().FindProperty(Info.Name) == nullptr;
}

/// Writes some value of the property's kind through its setter. False for kinds that the walk leaves alone.
inline bool SetAtRandom(TPersistent& Object, const TPropInfo& Info, TComponent& Root, std::mt19937& Random) {
  const auto Roll = [&Random](std::size_t Count) { return static_cast<std::int64_t>(Random() % Count); };
  switch (Info.Kind) {
    case TPropKind::Enumeration:
      Info.SetOrd(Object, Roll(Info.Values->Values.size()));
      return true;
    case TPropKind::Integer:
      Info.SetOrd(Object, Roll(2000));
      return true;
    case TPropKind::Float:
      Info.SetFloat(Object, static_cast<double>(Roll(4000) - 1000) / 16);
      return true;
    case TPropKind::String:
      Info.SetStr(Object, "text " + std::to_string(Roll(100)));
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

}  // namespace zy::testing
