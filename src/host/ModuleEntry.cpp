// The entry routine of the shared module. On Windows the loader calls DllMain;
// elsewhere a constructor and destructor pair does the same work at load and
// unload, so that both platforms behave alike.
#include "Module.h"

#if defined(_WIN32)

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    return TavuModuleEntry(instance, reason);
}

#else
#include <dlfcn.h>

namespace {
// The module's base address, which is what a module handle is on Windows.
HMODULE OwnModuleHandle() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&OwnModuleHandle), &info)) return info.dli_fbase;
    return nullptr;
}
} // namespace

__attribute__((constructor)) static void TavukitModuleAttach() {
    TavuModuleEntry(OwnModuleHandle(), DLL_PROCESS_ATTACH);
}

// Runs before the module's global objects are destroyed, so the manager is still whole.
__attribute__((destructor)) static void TavukitModuleDetach() {
    TavuModuleEntry(OwnModuleHandle(), DLL_PROCESS_DETACH);
}
#endif
