// Named variables of one scope (the console's globals, a script, one run of an
// atom). A variable is a type and the object operand that the type manages:
// the type makes it, changes it through its methods, and frees it.
#pragma once

#include "HostText.h"
#include "RXTypeDefinition.h"

#include <map>
#include <string>

struct ScriptVariable {
    RXTypeDefinition* Type = nullptr;
    RXObjectData Data{};
};

class VariableScope {
public:
    VariableScope() = default;
    ~VariableScope() { Clear(); }
    VariableScope(const VariableScope&) = delete;
    VariableScope& operator=(const VariableScope&) = delete;

    // Declares (or declares again, from its initial state) a variable.
    // False when the type refuses the initial value; the variable then keeps
    // the type's empty value.
    bool Declare(const std::string& name, RXTypeDefinition* type, const char* initial);
    ScriptVariable* Find(const std::string& name);
    // Drops every variable of a type that is going away, without calling it.
    void Forget(RXTypeDefinition* type);
    // Empties variables of a persistent class that refer to an object being destroyed.
    template <typename IsPersistent> void Invalidate(void* object, IsPersistent isPersistent) {
        for (auto& entry : Variables)
            if (entry.second.Data.Value.Pointer == object && isPersistent(entry.second.Type))
                entry.second.Data.Value.Pointer = nullptr;
    }
    void Clear();

private:
    std::map<std::string, ScriptVariable, NameLess> Variables;
};
