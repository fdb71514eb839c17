// The script services of the host object: the first table of functions of the
// object that a host gives to F1. A host implements every operation; the
// toolkit calls them on the host's frame and input thread only. Text is UTF-8.
#pragma once

#include <cstddef>

class HostScriptInterface;
class RXScript;
class RXTypeDefinition;
class TAVUElement;
struct _RXTypeVar;

// A script command: argv[0] is the command's own name.
typedef int (*RXCommandHandler)(int argc, char* argv[]);
// A top-level object: fills result with a typed value and answers true, or false.
typedef bool (*RXTopLevelObjectHandler)(int argc, char* argv[], _RXTypeVar& result);

// Sizes of the buffers the toolkit hands to the host.
enum : size_t {
    TAVU_DATA_SEQUENCE_BUFFER = 2048, // ParseDataSequences output
    TAVU_ATOM_RESULT_BUFFER = 512,    // ExecuteAtomForResult output
    TAVU_TEXTURE_PATH_BUFFER = 1024,  // FindTextureFile output
    TAVU_INTERFACE_PATH_BUFFER = 512, // FindInterfaceFile output
    TAVU_KEY_NAME_BUFFER = 64,        // GetKeyName output
    TAVU_CONSOLE_NAME_BUFFER = 1024,  // GetCurrentConsole output
};

class HostServices {
public:
    // The script instance running the present command or object; null from the console.
    virtual RXScript* GetCurrentScript() = 0;
    // Registers a command; the toolkit always passes true and false for the flags.
    virtual bool AddCommand(const char* name, RXCommandHandler handler, bool flag1, bool flag2) = 0;
    // Undoes AddCommand.
    virtual bool RemoveCommand(const char* name) = 0;
    // Runs one line of script commands now.
    virtual int ExecuteCommand(const char* text) = 0;
    // Replaces every ${...} of input and writes the result; input and output may be one buffer.
    virtual bool ParseDataSequences(const char* input, char* output, size_t size) = 0;
    // Registers a top-level object.
    virtual bool AddTopLevelObject(const char* name, RXTopLevelObjectHandler handler) = 0;
    // Undoes AddTopLevelObject.
    virtual bool RemoveTopLevelObject(const char* name) = 0;
    // Makes a script type known.
    virtual bool AddType(RXTypeDefinition* type) = 0;
    // Undoes AddType.
    virtual bool RemoveType(RXTypeDefinition* type) = 0;
    // Finds one of the host's own types by name, or null.
    virtual RXTypeDefinition* FindType(const char* name) = 0;
    // The command line completed by the next candidate (the previous one with reverse).
    virtual const char* CompleteCommand(const char* text, bool reverse) = 0;
    // Evaluates a mathematical expression; false when it has no value.
    virtual bool Calculate(const char* expression, double* result) = 0;
    // Prints one line on the console; the toolkit adds no prefix and no line end.
    virtual void ConsolePrintf(const char* format, ...) = 0;
    // The second interface; called once, by F1.
    virtual HostScriptInterface* GetScriptInterface() = 0;
    // Compiles "atom auto(ARGS)\n{\nTEXT\n}\n" text; 0 when it does not compile.
    virtual unsigned CompileAtom(const char* source, size_t length) = 0;
    // Frees a compiled atom.
    virtual void DeleteAtom(unsigned atom) = 0;
    // Runs an atom and writes its return value as text into result (512 bytes).
    virtual bool ExecuteAtomForResult(unsigned atom, int argc, char* argv[], _RXTypeVar* thisObject,
                                      int reserved, char* result, size_t size) = 0;
    // Runs an atom with This set to thisObject, which may be null.
    virtual int ExecuteAtom(unsigned atom, int reserved, int argc, char* argv[],
                            _RXTypeVar* thisObject) = 0;
    // An atom that a script defined, by name; 0 when there is none.
    virtual unsigned FindAtom(const char* name) = 0;
    // Prepares text for repeated evaluation; dataSequence selects typed results.
    virtual unsigned PreParseText(const char* text, bool dataSequence) = 0;
    // The text as it was given to PreParseText.
    virtual bool RetrieveOriginalText(unsigned handle, char* buffer, size_t size) = 0;
    // The text with its data sequences evaluated now.
    virtual bool RetrieveProcessedText(unsigned handle, char* buffer, size_t size) = 0;
    // The typed value of a pre-parsed data sequence.
    virtual bool RetrieveProcessedResult(unsigned handle, _RXTypeVar& result) = 0;
    // Frees pre-parsed text.
    virtual void FreePreParsed(unsigned handle) = 0;
    // A class whose objects scripts may keep across frames; called once with "Tavukit".
    virtual unsigned RegisterPersistentClass(const char* name) = 0;
    // Script references to this object become invalid (it is being destroyed).
    virtual void InvalidatePersistentObject(unsigned persistentClass, void* object) = 0;
    // Puts a type into a persistent class.
    virtual void SetPersistentClass(RXTypeDefinition* type, unsigned persistentClass) = 0;
    // Looks a texture up in the search path; output holds TAVU_TEXTURE_PATH_BUFFER bytes.
    virtual bool FindTextureFile(const char* name, char* output) = 0;
    // Looks an interface file up; output holds TAVU_INTERFACE_PATH_BUFFER bytes.
    virtual bool FindInterfaceFile(const char* name, char* output) = 0;
    // Opens the system clipboard for the host's window.
    virtual bool OpenClipboard() = 0;
    // Saves an element's position (read through its GetStoragePosition).
    virtual void StoreElementPosition(TAVUElement* element) = 0;
    // Writes a saved position back into an element.
    virtual void RestoreElementPosition(TAVUElement* element) = 0;
    // The name of a key for key events; false means that no event fires.
    virtual bool GetKeyName(unsigned key, char* output, size_t size) = 0;
    // The name of the console that takes command output now.
    virtual void GetCurrentConsole(char* output, size_t size) = 0;
    // Makes a console the target of command output.
    virtual void SelectConsole(const char* name) = 0;

protected:
    ~HostServices() = default;
};
