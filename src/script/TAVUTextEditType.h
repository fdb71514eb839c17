// "tavutextedit": the script type of TAVUTextEdit. It reads the font and
// builds text; no member gives the text back. Names it lacks fall back to
// tavuframe, although its declared base is tavuelement.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUTextEditType : public TAVUControlType {
public:
    TAVUTextEditType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
