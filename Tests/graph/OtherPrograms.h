#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace zy::testing {

/// Whether a program that is not part of the tree is installed.
inline bool HasProgram(const std::string& Name) {
  return std::system(("command -v " + Name + " >/dev/null 2>&1").c_str()) == 0;
}

/// What a command prints, its errors included.
inline std::string OutputOf(const std::string& Command) {
  std::string Result;
  std::FILE* const Pipe = popen((Command + " 2>&1").c_str(), "r");
  for (int Character = std::fgetc(Pipe); Character != EOF; Character = std::fgetc(Pipe))
    Result += static_cast<char>(Character);
  pclose(Pipe);
  return Result;
}

/// A folder that is gone with this.
class TScratchFolder {
 public:
  TScratchFolder() {
    std::string Template = (std::filesystem::temp_directory_path() / "zyphos_XXXXXX").string();
    FPath = mkdtemp(Template.data());
  }
  ~TScratchFolder() { std::filesystem::remove_all(FPath); }
  std::string operator/(const std::string& Name) const { return (FPath / Name).string(); }
  bool IsEmptyBut(std::size_t Files) const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(FPath), {})) == Files;
  }

 private:
  std::filesystem::path FPath;
};

#define ZY_NEED_PROGRAM(Name) \
  if (!::zy::testing::HasProgram(Name)) GTEST_SKIP() << "not checked: " Name " is not installed"

}  // namespace zy::testing
