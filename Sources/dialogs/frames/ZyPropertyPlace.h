#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "platform/framework/TPropInfo.h"

namespace zy {

/// What most properties are to a control: a whole number (enumerations, colours and booleans too), a real or a text.
using TZySettingValue = std::variant<std::int64_t, double, std::string>;

/// One property of one object.
struct TZyPropertyPlace {
  TPersistent* Object = nullptr;
  const TPropInfo* Info = nullptr;

  explicit operator bool() const { return Info != nullptr; }
  TZySettingValue Get() const;
  void Set(const TZySettingValue& Value) const;
  /// Whether the property has this value already. A single has the value that it would be set to.
  bool Is(const TZySettingValue& Value) const;
  /// The object that a Class property refers to or holds.
  TPersistent* GetObject() const { return Info->GetObject(*Object); }
};

/// The property at a path from an object: names with points in between, all but the last those of settings objects or
/// references ("Frame.Width"). Nothing where the path ends early, as with a reference that is null or a class that has
/// no such property.
TZyPropertyPlace FindPlace(TPersistent& Object, std::string_view Path);

/// The row at a path from a class, by the declared classes of the properties on the way; null when there is none.
const TPropInfo* FindRowOf(const TClassInfo& Class, std::string_view Path);

}  // namespace zy
