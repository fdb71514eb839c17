#include "MinimalHost.h"

#include "RXTypeDefinition.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>

namespace {

// Every text the toolkit hands the host a buffer for is cut to fit, never overrun.
bool CopyBounded(char* output, size_t size, const std::string& text) {
    if (!output || size == 0) return false;
    size_t length = text.size() < size - 1 ? text.size() : size - 1;
    memcpy(output, text.data(), length);
    output[length] = 0;
    return length == text.size();
}

bool Readable(const char* path) {
    FILE* file = fopen(path, "rb");
    if (!file) return false;
    fclose(file);
    return true;
}

void PrintRect(const char* what, long left, long top, long right, long bottom) {
    printf("%s %ld,%ld,%ld,%ld", what, left, top, right, bottom);
}

} // namespace

// --- Commands and scripts ---------------------------------------------------
//
// This host's script language is one command per line: the toolkit's own
// commands ("UI", "UIElement", ...) as it registers them, and "echo", which the
// host brings. Event scripts are kept as text and run the same way.

RXScript* MinimalHost::GetCurrentScript() {
    return nullptr; // nothing runs outside the toolkit's own events
}

bool MinimalHost::AddCommand(const char* name, RXCommandHandler handler, bool, bool) {
    Commands[name] = handler;
    return true;
}

bool MinimalHost::RemoveCommand(const char* name) {
    return Commands.erase(name) > 0;
}

int MinimalHost::ExecuteCommand(const char* text) {
    std::istringstream line(text ? text : "");
    std::vector<std::string> words;
    for (std::string word; line >> word;)
        words.push_back(word);
    if (words.empty()) return 0;
    if (words[0] == "echo") {
        const char* rest = strstr(text, "echo") + 4;
        printf("echo:%s\n", rest);
        return 0;
    }
    auto command = Commands.find(words[0]);
    if (command == Commands.end()) {
        printf("unknown command '%s'\n", words[0].c_str());
        return -1;
    }
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    return command->second(int(argv.size()), argv.data());
}

// No data sequences: text stands for itself.
bool MinimalHost::ParseDataSequences(const char* input, char* output, size_t size) {
    return CopyBounded(output, size, input ? input : "");
}

bool MinimalHost::AddTopLevelObject(const char* name, RXTopLevelObjectHandler handler) {
    Objects[name] = handler;
    return true;
}

bool MinimalHost::RemoveTopLevelObject(const char* name) {
    return Objects.erase(name) > 0;
}

bool MinimalHost::AddType(RXTypeDefinition* type) {
    Types[type->GetName()] = type;
    return true;
}

bool MinimalHost::RemoveType(RXTypeDefinition* type) {
    return Types.erase(type->GetName()) > 0;
}

RXTypeDefinition* MinimalHost::FindType(const char* name) {
    auto found = Types.find(name ? name : "");
    return found == Types.end() ? nullptr : found->second;
}

const char* MinimalHost::CompleteCommand(const char*, bool) {
    return nullptr;
}

bool MinimalHost::Calculate(const char* expression, double* result) {
    char* end = nullptr;
    *result = strtod(expression, &end);
    return end != expression && *end == 0;
}

void MinimalHost::ConsolePrintf(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    printf("console: ");
    vprintf(format, arguments);
    printf("\n");
    va_end(arguments);
}

HostScriptInterface* MinimalHost::GetScriptInterface() {
    return this;
}

// The toolkit hands an event's script over inside a function frame,
// "atom NAME(...)\n{\n...\n}", for hosts whose languages compile functions.
// This host runs lines, so it keeps the body.
unsigned MinimalHost::CompileAtom(const char* source, size_t length) {
    std::string text(source, length);
    size_t open = text.find("{\n"), close = text.rfind("\n}");
    if (open != std::string::npos && close != std::string::npos && close > open)
        text = text.substr(open + 2, close - open - 2);
    unsigned atom = NextHandle++;
    Atoms[atom] = text;
    return atom;
}

void MinimalHost::DeleteAtom(unsigned atom) {
    Atoms.erase(atom);
}

bool MinimalHost::ExecuteAtomForResult(unsigned atom, int, char*[], _RXTypeVar*, int, char* result,
                                       size_t size) {
    auto found = Atoms.find(atom);
    return found != Atoms.end() && CopyBounded(result, size, found->second);
}

int MinimalHost::ExecuteAtom(unsigned atom, int, int, char*[], _RXTypeVar*) {
    auto found = Atoms.find(atom);
    if (found == Atoms.end()) return -1;
    std::string source = found->second; // a command may delete the atom
    std::istringstream lines(source);
    int status = 0;
    for (std::string line; std::getline(lines, line);)
        status = ExecuteCommand(line.c_str());
    return status;
}

unsigned MinimalHost::FindAtom(const char*) {
    return 0;
}

unsigned MinimalHost::PreParseText(const char* text, bool) {
    unsigned handle = NextHandle++;
    PreParsed[handle] = text ? text : "";
    return handle;
}

