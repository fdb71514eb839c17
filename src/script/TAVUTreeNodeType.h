// "tavutreenode": one node of a tree, which is no element. Its text form is
// the node's address as a decimal number, which the tree's GetNode takes
// back; a name it lacks climbs nowhere. Methods that would change the hidden
// Root refuse, but for Select, AddChild and RemoveChildren.
#pragma once

#include "TAVUScriptType.h"

class TAVUTreeNode;

class TAVU_API TAVUTreeNodeType : public TAVUScriptType {
public:
    TAVUTreeNodeType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

    // A node as a member's result; false for none, unless even none is given.
    static bool SetNode(_RXTypeVar& result, TAVUTreeNode* node, bool evenNone = false);
    static RXTypeDefinition* Make();
};
