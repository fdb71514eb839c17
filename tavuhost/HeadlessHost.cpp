#include "HeadlessHost.h"

#include "DefaultLook.h"
#include "ElementAccess.h"
#include "HostText.h"
#include "ImageFile.h"
#include "ImageSize.h"
#include "KeyNames.h"
#include "NativePath.h"
#include "ScriptEngine.h"
#include "SoftwareRenderer.h"
#include "TraceWriter.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// The longest a wait may be, so that a typo cannot stall a run for days.
const long MaxWaitMilliseconds = 3600000;

// A whole number that fits 32 bits, as coordinates, codes and times do.
bool ParseInt(const char* text, long& value) {
    double number = 0;
    if (!ParseNumber(text, number) || number < -2147483648.0 || number > 2147483647.0 ||
        number != double(long(number)))
        return false;
    value = long(number);
    return true;
}

bool IsAbsolute(const std::string& path) {
    return (!path.empty() && (path[0] == '/' || path[0] == '\\')) ||
           (path.size() > 1 && path[1] == ':');
}

bool Readable(const std::string& path) {
    FILE* file = fopen(path.c_str(), "rb");
    if (!file) return false;
    fclose(file);
    return true;
}

} // namespace

HeadlessHost::HeadlessHost(ScriptEngine& engine, TraceWriter& trace, TavukitModule& module)
    : Engine(engine), Trace(trace), Module(module) {
    RegisterCommands();
}

HeadlessHost::~HeadlessHost() {
    for (const char* name : {"wait", "waitframe", "mouse", "key", "type", "screenshot", "exit",
                             "positions", "copyfile"})
        Engine.RemoveCommand(name);
}

void HeadlessHost::SetDisplaySize(uint64_t width, uint64_t height) {
    Width = width;
    Height = height;
    if (Renderer) Renderer->Resize(int(width), int(height));
}

void HeadlessHost::AttachRenderer(SoftwareRenderer* renderer) {
    Renderer = renderer;
    if (Renderer) Renderer->Resize(int(Width), int(Height));
}

bool HeadlessHost::WritePicture(const std::string& path, std::string& error) {
    if (!Renderer) {
        error = "there is no picture without a renderer (run tavuhost with --render or --png FILE)";
        return false;
    }
    const FrameBuffer& frame = Renderer->Frame();
    return ImageFile::WritePng(path, frame.Pixels(), frame.Width(), frame.Height(), error);
}

void HeadlessHost::Frame() {
    // A script of the frame (an "OnRender" atom, a command button) that asks
    // for a frame would render inside the frame itself.
    if (Rendering) {
        Engine.Print("'wait' and 'waitframe' cannot run while a frame renders");
        return;
    }
    Rendering = true;
    Engine.ClearTemporaries();
    if (Renderer) Renderer->BeginFrame();
    Module.Render();
    if (Renderer && PaintOver) PaintOver();
    Module.AdvanceClock(FrameMilliseconds);
    Rendering = false;
}

void HeadlessHost::Wait(unsigned milliseconds) {
    if (!Rendering) Module.AdvanceClock(milliseconds);
    Frame();
}

// ---- the host's own commands ----

void HeadlessHost::RegisterCommands() {
    struct Entry {
        const char* Name;
        int (HeadlessHost::*Handler)(int, char**);
    } commands[] = {
        {"wait", &HeadlessHost::WaitCommand},
        {"waitframe", &HeadlessHost::WaitFrameCommand},
        {"mouse", &HeadlessHost::Mouse},
        {"key", &HeadlessHost::Key},
        {"type", &HeadlessHost::Type},
        {"screenshot", &HeadlessHost::Screenshot},
        {"exit", &HeadlessHost::Exit},
        {"positions", &HeadlessHost::PositionsCommand},
        {"copyfile", &HeadlessHost::CopyFileCommand},
    };
    for (const Entry& entry : commands) {
        auto handler = entry.Handler;
        Engine.AddCommand(entry.Name, [this, handler](int argc, char* argv[]) {
            return (this->*handler)(argc, argv);
        });
    }
}

