#include "ControlTest.h"
#include "TAVUTextEntry.h"

#include <cstring>
#include <string>

// The entry's keys: lower case letters stand for its editing keys (see PressKeys).
void Keys(const char* keys) {
    static const unsigned codes[] = {37, 39, 36, 35, 8, 46, 45, 9, 13, 27, 108, 300};
    PressKeys(keys, "lrhebditnxs#", codes);
}

class TextEntryTest : public ControlTest {
protected:
    // A 100x20 entry at 10,10 with a 10-pixel font, focused.
    TAVUTextEntry* Entry(const std::string& keys, const char* name = "Field") {
        std::string xml = "<e><X>10</X><Y>10</Y><Width>100</Width><Height>20</Height>"
                          "<Font><Size>10</Size></Font>" +
                          keys + "</e>";
        auto* entry = Load<TAVUTextEntry>("textentry", name, xml.c_str());
        if (entry) g_UIManager.SetFocusElement(entry);
        return entry;
    }
    // The codes that reached the parent, as "3 3 5".
    std::string Notes() const {
        std::string codes;
        for (const auto& note : Parent->Notes)
            codes += (codes.empty() ? "" : " ") + std::to_string(note.first);
        return codes;
    }
    void SetText(TAVUTextEntry* entry, const char* text) {
        entry->SetText(std::string(text).data());
    }
};

// Typing and the usual editing are compared end to end in tavuhost's entries
// case. Each row: what it shows, MaxLength, the text (the caret at its end), the
// keys, and the text, caret and notifications they leave.
const struct {
    const char *Name, *MaxLength, *Start, *Keys, *Text;
    size_t Caret;
    const char* Notes;
} kEditCases[] = {
    {"Insert toggles to overwrite", "9", "abc", "lliX", "axc", 2, "3"},
    {"overwrite at the end grows the text", "9", "ab", "iC", "abc", 3, "3"},
    {"Backspace and Delete, but not past the ends", "9", "abcd", "lbdhb", "ab", 0, "3 3"},
    {"Right stops at the end, Left at the start", "9", "ab", "hrrrlll", "ab", 0, ""},
    {"a full buffer takes no more at its end", "4", "abc", "DE", "abcd", 4, "3"},
    {"inserting into a full buffer drops its last byte", "4", "abc", "DhX", "xabc", 1, "3 3"},
    {"Control with a letter types its control byte", "9", "", "^A_", "\x01", 1, "3"},
    {"Escape, Delete at the end, keys above 255: nothing", "9", "ab", "xd#", "ab", 2, ""},
    {"Enter tells the parent and keeps the text", "9", "ab", "ns", "ab", 2, "5 5"},
};

TEST_F(TextEntryTest, EditingKeysChangeTextAndCaretAndTellTheParent) {
    for (const auto& c : kEditCases) {
        SCOPED_TRACE(c.Name);
        auto* entry = Entry(std::string("<MaxLength>") + c.MaxLength + "</MaxLength>");
        ASSERT_NE(entry, nullptr);
        SetText(entry, c.Start);
        entry->Caret = entry->Length;
        Parent->Notes.clear();
        Keys(c.Keys);
        EXPECT_STREQ(entry->Text, c.Text);
        EXPECT_EQ(entry->Length, strlen(c.Text));
        EXPECT_EQ(entry->Caret, c.Caret);
        EXPECT_EQ(Notes(), c.Notes);
        Parent->DeleteChild(entry);
    }
}

