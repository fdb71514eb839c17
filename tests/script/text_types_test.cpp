#include "ScriptTypeTest.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUText.h"
#include "TAVUTooltip.h"

#include <string>
#include <tuple>
#include <vector>

class TextTypes : public ScriptTypeTest {};

TEST_F(TextTypes, EachTypeAnswersEveryNameOfItsTables) {
    auto* text = static_cast<TAVUText*>(g_UIManager.LoadElement(g_UIManager.Screen, "text", "T"));
    Host.Calculations["0+1"] = 1.0; // a calculation, not a number
    ExpectAnswered(pTAVUTextType, text,
                   {{"Text", "(null)"}, {"Font", "tavufont"}, {"NumLines", "1"}, {"Wrap", "FALSE"}},
                   {{"SetText"},
                    {"SetHorizontalAlignment"},
                    {"SetVerticalAlignment", "top"},
                    {"SetWrap", "0+1"}});
    EXPECT_TRUE(text->Wrap);
    EXPECT_STREQ(text->Text, ""); // SetText without an argument
    // tavutext climbs to tavuelement, not through tavuframe; tavutooltip does.
    EXPECT_EQ(Member(pTAVUTextType, text, "Border"), -1);

    auto* tooltip =
        static_cast<TAVUTooltip*>(g_UIManager.LoadElement(g_UIManager.Screen, "tooltip", "Tip"));
    EXPECT_EQ(Method(pTAVUTooltipType, tooltip, "SetBorder", {"3"}), 1);
    Host.DataSequences = [](const std::string&) { return std::string("resolved"); };
    tooltip->Print("first\nsecond ${X}"); // read back as it was printed
    ExpectAnswered(pTAVUTooltipType, tooltip,
                   {{"Font", "tavufont"}, {"Lines", "2"}, {"Line", "second ${X}", "2"}},
                   {{"Reset"}, {"Print", "one\ntwo"}, {"SetLine", "2", "changed"}});
    EXPECT_STREQ(tooltip->GetLine(2)->Text, "changed");
    for (const char* outside : {"0", "3", "-1", "x"}) // lines count from 1 up to the last
        EXPECT_EQ(Member(pTAVUTooltipType, tooltip, "Line", {outside}), 0) << outside;
}

TEST_F(TextTypes, AlignmentWordsAndTheVerticalMethodThatSetsTheHorizontalField) {
    const std::tuple<const char*, const char*, eTextAlign> cases[] = {
        {"SetHorizontalAlignment", "CENTER", TAVU_ALIGN_CENTER},
        {"SetHorizontalAlignment", "right", TAVU_ALIGN_RIGHT},
        {"SetHorizontalAlignment", "middle", TAVU_ALIGN_LEFT},
        {"SetVerticalAlignment", "bottom", TAVU_ALIGN_BOTTOM},
        {"SetVerticalAlignment", "Center", TAVU_ALIGN_VCENTER},
        {"SetVerticalAlignment", "anything", TAVU_ALIGN_TOP},
    };
    auto* text = static_cast<TAVUText*>(g_UIManager.LoadElement(g_UIManager.Screen, "text", "A"));
    for (const auto& [method, word, horizontal] : cases) {
        SCOPED_TRACE(std::string(method) + " " + word);
        EXPECT_EQ(Method(pTAVUTextType, text, method, {word}), 1);
        EXPECT_EQ(text->HorizontalAlignment, horizontal);
        EXPECT_EQ(text->VerticalAlignment, TAVU_ALIGN_TOP);
    }
}
