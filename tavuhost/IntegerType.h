// The host types "int" (signed 32-bit), "uint" (unsigned 32-bit) and "int64":
// one class, three instances, told apart by their width and sign.
#pragma once

#include "HostValueType.h"

class IntegerType : public HostValueType {
public:
    enum class Kind { Int, UInt, Int64 };

    IntegerType(const char* name, Kind kind, ScriptEngine& engine);

    bool ParseText(RXObjectData& object, const char* text) override;
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

private:
    int64_t Read(const RXObjectData& object) const;
    bool Store(RXObjectData& object, double value);

    Kind Width;
};
