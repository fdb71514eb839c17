#include "ScriptEngine.h"

#include "BoolType.h"
#include "FilePathType.h"
#include "FloatType.h"
#include "IntegerType.h"
#include "Point3fType.h"
#include "ScriptCompiler.h"
#include "StringType.h"

#include <cstring>

namespace {

// Puts a context on the engine's stack for as long as it runs.
class StackEntry {
public:
    StackEntry(std::vector<ScriptContext*>& stack, ScriptContext& context) : Stack(stack) {
        Stack.push_back(&context);
    }
    ~StackEntry() { Stack.pop_back(); }

private:
    std::vector<ScriptContext*>& Stack;
};

std::string JoinWords(int first, int argc, char* argv[]) {
    std::string joined;
    for (int i = first; i < argc; ++i) {
        if (i > first) joined += ' ';
        joined += argv[i];
    }
    return joined;
}

} // namespace

ScriptEngine::ScriptEngine() : Resolver(*this) {
    OwnTypes.emplace_back(new StringType(*this));
    OwnTypes.emplace_back(new IntegerType("int", IntegerType::Kind::Int, *this));
    OwnTypes.emplace_back(new IntegerType("int64", IntegerType::Kind::Int64, *this));
    OwnTypes.emplace_back(new BoolType(*this));
    OwnTypes.emplace_back(new FloatType(*this));
    OwnTypes.emplace_back(new Point3fType(*this));
    OwnTypes.emplace_back(new FilePathType(*this));
    OwnTypes.emplace_back(new IntegerType("uint", IntegerType::Kind::UInt, *this));
    for (auto& type : OwnTypes)
        AddType(type.get());
    // echo is part of the language: every script prints.
    AddCommand("echo", [this](int argc, char* argv[]) {
        Print(JoinWords(1, argc, argv));
        return 0;
    });
    AddCommand("members", [this](int argc, char* argv[]) { return ListMembers(argc, argv); });
}

ScriptEngine::~ScriptEngine() {
    Scripts.clear();
    Globals.Clear();
}

void ScriptEngine::Print(const std::string& line) {
    if (Console) Console(line);
}

bool ScriptEngine::AddType(RXTypeDefinition* type) {
    if (!type || Types.count(type->GetName())) return false;
    Types[type->GetName()] = type;
    return true;
}

// A case that prints a type's tables sees a name added to the type later in
// its output, so every name a scripter can reach is listed where it is used.
int ScriptEngine::ListMembers(int argc, char* argv[]) {
    RXTypeDefinition* type = argc == 2 ? FindType(argv[1]) : nullptr;
    if (!type) {
        Print(argc == 2 ? "members: no type named '" + std::string(argv[1]) + "'"
                        : "Syntax: members TYPE");
        return -1;
    }
    const struct {
        CIndex<_RXTypeMember*>& Slots;
        const char* Kind;
    } tables[] = {{type->Members, "member "}, {type->Methods, "method "}};
    for (const auto& table : tables)
        for (unsigned slot = 0; slot < table.Slots.GetSize(); ++slot)
            if (_RXTypeMember* record = table.Slots.Get(slot))
                Print(table.Kind + std::string(record->Name));
    return 0;
}

bool ScriptEngine::RemoveType(RXTypeDefinition* type) {
    auto found = type ? Types.find(type->GetName()) : Types.end();
    if (found == Types.end() || found->second != type) return false;
    // Variables of the type go with it: nothing may call a type that is gone.
    Globals.Forget(type);
    for (auto& script : Scripts)
        script->Variables.Forget(type);
    for (ScriptContext* context : Stack)
        if (context->Locals) context->Locals->Forget(type);
    PersistentTypes.erase(type);
    Types.erase(found);
    return true;
}

RXTypeDefinition* ScriptEngine::FindType(const char* name) {
    auto found = Types.find(name ? name : "");
    return found == Types.end() ? nullptr : found->second;
}

unsigned ScriptEngine::RegisterPersistentClass(const char* name) {
    auto found = PersistentClasses.find(name ? name : "");
    if (found != PersistentClasses.end()) return found->second;
    unsigned id = unsigned(PersistentClasses.size()) + 1;
    PersistentClasses[name ? name : ""] = id;
    return id;
}

void ScriptEngine::SetPersistentClass(RXTypeDefinition* type, unsigned persistentClass) {
    if (type) PersistentTypes[type] = persistentClass;
}

