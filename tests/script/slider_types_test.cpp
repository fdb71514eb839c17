#include "ScriptTypeTest.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUScrollBar.h"
#include "TAVUSlider.h"
#include "Words.h"

#include <functional>
#include <string>
#include <vector>

class SliderTypes : public ScriptTypeTest {
protected:
    // One request after another on the same object. A member row expects
    // Get's line; a method row expects its answer and then the state that
    // State shows. Every name of the type's tables needs a row: a name added
    // to the type without one fails the count.
    struct Row {
        bool IsMember;
        const char* Name;
        std::vector<std::string> Args;
        const char* Expected;
    };
    void Walk(RXTypeDefinition* type, void* object, const std::vector<Row>& rows,
              const std::function<std::string()>& state) {
        std::vector<std::string> names;
        for (const Row& row : rows) {
            SCOPED_TRACE(Words(row.Name, row.Args.size()));
            if (row.IsMember) {
                EXPECT_EQ(Get(type, object, row.Name, row.Args), row.Expected);
                EXPECT_EQ(Member(type, nullptr, row.Name, row.Args), 0); // no object
            } else {
                int answer = Method(type, object, row.Name, row.Args); // before the state
                EXPECT_EQ(Words(answer, state()), row.Expected);
                EXPECT_EQ(Method(type, nullptr, row.Name, row.Args), 0);
            }
            std::string name = row.Name;
            if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
        }
        EXPECT_EQ(names.size(), size_t(type->Members.Count() + type->Methods.Count()));
    }
    template <class T> T* Make(const char* type, const char* name) {
        return static_cast<T*>(g_UIManager.LoadElement(g_UIManager.Screen, type, name));
    }
};

TEST_F(SliderTypes, SliderAnswersEveryNameOfItsTables) {
    auto* slider = Make<TAVUSlider>("variableslider", "Volume");
    ASSERT_EQ(slider->GetRXType(), pTAVUSliderType); // the variable form shares the type
    slider->Width = 105;
    slider->Range = 10;
    slider->SetValue(4);
    slider->Vertical = true;
    ASSERT_TRUE(slider->TextureFromArgs(1, std::vector<char*>{(char*)"<T Filename=\"#t\"/>"}.data(),
                                        &slider->Texture));
    auto state = [&] { return Words(slider->Range, slider->Value); };
    Walk(pTAVUSliderType, slider,
         {
             {true, "Border", {}, "0"}, // a name of its own with no answer: no climb
             {true, "Range", {}, "1 10"},
             {true, "Value", {}, "1 4"},
             {true, "Vertical", {}, "1 TRUE"},
             {true, "Texture", {}, "1 tavutexture"},
             {true, "HandleTexture", {}, "0"}, // none
             {false, "SetRange", {}, "0 10 4"},
             {false, "SetRange", {"3"}, "1 3 3"}, // clamps the value
             {false, "SetValue", {"-1"}, "1 3 3"},
             {false, "SetValue", {"abc"}, "1 3 0"},
             {false, "SetValue", {}, "0 3 0"},
             {false, "SetRange", {"-3"}, "1 4294967293 0"},
         },
         state);
    EXPECT_EQ(Get(pTAVUSliderType, slider, "X"), "1 0"); // other names climb to tavuelement
}

TEST_F(SliderTypes, ScrollBarAnswersEveryNameOfItsTables) {
    auto* bar = Make<TAVUScrollBar>("scrollbar", "Bar");
    _CreateScrollBar create;
    create.Range = 10;
    create.Vertical = true;
    bar->Create(create, nullptr);
    auto state = [&] { return Words(bar->Range, bar->GetValue()); };
    Walk(pTAVUScrollBarType, bar,
         {
             {false, "SetValue", {"12"}, "1 10 10"},
             {true, "Value", {}, "1 10"},
             {true, "Range", {}, "1 10"},
             {true, "Vertical", {}, "1 TRUE"},
             {false, "LowerValue", {"3"}, "1 10 7"},
             {false, "LowerValue", {"x"}, "1 10 7"},
             {false, "RaiseValue", {"2"}, "1 10 9"},
             {false, "RaiseValue", {}, "0 10 9"},
             {false, "SetRange", {"4"}, "1 4 4"},
             {false, "LowerValue", {"-1"}, "1 4 0"},
         },
         state);
    bar->DeleteChild(bar->Slider); // a scroll bar that lost its slider reads 0
    EXPECT_EQ(Get(pTAVUScrollBarType, bar, "Value"), "1 0");
    EXPECT_EQ(Method(pTAVUScrollBarType, bar, "SetValue", {"3"}), 1);
}
