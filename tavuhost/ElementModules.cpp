#include "ElementModules.h"

#include <cstdio>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

bool ElementModules::Load(const std::string& path) {
#if defined(_WIN32)
    void* handle = reinterpret_cast<void*>(LoadLibraryA(path.c_str()));
    const char* why = "it could not be loaded";
#else
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    const char* why = handle ? "" : dlerror();
#endif
    if (!handle) {
        fprintf(stderr, "tavuhost: cannot load the module '%s': %s\n", path.c_str(), why);
        return false;
    }
    Handles.push_back(handle);
    return true;
}

void ElementModules::UnloadAll() {
    while (!Handles.empty()) {
#if defined(_WIN32)
        FreeLibrary(static_cast<HMODULE>(Handles.back()));
#else
        dlclose(Handles.back());
#endif
        Handles.pop_back();
    }
}
