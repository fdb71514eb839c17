// The host type "bool": reads as TRUE or FALSE.
#pragma once

#include "HostValueType.h"

class BoolType : public HostValueType {
public:
    explicit BoolType(ScriptEngine& engine);

    bool ParseText(RXObjectData& object, const char* text) override;
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

private:
    bool Store(RXObjectData& object, bool value);
    bool Truth(const char* text, bool& value);
};
