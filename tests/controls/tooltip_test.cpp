#include "ControlTest.h"
#include "TAVUTooltip.h"

#include <cstring>
#include <string>

// The fake host measures 7 pixels a byte; the tooltips here have a 10-pixel
// font (rows 11 apart) and a border of 2.
class TooltipTest : public ControlTest {
protected:
    TAVUTooltip* Tooltip(const char* name = "Hint", const char* keys = "") {
        std::string xml = std::string("<tooltip><Border>2</Border><BackgroundColor>FF000000"
                                      "</BackgroundColor><Font><Size>10</Size></Font>") +
                          keys + "</tooltip>";
        Documents.push_back(std::make_unique<XMLParser>());
        EXPECT_TRUE(Documents.back()->ParseBuffer(xml.c_str(), xml.size()));
        return static_cast<TAVUTooltip*>(g_UIManager.LoadElement(
            g_UIManager.Screen, "tooltip", name, Documents.back()->Root->FirstChild, nullptr));
    }
    std::vector<std::string> Drawn() const {
        std::vector<std::string> texts;
        for (const FakeHost::Text& text : Host.Texts)
            if (!text.Value.empty()) texts.push_back(text.Value);
        return texts;
    }
};

TEST_F(TooltipTest, StartsHiddenWhateverTheFileSaysAndAnEmptyOneIsAMinimalBox) {
    TAVUTooltip* tip = Tooltip("Hint", "<Visible>1</Visible><Width>5</Width>");
    ASSERT_NE(tip, nullptr);
    EXPECT_FALSE(tip->Visible);
    EXPECT_TRUE(tip->IsTypeOf("Tooltip"));
    EXPECT_TRUE(tip->IsTypeOf("frame"));
    tip->Show(true);
    RenderFrame();
    EXPECT_EQ(tip->Width, 30);
    EXPECT_EQ(tip->Height, 4);
    EXPECT_TRUE(Host.Texts.empty());
}

TEST_F(TooltipTest, PrintCutsAtEveryLineFeed) {
    struct Case {
        const char* Text;
        std::vector<std::string> Lines;
    };
    const Case cases[] = {
        {"a\n\nb", {"a", "", "b"}},
        {"a\n", {"a", ""}},
        {"", {""}},
        {"one line", {"one line"}},
    };
    TAVUTooltip* tip = Tooltip();
    ASSERT_NE(tip, nullptr);
    for (const Case& c : cases) {
        tip->Reset();
        tip->Print(c.Text);
        ASSERT_EQ(tip->LineCount, c.Lines.size()) << c.Text;
        for (unsigned n = 1; n <= tip->LineCount; ++n)
            EXPECT_EQ(tip->GetLine(n)->Text, c.Lines[n - 1]) << c.Text;
    }
    tip->Print(nullptr);
    EXPECT_EQ(tip->LineCount, 1u);
}

