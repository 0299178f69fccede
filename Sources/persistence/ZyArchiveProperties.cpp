// Fields by the rows of a table of properties.

#include <algorithm>

#include "persistence/ZyArchive.h"
#include "platform/framework/Reflection.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

void TZyArchive::Properties(TPersistent& Object, std::string_view Names) {
  while (!Names.empty()) {
    const std::size_t Length = std::min(Names.find(' '), Names.size());
    Property(Object, FindPropRow(Object, Names.substr(0, Length)));
    Names.remove_prefix(std::min(Length + 1, Names.size()));
  }
}

void TZyArchive::Property(TPersistent& Object, const TPropInfo& Row) {
  const TZyFieldName Name(Row.Name);
  const auto Visit = [&](auto Value, auto Write) {
    if (Take(Name, Value)) Write(Value);
  };
  const auto SetOrd = [&](auto Value) { Row.SetOrd(Object, static_cast<std::int64_t>(Value)); };
  switch (Row.Kind) {
    case TPropKind::Enumeration: {
      if (Row.Values == &EnumInfo(true)) return Visit(Row.GetOrd(Object) != 0, SetOrd);
      const TOrdinal Ordinal{static_cast<std::uint32_t>(Row.GetOrd(Object)),
                             static_cast<std::uint32_t>(Row.Values->Values.size()), 1};
      return Visit(Ordinal, [&](const TOrdinal& Value) { SetOrd(Value.Value); });
    }
    case TPropKind::Set: {
      const TOrdinal Bits{static_cast<std::uint32_t>(Row.GetOrd(Object)), std::uint32_t{1} << Row.Values->Values.size(),
                          Row.Values == &EnumInfo(TShiftStateElement{}) ? 2 : 1};
      return Visit(Bits, [&](const TOrdinal& Value) { SetOrd(Value.Value); });
    }
    case TPropKind::Integer:
      if (Row.TypeName() == TypeName<TZyColor>()) return Visit(static_cast<TZyColor>(Row.GetOrd(Object)), SetOrd);
      return Visit(static_cast<std::int32_t>(Row.GetOrd(Object)), SetOrd);
    case TPropKind::Float: {
      const auto SetFloat = [&](auto Value) { Row.SetFloat(Object, Value); };
      if (Row.IsSingle) return Visit(static_cast<float>(Row.GetFloat(Object)), SetFloat);
      return Visit(Row.GetFloat(Object), SetFloat);
    }
    case TPropKind::String:
      return Visit(Row.GetStr(Object), [&](const std::string& Value) { Row.SetStr(Object, Value); });
    case TPropKind::Class:
      return Reference(Object, Row, Name);
    default:
      throw EFilerError(Format(LoadResString(_sPropNotFound), {Row.Name}));
  }
}

/// A settings object is a part; another component is named, and what does not resolve to one of the property's class
/// reads as null.
void TZyArchive::Reference(TPersistent& Object, const TPropInfo& Row, const TZyFieldName& Name) {
  TPersistent* const Present = Row.GetObject(Object);
  if (Row.IsOwnedObject) return Part(Name, dynamic_cast<TZyRecord&>(*Present));
  std::string Ref = GetComponentRef(dynamic_cast<TComponent*>(Present));
  if (!Take(Name, Ref)) return;
  Resolve(Ref, [&Object, &Row](TComponent* Target) {
    const bool Fits = Target != nullptr && Target->ClassInfo().InheritsFrom(Row.ObjectClass());
    Row.SetObject(Object, Fits ? Target : nullptr);
  });
}

}  // namespace zy
