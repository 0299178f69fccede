#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/DataTypes.h"
#include "platform/data/TField.h"
#include "platform/data/TListeners.h"
#include "platform/framework/TComponent.h"

namespace zy {

class TDataSource;
enum TZyText : std::uint16_t;

/// Records with named fields and a cursor on one of them. Base of everything that data sources read from; a descendant
/// brings the records.
///
/// Records are numbered from 0 and may be visited in any order. Names of fields are found in any case, an exact match
/// first. For the control thread only.
class TDataSet : public TComponent {
  ZY_CLASS(TDataSet, TComponent)
  explicit TDataSet(TComponent* Owner = nullptr);
  ~TDataSet() override;

  /// Opening reads the records; throws EDatabaseError and stays closed when that fails. While a form is read, opening
  /// waits for its end, and a failure then is told to the links only.
  bool Active() const { return FState != TDataSetState::Inactive; }
  void SetActive(bool Value);
  void Open() { SetActive(true); }
  /// An edit that was not posted is dropped.
  void Close() { SetActive(false); }
  /// Reads the records anew. The cursor keeps its number. Throws EDatabaseError when that fails; the records are then
  /// those of before the call.
  void Refresh();
  /// Why the last attempt to read failed, empty when it did not.
  const std::string& LastError() const { return FLastError; }
  TDataSetState State() const { return FState; }
  bool IsEditing() const { return FState == TDataSetState::Edit || FState == TDataSetState::Insert; }

  /// Fields in the order of the columns; none while inactive.
  const std::vector<std::unique_ptr<TField>>& Fields() const { return FFields; }
  /// Null when there is none, and while inactive.
  TField* FindField(std::string_view FieldName) const;
  /// Throws EDatabaseError when there is none, and while inactive.
  TField& FieldByName(std::string_view FieldName) const;

  /// Number of records; 0 while inactive.
  int RecordCount() const { return Active() ? GetRecordCount() : 0; }
  /// The cursor's record, from 0; -1 when there is none.
  int RecNo() const { return FRow; }
  /// Whether First, or a Prior in front of the first record, came last; and always in an empty data set.
  bool Bof() const { return FBof; }
  /// Whether Last, or a Next behind the last record, came last; and always in an empty data set.
  bool Eof() const { return FEof; }
  /// Moves of the cursor; an edit under way is posted. They throw EDatabaseError while inactive.
  void First();
  void Last();
  void Next();
  void Prior();

  /// The cursor's place; false when there is no record.
  TBookmark GetBookmark() const;
  bool BookmarkValid(const TBookmark& Bookmark) const;
  /// Back to the place, with Bof and Eof as they were. Throws EDatabaseError when it is none of these records.
  void GotoBookmark(const TBookmark& Bookmark);
  /// Calls Visit for each record from first to last with the cursor on it, controls disabled, and puts the cursor back,
  /// also when Visit throws. Throws EDatabaseError while inactive.
  void Walk(const std::function<void()>& Visit);
  /// Whether a walk would disturb nobody: active, nothing being edited, controls enabled.
  bool CanWalk() const { return FState == TDataSetState::Browse && !ControlsDisabled(); }

  /// While controls are disabled nothing is told to the sources. Calls nest; the last EnableControls tells what was
  /// held back, and a DataSetChange in any case.
  void DisableControls() { ++FDisabled; }
  void EnableControls();
  bool ControlsDisabled() const { return FDisabled > 0; }

  /// Whether records can be changed here at all.
  bool CanModify() const { return Active() && GetCanModify(); }
  /// Begins to change the current record. Nothing when an edit is under way already. Throws EDatabaseError when there
  /// is no record or the data set cannot be changed.
  void Edit();
  /// Begins a new record behind the last one. An edit under way is posted. Throws as Edit does.
  void Append();
  /// Stores what was edited. Nothing in other states. Throws EDatabaseError when that fails; the edit goes on then.
  void Post();
  /// Drops what was edited.
  void Cancel();
  /// Deletes the current record, or drops the new one. Throws as Edit does.
  void Delete();

  void Loaded() override;

 protected:
  /// A value written to a field that waits for Post; without Changed the field keeps its value.
  struct TEdited {
    bool Changed = false;
    TFieldValue Value;
    std::string Text;
  };

  /// Reads all records anew and gives the fields. When it throws, the records are those of before the call.
  virtual std::vector<TFieldDef> ReadRecords() = 0;
  /// Gives up the records.
  virtual void DropRecords() = 0;
  /// Runs last of opening and refreshing, when everybody has been told of the records. It may free the data set.
  virtual void RecordsTold() {}
  virtual int GetRecordCount() const = 0;
  /// The value of a field in a record that exists.
  virtual TFieldValue GetValue(int Row, int Field) const = 0;
  virtual bool GetCanModify() const { return false; }
  /// Stores one value for each field into the record, or as a new last one with Row -1. False when the records have to
  /// be read anew to show it.
  virtual bool StoreRecord(int Row, const std::vector<TEdited>& Values);
  /// Removes the record. False as StoreRecord.
  virtual bool RemoveRecord(int Row);

  /// Tells the sources, or keeps it for EnableControls.
  void DataEvent(TDataEvent Event, TField* Info = nullptr);
  /// One event after the other, as long as this data set lives: whoever hears of one may delete it.
  void DataEvents(std::span<const TDataEvent> Events);
  void DataEvents(std::initializer_list<TDataEvent> Events);
  /// The data set in messages: its name, else its class.
  std::string Title() const;

 private:
  friend class TField;
  friend class TDataSource;
  TFieldValue ReadValue(int Field) const;
  void WriteValue(TField& Field, const TFieldValue& Value);

  std::vector<TFieldDef> TryRead();
  void DoOpen();
  void DoClose();
  bool TakeFields(const std::vector<TFieldDef>& Defs);
  void MoveTo(int Row, bool AtBof, bool AtEof);
  void PlaceCursor(int Row);
  void BeginEdit(TDataSetState Kind);
  void EndEdit();
  void RecordsChanged(bool Complete);
  void CheckActive() const;
  void CheckBrowseMode();
  void CheckCanModify() const;
  [[noreturn]] void Fail(TZyText Text) const;

  TListeners<TDataSource> FSources;
  std::vector<std::unique_ptr<TField>> FFields;
  std::vector<TEdited> FEdit;
  std::string FLastError;
  std::uint64_t FGeneration = 0;
  TDataSetState FState = TDataSetState::Inactive;
  int FRow = -1;
  int FDisabled = 0;
  unsigned FHeldBack = 0;  // one bit for each event
  bool FBof = true;
  bool FEof = true;
  bool FOpenWhenLoaded = false;
};

}  // namespace zy
