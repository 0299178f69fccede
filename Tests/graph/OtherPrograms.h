#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

#include "framework/Bytes.h"

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

/// A new folder that gives names as texts.
class TScratchFolder : public TTemporaryFolder {
 public:
  std::string operator/(const std::string& Name) const { return (Path() / Name).string(); }
  bool IsEmptyBut(std::ptrdiff_t Files) const {
    return std::distance(std::filesystem::directory_iterator(Path()), {}) == Files;
  }
};

#define ZY_NEED_PROGRAM(Name) \
  if (!::zy::testing::HasProgram(Name)) GTEST_SKIP() << "not checked: " Name " is not installed"

}  // namespace zy::testing
