#include "persistence/ZyArchive.h"

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
  Within({TZyScope::List, Name}, [&] {
    auto Count = static_cast<int>(Objects.size());
    VisitCount(Name, Count);
    for (int Index = 0; Index < Count; ++Index) {
      TZyRecord* const Written = IsReading() ? nullptr : Objects[static_cast<std::size_t>(Index)];
      const std::string NodeName = Written == nullptr ? std::string() : Written->RecordName();
      Within({TZyScope::ListedRecord, Name, Index, NodeName}, [&] {
        if (Written != nullptr) return Written->Visit(*this);
        const TZyIdentity Who = Identify(Typed);
        bool IsRead = false;
        Take(Who, [&](TZyRecord& Object) {
          IsRead = true;
          Object.Visit(*this);
        });
        if (IsRead || !IsStream()) return;
        if (Who.ClassName.empty()) throw EReadError(LoadResString(_sComponentNotNamed));
        throw EClassNotFound(Format(LoadResString(_sClassNotFound), {Who.ClassName}));
      });
    }
  });
}

}  // namespace zy