int HeadlessHost::WaitCommand(int argc, char* argv[]) {
    long milliseconds = 0;
    if (argc != 2 || !ParseInt(argv[1], milliseconds) || milliseconds < 0 ||
        milliseconds > MaxWaitMilliseconds) {
        Engine.Print("Syntax: wait MILLISECONDS (0 to 3600000)");
        return -1;
    }
    if (!Engine.RequestWait(ScriptContext::Request::WaitTime, uint32_t(milliseconds)))
        Wait(unsigned(milliseconds));
    return 0;
}

int HeadlessHost::WaitFrameCommand(int argc, char* argv[]) {
    if (!Engine.RequestWait(ScriptContext::Request::WaitFrame, 0)) Frame();
    return 0;
}

int HeadlessHost::Mouse(int argc, char* argv[]) {
    static const char* const syntax = "Syntax: mouse move X Y | mouse press|release|click "
                                      "left|right [X Y] | mouse wheel N";
    std::string action = argc > 1 ? argv[1] : "";
    long x = 0, y = 0;
    if (SameName(action, "wheel")) {
        if (argc != 3 || !ParseInt(argv[2], x)) return Engine.Print(syntax), -1;
        Input().WheelTurned(int(x));
        return 0;
    }
    bool isMove = SameName(action, "move");
    bool isButton =
        SameName(action, "press") || SameName(action, "release") || SameName(action, "click");
    std::string button = isButton && argc > 2 ? argv[2] : "";
    bool knownButton = SameName(button, "left") || SameName(button, "right");
    int pointAt = isMove ? 2 : 3; // where X stands, when it is given
    bool hasPoint = argc == pointAt + 2;
    // Everything is checked before anything moves, so a mistyped line does nothing.
    bool valid = (isMove && hasPoint) || (isButton && knownButton && (argc == 3 || hasPoint));
    if (!valid || (hasPoint && (!ParseInt(argv[pointAt], x) || !ParseInt(argv[pointAt + 1], y))))
        return Engine.Print(syntax), -1;
    if (hasPoint) Input().PointerMoved(int(x), int(y));
    if (isButton) MouseButton(action, button);
    return 0;
}

void HeadlessHost::MouseButton(const std::string& action, const std::string& button) {
    bool left = SameName(button, "left");
    if (!SameName(action, "release")) Input().ButtonChanged(left, true);
    if (!SameName(action, "press")) Input().ButtonChanged(left, false);
}

int HeadlessHost::Key(int argc, char* argv[]) {
    unsigned code = 0;
    std::string action = argc > 1 ? argv[1] : "";
    if (argc != 3 ||
        !(SameName(action, "press") || SameName(action, "release") || SameName(action, "tap"))) {
        Engine.Print("Syntax: key press|release|tap NAME");
        return -1;
    }
    if (!KeyNames::CodeOf(argv[2], code)) {
        Engine.Print(std::string("key: unknown key '") + argv[2] + "'");
        return -1;
    }
    if (!SameName(action, "release")) Input().KeyChanged(code, true);
    if (!SameName(action, "press")) Input().KeyChanged(code, false);
    return 0;
}

void HeadlessHost::PressKey(unsigned code) {
    Module.SetKeyState(int(code), short(0x8000));
    Module.OnKeyDown(code);
}

void HeadlessHost::ReleaseKey(unsigned code) {
    Module.SetKeyState(int(code), 0);
    Module.OnKeyUp(code);
}

int HeadlessHost::Type(int argc, char* argv[]) {
    std::string text;
    for (int i = 1; i < argc; ++i)
        text += (i > 1 ? " " : "") + std::string(argv[i]);
    const unsigned shiftKey = 0x10;
    for (char character : text) {
        unsigned code = 0;
        bool shift = false;
        if (!KeyNames::KeyFor(character, code, shift)) {
            Engine.Print(std::string("type: no key types '") + character + "'");
            continue;
        }
        if (shift) PressKey(shiftKey);
        PressKey(code);
        ReleaseKey(code);
        if (shift) ReleaseKey(shiftKey);
    }
    return 0;
}

