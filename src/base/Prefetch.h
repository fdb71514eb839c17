// A hint that a line of memory is about to be read, so that the wait for it
// overlaps other work. It never changes what a program does.
#pragma once

inline void PrefetchLine(const void* address) {
#if defined(__GNUC__) || defined(__clang__)
    __builtin_prefetch(address);
#else
    (void)address;
#endif
}
