#include "ScriptTypeTest.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUText.h"

#include <string>
#include <tuple>

using TextTypes = ScriptTypeTest;

// Every name of the text's and tooltip's tables is walked end to end
// (tavuhost's text_members case); no member reads an alignment back, so the
// vertical method that writes the horizontal field is checked here.
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
