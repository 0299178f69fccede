#include "platform/framework/TRefList.h"

#include <algorithm>
#include <bit>

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
  auto Entry = std::make_unique<TEntry>(*this, Object, Component, FPlaces.size());
  TEntry& Entered = *FByObject.emplace(Object, std::move(Entry)).first->second;
  AppendPlace(&Entered);
  return true;
}

bool TRefListBase::Leave(void* Object) {
  const auto Found = FByObject.find(Object);
  if (Found == FByObject.end()) return false;
  const std::size_t Place = Found->second->Place;
  FPlaces[Place] = nullptr;
  for (std::size_t Sum = Place + 1; Sum <= FTaken.size(); Sum += Sum & -Sum) --FTaken[Sum - 1];
  FByObject.erase(Found);
  if (FLocks == 0 && FPlaces.size() > 2 * size() + 16) CloseGaps();
  return true;
}

bool TRefListBase::Has(void* Object) const { return FByObject.contains(Object); }

void TRefListBase::Clear() {
  std::fill(FPlaces.begin(), FPlaces.end(), nullptr);
  std::fill(FTaken.begin(), FTaken.end(), 0);
  FByObject.clear();
  if (FLocks == 0) CloseGaps();
}

void TRefListBase::Swap(std::size_t Left, std::size_t Right) {
  TEntry*& LeftEntry = FPlaces[PlaceOf(Left)];
  TEntry*& RightEntry = FPlaces[PlaceOf(Right)];
  std::swap(LeftEntry->Place, RightEntry->Place);
  std::swap(LeftEntry, RightEntry);
}

void* TRefListBase::At(std::size_t Index) const { return AtPlace(PlaceOf(Index)); }

void* TRefListBase::AtPlace(std::size_t Place) const {
  return FPlaces[Place] == nullptr ? nullptr : FPlaces[Place]->Object;
}

/// Descends the tree: skips as many places as hold no more objects than come before the index.
std::size_t TRefListBase::PlaceOf(std::size_t Index) const {
  if (FPlaces.size() == size()) return Index;
  std::size_t Place = 0;
  for (std::size_t Step = std::bit_floor(FTaken.size()); Step > 0; Step /= 2) {
    if (Place + Step > FTaken.size() || FTaken[Place + Step - 1] > Index) continue;
    Place += Step;
    Index -= FTaken[Place - 1];
  }
  return Place;
}

void TRefListBase::AppendPlace(TEntry* Entry) {
  FPlaces.push_back(Entry);
  const std::size_t Sum = FPlaces.size();
  std::size_t Taken = 1;
  for (std::size_t Step = 1; Step < (Sum & -Sum); Step *= 2) Taken += FTaken[Sum - Step - 1];
  FTaken.push_back(Taken);
}

void TRefListBase::CloseGaps() {
  std::vector<TEntry*> Entries;
  Entries.swap(FPlaces);
  FTaken.clear();
  for (TEntry* Entry : Entries) {
    if (Entry == nullptr) continue;
    Entry->Place = FPlaces.size();
    AppendPlace(Entry);
  }
}

}  // namespace zy
