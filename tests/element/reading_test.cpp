#include "TAVUEmbeddedScript.h"
#include "TAVUScreen.h"
#include "ToolkitTest.h"
#include "Words.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <gtest/gtest.h>

// Textures that scripts set from XML text are read back in tavuhost's
// texture_keys case.
using Reading = ToolkitTest;

TEST_F(Reading, NodeOverTemplateOverDefaultWithFadeAlphaFollowingAlpha) {
    TAVUElement* element = MakeElement("Read");
    XMLNode* templateNode = Parse("<Template><Alpha>0.5</Alpha><AlwaysOnTop>1</AlwaysOnTop>"
                                  "<Strata>3</Strata><Height>50%</Height><Width>40</Width>"
                                  "<FadeDelay>100</FadeDelay></Template>");
    XMLNode* node = Parse("<panel><AlwaysOnTop>0</AlwaysOnTop><Width>r10</Width>"
                          "<Visible>0</Visible><AutoTooltip>Hello</AutoTooltip></panel>");
    ASSERT_TRUE(element->FromXML(node, templateNode));
    // The fade alpha follows the alpha, nothing said; AlwaysOnTop false over
    // the template's true leaves the strata; the width from the far edge (3),
    // the height a fraction (2).
    const TAVUElement& e = *element;
    EXPECT_EQ(Words(e.Alpha, e.FadeAlpha, e.Strata, e.FadeDelay, e.WidthPosition.Type, e.Width,
                    e.HeightPosition.Type, e.Visible, e.AutoTooltip, e.LoadedWidthPosition.Type),
              "0.5 0.5 3 100 3 10 2 0 Hello 3");
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
