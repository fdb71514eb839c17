#include "ControlTest.h"
#include "TAVUGauge.h"
#include "TAVUGaugeFiller.h"
#include "TAVUTexture.h"
#include "TAVUVariableGauge.h"

#include <cmath>

class GaugeTest : public ControlTest {
protected:
    // A 104x44 gauge at 10,20 with a border of 2, so that its 100x40 filler
    // of texture "#bar" (64x64 in the fake host) lies at 12,22. A variable
    // gauge's factory gives the filler: this gives the gauge behind it.
    TAVUGauge* Gauge(const std::string& keys, const std::string& fillerKeys = "",
                     const char* type = "gauge") {
        std::string xml = "<gauge><X>10</X><Y>20</Y><Width>104</Width><Height>44</Height>"
                          "<Border>2</Border>" +
                          keys + "<Filler><Width>100</Width><Height>40</Height>" + fillerKeys +
                          "<Texture Filename=\"#bar\"/></Filler></gauge>";
        TAVUElement* loaded = Load(type, "Level", xml.c_str());
        bool filler = loaded && loaded->IsTypeOf("gaugefiller");
        return static_cast<TAVUGauge*>(filler ? loaded->Parent : loaded);
    }
    // Each texture record as "left,top,right,bottom source-right;".
    std::string Records() const {
        std::string records;
        char line[64];
        for (const TAVUDrawRecord& r : Host.DrawRecords) {
            snprintf(line, sizeof(line), "%d,%d,%d,%d %d;", int(r.Left), int(r.Top), int(r.Right),
                     int(r.Bottom), int(r.TextureRight));
            records += line;
        }
        return records;
    }
};

TEST_F(GaugeTest, TheFillerDrawsItsShareCroppedOnTheHorizontalSourceEdge) {
    const struct {
        const char* keys;
        int repeat;
        float value;
        const char* records;
    } cases[] = {
        {"<Range>1</Range>", 1, 0.5f, "12,22,62,62 32;"},
        // Vertical fills from the bottom, and still crops the source's width.
        {"<Range>1</Range><Vertical>1</Vertical>", 1, 0.25f, "12,52,112,62 16;"},
        {"", 1, 0.0f, "12,22,112,62 64;"},    // no Range is 0, not 1: it shows full
        {"<Range>1</Range>", 0, 0.0005f, ""}, // below a thousandth: nothing
        // Two full pieces, the cut last one, and the last one drawn again.
        {"<Range>1</Range>", 4, 0.6f,
         "12,22,37,62 64;37,22,62,62 64;62,22,72,62 25;62,22,72,62 25;"},
        // A value that is no number fills every piece, then the empty rest.
        {"<Range>1</Range><Vertical>1</Vertical>", 2, NAN,
         "12,42,112,62 64;12,22,112,42 64;12,22,112,22 64;"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.keys) + " repeat " + std::to_string(c.repeat));
        TAVUGauge* gauge = Gauge(c.keys, "<Repeat>" + std::to_string(c.repeat) + "</Repeat>");
        ASSERT_NE(gauge, nullptr);
        gauge->SetValue(c.value);
        RenderFrame();
        EXPECT_EQ(Records(), c.records);
        EXPECT_EQ(gauge->Filler->Texture->Right, 0); // the crop lasts one frame only
        Parent->DeleteChild(gauge);
    }
    // More segments than pixels, hostile: the frame ends after a bounded number.
    Gauge("", "<Repeat>4000000000</Repeat>")->SetValue(1);
    RenderFrame();
    EXPECT_EQ(Host.DrawRecords.size(), TAVUGaugeFiller::MaxDrawnSegments + 1u);
}

TEST_F(GaugeTest, ValuesClampIntoTheRangeAndWrapInsideAFiller) {
    TAVUGauge* outer = Gauge("<Range>10</Range>");
    auto* inner = static_cast<TAVUGauge*>(g_UIManager.LoadElement(
        outer->Filler, "gauge", "Inner", Parse("<gauge><Range>1</Range></gauge>"), nullptr));
    ASSERT_TRUE(inner && inner->InFiller && !outer->InFiller);
    outer->SetValue(2.5f);
    EXPECT_FLOAT_EQ(inner->Value, 0.5f); // the filler passes the number on, wrapped
    const struct {
        TAVUGauge* gauge;
        float range, value, shown; // NAN: a value that is no number
    } cases[] = {{outer, 1, 2.5f, 1},  {inner, 1, 2.5f, 0.5f},   {outer, 1, -3, 0},
                 {inner, 1, -3, 0},    {outer, 4, 4, 4},         {inner, 0, 1, NAN},
                 {outer, 1, NAN, NAN}, {inner, 1, INFINITY, NAN}};
    for (const auto& c : cases) {
        c.gauge->SetRange(c.range);
        c.gauge->SetValue(c.value);
        EXPECT_TRUE(c.gauge->Value == c.shown ||
                    (std::isnan(c.shown) && std::isnan(c.gauge->Value)))
            << c.range << " " << c.value << " gives " << c.gauge->Value;
    }
    RenderFrame(); // a filler of a value that is no number draws without undefined behaviour
    outer->DeleteChild(outer->Filler); // a script may kill the filler: the gauge forgets it
    EXPECT_EQ(outer->Filler, nullptr);
    outer->SetRange(2); // under ASan
}

