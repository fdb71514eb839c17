// The entry routine of the shared module. On Windows the loader calls DllMain;
// elsewhere a static object does the same work at load and
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

// Load and unload of the module, as a static object: it is made after the
// manager and so destroyed before it, whether the module is unloaded or the
// process ends with the module still loaded.
struct ModuleLifetime {
    ModuleLifetime() { TavuModuleEntry(OwnModuleHandle(), DLL_PROCESS_ATTACH); }
    ~ModuleLifetime() { TavuModuleEntry(OwnModuleHandle(), DLL_PROCESS_DETACH); }
} g_ModuleLifetime;
} // namespace
#endif
