#include "CUIManager.h"
#include "TAVUSkin.h"
#include "ToolkitTest.h"
#include "XMLHelper.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {
// A parsed document that lives for one test; Node() is its first element.
class Document {
public:
    explicit Document(const char* text) { EXPECT_TRUE(Parser.ParseBuffer(text, 0)) << text; }
    XMLNode* Node() {
        for (XMLNode* node = Parser.Root ? Parser.Root->FirstChild : nullptr; node;
             node = node->Next)
            if (node->Type == XMLNode::Element) return node;
        return nullptr;
    }

private:
    XMLParser Parser;
};

int ElementChildren(XMLNode* node, const char* tag) {
    int count = 0;
    for (XMLNode* child = node->FirstChild; child; child = child->Next)
        if (child->Type == XMLNode::Element && XMLHelper::GetText(child) == std::string(tag))
            ++count;
    return count;
}

const char* Attribute(XMLNode* node, const char* name) {
    return XMLHelper::GetStringAttribute(node, name, "(none)");
}

unsigned Value(XMLNode* node, const char* name) {
    return XMLHelper::GetIntValue(node, name, 999);
}
} // namespace

class Templates : public ToolkitTest {
protected:
    XMLNode* Add(const char* name, const char* text) {
        Document document(text);
        return g_UIManager.AddTemplate(name, document.Node());
    }
};

TEST_F(Templates, AddStoresAnIndependentCopyAndReplacesTheSameName) {
    Document document(R"(<Template Look="flat"><Width>10</Width></Template>)");
    XMLNode* stored = g_UIManager.AddTemplate("Panel", document.Node());
    ASSERT_NE(stored, nullptr);
    EXPECT_NE(stored, document.Node());
    EXPECT_EQ(stored->Parent, nullptr);
    EXPECT_EQ(g_UIManager.FindTemplate("PANEL"), stored);
    EXPECT_EQ(Value(stored, "Width"), 10u);

    XMLNode* replacement = Add("panel", R"(<template><Width>20</Width></template>)");
    ASSERT_NE(replacement, nullptr);
    EXPECT_EQ(g_UIManager.FindTemplate("Panel"), replacement);
    EXPECT_EQ(Value(replacement, "Width"), 20u);
    EXPECT_EQ(g_UIManager.Templates.size(), 1u);
}

TEST_F(Templates, AddRefusesBadNamesAndNodesAndKeepsWhatWasThere) {
    XMLNode* kept = Add("Kept", "<Template/>");
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(Add("Kept", "<Button/>"), nullptr);
    EXPECT_EQ(Add("", "<Template/>"), nullptr);
    EXPECT_EQ(Add(nullptr, "<Template/>"), nullptr);
    EXPECT_EQ(g_UIManager.AddTemplate("Kept", static_cast<XMLNode*>(nullptr)), nullptr);
    Document text("<Template>words</Template>");
    EXPECT_EQ(g_UIManager.AddTemplate("Kept", text.Node()->FirstChild), nullptr); // a text node
    EXPECT_EQ(g_UIManager.FindTemplate("Kept"), kept);
    EXPECT_EQ(g_UIManager.Templates.size(), 1u);
}

TEST_F(Templates, ReAddingAStoredTemplateUnderItsOwnNameIsSafe) {
    XMLNode* first = Add("Again", R"(<Template A="1"><Child/></Template>)");
    XMLNode* second = g_UIManager.AddTemplate("Again", first);
    ASSERT_NE(second, nullptr);
    EXPECT_STREQ(Attribute(second, "A"), "1");
    EXPECT_EQ(ElementChildren(second, "Child"), 1);
}

