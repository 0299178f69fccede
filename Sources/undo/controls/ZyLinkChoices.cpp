#include "undo/controls/ZyLinkChoices.h"

#include "persistence/ZyIO.h"
#include "platform/framework/TComponent.h"
#include "platform/framework/TFiler.h"
#include "undo/controls/ZyPropertyLinks.h"

namespace zy {
namespace {

bool IsChoice(const TZyPropertyLinks& Links, const TPropInfo& Info) {
  if (Info.Kind != Links.TypeKind()) return false;
  return Info.Kind == TPropKind::Float || Info.TypeName() == Links.TypeFilter();
}

/// The properties of an object and of the settings in it. A component that is part of another has a path of its own.
void AddProperties(const TZyPropertyLinks& Links, TPersistent& Object, const std::string& Path,
                   std::vector<std::string>& Choices) {
  for (const TPropInfo* Info : Object.ClassInfo().Properties()) {
    if (IsChoice(Links, *Info)) Choices.push_back(Path + Info->Name);
    TPersistent* const Part = Info->GetObject == nullptr ? nullptr : TFiler::PartOf(Object, *Info);
    if (Part != nullptr) AddProperties(Links, *Part, Path + Info->Name + '.', Choices);
  }
}

void AddComponent(const TZyPropertyLinks& Links, TComponent& Component, std::vector<std::string>& Choices) {
  const std::string Ref = GetComponentRef(&Component);
  if (!Ref.empty() && &Component != &Links.ManagedInstance()) AddProperties(Links, Component, Ref + '.', Choices);
  for (TComponent* Inner : Component.Components()) AddComponent(Links, *Inner, Choices);
}

}  // namespace

std::vector<std::string> LinkChoices(const TZyPropertyLinks& Links, TComponent& Root) {
  std::vector<std::string> Choices;
  AddComponent(Links, Root, Choices);
  return Choices;
}

}  // namespace zy
