// "tavutree": the script type of TAVUTree; what it lacks climbs to
// tavuframe. Its nodes are reached through Root, Selection and GetNode.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUTreeType : public TAVUControlType {
public:
    TAVUTreeType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;

    static RXTypeDefinition* Make();
};
