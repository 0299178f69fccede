#include "platform/framework/TRegistryIniFile.h"

#include <algorithm>
#include <system_error>

#include "platform/framework/Application.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// The path of the settings file, in a folder that exists.
std::filesystem::path SettingsFile(const std::string& FileName) {
  const std::filesystem::path Relative(FileName + ".ini");
  const bool LeadsOut = Relative.has_root_path() || std::find(Relative.begin(), Relative.end(), "..") != Relative.end();
  std::filesystem::path Path = Application().ConfigFolder() / Relative;
  std::error_code Error;
  if (!FileName.empty() && !LeadsOut) {
    std::filesystem::create_directories(Path.parent_path(), Error);
    if (!Error) return Path;
  }
  throw EFileError(Format(LoadResString(_sCannotOpenFile), {Path.string()}));
}

}  // namespace

TRegistryIniFile::TRegistryIniFile(const std::string& FileName) : TIniFile(SettingsFile(FileName)) {}

}  // namespace zy
