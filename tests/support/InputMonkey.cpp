#include "InputMonkey.h"

#include "CUIManager.h"
#include "Platform.h"
#include "TAVUElement.h"
#include "TAVUScreen.h"

#include <climits>

InputMonkey::InputMonkey(FakeHost& host, uint64_t seed) : Host(host), State(seed | 1) {}

// xorshift64*: small, fast and the same everywhere.
uint32_t InputMonkey::Next() {
    State ^= State >> 12;
    State ^= State << 25;
    State ^= State >> 27;
    return uint32_t((State * 0x2545F4914F6CDD1DULL) >> 32);
}

void InputMonkey::Run(int steps) {
    for (int i = 0; i < steps; ++i)
        Step();
}

void InputMonkey::Step() {
    uint32_t roll = Below(100);
    if (roll < 35) {
        _Point2i point = SomePoint();
        g_UIManager.OnMouseMove(point);
    } else if (roll < 45) {
        g_UIManager.OnLMouseDown();
    } else if (roll < 55) {
        g_UIManager.OnLMouseUp();
    } else if (roll < 58) {
        g_UIManager.OnRMouseDown();
    } else if (roll < 61) {
        g_UIManager.OnRMouseUp();
    } else if (roll < 66) {
        g_UIManager.OnMouseWheel(int(Below(7)) * 120 - 360);
    } else if (roll < 74) {
        g_UIManager.OnKeyDown(SomeKey());
    } else if (roll < 82) {
        g_UIManager.OnKeyUp(SomeKey());
    } else if (roll < 94 || Commands.empty()) {
        // Mostly a frame's time, now and then long enough for tooltips and
        // double-click windows to pass.
        TavuAdvanceClock(Below(4) ? 16 : Below(3000));
        g_UIManager.Render();
    } else {
        RunSomeCommand();
    }
}

// Mostly on the screen, sometimes on its edges or far outside.
_Point2i InputMonkey::SomePoint() {
    uint32_t kind = Below(20);
    if (kind == 0) return {INT_MIN, INT_MAX};
    if (kind == 1) return {-1, -1};
    if (kind == 2) return {int(Host.DisplayWidth), int(Host.DisplayHeight)};
    return {int(Below(uint32_t(Host.DisplayWidth))), int(Below(uint32_t(Host.DisplayHeight)))};
}

unsigned InputMonkey::SomeKey() {
    static const unsigned kKeys[] = {8,  9,  13, 16, 17, 18, 27, 32, 33, 34, 35, 36,
                                     37, 38, 39, 40, 45, 46, 65, 67, 86, 88, 90, 112};
    if (Below(8) == 0) return Below(256);
    return kKeys[Below(sizeof(kKeys) / sizeof(kKeys[0]))];
}

std::string InputMonkey::SomeElementName() {
    std::vector<const char*> names;
    for (const auto& entry : g_UIManager.ElementsByID)
        if (entry.second && entry.second != g_UIManager.Screen)
            names.push_back(entry.second->FullName);
    return names.empty() ? "nothing" : names[Below(uint32_t(names.size()))];
}

void InputMonkey::RunSomeCommand() {
    std::string line = Commands[Below(uint32_t(Commands.size()))];
    const std::string placeholder = "{element}";
    size_t at = line.find(placeholder);
    if (at != std::string::npos) line.replace(at, placeholder.size(), SomeElementName());
    Host.RunCommandLine(line);
}
