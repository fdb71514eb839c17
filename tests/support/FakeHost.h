// The recording fake host that every unit test shares.
//
// It implements all three host interfaces. Every call is recorded in Calls, in
// order, with its arguments as text; the calls that matter most also land in
// typed logs (Console, Fills, DrawRecords, Texts, AtomRuns, ...). What the host
// answers is plain data a test sets beforehand (display size, texture sizes,
// key names, file lookups), and OnExecuteAtom lets a test act from inside an
// event, the way a script would.
#pragma once

#include "HostInterface.h"
#include "HostScriptInterface.h"
#include "RXScript.h"
#include "RXTypeVar.h"
#include "TAVUDrawRecord.h"

#include <cstring>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

// Text forms used in recorded arguments.
std::string Quoted(const char* text);
std::string Hex(unsigned value);
std::string Number(long long value);
std::string Pointer(const void* value);

class FakeScript : public RXScript {
public:
    void SetUserInput(const char* text) override;
    std::basic_string<WCHAR> NameText; // "script"
    bool InAtomFlag = false;
    std::string UserInputText;
    FakeScript();
};

class FakeHost : public HostInterface, public HostScriptInterface {
public:
    struct Call {
        std::string Name;
        std::vector<std::string> Args;
        std::string Line() const; // "Name arg arg ...", as tests compare it
    };
    struct Fill {
        tagRECT Rect;
        unsigned Color;
    };
    struct Text {
        unsigned Font;
        std::string Value;
        tagRECT Rect;
        unsigned Color;
        unsigned Format;
        std::string Line() const; // "text left,top,right,bottom colour format"
    };
    // Every text drawn, as lines.
    std::vector<std::string> TextLines() const;
    struct AtomRun {
        unsigned Atom;
        std::string Source;            // the compiled text
        std::vector<std::string> Args; // argv as given
        void* This;                    // the This object, null for none
        RXTypeDefinition* ThisType;
    };

    // --- What the host answers; set these before the toolkit asks. ---
    bool DisplayAvailable = true;
    uint64_t DisplayWidth = 800;
    uint64_t DisplayHeight = 600;
    std::map<std::string, _Point2i> TextureSizes;      // by file name; unknown files load as 64x64
    std::set<std::string> MissingTextures;             // file names that fail to load
    std::map<std::string, std::string> TextureFiles;   // FindTextureFile: name to path
    std::map<std::string, std::string> InterfaceFiles; // FindInterfaceFile: name to path
    std::map<unsigned, std::string> KeyNames;          // GetKeyName; unknown keys fail
    int CharWidth = 7;                          // MeasureText and GetCharWidths: advance per byte
    bool FailFonts = false;                     // AcquireFont answers 0
    bool FailCompile = false;                   // CompileAtom answers 0
    std::map<std::string, unsigned> NamedAtoms; // FindAtom
    std::map<std::string, double> Calculations; // Calculate; others parse as numbers
    std::function<std::string(const std::string&)> DataSequences; // ParseDataSequences
    std::function<int(const AtomRun&)> OnExecuteAtom;             // runs inside ExecuteAtom
    std::function<void(const std::string&)> OnExecuteCommand;     // runs inside ExecuteCommand
    std::string AtomResult;                                       // ExecuteAtomForResult's text
    bool FailQueries = false;                                     // CompileQuery answers 0
    std::function<bool(_RXTypeVar*)> QueryHolds;                  // EvaluateQuery's result
    bool ClipboardAvailable = true;
    std::string CurrentConsole = "Default";
    std::map<std::string, RXTypeDefinition*> HostTypes; // FindType; unknown names give null
    FakeScript Script;
    bool InScript = false; // GetCurrentScript gives &Script when true

    // --- What the toolkit did. ---
    std::vector<Call> Calls;
    std::vector<std::string> Console;
    std::vector<Fill> Fills;
    std::vector<TAVUDrawRecord> DrawRecords; // TexturedRect(s) and DrawLine, in order
    std::vector<unsigned> LineWidths;        // one per DrawLine record
    std::vector<Text> Texts;
    std::vector<std::string> Commands;
    std::vector<AtomRun> AtomRuns;
    std::map<unsigned, std::string> LiveAtoms;    // compiled and not deleted
    std::map<unsigned, std::string> LiveTextures; // acquired and not released
    std::map<unsigned, std::string> LiveFonts;
    std::map<unsigned, std::string> LivePreParsed;
    std::vector<void*> Invalidated;
    std::vector<RXTypeDefinition*> Types;
    std::map<std::string, RXCommandHandler> RegisteredCommands;
    std::map<std::string, RXTopLevelObjectHandler> RegisteredObjects;
    std::vector<TAVUElement*> Stored;   // StoreElementPosition
    std::vector<TAVUElement*> Restored; // RestoreElementPosition

    // Runs a line through the commands the toolkit registered, as a script
    // would: -1 when its command is not (or no longer) registered.
    int RunCommandLine(const std::string& line);
    // With RunsAtomCommands set (and no OnExecuteAtom), an atom's body runs
    // line by line through RunCommandLine, so that an interface file's events
    // can load, reset and kill. Nested runs stop at kMaxAtomDepth; every line
    // spends one of CommandBudget, and at 0 no more run.
    static constexpr int kMaxAtomDepth = 8;
    bool RunsAtomCommands = false;
    long CommandBudget = 1000;

