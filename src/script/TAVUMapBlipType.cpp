#include "TAVUMapBlipType.h"

#include "Module.h"
#include "TAVUControlHelpers.h"
#include "TAVUMap.h"
#include "TAVUMapBlip.h"
#include "TAVUScriptTypes.h"

namespace {
enum Member : uint32_t { MemberLocation, MemberCustom, MemberLabel, MemberFont, MemberCount };

enum Method : uint32_t {
    MethodSetType,
    MethodSetLabel,
    MethodSetCustom,
    MethodRemove,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {"Location", "Custom", "Label", "Font"};
const char* const kMethodNames[MethodCount] = {"SetType", "SetLabel", "SetCustom", "Remove"};
} // namespace

TAVUMapBlipType::TAVUMapBlipType() : TAVUControlType("tavumapblip", &pTAVUFrameType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUMapBlipType::Make() {
    return new TAVUMapBlipType();
}

bool TAVUMapBlipType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    auto* blip = static_cast<TAVUMapBlip*>(object.Value.Pointer);
    return blip && CopyText(blip->Label ? blip->Label : blip->Name, buffer, size);
}

bool TAVUMapBlipType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                                _RXTypeVar& result) {
    auto* blip = static_cast<TAVUMapBlip*>(object.Value.Pointer);
    if (!blip) return false;
    switch (member->ID) {
    case MemberLocation: // the blip's own three floats: a script reads them live
        result.Value.Pointer = &blip->Location;
        result.Type = g_pPoint3fType;
        return true;
    case MemberCustom:
        return blip->Custom && SetString(result, blip->Custom);
    case MemberLabel:
        return blip->Label && SetString(result, blip->Label);
    case MemberFont: // also for a blip without a font, as for every control
        return SetFont(result, blip->Font);
    }
    return false;
}

bool TAVUMapBlipType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                char* argv[]) {
    auto* blip = static_cast<TAVUMapBlip*>(object.Value.Pointer);
    if (!blip) return false;
    switch (method->ID) {
    case MethodSetType: // kept in the table for old scripts; it never did anything
        return false;
    case MethodSetCustom:
        TAVUControlHelpers::ReplaceText(blip->Custom, argc >= 1 ? argv[0] : nullptr);
        return true;
    case MethodRemove:
        // The blip is gone after this line; answering false tells the script
        // so, and nothing here may touch it again.
        if (TAVUMap* map = blip->Map()) map->RemoveBlip(blip->ID);
        return false;
    }
    if (argc < 1) return false;
    switch (method->ID) {
    case MethodSetLabel:
        TAVUControlHelpers::ReplaceText(blip->Label, argv[0]);
        return true;
    }
    return false;
}