TEST_F(Templates, ADerivedTemplateReplacesAttributesOneByOneAndChildrenWhole) {
    Add("Base",
        R"(<Template Look="flat" Size="2"><Font Name="Arial" Size="10"/><Width>5</Width></Template>)");
    XMLNode* derived =
        Add("Derived",
            R"(<Template Template="Base" Size="3"><Font Size="12"/><Height>7</Height></Template>)");
    ASSERT_NE(derived, nullptr);
    EXPECT_STREQ(Attribute(derived, "Look"), "flat");
    EXPECT_STREQ(Attribute(derived, "Size"), "3");
    EXPECT_STREQ(Attribute(derived, "Template"), "Base");
    XMLNode* font = XMLHelper::GetChild(derived, "Font");
    ASSERT_NE(font, nullptr);
    EXPECT_STREQ(Attribute(font, "Size"), "12");
    EXPECT_STREQ(Attribute(font, "Name"), "(none)"); // the base's Font is gone as a whole
    EXPECT_EQ(ElementChildren(derived, "Font"), 1);
    EXPECT_EQ(Value(derived, "Width"), 5u);
    EXPECT_EQ(Value(derived, "Height"), 7u);
    // The replacing child goes to the end, after the base's remaining ones.
    EXPECT_STREQ(derived->LastChild->Name, "Height");
    EXPECT_STREQ(derived->LastChild->Prev->Name, "Font");

    // A chain of three: the deepest base comes first, the node wins last.
    XMLNode* third = Add("Third", R"(<Template Template="derived"><Width>9</Width></Template>)");
    EXPECT_EQ(Value(third, "Width"), 9u);
    EXPECT_EQ(Value(third, "Height"), 7u);
    EXPECT_STREQ(Attribute(third, "Look"), "flat");
    EXPECT_STREQ(Attribute(third, "Template"), "derived");
}

TEST_F(Templates, ChainsEndAtSelfReferencesUnknownBasesAndLoops) {
    // Stored with its own name as base: nothing to merge when it was added.
    Add("Self", R"(<Template Template="Self"><Width>1</Width></Template>)");
    XMLNode* user = Add("User", R"(<Template Template="Self"><Height>2</Height></Template>)");
    ASSERT_NE(user, nullptr);
    EXPECT_EQ(Value(user, "Width"), 1u);
    EXPECT_EQ(Value(user, "Height"), 2u);
    EXPECT_EQ(ElementChildren(user, "Width"), 1);

    XMLNode* orphan = Add("Orphan", R"(<Template Template="Nowhere"><Width>3</Width></Template>)");
    ASSERT_NE(orphan, nullptr);
    EXPECT_EQ(Value(orphan, "Width"), 3u);

    // Three stored templates naming each other in a ring: a chain through them
    // would never end, so it is cut, with a message, and still stored.
    Add("RingA", R"(<Template Template="RingB"/>)");
    Add("RingB", R"(<Template Template="RingC"/>)");
    Add("RingC", R"(<Template Template="RingA"/>)");
    Host.ClearRecords();
    XMLNode* looped = Add("Looped", R"(<Template Template="RingA"><Width>4</Width></Template>)");
    ASSERT_NE(looped, nullptr);
    EXPECT_EQ(Value(looped, "Width"), 4u);
    ASSERT_EQ(Host.Console.size(), 1u);
    EXPECT_NE(Host.Console[0].find("Looped"), std::string::npos);
}

TEST_F(Templates, AListOfBasesMergesOnlyTheNamesThatACommaEnds) {
    Add("First", R"(<Template><!--first--><Color>1</Color><Width>10</Width></Template>)");
    Add("Second", R"(<Template><Color>2</Color><Height>20</Height></Template>)");

    XMLNode* withoutTrailing = Add("Pair", R"(<Template Template="First,Second"/>)");
    EXPECT_EQ(Value(withoutTrailing, "Width"), 10u);
    EXPECT_EQ(Value(withoutTrailing, "Height"), 999u); // the last name of a list is ignored

    XMLNode* full =
        Add("Full", R"(<Template Template="First,Second,"><Border>3</Border></Template>)");
    EXPECT_EQ(Value(full, "Width"), 10u);
    EXPECT_EQ(Value(full, "Height"), 20u);
    EXPECT_EQ(Value(full, "Border"), 3u);
    EXPECT_EQ(Value(full, "Color"), 1u); // the earlier name of the list wins
    EXPECT_EQ(ElementChildren(full, "Color"), 1);
    EXPECT_EQ(ElementChildren(full, "Border"), 1);
    // The node and its list are visited twice; only nodes that are no
    // elements, which nothing replaces, show it.
    int comments = 0;
    for (XMLNode* child = full->FirstChild; child; child = child->Next)
        comments += child->Type == XMLNode::Comment;
    EXPECT_EQ(comments, 2);

    // Names are taken exactly as written between the commas.
    XMLNode* spaced = Add("Spaced", R"(<Template Template="First, Second,"/>)");
    EXPECT_EQ(Value(spaced, "Width"), 10u);
    EXPECT_EQ(Value(spaced, "Height"), 999u);
}

