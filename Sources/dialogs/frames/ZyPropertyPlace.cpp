#include "dialogs/frames/ZyPropertyPlace.h"

#include "platform/framework/TPersistent.h"

namespace zy {
namespace {

/// Cuts the first name off a path.
std::string_view NextName(std::string_view& Path) {
  const std::size_t Point = Path.find('.');
  const std::string_view Result = Path.substr(0, Point);
  Path = Point == std::string_view::npos ? std::string_view() : Path.substr(Point + 1);
  return Result;
}

}  // namespace

TZySettingValue TZyPropertyPlace::Get() const {
  if (Info->Kind == TPropKind::Float) return Info->GetFloat(*Object);
  if (Info->Kind == TPropKind::String) return Info->GetStr(*Object);
  return Info->GetOrd(*Object);
}

void TZyPropertyPlace::Set(const TZySettingValue& Value) const {
  if (Info->Kind == TPropKind::Float) return Info->SetFloat(*Object, std::get<double>(Value));
  if (Info->Kind == TPropKind::String) return Info->SetStr(*Object, std::get<std::string>(Value));
  Info->SetOrd(*Object, std::get<std::int64_t>(Value));
}

bool TZyPropertyPlace::Is(const TZySettingValue& Value) const {
  const TZySettingValue Present = Get();
  if (!Info->IsSingle) return Present == Value;
  return static_cast<float>(std::get<double>(Present)) == static_cast<float>(std::get<double>(Value));
}

TZyPropertyPlace FindPlace(TPersistent& Object, std::string_view Path) {
  TPersistent* Present = &Object;
  while (true) {
    const TPropInfo* const Info = Present->ClassInfo().FindRow(NextName(Path));
    if (Info == nullptr || Path.empty()) return {Present, Info};
    if (Info->Kind != TPropKind::Class || (Present = Info->GetObject(*Present)) == nullptr) return {};
  }
}

const TPropInfo* FindRowOf(const TClassInfo& Class, std::string_view Path) {
  const TClassInfo* Present = &Class;
  while (true) {
    const TPropInfo* const Info = Present->FindRow(NextName(Path));
    if (Info == nullptr || Path.empty()) return Info;
    if (Info->ObjectClass == nullptr) return nullptr;
    Present = &Info->ObjectClass();
  }
}

}  // namespace zy
