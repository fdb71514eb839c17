// A compiled script or atom: a flat list of instructions with jumps, so that a
// script can stop at a wait in the middle of a loop and resume there later.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

struct ScriptInstruction {
    enum class Op {
        Command,    // run Text as a command line
        JumpUnless, // evaluate Text; go to Target when it is false
        JumpIf,     // evaluate Text; go to Target when it is true
        Jump,       // go to Target
        Return,     // end, giving Text (after its data sequences) as the result
    };
    Op Code = Op::Command;
    std::string Text;
    size_t Target = 0;
    int Line = 0;
};

struct ScriptProgram {
    std::string Name;
    std::vector<ScriptInstruction> Code;
};

struct AtomParameter {
    std::string Type;
    std::string Name;
};

struct AtomDefinition {
    std::string Name;
    std::vector<AtomParameter> Parameters;
    ScriptProgram Body;
};
