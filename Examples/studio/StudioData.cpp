#include "studio/StudioData.h"

#include <cmath>
#include <optional>

#include "common/CsvFile.h"
#include "platform/sql/TSqlDataSet.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy::examples {
namespace {

/// False for a column that has a field of another kind, or none.
template <class TRead>
bool Fill(TStudioColumn& Column, std::size_t Rows, const TRead& Read) {
  bool HasAny = false;
  for (std::size_t Row = 0; Row < Rows; ++Row) {
    const std::optional<double> Value = Read(Row);
    if (!Value.has_value()) return false;
    HasAny = HasAny || !std::isnan(*Value);
    Column.Values.push_back(*Value);
  }
  return HasAny;
}

std::vector<TStudioColumn> ReadCsv(const std::filesystem::path& FileName) {
  const TCsvFile File(FileName);
  std::vector<TStudioColumn> Result;
  for (std::size_t Index = 0; Index < File.ColumnCount(); ++Index) {
    for (const bool IsDate : {false, true}) {
      TStudioColumn Column{File.ColumnName(Index), {}, IsDate};
      const auto Read = [&](std::size_t Row) -> std::optional<double> {
        if (File.Text(Row, Index).empty()) return NAN;
        try {
          return IsDate ? File.Day(Row, Index) : TextToReal(File.Text(Row, Index));
        } catch (const std::exception&) {
          return std::nullopt;
        }
      };
      if (!Fill(Column, File.RowCount(), Read)) continue;
      Result.push_back(std::move(Column));
      break;
    }
  }
  return Result;
}

std::vector<TStudioColumn> ReadTable(TSqlDataSet& Data, const std::string& Table) {
  Data.SetTableName(Table);
  Data.Open();
  std::vector<TStudioColumn> Result;
  for (const auto& Field : Data.Fields()) {
    if (Field->DataType() == TFieldType::String) continue;
    TStudioColumn Column{Field->FieldName(), {}, Field->DataType() == TFieldType::DateTime};
    Data.Walk([&] { Column.Values.push_back(Field->IsNull() ? NAN : Field->AsFloat()); });
    Result.push_back(std::move(Column));
  }
  return Result;
}

}  // namespace

std::vector<TStudioColumn> LoadColumns(
    const std::filesystem::path& FileName,
    const std::function<std::string(const std::vector<std::string>& Tables)>& Choose) {
  std::vector<TStudioColumn> Result;
  if (FileName.extension() == ".csv") {
    Result = ReadCsv(FileName);
  } else {
    TSqlDataSet Data;
    Data.SetConnectionText(FileName.string());
    Data.SetQuery("select name from sqlite_master where type in ('table', 'view') order by name");
    std::vector<std::string> Tables;
    Data.Open();
    for (Data.First(); !Data.Eof(); Data.Next()) Tables.push_back(Data.Fields().front()->AsString());
    Data.Close();
    Data.SetQuery("");
    const std::string Table = Tables.size() == 1 ? Tables.front() : Choose(Tables);
    if (Table.empty()) throw EAbort("No table was chosen");
    Result = ReadTable(Data, Table);
  }
  if (Result.empty()) throw EReadError(FileName.string() + " has no column of numbers");
  return Result;
}

}  // namespace zy::examples
