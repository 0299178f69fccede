#pragma once

#include "analysis/ZyParseFktLists.h"

namespace zy {

/// Fills a list with the 28 functions of the library. Where a function has no value, such as the logarithm of a
/// negative number, it gives not-a-number, and where the value is beyond all reals an infinity; those that go through
/// an integer (Ceil, Floor of 32 bits, Round of 64) give not-a-number for what does not fit into it.
void AddLibraryFunctions(TZyFunctionsList& List);

/// A uniform random number, 0 <= X < 1, from the generator of the process.
double RandomReal();
/// Seeds that generator from the clock. Two calls within one tick of the clock seed it differently.
void SeedRandomReal();

/// The value rounded to the nearest integer, ties to even. False when it does not fit.
bool RoundToIndex(double Value, std::int32_t& Index);

}  // namespace zy
