#include "platform/framework/TComponent.h"

#include <algorithm>

#include "platform/framework/TPropInfo.h"
#include "platform/framework/TRef.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

bool IsIdentifier(std::string_view Text) {
  const auto IsLetter = [](char C) { return (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z') || C == '_'; };
  const auto IsDigit = [](char C) { return C >= '0' && C <= '9'; };
  return !Text.empty() && IsLetter(Text.front()) &&
         std::all_of(Text.begin(), Text.end(), [&](char C) { return IsLetter(C) || IsDigit(C); });
}

}  // namespace

ZY_PUBLISHED(TComponent, TPersistent, Published<&TComponent::Name, &TComponent::SetName>("Name").NotStored())

TComponent::TComponent(TComponent* Owner) {
  if (Owner != nullptr) Owner->InsertComponent(this);
}

TComponent::~TComponent() {
  Destroying();
  DestroyComponents();
  // References and notices that were set up after the announcement.
  while (FRefs != nullptr) FRefs->Drop();
  for (const TNotice& Notice : FNotices) Notice.Component->ReleaseNotice(this, true);
  if (FOwner != nullptr) FOwner->RemoveComponent(this);
}

TComponent* TComponent::FindComponent(std::string_view ComponentName) const {
  const auto Found = FNames.find(ComponentName);
  return Found == FNames.end() ? nullptr : Found->second;
}

std::string TComponent::FirstFreeName(std::string_view Base) const {
  if (FTakenBelow == nullptr) FTakenBelow = std::make_unique<std::unordered_map<std::string, std::int64_t>>();
  std::int64_t& Number = FTakenBelow->try_emplace(std::string(Base), 1).first->second;
  for (;; ++Number) {
    std::string Name = std::string(Base) + IntToStr(Number);
    if (FindComponent(Name) == nullptr) return Name;
  }
}

void TComponent::ForgetName(const std::string& Gone) {
  if (FNames.erase(Gone) > 0) FTakenBelow.reset();
}

void TComponent::InsertComponent(TComponent* Component) {
  if (Component->FOwner == this) return;
  TestName(Component, Component->FName);
  if (Component->FOwner != nullptr) Component->FOwner->RemoveComponent(Component);
  if (FGaps > FComponents.size() / 2) CloseGaps();
  Component->FPlace = FComponents.size();
  FComponents.push_back(Component);
  if (!Component->FName.empty()) FNames.emplace(Component->FName, Component);
  Component->FOwner = this;
  if (FDesigning) Component->SetDesigning(true);
  Notification(Component, TOperation::Insert);
}

void TComponent::RemoveComponent(TComponent* Component) {
  if (Component->FOwner != this) return;
  if (!FDestroying) Notification(Component, TOperation::Remove);
  ForgetName(Component->FName);
  FComponents[Component->FPlace] = nullptr;
  ++FGaps;
  for (; !FComponents.empty() && FComponents.back() == nullptr; --FGaps) FComponents.pop_back();
  Component->FOwner = nullptr;
}

void TComponent::CloseGaps() const {
  std::erase(FComponents, nullptr);
  for (std::size_t Place = 0; Place < FComponents.size(); ++Place) FComponents[Place]->FPlace = Place;
  FGaps = 0;
}

void TComponent::DestroyComponents() {
  while (!FComponents.empty()) delete FComponents.back();
}

void TComponent::TestName(TComponent* Component, const std::string& NewName) const {
  const TComponent* const Holder = FindComponent(NewName);
  if (!NewName.empty() && Holder != nullptr && Holder != Component)
    throw EComponentError(Format(LoadResString(_sDuplicateName), {NewName}));
}

void TComponent::SetName(const std::string& Value) { ChangeName(Value); }

void TComponent::ChangeName(const std::string& Value) {
  if (Value == FName) return;
  if (!Value.empty() && !IsIdentifier(Value)) throw EComponentError(Format(LoadResString(_sInvalidName), {Value}));
  if (FOwner != nullptr) {
    FOwner->TestName(this, Value);
    FOwner->ForgetName(FName);
  }
  FName = Value;
  if (FOwner != nullptr && !FName.empty()) FOwner->FNames.emplace(FName, this);
}

void TComponent::SetDesigning(bool Value) {
  FDesigning = Value;
  for (TComponent* Component : Components()) Component->SetDesigning(Value);
}

void TComponent::FreeNotification(TComponent* AComponent) {
  if (AComponent == nullptr || AComponent == this) return;
  const auto Enter = [](TComponent* Who, TComponent* Other) {
    const auto Same = [Other](const TNotice& Notice) { return Notice.Component == Other; };
    const auto Known = std::find_if(Who->FNotices.begin(), Who->FNotices.end(), Same);
    if (Known == Who->FNotices.end()) {
      Who->FNotices.push_back({Other, 1});
    } else {
      ++Known->Count;
    }
  };
  Enter(this, AComponent);
  Enter(AComponent, this);
}

void TComponent::RemoveFreeNotification(TComponent* AComponent) {
  if (AComponent == nullptr || AComponent == this) return;
  ReleaseNotice(AComponent, false);
  AComponent->ReleaseNotice(this, false);
}

void TComponent::ReleaseNotice(TComponent* AComponent, bool Entirely) {
  const auto Same = [AComponent](const TNotice& Notice) { return Notice.Component == AComponent; };
  const auto Known = std::find_if(FNotices.begin(), FNotices.end(), Same);
  if (Known == FNotices.end()) return;
  if (Entirely || --Known->Count == 0) FNotices.erase(Known);
}

void TComponent::Loaded() { FLoading = false; }

void TComponent::MarkDestroying() {
  FDestroying = true;
  for (TComponent* Component : Components()) Component->MarkDestroying();
}

void TComponent::Destroying() {
  if (!FDestroying) MarkDestroying();
  if (!FRemovalAnnounced) AnnounceRemoval();
}

void TComponent::AnnounceRemoval() {
  FRemovalAnnounced = true;
  while (FRefs != nullptr) {
    TRefBase* const Ref = FRefs;  // each step may clear it, or end its holder
    Ref->FHolder.Notification(this, TOperation::Remove);
    if (FRefs == Ref && !Ref->FHolder.IsDestroying()) Ref->ClearBySetter();
    if (FRefs == Ref) Ref->Drop();
  }
  while (!FNotices.empty()) {
    TComponent* const Partner = FNotices.back().Component;
    FNotices.pop_back();
    Partner->ReleaseNotice(this, true);
    Partner->Notification(this, TOperation::Remove);
  }
}

void TComponent::GetChildren(const std::function<void(TComponent*)>& Proc, TComponent* Root) {
  if (Root != this) return;
  for (TComponent* Component : Components())
    if (!Component->HasParent() && !Component->IsSubComponent()) Proc(Component);
}

void TComponent::SetParentComponent(TComponent*) {}

int TComponent::ChildIndex(const TComponent& Child) const { return IndexIn(Components(), Child); }

void TComponent::SetChildIndex(TComponent& Child, int Index) {
  CloseGaps();
  MoveIn(FComponents, Child, Index);
  CloseGaps();
}

void TComponent::Notification(TComponent*, TOperation) {}

void TRefBase::Point(TComponent* Target) {
  if (Target == FTarget) return;
  if (FTarget != nullptr) {
    (FPrevious != nullptr ? FPrevious->FNext : FTarget->FRefs) = FNext;
    if (FNext != nullptr) FNext->FPrevious = FPrevious;
  }
  FTarget = Target;
  FPrevious = FNext = nullptr;
  if (FTarget != nullptr) {
    FNext = FTarget->FRefs;
    if (FNext != nullptr) FNext->FPrevious = this;
    FTarget->FRefs = this;
  }
}

}  // namespace zy
