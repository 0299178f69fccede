#include "platform/framework/TObject.h"

#include <algorithm>
#include <cstdlib>

#include "platform/framework/TPropInfo.h"

namespace zy {

const TClassInfo& TObject::StaticClassInfo() {
  static const TClassInfo Description("TObject", nullptr, nullptr, {});
  return Description;
}

const char* TObject::ClassName() const { return ClassInfo().Name(); }

TClassInfo::TClassInfo(const char* ClassName, const TClassInfo* Base, TFactory Maker, std::vector<TPropInfo> Own)
    : FName(ClassName), FParent(Base), FFactory(Maker) {
  if (FParent != nullptr) {
    FRows = FParent->FRows;
    FAll = FParent->FAll;
    FByName = FParent->FByName;
  }
  for (TPropInfo& Row : Own) {
    if (Row.IsRepublished) {
      Republish(Row.Name);
    } else {
      Publish(FOwn.emplace_back(std::move(Row)));
    }
  }
}

void TClassInfo::Publish(const TPropInfo& Row) {
  FByName[Row.Name] = &Row;
  Enter(Row, FRows);
  if (Row.IsPublished) Enter(Row, FAll);
}

void TClassInfo::Enter(const TPropInfo& Row, std::vector<const TPropInfo*>& List) {
  const auto Same = [&Row](const TPropInfo* Known) { return std::string_view(Known->Name) == Row.Name; };
  const auto Place = std::find_if(List.begin(), List.end(), Same);
  if (Place == List.end()) {
    List.push_back(&Row);
  } else {
    *Place = &Row;
  }
}

void TClassInfo::Republish(std::string_view Names) {
  while (!Names.empty()) {
    const std::size_t Length = std::min(Names.find(' '), Names.size());
    const TPropInfo* const Row = FindRow(Names.substr(0, Length));
    Names.remove_prefix(std::min(Length + 1, Names.size()));
    if (Row == nullptr) std::abort();  // a table names what no base class has: no program may start with it
    TPropInfo& Copy = FOwn.emplace_back(*Row);
    Copy.IsPublished = true;
    Publish(Copy);
  }
}

TClassInfo::~TClassInfo() = default;

bool TClassInfo::InheritsFrom(const TClassInfo& Base) const {
  for (const TClassInfo* Info = this; Info != nullptr; Info = Info->FParent)
    if (Info == &Base) return true;
  return false;
}

const TPropInfo* TClassInfo::FindProperty(std::string_view PropName) const {
  const auto Found = FByName.find(PropName);
  return Found == FByName.end() || !Found->second->IsPublished ? nullptr : Found->second;
}

const TPropInfo* TClassInfo::FindRow(std::string_view PropName) const {
  const auto Found = FByName.find(PropName);
  return Found == FByName.end() ? nullptr : Found->second;
}

}  // namespace zy
