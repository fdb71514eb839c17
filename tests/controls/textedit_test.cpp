#include "ControlTest.h"
#include "TAVUElementWatch.h"
#include "TAVUScrollBar.h"
#include "TAVUSlider.h"
#include "TAVUTextEdit.h"

#include <string>
#include <vector>

namespace {
// 216 pixels less the 16-pixel bar leave 28 columns of the host's 7-pixel
// font; 100 pixels hold 7 rows of 12 + 2 by count, 6 by the drawing's limit.
const char kEdit[] = "<textedit><Width>216</Width><Height>100</Height>"
                     "<BackgroundColor>FF101010</BackgroundColor>"
                     "<SelectionColor>FF0000F0</SelectionColor>"
                     "<CaretOuterColor>FFFFFFFF</CaretOuterColor>"
                     "<CaretInnerColor>FF00FF00</CaretInnerColor>"
                     "<VerticalScrollBar>EditBar</VerticalScrollBar></textedit>";

// The editor's keys: lower case letters stand for its editing keys (see PressKeys).
void Press(const char* keys) {
    static const unsigned codes[] = {37, 39, 38, 40, 36, 35, 8,  46, 45,
                                     13, 9,  27, 33, 34, 65, 67, 86};
    PressKeys(keys, "lruwhebdintxpgacv", codes);
}

std::string Text(const TAVUTextEdit* edit) {
    std::string text(edit->TextSize(), '\0');
    text.resize(edit->CopyText(&text[0], text.size()));
    return text;
}

} // namespace

class TextEditTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        g_UIManager.AddTemplate("EditBar", "<Template><Slider><Width>16</Width>"
                                           "<Height>100%</Height></Slider></Template>");
    }
    TAVUTextEdit* Edit(const char* text, const char* name = "Notes") {
        auto* edit = Load<TAVUTextEdit>("textedit", name, kEdit);
        if (!edit) return nullptr;
        edit->SetText(text);
        g_UIManager.SetFocusElement(edit);
        RenderFrame(); // sets the rows and columns that fit
        return edit;
    }
    // The caret as "line:pos", and the selection as "line:pos-line:pos".
    static std::string Where(const TextEditPos& pos) {
        return pos.Line ? std::to_string(pos.Line->LineNumber) + ":" + std::to_string(pos.Pos)
                        : "-";
    }
    static std::string Selection(const TAVUTextEdit* edit) {
        if (!edit->SelectionStart.Line) return "";
        return Where(edit->SelectionStart) + "-" + Where(edit->SelectionEnd);
    }
    static void Click(TAVUTextEdit* edit, int x, int y, bool release = true) {
        _Point2i point{x, y};
        edit->OnLMouseDown(point);
        if (release) edit->OnLMouseUp(point);
    }
};

// What the editing keys do to the text, the caret and the selection is
// compared end to end in tavuhost's textedit_keys case.

// Lines end at line feeds, a carriage return before one goes with it, and
// every other byte is kept as it is.
TEST_F(TextEditTest, TextSplitsAtLineFeedsAndKeepsEveryOtherByte) {
    TAVUTextEdit* edit = Edit("");
    edit->AddText("a\r\nb\n");
    EXPECT_EQ(edit->LineCount, 4u); // the empty line of SetText(""), then a, b and ""
    edit->SetText("a\r\nb\n");
    EXPECT_EQ(Text(edit), "a\nb\n");
    EXPECT_EQ(edit->LineCount, 3u);
    const char odd[] = "\x01\t\r\x7f\xc3\xa9\xff";
    edit->SetText(odd);
    EXPECT_EQ(Text(edit), odd);
    edit->AddLine(nullptr);
    edit->SetText(nullptr);
    EXPECT_EQ(edit->LineCount, 1u);
    EXPECT_EQ(edit->FirstLine->LineNumber, 0u);
}

TEST_F(TextEditTest, CopyJoinsLinesWithCarriageReturnAndLineFeed) {
    Edit("one\ntwo\nthree");
    ASSERT_TRUE(OpenClipboard(nullptr)); // the fake host only answers that it opened
    Press("^ac_");
    EXPECT_EQ(ClipboardText(), "one\r\ntwo\r\nthree");
    ASSERT_TRUE(OpenClipboard(nullptr));
    Press("^h_rr+wwl-^c_"); // from 0:2 to 2:1
    EXPECT_EQ(ClipboardText(), "e\r\ntwo\r\nt");
    ASSERT_TRUE(OpenClipboard(nullptr));
    Press("^e_+ll-^c_"); // backwards within one line
    EXPECT_EQ(ClipboardText(), "ee");
    ASSERT_TRUE(OpenClipboard(nullptr));
    Press("l^c_"); // no selection: the clipboard is emptied
    EXPECT_EQ(ClipboardText(), "");
}

