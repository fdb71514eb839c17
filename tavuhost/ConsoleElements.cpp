// The console's class is the module's: this file sees it as imported, so that
// nothing of it is defined or exported here. Only its fields are read.
#undef TAVU_EXPORTS

#include "ConsoleElements.h"

#include "RXTypeDefinition.h"
#include "RXTypeVar.h"
#include "ScriptEngine.h"
#include "TAVUConsole.h"

#include <cstdlib>
#include <cstring>

namespace {
const char kCommand[] = "consolelines";

// The console element of a full name, through the "UIElement" object; null
// for a name that is no element or an element of another type.
void* FindConsole(ScriptEngine& engine, const std::string& name, RXTypeDefinition*& type) {
    std::string key = name;
    char* argv[] = {&key[0]};
    _RXTypeVar value{};
    RXObjectData* storage = nullptr;
    type = nullptr;
    if (name.empty() || !engine.ResolveHead("UIElement", 1, argv, true, value, storage))
        return nullptr;
    if (!value.Type || strcmp(value.Type->GetName(), "tavuconsole") != 0) return nullptr;
    type = value.Type;
    return value.Value.Pointer;
}
} // namespace

ConsoleElements::ConsoleElements(ScriptEngine& engine, const std::string& selected)
    : Engine(engine), Selected(selected) {
    Engine.AddCommand(kCommand,
                      [this](int argc, char* argv[]) { return LinesCommand(argc, argv); });
}

ConsoleElements::~ConsoleElements() {
    Engine.RemoveCommand(kCommand);
}

void ConsoleElements::Route(const std::string& line) {
    if (Routing) return;
    Routing = true;
    RXTypeDefinition* type = nullptr;
    if (void* console = FindConsole(Engine, Selected, type)) {
        std::string text = line;
        char* argv[] = {&text[0]};
        RXObjectData object{};
        object.Value.Pointer = console;
        type->DispatchMethod(object, "Echo", 1, argv);
    }
    Routing = false;
}

bool ConsoleElements::ReadLines(const std::string& name, std::vector<std::string>& lines) {
    RXTypeDefinition* type = nullptr;
    auto* console = static_cast<TAVUConsole*>(FindConsole(Engine, name, type));
    if (!console) return false;
    lines.clear();
    if (!console->Lines || console->LastLine < 0) return true;
    int size = console->BackBufferSize;
    for (int i = 1; i <= size; ++i) {
        const char* line = console->Lines[(console->LastLine + i) % size];
        if (line) lines.push_back(line);
    }
    return true;
}

// The lines are read whole before any is printed: printing may route them
// into a console, even this one.
int ConsoleElements::LinesCommand(int argc, char* argv[]) {
    char* end = nullptr;
    long count = argc == 3 ? strtol(argv[2], &end, 10) : -1;
    if ((argc != 2 && argc != 3) || (argc == 3 && (*end || end == argv[2] || count < 0))) {
        Engine.Print("Syntax: consolelines NAME [COUNT]");
        return -1;
    }
    std::vector<std::string> lines;
    if (!ReadLines(argv[1], lines)) {
        Engine.Print(std::string("consolelines: no console element named '") + argv[1] + "'");
        return -1;
    }
    size_t first = count >= 0 && size_t(count) < lines.size() ? lines.size() - size_t(count) : 0;
    for (size_t i = first; i < lines.size(); ++i)
        Engine.Print(lines[i]);
    return 0;
}
