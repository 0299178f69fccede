// Prints the tables of fields behind the guide to the file format from the field lists of the classes themselves, or
// with `--check FILE` tells whether a file ends with them.

#include <algorithm>
#include <cstring>
#include <deque>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Charts.h"
#include "persistence/ZyFieldTable.h"

namespace {

using namespace zy;

constexpr std::string_view Marker = "<!-- Below this line stands what print_file_format prints. -->\n";

struct TTable {
  const TClassInfo* Class;
  const TTable* Parent;  // the nearest ancestor with a table, whose rows come first; null for none
  std::vector<TZyFieldRow> Rows;
};
using TTables = std::deque<TTable>;  // which do not move

bool ComesFirst(const std::vector<TZyFieldRow>& Rows, const std::vector<TZyFieldRow>& All) {
  const auto IsLike = [](const TZyFieldRow& Row, const TZyFieldRow& Other) { return Row.IsLike(Other); };
  return Rows.size() <= All.size() && std::equal(Rows.begin(), Rows.end(), All.begin(), IsLike);
}

void Add(TTables& Tables, const TClassInfo& Class, TZyRecord& Object) {
  TTable Table{&Class, nullptr, FieldTable(Object)};
  if (Table.Rows.empty()) return;
  for (const TTable& Other : Tables)
    if (Class.InheritsFrom(*Other.Class) && ComesFirst(Other.Rows, Table.Rows) &&
        (Table.Parent == nullptr || Other.Rows.size() > Table.Parent->Rows.size()))
      Table.Parent = &Other;
  Tables.push_back(std::move(Table));
}

template <class T>
void AddSettings(TTables& Tables) {
  T Object(nullptr);
  Add(Tables, T::StaticClassInfo(), Object);
}

/// Of all classes that are stored and can be made by their name, each behind its ancestors.
TTables AllTables() {
  TTables Tables;
  AddSettings<TZyGradientSettings>(Tables);
  AddSettings<TZySimpleLineSettings>(Tables);
  AddSettings<TZyLineSettings>(Tables);
  AddSettings<TZyArrowSettings>(Tables);
  AddSettings<TZyAreaSettings>(Tables);
  AddSettings<TZyFillSettings>(Tables);
  AddSettings<TZyPointSymbolSettings>(Tables);
  AddSettings<TZyAxisArrowPoint>(Tables);
  AddSettings<TZyFont>(Tables);
  std::vector<std::unique_ptr<TComponent>> Components;
  for (const TClassInfo* Class : RegisteredClasses()) {
    if (Class->Factory() == nullptr) continue;
    std::unique_ptr<TComponent> Component(Class->Factory()(nullptr));
    if (dynamic_cast<TZyRecord*>(Component.get()) != nullptr) Components.push_back(std::move(Component));
  }
  const auto Name = [](const auto& Component) { return std::string_view(Component->ClassInfo().Name()); };
  const auto Depth = [](const auto& Component) {
    int Result = 0;
    for (const TClassInfo* Class = &Component->ClassInfo(); Class != nullptr; Class = Class->Parent()) ++Result;
    return Result;
  };
  std::ranges::sort(Components, {},
                    [&](const auto& Component) { return std::pair(Depth(Component), Name(Component)); });
  for (const std::unique_ptr<TComponent>& Component : Components)
    Add(Tables, Component->ClassInfo(), dynamic_cast<TZyRecord&>(*Component));
  return Tables;
}

/// The ordinals of all enumerations that the tables name.
std::string EnumerationsText(const TTables& Tables) {
  std::map<std::string_view, const TEnumInfo*> All;
  for (const TTable& Table : Tables)
    for (const TZyFieldRow& Row : Table.Rows)
      if (Row.Names != nullptr) All[Row.Names->Name] = Row.Names;
  std::string Result = "\n## Enumerations\n\n| name | values in their order, from 0 |\n|---|---|\n";
  for (const auto& [Name, Info] : All) {
    Result.append("| ").append(Name).append(" |");
    for (const std::string_view& Value : Info->Values)
      Result.append(&Value == Info->Values.data() ? " " : ", ").append(Value);
    Result += " |\n";
  }
  return Result;
}

std::string Text() {
  const TTables Tables = AllTables();
  std::string Result(Marker);
  for (const TTable& Table : Tables) {
    Result.append("\n## ").append(Table.Class->Name()).append("\n\n");
    std::vector<TZyFieldRow> Own = Table.Rows;
    if (Table.Parent != nullptr) {
      Own.erase(Own.begin(), Own.begin() + static_cast<std::ptrdiff_t>(Table.Parent->Rows.size()));
      Result.append("As `")
          .append(Table.Parent->Class->Name())
          .append(Own.empty() ? "`.\n" : "`, and behind that:\n\n");
    }
    if (!Own.empty()) Result += FieldTableText(Own);
  }
  return Result + EnumerationsText(Tables);
}

}  // namespace

int main(int ArgCount, char** Args) {
  if (ArgCount == 1) {
    std::cout << Text();
    return 0;
  }
  if (ArgCount != 3 || std::strcmp(Args[1], "--check") != 0) {
    std::cerr << "print_file_format [--check FILE]\n";
    return 2;
  }
  std::ostringstream Content;
  Content << std::ifstream(Args[2], std::ios::binary).rdbuf();
  if (Content.str().ends_with(Text())) return 0;
  std::cerr << Args[2] << " does not end with what the classes store: print it anew\n";
  return 1;
}
