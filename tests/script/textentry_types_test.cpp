#include "ScriptTypeTest.h"
#include "TAVUCommandEntry.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"

#include <string>

class TextEntryTypes : public ScriptTypeTest {};

TEST_F(TextEntryTypes, EveryNameOfTheTablesIsAnswered) {
    auto* entry = static_cast<TAVUTextEntry*>(g_UIManager.LoadElement(
        g_UIManager.Screen, "commandentry", "Input",
        Parse("<commandentry><MaxLength>9</MaxLength><Border>2</Border><BorderColor>10"
              "</BorderColor><Texture Filename=\"#a\"/><TextureFocused Filename=\"#b\"/>"
              "</commandentry>"),
        nullptr));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->GetRXType(), pTAVUTextEntryType); // a command entry too
    entry->TextureCaret = entry->TextureFromXML(Parse("<T Filename=\"#c\"/>"), nullptr, nullptr);
    entry->TextureCaretOverwrite =
        entry->TextureFromXML(Parse("<T Filename=\"#d\"/>"), nullptr, nullptr);
    entry->SetText(std::string("typed").data());
    // "Font" answers the font object under the string type, as it always has.
    std::string fontBytes = reinterpret_cast<const char*>(entry->Font);
    ExpectAnswered(pTAVUTextEntryType, entry,
                   {{"Text", "typed"},
                    {"Font", fontBytes},
                    {"BackgroundColor", "0"},
                    {"BorderColor", "16"},
                    {"Border", "2"},
                    {"Texture", "tavutexture"},
                    {"TextureFocused", "tavutexture"},
                    {"TextureCaret", "tavutexture"},
                    {"TextureCaretOverwrite", "tavutexture"},
                    {"MaxLength", "9"}},
                   {{"SetText"},
                    {"SetBackgroundColor", "FF00FF00"},
                    {"SetBorderColor", "1"},
                    {"SetMaxLength", "20"}});
    EXPECT_STREQ(entry->Text, ""); // SetText without an argument
    // SetMaxLength keeps the buffer: text still stops at 8 bytes and a terminator.
    EXPECT_EQ(Method(pTAVUTextEntryType, entry, "SetText", {std::string(30, 'x')}), 1);
    EXPECT_EQ(Get(pTAVUTextEntryType, entry, "Text"), "1 xxxxxxxx");
    EXPECT_EQ(Get(pTAVUTextEntryType, entry, "X"), "1 0"); // climbs to tavuelement
}
