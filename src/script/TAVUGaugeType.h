// "tavugauge": the script type of gauges and variable gauges.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUGaugeType : public TAVUControlType {
public:
    TAVUGaugeType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
