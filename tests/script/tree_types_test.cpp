#include "CUIManager.h"
#include "ScriptTypeTest.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUTree.h"
#include "TAVUTreeNode.h"

#include <cstdint>
#include <string>

using TreeTypes = ScriptTypeTest;

// Every name of the tree's tables is walked end to end (tavuhost's
// tree_members case). What a script cannot see is a node's address, which is
// its text form and its key for GetNode, and the handle cut from it.
TEST_F(TreeTypes, ANodeReadsAsItsAddressWhichGetNodeTakesBackUntilItGoes) {
    auto* tree = static_cast<TAVUTree*>(g_UIManager.LoadElement(
        g_UIManager.Screen, "tree", "T", Parse("<t><ScrollBar/></t>"), nullptr));
    ASSERT_NE(tree, nullptr);
    RXTypeDefinition* N = pTAVUTreeNodeType;
    ASSERT_EQ(Method(N, tree->Root, "AddChild", {"a"}), 1);
    TAVUTreeNode* a = tree->Root->FirstChild;
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(Get(N, a, "Handle"), "1 " + std::to_string(int(uint32_t(uintptr_t(a)))));
    RXObjectData data{};
    data.Value.Pointer = a;
    char text[32];
    ASSERT_TRUE(N->ToTextSized(data, text, sizeof(text)));
    EXPECT_EQ(text, std::to_string(uint64_t(uintptr_t(a))));
    EXPECT_EQ(Get(pTAVUTreeType, tree, "GetNode", {text}), "1 tavutreenode");
    EXPECT_EQ(Result.Value.Pointer, a);
    Method(N, a, "Remove");
    EXPECT_EQ(Get(pTAVUTreeType, tree, "GetNode", {text}), "0");
}
