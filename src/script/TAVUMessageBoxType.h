// "tavumessagebox": the script type of TAVUMessageBox and TAVUScriptMessageBox.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUMessageBoxType : public TAVUControlType {
public:
    TAVUMessageBoxType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
