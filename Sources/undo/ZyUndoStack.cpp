#include "undo/ZyUndoStack.h"

#include <algorithm>

#include "persistence/ZyIO.h"
#include "platform/framework/Application.h"
#include "platform/framework/Reflection.h"
#include "platform/framework/ScopedFlag.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

void TestOneDimension(const TVariant& Value) {
  for (const TVariant& Element : Value.AsArray())
    if (Element.IsArray()) throw EStreamError(LoadResString(_sOnlyOneDimensional));
}

}  // namespace

ZY_PUBLISHED(TZyUndoStack, TComponent, Published<&TZyUndoStack::Enabled, &TZyUndoStack::SetEnabled>("Enabled", true),
             Published<&TZyUndoStack::Limit, &TZyUndoStack::SetLimit>("Limit", 20),
             Published<&TZyUndoStack::ToMemoryStream, &TZyUndoStack::SetToMemoryStream>("ToMemoryStream", true),
             Published<&TZyUndoStack::OnUndo>("OnUndo"), Published<&TZyUndoStack::OnRedo>("OnRedo"))

TZyUndoStack::TZyUndoStack(TComponent* Owner) : TComponent(Owner) {
  if (!IsDesigning() || Owner->IsLoading()) return;
  for (TComponent* Component : Owner->Components())
    if (auto* const Holder = dynamic_cast<IZyUndoHolder*>(Component))
      if (Holder->UndoStack() == nullptr) Holder->SetUndoStack(this);
}

TZyUndoStack::~TZyUndoStack() {
  Destroying();
  FUndo.Close();
  FRedo.Close();
  FScratch.reset();
  RemoveFiles();
}

void TZyUndoStack::RemoveFiles() {
  for (auto* FileName : {&FUndoFileName, &FRedoFileName, &FScratchName}) {
    std::error_code Ignored;  // a file that is gone already is as good
    if (!FileName->empty()) std::filesystem::remove(*FileName, Ignored);
    FileName->clear();
  }
}

std::unique_ptr<TStream> TZyUndoStack::OpenStream(std::filesystem::path& FileName) {
  if (FToMemoryStream) return std::make_unique<TMemoryStream>();
  std::string Base = Application().ExeName().filename().string();
  Base.resize(Base.size() < 4 ? 0 : Base.size() - 4);
  // Exclusively, since others may make files between a look and a step: another program with the same name, or
  // somebody who lays a link to a file of ours.
  for (std::int64_t Number = 0;; ++Number) {
    FileName = GetTemporaryPath() / (Base + ".ZyUndoStack." + IntToStr(Number));
    std::error_code Ignored;
    const auto IsTaken = [&] { return std::filesystem::exists(std::filesystem::symlink_status(FileName, Ignored)); };
    if (IsTaken()) continue;
    try {
      return std::make_unique<TFileStream>(FileName, fmCreate | fmExclusive);
    } catch (const EFileError&) {
      const bool CameBetween = IsTaken();
      if (CameBetween) continue;
      FileName.clear();  // none of ours, not to be removed
      throw;
    }
  }
}

void TZyUndoStack::InitStreams() {
  if (FUndo.IsOpen()) return;
  try {
    auto UndoStream = OpenStream(FUndoFileName);
    auto RedoStream = OpenStream(FRedoFileName);
    FScratch = OpenStream(FScratchName);
    FUndo.Open(std::move(UndoStream), &Application());
    FRedo.Open(std::move(RedoStream), &Application());
  } catch (...) {
    RemoveFiles();  // all or none: the next push opens other ones
    throw;
  }
}