void ScriptEngine::InvalidatePersistentObject(unsigned persistentClass, void* object) {
    auto isPersistent = [&](RXTypeDefinition* type) {
        auto found = PersistentTypes.find(type);
        return found != PersistentTypes.end() && found->second == persistentClass;
    };
    Globals.Invalidate(object, isPersistent);
    for (auto& script : Scripts)
        script->Variables.Invalidate(object, isPersistent);
    for (ScriptContext* context : Stack) {
        if (context->Locals) context->Locals->Invalidate(object, isPersistent);
        if (context->HasThis && context->This.Value.Pointer == object &&
            isPersistent(context->This.Type))
            context->HasThis = false;
    }
}

bool ScriptEngine::AddCommand(const char* name, Command command) {
    if (!name || !*name || Commands.count(name)) return false;
    Commands[name] = std::move(command);
    return true;
}

bool ScriptEngine::RemoveCommand(const char* name) {
    return name && Commands.erase(name) > 0;
}

bool ScriptEngine::HasCommand(const char* name) const {
    return name && Commands.count(name);
}

std::vector<std::string> ScriptEngine::CommandNames() const {
    std::vector<std::string> names;
    for (auto& entry : Commands)
        names.push_back(entry.first);
    return names;
}

bool ScriptEngine::AddTopLevelObject(const char* name, TopLevelObject object) {
    if (!name || !*name || TopLevelObjects.count(name)) return false;
    TopLevelObjects[name] = std::move(object);
    return true;
}

bool ScriptEngine::RemoveTopLevelObject(const char* name) {
    return name && TopLevelObjects.erase(name) > 0;
}

int ScriptEngine::ExecuteCommand(const char* line) {
    // A command can reach the toolkit, which can run a command again (a
    // command button clicked by its own command): bound that recursion.
    if (CommandDepth >= MaxNesting) {
        Print(std::string("Commands nest too deeply; '") + (line ? line : "") + "' not run");
        return -1;
    }
    ++CommandDepth;
    int result = ExecuteLine(line);
    --CommandDepth;
    return result;
}

int ScriptEngine::ExecuteLine(const char* line) {
    std::vector<std::string> words = SequenceResolver::SplitWords(line ? line : "");
    if (words.empty()) return 0;
    const std::string& first = words.front();
    if (first.compare(0, 2, "${") != 0 &&
        SequenceResolver::FindOutside(first, ':') != std::string::npos) {
        if (words.size() > 1) {
            Print("Unexpected text after '" + first + "': write method arguments in brackets");
            return -1;
        }
        return Resolver.RunMethods(first);
    }
    std::vector<std::string> arguments;
    for (const std::string& word : words)
        arguments.push_back(Resolver.Argument(word));
    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    int argc = int(arguments.size());
    if (SameName(arguments[0], "declare")) return Declare(argc, argv.data(), DeclarationScope());
    if (SameName(arguments[0], "global")) return Declare(argc, argv.data(), Globals);
    auto found = Commands.find(arguments[0]);
    if (found == Commands.end()) {
        Print("Unknown command '" + arguments[0] + "'");
        return -1;
    }
    // A copy: the command may remove itself (the toolkit's Shutdown does).
    Command command = found->second;
    return command(argc, argv.data());
}

// "declare" and "global" differ only in the scope the variable lands in.
int ScriptEngine::Declare(int argc, char* argv[], VariableScope& scope) {
    std::string command = &scope == &Globals && SameName(argv[0], "global") ? "global" : "declare";
    if (argc < 3) {
        Print("Syntax: " + command + " NAME TYPE [value]");
        return -1;
    }
    RXTypeDefinition* type = FindType(argv[2]);
    if (!type) {
        Print(command + ": unknown type '" + argv[2] + "'");
        return -1;
    }
    std::string initial = JoinWords(3, argc, argv);
    if (!scope.Declare(argv[1], type, argc > 3 ? initial.c_str() : nullptr)) {
        Print(command + ": '" + initial + "' is not a value of type " + type->GetName());
        return -1;
    }
    return 0;
}

VariableScope& ScriptEngine::DeclarationScope() {
    if (!Stack.empty()) {
        ScriptContext* context = Stack.back();
        if (context->IsAtom && context->Locals) return *context->Locals;
        if (context->Owner) return context->Owner->Variables;
    }
    return Globals;
}

