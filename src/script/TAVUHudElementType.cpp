#include "TAVUHudElementType.h"

#include "TAVUHudElement.h"
#include "TAVUScriptTypes.h"

namespace {
enum Member : uint32_t { MemberText, MemberGroup, MemberFont, MemberUpdateInterval, MemberCount };

enum Method : uint32_t { MethodSetText, MethodSetGroup, MethodSetUpdateInterval, MethodCount };

const char* const kMemberNames[MemberCount] = {"Text", "Group", "Font", "UpdateInterval"};
const char* const kMethodNames[MethodCount] = {"SetText", "SetGroup", "SetUpdateInterval"};
} // namespace

TAVUHudElementType::TAVUHudElementType() : TAVUControlType("tavuhudelement", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUHudElementType::Make() {
    return new TAVUHudElementType();
}

bool TAVUHudElementType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                                   _RXTypeVar& result) {
    auto* hud = static_cast<TAVUHudElement*>(object.Value.Pointer);
    if (!hud) return false;
    switch (member->ID) {
    case MemberText:
        return SetText(result, hud->Text);
    case MemberGroup:
        return hud->Group && SetString(result, hud->Group);
    case MemberFont:
        return SetFont(result, hud->Font);
    case MemberUpdateInterval:
        return SetInt(result, int(hud->UpdateInterval));
    }
    return false;
}

bool TAVUHudElementType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                   char* argv[]) {
    auto* hud = static_cast<TAVUHudElement*>(object.Value.Pointer);
    if (!hud) return false;
    const char* first = argc >= 1 ? argv[0] : nullptr;
    switch (method->ID) {
    case MethodSetText:
        if (!first) return false;
        hud->SetText(first);
        return true;
    case MethodSetGroup:
        hud->SetGroup(first);
        return true;
    case MethodSetUpdateInterval:
        if (!first) return false;
        hud->UpdateInterval = unsigned(ArgInt(first));
        return true;
    }
    return false;
}