/// The head and the foot of every push. A payload that fails leaves no trace.
template <class TPayload>
void TZyUndoStack::Push(std::string_view Comment, TZyUndoToken Token, const TPayload& WritePayload) {
  InitStreams();
  FRedo.Clear();
  if (FUndo.LiveEntries() < FSavedAt) FSavedAt = NoWayBack;
  FUndo.Begin(Comment);
  try {
    WriteToken(FUndo.Writer(), Token);
    WritePayload();
    FUndo.Commit();
  } catch (...) {
    FUndo.Withdraw();
    throw;
  }
  const bool OpensEntry = FUndo.GroupLevel() == 0;
  while (OpensEntry && FLimit > 0 && FUndo.CurrentEntry() >= FLimit) FUndo.CutOldest(*FScratch);
}

void TZyUndoStack::PushProperty(TPersistent* Instance, std::string_view Comment, std::string_view PropName) {
  if (!Silent()) PushRow(Instance, Comment, FindPropRow(*Instance, PropName));
}

void TZyUndoStack::PushProperty(TPersistent* Instance, std::string_view PropName) {
  if (Silent()) return;
  PushRow(Instance, LabelOf(*Instance, PropName), FindPropRow(*Instance, PropName));
}

std::string_view TZyUndoStack::LabelOf(const TPersistent& Instance, std::string_view PropName) {
  const TPropInfo& Row = FindPropRow(Instance, PropName);
  return Row.Label ? std::string_view(LoadResString(*Row.Label)) : PropName;
}

void TZyUndoStack::PushRow(TPersistent* Instance, std::string_view Comment, const TPropInfo& Info) {
  if (Info.Kind == TPropKind::DynArray) TestOneDimension(Info.GetVariant(*Instance));
  Push(Comment, TZyUndoToken::udProperty, [&] {
    WriteObjectInstance(FUndo.Writer(), Instance);
    FUndo.Writer().WriteString(Info.Name);
    WritePropertyTo(FUndo.Writer(), *Instance, Info);
  });
}

void TZyUndoStack::PushComponent(TComponent* AComponent, std::string_view Comment) {
  if (Silent()) return;
  Push(Comment, TZyUndoToken::udComponent, [&] {
    WriteObjectInstance(FUndo.Writer(), AComponent);
    WriteComponentTo(FUndo.Writer(), *AComponent);
  });
}

void TZyUndoStack::PushFreeComponent(TComponent* AComponent, std::string_view Comment) {
  if (Silent()) return;
  const std::string Ref = GetComponentRef(AComponent);
  if (Ref.empty()) throw EStreamError(LoadResString(_sComponentNotNamed));
  Push(Comment, TZyUndoToken::udFreeComponent, [&] { FUndo.Writer().WriteString(Ref); });
}

void TZyUndoStack::PushEditState(TComponent* AEdit, std::string_view ACaption, int ASelStart, int ASelLength,
                                 std::string_view Comment) {
  if (Silent()) return;
  Push(Comment, TZyUndoToken::udEditState, [&] {
    WriteObjectInstance(FUndo.Writer(), AEdit);
    FUndo.Writer().WriteString(ACaption);
    FUndo.Writer().WriteInteger(ASelStart);
    FUndo.Writer().WriteInteger(ASelLength);
  });
}

void TZyUndoStack::PushVectorState(TPersistent* AVector, std::string_view Comment) {
  if (Silent()) return;
  const auto& State = dynamic_cast<const IZyStreamState&>(*AVector);
  Push(Comment, TZyUndoToken::udVectorState, [&] { WriteVectorTo(FUndo, AVector, State); });
}

void TZyUndoStack::StartGroup(std::string_view Comment) {
  if (Silent()) return;
  Push(Comment, TZyUndoToken::udStartGroup, [] {});
  if (FUndo.GroupLevel() == 0) FCurrentUndoComment = Comment;
  FUndo.SetGroupLevel(FUndo.GroupLevel() + 1);
}

void TZyUndoStack::StopGroup() {
  if (Silent()) return;
  Push(FCurrentUndoComment, TZyUndoToken::udStopGroup, [] {});
  FUndo.SetGroupLevel(FUndo.GroupLevel() - 1);
  if (FUndo.GroupLevel() < 0) throw EOverflow(LoadResString(_sUndoTooManyStopGroups));
}

