#pragma once

#include <cstdint>
#include <string>

namespace zy {

/// A data set whose records may be an excerpt of more: good for a picture, and for nothing that is computed of all.
class IDataExcerpt {
 public:
  virtual ~IDataExcerpt() = default;
  /// Whether some rows are left out of the records.
  virtual bool IsExcerpt() const = 0;
  /// How many rows there are in truth, and of which table.
  virtual std::int64_t RowCount() const = 0;
  virtual const std::string& RowSource() const = 0;
};

}  // namespace zy
