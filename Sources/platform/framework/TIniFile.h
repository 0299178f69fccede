#pragma once

#include <filesystem>

#include "platform/framework/TMemIniFile.h"

namespace zy {

/// A key-value store kept in a file. It is read once, at construction, and written by UpdateFile.
class TIniFile : public TMemIniFile {
 public:
  /// Reads the file; one that does not exist counts as empty and is made by the first UpdateFile. Throws EFileError
  /// when the file cannot be opened, EIniFileError when it is malformed.
  explicit TIniFile(const std::filesystem::path& FileName);
  /// Saves pending changes. A failure is swallowed: who wants to know of it calls UpdateFile before.
  ~TIniFile() override;

  /// Writes the changes, if there are any. Throws EFileError, with the old file whole, when that fails.
  void UpdateFile() override;
  const std::filesystem::path& FileName() const { return FFileName; }

 private:
  void Save();

  std::filesystem::path FFileName;  // absolute: the current folder may change
};

}  // namespace zy
