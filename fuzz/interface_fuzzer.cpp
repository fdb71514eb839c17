// Whole interface files, loaded through the manager with the recording fake
// host: the input is the file. Its event scripts run the "UI" and "UIElement"
// lines they hold; then a seeded monkey (seeded from the input, so a finding
// repeats) renders frames and sends mouse, wheel and key events, with
// teardown commands between them: reload, unload, load, reset, kill. After
// the run the tree must hang together; the sanitizers watch the rest.
#include "CUIManager.h"
#include "FakeHost.h"
#include "InputMonkey.h"
#include "Module.h"
#include "Platform.h"
#include "TAVUElement.h"
#include "TAVUScreen.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <unistd.h>

namespace {

std::string FilePath() {
    return "/tmp/tavu_interface_fuzzer_" + std::to_string(getpid()) + ".xml";
}

[[noreturn]] void Fail(const char* what, const TAVUElement* element) {
    fprintf(stderr, "fuzz check failed: %s at %s\n", what, element->FullName);
    abort();
}

// Every child names its parent and its neighbour below, and is known by its ID.
void CheckTree(const TAVUElement* parent, int depth) {
    if (depth > 10000) Fail("tree too deep", parent);
    const TAVUElement* previous = nullptr;
    for (const TAVUElement* child = parent->FirstChild; child; child = child->Next) {
        if (child->Parent != parent) Fail("parent link", child);
        if (child->Previous != previous) Fail("previous link", child);
        if (g_UIManager.ElementsByID[child->ID] != child) Fail("ID entry", child);
        CheckTree(child, depth + 1);
        previous = child;
    }
    if (parent->LastChild != previous) Fail("last child", parent);
}

// The manager as it is right after the module loaded: the factories that
// registered themselves then stay.
void FreshManager() {
    auto factories = g_UIManager.Factories;
    g_UIManager.CUIManager::~CUIManager();
    g_pHost = nullptr;
    g_pHostScript = nullptr;
    new (&g_UIManager) CUIManager();
    for (auto& entry : factories)
        if (entry.second) g_UIManager.Factories.insert(entry);
}

uint64_t SeedOf(const uint8_t* data, size_t size) {
    uint64_t hash = 1469598103934665603ULL; // FNV-1a
    for (size_t i = 0; i < size; ++i)
        hash = (hash ^ data[i]) * 1099511628211ULL;
    return hash;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::string path = FilePath();
    FILE* file = fopen(path.c_str(), "wb");
    if (!file) return 0;
    fwrite(data, 1, size, file);
    fclose(file);

    TavuDriveClock(100000);
    {
        FakeHost host;
        host.InterfaceFiles["fuzz.xml"] = path;
        host.RunsAtomCommands = true;
        host.CommandBudget = 300;
        F1(&host);
        g_UIManager.Initialize();
        g_UIManager.LoadInterfaceXML("fuzz.xml", false, nullptr);
        InputMonkey monkey(host, SeedOf(data, size));
        monkey.Commands = {"UI -reload fuzz.xml",
                           "UI -unload fuzz.xml",
                           "UI -load fuzz.xml",
                           "UI -reset",
                           "UI -load -parent {element} fuzz.xml",
                           "UI -reload -parent {element} fuzz.xml",
                           "UIElement -kill {element}",
                           "UIElement -toggle {element}"};
        monkey.Run(60);
        if (g_UIManager.Screen) CheckTree(g_UIManager.Screen, 0);
        g_UIManager.Shutdown();
        FreshManager();
    }
    TavuReleaseClock();
    return 0;
}
