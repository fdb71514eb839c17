// The common ground of the host's eight value types ("string", "int" and the
// rest): access to the engine for temporary text and sibling types, and the
// rule that only a declared variable can be changed by a method.
//
// A variable's storage carries VariableMark in the spare half of its object
// operand; a value that merely passes through a data sequence (an element's
// name, a member's result) does not, so a method that would change it fails
// instead of writing into memory the script does not own.
#pragma once

#include "RXTypeDefinition.h"

#include <string>

class ScriptEngine;

class HostValueType : public RXTypeDefinition {
public:
    enum : uint64_t { VariableMark = 0x7661726961626c65ull };

    HostValueType(const char* name, ScriptEngine& engine)
        : RXTypeDefinition(name), Engine(engine) {}

    bool ToText(RXObjectData& object, char* buffer) override;

    static bool IsVariable(const RXObjectData& object) { return object.Extra == VariableMark; }

protected:
    // Puts text into result as a "string" that lives until the command ends.
    bool GiveText(_RXTypeVar& result, const std::string& text);
    bool GiveInt(_RXTypeVar& result, int value);
    bool GiveFloat(_RXTypeVar& result, float value);
    bool GiveBool(_RXTypeVar& result, bool value);
    // Evaluates an argument as an expression, as Set, Inc and Dec take it.
    bool Evaluate(const char* text, double& value);
    // All arguments joined with commas: a comma in Set[a,b] was the author's.
    static std::string JoinArguments(int argc, char* argv[]);

    ScriptEngine& Engine;
};
