#include "TAVUColorStack.h"
#include "TAVUColoredText.h"
#include "TAVUFont.h"
#include "ToolkitTest.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {
const unsigned kFontColor = 0xFFC0C0C0;
const unsigned kRed = 0xFFFF0000;
const unsigned kDarkGreen = 0xFF009900;

// Each drawn piece: its text and colour.
typedef std::vector<std::pair<std::string, unsigned>> Pieces;
} // namespace

class ColoredText : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        Font = TAVUFont::New(nullptr, "Sans", 12, false, false);
        Font->Color = kFontColor;
    }
    void TearDown() override {
        TAVUFont::Delete(Font);
        ToolkitTest::TearDown();
    }
    Pieces Drawn() const {
        Pieces pieces;
        for (const FakeHost::Text& text : Host.Texts)
            pieces.push_back({text.Value, text.Color});
        return pieces;
    }
    TAVUFont* Font = nullptr;
};

TEST_F(ColoredText, TextWithoutCodesIsOneDraw) {
    EXPECT_EQ(TAVUColoredText::Draw(Font, "plain", 5, 6), 35u);
    EXPECT_EQ(TAVUColoredText::DrawClipped(Font, "plain", 5, 6, 105), 35u);
    ASSERT_EQ(Host.Texts.size(), 2u);
    EXPECT_EQ(Host.Texts[0].Format, 0x120u);
    EXPECT_EQ(Host.Texts[1].Format, 0x20u);
    EXPECT_EQ(Host.Texts[1].Rect.right, 105);
    EXPECT_EQ(TAVUColoredText::Draw(Font, "", 0, 0), 0u);
    EXPECT_EQ(TAVUColoredText::Draw(Font, nullptr, 0, 0), 0u);
    EXPECT_EQ(TAVUColoredText::Draw(nullptr, "plain", 0, 0), 0u);
    EXPECT_EQ(TAVUColoredText::Draw(nullptr, "\arred", 0, 0), 0u);
    EXPECT_EQ(Host.Texts.size(), 2u);
}

TEST_F(ColoredText, AHashColourLastsUntilItIsPoppedAndTheFontKeepsItsColour) {
    EXPECT_EQ(TAVUColoredText::Draw(Font, "\a#00FF00green\ax", 10, 0), 35u);
    Pieces expected = {{"green", 0xFF00FF00}, {"", kFontColor}};
    EXPECT_EQ(Drawn(), expected);
    EXPECT_EQ(Font->Color, kFontColor);
}

TEST_F(ColoredText, NestedPushesAndPopsWalkBackThroughTheStack) {
    size_t width = TAVUColoredText::Draw(Font, "a\arb\a-gc\axd\axe\axf\a\ayg", 100, 7);
    Pieces expected = {{"a", kFontColor}, {"b", kRed},       {"c", kDarkGreen}, {"d", kRed},
                       {"e", kFontColor}, {"f", kFontColor}, {"g", 0xFFFFFF00}};
    EXPECT_EQ(Drawn(), expected);
    EXPECT_EQ(width, 7u * 7u);
    // The pen moves on by each piece's width.
    for (size_t i = 0; i < Host.Texts.size(); ++i) {
        EXPECT_EQ(Host.Texts[i].Rect.left, 100 + int(i) * 7);
        EXPECT_EQ(Host.Texts[i].Rect.top, 7);
    }
}

TEST_F(ColoredText, UnknownCodesStayTextButLoseALeadingDash) {
    TAVUColoredText::Draw(Font, "\a-zHello\aqHi\a-xA\aRB", 0, 0);
    Pieces expected = {
        {"zHello", kFontColor}, {"qHi", kFontColor}, {"A", kFontColor}, {"RB", kFontColor}};
    EXPECT_EQ(Drawn(), expected);

    Host.Texts.clear();
    TAVUColoredText::Draw(Font, "\abblack\a-wgrey", 0, 0);
    Pieces shades = {{"black", 0x00000000}, {"grey", 0xFF999999}};
    EXPECT_EQ(Drawn(), shades);
}

TEST_F(ColoredText, CodesCutByTheEndOfTheTextReadNothingBeyondIt) {
    TAVUColoredText::Draw(Font, "ab\a#12", 0, 0);
    TAVUColoredText::Draw(Font, "ab\a-", 0, 0);
    TAVUColoredText::Draw(Font, "ab\a", 0, 0);
    TAVUColoredText::Draw(Font, "\a#", 0, 0);
    Pieces expected = {{"ab", kFontColor}, {"", 0xFF000012},   {"ab", kFontColor},
                       {"", kFontColor},   {"ab", kFontColor}, {"", 0xFF000000}};
    EXPECT_EQ(Drawn(), expected);
    // Six digits and no more: the seventh is text.
    Host.Texts.clear();
    TAVUColoredText::Draw(Font, "\a#0000FF7x", 0, 0);
    Pieces exact = {{"7x", 0xFF0000FF}};
    EXPECT_EQ(Drawn(), exact);
}

TEST_F(ColoredText, ClippedDrawingSkipsEmptyAndPastTheEdgePieces) {
    size_t width = TAVUColoredText::DrawClipped(Font, "abc\arde\ax", 0, 0, 28);
    ASSERT_EQ(Host.Texts.size(), 2u); // the empty piece after the pop is not drawn
    EXPECT_EQ(Host.Texts[0].Rect.right, 28);
    EXPECT_EQ(Host.Texts[1].Value, "de");
    EXPECT_EQ(Host.Texts[1].Rect.left, 21);
    EXPECT_EQ(Host.Texts[1].Rect.right, 28);
    EXPECT_EQ(width, 35u);
    Host.Texts.clear();
    TAVUColoredText::DrawClipped(Font, "abcd\arhidden", 0, 0, 28);
    EXPECT_EQ(Host.Texts.size(), 1u); // the pen reached the edge
    EXPECT_EQ(Font->Color, kFontColor);
}

TEST_F(ColoredText, LongTextIsCutAtTheBufferNeverOverrun) {
    std::string text = "\ar" + std::string(5000, 'a');
    TAVUColoredText::Draw(Font, text.c_str(), 0, 0);
    ASSERT_EQ(Host.Texts.size(), 1u);
    EXPECT_EQ(Host.Texts[0].Value.size(), TAVUColoredText::BufferSize - 1 - 2);
}

TEST_F(ColoredText, TheStackHoldsAHundredAndTwentyEightColours) {
    std::string pushes;
    for (int i = 0; i < 200; ++i)
        pushes += "\ar.";
    pushes += "\a#000001";
    std::string pops;
    for (int i = 0; i < 300; ++i)
        pops += "\ax.";
    TAVUColoredText::Draw(Font, (pushes + pops).c_str(), 0, 0);
    // Red was pushed 127 times over the font's colour; after 128 pops the
    // font's colour is back, and further pops change nothing.
    const auto& texts = Host.Texts;
    ASSERT_EQ(texts.size(), 200u + 1u + 300u);
    size_t firstPop = 201;
    EXPECT_EQ(texts[firstPop].Color, kRed);
    EXPECT_EQ(texts[firstPop + 126].Color, kRed);
    EXPECT_EQ(texts[firstPop + 127].Color, kFontColor);
    EXPECT_EQ(texts.back().Color, kFontColor);

    TAVUColorStack stack;
    unsigned color = 5;
    EXPECT_FALSE(stack.Pop(color));
    EXPECT_EQ(color, 5u);
}
