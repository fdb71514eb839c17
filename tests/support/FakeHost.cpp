#include "FakeHost.h"

#include "EscapedText.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <sstream>

std::string Quoted(const char* text) {
    return QuotedText(text);
}

std::string Hex(unsigned value) {
    char text[16];
    snprintf(text, sizeof(text), "0x%08x", value);
    return text;
}

std::string Number(long long value) {
    return std::to_string(value);
}
std::string Pointer(const void* value) {
    char text[32];
    snprintf(text, sizeof(text), "%p", value);
    return text;
}

std::string FakeHost::RectText(const tagRECT* rect) {
    if (!rect) return "null";
    return Number(rect->left) + "," + Number(rect->top) + "," + Number(rect->right) + "," +
           Number(rect->bottom);
}

std::string FakeHost::RecordText(const TAVUDrawRecord& r) {
    return "{" + Hex(r.Flags) + " " + Number(r.Left) + "," + Number(r.Top) + "," + Number(r.Right) +
           "," + Number(r.Bottom) + " " + Number(r.TextureLeft) + "," + Number(r.TextureTop) + "," +
           Number(r.TextureRight) + "," + Number(r.TextureBottom) + " " + Number(r.Texture) + " " +
           Number(r.Alpha) + " " + Number(r.Orientation) + " " + Hex(r.ColorMask) + "}";
}

bool FakeHost::WriteBounded(const std::string& text, char* buffer, size_t size) {
    if (!buffer || size == 0) return false;
    size_t length = text.size() < size - 1 ? text.size() : size - 1;
    memcpy(buffer, text.data(), length);
    buffer[length] = 0;
    return true;
}

FakeScript::FakeScript() {
    for (const char* c = "script"; *c; ++c)
        NameText += WCHAR(*c);
    Name = NameText.c_str();
    InAtom = &InAtomFlag;
}

void FakeScript::SetUserInput(const char* text) {
    UserInputText = text ? text : "";
    UserInput = text ? UserInputText.data() : nullptr;
}

std::string FakeHost::Call::Line() const {
    std::string line = Name;
    for (const std::string& arg : Args)
        line += " " + arg;
    return line;
}

void FakeHost::Record(const std::string& name, std::vector<std::string> args) {
    Calls.push_back({name, std::move(args)});
}

std::vector<FakeHost::Call> FakeHost::CallsNamed(const std::string& name) const {
    std::vector<Call> found;
    for (const Call& call : Calls)
        if (call.Name == name) found.push_back(call);
    return found;
}

size_t FakeHost::Count(const std::string& name) const {
    return CallsNamed(name).size();
}

std::string FakeHost::Text::Line() const {
    return Value + " " + RectText(&Rect) + " " + Hex(Color) + " " + Hex(Format);
}

std::vector<std::string> FakeHost::TextLines() const {
    std::vector<std::string> lines;
    for (const Text& text : Texts)
        lines.push_back(text.Line());
    return lines;
}

std::vector<std::string> FakeHost::Ran() const {
    std::vector<std::string> ran;
    for (const AtomRun& run : AtomRuns) {
        size_t open = run.Source.find("{\n"), close = run.Source.rfind("\n}");
        ran.push_back(open == std::string::npos ? run.Source
                                                : run.Source.substr(open + 2, close - open - 2));
    }
    return ran;
}

void FakeHost::ClearRecords() {
    Calls.clear();
    Console.clear();
    Fills.clear();
    DrawRecords.clear();
    LineWidths.clear();
    Texts.clear();
    Commands.clear();
    AtomRuns.clear();
    Invalidated.clear();
    Stored.clear();
    Restored.clear();
}

int FakeHost::ExecuteCommand(const char* text) {
    Record("ExecuteCommand", {Quoted(text)});
    Commands.push_back(text ? text : "");
    if (OnExecuteCommand) OnExecuteCommand(text ? text : "");
    return 0;
}

