#include "analysis/ZyParseFktLists.h"

#include <algorithm>

#include "analysis/ZyParseFktFunctions.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

char Upper(char C) { return C >= 'a' && C <= 'z' ? static_cast<char>(C - 'a' + 'A') : C; }

/// The callback of an entry, whatever its kind.
auto& Getter(TZyDoubleGetterRec& Row) { return Row.AGetter; }
auto& Getter(TZyStringGetterRec& Row) { return Row.AGetter; }
auto& Getter(TZyDoubleArrayRec& Row) { return Row.AArray; }

void Overwrite(TZyFunctionRec& Row, TZyFunctionRec&& By) { Row = std::move(By); }

template <typename TRec>
void Overwrite(TRec& Row, TRec&& By) {
  Getter(Row).Replace(std::move(Getter(By)));
  Row.Id = std::move(By.Id);
  Row.Comment = std::move(By.Comment);
}

void Release(TZyFunctionRec&) {}

template <typename TRec>
void Release(TRec& Row) {
  Getter(Row).Release();
}

const TZyVariableContainer* ContainerOf(const TZyFunctionRec&) { return nullptr; }

template <typename TRec>
const TZyVariableContainer* ContainerOf(const TRec& Row) {
  return Row.Container;
}

/// Whether Name is the full name of an entry. The entry's own name is compared first: it is at hand.
template <typename TRec>
bool HasFullName(const TRec& Row, std::string_view Name) {
  const TZyVariableContainer* const Container = ContainerOf(Row);
  if (Container == nullptr) return SameName(Row.Id, Name);
  if (Name.size() <= Row.Id.size()) return false;
  const std::size_t Prefix = Name.size() - Row.Id.size();
  return Name[Prefix - 1] == '.' && SameName(Name.substr(Prefix), Row.Id) &&
         SameName(Name.substr(0, Prefix - 1), Container->VariablesRef());
}

}  // namespace

std::string AsciiUpper(std::string_view Text) {
  std::string Result(Text);
  std::transform(Result.begin(), Result.end(), Result.begin(), Upper);
  return Result;
}

bool SameName(std::string_view One, std::string_view Two) {
  // From the end: full names differ there, and share their start.
  return One.size() == Two.size() &&
         std::equal(One.rbegin(), One.rend(), Two.rbegin(), [](char A, char B) { return Upper(A) == Upper(B); });
}

void ThrowVariableGone(const std::string& Name) { throw EMathError(Format(LoadResString(_sVariableGone), {Name})); }

void ThrowNothingToCall(std::string_view Name) {
  throw EInvalidOperation(Format(LoadResString(_sNothingToCall), {Name}));
}

// ---- Dependents ----

TZyVariableDependent::~TZyVariableDependent() {
  while (!FLists.empty()) FLists.back()->Remove(*this);
}

TZyDependentList::~TZyDependentList() {
  while (!FItems.empty()) Remove(*FItems.back());
}

bool TZyDependentList::Contains(const TZyVariableDependent& Dependent) const {
  return std::find(FItems.begin(), FItems.end(), &Dependent) != FItems.end();
}

void TZyDependentList::Add(TZyVariableDependent& Dependent) {
  if (Contains(Dependent)) return;
  Dependent.FLists.push_back(this);
  FItems.push_back(&Dependent);
}

void TZyDependentList::Remove(TZyVariableDependent& Dependent) {
  std::erase(FItems, &Dependent);
  std::erase(Dependent.FLists, this);
}

void UpdateVariablesObjects(const TZyDependentList& List) {
  const std::vector<TZyVariableDependent*> Items = List.FItems;
  for (TZyVariableDependent* const Item : Items)
    if (std::find(List.FItems.begin(), List.FItems.end(), Item) != List.FItems.end()) Item->VariablesChanged();
}

void NoteDependency(TZyVariableContainer* Container, TZyVariableDependent* Dependent) {
  if (Container == nullptr || Dependent == nullptr) return;
  if (TZyDependentList* const List = Container->ObjectsToUpdate()) List->Add(*Dependent);
}

// ---- Containers ----

void RegisterAsked();

namespace {

/// The lists of what containers have, and the containers whose entries are still to come, in the order of their making.
struct TContainerLists {
  TContainerLists() {
    Variables.SetBeforeLook(&RegisterAsked);
    Strings.SetBeforeLook(&RegisterAsked);
    Arrays.SetBeforeLook(&RegisterAsked);
  }

