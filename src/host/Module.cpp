#include "Module.h"

#include "CUIManager.h"
#include "StringHelpers.h"

#include <cstdio>
#include <cstring>

HostInterface* g_pHost = nullptr;
HostScriptInterface* g_pHostScript = nullptr;
HMODULE g_hModule = nullptr;
char g_ModuleFolder[TAVU_MODULE_PATH_BUFFER];
char g_LogPath[TAVU_MODULE_PATH_BUFFER];

RXTypeDefinition* g_pStringType = nullptr;
RXTypeDefinition* g_pIntType = nullptr;
RXTypeDefinition* g_pInt64Type = nullptr;
RXTypeDefinition* g_pBoolType = nullptr;
RXTypeDefinition* g_pFloatType = nullptr;
RXTypeDefinition* g_pPoint3fType = nullptr;
RXTypeDefinition* g_pFilePathType = nullptr;
RXTypeDefinition* g_pUIntType = nullptr;

namespace {
#if defined(_WIN32)
const char kPathSeparator = '\\';
const char kLogName[] = "\\Tavukit.log";
#else
const char kPathSeparator = '/';
const char kLogName[] = "/Tavukit.log";
#endif
} // namespace

extern "C" CUIManager* F1(HostInterface* host) {
    g_pHost = host;
    g_pHostScript = host ? host->GetScriptInterface() : nullptr;
    return &g_UIManager;
}

void TavuModuleFolderOf(const char* modulePath, char* folder, size_t size) {
    StrCopyBounded(folder, modulePath, size);
    char* separator = strrchr(folder, kPathSeparator);
    if (separator)
        *separator = 0;
    else
        StrCopyBounded(folder, ".", size);
}

int TavuModuleEntry(HMODULE module, DWORD reason) {
    g_hModule = module;
    if (reason == DLL_PROCESS_ATTACH) {
        char path[TAVU_MODULE_PATH_BUFFER] = {0};
        GetModuleFileNameA(module, path, sizeof(path));
        path[sizeof(path) - 1] = 0;
        TavuModuleFolderOf(path, g_ModuleFolder, sizeof(g_ModuleFolder));
        StrCopyBounded(g_LogPath, g_ModuleFolder, sizeof(g_LogPath));
        size_t used = strlen(g_LogPath);
        StrCopyBounded(g_LogPath + used, kLogName, sizeof(g_LogPath) - used);
    } else if (reason == DLL_PROCESS_DETACH) {
        g_UIManager.Shutdown();
    }
    return 1;
}
