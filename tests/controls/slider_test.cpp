#include "ControlTest.h"
#include "TAVUSlider.h"
#include "TAVUTexture.h"
#include "TAVUVariableSlider.h"
#include "Words.h"

#include <string>

class SliderTest : public ControlTest {
protected:
    // A slider at 10,20 of the given size, with more keys.
    TAVUSlider* Slider(int width, int height, const std::string& keys,
                       const std::string& attributes = "") {
        std::string xml = "<slider" + attributes + "><X>10</X><Y>20</Y><Width>" +
                          std::to_string(width) + "</Width><Height>" + std::to_string(height) +
                          "</Height>" + keys + "</slider>";
        return Load<TAVUSlider>("slider", "Level", xml.c_str());
    }
    // Range, Border and Vertical, as one comparison shows them.
    static std::string Keys(const TAVUSlider* slider) {
        return Words(slider->Range, slider->Border, slider->Vertical);
    }
    std::string Drawn(size_t index) {
        const TAVUDrawRecord& r = Host.DrawRecords.at(index);
        return Words(Host.LiveTextures[r.Texture], r.Left, r.Top, r.Right, r.Bottom);
    }
};

TEST_F(SliderTest, KeysComeFromTheNodeOverItsTemplateAndRangeIsZeroWhenNoneSaysIt) {
    g_UIManager.AddTemplate("slider", "<Template><Range>50</Range><Border>2</Border></Template>");
    g_UIManager.AddTemplate("Bare", "<Template><Vertical>1</Vertical></Template>");
    const struct {
        const char* Attributes;
        const char* Keys;
        const char* Expected; // Range Border Vertical
    } cases[] = {
        {"", "", "50 2 0"},
        {"", "<Range>7</Range><Border>0</Border><Vertical>1</Vertical>", "7 0 1"},
        {" Template=\"Bare\"", "", "0 0 1"}, // not the constructor's 100
        {" Template=\"Bare\"", "<Vertical>0</Vertical><Range>lots</Range>", "0 0 0"},
        {"", "<Range>-1</Range>", "4294967295 2 0"},
    };
    for (const auto& c : cases) {
        TAVUSlider* slider = Slider(100, 16, c.Keys, c.Attributes);
        ASSERT_NE(slider, nullptr) << c.Keys;
        EXPECT_EQ(Keys(slider), c.Expected) << c.Attributes << c.Keys;
        Parent->DeleteChild(slider);
    }
}

TEST_F(SliderTest, TexturesOnChangeAndColorMask) {
    TAVUSlider* slider = Slider(100, 16,
                                "<Texture Filename=\"#track\"/><HandleTexture Filename=\"#knob\"/>"
                                "<OnChange>moved</OnChange>",
                                " ColorMask=\"FF00FF00\"");
    ASSERT_NE(slider, nullptr);
    ASSERT_TRUE(slider->Texture && slider->HandleTexture && slider->OnChange);
    EXPECT_EQ(slider->Texture->ColorMask, 0xFF00FF00u);
    EXPECT_NE(slider->HandleTexture->Flags & TAVUTexture::HasColorMask, 0u);
    EXPECT_TRUE(slider->IsTypeOf("slider") && !slider->IsTypeOf("button"));
}

// Each row: orientation, length along the track, border, Range, and the value
// asked for; then the value, the handle's position and the notes sent.
TEST_F(SliderTest, SetValueClampsPlacesTheHandleAndTellsOnlyOfChanges) {
    const struct {
        bool Vertical;
        int Length;
        unsigned Border, Range, Asked;
        const char* Expected;
    } cases[] = {
        {false, 105, 0, 100, 50, "50 50 1"},
        {false, 105, 0, 100, 250, "100 100 1"},                        // clamped to Range
        {false, 109, 2, 3, 1, "1 33 1"},                               // truncated
        {true, 105, 0, 100, 100, "100 0 1"},                           // highest at the top
        {true, 109, 2, 100, 25, "25 75 1"},                            // 100 - 25
        {false, 105, 0, 0, 9, "0 0 0"},                                // Range 0
        {false, 6, 1, 100, 40, "40 0 0"},                              // too short: silent
        {true, -10, 0, 100, 40, "40 0 0"},                             // negative length
        {false, 105, 0, 4294967295u, 4294967295u, "4294967295 100 1"}, // float rounding
        {false, 105, 0, 100, 0, "0 0 0"},                              // no change
    };
    for (const auto& c : cases) {
        std::string keys = "<Border>" + std::to_string(c.Border) + "</Border><Range>" +
                           std::to_string(c.Range) + "</Range>" +
                           (c.Vertical ? "<Vertical>1</Vertical>" : "");
        TAVUSlider* slider = c.Vertical ? Slider(20, c.Length, keys) : Slider(c.Length, 16, keys);
        ASSERT_NE(slider, nullptr);
        slider->Range = c.Range; // beyond what a key reads
        Parent->Notes.clear();
        slider->SetValue(c.Asked);
        EXPECT_EQ(Words(slider->Value, slider->HandlePosition, Parent->Notes.size()), c.Expected)
            << Words(c.Vertical, c.Length, c.Border, c.Range, c.Asked);
        if (!Parent->Notes.empty()) {
            EXPECT_EQ(Parent->Notes[0].second, slider->Value);
        }
        Parent->DeleteChild(slider);
    }
}