int HeadlessHost::Screenshot(int argc, char* argv[]) {
    if (argc != 2 || !*argv[1]) {
        Engine.Print("Syntax: screenshot FILE.png");
        return -1;
    }
    // Inside a frame the picture is half painted.
    std::string error = Rendering ? "a frame is being painted" : "";
    if (error.empty() && WritePicture(argv[1], error)) return 0;
    Engine.Print(std::string("screenshot: '") + argv[1] + "' was not written: " + error);
    return -1;
}

// Writes a file while the run goes on, as an author's editor would: the way
// a script changes a watched interface file between frames.
int HeadlessHost::CopyFileCommand(int argc, char* argv[]) {
    if (argc != 3) {
        Engine.Print("Syntax: copyfile FROM TO");
        return -1;
    }
    std::string text;
    bool copied = ReadWholeFile(NativePath(argv[1]), text);
    FILE* to = copied ? fopen(NativePath(argv[2]).c_str(), "wb") : nullptr;
    copied = to && fwrite(text.data(), 1, text.size(), to) == text.size();
    if (to && fclose(to) != 0) copied = false;
    if (copied) return 0;
    Engine.Print(std::string("copyfile: '") + argv[1] + "' was not copied to '" + argv[2] + "'");
    return -1;
}

// ---- HostInput ----

void HeadlessHost::PointerMoved(int x, int y) {
    MousePosition = _Point2i{x, y};
    Module.OnMouseMove(MousePosition);
}

void HeadlessHost::ButtonChanged(bool left, bool down) {
    if (down)
        left ? Module.OnLMouseDown() : Module.OnRMouseDown();
    else
        left ? Module.OnLMouseUp() : Module.OnRMouseUp();
}

void HeadlessHost::WheelTurned(int offset) {
    Module.OnMouseWheel(offset);
}

// A window tells left from right modifiers; the keyboard state that the
// toolkit asks for a character also wants the modifier as such.
void HeadlessHost::KeyChanged(unsigned code, bool down) {
    const unsigned shiftLeft = 0xA0, altRight = 0xA5, shift = 0x10;
    if (code >= shiftLeft && code <= altRight)
        Module.SetKeyState(int(shift + (code - shiftLeft) / 2), down ? short(0x8000) : 0);
    down ? PressKey(code) : ReleaseKey(code);
}

void HeadlessHost::Resized(int width, int height) {
    SetDisplaySize(uint64_t(std::max(width, 1)), uint64_t(std::max(height, 1)));
}

int HeadlessHost::Exit(int argc, char* argv[]) {
    long code = 0;
    // Exit statuses are one byte wide on every system.
    if (argc > 2 || (argc == 2 && (!ParseInt(argv[1], code) || code < 0 || code > 255))) {
        Engine.Print("Syntax: exit [CODE] (0 to 255)");
        return -1;
    }
    Engine.RequestExit(int(code));
    return 0;
}

// ---- HostServices ----

std::string HeadlessHost::Describe(const _RXTypeVar* value) {
    // Pointers differ from run to run; the type keeps traces comparable.
    if (!value) return "null";
    return value->Type ? value->Type->GetName() : "untyped";
}

std::string HeadlessHost::Arguments(int argc, char* argv[]) {
    std::string text = TraceWriter::Int(argc);
    for (int i = 0; i < argc && argv; ++i)
        text += " " + TraceWriter::Text(argv[i]);
    return text;
}

RXScript* HeadlessHost::GetCurrentScript() {
    Trace.Write("GetCurrentScript", {});
    return Engine.GetCurrentScript();
}

bool HeadlessHost::AddCommand(const char* name, RXCommandHandler handler, bool flag1, bool flag2) {
    Trace.Write("AddCommand",
                {TraceWriter::Text(name), TraceWriter::Flag(flag1), TraceWriter::Flag(flag2)});
    if (!handler) return false;
    return Engine.AddCommand(name,
                             [handler](int argc, char* argv[]) { return handler(argc, argv); });
}

