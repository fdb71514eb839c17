#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"
#include "TAVUScreen.h"
#include "TAVUSkin.h"
#include "ToolkitTest.h"
#include "Words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {
TAVUFactory<TAVUElement> g_BoxFactory("box");

std::string DataFile(const char* name) {
    return std::string(TAVU_TEST_DATA_DIR) + "/manager/" + name;
}
} // namespace

class InterfaceFiles : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        for (const char* name : {"layout.xml", "skins.xml"})
            Host.InterfaceFiles[name] = DataFile(name);
    }
};

// Loading, collisions, reloads, unloads, files that do not parse and elements
// that delete themselves as they load run end to end in tavuhost's
// interface_files case.
TEST_F(InterfaceFiles, ASkinFromOneFileRedirectsTemplatesOfAnother) {
    g_UIManager.LoadInterfaceXML("layout.xml", false, nullptr); // defines BaseBox
    ASSERT_TRUE(g_UIManager.LoadInterfaceXML("skins.xml", false, nullptr));
    EXPECT_EQ(std::string(g_UIManager.CurrentFile), DataFile("skins.xml")); // for its textures
    TAVUSkin* dark = g_UIManager.FindSkin("Dark");
    ASSERT_NE(dark, nullptr);
    EXPECT_EQ(g_UIManager.CurrentSkin, nullptr); // a skin loads without becoming current
    EXPECT_TRUE(g_UIManager.LoadInterfaceXML("layout.xml", "Plain", "Skinned", false, dark));
    EXPECT_EQ(g_UIManager.FindElement("Skinned")->Width, 99);
    EXPECT_EQ(g_UIManager.CurrentSkin, nullptr); // restored after the load
}

TEST_F(InterfaceFiles, LoadingByTypeOrFromAFileChecksItsArguments) {
    TAVUElement* screen = g_UIManager.Screen;
    EXPECT_EQ(g_UIManager.LoadElement(screen, "box", ""), nullptr);
    EXPECT_EQ(g_UIManager.LoadElement(nullptr, "box", "x"), nullptr);
    EXPECT_FALSE(g_UIManager.LoadInterfaceXML(nullptr, "layout.xml", false, nullptr));
    EXPECT_TRUE(Host.Console.empty());
    EXPECT_EQ(g_UIManager.LoadElement(screen, "gizmo", "x"), nullptr);
    EXPECT_EQ(Host.Console.back(), "No UI element factory for type 'gizmo'");
    TAVUElement* made = g_UIManager.LoadElement(screen, "BOX", "Made");
    ASSERT_NE(made, nullptr);
    EXPECT_STREQ(made->Type, "box");
    EXPECT_EQ(g_UIManager.LoadElement(screen, "box", "made"), nullptr);
    EXPECT_EQ(Host.Console.back(), "Child named 'made' already exists in parent element 'screen'");
}

namespace {
// An element type whose reading always fails.
class RefusingElement : public TAVUElement {
public:
    using TAVUElement::TAVUElement;
    bool FromXML(XMLNode*, XMLNode*) override { return false; }
};
TAVUFactory<RefusingElement> g_RefusingFactory("refusing");
} // namespace

TEST_F(InterfaceFiles, TemplatesCountFromWhereTheyStandAndFailuresEachSaySo) {
    Host.InterfaceFiles["messages.xml"] = DataFile("messages.xml");
    Host.FailCompile = true;
    EXPECT_TRUE(g_UIManager.LoadInterfaceXML("messages.xml", false, nullptr));
    EXPECT_EQ(Words(g_UIManager.FindElement("UsesLater")->Width, // its template came later
                    g_UIManager.FindElement("UsesLaterAgain")->Width),
              "0 77");
    EXPECT_EQ(g_UIManager.FindElement("Refused"), nullptr);
    EXPECT_EQ(Host.Console,
              (std::vector<std::string>{"OnLoad embedded script failed to load",
                                        "CreateUIElement failed on 'Refused' under 'screen'"}));
    TAVUElement* remembered = g_UIManager.FindElement("Remembered");
    ASSERT_EQ(Host.Restored.size(), 1u); // after reading, with the values read in place
    EXPECT_EQ(Host.Restored[0], remembered);
    EXPECT_EQ(remembered->LoadedX, 5);
    g_UIManager.Screen->DeleteChild(remembered);
    EXPECT_EQ(Host.Stored.size(), 1u);
}

TEST_F(InterfaceFiles, ASkinRedefinedDuringALoadIsNotRestoredDangling) {
    TAVUSkin* first = g_UIManager.NewSkin("Theme");
    g_UIManager.CurrentSkin = first;
    g_UIManager.RestoreSkin(first);
    EXPECT_EQ(g_UIManager.CurrentSkin, first);
    g_UIManager.NewSkin("Theme"); // a nested load redefines it: the first is deleted
    g_UIManager.RestoreSkin(first);
    EXPECT_EQ(g_UIManager.CurrentSkin, nullptr);
}
