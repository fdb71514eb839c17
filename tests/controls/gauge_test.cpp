#include "ControlTest.h"
#include "TAVUGauge.h"
#include "TAVUGaugeFiller.h"
#include "TAVUTexture.h"
#include "TAVUVariableGauge.h"

#include <cmath>
#include <limits>

class GaugeTest : public ControlTest {
protected:
    // A 104x44 gauge at 10,20 with a border of 2, so that its 100x40 filler
    // of texture "#bar" (64x64 in the fake host) lies at 12,22.
    TAVUGauge* Gauge(const std::string& keys, const std::string& fillerKeys = "") {
        std::string xml = "<gauge><X>10</X><Y>20</Y><Width>104</Width><Height>44</Height>"
                          "<Border>2</Border>" +
                          keys +
                          "<Filler><Width>100</Width><Height>40</Height>"
                          "<Texture Filename=\"#bar\"/>" +
                          fillerKeys + "</Filler></gauge>";
        return Load<TAVUGauge>("gauge", "Level", xml.c_str());
    }
    // Each texture record as "left,top,right,bottom source-right".
    std::vector<std::string> Records() const {
        std::vector<std::string> records;
        for (const TAVUDrawRecord& r : Host.DrawRecords)
            records.push_back(std::to_string(r.Left) + "," + std::to_string(r.Top) + "," +
                              std::to_string(r.Right) + "," + std::to_string(r.Bottom) + " " +
                              std::to_string(r.TextureRight));
        return records;
    }
};

TEST_F(GaugeTest, TheFillerDrawsItsShareCroppedOnTheHorizontalSourceEdge) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const struct {
        const char* keys;
        unsigned repeat;
        float value;
        std::vector<std::string> records;
    } cases[] = {
        {"<Range>1</Range>", 1, 0.5f, {"12,22,62,62 32"}},
        // Vertical fills from the bottom, and still crops the source's width.
        {"<Range>1</Range><Vertical>1</Vertical>", 1, 0.25f, {"12,52,112,62 16"}},
        {"<Range>0</Range>", 1, 0.0f, {"12,22,112,62 64"}}, // Range 0 shows full
        {"<Range>1</Range>", 1, 0.0005f, {}},               // below a thousandth: nothing
        // Two full pieces, the cut last one, and the last one drawn again.
        {"<Range>1</Range>",
         4,
         0.6f,
         {"12,22,37,62 64", "37,22,62,62 64", "62,22,72,62 25", "62,22,72,62 25"}},
        // A value that is no number fills every piece, then the empty rest.
        {"<Range>1</Range><Vertical>1</Vertical>",
         2,
         nan,
         {"12,42,112,62 64", "12,22,112,42 64", "12,22,112,22 64"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.keys) + " repeat " + std::to_string(c.repeat));
        std::string repeat = "<Repeat>" + std::to_string(c.repeat) + "</Repeat>";
        TAVUGauge* gauge = Gauge(c.keys, repeat);
        ASSERT_NE(gauge, nullptr);
        gauge->SetValue(c.value);
        RenderFrame();
        EXPECT_EQ(Records(), c.records);
        EXPECT_EQ(gauge->Filler->Texture->Right, 0); // the crop lasts one frame only
        Parent->DeleteChild(gauge);
    }
    // More segments than pixels, hostile: every piece is empty, and the frame
    // still ends after a bounded number of them.
    TAVUGauge* hostile = Gauge("<Range>1</Range>", "<Repeat>4000000000</Repeat>");
    ASSERT_NE(hostile, nullptr);
    hostile->SetValue(1);
    RenderFrame();
    EXPECT_EQ(Host.DrawRecords.size(), TAVUGaugeFiller::MaxDrawnSegments + 1u);
}

TEST_F(GaugeTest, ValuesClampIntoTheRangeAndWrapInsideAFiller) {
    TAVUGauge* outer = Gauge("<Range>10</Range>");
    ASSERT_NE(outer, nullptr);
    auto* inner = static_cast<TAVUGauge*>(g_UIManager.LoadElement(
        outer->Filler, "gauge", "Inner", Parse("<gauge><Range>1</Range></gauge>"), nullptr));
    ASSERT_NE(inner, nullptr);
    ASSERT_TRUE(inner->InFiller && !outer->InFiller);
    outer->SetValue(2.5f);
    EXPECT_FLOAT_EQ(inner->Value, 0.5f); // the filler passes the number on, wrapped
    const struct {
        TAVUGauge* gauge;
        float range, value, shown; // NAN: a value that is no number
    } cases[] = {
        {outer, 1, 2.5f, 1},  {inner, 1, 2.5f, 0.5f},    {outer, 1, -3, 0},
        {inner, 1, -3, 0},    {outer, 4, 4, 4},          {inner, 0, 1, NAN},
        {outer, 1, NAN, NAN}, {inner, 1, INFINITY, NAN},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.range) + " " + std::to_string(c.value) +
                     (c.gauge == inner ? " inner" : " outer"));
        c.gauge->SetRange(c.range);
        c.gauge->SetValue(c.value);
        if (std::isnan(c.shown))
            EXPECT_TRUE(std::isnan(c.gauge->Value)) << c.gauge->Value;
        else
            EXPECT_FLOAT_EQ(c.gauge->Value, c.shown);
    }
    RenderFrame(); // a filler of a value that is no number draws without undefined behaviour
    outer->DeleteChild(outer->Filler); // a script may kill the filler: the gauge forgets it
    EXPECT_EQ(outer->Filler, nullptr);
    outer->SetRange(2); // under ASan
}

