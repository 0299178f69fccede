#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

namespace zy {

/// Value names of an enumeration in ordinal order, starting with ordinal 0.
struct TEnumInfo {
  std::string_view Name;
  std::span<const std::string_view> Values;
};

/// Gives an enumeration its value names; stands in the enumeration's own namespace, once, behind its declaration.
#define ZY_ENUM(Type, ...)                                     \
  inline const ::zy::TEnumInfo& EnumInfo(Type) {               \
    static constexpr std::string_view Names[] = {__VA_ARGS__}; \
    static constexpr ::zy::TEnumInfo Info{#Type, Names};       \
    return Info;                                               \
  }

/// Value names of a boolean, "False" and "True".
inline const TEnumInfo& EnumInfo(bool) {
  static constexpr std::string_view Names[] = {"False", "True"};
  static constexpr TEnumInfo Info{"Boolean", Names};
  return Info;
}

/// A set of values of a small enumeration (up to 32 values), one bit for each ordinal.
template <class TEnum>
class TSet {
 public:
  constexpr TSet() = default;
  constexpr TSet(std::initializer_list<TEnum> Values) {
    for (TEnum Value : Values) FBits |= Bit(Value);
  }
  static constexpr TSet FromBits(std::uint32_t Bits) {
    TSet Result;
    Result.FBits = Bits;
    return Result;
  }

  constexpr std::uint32_t Bits() const { return FBits; }
  constexpr bool Contains(TEnum Value) const { return (FBits & Bit(Value)) != 0; }
  constexpr void Include(TEnum Value) { FBits |= Bit(Value); }
  constexpr void Exclude(TEnum Value) { FBits &= ~Bit(Value); }
  constexpr bool Empty() const { return FBits == 0; }
  constexpr bool operator==(const TSet&) const = default;

 private:
  static constexpr std::uint32_t Bit(TEnum Value) { return std::uint32_t{1} << static_cast<unsigned>(Value); }
  std::uint32_t FBits = 0;
};

}  // namespace zy
