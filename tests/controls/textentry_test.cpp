#include "ControlTest.h"
#include "TAVUCommandEntry.h"
#include "TAVUTextEntry.h"

#include <cstring>
#include <string>
#include <vector>

// Keys go through the manager, as a host delivers them, so that typing uses
// its key state. A code with kHold is only pressed, with kLetGo only released.
const unsigned kHold = 0x10000, kLetGo = 0x20000;
const unsigned kShift = 16, kControl = 17, kEnd = 35, kHome = 36, kLeft = 37, kRight = 39,
               kInsert = 45, kDelete = 46, kBackspace = 8, kTab = 9, kEnter = 13, kEscape = 27;

// Puts plain text on the clipboard that the toolkit pastes from.
void PutOnClipboard(const std::string& text) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    memcpy(GlobalLock(memory), text.c_str(), text.size() + 1);
    GlobalUnlock(memory);
    SetClipboardData(CF_TEXT, memory);
    CloseClipboard();
}

class TextEntryTest : public ControlTest {
protected:
    // A 100x20 entry at 10,10 with a 10-pixel font, focused.
    template <class T = TAVUTextEntry>
    T* Entry(const std::string& keys, const char* type = "textentry", const char* name = "Field") {
        std::string xml = std::string("<e><X>10</X><Y>10</Y><Width>100</Width><Height>20</Height>"
                                      "<Font><Size>10</Size></Font>") +
                          keys + "</e>";
        T* entry = Load<T>(type, name, xml.c_str());
        if (entry) g_UIManager.SetFocusElement(entry);
        return entry;
    }
    void Keys(const std::vector<unsigned>& keys) {
        for (unsigned key : keys) {
            if (!(key & kLetGo)) g_UIManager.OnKeyDown(key & 0xFFFF);
            if (!(key & kHold)) g_UIManager.OnKeyUp(key & 0xFFFF);
        }
    }
    // The codes that reached the parent, as "3 3 5".
    std::string Notes() const {
        std::string codes;
        for (const auto& note : Parent->Notes)
            codes += (codes.empty() ? "" : " ") + std::to_string(note.first);
        return codes;
    }
    void SetText(TAVUTextEntry* entry, const char* text) {
        std::string copy = text;
        entry->SetText(copy.data());
    }
};

struct EditCase {
    const char* Name;
    const char* MaxLength;
    const char* Start; // the caret starts at its end
    std::vector<unsigned> Keys;
    const char* Text;
    size_t Caret;
    const char* Notes;
};

const EditCase kEditCases[] = {
    {"letters type in lower case", "10", "", {'A', 'B'}, "ab", 2, "3 3"},
    {"Shift types capitals", "10", "", {kShift | kHold, 'A', kShift | kLetGo, 'B'}, "Ab", 2, "3 3"},
    {"a character goes in at the caret", "10", "ac", {kLeft, 'B'}, "abc", 2, "3"},
    {"Insert toggles to overwrite", "10", "abc", {kLeft, kLeft, kInsert, 'X'}, "axc", 2, "3"},
    {"overwrite at the end grows the text", "10", "ab", {kInsert, 'C'}, "abc", 3, "3"},
    {"Backspace takes the byte left of the caret", "10", "abc", {kLeft, kBackspace}, "ac", 1, "3"},
    {"Backspace at the start does nothing", "10", "abc", {kHome, kBackspace}, "abc", 0, ""},
    {"Delete takes the byte under the caret", "10", "abc", {kHome, kDelete}, "bc", 0, "3"},
    {"Delete at the end does nothing", "10", "abc", {kDelete}, "abc", 3, ""},
    {"Right stops at the end, Left at the start",
     "10",
     "ab",
     {kHome, kRight, kRight, kRight, kLeft, kLeft, kLeft},
     "ab",
     0,
     ""},
    {"End goes to the end", "10", "ab", {kHome, kEnd}, "ab", 2, ""},
    {"a full buffer takes no more at its end", "4", "abc", {'D', 'E'}, "abcd", 4, "3"},
    {"inserting into a full buffer drops its last byte",
     "4",
     "abc",
     {'D', kHome, 'X'},
     "xabc",
     1,
     "3 3"},
    {"Control with a letter types its control byte",
     "10",
     "",
     {kControl | kHold, 'A', kControl | kLetGo},
     "\x01",
     1,
     "3"},
    {"Escape and keys above 255 change nothing", "10", "ab", {kEscape, 300}, "ab", 2, ""},
    {"Enter tells the parent and keeps the text", "10", "ab", {kEnter, 108}, "ab", 2, "5 5"},
};

