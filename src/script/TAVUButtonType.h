// "tavubutton": the script type of TAVUButton and the classes built on it.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUButtonType : public TAVUControlType {
public:
    TAVUButtonType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
