// A host that answers every call at once and draws nothing, so that a
// benchmark measures the toolkit's own cost.
#pragma once

#include "HostInterface.h"
#include "HostScriptInterface.h"

#include <cstring>

class NullHost : public HostInterface, public HostScriptInterface {
public:
    RXScript* GetCurrentScript() override { return nullptr; }
    bool AddCommand(const char*, RXCommandHandler, bool, bool) override { return true; }
    bool RemoveCommand(const char*) override { return true; }
    int ExecuteCommand(const char*) override { return 0; }
    bool ParseDataSequences(const char*, char*, size_t) override { return false; }
    bool AddTopLevelObject(const char*, RXTopLevelObjectHandler) override { return true; }
    bool RemoveTopLevelObject(const char*) override { return true; }
    bool AddType(RXTypeDefinition*) override { return true; }
    bool RemoveType(RXTypeDefinition*) override { return true; }
    RXTypeDefinition* FindType(const char*) override { return nullptr; }
    const char* CompleteCommand(const char* text, bool) override { return text; }
    bool Calculate(const char*, double*) override { return false; }
    void ConsolePrintf(const char*, ...) override {}
    HostScriptInterface* GetScriptInterface() override { return this; }
    unsigned CompileAtom(const char*, size_t) override { return 1; }
    void DeleteAtom(unsigned) override {}
    bool ExecuteAtomForResult(unsigned, int, char*[], _RXTypeVar*, int, char*, size_t) override {
        return false;
    }
    int ExecuteAtom(unsigned, int, int, char*[], _RXTypeVar*) override { return 0; }
    unsigned FindAtom(const char*) override { return 0; }
    unsigned PreParseText(const char*, bool) override { return 1; }
    bool RetrieveOriginalText(unsigned, char*, size_t) override { return false; }
    bool RetrieveProcessedText(unsigned, char*, size_t) override { return false; }
    bool RetrieveProcessedResult(unsigned, _RXTypeVar&) override { return false; }
    void FreePreParsed(unsigned) override {}
    unsigned RegisterPersistentClass(const char*) override { return 1; }
    void InvalidatePersistentObject(unsigned, void*) override {}
    void SetPersistentClass(RXTypeDefinition*, unsigned) override {}
    bool FindTextureFile(const char*, char*) override { return false; }
    bool FindInterfaceFile(const char*, char*) override { return false; }
    bool OpenClipboard() override { return false; }
    void StoreElementPosition(TAVUElement*) override {}
    void RestoreElementPosition(TAVUElement*) override {}
    bool GetKeyName(unsigned, char*, size_t) override { return false; }
    void GetCurrentConsole(char* output, size_t size) override {
        if (size) output[0] = 0;
    }
    void SelectConsole(const char*) override {}

    bool FillRect(tagRECT*, unsigned) override { return true; }
    bool TexturedRect(TAVUDrawRecord*) override { return true; }
    bool TexturedRects(unsigned, TAVUDrawRecord*) override { return true; }
    bool DrawLine(TAVUDrawRecord*, unsigned) override { return true; }
    unsigned AcquireFont(const char*, int, bool, bool) override { return 1; }
    void ReleaseFont(unsigned) override {}
    size_t DrawText(unsigned, const char*, tagRECT*, unsigned, unsigned) override { return 0; }
    void MeasureText(unsigned, const char*, size_t*) override {}
    bool GetCharWidths(unsigned, unsigned, unsigned, float*) override { return false; }
    bool GetDisplaySize(uint64_t* width, uint64_t* height) override {
        *width = 1920;
        *height = 1080;
        return true;
    }
    unsigned AcquireTexture(const char*, unsigned) override { return 1; }
    bool GetTextureSize(unsigned, _Point2i& size) override {
        size = {64, 64};
        return true;
    }
    void ReleaseTexture(unsigned) override {}

    bool DataParse(const char*, _RXTypeVar&) override { return false; }
    RXTypeDefinition* FindType(const char*, int, int) override { return nullptr; }
    char* GetTempBuffer(unsigned, const char*) override { return nullptr; }
    unsigned CompileQuery(const char*) override { return 0; }
    bool EvaluateQuery(unsigned, _RXTypeVar*, bool*) override { return false; }
    void FreeQuery(unsigned) override {}
};

// Measures 7 pixels a byte, through whole texts and character by character,
// as a host with a cached fixed advance would, and counts the texts drawn.
class FixedPitchHost : public NullHost {
public:
    void MeasureText(unsigned, const char* text, size_t* width) override {
        *width = strlen(text) * 7;
    }
    bool GetCharWidths(unsigned, unsigned, unsigned, float* abc) override {
        abc[0] = abc[2] = 0.0f;
        abc[1] = 7.0f;
        return true;
    }
    size_t DrawText(unsigned, const char* text, tagRECT*, unsigned, unsigned) override {
        ++Drawn;
        return strlen(text) * 7;
    }
    size_t Drawn = 0;
};
