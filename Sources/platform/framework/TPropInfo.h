#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/framework/ClassRegistry.h"
#include "platform/framework/EnumInfo.h"
#include "platform/framework/PropValues.h"
#include "platform/framework/TObject.h"
#include "platform/framework/TPersistent.h"
#include "platform/framework/TVariant.h"
#include "platform/framework/TypeName.h"
#include "texts/ZyLocalize.h"

namespace zy {

namespace detail {

template <auto Getter, auto Setter>
struct TPropRow;

}  // namespace detail

/// Kinds of published properties.
enum class TPropKind {
  Integer,      ///< whole number of up to 32 bits, colours included
  Char,         ///< one character
  Enumeration,  ///< ordinal with value names, booleans included
  Set,          ///< bits of an enumeration's values
  Float,        ///< single or double
  String,       ///< UTF-8 text
  Class,        ///< owned object, string list or component reference
  Method,       ///< event; listed, but neither streamed nor logged
  Int64,        ///< 64-bit whole number
  DynArray,     ///< growing array
  Variant       ///< TVariant
};

/// One published property of a class: its name, kind and type, what it may be, how it is read and written, when it is
/// stored, and what a change of it is called.
///
/// Only the accessors of the property's own kind are there: ordinal ones for Integer, Char, Enumeration, Set and Int64;
/// float, string, object; and variant ones for DynArray and Variant. Writing runs the property's setter.
class TPropInfo {
 public:
  const char* Name = nullptr;
  TPropKind Kind = TPropKind::Variant;
  /// Name of the type, see zy::TypeName: "Single", "TZyColor", the name of an enumeration, a class or a handler.
  std::string_view (*TypeName)() = nullptr;
  /// What a change is called in the list of steps that can be undone; nothing for what is not logged by itself.
  std::optional<TZyText> Label;
  /// Value names of an Enumeration or a Set, else null.
  const TEnumInfo* Values = nullptr;
  /// Declared class of a Class property, else null. A function, since tables may refer to each other.
  const TClassInfo& (*ObjectClass)() = nullptr;
  /// A Class property that is part of its object: it is streamed inside it, and a write copies into it.
  bool IsOwnedObject = false;
  /// A Class property without a setter: what it shows is made by its object.
  bool IsReadOnly = false;
  /// A Float of 32 bits.
  bool IsSingle = false;
  /// Lowest and highest value of an ordinal or a Float: those of its type, unless the row tells others. Those of an
  /// Int64 are rounded.
  double Lowest = 0, Highest = 0;
  /// Whether the property is listed, streamed and found by GetPropInfo; see Hidden and Republished.
  bool IsPublished = true;
  /// Not a property, but the names of inherited ones that this class publishes; see Republished.
  bool IsRepublished = false;

  std::int64_t (*GetOrd)(const TObject&) = nullptr;
  double (*GetFloat)(const TObject&) = nullptr;
  std::string (*GetStr)(const TObject&) = nullptr;
  void (*SetStr)(TObject&, const std::string&) = nullptr;
  TPersistent* (*GetObject)(TObject&) = nullptr;
  void (*SetObject)(TObject&, TPersistent*) = nullptr;
  TVariant (*GetVariant)(const TObject&) = nullptr;
  void (*SetVariant)(TObject&, const TVariant&) = nullptr;
  /// Writes an ordinal. Throws ERangeError, with property, value and what is allowed, for one that does not fit.
  void SetOrd(TObject& Instance, std::int64_t Value) const;
  /// Writes a Float, likewise. Where no limits are told, what is no number and infinities are left to the setter.
  void SetFloat(TObject& Instance, double Value) const;
  /// Throws ERangeError, likewise, for a Float that does not fit; for setters that refuse it whoever calls them.
  void TestFloat(const TObject& Instance, double Value) const;
  /// Throws TError with class, object, property, value and what is allowed: value names or limits.
  template <class TError>
  [[noreturn]] void Refuse(const TObject& Instance, std::string_view Value) const {
    throw TError(RefusalText(Instance, Value));
  }