bool HeadlessHost::RemoveCommand(const char* name) {
    Trace.Write("RemoveCommand", {TraceWriter::Text(name)});
    return Engine.RemoveCommand(name);
}

int HeadlessHost::ExecuteCommand(const char* text) {
    Trace.Write("ExecuteCommand", {TraceWriter::Text(text)});
    return Engine.ExecuteCommand(text);
}

bool HeadlessHost::ParseDataSequences(const char* input, char* output, size_t size) {
    Trace.Write("ParseDataSequences",
                {TraceWriter::Text(input), TraceWriter::Int((long long)size)});
    return Engine.ParseDataSequences(input, output, size);
}

bool HeadlessHost::AddTopLevelObject(const char* name, RXTopLevelObjectHandler handler) {
    Trace.Write("AddTopLevelObject", {TraceWriter::Text(name)});
    if (!handler) return false;
    return Engine.AddTopLevelObject(name, [handler](int argc, char* argv[], _RXTypeVar& result) {
        return handler(argc, argv, result);
    });
}

bool HeadlessHost::RemoveTopLevelObject(const char* name) {
    Trace.Write("RemoveTopLevelObject", {TraceWriter::Text(name)});
    return Engine.RemoveTopLevelObject(name);
}

bool HeadlessHost::AddType(RXTypeDefinition* type) {
    Trace.Write("AddType", {TraceWriter::Text(type ? type->GetName() : nullptr)});
    return Engine.AddType(type);
}

bool HeadlessHost::RemoveType(RXTypeDefinition* type) {
    Trace.Write("RemoveType", {TraceWriter::Text(type ? type->GetName() : nullptr)});
    return Engine.RemoveType(type);
}

RXTypeDefinition* HeadlessHost::FindType(const char* name) {
    Trace.Write("FindType", {TraceWriter::Text(name)});
    return Engine.FindType(name);
}

const char* HeadlessHost::CompleteCommand(const char* text, bool reverse) {
    Trace.Write("CompleteCommand", {TraceWriter::Text(text), TraceWriter::Flag(reverse)});
    std::string typed = text ? text : "";
    // Asking again with our own last answer moves on to the next candidate of
    // the same stem; anything else starts a new stem.
    if (typed != Completion) CompletionStem = typed;
    std::vector<std::string> candidates;
    for (const std::string& name : Engine.CommandNames())
        if (name.size() >= CompletionStem.size() &&
            SameName(name.substr(0, CompletionStem.size()), CompletionStem))
            candidates.push_back(name);
    if (candidates.empty()) return Completion = typed, Completion.c_str();
    size_t count = candidates.size(), at = reverse ? count - 1 : 0;
    for (size_t i = 0; i < count; ++i)
        if (SameName(candidates[i], typed))
            at = reverse ? (i + count - 1) % count : (i + 1) % count;
    Completion = candidates[at];
    return Completion.c_str();
}

bool HeadlessHost::Calculate(const char* expression, double* result) {
    Trace.Write("Calculate", {TraceWriter::Text(expression)});
    double value = 0;
    if (!Engine.Calculate(expression, value)) return false;
    if (result) *result = value;
    return true;
}

void HeadlessHost::ConsolePrintf(const char* format, ...) {
    if (!format) return;
    va_list arguments;
    va_start(arguments, format);
    va_list copy;
    va_copy(copy, arguments);
    int length = vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    std::string line(length > 0 ? size_t(length) : 0, '\0');
    if (length > 0) vsnprintf(line.data(), line.size() + 1, format, arguments);
    va_end(arguments);
    Trace.Write("ConsolePrintf", {TraceWriter::Text(line.c_str())});
    Engine.Print(line);
}

HostScriptInterface* HeadlessHost::GetScriptInterface() {
    Trace.Write("GetScriptInterface", {});
    return this;
}

