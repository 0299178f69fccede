#include "platform/data/TDataSet.h"

#include <algorithm>
#include <utility>

#include "platform/data/TDataSource.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

std::uint64_t NextGeneration() {
  static std::uint64_t Last = 0;
  return ++Last;
}

char Lower(char C) { return C >= 'A' && C <= 'Z' ? static_cast<char>(C - 'A' + 'a') : C; }

bool SameInAnyCase(std::string_view A, std::string_view B) {
  return std::equal(A.begin(), A.end(), B.begin(), B.end(), [](char X, char Y) { return Lower(X) == Lower(Y); });
}

constexpr unsigned Bit(TDataEvent Event) { return 1U << static_cast<unsigned>(Event); }

}  // namespace

ZY_PUBLISHED(TDataSet, TComponent)

TDataSet::TDataSet(TComponent* Owner) : TComponent(Owner) {}

TDataSet::~TDataSet() { Destroying(); }

std::string TDataSet::Title() const { return Name().empty() ? ClassName() : Name(); }

void TDataSet::Fail(TZyText Text) const { throw EDatabaseError(Format(LoadResString(Text), {Title()})); }

void TDataSet::CheckActive() const {
  if (!Active()) Fail(_sDataSetInactive);
}

void TDataSet::CheckCanModify() const {
  CheckActive();
  if (!GetCanModify()) Fail(_sDataSetReadOnly);
}

void TDataSet::CheckBrowseMode() {
  CheckActive();
  Post();
}

// ---- Opening and reading ----

void TDataSet::SetActive(bool Value) {
  if (IsLoading()) {
    FOpenWhenLoaded = Value;
  } else if (Value != Active()) {
    Value ? DoOpen() : DoClose();
  }
}

void TDataSet::Loaded() {
  Inherited::Loaded();
  if (!FOpenWhenLoaded) return;
  FOpenWhenLoaded = false;
  try {
    Open();
  } catch (const EDatabaseError&) {
    // The links have been told; the rest of the form is none the worse.
  }
}

std::vector<TFieldDef> TDataSet::TryRead() {
  try {
    std::vector<TFieldDef> Result = ReadRecords();
    FLastError.clear();
    FGeneration = NextGeneration();
    return Result;
  } catch (const EDatabaseError& Error) {
    FLastError = Error.what();
    DataEvent(TDataEvent::ConnectChange);
    throw;
  }
}

void TDataSet::DoOpen() {
  TakeFields(TryRead());
  FState = TDataSetState::Browse;
  PlaceCursor(0);
  FBof = true;
  const std::uint64_t Handle = LiveHandle();
  DataEvents({TDataEvent::UpdateState, TDataEvent::LayoutChange, TDataEvent::UpdateRecord, TDataEvent::DataSetChange});
  if (FromLiveHandle(Handle) != nullptr) RecordsTold();
}

void TDataSet::DoClose() {
  FState = TDataSetState::Inactive;
  FEdit.clear();
  FFields.clear();
  DropRecords();
  FGeneration = 0;
  FRow = -1;
  FBof = FEof = true;
  DataEvents({TDataEvent::UpdateState, TDataEvent::DataSetChange});
}

void TDataSet::Refresh() {
  CheckBrowseMode();
  const bool OtherLayout = TakeFields(TryRead());
  PlaceCursor(FRow);
  const std::uint64_t Handle = LiveHandle();
  if (OtherLayout) {
    DataEvents({TDataEvent::LayoutChange, TDataEvent::UpdateRecord, TDataEvent::DataSetChange});
  } else {
    DataEvents({TDataEvent::UpdateRecord, TDataEvent::DataSetChange});
  }
  if (FromLiveHandle(Handle) != nullptr) RecordsTold();
}

/// Whether the list of names is another one than before; the fields then are new objects.
bool TDataSet::TakeFields(const std::vector<TFieldDef>& Defs) {
  const auto SameName = [](const std::unique_ptr<TField>& Field, const TFieldDef& Def) {
    return Field->FieldName() == Def.Name;
  };
  if (!FFields.empty() && std::equal(FFields.begin(), FFields.end(), Defs.begin(), Defs.end(), SameName)) {
    for (std::size_t i = 0; i < Defs.size(); ++i) FFields[i]->FType = Defs[i].Type;
    return false;
  }
  FFields.clear();
  for (const TFieldDef& Def : Defs)
    FFields.push_back(std::make_unique<TField>(*this, static_cast<int>(FFields.size()), Def));
  return true;
}

