#include "TAVUEmbeddedScript.h"
#include "TAVUFixedFont.h"
#include "TAVUFont.h"
#include "TAVUScreen.h"
#include "TAVUSkin.h"
#include "TAVUTexture.h"
#include "ToolkitTest.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

using Reading = ToolkitTest;

TEST_F(Reading, NodeOverTemplateOverDefaultWithFadeAlphaFollowingAlpha) {
    TAVUElement* element = MakeElement("Read");
    XMLNode* templateNode = Parse("<Template><Alpha>0.5</Alpha><AlwaysOnTop>1</AlwaysOnTop>"
                                  "<Strata>3</Strata><Height>50%</Height><Width>40</Width>"
                                  "<FadeDelay>100</FadeDelay></Template>");
    XMLNode* node = Parse("<panel><AlwaysOnTop>0</AlwaysOnTop><Width>r10</Width>"
                          "<Visible>0</Visible><AutoTooltip>Hello</AutoTooltip></panel>");
    ASSERT_TRUE(element->FromXML(node, templateNode));
    EXPECT_FLOAT_EQ(element->Alpha, 0.5f);
    EXPECT_FLOAT_EQ(element->FadeAlpha, 0.5f); // nothing said: it follows the alpha
    EXPECT_EQ(element->Strata, 3);             // AlwaysOnTop false over the template's true
    EXPECT_EQ(element->FadeDelay, 100u);
    EXPECT_EQ(element->WidthPosition.Type, unsigned(ElementPosition::FarEdge));
    EXPECT_EQ(element->Width, 10);
    EXPECT_EQ(element->HeightPosition.Type, unsigned(ElementPosition::Fraction));
    EXPECT_FALSE(element->Visible);
    EXPECT_STREQ(element->AutoTooltip, "Hello");
    EXPECT_EQ(element->LoadedWidthPosition.Type, unsigned(ElementPosition::FarEdge));
    EXPECT_TRUE(Host.Restored.empty()); // no StorePosition
}

TEST_F(Reading, EventsCompileWithTheirArgumentListsFromNodeOrTemplate) {
    TAVUElement* element = MakeElement("Scripted");
    XMLNode* templateNode = Parse("<Template><OnKeyDown>echo key</OnKeyDown></Template>");
    XMLNode* node = Parse("<panel><OnMouseWheel>echo wheel</OnMouseWheel>"
                          "<OnRender/></panel>");
    element->FromXML(node, templateNode);
    ASSERT_NE(element->OnKeyDownScript, nullptr);
    EXPECT_EQ(Host.LiveAtoms[element->OnKeyDownScript->Atom],
              "atom auto(string Key)\n{\necho key\n}\n");
    ASSERT_NE(element->OnMouseWheelScript, nullptr);
    EXPECT_EQ(Host.LiveAtoms[element->OnMouseWheelScript->Atom],
              "atom auto(int Offset)\n{\necho wheel\n}\n");
    EXPECT_EQ(element->OnRender, nullptr); // an empty script is no script
    EXPECT_TRUE(Host.Console.empty());
}

TEST_F(Reading, TexturesFromScriptTextReplaceTheOldOneUnderASkin) {
    TAVUElement* element = MakeElement("Scripted");
    g_UIManager.AddTemplate("Plain", "<Template Filename=\"#fill\"/>");
    g_UIManager.AddTemplate("Red", "<Template Filename=\"#red\"/>");
    g_UIManager.NewSkin("Warm")->AddTemplate("Plain", "Red");
    TAVUTexture* texture = TAVUTexture::New("old.png");
    char text[] = "<Texture Template=\"Plain\"/>";
    char skin[] = "Warm";
    char* argv[] = {text, skin};
    ASSERT_TRUE(element->TextureFromArgs(2, argv, &texture));
    EXPECT_STREQ(texture->Filename, "#red");
    EXPECT_EQ(g_UIManager.CurrentSkin, nullptr);
    char broken[] = "<Texture";
    char* bad[] = {broken};
    EXPECT_FALSE(element->TextureFromArgs(1, bad, &texture));
    EXPECT_EQ(texture, nullptr); // the old one is gone either way
}
