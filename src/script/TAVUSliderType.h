// "tavuslider": the script type of TAVUSlider and TAVUVariableSlider.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUSliderType : public TAVUControlType {
public:
    TAVUSliderType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
