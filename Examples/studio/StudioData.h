#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace zy::examples {

/// A column of numbers; dates are day numbers of a date axis.
struct TStudioColumn {
  std::string Name;
  std::vector<double> Values;
  bool IsDate = false;
};

/// The columns of a file that hold numbers or dates. What is missing in a row is no number.
///
/// A file that ends in .csv has a line of names; any other is an SQLite database, of whose tables Choose returns one.
/// Throws what readers throw, EReadError without any such column, and EAbort when Choose returns an empty name.
std::vector<TStudioColumn> LoadColumns(
    const std::filesystem::path& FileName,
    const std::function<std::string(const std::vector<std::string>& Tables)>& Choose);

}  // namespace zy::examples
