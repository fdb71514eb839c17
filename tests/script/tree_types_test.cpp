#include "CUIManager.h"
#include "ScriptTypeTest.h"
#include "TAVUHudElement.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUTree.h"
#include "TAVUTreeNode.h"
#include "Words.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>

class TreeTypes : public ScriptTypeTest {
protected:
    void SetUp() override {
        ScriptTypeTest::SetUp();
        g_UIManager.AddTemplate("tree", "<Template><Font><Color>ffffffff</Color></Font>"
                                        "<ImageTexture Filename='#i'/>"
                                        "<ImageTextureCollapsible Filename='#o'/>"
                                        "<ImageTextureCollapsed Filename='#c'/>"
                                        "<ScrollBar/></Template>");
        Tree = static_cast<TAVUTree*>(
            g_UIManager.LoadElement(g_UIManager.Screen, "tree", "T", Parse("<t/>"), nullptr));
        Hud = static_cast<TAVUHudElement*>(g_UIManager.LoadElement(
            g_UIManager.Screen, "hudelement", "H", Parse("<h><Text>${x}</Text></h>"), nullptr));
    }
    // The node of that text, the Root for "root", or null.
    TAVUTreeNode* Node(const std::string& text) {
        if (text == "root") return Tree->Root;
        for (TAVUTreeNode* node : Tree->Nodes)
            if (node->Text == text) return node;
        return nullptr;
    }
    static std::string Address(TAVUTreeNode* node) {
        return std::to_string(uint64_t(uintptr_t(node)));
    }
    TAVUTree* Tree = nullptr;
    TAVUHudElement* Hud = nullptr;
};

// Every name of the three tables, in an order that builds what the later rows
// read: "a" under the Root, with a child, siblings on both sides and
// metadata. A name added to a type without a row here fails the count.
TEST_F(TreeTypes, EachTypeAnswersEveryNameOfItsTables) {
    ASSERT_TRUE(Tree && Hud);
    RXTypeDefinition* T = pTAVUTreeType;
    RXTypeDefinition* N = pTAVUTreeNodeType;
    RXTypeDefinition* H = pTAVUHudElementType;
    const struct {
        RXTypeDefinition* Type;
        bool IsMethod;
        const char* On; // a node's text, "root", or the tree or HUD element
        const char* Name;
        std::vector<std::string> Args;
        const char* Expected; // Get's line, or a method's answer
    } rows[] = {
        {N, true, "root", "AddChild", {"a", "ff"}, "1"},
        {N, true, "a", "AddChild", {"c"}, "1"},
        {N, true, "a", "InsertSiblingBefore", {"p"}, "1"},
        {N, true, "a", "InsertSiblingAfter", {"n", "zz"}, "1"}, // an unread colour: the font's
        {N, true, "a", "SetText", {"a"}, "1"},
        {N, true, "p", "SetTextColor", {"10"}, "1"},
        {N, true, "a", "SetMetadata", {"Key", "v"}, "1"},
        {N, true, "a", "Select", {}, "1"},
        {N, true, "a", "Collapse", {}, "1"},
        {N, true, "a", "Expand", {}, "1"},
        {N, true, "a", "ToggleExpand", {}, "1"},
        {N, false, "a", "Text", {}, "1 a"},
        {N, false, "a", "TextColor", {}, "1 255"},
        {N, false, "n", "TextColor", {}, "1 -1"},
        {N, false, "a", "Image", {}, "1 tavutexture"},
        {N, false, "a", "ImageCollapsible", {}, "1 tavutexture"},
        {N, false, "a", "ImageCollapsed", {}, "1 tavutexture"},
        {N, false, "a", "Parent", {}, "1 tavutreenode"},
        {N, false, "a", "Children", {}, "1 tavutreenode"},
        {N, false, "a", "Next", {}, "1 tavutreenode"},
        {N, false, "a", "Previous", {}, "1 tavutreenode"},
        {N, false, "a", "Expanded", {}, "1 FALSE"},
        {N, false, "a", "Tree", {}, "0"},
        {N, false, "a", "GetMetadata", {"KEY"}, "1 v"},
        {N, false, "a", "IsSelected", {}, "1 TRUE"},
        {N, false, "c", "AddChild", {"d"}, "1 tavutreenode"},
        {N, false, "c", "InsertSiblingBefore", {"e"}, "1 tavutreenode"},
        {N, false, "c", "InsertSiblingAfter", {"f"}, "1 tavutreenode"},
        {N, false, "root", "InsertSiblingAfter", {"g"}, "0"},
        {N, false, "a", "Handle", {}, "handle"},
        {N, true, "a", "UnsetMetadata", {"key"}, "1"},
        {N, false, "a", "GetMetadata", {"key"}, "0"},
        {N, true, "c", "UnsetMetadata", {"key"}, "0"}, // c never had metadata
        {T, false, "T", "Font", {}, "1 tavufont"},
        {T, false, "T", "Selection", {}, "1 tavutreenode"},
        {T, false, "T", "Root", {}, "1 tavutreenode"},
        {T, false, "T", "GetNode", {"address of a"}, "1 tavutreenode"},
        {T, false, "T", "GetNode", {"Text == a"}, "0"}, // the host's query holds for none
        {T, false, "T", "Image", {}, "1 tavutexture"},
        {T, false, "T", "ImageCollapsible", {}, "1 tavutexture"},
        {T, false, "T", "ImageCollapsed", {}, "1 tavutexture"},
        {N, true, "a", "RemoveChildren", {}, "1"},
        {N, true, "p", "Remove", {}, "0"}, // removes, and says false all the same
        {N, true, "root", "Select", {}, "1"},
        {H, false, "H", "Text", {}, "1 ${x}"},
        {H, false, "H", "Font", {}, "1 tavufont"},
        {H, true, "H", "SetGroup", {"g"}, "1"},
        {H, false, "H", "Group", {}, "1 g"},
        {H, true, "H", "SetGroup", {}, "1"},
        {H, false, "H", "Group", {}, "0"},
        {H, true, "H", "SetUpdateInterval", {"3"}, "1"},
        {H, false, "H", "UpdateInterval", {}, "1 3"},
        {H, true, "H", "SetText", {"t"}, "1"},
        {H, false, "H", "Text", {}, "1 t"},
    };
    std::map<RXTypeDefinition*, std::set<std::string>> names;
    for (auto row : rows) {
        SCOPED_TRACE(Words(row.On, row.Name));
        names[row.Type].insert(std::string(row.IsMethod ? "method " : "member ") + row.Name);
        void* object = row.Type == T   ? static_cast<void*>(Tree)
                       : row.Type == H ? static_cast<void*>(Hud)
                                       : Node(row.On);
        ASSERT_NE(object, nullptr);
        if (!row.Args.empty() && row.Args[0] == "address of a") row.Args[0] = Address(Node("a"));
        std::string expected = row.Expected;
        if (expected == "handle")
            expected = "1 " + std::to_string(int(uint32_t(uintptr_t(Node("a")))));
        if (row.IsMethod) {
            EXPECT_EQ(Words(Method(row.Type, object, row.Name, row.Args)), expected);
            EXPECT_EQ(Method(row.Type, nullptr, row.Name, row.Args), 0);
        } else {
            EXPECT_EQ(Get(row.Type, object, row.Name, row.Args), expected);
            EXPECT_EQ(Member(row.Type, nullptr, row.Name, row.Args), 0);
        }
    }
    for (const auto& [type, asked] : names)
        EXPECT_EQ(asked.size(), type->Members.Count() + type->Methods.Count()) << type->TypeName;
    EXPECT_EQ(Node("p"), nullptr);
    EXPECT_EQ(Node("c"), nullptr);
    EXPECT_EQ(Tree->Selection, Tree->Root);
}

