// tavuxml FILE | tavuxml --text TEXT
//
// Reads an interface file (or a piece of text) exactly as the toolkit does and
// prints every node, or the one line that says why the toolkit refuses it.
// Exit status: 0 read, 1 refused, 2 bad arguments.
#include "TreePrinter.h"
#include "XMLParser.h"

#include <cstdio>
#include <cstring>
#include <string>

#if defined(_WIN32)
#include "Platform.h"

#include <fcntl.h>
#include <io.h>
#endif

namespace {

const char kUsage[] = "usage: tavuxml FILE | tavuxml --text TEXT\n";

int Usage() {
    fputs(kUsage, stderr);
    return 2;
}

int Report(const XMLParser& parser, bool parsed) {
    std::string out = parsed ? TreePrinter::Print(parser.Root)
                             : "error: " + TreePrinter::Escape(parser.ErrorText) + "\n";
    fwrite(out.data(), 1, out.size(), stdout);
    fflush(stdout);
    return parsed ? 0 : 1;
}

int ParseText(const std::string& text) {
    XMLParser parser;
    return Report(parser, parser.ParseBuffer(text.c_str(), text.size()));
}

} // namespace

#if defined(_WIN32)

namespace {

std::string Utf8(const wchar_t* text) {
    int bytes = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string out(bytes > 0 ? size_t(bytes) : 1, '\0');
    if (bytes > 0) WideCharToMultiByte(CP_UTF8, 0, text, -1, out.data(), bytes, nullptr, nullptr);
    out.resize(strlen(out.c_str()));
    return out;
}

} // namespace

int wmain(int argc, wchar_t** argv) {
    // The output is compared byte for byte: no CR in front of each LF.
    _setmode(_fileno(stdout), _O_BINARY);
    if (argc == 3 && wcscmp(argv[1], L"--text") == 0) return ParseText(Utf8(argv[2]));
    if (argc != 2 || wcsncmp(argv[1], L"--", 2) == 0) return Usage();
    XMLParser parser;
    return Report(parser, parser.ParseFile(argv[1]));
}

#else

int main(int argc, char** argv) {
    if (argc == 3 && strcmp(argv[1], "--text") == 0) return ParseText(argv[2]);
    if (argc != 2 || strncmp(argv[1], "--", 2) == 0) return Usage();
    XMLParser parser;
    return Report(parser, parser.ParseFile(argv[1]));
}

#endif
