// Counts the program's heap allocations between Start and Stop, so that a
// benchmark can tell that a running frame allocates nothing. Only where the
// count is possible (glibc, no sanitizer): Counted says so.
#pragma once

#include <cstddef>

namespace AllocationCount {
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
constexpr bool Counted = true;
#else
constexpr bool Counted = false;
#endif
void Start();
// The allocations since Start.
size_t Stop();
} // namespace AllocationCount