void TZyUndoStack::SetLimit(int Value) {
  FLimit = Value;
  if (GroupLevel() > 0 || FRestoring || Value <= 0) return;
  while (FUndo.CurrentEntry() >= Value) FUndo.CutOldest(*FScratch);
}

void TZyUndoStack::Clear() {
  FMustClear = FRestoring;
  if (FMustClear) return;
  FSavedAt = Saved() ? 0 : NoWayBack;
  ++FClears;
  InitStreams();
  FUndo.Clear();
  FRedo.Clear();
  FScratch->SetSize(0);
}

// --- Values in a record ---------------------------------------------------------------------------------------------

/// A component that can be found by its name is written by name, so that one made anew takes the place of a dead one;
/// everything else by its live handle, and null as handle 0.
void TZyUndoStack::WriteObjectInstance(TWriter& Writer, TPersistent* Instance) {
  auto* const Component = dynamic_cast<TComponent*>(Instance);
  const std::string Ref = GetComponentRef(Component);
  const bool IsFound = !Ref.empty() && GetComponentFromRef(Ref) == Component;
  Writer.WriteString(IsFound ? Ref : std::string());
  if (IsFound) return;
  const std::uint64_t Handle = Instance == nullptr ? 0 : Instance->LiveHandle();
  Writer.Write(&Handle, sizeof Handle);
}

TZyUndoStack::TInstance TZyUndoStack::ReadObjectInstance(TReader& Reader) {
  FCurrentInstanceFullName = Reader.ReadString();
  if (!FCurrentInstanceFullName.empty()) return {GetComponentFromRef(FCurrentInstanceFullName), false};
  std::uint64_t Handle = 0;
  Reader.Read(&Handle, sizeof Handle);
  return {TPersistent::FromLiveHandle(Handle), Handle == 0};
}

void TZyUndoStack::WritePropertyTo(TWriter& Writer, TPersistent& Instance, const TPropInfo& Info) {
  if (Info.GetOrd != nullptr) {
    Writer.WriteInteger(Info.GetOrd(Instance));
  } else if (Info.GetFloat != nullptr) {
    Writer.WriteFloat(Info.GetFloat(Instance));
  } else if (Info.GetStr != nullptr) {
    Writer.WriteString(Info.GetStr(Instance));
  } else if (Info.GetObject != nullptr) {
    TPersistent* const Value = Info.GetObject(Instance);
    WriteObjectInstance(Writer, Value);
    if (const auto* const Strings = dynamic_cast<const TStrings*>(Value)) {
      Writer.WriteListBegin();
      for (int Index = 0; Index < Strings->Count(); ++Index) Writer.WriteString(Strings->Get(Index));
      Writer.WriteListEnd();
    }
  } else if (Info.Kind == TPropKind::DynArray) {
    const TVariant Value = Info.GetVariant(Instance);
    Writer.WriteInteger(static_cast<std::int64_t>(Value.AsArray().size()) - 1);
    for (const TVariant& Element : Value.AsArray()) Writer.WriteVariant(Element);
  } else {
    Writer.WriteVariant(GetPropValue(Instance, Info.Name));
  }
}

void TZyUndoStack::ReadPropertryFrom(TReader& Reader, TPersistent* Instance, const std::string& PropName) {
  if (Instance == nullptr) throw EFilerError(Format(LoadResString(_sPropNotFound), {PropName}));
  const TPropInfo& Info = FindPropRow(*Instance, PropName);
  if (Info.GetOrd != nullptr) {
    Info.SetOrd(*Instance, Reader.ReadInteger());
  } else if (Info.GetFloat != nullptr) {
    Info.SetFloat(*Instance, Reader.ReadFloat());
  } else if (Info.SetStr != nullptr) {
    Info.SetStr(*Instance, Reader.ReadString());
  } else if (Info.SetObject != nullptr) {
    ReadObjectProperty(Reader, *Instance, Info);
  } else if (Info.Kind == TPropKind::DynArray) {
    TestOneDimension(Info.GetVariant(*Instance));
    TVariant::TArray Elements;
    for (std::int64_t Left = Reader.ReadInteger() + 1; Left > 0; --Left) Elements.push_back(Reader.ReadVariant());
    Info.SetVariant(*Instance, std::move(Elements));
  } else {
    SetPropValue(*Instance, PropName, Reader.ReadVariant());
  }
}

