// An example host: loads the toolkit, loads an interface file, draws one
// frame, clicks once and draws again, printing what the toolkit asks it to draw.
//
//     examplehost MODULE INTERFACE.xml [ELEMENT_MODULE ...] [--click X,Y]
//
// MODULE is Tavukit.dll or libtavukit.so. Each ELEMENT_MODULE is a module of
// element types of its own (such as the colorswatch example), loaded after the
// toolkit and before the interface that uses its types.
#include "CUIManager.h"
#include "MinimalHost.h"
#include "TavukitModule.h"

#include <cstdio>
#include <cstring>
#include <vector>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace {

bool LoadElementModule(const char* path) {
#if defined(_WIN32)
    bool loaded = LoadLibraryA(path) != nullptr;
#else
    bool loaded = dlopen(path, RTLD_NOW | RTLD_GLOBAL) != nullptr;
#endif
    if (!loaded) fprintf(stderr, "examplehost: cannot load element module '%s'\n", path);
    return loaded;
}

void Frame(TavukitModule& module, int number) {
    printf("-- frame %d\n", number);
    module.Render();
}

void Click(TavukitModule& module, _Point2i point) {
    printf("-- click at %d,%d\n", point.x, point.y);
    module.OnMouseMove(point);
    module.OnLMouseDown();
    module.OnLMouseUp();
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 3) {
        fprintf(stderr, "usage: examplehost MODULE INTERFACE.xml [ELEMENT_MODULE ...] "
                        "[--click X,Y]\n");
        return 2;
    }
    _Point2i click{-1, -1};
    std::vector<const char*> elementModules;
    for (int i = 3; i < argc; ++i) {
        if (strcmp(argv[i], "--click") == 0 && i + 1 < argc)
            sscanf(argv[++i], "%d,%d", &click.x, &click.y);
        else
            elementModules.push_back(argv[i]);
    }

    // 1. Load the module and hand it the host; F1 answers the manager.
    TavukitModule module;
    if (!module.Load(argv[1])) {
        fprintf(stderr, "examplehost: %s\n", module.Error());
        return 1;
    }
    MinimalHost host(640, 480);
    CUIManager* manager = module.Enter(&host);
    if (!manager) return 1;
    // 2. Initialise: the toolkit registers its commands and script types.
    manager->Initialize();
    printf("Tavukit %08X\n", manager->GetVersion());
    // 3. Element modules register their types with the running toolkit.
    for (const char* path : elementModules)
        if (!LoadElementModule(path)) return 1;
    // 4. Interface files, then frames and input, for as long as the host runs.
    int status = module.LoadInterfaceXML(argv[2]) ? 0 : 1;
    Frame(module, 1);
    if (click.x >= 0) {
        Click(module, click);
        Frame(module, 2);
    }
    // 5. Shut down before the module goes.
    manager->Shutdown();
    return status;
}
