#include "ScriptTypeTest.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUScrollBar.h"
#include "TAVUSlider.h"
#include "TAVUTexture.h"
#include "Words.h"

#include <map>
#include <string>

class SliderTypes : public ScriptTypeTest {};

// Every name of both types' tables, asked in order of a real control, then of
// no object, and a method also without its argument. What the answers do is
// compared end to end (tavuhost's sliders case). A name added to a type
// without a row here fails the count.
TEST_F(SliderTypes, EachTypeAnswersEveryNameOfItsTables) {
    TAVUElement* screen = g_UIManager.Screen;
    auto* slider = static_cast<TAVUSlider*>(g_UIManager.LoadElement(screen, "variableslider", "S"));
    auto* bar = static_cast<TAVUScrollBar*>(g_UIManager.LoadElement(screen, "scrollbar", "B"));
    ASSERT_EQ(slider->GetRXType(), pTAVUSliderType); // the variable form shares the type
    slider->Texture = TAVUTexture::New("#track");
    slider->HandleTexture = TAVUTexture::New("#knob");
    _CreateScrollBar create;
    create.Range = 10;
    create.Vertical = true;
    bar->Create(create, nullptr);
    const struct {
        RXTypeDefinition* Type;
        bool IsMethod;
        const char* Name;
        const char* Expected; // Get's line, or a method's answer
    } rows[] = {
        {pTAVUSliderType, false, "Border", "0"}, // a name of its own with no answer
        {pTAVUSliderType, false, "Range", "1 100"},
        {pTAVUSliderType, false, "Value", "1 0"},
        {pTAVUSliderType, false, "Vertical", "1 FALSE"},
        {pTAVUSliderType, false, "Texture", "1 tavutexture"},
        {pTAVUSliderType, false, "HandleTexture", "1 tavutexture"},
        {pTAVUSliderType, true, "SetValue", "1"},
        {pTAVUSliderType, true, "SetRange", "1"},
        {pTAVUScrollBarType, true, "SetValue", "1"},
        {pTAVUScrollBarType, false, "Value", "1 8"},
        {pTAVUScrollBarType, false, "Range", "1 10"},
        {pTAVUScrollBarType, false, "Vertical", "1 TRUE"},
        {pTAVUScrollBarType, true, "RaiseValue", "1"},
        {pTAVUScrollBarType, true, "LowerValue", "1"},
        {pTAVUScrollBarType, true, "SetRange", "1"},
    };
    std::map<RXTypeDefinition*, int> names;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        void* object = row.Type == pTAVUSliderType ? static_cast<void*>(slider) : bar;
        ++names[row.Type];
        if (row.IsMethod) {
            EXPECT_EQ(Words(Method(row.Type, object, row.Name, {"8"})), row.Expected);
            EXPECT_EQ(Method(row.Type, object, row.Name), 0);
            EXPECT_EQ(Method(row.Type, nullptr, row.Name, {"8"}), 0);
        } else {
            EXPECT_EQ(Get(row.Type, object, row.Name), row.Expected);
            EXPECT_EQ(Member(row.Type, nullptr, row.Name), 0);
        }
    }
    for (const auto& [type, count] : names)
        EXPECT_EQ(count, type->Members.Count() + type->Methods.Count()) << type->TypeName;
    EXPECT_EQ(Words(slider->Range, slider->Value, bar->GetValue(), bar->Range),
              "8 8 2 8");          // bar: 8, 10, 2
    bar->DeleteChild(bar->Slider); // a scroll bar that lost its slider reads 0
    EXPECT_EQ(Get(pTAVUScrollBarType, bar, "Value"), "1 0");
}
