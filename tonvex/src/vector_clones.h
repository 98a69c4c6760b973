// Marks a function whose loops vectorise: on x86-64 with GCC it is compiled
// twice, for AVX2 (8 floats at a time) and for the baseline instruction set
// (SSE2, 4), and the loader picks the one the processor can run. Elsewhere
// it is compiled once, as usual.
#pragma once

#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__)
#define TONVEX_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define TONVEX_VECTOR_CLONES
#endif
