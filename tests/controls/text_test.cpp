#include "ControlTest.h"
#include "HostRenderer.h"
#include "TAVUText.h"

#include <cstring>
#include <string>

// The fake host measures 7 pixels a byte, so widths below count characters.
class TextTest : public ControlTest {
protected:
    // A text at 10,20 of the given size, with a 10-pixel font (lines 11 apart).
    TAVUText* Text(const char* keys, int width = 200, int height = 100) {
        std::string xml = "<text><X>10</X><Y>20</Y><Width>" + std::to_string(width) +
                          "</Width><Height>" + std::to_string(height) +
                          "</Height><Font><Size>10</Size></Font>" + keys + "</text>";
        return Load<TAVUText>("text", "Label", xml.c_str());
    }
    std::vector<std::string> DrawnTexts() const {
        std::vector<std::string> texts;
        for (const FakeHost::Text& text : Host.Texts)
            texts.push_back(text.Value);
        return texts;
    }
    std::vector<int> DrawnTops() const {
        std::vector<int> tops;
        for (const FakeHost::Text& text : Host.Texts)
            tops.push_back(text.Rect.top);
        return tops;
    }
};

struct WrapCase {
    const char* Name;
    const char* Text;
    size_t Width; // pixels for the proportional wrap, columns for the fixed one
    const char* Wrapped;
    size_t Lines;
};

const WrapCase kProportionalCases[] = {
    {"blank exactly at the width is dropped", "hello world", 35, "hello\nworld", 2},
    {"word longer than the width breaks inside", "abcdefghij", 28, "abcd\nefgh\nij", 3},
    {"the last blank becomes the break", "one two three", 50, "one two\nthree", 2},
    {"a word moves down whole", "ab cdef", 28, "ab\ncdef", 2},
    {"a line runs over by one character", "abcdef", 30, "abcde\nf", 2},
    {"explicit line feeds stay and count", "ab\n\ncd", 100, "ab\n\ncd", 3},
    {"empty text is one line", "", 100, "", 1},
};

TEST_F(TextTest, ProportionalWrapFollowsTheBlankAndWordRules) {
    TAVUText* text = Text("");
    ASSERT_NE(text, nullptr);
    for (const WrapCase& c : kProportionalCases) {
        char buffer[TAVUText::BufferSize];
        strcpy(buffer, c.Text);
        size_t widest = 0;
        EXPECT_EQ(TAVUText::Split(buffer, c.Width, text->Font, widest), c.Lines) << c.Name;
        EXPECT_STREQ(buffer, c.Wrapped) << c.Name;
        text->Width = int(c.Width); // the member form wraps to the element's width
        strcpy(buffer, c.Text);
        EXPECT_EQ(text->Split(buffer), c.Lines) << c.Name;
        EXPECT_STREQ(buffer, c.Wrapped) << c.Name;
    }
}

const WrapCase kFixedCases[] = {
    {"blank exactly at the width is dropped", "hello world", 5, "hello\nworld", 2},
    {"word longer than the width breaks inside", "abcdefghij", 4, "abcd\nefgh\nij", 3},
    {"a word moves down whole", "ab cdef", 4, "ab\ncdef", 2},
    {"no columns leaves the text alone", "abc", 0, "abc", 0},
    {"explicit line feed", "ab\ncd", 10, "ab\ncd", 2},
};

TEST_F(TextTest, FixedWrapCountsColumns) {
    for (const WrapCase& c : kFixedCases) {
        char buffer[TAVUText::BufferSize];
        strcpy(buffer, c.Text);
        size_t widest = 0;
        EXPECT_EQ(TAVUText::SplitFixed(buffer, c.Width, widest), c.Lines) << c.Name;
        EXPECT_STREQ(buffer, c.Wrapped) << c.Name;
    }
}

