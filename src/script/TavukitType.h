// "tavukit": the toolkit's global object, reached through the top-level object
// "Tavukit". It has members only, and no text form.
#pragma once

#include "TAVUScriptType.h"

class TAVU_API TavukitType : public TAVUScriptType {
public:
    TavukitType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToText(RXObjectData& object, char* buffer) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

    static RXTypeDefinition* Make();
};
