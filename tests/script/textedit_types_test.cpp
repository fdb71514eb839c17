#include "CUIManager.h"
#include "ScriptTypeTest.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUTextEdit.h"

#include <string>

using TextEditTypes = ScriptTypeTest;

TEST_F(TextEditTypes, TheEditorAnswersEveryNameOfItsTablesAndClimbsToTheFrame) {
    g_UIManager.AddTemplate("Bar", "<Template/>");
    auto* edit = static_cast<TAVUTextEdit*>(g_UIManager.LoadElement(
        g_UIManager.Screen, "textedit", "E",
        Parse("<textedit><Border>2</Border><VerticalScrollBar>Bar</VerticalScrollBar></textedit>"),
        nullptr));
    ASSERT_NE(edit, nullptr);
    ExpectAnswered(pTAVUTextEditType, edit, {{"Font", "tavufont"}},
                   {{"SetText", "a\r\nb"}, {"Clear"}, {"AddText", "c\nd"}, {"AddLine", "e"}});
    // Clear left one empty line; then two lines of text and one more line.
    EXPECT_EQ(edit->LineCount, 4u);
    EXPECT_STREQ(edit->LastLine->Text, "e");
    EXPECT_EQ(Method(pTAVUTextEditType, edit, "SetText", {"x\ny"}), 1);
    EXPECT_EQ(edit->LineCount, 2u);
    // No member gives the text; names it lacks climb to tavuframe, whose
    // handlers take the editor as the frame it is.
    EXPECT_EQ(Member(pTAVUTextEditType, edit, "Text"), -1);
    EXPECT_EQ(Get(pTAVUTextEditType, edit, "Border"), "1 2");
    EXPECT_EQ(Get(pTAVUTextEditType, edit, "Name"), "1 e"); // and on to tavuelement
    EXPECT_EQ(pTAVUTextEditType, edit->GetRXType());
}
