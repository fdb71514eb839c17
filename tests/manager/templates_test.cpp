#include "CUIManager.h"
#include "TAVUSkin.h"
#include "ToolkitTest.h"
#include "XMLHelper.h"
#include "XMLNode.h"
#include "XMLParser.h"
#include "../xml/XMLTestTree.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {
// A stored template as its own attributes on one line, then its children.
std::string Picture(XMLNode* node) {
    if (!node) return "(none)";
    std::string line = node->Name;
    for (XMLAttribute* a = node->FirstAttribute; a; a = a->Next)
        line += std::string(" ") + a->Name + "=" + a->Value;
    return line + "\n" + xmltest::Dump(node);
}

unsigned Value(XMLNode* node, const char* name) {
    return XMLHelper::GetIntValue(node, name, 999);
}
} // namespace

class Templates : public ToolkitTest {
protected:
    XMLNode* Add(const char* name, const char* text) {
        XMLNode* document = Parse(text);
        return g_UIManager.AddTemplate(name, document);
    }
};

TEST_F(Templates, AddStoresAnIndependentCopyAndReplacesTheSameName) {
    XMLNode* document = Parse(R"(<Template Look="flat"><Width>10</Width></Template>)");
    XMLNode* stored = g_UIManager.AddTemplate("Panel", document);
    ASSERT_NE(stored, nullptr);
    EXPECT_NE(stored, document);
    EXPECT_EQ(stored->Parent, nullptr);
    EXPECT_EQ(g_UIManager.FindTemplate("PANEL"), stored);
    EXPECT_EQ(Value(stored, "Width"), 10u);

    XMLNode* replacement = Add("panel", R"(<template><Width>20</Width></template>)");
    ASSERT_NE(replacement, nullptr);
    EXPECT_EQ(g_UIManager.FindTemplate("Panel"), replacement);
    EXPECT_EQ(Value(replacement, "Width"), 20u);
    EXPECT_EQ(g_UIManager.Templates.size(), 1u);
    // Adding a stored template again under its own name is safe.
    EXPECT_EQ(Picture(g_UIManager.AddTemplate("Panel", replacement)),
              "template\ne:Width\n  t:20\n");
}

TEST_F(Templates, AddRefusesBadNamesAndNodesAndKeepsWhatWasThere) {
    XMLNode* kept = Add("Kept", "<Template/>");
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(Add("Kept", "<Button/>"), nullptr);
    EXPECT_EQ(Add("", "<Template/>"), nullptr);
    EXPECT_EQ(Add(nullptr, "<Template/>"), nullptr);
    EXPECT_EQ(g_UIManager.AddTemplate("Kept", static_cast<XMLNode*>(nullptr)), nullptr);
    XMLNode* text = Parse("<Template>words</Template>");
    EXPECT_EQ(g_UIManager.AddTemplate("Kept", text->FirstChild), nullptr); // a text node
    EXPECT_EQ(g_UIManager.FindTemplate("Kept"), kept);
    EXPECT_EQ(g_UIManager.Templates.size(), 1u);
}

TEST_F(Templates, ADerivedTemplateReplacesAttributesOneByOneAndChildrenWhole) {
    Add("Base",
        R"(<Template Look="flat" Size="2"><Font Name="Arial" Size="10"/><Width>5</Width></Template>)");
    // The base's Font goes as a whole; the replacing child goes to the end,
    // after the base's remaining ones.
    EXPECT_EQ(
        Picture(Add(
            "Derived",
            R"(<Template Template="Base" Size="3"><Font Size="12"/><Height>7</Height></Template>)")),
        "Template Look=flat Size=3 Template=Base\ne:Width\n  t:5\ne:Font Size=12\ne:Height\n  "
        "t:7\n");
    // A chain of three: the deepest base comes first, the node wins last.
    EXPECT_EQ(Picture(Add("Third", R"(<Template Template="derived"><Width>9</Width></Template>)")),
              "Template Look=flat Size=3 Template=derived\ne:Font Size=12\ne:Height\n  "
              "t:7\ne:Width\n  t:9\n");
}

TEST_F(Templates, ChainsEndAtSelfReferencesUnknownBasesAndLoops) {
    // Stored with its own name as base: nothing to merge when it was added.
    Add("Self", R"(<Template Template="Self"><Width>1</Width></Template>)");
    EXPECT_EQ(Picture(Add("User", R"(<Template Template="Self"><Height>2</Height></Template>)")),
              "Template Template=Self\ne:Width\n  t:1\ne:Height\n  t:2\n");
    EXPECT_EQ(Picture(Add("Orphan", R"(<Template Template="Nowhere"><Width>3</Width></Template>)")),
              "Template Template=Nowhere\ne:Width\n  t:3\n");

    // Three stored templates naming each other in a ring: a chain through them
    // would never end, so it is cut, with a message, and still stored.
    Add("RingA", R"(<Template Template="RingB"/>)");
    Add("RingB", R"(<Template Template="RingC"/>)");
    Add("RingC", R"(<Template Template="RingA"/>)");
    Host.ClearRecords();
    EXPECT_EQ(Picture(Add("Looped", R"(<Template Template="RingA"><Width>4</Width></Template>)")),
              "Template Template=RingA\ne:Width\n  t:4\n");
    ASSERT_EQ(Host.Console.size(), 1u);
    EXPECT_NE(Host.Console[0].find("Looped"), std::string::npos);
}

