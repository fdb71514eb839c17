// The host's script engine: types, commands, top-level objects, variables,
// atoms, queries, pre-parsed text, and the scripts that run across frames.
//
// Everything the toolkit asks of a script engine lands here through the host
// object; the host's own commands (echo, wait, mouse...) are registered like
// the toolkit's. Output goes to one console sink, a line per call.
#pragma once

#include "Calculator.h"
#include "HostText.h"
#include "RXScript.h"
#include "RXTypeDefinition.h"
#include "ScriptContext.h"
#include "ScriptInstance.h"
#include "SequenceResolver.h"
#include "VariableScope.h"

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

class ScriptEngine {
public:
    enum : size_t { TextBufferSize = 4096 };
    // A script between two waits, or one call of an atom, runs this many
    // instructions at most; beyond that it is taken for an endless loop.
    enum : unsigned { MaxSteps = 100000 };
    // Atoms that run commands that run atoms, and commands that the toolkit
    // runs from inside commands, nest this deep at most.
    enum : size_t { MaxNesting = 64 };

    typedef std::function<int(int argc, char* argv[])> Command;
    typedef std::function<bool(int argc, char* argv[], _RXTypeVar& result)> TopLevelObject;
    typedef std::function<void(const std::string& line)> ConsoleSink;

    enum class ScriptState { Ended, WaitFrame, WaitTime };

    ScriptEngine();
    ~ScriptEngine();
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;

    void SetConsole(ConsoleSink sink) { Console = std::move(sink); }
    void Print(const std::string& line);

    // Types. The host's eight are made by the constructor.
    bool AddType(RXTypeDefinition* type);
    bool RemoveType(RXTypeDefinition* type);
    RXTypeDefinition* FindType(const char* name);
    unsigned RegisterPersistentClass(const char* name);
    void SetPersistentClass(RXTypeDefinition* type, unsigned persistentClass);
    void InvalidatePersistentObject(unsigned persistentClass, void* object);

    bool AddCommand(const char* name, Command command);
    bool RemoveCommand(const char* name);
    bool HasCommand(const char* name) const;
    std::vector<std::string> CommandNames() const;
    bool AddTopLevelObject(const char* name, TopLevelObject object);
    bool RemoveTopLevelObject(const char* name);

    // Runs one command line now, in whatever script or atom is running.
    int ExecuteCommand(const char* line);
    std::string Substitute(const std::string& text) { return Resolver.Substitute(text); }
    bool ParseDataSequences(const char* input, char* output, size_t size);
    // A data sequence ("${...}" or its inside) to a typed value.
    bool DataParse(const char* text, _RXTypeVar& result);
    bool Calculate(const char* expression, double& result);

    // Short-lived text, kept until the engine next gets control.
    const char* TempText(const std::string& text);
    char* TempBuffer(unsigned size, const char* contents);
    void ClearTemporaries() { Temporaries.clear(); }

    unsigned CompileAtom(const char* source, size_t length);
    void DeleteAtom(unsigned atom);
    unsigned FindAtom(const char* name);
    // Runs an atom; false when there is no such atom or it cannot start.
    bool ExecuteAtom(unsigned atom, int argc, char* argv[], _RXTypeVar* thisObject,
                     std::string* result);

    unsigned CompileQuery(const char* query);
    bool EvaluateQuery(unsigned query, _RXTypeVar* object, bool* result);
    void FreeQuery(unsigned query);

    unsigned PreParseText(const char* text, bool dataSequence);
    bool RetrieveOriginalText(unsigned handle, char* buffer, size_t size);
    bool RetrieveProcessedText(unsigned handle, char* buffer, size_t size);
    bool RetrieveProcessedResult(unsigned handle, _RXTypeVar& result);
    void FreePreParsed(unsigned handle);

    // Compiles a script (the engine keeps it) and registers its atoms; null
    // and a console line on error.
    ScriptInstance* LoadScript(const std::string& name, const std::string& text);
    // Runs a script until it ends or waits.
    ScriptState Resume(ScriptInstance& script, uint32_t& waitMilliseconds);
    RXScript* GetCurrentScript() const;
    const ScriptInstance* CurrentInstance() const;

    // For wait and waitframe: true when the running script will stop after
    // this command (or an atom was told that it cannot wait); false outside
    // any script, where the caller waits at once.
    bool RequestWait(ScriptContext::Request request, uint32_t milliseconds);
    void RequestExit(int code);
    bool ExitRequested() const { return Exiting; }
    int ExitCode() const { return ExitStatus; }

    // The head of a chain: This, a variable, or a top-level object.
    bool ResolveHead(const std::string& name, int argc, char* argv[], bool indexed,
                     _RXTypeVar& value, RXObjectData*& storage);

private:
    struct PreParsed {
        std::string Text;
        bool DataSequence;
    };

    int ExecuteLine(const char* line);
    int ListMembers(int argc, char* argv[]);
    void Run(ScriptContext& context);
    void Step(ScriptContext& context);
    bool Condition(ScriptContext& context, const ScriptInstruction& instruction);
    int Declare(int argc, char* argv[], VariableScope& scope);
    VariableScope& DeclarationScope();
    ScriptVariable* FindVariable(const std::string& name);
    std::string ContextName(const ScriptContext& context) const;
    bool RegisterAtoms(std::vector<AtomDefinition>& atoms, bool byName);

    ConsoleSink Console;
    SequenceResolver Resolver;
    std::vector<std::unique_ptr<RXTypeDefinition>> OwnTypes;
    std::map<std::string, RXTypeDefinition*, NameLess> Types;
    std::map<RXTypeDefinition*, unsigned> PersistentTypes;
    std::map<std::string, unsigned, NameLess> PersistentClasses;
    std::map<std::string, Command, NameLess> Commands;
    std::map<std::string, TopLevelObject, NameLess> TopLevelObjects;
    VariableScope Globals;
    std::vector<ScriptContext*> Stack;
    // Kept until the engine goes, after the toolkit has shut down: an input or
    // message box outlives the script that opened it and writes its answer
    // into this record when it is answered or deleted.
    std::vector<std::unique_ptr<ScriptInstance>> Scripts;
    std::map<unsigned, std::shared_ptr<AtomDefinition>> Atoms;
    std::map<std::string, unsigned, NameLess> AtomsByName;
    unsigned NextAtom = 1;
    std::map<unsigned, std::string> Queries;
    unsigned NextQuery = 1;
    std::map<unsigned, PreParsed> PreParsedTexts;
    unsigned NextPreParsed = 1;
    std::list<std::unique_ptr<char[]>> Temporaries;
    size_t CommandDepth = 0;
    bool Exiting = false;
    int ExitStatus = 0;
};