unsigned HeadlessHost::CompileAtom(const char* source, size_t length) {
    unsigned atom = Engine.CompileAtom(source, length);
    Trace.Write("CompileAtom", {TraceWriter::Text(source), TraceWriter::Int((long long)length),
                                "->", TraceWriter::Int(atom)});
    return atom;
}

void HeadlessHost::DeleteAtom(unsigned atom) {
    Trace.Write("DeleteAtom", {TraceWriter::Int(atom)});
    Engine.DeleteAtom(atom);
}

bool HeadlessHost::ExecuteAtomForResult(unsigned atom, int argc, char* argv[],
                                        _RXTypeVar* thisObject, int reserved, char* result,
                                        size_t size) {
    Trace.Write("ExecuteAtomForResult",
                {TraceWriter::Int(atom), Arguments(argc, argv), Describe(thisObject),
                 TraceWriter::Int(reserved), TraceWriter::Int((long long)size)});
    std::string text;
    if (!Engine.ExecuteAtom(atom, argc, argv, thisObject, &text)) return false;
    CopyText(result, size, text);
    return true;
}

int HeadlessHost::ExecuteAtom(unsigned atom, int reserved, int argc, char* argv[],
                              _RXTypeVar* thisObject) {
    Trace.Write("ExecuteAtom", {TraceWriter::Int(atom), TraceWriter::Int(reserved),
                                Arguments(argc, argv), Describe(thisObject)});
    // The toolkit runs an element's events with the element as the object.
    if (EventStarted && thisObject && thisObject->Value.Pointer)
        EventStarted(static_cast<TAVUElement*>(thisObject->Value.Pointer), atom);
    return Engine.ExecuteAtom(atom, argc, argv, thisObject, nullptr) ? 1 : 0;
}

unsigned HeadlessHost::FindAtom(const char* name) {
    Trace.Write("FindAtom", {TraceWriter::Text(name)});
    return Engine.FindAtom(name);
}

unsigned HeadlessHost::PreParseText(const char* text, bool dataSequence) {
    unsigned handle = Engine.PreParseText(text, dataSequence);
    Trace.Write("PreParseText", {TraceWriter::Text(text), TraceWriter::Flag(dataSequence), "->",
                                 TraceWriter::Int(handle)});
    return handle;
}

bool HeadlessHost::RetrieveOriginalText(unsigned handle, char* buffer, size_t size) {
    Trace.Write("RetrieveOriginalText",
                {TraceWriter::Int(handle), TraceWriter::Int((long long)size)});
    return Engine.RetrieveOriginalText(handle, buffer, size);
}

bool HeadlessHost::RetrieveProcessedText(unsigned handle, char* buffer, size_t size) {
    Trace.Write("RetrieveProcessedText",
                {TraceWriter::Int(handle), TraceWriter::Int((long long)size)});
    return Engine.RetrieveProcessedText(handle, buffer, size);
}

bool HeadlessHost::RetrieveProcessedResult(unsigned handle, _RXTypeVar& result) {
    Trace.Write("RetrieveProcessedResult", {TraceWriter::Int(handle)});
    return Engine.RetrieveProcessedResult(handle, result);
}

void HeadlessHost::FreePreParsed(unsigned handle) {
    Trace.Write("FreePreParsed", {TraceWriter::Int(handle)});
    Engine.FreePreParsed(handle);
}

unsigned HeadlessHost::RegisterPersistentClass(const char* name) {
    unsigned persistentClass = Engine.RegisterPersistentClass(name);
    Trace.Write("RegisterPersistentClass",
                {TraceWriter::Text(name), "->", TraceWriter::Int(persistentClass)});
    return persistentClass;
}

void HeadlessHost::InvalidatePersistentObject(unsigned persistentClass, void* object) {
    Trace.Write("InvalidatePersistentObject", {TraceWriter::Int(persistentClass)});
    Engine.InvalidatePersistentObject(persistentClass, object);
}

void HeadlessHost::SetPersistentClass(RXTypeDefinition* type, unsigned persistentClass) {
    Trace.Write("SetPersistentClass", {TraceWriter::Text(type ? type->GetName() : nullptr),
                                       TraceWriter::Int(persistentClass)});
    Engine.SetPersistentClass(type, persistentClass);
}

