// One interface of 100 windows of 49 controls each, written twice from the
// same loop: as the toolkit's interface file and as a CEGUI layout, so that
// both sides load, draw and hit-search exactly the same shapes.
#pragma once

#include <string>

struct ControlsPlace {
    int X, Y, Width, Height;
};

class ControlsInterface {
public:
    static constexpr int kWindows = 100;
    static constexpr int kChildren = 49; // per window: check boxes and buttons in turn
    static constexpr int kWindowWidth = 200;
    static constexpr int kWindowHeight = 300;
    static constexpr int kChildWidth = 38;
    static constexpr int kChildHeight = 20;
    static constexpr int kDisplayWidth = 1920;
    static constexpr int kDisplayHeight = 1080;

    static ControlsPlace Window(int window);
    static ControlsPlace Child(int child); // relative to its window
    static bool IsCheckBox(int child) { return child % 2 == 0; }

    static std::string Tavukit();
    static std::string Cegui();

    // Writes the interface file and the texture file it names.
    static bool WriteTavukitFiles(std::string& interfacePath);
    // Writes text to a file in the temporary folder; gives its path, or "".
    static std::string WriteTemporary(const char* name, const std::string& text);
};
