#include "TAVUTooltipType.h"

#include "TAVUScriptTypes.h"
#include "TAVUTooltip.h"

namespace {
enum Member : uint32_t { MemberFont, MemberLines, MemberLine, MemberCount };

enum Method : uint32_t { MethodReset, MethodPrint, MethodSetLine, MethodCount };

const char* const kMemberNames[MemberCount] = {"Font", "Lines", "Line"};
const char* const kMethodNames[MethodCount] = {"Reset", "Print", "SetLine"};

// Lines count from 1, in the order they were printed since the last Reset.
TAVUTooltipLine* LineArgument(TAVUTooltip* tooltip, const char* text) {
    int n = TAVUScriptType::ArgInt(text);
    return n > 0 ? tooltip->GetLine(unsigned(n)) : nullptr;
}
} // namespace

TAVUTooltipType::TAVUTooltipType() : TAVUControlType("tavutooltip", &pTAVUFrameType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUTooltipType::Make() {
    return new TAVUTooltipType();
}

bool TAVUTooltipType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                                _RXTypeVar& result) {
    auto* tooltip = static_cast<TAVUTooltip*>(object.Value.Pointer);
    if (!tooltip) return false;
    switch (member->ID) {
    case MemberFont:
        return SetFont(result, tooltip->Font);
    case MemberLines:
        return SetUInt(result, tooltip->LineCount);
    case MemberLine: {
        if (argc < 1) return false;
        TAVUTooltipLine* line = LineArgument(tooltip, argv[0]);
        return line && SetString(result, line->Text);
    }
    }
    return false;
}

bool TAVUTooltipType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                char* argv[]) {
    auto* tooltip = static_cast<TAVUTooltip*>(object.Value.Pointer);
    if (!tooltip) return false;
    switch (method->ID) {
    case MethodReset:
        tooltip->Reset();
        return true;
    case MethodPrint:
        if (argc < 1) return false;
        tooltip->Print(argv[0]);
        return true;
    case MethodSetLine: {
        if (argc < 2) return false;
        TAVUTooltipLine* line = LineArgument(tooltip, argv[0]);
        if (!line) return false;
        line->Set(argv[1]);
        return true;
    }
    }
    return false;
}
