// "tavumapblip": the script type of TAVUMapBlip. A blip reads as its label,
// or as its name when it has none.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUMapBlipType : public TAVUControlType {
public:
    TAVUMapBlipType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

    static RXTypeDefinition* Make();
};