TEST_F(TextTest, WrapReportsTheWidestLineAndAnAutomaticBreakResetsIt) {
    TAVUText* text = Text("");
    ASSERT_NE(text, nullptr);
    char buffer[TAVUText::BufferSize] = "ab\ncdef";
    size_t widest = 0;
    EXPECT_EQ(TAVUText::Split(buffer, 100, text->Font, widest), 2u);
    EXPECT_EQ(widest, 28u);
    strcpy(buffer, "abcdefgh");
    widest = 500; // the caller's start value falls at a break
    EXPECT_EQ(TAVUText::Split(buffer, 28, text->Font, widest), 2u);
    EXPECT_EQ(widest, 28u);
    EXPECT_EQ(TAVUText::Split(nullptr, 28, text->Font, widest), 0u);
    EXPECT_EQ(TAVUText::Split(buffer, 28, nullptr, widest), 0u);

    // A fixed font wraps by columns of its blank's width and reports pixels.
    text->Font->Fixed = true;
    strcpy(buffer, "hello world");
    widest = 0;
    EXPECT_EQ(TAVUText::Split(buffer, 35, text->Font, widest), 2u);
    EXPECT_STREQ(buffer, "hello\nworld");
    EXPECT_EQ(widest, 35u);
}

TEST_F(TextTest, TextLongerThanTheBufferIsCutNeverOverrun) {
    std::string huge(5000, 'a');
    for (size_t i = 50; i < huge.size(); i += 60)
        huge[i] = ' ';
    TAVUText* text = Text("", 300);
    ASSERT_NE(text, nullptr);
    text->SetText(huge.c_str());
    ASSERT_NE(text->SplitText, nullptr);
    EXPECT_LE(strlen(text->SplitText), TAVUText::BufferSize - 1);
    EXPECT_EQ(strlen(text->Text), huge.size()); // the source is kept whole

    // The same text live: the host is given the buffer's size.
    Host.DataSequences = [&](const std::string&) { return huge; };
    text->SetText("${Long}");
    text->Wrap = true;
    RenderFrame();
    ASSERT_EQ(Host.CallsNamed("ParseDataSequences").size(), 1u);
    EXPECT_EQ(Host.CallsNamed("ParseDataSequences")[0].Args[1], "2048");
    EXPECT_FALSE(Host.Texts.empty());
    for (const FakeHost::Text& drawn : Host.Texts)
        EXPECT_LE(drawn.Value.size(), 300u / 7 + 1);
}

struct KeyCase {
    const char* Keys;
    eTextAlign Horizontal;
    eTextAlign Vertical;
    bool Wrap;
};

TEST_F(TextTest, XmlKeysAreReadOverTheTemplate) {
    const KeyCase cases[] = {
        {"", TAVU_ALIGN_LEFT, TAVU_ALIGN_TOP, false},
        {"<Alignment>CENTER</Alignment>", TAVU_ALIGN_CENTER, TAVU_ALIGN_TOP, false},
        {"<Alignment>middle</Alignment>", TAVU_ALIGN_LEFT, TAVU_ALIGN_TOP, false},
        {"<Alignment>Right</Alignment><VerticalAlignment>bottom</VerticalAlignment>",
         TAVU_ALIGN_RIGHT, TAVU_ALIGN_BOTTOM, false},
        {"<VerticalAlignment>Center</VerticalAlignment><Wrap>1</Wrap>", TAVU_ALIGN_LEFT,
         TAVU_ALIGN_VCENTER, true},
    };
    for (const KeyCase& c : cases) {
        TAVUText* text = Text(c.Keys);
        ASSERT_NE(text, nullptr) << c.Keys;
        EXPECT_EQ(text->HorizontalAlignment, c.Horizontal) << c.Keys;
        EXPECT_EQ(text->VerticalAlignment, c.Vertical) << c.Keys;
        EXPECT_EQ(text->Wrap, c.Wrap) << c.Keys;
        Parent->DeleteChild(text);
    }

    g_UIManager.AddTemplate("text", "<Template><Wrap>1</Wrap><Text>From template</Text>"
                                    "<Alignment>right</Alignment></Template>");
    TAVUText* text = Text("<Alignment>center</Alignment>");
    ASSERT_NE(text, nullptr);
    EXPECT_TRUE(text->Wrap);
    EXPECT_STREQ(text->Text, "From template");
    EXPECT_EQ(text->HorizontalAlignment, TAVU_ALIGN_CENTER); // the node wins
}

