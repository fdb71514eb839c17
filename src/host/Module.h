// The module's entry and what the toolkit keeps global about its host.
#pragma once

#include "HostInterface.h"
#include "HostScriptInterface.h"
#include "Platform.h"
#include "TavuExport.h"

class CUIManager;
class RXTypeDefinition;

enum : size_t { TAVU_MODULE_PATH_BUFFER = 512 };

// The host object and its script interface, written once by F1.
extern HostInterface* g_pHost;
extern HostScriptInterface* g_pHostScript;

// The module handle (its base address), written on every call of the entry routine.
extern HMODULE g_hModule;
// The folder the module was loaded from, and the log path computed from it.
extern char g_ModuleFolder[TAVU_MODULE_PATH_BUFFER];
extern char g_LogPath[TAVU_MODULE_PATH_BUFFER];

// The host's own script types, found by CUIManager::Initialize.
extern RXTypeDefinition* g_pStringType;
extern RXTypeDefinition* g_pIntType;
extern RXTypeDefinition* g_pInt64Type;
extern RXTypeDefinition* g_pBoolType;
extern RXTypeDefinition* g_pFloatType;
extern RXTypeDefinition* g_pPoint3fType;
extern RXTypeDefinition* g_pFilePathType;
extern RXTypeDefinition* g_pUIntType;

// The module's one entry: keeps the host and gives the manager back. It does
// nothing else; the host then calls Initialize through the manager's table.
extern "C" TAVU_API CUIManager* F1(HostInterface* host);

// The work of the DLL entry routine, for every platform: attach (1) records the
// module folder and log path, detach (0) shuts the manager down. Answers 1.
int TavuModuleEntry(HMODULE module, DWORD reason);

// Splits a module path into its folder: everything before the last separator,
// or "." when there is none. The separator is '\\' on Windows and '/' elsewhere.
void TavuModuleFolderOf(const char* modulePath, char* folder, size_t size);
