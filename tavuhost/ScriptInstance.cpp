#include "ScriptInstance.h"

#include "HostText.h"
#include "StringHelpers.h"

ScriptInstance::ScriptInstance(const std::string& name, ScriptProgram program)
    : Program(std::move(program)), NameText(name), WideName(Utf8ToUtf16(name.c_str())) {
    Name = reinterpret_cast<const WCHAR*>(WideName.c_str());
    InAtom = &InAtomFlag;
    Context.Program = &Program;
    Context.Owner = this;
}

ScriptInstance::~ScriptInstance() {
    StrFree(UserInput);
}

void ScriptInstance::SetUserInput(const char* text) {
    StrFree(UserInput);
    UserInput = StrDuplicate(text);
}
