#include "ControlTest.h"
#include "TAVUCommandEntry.h"

#include <string>
#include <vector>

// In textentry_test.cpp.
void Keys(const char* keys);

class CommandEntryTest : public ControlTest {
protected:
    // A focused command entry with the given keys, in a frame of its own.
    TAVUCommandEntry* Entry(const std::string& keys) {
        Holder = Load("frame", "Holder", "<frame/>");
        std::string xml = "<e><MaxLength>32</MaxLength>" + keys + "</e>";
        auto* entry = static_cast<TAVUCommandEntry*>(
            g_UIManager.LoadElement(Holder, "commandentry", "Input", Parse(xml), nullptr));
        if (entry) g_UIManager.SetFocusElement(entry);
        return entry;
    }
    // Runs each line with Enter.
    void Run(TAVUCommandEntry* entry, const std::vector<const char*>& lines) {
        for (const char* line : lines) {
            entry->SetText(std::string(line).data());
            entry->Caret = entry->Length;
            Keys("n");
        }
    }
    TAVUElement* Holder = nullptr;
};

TEST_F(CommandEntryTest, EnterRunsTheLineAsAHostCommandOnTheEntrysConsole) {
    Host.CurrentConsole = "Main";
    auto* entry = Entry("<Console>Chat</Console>");
    ASSERT_NE(entry, nullptr);
    Host.OnExecuteCommand = [&](const std::string&) { EXPECT_EQ(Host.CurrentConsole, "Chat"); };
    Run(entry, {"say hello", ""}); // an empty line runs nothing
    EXPECT_EQ(Host.Commands, std::vector<std::string>{"say hello"});
    EXPECT_EQ(Host.CurrentConsole, "Main");
    EXPECT_STREQ(entry->Text, "");
    EXPECT_EQ(entry->Caret + entry->ScrollOffset + entry->RepeatKey, 0u);
}

// The history's browsing and "!" are compared end to end in tavuhost's
// entry_history case.
TEST_F(CommandEntryTest, TabCompletesThroughTheHostAndEscapeEmpties) {
    auto* entry = Entry("<CommandHistory>-1</CommandHistory>");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->CommandHistory, unsigned(TAVUCommandEntry::LargestCommandHistory));
    entry->SetText(std::string("ec").data());
    Keys("tx"); // with the caret at the start: nothing
    EXPECT_STREQ(entry->Text, "ec");
    Keys("et+t-");
    EXPECT_STREQ(entry->Text, "ec><");
    EXPECT_EQ(entry->Caret, 4u);
    Keys("x");
    EXPECT_STREQ(entry->Text, "");
    // Without a console beside it the scrolling keys do nothing, and are taken.
    EXPECT_TRUE(entry->OnKeyDown(33));
}

// Pasted lines run one by one. The command may delete the entry's frame: the
// entry then touches nothing of itself (ASan checks), and the paste ends.
TEST_F(CommandEntryTest, PastedLinesRunOneByOneUntilOneDeletesTheEntry) {
    auto* entry = Entry("<Console>Log</Console>");
    ASSERT_NE(entry, nullptr);
    PutOnClipboard("a\nb\r\nc");
    entry->PasteClipboard();
    EXPECT_EQ(Host.Commands, (std::vector<std::string>{"a", "b"}));
    EXPECT_STREQ(entry->Text, "c");
    Host.OnExecuteCommand = [&](const std::string&) { Parent->DeleteChild(Holder); };
    PutOnClipboard("x\ny\n");
    entry->PasteClipboard();
    EXPECT_EQ(Host.Commands, (std::vector<std::string>{"a", "b", "cx"}));
    EXPECT_EQ(Host.CurrentConsole, "Default"); // the console comes back all the same
    EXPECT_EQ(Parent->FirstChild, nullptr);
    Host.OnExecuteCommand = nullptr;
}