void TZyUndoStack::ReadObjectProperty(TReader& Reader, TPersistent& Instance, const TPropInfo& Info) {
  const TInstance Value = ReadObjectInstance(Reader);
  if (Value.WasNull || !Info.ObjectClass().InheritsFrom(TStrings::StaticClassInfo()))
    return Info.SetObject(Instance, Value.Object);
  auto* Strings = dynamic_cast<TStrings*>(Value.Object);
  if (Strings == nullptr) Strings = dynamic_cast<TStrings*>(Info.GetObject(Instance));  // the list was replaced since
  if (Strings == nullptr) throw EFilerError(Format(LoadResString(_sPropNotFound), {Info.Name}));
  Strings->Clear();
  Reader.ReadListBegin();
  while (!Reader.EndOfList()) Strings->Add(Reader.ReadString());
  Reader.ReadListEnd();
}

/// Does something to each settings object of a component, in an order that is the same for all of its class; with null
/// where it has none.
template <class TDo>
static void ForEachPart(TPersistent& Object, const TDo& Do) {
  for (const TPropInfo* Info : Object.ClassInfo().Rows()) {
    TPersistent* const Part = TFiler::PartOf(Object, *Info);
    if (!Info->IsOwnedObject && Part == nullptr) continue;
    Do(Part);
    if (Part != nullptr) ForEachPart(*Part, Do);
  }
  if (const auto* const Parts = dynamic_cast<const IZyUndoParts*>(&Object))
    for (TPersistent* Part : Parts->UndoParts()) {
      Do(Part);
      ForEachPart(*Part, Do);
    }
}

static int PlaceOf(const TComponent& Component) {
  const auto* const Place = dynamic_cast<const IZyUndoPlace*>(&Component);
  return Place == nullptr ? 0 : Place->Place();
}

static void SetPlaceOf(TPersistent* Component, int Value) {
  if (auto* const Place = dynamic_cast<IZyUndoPlace*>(Component)) Place->SetPlace(Value);
}

/// Components with a place in its order: those that come back to it one after the other find it as it was.
static std::vector<TComponent*> ByPlace(std::vector<TComponent*> List) {
  std::ranges::stable_sort(List, {}, [](const TComponent* Component) { return PlaceOf(*Component); });
  return List;
}

/// Behind the component comes what it took along when it died: its places, its stack, the handles by which records name
/// its settings, and the properties of its owner's components that point at it.
void TZyUndoStack::WriteComponentTo(TWriter& Writer, TComponent& Component) {
  TComponent* const Owner = Component.Owner();
  {
    struct TRootOf {
      TWriter& Writer;
      TComponent* Root;
      ~TRootOf() { Writer.SetRoot(Root); }
    } const Back{Writer, Writer.Root()};
    if (Owner != nullptr) Writer.SetRoot(Owner);
    Writer.WriteComponent(Component);
  }
  TComponent* const Parent = Component.ParentComponent();
  Writer.WriteInteger(Owner != nullptr ? Owner->TComponent::ChildIndex(Component) : -1);
  WriteObjectInstance(Writer, Parent);
  Writer.WriteInteger(Parent != nullptr ? Parent->ChildIndex(Component) : -1);
  Writer.WriteInteger(PlaceOf(Component));
  const auto* const User = dynamic_cast<const IZyUndoUser*>(&Component);
  Writer.WriteBoolean(User != nullptr && User->UndoStack() == this);
  const auto WriteHandle = [&Writer](const TPersistent* Object) {
    Writer.WriteInteger(Object == nullptr ? 0 : static_cast<std::int64_t>(Object->KnownLiveHandle()));
  };
  WriteHandle(&Component);
  ForEachPart(Component, WriteHandle);
  if (Owner != nullptr)
    for (TComponent* Holder : ByPlace(Owner->Components()))
      for (const TPropInfo* Info : Holder->ClassInfo().Rows())
        if (Info->SetObject != nullptr && !Info->IsOwnedObject && Info->GetObject(*Holder) == &Component) {
          Writer.WriteString(Info->Name);
          WriteObjectInstance(Writer, Holder);
          Writer.WriteInteger(PlaceOf(*Holder));
        }
  Writer.WriteListEnd();
}

