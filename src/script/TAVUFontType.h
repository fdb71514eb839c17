// "tavufont": an element's font as scripts read and change it. Its text form
// is the font's name.
#pragma once

#include "TAVUScriptType.h"

class TAVU_API TAVUFontType : public TAVUScriptType {
public:
    TAVUFontType();
    // Fonts are the one kind of value that may be made from text.
    bool FromText(RXObjectData& object, const char* text) override;
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

    static RXTypeDefinition* Make();
};