    // The calls of one name, and how many there were.
    std::vector<Call> CallsNamed(const std::string& name) const;
    size_t Count(const std::string& name) const;
    // The bodies of the atoms that ran, in order, without the atom frame.
    std::vector<std::string> Ran() const;
    // Forgets everything recorded (answers stay as set).
    void ClearRecords();

    // HostServices
    RXScript* GetCurrentScript() override {
        return Answer("GetCurrentScript", {}, InScript ? &Script : nullptr);
    }
    bool AddCommand(const char* name, RXCommandHandler handler, bool flag1, bool flag2) override {
        RegisteredCommands[name] = handler;
        return Answer("AddCommand", {Quoted(name), Bool(flag1), Bool(flag2)}, true);
    }
    bool RemoveCommand(const char* name) override {
        return Answer("RemoveCommand", {Quoted(name)}, RegisteredCommands.erase(name) > 0);
    }
    int ExecuteCommand(const char* text) override;
    bool ParseDataSequences(const char* input, char* output, size_t size) override;
    bool AddTopLevelObject(const char* name, RXTopLevelObjectHandler handler) override {
        RegisteredObjects[name] = handler;
        return Answer("AddTopLevelObject", {Quoted(name)}, true);
    }
    bool RemoveTopLevelObject(const char* name) override {
        return Answer("RemoveTopLevelObject", {Quoted(name)}, RegisteredObjects.erase(name) > 0);
    }
    bool AddType(RXTypeDefinition* type) override {
        Types.push_back(type);
        return Answer("AddType", {Pointer(type)}, true);
    }
    bool RemoveType(RXTypeDefinition* type) override;
    RXTypeDefinition* FindType(const char* name) override {
        return Answer("FindType", {Quoted(name)}, Found(HostTypes, name, nullptr));
    }
    const char* CompleteCommand(const char* text, bool reverse) override;
    bool Calculate(const char* expression, double* result) override;
    void ConsolePrintf(const char* format, ...) override;
    HostScriptInterface* GetScriptInterface() override {
        return Answer<HostScriptInterface*>("GetScriptInterface", {}, this);
    }
    unsigned CompileAtom(const char* source, size_t length) override;
    void DeleteAtom(unsigned atom) override {
        Record("DeleteAtom", {Number(atom)});
        LiveAtoms.erase(atom);
    }
    bool ExecuteAtomForResult(unsigned atom, int argc, char* argv[], _RXTypeVar* thisObject,
                              int reserved, char* result, size_t size) override;
    int ExecuteAtom(unsigned atom, int reserved, int argc, char* argv[],
                    _RXTypeVar* thisObject) override;
    unsigned FindAtom(const char* name) override {
        return Answer("FindAtom", {Quoted(name)}, Found(NamedAtoms, name, 0u));
    }
    unsigned PreParseText(const char* text, bool dataSequence) override {
        LivePreParsed[NextHandle] = text ? text : "";
        return Answer("PreParseText", {Quoted(text), Bool(dataSequence)}, NextHandle++);
    }
    bool RetrieveOriginalText(unsigned handle, char* buffer, size_t size) override {
        return Answer("RetrieveOriginalText", {Number(handle), Number((long long)size)},
                      WriteFound(LivePreParsed, handle, buffer, size));
    }
    bool RetrieveProcessedText(unsigned handle, char* buffer, size_t size) override;
    bool RetrieveProcessedResult(unsigned handle, _RXTypeVar& result) override {
        return Answer("RetrieveProcessedResult", {Number(handle)}, false);
    }
    void FreePreParsed(unsigned handle) override {
        Record("FreePreParsed", {Number(handle)});
        LivePreParsed.erase(handle);
    }
    unsigned RegisterPersistentClass(const char* name) override {
        return Answer("RegisterPersistentClass", {Quoted(name)}, 7u);
    }
    void InvalidatePersistentObject(unsigned persistentClass, void* object) override {
        Record("InvalidatePersistentObject", {Number(persistentClass), Pointer(object)});
        Invalidated.push_back(object);
    }
    void SetPersistentClass(RXTypeDefinition* type, unsigned persistentClass) override {
        Record("SetPersistentClass", {Pointer(type), Number(persistentClass)});
    }
    bool FindTextureFile(const char* name, char* output) override {
        return Answer("FindTextureFile", {Quoted(name)},
                      WriteFound(TextureFiles, name, output, 1024));
    }
    bool FindInterfaceFile(const char* name, char* output) override {
        return Answer("FindInterfaceFile", {Quoted(name)},
                      WriteFound(InterfaceFiles, name, output, 512));
    }
    bool OpenClipboard() override { return Answer("OpenClipboard", {}, ClipboardAvailable); }
    void StoreElementPosition(TAVUElement* element) override {
        Record("StoreElementPosition", {Pointer(element)});
        Stored.push_back(element);
    }
    void RestoreElementPosition(TAVUElement* element) override {
        Record("RestoreElementPosition", {Pointer(element)});
        Restored.push_back(element);
    }
    bool GetKeyName(unsigned key, char* output, size_t size) override {
        return Answer("GetKeyName", {Number(key), Number((long long)size)},
                      WriteFound(KeyNames, key, output, size));
    }
    void GetCurrentConsole(char* output, size_t size) override {
        Record("GetCurrentConsole", {Number((long long)size)});
        WriteBounded(CurrentConsole, output, size);
    }
    void SelectConsole(const char* name) override {
        Record("SelectConsole", {Quoted(name)});
        CurrentConsole = name ? name : "";
    }

