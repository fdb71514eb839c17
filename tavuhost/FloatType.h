// The host type "float": a 32-bit floating-point number.
#pragma once

#include "HostValueType.h"

class FloatType : public HostValueType {
public:
    explicit FloatType(ScriptEngine& engine);

    bool ParseText(RXObjectData& object, const char* text) override;
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

private:
    bool Store(RXObjectData& object, double value);
};
