// The host object that tavuhost gives to the toolkit: every operation of the
// three host interfaces, answered without a window.
//
// Script services go to the script engine. Draw calls are traced (with
// --trace); without a renderer they are dropped, fonts measure with a fixed
// 7-pixel advance and textures report the real size of their image file when
// it can be read. With a renderer attached, every draw call, font and texture
// goes to it as well, after its trace line. The host's own commands (wait,
// waitframe, mouse, key, type, screenshot, exit, positions, copyfile) are
// registered in the engine here, since they drive the module.
#pragma once

#include "HostInput.h"
#include "PositionStore.h"
#include "HostInterface.h"
#include "HostScriptInterface.h"
#include "TavukitModule.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

class ScriptEngine;
class SoftwareRenderer;
class TraceWriter;

class HeadlessHost final : public HostInterface, public HostScriptInterface, public HostInput {
public:
    enum : unsigned { FrameMilliseconds = 16 };
    enum : unsigned { TextAdvance = 7 };

    HeadlessHost(ScriptEngine& engine, TraceWriter& trace, TavukitModule& module);
    ~HeadlessHost();
    HeadlessHost(const HeadlessHost&) = delete;
    HeadlessHost& operator=(const HeadlessHost&) = delete;

    void SetDisplaySize(uint64_t width, uint64_t height);
    const uint64_t& DisplayWidth() const { return Width; }
    const uint64_t& DisplayHeight() const { return Height; }
    // From now on frames are painted by the renderer (null: no longer).
    void AttachRenderer(SoftwareRenderer* renderer);
    // The window that owns what the toolkit copies to the system's clipboard:
    // Windows refuses clipboard data from a clipboard opened by no window.
    void SetClipboardOwner(void* window) { ClipboardOwner = window; }
    // Writes the last whole frame as a PNG; false, with the reason, without a renderer.
    bool WritePicture(const std::string& path, std::string& error);
    // Interface and texture files are looked for in these folders, in order.
    void AddSearchFolder(const std::string& folder) { SearchFolders.push_back(folder); }
    // The console that takes command output now, as the toolkit selected it.
    const std::string& CurrentConsole() const { return ConsoleName; }
    // Keeps the positions that elements store beside this interface file.
    void KeepPositionsBeside(const std::string& file) { Positions.KeepBeside(file); }

    // Hooks for the preview's tools: every interface or texture file found,
    // every element event as it starts, and painting over each frame once the
    // toolkit has drawn it.
    typedef std::function<void(const std::string& path, bool isInterface)> FileListener;
    typedef std::function<void(TAVUElement* element, unsigned atom)> EventListener;
    typedef std::function<void()> FramePainter;
    void SetFileListener(FileListener listener) { FileFound = std::move(listener); }
    void SetEventListener(EventListener listener) { EventStarted = std::move(listener); }
    void SetFramePainter(FramePainter painter) { PaintOver = std::move(painter); }
    // The mouse and key commands go through this input (null: straight to the
    // host), so that they meet a tool standing in front of the interface just
    // as the window's input does.
    void RouteInputThrough(HostInput* input) { InputRoute = input; }

    // One frame: the module renders, then the clock moves on by a frame.
    void Frame();
    // Time passes (the clock moves), then a frame shows its effect.
    void Wait(unsigned milliseconds);

    // HostInput
    void PointerMoved(int x, int y) override;
    void ButtonChanged(bool left, bool down) override;
    void WheelTurned(int offset) override;
    void KeyChanged(unsigned code, bool down) override;
    void Resized(int width, int height) override;

    // HostServices
    RXScript* GetCurrentScript() override;
    bool AddCommand(const char* name, RXCommandHandler handler, bool flag1, bool flag2) override;
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

    // HostRenderer
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

    // HostScriptInterface
    bool DataParse(const char* text, _RXTypeVar& result) override;
    RXTypeDefinition* FindType(const char* name, int reserved1, int reserved2) override;
    char* GetTempBuffer(unsigned size, const char* contents) override;
    unsigned CompileQuery(const char* query) override;
    bool EvaluateQuery(unsigned query, _RXTypeVar* object, bool* result) override;
    void FreeQuery(unsigned query) override;

private:
    struct Texture {
        std::string File;
        bool HasSize = false;
        _Point2i Size{0, 0};
    };

    void RegisterCommands();
    int WaitCommand(int argc, char* argv[]);
    int WaitFrameCommand(int argc, char* argv[]);
    int Mouse(int argc, char* argv[]);
    void MouseButton(const std::string& action, const std::string& button);
    int Key(int argc, char* argv[]);
    void PressKey(unsigned code);
    void ReleaseKey(unsigned code);
    int Type(int argc, char* argv[]);
    int Screenshot(int argc, char* argv[]);
    int Exit(int argc, char* argv[]);
    int PositionsCommand(int argc, char* argv[]);
    int CopyFileCommand(int argc, char* argv[]);

    bool FindFile(const char* name, char* output, size_t size, bool isInterface);
    unsigned AcquirePicture(const char* name);
    unsigned AcquireFile(const char* file, unsigned colorKey);
    HostInput& Input() { return InputRoute ? *InputRoute : *this; }
    std::string Describe(const _RXTypeVar* value);
    std::string Arguments(int argc, char* argv[]);
    size_t TextWidth(unsigned font, const char* text);

    ScriptEngine& Engine;
    TraceWriter& Trace;
    TavukitModule& Module;
    uint64_t Width = 800;
    uint64_t Height = 600;
    std::vector<std::string> SearchFolders;
    PositionStore Positions;
    std::map<unsigned, std::string> Fonts;
    std::map<unsigned, Texture> Textures;
    unsigned NextFont = 1;
    // Texture handle 1 marks an untextured line in draw records, so textures start at 2.
    unsigned NextTexture = 2;
    _Point2i MousePosition{-1, -1};
    std::string ConsoleName = "Default";
    std::string Completion;
    std::string CompletionStem;
    bool Rendering = false;
    SoftwareRenderer* Renderer = nullptr;
    FileListener FileFound;
    void* ClipboardOwner = nullptr;
    EventListener EventStarted;
    FramePainter PaintOver;
    HostInput* InputRoute = nullptr;
};