// Held keys repeat first after the delay (250 ms), then every interval (50 ms)
// counted from the planned time, and stop on release or when focus leaves.
// A key that types nothing is left to the parents and does not repeat.
TEST_F(TextEntryTest, AHeldKeyRepeatsAfterTheDelayThenAtTheInterval) {
    auto* entry = Entry("<MaxLength>100</MaxLength>");
    ASSERT_NE(entry, nullptr);
    EXPECT_FALSE(entry->OnKeyDown(112)); // F1
    g_UIManager.OnKeyDown('A');
    const std::pair<unsigned, size_t> steps[] = {
        {250, 1}, {1, 2}, {49, 2}, {1, 3}, {70, 4}, {30, 5}}; // planned for 400, not 371 + 50
    for (const auto& [advance, length] : steps) {
        TavuAdvanceClock(advance);
        RenderFrame();
        EXPECT_EQ(entry->Length, length) << "after " << advance << " ms more";
    }
    g_UIManager.OnKeyUp('A');
    TavuAdvanceClock(500);
    RenderFrame();
    EXPECT_EQ(entry->Length, 5u);
    g_UIManager.OnKeyDown(8);
    g_UIManager.SetFocusElement(nullptr);
    EXPECT_EQ(entry->RepeatKey, 0u);
}

// Pasting types each byte: backspace and delete bytes edit, line breaks are
// dropped, anything else goes in as it is; a huge text is cut to the buffer.
TEST_F(TextEntryTest, PastingTypesTheClipboardByteByByte) {
    const std::pair<std::string, const char*> cases[] = {
        {"a\nb\r\n", "ab"},
        {"abc\bd\x7f", "abd"},
        {"\xc3\xa9\x01\x1b", "\xc3\xa9\x01\x1b"},
        {std::string(1 << 20, 'x'), "xxxxxxxxxxxxxxxxxxxx"},
    };
    auto* entry = Entry("<MaxLength>20</MaxLength>");
    ASSERT_NE(entry, nullptr);
    for (const auto& [clipboard, text] : cases) {
        SetText(entry, "");
        PutOnClipboard(clipboard);
        Keys(text == cases[0].second ? "+i-" : "^V_"); // Shift and Insert, or Control and V
        EXPECT_STREQ(entry->Text, text);
    }
}

// How MaxLength reads from a file is compared end to end in tavuhost's
// entry_limits case.
TEST_F(TextEntryTest, TextIsCutToTheBufferWhateverMaxLengthSays) {
    auto* entry = Entry("<MaxLength>8</MaxLength>");
    ASSERT_NE(entry, nullptr);
    Parent->Notes.clear();
    SetText(entry, std::string(100 * 1024, 'y').c_str());
    EXPECT_STREQ(entry->Text, "yyyyyyy"); // MaxLength - 1
    EXPECT_TRUE(Parent->Notes.empty());   // setting tells no parent
    entry->MaxLength = 100000;            // as a script may: the buffer stays
    entry->Caret = entry->Length;
    entry->InsertCharacter('q');
    entry->InsertCharacter('q');
    EXPECT_STREQ(entry->Text, "yyyyyyyq");
    // Made by code: fields left at 0 come from the template.
    g_UIManager.AddTemplate("textentry", "<Template><MaxLength>6</MaxLength></Template>");
    _CreateTextEntry create;
    create.Text = "far too long";
    entry->Create(create, nullptr);
    EXPECT_STREQ(entry->Text, "far t");
    EXPECT_EQ(entry->Caret, 5u);
}

// The fake host measures 7 pixels a byte. The box is 10..110 across, 10..30
// down; text starts 3 pixels in and 1 pixel down, the caret is a blank wide.
TEST_F(TextEntryTest, DrawsTheTextWithACaretBoxOrTheMask) {
    auto* entry = Entry("<MaxLength>50</MaxLength><Border>2</Border><CaretInnerColor>FF0000FF"
                        "</CaretInnerColor><CaretOuterColor>FFFF0000</CaretOuterColor>");
    ASSERT_NE(entry, nullptr);
    SetText(entry, "abcd");
    entry->Caret = 2;
    for (unsigned fill : {0xFF0000FFu, 0xFFFF0000u}) { // insert, then overwrite mode
        RenderFrame();
        ASSERT_EQ(Host.Texts.size(), 2u);
        EXPECT_EQ(Host.Texts[0].Line(), "ab 13,11,110,600 0x00000000 0x00000020");
        EXPECT_EQ(Host.Texts[1].Rect.left, 27); // the rest, over the caret
        EXPECT_EQ(Host.Fills.back().Color, fill);
        EXPECT_EQ(Host.Fills.back().Rect.left, 28); // inside the caret's line
        entry->InsertMode = false;
    }
    entry->PasswordCharacter = '*';
    g_UIManager.SetFocusElement(nullptr);
    RenderFrame();
    ASSERT_EQ(Host.Texts.size(), 1u);
    EXPECT_EQ(Host.Texts[0].Value, "****");
    EXPECT_EQ(Host.Fills.size(), 5u); // the background alone: no caret unfocused
}

