#include "ScriptTypeTest.h"
#include "TAVUCommandEntry.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"

#include <string>

using TextEntryTypes = ScriptTypeTest;

// Every name of the entry's tables is walked end to end (tavuhost's
// text_members case). A script cannot read what "Font" answers, the font
// object's own bytes under the string type, and no interface key gives the
// caret textures.
TEST_F(TextEntryTypes, FontAndTheCaretTexturesAnswer) {
    auto* entry = static_cast<TAVUTextEntry*>(g_UIManager.LoadElement(
        g_UIManager.Screen, "commandentry", "Input", Parse("<commandentry/>"), nullptr));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->GetRXType(), pTAVUTextEntryType); // a command entry too
    entry->TextureCaret = entry->TextureFromXML(Parse("<T Filename=\"#c\"/>"), nullptr, nullptr);
    entry->TextureCaretOverwrite =
        entry->TextureFromXML(Parse("<T Filename=\"#d\"/>"), nullptr, nullptr);
    ASSERT_NE(entry->Font, nullptr);
    EXPECT_EQ(Get(pTAVUTextEntryType, entry, "Font"),
              "1 " + std::string(reinterpret_cast<const char*>(entry->Font)));
    EXPECT_EQ(Result.Value.Pointer, entry->Font);
    EXPECT_EQ(Get(pTAVUTextEntryType, entry, "TextureCaret"), "1 tavutexture");
    EXPECT_EQ(Result.Value.Pointer, entry->TextureCaret);
    EXPECT_EQ(Get(pTAVUTextEntryType, entry, "TextureCaretOverwrite"), "1 tavutexture");
    EXPECT_EQ(Result.Value.Pointer, entry->TextureCaretOverwrite);
}
