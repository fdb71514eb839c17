#include "CUIManager.h"
#include "ScriptTypeTest.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUTabControl.h"

using TabTypes = ScriptTypeTest;

// Every name of the tab control's tables is walked end to end (tavuhost's
// tab_members case); a script reads a tab's text form through a buffer wide
// enough for any name, so the cut at a short one is checked here.
TEST_F(TabTypes, ATabReadsAsItsNameCutToTheBuffer) {
    auto* control = static_cast<TAVUTabControl*>(
        g_UIManager.LoadElement(g_UIManager.Screen, "tabcontrol", "Options",
                                Parse("<t><Tabs><Tab Name=\"Three\"/></Tabs></t>"), nullptr));
    ASSERT_NE(control, nullptr);
    char text[5] = {0};
    RXObjectData tab{};
    tab.Value.Pointer = control->Tabs[0];
    ASSERT_TRUE(pTAVUTabType->ToTextSized(tab, text, 4));
    EXPECT_STREQ(text, "Thre");
}