  /// Values equal to the default are not streamed. A property without one is always streamed.
  bool HasDefault() const { return !FDefault.IsNull(); }
  const TVariant& Default() const { return FDefault; }
  /// Whether the present value equals the default.
  bool IsDefault(const TObject& Instance) const;
  /// Whether the property is streamed at all for this object; see StoredIf.
  bool IsStored(const TObject& Instance) const { return FStored == nullptr || FStored(Instance); }

  void SetDefault(TVariant Value) { FDefault = std::move(Value); }
  /// Streams the property only while the member function Condition is true.
  template <auto Condition>
  TPropInfo StoredIf() &&;
  /// Never streams the property; another operation of the class does, or it is no part of the stored form. Copies of
  /// all properties leave it out as well.
  TPropInfo NotStored() &&;
  bool IsNeverStored() const { return FIsNeverStored; }
  /// Tells the lowest and the highest value; other ones are refused.
  TPropInfo Limited(double Low, double High) &&;
  /// Tells the limits into which the setter brings what is given.
  TPropInfo Clamped(double Low, double High) && { return Lowest = Low, Highest = High, std::move(*this); }
  /// Keeps the property from being published: descendants may do it (Republished), and undo finds it all the same.
  TPropInfo Hidden() && { return IsPublished = false, std::move(*this); }

 private:
  template <auto Getter, auto Setter>
  friend struct detail::TPropRow;
  std::string RefusalText(const TObject& Instance, std::string_view Value) const;

  void (*FSetOrd)(TObject&, std::int64_t) = nullptr;
  void (*FSetFloat)(TObject&, double) = nullptr;
  TVariant FDefault;
  bool (*FStored)(const TObject&) = nullptr;
  bool FIsNeverStored = false;
  double FLeast = 0, FMost = 0;  // beyond them a value is refused
  bool FIsLimited = false;
};

namespace detail {

[[noreturn]] void WrongObject(const char* PropName, const TPersistent* Value);

template <class>
struct TGetterOf;
template <class TClass, class TResult>
struct TGetterOf<TResult (TClass::*)() const> {
  using Class = TClass;
  using Result = TResult;
};
template <class TClass, class TResult>
struct TGetterOf<TResult (TClass::*)()> : TGetterOf<TResult (TClass::*)() const> {};

/// Builds the table row of one property. One row type per getter and setter, so that every accessor is a plain
/// function.
template <auto Getter, auto Setter>
struct TPropRow {
  using TGetter = TGetterOf<decltype(Getter)>;
  using TClass = typename TGetter::Class;
  using TResult = typename TGetter::Result;
  using TValue = std::remove_cvref_t<TResult>;
  using TTarget = std::remove_pointer_t<TValue>;
  static constexpr bool HasSetter = !std::is_same_v<decltype(Setter), std::nullptr_t>;
  static constexpr bool IsObject = std::derived_from<TTarget, TPersistent>;
  static constexpr bool IsReal = std::is_floating_point_v<TValue>;
  static constexpr bool IsArrayOrVariant = TIsArray<TValue>::value || std::is_same_v<TValue, TVariant>;
  static constexpr bool IsOrdinal = std::is_integral_v<TValue> || std::is_enum_v<TValue> || TIsSet<TValue>::value;

  inline static const char* PropName = "";

  static const TClass& Const(const TObject& Instance) { return static_cast<const TClass&>(Instance); }
  static TClass& Mutable(TObject& Instance) { return static_cast<TClass&>(Instance); }

