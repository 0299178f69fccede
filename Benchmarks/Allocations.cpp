#include "Allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> Count = 0;

}  // namespace

long Allocations() { return Count; }

// The other forms of these operators end here by default.
void* operator new(std::size_t Size) {
  ++Count;
  if (void* const Memory = std::malloc(Size > 0 ? Size : 1)) return Memory;
  throw std::bad_alloc();
}
void operator delete(void* Memory) noexcept { std::free(Memory); }
void operator delete(void* Memory, std::size_t) noexcept { std::free(Memory); }
