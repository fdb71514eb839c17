#include "ControlTest.h"
#include "TAVUSlider.h"
#include "TAVUTexture.h"
#include "TAVUVariableSlider.h"
#include "Words.h"

#include <string>

class SliderTest : public ControlTest {
protected:
    // A slider at 10,20 of the given size, with more keys.
    template <class T = TAVUSlider>
    T* Slider(int width, int height, const std::string& keys, const std::string& attributes = "",
              const char* type = "slider") {
        std::string xml = "<s" + attributes + "><X>10</X><Y>20</Y><Width>" + std::to_string(width) +
                          "</Width><Height>" + std::to_string(height) + "</Height>" + keys + "</s>";
        return Load<T>(type, ("Level" + std::to_string(++Made)).c_str(), xml.c_str());
    }
    int Made = 0;
    // Range, Border, Vertical and the track texture, or "-" without one.
    static std::string Keys(const TAVUSlider* s) {
        return Words(s->Range, s->Border, s->Vertical, s->Texture ? s->Texture->Filename : "-");
    }
};

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
        {false, 6, 1, 100, 40, "40 0 0"},                              // too short: silent
        {true, -10, 0, 100, 40, "40 0 0"},                             // negative length
        {false, 105, 0, 4294967295u, 4294967295u, "4294967295 100 1"}, // float rounding
    };
    for (const auto& c : cases) {
        std::string keys = "<Border>" + std::to_string(c.Border) + "</Border>" +
                           (c.Vertical ? "<Vertical>1</Vertical>" : "");
        TAVUSlider* slider = c.Vertical ? Slider(20, c.Length, keys) : Slider(c.Length, 16, keys);
        ASSERT_NE(slider, nullptr);
        slider->Range = c.Range;
        Parent->Notes.clear();
        slider->SetValue(c.Asked);
        EXPECT_EQ(Words(slider->Value, slider->HandlePosition, Parent->Notes.size()), c.Expected)
            << Words(c.Vertical, c.Length, c.Border, c.Range, c.Asked);
        for (const auto& note : Parent->Notes)
            EXPECT_EQ(note.second, slider->Value);
        Parent->DeleteChild(slider);
    }
}

TEST_F(SliderTest, DrawsTheTrackThenAFivePixelHandle) {
    const std::string keys = "<Texture Filename=\"#track\"/><HandleTexture Filename=\"#knob\"/>"
                             "<Range>100</Range>";
    TAVUSlider* across = Slider(105, 16, keys, " ColorMask=\"FF00FF00\"");
    TAVUSlider* up = Slider(20, 105, keys + "<Vertical>1</Vertical><Border>2</Border>");
    ASSERT_TRUE(across && up);
    EXPECT_EQ(across->HandleTexture->ColorMask, 0xFF00FF00u);
    up->X = 200;
    across->SetValue(50);
    up->SetValue(25);
    RenderFrame();
    std::string drawn;
    for (const TAVUDrawRecord& r : Host.DrawRecords)
        drawn += Words(Host.LiveTextures[r.Texture], r.Left, r.Top, r.Right, r.Bottom) + "; ";
    EXPECT_EQ(drawn, "#track 10 20 115 36; #knob 60 20 65 36; "
                     "#track 200 20 220 125; #knob 202 94 218 99; "); // 2 + 96 - 24 from the top
}

TEST_F(SliderTest, CreateTakesZeroRangeAndBorderAndTexturesFromTheTemplate) {
    auto* slider = static_cast<TAVUSlider*>(g_UIManager.LoadElement(Parent, "slider", "Made"));
    ASSERT_NE(slider, nullptr);
    _CreateSlider create;
    create.Vertical = true;
    slider->Create(create, nullptr);
    EXPECT_EQ(Keys(slider), "0 0 1 -"); // no template: 0, not the constructor's 100
    g_UIManager.AddTemplate("slider", "<Template><Range>30</Range><Border>3</Border>"
                                      "<Texture Filename=\"#track\"/></Template>");
    create.Border = 1;
    create.UseTemplateTextures = true;
    slider->Create(create, nullptr);
    EXPECT_EQ(Keys(slider), "30 1 1 #track");
}

TEST_F(SliderTest, OnChangeOrTheParentMayDeleteTheSliderInTheMiddleOfADrag) {
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
        Parent->DeleteChild(static_cast<TAVUElement*>(run.This));
        return 0;
    };
    _Point2i point{80, 28};
    TAVUSlider* slider = Slider(105, 16, "<Range>100</Range><OnChange>die</OnChange>");
    ASSERT_NE(slider, nullptr);
    RenderFrame();                            // places it
    EXPECT_TRUE(slider->OnLMouseDown(point)); // under ASan: nothing touched after
    EXPECT_EQ(Parent->FirstChild, nullptr);
    ASSERT_EQ(Parent->Notes.size(), 2u); // the change, then the removal
    EXPECT_EQ(Words(Parent->Notes[0].first, Parent->Notes[0].second), "4 68");

    slider = Slider(105, 16, "<Range>100</Range>");
    Parent->OnNote = [&](TAVUElement* source, unsigned code) {
        if (code == TAVU_NOTIFY_VALUE_CHANGED) Parent->DeleteChild(source);
    };
    slider->Dragging = true;
    EXPECT_TRUE(slider->OnMouseMove(point));
    EXPECT_EQ(Parent->FirstChild, nullptr);
}

// The variable's reading and writing are compared end to end (tavuhost's
// sliders case); here, what the host cannot show.
TEST_F(SliderTest, AVariableSliderWritesNothingBeforeItsFirstReadAndMayBeDeletedByIt) {
    std::vector<std::string> writes;
    Host.DataSequences = [&](const std::string& text) {
        if (text.find(":Set[") != std::string::npos) writes.push_back(text);
        return std::string("3");
    };
    auto* slider = Slider<TAVUVariableSlider>(
        105, 16, "<Range>100</Range><Data>V</Data><OnChange>die</OnChange>", "", "variableslider");
    ASSERT_NE(slider, nullptr);
    slider->SetValue(7);
    EXPECT_TRUE(writes.empty());
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        Parent->DeleteChild(slider);
        return 0;
    };
    RenderFrame(); // "OnChange" deletes it in the middle of its frame: under ASan
    EXPECT_EQ(Parent->FirstChild, nullptr);
    EXPECT_TRUE(writes.empty());
}