ScriptVariable* ScriptEngine::FindVariable(const std::string& name) {
    if (!Stack.empty()) {
        ScriptContext* context = Stack.back();
        if (context->IsAtom && context->Locals)
            if (ScriptVariable* local = context->Locals->Find(name)) return local;
        if (context->Owner)
            if (ScriptVariable* own = context->Owner->Variables.Find(name)) return own;
    }
    return Globals.Find(name);
}

bool ScriptEngine::ResolveHead(const std::string& name, int argc, char* argv[], bool indexed,
                               _RXTypeVar& value, RXObjectData*& storage) {
    storage = nullptr;
    ScriptContext* context = Stack.empty() ? nullptr : Stack.back();
    if (context && context->IsAtom && SameName(name, "This")) {
        if (!context->HasThis || !context->This.Type) return false;
        value = context->This;
    } else if (ScriptVariable* variable = FindVariable(name)) {
        value.Type = variable->Type;
        value.Value.UInt64 = variable->Data.Value.UInt64;
        storage = &variable->Data;
    } else {
        auto found = TopLevelObjects.find(name);
        if (found == TopLevelObjects.end()) return false;
        TopLevelObject object = found->second;
        value = _RXTypeVar{};
        return object(argc, argv, value) && value.Type;
    }
    if (!indexed) return true;
    RXObjectData object{};
    object.Value.UInt64 = value.Value.UInt64;
    _RXTypeVar element{};
    if (value.Type->GetIndex(object, argc, argv, element) != 1) return false;
    value = element;
    storage = nullptr;
    return value.Type != nullptr;
}

bool ScriptEngine::ParseDataSequences(const char* input, char* output, size_t size) {
    if (!output || size == 0) return false;
    CopyText(output, size, Resolver.Substitute(input ? input : ""));
    return true;
}

bool ScriptEngine::DataParse(const char* text, _RXTypeVar& result) {
    std::string chain = text ? text : "";
    if (chain.size() >= 3 && chain.compare(0, 2, "${") == 0 && chain.back() == '}')
        chain = chain.substr(2, chain.size() - 3);
    result = _RXTypeVar{};
    return Resolver.Resolve(chain, result);
}

bool ScriptEngine::Calculate(const char* expression, double& result) {
    Calculator calculator;
    return calculator.Evaluate(expression, result) == Calculator::Outcome::Value;
}

const char* ScriptEngine::TempText(const std::string& text) {
    return TempBuffer(unsigned(text.size() + 1), text.c_str());
}

char* ScriptEngine::TempBuffer(unsigned size, const char* contents) {
    if (size == 0) size = 1;
    Temporaries.emplace_back(new char[size]());
    char* buffer = Temporaries.back().get();
    if (contents) CopyText(buffer, size, contents);
    return buffer;
}

bool ScriptEngine::RegisterAtoms(std::vector<AtomDefinition>& atoms, bool byName) {
    for (AtomDefinition& atom : atoms) {
        unsigned id = NextAtom++;
        if (byName) AtomsByName[atom.Name] = id;
        Atoms[id] = std::make_shared<AtomDefinition>(std::move(atom));
    }
    return true;
}

unsigned ScriptEngine::CompileAtom(const char* source, size_t length) {
    if (!source) return 0;
    std::string text(source, strnlen(source, length));
    ScriptCompiler compiler;
    ScriptProgram outside;
    std::vector<AtomDefinition> atoms;
    if (!compiler.Compile(text, "atom", outside, atoms)) {
        Print("Syntax error in " + compiler.Error());
        return 0;
    }
    if (atoms.size() != 1 || !outside.Code.empty()) {
        Print("Syntax error in atom: the text must define exactly one atom and nothing else");
        return 0;
    }
    unsigned id = NextAtom;
    RegisterAtoms(atoms, false);
    return id;
}

void ScriptEngine::DeleteAtom(unsigned atom) {
    Atoms.erase(atom);
    for (auto entry = AtomsByName.begin(); entry != AtomsByName.end();)
        entry = entry->second == atom ? AtomsByName.erase(entry) : std::next(entry);
}

unsigned ScriptEngine::FindAtom(const char* name) {
    auto found = AtomsByName.find(name ? name : "");
    return found == AtomsByName.end() ? 0 : found->second;
}

