// The host's consoles that are toolkit elements. While the selected console
// names a "console" element (by its full name, as the toolkit's console
// selector passes it), every line of console output also goes into that
// element, as a game shows command output in its in-game console. The
// command "consolelines NAME [COUNT]" prints the lines a console element
// holds, oldest first (only the newest COUNT), so that scripts can read a
// console back.
//
// The host reaches the element as any host would: through the toolkit's
// "UIElement" object and the console's script type, and reads the lines from
// the fields of the exported class.
#pragma once

#include <string>
#include <vector>

class ScriptEngine;

class ConsoleElements {
public:
    ConsoleElements(ScriptEngine& engine, const std::string& selected);
    ~ConsoleElements();
    ConsoleElements(const ConsoleElements&) = delete;
    ConsoleElements& operator=(const ConsoleElements&) = delete;

    // Copies one line of console output into the selected console element,
    // when there is one.
    void Route(const std::string& line);
    // The lines of the console element of that full name, oldest first;
    // false when no console element has the name.
    bool ReadLines(const std::string& name, std::vector<std::string>& lines);

private:
    int LinesCommand(int argc, char* argv[]);

    ScriptEngine& Engine;
    const std::string& Selected;
    // Routing a line runs toolkit code that may print in turn; such output
    // is not routed again.
    bool Routing = false;
};