// Absolute names are taken as they are; others are looked for in the search
// folders in order, then in the working folder. A path that would not fit the
// caller's buffer counts as not found rather than being cut.
bool HeadlessHost::FindFile(const char* name, char* output, size_t size, bool isInterface) {
    if (!name || !*name || !output) return false;
    std::string wanted = NativePath(name);
    std::vector<std::string> candidates;
    if (!IsAbsolute(wanted))
        for (const std::string& folder : SearchFolders)
            candidates.push_back(JoinPath(folder, wanted));
    candidates.push_back(wanted);
    for (const std::string& candidate : candidates)
        if (candidate.size() < size && Readable(candidate)) {
            CopyText(output, size, candidate);
            if (FileFound) FileFound(candidate, isInterface);
            return true;
        }
    return false;
}

bool HeadlessHost::FindTextureFile(const char* name, char* output) {
    Trace.Write("FindTextureFile", {TraceWriter::Text(name)});
    return FindFile(name, output, TAVU_TEXTURE_PATH_BUFFER, false);
}

bool HeadlessHost::FindInterfaceFile(const char* name, char* output) {
    Trace.Write("FindInterfaceFile", {TraceWriter::Text(name)});
    return FindFile(name, output, TAVU_INTERFACE_PATH_BUFFER, true);
}

bool HeadlessHost::OpenClipboard() {
    Trace.Write("OpenClipboard", {});
#if defined(_WIN32)
    return ::OpenClipboard(static_cast<HWND>(ClipboardOwner)) != 0;
#else
    // Elsewhere the clipboard lives inside the module, which exports its opener.
    auto open = reinterpret_cast<int (*)()>(Module.Find("TavuOpenClipboard"));
    return open && open() != 0;
#endif
}

// Positions are kept for the run only, in the file of the store.
void HeadlessHost::StoreElementPosition(TAVUElement* element) {
    Trace.Write("StoreElementPosition", {});
    StoredPosition position;
    if (ElementAccess::StoragePosition(element, position))
        Positions.Store(ElementAccess::FullName(element), position);
}

void HeadlessHost::RestoreElementPosition(TAVUElement* element) {
    Trace.Write("RestoreElementPosition", {});
    StoredPosition position;
    if (Positions.Find(ElementAccess::FullName(element), position))
        ElementAccess::Place(element, position);
}

int HeadlessHost::PositionsCommand(int argc, char*[]) {
    if (argc != 1) {
        Engine.Print("Syntax: positions");
        return -1;
    }
    for (const std::string& line : Positions.Lines())
        Engine.Print(line);
    return 0;
}

bool HeadlessHost::GetKeyName(unsigned key, char* output, size_t size) {
    Trace.Write("GetKeyName", {TraceWriter::Int(key), TraceWriter::Int((long long)size)});
    std::string name;
    if (!KeyNames::NameOf(key, name) || !output || size == 0) return false;
    CopyText(output, size, name);
    return true;
}

void HeadlessHost::GetCurrentConsole(char* output, size_t size) {
    Trace.Write("GetCurrentConsole", {TraceWriter::Int((long long)size)});
    CopyText(output, size, ConsoleName);
}

void HeadlessHost::SelectConsole(const char* name) {
    Trace.Write("SelectConsole", {TraceWriter::Text(name)});
    if (name) ConsoleName = name;
}

// ---- HostRenderer: recorded, then painted when there is a renderer ----

bool HeadlessHost::FillRect(tagRECT* rect, unsigned color) {
    Trace.Write("FillRect", {TraceWriter::Rect(rect), TraceWriter::Hex(color)});
    if (Renderer && rect) Renderer->FillRect(*rect, color);
    return true;
}

bool HeadlessHost::TexturedRect(TAVUDrawRecord* record) {
    Trace.Write("TexturedRect", {TraceWriter::Record(record)});
    if (Renderer && record) Renderer->TexturedRect(*record);
    return true;
}

