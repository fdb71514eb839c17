#include "ControlTest.h"
#include "TAVUButton.h"
#include "TAVUScrollBar.h"
#include "TAVUSlider.h"
#include "TAVUTexture.h"
#include "Words.h"

#include <string>

class ScrollBarTest : public ControlTest {
protected:
    // A vertical scroll bar's look: arrows at both ends, a slider of Range 10.
    TAVUScrollBar* Bar(const std::string& keys = "") {
        g_UIManager.AddTemplate("scrollbar", "<Template><Range>3</Range>"
                                             "<UpButton><Width>16</Width></UpButton><DownButton/>"
                                             "<Slider><Height>68</Height><Vertical>1</Vertical>"
                                             "<Range>10</Range></Slider></Template>");
        return Load<TAVUScrollBar>("scrollbar", "Bar", ("<b>" + keys + "</b>").c_str());
    }
};

// Which keys the arrows and the slider read is tavuhost's scrollbar_keys case.
// What a user sees of the arrows and the methods is compared end to end
// (tavuhost's sliders case); here, what reaches the parent.
TEST_F(ScrollBarTest, OnlyChangesOfTheValueGetPastTheScrollBar) {
    TAVUScrollBar* bar = Bar();
    ASSERT_NE(bar, nullptr);
    _Point2i point{0, 0};
    bar->UpButton->OnLMouseDown(point);
    bar->UpButton->OnLMouseUp(point);
    bar->DownButton->OnLMouseDown(point);
    bar->DownButton->OnLMouseDown(point); // at 0: nothing
    bar->RaiseValue(4294967290u);         // stops at Range
    bar->RaiseValue(4294967290u);         // the sum wraps round: 10 + 4294967290 is 4
    std::string heard;
    for (const auto& note : Parent->Notes)
        heard += Words(note.first, note.second) + "; ";
    EXPECT_EQ(heard, "4 1; 4 0; 4 10; 4 4; ");
}

TEST_F(ScrollBarTest, CreateBuildsTheChildrenFromTheTemplatesChildrenOrItsKeys) {
    g_UIManager.AddTemplate("verticalscrollbar",
                            "<Template><UpTexture Filename=\"#up\"/>"
                            "<DownTextureHover Filename=\"#downlit\"/>"
                            "<SliderHandleTexture Filename=\"#knob\"/></Template>");
    ASSERT_NE(Bar(), nullptr); // leaves the "scrollbar" template
    const std::pair<bool, const char*> cases[] = {
        // textures, slider Range and Vertical, up arrow's width
        {true, "#up #downlit #knob 5 1 0"},
        {false, "- - - 5 1 16"}, // the template's slider is vertical whatever
    };
    for (const auto& c : cases) {
        auto* bar = static_cast<TAVUScrollBar*>(g_UIManager.LoadElement(Parent, "scrollbar", "B"));
        _CreateScrollBar create;
        create.Range = 5;
        create.Vertical = c.first;
        bar->Create(create, nullptr);
        auto name = [](TAVUTexture* t) -> std::string { return t ? t->Filename : "-"; };
        EXPECT_EQ(Words(name(bar->UpButton->Texture), name(bar->DownButton->TextureHover),
                        name(bar->Slider->HandleTexture), bar->Slider->Range, bar->Slider->Vertical,
                        bar->UpButton->Width),
                  c.second);
        Parent->DeleteChild(bar);
    }
}

TEST_F(ScrollBarTest, AParentMayDeleteTheScrollBarWhenAnArrowChangesTheValue) {
    TAVUScrollBar* bar = Bar();
    ASSERT_NE(bar, nullptr);
    Parent->OnNote = [&](TAVUElement* source, unsigned code) {
        if (code == TAVU_NOTIFY_VALUE_CHANGED) Parent->DeleteChild(source);
    };
    _Point2i point{0, 0};
    EXPECT_TRUE(bar->UpButton->OnLMouseDown(point)); // under ASan
    EXPECT_EQ(Parent->FirstChild, nullptr);
}
