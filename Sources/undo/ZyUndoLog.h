#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/framework/TReader.h"
#include "platform/framework/TStream.h"
#include "platform/framework/TWriter.h"

namespace zy {

/// What a record of an undo log holds. The number stands in the record.
enum class TZyUndoToken : std::int32_t {
  udProperty,       ///< one property's value
  udComponent,      ///< a whole component
  udFreeComponent,  ///< a reference to a component that undo frees
  udEditState,      ///< text and selection of an edit control
  udVectorState,    ///< the contents of a data vector
  udStartGroup,
  udStopGroup
};

/// One log of records in a stream; an undo stack has two of them.
///
/// Records form top-level entries, the steps that a user sees: a record outside any group is an entry, and so is all
/// from the start of an outermost group to its end. Indexes count from the oldest entry or record that is kept. The
/// records above CurrentRecord and the entries above CurrentEntry were replayed; they stay until the next record is
/// begun.
class TZyUndoLog {
 public:
  /// Opens the log over an empty stream. Root is what names count from.
  void Open(std::unique_ptr<TStream> Stream, TComponent* Root);
  bool IsOpen() const { return FStream != nullptr; }
  /// Gives up the stream.
  void Close();
  /// Forgets all records and closes every group.
  void Clear();

  int EntryCount() const { return static_cast<int>(FEntries.size()); }
  /// Index of the last live entry and record, -1 when there is none.
  int CurrentEntry() const { return FCurrentEntry; }
  int CurrentRecord() const { return FCurrentRecord; }
  /// Entries up to the last live one, those that were dropped for their age included.
  std::int64_t LiveEntries() const { return FFirstEntry + FCurrentEntry + 1; }
  int FirstRecord(int Entry) const { return static_cast<int>(FEntries[Index(Entry)] - FFirstRecord); }
  int LastRecord(int Entry) const;
  /// Label of an entry, read back from the log.
  std::string Comment(int Entry);
  /// Moves the live end of the log to the end of Entry; -1 empties it.
  void MoveTo(int Entry);

  int GroupLevel() const { return FGroupLevel; }
  void SetGroupLevel(int Value) { FGroupLevel = Value; }

  /// Drops what was replayed and begins a record with its label; outside any group it opens an entry.
  void Begin(std::string_view Comment);
  /// Makes the record part of the log.
  void Commit();
  /// Takes back the record that was begun, and the entry with it if it opened one.
  void Withdraw();
  /// Drops the oldest entry. The bytes go when at least as many are dead as alive, so that a push costs its own size.
  void CutOldest(TStream& Scratch);

  /// Positions the reader at the record's label.
  void Seek(int Record);
  TReader& Reader() { return *FReader; }
  TWriter& Writer() { return *FWriter; }
  TStream& Stream() { return *FStream; }

 private:
  static std::size_t Index(int Value) { return static_cast<std::size_t>(Value); }
  void DropReplayed();

  std::unique_ptr<TStream> FStream;
  std::unique_ptr<TReader> FReader;
  std::unique_ptr<TWriter> FWriter;
  // Places and record numbers count on over cuts; FStreamStart, FFirstRecord and FFirstEntry are those
  // of the oldest that is kept.
  std::deque<std::int64_t> FRecords;  // place of each record
  std::deque<std::int64_t> FEntries;  // number of the first record of each entry
  std::int64_t FFirstRecord = 0;
  std::int64_t FFirstEntry = 0;
  std::int64_t FStreamStart = 0;
  std::int64_t FEnd = 0;  // behind the last complete record
  int FCurrentRecord = -1;
  int FCurrentEntry = -1;
  int FGroupLevel = 0;
};

}  // namespace zy