// The methods that would change the Root refuse; missing arguments give
// false; the text form of a node is its address, which GetNode takes back
// until the node is gone.
TEST_F(TreeTypes, TheRootRefusesMissingArgumentsFailAndHandlesGoStale) {
    ASSERT_NE(Tree, nullptr);
    RXTypeDefinition* N = pTAVUTreeNodeType;
    TAVUTreeNode* root = Tree->Root;
    const struct {
        const char* Name;
        std::vector<std::string> Args;
    } refused[] = {
        {"InsertSiblingBefore", {"x"}},
        {"InsertSiblingAfter", {"x"}},
        {"SetText", {"x"}},
        {"SetTextColor", {"ff"}},
        {"Remove", {}},
        {"Expand", {}},
        {"Collapse", {}},
        {"ToggleExpand", {}},
        {"AddChild", {}},
        {"SetMetadata", {"k"}},
        {"UnsetMetadata", {}},
    };
    for (const auto& row : refused) {
        SCOPED_TRACE(row.Name);
        EXPECT_EQ(Method(N, root, row.Name, row.Args), 0);
    }
    EXPECT_EQ(Words(Tree->Nodes.size(), root->Text, root->Expanded), "1  1");
    EXPECT_EQ(Get(pTAVUTreeType, Tree, "GetNode"), "0");

    ASSERT_EQ(Method(N, root, "AddChild", {"a"}), 1);
    TAVUTreeNode* a = Node("a");
    RXObjectData data{};
    data.Value.Pointer = a;
    char text[32];
    ASSERT_TRUE(N->ToTextSized(data, text, sizeof(text)));
    EXPECT_EQ(text, Address(a));
    EXPECT_EQ(Get(pTAVUTreeType, Tree, "GetNode", {text}), "1 tavutreenode");
    EXPECT_EQ(Result.Value.Pointer, a);
    Method(N, a, "Remove");
    EXPECT_EQ(Get(pTAVUTreeType, Tree, "GetNode", {text}), "0");
}
