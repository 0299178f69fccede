#include "undo/controls/ZyPropertyLinks.h"

#include <QWidget>
#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <exception>
#include <list>
#include <utility>

#include "persistence/ZyIO.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TWinControl.h"
#include "platform/framework/Application.h"
#include "platform/framework/Reflection.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TRef.h"
#include "platform/framework/TWriter.h"
#include "undo/ZyUndoGroup.h"
#include "undo/ZyUndoStack.h"

namespace zy {

ZY_PUBLISHED(TZyPropertyLinks, TPersistent)

namespace {

/// The component that a path begins with.
TComponent* FirstOf(std::string_view Name) {
  const auto& Forms = Screen().Forms();
  const auto Form =
      std::ranges::find(Forms, Name, [](const TComponent* Each) -> std::string_view { return Each->Name(); });
  if (Form != Forms.end() && !Name.empty()) return *Form;
  TComponent* const Module = Screen().FindByName(Name);
  return Module != nullptr ? Module : Application().FindComponent(Name);
}

/// Takes the first name off a path; one without a point is a name as a whole.
std::string_view TakeName(std::string_view& Path) {
  const std::string_view Name = Path.substr(0, Path.find('.'));
  Path.remove_prefix(std::min(Path.size(), Name.size() + 1));
  return Name;
}

/// The component of a path that names components only.
TComponent* ComponentOf(std::string_view Path) {
  TComponent* Found = FirstOf(TakeName(Path));
  while (Found != nullptr && !Path.empty()) Found = Found->FindComponent(TakeName(Path));
  return Found;
}

/// The real that stands for a single: with the digits that tell it from other singles, and no more, so that a width of
/// 1.2 shows as that.
double FromSingle(double Value) {
  const auto Narrow = static_cast<float>(Value);
  char Digits[32];
  const auto End = std::to_chars(Digits, Digits + sizeof Digits, Narrow).ptr;
  double Wide = Value;
  if (std::isfinite(Narrow)) std::from_chars(Digits, End, Wide);
  return Wide;
}

TZyUndoStack* StackOf(TComponent* Component) {
  const auto* const User = dynamic_cast<const IZyUndoUser*>(Component);
  return User == nullptr ? nullptr : User->UndoStack();
}

/// Keeps a stack silent until the end of the block, whatever dies in it.
class TSilence {
 public:
  explicit TSilence(TZyUndoStack* Stack) {
    if (Stack == nullptr || !Stack->Enabled()) return;
    Stack->SetEnabled(false);
    FStack = Stack->LiveHandle();
  }
  ~TSilence() {
    if (auto* const Stack = static_cast<TZyUndoStack*>(TPersistent::FromLiveHandle(FStack))) Stack->SetEnabled(true);
  }
  TSilence(const TSilence&) = delete;
  TSilence& operator=(const TSilence&) = delete;

 private:
  std::uint64_t FStack = 0;
};

}  // namespace

/// What one path leads to.
struct TZyPropertyLinks::TLinkRecord {
  explicit TLinkRecord(TComponent& Managed) : Component(&Managed) {}

  /// A published object on the way from the component to the property. The handle tells when another one stands there.
  struct TStep {
    const TPropInfo* Row;
    std::uint64_t Object;
  };

  TRef<TComponent> Component;  // the last one on the path
  std::string Name;            // the path behind it
  std::vector<TStep> Steps;
  const TPropInfo* Info = nullptr;  // the property; null when the path leads nowhere
  bool Failed = false;              // its getter has thrown: not tried again by itself
};

/// Work in which handlers of others run, any of which may free the control and the links with it.
class TZyPropertyLinks::TWork {
 public:
  explicit TWork(TZyPropertyLinks& Links) : FLinks(Links), FAlive(Links.LiveHandle()) { Links.FBusy = true; }
  ~TWork() {
    if (IsAlive()) FLinks.FBusy = false;
  }
  TWork(const TWork&) = delete;
  TWork& operator=(const TWork&) = delete;
  bool IsAlive() const { return FromLiveHandle(FAlive) != nullptr; }

