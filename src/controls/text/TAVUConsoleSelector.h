// A scope guard over the host's current console: while one lives, command
// output goes to the console it names, and when it ends the console that was
// current before it takes output again. Selectors must nest, since they share
// the host's single notion of the current console.
#pragma once

#include "TavuExport.h"

#include <cstddef>

class TAVUConsole;

class TAVU_API TAVUConsoleSelector {
public:
    enum : unsigned { PreviousSize = 1024 };

    // Sends output to the console of the given name until this selector ends.
    explicit TAVUConsoleSelector(const char* name);
    // Sends output to the console element, by its full name; a null console
    // selects the empty name.
    explicit TAVUConsoleSelector(TAVUConsole* console);
    // A bare null is a null name.
    explicit TAVUConsoleSelector(std::nullptr_t)
        : TAVUConsoleSelector(static_cast<const char*>(nullptr)) {}
    ~TAVUConsoleSelector();

    TAVUConsoleSelector(const TAVUConsoleSelector&) = delete;
    TAVUConsoleSelector& operator=(const TAVUConsoleSelector&) = delete;

    // The console that was current when this selector began.
    const char* GetPrevious() const { return Previous; }

private:
    char Previous[PreviousSize];
};
