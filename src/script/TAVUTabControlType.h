// "tavutabcontrol": the script type of TAVUTabControl; what it lacks climbs
// to tavuframe.
#pragma once

#include "TAVUControlType.h"

class CTAVUTab;

class TAVU_API TAVUTabControlType : public TAVUControlType {
public:
    TAVUTabControlType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;

    // A tab as a script value; false for none.
    static bool SetTab(_RXTypeVar& result, CTAVUTab* tab);

    static RXTypeDefinition* Make();
};
