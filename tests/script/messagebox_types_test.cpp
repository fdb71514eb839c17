#include "ScriptTypeTest.h"
#include "TAVUScreen.h"
#include "TAVUScriptInputBox.h"
#include "TAVUScriptMessageBox.h"
#include "TAVUScriptTypes.h"

#include <cstring>

class MessageBoxTypes : public ScriptTypeTest {};

// The one member leaves its word in the value and still answers false, with
// no type; no method exists; the element's names answer through the parent.
TEST_F(MessageBoxTypes, TypeLeavesItsWordAndAnswersFalse) {
    auto* box = static_cast<TAVUMessageBox*>(
        g_UIManager.LoadElement(g_UIManager.Screen, "scriptmessagebox", "Box"));
    ASSERT_NE(nullptr, box);
    EXPECT_EQ(pTAVUMessageBoxType, box->GetRXType());
    EXPECT_EQ(1u, pTAVUMessageBoxType->Members.Count());
    EXPECT_EQ(0u, pTAVUMessageBoxType->Methods.Count());
    const std::pair<eMessageBoxType, const char*> rows[] = {
        {TAVU_MESSAGEBOX_OK, "ok"},
        {TAVU_MESSAGEBOX_OKCANCEL, "okcancel"},
        {TAVU_MESSAGEBOX_YESNO, "yesno"},
        {eMessageBoxType(7), nullptr}, // out of range: the value is left alone
    };
    for (const auto& [type, word] : rows) {
        box->Type = type;
        EXPECT_EQ(0, Member(pTAVUMessageBoxType, box, "Type")) << word;
        EXPECT_EQ(nullptr, Result.Type);
        if (word)
            EXPECT_STREQ(word, Result.Value.Text);
        else
            EXPECT_EQ(nullptr, Result.Value.Text);
    }
    EXPECT_EQ(0, Member(pTAVUMessageBoxType, nullptr, "Type"));
    EXPECT_EQ("1 box", Get(pTAVUMessageBoxType, box, "Name"));
    auto* input = g_UIManager.LoadElement(g_UIManager.Screen, "scriptinputbox", "Ask");
    ASSERT_NE(nullptr, input);
    EXPECT_EQ(pTAVUWindowType, input->GetRXType());
}
