#include "HostOptions.h"

#include <cstdlib>
#include <cstring>

namespace {
// Bounds that keep a mistyped number from asking for absurd work.
const uint64_t MaxDisplaySide = 16384;
const unsigned long MaxFrames = 1000000;
const size_t MaxPrefix = 63;

bool AllDigits(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}
} // namespace

const char* HostOptions::Usage() {
    return "Usage: tavuhost [OPTIONS] [FILE.xml ...]\n"
           "  --size WxH      display size (default 800x600)\n"
           "  --prefix TAG    tag of the contents node of interface files (default TAVU)\n"
           "  --path DIR      also search DIR for interface and texture files\n"
           "  -e CMD          run one command line (repeatable, in order)\n"
           "  --script FILE   run FILE as a script\n"
           "  --frames N      frames to render at the end (default 1)\n"
           "  --trace FILE    write every call into the host to FILE (- for standard output)\n"
           "  --trace-run     leave the toolkit's start-up and shutdown out of the trace\n"
           "  --module NAME   load a module of element types after the toolkit (a name such\n"
           "                  as colorswatch, or a path; repeatable)\n"
           "  --render        paint every frame with real fonts and textures\n"
           "                  (for the screenshot command)\n"
           "  --png FILE      paint the frames and write the last one to FILE\n"
           "  --window        show the interface in a window to click and type into\n"
           "                  (F12 there opens the inspector)\n"
           "  --watch         reload the interface when a file of it changes on disk\n"
           "  --default-look  dress the interface in tavuhost's plain templates also in a\n"
           "                  run that paints nothing (painted runs wear them already)\n"
           "  --no-default-look\n"
           "                  leave the interface as its files describe it\n"
           "  --lint          check the files and report each problem as\n"
           "                  file:line:column: message (exit status 1 when any)\n"
           "  --schema        write an XSD of interface files to standard output\n"
           "  --help          show this text\n";
}

bool HostOptions::Fail(const std::string& message) {
    ErrorText = message;
    return false;
}

bool HostOptions::ParseSize(const std::string& text) {
    size_t cross = text.find_first_of("xX");
    if (cross == std::string::npos) return Fail("--size wants WxH, such as 800x600");
    std::string width = text.substr(0, cross), height = text.substr(cross + 1);
    if (!AllDigits(width) || !AllDigits(height) || width.size() > 6 || height.size() > 6)
        return Fail("--size wants WxH, such as 800x600");
    Width = strtoull(width.c_str(), nullptr, 10);
    Height = strtoull(height.c_str(), nullptr, 10);
    if (Width == 0 || Height == 0 || Width > MaxDisplaySide || Height > MaxDisplaySide)
        return Fail("--size: each side must be between 1 and 16384");
    return true;
}

bool HostOptions::ParseFrames(const std::string& text) {
    if (!AllDigits(text) || text.size() > 7 || strtoul(text.c_str(), nullptr, 10) > MaxFrames)
        return Fail("--frames wants a number from 0 to 1000000");
    Frames = unsigned(strtoul(text.c_str(), nullptr, 10));
    return true;
}

bool HostOptions::Parse(int argc, char* argv[]) {
    bool optionsEnded = false;
    for (int i = 1; i < argc; ++i) {
        std::string word = argv[i];
        if (optionsEnded || word.empty() || word[0] != '-' || word == "-") {
            Files.push_back(word);
            continue;
        }
        if (word == "--") {
            optionsEnded = true;
            continue;
        }
        if (word == "--help" || word == "-h" || word == "--render" || word == "--window" ||
            word == "--watch" || word == "--lint" || word == "--schema" ||
            word == "--default-look" || word == "--no-default-look" || word == "--trace-run") {
            Help = Help || word == "--help" || word == "-h";
            Render = Render || word == "--render";
            Window = Window || word == "--window";
            Watch = Watch || word == "--watch";
            Lint = Lint || word == "--lint";
            Schema = Schema || word == "--schema";
            DefaultLook = DefaultLook || word == "--default-look";
            NoDefaultLook = NoDefaultLook || word == "--no-default-look";
            TraceRunOnly = TraceRunOnly || word == "--trace-run";
            continue;
        }
        static const char* const withValue[] = {"--size",  "--prefix", "--path",
                                                "-e",      "--script", "--frames",
                                                "--trace", "--module", "--png"};
        bool known = false;
        for (const char* option : withValue)
            known = known || word == option;
        if (!known) return Fail("unknown option '" + word + "'");
        if (i + 1 >= argc) return Fail(word + " needs a value");
        std::string value = argv[++i];
        if (word == "--size" && !ParseSize(value)) return false;
        if (word == "--frames" && !ParseFrames(value)) return false;
        if (word == "--prefix") {
            if (value.empty() || value.size() > MaxPrefix)
                return Fail("--prefix wants a tag of 1 to 63 characters");
            Prefix = value;
        }
        if (word == "--path") Paths.push_back(value);
        if (word == "-e") Commands.push_back(value);
        if (word == "--script") {
            if (!Script.empty()) return Fail("only one --script may be given");
            Script = value;
        }
        if (word == "--trace") Trace = value;
        if (word == "--module") ElementModules.push_back(value);
        if (word == "--png") {
            if (value.empty()) return Fail("--png wants a file name");
            Png = value;
        }
    }
    return true;
}