bool ScriptEngine::ExecuteAtom(unsigned id, int argc, char* argv[], _RXTypeVar* thisObject,
                               std::string* result) {
    auto found = Atoms.find(id);
    if (found == Atoms.end()) return false;
    if (Stack.size() >= MaxNesting) {
        Print("Atom '" + found->second->Name + "' not run: atoms nest too deeply");
        return false;
    }
    // Held for the whole run: the atom may delete the element that owns it.
    std::shared_ptr<AtomDefinition> atom = found->second;
    VariableScope locals;
    ScriptContext context;
    context.Program = &atom->Body;
    context.IsAtom = true;
    context.Locals = &locals;
    context.Owner = Stack.empty() ? nullptr : Stack.back()->Owner;
    if (thisObject) {
        context.HasThis = true;
        context.This = *thisObject;
    }
    for (size_t i = 0; i < atom->Parameters.size(); ++i) {
        const AtomParameter& parameter = atom->Parameters[i];
        RXTypeDefinition* type = FindType(parameter.Type.c_str());
        if (!type) {
            Print("Atom '" + atom->Name + "': unknown parameter type '" + parameter.Type + "'");
            return false;
        }
        const char* given = int(i) < argc && argv ? argv[i] : nullptr;
        locals.Declare(parameter.Name, type, given);
    }
    bool* inAtom = context.Owner ? context.Owner->InAtom : nullptr;
    bool wasInAtom = inAtom && *inAtom;
    if (inAtom) *inAtom = true;
    Run(context);
    if (inAtom) *inAtom = wasInAtom;
    if (result) *result = context.Result;
    return true;
}

unsigned ScriptEngine::CompileQuery(const char* query) {
    // Names are checked when the query runs; here only the form counts.
    Calculator::NameLookup anything = [](const std::string&, std::string& value) {
        value = "1";
        return true;
    };
    Calculator calculator(&anything);
    double ignored = 0;
    std::string text = query ? query : "";
    if (calculator.Evaluate(Resolver.Substitute(text).c_str(), ignored) ==
        Calculator::Outcome::SyntaxError) {
        Print("Query '" + text + "': " + calculator.Error());
        return 0;
    }
    unsigned id = NextQuery++;
    Queries[id] = text;
    return id;
}

bool ScriptEngine::EvaluateQuery(unsigned query, _RXTypeVar* object, bool* result) {
    auto found = Queries.find(query);
    if (found == Queries.end() || !object || !object->Type || !result) return false;
    // A bare name is a member of the object; "Parent.Text" walks members.
    Calculator::NameLookup member = [&](const std::string& name, std::string& value) {
        _RXTypeVar current = *object;
        size_t start = 0;
        while (start <= name.size()) {
            size_t dot = name.find('.', start);
            std::string part = name.substr(start, dot == std::string::npos ? dot : dot - start);
            RXObjectData data{};
            data.Value.UInt64 = current.Value.UInt64;
            _RXTypeVar next{};
            if (!current.Type ||
                current.Type->DispatchMember(data, part.c_str(), 0, nullptr, next) != 1)
                return false;
            current = next;
            if (dot == std::string::npos) break;
            start = dot + 1;
        }
        value = Resolver.TextOf(current);
        return true;
    };
    Calculator calculator(&member);
    double value = 0;
    if (calculator.Evaluate(Resolver.Substitute(found->second).c_str(), value) !=
        Calculator::Outcome::Value)
        return false;
    *result = value != 0;
    return true;
}

void ScriptEngine::FreeQuery(unsigned query) {
    Queries.erase(query);
}

unsigned ScriptEngine::PreParseText(const char* text, bool dataSequence) {
    unsigned id = NextPreParsed++;
    PreParsedTexts[id] = PreParsed{text ? text : "", dataSequence};
    return id;
}

bool ScriptEngine::RetrieveOriginalText(unsigned handle, char* buffer, size_t size) {
    auto found = PreParsedTexts.find(handle);
    if (found == PreParsedTexts.end() || !buffer || size == 0) return false;
    CopyText(buffer, size, found->second.Text);
    return true;
}

bool ScriptEngine::RetrieveProcessedText(unsigned handle, char* buffer, size_t size) {
    auto found = PreParsedTexts.find(handle);
    if (found == PreParsedTexts.end() || !buffer || size == 0) return false;
    CopyText(buffer, size, Resolver.Substitute(found->second.Text));
    return true;
}

bool ScriptEngine::RetrieveProcessedResult(unsigned handle, _RXTypeVar& result) {
    auto found = PreParsedTexts.find(handle);
    if (found == PreParsedTexts.end()) return false;
    return DataParse(found->second.Text.c_str(), result);
}

void ScriptEngine::FreePreParsed(unsigned handle) {
    PreParsedTexts.erase(handle);
}

