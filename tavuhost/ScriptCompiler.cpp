#include "ScriptCompiler.h"

#include "HostText.h"

#include <cctype>

namespace {

// Blocks nest this deep at most, so that hostile text cannot exhaust the stack.
enum { MaxDepth = 64 };

std::string Trim(const std::string& text) {
    size_t start = text.find_first_not_of(" \t\r\n");
    if (start == std::string::npos) return "";
    size_t end = text.find_last_not_of(" \t\r\n");
    return text.substr(start, end - start + 1);
}

// The first word (up to a blank or '(') and the rest after it, trimmed.
void SplitKeyword(const std::string& text, std::string& keyword, std::string& rest) {
    size_t end = 0;
    while (end < text.size() && text[end] != ' ' && text[end] != '\t' && text[end] != '(')
        ++end;
    keyword = text.substr(0, end);
    rest = Trim(text.substr(end));
}

// A '{' that is not the start of a data sequence ("${").
bool HasBlockBrace(const std::string& text) {
    for (size_t i = 0; i < text.size(); ++i)
        if (text[i] == '{' && (i == 0 || text[i - 1] != '$')) return true;
    return false;
}

bool IsName(const std::string& text) {
    if (text.empty() || !(isalpha(static_cast<unsigned char>(text[0])) || text[0] == '_'))
        return false;
    for (char c : text)
        if (!isalnum(static_cast<unsigned char>(c)) && c != '_') return false;
    return true;
}

} // namespace

bool ScriptCompiler::Compile(const std::string& text, const std::string& sourceName,
                             ScriptProgram& main, std::vector<AtomDefinition>& atoms) {
    SourceName = sourceName;
    ErrorText.clear();
    Next = 0;
    Depth = 0;
    Atoms = &atoms;
    main.Name = sourceName;
    main.Code.clear();
    SplitStatements(text);
    return ParseSequence(main, false, true);
}

void ScriptCompiler::SplitStatements(const std::string& text) {
    Statements.clear();
    int line = 0;
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string statement = Trim(text.substr(start, end - start));
        ++line;
        start = end + 1;
        if (statement.empty() || statement[0] == ';') continue;
        // "} else {": a leading brace closes, a trailing one opens.
        if (statement[0] == '}') {
            Statements.push_back({"}", line});
            statement = Trim(statement.substr(1));
            if (statement.empty()) continue;
        }
        bool opens = statement.size() > 0 && statement.back() == '{' &&
                     (statement.size() < 2 || statement[statement.size() - 2] != '$');
        if (opens) statement = Trim(statement.substr(0, statement.size() - 1));
        if (!statement.empty()) Statements.push_back({statement, line});
        if (opens) Statements.push_back({"{", line});
    }
}

int ScriptCompiler::CurrentLine() const {
    if (!AtEnd()) return Current().Line;
    return Statements.empty() ? 1 : Statements.back().Line;
}

size_t ScriptCompiler::Emit(ScriptProgram& program, ScriptInstruction::Op op,
                            const std::string& text, int line) {
    ScriptInstruction instruction;
    instruction.Code = op;
    instruction.Text = text;
    instruction.Line = line;
    program.Code.push_back(instruction);
    return program.Code.size() - 1;
}

bool ScriptCompiler::Fail(int line, const std::string& message) {
    if (ErrorText.empty())
        ErrorText = SourceName + " line " + std::to_string(line) + ": " + message;
    return false;
}

// A brace with words on both sides of it, as in "if ${A} { echo a }", is the
// usual reason for a missing block, so the message says where braces go.
std::string ScriptCompiler::BraceExpected() const {
    const std::string expected = "'{' expected";
    const Statement* near = !AtEnd() ? &Current() : nullptr;
    const Statement* before =
        Next > 0 && Next <= Statements.size() ? &Statements[Next - 1] : nullptr;
    bool misplaced = (near && near->Text.size() > 1 && HasBlockBrace(near->Text)) ||
                     (before && HasBlockBrace(before->Text));
    if (!misplaced) return expected;
    return expected + ": a '{' ends its line or stands alone, and a '}' starts its line";
}

bool ScriptCompiler::ParseSequence(ScriptProgram& program, bool inBlock, bool topLevel) {
    while (!AtEnd()) {
        if (Current().Text == "}") {
            if (inBlock) return true;
            return Fail(Current().Line, "'}' without a block to close");
        }
        if (!ParseStatement(program, topLevel)) return false;
    }
    if (inBlock) return Fail(CurrentLine(), "a block is not closed: '}' is missing");
    return true;
}

bool ScriptCompiler::ParseBlock(ScriptProgram& program) {
    if (AtEnd() || Current().Text != "{") return Fail(CurrentLine(), BraceExpected());
    if (++Depth > MaxDepth) return Fail(Current().Line, "blocks nest too deeply");
    ++Next;
    if (!ParseSequence(program, true, false)) return false;
    ++Next; // the closing brace
    --Depth;
    return true;
}