void TZyUndoStack::RestorePlace(TReader& Reader, TComponent& Component) {
  const auto Index = static_cast<int>(Reader.ReadInteger());
  if (Component.Owner() != nullptr) Component.Owner()->TComponent::SetChildIndex(Component, Index);
  auto* const Parent = dynamic_cast<TComponent*>(ReadObjectInstance(Reader).Object);
  const auto IndexInParent = static_cast<int>(Reader.ReadInteger());
  if (Parent != nullptr) {
    Component.SetParentComponent(Parent);
    Parent->SetChildIndex(Component, IndexInParent);
  }
  SetPlaceOf(&Component, static_cast<int>(Reader.ReadInteger()));
  const bool WasLogged = Reader.ReadBoolean();
  if (auto* const User = dynamic_cast<IZyUndoUser*>(&Component)) User->SetUndoStack(WasLogged ? this : nullptr);
  const auto ReadHandle = [&Reader](TPersistent* Object) {
    const auto Handle = static_cast<std::uint64_t>(Reader.ReadInteger());
    if (Object != nullptr) Object->TakeLiveHandle(Handle);
  };
  ReadHandle(&Component);
  ForEachPart(Component, ReadHandle);
  while (!Reader.EndOfList()) {
    const std::string PropName = Reader.ReadString();
    TPersistent* const Holder = ReadObjectInstance(Reader).Object;
    if (Holder != nullptr) FindPropRow(*Holder, PropName).SetObject(*Holder, &Component);
    SetPlaceOf(Holder, static_cast<int>(Reader.ReadInteger()));
  }
  Reader.ReadListEnd();
}

void TZyUndoStack::ReadComponentFrom(TReader& Reader, TComponent* Instance) {
  const bool IsAnew = Instance == nullptr;
  struct TRound {
    explicit TRound(TReader& AReader) : Reader(AReader), Root(AReader.Root()) { Reader.BeginReferences(); }
    ~TRound() {
      Reader.EndReferences();
      Reader.SetRoot(Root);
    }
    TReader& Reader;
    TComponent* Root;
  } const Round(Reader);
  Reader.SetRoot(Instance == nullptr ? Owner() : Instance->Owner());
  Instance = Reader.ReadComponent(Instance);
  if (Instance->Owner() == nullptr && Owner() != nullptr) Owner()->InsertComponent(Instance);
  Reader.FixupReferences();
  if (IsAnew) RestorePlace(Reader, *Instance);
}

/// The vector writes its own binary form straight into the stream, behind what the writer has flushed.
void TZyUndoStack::WriteVectorTo(TZyUndoLog& Log, TPersistent* Vector, const IZyStreamState& State) {
  WriteObjectInstance(Log.Writer(), Vector);
  Log.Writer().FlushBuffer();
  State.WriteTo(Log.Stream());
}

void TZyUndoStack::ReadVectorFrom(TZyUndoLog& Log, TPersistent* Instance) {
  auto* const State = dynamic_cast<IZyStreamState*>(Instance);
  if (State == nullptr) throw EFilerError(LoadResString(_sComponentNotNamed));
  Log.Reader().FlushBuffer();
  State->ReadFrom(Log.Stream());
}

