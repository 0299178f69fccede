#pragma once

// One set of functions for all processors: where the compiler can choose at run time, it makes a second one for those
// that work on 32 bytes at once. A sanitizer's own code must not run before the choice is made.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__linux__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define ZY_WIDER_AS_WELL __attribute__((target_clones("avx2", "default")))
#else
#define ZY_WIDER_AS_WELL
#endif
