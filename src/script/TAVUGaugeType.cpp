#include "TAVUGaugeType.h"

#include "TAVUGauge.h"
#include "TAVUScriptTypes.h"

namespace {
enum Member : uint32_t { MemberBorder, MemberVertical, MemberRange, MemberValue, MemberCount };

enum Method : uint32_t { MethodSetRange, MethodSetValue, MethodCount };

// "Border" is a name of this type with nothing behind it: it always answers
// false, and since it is found here it never climbs to the frame's "Border".
// That is how gauges have always answered, and it stays.
const char* const kMemberNames[MemberCount] = {"Border", "Vertical", "Range", "Value"};
const char* const kMethodNames[MethodCount] = {"SetRange", "SetValue"};
} // namespace

TAVUGaugeType::TAVUGaugeType() : TAVUControlType("tavugauge", &pTAVUFrameType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUGaugeType::Make() {
    return new TAVUGaugeType();
}

bool TAVUGaugeType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                              _RXTypeVar& result) {
    auto* gauge = static_cast<TAVUGauge*>(object.Value.Pointer);
    if (!gauge) return false;
    switch (member->ID) {
    case MemberVertical:
        return SetBool(result, gauge->Vertical);
    case MemberRange:
        return SetFloat(result, gauge->Range);
    case MemberValue:
        return SetFloat(result, gauge->Value);
    }
    return false;
}

bool TAVUGaugeType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    auto* gauge = static_cast<TAVUGauge*>(object.Value.Pointer);
    if (!gauge || argc < 1) return false;
    switch (method->ID) {
    case MethodSetRange:
        gauge->SetRange(ArgFloat(argv[0]));
        return true;
    case MethodSetValue:
        gauge->SetValue(ArgFloat(argv[0]));
        return true;
    }
    return false;
}