bool ScriptCompiler::ParseStatement(ScriptProgram& program, bool topLevel) {
    const Statement statement = Current();
    ++Next;
    std::string keyword, rest;
    SplitKeyword(statement.Text, keyword, rest);
    if (statement.Text == "{") return Fail(statement.Line, "'{' without if, while, do or atom");
    if (SameName(keyword, "if")) return ParseIf(program, rest, statement.Line);
    if (SameName(keyword, "while")) return ParseWhile(program, rest, statement.Line);
    if (SameName(keyword, "do") && rest.empty()) return ParseDo(program, statement.Line);
    if (SameName(keyword, "else")) return Fail(statement.Line, "'else' without 'if'");
    if (SameName(keyword, "atom")) {
        if (!topLevel) return Fail(statement.Line, "an atom can only be defined at the top level");
        return ParseAtom(rest, statement.Line);
    }
    if (SameName(keyword, "return")) {
        Emit(program, ScriptInstruction::Op::Return, rest, statement.Line);
        return true;
    }
    Emit(program, ScriptInstruction::Op::Command, statement.Text, statement.Line);
    return true;
}

// An "else if" chain is walked in a loop rather than by recursion, so that a
// long chain costs no stack.
bool ScriptCompiler::ParseIf(ScriptProgram& program, const std::string& condition, int line) {
    std::vector<size_t> skips; // the jumps from the end of each branch to the end of all
    std::string test = condition;
    int testLine = line;
    for (;;) {
        if (test.empty()) return Fail(testLine, "'if' needs a condition");
        size_t branch = Emit(program, ScriptInstruction::Op::JumpUnless, test, testLine);
        if (!ParseBlock(program)) return false;
        std::string keyword, rest;
        if (!AtEnd()) SplitKeyword(Current().Text, keyword, rest);
        if (!SameName(keyword, "else")) {
            program.Code[branch].Target = program.Code.size();
            break;
        }
        int elseLine = Current().Line;
        ++Next;
        skips.push_back(Emit(program, ScriptInstruction::Op::Jump, "", elseLine));
        program.Code[branch].Target = program.Code.size();
        std::string nested;
        SplitKeyword(rest, nested, test);
        testLine = elseLine;
        if (SameName(nested, "if")) continue;
        if (!rest.empty()) return Fail(elseLine, "'else' must be followed by a block or 'if'");
        if (!ParseBlock(program)) return false;
        break;
    }
    for (size_t skip : skips)
        program.Code[skip].Target = program.Code.size();
    return true;
}

bool ScriptCompiler::ParseWhile(ScriptProgram& program, const std::string& condition, int line) {
    if (condition.empty()) return Fail(line, "'while' needs a condition");
    size_t top = Emit(program, ScriptInstruction::Op::JumpUnless, condition, line);
    if (!ParseBlock(program)) return false;
    size_t back = Emit(program, ScriptInstruction::Op::Jump, "", line);
    program.Code[back].Target = top;
    program.Code[top].Target = program.Code.size();
    return true;
}

bool ScriptCompiler::ParseDo(ScriptProgram& program, int line) {
    size_t top = program.Code.size();
    if (!ParseBlock(program)) return false;
    std::string keyword, condition;
    if (!AtEnd()) SplitKeyword(Current().Text, keyword, condition);
    if (!SameName(keyword, "while") || condition.empty())
        return Fail(CurrentLine(), "'do' block must end with 'while' and a condition");
    size_t test = Emit(program, ScriptInstruction::Op::JumpIf, condition, Current().Line);
    program.Code[test].Target = top;
    ++Next;
    return true;
}

// atom NAME(TYPE NAME, ...) followed by a block.
bool ScriptCompiler::ParseAtom(const std::string& header, int line) {
    size_t open = header.find('(');
    size_t close = header.rfind(')');
    if (open == std::string::npos || close == std::string::npos || close < open ||
        !Trim(header.substr(close + 1)).empty())
        return Fail(line, "an atom is written 'atom NAME(TYPE NAME, ...)'");
    AtomDefinition atom;
    atom.Name = Trim(header.substr(0, open));
    if (!IsName(atom.Name)) return Fail(line, "'" + atom.Name + "' is not an atom name");
    if (!ParseParameters(header.substr(open + 1, close - open - 1), atom, line)) return false;
    atom.Body.Name = atom.Name;
    if (!ParseBlock(atom.Body)) return false;
    Atoms->push_back(std::move(atom));
    return true;
}

bool ScriptCompiler::ParseParameters(const std::string& list, AtomDefinition& atom, int line) {
    if (Trim(list).empty()) return true;
    size_t start = 0;
    while (start <= list.size()) {
        size_t comma = list.find(',', start);
        if (comma == std::string::npos) comma = list.size();
        std::string parameter = Trim(list.substr(start, comma - start));
        start = comma + 1;
        size_t blank = parameter.find_first_of(" \t");
        AtomParameter entry;
        if (blank != std::string::npos) {
            entry.Type = parameter.substr(0, blank);
            entry.Name = Trim(parameter.substr(blank));
        }
        if (!IsName(entry.Type) || !IsName(entry.Name))
            return Fail(line, "parameter '" + parameter + "' is not 'TYPE NAME'");
        atom.Parameters.push_back(entry);
    }
    return true;
}
