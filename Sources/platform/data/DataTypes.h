#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zy {

/// What a data set tells its sources, and they their links.
enum class TDataEvent {
  FieldChange,    ///< a field of the record being edited got a value; the only event with a field as Info
  RecordChange,   ///< the edit was taken back: the current record shows its stored values again
  DataSetChange,  ///< the records or the place among them may be others: opened, appended, controls enabled again
  DataSetScroll,  ///< another record is the current one
  LayoutChange,   ///< the list of fields is another one; fields asked for earlier are gone
  UpdateRecord,   ///< values were stored or read anew: what was copied from the data set is out of date
  UpdateState,    ///< opened, closed, another state, or another data set or source
  ConnectChange   ///< reading failed; the data set has the reason in LastError
};

/// Kinds of values in a record.
enum class TFieldType : std::uint8_t { Unknown, String, Integer, Float, Boolean, Date, Time, DateTime, Blob };

/// Whether records can be read, and what is done to the current one.
enum class TDataSetState { Inactive, Browse, Edit, Insert };

/// A value as the data set holds it. Unknown stands for null.
struct TFieldValue {
  TFieldType Type = TFieldType::Unknown;
  std::int64_t Integer = 0;  ///< of Integer, and 0 or 1 of Boolean
  double Real = 0.0;         ///< of Float, and days since 30 December 1899 of Date, Time and DateTime
  std::string_view Text;     ///< of String and Blob; valid until the records change

  bool IsNull() const { return Type == TFieldType::Unknown; }
};

/// Name and kind of a field.
struct TFieldDef {
  std::string Name;
  TFieldType Type = TFieldType::Unknown;
};

/// A place among the records of a data set. It holds until the records are read anew, one is deleted, or the data set
/// is closed. A value: nobody has to free it.
struct TBookmark {
  int Row = -1;  ///< from 0; -1 when there was no record to mark
  bool Bof = false;
  bool Eof = false;
  std::uint64_t Generation = 0;  ///< of the records; no two readings of any data sets share one

  /// Whether there was a record to mark.
  explicit operator bool() const { return Row >= 0; }
};

}  // namespace zy