TEST_F(GaugeTest, KeysComeFromTheGaugeTemplateAndTheFillerSitsInsideTheBorder) {
    g_UIManager.AddTemplate("gauge",
                            "<Template ColorMask=\"FF00FF00\"><Vertical>1</Vertical>"
                            "<TopTexture Filename=\"#glass\"/>"
                            "<Filler ColorMask=\"FF0000FF\"><X>3</X><Y>50%</Y><Width>100%</Width>"
                            "<Height>0.5</Height><Texture Filename=\"#bar\"/></Filler>"
                            "</Template>");
    auto* gauge = Load<TAVUGauge>("gauge", "Fuel",
                                  "<gauge><Width>104</Width><Height>44</Height>"
                                  "<Border>2</Border><Range>8</Range></gauge>");
    ASSERT_NE(gauge, nullptr);
    EXPECT_TRUE(gauge->Vertical && gauge->IsTypeOf("GAUGE") && gauge->IsTypeOf("frame"));
    EXPECT_FLOAT_EQ(gauge->Range, 8.0f);
    ASSERT_NE(gauge->TopTexture, nullptr);
    EXPECT_EQ(gauge->TopTexture->ColorMask, 0xFF00FF00u);
    TAVUGaugeFiller* filler = gauge->Filler;
    ASSERT_NE(filler, nullptr);
    EXPECT_EQ(filler->Repeat, 1u); // no "Repeat" reads as 1
    EXPECT_TRUE(filler->Vertical);
    EXPECT_EQ(filler->Texture->ColorMask, 0xFF0000FFu); // the filler's own mask
    filler->RecalculateSize(true);                      // fractions of the space inside the border
    EXPECT_EQ(std::vector<int>({filler->X, filler->Y, filler->Width, filler->Height}),
              std::vector<int>({5, 23, 100, 20}));
    // Alone from a file a filler never loads.
    EXPECT_EQ(Load("gaugefiller", "Stray", "<gaugefiller/>"), nullptr);
    auto* empty = Load<TAVUGauge>("gauge", "Empty", "<gauge/>");
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(empty->Range, 0.0f); // not the constructor's 1
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

class VariableGaugeTest : public GaugeTest {
protected:
    // The variable gauge behind what its factory gave: the gauge or its filler.
    static TAVUVariableGauge* Behind(TAVUElement* loaded) {
        return static_cast<TAVUVariableGauge*>(loaded->IsTypeOf("gaugefiller") ? loaded->Parent
                                                                               : loaded);
    }
};

TEST_F(VariableGaugeTest, TheFactoryGivesTheFillerWhichTakesTheChildren) {
    TAVUElement* filler = Load("variablegauge", "Mana",
                               "<variablegauge><Range>10</Range><Filler/><Children>"
                               "<gauge Name=\"Pips\"><Range>1</Range></gauge>"
                               "</Children></variablegauge>");
    ASSERT_NE(filler, nullptr);
    EXPECT_TRUE(filler->IsTypeOf("gaugefiller"));
    TAVUVariableGauge* gauge = Behind(filler);
    EXPECT_TRUE(gauge->IsTypeOf("variablegauge") && gauge->IsTypeOf("gauge"));
    ASSERT_EQ(gauge->Filler, filler);
    auto* pips = static_cast<TAVUGauge*>(filler->FindChild("Pips"));
    ASSERT_NE(pips, nullptr);
    gauge->SetValue(2.5f);
    EXPECT_FLOAT_EQ(pips->Value, 0.5f);

    TAVUElement* bare = Load("variablegauge", "Bare", "<variablegauge/>");
    EXPECT_TRUE(bare && bare->IsTypeOf("variablegauge")); // no filler: the gauge itself
}

TEST_F(VariableGaugeTest, EachFrameTheValueFollowsTheSequenceLessTheOffset) {
    std::string mana = "7.5";
    Host.DataSequences = [&](const std::string& text) {
        return text == "${Mana}" ? mana : std::string("NULL");
    };
    TAVUVariableGauge* gauge = Behind(Load("variablegauge", "Mana",
                                           "<variablegauge><Range>10</Range><Data>${Mana}</Data>"
                                           "<Offset>2.5</Offset><Filler/></variablegauge>"));
    ASSERT_NE(gauge, nullptr);
    // (How "nan" reads is the C library's: values that are no number are
    // covered through SetValue.)
    const struct {
        const char* text;
        float shown;
    } cases[] = {{"7.5", 5}, {"-4", 0}, {"1e39", 10}, {"banana", 0}, {"12.5", 10}};
    for (const auto& c : cases) {
        mana = c.text;
        RenderFrame();
        EXPECT_FLOAT_EQ(gauge->Value, c.shown) << c.text;
        EXPECT_FLOAT_EQ(gauge->Filler->Value, c.shown) << c.text;
    }
}

TEST_F(VariableGaugeTest, ASequenceWhoseScriptDeletesTheGaugeStopsItsFrame) {
    TAVUVariableGauge* gauge = Behind(Load(
        "variablegauge", "Doomed",
        "<variablegauge><Data>${Doom}</Data><TopTexture Filename=\"#glass\"/></variablegauge>"));
    ASSERT_NE(gauge, nullptr);
    Host.DataSequences = [&](const std::string&) {
        Parent->DeleteChild(gauge);
        return std::string("1");
    };
    RenderFrame(); // under ASan: the gauge is not touched after
    EXPECT_EQ(Parent->FirstChild, nullptr);
    EXPECT_TRUE(Host.DrawRecords.empty());
}
