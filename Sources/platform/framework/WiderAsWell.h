#pragma once

// One set of functions for all processors: where the compiler can choose at run time, it makes a second one of what is
// marked, for those that work on 32 bytes at once, or for those that do on 64, with all that it calls. Which of them is
// quicker at all is to be measured: loops over bytes take three times as long with 32 as with 16. A sanitizer's own
// code must not run before the choice is made.
#if defined(__GNUC__) && __GNUC__ >= 12 && !defined(__clang__) && defined(__x86_64__) && defined(__linux__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define ZY_WIDER_AS_WELL __attribute__((target_clones("avx2", "default")))
#define ZY_WIDEST_AS_WELL __attribute__((target_clones("arch=x86-64-v4", "default"), flatten))
#else
#define ZY_WIDER_AS_WELL
#define ZY_WIDEST_AS_WELL
#endif
