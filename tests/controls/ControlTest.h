// Controls loaded from XML text under a parent that records what its
// children tell it, with helpers to click them and to read what they drew.
#pragma once

#include "CUIManager.h"
#include "TAVUFactory.h"
#include "TAVUScreen.h"
#include "ToolkitTest.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// Presses and releases keys through the manager, as a host delivers them, so
// that typing reads its key state. Each byte of keys is a key: a byte found
// in names stands for the code at its place in codes; + - hold and let go of
// Shift, ^ _ of Control; any other byte is its own code (capitals, digits,
// the blank).
inline void PressKeys(const char* keys, const std::string& names, const unsigned* codes) {
    for (const char* c = keys; *c; ++c) {
        if (*c == '+' || *c == '^') g_UIManager.OnKeyDown(*c == '+' ? 16 : 17);
        if (*c == '-' || *c == '_') g_UIManager.OnKeyUp(*c == '-' ? 16 : 17);
        if (strchr("+-^_", *c)) continue;
        size_t named = names.find(*c);
        unsigned code = named == std::string::npos ? unsigned(*c) : codes[named];
        g_UIManager.OnKeyDown(code);
        g_UIManager.OnKeyUp(code);
    }
}

// The plain text on the clipboard that the toolkit copies to and pastes from.
inline std::string ClipboardText() {
    std::string text;
    if (!OpenClipboard(nullptr)) return text;
    if (HANDLE memory = GetClipboardData(CF_TEXT)) {
        text = static_cast<const char*>(GlobalLock(memory));
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return text;
}
inline void PutOnClipboard(const std::string& text) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    memcpy(GlobalLock(memory), text.c_str(), text.size() + 1);
    GlobalUnlock(memory);
    SetClipboardData(CF_TEXT, memory);
    CloseClipboard();
}

// A parent that keeps every notification (code and value) that reaches it and
// can act on one, as composite controls do.
class NotifiedParent : public TAVUElement {
public:
    using TAVUElement::TAVUElement;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override {
        Notes.push_back({code, value});
        if (OnNote) OnNote(source, code);
    }
    std::vector<std::pair<unsigned, size_t>> Notes;
    std::function<void(TAVUElement*, unsigned)> OnNote;
};

inline TAVUFactory<NotifiedParent> g_NotifiedParentFactory("notifiedparent");

class ControlTest : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        Parent = static_cast<NotifiedParent*>(
            g_UIManager.LoadElement(g_UIManager.Screen, "notifiedparent", "Parent"));
        Parent->Width = 400;
        Parent->Height = 300;
    }

    // Loads one element of the type from XML text under the recording parent.
    template <class T = TAVUElement>
    T* Load(const char* type, const char* name, const char* xml,
            const char* templateName = nullptr) {
        return static_cast<T*>(
            g_UIManager.LoadElement(Parent, type, name, Parse(xml), templateName));
    }

    // Draws the screen once, from a clean record.
    void RenderFrame() {
        Host.ClearRecords();
        g_UIManager.Render();
    }

    // The file names of the textures drawn since the last ClearRecords.
    std::vector<std::string> DrawnTextures() {
        std::vector<std::string> files;
        for (const TAVUDrawRecord& record : Host.DrawRecords)
            files.push_back(Host.LiveTextures[record.Texture]);
        return files;
    }

    _Point2i Point{0, 0};
    NotifiedParent* Parent = nullptr;
};
