// The host type "string": UTF-8 text. A variable owns a heap copy; any other
// string value points at text that someone else keeps alive.
#pragma once

#include "HostValueType.h"

class StringType : public HostValueType {
public:
    explicit StringType(ScriptEngine& engine);

    bool ParseText(RXObjectData& object, const char* text) override;
    void ClearVariable(RXObjectData& object, const char* subType) override;
    void FreeVariable(RXObjectData& object) override;
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

private:
    bool Replace(RXObjectData& object, const std::string& text);
};
