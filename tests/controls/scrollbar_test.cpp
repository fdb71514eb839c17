#include "ControlTest.h"
#include "TAVUButton.h"
#include "TAVUScrollBar.h"
#include "TAVUSlider.h"
#include "TAVUTexture.h"
#include "Words.h"

#include <string>

class ScrollBarTest : public ControlTest {
protected:
    // The look of a vertical scroll bar 16 wide: arrows at both ends and a
    // slider of Range 10 between them.
    void AddBarTemplate() {
        g_UIManager.AddTemplate("scrollbar",
                                "<Template><Range>3</Range>"
                                "<UpButton><Width>16</Width><Height>16</Height></UpButton>"
                                "<DownButton><Y>84</Y><Width>16</Width><Height>16</Height>"
                                "</DownButton>"
                                "<Slider><Y>16</Y><Width>16</Width><Height>68</Height>"
                                "<Vertical>1</Vertical><Range>10</Range></Slider></Template>");
    }
    TAVUScrollBar* Bar(const std::string& keys = "") {
        std::string xml = "<scrollbar><X>10</X><Y>10</Y><Width>16</Width><Height>100</Height>" +
                          keys + "</scrollbar>";
        return Load<TAVUScrollBar>("scrollbar", "Bar", xml.c_str());
    }
    // The notes of code 4 that reached the parent, as their values.
    std::string Changes() {
        std::string values;
        for (const auto& note : Parent->Notes)
            if (note.first == TAVU_NOTIFY_VALUE_CHANGED) values += Words(note.second) + " ";
        return values;
    }
};

TEST_F(ScrollBarTest, ArrowsComeFromTheTemplateOnlyAndTheSliderKeepsItsOwnKeys) {
    AddBarTemplate();
    TAVUScrollBar* bar = Bar("<Range>7</Range><UpButton><Width>99</Width></UpButton>"
                             "<Slider><Width>16</Width><Height>40</Height></Slider>");
    ASSERT_NE(bar, nullptr);
    ASSERT_TRUE(bar->UpButton && bar->DownButton && bar->Slider);
    EXPECT_EQ(bar->UpButton->Width, 16); // the node's UpButton is not read
    EXPECT_STREQ(bar->UpButton->Name, "upbutton");
    EXPECT_STREQ(bar->Slider->FullName, "slider@Bar@Parent");
    EXPECT_EQ(Words(bar->Range, bar->Vertical), "7 0");
    // The node's own slider wins, with no Range of its own: nothing copies 7.
    EXPECT_EQ(Words(bar->Slider->Height, bar->Slider->Range, bar->Slider->Vertical), "40 0 0");
    EXPECT_TRUE(bar->IsTypeOf("scrollbar") && !bar->IsTypeOf("slider"));
}

TEST_F(ScrollBarTest, AChildThatFailsToLoadFailsTheScrollBar) {
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
        auto* child = static_cast<TAVUElement*>(run.This);
        child->Parent->DeleteChild(child); // the slider's "OnLoad" deletes it
        return 0;
    };
    EXPECT_EQ(Bar("<Slider><OnLoad>vanish</OnLoad></Slider>"), nullptr);
    EXPECT_EQ(Parent->FirstChild, nullptr);
    TAVUScrollBar* bare = Bar();
    ASSERT_NE(bare, nullptr); // no template, no children: every call is harmless
    bare->SetRange(5);
    bare->RaiseValue(2);
    EXPECT_EQ(Words(bare->GetValue(), bare->Range), "0 0");
}

TEST_F(ScrollBarTest, ArrowPressesStepTheValueAndTheParentHearsOnlyChanges) {
    AddBarTemplate();
    TAVUScrollBar* bar = Bar();
    ASSERT_NE(bar, nullptr);
    _Point2i point{0, 0};
    bar->DownButton->OnLMouseDown(point); // at 0: nothing
    bar->DownButton->OnLMouseUp(point);
    for (int i = 0; i < 12; ++i) // past Range 10: the last two send nothing
        bar->UpButton->OnLMouseDown(point);
    bar->UpButton->OnLMouseUp(point); // a release moves nothing
    bar->DownButton->OnLMouseDown(point);
    EXPECT_EQ(Changes(), "1 2 3 4 5 6 7 8 9 10 9 ");
    EXPECT_EQ(bar->GetValue(), 9u);
    // Only code 4 climbs: the arrows' own presses and releases stop here.
    EXPECT_EQ(Parent->Notes.size(), 11u);
}

