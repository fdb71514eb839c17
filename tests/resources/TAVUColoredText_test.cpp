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

TEST_F(ColoredText, CodesPushAndPopColoursAndTheFontKeepsItsOwn) {
    // Unknown codes stay text but lose a leading dash; a code cut by the end
    // of the text reads nothing beyond it; six digits and no more.
    const struct {
        const char* Text;
        Pieces Drawn;
    } cases[] = {
        {"\a#00FF00green\ax", {{"green", 0xFF00FF00}, {"", kFontColor}}},
        {"a\arb\a-gc\axd\axe\axf\a\ayg",
         {{"a", kFontColor},
          {"b", kRed},
          {"c", kDarkGreen},
          {"d", kRed},
          {"e", kFontColor},
          {"f", kFontColor},
          {"g", 0xFFFFFF00}}},
        {"\a-zHello\aqHi\a-xA\aRB",
         {{"zHello", kFontColor}, {"qHi", kFontColor}, {"A", kFontColor}, {"RB", kFontColor}}},
        {"\abblack\a-wgrey", {{"black", 0x00000000}, {"grey", 0xFF999999}}},
        {"ab\a#12", {{"ab", kFontColor}, {"", 0xFF000012}}},
        {"ab\a-", {{"ab", kFontColor}, {"", kFontColor}}},
        {"ab\a", {{"ab", kFontColor}}},
        {"\a#", {{"", 0xFF000000}}},
        {"\a#0000FF7x", {{"7x", 0xFF0000FF}}},
    };
    for (const auto& c : cases) {
        Host.Texts.clear();
        TAVUColoredText::Draw(Font, c.Text, 100, 7);
        EXPECT_EQ(Drawn(), c.Drawn) << c.Text;
        EXPECT_EQ(Font->Color, kFontColor);
    }
    // The pen moves on by each piece's width.
    Host.Texts.clear();
    EXPECT_EQ(TAVUColoredText::Draw(Font, cases[1].Text, 100, 7), 7u * 7u);
    for (size_t i = 0; i < Host.Texts.size(); ++i)
        EXPECT_EQ(std::to_string(Host.Texts[i].Rect.left) + "," +
                      std::to_string(Host.Texts[i].Rect.top),
                  std::to_string(100 + 7 * i) + ",7");
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
