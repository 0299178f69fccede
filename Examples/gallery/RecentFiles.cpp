#include "gallery/RecentFiles.h"

#include <algorithm>
#include <string>

#include "platform/framework/TRegistryIniFile.h"
#include "texts/Exceptions.h"

namespace zy::examples {
namespace {

constexpr std::size_t Most = 8;
constexpr const char *Settings = "zyphos-gallery", *Section = "Recent";

std::string KeyOf(std::size_t Index) { return "File" + std::to_string(Index + 1); }

void Store(std::vector<std::filesystem::path> Files) {
  Files.resize(std::min(Files.size(), Most));
  try {
    TRegistryIniFile Ini(Settings);
    Ini.EraseSection(Section);
    for (std::size_t Index = 0; Index < Files.size(); ++Index)
      Ini.WriteString(Section, KeyOf(Index), Files[Index].string());
    Ini.UpdateFile();
  } catch (const Exception&) {
  }
}

}  // namespace

std::vector<std::filesystem::path> TRecentFiles::Files() {
  std::vector<std::filesystem::path> Result;
  try {
    const TRegistryIniFile Ini(Settings);
    for (std::size_t Index = 0; Index < Most; ++Index) {
      const std::string Name = Ini.ReadString(Section, KeyOf(Index), {});
      if (!Name.empty()) Result.emplace_back(Name);
    }
  } catch (const Exception&) {
  }
  return Result;
}

void TRecentFiles::Add(const std::filesystem::path& FileName) {
  std::vector<std::filesystem::path> All = Files();
  const std::filesystem::path Whole = std::filesystem::absolute(FileName);
  std::erase(All, Whole);
  All.insert(All.begin(), Whole);
  Store(std::move(All));
}

void TRecentFiles::Remove(const std::filesystem::path& FileName) {
  std::vector<std::filesystem::path> All = Files();
  std::erase(All, std::filesystem::absolute(FileName));
  Store(std::move(All));
}

}  // namespace zy::examples
