// Thousands of random events against the example interfaces and the test
// files, with their event scripts running the commands they hold, and now
// and then a hide, a kill or a reload: nothing crashes, leaks or leaves the
// tree in pieces. The seeds are fixed, so a failure repeats.
#include "InputMonkey.h"
#include "ToolkitTest.h"
#include "TreeChecks.h"

#include <filesystem>
#include <string>

namespace {
struct MonkeyRun {
    const char* File; // under the repository
    uint64_t Seed;
};

const MonkeyRun kRuns[] = {
    {"examples/settings/settings.xml", 1},  {"examples/settings/settings.xml", 2},
    {"tests/data/manager/layout.xml", 3},   {"examples/settings/settings.xml", 4},
    {"tests/data/manager/teardown.xml", 5}, {"tests/data/manager/messages.xml", 6},
};

class Monkey : public ToolkitTest {};

TEST_F(Monkey, RandomInputLeavesAWholeTree) {
    for (const MonkeyRun& run : kRuns) {
        SCOPED_TRACE(std::string(run.File) + " seed " + std::to_string(run.Seed));
        std::string path = std::string(TAVU_TEST_DATA_DIR) + "/../../" + run.File;
        Host.InterfaceFiles["monkey.xml"] = path;
        Host.RunsAtomCommands = true;
        Host.CommandBudget = 2000;
        ASSERT_TRUE(g_UIManager.LoadInterfaceXML("monkey.xml", false, nullptr));
        ASSERT_NE(g_UIManager.Screen->FirstChild, nullptr);
        InputMonkey monkey(Host, run.Seed);
        monkey.Commands = {"UIElement -toggle {element}", "UIElement -kill {element}",
                           "UI -reload monkey.xml", "UI -load monkey.xml"};
        monkey.Run(3000);
        EXPECT_FALSE(Host.AtomRuns.empty()) << "no event script ran";
        ExpectConsistentTree();
        g_UIManager.Reset();
        Host.ClearRecords();
    }
}
// Interface files that once crashed the toolkit (found by the interface
// fuzzer or by hand), each shaken with teardowns as the fuzzer does.
TEST_F(Monkey, FuzzRegressionsEndCleanly) {
    std::string folder = std::string(TAVU_TEST_DATA_DIR) + "/manager/regress";
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        SCOPED_TRACE(entry.path().string());
        Host.InterfaceFiles["fuzz.xml"] = entry.path().string();
        Host.RunsAtomCommands = true;
        Host.CommandBudget = 300;
        EXPECT_TRUE(g_UIManager.LoadInterfaceXML("fuzz.xml", false, nullptr));
        InputMonkey monkey(Host, 7);
        monkey.Commands = {"UI -reload fuzz.xml", "UI -unload fuzz.xml", "UI -reset",
                           "UIElement -kill {element}"};
        monkey.Run(200);
        ExpectConsistentTree();
        g_UIManager.Reset();
    }
}
} // namespace