TEST_F(TextEntryTest, ALongTextScrollsToKeepTheCaretShown) {
    auto* entry = Entry("<MaxLength>4096</MaxLength>");
    ASSERT_NE(entry, nullptr);
    Keys("AAAAAAAAAAAAAAAAAAAAAAAAAAAAAA"); // 210 pixels in a 100-pixel box
    for (int frame = 0; frame < 3; ++frame)
        RenderFrame();
    EXPECT_EQ(entry->ScrollOffset, 27u);
    Keys("h");
    RenderFrame();
    EXPECT_EQ(entry->ScrollOffset, 0u);
    // A caret more than a copy buffer right of the shown start, in a box
    // wide enough that nothing scrolls.
    entry->Width = 100000;
    SetText(entry, std::string(3000, 'w').c_str());
    entry->Caret = entry->Length;
    RenderFrame();
    ASSERT_EQ(Host.Texts.size(), 1u);
    EXPECT_EQ(Host.Texts[0].Value, std::string(TAVUTextEntry::CaretPartSize - 1, 'w'));
    SetText(entry, ""); // empty and focused: the caret alone
    RenderFrame();
    EXPECT_TRUE(Host.Texts.empty());
    EXPECT_EQ(Host.Fills.back().Rect.left, 14);
}

// The caret a click places is compared end to end in tavuhost's entry_limits
// case. The entry that loses the focus may delete the one that takes it.
TEST_F(TextEntryTest, AClickWhoseFocusChangeDeletesTheEntryStopsIt) {
    auto* entry = Entry("<MaxLength>50</MaxLength>");
    auto* other = Entry("<OnKeyboardExit>gone</OnKeyboardExit>", "Other");
    ASSERT_TRUE(entry && other);
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        Parent->DeleteChild(entry);
        return 0;
    };
    EXPECT_TRUE(entry->OnLMouseDown(Point)); // under ASan: nothing touched after
    EXPECT_EQ(Parent->FirstChild, other);
    Host.OnExecuteAtom = nullptr;
}

// A parent or an OnChange script may delete the entry while it pastes, or
// while a held key repeats: the entry stops there (ASan checks).
TEST_F(TextEntryTest, DeletionFromTheNotificationOrOnChangeStopsTheEntry) {
    for (int by : {0, 1, 2}) {
        SCOPED_TRACE(by);
        auto* entry = Entry("<MaxLength>20</MaxLength><OnChange>gone</OnChange>");
        ASSERT_NE(entry, nullptr);
        Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
            if (by == 1) Parent->DeleteChild(entry);
            return 0;
        };
        Parent->OnNote = [&](TAVUElement* source, unsigned) {
            if (by != 1) Parent->DeleteChild(source);
        };
        PutOnClipboard("abc");
        if (by == 2) {
            entry->RepeatKey = 'A';
            RenderFrame();
        } else {
            entry->PasteClipboard();
        }
        EXPECT_EQ(Parent->FirstChild, nullptr);
        EXPECT_EQ(Host.AtomRuns.size(), by == 1 ? 1u : 0u); // the parent comes first
        Host.ClearRecords();
        Host.OnExecuteAtom = nullptr;
        Parent->OnNote = nullptr;
    }
}
