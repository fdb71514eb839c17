// The inspector as the input's first stop, and the copyfile command, without
// a module: what reaches the interface, and what bad arguments do.
#include "HeadlessHost.h"
#include "HostText.h"
#include "Inspector.h"
#include "ScriptEngine.h"
#include "TraceWriter.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

// Records what reaches the interface, one word per event.
class RecordingInput final : public HostInput {
public:
    void PointerMoved(int x, int y) override {
        Seen.push_back("move " + std::to_string(x) + "," + std::to_string(y));
    }
    void ButtonChanged(bool left, bool down) override {
        Seen.push_back(std::string(left ? "left " : "right ") + (down ? "down" : "up"));
    }
    void WheelTurned(int offset) override { Seen.push_back("wheel " + std::to_string(offset)); }
    void KeyChanged(unsigned code, bool down) override {
        Seen.push_back("key " + std::to_string(code) + (down ? " down" : " up"));
    }
    void Resized(int width, int height) override {
        Seen.push_back("size " + std::to_string(width) + "x" + std::to_string(height));
    }
    std::vector<std::string> Seen;
};

class InspectorInput : public ::testing::Test {
protected:
    InspectorInput() : Tools(Module, Engine, Interface) {
        Engine.SetConsole([this](const std::string& line) { Console.push_back(line); });
    }
    void Press(unsigned key) {
        Tools.KeyChanged(key, true);
        Tools.KeyChanged(key, false);
    }
    void Click() {
        Tools.ButtonChanged(true, true);
        Tools.ButtonChanged(true, false);
    }

    ScriptEngine Engine;
    TavukitModule Module;
    RecordingInput Interface;
    Inspector Tools;
    std::vector<std::string> Console;
};

} // namespace

TEST_F(InspectorInput, WhileOpenThePointerIsTheInspectorsAlone) {
    const unsigned F12 = Inspector::ToggleKey, F11 = Inspector::HiddenKey, A = 0x41;
    Press(F12); // not armed: a plain run leaves F12 to the interface
    Tools.Arm();
    Press(F12); // opens
    ASSERT_TRUE(Tools.IsOpen());
    Tools.PointerMoved(5, 6);
    Click();
    Tools.WheelTurned(120);
    Press(F11);
    Press(A); // typing still reaches the interface
    Tools.Resized(300, 200);
    Press(F12); // closes, and the interface learns where the pointer is
    EXPECT_FALSE(Tools.IsOpen());
    Click();
    Press(F11);
    EXPECT_EQ((std::vector<std::string>{"key 123 down", "key 123 up", "key 65 down", "key 65 up",
                                        "size 300x200", "move 5,6", "left down", "left up",
                                        "key 122 down", "key 122 up"}),
              Interface.Seen);
}

TEST_F(InspectorInput, BadArgumentsGiveTheSyntax) {
    const std::pair<const char*, const char*> cases[] = {
        {"inspector", "Syntax: inspector on|off | inspector hidden on|off | inspector log [COUNT]"},
        {"inspector hidden maybe",
         "Syntax: inspector on|off | inspector hidden on|off | inspector log [COUNT]"},
        {"inspector log many",
         "Syntax: inspector on|off | inspector hidden on|off | inspector log [COUNT]"},
        {"inspect", "Syntax: inspect NAME"},
        {"inspect Nobody", "inspect: no element named 'Nobody'"},
    };
    for (const auto& [line, message] : cases) {
        EXPECT_EQ(-1, Engine.ExecuteCommand(line)) << line;
        EXPECT_EQ(std::vector<std::string>{message}, Console) << line;
        Console.clear();
    }
    // Counts past either end of the log are cut to it.
    for (const char* line : {"inspector log -3", "inspector log 1e30", "inspector log 0"})
        EXPECT_EQ(0, Engine.ExecuteCommand(line)) << line;
}

TEST(CopyFileCommand, CopiesOrSaysWhyNot) {
    ScriptEngine engine;
    std::vector<std::string> console;
    engine.SetConsole([&](const std::string& line) { console.push_back(line); });
    TraceWriter trace;
    TavukitModule module;
    HeadlessHost host(engine, trace, module);
    std::string from = testing::TempDir() + "copyfile_from.txt";
    std::string to = testing::TempDir() + "copyfile_to.txt";
    FILE* file = fopen(from.c_str(), "wb");
    ASSERT_TRUE(file);
    fputs("<A/>\n", file);
    fclose(file);
    remove(to.c_str());

    EXPECT_EQ(0, engine.ExecuteCommand(("copyfile " + from + " " + to).c_str()));
    std::string copied;
    EXPECT_TRUE(ReadWholeFile(to, copied));
    EXPECT_EQ("<A/>\n", copied);
    EXPECT_EQ(-1, engine.ExecuteCommand(("copyfile " + from + "-missing " + to).c_str()));
    EXPECT_EQ(-1, engine.ExecuteCommand("copyfile only-one"));
    EXPECT_EQ(
        (std::vector<std::string>{"copyfile: '" + from + "-missing' was not copied to '" + to + "'",
                                  "Syntax: copyfile FROM TO"}),
        console);
    copied.clear();
    EXPECT_TRUE(ReadWholeFile(to, copied));
    EXPECT_EQ("<A/>\n", copied) << "a failed copy leaves the target alone";
    remove(from.c_str());
    remove(to.c_str());
}
