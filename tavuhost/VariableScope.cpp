#include "VariableScope.h"

#include "HostValueType.h"

bool VariableScope::Declare(const std::string& name, RXTypeDefinition* type, const char* initial) {
    auto found = Variables.find(name);
    if (found != Variables.end()) {
        found->second.Type->FreeVariable(found->second.Data);
        Variables.erase(found);
    }
    ScriptVariable& variable = Variables[name];
    variable.Type = type;
    variable.Data = RXObjectData{};
    variable.Data.Extra = HostValueType::VariableMark;
    type->InitVariable(variable.Data, "");
    if (!initial) return true;
    return type->FromText(variable.Data, initial);
}

ScriptVariable* VariableScope::Find(const std::string& name) {
    auto found = Variables.find(name);
    return found == Variables.end() ? nullptr : &found->second;
}

void VariableScope::Forget(RXTypeDefinition* type) {
    for (auto entry = Variables.begin(); entry != Variables.end();)
        entry = entry->second.Type == type ? Variables.erase(entry) : std::next(entry);
}

void VariableScope::Clear() {
    for (auto& entry : Variables)
        entry.second.Type->FreeVariable(entry.second.Data);
    Variables.clear();
}
