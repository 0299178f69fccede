#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace zy::testing {

/// What a program did: its exit code, and all that it printed.
struct TRun {
  int ExitCode;
  std::string Output;
};

/// Runs a program with arguments for the shell.
inline TRun RunProgram(const std::string& Program, const std::string& Arguments) {
  TRun Result;
  std::FILE* const Pipe = popen((Program + " " + Arguments + " 2>&1").c_str(), "r");
  for (int Character = std::fgetc(Pipe); Character != EOF; Character = std::fgetc(Pipe))
    Result.Output += static_cast<char>(Character);
  Result.ExitCode = WEXITSTATUS(pclose(Pipe));
  // What the toolkit says of a machine without a session is none of the program's words.
  if (Result.Output.starts_with("QStandardPaths:")) Result.Output.erase(0, Result.Output.find('\n') + 1);
  return Result;
}

}  // namespace zy::testing
