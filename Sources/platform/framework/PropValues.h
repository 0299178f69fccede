#pragma once

#include <cstdint>
#include <limits>
#include <type_traits>
#include <utility>

#include "platform/framework/EnumInfo.h"
#include "platform/framework/TVariant.h"
#include "platform/framework/TypeName.h"

// How values of the types of properties become ordinals and variants, and back; for TPropInfo alone.

namespace zy::detail {

[[noreturn]] void ElementOutOfRange(const char* PropName, std::int64_t Value, std::int64_t Low, std::int64_t High);

template <class T>
TVariant ToVariant(const T& Value) {
  if constexpr (TIsArray<T>::value) {
    TVariant::TArray Elements;
    Elements.reserve(Value.size());
    for (const auto& Element : Value) Elements.push_back(ToVariant(Element));
    return Elements;
  } else if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
    return static_cast<long long>(Value);
  } else if constexpr (std::is_floating_point_v<T>) {
    return static_cast<double>(Value);
  } else {
    return Value;
  }
}

template <class T>
T FromVariant(const TVariant& Value, const char* PropName) {
  if constexpr (TIsArray<T>::value) {
    T Result;
    const TVariant::TArray& Elements = Value.AsArray();
    Result.reserve(Elements.size());
    for (const TVariant& Element : Elements) Result.push_back(FromVariant<typename T::value_type>(Element, PropName));
    return Result;
  } else if constexpr (std::is_same_v<T, TVariant>) {
    return Value;
  } else if constexpr (std::is_same_v<T, bool>) {
    return Value.AsBoolean();
  } else if constexpr (std::is_integral_v<T>) {
    const std::int64_t Whole = Value.AsInteger();
    using TLimits = std::numeric_limits<T>;
    if (!std::in_range<T>(Whole)) ElementOutOfRange(PropName, Whole, TLimits::min(), TLimits::max());
    return static_cast<T>(Whole);
  } else if constexpr (std::is_floating_point_v<T>) {
    return static_cast<T>(Value.AsReal());
  } else {
    return Value.AsText();
  }
}

template <class T>
std::int64_t ToOrdinal(const T& Value) {
  if constexpr (TIsSet<T>::value) {
    return Value.Bits();
  } else if constexpr (std::is_same_v<T, char>) {
    return static_cast<unsigned char>(Value);  // whether char is signed is no matter of ours
  } else {
    return static_cast<std::int64_t>(Value);
  }
}

/// Of an ordinal between LowestOrdinal and HighestOrdinal.
template <class T>
T FromOrdinal(std::int64_t Ordinal) {
  if constexpr (TIsSet<T>::value) {
    return T::FromBits(static_cast<std::uint32_t>(Ordinal));
  } else if constexpr (std::is_same_v<T, char>) {
    return static_cast<char>(static_cast<unsigned char>(Ordinal));
  } else {
    return static_cast<T>(Ordinal);
  }
}

template <class T>
double LowestOrdinal() {
  if constexpr (std::is_integral_v<T> && !std::is_same_v<T, char>)
    return static_cast<double>(std::numeric_limits<T>::min());
  return 0;
}

template <class T>
double HighestOrdinal() {
  if constexpr (TIsSet<T>::value) {
    return static_cast<double>((std::int64_t{1} << EnumInfo(typename TIsSet<T>::Element{}).Values.size()) - 1);
  } else if constexpr (std::is_enum_v<T> || std::is_same_v<T, bool>) {
    return static_cast<double>(EnumInfo(T{}).Values.size()) - 1;
  } else if constexpr (std::is_same_v<T, char>) {
    return 255;
  } else {
    return static_cast<double>(std::numeric_limits<T>::max());
  }
}

}  // namespace zy::detail
