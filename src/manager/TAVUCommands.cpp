#include "TAVUCommands.h"

#include "CUIManager.h"
#include "Module.h"
#include "RXScript.h"
#include "StringHelpers.h"
#include "TAVUElement.h"
#include "TAVUScreen.h"
#include "TAVUScriptInputBox.h"
#include "TAVUScriptMessageBox.h"
#include "TAVUTextEntry.h"

#include <cstdio>

namespace {
const char kUISyntax[] = "Syntax: %s -reset|-[re]load [-parent <FQN>] [-skin <name>] <filename> "
                         "[<element name> [new name]]|-unload <filename>";
const char kLoadUsage[] =
    "Usage: %s -load [-parent <FQN>] [-skin <name>] <filename> [<element name> [new name]]";
const char kReloadUsage[] =
    "Usage: %s -reload [-parent <FQN>] [-skin <name>] <filename> [<element name> [new name]]";
const char kUIElementSyntax[] =
    "Syntax: %s -list|-hide <name>|-show <name>|-toggle <name>|-kill <name>";
const char kMessageBoxSyntax[] =
    "Syntax: %s [-skin <name>] [-template <name>] [-ok|-okcancel|-yesno] <text>";
const char kInputBoxSyntax[] = "Syntax: %s [-skin <name>] [-template <name>] <text> [default]";

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
// The options both boxes begin with. A skin chosen here is the current one
// while the box is made; the caller puts the old one back.
struct BoxOptions {
    XMLNode* Template = nullptr;
    int Next = 1; // the first word after the options
};

BoxOptions ReadBoxOptions(int argc, char* argv[]) {
    BoxOptions options;
    if (argc > 1 && Is(argv[1], "-skin")) {
        if (argc > 2) {
            if (TAVUSkin* skin = g_UIManager.FindSkin(argv[2])) g_UIManager.CurrentSkin = skin;
        }
        options.Next = 3;
    }
    int& i = options.Next;
    if (i < argc && Is(argv[i], "-template")) {
        if (i + 1 < argc) options.Template = g_UIManager.FindTemplate(argv[i + 1]);
        i += 2;
    }
    return options;
}

eMessageBoxType ReadBoxType(int argc, char* argv[], int& i) {
    static const struct {
        const char* Option;
        eMessageBoxType Type;
    } kTypes[] = {{"-ok", TAVU_MESSAGEBOX_OK},
                  {"-okcancel", TAVU_MESSAGEBOX_OKCANCEL},
                  {"-yesno", TAVU_MESSAGEBOX_YESNO}};
    if (i >= argc) return TAVU_MESSAGEBOX_OK;
    for (const auto& known : kTypes)
        if (Is(argv[i], known.Option)) {
            ++i;
            return known.Type;
        }
    return TAVU_MESSAGEBOX_OK;
}

// The script's name in UTF-8, cut to the buffer.
struct ScriptName {
    explicit ScriptName(const RXScript* script) {
        if (script->Name && WideCharToMultiByte(CP_UTF8, 0, script->Name, -1, Text,
                                                int(sizeof(Text)), nullptr, nullptr) <= 0)
            Text[0] = 0;
        Text[sizeof(Text) - 1] = 0;
    }
    char Text[512] = "";
};

// "<script name> <kind>": one box of each kind per script at a time, since a
// second one finds its name taken.
struct BoxName {
    BoxName(const ScriptName& script, const char* kind) {
        snprintf(Text, sizeof(Text), "%s %s", script.Text, kind);
    }
    char Text[600];
};

// A record that starts waiting for a new answer forgets the last one.
void ForgetLastAnswer(RXScript* script) {
    if (script->UserInput) script->SetUserInput(nullptr);
}

bool InAtom(const RXScript* script) {
    return script->InAtom && *script->InAtom;
}

TAVUMessageBox* OpenMessageBox(const char* text, eMessageBoxType type, XMLNode* templateNode) {
    RXScript* script = g_pHost->GetCurrentScript();
    if (!script || InAtom(script)) {
        auto* box = static_cast<TAVUMessageBox*>(
            g_UIManager.LoadElement(g_UIManager.Screen, "messagebox", "MessageBox"));
        if (box) box->Create("Alert", text, type, templateNode);
        return box;
    }
    ScriptName scriptName(script);
    auto* box = static_cast<TAVUScriptMessageBox*>(g_UIManager.LoadElement(
        g_UIManager.Screen, "scriptmessagebox", BoxName(scriptName, "MessageBox").Text));
    if (!box) return nullptr;
    box->Script = script;
    script->OpenMessageBox = box;
    ForgetLastAnswer(script);
    box->Create(scriptName.Text, text, type, templateNode);
    return box;
}

} // namespace

int MessageBoxCommand(int argc, char* argv[]) {
    if (argc < 2) {
        g_pHost->ConsolePrintf(kMessageBoxSyntax, argv[0]);
        return 0;
    }
    TAVUSkin* skin = g_UIManager.CurrentSkin;
    BoxOptions options = ReadBoxOptions(argc, argv);
    int i = options.Next;
    eMessageBoxType type = ReadBoxType(argc, argv, i);
    if (i >= argc)
        g_pHost->ConsolePrintf(kMessageBoxSyntax, argv[0]);
    else if (!OpenMessageBox(argv[i], type, options.Template))
        g_pHost->ConsolePrintf("%s failed", argv[0]);
    g_UIManager.CurrentSkin = skin;
    return 0;
}

int InputBoxCommand(int argc, char* argv[]) {
    RXScript* script = g_pHost->GetCurrentScript();
    if (!script) {
        g_pHost->ConsolePrintf(
            "You don't look like a script, or talk like a script...dont try to be one :)");
        return 1;
    }
    if (InAtom(script)) {
        g_pHost->ConsolePrintf("'%s' is not available in atoms", argv[0]);
        return 1;
    }
    if (argc < 2) {
        g_pHost->ConsolePrintf(kInputBoxSyntax, argv[0]);
        return 0;
    }
    TAVUSkin* skin = g_UIManager.CurrentSkin;
    BoxOptions options = ReadBoxOptions(argc, argv);
    int i = options.Next;
    if (i >= argc) {
        g_pHost->ConsolePrintf(kInputBoxSyntax, argv[0]);
        g_UIManager.CurrentSkin = skin;
        return 0;
    }
    ScriptName scriptName(script);
    auto* box = static_cast<TAVUScriptInputBox*>(g_UIManager.LoadElement(
        g_UIManager.Screen, "scriptinputbox", BoxName(scriptName, "InputBox").Text));
    if (box) {
        box->Script = script;
        script->OpenInputBox = box;
        ForgetLastAnswer(script);
        box->Create(scriptName.Text, argv[i], i + 1 < argc ? argv[i + 1] : nullptr,
                    options.Template);
        if (box->Entry) g_UIManager.SetFocusElement(box->Entry);
    } else {
        g_pHost->ConsolePrintf("%s failed", argv[0]);
    }
    g_UIManager.CurrentSkin = skin;
    return 0;
}

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