TEST_F(TextTest, EachHorizontalAlignmentUsesItsDrawingCallOverTheElementsSpan) {
    const std::pair<const char*, unsigned> cases[] = {
        {"left", 0u}, {"center", TAVU_DT_CENTER}, {"right", TAVU_DT_RIGHT}};
    for (const auto& c : cases) {
        std::string keys = std::string("<Text>Hi</Text><Alignment>") + c.first + "</Alignment>";
        TAVUText* text = Text(keys.c_str(), 120, 30);
        ASSERT_NE(text, nullptr);
        RenderFrame();
        ASSERT_EQ(Host.Texts.size(), 1u) << c.first;
        EXPECT_EQ(Host.Texts[0].Rect.left, 10) << c.first;
        EXPECT_EQ(Host.Texts[0].Rect.right, 130) << c.first;
        EXPECT_EQ(Host.Texts[0].Format & (TAVU_DT_CENTER | TAVU_DT_RIGHT), c.second) << c.first;
        Parent->DeleteChild(text);
    }
}

TEST_F(TextTest, SingleLineFormPlacesTheLineByVerticalAlignment) {
    // Height 15 holds one line of 11: wrapping is not used, the line feed
    // goes to the host inside the one line.
    const std::pair<eTextAlign, int> cases[] = {
        {TAVU_ALIGN_TOP, 20}, {TAVU_ALIGN_VCENTER, 20 + (15 - 10) / 2}, {TAVU_ALIGN_BOTTOM, 25}};
    TAVUText* text = Text("<Wrap>1</Wrap><Text>ab\ncd</Text>", 200, 15);
    ASSERT_NE(text, nullptr);
    for (const auto& c : cases) {
        text->SetVerticalAlignment(c.first);
        RenderFrame();
        EXPECT_EQ(DrawnTexts(), std::vector<std::string>{"ab\ncd"});
        EXPECT_EQ(DrawnTops(), std::vector<int>{c.second});
    }
    text->SetVerticalAlignment(TAVU_ALIGN_RIGHT); // not a vertical value
    RenderFrame();
    EXPECT_TRUE(Host.Texts.empty());
}

TEST_F(TextTest, WrappedTextDrawsLineByLineAndDropsWhatDoesNotFit) {
    // Width 35 is five characters; height 40 holds three lines of 11.
    const std::pair<eTextAlign, int> cases[] = {
        {TAVU_ALIGN_TOP, 20}, {TAVU_ALIGN_VCENTER, 20 + (40 - 33) / 2}, {TAVU_ALIGN_BOTTOM, 27}};
    TAVUText* text = Text("<Wrap>1</Wrap><Text>one two three four</Text>", 35, 40);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->LineCount, 4u);
    for (const auto& c : cases) {
        text->SetVerticalAlignment(c.first);
        RenderFrame();
        EXPECT_EQ(DrawnTexts(), (std::vector<std::string>{"one", "two", "three"}));
        EXPECT_EQ(DrawnTops(), (std::vector<int>{c.second, c.second + 11, c.second + 22}));
    }
    EXPECT_STREQ(text->SplitText, "one\ntwo\nthree\nfour"); // restored after drawing

    text->SetWrap(false); // the breaks stay cached but are not used
    RenderFrame();
    EXPECT_EQ(DrawnTexts(), std::vector<std::string>{"one\ntwo\nthree\nfour"});
}

TEST_F(TextTest, EmptyLinesKeepTheirRow) {
    TAVUText* text = Text("<Wrap>1</Wrap><Text>a\n\nb</Text>", 100, 100);
    ASSERT_NE(text, nullptr);
    RenderFrame();
    EXPECT_EQ(DrawnTexts(), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(DrawnTops(), (std::vector<int>{20, 42}));
}

TEST_F(TextTest, ColourCodesAreDrawnAsPlainText) {
    const char* texts[] = {"\a#FF0000red\arplain", "cut at the end\a#FF", "\a"};
    TAVUText* text = Text("");
    ASSERT_NE(text, nullptr);
    for (const char* value : texts) {
        text->SetText(value);
        RenderFrame();
        EXPECT_EQ(DrawnTexts(), std::vector<std::string>{value});
    }
}

TEST_F(TextTest, ANewWidthWrapsALiteralTextAgain) {
    TAVUText* text = Load<TAVUText>("text", "Wide",
                                    "<text><Width>50%</Width><Height>100</Height><Wrap>1</Wrap>"
                                    "<Text>aaaa bbbb cccc</Text></text>");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->Width, 200);
    EXPECT_EQ(text->LineCount, 1u);
    Parent->Width = 60; // the text becomes 30 pixels wide, four characters
    text->RecalculateSize(true);
    EXPECT_STREQ(text->SplitText, "aaaa\nbbbb\ncccc");
    EXPECT_EQ(text->LineCount, 3u);
}

