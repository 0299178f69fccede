#include "platform/framework/Reflection.h"

#include <algorithm>

#include "platform/framework/TComponent.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {

namespace {

[[noreturn]] void WrongKind(const TObject& Instance, const TPropInfo& Info, std::string_view Wanted) {
  throw EConvertError(Format(LoadResString(_sPropWrongKind), {Instance.ClassName(), Info.Name, Wanted}));
}

/// The row, when it has the accessor that the typed form needs.
template <class TAccessor>
const TPropInfo& Typed(const TObject& Instance, std::string_view PropName, TAccessor TPropInfo::*Accessor,
                       std::string_view Wanted) {
  const TPropInfo& Info = FindPropInfo(Instance, PropName);
  if (Info.*Accessor == nullptr) WrongKind(Instance, Info, Wanted);
  return Info;
}

std::size_t IndexOfName(const TPropInfo& Info, std::string_view Name) {
  const auto& Names = Info.Values->Values;
  return static_cast<std::size_t>(std::find(Names.begin(), Names.end(), Name) - Names.begin());
}

std::int64_t OrdinalOfNames(const TObject& Instance, const TPropInfo& Info, std::string_view Names) {
  std::int64_t Bits = 0;
  std::string_view Rest = Names.substr(1, Names.size() - 2);
  while (!Rest.empty()) {
    const std::string_view Name = Rest.substr(0, Rest.find(','));
    const std::size_t Index = IndexOfName(Info, Name);
    if (Index == Info.Values->Values.size()) Info.Refuse<EConvertError>(Instance, Name);
    Bits |= std::int64_t{1} << Index;
    Rest.remove_prefix(std::min(Rest.size(), Name.size() + 1));
  }
  return Bits;
}

/// The number of a value; the error for what is none names the property and what it takes.
template <class TNumber>
TNumber Converted(const TObject& Instance, const TPropInfo& Info, const TVariant& Value,
                  TNumber (TVariant::*Conversion)() const) {
  try {
    return (Value.*Conversion)();
  } catch (const EConvertError&) {
    Info.Refuse<EConvertError>(Instance, Value.IsArray() ? std::string("array") : Value.AsText());
  }
}

}  // namespace

std::string FullPropName(const TObject& Instance, std::string_view PropName) {
  std::string Result = Instance.ClassName();
  if (const auto* const Component = dynamic_cast<const TComponent*>(&Instance);
      Component != nullptr && !Component->Name().empty())
    Result += " " + Component->Name();
  return (Result += ".").append(PropName);
}

const TPropInfo& FindPropInfo(const TObject& Instance, std::string_view PropName) {
  if (const TPropInfo* Info = GetPropInfo(Instance, PropName)) return *Info;
  throw EFilerError(Format(LoadResString(_sPropNotFound), {FullPropName(Instance, PropName)}));
}

const TPropInfo& FindPropRow(const TObject& Instance, std::string_view PropName) {
  if (const TPropInfo* Info = Instance.ClassInfo().FindRow(PropName)) return *Info;
  throw EFilerError(Format(LoadResString(_sPropNotFound), {PropName}));
}

std::int64_t OrdinalFromText(const TObject& Instance, const TPropInfo& Info, std::string_view Text) {
  if (Info.Kind == TPropKind::Set && Text.size() >= 2 && Text.front() == '[' && Text.back() == ']')
    return OrdinalOfNames(Instance, Info, Text);
  if (Info.Kind == TPropKind::Enumeration) {
    const std::size_t Index = IndexOfName(Info, Text);
    if (Index < Info.Values->Values.size()) return static_cast<std::int64_t>(Index);
  }
  try {
    return StrToInt(Text);
  } catch (const EConvertError&) {
    Info.Refuse<EConvertError>(Instance, Text);
  }
}

TVariant GetPropValue(const TObject& Instance, std::string_view PropName) {
  const TPropInfo& Info = FindPropInfo(Instance, PropName);
  if (Info.GetOrd != nullptr) {
    const std::int64_t Ordinal = Info.GetOrd(Instance);
    if (Info.Values == &EnumInfo(bool{})) return Ordinal != 0;
    return static_cast<long long>(Ordinal);
  }
  if (Info.GetFloat != nullptr) return Info.GetFloat(Instance);
  if (Info.GetStr != nullptr) return Info.GetStr(Instance);
  if (Info.GetVariant != nullptr) return Info.GetVariant(Instance);
  WrongKind(Instance, Info, "plain");
}

void SetPropValue(TObject& Instance, std::string_view PropName, const TVariant& Value) {
  const TPropInfo& Info = FindPropInfo(Instance, PropName);
  if (Info.GetOrd != nullptr) {
    Info.SetOrd(Instance, Value.IsText() ? OrdinalFromText(Instance, Info, Value.AsText())
                                         : Converted(Instance, Info, Value, &TVariant::AsInteger));
  } else if (Info.GetFloat != nullptr) {
    Info.SetFloat(Instance, Converted(Instance, Info, Value, &TVariant::AsReal));
  } else if (Info.SetStr != nullptr) {
    Info.SetStr(Instance, Value.AsText());
  } else if (Info.SetVariant != nullptr) {
    Info.SetVariant(Instance, Value);
  } else {
    WrongKind(Instance, Info, "plain");
  }
}

