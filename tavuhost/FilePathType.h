// The host type "filepath": a file path as wide (UTF-16) text, the form in
// which file names reach the operating system. Its text form is UTF-8.
#pragma once

#include "HostValueType.h"

class FilePathType : public HostValueType {
public:
    explicit FilePathType(ScriptEngine& engine);

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
