#include "platform/framework/ClassRegistry.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "platform/framework/TObject.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

std::unordered_map<std::string_view, const TClassInfo*>& Registry() {
  static std::unordered_map<std::string_view, const TClassInfo*> Classes;
  return Classes;
}

}  // namespace

bool RegisterClass(const TClassInfo& Info) {
  Registry()[Info.Name()] = &Info;
  return true;
}

const TClassInfo* GetClass(std::string_view ClassName) {
  const auto Found = Registry().find(ClassName);
  return Found == Registry().end() ? nullptr : Found->second;
}

const TClassInfo& FindClass(std::string_view ClassName) {
  if (const TClassInfo* Info = GetClass(ClassName)) return *Info;
  throw EClassNotFound(Format(LoadResString(_sClassNotFound), {ClassName}));
}

std::vector<const TClassInfo*> RegisteredClasses() {
  std::vector<const TClassInfo*> Result;
  for (const auto& [Name, Info] : Registry()) Result.push_back(Info);
  std::ranges::sort(Result, {}, [](const TClassInfo* Info) { return std::string_view(Info->Name()); });
  return Result;
}

}  // namespace zy