ScriptInstance* ScriptEngine::LoadScript(const std::string& name, const std::string& text) {
    ScriptCompiler compiler;
    ScriptProgram program;
    std::vector<AtomDefinition> atoms;
    if (!compiler.Compile(text, name, program, atoms)) {
        Print("Syntax error in script " + compiler.Error());
        return nullptr;
    }
    RegisterAtoms(atoms, true);
    Scripts.emplace_back(new ScriptInstance(name, std::move(program)));
    return Scripts.back().get();
}

ScriptEngine::ScriptState ScriptEngine::Resume(ScriptInstance& script, uint32_t& waitMilliseconds) {
    if (script.IsFinished()) return ScriptState::Ended;
    ScriptContext& context = script.Context;
    context.Steps = 0;
    context.Pending = ScriptContext::Request::None;
    Run(context);
    if (Exiting || context.Returned || context.Pending == ScriptContext::Request::Stop)
        script.Finish();
    if (script.IsFinished()) return ScriptState::Ended;
    if (context.Pending == ScriptContext::Request::WaitTime) {
        waitMilliseconds = context.WaitMilliseconds;
        return ScriptState::WaitTime;
    }
    return ScriptState::WaitFrame;
}

RXScript* ScriptEngine::GetCurrentScript() const {
    return Stack.empty() ? nullptr : Stack.back()->Owner;
}

const ScriptInstance* ScriptEngine::CurrentInstance() const {
    return Stack.empty() ? nullptr : Stack.back()->Owner;
}

bool ScriptEngine::RequestWait(ScriptContext::Request request, uint32_t milliseconds) {
    if (Stack.empty()) return false;
    ScriptContext* context = Stack.back();
    if (context->IsAtom) {
        Print("'wait' and 'waitframe' are not available in atoms");
        return true;
    }
    if (!context->Owner) return false;
    context->Pending = request;
    context->WaitMilliseconds = milliseconds;
    return true;
}

void ScriptEngine::RequestExit(int code) {
    Exiting = true;
    ExitStatus = code;
}

void ScriptEngine::Run(ScriptContext& context) {
    StackEntry entry(Stack, context);
    const size_t length = context.Program->Code.size();
    while (context.Position < length && !context.Returned && !Exiting) {
        if (++context.Steps > MaxSteps) {
            Print(ContextName(context) + " stopped after " + std::to_string(MaxSteps) +
                  " steps: it looks like an endless loop");
            context.Pending = ScriptContext::Request::Stop;
            return;
        }
        Step(context);
        // Between two lines of a script body nobody holds a temporary any more.
        // An atom is left alone: the toolkit that called it may still hold one.
        if (Stack.size() == 1 && !context.IsAtom) ClearTemporaries();
        if (context.Pending != ScriptContext::Request::None) return;
    }
}

void ScriptEngine::Step(ScriptContext& context) {
    const ScriptInstruction& instruction = context.Program->Code[context.Position];
    switch (instruction.Code) {
    case ScriptInstruction::Op::Command:
        ++context.Position;
        ExecuteCommand(instruction.Text.c_str());
        break;
    case ScriptInstruction::Op::JumpUnless:
        context.Position =
            Condition(context, instruction) ? context.Position + 1 : instruction.Target;
        break;
    case ScriptInstruction::Op::JumpIf:
        context.Position =
            Condition(context, instruction) ? instruction.Target : context.Position + 1;
        break;
    case ScriptInstruction::Op::Jump:
        context.Position = instruction.Target;
        break;
    case ScriptInstruction::Op::Return:
        context.Result = Resolver.Argument(instruction.Text);
        context.Returned = true;
        context.Position = context.Program->Code.size();
        break;
    }
}

bool ScriptEngine::Condition(ScriptContext& context, const ScriptInstruction& instruction) {
    std::string expression = Resolver.Substitute(instruction.Text);
    Calculator calculator;
    double value = 0;
    if (calculator.Evaluate(expression.c_str(), value) == Calculator::Outcome::Value)
        return value != 0;
    Print(ContextName(context) + " line " + std::to_string(instruction.Line) +
          ": cannot evaluate '" + expression + "': " + calculator.Error());
    return false;
}

std::string ScriptEngine::ContextName(const ScriptContext& context) const {
    if (context.IsAtom) return "Atom '" + context.Program->Name + "'";
    if (context.Owner) return "Script '" + context.Owner->GetName() + "'";
    return "Script";
}
