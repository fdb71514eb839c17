// One run of tavuhost: load the module, hand it the host, load the interface
// files, render the first frame, run the -e commands and the script, render
// the closing frames, and shut down. The clock is driven, so the same input
// gives the same output byte for byte. A window run instead follows the real
// clock: it shows frames and runs the script until the window is closed.
#pragma once

#include "HeadlessHost.h"
#include "HostObjects.h"
#include "HostOptions.h"
#include "PreviewWindow.h"
#include "ScriptEngine.h"
#include "SoftwareRenderer.h"
#include "ConsoleElements.h"
#include "TextEditElements.h"
#include "ElementModules.h"
#include "Inspector.h"
#include "LiveReload.h"
#include "OverlayPainter.h"
#include "TavukitModule.h"
#include "TraceWriter.h"
#include "TAVUKeyRegistry.h"

#include <memory>
#include <string>

class HostSession {
public:
    // The tick at which every run starts.
    enum : unsigned { StartTick = 100000 };
    // A script that is still waiting after this many frames is stopped.
    enum : unsigned { MaxScriptFrames = 100000 };
    // A window looks at the watched files this often; a run without one
    // looks before every frame, so that tests see a change at once.
    enum : unsigned { WatchMilliseconds = 250 };

    explicit HostSession(const HostOptions& options);
    ~HostSession();

    // The exit status: 0, 1 when a file failed to load or the script chose
    // it, or the code of "exit".
    int Run();

private:
    bool LoadModule();
    static std::string BesideProgram(const std::string& fileName);
    static std::string ElementModulePath(const std::string& name);
    bool LoadDefaultLook();
    bool LoadFiles();
    void RunCommands();
    ScriptInstance* LoadScript();
    bool RunScript();
    bool OpenWindow();
    bool RunWindow();
    void ResumeScript(ScriptInstance*& script, uint32_t& resumeAt);
    bool WritePng();
    const TAVUKeyRegistryTable* LoadRegistry();
    int RunLint();
    int WriteSchema();
    void ConnectTools();
    void PollFiles();
    std::string ModulePath() const;

    const HostOptions& Options;
    ScriptEngine Engine;
    TraceWriter Trace;
    TavukitModule Module;
    ElementModules Extras;                      // after Module: unloaded before it
    std::unique_ptr<SoftwareRenderer> Renderer; // before Host: outlives it
    PreviewWindow Window;
    HeadlessHost Host;
    HostObjects Objects;
    ConsoleElements Consoles;
    TextEditElements TextEdits;
    Inspector Inspect;                       // stands between the input and Host
    std::unique_ptr<LiveReload> Live;        // with --watch
    std::unique_ptr<OverlayPainter> Painter; // when frames are painted
    CUIManager* Manager = nullptr;
};
