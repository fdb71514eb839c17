#include "CUIManager.h"
#include "ScriptTypeTest.h"
#include "TAVUConsole.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"

#include <string>

using ConsoleTypes = ScriptTypeTest;

TEST_F(ConsoleTypes, TheConsoleAnswersEveryNameOfItsTablesAndIsNoFrame) {
    auto* console = static_cast<TAVUConsole*>(g_UIManager.LoadElement(
        g_UIManager.Screen, "console", "C",
        Parse("<console><Width>100</Width><Height>60</Height><Border>2</Border>"
              "<BorderColor>FF000001</BorderColor><ScrollbackColor>FF000002</ScrollbackColor>"
              "<BackgroundColor>FF000003</BackgroundColor>"
              "<SelectionColor>FF000004</SelectionColor><Texture Filename=\"#a\"/>"
              "<ScrollbackTexture Filename=\"#b\"/><ScrollBar/></console>"),
        nullptr));
    ASSERT_NE(console, nullptr);
    ExpectAnswered(pTAVUConsoleType, console,
                   {{"Font", "tavufont"},
                    {"Border", "2"},
                    {"BorderColor", "-16777215"},
                    {"ScrollbackColor", "-16777214"},
                    {"BackgroundColor", "-16777213"},
                    {"SelectionColor", "-16777212"},
                    {"Texture", "tavutexture"},
                    {"ScrollbackTexture", "tavutexture"}},
                   {{"SetBorderColor", "11"},
                    {"SetScrollbackColor", "12"},
                    {"SetBackgroundColor", "13"},
                    {"SetSelectionColor", "ff000014"},
                    {"Echo", "hello"}});
    EXPECT_EQ(console->BorderColor, 0x11u);
    EXPECT_EQ(console->ScrollbackColor, 0x12u);
    EXPECT_EQ(console->BackgroundColor, 0x13u);
    EXPECT_EQ(console->SelectionColor, 0xFF000014u);
    ASSERT_GE(console->LastLine, 0);
    EXPECT_STREQ(console->Lines[console->LastLine], "hello");
    // Names it lacks climb through tavuframe to tavuelement, but the frame's
    // own handlers refuse a console rather than write into it as a frame.
    EXPECT_EQ(Get(pTAVUConsoleType, console, "Name"), "1 c");
    EXPECT_EQ(Method(pTAVUConsoleType, console, "SetBorder", {"9"}), 0);
    EXPECT_EQ(console->Border, 2u);
}