TEST_F(GaugeTest, KeysComeFromTheGaugeTemplateAndTheFillerSitsInsideTheBorder) {
    g_UIManager.AddTemplate("gauge", "<Template ColorMask=\"FF00FF00\"><Vertical>1</Vertical>"
                                     "<TopTexture Filename=\"#glass\"/>"
                                     "<Filler ColorMask=\"FF0000FF\"><X>3</X><Y>50%</Y>"
                                     "<Width>100%</Width><Height>0.5</Height>"
                                     "<Texture Filename=\"#bar\"/></Filler></Template>");
    auto* gauge = Load<TAVUGauge>("gauge", "Fuel",
                                  "<gauge><Width>104</Width><Height>44</Height>"
                                  "<Border>2</Border><Range>8</Range></gauge>");
    ASSERT_TRUE(gauge && gauge->Filler && gauge->TopTexture);
    EXPECT_TRUE(gauge->Vertical && gauge->Filler->Vertical && gauge->Range == 8.0f);
    EXPECT_EQ(gauge->TopTexture->ColorMask, 0xFF00FF00u);
    TAVUGaugeFiller* filler = gauge->Filler;
    EXPECT_EQ(filler->Texture->ColorMask, 0xFF0000FFu); // the filler's own mask
    EXPECT_EQ(filler->Repeat, 1u);                      // no "Repeat" reads as 1
    filler->RecalculateSize(true);                      // fractions of the space inside the border
    EXPECT_EQ(std::vector<int>({filler->X, filler->Y, filler->Width, filler->Height}),
              std::vector<int>({5, 23, 100, 20}));
    EXPECT_EQ(Load("gaugefiller", "Stray", "<gaugefiller/>"), nullptr); // never alone
}

TEST_F(GaugeTest, AChildThatDeletesTheGaugeWhileItDrawsLeavesTheTopTextureUndrawn) {
    TAVUGauge* gauge = Gauge("<TopTexture Filename=\"#glass\"/><Children><frame Name=\"Mark\">"
                             "<OnRender>die</OnRender></frame></Children>");
    ASSERT_NE(gauge, nullptr);
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        Parent->DeleteChild(gauge);
        return 0;
    };
    RenderFrame(); // under ASan: nothing of the gauge is touched after
    EXPECT_EQ(Parent->FirstChild, nullptr);
    EXPECT_EQ(Host.DrawRecords.size(), 1u); // the filler's, drawn before the child
}

// How the variable gauge binds to a script variable, with its filler and the
// children in it, is compared end to end in tavuhost's gauge case.
TEST_F(GaugeTest, AVariableGaugeFollowsItsSequenceLessTheOffsetThroughHostileText) {
    std::string mana;
    Host.DataSequences = [&](const std::string& text) { return text == "${Mana}" ? mana : ""; };
    TAVUGauge* gauge =
        Gauge("<Range>10</Range><Data>${Mana}</Data><Offset>2.5</Offset>", "", "variablegauge");
    ASSERT_TRUE(gauge && gauge->IsTypeOf("variablegauge"));
    // ("nan" is left out: how it reads is the C library's, 0 on Windows.)
    const std::pair<const char*, float> cases[] = {
        {"7.5", 5}, {"-4", 0}, {"1e39", 10}, {"banana", 0}, {"12.5", 10}};
    for (const auto& [text, shown] : cases) {
        mana = text;
        RenderFrame();
        EXPECT_FLOAT_EQ(gauge->Value, shown) << text;
        EXPECT_FLOAT_EQ(gauge->Filler->Value, shown) << text;
    }
}

TEST_F(GaugeTest, ASequenceWhoseScriptDeletesTheVariableGaugeStopsItsFrame) {
    TAVUGauge* gauge =
        Gauge("<Data>${Doom}</Data><TopTexture Filename=\"#glass\"/>", "", "variablegauge");
    ASSERT_NE(gauge, nullptr);
    Host.DataSequences = [&](const std::string&) {
        Parent->DeleteChild(gauge);
        return std::string("1");
    };
    RenderFrame(); // under ASan: the gauge is not touched after
    EXPECT_EQ(Parent->FirstChild, nullptr);
    EXPECT_TRUE(Host.DrawRecords.empty());
}
