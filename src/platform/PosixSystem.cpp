// Critical sections, debug output and module file names where there is no KERNEL32.
#include "Platform.h"

#if !defined(_WIN32)
#include <dlfcn.h>
#include <mutex>
#include <new>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

static_assert(sizeof(std::recursive_mutex) <= sizeof(CRITICAL_SECTION::Storage),
              "a critical section must hold a recursive mutex");
static_assert(alignof(std::recursive_mutex) <= 16, "critical section storage alignment");

static std::recursive_mutex* MutexOf(LPCRITICAL_SECTION section) {
    return std::launder(reinterpret_cast<std::recursive_mutex*>(section->Storage));
}

extern "C" {

void InitializeCriticalSection(LPCRITICAL_SECTION section) {
    new (section->Storage) std::recursive_mutex();
}
void EnterCriticalSection(LPCRITICAL_SECTION section) {
    MutexOf(section)->lock();
}
void LeaveCriticalSection(LPCRITICAL_SECTION section) {
    MutexOf(section)->unlock();
}
void DeleteCriticalSection(LPCRITICAL_SECTION section) {
    MutexOf(section)->~recursive_mutex();
}

void OutputDebugStringA(LPCSTR text) {
    if (!text) return;
    fputs(text, stderr);
    fflush(stderr);
}

DWORD GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size) {
    if (!buffer || size == 0) return 0;
    char path[4096] = {0};
    if (!module) {
        ssize_t n = readlink("/proc/self/exe", path, sizeof(path) - 1);
        if (n < 0) n = 0;
        path[n] = 0;
    } else {
        Dl_info info{};
        if (!dladdr(module, &info) || !info.dli_fname) {
            buffer[0] = 0;
            return 0;
        }
        strncpy(path, info.dli_fname, sizeof(path) - 1);
    }
    size_t length = strlen(path);
    if (length >= size) {
        memcpy(buffer, path, size - 1);
        buffer[size - 1] = 0;
        return size;
    }
    memcpy(buffer, path, length + 1);
    return DWORD(length);
}
}
#endif
