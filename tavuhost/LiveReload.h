// tavuhost --watch: when an interface file, a file it loads or a texture it
// uses changes on disk, the interface is loaded again from scratch. Each
// interface file is looked at before anything is cleared, so a file that no
// longer reads leaves the last good interface on screen, and the problem
// (file, line, message) is printed and painted over it until a save fixes it.
#pragma once

#include "FileWatch.h"

#include <functional>
#include <string>
#include <vector>

class OverlayPainter;
class ScriptEngine;
class TavukitModule;

class LiveReload {
public:
    LiveReload(TavukitModule& module, ScriptEngine& engine, const std::vector<std::string>& files);

    // Runs after the interface is cleared and before its files load again.
    void SetBeforeFiles(std::function<void()> before) { BeforeFiles = std::move(before); }
    // A file that the host found for the interface (an interface file, or a texture).
    void Watch(const std::string& path, bool isInterface);
    // Reloads when a watched file changed since the last call; true when it did.
    bool Poll();
    // Every console line, so that a file the toolkit refuses is reported too.
    void Heard(const std::string& line);
    // The problem that keeps the last good interface on screen; "" when there is none.
    const std::string& Problem() const { return ProblemText; }
    void Paint(OverlayPainter& painter) const;

private:
    bool FindProblem();
    void Reload();
    void Report(const std::string& problem);

    TavukitModule& Module;
    ScriptEngine& Engine;
    std::vector<std::string> Files; // loaded in this order, as on the command line
    std::vector<std::string> Interfaces;
    FileWatch Watched;
    std::string ProblemText;
    bool Reloading = false;
    std::string Refused; // the toolkit's own word on a file it could not load
    std::function<void()> BeforeFiles;
};
