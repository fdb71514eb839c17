// Counts the program's heap allocations while Counting is on, so that a
// benchmark can show that its loop allocates nothing. glibc lets a program
// replace malloc and its family, and operator new allocates through malloc.
// A sanitizer brings its own allocator: there nothing is counted, and
// TAVU_BENCH_COUNTS_ALLOCATIONS stays undefined.
#pragma once

#include <cstddef>
#include <cstdlib>

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
#define TAVU_BENCH_COUNTS_ALLOCATIONS 1
extern bool g_Counting;
extern size_t g_Allocations;
#endif