bool FakeHost::ParseDataSequences(const char* input, char* output, size_t size) {
    Record("ParseDataSequences", {Quoted(input), Number((long long)size)});
    std::string text = input ? input : "";
    if (DataSequences) text = DataSequences(text);
    return WriteBounded(text, output, size);
}

bool FakeHost::RemoveType(RXTypeDefinition* type) {
    Record("RemoveType", {Pointer(type)});
    auto found = std::find(Types.begin(), Types.end(), type);
    if (found == Types.end()) return false;
    Types.erase(found);
    return true;
}

const char* FakeHost::CompleteCommand(const char* text, bool reverse) {
    Record("CompleteCommand", {Quoted(text), Bool(reverse)});
    CompletedCommand = std::string(text ? text : "") + (reverse ? "<" : ">");
    return CompletedCommand.c_str();
}

bool FakeHost::Calculate(const char* expression, double* result) {
    Record("Calculate", {Quoted(expression)});
    std::string text = expression ? expression : "";
    auto found = Calculations.find(text);
    if (found != Calculations.end()) {
        *result = found->second;
        return true;
    }
    char* end = nullptr;
    double value = strtod(text.c_str(), &end);
    if (text.empty() || *end) return false;
    *result = value;
    return true;
}

void FakeHost::ConsolePrintf(const char* format, ...) {
    char line[4096];
    va_list args;
    va_start(args, format);
    vsnprintf(line, sizeof(line), format, args);
    va_end(args);
    Record("ConsolePrintf", {Quoted(line)});
    Console.push_back(line);
}

unsigned FakeHost::CompileAtom(const char* source, size_t length) {
    std::string text(source ? source : "", source ? length : 0);
    Record("CompileAtom", {Quoted(text.c_str()), Number((long long)length)});
    if (FailCompile) return 0;
    unsigned atom = NextHandle++;
    LiveAtoms[atom] = text;
    return atom;
}

// Both forms of running an atom record the call and the run alike.
FakeHost::AtomRun& FakeHost::RecordRun(const char* call, unsigned atom, int argc, char* argv[],
                                       _RXTypeVar* thisObject, bool showThis) {
    std::vector<std::string> args = {Number(atom), Number(argc)};
    AtomRun run{atom,
                LiveAtoms.count(atom) ? LiveAtoms[atom] : "",
                {},
                thisObject ? thisObject->Value.Pointer : nullptr,
                thisObject ? thisObject->Type : nullptr};
    for (int i = 0; i < argc; ++i) {
        args.push_back(Quoted(argv[i]));
        run.Args.push_back(argv[i] ? argv[i] : "");
    }
    if (showThis) args.push_back(thisObject ? Pointer(run.This) : "null");
    Record(call, args);
    AtomRuns.push_back(run);
    return AtomRuns.back();
}

bool FakeHost::ExecuteAtomForResult(unsigned atom, int argc, char* argv[], _RXTypeVar* thisObject,
                                    int reserved, char* result, size_t size) {
    AtomRun run = RecordRun("ExecuteAtomForResult", atom, argc, argv, thisObject, false);
    if (OnExecuteAtom) OnExecuteAtom(run);
    return WriteBounded(AtomResult, result, size);
}

int FakeHost::ExecuteAtom(unsigned atom, int reserved, int argc, char* argv[],
                          _RXTypeVar* thisObject) {
    AtomRun run = RecordRun("ExecuteAtom", atom, argc, argv, thisObject, true);
    if (OnExecuteAtom) return OnExecuteAtom(run);
    if (RunsAtomCommands) RunAtomBody(run.Source);
    return 0;
}

int FakeHost::RunCommandLine(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words{std::istream_iterator<std::string>(stream), {}};
    if (words.empty()) return 0;
    auto command = RegisteredCommands.find(words[0]);
    if (command == RegisteredCommands.end()) return -1;
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    return command->second(int(argv.size()), argv.data());
}

