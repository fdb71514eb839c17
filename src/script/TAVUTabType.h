// "tavutab": one tab of a tab control. A name the tab lacks is asked of its
// page, as tavuframe, so that a script reaches the page through its tab.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUTabType : public TAVUControlType {
public:
    TAVUTabType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;
    int IndexFallback(RXObjectData& object, int argc, char* argv[], _RXTypeVar& result) override;
    int MemberFallback(RXObjectData& object, const char* name, int argc, char* argv[],
                       _RXTypeVar& result) override;
    int MethodFallback(RXObjectData& object, const char* name, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