void TZyUndoStack::RestoreEdit(TReader& Reader, IZyEditState& Edit) {
  const std::string Text = Reader.ReadString();
  const auto Start = static_cast<int>(Reader.ReadInteger());
  const auto Length = static_cast<int>(Reader.ReadInteger());
  Edit.SetEditText(Text);
  Edit.SetSelStart(Start);
  Edit.SetSelLength(Length);
}

// --- Replay ---------------------------------------------------------------------------------------------------------

bool TZyUndoStack::Replay(TZyUndoLog& Log, int ToIndex, void (TZyUndoStack::*ReplayAt)(int Record)) {
  if (!FEnabled || FRestoring || GroupLevel() > 0 || Log.CurrentEntry() < 0 || ToIndex < 0) return false;
  try {
    const TScopedValue Silence(FRestoring, true);
    const int Entry = std::max(Log.CurrentEntry() - ToIndex, 0);
    const int Steps = Log.CurrentEntry() - Entry + 1;
    const int Oldest = Log.FirstRecord(Entry);
    for (int Record = Log.LastRecord(Log.CurrentEntry()); Record >= Oldest; --Record) (this->*ReplayAt)(Record);
    Log.MoveTo(Entry - 1);
    if (&Log == &FRedo) FUndo.MoveTo(std::min(FUndo.CurrentEntry() + Steps, FUndo.EntryCount() - 1));
  } catch (...) {
    FMustClear = true;  // half a step must not stay
    FSavedAt = NoWayBack;
  }
  if (FMustClear) Clear();
  return true;
}

void TZyUndoStack::Undo(int ToIndex) {
  if (Replay(FUndo, ToIndex, &TZyUndoStack::UndoAt) && mUndo) TNotifyEvent{mUndo}(this);
}

void TZyUndoStack::Redo(int ToIndex) {
  if (Replay(FRedo, ToIndex, &TZyUndoStack::RedoAt) && mRedo) TNotifyEvent{mRedo}(this);
}

void TZyUndoStack::UndoAt(int Record) {
  FUndo.Seek(Record);
  const std::string Comment = FUndo.Reader().ReadString();
  if (FRedo.GroupLevel() == 0) FCurrentUndoComment = Comment;
  const auto Token = static_cast<TZyUndoToken>(FUndo.Reader().ReadInteger());
  FRedo.Begin(FCurrentUndoComment);  // every step that is undone can be redone; the handler writes the rest
  switch (Token) {
    case TZyUndoToken::udProperty:
      return UndoProperty();
    case TZyUndoToken::udComponent:
      return UndoComponent();
    case TZyUndoToken::udFreeComponent:
      return UndoFreeComponent();
    case TZyUndoToken::udEditState:
      return UndoEditState();
    case TZyUndoToken::udVectorState:
      return UndoVectorState();
    case TZyUndoToken::udStartGroup:
      return PushRedoGroup(TZyUndoToken::udStopGroup, -1);
    case TZyUndoToken::udStopGroup:
      return PushRedoGroup(TZyUndoToken::udStartGroup, 1);
  }
}

/// A group is replayed backward: its end opens the group of the redo log.
void TZyUndoStack::PushRedoGroup(TZyUndoToken Token, int LevelChange) {
  WriteToken(FRedo.Writer(), Token);
  FRedo.Commit();
  FRedo.SetGroupLevel(FRedo.GroupLevel() + LevelChange);
}

void TZyUndoStack::UndoProperty() {
  const TInstance Instance = ReadObjectInstance(FUndo.Reader());
  const std::string PropName = FUndo.Reader().ReadString();
  if (Instance.Object != nullptr) {
    WriteToken(FRedo.Writer(), TZyUndoToken::udProperty);
    WriteObjectInstance(FRedo.Writer(), Instance.Object);
    FRedo.Writer().WriteString(PropName);
    WritePropertyTo(FRedo.Writer(), *Instance.Object, FindPropRow(*Instance.Object, PropName));
    FRedo.Commit();
  }
  ReadPropertryFrom(FUndo.Reader(), Instance.Object, PropName);
}