// The body is what the toolkit wrapped in "atom auto(...)\n{\n...\n}\n".
void FakeHost::RunAtomBody(const std::string& source) {
    size_t open = source.find("{\n"), close = source.rfind("\n}");
    if (open == std::string::npos || close == std::string::npos || close < open + 2) return;
    if (AtomDepth >= kMaxAtomDepth) return;
    ++AtomDepth;
    std::string body = source.substr(open + 2, close - open - 2);
    for (size_t at = 0; at <= body.size() && CommandBudget > 0;) {
        size_t end = body.find('\n', at);
        if (end == std::string::npos) end = body.size();
        --CommandBudget;
        RunCommandLine(body.substr(at, end - at));
        at = end + 1;
    }
    --AtomDepth;
}

bool FakeHost::RetrieveProcessedText(unsigned handle, char* buffer, size_t size) {
    Record("RetrieveProcessedText", {Number(handle), Number((long long)size)});
    auto found = LivePreParsed.find(handle);
    if (found == LivePreParsed.end()) return false;
    return WriteBounded(DataSequences ? DataSequences(found->second) : found->second, buffer, size);
}

bool FakeHost::TexturedRects(unsigned count, TAVUDrawRecord* records) {
    std::vector<std::string> args = {Number(count)};
    for (unsigned i = 0; i < count; ++i) {
        args.push_back(RecordText(records[i]));
        DrawRecords.push_back(records[i]);
    }
    Record("TexturedRects", args);
    return true;
}

unsigned FakeHost::AcquireFont(const char* name, int height, bool fixed, bool bold) {
    Record("AcquireFont", {Quoted(name), Number(height), Bool(fixed), Bool(bold)});
    if (FailFonts) return 0;
    unsigned font = NextHandle++;
    LiveFonts[font] = name ? name : "";
    return font;
}

size_t FakeHost::DrawText(unsigned font, const char* text, tagRECT* rect, unsigned color,
                          unsigned format) {
    Record("DrawText", {Number(font), Quoted(text), RectText(rect), Hex(color), Hex(format)});
    Texts.push_back({font, text ? text : "", *rect, color, format});
    return text ? strlen(text) * size_t(CharWidth) : 0;
}

bool FakeHost::GetCharWidths(unsigned font, unsigned first, unsigned last, float* abc) {
    Record("GetCharWidths", {Number(font), Number(first), Number(last)});
    abc[0] = 1.0f;
    abc[1] = float(CharWidth - 2);
    abc[2] = 1.0f;
    return true;
}

bool FakeHost::GetDisplaySize(uint64_t* width, uint64_t* height) {
    Record("GetDisplaySize");
    if (!DisplayAvailable) return false;
    *width = DisplayWidth;
    *height = DisplayHeight;
    return true;
}

unsigned FakeHost::AcquireTexture(const char* file, unsigned colorKey) {
    Record("AcquireTexture", {Quoted(file), Hex(colorKey)});
    std::string name = file ? file : "";
    if (MissingTextures.count(name)) return 0;
    unsigned texture = NextHandle++;
    LiveTextures[texture] = name;
    auto size = TextureSizes.find(name);
    TextureHandleSizes[texture] = size == TextureSizes.end() ? _Point2i{64, 64} : size->second;
    return texture;
}

bool FakeHost::GetTextureSize(unsigned texture, _Point2i& size) {
    Record("GetTextureSize", {Number(texture)});
    auto found = TextureHandleSizes.find(texture);
    if (found == TextureHandleSizes.end()) return false;
    size = found->second;
    return true;
}

char* FakeHost::GetTempBuffer(unsigned size, const char* contents) {
    Record("GetTempBuffer", {Number(size), Quoted(contents)});
    std::string buffer(size + 1, '\0');
    if (contents) strncpy(buffer.data(), contents, size);
    TempBuffers.push_back(std::move(buffer));
    return TempBuffers.back().data();
}
