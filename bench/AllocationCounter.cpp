#include "AllocationCounter.h"

#if TAVU_BENCH_COUNTS_ALLOCATIONS
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
void __libc_free(void* block);
}

bool g_Counting = false;
size_t g_Allocations = 0;

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
