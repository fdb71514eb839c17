#include "BoolType.h"

#include "HostText.h"

namespace {
enum MemberID : uint32_t { Not = 1 };
enum MethodID : uint32_t { Set = 1, Toggle };

// Only the low byte is the flag; reading it as a byte tolerates any other bytes.
bool FlagOf(const RXObjectData& object) {
    return (object.Value.UInt & 0xFF) != 0;
}
} // namespace

BoolType::BoolType(ScriptEngine& engine) : HostValueType("bool", engine) {
    AddMember(Not, "Not", nullptr);
    AddMethod(Set, "Set", nullptr);
    AddMethod(Toggle, "Toggle", nullptr);
}

bool BoolType::Store(RXObjectData& object, bool value) {
    if (!IsVariable(object)) return false;
    object.Value.Int64 = 0;
    object.Value.Bool = value;
    return true;
}

// TRUE, FALSE and numbers read directly; anything else as an expression.
bool BoolType::Truth(const char* text, bool& value) {
    if (ParseTruth(text, value)) return true;
    double number = 0;
    if (!Evaluate(text, number)) return false;
    value = number != 0;
    return true;
}

bool BoolType::ParseText(RXObjectData& object, const char* text) {
    bool value = false;
    return Truth(text, value) && Store(object, value);
}

bool BoolType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                         _RXTypeVar& result) {
    if (member->ID == Not) return GiveBool(result, !FlagOf(object));
    return false;
}

bool BoolType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    bool value = false;
    switch (method->ID) {
    case Set:
        return argc > 0 && Truth(argv[0], value) && Store(object, value);
    case Toggle:
        return Store(object, !FlagOf(object));
    default:
        return false;
    }
}

bool BoolType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    CopyText(buffer, size, FlagOf(object) ? "TRUE" : "FALSE");
    return true;
}
