#pragma once

#include <cstdio>
#include <vector>

#include "Cases.h"
#include "platform/framework/WideRegisters.h"

namespace zy::cases {

/// Runs a case and the same by another library in turns, and prints a row with the medians of some runs:
///
///     CASE OURS_MS OTHER_MS OTHER_BY_OURS DIFFERENCE
///
/// Difference compares the results afterwards.
template <class TOurs, class TOther, class TDifference>
void Compare(const char* Name, const TOurs& Ours, const TOther& Other, const TDifference& Difference) {
  constexpr int Runs = 7;
  std::vector<double> OfOurs, OfOther;
  for (int i = 0; i < Runs; ++i) {
    ClearWideRegisters();
    OfOurs.push_back(SecondsOf(Ours));
    ClearWideRegisters();
    OfOther.push_back(SecondsOf(Other));
  }
  const double Mine = MiddleOf(OfOurs), Theirs = MiddleOf(OfOther);
  std::printf("%-28s %8.1f %8.1f %6.2f %.2g\n", Name, Mine * 1e3, Theirs * 1e3, Theirs / Mine, Difference());
  std::fflush(stdout);
}

}  // namespace zy::cases
