// Generated documents shaped like interface files: windows of nested controls
// with attributes, value elements, indentation, comments and a little markup
// in text, the mix the toolkit reads at load time.
#pragma once

#include <cstddef>
#include <string>

class InterfaceDocument {
public:
    // A document of at least targetBytes, the same on every run.
    static std::string Generate(size_t targetBytes);

private:
    static void AppendWindow(std::string& out, unsigned index);
    static void AppendControl(std::string& out, unsigned window, unsigned index, int depth);
};
