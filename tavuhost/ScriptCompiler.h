// Turns script text into programs: the main body, and every atom it defines.
//
// A line holds one command; ';' as first non-blank character makes a comment.
// Blocks are braces on their own lines, or a '{' closing a line and a '}'
// opening one ("} else {"). Flow: if/else if/else, while, do ... while.
#pragma once

#include "ScriptProgram.h"

#include <string>
#include <vector>

class ScriptCompiler {
public:
    // Compiles text; the source name goes into error messages. On failure
    // Error() names the line and the problem.
    bool Compile(const std::string& text, const std::string& sourceName, ScriptProgram& main,
                 std::vector<AtomDefinition>& atoms);
    const std::string& Error() const { return ErrorText; }

private:
    struct Statement {
        std::string Text;
        int Line;
    };

    void SplitStatements(const std::string& text);
    bool ParseSequence(ScriptProgram& program, bool inBlock, bool topLevel);
    bool ParseBlock(ScriptProgram& program);
    bool ParseStatement(ScriptProgram& program, bool topLevel);
    bool ParseIf(ScriptProgram& program, const std::string& condition, int line);
    bool ParseWhile(ScriptProgram& program, const std::string& condition, int line);
    bool ParseDo(ScriptProgram& program, int line);
    bool ParseAtom(const std::string& header, int line);
    bool ParseParameters(const std::string& list, AtomDefinition& atom, int line);

    bool AtEnd() const { return Next >= Statements.size(); }
    const Statement& Current() const { return Statements[Next]; }
    int CurrentLine() const;
    size_t Emit(ScriptProgram& program, ScriptInstruction::Op op, const std::string& text,
                int line);
    bool Fail(int line, const std::string& message);
    std::string BraceExpected() const;

    std::string SourceName;
    std::vector<Statement> Statements;
    size_t Next = 0;
    int Depth = 0;
    std::vector<AtomDefinition>* Atoms = nullptr;
    std::string ErrorText;
};
