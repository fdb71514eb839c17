#include "ControlTest.h"
#include "TAVUConsole.h"
#include "TAVUConsoleSelector.h"
#include "TAVUScrollBar.h"
#include "TAVUSlider.h"

#include <string>
#include <vector>

namespace {
// 216 pixels less a 16-pixel bar is 28 columns of the host's 7-pixel font;
// 132 pixels are 10 lines of 12 + 1.
const char kConsole[] = "<console><Width>216</Width><Height>132</Height>"
                        "<BackgroundColor>FF000010</BackgroundColor>"
                        "<ScrollbackColor>FF000020</ScrollbackColor>"
                        "<SelectionColor>80FFFFFF</SelectionColor>%s"
                        "<ScrollBar>ConsoleBar</ScrollBar></console>";
} // namespace

class ConsoleTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        g_UIManager.AddTemplate("ConsoleBar", "<Template><Slider><Width>16</Width>"
                                              "<Height>100%</Height></Slider></Template>");
    }

    TAVUConsole* LoadConsole(const char* keys = "", const char* name = "Out") {
        char xml[1024];
        snprintf(xml, sizeof(xml), kConsole, keys);
        return Load<TAVUConsole>("console", name, xml);
    }

    // The ring from its oldest line to its newest, "-" for an empty slot
    // among them.
    static std::vector<std::string> Ring(const TAVUConsole* console) {
        std::vector<std::string> lines;
        if (console->LastLine < 0) return lines;
        for (int i = 1; i <= console->BackBufferSize; ++i) {
            const char* line = console->Lines[(console->LastLine + i) % console->BackBufferSize];
            if (line || !lines.empty()) lines.push_back(line ? line : "-");
        }
        return lines;
    }

    static void PrintNumbered(TAVUConsole* console, int from, int to) {
        for (int n = from; n <= to; ++n)
            console->Printf("line %d", n);
    }
};

// The ring's size and the scroll bar a console needs are tavuhost's
// console_ring case.
TEST_F(ConsoleTest, TheRingOverwritesItsOldestSlotAndClears) {
    TAVUConsole* console = LoadConsole();
    ASSERT_NE(console, nullptr);
    PrintNumbered(console, 1, 101);
    std::vector<std::string> ring = Ring(console);
    ASSERT_EQ(ring.size(), 100u);
    EXPECT_EQ(ring.front(), "line 2");
    EXPECT_STREQ(console->Lines[0], "line 101"); // took the first line's slot
    console->Clear();
    EXPECT_EQ(console->LastLine, -1);
}

TEST_F(ConsoleTest, TextBreaksAtTheColumnsBackAtTheLastBlank) {
    const struct {
        const char* Text;
        size_t Columns;
        std::vector<std::string> Lines;
    } cases[] = {
        {"", 7, {}},
        {"\n", 7, {""}},
        {"a\n", 7, {"a"}}, // a trailing line feed adds no empty line
        {"a\n\nb", 7, {"a", "", "b"}},
        {"abc def ghi", 7, {"abc def", "ghi"}}, // the blank on the break is dropped
        {"ab cdefg", 4, {"ab", "cdef", "g"}},   // back to the blank, on behind it
        {"abcdefghij", 4, {"abcd", "efgh", "ij"}},
        {"\a#FF0000red", 8, {"\a#FF0000", "red"}}, // a colour code takes columns
        {"\x01\x7f\xc3\xa9", 8, {"\x01\x7f\xc3\xa9"}},
        {"anything", 0, {}},
    };
    TAVUConsole* console = LoadConsole();
    ASSERT_NE(console, nullptr);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Text);
        console->Clear();
        std::string text = c.Text;
        console->SplitFixed(text.data(), c.Columns);
        EXPECT_EQ(Ring(console), c.Lines);
    }
    // A line longer than the line buffer is cut there, and the rest dropped.
    console->Clear();
    std::string huge(100000, 'x');
    console->SplitFixed(huge.data(), 5000);
    ASSERT_EQ(Ring(console).size(), 1u);
    EXPECT_EQ(Ring(console)[0].size(), TAVUConsole::LineBufferSize - 1u);
    // Print wraps at the console's own 28 columns.
    console->Clear();
    console->Print(std::string(30, 'y').c_str());
    EXPECT_EQ(Ring(console), (std::vector<std::string>{std::string(28, 'y'), "yy"}));
    // A megabyte of text fills the ring with its last lines, none lost
    // between them; Printf cuts at its 4096-byte buffer, which ends a line early.
    std::string megabyte;
    for (int n = 0; megabyte.size() < 1000000; ++n)
        megabyte += std::to_string(n % 10) + std::string(27, char('a' + n % 26));
    console->Print(megabyte.c_str());
    std::vector<std::string> ring = Ring(console);
    ASSERT_EQ(ring.size(), 100u);
    EXPECT_EQ(ring.back(), megabyte.substr(megabyte.size() - 28));
    EXPECT_EQ(ring.front(), megabyte.substr(megabyte.size() - 100 * 28, 28));
    console->Clear();
    console->Printf("%s", std::string(5000, 'z').c_str());
    EXPECT_EQ(Ring(console).back().size(), (TAVUConsole::PrintfBufferSize - 1u) % 28);
}

