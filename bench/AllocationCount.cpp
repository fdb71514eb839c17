#include "AllocationCount.h"

namespace {
bool g_Counting = false;
size_t g_Allocations = 0;
} // namespace

void AllocationCount::Start() {
    g_Allocations = 0;
    g_Counting = true;
}

size_t AllocationCount::Stop() {
    g_Counting = false;
    return g_Allocations;
}

// Every heap allocation of the program goes through these while counting is
// on: glibc lets a program replace malloc and its family, and operator new
// allocates through malloc. A sanitizer brings its own allocator: there the
// count is left out.
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
void __libc_free(void* block);
}

extern "C" void* malloc(size_t size) {
    if (g_Counting) ++g_Allocations;
    return __libc_malloc(size);
}
extern "C" void* calloc(size_t count, size_t size) {
    if (g_Counting) ++g_Allocations;
    return __libc_calloc(count, size);
}
extern "C" void* realloc(void* block, size_t size) {
    if (g_Counting) ++g_Allocations;
    return __libc_realloc(block, size);
}
extern "C" void free(void* block) {
    __libc_free(block);
}
#endif
