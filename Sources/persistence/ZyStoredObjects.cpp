#include "persistence/ZyStoredObjects.h"

#include <memory>
#include <string>

#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

void OfOtherClass(const TZyIdentity& Who, const TComponent& Found, std::string_view Wanted) {
  throw EReadError(Format(LoadResString(_sRefOfOtherClass), {Who.Reference, Found.ClassName(), Wanted}));
}

TComponent* ExistingOf(const TZyIdentity& Who, const TClassInfo& Wanted) {
  TComponent* const Found = GetComponentFromRef(Who.Reference);
  if (Found != nullptr && !Found->ClassInfo().InheritsFrom(Wanted)) OfOtherClass(Who, *Found, Wanted.Name());
  return Found;
}

TComponent& MakeStored(const TZyIdentity& Who, const TClassInfo& Class) {
  if (ComponentName(Who.Reference).empty()) throw EReadError(LoadResString(_sComponentNotNamed));
  TComponent* const Owner = RefOwner(Who.Reference);
  if (Owner == nullptr) throw EReadError(Format(LoadResString(_sRefWithoutOwner), {Who.Reference}));
  std::unique_ptr<TComponent> Made(Class.Factory()(Owner));
  Made->SetName(std::string(ComponentName(Who.Reference)));
  return *Made.release();
}

}  // namespace zy
