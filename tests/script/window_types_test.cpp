#include "ScriptTypeTest.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUWindow.h"

#include <string>
#include <utility>
#include <vector>

class WindowTypes : public ScriptTypeTest {
protected:
    TAVUWindow* MakeWindow(const char* name) {
        return static_cast<TAVUWindow*>(
            g_UIManager.LoadElement(g_UIManager.Screen, "window", name));
    }
};

// Every row of both tables, so that a name without its case fails here.
TEST_F(WindowTypes, EachNameOfTheTablesAnswers) {
    TAVUWindow* window = MakeWindow("Main");
    window->SetTitle("Inventory");
    window->ClickFocus = nullptr;
    window->Flags = TAVUWindow::FlagCloseButton | TAVUWindow::FlagMinimizeButton |
                    TAVUWindow::FlagHeightResizable;
    const std::pair<const char*, const char*> members[] =
        {
            {"Title", "1 Inventory"},    {"Minimized", "1 0"},
            {"ClickFocus", "0"}, // none set
            {"IsClosable", "1 1"},       {"IsMinimizable", "1 2"},
            {"IsWidthResizable", "1 0"}, {"IsHeightResizable", "1 16"},
            {"IsResizable", "1 1"}, // the close button's answer, whatever the resize bits
        };
    EXPECT_EQ(size_t(pTAVUWindowType->Members.Count()), std::size(members));
    for (const auto& [name, answer] : members) {
        EXPECT_EQ(Get(pTAVUWindowType, window, name), answer) << name;
        EXPECT_EQ(Member(pTAVUWindowType, nullptr, name), 0) << name;
    }
    const std::pair<const char*, std::vector<std::string>> methods[] = {
        {"SetTitle", {}},
        {"Minimize", {}},
        {"Unminimize", {}},
        {"ToggleMinimize", {}},
        {"SetClickFocus", {"Name"}},
        {"Reset", {}},
        {"SetWidth", {"300"}},
        {"SetHeight", {"200"}},
    };
    EXPECT_EQ(size_t(pTAVUWindowType->Methods.Count()), std::size(methods));
    for (const auto& [name, args] : methods) {
        EXPECT_EQ(Method(pTAVUWindowType, nullptr, name, args), 0) << name;
        EXPECT_EQ(Method(pTAVUWindowType, window, name, args), 1) << name;
    }
    EXPECT_EQ(window->Title, nullptr); // SetTitle with no text
    EXPECT_EQ(Get(pTAVUWindowType, window, "ClickFocus"), "1 Name");
    EXPECT_EQ(window->Width, 300);
    EXPECT_EQ(window->Height, 200);
    EXPECT_EQ(Method(pTAVUWindowType, window, "SetWidth", {}), 0);
    // The frame's vocabulary through the fallback.
    EXPECT_EQ(Get(pTAVUWindowType, window, "Border"), "1 0");
}
