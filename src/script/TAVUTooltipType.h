// "tavutooltip": the script type of TAVUTooltip.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUTooltipType : public TAVUControlType {
public:
    TAVUTooltipType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
