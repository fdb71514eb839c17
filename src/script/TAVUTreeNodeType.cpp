#include "TAVUTreeNodeType.h"

#include "TAVUControlType.h"
#include "TAVUScriptTypes.h"
#include "TAVUTree.h"
#include "TAVUTreeNode.h"

#include <cinttypes>
#include <cstdio>

namespace {
enum Member : uint32_t {
    MemberHandle,
    MemberText,
    MemberTextColor,
    MemberImage,
    MemberImageCollapsible,
    MemberImageCollapsed,
    MemberParent,
    MemberChildren,
    MemberNext,
    MemberPrevious,
    MemberExpanded,
    MemberTree,
    MemberGetMetadata,
    MemberIsSelected,
    MemberAddChild,
    MemberInsertSiblingBefore,
    MemberInsertSiblingAfter,
    MemberCount
};

enum Method : uint32_t {
    MethodAddChild,
    MethodInsertSiblingBefore,
    MethodInsertSiblingAfter,
    MethodSetText,
    MethodSetTextColor,
    MethodSelect,
    MethodRemove,
    MethodRemoveChildren,
    MethodExpand,
    MethodCollapse,
    MethodToggleExpand,
    MethodSetMetadata,
    MethodUnsetMetadata,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {"Handle",
                                               "Text",
                                               "TextColor",
                                               "Image",
                                               "ImageCollapsible",
                                               "ImageCollapsed",
                                               "Parent",
                                               "Children",
                                               "Next",
                                               "Previous",
                                               "Expanded",
                                               "Tree",
                                               "GetMetadata",
                                               "IsSelected",
                                               "AddChild",
                                               "InsertSiblingBefore",
                                               "InsertSiblingAfter"};
const char* const kMethodNames[MethodCount] = {
    "AddChild",     "InsertSiblingBefore", "InsertSiblingAfter",
    "SetText",      "SetTextColor",        "Select",
    "Remove",       "RemoveChildren",      "Expand",
    "Collapse",     "ToggleExpand",        "SetMetadata",
    "UnsetMetadata"};

// The methods that leave the Root alone: they give false there.
bool RefusedOnRoot(uint32_t method) {
    switch (method) {
    case MethodAddChild:
    case MethodSelect:
    case MethodRemoveChildren:
    case MethodSetMetadata:
    case MethodUnsetMetadata:
        return false;
    }
    return true;
}
} // namespace

TAVUTreeNodeType::TAVUTreeNodeType() : TAVUScriptType("tavutreenode") {
    for (uint32_t id = 0; id < MemberCount; ++id)
        AddMember(id, kMemberNames[id], nullptr);
    for (uint32_t id = 0; id < MethodCount; ++id)
        AddMethod(id, kMethodNames[id], nullptr);
}

RXTypeDefinition* TAVUTreeNodeType::Make() {
    return new TAVUTreeNodeType();
}

bool TAVUTreeNodeType::SetNode(_RXTypeVar& result, TAVUTreeNode* node, bool evenNone) {
    if (!node && !evenNone) return false;
    result.Value.Pointer = node;
    result.Type = pTAVUTreeNodeType;
    return true;
}

bool TAVUTreeNodeType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    char text[24];
    snprintf(text, sizeof(text), "%" PRId64, int64_t(intptr_t(object.Value.Pointer)));
    return CopyText(text, buffer, size);
}

// Only the low 32 bits of the address reach script through Handle; the text
// form carries the whole of it.
bool TAVUTreeNodeType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc,
                                 char* argv[], _RXTypeVar& result) {
    auto* node = static_cast<TAVUTreeNode*>(object.Value.Pointer);
    if (!node) return false;
    switch (member->ID) {
    case MemberHandle:
        return SetInt(result, int(uint32_t(uintptr_t(node))));
    case MemberText:
        return node->Text && SetString(result, node->Text);
    case MemberTextColor:
        return SetInt(result, int(node->TextColor));
    case MemberImage:
        return TAVUControlType::SetTexture(result, node->Image);
    case MemberImageCollapsible:
        return TAVUControlType::SetTexture(result, node->ImageCollapsible);
    case MemberImageCollapsed:
        return TAVUControlType::SetTexture(result, node->ImageCollapsed);
    case MemberParent:
        return SetNode(result, node->Parent);
    case MemberChildren:
        return SetNode(result, node->FirstChild);
    case MemberNext:
        return SetNode(result, node->Next);
    case MemberPrevious:
        return SetNode(result, node->Previous);
    case MemberExpanded:
        return SetBool(result, node->Expanded);
    case MemberGetMetadata: {
        const char* value = argc >= 1 ? node->GetMetadata(argv[0]) : nullptr;
        return value && SetString(result, value);
    }
    case MemberIsSelected:
        return SetBool(result, node == node->Tree->Selection);
    case MemberAddChild:
        return SetNode(result, node->AddChild(argc, argv));
    case MemberInsertSiblingBefore:
        return SetNode(result, node->InsertSiblingBefore(argc, argv));
    case MemberInsertSiblingAfter:
        return SetNode(result, node->InsertSiblingAfter(argc, argv));
    }
    return false; // Tree is registered and answers nothing
}

bool TAVUTreeNodeType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                 char* argv[]) {
    auto* node = static_cast<TAVUTreeNode*>(object.Value.Pointer);
    if (!node || (node->IsRoot() && RefusedOnRoot(method->ID))) return false;
    switch (method->ID) {
    case MethodAddChild:
        return node->AddChild(argc, argv) != nullptr;
    case MethodInsertSiblingBefore:
        return node->InsertSiblingBefore(argc, argv) != nullptr;
    case MethodInsertSiblingAfter:
        return node->InsertSiblingAfter(argc, argv) != nullptr;
    case MethodSetText:
        if (argc < 1) return false;
        node->SetText(argv[0]);
        return true;
    case MethodSetTextColor:
        if (argc < 1) return false;
        ArgHex(argv[0], node->TextColor);
        return true;
    case MethodSelect:
        node->Select();
        return true;
    case MethodRemove:
        node->Remove();
        return false;
    case MethodRemoveChildren:
        node->RemoveChildren();
        return true;
    case MethodExpand:
        node->Expand();
        return true;
    case MethodCollapse:
        node->Collapse();
        return true;
    case MethodToggleExpand:
        node->ToggleExpand();
        return true;
    case MethodSetMetadata:
        return argc >= 2 && node->SetMetadata(argv[0], argv[1]);
    case MethodUnsetMetadata:
        return argc >= 1 && node->UnsetMetadata(argv[0]);
    }
    return false;
}
