#include "platform/framework/TRefList.h"

#include <algorithm>

namespace zy {

struct TRefListBase::TEntry final : TRefBase {
  TEntry(TRefListBase& AList, void* AnObject, TComponent* Component, std::size_t APlace)
      : TRefBase(AList.FHolder), List(AList), Object(AnObject), Place(APlace) {
    Point(Component);
  }
  void ClearBySetter() override { List.LeaveBySetter(Object); }
  void Drop() override { List.Leave(Object); }

  TRefListBase& List;
  void* Object;
  std::size_t Place;
};

TRefListBase::TRefListBase(TComponent& Holder) : FHolder(Holder) {}

TRefListBase::~TRefListBase() = default;

bool TRefListBase::Enter(void* Object, TComponent* Component) {
  if (Has(Object)) return false;
  if (FLocks == 0 && FPlaces.size() > 2 * size() + 16) CloseGaps();
  FPlaces.push_back(nullptr);
  auto Entry = std::make_unique<TEntry>(*this, Object, Component, FPlaces.size() - 1);
  FPlaces.back() = FByObject.emplace(Object, std::move(Entry)).first->second.get();
  return true;
}

bool TRefListBase::Leave(void* Object) {
  const auto Found = FByObject.find(Object);
  if (Found == FByObject.end()) return false;
  FPlaces[Found->second->Place] = nullptr;
  FByObject.erase(Found);
  while (FFirst < FPlaces.size() && FPlaces[FFirst] == nullptr) ++FFirst;
  while (FLocks == 0 && FPlaces.size() > FFirst && FPlaces.back() == nullptr) FPlaces.pop_back();
  return true;
}

void TRefListBase::Clear() {
  std::fill(FPlaces.begin(), FPlaces.end(), nullptr);
  FFirst = FPlaces.size();
  FByObject.clear();
  if (FLocks == 0) CloseGaps();
}

void TRefListBase::Swap(std::size_t Left, std::size_t Right) {
  if (HasGaps() || FFirst > 0) CloseGaps();
  std::swap(FPlaces[Left], FPlaces[Right]);
  std::swap(FPlaces[Left]->Place, FPlaces[Right]->Place);
}

void* TRefListBase::At(std::size_t Index) const {
  if (HasGaps() && FLocks == 0) CloseGaps();
  std::size_t Place = FFirst + Index;
  if (HasGaps())
    for (Place = FFirst; FPlaces[Place] == nullptr || Index-- > 0;) ++Place;
  return AtPlace(Place);
}

void* TRefListBase::AtPlace(std::size_t Place) const {
  return FPlaces[Place] == nullptr ? nullptr : FPlaces[Place]->Object;
}

void TRefListBase::CloseGaps() const {
  std::erase(FPlaces, nullptr);
  FFirst = 0;
  for (std::size_t Place = 0; Place < FPlaces.size(); ++Place) FPlaces[Place]->Place = Place;
}

}  // namespace zy
