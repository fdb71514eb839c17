// "tavuwindow": the script type of TAVUWindow; what it lacks climbs to tavuframe.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUWindowType : public TAVUControlType {
public:
    TAVUWindowType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
