#pragma once

#include <string>

#include "platform/framework/TIniFile.h"

namespace zy {

/// The store of a program's settings: a file in the user's own configuration folder.
class TRegistryIniFile : public TIniFile {
 public:
  /// Opens `<ConfigFolder>/<FileName>.ini`, where the application object names the folder; a FileName with folders in
  /// front lies below it. Folders that are missing are made. Throws EFileError when that fails or when FileName
  /// is empty or leads out of the folder, and what TIniFile throws.
  explicit TRegistryIniFile(const std::string& FileName);
};

}  // namespace zy
