// Random input for whatever interface is loaded: pointer moves, button
// presses and releases, wheel turns, keys and frames, and, when Commands are
// given, lines of script run through the host between them (teardowns,
// reloads). Seeded and deterministic, so that a run that fails runs again the
// same way. Used by the monkey test and by the interface fuzzer.
#pragma once

#include "FakeHost.h"

#include <cstdint>
#include <string>
#include <vector>

class InputMonkey {
public:
    InputMonkey(FakeHost& host, uint64_t seed);

    // Lines to mix in; "{element}" stands for the full name of an element
    // picked at random when the line runs.
    std::vector<std::string> Commands;

    void Run(int steps);
    void Step();

private:
    uint32_t Next();
    uint32_t Below(uint32_t limit) { return limit ? Next() % limit : 0; }
    _Point2i SomePoint();
    unsigned SomeKey();
    std::string SomeElementName();
    void RunSomeCommand();

    FakeHost& Host;
    uint64_t State;
};
