// "tavumap": the script type of TAVUMap. Scripts add, find and walk blips,
// move the origin, turn the heading and switch the map's display options.
//
// "Origin" and "ZClipping" leave a value in the result and still answer
// false, and "xShowLabels" carries its leading x: scripts rely on both.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUMapType : public TAVUControlType {
public:
    TAVUMapType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    // A map has no text form.
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

    static RXTypeDefinition* Make();
};
