#pragma once

#include <string_view>

#include "persistence/ZyArchive.h"
#include "platform/framework/ClassRegistry.h"
#include "platform/framework/TComponent.h"

namespace zy {

// How the reader of a chart finds or makes the objects that its record names.

/// Whether a component has a reference, by which it is stored and found again.
inline bool IsStored(const TComponent& Component) { return !GetComponentRef(&Component).empty(); }

[[noreturn]] void OfOtherClass(const TZyIdentity& Who, const TComponent& Found, std::string_view Wanted);

/// The object that is there, null for none. Throws EReadError when it is of another kind.
template <class T>
T* Existing(const TZyIdentity& Who, std::string_view Wanted) {
  TComponent* const Found = GetComponentFromRef(Who.Reference);
  auto* const Result = dynamic_cast<T*>(Found);
  if (Found != nullptr && Result == nullptr) OfOtherClass(Who, *Found, Wanted);
  return Result;
}

/// The same by the name of the class, for classes that stand above.
TComponent* ExistingOf(const TZyIdentity& Who, const TClassInfo& Wanted);

/// Makes an object of a class under its name. Throws EReadError when it has none, or its owner cannot be found: nothing
/// would find it again, and nobody free it.
TComponent& MakeStored(const TZyIdentity& Who, const TClassInfo& Class);

}  // namespace zy
