#pragma once

#include <cmath>
#include <concepts>
#include <string_view>
#include <type_traits>
#include <utility>

#include "undo/ZyUndoStack.h"

namespace zy {

namespace detail {

/// What is no number, and infinities, mean nothing to a published property: no place, width or limit is one.
template <class T>
bool IsSettable(const T& Value) {
  if constexpr (std::is_floating_point_v<T>) return std::isfinite(Value);
  return true;
}

}  // namespace detail

/// The protocol of every published setter, in one place: nothing on an equal value, or on a real that is not finite;
/// else the old value goes to the object's undo stack under the label of the property's row, the new one is stored, and
/// After runs.
///
/// TOwner has `TZyUndoStack* UndoStack() const`. Returns whether the value changed. A setter that must do more spells
/// its steps out.
template <class TOwner, class TField, class TValue, class TAfterClass>
bool Change(TOwner* Owner, TField& Field, TValue&& Value, std::string_view PropName, void (TAfterClass::*After)()) {
  if (Field == Value || !detail::IsSettable(Value)) return false;
  if (TZyUndoStack* const Stack = Owner->UndoStack()) Stack->PushProperty(Owner, PropName);
  Field = std::forward<TValue>(Value);
  (Owner->*After)();
  return true;
}

/// The same for what is no plain field: Present is the value of before, and Store takes the new one and does what
/// follows from it.
template <class TOwner, class TPresent, class TValue, std::invocable<TValue> TStore>
bool ChangeBy(TOwner* Owner, const TPresent& Present, TValue&& Value, std::string_view PropName, const TStore& Store) {
  if (Present == Value || !detail::IsSettable(Value)) return false;
  if (TZyUndoStack* const Stack = Owner->UndoStack()) Stack->PushProperty(Owner, PropName);
  Store(std::forward<TValue>(Value));
  return true;
}

}  // namespace zy