// The bar's value for a line is LineCount minus its number; moving the bar
// moves the caret, and the view follows the caret.
TEST_F(TextEditTest, TheScrollBarRunsUpsideDownAndMovesTheCaret) {
    std::string text;
    for (int n = 0; n < 20; ++n)
        text += "line " + std::to_string(n) + "\n";
    TAVUTextEdit* edit = Edit(text.c_str());
    TAVUScrollBar* bar = edit->VerticalScrollBar;
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->Range, 21u);
    EXPECT_EQ(edit->VisibleRows, 7u);
    EXPECT_EQ(edit->VisibleColumns, 28u);
    EXPECT_EQ(edit->DrawnLines, 6u);
    Press("g");
    EXPECT_EQ(Where(edit->Caret), "6:0");
    EXPECT_EQ(bar->GetValue(), 15u);
    EXPECT_EQ(edit->ViewStart.Line->LineNumber, 1u); // the caret passed the last row
    bar->SetValue(21 - 12);
    EXPECT_EQ(Where(edit->Caret), "12:0");
    EXPECT_EQ(edit->OnMouseWheel(120), true); // three lines back
    EXPECT_EQ(Where(edit->Caret), "9:0");
    Press("^e_");
    EXPECT_EQ(edit->ViewStart.Line->LineNumber, 14u);
    EXPECT_EQ(bar->GetValue(), 1u);
    Press("^h_");
    EXPECT_EQ(edit->ViewEnd.Line->LineNumber, 7u);
    EXPECT_EQ(bar->GetValue(), 21u);
}

// A frame draws the rows that fit from the top line shown, the selection
// and the caret under the text, and the text from the first column shown.
TEST_F(TextEditTest, AFrameDrawsTheVisibleRowsOnly) {
    std::string text = "ab\n\n" + std::string(60, 'x') + "\n";
    for (int n = 0; n < 1000; ++n)
        text += "more\n";
    TAVUTextEdit* edit = Edit(text.c_str());
    auto filled = [&](unsigned color, int left, int top, int width) {
        for (const auto& fill : Host.Fills)
            if (fill.Color == color && fill.Rect.left == left && fill.Rect.top == top &&
                fill.Rect.right - fill.Rect.left == width)
                return true;
        return false;
    };
    Press("w");
    RenderFrame();
    ASSERT_EQ(Host.Texts.size(), 5u); // six rows, one of them empty
    EXPECT_EQ(Host.Texts.front().Value, "ab");
    EXPECT_TRUE(filled(0xFF00FF00u, 4, 18, 5)); // the caret on the empty row, inside its line
    Press("+w-");
    RenderFrame();
    EXPECT_TRUE(filled(0xFF0000F0u, 3, 17, 7)); // the empty row selected
    Press("e");
    RenderFrame();
    EXPECT_EQ(edit->ViewStart.Pos, 33u); // 60 - 28 + 1
    ASSERT_EQ(Host.Texts.size(), 1u);    // the short lines lie left of the view
    EXPECT_EQ(Host.Texts.front().Value, std::string(27, 'x'));
    EXPECT_TRUE(filled(0xFF00FF00u, 4 + 27 * 7, 32, 5));
    EXPECT_FALSE(filled(0xFF0000F0u, 3, 17, 7)); // the plain move dropped the selection
}

TEST_F(TextEditTest, TheMousePlacesTheCaretAndDragsASelection) {
    TAVUTextEdit* edit = Edit("alpha\nbeta\ngamma");
    Click(edit, 3 + 2 * 7, 3 + 14 + 5); // row 1, column 2
    EXPECT_EQ(Where(edit->Caret), "1:2");
    EXPECT_EQ(Selection(edit), ""); // a click without a drag selects nothing
    Click(edit, 3 + 7, -50, false); // above the first row: the top line shown
    EXPECT_EQ(Where(edit->Caret), "0:1");
    _Point2i to{3 + 3 * 7, 3 + 2 * 14 + 2};
    edit->OnMouseMove(to);
    edit->OnLMouseUp(to);
    EXPECT_EQ(Selection(edit), "0:1-2:3");
    EXPECT_FALSE(edit->Dragging);
}

