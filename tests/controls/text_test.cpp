#include "ControlTest.h"
#include "HostRenderer.h"
#include "TAVUText.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <tuple>

// The fake host measures 7 pixels a byte, so widths below count characters.
class TextTest : public ControlTest {
protected:
    using Drawing = std::vector<std::pair<std::string, int>>; // each text and its top

    // A text at 10,20 of the given size, with a 10-pixel font (lines 11 apart).
    TAVUText* Text(const char* keys, int width = 200, int height = 100) {
        std::string xml = "<text><X>10</X><Y>20</Y><Width>" + std::to_string(width) +
                          "</Width><Height>" + std::to_string(height) +
                          "</Height><Font><Size>10</Size></Font>" + keys + "</text>";
        TAVUText* text = Load<TAVUText>("text", "Label", xml.c_str());
        EXPECT_NE(text, nullptr) << xml;
        return text;
    }
    Drawing Drawn() const {
        Drawing drawn;
        for (const FakeHost::Text& text : Host.Texts)
            drawn.push_back({text.Value, text.Rect.top});
        return drawn;
    }
};

// Each row: its name, the text, the width in pixels, and the text wrapped with
// a proportional font and with a fixed one (by columns of the blank's width).
const std::tuple<const char*, const char*, size_t, const char*, const char*> kWrapCases[] = {
    {"blank exactly at the width is dropped", "hello world", 35, "hello\nworld", "hello\nworld"},
    {"a long word breaks inside", "abcdefghij", 28, "abcd\nefgh\nij", "abcd\nefgh\nij"},
    {"the last blank breaks", "one two three", 50, "one two\nthree", "one two\nthree"},
    {"a line runs over by one character", "abcdef", 30, "abcde\nf", "abcd\nef"},
    {"explicit line feeds stay and count", "ab\n\ncd", 100, "ab\n\ncd", "ab\n\ncd"},
    {"empty text is one line", "", 100, "", ""},
};

// Each case through the static wrap and the element's own, for both kinds of font.
TEST_F(TextTest, WrapFollowsTheBlankAndWordRules) {
    TAVUText* text = Text("");
    for (bool fixed : {false, true}) {
        text->Font->Fixed = fixed;
        for (const auto& [name, input, width, proportional, byColumns] : kWrapCases) {
            SCOPED_TRACE(std::string(name) + (fixed ? ", fixed font" : ""));
            const char* wrapped = fixed ? byColumns : proportional;
            size_t lines = 1 + size_t(std::count(wrapped, wrapped + strlen(wrapped), '\n'));
            char buffer[TAVUText::BufferSize];
            size_t widest = 0;
            EXPECT_EQ(TAVUText::Split(strcpy(buffer, input), width, text->Font, widest), lines);
            EXPECT_STREQ(buffer, wrapped);
            text->Width = int(width);
            EXPECT_EQ(text->Split(strcpy(buffer, input)), lines);
            EXPECT_STREQ(buffer, wrapped);
        }
    }
}

TEST_F(TextTest, WrapReportsTheWidestLineWhichFallsAtAnAutomaticBreak) {
    TAVUText* text = Text("");
    char buffer[TAVUText::BufferSize] = "abcdefgh";
    size_t widest = 500; // the caller's start value
    EXPECT_EQ(TAVUText::Split(buffer, 28, text->Font, widest), 2u);
    EXPECT_EQ(widest, 28u);
    EXPECT_EQ(TAVUText::Split(nullptr, 28, text->Font, widest), 0u);
    EXPECT_EQ(TAVUText::Split(buffer, 28, nullptr, widest), 0u);
}

TEST_F(TextTest, TextLongerThanTheBufferIsCutNeverOverrun) {
    std::string huge(5000, 'a'); // broken every 43 bytes, so the wrap makes it longer
    TAVUText* text = Text("<Wrap>1</Wrap>", 300);
    text->SetText(huge.c_str());
    EXPECT_LE(strlen(text->SplitText), TAVUText::BufferSize - 1);

    // The same text live: resolved into the buffer and wrapped there.
    Host.DataSequences = [&](const std::string&) { return huge; };
    text->SetText("${Long}");
    RenderFrame();
    EXPECT_FALSE(Host.Texts.empty());
    for (const FakeHost::Text& drawn : Host.Texts)
        EXPECT_LE(drawn.Value.size(), 300u / 7 + 1);
}

