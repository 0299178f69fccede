#include "widgets/PublishedPaths.h"

#include <QColor>
#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/controls/TWinControl.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/Reflection.h"

namespace zy {
namespace {

bool IsColor(const TPropInfo& Info) { return Info.Kind == TPropKind::Integer && Info.TypeName() == "TZyColor"; }

bool IsSimple(const TPropInfo& Info) {
  switch (Info.Kind) {
    case TPropKind::Integer:
    case TPropKind::Enumeration:
    case TPropKind::Set:
    case TPropKind::Float:
    case TPropKind::String:
    case TPropKind::Int64:
      return true;
    default:
      return false;
  }
}

/// What a control has of itself, and what stands in the form already. The font of a chart is another one.
bool IsOfControls(const TPersistent& Object, const TPropInfo& Info) {
  if (dynamic_cast<const TControl*>(&Object) == nullptr) return false;
  const TPropInfo* const Row = TWinControl::StaticClassInfo().FindRow(Info.Name);
  return Row != nullptr && (Info.Kind != TPropKind::Class || &Row->ObjectClass() == &Info.ObjectClass());
}

void Collect(TPersistent& Object, const std::string& Before, const std::vector<std::string>& Parts,
             std::vector<TPublishedPath>& Into) {
  for (const TPropInfo* Info : Object.ClassInfo().Properties()) {
    if (IsOfControls(Object, *Info) || Info->IsNeverStored()) continue;  // the same value by another property
    const std::string Path = Before + Info->Name;
    if (IsSimple(*Info)) {
      Into.push_back({Path, Info});
    } else if (Info->Kind == TPropKind::Class) {
      const bool IsComponent = Info->ObjectClass().InheritsFrom(TComponent::StaticClassInfo());
      if (IsComponent && std::find(Parts.begin(), Parts.end(), Path) == Parts.end()) continue;
      if (TPersistent* const Part = Info->GetObject(Object)) Collect(*Part, Path + '.', Parts, Into);
    }
  }
}

/// The object that has the last name of a path, and its row; null without one.
std::pair<TPersistent*, const TPropInfo*> Find(TPersistent& Object, std::string_view Path) {
  TPersistent* Present = &Object;
  while (Present != nullptr) {
    const std::size_t Point = Path.find('.');
    const TPropInfo* const Info = GetPropInfo(*Present, Path.substr(0, Point));
    if (Info == nullptr || IsOfControls(*Present, *Info)) return {};
    if (Point == std::string_view::npos) return {Present, IsSimple(*Info) ? Info : nullptr};
    Present = Info->Kind == TPropKind::Class ? Info->GetObject(*Present) : nullptr;
    Path.remove_prefix(Point + 1);
  }
  return {};
}

/// The shortest number that reads back as the same single, so that 0.1 is shown as such.
double Shortest(double Single) {
  char Text[32];
  const auto End = std::to_chars(Text, Text + sizeof Text, static_cast<float>(Single)).ptr;
  double Result = Single;
  std::from_chars(Text, End, Result);
  return Result;
}

TVariant AsVariant(const TPropInfo& Info, const QVariant& Value) {
  if (IsColor(Info) && Value.canConvert<QColor>() && Value.value<QColor>().isValid())
    return static_cast<unsigned>(Value.value<QColor>().rgba());
  switch (Value.typeId()) {
    case QMetaType::Bool:
      return Value.toBool();
    case QMetaType::Double:
    case QMetaType::Float:
      return Value.toDouble();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
      return static_cast<long long>(Value.toLongLong());
    default:
      return Value.toString().toStdString();
  }
}

}  // namespace

std::vector<TPublishedPath> PublishedPaths(TPersistent& Object, const std::vector<std::string>& Parts) {
  std::vector<TPublishedPath> Result;
  Collect(Object, {}, Parts, Result);
  return Result;
}

QVariant ReadPublished(TPersistent& Object, std::string_view Path) {
  const auto [Holder, Info] = Find(Object, Path);
  if (Info == nullptr) return {};
  if (IsColor(*Info)) return QColor::fromRgba(static_cast<QRgb>(Info->GetOrd(*Holder)));
  if (Info->Kind == TPropKind::Set) return ToQString(GetSetProp(*Holder, Info->Name));
  if (Info->Kind == TPropKind::Enumeration && Info->TypeName() != "Boolean")
    return ToQString(GetEnumProp(*Holder, Info->Name));
  const TVariant Value = GetPropValue(*Holder, Info->Name);
  if (Value.IsBoolean()) return Value.AsBoolean();
  if (Value.IsReal()) return Info->IsSingle ? Shortest(Value.AsReal()) : Value.AsReal();
  if (Value.IsText()) return ToQString(Value.AsText());
  return Info->Kind == TPropKind::Int64 ? QVariant(static_cast<qlonglong>(Value.AsInteger()))
                                        : QVariant(static_cast<int>(Value.AsInteger()));
}

bool IsPublishedStored(TPersistent& Object, std::string_view Path) {
  TPersistent* Present = &Object;
  for (std::string_view Rest = Path; Present != nullptr;) {
    const std::size_t Point = Rest.find('.');
    const TPropInfo* const Info = GetPropInfo(*Present, Rest.substr(0, Point));
    if (Info == nullptr || !Info->IsStored(*Present)) return false;
    if (Point == std::string_view::npos) return true;
    Present = Info->Kind == TPropKind::Class ? Info->GetObject(*Present) : nullptr;
    Rest.remove_prefix(Point + 1);
  }
  return false;
}

std::span<const std::string_view> PublishedNames(TPersistent& Object, std::string_view Path) {
  const TPropInfo* const Info = Find(Object, Path).second;
  if (Info == nullptr || Info->Values == nullptr || Info->TypeName() == "Boolean") return {};
  return Info->Values->Values;
}

bool WritePublished(TPersistent& Object, std::string_view Path, const QVariant& Value) {
  const auto [Holder, Info] = Find(Object, Path);
  if (Info == nullptr) return false;
  SetPropValue(*Holder, Info->Name, AsVariant(*Info, Value));
  return true;
}

}  // namespace zy