    // HostRenderer
    bool FillRect(tagRECT* rect, unsigned color) override {
        Fills.push_back({*rect, color});
        return Answer("FillRect", {RectText(rect), Hex(color)}, true);
    }
    bool TexturedRect(TAVUDrawRecord* record) override {
        DrawRecords.push_back(*record);
        return Answer("TexturedRect", {RecordText(*record)}, true);
    }
    bool TexturedRects(unsigned count, TAVUDrawRecord* records) override;
    bool DrawLine(TAVUDrawRecord* record, unsigned width) override {
        DrawRecords.push_back(*record);
        LineWidths.push_back(width);
        return Answer("DrawLine", {RecordText(*record), Number(width)}, true);
    }
    unsigned AcquireFont(const char* name, int height, bool fixed, bool bold) override;
    void ReleaseFont(unsigned font) override {
        Record("ReleaseFont", {Number(font)});
        LiveFonts.erase(font);
    }
    size_t DrawText(unsigned font, const char* text, tagRECT* rect, unsigned color,
                    unsigned format) override;
    void MeasureText(unsigned font, const char* text, size_t* width) override {
        Record("MeasureText", {Number(font), Quoted(text)});
        *width = text ? strlen(text) * size_t(CharWidth) : 0;
    }
    bool GetCharWidths(unsigned font, unsigned first, unsigned last, float* abc) override;
    bool GetDisplaySize(uint64_t* width, uint64_t* height) override;
    unsigned AcquireTexture(const char* file, unsigned colorKey) override;
    bool GetTextureSize(unsigned texture, _Point2i& size) override;
    void ReleaseTexture(unsigned texture) override {
        Record("ReleaseTexture", {Number(texture)});
        LiveTextures.erase(texture);
    }

    // HostScriptInterface
    bool DataParse(const char* text, _RXTypeVar& result) override {
        return Answer("DataParse", {Quoted(text)}, false);
    }
    RXTypeDefinition* FindType(const char* name, int, int) override { return FindType(name); }
    char* GetTempBuffer(unsigned size, const char* contents) override;
    // RegisterPersistentClass and InvalidatePersistentObject are shared with HostServices.
    unsigned CompileQuery(const char* query) override {
        return Answer("CompileQuery", {Quoted(query)}, FailQueries ? 0 : NextHandle++);
    }
    bool EvaluateQuery(unsigned query, _RXTypeVar* object, bool* result) override {
        *result = QueryHolds && QueryHolds(object);
        return Answer("EvaluateQuery", {Number(query)}, true);
    }
    void FreeQuery(unsigned query) override { Record("FreeQuery", {Number(query)}); }

private:
    void Record(const std::string& name, std::vector<std::string> args = {});
    // Records the call and gives the answer.
    template <class T> T Answer(const std::string& name, std::vector<std::string> args, T answer) {
        Record(name, std::move(args));
        return answer;
    }
    static std::string Bool(bool value) { return value ? "true" : "false"; }
    static std::string RectText(const tagRECT* rect);
    static std::string RecordText(const TAVUDrawRecord& record);
    // Writes text into a caller's buffer of size bytes, cut to fit.
    static bool WriteBounded(const std::string& text, char* buffer, size_t size);
    // What a map holds for a key (a null name reads as ""), or the fallback.
    template <class Map, class Key>
    static typename Map::mapped_type Found(const Map& map, const Key& key,
                                           typename Map::mapped_type fallback) {
        auto found = map.find(KeyOf(key));
        return found == map.end() ? fallback : found->second;
    }
    // Writes what a map holds for a key into the caller's buffer; false when it holds nothing.
    template <class Map, class Key>
    static bool WriteFound(const Map& map, const Key& key, char* output, size_t size) {
        auto found = map.find(KeyOf(key));
        return found != map.end() && WriteBounded(found->second, output, size);
    }
    static std::string KeyOf(const char* name) { return name ? name : ""; }
    static unsigned KeyOf(unsigned key) { return key; }
    AtomRun& RecordRun(const char* call, unsigned atom, int argc, char* argv[],
                       _RXTypeVar* thisObject, bool showThis);
    unsigned NextHandle = 100;
    std::string CompletedCommand;
    std::deque<std::string> TempBuffers; // stable addresses
    std::map<unsigned, _Point2i> TextureHandleSizes;
    int AtomDepth = 0;
    void RunAtomBody(const std::string& source);
};
