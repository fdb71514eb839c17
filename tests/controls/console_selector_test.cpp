#include "TAVUConsoleSelector.h"
#include "ToolkitTest.h"

#include <string>

using ConsoleSelectorTest = ToolkitTest;

TEST_F(ConsoleSelectorTest, NestedSelectorsRestoreInReverseOrder) {
    Host.CurrentConsole = "Main";
    {
        TAVUConsoleSelector outer("Chat");
        EXPECT_EQ(Host.CurrentConsole, "Chat");
        {
            TAVUConsoleSelector inner("Combat");
            EXPECT_EQ(Host.CurrentConsole, "Combat");
            EXPECT_STREQ(inner.GetPrevious(), "Chat");
        }
        EXPECT_EQ(Host.CurrentConsole, "Chat");
    }
    EXPECT_EQ(Host.CurrentConsole, "Main");
}

TEST_F(ConsoleSelectorTest, OverlongCurrentNameIsCutNotOverrun) {
    Host.CurrentConsole = std::string(3000, 'c');
    {
        TAVUConsoleSelector selector("Chat");
        EXPECT_EQ(std::string(selector.GetPrevious()).size(),
                  TAVUConsoleSelector::PreviousSize - 1);
    }
    EXPECT_EQ(Host.CurrentConsole, std::string(TAVUConsoleSelector::PreviousSize - 1, 'c'));
}

TEST_F(ConsoleSelectorTest, NullNameSelectsTheEmptyName) {
    Host.CurrentConsole = "Main";
    {
        TAVUConsoleSelector selector(nullptr);
        EXPECT_EQ(Host.CurrentConsole, "");
    }
    EXPECT_EQ(Host.CurrentConsole, "Main");
}
