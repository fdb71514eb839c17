// The smallest host that can run the toolkit: it answers every question the
// toolkit asks and prints every drawing call as a line of text instead of
// painting. A real host puts its renderer, its script engine and its file
// search behind the same calls; tavuhost in the Tavukit tree is such a host.
#pragma once

#include "HostInterface.h"
#include "HostScriptInterface.h"

#include <map>
#include <string>
#include <vector>

class MinimalHost : public HostInterface, public HostScriptInterface {
public:
    MinimalHost(int width, int height) : Width(width), Height(height) {}

    // HostServices: commands, scripts, files and the console.
    RXScript* GetCurrentScript() override;
    bool AddCommand(const char* name, RXCommandHandler handler, bool, bool) override;
    bool RemoveCommand(const char* name) override;
    int ExecuteCommand(const char* text) override;
    bool ParseDataSequences(const char* input, char* output, size_t size) override;
    bool AddTopLevelObject(const char* name, RXTopLevelObjectHandler handler) override;
    bool RemoveTopLevelObject(const char* name) override;
    bool AddType(RXTypeDefinition* type) override;
    bool RemoveType(RXTypeDefinition* type) override;
    RXTypeDefinition* FindType(const char* name) override;
    const char* CompleteCommand(const char* text, bool reverse) override;
    bool Calculate(const char* expression, double* result) override;
    void ConsolePrintf(const char* format, ...) override;
    HostScriptInterface* GetScriptInterface() override;
    unsigned CompileAtom(const char* source, size_t length) override;
    void DeleteAtom(unsigned atom) override;
    bool ExecuteAtomForResult(unsigned atom, int argc, char* argv[], _RXTypeVar* thisObject,
                              int reserved, char* result, size_t size) override;
    int ExecuteAtom(unsigned atom, int reserved, int argc, char* argv[],
                    _RXTypeVar* thisObject) override;
    unsigned FindAtom(const char* name) override;
    unsigned PreParseText(const char* text, bool dataSequence) override;
    bool RetrieveOriginalText(unsigned handle, char* buffer, size_t size) override;
    bool RetrieveProcessedText(unsigned handle, char* buffer, size_t size) override;
    bool RetrieveProcessedResult(unsigned handle, _RXTypeVar& result) override;
    void FreePreParsed(unsigned handle) override;
    unsigned RegisterPersistentClass(const char* name) override;
    void InvalidatePersistentObject(unsigned persistentClass, void* object) override;
    void SetPersistentClass(RXTypeDefinition* type, unsigned persistentClass) override;
    bool FindTextureFile(const char* name, char* output) override;
    bool FindInterfaceFile(const char* name, char* output) override;
    bool OpenClipboard() override;
    void StoreElementPosition(TAVUElement* element) override;
    void RestoreElementPosition(TAVUElement* element) override;
    bool GetKeyName(unsigned key, char* output, size_t size) override;
    void GetCurrentConsole(char* output, size_t size) override;
    void SelectConsole(const char* name) override;

    // HostRenderer: drawing becomes text.
    bool FillRect(tagRECT* rect, unsigned color) override;
    bool TexturedRect(TAVUDrawRecord* record) override;
    bool TexturedRects(unsigned count, TAVUDrawRecord* records) override;
    bool DrawLine(TAVUDrawRecord* record, unsigned width) override;
    unsigned AcquireFont(const char* name, int height, bool fixed, bool bold) override;
    void ReleaseFont(unsigned font) override;
    size_t DrawText(unsigned font, const char* text, tagRECT* rect, unsigned color,
                    unsigned format) override;
    void MeasureText(unsigned font, const char* text, size_t* width) override;
    bool GetCharWidths(unsigned font, unsigned first, unsigned last, float* abc) override;
    bool GetDisplaySize(uint64_t* width, uint64_t* height) override;
    unsigned AcquireTexture(const char* file, unsigned colorKey) override;
    bool GetTextureSize(unsigned texture, _Point2i& size) override;
    void ReleaseTexture(unsigned texture) override;

    // HostScriptInterface: this host has no script objects, so queries and
    // typed evaluation fail cleanly.
    bool DataParse(const char* text, _RXTypeVar& result) override;
    RXTypeDefinition* FindType(const char* name, int, int) override;
    char* GetTempBuffer(unsigned size, const char* contents) override;
    unsigned CompileQuery(const char* query) override;
    bool EvaluateQuery(unsigned query, _RXTypeVar* object, bool* result) override;
    void FreeQuery(unsigned query) override;

private:
    static constexpr int kCharWidth = 7; // every character of every font, in pixels

    int Width;
    int Height;
    std::map<std::string, RXCommandHandler> Commands;
    std::map<std::string, RXTopLevelObjectHandler> Objects;
    std::map<std::string, RXTypeDefinition*> Types;
    std::map<unsigned, std::string> Atoms; // an event's script, kept as text
    std::map<unsigned, std::string> PreParsed;
    std::string Console = "Default";
    std::vector<char> TempBuffer;
    unsigned NextHandle = 1;
};