// How the wheel and the keys move the view is tavuhost's console_steps case;
// where the view then looks, this frame.
TEST_F(ConsoleTest, AFrameDrawsTheVisibleLinesOnTheColourOfWhereItLooks) {
    TAVUConsole* console = LoadConsole("<BackBufferSize>500</BackBufferSize>");
    ASSERT_NE(console, nullptr);
    console->Print("first\nsecond");
    RenderFrame();
    // Live: the two newest lines at the bottom of ten, the empty slots above.
    ASSERT_EQ(Host.Texts.size(), 2u);
    EXPECT_EQ(Host.Texts[0].Value, "first");
    EXPECT_EQ(Host.Texts[1].Rect.top, console->AbsolutePosition.y + 2 + 9 * 13);
    EXPECT_EQ(Host.Fills.front().Color, 0xFF000010u);

    PrintNumbered(console, 1, 1000); // twice round the ring
    console->ScrollBar->SetValue(250);
    RenderFrame();
    ASSERT_EQ(Host.Texts.size(), 10u); // the view, not the ring
    EXPECT_EQ(Host.Texts.front().Value, "line 741");
    EXPECT_EQ(Host.Texts.back().Value, "line 750");
    EXPECT_EQ(Host.Fills.front().Color, 0xFF000020u);
}

TEST_F(ConsoleTest, ADragSelectsOnTheGridAndCopiesWithoutColourCodesOnRelease) {
    TAVUConsole* console = LoadConsole();
    ASSERT_NE(console, nullptr);
    console->Print("alpha one\n\a#FF0000beta\ax two\ngamma three");
    RenderFrame(); // places the console on the screen
    int x = console->AbsolutePosition.x, y = console->AbsolutePosition.y;
    // The three lines are the bottom rows 7 to 9 of ten.
    _Point2i from{x + 4, y + 2 + 7 * 13 + 1}, to{x + 3 + 5 * 7 + 1, y + 2 + 9 * 13 + 1};
    ASSERT_TRUE(console->OnLMouseDown(from));
    EXPECT_EQ(console->Selection.left, x + 3);
    EXPECT_EQ(console->Selection.top, y + 2 + 7 * 13);
    ASSERT_TRUE(console->OnMouseMove(to));
    RenderFrame();
    ASSERT_GE(Host.Fills.size(), 2u); // the background, then the selection over it
    EXPECT_EQ(Host.Fills[1].Color, 0x80FFFFFFu);
    EXPECT_EQ(Host.Fills[1].Rect.right, x + 38);
    ASSERT_TRUE(OpenClipboard(nullptr)); // the fake host only answers that it opened
    ASSERT_TRUE(console->OnLMouseUp(to));
    EXPECT_EQ(ClipboardText(), "alpha\r\nbeta ");
    EXPECT_FALSE(console->Selecting);
    EXPECT_FALSE(console->OnMouseMove(to)); // no drag, nothing taken
    // A click that selects nothing leaves the clipboard as it was.
    ASSERT_TRUE(console->OnLMouseDown(from));
    ASSERT_TRUE(console->OnLMouseUp(from));
    EXPECT_EQ(ClipboardText(), "alpha\r\nbeta ");
}

TEST_F(ConsoleTest, AConsoleDeletedByTheInputItFocusesIsNotTouchedAgain) {
    ASSERT_NE(Load<TAVUElement>("frame", "input",
                                "<frame><OnKeyboardEnter>die</OnKeyboardEnter></frame>"),
              nullptr);
    TAVUConsole* console = LoadConsole();
    ASSERT_NE(console, nullptr);
    console->Print("doomed");
    int runs = 0;
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        ++runs;
        Parent->DeleteChild(console);
        return 0;
    };
    EXPECT_TRUE(console->OnLMouseDown(Point)); // under ASan: nothing touched after
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(Parent->FindChild("Out"), nullptr);
}

TEST_F(ConsoleTest, ASelectorOfAConsoleSelectsItsFullName) {
    TAVUConsole* console = LoadConsole();
    ASSERT_NE(console, nullptr);
    Host.CurrentConsole = "Main";
    {
        TAVUConsoleSelector selector(console);
        EXPECT_EQ(Host.CurrentConsole, "Out@Parent");
    }
    EXPECT_EQ(Host.CurrentConsole, "Main");
}
