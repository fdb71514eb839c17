// "tavutexture": a texture as scripts read and change it. Its handlers take
// the object as valid: a texture reference has no protection of its own.
#pragma once

#include "TAVUScriptType.h"

class TAVU_API TAVUTextureType : public TAVUScriptType {
public:
    TAVUTextureType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    // The file name, as a "filepath" of the host.
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

    static RXTypeDefinition* Make();
};