  static constexpr TPropKind Kind() {
    if constexpr (std::is_enum_v<TValue> || std::is_same_v<TValue, bool>)
      return TPropKind::Enumeration;
    else if constexpr (TIsSet<TValue>::value)
      return TPropKind::Set;
    else if constexpr (std::is_same_v<TValue, char>)
      return TPropKind::Char;
    else if constexpr (std::is_integral_v<TValue>)
      return sizeof(TValue) > 4 ? TPropKind::Int64 : TPropKind::Integer;
    else if constexpr (IsReal)
      return TPropKind::Float;
    else if constexpr (IsObject)
      return TPropKind::Class;
    else if constexpr (TIsEvent<TValue>::value)
      return TPropKind::Method;
    else if constexpr (TIsArray<TValue>::value)
      return TPropKind::DynArray;
    else if constexpr (std::is_same_v<TValue, TVariant>)
      return TPropKind::Variant;
    else
      return TPropKind::String;
  }

  static TPersistent* GetObject(TObject& Instance) {
    if constexpr (std::is_pointer_v<TValue>)
      return (Mutable(Instance).*Getter)();
    else
      return &(Mutable(Instance).*Getter)();
  }

  static void SetObject(TObject& Instance, TPersistent* Value) {
    if constexpr (!HasSetter) {
      TPersistent* const Own = GetObject(Instance);
      if (Own == nullptr || Value == nullptr) WrongObject(PropName, Value);
      Own->Assign(Value);
    } else {
      auto* const Typed = dynamic_cast<TTarget*>(Value);
      if (Value != nullptr && Typed == nullptr) WrongObject(PropName, Value);
      if constexpr (std::is_pointer_v<TValue>) {
        (Mutable(Instance).*Setter)(Typed);
      } else {
        if (Typed == nullptr) WrongObject(PropName, Value);
        (Mutable(Instance).*Setter)(*Typed);
      }
    }
  }