// Each row: the call and its argument, then the value and the notes sent.
TEST_F(ScrollBarTest, OwnersDriveTheValueThroughTheSlider) {
    AddBarTemplate();
    const struct {
        const char* Call;
        unsigned Argument;
        const char* Expected;
    } cases[] = {
        {"SetValue", 4, "4 4 "},      {"RaiseValue", 3, "7 7 "},
        {"RaiseValue", 50, "10 10 "}, {"LowerValue", 2, "8 8 "},
        {"LowerValue", 9, "0 0 "},    {"LowerValue", 1, "0 "},
        {"SetValue", 10, "10 10 "},   {"SetRange", 6, "6 6 "}, // clamps to the new Range
        {"SetRange", 20, "6 "},       {"RaiseValue", 4294967290u, "0 0 "}, // wraps round
    };
    TAVUScrollBar* bar = Bar();
    ASSERT_NE(bar, nullptr);
    for (const auto& c : cases) {
        Parent->Notes.clear();
        std::string call = c.Call;
        if (call == "SetValue") bar->SetValue(c.Argument);
        if (call == "RaiseValue") bar->RaiseValue(c.Argument);
        if (call == "LowerValue") bar->LowerValue(c.Argument);
        if (call == "SetRange") bar->SetRange(c.Argument);
        EXPECT_EQ(Words(bar->GetValue(), Changes()), c.Expected) << c.Call << " " << c.Argument;
    }
    EXPECT_EQ(Words(bar->Range, bar->Slider->Range), "20 20");
}

TEST_F(ScrollBarTest, CreateBuildsTheChildrenFromTheTemplatesChildrenOrItsKeys) {
    g_UIManager.AddTemplate("verticalscrollbar",
                            "<Template><UpTexture Filename=\"#up\"/>"
                            "<DownTextureHover Filename=\"#downlit\"/>"
                            "<SliderHandleTexture Filename=\"#knob\"/></Template>");
    AddBarTemplate();
    const struct {
        bool Vertical;
        const char* Expected; // textures, slider Range and Vertical, up arrow's height
    } cases[] = {
        {true, "#up #downlit #knob 5 1 0"},
        {false, "- - - 5 1 16"}, // the template's slider is vertical whatever
    };
    for (const auto& c : cases) {
        auto* bar = static_cast<TAVUScrollBar*>(g_UIManager.LoadElement(Parent, "scrollbar", "B"));
        ASSERT_NE(bar, nullptr);
        _CreateScrollBar create;
        create.Range = 5;
        create.Vertical = c.Vertical;
        bar->Create(create, nullptr);
        ASSERT_TRUE(bar->UpButton && bar->DownButton && bar->Slider);
        auto name = [](TAVUTexture* texture) -> std::string {
            return texture ? texture->Filename : "-";
        };
        EXPECT_EQ(Words(name(bar->UpButton->Texture), name(bar->DownButton->TextureHover),
                        name(bar->Slider->HandleTexture), bar->Slider->Range, bar->Slider->Vertical,
                        bar->UpButton->Height),
                  c.Expected);
        Parent->DeleteChild(bar);
    }
}

TEST_F(ScrollBarTest, AParentMayDeleteTheScrollBarWhenAnArrowChangesTheValue) {
    AddBarTemplate();
    TAVUScrollBar* bar = Bar();
    ASSERT_NE(bar, nullptr);
    Parent->OnNote = [&](TAVUElement* source, unsigned code) {
        if (code == TAVU_NOTIFY_VALUE_CHANGED) Parent->DeleteChild(source);
    };
    _Point2i point{0, 0};
    EXPECT_TRUE(bar->UpButton->OnLMouseDown(point)); // under ASan
    EXPECT_EQ(Parent->FirstChild, nullptr);
}
