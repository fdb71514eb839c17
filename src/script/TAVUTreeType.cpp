#include "TAVUTreeType.h"

#include "TAVUScriptTypes.h"
#include "TAVUTree.h"
#include "TAVUTreeNodeType.h"

#include <cstdlib>

namespace {
enum Member : uint32_t {
    MemberFont,
    MemberSelection,
    MemberRoot,
    MemberGetNode,
    MemberImage,
    MemberImageCollapsible,
    MemberImageCollapsed,
    MemberCount
};

const char* const kMemberNames[MemberCount] = {
    "Font", "Selection", "Root", "GetNode", "Image", "ImageCollapsible", "ImageCollapsed"};

// A number is a node's handle, read whole so that a node's text form (its
// full address) finds it again; any other text is a query over the nodes.
TAVUTreeNode* FindNode(TAVUTree* tree, const char* key) {
    if (!TAVUScriptType::IsNumericText(key)) return tree->FindNode(key);
    return tree->GetNode(strtoull(key, nullptr, 10));
}
} // namespace

TAVUTreeType::TAVUTreeType() : TAVUControlType("tavutree", &pTAVUFrameType) {
    AddMembers(kMemberNames, MemberCount);
}

RXTypeDefinition* TAVUTreeType::Make() {
    return new TAVUTreeType();
}

bool TAVUTreeType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                             _RXTypeVar& result) {
    auto* tree = static_cast<TAVUTree*>(object.Value.Pointer);
    if (!tree) return false;
    switch (member->ID) {
    case MemberFont:
        return SetFont(result, tree->Font);
    case MemberSelection:
        return TAVUTreeNodeType::SetNode(result, tree->Selection);
    case MemberRoot:
        return TAVUTreeNodeType::SetNode(result, tree->Root, true);
    case MemberGetNode:
        return argc >= 1 && TAVUTreeNodeType::SetNode(result, FindNode(tree, argv[0]));
    case MemberImage:
        return SetTexture(result, tree->ImageTexture);
    case MemberImageCollapsible:
        return SetTexture(result, tree->ImageTextureCollapsible);
    case MemberImageCollapsed:
        return SetTexture(result, tree->ImageTextureCollapsed);
    }
    return false;
}
