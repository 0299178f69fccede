#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/data/DataTypes.h"

class QSqlQuery;
class QVariant;

namespace zy {

/// The records of a result, column by column: nine bytes a value, and the bytes of its text.
class TSqlRecords {
 public:
  explicit TSqlRecords(int Columns = 0) : FColumns(static_cast<std::size_t>(Columns)) {}

  int Count() const { return FCount; }
  int Columns() const { return static_cast<int>(FColumns.size()); }
  /// The value at Row and Column, both from 0 and within Count and Columns.
  TFieldValue Value(int Row, int Column) const;

  /// The query stands on a record with as many columns as there are here.
  void AppendRow(const QSqlQuery& Query);
  /// Puts the last row of Source, with as many columns, in the place of Row, or behind the last one for Row -1.
  void TakeRow(int Row, const TSqlRecords& Source);
  void EraseRow(int Row);

 private:
  struct TColumn {
    std::vector<TFieldType> Types;
    std::vector<std::uint64_t> Bits;  // the number, or the place of the text in Texts
    std::string Texts;                // each with its length in front
  };
  static std::uint64_t Encode(TColumn& Column, const QVariant& Value, TFieldType& Type);

  std::vector<TColumn> FColumns;
  int FCount = 0;
};

/// The kind of values that a driver declares by its own type number.
TFieldType FieldTypeOf(int MetaType);

}  // namespace zy