bool HeadlessHost::TexturedRects(unsigned count, TAVUDrawRecord* records) {
    if (Trace.IsOn()) {
        std::string fields = TraceWriter::Int(count);
        for (unsigned i = 0; i < count && records; ++i)
            fields += " " + TraceWriter::Record(&records[i]);
        Trace.Write("TexturedRects", {fields});
    }
    for (unsigned i = 0; Renderer && records && i < count; ++i)
        Renderer->TexturedRect(records[i]);
    return true;
}

bool HeadlessHost::DrawLine(TAVUDrawRecord* record, unsigned width) {
    Trace.Write("DrawLine", {TraceWriter::Record(record), TraceWriter::Int(width)});
    if (Renderer && record) Renderer->DrawLine(*record, width);
    return true;
}

// A font that the renderer could not open still gets a handle, and measures
// as it does without a renderer.
unsigned HeadlessHost::AcquireFont(const char* name, int height, bool fixed, bool bold) {
    unsigned font = NextFont++;
    Fonts[font] = name ? name : "";
    if (Renderer) Renderer->OpenFont(font, Fonts[font], height, fixed, bold);
    Trace.Write("AcquireFont",
                {TraceWriter::Text(name), TraceWriter::Int(height), TraceWriter::Flag(fixed),
                 TraceWriter::Flag(bold), "->", TraceWriter::Int(font)});
    return font;
}

void HeadlessHost::ReleaseFont(unsigned font) {
    Trace.Write("ReleaseFont", {TraceWriter::Int(font)});
    Fonts.erase(font);
    if (Renderer) Renderer->ReleaseFont(font);
}

size_t HeadlessHost::TextWidth(unsigned font, const char* text) {
    size_t width = 0;
    if (Renderer && Renderer->MeasureText(font, text, width)) return width;
    return text ? strlen(text) * TextAdvance : 0;
}

size_t HeadlessHost::DrawText(unsigned font, const char* text, tagRECT* rect, unsigned color,
                              unsigned format) {
    Trace.Write("DrawText",
                {TraceWriter::Int(font), TraceWriter::Text(text), TraceWriter::Rect(rect),
                 TraceWriter::Hex(color), TraceWriter::Hex(format)});
    size_t width = 0;
    if (Renderer && rect && Renderer->DrawText(font, text, *rect, color, format, width))
        return width;
    return TextWidth(font, text);
}

void HeadlessHost::MeasureText(unsigned font, const char* text, size_t* width) {
    Trace.Write("MeasureText", {TraceWriter::Int(font), TraceWriter::Text(text)});
    if (width) *width = TextWidth(font, text);
}

bool HeadlessHost::GetCharWidths(unsigned font, unsigned first, unsigned last, float* abc) {
    Trace.Write("GetCharWidths",
                {TraceWriter::Int(font), TraceWriter::Int(first), TraceWriter::Int(last)});
    if (!abc) return false;
    // One character's values: the caller has room for three floats, whatever
    // the range says. The advance is all in the middle value.
    int advance = int(TextAdvance);
    if (Renderer && first < 256)
        Renderer->CharAdvance(font, static_cast<unsigned char>(first), advance);
    abc[0] = 0;
    abc[1] = float(advance);
    abc[2] = 0;
    return true;
}

bool HeadlessHost::GetDisplaySize(uint64_t* width, uint64_t* height) {
    Trace.Write("GetDisplaySize", {});
    if (!width || !height) return false;
    *width = Width;
    *height = Height;
    return true;
}

// An empty name is a texture without an image: a fill in its colour mask.
// A name of the default look's pictures ("#look-tick", ...) is that picture.
// Any other is a file, as named or in the search folders. With a renderer the
// image must also decode, or the texture is refused.
unsigned HeadlessHost::AcquireTexture(const char* file, unsigned colorKey) {
    unsigned texture = AcquirePicture(file);
    if (!texture) texture = AcquireFile(file, colorKey);
    Trace.Write("AcquireTexture", {TraceWriter::Text(file), TraceWriter::Hex(colorKey), "->",
                                   TraceWriter::Int(texture)});
    return texture;
}