TEST_F(Templates, AListOfBasesMergesOnlyTheNamesThatACommaEnds) {
    Add("First", R"(<Template><!--first--><Color>1</Color><Width>10</Width></Template>)");
    Add("Second", R"(<Template><Color>2</Color><Height>20</Height></Template>)");
    // The last name of a list is ignored.
    EXPECT_EQ(
        Picture(Add("Pair", R"(<Template Template="First,Second"/>)")),
        "Template Template=First,Second\nc:first\nc:first\ne:Color\n  t:1\ne:Width\n  t:10\n");
    // The earlier name of the list wins. The node and its list are visited
    // twice; only nodes that are no elements, which nothing replaces, show it.
    EXPECT_EQ(
        Picture(Add("Full", R"(<Template Template="First,Second,"><Border>3</Border></Template>)")),
        "Template Template=First,Second,\nc:first\ne:Height\n  t:20\nc:first\ne:Color\n  "
        "t:1\ne:Width\n  t:10\ne:Border\n  t:3\n");
    // Names are taken exactly as written between the commas.
    EXPECT_EQ(
        Picture(Add("Spaced", R"(<Template Template="First, Second,"/>)")),
        "Template Template=First, Second,\nc:first\nc:first\ne:Color\n  t:1\ne:Width\n  t:10\n");
}

TEST_F(Templates, ListsThatReferToEachOtherAreCutInsteadOfRecursingForever) {
    Add("Left", R"(<Template Template="Right,"/>)");
    Add("Right", R"(<Template Template="Left,"/>)");
    Add("Left", R"(<Template Template="Right,"/>)"); // now Left and Right name each other
    Host.ClearRecords();
    EXPECT_EQ(Picture(Add("Both", R"(<Template Template="Left,"><Width>1</Width></Template>)")),
              "Template Template=Left,\ne:Width\n  t:1\n");
    EXPECT_EQ(Host.Console.size(), 1u);
}

TEST_F(Templates, AddFromTextWantsOneTemplateElementAndDoesNoInheritance) {
    Add("Base", R"(<Template><Width>5</Width></Template>)");
    XMLNode* fromText = g_UIManager.AddTemplate(
        "Text", R"(<Template Template="Base"><Height>1</Height></Template>)");
    ASSERT_NE(fromText, nullptr);
    EXPECT_EQ(fromText->Parent, nullptr);
    EXPECT_EQ(Picture(fromText), "Template Template=Base\ne:Height\n  t:1\n");

    for (const char* refused : {"<Template/><Template/>", "<Frame/>", "<Template>", ""})
        EXPECT_EQ(g_UIManager.AddTemplate("Text", refused), nullptr) << refused;
    EXPECT_EQ(g_UIManager.AddTemplate("", "<Template/>"), nullptr);
    EXPECT_EQ(g_UIManager.FindTemplate("Text"), fromText);
}

TEST_F(Templates, RemoveAndClearDeleteTheStoredTrees) {
    Add("One", "<Template/>");
    Add("Two", "<Template/>");
    g_UIManager.RemoveTemplate("ONE");
    g_UIManager.RemoveTemplate("missing");
    g_UIManager.RemoveTemplate(nullptr);
    EXPECT_EQ(g_UIManager.FindTemplate("One"), nullptr);
    EXPECT_NE(g_UIManager.FindTemplate("Two"), nullptr);
    g_UIManager.Shutdown(); // clears templates; the sanitizer finds any tree left behind
    EXPECT_TRUE(g_UIManager.Templates.empty());
    EXPECT_EQ(g_UIManager.FindTemplate(""), nullptr);
    EXPECT_EQ(g_UIManager.FindTemplate(nullptr), nullptr);
}

TEST_F(Templates, SkinsAreReplacedFoundAndRemovedByNameIgnoringCase) {
    EXPECT_EQ(g_UIManager.NewSkin(""), nullptr);
    TAVUSkin* first = g_UIManager.NewSkin("Night");
    g_UIManager.CurrentSkin = first;
    TAVUSkin* second = g_UIManager.NewSkin("NIGHT");
    EXPECT_EQ(g_UIManager.FindSkin("night"), second);
    EXPECT_EQ(g_UIManager.CurrentSkin, second); // never left pointing at the deleted skin

    EXPECT_EQ(g_UIManager.FindSkin("Day"), nullptr);
    EXPECT_EQ(g_UIManager.FindSkin(nullptr), nullptr);
    EXPECT_EQ(g_UIManager.Skins.size(), 1u); // lookups make no entries

    g_UIManager.RemoveSkin("night");
    EXPECT_EQ(g_UIManager.FindSkin("Night"), nullptr);
    EXPECT_EQ(g_UIManager.CurrentSkin, nullptr);
    g_UIManager.NewSkin("Kept"); // freed with the manager
}

// How a current skin redirects template names, and where a skin's entries
// come from, run end to end in tavuhost's skins case.
TEST_F(Templates, SkinEntriesNeedABaseAndGoByNameIgnoringCase) {
    TAVUSkin* skin = g_UIManager.NewSkin("Night");
    EXPECT_TRUE(skin->FromXML(nullptr, nullptr));
    skin->AddTemplate("Frame", "base frame");
    skin->AddTemplate("", "ignored");
    skin->AddTemplate(nullptr, "ignored");
    EXPECT_EQ(skin->Templates.size(), 1u);
    EXPECT_STREQ(skin->GetTemplate("FRAME"), "base frame");
    skin->RemoveTemplate("frame");
    EXPECT_EQ(skin->GetTemplate("Frame"), nullptr);
}