TEST_F(TextTest, LiveTextIsResolvedAtEveryFrameAndNeverCached) {
    int frame = 0;
    Host.DataSequences = [&](const std::string& text) {
        return text == "HP ${Hp}" ? "HP " + std::to_string(100 - frame) : text;
    };
    TAVUText* text = Text("<Text>HP ${Hp}</Text>");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->SplitText, nullptr);
    for (frame = 0; frame < 3; ++frame) {
        RenderFrame();
        EXPECT_EQ(DrawnTexts(), std::vector<std::string>{"HP " + std::to_string(100 - frame)});
    }
    // An empty answer draws nothing; a literal text is never sent to the host.
    Host.DataSequences = [](const std::string&) { return std::string(); };
    RenderFrame();
    EXPECT_TRUE(Host.Texts.empty());
    text->SetText("Plain");
    RenderFrame();
    EXPECT_EQ(Host.Count("ParseDataSequences"), 0u);
    EXPECT_EQ(DrawnTexts(), std::vector<std::string>{"Plain"});
}

TEST_F(TextTest, LiveTextIsWrappedAfterItIsResolved) {
    Host.DataSequences = [](const std::string&) { return std::string("alpha beta gamma"); };
    TAVUText* text = Text("<Wrap>1</Wrap><Text>${Words}</Text>", 42, 100);
    ASSERT_NE(text, nullptr);
    RenderFrame();
    EXPECT_EQ(DrawnTexts(), (std::vector<std::string>{"alpha", "beta", "gamma"}));
    EXPECT_EQ(text->LineCount, 3u);
}

TEST_F(TextTest, ADataSequenceThatDeletesItsTextStopsTheDrawing) {
    TAVUText* text = Text("<Text>${Gone}</Text>");
    ASSERT_NE(text, nullptr);
    TAVUElement* child = Load("frame", "Child", "<frame><Width>5</Width></frame>");
    ASSERT_NE(child, nullptr);
    unsigned id = text->ID;
    Host.DataSequences = [&](const std::string&) {
        if (TAVUElement* self = g_UIManager.FindElementByID(id)) self->Parent->DeleteChild(self);
        return std::string("never drawn");
    };
    RenderFrame();
    EXPECT_TRUE(Host.Texts.empty());
    EXPECT_EQ(g_UIManager.FindElementByID(id), nullptr);
}

TEST_F(TextTest, CreateFromCodeTakesItsRecordAndAZeroVerticalMeansTop) {
    auto* text = static_cast<TAVUText*>(g_UIManager.LoadElement(Parent, "text", "Made"));
    ASSERT_NE(text, nullptr);
    _CreateText create;
    create.Width = 70;
    create.Height = 30;
    create.Text = "made by code";
    create.Font = _CreateFont{nullptr, 14, 0xFFFFFFFF, false, false};
    create.HorizontalAlignment = TAVU_ALIGN_RIGHT;
    create.Wrap = true;
    text->Create(create, nullptr);
    EXPECT_EQ(text->VerticalAlignment, TAVU_ALIGN_TOP);
    EXPECT_EQ(text->HorizontalAlignment, TAVU_ALIGN_RIGHT);
    ASSERT_NE(text->Font, nullptr);
    EXPECT_EQ(text->Font->Height, 14u);
    EXPECT_STREQ(text->SplitText, "made by\ncode");
    EXPECT_TRUE(text->IsTypeOf("TEXT"));
}