 private:
  TZyPropertyLinks& FLinks;
  std::uint64_t FAlive;
};

TZyPropertyLinks::TZyPropertyLinks(TComponent& ManagedInstance, std::string_view ManagedProperty)
    : FManagedInstance(ManagedInstance),
      FManagedProperty(ManagedProperty),
      FManagedInfo(FindPropRow(ManagedInstance, ManagedProperty)) {
  FItems.OnChange = [this](TObject*) { ItemsChanged(); };
}

TZyPropertyLinks::~TZyPropertyLinks() = default;

void TZyPropertyLinks::ItemsChanged() {
  if (FRenaming) return;
  FPropRecs.clear();
  FNeedCheck = true;
  if (!HasItems()) return FIdle.SetOnIdle(nullptr);
  FIdle.SetOnIdle([this](TObject*, bool&) { DoIdle(); });
}

void TZyPropertyLinks::SetItems(const TStrings& Value) {
  FNeedCheck = true;
  FItems.Assign(&Value);
}

void TZyPropertyLinks::Assign(const TPersistent* Source) {
  const auto* const Links = dynamic_cast<const TZyPropertyLinks*>(Source);
  Links != nullptr ? SetItems(Links->FItems) : Inherited::Assign(Source);
}

// --- Paths ----------------------------------------------------------------------------------------------------------

/// Whether the property can be one of ours: of the same sort, where ours is of a sort that SetLink writes.
bool TZyPropertyLinks::Fits(const TPropInfo& Info) const {
  if (FManagedInfo.GetOrd != nullptr) return Info.GetOrd != nullptr;
  if (FManagedInfo.GetFloat != nullptr) return Info.GetFloat != nullptr;
  if (FManagedInfo.GetStr != nullptr) return Info.GetStr != nullptr;
  return true;
}

/// The walk along a path. A component that the last one owns comes before a property of the same name.
bool TZyPropertyLinks::Walk(TLinkRecord& Record, std::string_view Path) const {
  Record.Component = FirstOf(TakeName(Path));
  if (Record.Component == nullptr) return false;
  Record.Name = Path;
  TPersistent* Instance = Record.Component;
  while (!Path.empty()) {
    const std::string_view Segment = TakeName(Path);
    if (TComponent* const Inner = Record.Component->FindComponent(Segment)) {
      Record.Component = Inner;
      Record.Name = Path;
      Record.Steps.clear();
      Instance = Inner;
      continue;
    }
    const TPropInfo* const Info = GetPropInfo(*Instance, Segment);
    if (Info == nullptr) return false;
    if (Info->GetObject == nullptr) {
      Record.Info = Info;
      return Path.empty() && Fits(*Info);
    }
    Instance = Info->GetObject(*Instance);
    if (Instance == nullptr) return false;
    Record.Steps.push_back({Info, Instance->LiveHandle()});
  }
  return false;  // it ends at an object
}

void TZyPropertyLinks::Resolve(int Index) {
  auto Record = std::make_unique<TLinkRecord>(FManagedInstance);
  const std::string Path = FItems.Get(Index);
  bool Found = false;
  try {
    Found = Walk(*Record, Path);
  } catch (const std::exception& Error) {
    Record->Failed = true;
    TApplication::HandleException(Error);
  }
  if (!Found) {
    Record->Info = nullptr;
    Record->Component = nullptr;
  }
  const auto At = static_cast<std::size_t>(Index);
  if (At < FPropRecs.size()) FPropRecs[At] = std::move(Record);
}

/// The object that holds the property; null when the path leads nowhere, or no longer to where it did.
TPersistent* TZyPropertyLinks::TargetOf(TLinkRecord& Record) const {
  if (Record.Info == nullptr || Record.Failed) return nullptr;
  TPersistent* Instance = Record.Component;
  for (const TLinkRecord::TStep& Step : Record.Steps) {
    if (Instance == nullptr) return nullptr;
    Instance = Step.Row->GetObject(*Instance);
    if (Instance == nullptr || Instance->LiveHandle() != Step.Object) return nullptr;
  }
  return Instance;
}

TZyPropertyLinks::TLinkRecord* TZyPropertyLinks::RecordAt(int Index) {
  const auto At = static_cast<std::size_t>(Index);
  return At < FPropRecs.size() ? FPropRecs[At].get() : nullptr;
}

/// Tries the paths that lead nowhere so far.
void TZyPropertyLinks::ResolveMissing() {
  FPropRecs.resize(static_cast<std::size_t>(FItems.Count()));
  for (int Index = 0; Index < FItems.Count(); ++Index) {
    TLinkRecord* const Record = RecordAt(Index);
    bool IsThere = Record != nullptr;
    try {
      IsThere = IsThere && (Record->Failed || TargetOf(*Record) != nullptr);
    } catch (const std::exception& Error) {
      Record->Failed = true;
      TApplication::HandleException(Error);
    }
    if (!IsThere) Resolve(Index);
  }
}

/// What was renamed since is still what the path means, so that names are kept before paths are resolved afresh. A name
/// by which the component is not found leaves the path as it is.
void TZyPropertyLinks::KeepNames() {
  const TScopedValue Renaming(FRenaming, true);
  for (int Index = 0; Index < FItems.Count(); ++Index) {
    TLinkRecord* const Record = RecordAt(Index);
    if (Record == nullptr || Record->Info == nullptr || Record->Component == nullptr) continue;
    const std::string Ref = GetComponentRef(Record->Component);
    if (Ref.empty()) continue;
    const std::string Path = Ref + '.' + Record->Name;
    if (Path != FItems.Get(Index) && ComponentOf(Ref) == Record->Component.Get()) FItems.Put(Index, Path);
  }
}

void TZyPropertyLinks::UpdateLinkNames() {
  Modified();
  CheckLink();
  KeepNames();
}

void TZyPropertyLinks::Notification(const TComponent* AComponent) {
  for (const auto& Record : FPropRecs)
    if (Record != nullptr && Record->Component.Get() == AComponent) {
      Record->Component = nullptr;
      Record->Info = nullptr;
    }
}

// --- From the property to the control -------------------------------------------------------------------------------

bool TZyPropertyLinks::IsFollowed() const {
  const TPropKind Kind = TypeKind();
  return Kind == TPropKind::Integer || Kind == TPropKind::Enumeration || Kind == TPropKind::Float ||
         Kind == TPropKind::String;
}

TZyPropertyLinks::TValue TZyPropertyLinks::ValueOf(const TPersistent& Instance, const TPropInfo& Info) {
  if (Info.GetOrd != nullptr) return Info.GetOrd(Instance);
  if (Info.GetFloat != nullptr) return Info.GetFloat(Instance);
  if (Info.GetStr != nullptr) return Info.GetStr(Instance);
  return {};
}

/// No number equals itself here, so that a value which is none is not seen as a new one again and again.
bool TZyPropertyLinks::SameBits(const TValue& Left, const TValue& Right) {
  const auto *const L = std::get_if<double>(&Left), *const R = std::get_if<double>(&Right);
  if (L != nullptr && R != nullptr) return std::bit_cast<std::uint64_t>(*L) == std::bit_cast<std::uint64_t>(*R);
  return Left == Right;
}

/// The value behind the first path, nothing when there is none. A getter that throws has the path dropped.
TZyPropertyLinks::TValue TZyPropertyLinks::FirstValue() {
  TLinkRecord* const Record = RecordAt(0);
  if (Record == nullptr) return {};
  try {
    if (const TPersistent* const Target = TargetOf(*Record)) return ValueOf(*Target, *Record->Info);
  } catch (const std::exception& Error) {
    Record->Failed = true;
    TApplication::HandleException(Error);
  }
  return {};
}

/// Whether the control shows the value already, to the digits that both sides have.
bool TZyPropertyLinks::ShowsSame(const TValue& Source) const {
  const TValue Shown = ValueOf(FManagedInstance, FManagedInfo);
  if (SameBits(Source, Shown)) return true;
  const auto *const From = std::get_if<double>(&Source), *const To = std::get_if<double>(&Shown);
  if (From == nullptr || To == nullptr) return false;
  const bool IsSingle = FManagedInfo.IsSingle || FPropRecs.front()->Info->IsSingle;
  return IsSingle ? static_cast<float>(*From) == static_cast<float>(*To) : *From == *To;
}

void TZyPropertyLinks::NoteValues() {
  FSource = FirstValue();
  FShown = ValueOf(FManagedInstance, FManagedInfo);
}

void TZyPropertyLinks::Show(const TValue& Source) {
  if (const auto* const Whole = std::get_if<std::int64_t>(&Source)) {
    FManagedInfo.SetOrd(FManagedInstance, *Whole);
  } else if (const auto* const Real = std::get_if<double>(&Source)) {
    FManagedInfo.SetFloat(FManagedInstance, FPropRecs.front()->Info->IsSingle ? FromSingle(*Real) : *Real);
  } else if (const auto* const Text = std::get_if<std::string>(&Source)) {
    FManagedInfo.SetStr(FManagedInstance, *Text);
  }
}

void TZyPropertyLinks::Copy() {
  const TValue Source = FirstValue();
  if (Source.index() == 0 || !IsFollowed()) return;
  const TWork Work(*this);
  try {
    const TSilence Own(StackOf(&FManagedInstance)), Target(StackOf(FPropRecs.front()->Component));
    if (!ShowsSame(Source)) Show(Source);
  } catch (const std::exception& Error) {
    TApplication::HandleException(Error);  // the control cannot hold it, and is not asked again
  }
  if (!Work.IsAlive()) return;
  FAnswered = false;
  NoteValues();
}

void TZyPropertyLinks::CheckLink() {
  if (FBusy) return;
  const bool Needed = std::exchange(FNeedCheck, false);
  if (!Needed || !HasItems()) return;
  KeepNames();
  FPropRecs.clear();
  ResolveMissing();
  Copy();
}

void TZyPropertyLinks::Loaded() {
  Modified();
  const auto* const Control = dynamic_cast<const TControl*>(&FManagedInstance);
  if (Control == nullptr || Control->Parent() != nullptr) CheckLink();
}

/// Whether the user is at the control and has just set what it shows; another window may be in front for a moment.
bool TZyPropertyLinks::IsTypedIn() const {
  auto* const Control = dynamic_cast<TWinControl*>(&FManagedInstance);
  if (!FAnswered || TypeKind() == TPropKind::Enumeration || Control == nullptr || !Control->HasWidget()) return false;
  QWidget* const Own = Control->Widget();
  const QWidget* const AtWork = Own->window()->focusWidget();
  return AtWork == Own || (AtWork != nullptr && Own->isAncestorOf(AtWork));
}

/// Two reads. What the control could not hold when it was last copied is no news.
bool TZyPropertyLinks::IsOutOfDate() {
  const TValue Source = FirstValue();
  if (Source.index() == 0) return false;
  const bool IsNews = !SameBits(Source, FSource) || !SameBits(ValueOf(FManagedInstance, FManagedInfo), FShown);
  if (!IsNews && (!FAnswered || IsTypedIn())) return false;
  if (!ShowsSame(Source)) return true;
  FAnswered = false;
  NoteValues();
  return false;
}

void TZyPropertyLinks::DoIdle() {
  if (FBusy || FManagedInstance.IsLoading() || FManagedInstance.IsDestroying()) return;
  if (FNeedCheck) return CheckLink();
  ResolveMissing();
  if (!IsFollowed() || !IsOutOfDate()) return;
  Modified();
  CheckLink();
}

// --- From the control to the properties -----------------------------------------------------------------------------

void TZyPropertyLinks::WriteTo(int Index, const TValue& Value) {
  TLinkRecord* const Record = RecordAt(Index);
  TPersistent* const Target = Record == nullptr ? nullptr : TargetOf(*Record);
  if (Target == nullptr) return;
  const char* const Name = Record->Info->Name;  // the record may not outlive the setter
  if (const auto* const Whole = std::get_if<std::int64_t>(&Value)) SetOrdProp(*Target, Name, *Whole);
  if (const auto* const Real = std::get_if<double>(&Value)) SetFloatProp(*Target, Name, *Real);
  if (const auto* const Text = std::get_if<std::string>(&Value)) SetStrProp(*Target, Name, *Text);
}

/// Opens a group on each stack on which several targets would log their change.
void TZyPropertyLinks::OpenGroups(const TValue& Value, std::list<TZyUndoGroup>& Groups) {
  struct TChange {
    TZyUndoStack* Stack;
    std::string_view Label;
    bool IsOpen = false;
  };
  std::vector<TChange> Changes;
  for (const auto& Record : FPropRecs) try {
      TPersistent* const Target = TargetOf(*Record);
      if (Target == nullptr || SameBits(ValueOf(*Target, *Record->Info), Value)) continue;
      TZyUndoStack* const Stack = StackOf(Record->Component);
      const auto First = std::ranges::find(Changes, Stack, &TChange::Stack);
      if (First == Changes.end()) {
        Changes.push_back({Stack, TZyUndoStack::LabelOf(*Target, Record->Info->Name)});
      } else if (!std::exchange(First->IsOpen, true)) {
        Groups.emplace_back(Stack, First->Label);
      }
    } catch (const std::exception&) {
      continue;  // the poll tells of it
    }
}

void TZyPropertyLinks::SetLinkTo(const TValue& Value) {
  if (FBusy || !HasItems() || FManagedInstance.IsDesigning() || FManagedInstance.IsLoading() ||
      FManagedInstance.IsDestroying())
    return;
  if (FNeedCheck) KeepNames();
  ResolveMissing();
  const TWork Work(*this);
  const int Count = FItems.Count();
  std::exception_ptr Failure;
  {
    std::list<TZyUndoGroup> Groups;
    if (Count > 1) OpenGroups(Value, Groups);
    for (int Index = 0; Index < Count && Work.IsAlive(); ++Index) try {
        WriteTo(Index, Value);
      } catch (...) {
        if (Failure == nullptr) Failure = std::current_exception();
      }
  }
  if (Work.IsAlive()) {
    NoteValues();
    FAnswered = true;
  }
  if (Failure != nullptr) std::rethrow_exception(Failure);
}

// --- Stored form ----------------------------------------------------------------------------------------------------

void TZyPropertyLinks::DefineProperties(TFiler& Filer) {
  Inherited::DefineProperties(Filer);
  if (dynamic_cast<TWriter*>(&Filer) != nullptr) UpdateLinkNames();
  const auto ReadItems = [this](TReader& Reader) {
    TStringList Read;
    Reader.ReadListBegin();
    while (!Reader.EndOfList()) Read.Add(Reader.ReadString());
    Reader.ReadListEnd();
    SetItems(Read);
  };
  const auto WriteItems = [this](TWriter& Writer) {
    Writer.WriteListBegin();
    for (int Index = 0; Index < FItems.Count(); ++Index) Writer.WriteString(FItems.Get(Index));
    Writer.WriteListEnd();
  };
  Filer.DefineProperty("Items", ReadItems, WriteItems, HasItems());
}

}  // namespace zy
