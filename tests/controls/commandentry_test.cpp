#include "ControlTest.h"
#include "TAVUCommandEntry.h"

#include <cstring>
#include <string>
#include <vector>

void PutOnClipboard(const std::string& text); // textentry_test.cpp

class CommandEntryTest : public ControlTest {
protected:
    static constexpr unsigned kShift = 16, kTab = 9, kEnter = 13, kEscape = 27, kPageUp = 33,
                              kUp = 38, kDown = 40;

    // A focused command entry with the given keys.
    TAVUCommandEntry* Entry(const std::string& keys, const char* name = "Input") {
        std::string xml = "<commandentry><Width>200</Width><Height>20</Height>"
                          "<MaxLength>32</MaxLength>" +
                          keys + "</commandentry>";
        auto* entry = Load<TAVUCommandEntry>("commandentry", name, xml.c_str());
        if (entry) g_UIManager.SetFocusElement(entry);
        return entry;
    }
    void Type(TAVUCommandEntry* entry, const std::string& line) {
        entry->SetText(std::string(line).data());
        entry->Caret = entry->Length;
    }
    void Tap(unsigned key) {
        g_UIManager.OnKeyDown(key);
        g_UIManager.OnKeyUp(key);
    }
    // Runs each line with Enter.
    void Run(TAVUCommandEntry* entry, std::initializer_list<const char*> lines) {
        for (const char* line : lines) {
            Type(entry, line);
            Tap(kEnter);
        }
    }
};

TEST_F(CommandEntryTest, EnterRunsTheLineAsAHostCommandOnTheEntrysConsole) {
    Host.CurrentConsole = "Main";
    auto* entry = Entry("<Console>Chat</Console>");
    ASSERT_NE(entry, nullptr);
    Host.OnExecuteCommand = [&](const std::string&) { EXPECT_EQ(Host.CurrentConsole, "Chat"); };
    Run(entry, {"say hello"});
    EXPECT_EQ(Host.Commands, std::vector<std::string>{"say hello"});
    EXPECT_EQ(Host.CurrentConsole, "Main");
    EXPECT_STREQ(entry->Text, "");
    EXPECT_EQ(entry->Caret + entry->Length + entry->ScrollOffset, 0u);
    EXPECT_EQ(entry->RepeatKey, 0u);

    Tap(kEnter); // an empty line runs nothing
    EXPECT_EQ(Host.Commands.size(), 1u);
}

TEST_F(CommandEntryTest, OnCommandTakesTheLineInsteadOfTheHost) {
    auto* entry = Entry("<OnCommand>echo ${Text}</OnCommand>");
    ASSERT_NE(entry, nullptr);
    Run(entry, {"look"});
    EXPECT_TRUE(Host.Commands.empty());
    ASSERT_EQ(Host.AtomRuns.size(), 1u);
    EXPECT_EQ(Host.AtomRuns[0].Args, std::vector<std::string>{"look"});
    EXPECT_NE(Host.AtomRuns[0].Source.find("string Text"), std::string::npos);
    EXPECT_EQ(Host.Count("SelectConsole"), 0u); // no console of its own
}

// Each row: the keys after running "a", "b", "c" and "d" through a ring of
// three lines (which began with an empty line), and the text they leave.
TEST_F(CommandEntryTest, TheArrowKeysWalkARingThatKeepsTheNewestLines) {
    struct Browse {
        std::vector<unsigned> Keys;
        const char* Text;
    } cases[] = {
        {{kUp}, "d"},           {{kUp, kUp}, "c"},
        {{kUp, kUp, kUp}, "b"}, {{kUp, kUp, kUp, kUp}, "d"}, // round again
        {{kDown}, "c"},         {{kUp, kDown}, "b"},
    };
    for (const Browse& browse : cases) {
        auto* entry = Entry("<CommandHistory>3</CommandHistory>");
        ASSERT_NE(entry, nullptr);
        Run(entry, {"a", "b", "c", "d"});
        Parent->Notes.clear();
        for (unsigned key : browse.Keys)
            Tap(key);
        EXPECT_STREQ(entry->Text, browse.Text);
        EXPECT_EQ(entry->Caret, strlen(browse.Text));
        EXPECT_TRUE(Parent->Notes.empty()); // browsing tells nobody
        Parent->DeleteChild(entry);
    }
}

