// The tick clock: the real monotonic milliseconds, or a tick that a test or a
// deterministic host drives. One thread only, as everything in the toolkit.
#include "Platform.h"

#if !defined(_WIN32)
#include <time.h>
#endif

namespace {
bool g_ClockDriven = false;
DWORD g_DrivenTick = 0;

DWORD RealTickCount() {
#if defined(_WIN32)
    return ::GetTickCount64() & 0xFFFFFFFFu;
#else
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    uint64_t ms = uint64_t(now.tv_sec) * 1000u + uint64_t(now.tv_nsec) / 1000000u;
    return DWORD(ms);
#endif
}
} // namespace

extern "C" {

#if defined(_WIN32)
DWORD WINAPI TavuGetTickCount() {
    return g_ClockDriven ? g_DrivenTick : RealTickCount();
}
#else
DWORD GetTickCount() {
    return g_ClockDriven ? g_DrivenTick : RealTickCount();
}
#endif

void TavuDriveClock(DWORD tick) {
    g_ClockDriven = true;
    g_DrivenTick = tick;
}

void TavuAdvanceClock(DWORD milliseconds) {
    if (g_ClockDriven) g_DrivenTick += milliseconds;
}

void TavuReleaseClock() {
    g_ClockDriven = false;
}
}
