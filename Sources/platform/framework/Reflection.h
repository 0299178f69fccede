#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/framework/TPropInfo.h"

namespace zy {

/// The published property of that name, null when the object's class has none.
inline const TPropInfo* GetPropInfo(const TObject& Instance, std::string_view PropName) {
  return Instance.ClassInfo().FindProperty(PropName);
}

/// As GetPropInfo, but throws EFilerError, naming the property, when there is none.
const TPropInfo& FindPropInfo(const TObject& Instance, std::string_view PropName);
/// The same among all rows of the table, those that are not published included.
const TPropInfo& FindPropRow(const TObject& Instance, std::string_view PropName);

/// Value of any property that is neither object nor event: ordinals as integers (booleans as such), reals, texts,
/// arrays. Throws EFilerError for an unknown name and EConvertError for an object or an event.
TVariant GetPropValue(const TObject& Instance, std::string_view PropName);
/// Writes such a value through the property's setter, converted to its kind where the value allows it. Enumerations and
/// sets also take the text of their value names. Throws EFilerError, EConvertError or ERangeError; then nothing is set.
void SetPropValue(TObject& Instance, std::string_view PropName, const TVariant& Value);

/// Writes the values of all properties that both objects have from their nearest common class, through the setters of
/// Dest. Leaves out events and what a class never stores. Returns false, and does nothing, when they have no class with
/// properties in common.
bool CopyProperties(const TPersistent& Source, TPersistent& Dest);

/// The typed forms work on one kind each and throw EConvertError, naming property and kind, for any other.
std::int64_t GetOrdProp(const TObject& Instance, std::string_view PropName);
void SetOrdProp(TObject& Instance, std::string_view PropName, std::int64_t Value);
std::int64_t GetInt64Prop(const TObject& Instance, std::string_view PropName);
void SetInt64Prop(TObject& Instance, std::string_view PropName, std::int64_t Value);
double GetFloatProp(const TObject& Instance, std::string_view PropName);
void SetFloatProp(TObject& Instance, std::string_view PropName, double Value);
std::string GetStrProp(const TObject& Instance, std::string_view PropName);
void SetStrProp(TObject& Instance, std::string_view PropName, const std::string& Value);
/// Object, string list or component reference; may be null.
TPersistent* GetObjectProp(TObject& Instance, std::string_view PropName);
void SetObjectProp(TObject& Instance, std::string_view PropName, TPersistent* Value);
/// Value of a variant property, or the elements of an array property.
TVariant GetVariantProp(const TObject& Instance, std::string_view PropName);
void SetVariantProp(TObject& Instance, std::string_view PropName, const TVariant& Value);
/// Name of the present value of an enumeration.
std::string_view GetEnumProp(const TObject& Instance, std::string_view PropName);
void SetEnumProp(TObject& Instance, std::string_view PropName, std::string_view ValueName);
/// Value names of a set in brackets, joined by commas: "[Bold,Italic]".
std::string GetSetProp(const TObject& Instance, std::string_view PropName);
void SetSetProp(TObject& Instance, std::string_view PropName, std::string_view ValueNames);

/// "TZyAxis YAxis.Scaling": class, name of the component if it has one, and property, for messages.
std::string FullPropName(const TObject& Instance, std::string_view PropName);

/// Ordinal of a value name, of the text form of a set, or of a number in text. Throws EConvertError for anything else.
std::int64_t OrdinalFromText(const TObject& Instance, const TPropInfo& Info, std::string_view Text);

}  // namespace zy