// Sizes that leave no row or column, and texts far larger than the view,
// cost no division by zero and lose nothing.
TEST_F(TextEditTest, HostileSizesAndLargeTexts) {
    TAVUTextEdit* edit = Edit("x");
    edit->Width = 0;
    edit->Height = 1;
    edit->Border = 40;
    RenderFrame();
    EXPECT_EQ(edit->VisibleRows, 0u);
    EXPECT_EQ(edit->VisibleColumns, 0u);
    Press("rXlge");
    Click(edit, 1, 1);
    EXPECT_EQ(Text(edit), "xx");
    edit->Width = 216;
    edit->Height = 100;
    edit->Border = 0;
    std::string line(1 << 20, 'q');
    edit->SetText(line.c_str());
    RenderFrame();
    Press("^e_Z");
    RenderFrame();
    EXPECT_EQ(edit->FirstLine->Length, line.size() + 1);
    ASSERT_EQ(Host.Texts.size(), 1u);
    EXPECT_EQ(Host.Texts.front().Value, std::string(27, 'q') + "z");
    std::string paste;
    for (int n = 0; n < 200000; ++n)
        paste += "forty-nine bytes of text and a line feed, again\r\n";
    edit->SetText(paste.c_str());
    EXPECT_EQ(edit->LineCount, 200001u);
    EXPECT_EQ(edit->TextSize(), paste.size() - 200000 + 1);
    EXPECT_EQ(Load<TAVUTextEdit>("textedit", "NoBar", "<textedit/>"), nullptr);
}

// A script run from the bar's change or from the key's own event may delete
// the editor; the editor touches nothing of itself afterwards.
TEST_F(TextEditTest, ADeletionFromAnEventStopsTheEditorCleanly) {
    g_UIManager.AddTemplate("Doomed", "<Template><OnKeyDown>x</OnKeyDown></Template>");
    g_UIManager.AddTemplate("DoomBar", "<Template><Slider><Width>16</Width><Height>100%</Height>"
                                       "<OnChange>x</OnChange></Slider></Template>");
    Host.KeyNames = {{40, "Down"}, {13, "Enter"}, {88, "X"}, {34, "PageDown"}};
    for (const char* keys : {"w", "n", "X", "g", "b", "ed"}) {
        SCOPED_TRACE(keys);
        auto* edit = Load<TAVUTextEdit>("textedit", keys,
                                        "<textedit Template=\"Doomed\"><Width>100</Width>"
                                        "<Height>100</Height><VerticalScrollBar>DoomBar"
                                        "</VerticalScrollBar></textedit>");
        ASSERT_NE(edit, nullptr);
        edit->SetText("a\nb\nc");
        g_UIManager.SetFocusElement(edit);
        RenderFrame();
        // The bar at the top and the caret on the middle line: a line less
        // moves the bar too.
        edit->VerticalScrollBar->SetValue(3);
        edit->Caret = TextEditPos{edit->FirstLine->Next, 0};
        TAVUElementWatch watch(edit);
        Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
            if (watch.Alive()) Parent->DeleteChild(edit);
            return 1;
        };
        Press(keys);
        EXPECT_FALSE(watch.Alive());
        Host.OnExecuteAtom = nullptr;
    }
    // Taking an editor apart runs none of its bar's script.
    auto* edit = Load<TAVUTextEdit>("textedit", "Last",
                                    "<textedit><Width>100</Width><Height>100</Height>"
                                    "<VerticalScrollBar>DoomBar</VerticalScrollBar></textedit>");
    ASSERT_NE(edit, nullptr);
    edit->SetText("a\nb\nc");
    edit->VerticalScrollBar->SetValue(3);
    Host.ClearRecords();
    Parent->DeleteChild(edit);
    EXPECT_TRUE(Host.AtomRuns.empty());
}

TEST_F(TextEditTest, AHeldKeyRepeatsWhileTheEditorHasTheFocus) {
    TavuDriveClock(1000);
    TAVUTextEdit* edit = Edit("");
    g_UIManager.OnKeyDown('Q');
    TavuAdvanceClock(g_UIManager.KeyRepeatDelay + 1);
    RenderFrame();
    TavuAdvanceClock(g_UIManager.KeyRepeatInterval + 1);
    RenderFrame();
    g_UIManager.OnKeyUp('Q');
    TavuAdvanceClock(1000);
    RenderFrame();
    EXPECT_EQ(Text(edit), "qqq");
    TavuReleaseClock();
}