TEST_F(TextEntryTest, EditingKeysChangeTextAndCaretAndTellTheParent) {
    for (const EditCase& c : kEditCases) {
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

TEST_F(TextEntryTest, AKeyThatTypesNothingIsLeftToTheParents) {
    auto* entry = Entry("<MaxLength>10</MaxLength>");
    ASSERT_NE(entry, nullptr);
    EXPECT_FALSE(entry->OnKeyDown(112)); // F1
    EXPECT_EQ(entry->RepeatKey, 0u);
    EXPECT_TRUE(entry->OnKeyDown(kEscape));
    EXPECT_EQ(entry->RepeatKey, unsigned(kEscape));
}

// Held keys repeat first after the delay (250 ms), then every interval (50 ms)
// counted from the planned time, and stop on release or when focus leaves.
TEST_F(TextEntryTest, AHeldKeyRepeatsAfterTheDelayThenAtTheInterval) {
    auto* entry = Entry("<MaxLength>100</MaxLength>");
    ASSERT_NE(entry, nullptr);
    Keys({'A' | kHold});
    const std::pair<unsigned, size_t> steps[] = {{250, 1}, {1, 2}, {49, 2}, {1, 3}, {70, 4}};
    for (const auto& [advance, length] : steps) {
        TavuAdvanceClock(advance);
        RenderFrame();
        EXPECT_EQ(entry->Length, length) << "after " << advance << " ms more";
    }
    TavuAdvanceClock(30); // planned for 400; counted from 371 it would wait until 421
    RenderFrame();
    EXPECT_EQ(entry->Length, 5u);
    Keys({'A' | kLetGo});
    TavuAdvanceClock(500);
    RenderFrame();
    EXPECT_EQ(entry->Length, 5u);

    Keys({kBackspace | kHold});
    g_UIManager.SetFocusElement(nullptr);
    EXPECT_EQ(entry->RepeatKey, 0u);
    EXPECT_STREQ(entry->Text, "aaaa");
}

TEST_F(TextEntryTest, TabMovesFocusAlongEntriesOfTheWholeTree) {
    auto* first = Entry("", "textentry", "First");
    Load("frame", "Between", "<frame/>");
    auto* hidden = Entry("<Visible>0</Visible>", "textentry", "Hidden");
    auto* command = Entry("", "commandentry", "Command");
    auto* last = Entry("", "textentry", "Last");
    ASSERT_TRUE(first && hidden && command && last);
    g_UIManager.SetFocusElement(first);
    Keys({kTab});
    EXPECT_TRUE(command->IsFocus()); // past the frame and the hidden entry
    g_UIManager.SetFocusElement(last);
    Keys({kTab});
    EXPECT_TRUE(last->IsFocus()); // nothing after it: the focus stays
    Keys({kShift | kHold, kTab, kShift | kLetGo});
    EXPECT_TRUE(command->IsFocus());
}

// Pasting types each byte: backspace and delete bytes edit, line breaks are
// dropped, anything else goes in as it is.
TEST_F(TextEntryTest, PastingTypesTheClipboardByteByByte) {
    struct Paste {
        const char* Clipboard;
        const char* Text;
    } cases[] = {
        {"a\nb\r\n", "ab"},
        {"abc\bd", "abd"},
        {"ab\x7f", "ab"},
        {"\xc3\xa9\x01\x1b", "\xc3\xa9\x01\x1b"},
    };
    auto* entry = Entry("<MaxLength>20</MaxLength>");
    ASSERT_NE(entry, nullptr);
    for (const Paste& paste : cases) {
        SCOPED_TRACE(paste.Clipboard);
        SetText(entry, "");
        PutOnClipboard(paste.Clipboard);
        Keys({kShift | kHold, kInsert, kShift | kLetGo});
        EXPECT_STREQ(entry->Text, paste.Text);
    }
    SetText(entry, "");
    Keys({kControl | kHold, 'V', kControl | kLetGo});
    EXPECT_STREQ(entry->Text, "\xc3\xa9\x01\x1b");
}

TEST_F(TextEntryTest, HugePastesAndTextsAreCutToTheBuffer) {
    auto* entry = Entry("<MaxLength>8</MaxLength>");
    ASSERT_NE(entry, nullptr);
    PutOnClipboard(std::string(1 << 20, 'x'));
    entry->PasteClipboard();
    EXPECT_STREQ(entry->Text, "xxxxxxxx");
    Parent->Notes.clear();
    entry->SetText(std::string(100 * 1024, 'y').data());
    EXPECT_STREQ(entry->Text, "yyyyyyy"); // MaxLength - 1
    EXPECT_TRUE(Parent->Notes.empty());   // setting tells no parent

    // A script may raise MaxLength past the buffer: writes stop at the buffer.
    entry->MaxLength = 100000;
    entry->SetText(std::string(50, 'z').data());
    entry->InsertCharacter('q');
    EXPECT_EQ(strlen(entry->Text), 8u);
    entry->MaxLength = 0;
    entry->SetText(std::string("abc").data());
    EXPECT_STREQ(entry->Text, "");
}

TEST_F(TextEntryTest, KeysReadFromTheFileOverTheTemplate) {
    const std::pair<const char*, unsigned> lengths[] = {
        {"0", 1}, {"4096", 4096}, {"4097", 4096}, {"999999999", 4096}, {"abc", 1}, {"", 1}};
    for (const auto& [text, expected] : lengths) {
        auto* entry = Entry(std::string("<MaxLength>") + text + "</MaxLength>");
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(entry->MaxLength, expected) << text;
        Parent->DeleteChild(entry);
    }
    g_UIManager.AddTemplate("textentry", "<Template><Border>2</Border><PasswordCharacter>*#"
                                         "</PasswordCharacter><OnChange>echo</OnChange>"
                                         "<BorderColor>FF112233</BorderColor></Template>");
    auto* entry = Entry("<Border>3</Border><TextureFocused Filename=\"#lit\"/>");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->Border, 3u);
    EXPECT_EQ(entry->BorderColor, 0xFF112233u);
    EXPECT_EQ(entry->PasswordCharacter, '*');
    EXPECT_NE(entry->OnChange, nullptr);
    EXPECT_NE(entry->TextureFocused, nullptr);
    EXPECT_EQ(entry->Texture, nullptr);
    EXPECT_TRUE(entry->IsTypeOf("textentry") && !entry->IsTypeOf("commandentry"));
}

TEST_F(TextEntryTest, CreateTakesNonZeroFieldsAndTheTemplateForTheRest) {
    g_UIManager.AddTemplate("textentry", "<Template><MaxLength>6</MaxLength>"
                                         "<BorderColor>FF445566</BorderColor></Template>");
    auto* entry = static_cast<TAVUTextEntry*>(g_UIManager.LoadElement(Parent, "textentry", "Made"));
    ASSERT_NE(entry, nullptr);
    _CreateTextEntry create;
    create.Text = "far too long";
    create.Border = 1;
    create.PasswordCharacter = '#';
    entry->Create(create, nullptr);
    EXPECT_EQ(entry->MaxLength, 6u);
    EXPECT_EQ(entry->BorderColor, 0xFF445566u);
    EXPECT_STREQ(entry->Text, "far t");
    EXPECT_EQ(entry->Caret, 5u);
    EXPECT_EQ(entry->PasswordCharacter, '#');
}

// The fake host measures 7 pixels a byte. The box is 10..110 across, 10..30
// down; text starts 3 pixels in and 1 pixel down, the caret is a blank wide.
TEST_F(TextEntryTest, DrawsTheTextWithACaretBoxOrTheMask) {
    auto* entry = Entry("<MaxLength>50</MaxLength><Border>2</Border><BackgroundColor>FF000000"
                        "</BackgroundColor><CaretInnerColor>FF0000FF</CaretInnerColor>"
                        "<CaretOuterColor>FFFF0000</CaretOuterColor>");
    ASSERT_NE(entry, nullptr);
    SetText(entry, "abcd");
    entry->Caret = 2;
    RenderFrame();
    std::vector<std::string> texts;
    for (const FakeHost::Text& text : Host.Texts)
        texts.push_back(text.Value + " " + std::to_string(text.Rect.left));
    EXPECT_EQ(texts, (std::vector<std::string>{"ab 13", "cd 27"}));
    // The caret's fill in insert mode, inside its border line.
    bool caretFill = false;
    for (const FakeHost::Fill& fill : Host.Fills)
        caretFill |= fill.Color == 0xFF0000FFu && fill.Rect.left == 28 && fill.Rect.top == 13;
    EXPECT_TRUE(caretFill);
    entry->InsertMode = false; // overwrite: the caret's colours change places
    RenderFrame();
    caretFill = false;
    for (const FakeHost::Fill& fill : Host.Fills)
        caretFill |= fill.Color == 0xFFFF0000u && fill.Rect.left == 28 && fill.Rect.top == 13;
    EXPECT_TRUE(caretFill);

    entry->PasswordCharacter = '*';
    g_UIManager.SetFocusElement(nullptr);
    RenderFrame();
    ASSERT_EQ(Host.Texts.size(), 1u);
    EXPECT_EQ(Host.Texts[0].Value, "****");
    for (const FakeHost::Fill& fill : Host.Fills)
        EXPECT_NE(fill.Color, 0xFFFF0000u); // no caret unfocused
}

TEST_F(TextEntryTest, ALongTextScrollsToKeepTheCaretShown) {
    auto* entry = Entry("<MaxLength>4096</MaxLength>");
    ASSERT_NE(entry, nullptr);
    Keys(std::vector<unsigned>(30, 'A')); // 210 pixels in a 100-pixel box
    for (int frame = 0; frame < 4; ++frame)
        RenderFrame();
    EXPECT_GT(entry->ScrollOffset, 0u);
    EXPECT_LE(entry->ScrollOffset, entry->Caret);
    Keys({kHome});
    RenderFrame();
    EXPECT_EQ(entry->ScrollOffset, 0u);

    // A caret more than a copy buffer right of the shown start, in a box
    // wide enough that nothing scrolls.
    entry->Width = 100000;
    std::string longText(3000, 'w');
    entry->SetText(longText.data());
    entry->Caret = entry->Length;
    entry->ScrollOffset = 0;
    RenderFrame();
    ASSERT_EQ(Host.Texts.size(), 1u);
    EXPECT_EQ(Host.Texts[0].Value, std::string(TAVUTextEntry::CaretPartSize - 1, 'w'));

    // Empty and focused: the caret alone, at the left (inside its line).
    SetText(entry, "");
    RenderFrame();
    EXPECT_TRUE(Host.Texts.empty());
    ASSERT_FALSE(Host.Fills.empty());
    EXPECT_EQ(Host.Fills.back().Rect.left, 14);
}

TEST_F(TextEntryTest, AClickFocusesAndPlacesTheCaret) {
    auto* entry = Entry("<MaxLength>50</MaxLength>");
    ASSERT_NE(entry, nullptr);
    SetText(entry, "abcdef");
    g_UIManager.SetFocusElement(nullptr);
    RenderFrame(); // places the entry on the screen
    _Point2i point{10 + 3 * 7 + 2, 15};
    EXPECT_TRUE(entry->OnLMouseDown(point));
    EXPECT_TRUE(entry->IsFocus());
    EXPECT_EQ(entry->Caret, 3u);

    // The entry that loses the focus may delete the one that takes it.
    auto* other = Entry("<OnKeyboardExit>gone</OnKeyboardExit>", "textentry", "Other");
    ASSERT_NE(other, nullptr);
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        Parent->DeleteChild(entry);
        return 0;
    };
    EXPECT_TRUE(entry->OnLMouseDown(point)); // under ASan: nothing touched after
    EXPECT_EQ(Parent->FirstChild, other);
    Host.OnExecuteAtom = nullptr;
}