  TZyDoubleGetterList Variables;
  TZyStringGetterList Strings;
  TZyDoubleArraysList Arrays;
  TZyVariableContainer* FirstWaiting = nullptr;
  TZyVariableContainer* LastWaiting = nullptr;
  bool Registering = false;
};

TContainerLists& ContainerLists() {
  static TContainerLists Lists;
  return Lists;
}

}  // namespace

/// Enters what waits. A container that enters its own rows finds the lists as they are.
void RegisterAsked() {
  TContainerLists& Lists = ContainerLists();
  if (Lists.Registering) return;
  struct TRegistering {
    bool& Flag;
    explicit TRegistering(bool& AFlag) : Flag(AFlag) { Flag = true; }
    ~TRegistering() { Flag = false; }
  } const Registering(Lists.Registering);
  while (TZyVariableContainer* const Container = Lists.FirstWaiting) {
    Container->LeaveWaiting();
    Container->RegisterVariables();
  }
}

/// The lists are made before the first container, and so outlive even one that is a static object.
TZyVariableContainer::TZyVariableContainer() { ContainerLists(); }

TZyVariableContainer::~TZyVariableContainer() { DeRegisterVariables(); }

void TZyVariableContainer::RegisterWhenAsked() {
  TContainerLists& Lists = ContainerLists();
  if (FPrevious != nullptr || Lists.FirstWaiting == this) return;
  FPrevious = Lists.LastWaiting;
  (FPrevious == nullptr ? Lists.FirstWaiting : FPrevious->FNext) = this;
  Lists.LastWaiting = this;
}

void TZyVariableContainer::LeaveWaiting() {
  TContainerLists& Lists = ContainerLists();
  if (FPrevious == nullptr && Lists.FirstWaiting != this) return;
  (FPrevious == nullptr ? Lists.FirstWaiting : FPrevious->FNext) = FNext;
  (FNext == nullptr ? Lists.LastWaiting : FNext->FPrevious) = FPrevious;
  FNext = FPrevious = nullptr;
}

void TZyVariableContainer::DeRegisterVariables() {
  LeaveWaiting();
  TContainerLists& Lists = ContainerLists();
  Lists.Variables.RemoveContainer(this);
  Lists.Strings.RemoveContainer(this);
  Lists.Arrays.RemoveContainer(this);
}

// ---- Lists ----

template <typename TRec>
void TZyRecList<TRec>::Put(TRec Row) {
  if (FBeforeLook != nullptr) FBeforeLook();
  std::vector<std::size_t>& Own = FPlaces[ContainerOf(Row)];
  const auto Found =
      std::find_if(Own.begin(), Own.end(), [&](std::size_t Place) { return SameName(FRows[Place].Id, Row.Id); });
  if (Found != Own.end()) return Overwrite(FRows[*Found], std::move(Row));
  Own.push_back(FRows.size());
  FRows.push_back(std::move(Row));
  FIsThere.push_back(true);
}

template <typename TRec>
void TZyRecList<TRec>::Clear() {
  RemoveIf([](const TRec&) { return true; });
}

template <typename TRec>
void TZyRecList<TRec>::RemoveIf(const std::function<bool(const TRec&)>& Gone) {
  if (FBeforeLook != nullptr) FBeforeLook();
  for (std::size_t Place = 0; Place < FRows.size(); ++Place) {
    if (!FIsThere[Place] || !Gone(FRows[Place])) continue;
    Release(FRows[Place]);
    FIsThere[Place] = false;
    ++FGone;
  }
  Compact();
}

template <typename TRec>
void TZyRecList<TRec>::RemoveContainer(const TZyVariableContainer* Container) {
  const auto Own = FPlaces.find(Container);
  if (Own == FPlaces.end()) return;
  for (const std::size_t Place : Own->second) {
    Release(FRows[Place]);
    FIsThere[Place] = false;
    ++FGone;
  }
  FPlaces.erase(Own);
  if (2 * FGone > FRows.size()) Compact();
}

template <typename TRec>
const std::vector<TRec>& TZyRecList<TRec>::Rows() const {
  if (FBeforeLook != nullptr) FBeforeLook();
  Compact();
  return FRows;
}

