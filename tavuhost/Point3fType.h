// The host type "point3f": a world location of three floats. The value is a
// pointer to the three; a variable owns them.
#pragma once

#include "HostValueType.h"

class Point3fType : public HostValueType {
public:
    explicit Point3fType(ScriptEngine& engine);

    bool ParseText(RXObjectData& object, const char* text) override;
    void ClearVariable(RXObjectData& object, const char* subType) override;
    void FreeVariable(RXObjectData& object) override;
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

private:
    bool Store(RXObjectData& object, int argc, char* argv[]);
};
