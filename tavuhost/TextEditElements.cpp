#include "TextEditElements.h"

#include "RXTypeDefinition.h"
#include "ScriptEngine.h"
#include "TAVUTextEdit.h"

#include <cstring>
#include <string>
#include <vector>

namespace {
const char kCommand[] = "textedittext";

// The editor of a full name; null for a name that is no element or an
// element of another type.
TAVUTextEdit* FindTextEdit(ScriptEngine& engine, const std::string& name) {
    std::string key = name;
    char* argv[] = {&key[0]};
    _RXTypeVar value{};
    RXObjectData* storage = nullptr;
    if (name.empty() || !engine.ResolveHead("UIElement", 1, argv, true, value, storage))
        return nullptr;
    if (!value.Type || strcmp(value.Type->GetName(), "tavutextedit") != 0) return nullptr;
    return static_cast<TAVUTextEdit*>(value.Value.Pointer);
}
} // namespace

TextEditElements::TextEditElements(ScriptEngine& engine) : Engine(engine) {
    Engine.AddCommand(kCommand, [this](int argc, char* argv[]) { return TextCommand(argc, argv); });
}

TextEditElements::~TextEditElements() {
    Engine.RemoveCommand(kCommand);
}

// The lines are copied out before any is printed: printing may route them
// into a console element, and a console's script may change the editor.
int TextEditElements::TextCommand(int argc, char* argv[]) {
    if (argc != 2) {
        Engine.Print("Syntax: textedittext NAME");
        return -1;
    }
    TAVUTextEdit* edit = FindTextEdit(Engine, argv[1]);
    if (!edit) {
        Engine.Print(std::string("textedittext: no textedit element named '") + argv[1] + "'");
        return -1;
    }
    std::vector<std::string> lines;
    for (const CTextEditLine* line = edit->FirstLine; line; line = line->Next)
        lines.emplace_back(line->Text ? line->Text : "", line->Text ? line->Length : 0);
    for (const std::string& line : lines)
        Engine.Print(line);
    return 0;
}
