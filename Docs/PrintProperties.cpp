// Prints a page of the reference: the published properties of all classes, from their own tables.

#include <algorithm>
#include <iostream>
#include <limits>
#include <memory>
#include <string>

#include "Charts.h"
#include "Dialogs.h"
#include "Sql.h"

namespace {

using namespace zy;

/// A text within a cell of a table, in which nothing is markup.
std::string Cell(std::string_view Text) {
  if (Text.empty()) return "";
  std::string Result = "`";
  for (const char Letter : Text) Result += Letter == '|' || Letter == '`' ? ' ' : Letter;
  return Result + "`";
}

/// A type by its full name, where the reference knows it a link.
std::string Linked(std::string_view Type) { return (Type.starts_with('T') ? "zy::" : "") + std::string(Type); }

/// A value as SetPropValue takes it, colours by their names.
std::string ValueText(const TPropInfo& Info, const TVariant& Value) {
  if (Info.Kind == TPropKind::Enumeration && !Value.IsText()) {
    const auto Place = static_cast<std::size_t>(Value.AsInteger());
    return Place < Info.Values->Values.size() ? std::string(Info.Values->Values[Place]) : Value.AsText();
  }
  if (Info.TypeName() == "TZyColor" && Value.IsInteger())
    return ARGBToString(static_cast<TZyColor>(Value.AsInteger()), false);
  return Value.IsArray() ? std::string() : Value.AsText();
}

/// What a new object of the class has, where that can be made and read; else what the table says.
std::string TextAtFirst(const TPropInfo& Info, const TComponent* New) {
  if (Info.Kind == TPropKind::Class || Info.Kind == TPropKind::Method) return "";
  if (New == nullptr) return Info.HasDefault() ? ValueText(Info, Info.Default()) : "";
  if (Info.Kind == TPropKind::Set) return GetSetProp(*New, Info.Name);
  return ValueText(Info, GetPropValue(*New, Info.Name));
}

std::string LimitsText(const TPropInfo& Info) {
  if (Info.Kind != TPropKind::Integer && Info.Kind != TPropKind::Float && Info.Kind != TPropKind::Int64) return "";
  if (Info.TypeName() == "TZyColor" || Info.TypeName() == "TColor") return "";
  const bool HasLow = Info.Lowest > std::numeric_limits<std::int32_t>::min();
  const bool HasHigh = Info.Highest < std::numeric_limits<std::int32_t>::max();
  return (HasLow    ? FloatToStr(Info.Lowest)
          : HasHigh ? "up"
                    : "") +
         (HasHigh  ? " to " + FloatToStr(Info.Highest)
          : HasLow ? " and more"
                   : "");
}

void Print(const TClassInfo& Class) {
  const std::unique_ptr<TComponent> New(Class.Factory() == nullptr ? nullptr : Class.Factory()(nullptr));
  std::string Rows;
  for (const TPropInfo* Info : Class.Properties()) {
    if (Class.Parent() != nullptr && std::ranges::count(Class.Parent()->Properties(), Info) > 0) continue;
    Rows += std::string("| `") + Info->Name + "` | " + Linked(Info->TypeName()) + " | " +
            Cell(TextAtFirst(*Info, New.get())) + " | " + LimitsText(*Info) + " | " +
            (Info->Label ? LoadResString(*Info->Label) : "") + " |\n";
  }
  if (Rows.empty()) return;
  std::cout << "\n## " << Class.Name() << " {#properties_" << Class.Name() << "}\n\n";
  if (Class.Parent() != nullptr) std::cout << "Those of " << Linked(Class.Parent()->Name()) << ", and:\n\n";
  std::cout << "| property | type | at first | limits | a change is called |\n|---|---|---|---|---|\n" << Rows;
}

}  // namespace

int main(int ArgCount, char** Args) {
  const TApplication Program(ArgCount, Args);
  std::cout << "# Published properties {#properties}\n\nWhat forms store, undo logs, links and dialogs find by name "
               "(SetPropValue): each `X` is read by `X()` and written by `SetX`.\n";
  for (const TClassInfo* Class : RegisteredClasses()) Print(*Class);
  return 0;
}
