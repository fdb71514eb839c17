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
        for (const char* name : {"layout.xml", "skins.xml", "broken.xml", "selfdelete.xml"})
            Host.InterfaceFiles[name] = DataFile(name);
    }
};

TEST_F(InterfaceFiles, LoadsTemplatesElementsAndChildrenDeepestFirst) {
    EXPECT_TRUE(g_UIManager.LoadInterfaceXML("layout.xml", false, nullptr));
    TAVUElement* main = g_UIManager.FindElement("Main");
    ASSERT_NE(main, nullptr);
    // X the node's own, the width the template's, the fade alpha following the alpha.
    EXPECT_EQ(Words(main->X, main->Width, main->Alpha, main->FadeAlpha), "10 50 0.5 0.5");
    EXPECT_EQ(Host.Ran(), (std::vector<std::string>{"echo ok loaded", "echo main loaded"}));
    // The node's "Children" hide the template's whole.
    EXPECT_NE(g_UIManager.FindElement("Ok@Main"), nullptr);
    EXPECT_EQ(main->FindChild("FromTemplate"), nullptr);
    TAVUElement* plain = g_UIManager.FindElement("Plain");
    ASSERT_NE(plain, nullptr);
    EXPECT_NE(plain->FindChild("fromtemplate"), nullptr);
    EXPECT_EQ(Host.Console,
              (std::vector<std::string>{"No UI element factory for type nosuchtype",
                                        "Failed to create nosuchtype child Broken for main"}));
    EXPECT_EQ(std::string(g_UIManager.CurrentFile), DataFile("layout.xml"));
    TAVUElement* ok = g_UIManager.FindElement("ok@main");
    EXPECT_EQ(Host.LiveAtoms[ok->OnLeftClick->Atom],
              "atom auto(int X, int Y)\n{\necho clicked\n}\n");
}

// A missing file and one without the prefix element are checked end to end
// by tavuhost's cases; a file that does not parse loads none of its part.
TEST_F(InterfaceFiles, AFileThatDoesNotParseSaysWhyAndLoadsNothing) {
    EXPECT_FALSE(g_UIManager.LoadInterfaceXML("broken.xml", false, nullptr));
    ASSERT_EQ(Host.Console.size(), 1u);
    EXPECT_EQ(Host.Console[0].rfind("Failed to parse " + DataFile("broken.xml") + ": ", 0), 0u);
    EXPECT_EQ(g_UIManager.FindElement("Half"), nullptr);
    EXPECT_FALSE(g_UIManager.LoadInterfaceXML(nullptr, "layout.xml", false, nullptr));
}

TEST_F(InterfaceFiles, LoadingTwiceCollidesUnlessItReloads) {
    g_UIManager.LoadInterfaceXML("layout.xml", false, nullptr);
    unsigned firstID = g_UIManager.FindElement("Main")->ID;
    Host.Console.clear();
    EXPECT_TRUE(g_UIManager.LoadInterfaceXML("layout.xml", false, nullptr));
    ASSERT_GE(Host.Console.size(), 1u);
    EXPECT_EQ(Host.Console[0], "Child named 'Main' already exists in parent element 'screen'");
    EXPECT_EQ(g_UIManager.FindElement("Main")->ID, firstID);
    EXPECT_TRUE(g_UIManager.LoadInterfaceXML("layout.xml", true, nullptr));
    EXPECT_NE(g_UIManager.FindElement("Main")->ID, firstID);
}

TEST_F(InterfaceFiles, UnloadRemovesFromTheScreenOnly) {
    TAVUElement* window = MakeElement("Window");
    g_UIManager.LoadInterfaceXML(window, "layout.xml", false, nullptr);
    g_UIManager.LoadInterfaceXML("layout.xml", "Plain", "Plain", false, nullptr);
    EXPECT_NE(g_UIManager.FindElement("Main@Window"), nullptr);
    EXPECT_TRUE(g_UIManager.UnloadInterfaceXML("layout.xml"));
    EXPECT_EQ(g_UIManager.FindElement("Plain"), nullptr);
    EXPECT_NE(g_UIManager.FindElement("Main@Window"), nullptr); // under a window: it stays
    EXPECT_FALSE(g_UIManager.UnloadInterfaceXML("missing.xml"));
}

TEST_F(InterfaceFiles, ASkinFromOneFileRedirectsTemplatesOfAnother) {
    g_UIManager.LoadInterfaceXML("layout.xml", false, nullptr); // defines BaseBox
    ASSERT_TRUE(g_UIManager.LoadInterfaceXML("skins.xml", false, nullptr));
    TAVUSkin* dark = g_UIManager.FindSkin("Dark");
    ASSERT_NE(dark, nullptr);
    EXPECT_EQ(g_UIManager.CurrentSkin, nullptr); // a skin loads without becoming current
    EXPECT_TRUE(g_UIManager.LoadInterfaceXML("layout.xml", "Plain", "Skinned", false, dark));
    EXPECT_EQ(g_UIManager.FindElement("Skinned")->Width, 99);
    EXPECT_EQ(g_UIManager.CurrentSkin, nullptr); // restored after the load
}

TEST_F(InterfaceFiles, AnElementThatDeletesItselfInOnLoadIsGoneQuietly) {
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
        g_UIManager.Screen->DeleteChild(static_cast<TAVUElement*>(run.This));
        return 0;
    };
    EXPECT_TRUE(g_UIManager.LoadInterfaceXML("selfdelete.xml", false, nullptr));
    EXPECT_EQ(g_UIManager.FindElement("Ephemeral"), nullptr);
    EXPECT_NE(g_UIManager.FindElement("Stays"), nullptr);
    EXPECT_TRUE(Host.Console.empty());
}

TEST_F(InterfaceFiles, LoadElementByTypeChecksItsArguments) {
    TAVUElement* screen = g_UIManager.Screen;
    EXPECT_EQ(g_UIManager.LoadElement(screen, "box", ""), nullptr);
    EXPECT_EQ(g_UIManager.LoadElement(nullptr, "box", "x"), nullptr);
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
