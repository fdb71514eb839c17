// The command line of tavuhost:
//   tavuhost [OPTIONS] [FILE.xml ...]
// with --size WxH, --prefix TAG, --path DIR, -e CMD, --script FILE,
// --frames N, --trace FILE (or - for standard output) and --trace-run, which
// leaves the toolkit's start-up and shutdown out of it, --module FILE, and
// --render, --png FILE and --window, which paint the frames, and --watch,
// which reloads the interface when its files change, --lint, which only
// checks the files, --schema, which writes the files' XSD, and
// --default-look and --no-default-look, which choose whether tavuhost's own
// templates dress the interface.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class HostOptions {
public:
    // False on bad usage; Error() then says what was wrong.
    bool Parse(int argc, char* argv[]);
    const std::string& Error() const { return ErrorText; }
    static const char* Usage();

    uint64_t Width = 800;
    uint64_t Height = 600;
    std::string Prefix = "TAVU";
    std::vector<std::string> Paths;
    std::vector<std::string> Commands;
    std::string Script;
    unsigned Frames = 1;
    std::string Trace;
    bool TraceRunOnly = false;               // the trace leaves out start-up and shutdown
    std::vector<std::string> ElementModules; // modules of element types, in order
    std::vector<std::string> Files;
    std::string Png;     // the last frame is written here
    bool Render = false; // paint frames even without --png or --window
    bool Window = false;
    bool Watch = false;         // reload the interface when one of its files changes
    bool Lint = false;          // check the files and report, running nothing
    bool Schema = false;        // write the schema of interface files and stop
    bool DefaultLook = false;   // load tavuhost's templates even in a run that paints nothing
    bool NoDefaultLook = false; // load them not even in a run that paints
    bool Help = false;

    // Frames are painted (real fonts, decoded textures) only when asked for,
    // so that the output of a plain run never depends on the fonts installed.
    bool Renders() const { return Render || Window || !Png.empty(); }
    // The default look dresses every painted run, and a headless one only on
    // request, so that traces and output stay those of a plain host.
    bool UsesDefaultLook() const { return !NoDefaultLook && (DefaultLook || Renders()); }

private:
    bool Fail(const std::string& message);
    bool ParseSize(const std::string& text);
    bool ParseFrames(const std::string& text);

    std::string ErrorText;
};