// The drag goes through the manager's input entry points, as the host sends it.
TEST_F(SliderTest, ADragFollowsThePointerAlsoOutsideTheSliderUntilRelease) {
    const struct {
        bool Vertical;
        const char* Expected; // values at press, far before, far after, after release
    } cases[] = {{false, "50 0 100 100"}, {true, "50 100 0 0"}};
    for (const auto& c : cases) {
        TAVUSlider* slider = c.Vertical
                                 ? Slider(16, 105, "<Range>100</Range><Vertical>1</Vertical>")
                                 : Slider(105, 16, "<Range>100</Range>");
        ASSERT_NE(slider, nullptr);
        // The handle is held by its middle: the pointer at start + 2 + 50 is 50.
        _Point2i press = c.Vertical ? _Point2i{18, 20 + 2 + 50} : _Point2i{10 + 2 + 50, 28};
        _Point2i before = c.Vertical ? _Point2i{18, 0} : _Point2i{0, 28};
        _Point2i after{390, 290};
        std::string values;
        RenderFrame(); // places the slider on the screen
        g_UIManager.OnMouseMove(press);
        g_UIManager.OnLMouseDown();
        values += Words(slider->Value);
        for (_Point2i* point : {&before, &after}) {
            g_UIManager.OnMouseMove(*point);
            values += " " + Words(slider->Value);
        }
        g_UIManager.OnLMouseUp();
        EXPECT_FALSE(slider->Dragging);
        g_UIManager.OnMouseMove(press); // no longer held
        values += " " + Words(slider->Value);
        EXPECT_EQ(values, c.Expected) << c.Vertical;
        Parent->DeleteChild(slider);
    }
}

TEST_F(SliderTest, DrawsTheTrackThenAFivePixelHandle) {
    const struct {
        bool Vertical;
        const char* Track;
        const char* Handle;
    } cases[] = {
        {false, "#track 10 20 115 36", "#knob 60 20 65 36"},
        {true, "#track 10 20 30 125", "#knob 12 94 28 99"}, // 2 + 96 - 24 from the top
    };
    for (const auto& c : cases) {
        std::string keys = "<Texture Filename=\"#track\"/><HandleTexture Filename=\"#knob\"/>"
                           "<Range>100</Range>";
        TAVUSlider* slider = c.Vertical ? Slider(20, 105,
                                                 keys + "<Vertical>1</Vertical><Border>2"
                                                        "</Border>")
                                        : Slider(105, 16, keys);
        ASSERT_NE(slider, nullptr);
        slider->SetValue(c.Vertical ? 25 : 50);
        RenderFrame();
        ASSERT_EQ(Host.DrawRecords.size(), 2u);
        EXPECT_EQ(Drawn(0), c.Track);
        EXPECT_EQ(Drawn(1), c.Handle);
        Parent->DeleteChild(slider);
    }
}

TEST_F(SliderTest, CreateTakesZeroRangeAndBorderAndTexturesFromTheTemplate) {
    auto* slider = static_cast<TAVUSlider*>(g_UIManager.LoadElement(Parent, "slider", "Made"));
    ASSERT_NE(slider, nullptr);
    EXPECT_EQ(slider->Range, 100u); // the constructor's, before any reading
    _CreateSlider create;
    create.Vertical = true;
    slider->Create(create, nullptr);
    EXPECT_EQ(Keys(slider), "0 0 1"); // no template: 0
    g_UIManager.AddTemplate("slider", "<Template><Range>30</Range><Border>3</Border>"
                                      "<HandleTexture Filename=\"#knob\"/></Template>");
    create.Border = 1;
    create.UseTemplateTextures = true;
    slider->Create(create, nullptr);
    EXPECT_EQ(Keys(slider), "30 1 1");
    ASSERT_NE(slider->HandleTexture, nullptr);
    EXPECT_STREQ(slider->HandleTexture->Filename, "#knob");
}