TEST_F(Templates, ListsThatReferToEachOtherAreCutInsteadOfRecursingForever) {
    Add("Left", R"(<Template Template="Right,"/>)");
    Add("Right", R"(<Template Template="Left,"/>)");
    Add("Left", R"(<Template Template="Right,"/>)"); // now Left and Right name each other
    Host.ClearRecords();
    XMLNode* both = Add("Both", R"(<Template Template="Left,"><Width>1</Width></Template>)");
    ASSERT_NE(both, nullptr);
    EXPECT_EQ(Value(both, "Width"), 1u);
    EXPECT_EQ(Host.Console.size(), 1u);
}

TEST_F(Templates, AddFromTextWantsOneTemplateElementAndDoesNoInheritance) {
    Add("Base", R"(<Template><Width>5</Width></Template>)");
    XMLNode* fromText = g_UIManager.AddTemplate(
        "Text", R"(<Template Template="Base"><Height>1</Height></Template>)");
    ASSERT_NE(fromText, nullptr);
    EXPECT_EQ(fromText->Parent, nullptr);
    EXPECT_EQ(Value(fromText, "Height"), 1u);
    EXPECT_EQ(Value(fromText, "Width"), 999u);

    EXPECT_EQ(g_UIManager.AddTemplate("Text", "<Template/><Template/>"), nullptr);
    EXPECT_EQ(g_UIManager.AddTemplate("Text", "<Frame/>"), nullptr);
    EXPECT_EQ(g_UIManager.AddTemplate("Text", "<Template>"), nullptr); // not well formed
    EXPECT_EQ(g_UIManager.AddTemplate("Text", ""), nullptr);
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

TEST_F(Templates, ACurrentSkinRedirectsNamesWithoutFallingBack) {
    XMLNode* plain = Add("button", "<Template Look=\"plain\"/>");
    XMLNode* dark = Add("dark button", "<Template Look=\"dark\"/>");
    XMLNode* label = Add("label", "<Template/>");
    TAVUSkin* skin = g_UIManager.NewSkin("Dark");
    skin->AddTemplate("Button", "Dark Button");
    skin->AddTemplate("label", "no such template");

    EXPECT_EQ(g_UIManager.FindTemplate("button"), plain); // no skin is current yet
    g_UIManager.CurrentSkin = skin;
    EXPECT_EQ(g_UIManager.FindTemplate("BUTTON"), dark);
    EXPECT_EQ(g_UIManager.FindTemplate("label"), nullptr); // not the unskinned one
    EXPECT_EQ(g_UIManager.FindTemplate("dark button"), dark);

    // Chains are collected through the skin as well.
    XMLNode* derived = Add("Derived", R"(<Template Template="button"/>)");
    EXPECT_STREQ(Attribute(derived, "Look"), "dark");
    g_UIManager.CurrentSkin = nullptr;
    EXPECT_EQ(g_UIManager.FindTemplate("label"), label);
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

TEST_F(Templates, SkinEntriesComeFromTheTemplateThenTheNode) {
    Document skinTemplate(R"(<Skin>
        <SkinTemplate Base="button" Skin="base button"/>
        <SkinTemplate Base="frame" Skin="base frame"/>
    </Skin>)");
    Document node(R"(<Skin>
        <SkinTemplate Base="Button" Skin="night button" SkinPrefix="ignored "/>
        <SkinTemplate Base="text" SkinPrefix="night "/>
        <SkinTemplate Base="" Skin="nothing"/>
        <SkinTemplate Base="list"/>
        <Other Base="window" Skin="night window"/>
    </Skin>)");
    TAVUSkin* skin = g_UIManager.NewSkin("Night");
    EXPECT_TRUE(skin->FromXML(node.Node(), skinTemplate.Node()));
    EXPECT_STREQ(skin->GetTemplate("button"), "night button");
    EXPECT_STREQ(skin->GetTemplate("frame"), "base frame");
    EXPECT_STREQ(skin->GetTemplate("TEXT"), "night text");
    EXPECT_EQ(skin->GetTemplate("list"), nullptr);
    EXPECT_EQ(skin->GetTemplate("window"), nullptr);
    EXPECT_EQ(skin->Templates.size(), 3u);

    skin->AddTemplate("", "ignored");
    skin->AddTemplate(nullptr, "ignored");
    EXPECT_EQ(skin->Templates.size(), 3u);
    skin->RemoveTemplate("Frame");
    EXPECT_EQ(skin->GetTemplate("frame"), nullptr);
    EXPECT_TRUE(skin->FromXML(nullptr, nullptr));
}
