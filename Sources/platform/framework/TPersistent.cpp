#include "platform/framework/TPersistent.h"

#include <unordered_map>

#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

struct TLiveObjects {
  std::uint64_t LastHandle = 0;
  std::unordered_map<std::uint64_t, TPersistent*> ByHandle;
};

// Never destroyed, since objects of static lifetime may still leave it at the end of the process.
TLiveObjects& LiveObjects() {
  static auto* const Objects = new TLiveObjects;
  return *Objects;
}

}  // namespace

ZY_PUBLISHED(TPersistent, TObject)

TPersistent::~TPersistent() {
  if (FLiveHandle != 0) LiveObjects().ByHandle.erase(FLiveHandle);
}

void TPersistent::Assign(const TPersistent* Source) {
  if (Source == nullptr) throw EConvertError(Format(LoadResString(_sCannotAssign), {"nil", ClassName()}));
  Source->AssignTo(this);
}

void TPersistent::AssignTo(TPersistent* Dest) const {
  throw EConvertError(Format(LoadResString(_sCannotAssign), {ClassName(), Dest->ClassName()}));
}

void TPersistent::DefineProperties(TFiler&) {}

std::uint64_t TPersistent::LiveHandle() const {
  if (FLiveHandle == 0) {
    TLiveObjects& Objects = LiveObjects();
    FLiveHandle = ++Objects.LastHandle;
    Objects.ByHandle.emplace(FLiveHandle, const_cast<TPersistent*>(this));
  }
  return FLiveHandle;
}

TPersistent* TPersistent::FromLiveHandle(std::uint64_t Handle) {
  const auto& Objects = LiveObjects().ByHandle;
  const auto Found = Objects.find(Handle);
  return Found == Objects.end() ? nullptr : Found->second;
}

void TPersistent::TakeLiveHandle(std::uint64_t Handle) {
  auto& Objects = LiveObjects().ByHandle;
  if (Handle == 0 || !Objects.emplace(Handle, this).second) return;
  Objects.erase(FLiveHandle);
  FLiveHandle = Handle;
}

}  // namespace zy