TEST_F(SliderTest, OnChangeRunsAfterTheParentHearsAndMayDeleteTheSlider) {
    TAVUSlider* slider = Slider(105, 16, "<Range>100</Range><OnChange>die</OnChange>");
    ASSERT_NE(slider, nullptr);
    Parent->Notes.clear();
    slider->SetValue(10);
    ASSERT_EQ(Host.AtomRuns.size(), 1u);
    ASSERT_EQ(Parent->Notes.size(), 1u);
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        Parent->DeleteChild(slider);
        return 0;
    };
    _Point2i point{80, 28};
    EXPECT_TRUE(slider->OnLMouseDown(point)); // under ASan: nothing touched after
    EXPECT_EQ(Parent->FirstChild, nullptr);

    slider = Slider(105, 16, "<Range>100</Range>");
    ASSERT_NE(slider, nullptr);
    Parent->OnNote = [&](TAVUElement* source, unsigned code) {
        if (code == TAVU_NOTIFY_VALUE_CHANGED) Parent->DeleteChild(source);
    };
    slider->Dragging = true;
    EXPECT_TRUE(slider->OnMouseMove(point));
    EXPECT_EQ(Parent->FirstChild, nullptr);
}

class VariableSliderTest : public SliderTest {
protected:
    // The variable reads as Variable; every write to it is kept in Writes.
    TAVUVariableSlider* Bound(const std::string& keys) {
        Host.DataSequences = [&](const std::string& text) {
            if (text.find(":Set[") != std::string::npos) Writes.push_back(text);
            return Variable;
        };
        std::string xml =
            "<variableslider><Width>105</Width><Data>Volume</Data>" + keys + "</variableslider>";
        return Load<TAVUVariableSlider>("variableslider", "Volume", xml.c_str());
    }
    std::string Variable;
    std::vector<std::string> Writes;
};

// Each row: the variable's text, the keys, then the value the slider shows and
// what it writes back.
TEST_F(VariableSliderTest, EachFrameReadsTheVariableScaledToRangeAndWritesItBack) {
    const struct {
        const char* Variable;
        const char* Keys;
        const char* Expected;
    } cases[] = {
        {"0.5", "<Range>100</Range><VariableRange>1</VariableRange>", "50 ${Volume:Set[0.500000]}"},
        {"15", "<Range>100</Range><Offset>10</Offset><VariableRange>10</VariableRange>",
         "50 ${Volume:Set[15.000000]}"},
        {"5", "<Range>100</Range><Offset>10</Offset><VariableRange>10</VariableRange>",
         "0 ${Volume:Set[10.000000]}"}, // below Offset
        {"loud", "<Range>100</Range><VariableRange>1</VariableRange>", "0 ${Volume:Set[0.000000]}"},
        {"1e30", "<Range>100</Range><VariableRange>1</VariableRange>",
         "100 ${Volume:Set[1.000000]}"},
        {"3", "<Range>100</Range>", "100 ${Volume:Set[0.000000]}"}, // VariableRange 0: full
        {"3", "<Offset>2</Offset><VariableRange>1</VariableRange>", "0 ${Volume:Set[2.000000]}"},
    };
    for (const auto& c : cases) {
        Variable = c.Variable;
        TAVUVariableSlider* slider = Bound(c.Keys);
        ASSERT_NE(slider, nullptr);
        Writes.clear();
        RenderFrame();
        EXPECT_EQ(Words(slider->Value, Writes.empty() ? "(none)" : Writes.back()), c.Expected)
            << c.Variable << " " << c.Keys;
        Parent->DeleteChild(slider);
    }
}

TEST_F(VariableSliderTest, WritesOnlyOnceReadAndThenAtEveryFrameButIgnoresItWhileHeld) {
    Variable = "20";
    TAVUVariableSlider* slider =
        Bound("<Range>10</Range><VariableRange>100</VariableRange><OnChange>moved</OnChange>");
    ASSERT_NE(slider, nullptr);
    EXPECT_TRUE(slider->IsTypeOf("variableslider") && slider->IsTypeOf("slider"));
    slider->SetValue(7);
    EXPECT_TRUE(Writes.empty()); // not read yet
    RenderFrame();
    RenderFrame(); // the same value: written again all the same
    EXPECT_EQ(Writes,
              (std::vector<std::string>{"${Volume:Set[20.000000]}", "${Volume:Set[20.000000]}"}));
    _Point2i grip{2 + 90, 8}; // the handle held at 9
    slider->OnLMouseDown(grip);
    RenderFrame();
    EXPECT_EQ(Words(slider->Value, Writes.back()), "9 ${Volume:Set[90.000000]}");
    slider->OnLMouseUp(grip);
    RenderFrame();
    EXPECT_EQ(slider->Value, 2u); // let go: the variable again

    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        Parent->DeleteChild(slider);
        return 0;
    };
    Variable = "50";
    Writes.clear();
    RenderFrame(); // "OnChange" deletes it in the middle of the frame: under ASan
    EXPECT_EQ(Parent->FirstChild, nullptr);
    EXPECT_TRUE(Writes.empty());
}