bool MinimalHost::RetrieveOriginalText(unsigned handle, char* buffer, size_t size) {
    auto found = PreParsed.find(handle);
    return found != PreParsed.end() && CopyBounded(buffer, size, found->second);
}

bool MinimalHost::RetrieveProcessedText(unsigned handle, char* buffer, size_t size) {
    return RetrieveOriginalText(handle, buffer, size);
}

bool MinimalHost::RetrieveProcessedResult(unsigned, _RXTypeVar&) {
    return false;
}

void MinimalHost::FreePreParsed(unsigned handle) {
    PreParsed.erase(handle);
}

unsigned MinimalHost::RegisterPersistentClass(const char*) {
    return NextHandle++;
}

void MinimalHost::InvalidatePersistentObject(unsigned, void*) {}

void MinimalHost::SetPersistentClass(RXTypeDefinition*, unsigned) {}

// Files are looked for as named, relative to the working folder.
bool MinimalHost::FindTextureFile(const char* name, char* output) {
    return name && Readable(name) && CopyBounded(output, TAVU_TEXTURE_PATH_BUFFER, name);
}

bool MinimalHost::FindInterfaceFile(const char* name, char* output) {
    return name && Readable(name) && CopyBounded(output, TAVU_INTERFACE_PATH_BUFFER, name);
}

bool MinimalHost::OpenClipboard() {
    return false;
}

void MinimalHost::StoreElementPosition(TAVUElement*) {}

void MinimalHost::RestoreElementPosition(TAVUElement*) {}

bool MinimalHost::GetKeyName(unsigned, char*, size_t) {
    return false;
}

void MinimalHost::GetCurrentConsole(char* output, size_t size) {
    CopyBounded(output, size, Console);
}

void MinimalHost::SelectConsole(const char* name) {
    Console = name ? name : "";
}

// --- Drawing ----------------------------------------------------------------

bool MinimalHost::FillRect(tagRECT* rect, unsigned color) {
    PrintRect("fill", rect->left, rect->top, rect->right, rect->bottom);
    printf(" %08X\n", color);
    return true;
}

bool MinimalHost::TexturedRect(TAVUDrawRecord* record) {
    PrintRect("texture", record->Left, record->Top, record->Right, record->Bottom);
    printf(" #%u\n", record->Texture);
    return true;
}

bool MinimalHost::TexturedRects(unsigned count, TAVUDrawRecord* records) {
    for (unsigned i = 0; i < count; ++i)
        TexturedRect(&records[i]);
    return true;
}

bool MinimalHost::DrawLine(TAVUDrawRecord* record, unsigned width) {
    PrintRect("line", record->Left, record->Top, record->Right, record->Bottom);
    printf(" width %u\n", width);
    return true;
}

unsigned MinimalHost::AcquireFont(const char*, int, bool, bool) {
    return NextHandle++;
}

void MinimalHost::ReleaseFont(unsigned) {}

size_t MinimalHost::DrawText(unsigned, const char* text, tagRECT* rect, unsigned color, unsigned) {
    PrintRect("text", rect->left, rect->top, rect->right, rect->bottom);
    printf(" %08X \"", color);
    for (const char* c = text; *c; ++c) // one line per call, whatever the text holds
        *c == '\n' ? printf("\\n") : putchar(*c);
    printf("\"\n");
    return strlen(text) * kCharWidth;
}

void MinimalHost::MeasureText(unsigned, const char* text, size_t* width) {
    *width = text ? strlen(text) * kCharWidth : 0;
}

// The toolkit asks for one character at a time, with room for its three values.
bool MinimalHost::GetCharWidths(unsigned, unsigned, unsigned, float* abc) {
    if (!abc) return false;
    abc[0] = 0;
    abc[1] = kCharWidth;
    abc[2] = 0;
    return true;
}

bool MinimalHost::GetDisplaySize(uint64_t* width, uint64_t* height) {
    *width = uint64_t(Width);
    *height = uint64_t(Height);
    return true;
}

// Every texture is a 64x64 picture; a real host reads the file.
unsigned MinimalHost::AcquireTexture(const char*, unsigned) {
    return NextHandle++;
}

bool MinimalHost::GetTextureSize(unsigned, _Point2i& size) {
    size.x = 64;
    size.y = 64;
    return true;
}

void MinimalHost::ReleaseTexture(unsigned) {}

// --- The script interface -----------------------------------------------------

bool MinimalHost::DataParse(const char*, _RXTypeVar&) {
    return false;
}

RXTypeDefinition* MinimalHost::FindType(const char* name, int, int) {
    return FindType(name);
}

char* MinimalHost::GetTempBuffer(unsigned size, const char* contents) {
    TempBuffer.assign(contents, contents + size);
    TempBuffer.push_back(0);
    return TempBuffer.data();
}

unsigned MinimalHost::CompileQuery(const char*) {
    return 0;
}

bool MinimalHost::EvaluateQuery(unsigned, _RXTypeVar*, bool*) {
    return false;
}

void MinimalHost::FreeQuery(unsigned) {}