  [[gnu::cold]] static TPropInfo Make(const char* Name) {
    PropName = Name;
    TPropInfo Info;
    Info.Name = Name;
    Info.Kind = Kind();
    Info.TypeName = &TypeName<TValue>;
    if constexpr (std::is_enum_v<TValue> || std::is_same_v<TValue, bool>) Info.Values = &EnumInfo(TValue{});
    if constexpr (TIsSet<TValue>::value) Info.Values = &EnumInfo(typename TIsSet<TValue>::Element{});
    if constexpr (IsObject) {
      Info.ObjectClass = &TTarget::StaticClassInfo;
      Info.IsOwnedObject = !std::is_pointer_v<TValue> || !std::derived_from<TTarget, TComponent>;
      Info.IsReadOnly = !HasSetter;
      Info.GetObject = &GetObject;
      Info.SetObject = &SetObject;
    } else if constexpr (IsOrdinal) {
      Info.GetOrd = [](const TObject& Instance) { return ToOrdinal<TValue>((Const(Instance).*Getter)()); };
      Info.FSetOrd = [](TObject& Instance, std::int64_t Value) {
        (Mutable(Instance).*Setter)(FromOrdinal<TValue>(Value));
      };
      Info.Lowest = Info.FLeast = LowestOrdinal<TValue>();
      Info.Highest = Info.FMost = HighestOrdinal<TValue>();
    } else if constexpr (IsReal) {
      Info.IsSingle = sizeof(TValue) == 4;
      Info.GetFloat = [](const TObject& Instance) { return static_cast<double>((Const(Instance).*Getter)()); };
      Info.FSetFloat = [](TObject& Instance, double Value) { (Mutable(Instance).*Setter)(static_cast<TValue>(Value)); };
      Info.Lowest = Info.FLeast = static_cast<double>(std::numeric_limits<TValue>::lowest());
      Info.Highest = Info.FMost = static_cast<double>(std::numeric_limits<TValue>::max());
    } else if constexpr (IsArrayOrVariant) {
      Info.GetVariant = [](const TObject& Instance) { return ToVariant<TValue>((Const(Instance).*Getter)()); };
      Info.SetVariant = [](TObject& Instance, const TVariant& Value) {
        (Mutable(Instance).*Setter)(FromVariant<TValue>(Value, PropName));
      };
    } else if constexpr (!TIsEvent<TValue>::value) {
      Info.GetStr = [](const TObject& Instance) { return std::string((Const(Instance).*Getter)()); };
      Info.SetStr = [](TObject& Instance, const std::string& Value) { (Mutable(Instance).*Setter)(Value); };
    }
    return Info;
  }
};

template <class T>
TClassInfo::TFactory FactoryOf() {
  if constexpr (std::is_constructible_v<T, TComponent*> && std::derived_from<T, TComponent>) {
    return [](TComponent* Owner) -> TComponent* { return new T(Owner); };
  } else {
    return nullptr;
  }
}

template <auto Condition>
bool IsTrue(const TObject& Instance) {
  using TClass = typename TGetterOf<decltype(Condition)>::Class;
  return (static_cast<const TClass&>(Instance).*Condition)();
}

}  // namespace detail

template <auto Condition>
TPropInfo TPropInfo::StoredIf() && {
  FStored = &detail::IsTrue<Condition>;
  return std::move(*this);
}

/// Row of a property without a default: it is always streamed. Setter may be left out for an owned object, which is
/// then written by Assign, and for an event.
template <auto Getter, auto Setter = nullptr>
[[gnu::cold]] TPropInfo Published(const char* Name) {
  return detail::TPropRow<Getter, Setter>::Make(Name);
}
/// The same with the label under which a change can be undone.
template <auto Getter, auto Setter>
[[gnu::cold]] TPropInfo Published(const char* Name, TZyText Label) {
  TPropInfo Info = detail::TPropRow<Getter, Setter>::Make(Name);
  Info.Label = Label;
  return Info;
}

/// Row of a property with its default, the value of a new object; equal values are not streamed.
template <auto Getter, auto Setter>
[[gnu::cold]] TPropInfo Published(const char* Name, typename detail::TPropRow<Getter, Setter>::TValue Default) {
  TPropInfo Info = detail::TPropRow<Getter, Setter>::Make(Name);
  using TValue = typename detail::TPropRow<Getter, Setter>::TValue;
  if constexpr (detail::TPropRow<Getter, Setter>::IsOrdinal) {
    Info.SetDefault(static_cast<long long>(detail::ToOrdinal<TValue>(Default)));
  } else {
    Info.SetDefault(detail::ToVariant(Default));
  }
  return Info;
}
template <auto Getter, auto Setter>
[[gnu::cold]] TPropInfo Published(const char* Name, typename detail::TPropRow<Getter, Setter>::TValue Default,
                                  TZyText Label) {
  TPropInfo Info = Published<Getter, Setter>(Name, std::move(Default));
  Info.Label = Label;
  return Info;
}

/// Publishes rows of the base classes, as they are described there, in this class and in this order: their names, with
/// blanks between them.
[[gnu::cold]] inline TPropInfo Republished(const char* Names) {
  TPropInfo Info;
  Info.Name = Names;
  Info.IsRepublished = true;
  return Info;
}

/// Defines the run-time description of a class with its published properties, and registers the class by its name.
/// Stands once, in the source file of the class, behind ZY_CLASS in the class body.
///
/// The variable has a name that the build finds and hands to the linker, so that every program with the library has all
/// of its classes, those included that it never names.
#define ZY_PUBLISHED(Class, Base, ...)                                                                            \
  const ::zy::TClassInfo& Class::StaticClassInfo() {                                                              \
    static const ::zy::TClassInfo Description(#Class, &Base::StaticClassInfo(), ::zy::detail::FactoryOf<Class>(), \
                                              {__VA_ARGS__});                                                     \
    return Description;                                                                                           \
  }                                                                                                               \
  extern "C" {                                                                                                    \
  [[maybe_unused]] bool zy_class_##Class = ::zy::RegisterClass(Class::StaticClassInfo());                         \
  }

}  // namespace zy
