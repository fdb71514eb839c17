// One running piece of script: a script's body or one call of an atom, with
// where it stands, whose it is, and what it has asked the engine for.
#pragma once

#include "RXTypeVar.h"
#include "ScriptProgram.h"

#include <cstdint>
#include <string>

class ScriptInstance;
class VariableScope;

struct ScriptContext {
    enum class Request { None, WaitFrame, WaitTime, Stop };

    const ScriptProgram* Program = nullptr;
    size_t Position = 0;
    ScriptInstance* Owner = nullptr; // null for the console and for events
    VariableScope* Locals = nullptr; // an atom's parameters and declarations
    bool IsAtom = false;
    bool HasThis = false;
    _RXTypeVar This{};
    unsigned Steps = 0;
    Request Pending = Request::None;
    uint32_t WaitMilliseconds = 0;
    bool Returned = false;
    std::string Result;
};
