// "tavuconsole": the script type of TAVUConsole. Names it lacks climb to
// tavuframe, although a console is not a frame: the frame's handlers refuse
// an element that is not one.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUConsoleType : public TAVUControlType {
public:
    TAVUConsoleType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
