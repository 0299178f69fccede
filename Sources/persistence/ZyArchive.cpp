#include "persistence/ZyArchive.h"

#include "platform/framework/ScopedFlag.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {

bool TZyArchive::Begin(const TZyScope& Scope) {
  if (IsReading()) FField = Scope.Name.XmlName();
  if (!Enter(Scope)) return false;
  if (!IsReading()) return true;
  // The name of a list stands there already when an element is entered.
  if (Scope.Index < 0) {
    FPlaces.emplace_back(Scope.Name.XmlName());
  } else {
    FPlaces.push_back("(" + IntToStr(Scope.Index) + ")");
  }
  FField.clear();
  return true;
}

void TZyArchive::End() {
  if (IsReading()) FPlaces.pop_back();
  Leave();
}

std::string TZyArchive::PlaceSince(TMark Mark) {
  FPlaces.push_back(std::move(FField));
  std::string Result;
  for (std::size_t Index = Mark; Index < FPlaces.size(); ++Index) {
    const std::string& Place = FPlaces[Index];
    if (!Place.empty() && Place.front() != '(') Result += Result.empty() ? ", " : ".";
    Result += Place;
  }
  FPlaces.resize(Mark);
  FField.clear();
  return Result;
}

void TZyArchive::Identity(const TComponent& Object) {
  std::string Ref = GetComponentRef(&Object);
  Take(TZyFieldName("Name").Later(), Ref);
}

void TZyArchive::TypedIdentity(const TComponent& Object) {
  std::string ClassName = Object.ClassName();
  if (!IsXml()) Take("Type", ClassName);
  Identity(Object);
}

void TZyArchive::Items(const TZyFieldName& Name, int Count, const std::function<void(int Count)>& Start,
                       const std::function<void(int Index)>& Item) {
  Within({TZyScope::List, Name}, [&] {
    VisitCount(Name, Count);
    if (Count < 0) return;
    if (IsReading()) Start(Count);
    for (int Index = 0; Index < Count; ++Index) Within({TZyScope::Item, Name, Index}, [&] { Item(Index); });
  });
}

void TZyArchive::Record(const TZyFieldName& Name, TZyRecord& Object) {
  const std::string NodeName = Object.RecordName();
  Within({TZyScope::Record, Name, -1, NodeName}, [&] { Object.Visit(*this); });
}

void TZyArchive::Records(const TZyFieldName& Name, const std::vector<TZyRecord*>& Objects, bool Typed,
                         const TTakeObject& Take) {
  const std::size_t FirstPending = FPending.size();
  Within({TZyScope::List, Name}, [&] {
    auto Count = static_cast<int>(Objects.size());
    VisitCount(Name, Count);
    for (int Index = 0; Index < Count; ++Index) {
      TZyRecord* const Written = IsReading() ? nullptr : Objects[static_cast<std::size_t>(Index)];
      const std::string NodeName = Written == nullptr ? std::string() : Written->RecordName();
      Within({TZyScope::ListedRecord, Name, Index, NodeName}, [&] {
        if (Written != nullptr) return Written->Visit(*this);
        TakeRecord(Typed, Take);
      });
    }
  });
  ResolvePending(FirstPending);
}

void TZyArchive::Record(const TZyFieldName& Name, std::string_view NodeName, TZyRecord* Written,
                        const TTakeObject& Take) {
  Within({TZyScope::Record, Name, -1, NodeName}, [&] {
    if (IsReading())
      TakeRecord(false, Take);
    else if (Written != nullptr)
      Written->Visit(*this);
  });
}

/// Has the record that was entered read into the object that Take finds or makes for it.
void TZyArchive::TakeRecord(bool Typed, const TTakeObject& Take) {
  const TZyIdentity Who = Identify(Typed);
  bool IsRead = false;
  Take(Who, [&](TZyRecord& Object) {
    IsRead = true;
    ReadListed(Object);
  });
  if (IsRead || !IsStream()) return;
  if (Who.Reference.empty()) throw EReadError(LoadResString(_sComponentNotNamed));
  throw EClassNotFound(Format(LoadResString(_sClassNotFound), {Who.ClassName}));
}

void TZyArchive::ReadListed(TZyRecord& Object) {
  const auto* const Holder = dynamic_cast<const TPersistent*>(&Object);
  const TScopedValue Listed(FListed, Holder == nullptr ? std::uint64_t{0} : Holder->LiveHandle());
  Object.Visit(*this);
}

void TZyArchive::Resolve(const std::string& Ref, TSetTarget Set) {
  TComponent* const Target = GetComponentFromRef(Ref);
  Set(Target);
  if (Ref.empty() || FListed == 0) return;
  FPending.push_back({FListed, Target == nullptr ? 0 : Target->LiveHandle(), Ref, std::move(Set)});
}

/// What still does not resolve stays null.
void TZyArchive::ResolvePending(std::size_t First) {
  for (std::size_t Index = First; Index < FPending.size(); ++Index) {
    if (FPending[Index].Target != 0 && TPersistent::FromLiveHandle(FPending[Index].Target) != nullptr) continue;
    TComponent* const Target = GetComponentFromRef(FPending[Index].Ref);
    if (Target != nullptr && TPersistent::FromLiveHandle(FPending[Index].Holder) != nullptr)
      FPending[Index].Set(Target);
  }
  FPending.resize(First);
}

}  // namespace zy