// The template gives the text, wrap and right alignment; the node's keys win.
// Height 15 holds one line of 11, so the wrapped text takes the single-line
// form and its line feed goes to the host inside the one line.
TEST_F(TextTest, AlignmentKeysChooseTheDrawingCallAndTheRow) {
    const std::tuple<const char*, unsigned, int> cases[] = {
        {"", TAVU_DT_RIGHT, 20},
        {"<Alignment>CENTER</Alignment>", TAVU_DT_CENTER, 20},
        {"<Alignment>middle</Alignment>", 0, 20},
        {"<VerticalAlignment>bottom</VerticalAlignment>", TAVU_DT_RIGHT, 25},
        {"<VerticalAlignment>Center</VerticalAlignment>", TAVU_DT_RIGHT, 20 + (15 - 10) / 2},
    };
    g_UIManager.AddTemplate("text", "<Template><Wrap>1</Wrap><Text>ab\ncd</Text>"
                                    "<Alignment>right</Alignment></Template>");
    for (const auto& [keys, format, top] : cases) {
        SCOPED_TRACE(keys);
        TAVUText* text = Text(keys, 120, 15);
        RenderFrame();
        ASSERT_EQ(Drawn(), (Drawing{{"ab\ncd", top}}));
        EXPECT_EQ(Host.Texts[0].Rect.left, 10);
        EXPECT_EQ(Host.Texts[0].Rect.right, 130);
        EXPECT_EQ(Host.Texts[0].Format & (TAVU_DT_CENTER | TAVU_DT_RIGHT), format);
        Parent->DeleteChild(text);
    }
    // The script's vertical method stores into the horizontal field, where a
    // vertical value draws nothing.
    Text("")->SetHorizontalAlignment(TAVU_ALIGN_BOTTOM);
    RenderFrame();
    EXPECT_TRUE(Host.Texts.empty());
}

TEST_F(TextTest, WrappedTextDrawsLineByLineAndDropsWhatDoesNotFit) {
    // Width 35 is five characters; height 40 holds three lines of 11.
    const std::pair<eTextAlign, int> cases[] = {
        {TAVU_ALIGN_TOP, 20}, {TAVU_ALIGN_VCENTER, 20 + (40 - 33) / 2}, {TAVU_ALIGN_BOTTOM, 27}};
    TAVUText* text = Text("<Wrap>1</Wrap><Text>one\n\ntwo three</Text>", 35, 40);
    for (const auto& [vertical, top] : cases) {
        SCOPED_TRACE(vertical);
        text->SetVerticalAlignment(vertical);
        RenderFrame();
        // The empty line keeps its row; "three" does not fit.
        EXPECT_EQ(Drawn(), (Drawing{{"one", top}, {"two", top + 22}}));
    }
}

// At loading the text is set before its width is known, and wrapped again after.
TEST_F(TextTest, ALiteralTextIsWrappedAgainForANewWidth) {
    TAVUText* text = Load<TAVUText>("text", "Wide",
                                    "<text><Width>50%</Width><Height>100</Height><Wrap>1</Wrap>"
                                    "<Text>aaaa bbbb cccc</Text></text>");
    EXPECT_STREQ(text->SplitText, "aaaa bbbb cccc");
}

// A literal text is never sent to the host, and is drawn plainly: its colour
// codes, the last one cut in half, are bytes like any other. Without the wrap
// flag its cached breaks stay inside one line.
TEST_F(TextTest, LiveTextIsResolvedWrappedAndMayDeleteItselfButALiteralOneIsNeverSent) {
    Host.DataSequences = [](const std::string&) { return std::string("alpha beta gamma"); };
    TAVUText* text = Text("<Wrap>1</Wrap><Text>${Words}</Text>", 42, 100);
    RenderFrame();
    EXPECT_EQ(Drawn(), (Drawing{{"alpha", 20}, {"beta", 31}, {"gamma", 42}}));
    EXPECT_EQ(text->LineCount, 3u);
    text->SetWrap(false);
    text->SetText("\arok\a# xyz");
    RenderFrame();
    EXPECT_EQ(Host.Count("ParseDataSequences"), 0u);
    EXPECT_EQ(Drawn(), (Drawing{{"\arok\a#\nxyz", 20}}));

    // The script the data sequences run may delete the text: nothing more is drawn.
    text->SetText("${Gone}");
    Host.DataSequences = [&](const std::string&) {
        Parent->DeleteChild(text);
        return std::string("never drawn");
    };
    RenderFrame();
    EXPECT_TRUE(Host.Texts.empty());
}

TEST_F(TextTest, CreateFromCodeTakesItsRecordAndAZeroVerticalMeansTop) {
    auto* text = static_cast<TAVUText*>(g_UIManager.LoadElement(Parent, "text", "Made"));
    _CreateText create;
    create.Text = "made by code";
    text->Create(create, nullptr);
    EXPECT_EQ(text->VerticalAlignment, TAVU_ALIGN_TOP);
    EXPECT_STREQ(text->Text, "made by code");
    EXPECT_TRUE(text->IsTypeOf("TEXT"));
}