TField* TDataSet::FindField(std::string_view FieldName) const {
  for (const auto& Field : FFields)
    if (Field->FieldName() == FieldName) return Field.get();
  for (const auto& Field : FFields)
    if (SameInAnyCase(Field->FieldName(), FieldName)) return Field.get();
  return nullptr;
}

TField& TDataSet::FieldByName(std::string_view FieldName) const {
  CheckActive();
  TField* const Field = FindField(FieldName);
  if (Field == nullptr) throw EDatabaseError(Format(LoadResString(_sDataSetNoField), {Title(), FieldName}));
  return *Field;
}

TFieldValue TDataSet::ReadValue(int Field) const {
  if (IsEditing()) {
    const TEdited& Edited = FEdit[static_cast<std::size_t>(Field)];
    if (Edited.Changed) {
      TFieldValue Result = Edited.Value;
      Result.Text = Edited.Text;
      return Result;
    }
    if (FState == TDataSetState::Insert) return {};
  }
  return FRow < 0 ? TFieldValue() : GetValue(FRow, Field);
}

// ---- The cursor ----

/// Sets the cursor after the records have changed.
void TDataSet::PlaceCursor(int Row) {
  const int Count = GetRecordCount();
  FRow = std::clamp(Row, Count == 0 ? -1 : 0, Count - 1);
  FBof = FEof = Count == 0;
}

void TDataSet::MoveTo(int Row, bool AtBof, bool AtEof) {
  const bool Moved = Row != FRow;
  const bool IsEmpty = RecordCount() == 0;
  FRow = Row;
  FBof = AtBof || IsEmpty;
  FEof = AtEof || IsEmpty;
  if (Moved) DataEvent(TDataEvent::DataSetScroll);
}

void TDataSet::First() {
  CheckBrowseMode();
  MoveTo(RecordCount() == 0 ? -1 : 0, true, false);
}

void TDataSet::Last() {
  CheckBrowseMode();
  MoveTo(RecordCount() - 1, false, true);
}

void TDataSet::Next() {
  CheckBrowseMode();
  const int LastRow = RecordCount() - 1;
  MoveTo(std::min(FRow + 1, LastRow), false, FRow >= LastRow);
}

void TDataSet::Prior() {
  CheckBrowseMode();
  MoveTo(FRow <= 0 ? FRow : FRow - 1, FRow <= 0, false);
}

TBookmark TDataSet::GetBookmark() const { return {FRow, FBof, FEof, FGeneration}; }

bool TDataSet::BookmarkValid(const TBookmark& Bookmark) const {
  return Active() && Bookmark && Bookmark.Generation == FGeneration && Bookmark.Row < RecordCount();
}

void TDataSet::GotoBookmark(const TBookmark& Bookmark) {
  CheckBrowseMode();
  if (!BookmarkValid(Bookmark)) Fail(_sDataSetBookmark);
  MoveTo(Bookmark.Row, Bookmark.Bof, Bookmark.Eof);
}

void TDataSet::Walk(const std::function<void()>& Visit) {
  CheckBrowseMode();
  const TBookmark Place = GetBookmark();
  const auto Return = [&] {
    if (BookmarkValid(Place)) {
      GotoBookmark(Place);
    } else if (Active()) {
      Last();
    }
    EnableControls();
  };
  DisableControls();
  try {
    for (First(); !Eof(); Next()) Visit();
  } catch (...) {
    Return();
    throw;
  }
  Return();
}

// ---- Events ----

void TDataSet::DataEvent(TDataEvent Event, TField* Info) {
  if (ControlsDisabled()) {
    FHeldBack |= Bit(Event);
  } else {
    FSources.ForEach([&](TDataSource& Source) { Source.DataEvent(Event, Info); });
  }
}