/// The nearest class that both are or descend from.
static const TClassInfo& CommonClass(const TClassInfo& Left, const TClassInfo& Right) {
  const TClassInfo* Common = &Left;
  while (!Right.InheritsFrom(*Common)) Common = Common->Parent();
  return *Common;
}

bool CopyProperties(const TPersistent& Source, TPersistent& Dest) {
  const auto& Rows = CommonClass(Source.ClassInfo(), Dest.ClassInfo()).Properties();
  for (const TPropInfo* Row : Rows) {
    if (Row->IsNeverStored()) continue;
    if (Row->GetOrd != nullptr) {
      Row->SetOrd(Dest, Row->GetOrd(Source));
    } else if (Row->GetFloat != nullptr) {
      Row->SetFloat(Dest, Row->GetFloat(Source));
    } else if (Row->GetStr != nullptr) {
      Row->SetStr(Dest, Row->GetStr(Source));
    } else if (Row->GetObject != nullptr) {
      TPersistent* const Value = Row->GetObject(const_cast<TPersistent&>(Source));  // asking changes nothing
      if (Value != nullptr || !(Row->IsOwnedObject || Row->IsReadOnly)) Row->SetObject(Dest, Value);
    } else if (Row->GetVariant != nullptr) {
      Row->SetVariant(Dest, Row->GetVariant(Source));
    }
  }
  return !Rows.empty();
}

std::int64_t GetOrdProp(const TObject& Instance, std::string_view PropName) {
  return Typed(Instance, PropName, &TPropInfo::GetOrd, "ordinal").GetOrd(Instance);
}

void SetOrdProp(TObject& Instance, std::string_view PropName, std::int64_t Value) {
  Typed(Instance, PropName, &TPropInfo::GetOrd, "ordinal").SetOrd(Instance, Value);
}

std::int64_t GetInt64Prop(const TObject& Instance, std::string_view PropName) { return GetOrdProp(Instance, PropName); }

void SetInt64Prop(TObject& Instance, std::string_view PropName, std::int64_t Value) {
  SetOrdProp(Instance, PropName, Value);
}

double GetFloatProp(const TObject& Instance, std::string_view PropName) {
  return Typed(Instance, PropName, &TPropInfo::GetFloat, "real").GetFloat(Instance);
}

void SetFloatProp(TObject& Instance, std::string_view PropName, double Value) {
  Typed(Instance, PropName, &TPropInfo::GetFloat, "real").SetFloat(Instance, Value);
}

std::string GetStrProp(const TObject& Instance, std::string_view PropName) {
  return Typed(Instance, PropName, &TPropInfo::GetStr, "text").GetStr(Instance);
}

void SetStrProp(TObject& Instance, std::string_view PropName, const std::string& Value) {
  Typed(Instance, PropName, &TPropInfo::SetStr, "text").SetStr(Instance, Value);
}

TPersistent* GetObjectProp(TObject& Instance, std::string_view PropName) {
  return Typed(Instance, PropName, &TPropInfo::GetObject, "object").GetObject(Instance);
}

void SetObjectProp(TObject& Instance, std::string_view PropName, TPersistent* Value) {
  Typed(Instance, PropName, &TPropInfo::SetObject, "object").SetObject(Instance, Value);
}

TVariant GetVariantProp(const TObject& Instance, std::string_view PropName) {
  return Typed(Instance, PropName, &TPropInfo::GetVariant, "variant").GetVariant(Instance);
}

void SetVariantProp(TObject& Instance, std::string_view PropName, const TVariant& Value) {
  Typed(Instance, PropName, &TPropInfo::SetVariant, "variant").SetVariant(Instance, Value);
}

std::string_view GetEnumProp(const TObject& Instance, std::string_view PropName) {
  const TPropInfo& Info = FindPropInfo(Instance, PropName);
  if (Info.Kind != TPropKind::Enumeration) WrongKind(Instance, Info, "enumeration");
  return Info.Values->Values[static_cast<std::size_t>(Info.GetOrd(Instance))];
}

void SetEnumProp(TObject& Instance, std::string_view PropName, std::string_view ValueName) {
  const TPropInfo& Info = FindPropInfo(Instance, PropName);
  if (Info.Kind != TPropKind::Enumeration) WrongKind(Instance, Info, "enumeration");
  const std::size_t Index = IndexOfName(Info, ValueName);
  if (Index == Info.Values->Values.size()) Info.Refuse<EConvertError>(Instance, ValueName);
  Info.SetOrd(Instance, static_cast<std::int64_t>(Index));
}

std::string GetSetProp(const TObject& Instance, std::string_view PropName) {
  const TPropInfo& Info = FindPropInfo(Instance, PropName);
  if (Info.Kind != TPropKind::Set) WrongKind(Instance, Info, "set");
  const std::int64_t Bits = Info.GetOrd(Instance);
  std::string Text = "[";
  for (std::size_t Index = 0; Index < Info.Values->Values.size(); ++Index) {
    if ((Bits >> Index & 1) == 0) continue;
    if (Text.size() > 1) Text += ',';
    Text += Info.Values->Values[Index];
  }
  return Text + ']';
}

void SetSetProp(TObject& Instance, std::string_view PropName, std::string_view ValueNames) {
  const TPropInfo& Info = FindPropInfo(Instance, PropName);
  if (Info.Kind != TPropKind::Set) WrongKind(Instance, Info, "set");
  Info.SetOrd(Instance, OrdinalFromText(Instance, Info, ValueNames));
}

}  // namespace zy