// Made here, never looked for on disk; 0 for a name that is no picture of the look.
unsigned HeadlessHost::AcquirePicture(const char* name) {
    Image picture;
    if (!DefaultLook::Picture(name, picture)) return 0;
    Textures[NextTexture] = Texture{"", true, _Point2i{picture.Width, picture.Height}};
    if (Renderer) Renderer->LoadPicture(NextTexture, std::move(picture));
    return NextTexture++;
}

unsigned HeadlessHost::AcquireFile(const char* file, unsigned colorKey) {
    char path[TAVU_TEXTURE_PATH_BUFFER];
    unsigned texture = 0;
    Texture entry;
    bool found =
        file && (!*file || Readable(NativePath(file)) || FindFile(file, path, sizeof(path), false));
    if (found && *file) {
        entry.File = Readable(NativePath(file)) ? NativePath(file) : std::string(path);
        if (FileFound) FileFound(entry.File, false);
    }
    std::string error;
    if (found && Renderer && !Renderer->LoadTexture(NextTexture, entry.File, colorKey, error)) {
        fprintf(stderr, "tavuhost: %s\n", error.c_str());
        found = false;
    }
    if (found) {
        int32_t width = 0, height = 0;
        entry.HasSize = !entry.File.empty() && ImageSize::Read(entry.File.c_str(), width, height);
        entry.Size = _Point2i{width, height};
        if (!entry.HasSize && Renderer && Renderer->TextureSize(NextTexture, width, height))
            entry = Texture{entry.File, true, _Point2i{width, height}};
        texture = NextTexture++;
        Textures[texture] = entry;
    }
    return texture;
}

bool HeadlessHost::GetTextureSize(unsigned texture, _Point2i& size) {
    Trace.Write("GetTextureSize", {TraceWriter::Int(texture)});
    auto found = Textures.find(texture);
    if (found == Textures.end() || !found->second.HasSize) return false;
    size = found->second.Size;
    return true;
}

void HeadlessHost::ReleaseTexture(unsigned texture) {
    Trace.Write("ReleaseTexture", {TraceWriter::Int(texture)});
    Textures.erase(texture);
    if (Renderer) Renderer->ReleaseTexture(texture);
}

// ---- HostScriptInterface ----

bool HeadlessHost::DataParse(const char* text, _RXTypeVar& result) {
    Trace.Write("DataParse", {TraceWriter::Text(text)});
    return Engine.DataParse(text, result);
}

RXTypeDefinition* HeadlessHost::FindType(const char* name, int reserved1, int reserved2) {
    Trace.Write("FindType", {TraceWriter::Text(name), TraceWriter::Int(reserved1),
                             TraceWriter::Int(reserved2)});
    return Engine.FindType(name);
}

// The contents fill the whole buffer, zero bytes and all: the toolkit hands
// wide text (a texture's file name) this way, which a text copy would cut at
// its first zero byte.
char* HeadlessHost::GetTempBuffer(unsigned size, const char* contents) {
    Trace.Write("GetTempBuffer", {TraceWriter::Int(size)});
    char* buffer = Engine.TempBuffer(size, nullptr);
    if (contents) memcpy(buffer, contents, size);
    return buffer;
}

unsigned HeadlessHost::CompileQuery(const char* query) {
    unsigned compiled = Engine.CompileQuery(query);
    Trace.Write("CompileQuery", {TraceWriter::Text(query), "->", TraceWriter::Int(compiled)});
    return compiled;
}

bool HeadlessHost::EvaluateQuery(unsigned query, _RXTypeVar* object, bool* result) {
    Trace.Write("EvaluateQuery", {TraceWriter::Int(query), Describe(object)});
    return Engine.EvaluateQuery(query, object, result);
}

void HeadlessHost::FreeQuery(unsigned query) {
    Trace.Write("FreeQuery", {TraceWriter::Int(query)});
    Engine.FreeQuery(query);
}