void TZyUndoStack::UndoComponent() {
  auto* const Component = dynamic_cast<TComponent*>(ReadObjectInstance(FUndo.Reader()).Object);
  if (Component != nullptr) {
    WriteToken(FRedo.Writer(), TZyUndoToken::udComponent);
    WriteObjectInstance(FRedo.Writer(), Component);
    WriteComponentTo(FRedo.Writer(), *Component);
    FRedo.Commit();
  } else if (FCurrentInstanceFullName.empty()) {
    FRedo.Withdraw();  // a redo would have no way to find what this undo makes
  } else {
    WriteToken(FRedo.Writer(), TZyUndoToken::udFreeComponent);
    FRedo.Writer().WriteString(FCurrentInstanceFullName);
    FRedo.Commit();
  }
  ReadComponentFrom(FUndo.Reader(), Component);
}

void TZyUndoStack::UndoFreeComponent() {
  TComponent* const Component = GetComponentFromRef(FUndo.Reader().ReadString());
  if (Component == nullptr) return FRedo.Withdraw();
  WriteToken(FRedo.Writer(), TZyUndoToken::udComponent);
  WriteObjectInstance(FRedo.Writer(), Component);
  WriteComponentTo(FRedo.Writer(), *Component);
  FRedo.Commit();
  delete Component;
}

void TZyUndoStack::UndoEditState() {
  TPersistent* const Instance = ReadObjectInstance(FUndo.Reader()).Object;
  auto* const Edit = dynamic_cast<IZyEditState*>(Instance);
  if (Edit == nullptr) throw EFilerError(LoadResString(_sComponentNotNamed));
  WriteToken(FRedo.Writer(), TZyUndoToken::udEditState);
  WriteObjectInstance(FRedo.Writer(), Instance);
  FRedo.Writer().WriteString(Edit->EditText());
  FRedo.Writer().WriteInteger(Edit->SelStart());
  FRedo.Writer().WriteInteger(Edit->SelLength());
  FRedo.Commit();
  RestoreEdit(FUndo.Reader(), *Edit);
}

void TZyUndoStack::UndoVectorState() {
  TPersistent* const Instance = ReadObjectInstance(FUndo.Reader()).Object;
  if (const auto* const State = dynamic_cast<const IZyStreamState*>(Instance)) {
    WriteToken(FRedo.Writer(), TZyUndoToken::udVectorState);
    WriteVectorTo(FRedo, Instance, *State);
    FRedo.Commit();
  }
  ReadVectorFrom(FUndo, Instance);
}

void TZyUndoStack::RedoAt(int Record) {
  FRedo.Seek(Record);
  TReader& Reader = FRedo.Reader();
  Reader.ReadString();
  switch (static_cast<TZyUndoToken>(Reader.ReadInteger())) {
    case TZyUndoToken::udProperty: {
      const TInstance Instance = ReadObjectInstance(Reader);
      const std::string PropName = Reader.ReadString();
      return ReadPropertryFrom(Reader, Instance.Object, PropName);
    }
    case TZyUndoToken::udComponent:
      return ReadComponentFrom(Reader, dynamic_cast<TComponent*>(ReadObjectInstance(Reader).Object));
    case TZyUndoToken::udFreeComponent:
      delete GetComponentFromRef(Reader.ReadString());
      return;
    case TZyUndoToken::udEditState: {
      auto* const Edit = dynamic_cast<IZyEditState*>(ReadObjectInstance(Reader).Object);
      if (Edit == nullptr) throw EFilerError(LoadResString(_sComponentNotNamed));
      return RestoreEdit(Reader, *Edit);
    }
    case TZyUndoToken::udVectorState:
      return ReadVectorFrom(FRedo, ReadObjectInstance(Reader).Object);
    case TZyUndoToken::udStartGroup:
    case TZyUndoToken::udStopGroup:
      return;
  }
}

}  // namespace zy
