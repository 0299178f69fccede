#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/data/DataTypes.h"

namespace zy {

class TDataSet;

/// A column of a data set: reads and writes its value in the current record.
///
/// Belongs to the data set and lives until that is closed or its list of fields changes; ask for it anew after such an
/// event. Null, and any value where there is no current record, reads as 0 and as an empty text.
class TField {
 public:
  TField(TDataSet& DataSet, int Index, const TFieldDef& Def);

  const std::string& FieldName() const { return FName; }
  /// Kind of the column's values as the database declares it; single values may be of other kinds where the database
  /// lets them.
  TFieldType DataType() const { return FType; }
  /// Place among the fields, from 0.
  int Index() const { return FIndex; }
  TDataSet& DataSet() const { return FDataSet; }

  bool IsNull() const { return Value().IsNull(); }
  /// Number: of a text with a decimal point; a date and time, also as an ISO text, counts as days since 30 December
  /// 1899. Throws EDatabaseError for any other text.
  double AsFloat() const;
  /// Whole number; reals are rounded. Throws EDatabaseError as AsFloat does, and beyond 64 bits.
  std::int64_t AsInteger() const;
  /// Text for showing: numbers with up to 15 digits in the user's decimal separator, dates and times in ISO form.
  std::string AsString() const;
  /// Days since 30 December 1899; the time is the part behind the point. Throws EDatabaseError for a text that is no
  /// date.
  double AsDateTime() const { return AsFloat(); }
  /// The value as it is held.
  TFieldValue Value() const;

  /// The writers want a data set in state Edit or Insert, else they throw EDatabaseError. The record is stored by Post.
  void SetAsFloat(double Value);
  void SetAsInteger(std::int64_t Value);
  void SetAsString(std::string_view Value);
  /// Days since 30 December 1899, written to the millisecond.
  void SetAsDateTime(double Value);
  /// Sets the value to null.
  void Clear();

 private:
  friend class TDataSet;
  [[noreturn]] void NoNumber(std::string_view Text) const;

  TDataSet& FDataSet;
  std::string FName;
  TFieldType FType;
  int FIndex;
};

}  // namespace zy
