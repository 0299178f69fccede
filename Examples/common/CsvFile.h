#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zy::examples {

/// A comma-separated file with a line of column names, and so many fields in each row. A field with commas stands in
/// quotes. Line ends may be LF or CR LF, and blank lines are skipped.
///
/// All errors are EReadErrors that name file, line and column (of characters, both counted from 1).
class TCsvFile {
 public:
  /// Reads the whole file. Throws EFileError when it cannot be opened, EReadError for a file without rows and for a row
  /// that has not one field for each column name.
  explicit TCsvFile(const std::filesystem::path& FileName);

  std::size_t RowCount() const { return FRows.size(); }
  std::size_t ColumnCount() const { return FHead.Fields.size(); }
  std::string ColumnName(std::size_t Column) const { return std::string(FHead.Fields[Column].Text); }
  /// Index of a column, counted from 0. Throws EReadError when no column has that name.
  std::size_t Column(std::string_view Name) const;
  /// The field as a real. Throws EReadError when it is none or not finite.
  double Real(std::size_t Row, std::size_t Column) const;
  /// The field as it stands.
  std::string Text(std::size_t Row, std::size_t Column) const { return std::string(FRows[Row].Fields[Column].Text); }
  /// The field, a date as in 2000-01-31 or 2000-01-31T18:00:00, as a day number of a date axis. Throws EReadError when
  /// it is none.
  double Day(std::size_t Row, std::size_t Column) const;
  /// The field, a date as in 2000-01-31, in years: 2000.5 is the middle of the year 2000. Throws EReadError when it is
  /// no date.
  double Year(std::size_t Row, std::size_t Column) const;

 private:
  struct TField {
    std::string_view Text;
    std::size_t Column;  // of its first character
  };
  struct TRow {
    std::size_t Line;
    std::vector<TField> Fields;
  };

  TRow Split(std::string_view Line, std::size_t Number) const;
  [[noreturn]] void Fail(std::size_t Line, std::size_t Column, const std::string& Reason) const;
  [[noreturn]] void FailAt(std::size_t Row, std::size_t Column, std::string_view Wanted) const;

  std::string FFileName;
  std::string FText;
  TRow FHead;
  std::vector<TRow> FRows;
};

}  // namespace zy::examples
