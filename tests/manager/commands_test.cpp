#include "TAVUCommands.h"
#include "TAVUFactory.h"
#include "TAVUScreen.h"
#include "ToolkitTest.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {
TAVUFactory<TAVUElement> g_WidgetFactory("widget");

std::string DataFile(const char* name) {
    return std::string(TAVU_TEST_DATA_DIR) + "/manager/" + name;
}
} // namespace

class Commands : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        Host.InterfaceFiles["widgets.xml"] = DataFile("widgets.xml");
        Host.InterfaceFiles["skins.xml"] = DataFile("skins.xml");
    }
    // Runs a command line split at blanks, as the host hands it over.
    int Run(RXCommandHandler command, std::vector<std::string> words) {
        std::vector<char*> argv;
        for (std::string& word : words)
            argv.push_back(word.data());
        Host.Console.clear();
        return command(int(argv.size()), argv.data());
    }
    std::string Said() const { return Host.Console.empty() ? "" : Host.Console.back(); }
};

// Loading, reloading, unloading and resetting through the command are
// checked by the teardown cases and by tavuhost's commands and teardown cases.
// The plain syntax line, a load's usage, a missing parent and an unknown
// element are checked end to end by tavuhost's commands case.
TEST_F(Commands, UIUsageAndFailureMessages) {
    const struct {
        std::vector<std::string> Words;
        int Answer;
        const char* Starts;
    } cases[] = {
        {{"UI", "-explode"}, 0, "Syntax: UI -reset"},
        {{"UI", "-reload"}, 0, "Usage: UI -reload"},
        {{"UI", "-reload", "-parent", "x"}, 0, "Usage: UI -load"}, // even for a reload
        {{"UI", "-load", "-skin", "x"}, 0, "Usage: UI -load"},
        {{"UI", "-unload"}, 0, "Usage: UI -unload <filename>"},
        {{"UI", "-unload", "missing.xml"}, -1, "Could not load interface file 'missing.xml'"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Run(UICommand, c.Words), c.Answer) << c.Words[1];
        EXPECT_EQ(Said().rfind(c.Starts, 0), 0u) << Said();
    }
    EXPECT_EQ(Run(UICommand, {"UI", "-load", "missing.xml"}), -1);
    EXPECT_EQ(Host.Console,
              (std::vector<std::string>{"Could not locate file",
                                        "Could not load interface file 'missing.xml'"}));
}

// The list, a toggle and a kill are checked end to end by tavuhost's commands case.
TEST_F(Commands, UIElementHidesAndSaysHowItIsUsed) {
    Run(UICommand, {"UI", "-load", "widgets.xml"});
    TAVUElement* toolbar = g_UIManager.FindElement("Toolbar");
    EXPECT_EQ(Run(UIElementCommand, {"UIElement", "-hide", "Toolbar"}), 0);
    EXPECT_FALSE(toolbar->Visible);
    EXPECT_EQ(Run(UIElementCommand, {"UIElement", "-LIST"}), 0); // options in any case
    EXPECT_EQ(Host.Console.size(), 3u);                          // the heading and two elements
    EXPECT_EQ(Run(UIElementCommand, {"UIElement", "-kill"}), 0);
    EXPECT_EQ(Said(), "Syntax: UIElement -kill <element>");
    EXPECT_EQ(Run(UIElementCommand, {"UIElement"}), 0);
    EXPECT_EQ(Said(), "Syntax: UIElement -list|-hide <name>|-show <name>|-toggle <name>|-kill "
                      "<name>");
}
