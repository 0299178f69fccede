#include "platform/framework/TObject.h"

#include <algorithm>

#include "platform/framework/TPropInfo.h"

namespace zy {

const TClassInfo& TObject::StaticClassInfo() {
  static const TClassInfo Description("TObject", nullptr, nullptr, {});
  return Description;
}

const char* TObject::ClassName() const { return ClassInfo().Name(); }

TClassInfo::TClassInfo(const char* ClassName, const TClassInfo* Base, TFactory Maker, std::vector<TPropInfo> Own)
    : FName(ClassName), FParent(Base), FFactory(Maker), FOwn(std::move(Own)) {
  if (FParent != nullptr) FAll = FParent->FAll;
  for (const TPropInfo& Row : FOwn) {
    const auto Same = [&Row](const TPropInfo* Known) { return std::string_view(Known->Name) == Row.Name; };
    const auto Place = std::find_if(FAll.begin(), FAll.end(), Same);
    if (Place == FAll.end()) {
      FAll.push_back(&Row);
    } else {
      *Place = &Row;
    }
  }
  for (const TPropInfo* Property : FAll) FByName.emplace(Property->Name, Property);
}

TClassInfo::~TClassInfo() = default;

bool TClassInfo::InheritsFrom(const TClassInfo& Base) const {
  for (const TClassInfo* Info = this; Info != nullptr; Info = Info->FParent)
    if (Info == &Base) return true;
  return false;
}

const TPropInfo* TClassInfo::FindProperty(std::string_view PropName) const {
  const auto Found = FByName.find(PropName);
  return Found == FByName.end() ? nullptr : Found->second;
}

}  // namespace zy
