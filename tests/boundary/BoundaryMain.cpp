// The boundary test: loads the module at run time as a host does, enters it
// through F1, initialises it through the manager's table of functions, renders
// frames over elements that another module makes, shuts down and unloads.
#include "CUIManager.h"
#include "FakeHost.h"
#include "TAVUScreen.h"
#include "TavukitModule.h"

#include <cstdio>
#include <cstring>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace {
int g_Passed = 0;
int g_Failed = 0;

void Check(bool ok, const char* what) {
    printf("  %s %s\n", ok ? "ok  " : "FAIL", what);
    ++(ok ? g_Passed : g_Failed);
}

void* OpenPlugin(const char* path) {
#if defined(_WIN32)
    return LoadLibraryA(path);
#else
    return dlopen(path, RTLD_NOW | RTLD_LOCAL);
#endif
}

void* PluginSymbol(void* plugin, const char* name) {
#if defined(_WIN32)
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(plugin), name));
#else
    return dlsym(plugin, name);
#endif
}

void ClosePlugin(void* plugin) {
#if defined(_WIN32)
    FreeLibrary(static_cast<HMODULE>(plugin));
#else
    dlclose(plugin);
#endif
}

// The example module of a derived element type, with its interface file.
void* LoadExample(TavukitModule& module, FakeHost& host, const char* path, const char* file) {
    printf("Loading %s\n", path);
    void* example = OpenPlugin(path);
    Check(example != nullptr, "the example module loads");
    auto load = reinterpret_cast<bool (*)(CUIManager*, const char*, bool, void*)>(
        module.Find("_ZN10CUIManager16LoadInterfaceXMLEPKcbP8TAVUSkin"));
    host.InterfaceFiles["swatches.xml"] = file;
    host.ClearRecords();
    Check(load && load(module.GetManager(), "swatches.xml", false, nullptr),
          "an interface file uses the example's element type");
    Check(host.Console.empty() && host.Count("CompileAtom") == 2,
          "it loads without a message, with its two scripts");
    host.ClearRecords();
    module.Render();
    Check(host.Fills.size() == 15, "three swatches drawn, each a border and an inside");
    return example;
}

int Summary() {
    printf("%d passed, %d failed\n", g_Passed, g_Failed);
    return g_Failed == 0 ? 0 : 1;
}
} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        fprintf(stderr,
                "usage: tavuboundary MODULE ELEMENT-MODULE [EXAMPLE-MODULE EXAMPLE-FILE]\n");
        return 2;
    }
    printf("Loading %s\n", argv[1]);
    TavukitModule module;
    if (!module.Load(argv[1])) {
        Check(false, module.Error());
        return Summary();
    }
    Check(module.Find("F1") && module.Find("g_UIManager"), "exports F1 and g_UIManager");
    auto driveClock = reinterpret_cast<void (*)(unsigned)>(module.Find("TavuDriveClock"));
    auto advanceClock = reinterpret_cast<void (*)(unsigned)>(module.Find("TavuAdvanceClock"));
    Check(driveClock && advanceClock, "exports the clock controls");
    if (driveClock) driveClock(1000);

    FakeHost host;
    host.DisplayWidth = 1280;
    host.DisplayHeight = 720;
    CUIManager* manager = module.Enter(&host);
    Check(manager == module.GetManager(), "F1 gives g_UIManager");
    Check(host.Calls.size() == 1 && host.Calls[0].Name == "GetScriptInterface",
          "F1 asks for the script interface and nothing else");
    Check(manager->GetVersion() == 18, "GetVersion through the table of functions is 18");
    manager->Initialize();
    Check(host.Count("FindType") == 8 && host.Count("RegisterPersistentClass") == 1,
          "Initialize finds the eight host types and the persistent class");
    Check(manager->Screen != nullptr, "Initialize makes the screen");

    printf("Loading %s\n", argv[2]);
    void* plugin = OpenPlugin(argv[2]);
    Check(plugin != nullptr, "another module loads and registers its element type");
    if (!plugin) return Summary();
    auto buildTree = reinterpret_cast<int (*)()>(PluginSymbol(plugin, "BoundaryBuildTree"));
    auto renderCount = reinterpret_cast<int (*)()>(PluginSymbol(plugin, "BoundaryRenderCount"));
    Check(buildTree && buildTree() == 3, "elements made by code: a panel with two children");

    host.ClearRecords();
    for (int frame = 0; frame < 3; ++frame) {
        if (advanceClock) advanceClock(16);
        module.Render();
    }
    printf("Rendered 3 frames\n");
    Check(host.Count("GetDisplaySize") == 3, "every frame asks for the display size");
    Check(manager->Screen->Width == 1280 && manager->Screen->Height == 720,
          "the screen takes the display size");
    Check(manager->FrameTime == 1048, "frame time follows the driven clock");
    Check(renderCount && renderCount() == 6, "two visible boxes drawn in each frame");

    void* example = argc >= 5 ? LoadExample(module, host, argv[3], argv[4]) : nullptr;

    size_t elements = 0; // the screen too: every live element is invalidated for scripts
    for (auto& entry : manager->ElementsByID)
        if (entry.second) ++elements;
    manager->Shutdown();
    Check(manager->IsShutDown && manager->Screen == nullptr, "Shutdown deletes the tree");
    Check(host.Count("InvalidatePersistentObject") == elements,
          "script references to elements dropped");
    size_t calls = host.Calls.size();
    manager->Shutdown();
    Check(host.Calls.size() == calls, "a second Shutdown does nothing");

    if (example) ClosePlugin(example);
    ClosePlugin(plugin);
    module.Unload();
    Check(host.Calls.size() == calls, "unloading the module shuts down again, harmlessly");
    printf("Unloaded\n");
    return Summary();
}
