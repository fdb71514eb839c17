#include "HostSession.h"

#include "DefaultLook.h"
#include "HostText.h"
#include "Linter.h"
#include "SchemaWriter.h"
#include "ManagerAccess.h"
#include "NativePath.h"

#include <cstdio>
#include <cstdlib>

namespace {

std::string FolderOf(const std::string& path) {
    size_t separator = path.find_last_of("/\\");
    return separator == std::string::npos ? "." : path.substr(0, separator);
}

// A script is named after its file: no folder, no extension.
std::string ScriptNameOf(const std::string& path) {
    size_t separator = path.find_last_of("/\\");
    std::string name = separator == std::string::npos ? path : path.substr(separator + 1);
    size_t dot = name.rfind('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

void PrintLine(const std::string& line) {
    fwrite(line.data(), 1, line.size(), stdout);
    fputc('\n', stdout);
    fflush(stdout);
}

} // namespace

HostSession::HostSession(const HostOptions& options)
    : Options(options), Host(Engine, Trace, Module),
      Objects(Engine, Host.DisplayWidth(), Host.DisplayHeight()),
      Consoles(Engine, Host.CurrentConsole()), TextEdits(Engine),
      Inspect(Module, Engine, Host, options.Prefix) {
    Engine.SetConsole([this](const std::string& line) {
        PrintLine(line);
        Consoles.Route(line);
        Inspect.Heard(line);
        if (Live) Live->Heard(line);
    });
    Host.SetDisplaySize(options.Width, options.Height);
    if (options.Renders()) {
        Renderer = std::make_unique<SoftwareRenderer>(FontLibrary::Create());
        if (!Renderer->HasFonts())
            fprintf(stderr, "tavuhost: this build has no font library: text is measured "
                            "but not drawn\n");
        Host.AttachRenderer(Renderer.get());
        Painter = std::make_unique<OverlayPainter>(*Renderer);
    }
    for (const std::string& file : options.Files)
        Host.AddSearchFolder(FolderOf(file));
    for (const std::string& folder : options.Paths)
        Host.AddSearchFolder(folder);
    ConnectTools();
}

// The inspector hears the console and the element events and takes the input
// first; the reloader learns every file that the interface reads; both paint
// over each frame.
void HostSession::ConnectTools() {
    Host.RouteInputThrough(&Inspect);
    Host.SetEventListener(
        [this](TAVUElement* element, unsigned atom) { Inspect.EventStarted(element, atom); });
    if (Options.Window) Inspect.Arm();
    if (Options.Watch) {
        Live = std::make_unique<LiveReload>(Module, Engine, Options.Files);
        // A reload forgets every template: the look comes back before the files.
        if (Options.UsesDefaultLook()) Live->SetBeforeFiles([this] { LoadDefaultLook(); });
    }
    Host.SetFileListener([this](const std::string& path, bool isInterface) {
        if (isInterface) Inspect.InterfaceLoaded(path);
        if (Live) Live->Watch(path, isInterface);
    });
    Host.SetFramePainter([this] {
        if (!Painter) return;
        if (Live) Live->Paint(*Painter);
        Inspect.Paint(*Painter);
    });
}

void HostSession::PollFiles() {
    if (Live) Live->Poll();
}

HostSession::~HostSession() {
    if (Manager) ManagerAccess::Shutdown(Manager);
    Engine.SetConsole(PrintLine); // the consoles go before the engine
}

std::string HostSession::ModulePath() const {
#if defined(_WIN32)
    const char* fileName = "Tavukit.dll";
#else
    const char* fileName = "libtavukit.so";
#endif
    if (const char* chosen = getenv("TAVUKIT_MODULE")) return chosen;
    return BesideProgram(fileName);
}

// Next to the program first (Windows puts DLLs there), then the build's
// library folder beside it.
std::string HostSession::BesideProgram(const std::string& fileName) {
    char self[1024] = {0};
    GetModuleFileNameA(nullptr, self, sizeof(self));
    std::string folder = FolderOf(self);
    std::string beside = JoinPath(folder, fileName);
    if (FILE* file = fopen(beside.c_str(), "rb")) {
        fclose(file);
        return beside;
    }
    return JoinPath(folder, "../lib/" + fileName);
}

// A bare name such as "colorswatch" is the module of that name in the build
// (libcolorswatch.so, colorswatch.dll); anything with a folder is a path.
std::string HostSession::ElementModulePath(const std::string& name) {
    if (name.find_first_of("/\\") != std::string::npos) return name;
#if defined(_WIN32)
    return BesideProgram(name + ".dll");
#else
    return BesideProgram("lib" + name + ".so");
#endif
}

bool HostSession::LoadModule() {
    std::string path = ModulePath();
    if (!Module.Load(path.c_str())) {
        fprintf(stderr, "tavuhost: %s\n", Module.Error());
        return false;
    }
    // A window lives in real time; anything else drives the clock.
    if (Options.Window)
        Module.ReleaseClock();
    else if (Module.CanDriveClock())
        Module.DriveClock(StartTick);
    else
        fprintf(stderr,
                "tavuhost: the module has no clock controls; timing follows the real clock\n");
    Manager = Module.Enter(&Host);
    if (!Manager) {
        fprintf(stderr, "tavuhost: the module's F1 gave no manager\n");
        return false;
    }
    ManagerAccess::SetPrefix(Manager, Options.Prefix.c_str());
    ManagerAccess::Initialize(Manager);
    for (const std::string& name : Options.ElementModules)
        if (!Extras.Load(ElementModulePath(name))) return false;
    return true;
}

// Before the files, so that a file's template of the same name replaces ours.
bool HostSession::LoadDefaultLook() {
    std::string error;
    if (DefaultLook::Load(Module, error)) return true;
    fprintf(stderr, "tavuhost: %s\n", error.c_str());
    return false;
}

bool HostSession::LoadFiles() {
    if (Options.UsesDefaultLook()) LoadDefaultLook();
    if (!Options.Files.empty()) Host.KeepPositionsBeside(Options.Files.front());
    bool loaded = true;
    for (const std::string& file : Options.Files)
        if (!Module.LoadInterfaceXML(file.c_str())) {
            Engine.Print("Could not load interface file '" + file + "'");
            loaded = false;
        }
    return loaded;
}

void HostSession::RunCommands() {
    for (const std::string& command : Options.Commands) {
        if (Engine.ExitRequested()) return;
        Engine.ClearTemporaries();
        Engine.ExecuteCommand(command.c_str());
    }
}

ScriptInstance* HostSession::LoadScript() {
    std::string text;
    if (!ReadWholeFile(Options.Script, text)) {
        Engine.Print("Could not read script file '" + Options.Script + "'");
        return nullptr;
    }
    return Engine.LoadScript(ScriptNameOf(Options.Script), text);
}

bool HostSession::RunScript() {
    ScriptInstance* script = LoadScript();
    if (!script) return false;
    for (unsigned frames = 0;; ++frames) {
        uint32_t milliseconds = 0;
        Engine.ClearTemporaries();
        ScriptEngine::ScriptState state = Engine.Resume(*script, milliseconds);
        if (state == ScriptEngine::ScriptState::Ended) return true;
        if (frames >= MaxScriptFrames) {
            Engine.Print("Script '" + script->GetName() + "' stopped: still waiting after " +
                         std::to_string(MaxScriptFrames) + " frames");
            return true;
        }
        PollFiles();
        if (state == ScriptEngine::ScriptState::WaitTime)
            Host.Wait(milliseconds);
        else
            Host.Frame();
    }
}

bool HostSession::OpenWindow() {
    std::string title = "tavuhost";
    for (const std::string& file : Options.Files)
        title += " " + file;
    std::string error;
    if (Window.Open(title, int(Options.Width), int(Options.Height), error)) {
        Host.SetClipboardOwner(Window.ClipboardOwner());
        return true;
    }
    fprintf(stderr, "tavuhost: %s\n", error.c_str());
    return false;
}

// One step of a script in a window: resumed when its wait is over.
void HostSession::ResumeScript(ScriptInstance*& script, uint32_t& resumeAt) {
    uint32_t now = Window.Now();
    if (!script || int32_t(now - resumeAt) < 0) return;
    uint32_t milliseconds = 0;
    Engine.ClearTemporaries();
    ScriptEngine::ScriptState state = Engine.Resume(*script, milliseconds);
    if (state == ScriptEngine::ScriptState::Ended) script = nullptr;
    resumeAt = now + (state == ScriptEngine::ScriptState::WaitTime ? milliseconds : 0);
}

// Frames at the pace of the display until the window closes or a script exits.
bool HostSession::RunWindow() {
    ScriptInstance* script = Options.Script.empty() ? nullptr : LoadScript();
    bool loaded = Options.Script.empty() || script;
    uint32_t resumeAt = Window.Now();
    uint32_t pollAt = resumeAt;
    while (!Engine.ExitRequested() && Window.Pump(Inspect)) {
        uint32_t started = Window.Now();
        ResumeScript(script, resumeAt);
        if (int32_t(started - pollAt) >= 0) {
            PollFiles();
            pollAt = started + WatchMilliseconds;
        }
        Host.Frame();
        Window.Present(Renderer->Frame());
        uint32_t spent = Window.Now() - started;
        if (spent < HeadlessHost::FrameMilliseconds)
            Window.Sleep(HeadlessHost::FrameMilliseconds - spent);
    }
    return loaded;
}

bool HostSession::WritePng() {
    std::string error;
    if (Host.WritePicture(Options.Png, error)) return true;
    fprintf(stderr, "tavuhost: %s\n", error.c_str());
    return false;
}

// The linter and the schema need the module only for its key registry:
// nothing is entered, so no element is made and no script runs. The modules
// of --module load too, so that their types are known and, where they list
// their keys, in the registry.
const TAVUKeyRegistryTable* HostSession::LoadRegistry() {
    std::string path = ModulePath();
    if (!Module.Load(path.c_str())) {
        fprintf(stderr, "tavuhost: %s\n", Module.Error());
        return nullptr;
    }
    for (const std::string& name : Options.ElementModules)
        if (!Extras.Load(ElementModulePath(name))) return nullptr;
    using RegistryFunction = const TAVUKeyRegistryTable* (*)();
    auto registry = reinterpret_cast<RegistryFunction>(Module.Find("TavuKeyRegistry"));
    if (!registry) fprintf(stderr, "tavuhost: this Tavukit module has no key registry\n");
    return registry ? registry() : nullptr;
}

int HostSession::RunLint() {
    const TAVUKeyRegistryTable* registry = LoadRegistry();
    if (!registry) return 2;
    std::unique_ptr<FontLibrary> fonts = FontLibrary::Create();
    Linter linter(*registry, Options.Paths, Options.Prefix, fonts.get(), PrintLine);
    // A module's type that lists no keys is still made by its factory.
    using FindFactoryMember = void* (*)(CUIManager*, const char*);
    auto findFactory =
        reinterpret_cast<FindFactoryMember>(Module.Find("_ZN10CUIManager11FindFactoryEPKc"));
    if (findFactory)
        linter.AcceptTypes([this, findFactory](const char* type) {
            return findFactory(Module.GetManager(), type) != nullptr;
        });
    return linter.Run(Options.Files) ? 1 : 0;
}

int HostSession::WriteSchema() {
    const TAVUKeyRegistryTable* registry = LoadRegistry();
    if (!registry) return 2;
    std::string schema = SchemaWriter::Write(*registry, Options.Prefix);
    fwrite(schema.data(), 1, schema.size(), stdout);
    return 0;
}

int HostSession::Run() {
    if (Options.Lint) return RunLint();
    if (Options.Schema) return WriteSchema();
    if (!Options.Trace.empty() && !Trace.Open(Options.Trace)) {
        fprintf(stderr, "tavuhost: cannot write the trace file '%s'\n", Options.Trace.c_str());
        return 2;
    }
    // Without a display there is nothing to do, so nothing is loaded.
    if (Options.Window && !OpenWindow()) return 2;
    // The toolkit's start-up and shutdown register and remove every script
    // type it has: a trace of the run alone does not change with them.
    Trace.Hold(Options.TraceRunOnly);
    if (!LoadModule()) return 1;
    Trace.Hold(false);
    if (!Options.Files.empty() && !Module.CanLoadInterfaces()) {
        fprintf(stderr, "tavuhost: this Tavukit module cannot load interface files yet "
                        "(it exports no CUIManager::LoadInterfaceXML)\n");
        return 1;
    }
    bool failed = !LoadFiles();
    Host.Frame();
    RunCommands();
    if (Options.Window) {
        if (!RunWindow()) failed = true;
    } else {
        if (!Options.Script.empty() && !Engine.ExitRequested() && !RunScript()) failed = true;
        for (unsigned frame = 0; frame < Options.Frames && !Engine.ExitRequested(); ++frame) {
            PollFiles();
            Host.Frame();
        }
    }
    if (!Options.Png.empty() && !WritePng()) failed = true;
    Trace.Hold(Options.TraceRunOnly);
    ManagerAccess::Shutdown(Manager);
    Manager = nullptr;
    int status = Engine.ExitRequested() ? Engine.ExitCode() : 0;
    return failed && status == 0 ? 1 : status;
}