template <typename TRec>
void TZyRecList<TRec>::Compact() const {
  if (FGone == 0) return;
  FPlaces.clear();
  std::size_t Count = 0;
  for (std::size_t Place = 0; Place < FRows.size(); ++Place) {
    if (!FIsThere[Place]) continue;
    if (Count != Place) FRows[Count] = std::move(FRows[Place]);
    FPlaces[ContainerOf(FRows[Count])].push_back(Count);
    ++Count;
  }
  FRows.erase(FRows.begin() + static_cast<std::ptrdiff_t>(Count), FRows.end());
  FIsThere.assign(Count, true);
  FGone = 0;
  FNoted.clear();
  FNotedRows = 0;
}

/// A container may have got another name since its rows were noted: what is found has to have the name, and what is not
/// found is looked for in the list itself.
template <typename TRec>
const TRec* TZyRecList<TRec>::Find(std::string_view FullName) const {
  constexpr std::size_t Few = 32;
  const auto HasName = [FullName](const TRec& Row) { return HasFullName(Row, FullName); };
  const std::vector<TRec>& List = Rows();
  if (List.size() > Few) {
    for (; FNotedRows < List.size(); ++FNotedRows) {
      const TZyVariableContainer* const Container = ContainerOf(List[FNotedRows]);
      const std::string& Id = List[FNotedRows].Id;
      FNoted.emplace(AsciiUpper(Container == nullptr ? Id : Container->VariablesRef() + '.' + Id), FNotedRows);
    }
    const auto Noted = FNoted.find(AsciiUpper(FullName));
    if (Noted != FNoted.end() && HasName(List[Noted->second])) return &List[Noted->second];
  }
  const auto Found = std::ranges::find_if(List, HasName);
  if (Found == List.end()) return nullptr;
  if (List.size() > Few) FNoted[AsciiUpper(FullName)] = static_cast<std::size_t>(Found - List.begin());
  return &*Found;
}

template class TZyRecList<TZyFunctionRec>;
template class TZyRecList<TZyDoubleGetterRec>;
template class TZyRecList<TZyStringGetterRec>;
template class TZyRecList<TZyDoubleArrayRec>;

TZyFunctionsList& GlobalFunctionList() {
  static TZyFunctionsList List;
  static const bool Filled = (AddLibraryFunctions(List), true);
  static_cast<void>(Filled);
  return List;
}

TZyDoubleGetterList& GlobalVariableList() { return ContainerLists().Variables; }

TZyStringGetterList& GlobalStringList() { return ContainerLists().Strings; }

TZyDoubleArraysList& GlobalArrayList() { return ContainerLists().Arrays; }

void AddFunctionToList(std::string_view Id, std::string_view Comment, TZyOnePrmFunction Function,
                       TZyFunctionsList& List) {
  if (Function == nullptr) ThrowNothingToCall(Id);
  List.Put({std::string(Id), std::string(Comment), Function});
}

void AddVariableToList(std::string_view Id, std::string_view Comment, TZyVariableContainer* Container,
                       TZyDoubleGetterList& List, TZyDoubleGetter Getter) {
  std::string Name(Id);
  List.Put({Name, std::string(Comment), Container, {Name, std::move(Getter)}});
}

void AddStringToList(std::string_view Id, std::string_view Comment, TZyVariableContainer* Container,
                     TZyStringGetterList& List, TZyStringGetter Getter) {
  std::string Name(Id);
  List.Put({Name, std::string(Comment), Container, {Name, std::move(Getter)}});
}

void AddArrayToList(std::string_view Id, std::string_view Comment, TZyVariableContainer* Container,
                    TZyDoubleArraysList& List, TZyArrayValGetter Getter) {
  std::string Name(Id);
  List.Put({Name, std::string(Comment), Container, {Name, std::move(Getter)}});
}

void RemoveFromFunctionsList(std::string_view Text, TZyFunctionsList& List) {
  List.RemoveIf([Text](const TZyFunctionRec& Row) { return Row.Id.starts_with(Text); });
}

void RemoveFromVariablesList(const TZyVariableContainer* Container, TZyDoubleGetterList& List) {
  List.RemoveContainer(Container);
}

void RemoveFromStringList(const TZyVariableContainer* Container, TZyStringGetterList& List) {
  List.RemoveContainer(Container);
}

void RemoveFromArrayList(const TZyVariableContainer* Container, TZyDoubleArraysList& List) {
  List.RemoveContainer(Container);
}

const TZyFunctionRec* FindFunction(const TZyFunctionsList& List, std::string_view Name) {
  for (const TZyFunctionRec& Row : List)
    if (SameName(Row.Id, Name)) return &Row;
  return nullptr;
}

}  // namespace zy
