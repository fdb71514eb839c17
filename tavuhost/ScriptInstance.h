// A script started with --script: the record that GetCurrentScript gives the
// toolkit, its compiled body, its variables and where it stopped.
#pragma once

#include "RXScript.h"
#include "ScriptContext.h"
#include "VariableScope.h"

#include <string>

class ScriptInstance final : public RXScript {
public:
    ScriptInstance(const std::string& name, ScriptProgram program);
    ~ScriptInstance();
    ScriptInstance(const ScriptInstance&) = delete;
    ScriptInstance& operator=(const ScriptInstance&) = delete;

    void SetUserInput(const char* text) override;

    const std::string& GetName() const { return NameText; }
    bool IsFinished() const { return Context.Position >= Program.Code.size() || Finished; }
    void Finish() { Finished = true; }

    ScriptProgram Program;
    ScriptContext Context;
    VariableScope Variables;

private:
    std::string NameText;
    std::u16string WideName;
    bool InAtomFlag = false;
    bool Finished = false;
};
