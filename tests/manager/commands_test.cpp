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
    }
    // Runs a command line split at blanks, as the host hands it over.
    int Run(RXCommandHandler command, std::vector<std::string> words) {
        std::vector<char*> argv;
        for (std::string& word : words)
            argv.push_back(word.data());
        return command(int(argv.size()), argv.data());
    }
};

// What the commands say, wrongly used or not, runs end to end in tavuhost's
// commands and ui_messages cases; loading, reloading, unloading and resetting
// through the command in the teardown cases. Here: what the host is answered,
// -1 when a file could not be loaded.
TEST_F(Commands, AnswerWhetherAFileCouldBeLoaded) {
    const std::pair<std::vector<std::string>, int> cases[] = {
        {{"UI", "-explode"}, 0},
        {{"UI", "-reload"}, 0},
        {{"UI", "-load", "-skin", "x"}, 0},
        {{"UI", "-unload"}, 0},
        {{"UI", "-unload", "missing.xml"}, -1},
        {{"UI", "-load", "missing.xml"}, -1},
        {{"UI", "-load", "widgets.xml"}, 0},
        {{"UIElement", "-hide", "Toolbar"}, 0},
        {{"UIElement", "-kill"}, 0},
    };
    for (const auto& [words, answer] : cases)
        EXPECT_EQ(Run(words[0] == "UI" ? UICommand : UIElementCommand, words), answer) << words[1];
}
