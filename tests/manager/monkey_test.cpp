// Thousands of random events against the example interfaces and the test
// files, with their event scripts running the commands they hold, and now
// and then a hide, a kill or a reload: nothing crashes, leaks or leaves the
// tree in pieces. The seeds are fixed, so a failure repeats.
#include "InputMonkey.h"
#include "ToolkitTest.h"
#include "TreeChecks.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

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

class Monkey : public ToolkitTest {
protected:
    // Loads file as name, with its event scripts running their commands, and
    // shakes it: the tree must hang together afterwards.
    void Shake(const std::string& file, const char* name, uint64_t seed, long budget, int steps,
               std::vector<std::string> commands) {
        Host.InterfaceFiles[name] = file;
        Host.RunsAtomCommands = true;
        Host.CommandBudget = budget;
        EXPECT_TRUE(g_UIManager.LoadInterfaceXML(name, false, nullptr));
        EXPECT_NE(g_UIManager.Screen->FirstChild, nullptr) << "nothing loaded";
        InputMonkey monkey(Host, seed);
        monkey.Commands = std::move(commands);
        monkey.Run(steps);
        ExpectConsistentTree();
    }
};

TEST_F(Monkey, RandomInputLeavesAWholeTree) {
    for (const MonkeyRun& run : kRuns) {
        SCOPED_TRACE(std::string(run.File) + " seed " + std::to_string(run.Seed));
        Shake(std::string(TAVU_TEST_DATA_DIR) + "/../../" + run.File, "monkey.xml", run.Seed, 2000,
              3000,
              {"UIElement -toggle {element}", "UIElement -kill {element}", "UI -reload monkey.xml",
               "UI -load monkey.xml"});
        EXPECT_FALSE(Host.AtomRuns.empty()) << "no event script ran";
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
        Shake(entry.path().string(), "fuzz.xml", 7, 300, 200,
              {"UI -reload fuzz.xml", "UI -unload fuzz.xml", "UI -reset",
               "UIElement -kill {element}"});
        g_UIManager.Reset();
    }
}
} // namespace
