#pragma once

#include <cstdio>
#include <cstdlib>

namespace zy::testing {

/// Ends the program, so that the fuzzer keeps the input, when a property does not hold.
inline void Check(bool Holds, const char* Property) {
  if (Holds) return;
  std::fprintf(stderr, "Violated: %s\n", Property);
  std::abort();
}

}  // namespace zy::testing
