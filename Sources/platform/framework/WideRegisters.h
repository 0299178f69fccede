#pragma once

#if defined(__GNUC__) && defined(__x86_64__)
#include <immintrin.h>
#endif

namespace zy {

#if defined(__GNUC__) && defined(__x86_64__)
namespace detail {
__attribute__((target("avx"), noinline)) inline void ZeroUpperHalves() { _mm256_zeroupper(); }
}  // namespace detail
#endif

/// Frees the vector registers of what wide code left in their upper halves. While something is left, each step from
/// plain code to the mathematical library's and back costs some processors dozens of cycles: a logarithm then takes
/// thirty times as long. Code of the toolkit that fills pictures leaves it there (seen with Qt 6.4), so what computes
/// many values in the middle of a paint calls this first. Costs a cycle or two.
inline void ClearWideRegisters() {
#if defined(__GNUC__) && defined(__x86_64__)
  static const bool HasThem = __builtin_cpu_supports("avx") != 0;
  if (HasThem) detail::ZeroUpperHalves();
#endif
}

}  // namespace zy
