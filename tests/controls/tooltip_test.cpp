#include "ControlTest.h"
#include "TAVUTooltip.h"

#include <cstring>
#include <string>

// The fake host measures 7 pixels a byte; the tooltips here have a 10-pixel
// font (rows 11 apart) and a border of 2.
class TooltipTest : public ControlTest {
protected:
    using Drawing = std::vector<std::pair<std::string, int>>; // each text and its top

    // At the top, where the auto tooltip is found by its full name.
    TAVUTooltip* Tooltip(const char* name = "Hint") {
        const char xml[] = "<tooltip><Border>2</Border><BackgroundColor>FF000000</BackgroundColor>"
                           "<Font><Size>10</Size></Font></tooltip>";
        Documents.push_back(std::make_unique<XMLParser>());
        EXPECT_TRUE(Documents.back()->ParseBuffer(xml, strlen(xml)));
        return static_cast<TAVUTooltip*>(g_UIManager.LoadElement(
            g_UIManager.Screen, "tooltip", name, Documents.back()->Root->FirstChild, nullptr));
    }
    Drawing Drawn() const {
        Drawing drawn;
        for (const FakeHost::Text& text : Host.Texts)
            if (!text.Value.empty()) drawn.push_back({text.Value, text.Rect.top});
        return drawn;
    }
};

// A tooltip with no lines is a minimal box. Each print here follows a Reset,
// so its lines take the first slots again; the height then follows the lines,
// not the slots left empty behind them. The width follows the longest line
// one frame late, with the font's height and a border to its right.
TEST_F(TooltipTest, PrintCutsAtEveryLineFeedAndTheBoxFollowsTheLines) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"one\ntwo\nthree\nfour", {"one", "two", "three", "four"}},
        {"a\n", {"a", ""}},
        {"", {""}},
    };
    TAVUTooltip* tip = Tooltip();
    tip->Show(true);
    RenderFrame();
    EXPECT_EQ(std::pair(tip->Width, tip->Height), std::pair(30, 4)); // a minimal box
    for (const auto& [text, lines] : cases) {
        SCOPED_TRACE(text);
        tip->Reset();
        tip->Print(text);
        for (unsigned n = 0; n < lines.size(); ++n)
            EXPECT_STREQ(tip->Lines.Get(n)->Text, lines[n].c_str());
    }
    tip->Print(nullptr);
    RenderFrame();
    EXPECT_EQ(tip->Height, 11 + 4);
    tip->Print("short");
    RenderFrame();
    tip->Print("a much longer line");
    RenderFrame();
    EXPECT_EQ(Host.Fills.at(0).Rect.right - Host.Fills.at(0).Rect.left, 5 * 7 + 10 + 2);
    EXPECT_EQ(tip->Width, 18 * 7 + 10 + 2);
}

// The lines stack from the border by the font's height, an empty one keeping
// its row. A line with a data sequence is resolved again at each frame, and
// the script that resolves it may delete the tooltip: the drawing ends there.
TEST_F(TooltipTest, LinesStackAndAreResolvedAtEveryFrameWithTheirColourCodes) {
    int gold = 10;
    Host.DataSequences = [&](const std::string&) { return "Gold: " + std::to_string(gold); };
    TAVUTooltip* tip = Tooltip();
    tip->Print("\arRed\axWhite\n\nPurse ${Gold}\nok\a#FF"); // the last code is cut in half
    tip->Show(true);
    for (gold = 10; gold < 12; ++gold) {
        RenderFrame();
        std::string line = "Gold: " + std::to_string(gold);
        EXPECT_EQ(Drawn(), (Drawing{{"Red", 2}, {"White", 2}, {line, 24}, {"ok", 35}}));
    }
    EXPECT_EQ(Host.Texts[0].Rect.left, 2);
    EXPECT_EQ(Host.Texts[0].Color, 0xFFFF0000u);

    Host.DataSequences = [&](const std::string&) {
        g_UIManager.Screen->DeleteChild(tip);
        return std::string("gone");
    };
    RenderFrame();
    EXPECT_EQ(Drawn(), (Drawing{{"Red", 2}, {"White", 2}}));
}

TEST_F(TooltipTest, PrintfIsCutAtItsBuffer) {
    TAVUTooltip* tip = Tooltip();
    tip->Printf("%s", std::string(6000, 'z').c_str());
    EXPECT_EQ(strlen(tip->GetLine(1)->Text), TAVUTooltip::PrintfBufferSize - 1);
}

// The auto tooltip of a 100x40 button at 10,10 that has tooltip text.
class AutoTooltipTest : public TooltipTest {
protected:
    void SetUp() override {
        TooltipTest::SetUp();
        Shared = Tooltip("Auto Tooltip");
        Button = Load("button", "Save",
                      "<button><X>10</X><Y>10</Y><Width>100</Width><Height>40</Height>"
                      "<AutoTooltip>Saves the game</AutoTooltip></button>");
    }
    void Hover(int x, int y) { g_UIManager.OnMouseMove(Point = {x, y}); }
    TAVUTooltip* Shared = nullptr;
    TAVUElement* Button = nullptr;
};

// The tooltip holds a copy of the text: the element may go while it shows.
// Nothing hides it then until the pointer lands on the tooltip itself.
TEST_F(AutoTooltipTest, ShowsAFullDelayAfterTheLastInputAndOutlivesItsElement) {
    Hover(40, 30);
    TavuAdvanceClock(800);
    Hover(41, 30); // still on the button: the delay starts again
    TavuAdvanceClock(999);
    RenderFrame();
    EXPECT_FALSE(Shared->Visible);
    TavuAdvanceClock(1);
    RenderFrame();
    ASSERT_TRUE(Shared->Visible);
    Parent->DeleteChild(Button);
    RenderFrame();
    EXPECT_EQ(Drawn(), (Drawing{{"Saves the game", 22}}));
    EXPECT_FALSE(Shared->OnMouseMove(Point = {Shared->X + 1, Shared->Y + 1})); // passes on
    EXPECT_FALSE(Shared->Visible);
}

TEST_F(AutoTooltipTest, TheFrameHidesItForAnElementNoLongerUnderThePointer) {
    Hover(300, 290);
    Shared->Show(true);
    g_UIManager.AutoTooltipElementID = Button->ID;
    RenderFrame();
    EXPECT_FALSE(Shared->Visible);
    EXPECT_EQ(g_UIManager.AutoTooltipElementID, 0u);

    g_UIManager.Screen->DeleteChild(Shared); // without it nothing shows
    Hover(40, 30);
    TavuAdvanceClock(5000);
    RenderFrame();
    EXPECT_EQ(g_UIManager.AutoTooltipElementID, 0u);
}
