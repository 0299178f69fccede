#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/framework/EnumInfo.h"
#include "platform/framework/TPersistent.h"

namespace zy {

class TVariant;

namespace detail {

template <class T>
struct TIsSet : std::false_type {};
template <class T>
struct TIsSet<TSet<T>> : std::true_type {
  using Element = T;
};
template <class T>
struct TIsArray : std::false_type {};
template <class T>
struct TIsArray<std::vector<T>> : std::true_type {};
template <class T>
struct TIsEvent : std::false_type {};
template <class T>
struct TIsEvent<std::function<T>> : std::true_type {};

}  // namespace detail

/// The name of a property's type, by which an editor recognises what it can edit. Every 32-bit number without a sign is
/// a colour. A type that wants a name of its own (a handler, a set whose name is no plural, a text with a meaning)
/// specialises this behind its declaration:
/// `template <> inline std::string_view TypeName<TZyRichCaption>() { return "TZyRichCaption"; }`.
template <class T>
std::string_view TypeName() {
  using TTarget = std::remove_pointer_t<T>;
  if constexpr (std::is_enum_v<T> || std::is_same_v<T, bool>) {
    return EnumInfo(T{}).Name;
  } else if constexpr (detail::TIsSet<T>::value) {
    static const std::string Name = std::string(EnumInfo(typename detail::TIsSet<T>::Element{}).Name) + 's';
    return Name;
  } else if constexpr (std::is_same_v<T, std::uint32_t>) {
    return "TZyColor";
  } else if constexpr (std::is_same_v<T, char>) {
    return "Char";
  } else if constexpr (std::is_integral_v<T>) {
    return sizeof(T) > 4 ? "Int64" : "Integer";
  } else if constexpr (std::is_floating_point_v<T>) {
    return sizeof(T) > 4 ? "Double" : "Single";
  } else if constexpr (std::derived_from<TTarget, TPersistent>) {
    return TTarget::StaticClassInfo().Name();
  } else if constexpr (detail::TIsEvent<T>::value) {
    return "Event";
  } else if constexpr (detail::TIsArray<T>::value) {
    return "Array";
  } else if constexpr (std::is_same_v<T, TVariant>) {
    return "Variant";
  } else {
    return "String";
  }
}

template <>
inline std::string_view TypeName<std::function<void(TObject*)>>() {
  return "TNotifyEvent";
}

}  // namespace zy
