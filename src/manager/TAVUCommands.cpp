#include "TAVUCommands.h"

#include "CUIManager.h"
#include "Module.h"
#include "StringHelpers.h"
#include "TAVUElement.h"
#include "TAVUScreen.h"

namespace {
const char kUISyntax[] = "Syntax: %s -reset|-[re]load [-parent <FQN>] [-skin <name>] <filename> "
                         "[<element name> [new name]]|-unload <filename>";
const char kLoadUsage[] =
    "Usage: %s -load [-parent <FQN>] [-skin <name>] <filename> [<element name> [new name]]";
const char kReloadUsage[] =
    "Usage: %s -reload [-parent <FQN>] [-skin <name>] <filename> [<element name> [new name]]";
const char kUIElementSyntax[] =
    "Syntax: %s -list|-hide <name>|-show <name>|-toggle <name>|-kill <name>";

bool Is(const char* word, const char* option) {
    return StrCompareNoCase(word, option) == 0;
}

int LoadCommand(int argc, char* argv[], bool reload) {
    const char* usage = reload ? kReloadUsage : kLoadUsage;
    if (argc < 3) {
        g_pHost->ConsolePrintf(usage, argv[0]);
        return 0;
    }
    TAVUElement* parent = g_UIManager.Screen;
    int i = 2;
    if (Is(argv[2], "-parent")) {
        if (argc < 5) {
            g_pHost->ConsolePrintf(kLoadUsage, argv[0]); // the load usage, for a reload too
            return 0;
        }
        parent = g_UIManager.FindElement(argv[3]);
        i = 4;
        if (!parent) {
            // The message names the word after the parent's, as it always has.
            g_pHost->ConsolePrintf("Parent element '%s' could not be found", argv[4]);
            return -1;
        }
    }
    TAVUSkin* skin = nullptr;
    if (i < argc && Is(argv[i], "-skin")) {
        if (i + 2 >= argc) {
            g_pHost->ConsolePrintf(usage, argv[0]);
            return 0;
        }
        skin = g_UIManager.FindSkin(argv[i + 1]);
        i += 2;
    }
    if (i >= argc) {
        g_pHost->ConsolePrintf(usage, argv[0]);
        return 0;
    }
    const char* file = argv[i];
    bool loaded;
    if (i + 1 >= argc)
        loaded = g_UIManager.LoadInterfaceXML(parent, file, reload, skin);
    else {
        const char* element = argv[i + 1];
        const char* newName = i + 2 < argc ? argv[i + 2] : element;
        loaded = g_UIManager.LoadInterfaceXML(parent, file, element, newName, reload, skin);
    }
    if (!loaded) {
        g_pHost->ConsolePrintf("Could not load interface file '%s'", file);
        return -1;
    }
    return 0;
}

void ListTopLevelElements() {
    g_pHost->ConsolePrintf("Top-Level UI Elements\n--------------------------");
    if (!g_UIManager.Screen) return;
    for (TAVUElement* child = g_UIManager.Screen->FirstChild; child; child = child->Next)
        g_pHost->ConsolePrintf("%s '%s' - %s", child->Type, child->Name,
                               child->Visible ? "Shown" : "Hidden");
}
} // namespace

int UICommand(int argc, char* argv[]) {
    if (argc < 2) {
        g_pHost->ConsolePrintf(kUISyntax, argv[0]);
        return 0;
    }
    if (Is(argv[1], "-reset")) {
        g_UIManager.Reset();
        return 0;
    }
    if (Is(argv[1], "-load")) return LoadCommand(argc, argv, false);
    if (Is(argv[1], "-reload")) return LoadCommand(argc, argv, true);
    if (Is(argv[1], "-unload")) {
        if (argc < 3) {
            g_pHost->ConsolePrintf("Usage: %s -unload <filename>", argv[0]);
            return 0;
        }
        if (g_UIManager.UnloadInterfaceXML(argv[2])) return 0;
        g_pHost->ConsolePrintf("Could not load interface file '%s'", argv[2]);
        return -1;
    }
    g_pHost->ConsolePrintf(kUISyntax, argv[0]);
    return 0;
}

// Unlike ShowElement, these leave focus to the next GetFocusElement.
int UIElementCommand(int argc, char* argv[]) {
    if (argc >= 2 && Is(argv[1], "-list")) {
        ListTopLevelElements();
        return 0;
    }
    static const char* const kOptions[] = {"-kill", "-hide", "-show", "-toggle"};
    const char* option = nullptr;
    for (const char* known : kOptions)
        if (argc >= 2 && Is(argv[1], known)) option = known;
    if (!option) {
        g_pHost->ConsolePrintf(kUIElementSyntax, argv[0]);
        return 0;
    }
    if (argc < 3) {
        g_pHost->ConsolePrintf("Syntax: %s %s <element>", argv[0], option);
        return 0;
    }
    TAVUElement* element = g_UIManager.FindElement(argv[2]);
    if (!element) {
        g_pHost->ConsolePrintf("Could not find '%s'", argv[2]);
        return 0;
    }
    if (Is(option, "-kill")) {
        if (element->Parent) element->Parent->DeleteChild(element);
    } else if (Is(option, "-hide")) {
        element->Show(false);
    } else if (Is(option, "-show")) {
        element->Show(true);
    } else {
        element->Show(!element->Visible);
    }
    return 0;
}
