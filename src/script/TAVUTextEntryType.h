// "tavutextentry": the script type of TAVUTextEntry and TAVUCommandEntry.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUTextEntryType : public TAVUControlType {
public:
    TAVUTextEntryType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
