#include "LiveReload.h"

#include "HostText.h"
#include "ManagerAccess.h"
#include "OverlayPainter.h"
#include "ScriptEngine.h"
#include "TavukitModule.h"
#include "XmlCheck.h"

LiveReload::LiveReload(TavukitModule& module, ScriptEngine& engine,
                       const std::vector<std::string>& files)
    : Module(module), Engine(engine), Files(files) {
    for (const std::string& file : files)
        Watch(file, true);
}

void LiveReload::Watch(const std::string& path, bool isInterface) {
    size_t before = Watched.Count();
    Watched.Add(path);
    if (isInterface && Watched.Count() > before) Interfaces.push_back(path);
}

bool LiveReload::Poll() {
    if (!Watched.Changed()) return false;
    if (FindProblem()) return true;
    Reload();
    return true;
}

void LiveReload::Heard(const std::string& line) {
    // The toolkit's words for a file that it found but could not read.
    if (Reloading && Refused.empty() &&
        (line.rfind("Failed to parse ", 0) == 0 || line.rfind("Failed to find ", 0) == 0 ||
         line == "Could not locate file"))
        Refused = line;
}

// Each interface file is looked at in full before anything is cleared.
bool LiveReload::FindProblem() {
    for (const std::string& path : Interfaces) {
        std::string text;
        if (!ReadWholeFile(path, text)) {
            Report(path + ": cannot be read");
            return true;
        }
        XmlProblem problem;
        if (!XmlCheck::Check(text, problem)) {
            Report(path + " line " + std::to_string(problem.Line) + ": " + problem.Message);
            return true;
        }
    }
    return false;
}

void LiveReload::Reload() {
    if (!ManagerAccess::ClearInterface(Module)) {
        Report("this Tavukit module cannot clear its interface, so it cannot reload");
        return;
    }
    ProblemText.clear();
    Reloading = true;
    Refused.clear();
    std::string failed;
    if (BeforeFiles) BeforeFiles();
    for (const std::string& file : Files)
        if (!Module.LoadInterfaceXML(file.c_str()) && failed.empty()) failed = file;
    Reloading = false;
    if (!failed.empty()) {
        Report(failed + ": " + (Refused.empty() ? "could not be loaded" : Refused));
        return;
    }
    std::string names;
    for (const std::string& file : Files)
        names += " " + file;
    Engine.Print("Reloaded" + names);
}

void LiveReload::Report(const std::string& problem) {
    ProblemText = problem;
    Engine.Print("Reload failed: " + problem);
}

void LiveReload::Paint(OverlayPainter& painter) const {
    if (ProblemText.empty()) return;
    const std::string lines[] = {
        "Reload failed: " + ProblemText,
        "The last good interface stays on screen until a save fixes it.",
    };
    int height = 2 * OverlayPainter::LineHeight + 2 * OverlayPainter::Margin;
    painter.Panel(0, painter.Height() - height, painter.Width(), lines, 2, 0xE0801010, 0xFFFFFFFF);
}
