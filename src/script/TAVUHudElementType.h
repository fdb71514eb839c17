// "tavuhudelement": the script type of TAVUHudElement; what it lacks climbs
// to tavuelement.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUHudElementType : public TAVUControlType {
public:
    TAVUHudElementType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