// "!" runs the line in the ring's last filled slot, which is the newest only
// until the ring wraps; it is not stored again.
TEST_F(CommandEntryTest, BangRunsTheLastSlotAgain) {
    struct Bang {
        const char* History;
        std::vector<const char*> Lines;
        std::vector<std::string> Commands;
        const char* Left; // the text after the last Enter
    } cases[] = {
        {"0", {"!"}, {}, "!"},
        {"5", {"!"}, {}, "!"},
        {"5", {"one", "two", "!"}, {"one", "two", "two"}, ""},
        {"3", {"one", "two", "three", "!"}, {"one", "two", "three", "two"}, ""},
    };
    for (const Bang& bang : cases) {
        auto* entry = Entry(std::string("<CommandHistory>") + bang.History + "</CommandHistory>");
        ASSERT_NE(entry, nullptr);
        Host.Commands.clear();
        for (const char* line : bang.Lines)
            Run(entry, {line});
        EXPECT_EQ(Host.Commands, bang.Commands);
        EXPECT_STREQ(entry->Text, bang.Left);
        Parent->DeleteChild(entry);
    }
}

TEST_F(CommandEntryTest, TabCompletesThroughTheHostAndEscapeEmpties) {
    auto* entry = Entry("");
    ASSERT_NE(entry, nullptr);
    Type(entry, "ec");
    entry->Caret = 0;
    Tap(kTab); // with the caret at the start: nothing
    Tap(kEscape);
    EXPECT_STREQ(entry->Text, "ec");
    entry->Caret = 2;
    Tap(kTab);
    EXPECT_STREQ(entry->Text, "ec>");
    g_UIManager.OnKeyDown(kShift);
    Tap(kTab);
    g_UIManager.OnKeyUp(kShift);
    EXPECT_STREQ(entry->Text, "ec><");
    EXPECT_EQ(entry->Caret, 4u);
    Tap(kEscape);
    EXPECT_STREQ(entry->Text, "");
    // Without a console beside it the scrolling keys do nothing, and are taken.
    EXPECT_TRUE(entry->OnKeyDown(kPageUp));
}

TEST_F(CommandEntryTest, PastedLinesRunOneByOne) {
    auto* entry = Entry("<CommandHistory>4</CommandHistory>");
    ASSERT_NE(entry, nullptr);
    PutOnClipboard("a\nb\r\nc");
    entry->PasteClipboard();
    EXPECT_EQ(Host.Commands, (std::vector<std::string>{"a", "b"}));
    EXPECT_STREQ(entry->Text, "c");
}

TEST_F(CommandEntryTest, HistoryCapacityIsReadAndBounded) {
    const std::pair<const char*, unsigned> capacities[] = {
        {"0", 0}, {"7", 7}, {"-1", TAVUCommandEntry::LargestCommandHistory}, {"many", 0}};
    for (const auto& [text, expected] : capacities) {
        auto* entry = Entry(std::string("<CommandHistory>") + text + "</CommandHistory>");
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(entry->CommandHistory, expected) << text;
        EXPECT_EQ(entry->HistoryCount, expected ? 1 : 0) << text;
        Parent->DeleteChild(entry);
    }
}

// The command may delete the entry, or its parent; the entry then touches
// nothing of itself (ASan checks), and a paste stops at that line.
TEST_F(CommandEntryTest, ACommandThatDeletesTheEntryOrItsParentEndsIt) {
    for (bool parent : {false, true}) {
        SCOPED_TRACE(parent ? "parent" : "entry");
        auto* holder = Load("frame", "Holder", "<frame/>");
        auto* entry = static_cast<TAVUCommandEntry*>(g_UIManager.LoadElement(
            holder, "commandentry", "Input",
            Parse("<commandentry><MaxLength>20</MaxLength><CommandHistory>2</CommandHistory>"
                  "<Console>Log</Console></commandentry>"),
            nullptr));
        ASSERT_NE(entry, nullptr);
        g_UIManager.SetFocusElement(entry);
        Host.OnExecuteCommand = [&](const std::string&) {
            if (parent)
                Parent->DeleteChild(holder);
            else
                holder->DeleteChild(entry);
        };
        PutOnClipboard("x\ny\n");
        entry->PasteClipboard();
        EXPECT_EQ(Host.Commands, std::vector<std::string>{"x"});
        EXPECT_EQ(Host.CurrentConsole, "Default"); // the console came back all the same
        Host.Commands.clear();
        Host.OnExecuteCommand = nullptr;
        if (!parent) Parent->DeleteChild(holder);
    }
}