TEST_F(TooltipTest, LinesStackByFontHeightAndEmptyOnesKeepTheirRow) {
    TAVUTooltip* tip = Tooltip();
    ASSERT_NE(tip, nullptr);
    tip->X = 50;
    tip->Y = 60;
    tip->Print("a\n\nb");
    tip->Show(true);
    RenderFrame();
    EXPECT_EQ(tip->Height, 3 * 11 + 4);
    ASSERT_EQ(Drawn(), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(Host.Texts[0].Rect.left, 52);
    EXPECT_EQ(Host.Texts[0].Rect.top, 62);
    EXPECT_EQ(Host.Texts[1].Rect.top, 62 + 22);
}

TEST_F(TooltipTest, ResetEmptiesTheSlotsAndTheNextLineTakesTheFirst) {
    TAVUTooltip* tip = Tooltip();
    ASSERT_NE(tip, nullptr);
    tip->Print("one\ntwo\nthree");
    tip->Reset();
    EXPECT_EQ(tip->LineCount, 0u);
    EXPECT_EQ(tip->Lines.Count(), 0u);
    tip->Print("x");
    ASSERT_NE(tip->Lines.Get(0), nullptr);
    EXPECT_STREQ(tip->Lines.Get(0)->Text, "x");
    tip->Show(true);
    RenderFrame();
    EXPECT_EQ(tip->Height, 11 + 4);
}

TEST_F(TooltipTest, TheWidthFollowsTheLongestLineOneFrameLate) {
    TAVUTooltip* tip = Tooltip();
    ASSERT_NE(tip, nullptr);
    tip->Print("short");
    tip->Show(true);
    RenderFrame();
    const int shortWidth = 5 * 7 + 10 + 2; // text, then the font height and a border
    EXPECT_EQ(tip->Width, shortWidth);
    tip->Print("a much longer line");
    RenderFrame();
    ASSERT_FALSE(Host.Fills.empty());
    EXPECT_EQ(Host.Fills[0].Rect.right - Host.Fills[0].Rect.left, shortWidth); // drawn narrow
    EXPECT_EQ(tip->Width, 18 * 7 + 10 + 2);                                    // then widened
}

TEST_F(TooltipTest, ColourCodesAreInterpretedAndAHalfCodeAtTheEndDrawsNothingWrong) {
    TAVUTooltip* tip = Tooltip();
    ASSERT_NE(tip, nullptr);
    tip->Print("\arRed\axWhite\nok\a#FF");
    tip->Show(true);
    RenderFrame();
    EXPECT_EQ(Drawn(), (std::vector<std::string>{"Red", "White", "ok"}));
    ASSERT_GE(Host.Texts.size(), 2u);
    EXPECT_EQ(Host.Texts[0].Color, 0xFFFF0000u);
}

TEST_F(TooltipTest, DataSequencesAreResolvedAtEveryFrame) {
    int gold = 10;
    Host.DataSequences = [&](const std::string& text) {
        return text == "Gold: ${Gold}" ? "Gold: " + std::to_string(gold) : text;
    };
    TAVUTooltip* tip = Tooltip();
    ASSERT_NE(tip, nullptr);
    tip->Print("Purse\nGold: ${Gold}");
    tip->Show(true);
    for (gold = 10; gold < 13; ++gold) {
        RenderFrame();
        EXPECT_EQ(Drawn(), (std::vector<std::string>{"Purse", "Gold: " + std::to_string(gold)}));
    }
    EXPECT_EQ(Host.Count("ParseDataSequences"), 1u); // the literal line is not sent
}

TEST_F(TooltipTest, PrintfIsCutAtItsBuffer) {
    TAVUTooltip* tip = Tooltip();
    ASSERT_NE(tip, nullptr);
    std::string huge(6000, 'z');
    tip->Printf("%s", huge.c_str());
    ASSERT_EQ(tip->LineCount, 1u);
    EXPECT_EQ(strlen(tip->GetLine(1)->Text), TAVUTooltip::PrintfBufferSize - 1);
}

TEST_F(TooltipTest, ADataSequenceThatDeletesTheTooltipEndsItsDrawing) {
    TAVUTooltip* tip = Tooltip();
    ASSERT_NE(tip, nullptr);
    unsigned id = tip->ID;
    Host.DataSequences = [&](const std::string&) {
        if (TAVUElement* self = g_UIManager.FindElementByID(id)) self->Parent->DeleteChild(self);
        return std::string("gone");
    };
    tip->Print("${Bye}\nsecond line");
    tip->Show(true);
    RenderFrame();
    EXPECT_EQ(g_UIManager.FindElementByID(id), nullptr);
    EXPECT_TRUE(Drawn().empty());
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
    void Hover(int x, int y) {
        _Point2i point{x, y};
        g_UIManager.OnMouseMove(point);
    }
    TAVUTooltip* Shared = nullptr;
    TAVUElement* Button = nullptr;
};

TEST_F(AutoTooltipTest, ShowsAfterTheDelayBesideThePointerAndHidesWhenItLeaves) {
    ASSERT_NE(Shared, nullptr);
    ASSERT_NE(Button, nullptr);
    Hover(40, 30);
    RenderFrame();
    TavuAdvanceClock(999);
    RenderFrame();
    EXPECT_FALSE(Shared->Visible);
    TavuAdvanceClock(1);
    RenderFrame();
    ASSERT_TRUE(Shared->Visible);
    EXPECT_EQ(g_UIManager.AutoTooltipElementID, Button->ID);
    EXPECT_EQ(Shared->X, 30); // up and left of the pointer, not kept on the screen
    EXPECT_EQ(Shared->Y, 20);
    ASSERT_EQ(Shared->LineCount, 1u);
    EXPECT_STREQ(Shared->GetLine(1)->Text, "Saves the game");

    Hover(300, 290); // off the button
    EXPECT_FALSE(Shared->Visible);
    EXPECT_EQ(g_UIManager.AutoTooltipElementID, 0u);
}

TEST_F(AutoTooltipTest, AnyInputRestartsTheDelay) {
    ASSERT_NE(Button, nullptr);
    Hover(40, 30);
    TavuAdvanceClock(800);
    Hover(41, 30); // still on the button
    TavuAdvanceClock(800);
    RenderFrame();
    EXPECT_FALSE(Shared->Visible);
    TavuAdvanceClock(200);
    RenderFrame();
    EXPECT_TRUE(Shared->Visible);
}

TEST_F(AutoTooltipTest, TheFrameWalkHidesItForAnElementNoLongerUnderThePointer) {
    Hover(300, 290);
    Shared->Show(true);
    g_UIManager.AutoTooltipElementID = Button->ID;
    RenderFrame();
    EXPECT_FALSE(Shared->Visible);
    EXPECT_EQ(g_UIManager.AutoTooltipElementID, 0u);
}

TEST_F(AutoTooltipTest, WithoutTheSharedTooltipNothingShows) {
    g_UIManager.Screen->DeleteChild(Shared);
    Hover(40, 30);
    TavuAdvanceClock(5000);
    RenderFrame();
    EXPECT_EQ(g_UIManager.AutoTooltipElementID, 0u);
    EXPECT_TRUE(Host.Texts.empty());
}

// The tooltip holds a copy of the text: the element may go while it shows.
// Nothing hides it then until the pointer lands on the tooltip itself.
TEST_F(AutoTooltipTest, AnElementDeletedWhileItsTooltipShowsLeavesTheTooltipUp) {
    Hover(40, 30);
    TavuAdvanceClock(1000);
    RenderFrame();
    ASSERT_TRUE(Shared->Visible);
    Parent->DeleteChild(Button);
    RenderFrame(); // the pointer rests on another element now, so the ID is cleared
    EXPECT_EQ(g_UIManager.AutoTooltipElementID, 0u);
    EXPECT_TRUE(Shared->Visible);
    EXPECT_EQ(Drawn(), std::vector<std::string>{"Saves the game"});
    TavuAdvanceClock(5000);
    RenderFrame();
    EXPECT_TRUE(Shared->Visible);
    _Point2i onTooltip{Shared->X + 1, Shared->Y + 1};
    EXPECT_FALSE(Shared->OnMouseMove(onTooltip)); // the pointer passes on
    EXPECT_FALSE(Shared->Visible);
}