void TDataSet::DataEvents(std::span<const TDataEvent> Events) {
  const std::uint64_t Handle = LiveHandle();
  for (const TDataEvent Event : Events) {
    DataEvent(Event);
    if (FromLiveHandle(Handle) == nullptr) return;
  }
}

void TDataSet::DataEvents(std::initializer_list<TDataEvent> Events) {
  DataEvents(std::span(Events.begin(), Events.size()));
}

void TDataSet::EnableControls() {
  if (FDisabled == 0 || --FDisabled > 0) return;
  const unsigned Held = std::exchange(FHeldBack, 0U);
  const auto WasHeld = [Held](TDataEvent Event) { return (Held & Bit(Event)) != 0; };
  std::vector<TDataEvent> Events;
  for (const TDataEvent Event :
       {TDataEvent::UpdateState, TDataEvent::LayoutChange, TDataEvent::ConnectChange, TDataEvent::UpdateRecord})
    if (WasHeld(Event)) Events.push_back(Event);
  // Which field it was is not kept: the record has changed.
  if (WasHeld(TDataEvent::FieldChange) || WasHeld(TDataEvent::RecordChange)) Events.push_back(TDataEvent::RecordChange);
  Events.push_back(TDataEvent::DataSetChange);
  DataEvents(Events);
}

// ---- Changing records ----

bool TDataSet::StoreRecord(int, const std::vector<TEdited>&) { Fail(_sDataSetReadOnly); }

bool TDataSet::RemoveRecord(int) { Fail(_sDataSetReadOnly); }

void TDataSet::BeginEdit(TDataSetState Kind) {
  FEdit.assign(FFields.size(), {});
  FState = Kind;
  DataEvent(TDataEvent::UpdateState);
}

void TDataSet::Edit() {
  CheckCanModify();
  if (IsEditing()) return;
  if (FRow < 0) Fail(_sDataSetNoRecord);
  BeginEdit(TDataSetState::Edit);
}

void TDataSet::Append() {
  CheckCanModify();
  CheckBrowseMode();
  BeginEdit(TDataSetState::Insert);
}

void TDataSet::WriteValue(TField& Field, const TFieldValue& Value) {
  if (!IsEditing()) throw EDatabaseError(Format(LoadResString(_sDataSetNotEditing), {Field.FieldName(), Title()}));
  TEdited& Edited = FEdit[static_cast<std::size_t>(Field.Index())];
  Edited = {true, Value, std::string(Value.Text)};
  Edited.Value.Text = {};
  DataEvent(TDataEvent::FieldChange, &Field);
}

void TDataSet::EndEdit() {
  FEdit.clear();
  FState = TDataSetState::Browse;
}

void TDataSet::Post() {
  if (!IsEditing()) return;
  const bool IsNew = FState == TDataSetState::Insert;
  const bool AnyChange = std::any_of(FEdit.begin(), FEdit.end(), [](const TEdited& E) { return E.Changed; });
  if (!AnyChange && !IsNew) return Cancel();
  const bool Complete = StoreRecord(IsNew ? -1 : FRow, FEdit);
  EndEdit();
  if (IsNew && Complete) PlaceCursor(GetRecordCount() - 1);
  RecordsChanged(Complete);
}

void TDataSet::Cancel() {
  if (!IsEditing()) return;
  EndEdit();
  DataEvents({TDataEvent::UpdateState, TDataEvent::RecordChange});
}

void TDataSet::Delete() {
  CheckCanModify();
  if (FState == TDataSetState::Insert) return Cancel();
  if (FRow < 0) Fail(_sDataSetNoRecord);
  const bool Complete = RemoveRecord(FRow);
  EndEdit();
  FGeneration = NextGeneration();
  if (Complete) PlaceCursor(FRow);
  RecordsChanged(Complete);
}

/// Tells of a stored or deleted record; reads all anew when the records do not show it yet.
void TDataSet::RecordsChanged(bool Complete) {
  if (!Complete) Refresh();
  DataEvents({TDataEvent::UpdateState, TDataEvent::UpdateRecord, TDataEvent::DataSetChange});
}

}  // namespace zy