// A parent or an OnChange script may delete the entry while it types or
// pastes: the entry stops there, touching nothing of itself (ASan checks).
TEST_F(TextEntryTest, DeletionFromTheNotificationOrOnChangeStopsTheEntry) {
    for (bool byScript : {false, true}) {
        SCOPED_TRACE(byScript ? "OnChange" : "parent");
        auto* entry = Entry("<MaxLength>20</MaxLength><OnChange>gone</OnChange>");
        ASSERT_NE(entry, nullptr);
        int changes = 0;
        Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
            ++changes;
            if (byScript) Parent->DeleteChild(entry);
            return 0;
        };
        Parent->OnNote = [&](TAVUElement* source, unsigned code) {
            if (!byScript && code == TAVU_NOTIFY_TEXT_CHANGED) Parent->DeleteChild(source);
        };
        PutOnClipboard("abc");
        Keys({kControl | kHold, 'V', kControl | kLetGo});
        EXPECT_EQ(Parent->FirstChild, nullptr);
        EXPECT_EQ(changes, byScript ? 1 : 0); // the parent came first
        Parent->OnNote = nullptr;
        Host.OnExecuteAtom = nullptr;
    }
    // And from a repeated key, inside a frame.
    auto* entry = Entry("<MaxLength>20</MaxLength>");
    ASSERT_NE(entry, nullptr);
    Parent->OnNote = [&](TAVUElement* source, unsigned) { Parent->DeleteChild(source); };
    entry->RepeatKey = 'A';
    entry->NextRepeat = 0;
    RenderFrame();
    EXPECT_EQ(Parent->FirstChild, nullptr);
}
